#include "core/text/Amounts.h"
#include "reports/mis/ReportForm.h"

#include <QCoreApplication>

namespace quorvane::mis {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("MisReport", text);
}

/// Reports of the lots that are held on a day, a line a lot in detail. Amounts are those of the
/// lots, each rounded to paise once, so that every grouping has the same totals.
class LotForm : public ReportForm {
 public:
  using ReportForm::ReportForm;

  bool Shows(const Holding& holding) const override { return !holding.lots.empty(); }

  Figures Of(const Holding& holding) const override {
    Figures sum(Columns().size());
    for (const HeldLot& lot : holding.lots) {
      AddFigures(sum, OfLot(holding.scrip, lot), Columns());
    }
    SettleRate(sum);
    return sum;
  }

  std::vector<FigureLine> Detail(const Holding& holding) const override {
    std::vector<FigureLine> lines;
    for (const HeldLot& lot : holding.lots) {
      lines.push_back({text::FormatDmy(lot.date) + Tr(" Purchase"), OfLot(holding.scrip, lot)});
    }
    return lines;
  }

 protected:
  virtual Figures OfLot(ScripId scrip, const HeldLot& lot) const = 0;
};

/// At cost. The rate of several lots is their average.
class StockForm final : public LotForm {
 public:
  StockForm()
      : LotForm({{Tr("Rate"), Nature::kRate},
                 {Tr("Quantity"), Nature::kShares},
                 {Tr("Amount"), Nature::kMoney},
                 {Tr("Balance"), Nature::kRunning}}) {}

  void SettleRate(Figures& figures) const override {
    if (figures[kQuantity] && *figures[kQuantity] > 0) {
      figures[kRate] =
          text::FromPaise(static_cast<std::int64_t>(*figures[kAmount])) / *figures[kQuantity];
    }
  }

 protected:
  Figures OfLot(ScripId, const HeldLot& lot) const override {
    const auto cost = static_cast<double>(lot.cost);
    return {lot.net, lot.quantity, cost, cost};
  }

 private:
  enum Column : std::size_t { kRate, kQuantity, kAmount };
};

/// At market rates. A scrip without a rate shows its shares and counts nowhere.
class RatedForm : public LotForm {
 public:
  RatedForm(std::vector<FigureColumn> columns, const MarketRates& rates, Date day)
      : LotForm(std::move(columns)), rates_(rates), day_(day) {}

  bool Counts(ScripId scrip) const override { return rates_.contains(scrip); }

  QString Mark(ScripId scrip) const override {
    const auto rate = rates_.find(scrip);
    if (rate == rates_.end()) {
      return Tr(" [No rate]");
    }
    return rate->second.date == day_ ? QString()
                                     : Tr(" [Rate of %1]").arg(text::FormatDmy(rate->second.date));
  }

 protected:
  struct Value {
    std::optional<double> rate;   ///< rupees a share
    std::optional<double> paise;  ///< of the lot
  };

  Value ValueOf(ScripId scrip, const HeldLot& lot) const {
    const auto rate = rates_.find(scrip);
    if (rate == rates_.end()) {
      return {};
    }
    return {rate->second.rate,
            static_cast<double>(text::ToPaise(rate->second.rate * lot.quantity))};
  }

 private:
  const MarketRates& rates_;
  Date day_;
};

class ValuationForm final : public RatedForm {
 public:
  ValuationForm(const MarketRates& rates, Date day)
      : RatedForm({{Tr("Rate"), Nature::kRate},
                   {Tr("Quantity"), Nature::kShares},
                   {Tr("Amount"), Nature::kMoney},
                   {Tr("Balance"), Nature::kRunning}},
                  rates, day) {}

 protected:
  Figures OfLot(ScripId scrip, const HeldLot& lot) const override {
    const Value value = ValueOf(scrip, lot);
    return {value.rate, lot.quantity, value.paise, value.paise};
  }
};

class MarketForm final : public RatedForm {
 public:
  MarketForm(const MarketRates& rates, Date day)
      : RatedForm({{Tr("Balance"), Nature::kShares},
                   {Tr("Purchase Cost"), Nature::kMoney},
                   {Tr("Market Rate"), Nature::kRate},
                   {Tr("Market Cost"), Nature::kMoney},
                   {Tr("Profit/Loss"), Nature::kMoney}},
                  rates, day) {}

 protected:
  Figures OfLot(ScripId scrip, const HeldLot& lot) const override {
    const Value value = ValueOf(scrip, lot);
    const auto cost = static_cast<double>(lot.cost);
    return {lot.quantity, cost, value.rate, value.paise,
            value.paise ? std::optional(*value.paise - cost) : std::nullopt};
  }
};

}  // namespace

std::unique_ptr<ReportForm> MakeLotForm(ReportKind kind, const MarketRates& rates, Date day) {
  switch (kind) {
    case ReportKind::kMarket:
      return std::make_unique<MarketForm>(rates, day);
    case ReportKind::kValuation:
      return std::make_unique<ValuationForm>(rates, day);
    default:
      return std::make_unique<StockForm>();
  }
}

}  // namespace quorvane::mis
