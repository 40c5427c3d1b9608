#include "portfolio/trades/window/LinesPane.h"

#include "core/lookups/Scrips.h"
#include "core/text/Amounts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quorvane::portfolio {
namespace {

using controls::Mask;
using controls::Row;

enum Column {
  kTick,
  kState,
  kDate,
  kExchange,
  kScrip,
  kSide,
  kQuantity,
  kRate,
  kBrokerage,
  kTax,
  kStt,
  kDelivery,
  kBill,
  kRemark
};

/// What is shown of the lines.
enum Shown { kAll, kToBeSaved, kOpen, kLeftOut };

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QString RemarkOf(const TradeLine& line, const TradedScrip& scrip, const QString& program_name) {
  switch (line.state) {
    case LineState::kLikely:
      return LinesPane::tr("Probably %1").arg(program_name);
    case LineState::kUnknown:
      return Utf8(scrip.naming.isin);
    case LineState::kImpossible:
      return LinesPane::tr("%1 shares are missing on %2")
          .arg(text::FormatAmount(line.missing.Number()), text::FormatDmy(line.day));
    default:
      return scrip.match == ScripMatch::kNew ? LinesPane::tr("New script") : program_name;
  }
}

Row RowOf(int id, const TradeLine& line, const TradedScrip& scrip, const QString& program_name) {
  const bool bought = line.side == records::Side::kPurchase;
  const QString delivery = line.non_delivery ? LinesPane::tr("No") : LinesPane::tr("Yes");
  return {.id = id,
          .cells = {line.ticked, TextOf(line.state), text::FormatDmy(line.day), Utf8(line.exchange),
                    Utf8(scrip.naming.Shown()), bought ? LinesPane::tr("P") : LinesPane::tr("S"),
                    line.quantity.Number(), line.rate, line.charges.brokerage, line.charges.tax,
                    line.charges.stt, delivery, Utf8(line.bill_number),
                    RemarkOf(line, scrip, program_name)}};
}

}  // namespace

LinesPane::LinesPane(QWidget* parent) : QWidget(parent) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  VSF = new controls::Grid(QStringLiteral("VSF"), tr("Bill lines that the trades make"));
  VSF->SetColumns({{.heading = QString(), .mask = Mask::kTick},
                   {.heading = tr("State")},
                   {.heading = tr("Date"), .mask = Mask::kDate},
                   {.heading = tr("Exch.")},
                   {.heading = tr("Script")},
                   {.heading = tr("P/S")},
                   {.heading = tr("Quantity"), .mask = Mask::kQuantity, .editable = true},
                   {.heading = tr("Rate"), .mask = Mask::kAmount, .editable = true},
                   {.heading = tr("Brokerage"), .mask = Mask::kAmount, .editable = true},
                   {.heading = tr("S.Tax"), .mask = Mask::kAmount, .editable = true},
                   {.heading = tr("S.T.T."), .mask = Mask::kAmount, .editable = true},
                   {.heading = tr("Delivery")},
                   {.heading = tr("Bill No.")},
                   {.heading = tr("Remark")}});
  CboShow = new controls::ComboBox;
  CboShow->setObjectName(QStringLiteral("CboShow"));
  CboShow->SetTexts({tr("All lines"), tr("To be saved"), tr("To be settled"), tr("Left out")});
  CboShow->setCurrentIndex(kAll);
  LblTotal = new QLabel;
  LblTotal->setObjectName(QStringLiteral("LblTotal"));
  LblTotal->setWordWrap(true);
  auto* foot = new QHBoxLayout;
  AddLabelled(*foot, tr("Sho&w"), CboShow);
  foot->addWidget(LblTotal, 1);
  rows->addWidget(VSF, 1);
  rows->addLayout(foot);
}

void LinesPane::Show(TradePlan* plan, database::Connection& connection, const QString& outcome) {
  plan_ = plan;
  std::vector<controls::Row> rows;
  if (plan_ != nullptr) {
    const lookups::ScripList scrips(connection);
    int id = 0;
    for (const TradeLine& line : plan_->Lines()) {
      ++id;
      if (IsShown(line)) {
        const TradedScrip& scrip = plan_->Scrips()[line.scrip];
        rows.push_back(RowOf(id, line, scrip, scrips.NameOf(scrip.scrip)));
      }
    }
  }
  VSF->SetRows(std::move(rows));
  Count(outcome);
}

bool LinesPane::IsShown(const TradeLine& line) const {
  switch (CboShow->CurrentPosition()) {
    case kToBeSaved:
      return line.IsToBeSaved();
    case kOpen:
      return line.IsOpen();
    case kLeftOut:
      return !line.ticked;
    default:
      return true;
  }
}

void LinesPane::Count(const QString& outcome) {
  if (plan_ == nullptr) {
    return LblTotal->setText(outcome);
  }
  LblTotal->setText(tr("%1 new, %2 taken in already, %3 probably entered by hand, %4 of scripts to "
                       "be settled, %5 without shares. %6")
                        .arg(plan_->Count(LineState::kNew))
                        .arg(plan_->Count(LineState::kDoubled))
                        .arg(plan_->Count(LineState::kEntered))
                        .arg(plan_->Count(LineState::kLikely) + plan_->Count(LineState::kUnknown))
                        .arg(plan_->Count(LineState::kImpossible))
                        .arg(outcome));
}

void LinesPane::TakeTicks() {
  for (int row = 0; plan_ != nullptr && row < VSF->Model().RowCount(); ++row) {
    const auto line = static_cast<std::size_t>(VSF->Model().IdOf(row)) - 1;
    if (plan_->Lines()[line].ticked != VSF->Model().IsTicked(row)) {
      plan_->Tick(line, VSF->Model().IsTicked(row));
    }
  }
}

QString LinesPane::TakeEdit(int row, int column) {
  if (plan_ == nullptr || column == kTick) {
    return {};
  }
  const controls::GridModel& model = VSF->Model();
  const auto place = static_cast<std::size_t>(model.IdOf(row)) - 1;
  const text::Shares quantity(model.Number(row, kQuantity));
  TakeTicks();
  if (plan_->Lines()[place].state == LineState::kDoubled) {
    return tr("This trade is taken in already; correct its bill.");
  }
  if (quantity <= text::Shares() || model.Number(row, kRate) <= 0) {
    return tr("Quantity and rate are above 0.");
  }
  plan_->Change(place, {quantity, model.Number(row, kRate), model.Number(row, kBrokerage),
                        model.Number(row, kTax), model.Number(row, kStt)});
  return {};
}

std::optional<std::uint32_t> LinesPane::CurrentScrip() const {
  if (plan_ == nullptr || VSF->CurrentId() == 0) {
    return std::nullopt;
  }
  return plan_->Lines()[static_cast<std::size_t>(VSF->CurrentId()) - 1].scrip;
}

void AddLabelled(QBoxLayout& row, const QString& text, QWidget* control, int stretch) {
  auto* label = new QLabel(text);
  label->setBuddy(control);
  label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  QString plain = text;
  control->setAccessibleName(plain.remove(QLatin1Char('&')));
  row.addWidget(label);
  row.addWidget(control, stretch);
}

}  // namespace quorvane::portfolio
