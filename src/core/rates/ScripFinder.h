#pragma once

#include "core/rates/RateImport.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace quorvane::rates {

/// Scrips by what exchanges call them, without regard to capitals. Nothing is found for an empty
/// text.
class ScripFinder {
 public:
  explicit ScripFinder(const std::vector<ListedScrip>& scrips);

  std::vector<ScripId> OfCode(const std::string& code) const { return Find(by_code_, code); }
  std::vector<ScripId> OfSymbol(const std::string& symbol) const {
    return Find(by_symbol_, symbol);
  }
  std::vector<ScripId> OfIsin(const std::string& isin) const { return Find(by_isin_, isin); }

 private:
  using Index = std::unordered_multimap<std::string, ScripId>;

  static std::vector<ScripId> Find(const Index& index, const std::string& key);

  Index by_code_;
  Index by_symbol_;
  Index by_isin_;
};

}  // namespace quorvane::rates
