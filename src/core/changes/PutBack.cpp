#include "core/changes/PutBack.h"

#include "core/changes/RecordWords.h"
#include "core/changes/Words.h"
#include "core/database/SchemaTables.h"
#include "core/ledger/Posting.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

namespace quorvane::changes {
namespace {

using database::KeyReference;
using database::Transaction;
using ledger::Lots;
using ledger::Place;
using records::Bill;
using records::BillLine;

/// The accounts of the bills whose lines are touched: as they stand, and as they will stand.
class BillAccounts {
 public:
  BillAccounts(Transaction& transaction, EntryRows& rows) {
    std::set<BillId> bills;
    const auto& lines = rows.Of<BillLine>();
    for (const auto* list : {&lines.removed, &lines.added}) {
      for (const BillLine& line : *list) {
        bills.insert(line.bill);
      }
    }
    for (const BillId bill : bills) {
      records::Select<Bill>(transaction.GetConnection())
          .Where(&Bill::id, bill)
          .Each([&](const Bill& stored) { before_[bill] = after_[bill] = stored.account; });
    }
    for (const Bill& bill : rows.Of<Bill>().removed) {
      after_[bill.id] = bill.account;
    }
  }

  Place Now(const BillLine& line) const { return {line.Of(), AccountIn(before_, line.bill)}; }
  Place Then(const BillLine& line) const { return {line.Of(), AccountIn(after_, line.bill)}; }

 private:
  static AccountId AccountIn(const std::map<BillId, AccountId>& accounts, BillId bill) {
    const auto found = accounts.find(bill);
    return found == accounts.end() ? AccountId() : found->second;
  }

  std::map<BillId, AccountId> before_;
  std::map<BillId, AccountId> after_;
};

std::vector<Place> PlacesOf(EntryRows& rows, const BillAccounts& accounts) {
  std::vector<Place> places;
  const auto add = [&]<class Record>(const RowsOf<Record>& of, const auto& place_of) {
    for (const auto* list : {&of.removed, &of.added}) {
      for (const Record& record : *list) {
        place_of(record);
      }
    }
  };
  add(rows.Of<records::Opening>(), [&](const records::Opening& opening) {
    places.push_back({{opening.client, opening.year}, opening.account});
  });
  add(rows.Of<records::Transfer>(), [&](const records::Transfer& transfer) {
    places.push_back(ledger::SourceOf(transfer));
    places.push_back(ledger::DestinationOf(transfer));
  });
  add(rows.Of<records::ActionLot>(), [&](const records::ActionLot& lot) {
    places.push_back({lot.Of(), lot.account});
  });
  add(rows.Of<BillLine>(), [&](const BillLine& line) {
    places.push_back(accounts.Now(line));
    places.push_back(accounts.Then(line));
  });
  return places;
}

/// Calls `post` with the lines of each place, which it may change.
template <class PlaceOf, class Post>
void ByPlace(std::vector<BillLine>& lines, const PlaceOf& place_of, const Post& post) {
  std::map<Place, std::vector<std::size_t>> places;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    places[place_of(lines[i])].push_back(i);
  }
  for (const auto& [place, numbers] : places) {
    std::vector<BillLine> there;
    for (const std::size_t number : numbers) {
      there.push_back(lines[number]);
    }
    post(place, std::span<BillLine>(there));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      lines[numbers[i]] = there[i];
    }
  }
}

template <class Record>
void Move(Lots& lots, const RowsOf<Record>& rows) {
  for (const Record& record : rows.removed) {
    ledger::Post(lots, record);
  }
  // The last one first: an action may have worked on the lots of another one.
  for (auto record = rows.added.rbegin(); record != rows.added.rend(); ++record) {
    ledger::TakeBack(lots, *record);
  }
}

Refusal LacksShares(Transaction& transaction, ScripId scrip) {
  auto rows = transaction.Open("Select Name From Script Where Id=?", scrip);
  return {
      Tr("Changes",
         "It can't be Taken Back: Shares of %1 that it Concerns were Sold or Transferred Since.")
          .arg(rows.Next() ? rows.Text(0) : QString()),
      {}};
}

/// Lots follow from documents, and average rates are only kept.
bool IsDerived(std::string_view table) {
  return table == "Stock" || table == "Stock_Temp" || table == "ScriptAvgRate";
}

std::int64_t CountNaming(Transaction& transaction, const KeyReference& reference, int key) {
  auto rows = transaction.Open(
      fmt::format("Select Count(*) From {} Where {}=?", reference.table, reference.column), key);
  return rows.Next() ? rows.Int64(0) : 0;
}

