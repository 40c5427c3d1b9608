#include "core/rates/IsinBook.h"

#include "core/database/BulkWriter.h"

#include <algorithm>

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

void KeepIsins(database::Transaction& transaction, std::span<const SeenIsin> seen,
               std::optional<text::Date> day) {
  const Isins kept(transaction.GetConnection());
  database::BulkWriter insert(
      transaction, "Insert Ignore Into ScripIsin(ScrId,Isin,FromDay) Values(?,?,?)", "itt");
  const std::string from = day ? text::FormatDmy(*day).toStdString() : std::string();
  for (const SeenIsin& one : seen) {
    if (!one.isin.empty() && !kept.Has(one.scrip, one.isin)) {
      insert.Int(one.scrip.value).Text(one.isin).Text(from).EndRow();
    }
  }
  insert.Finish();
}

}  // namespace quorvane::rates
