#pragma once

#include "core/ClientYear.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/text/Paise.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quorvane::tax {

/// What a loss may be set off against, as stored.
enum class LossKind : std::uint8_t {
  kShortTerm = 1,  ///< against short- and long-term gains, for 8 years
  kLongTerm,       ///< against long-term gains, for 8 years
  kSpeculation     ///< against speculation gains, for 4 years
};

struct LossKindName {
  LossKind kind;
  std::string_view file_name;  ///< in tax_losses.csv
  const char* title;           ///< English; the key of its translation in the context "Tax"
  int years;                   ///< after the year of the loss in which it may be set off
};

/// In the order in which losses of one year are listed.
inline constexpr std::array<LossKindName, 3> kLossKinds{{
    {LossKind::kLongTerm, "long-term", QT_TRANSLATE_NOOP("Tax", "Long-Term Capital Loss"), 8},
    {LossKind::kShortTerm, "short-term", QT_TRANSLATE_NOOP("Tax", "Short-Term Capital Loss"), 8},
    {LossKind::kSpeculation, "speculation", QT_TRANSLATE_NOOP("Tax", "Speculation Loss"), 4},
}};

const LossKindName& NameOf(LossKind kind);
std::optional<LossKind> LossKindOf(std::string_view file_name);

/// What is left of a loss of an earlier year when a client's year begins.
struct TaxLoss {
  ClientId client;
  text::FinancialYear year;       ///< into which it is brought forward
  text::FinancialYear loss_year;  ///< in which it arose
  LossKind kind = LossKind::kLongTerm;
  text::Paise amount;  ///< above 0

  bool operator==(const TaxLoss&) const = default;
};

/// By year of the loss, then long-term, short-term, speculation.
std::vector<TaxLoss> ReadTaxLosses(database::Connection& connection, ClientId client,
                                   text::FinancialYear year);

using LossesByClient = std::map<ClientId, std::vector<TaxLoss>>;

/// Of every client that brings losses forward into the year.
LossesByClient ReadTaxLosses(database::Connection& connection, text::FinancialYear year);

/// Of every client and year, in the order of their keys, then as above.
std::vector<TaxLoss> ReadAllTaxLosses(database::Connection& connection);

/// The first rule that a loss breaks: an earlier year, not too long ago for its kind, an amount
/// above 0.
MaybeRefusal CheckTaxLoss(const TaxLoss& loss);

/// The first rule that the losses of one client and year break; besides those of each, there is one
/// of a kind a year.
MaybeRefusal CheckTaxLosses(std::span<const TaxLoss> losses);

/// Puts these in the place of the losses that the client brings forward into the year. They were
/// checked; client and year are those given here.
void ReplaceTaxLosses(database::Transaction& transaction, ClientId client, text::FinancialYear year,
                      std::span<const TaxLoss> losses);

/// Adds losses of any client and year that are not kept yet.
void InsertTaxLosses(database::Transaction& transaction, std::span<const TaxLoss> losses);

}  // namespace quorvane::tax
