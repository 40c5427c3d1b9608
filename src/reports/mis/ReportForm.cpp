#include "reports/mis/ReportForm.h"

#include "core/text/Amounts.h"

#include <utility>

namespace quorvane::mis {

namespace {

void AddTo(std::optional<double>& sum, const std::optional<double>& more, Nature nature) {
  if (!more) {
    return;
  }
  switch (nature) {
    case Nature::kRate:
      sum = !sum || *sum == *more ? more : sum;
      break;
    case Nature::kShares:
      sum = AddShares(sum.value_or(0), *more);
      break;
    case Nature::kMoney:
    case Nature::kRunning:
      // Whole numbers of paise: exact.
      sum = sum.value_or(0) + *more;
      break;
  }
}

}  // namespace

void AddFigures(Figures& sum, const Figures& more, const std::vector<FigureColumn>& columns) {
  sum.resize(columns.size());
  for (std::size_t i = 0; i < columns.size() && i < more.size(); ++i) {
    AddTo(sum[i], more[i], columns[i].nature);
  }
}

std::unique_ptr<ReportForm> MakeForm(ReportKind kind, const MarketRates& rates, Date day) {
  return IsOfOneDay(kind) ? MakeLotForm(kind, rates, day) : MakeMovementForm(kind);
}

namespace {

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
      lines.push_back(
          {text::FormatDmy(lot.date) + QStringLiteral(" Purchase"), OfLot(holding.scrip, lot)});
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
      : LotForm({{QStringLiteral("Rate"), Nature::kRate},
                 {QStringLiteral("Quantity"), Nature::kShares},
                 {QStringLiteral("Amount"), Nature::kMoney},
                 {QStringLiteral("Balance"), Nature::kRunning}}) {}

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
      return QStringLiteral(" [No rate]");
    }
    return rate->second.date == day_
               ? QString()
               : QStringLiteral(" [Rate of %1]").arg(text::FormatDmy(rate->second.date));
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
      : RatedForm({{QStringLiteral("Rate"), Nature::kRate},
                   {QStringLiteral("Quantity"), Nature::kShares},
                   {QStringLiteral("Amount"), Nature::kMoney},
                   {QStringLiteral("Balance"), Nature::kRunning}},
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
      : RatedForm({{QStringLiteral("Balance"), Nature::kShares},
                   {QStringLiteral("Purchase Cost"), Nature::kMoney},
                   {QStringLiteral("Market Rate"), Nature::kRate},
                   {QStringLiteral("Market Cost"), Nature::kMoney},
                   {QStringLiteral("Profit/Loss"), Nature::kMoney}},
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

namespace {

bool IsSale(const Movement& movement) {
  return movement.kind == Movement::Kind::kSale;
}

/// Shares that the movement adds to the balance.
double Change(const Movement& movement) {
  const bool out = IsSale(movement) || movement.kind == Movement::Kind::kTransferOut;
  return out ? -movement.quantity : movement.quantity;
}

QString NameOf(const Movement& movement) {
  switch (movement.kind) {
    case Movement::Kind::kPurchase:
      return QStringLiteral("Purchase");
    case Movement::Kind::kTransferIn:
      return QStringLiteral("Transfer in");
    case Movement::Kind::kSale:
      return QStringLiteral("Sale");
    case Movement::Kind::kTransferOut:
      break;
  }
  return QStringLiteral("Transfer out");
}

/// Opening, what came in and left, and the balance; the last column is the report's own.
class MovementForm : public ReportForm {
 public:
  using ReportForm::ReportForm;

  bool Shows(const Holding& holding) const override {
    return holding.opening != 0 || !holding.movements.empty() || !holding.lots.empty();
  }

  Figures Of(const Holding& holding) const override {
    Figures figures(kColumns);
    figures[kOpening] = holding.opening;
    figures[kPurchase] = holding.purchase;
    figures[Place(Movement::Kind::kSale)] = holding.sale;
    figures[Place(Movement::Kind::kTransferIn)] = holding.transfer;
    figures[kBalance] = holding.Balance();
    figures[kResult] = Result(holding);
    return figures;
  }

  std::vector<FigureLine> Detail(const Holding& holding) const override {
    std::vector<FigureLine> lines;
    double balance = holding.opening;
    if (balance != 0) {
      FigureLine opening{QStringLiteral("Opening Balance"), Figures(kColumns)};
      opening.figures[kOpening] = balance;
      opening.figures[kBalance] = balance;
      lines.push_back(std::move(opening));
    }
    for (const Movement& movement : holding.movements) {
      balance = AddShares(balance, Change(movement));
      lines.push_back(LineOf(movement, balance));
    }
    return lines;
  }

 protected:
  enum Column : std::size_t { kOpening, kPurchase, kThird, kFourth, kBalance, kResult, kColumns };

  /// The column of sales or of transfers.
  virtual std::size_t Place(Movement::Kind kind) const = 0;
  virtual double Result(const Holding& holding) const = 0;
  virtual std::optional<double> Result(const Movement& movement) const = 0;
  virtual QString Remark(const Movement& movement) const = 0;

 private:
  FigureLine LineOf(const Movement& movement, double balance) const {
    FigureLine line{
        text::FormatDmy(movement.date) + QLatin1Char(' ') + NameOf(movement) + Remark(movement),
        Figures(kColumns)};
    line.figures[Place(movement.kind)] = IsSale(movement) ? movement.quantity : Change(movement);
    line.figures[kBalance] = balance;
    line.figures[kResult] = Result(movement);
    return line;
  }
};

class PositionForm final : public MovementForm {
 public:
  PositionForm()
      : MovementForm({{QStringLiteral("Opening"), Nature::kShares},
                      {QStringLiteral("Purchase"), Nature::kShares},
                      {QStringLiteral("Sale"), Nature::kShares},
                      {QStringLiteral("Transfer"), Nature::kShares},
                      {QStringLiteral("Balance"), Nature::kShares},
                      {QStringLiteral("Stock Value"), Nature::kMoney}}) {}

 protected:
  std::size_t Place(Movement::Kind kind) const override {
    return kind == Movement::Kind::kPurchase ? kPurchase
           : kind == Movement::Kind::kSale   ? kThird
                                             : kFourth;
  }
  double Result(const Holding& holding) const override {
    return static_cast<double>(holding.Cost());
  }
  std::optional<double> Result(const Movement&) const override { return std::nullopt; }
  QString Remark(const Movement& movement) const override {
    return movement.purchase_date
               ? QStringLiteral(" [Purchase of %1]").arg(text::FormatDmy(*movement.purchase_date))
               : QString();
  }
};

class ProfitLossForm final : public MovementForm {
 public:
  ProfitLossForm()
      : MovementForm({{QStringLiteral("Opening"), Nature::kShares},
                      {QStringLiteral("Purchase"), Nature::kShares},
                      {QStringLiteral("Transfer"), Nature::kShares},
                      {QStringLiteral("Sale"), Nature::kShares},
                      {QStringLiteral("Balance"), Nature::kShares},
                      {QStringLiteral("Profit/Loss"), Nature::kMoney}}) {}

 protected:
  std::size_t Place(Movement::Kind kind) const override {
    return kind == Movement::Kind::kPurchase ? kPurchase
           : kind == Movement::Kind::kSale   ? kFourth
                                             : kThird;
  }
  double Result(const Holding& holding) const override { return static_cast<double>(holding.gain); }
  std::optional<double> Result(const Movement& movement) const override {
    return IsSale(movement) && movement.purchase_rate
               ? std::optional(static_cast<double>(movement.gain))
               : std::nullopt;
  }
  QString Remark(const Movement& movement) const override {
    return movement.purchase_rate
               ? QStringLiteral(" [Purchase Rate : Rs. ") +
                     text::FormatAmount(*movement.purchase_rate) + QLatin1Char(']')
               : QStringLiteral(" [No cost]");
  }
};

}  // namespace

std::unique_ptr<ReportForm> MakeMovementForm(ReportKind kind) {
  if (kind == ReportKind::kProfitLoss) {
    return std::make_unique<ProfitLossForm>();
  }
  return std::make_unique<PositionForm>();
}

}  // namespace quorvane::mis
