#pragma once

#include "core/Result.h"
#include "core/changes/EntryRows.h"
#include "core/database/Transaction.h"
#include "core/records/Writing.h"

#include <set>
#include <string>
#include <vector>

namespace quorvane::changes {

// How rows of one table are put back: which they are, whether they stand as the entry left them,
// and whether a restored one would stand beside another of the same name.

/// The member by which stored rows of a table are looked up.
template <class Record>
constexpr auto GroupMember() {
  if constexpr (
      requires(Record r) {
        r.bill;
        r.number;
      } ||
      requires(Record r) { r.trade_key; }) {
    return &Record::bill;
  } else if constexpr (requires(Record r) {
                         r.action;
                         r.number;
                       }) {
    return &Record::action;
  } else if constexpr (
      requires(Record r) { r.isin; } || requires(Record r) { r.fair_rate; }) {
    return &Record::scrip;
  } else if constexpr (requires(Record r) { r.loss_year; } ||
                       std::is_same_v<Record, records::OpeningMark>) {
    return &Record::client;
  } else if constexpr (requires(Record r) { r.statement_day; }) {
    return &Record::account;
  } else {
    return &Record::id;
  }
}

/// What tells a row apart from the others of its table.
template <class Record>
std::string IdentityOf(const Record& record) {
  std::string identity = std::to_string(records::KeyNumber(record.*GroupMember<Record>()));
  if constexpr (std::is_same_v<Record, records::OpeningMark>) {
    identity += "/" + record.year.Utf8() + "/" + std::to_string(record.account.value) + "/" +
                std::to_string(record.scrip.value);
  } else if constexpr (requires { record.isin; }) {
    identity += "/" + record.isin.toStdString();
  } else if constexpr (requires { record.trade_key; }) {
    identity += "/" + record.trade_key.toStdString();
  } else if constexpr (requires { record.loss_year; }) {
    identity += "/" + record.year.Utf8() + "/" + record.loss_year.Utf8() + "/" +
                std::to_string(record.kind);
  } else if constexpr (requires { record.statement_day; }) {
    identity += "/" + record.statement_day.toStdString();
  } else if constexpr (
      requires { record.id; } || requires { record.fair_rate; }) {
    return identity;
  } else {
    identity += "/" + std::to_string(record.number);
  }
  return identity;
}

/// The stored rows that the entry's rows are among; locked to the end of the transaction.
template <class Record>
std::vector<Record> StoredRows(database::Transaction& transaction, const RowsOf<Record>& rows) {
  constexpr auto kMember = GroupMember<Record>();
  constexpr std::size_t kAtOnce = 500;
  using Key = std::remove_cvref_t<decltype(std::declval<Record>().*kMember)>;
  std::set<Key> wanted;
  for (const auto* list : {&rows.removed, &rows.added}) {
    for (const Record& record : *list) {
      wanted.insert(record.*kMember);
    }
  }
  const std::vector<Key> keys(wanted.begin(), wanted.end());
  std::vector<Record> stored;
  for (std::span<const Key> left(keys); !left.empty();
       left = left.subspan(std::min(kAtOnce, left.size()))) {
    records::Select<Record>(transaction.GetConnection(), rows.table)
        .In(kMember, left.first(std::min(kAtOnce, left.size())))
        .ForUpdate()
        .Each([&](const Record& record) { stored.push_back(record); });
  }
  return stored;
}

/// Whether what the entry added stands unchanged, and nothing stands where its old rows go.
template <class Record>
bool StandsAsLeft(database::Transaction& transaction, const RowsOf<Record>& rows) {
  std::set<std::string> added;
  for (const Record& record : rows.added) {
    added.insert(records::RowJson(record));
  }
  std::set<std::string> places;
  for (const Record& record : rows.removed) {
    places.insert(IdentityOf(record));
  }
  for (const Record& record : StoredRows(transaction, rows)) {
    const bool is_ours = added.erase(records::RowJson(record)) > 0;
    if (!is_ours && places.contains(IdentityOf(record))) {
      return false;
    }
  }
  return added.empty();
}

template <class Record>
void DeleteAdded(database::Transaction& transaction, const RowsOf<Record>& rows) {
  for (const Record& record : rows.added) {
    records::Delete<Record> one(transaction, rows.table);
    one.Where(GroupMember<Record>(), record.*GroupMember<Record>());
    if constexpr (std::is_same_v<Record, records::OpeningMark>) {
      one.Where(&Record::year, record.year)
          .Where(&Record::account, record.account)
          .Where(&Record::scrip, record.scrip);
    } else if constexpr (requires { record.isin; }) {
      one.Where(&Record::isin, record.isin);
    } else if constexpr (requires { record.trade_key; }) {
      one.Where(&Record::trade_key, record.trade_key);
    } else if constexpr (requires { record.loss_year; }) {
      one.Where(&Record::year, record.year)
          .Where(&Record::loss_year, record.loss_year)
          .Where(&Record::kind, record.kind);
    } else if constexpr (requires { record.statement_day; }) {
      one.Where(&Record::statement_day, record.statement_day);
    } else if constexpr (
        !requires { record.id; } && !requires { record.fair_rate; }) {
      one.Where(&Record::number, record.number);
    }
    one.Run();
  }
}

/// Whether another record has what no two records of the table may share.
template <class Record>
bool IsTaken(database::Transaction& transaction, const Record& record) {
  records::Select<Record> others(transaction.GetConnection());
  if constexpr (requires { record.code; }) {
    others.Where(&Record::code, record.code);
  } else if constexpr (std::is_same_v<Record, records::ScripType> ||
                       std::is_same_v<Record, records::ScripClass> ||
                       std::is_same_v<Record, records::Exchange>) {
    others.Where(&Record::name, record.name);
  } else if constexpr (std::is_same_v<Record, records::SttPercent>) {
    others.Where(&Record::percent, record.percent);
  } else if constexpr (std::is_same_v<Record, records::Percentage>) {
    others.Where(&Record::year, record.year).Where(&Record::name, record.name);
  } else if constexpr (std::is_same_v<Record, records::BrokerOpening>) {
    others.Where(&Record::client, record.client)
        .Where(&Record::year, record.year)
        .Where(&Record::broker, record.broker);
  } else if constexpr (std::is_same_v<Record, records::TradeKey>) {
    others.Where(&Record::account, record.account).Where(&Record::trade_key, record.trade_key);
  } else {
    return false;
  }
  bool taken = false;
  if constexpr (requires { record.id; }) {
    others.ForUpdate().Each([&](const Record& other) { taken |= other.id != record.id; });
  } else if constexpr (requires { record.trade_key; }) {
    others.ForUpdate().Each([&](const Record& other) { taken |= other.bill != record.bill; });
  }
  return taken;
}

/// Locks the lots of the documents and puts those back that the old rows say. Fills in the lots of
/// restored bill lines. Refused when shares would be missing.
MaybeRefusal PutLotsBack(database::Transaction& transaction, EntryRows& rows);

/// The clients and years whose lots follow from the entry's documents.
std::vector<ClientYear> HoldersOf(EntryRows& rows);

/// Refuses when a record that is taken out again is named by others, and when one that comes back
/// names one that was deleted since the entry. To be called when the rows stand as they will be.
MaybeRefusal CheckReferences(database::Transaction& transaction, const Entry& entry,
                             EntryRows& rows);

}  // namespace quorvane::changes
