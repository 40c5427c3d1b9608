#pragma once

#include "core/rates/RateBook.h"
#include "reports/mis/Holdings.h"

#include <QString>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvane::mis {

/// The newest rate of each scrip up to some day, with its day.
using MarketRates = std::unordered_map<ScripId, rates::DatedRate>;

/// What a column's figures are. It decides how they add up.
enum class Nature : std::uint8_t {
  kShares,   ///< add up within one scrip only, and where every line counts
  kMoney,    ///< whole paise; always add up
  kRate,     ///< rupees a share; never add up
  kRunning,  ///< paise: the sum so far of the money column before it
};

struct FigureColumn {
  QString heading;
  Nature nature = Nature::kShares;
};

/// A figure for each column after "Particulars"; none where there is nothing to show.
using Figures = std::vector<std::optional<double>>;

struct FigureLine {
  QString label;
  Figures figures;
};

/// The columns of one kind of report, and what a holding shows in them.
class ReportForm {
 public:
  explicit ReportForm(std::vector<FigureColumn> columns) : columns_(std::move(columns)) {}
  virtual ~ReportForm() = default;

  const std::vector<FigureColumn>& Columns() const { return columns_; }

  /// False for a holding that the report does not show.
  virtual bool Shows(const Holding& holding) const = 0;

  /// What the holding adds to a line or a total.
  virtual Figures Of(const Holding& holding) const = 0;

  /// The holding's own lines, of which a detailed report is made. The figures of a column of shares
  /// or money add up to those of Of, except a balance, which is the one after each line, and money
  /// that is only known for the whole.
  virtual std::vector<FigureLine> Detail(const Holding& holding) const = 0;

  /// Sets the rate of a line into which several holdings were added up.
  virtual void SettleRate(Figures& figures) const { static_cast<void>(figures); }

  /// False for a scrip that is shown and left out of every total.
  virtual bool Counts(ScripId scrip) const {
    static_cast<void>(scrip);
    return true;
  }

  /// What follows the scrip's name: " [Rate of 28/03/2012]".
  virtual QString Mark(ScripId scrip) const {
    static_cast<void>(scrip);
    return {};
  }

 private:
  std::vector<FigureColumn> columns_;
};

/// Adds figures of the same form; a rate stays when both are the same.
void AddFigures(Figures& sum, const Figures& more, const std::vector<FigureColumn>& columns);

/// `rates` are those up to the day of the valuation, `day`; reports without rates take none.
std::unique_ptr<ReportForm> MakeForm(ReportKind kind, const MarketRates& rates, Date day);

/// Parts of MakeForm.
std::unique_ptr<ReportForm> MakeMovementForm(ReportKind kind);
std::unique_ptr<ReportForm> MakeLotForm(ReportKind kind, const MarketRates& rates, Date day);

}  // namespace quorvane::mis
