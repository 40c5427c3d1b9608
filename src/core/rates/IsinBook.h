#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/text/Dates.h"

#include <QString>

#include <map>
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

/// The ISINs by which the codes of both exchanges are known to be one scrip. A scrip may have had
/// several, and two codes may share one.
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

/// An ISIN of a scrip and the day from which it has it, dd/mm/yyyy, or empty when that is not
/// known.
struct DatedIsin {
  QString isin;
  QString from_day;

  bool operator==(const DatedIsin&) const = default;
};

/// The ISINs of a scrip by their days; those without a day come first.
std::vector<DatedIsin> IsinsOf(database::Connection& connection, ScripId scrip);

/// The ISINs of every scrip, in the same order.
std::map<ScripId, std::vector<DatedIsin>> AllIsins(database::Connection& connection);

/// The first rule that a scrip's ISINs break: form and check digit, a proper day or none, none
/// twice.
MaybeRefusal CheckIsins(std::span<const DatedIsin> isins);

/// Puts these in the place of the scrip's ISINs.
void SetIsins(database::Transaction& transaction, ScripId scrip, std::span<const DatedIsin> isins);

/// Keeps those that are not kept yet, as seen from that day on.
void KeepIsins(database::Transaction& transaction, std::span<const SeenIsin> seen,
               std::optional<text::Date> day);

}  // namespace quorvane::rates
