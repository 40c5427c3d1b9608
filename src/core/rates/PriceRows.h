#pragma once

#include "core/rates/PriceLayouts.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace quorvane::rates {

/// Reads the rows of a price file below its headings and gathers what is wrong with them.
class PriceRows {
 public:
  explicit PriceRows(const FoundLayout& layout);

  void Add(const files::TextRow& row);

  /// The file as read; `errors` has a text for each bad row, with its line.
  PriceFile Take(std::vector<std::string>& errors);

 private:
  void AddRecord(const files::TextRow& row);
  bool AddRunTogether(const files::TextRow& row);
  bool LooksRight(const files::TextRow& row) const;
  bool IsOfOtherMarket(const files::TextRow& row) const;
  Exchange ExchangeOf(const files::TextRow& row) const;
  bool ReadDate(const files::TextRow& row);
  bool ReadPrice(const files::TextRow& row, Field field, double& price);
  bool CheckTexts(const PriceRow& record);
  void Keep(PriceRow record, int rank);
  void Fail(std::size_t line, const QString& what);

  const FoundLayout& layout_;
  PriceFile file_;
  std::vector<int> ranks_;  ///< of the rows' series; the lower one is preferred
  std::unordered_map<std::string, std::size_t> places_;  ///< of the rows by their folded code
  std::vector<std::string> errors_;
};

/// The name of a type that a price file writes as a letter; any other text unchanged.
std::string TypeNamed(const std::string& text);

}  // namespace quorvane::rates
