#pragma once

#include "core/changes/Log.h"
#include "core/records/Bill.h"
#include "core/records/Dividend.h"
#include "core/records/Lot.h"
#include "core/records/Masters.h"
#include "core/records/Money.h"
#include "core/records/Opening.h"
#include "core/records/OpeningMark.h"
#include "core/records/Rates.h"
#include "core/records/RowJson.h"
#include "core/records/StatementCheck.h"
#include "core/records/Tax.h"
#include "core/records/TradeKey.h"
#include "core/records/Transfer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace quorvane::changes {

/// The rows of an entry as records: what it removed and what it added, table by table.
template <class Record>
struct RowsOf {
  std::string_view table = records::Table<Record>::kName;
  std::vector<Record> removed = {};
  std::vector<Record> added = {};
  std::vector<records::Nulls> removed_nulls = {};  ///< of each removed row

  bool IsEmpty() const { return removed.empty() && added.empty(); }
};

/// Every table whose rows can be put back, masters before what names them.
struct EntryRows {
  std::tuple<RowsOf<records::Client>, RowsOf<records::Participant>, RowsOf<records::DpId>,
             RowsOf<records::Account>, RowsOf<records::Broker>, RowsOf<records::ScripType>,
             RowsOf<records::ScripClass>, RowsOf<records::Scrip>, RowsOf<records::ScripIsin>,
             RowsOf<records::Exchange>, RowsOf<records::SttPercent>, RowsOf<records::Percentage>,
             RowsOf<records::Action>, RowsOf<records::ActionLot>, RowsOf<records::Dividend>,
             RowsOf<records::Opening>, RowsOf<records::OpeningMark>, RowsOf<records::Bill>,
             RowsOf<records::BillLine>, RowsOf<records::Transfer>, RowsOf<records::BrokerOpening>,
             RowsOf<records::Payment>, RowsOf<records::TradeKey>, RowsOf<records::FairValue>,
             RowsOf<records::TaxLoss>, RowsOf<records::StatementCheck>, RowsOf<records::MarketRate>,
             RowsOf<records::Lot>>
      tables;
  RowsOf<records::Account> removed_accounts{.table = records::kRemovedAccounts};
  RowsOf<records::Payment> receipts{.table = records::kReceipts};

  template <class Record>
  RowsOf<Record>& Of() {
    return std::get<RowsOf<Record>>(tables);
  }

  template <class Visit>
  void ForEach(const Visit& visit) {
    std::apply([&](auto&... rows) { (visit(rows), ...); }, tables);
    visit(removed_accounts);
    visit(receipts);
  }
};

namespace detail {

/// Calls `take` with a reader of the table's columns and the values of each row.
template <class Record, class Take>
void EachRow(const QJsonObject& tables, std::string_view table, const Take& take) {
  const auto found = tables.find(QLatin1String(table.data(), std::ssize(table)));
  if (found == tables.end()) {
    return;
  }
  const QJsonObject rows = found->toObject();
  const records::RowReader<Record> reader(rows[QLatin1String("columns")].toArray());
  for (const auto& values : rows[QLatin1String("rows")].toArray()) {
    take(reader, values.toArray());
  }
}

}  // namespace detail

/// Nothing for an entry that holds only counts or a table that this release does not know.
inline std::optional<EntryRows> ReadRows(const Entry& entry) {
  const QJsonObject before =
      QJsonDocument::fromJson(QByteArray::fromStdString(entry.old_rows)).object();
  const QJsonObject after =
      QJsonDocument::fromJson(QByteArray::fromStdString(entry.new_rows)).object();
  EntryRows rows;
  qsizetype known = 0;
  rows.ForEach([&]<class Record>(RowsOf<Record>& of) {
    const QLatin1String name(of.table.data(), std::ssize(of.table));
    known += (before.contains(name) ? 1 : 0) + (after.contains(name) ? 1 : 0);
    detail::EachRow<Record>(before, of.table, [&](const auto& reader, const QJsonArray& values) {
      of.removed.push_back(reader.RecordOf(values));
      of.removed_nulls.push_back(reader.NullsOf(values));
    });
    detail::EachRow<Record>(after, of.table, [&](const auto& reader, const QJsonArray& values) {
      of.added.push_back(reader.RecordOf(values));
    });
  });
  return known == before.size() + after.size() && known > 0 ? std::optional(std::move(rows))
                                                            : std::nullopt;
}

}  // namespace quorvane::changes
