#pragma once

#include "reports/home/HomeWork.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace quorvane::home {

/// The windows that show what the figures are made of.
inline constexpr char kHoldingsWindow[] = "FrmHoldings";
inline constexpr char kGainsWindow[] = "FrmGains";
inline constexpr char kStatementsWindow[] = "FrmStatements";

/// A line of the figures.
struct FigureLine {
  enum class Kind : std::uint8_t {
    kValue,
    kChange,
    kCost,
    kUnrealised,
    kLongTerm,
    kShortTerm,
    kSpeculation
  };

  Kind kind = Kind::kValue;
  QString name;
  Paise amount;
  QString of;  ///< the day or year that it is of
};
std::vector<FigureLine> FigureLines(const Figures& figures, const Scope& scope);
bool IsGain(FigureLine::Kind kind);

/// Amounts and quantities in lakhs and crores: "12,34,567.50".
QString Rupees(Paise amount);
QString Quantity(Shares shares);

/// Of when the figures are, and whether they are being checked.
QString StateText(const std::optional<Shown>& shown, const QString& failure);

/// What is to be done about a dividend.
QString StateOf(const ComingDividend& dividend);

/// The lines that tell of accounts whose statements are missing, old or do not agree.
std::vector<std::pair<CheckState, QString>> StatementLines(const StatementCounts& counts);
QString NameOf(CheckState state);

QString NameOf(LastRecord::Kind kind);
const char* WindowOf(LastRecord::Kind kind);

}  // namespace quorvane::home
