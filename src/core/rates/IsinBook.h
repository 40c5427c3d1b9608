#pragma once

#include "core/Ids.h"
#include "core/database/Transaction.h"
#include "core/text/Dates.h"

#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace quorvane::rates {

/// An ISIN under which a scrip was seen in an exchange's file.
struct SeenIsin {
  ScripId scrip;
  std::string isin;
};

/// The ISINs by which files of both exchanges meet in one scrip. A scrip may have had several, and
/// two codes may share one.
class Isins {
 public:
  explicit Isins(database::Connection& connection);

  /// By the number of the scrip; none for an empty ISIN.
  std::vector<ScripId> ScripsOf(const std::string& isin) const;
  std::vector<std::string> Of(ScripId scrip) const;
  bool Has(ScripId scrip, const std::string& isin) const;
  bool HasAny(ScripId scrip) const { return by_scrip_.contains(scrip); }

 private:
  std::unordered_multimap<std::string, ScripId> by_isin_;
  std::unordered_multimap<ScripId, std::string> by_scrip_;
};

/// Keeps those that are not kept yet, as seen from that day on.
void KeepIsins(database::Transaction& transaction, std::span<const SeenIsin> seen,
               std::optional<text::Date> day);

}  // namespace quorvane::rates
