#include "core/text/Amounts.h"
#include "reports/mis/ReportForm.h"

#include <QCoreApplication>

#include <utility>

namespace quorvane::mis {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("MisReport", text);
}

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
      return Tr("Purchase");
    case Movement::Kind::kTransferIn:
      return Tr("Transfer in");
    case Movement::Kind::kSale:
      return Tr("Sale");
    case Movement::Kind::kTransferOut:
      break;
  }
  return Tr("Transfer out");
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
      FigureLine opening{Tr("Opening Balance"), Figures(kColumns)};
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
      : MovementForm({{Tr("Opening"), Nature::kShares},
                      {Tr("Purchase"), Nature::kShares},
                      {Tr("Sale"), Nature::kShares},
                      {Tr("Transfer"), Nature::kShares},
                      {Tr("Balance"), Nature::kShares},
                      {Tr("Stock Value"), Nature::kMoney}}) {}

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
               ? Tr(" [Purchase of %1]").arg(text::FormatDmy(*movement.purchase_date))
               : QString();
  }
};

class ProfitLossForm final : public MovementForm {
 public:
  ProfitLossForm()
      : MovementForm({{Tr("Opening"), Nature::kShares},
                      {Tr("Purchase"), Nature::kShares},
                      {Tr("Transfer"), Nature::kShares},
                      {Tr("Sale"), Nature::kShares},
                      {Tr("Balance"), Nature::kShares},
                      {Tr("Profit/Loss"), Nature::kMoney}}) {}

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
               ? Tr(" [Purchase Rate : Rs. ") + text::FormatAmount(*movement.purchase_rate) +
                     QLatin1Char(']')
               : Tr(" [No cost]");
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
