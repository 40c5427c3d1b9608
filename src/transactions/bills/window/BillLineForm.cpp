#include "transactions/bills/window/BillLineForm.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"
#include "transactions/bills/window/BillContext.h"

#include <QHBoxLayout>
#include <QRegularExpressionValidator>

namespace quorvane::bills {
namespace {

using controls::ComboBox;
using controls::FieldLayout;
using controls::TextBox;

constexpr int kColumns = 5;
constexpr int kTwoColumns = 2;
constexpr int kLettersOfSide = 5;
constexpr int kLettersOfDelivery = 10;
// An amount cut at its left would read as a smaller one.
constexpr QLatin1String kLongAmount("0000000.00");
constexpr int kGap = 6;
constexpr int kSale = 0;  // place in Combo3
constexpr int kPurchase = 1;

}  // namespace

BillLineForm::BillLineForm()
    : Combo3(new ComboBox()),
      Combo4(new ComboBox()),
      Combo5(new ComboBox(nullptr, ComboBox::Entry::kFreeText)),
      Combo6(new ComboBox()),
      TxtScr(new TextBox()),
      TxtStkId(new TextBox()),
      Check1(new QCheckBox(tr("F&&O"))) {
  Arrange();
  // In a narrow window "Purchase" needs less room than "Delivery Based".
  Combo3->setMinimumContentsLength(kLettersOfSide);
  Combo6->setMinimumContentsLength(kLettersOfDelivery);
  Combo3->SetTexts({tr("Sale"), tr("Purchase")});
  Combo6->SetTexts({ShownDelivery(DeliveryText(Delivery::kDeliveryBased)),
                    ShownDelivery(DeliveryText(Delivery::kNonDeliveryBased))});
}

void BillLineForm::Arrange() {
  auto* fields = new FieldLayout(kColumns, this);
  fields->setContentsMargins(0, 0, 0, 0);
  fields->setHorizontalSpacing(kGap);
  fields->Add(tr("Sale/Purc&hase"), QStringLiteral("Combo3"), Combo3);
  fields->Add(tr("Deli&very"), QStringLiteral("Combo6"), Combo6);
  AddScrip(*fields);
  AddBox(*fields, BillBox::kQuantity, tr("Quantity"), false);
  AddBox(*fields, BillBox::kRate, tr("Rate"), false);
  AddBox(*fields, BillBox::kBrokerage, tr("Brokerage"), false);
  AddBox(*fields, BillBox::kNet, tr("Net Rate"), true);
  AddBox(*fields, BillBox::kAmount, tr("Amount"), true);
  TextBox* amount = Text1[BillBox::kAmount];
  amount->setMinimumWidth(amount->fontMetrics().horizontalAdvance(kLongAmount) +
                          2 * controls::kSpacing);
  AddBox(*fields, BillBox::kServiceTax, tr("Service Tax"), false);
  fields->Add(tr("S.T.T. %"), QStringLiteral("Combo5"), Combo5);
  Combo5->SetCompletes(false);
  AddBox(*fields, BillBox::kLineStt, tr("S.T.T."), false);
  Check1->setAccessibleName(tr("Futures and options"));
  fields->Add(QString(), QStringLiteral("Check1"), Check1);
  AddLot(*fields);
}

void BillLineForm::AddBox(FieldLayout& fields, BillBox box, const QString& label, bool computed) {
  auto* text = fields.Add(label, ControlName(box), new TextBox());
  text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  static const QRegularExpression kTypable(QStringLiteral("-?[0-9,]*\\.?[0-9]*"));
  text->setValidator(new QRegularExpressionValidator(kTypable, text));
  if (computed) {
    text->setReadOnly(true);
    text->setFocusPolicy(Qt::ClickFocus);
  }
  Text1[box] = text;
}

void BillLineForm::AddScrip(FieldLayout& fields) {
  fields.Add(tr("Scrip Code"), QStringLiteral("TxtScr"), TxtScr);
  fields.Add(tr("Scrip"), QStringLiteral("Combo4"), Combo4, kTwoColumns);
  TxtScr->setPlaceholderText(tr("BSE or NSE"));
}

void BillLineForm::AddLot(FieldLayout& fields) {
  fields.Add(tr("Lot"), QStringLiteral("TxtStkId"), TxtStkId);
  TxtStkId->setReadOnly(true);
  TxtStkId->setFocusPolicy(Qt::NoFocus);
  TxtStkId->setToolTip(tr("The lot that a sale draws on, picked from the balance (F9)"));
}

void BillLineForm::ShowLine(const LineEntry& line, const ScripFound* scrip) {
  ShowBoxes(line);
  ShowScrip(scrip);
  const std::optional<Side> side = line.GetSide();
  Combo3->setCurrentIndex(!side ? -1 : *side == Side::kSale ? kSale : kPurchase);
  if (!Combo6->ByText(ShownDelivery(line.DeliveryType()))) {
    Combo6->Clear();
  }
  ShowSttPercent(line);
  Check1->setChecked(line.Fo());
  ShowLot(line);
}

void BillLineForm::ShowBoxes(const LineEntry& line) {
  for (const auto& [box, text] : Text1) {
    if (text->text() != line.Boxes()[box]) {
      text->setText(line.Boxes()[box]);
    }
    text->setModified(false);
  }
}

void BillLineForm::ShowScrip(const ScripFound* scrip) {
  if (scrip == nullptr) {
    TxtScr->clear();
    Combo4->Clear();
    Combo4->setToolTip({});
    return;
  }
  Combo4->ById(scrip->id.value);
  TxtScr->setText(scrip->ShownCode());
  Combo4->setToolTip(tr("%1\nBSE %2   NSE %3").arg(scrip->name, scrip->code, scrip->ncode));
}

void BillLineForm::ShowLot(const LineEntry& line) {
  const LotId lot = line.GetSide() == Side::kSale ? line.Lot() : LotId{};
  TxtStkId->setText(!lot ? QString() : lot.value < 0 ? tr("New") : QString::number(lot.value));
}

void BillLineForm::ShowSttPercent(const LineEntry& line) {
  Combo5->ByText(text::FormatPercent(line.SttPercent()));
}

void BillLineForm::ReadInto(LineEntry& line) {
  for (const auto& [box, text] : Text1) {
    if (text->isModified()) {
      line.Type(box, text->text());
      text->setModified(false);
    }
  }
}

std::optional<Side> BillLineForm::ChosenSide() const {
  switch (Combo3->CurrentPosition()) {
    case kSale:
      return Side::kSale;
    case kPurchase:
      return Side::kPurchase;
    default:
      return std::nullopt;
  }
}

std::optional<Delivery> BillLineForm::ChosenDelivery() const {
  const int place = Combo6->CurrentPosition();
  if (place < 0) {
    return std::nullopt;
  }
  return place == 0 ? Delivery::kDeliveryBased : Delivery::kNonDeliveryBased;
}

void BillLineForm::FocusFirst() {
  QWidget* first = ChosenSide() ? static_cast<QWidget*>(TxtScr) : Combo3;
  first->setFocus(Qt::OtherFocusReason);
}

void BillLineForm::FocusQuantity() {
  Text1[BillBox::kQuantity]->setFocus(Qt::OtherFocusReason);
}

}  // namespace quorvane::bills
