#include "core/rates/RateImport.h"

#include "core/rates/ScripFinder.h"

namespace quorvane::rates {
namespace {

std::vector<ScripId> ScripsOf(const ScripFinder& finder, const PriceRow& row) {
  std::vector<ScripId> found = finder.OfCode(row.code);
  if (found.empty()) {
    found = finder.OfSymbol(row.symbol);
  }
  return found.empty() ? finder.OfIsin(row.isin) : found;
}

}  // namespace

std::vector<ListedScrip> ListScrips(database::Connection& connection) {
  const Isins isins(connection);
  std::vector<ListedScrip> scrips;
  for (const auto& row : connection.Open(
           "Select S.Id,S.Code,S.NCode,S.Name,C.Name,T.Type From Script S "
           "Left Join ScriptClass C On C.Id=S.ScrCls Left Join ScriptType T On T.Id=S.Type "
           "Order By S.Name,S.Id")) {
    scrips.push_back({ScripId{row.Int(0)}, std::string(row.Utf8(1)),
                      std::string(files::Trimmed(row.Utf8(2))), std::string(row.Utf8(3)),
                      std::string(row.Utf8(4)), std::string(row.Utf8(5)),
                      isins.Of(ScripId{row.Int(0)})});
  }
  return scrips;
}

MatchedRates MatchRates(const PriceFile& file, const std::vector<ListedScrip>& scrips) {
  const ScripFinder finder(scrips);
  MatchedRates result;
  for (std::size_t place = 0; place < file.rows.size(); ++place) {
    const PriceRow& row = file.rows[place];
    const std::vector<ScripId> found = ScripsOf(finder, row);
    if (found.empty()) {
      result.unmatched.push_back(place);
      continue;
    }
    ++result.matched;
    for (const ScripId scrip : found) {
      if (!row.isin.empty()) {
        result.isins.push_back({scrip, row.isin});
      }
      if (row.rate > 0) {
        result.rates.push_back({scrip, row.rate});
      }
    }
  }
  return result;
}

Result<MatchedRates> ReadRates(database::Connection& connection, const QString& path,
                               text::Date date) {
  const Result<PriceFile> file = ReadPriceFile(path);
  if (const MaybeRefusal refusal = file ? CheckPrices(*file, date) : file.Refused()) {
    return *refusal;
  }
  return MatchRates(*file, ListScrips(connection));
}

}  // namespace quorvane::rates
