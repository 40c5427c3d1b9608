#include "masters/imports/StoredScrips.h"

#include "core/lookups/Directory.h"

namespace quorvane::imports {
namespace {

using lookups::Folded;
using rates::PriceRow;

bool HasOnlySymbol(const ImportedScrip& scrip) {
  return !scrip.symbol.empty() && Folded(scrip.code) == Folded(scrip.symbol);
}

}  // namespace

StoredScrips::StoredScrips(database::Connection& connection) : isins_(connection) {
  for (const auto& row : connection.Open(
           "Select S.Id,S.Code,S.NCode,S.Name,C.Name,T.Type From Script S "
           "Left Join ScriptClass C On C.Id=S.ScrCls Left Join ScriptType T On T.Id=S.Type "
           "Order By S.Id")) {
    scrips_.push_back({ScripId{row.Int(0)}, ScripState::kUnchanged, std::string(row.Utf8(1)),
                       std::string(files::Trimmed(row.Utf8(2))), std::string(row.Utf8(3)),
                       std::string(row.Utf8(4)), std::string(row.Utf8(5))});
  }
  for (std::size_t place = 0; place < scrips_.size(); ++place) {
    by_id_.try_emplace(scrips_[place].id, place);
    by_code_.try_emplace(Folded(scrips_[place].code), place);
    if (!scrips_[place].symbol.empty()) {
      by_symbol_.try_emplace(Folded(scrips_[place].symbol), place);
    }
  }
}

const ImportedScrip* StoredScrips::Of(const PriceRow& row) {
  if (!row.code.empty()) {
    const ImportedScrip* found = Find(by_code_, row.code);
    return found != nullptr ? found : WithoutBombayCode(row.isin);
  }
  const ImportedScrip* by_isin = AnyOf(row.isin);
  const ImportedScrip* found = Find(by_symbol_, row.symbol);
  found = found != nullptr ? found : Find(by_code_, row.symbol);
  const bool is_other = found != nullptr && by_isin != nullptr && isins_.HasAny(found->id) &&
                        !isins_.Has(found->id, row.isin);
  return found == nullptr || is_other ? by_isin : found;
}

bool StoredScrips::IsNewIsin(ScripId scrip, const std::string& isin) const {
  return !isin.empty() && !isins_.Has(scrip, isin);
}

const ImportedScrip* StoredScrips::Find(const Index& index, const std::string& key) const {
  const auto found = index.find(Folded(key));
  return found == index.end() ? nullptr : &scrips_[found->second];
}

const ImportedScrip* StoredScrips::AnyOf(const std::string& isin) const {
  const std::vector<ScripId> scrips = isins_.ScripsOf(isin);
  const auto found = scrips.empty() ? by_id_.end() : by_id_.find(scrips.front());
  return found == by_id_.end() ? nullptr : &scrips_[found->second];
}

const ImportedScrip* StoredScrips::WithoutBombayCode(const std::string& isin) {
  for (const ScripId scrip : isins_.ScripsOf(isin)) {
    const auto found = by_id_.find(scrip);
    const bool is_free = found != by_id_.end() && HasOnlySymbol(scrips_[found->second]);
    if (is_free && given_.insert(scrip).second) {
      return &scrips_[found->second];
    }
  }
  return nullptr;
}

}  // namespace quorvane::imports
