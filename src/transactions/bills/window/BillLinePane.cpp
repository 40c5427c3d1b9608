#include "transactions/bills/window/BillLinePane.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"
#include "transactions/bills/window/ControlName.h"

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

std::optional<Side> SideAt(int place) {
  switch (place) {
    case kSale:
      return Side::kSale;
    case kPurchase:
      return Side::kPurchase;
    default:
      return std::nullopt;
  }
}

}  // namespace

BillLinePane::BillLinePane(const controls::Guard& guard, database::Connection& connection,
                           text::FinancialYear year)
    : connection_(connection),
      year_(year),
      Combo3(new ComboBox()),
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
  Combo6->SetTexts(
      {DeliveryText(Delivery::kDeliveryBased), DeliveryText(Delivery::kNonDeliveryBased)});
  Connect(guard);
}

void BillLinePane::Arrange() {
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

void BillLinePane::AddBox(FieldLayout& fields, BillBox box, const QString& label, bool computed) {
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

void BillLinePane::AddScrip(FieldLayout& fields) {
  fields.Add(tr("Scrip Code"), QStringLiteral("TxtScr"), TxtScr);
  fields.Add(tr("Scrip"), QStringLiteral("Combo4"), Combo4, kTwoColumns);
  TxtScr->setPlaceholderText(tr("BSE or NSE"));
}

void BillLinePane::AddLot(FieldLayout& fields) {
  fields.Add(tr("Lot"), QStringLiteral("TxtStkId"), TxtStkId);
  TxtStkId->setReadOnly(true);
  TxtStkId->setFocusPolicy(Qt::NoFocus);
  TxtStkId->setToolTip(tr("The lot that a sale draws on, picked from the balance (F9)"));
}

void BillLinePane::Connect(const controls::Guard& guard) {
  for (const auto& [box, text] : Text1) {
    ConnectBox(guard, box);
  }
  const auto choice = [&](ComboBox* combo, void (BillLinePane::*handler)(), const char* name) {
    guard.Connect(combo, &QComboBox::activated, this, handler, QLatin1String(name));
    guard.Connect(combo, &ComboBox::Left, this, handler, QLatin1String(name));
  };
  choice(Combo3, &BillLinePane::Combo3_Click, "Combo3_Click");
  choice(Combo4, &BillLinePane::Combo4_Click, "Combo4_Click");
  choice(Combo5, &BillLinePane::Combo5_Click, "Combo5_Click");
  choice(Combo6, &BillLinePane::Combo6_Click, "Combo6_Click");
  guard.Connect(Check1, &QCheckBox::clicked, this, &BillLinePane::Check1_Click,
                QStringLiteral("Check1_Click"));
  guard.Connect(TxtScr, &TextBox::Left, this, &BillLinePane::TxtScr_Validate,
                QStringLiteral("TxtScr_Validate"));
}

void BillLinePane::ConnectBox(const controls::Guard& guard, BillBox box) {
  const TextBox* text = Text1[box];
  connect(text, &TextBox::Entered, this, [this, &guard, box] {
    guard.Run(QStringLiteral("Text1_GotFocus"), [this, box] { Text1_GotFocus(box); });
  });
  connect(text, &TextBox::Left, this, [this, &guard, box] {
    guard.Run(QStringLiteral("Text1_Validate"), [this, box] { Text1_Validate(box); });
  });
}

void BillLinePane::ReadChoices() {
  const int scrip = Combo4->CurrentId();
  const QString stt_percent = Combo5->currentText();
  scrips_ = ScripList(connection_);
  Combo4->SetItems(scrips_.Names());
  Combo4->ById(scrip);
  TxtScr->SetCompletions(scrips_.Codes());
  std::vector<lookups::Item> percents =
      lookups::DropDownItems(connection_, lookups::DropDown::kSttPercentages);
  for (lookups::Item& percent : percents) {
    percent.text = text::FormatPercent(text::Val(percent.text));
  }
  Combo5->SetItems(std::move(percents));
  Combo5->ByText(stt_percent);
}

void BillLinePane::Reset() {
  entry_ = {};
  entry_.SetSttInWholeRupees(stt_in_whole_rupees_);
  Begin();
}

void BillLinePane::Begin() {
  if (!DeliveryOf(entry_.DeliveryType())) {
    entry_.SetDelivery(Delivery::kDeliveryBased,
                       ReadPercents(connection_, year_, Delivery::kDeliveryBased));
  }
  entry_.Clear();
  ShowEntry();
}

void BillLinePane::Begin(const BillLine& line) {
  const std::optional<Delivery> delivery = DeliveryOf(line.delivery_type);
  entry_.Show(line,
              delivery ? ReadPercents(connection_, year_, *delivery) : records::ChargePercents());
  ShowEntry();
}

void BillLinePane::ShowEntry() {
  ShowBoxes();
  ShowScrip(entry_.Scrip());
  const std::optional<Side> side = entry_.GetSide();
  Combo3->setCurrentIndex(!side ? -1 : *side == Side::kSale ? kSale : kPurchase);
  if (!Combo6->ByText(entry_.DeliveryType())) {
    Combo6->Clear();
  }
  Combo5->ByText(text::FormatPercent(entry_.SttPercent()));
  Check1->setChecked(entry_.Fo());
  ShowLot();
}

void BillLinePane::ShowBoxes() {
  for (const auto& [box, text] : Text1) {
    if (text->text() != entry_.Boxes()[box]) {
      text->setText(entry_.Boxes()[box]);
    }
    text->setModified(false);
  }
}

void BillLinePane::ShowScrip(ScripId scrip) {
  Combo4->ById(scrip.value);
  const ScripFound* found = scrips_.Find(scrip);
  if (found == nullptr) {
    TxtScr->clear();
    Combo4->Clear();
    Combo4->setToolTip({});
    return;
  }
  TxtScr->setText(found->ShownCode());
  Combo4->setToolTip(tr("%1\nBSE %2   NSE %3").arg(found->name, found->code, found->ncode));
}

void BillLinePane::ShowLot() {
  const LotId lot = entry_.GetSide() == Side::kSale ? entry_.Lot() : LotId{};
  TxtStkId->setText(!lot ? QString() : lot.value < 0 ? tr("New") : QString::number(lot.value));
}

void BillLinePane::Read() {
  for (const auto& [box, text] : Text1) {
    if (text->isModified()) {
      entry_.Type(box, text->text());
      text->setModified(false);
    }
  }
}

const LineEntry& BillLinePane::Entry() {
  Read();
  return entry_;
}

void BillLinePane::Text1_GotFocus(BillBox box) {
  Read();
  entry_.Enter(box);
  ShowBoxes();
}

void BillLinePane::Text1_Validate(BillBox box) {
  Read();
  entry_.Leave(box);
  ShowBoxes();
  if (box == BillBox::kQuantity) {
    Q_EMIT QuantityLeft();
  }
}

void BillLinePane::Combo3_Click() {
  const std::optional<Side> side = SideAt(Combo3->CurrentPosition());
  if (side == entry_.GetSide()) {
    return;
  }
  Read();
  entry_.SetSide(side);
  ShowBoxes();
  ShowLot();
  Q_EMIT SideChosen();
}

void BillLinePane::Combo4_Click() {
  ChooseScrip(ScripId{Combo4->CurrentId()});
}

void BillLinePane::Combo5_Click() {
  if (Combo5->currentText() != text::FormatPercent(entry_.SttPercent())) {
    Read();
    entry_.SetSttPercent(text::Val(Combo5->currentText()));
    ShowBoxes();
  }
}

void BillLinePane::Combo6_Click() {
  const int place = Combo6->CurrentPosition();
  if (place < 0 || Combo6->currentText() == entry_.DeliveryType()) {
    return;
  }
  const Delivery delivery = place == 0 ? Delivery::kDeliveryBased : Delivery::kNonDeliveryBased;
  Read();
  entry_.SetDelivery(delivery, ReadPercents(connection_, year_, delivery));
  ShowBoxes();
  Combo5->ByText(text::FormatPercent(entry_.SttPercent()));
}

void BillLinePane::Check1_Click() {
  entry_.SetFo(Check1->isChecked());
}

void BillLinePane::TxtScr_Validate() {
  const QString code = TxtScr->text().trimmed();
  const ScripFound* shown = scrips_.Find(entry_.Scrip());
  if (code.isEmpty() || (shown != nullptr && shown->HasCode(code))) {
    ShowScrip(entry_.Scrip());
    return;
  }
  const std::optional<ScripFound> found = FindScripByCode(connection_, code);
  if (!found) {
    Q_EMIT CodeUnknown(code);
    return;
  }
  if (scrips_.Find(found->id) == nullptr) {
    ReadChoices();
  }
  ChooseScrip(found->id);
}

void BillLinePane::ChooseScrip(ScripId scrip) {
  if (scrip == entry_.Scrip()) {
    return;
  }
  Read();
  entry_.SetScrip(scrip);
  ShowScrip(scrip);
  ShowBoxes();
  ShowLot();
  if (scrip) {
    Q_EMIT ScripChosen(scrip.value);
  }
}

void BillLinePane::PickLot(const records::Lot& lot) {
  Read();
  if (!entry_.GetSide()) {
    entry_.SetSide(Side::kSale);
  }
  const bool other_scrip = entry_.Scrip() != lot.scrip;
  entry_.SetLot(lot);
  ShowEntry();
  if (other_scrip) {
    Q_EMIT ScripChosen(lot.scrip.value);
  }
}

void BillLinePane::OfferRate(double rate) {
  Read();
  if (!entry_.OfferRate(rate)) {
    return;
  }
  ShowBoxes();
  if (Text1[BillBox::kRate]->hasFocus()) {
    Text1[BillBox::kRate]->selectAll();
  }
}

void BillLinePane::FocusFirst() {
  QWidget* first = entry_.GetSide() ? static_cast<QWidget*>(TxtScr) : Combo3;
  first->setFocus(Qt::OtherFocusReason);
}

void BillLinePane::FocusQuantity() {
  Text1[BillBox::kQuantity]->setFocus(Qt::OtherFocusReason);
}

}  // namespace quorvane::bills