/// The records that go away are named by none that stays.
template <class Record>
MaybeRefusal CheckNotNamed(Transaction& transaction, const RowsOf<Record>& rows) {
  std::set<std::string> stays;
  for (const Record& record : rows.removed) {
    stays.insert(IdentityOf(record));
  }
  for (const Record& record : rows.added) {
    if (stays.contains(IdentityOf(record))) {
      continue;
    }
    for (const KeyReference& reference : database::KeyReferences()) {
      if (reference.names != rows.table || IsDerived(reference.table)) {
        continue;
      }
      const int key = records::KeyNumber(record.*GroupMember<Record>());
      if (const std::int64_t naming = CountNaming(transaction, reference, key); naming > 0) {
        return Refusal{Tr("Changes", "It can't be Taken Back: %1 records of \"%2\" name it.")
                           .arg(naming)
                           .arg(RecordName(reference.table)),
                       {}};
      }
    }
  }
  return std::nullopt;
}

/// What a key of that table's column names was deleted after the entry.
bool IsGone(Transaction& transaction, const Entry& entry, std::string_view names, int key) {
  if (names == "ClientActDet") {
    return !transaction
                .Open(
                    "Select id From ClientActDet Where id=? Union Select id From RemovedAccount "
                    "Where id=?",
                    key, key)
                .Next();
  }
  return transaction
             .Open("Select 1 From ChangeLog Where TableName=? And RecordId=? And Id>? And Kind=?",
                   names, key, entry.id, static_cast<int>(Kind::kDeleted))
             .Next() &&
         !transaction.Open(fmt::format("Select 1 From {} Where Id=?", names), key).Next();
}

template <class Record>
MaybeRefusal CheckNamesAreThere(Transaction& transaction, const Entry& entry,
                                const RowsOf<Record>& rows) {
  for (const KeyReference& reference : database::KeyReferences()) {
    if (reference.table != rows.table || IsDerived(reference.names)) {
      continue;
    }
    std::set<int> keys;
    for (const Record& record : rows.removed) {
      records::ForEachColumn<Record>([&](const auto& column) {
        using Field = std::remove_cvref_t<decltype(record.*(column.member))>;
        if constexpr (std::is_same_v<Field, int> || requires(Field key) { key.value; }) {
          if (column.name == reference.column) {
            keys.insert(records::KeyNumber(record.*(column.member)));
          }
        }
      });
    }
    keys.erase(0);
    for (const int key : keys) {
      if (IsGone(transaction, entry, reference.names, key)) {
        return Refusal{Tr("Changes", "It can't be Taken Back: the %1 that it names was Deleted.")
                           .arg(RecordName(reference.names)),
                       {}};
      }
    }
  }
  return std::nullopt;
}

}  // namespace

MaybeRefusal PutLotsBack(Transaction& transaction, EntryRows& rows) {
  const BillAccounts accounts(transaction, rows);
  Lots lots;
  ledger::LockAndLoad(transaction, lots, PlacesOf(rows, accounts));
  Move(lots, rows.Of<records::Opening>());
  Move(lots, rows.Of<records::Transfer>());
  Move(lots, rows.Of<records::ActionLot>());
  auto& lines = rows.Of<BillLine>();
  ByPlace(
      lines.removed, [&](const BillLine& line) { return accounts.Then(line); },
      [&](const Place& place, std::span<BillLine> of) { ledger::PostLines(lots, place, of); });
  ByPlace(
      lines.added, [&](const BillLine& line) { return accounts.Now(line); },
      [&](const Place& place, std::span<BillLine> of) { ledger::TakeBackLines(lots, place, of); });
  if (const std::optional<ScripId> scrip = lots.Shortage()) {
    return LacksShares(transaction, *scrip);
  }
  lots.Write(transaction);
  ledger::NumberLots(lots, lines.removed);
  return std::nullopt;
}

std::vector<ClientYear> HoldersOf(EntryRows& rows) {
  std::set<ClientYear> holders;
  const auto add = [&]<class Record>(const RowsOf<Record>& of) {
    for (const auto* list : {&of.removed, &of.added}) {
      for (const Record& record : *list) {
        holders.insert({record.client, record.year});
      }
    }
  };
  add(rows.Of<records::Opening>());
  add(rows.Of<Bill>());
  add(rows.Of<BillLine>());
  add(rows.Of<records::Transfer>());
  add(rows.Of<records::ActionLot>());
  for (const records::Transfer& transfer : rows.Of<records::Transfer>().removed) {
    holders.insert({transfer.to_client, transfer.year});
  }
  return {holders.begin(), holders.end()};
}

MaybeRefusal CheckReferences(Transaction& transaction, const Entry& entry, EntryRows& rows) {
  MaybeRefusal refusal;
  rows.ForEach([&]<class Record>(const RowsOf<Record>& of) {
    if (!refusal && !of.IsEmpty()) {
      refusal = CheckNotNamed(transaction, of);
    }
    if (!refusal && !of.IsEmpty()) {
      refusal = CheckNamesAreThere(transaction, entry, of);
    }
  });
  return refusal;
}

}  // namespace quorvane::changes
