#include "core/rates/IsinBook.h"

#include "core/database/BulkWriter.h"
#include "core/records/Masters.h"
#include "core/records/Writing.h"
#include "core/text/Isin.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace quorvane::rates {

Isins::Isins(database::Connection& connection) {
  for (const auto& row : connection.Open("Select ScrId,Isin From ScripIsin Order By ScrId,Isin")) {
    const ScripId scrip{row.Int(0)};
    by_isin_.emplace(std::string(row.Utf8(1)), scrip);
    by_scrip_.emplace(scrip, std::string(row.Utf8(1)));
  }
}

std::vector<ScripId> Isins::ScripsOf(const std::string& isin) const {
  std::vector<ScripId> scrips;
  const auto [first, last] = by_isin_.equal_range(isin);
  std::transform(first, last, std::back_inserter(scrips),
                 [](const auto& entry) { return entry.second; });
  std::ranges::sort(scrips);
  return scrips;
}

std::vector<std::string> Isins::Of(ScripId scrip) const {
  std::vector<std::string> isins;
  const auto [first, last] = by_scrip_.equal_range(scrip);
  std::transform(first, last, std::back_inserter(isins),
                 [](const auto& entry) { return entry.second; });
  return isins;
}

bool Isins::Has(ScripId scrip, const std::string& isin) const {
  const auto [first, last] = by_scrip_.equal_range(scrip);
  return std::any_of(first, last, [&](const auto& entry) { return entry.second == isin; });
}

namespace {

void SortByDay(std::vector<DatedIsin>& isins) {
  std::ranges::sort(isins, {}, [](const DatedIsin& one) {
    return std::tuple(text::ParseDmy(one.from_day), one.isin);
  });
}

}  // namespace

std::map<ScripId, std::vector<DatedIsin>> AllIsins(database::Connection& connection) {
  std::map<ScripId, std::vector<DatedIsin>> all;
  for (const auto& row : connection.Open("Select ScrId,Isin,FromDay From ScripIsin")) {
    all[ScripId{row.Int(0)}].push_back({row.Text(1), row.Text(2)});
  }
  for (auto& [scrip, isins] : all) {
    SortByDay(isins);
  }
  return all;
}

std::vector<DatedIsin> IsinsOf(database::Connection& connection, ScripId scrip) {
  std::vector<DatedIsin> isins;
  for (const auto& row :
       connection.Open("Select Isin,FromDay From ScripIsin Where ScrId=?", scrip)) {
    isins.push_back({row.Text(0), row.Text(1)});
  }
  SortByDay(isins);
  return isins;
}

MaybeRefusal CheckIsins(std::span<const DatedIsin> isins) {
  std::set<QString> seen;
  for (const DatedIsin& one : isins) {
    if (!text::IsValidIsin(one.isin.toStdString())) {
      return Refusal{Tr("Scrips",
                        "%1 is no ISIN: Two Letters, Nine Letters or Digits, and the "
                        "Check Digit.")
                         .arg(one.isin),
                     Field::kIsins};
    }
    if (!one.from_day.isEmpty() && !text::ParseDmy(one.from_day)) {
      return Refusal{Tr("Scrips", "Enter Proper Date."), Field::kIsins};
    }
    if (!seen.insert(one.isin).second) {
      return Refusal{Tr("Scrips", "The ISIN %1 is Entered Twice.").arg(one.isin), Field::kIsins};
    }
  }
  return std::nullopt;
}

void SetIsins(database::Transaction& transaction, ScripId scrip, std::span<const DatedIsin> isins) {
  records::Delete<records::ScripIsin>(transaction).Where(&records::ScripIsin::scrip, scrip).Run();
  records::Writer<records::ScripIsin> insert(transaction);
  for (const DatedIsin& one : isins) {
    insert.Write({scrip, one.isin, one.from_day});
  }
  insert.Finish();
}

namespace {

/// A seen ISIN is told with the work in which it was seen: that is not named after the scrip.
void NoteAdded(changes::Changes& changes, const records::ScripIsin& isin) {
  using records::ScripIsin;
  changes::TableChanges& table = changes.Of(records::Table<ScripIsin>::kName);
  if (changes.KeepsRows()) {
    changes.Added(table, {.table = table.table, .key = isin.scrip.value},
                  records::ColumnsJson<ScripIsin>(), records::RowJson(isin));
  } else {
    ++table.added_count;
  }
}

}  // namespace

void KeepIsins(database::Transaction& transaction, std::span<const SeenIsin> seen,
               std::optional<text::Date> day) {
  const Isins kept(transaction.GetConnection());
  database::BulkWriter insert(
      transaction, "Insert Ignore Into ScripIsin(ScrId,Isin,FromDay) Values(?,?,?)", "itt");
  const std::string from = day ? text::FormatDmy(*day).toStdString() : std::string();
  for (const SeenIsin& one : seen) {
    if (!one.isin.empty() && !kept.Has(one.scrip, one.isin)) {
      insert.Int(one.scrip.value).Text(one.isin).Text(from).EndRow();
      NoteAdded(transaction.Changes(),
                {one.scrip, QString::fromStdString(one.isin), QString::fromStdString(from)});
    }
  }
  insert.Finish();
}

}  // namespace quorvane::rates
