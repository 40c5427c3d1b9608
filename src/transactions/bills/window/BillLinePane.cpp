#include "transactions/bills/window/BillLinePane.h"

#include "core/app/Ini.h"
#include "core/text/Amounts.h"
#include "transactions/bills/BillChecks.h"

namespace quorvane::bills {
namespace {

using controls::ComboBox;
using controls::TextBox;

bool RoundsStt(const app::Folders& folders) {
  return app::IniFile(folders.config_file)
             .Read(QStringLiteral("Bills"), QStringLiteral("WholeRupeeStt"))
             .compare(QLatin1String("yes"), Qt::CaseInsensitive) == 0;
}

}  // namespace

BillLinePane::BillLinePane(BillContext& context, const BillHeaderPane& head, HoldingsPane& holdings,
                           RateSource rates)
    : context_(context),
      head_(head),
      holdings_(holdings),
      rates_(std::move(rates)),
      stt_in_whole_rupees_(RoundsStt(context.desk.session.folders)) {
  entry_.SetSttInWholeRupees(stt_in_whole_rupees_);
  Connect();
}

void BillLinePane::Connect() {
  for (const auto& [box, text] : Text1) {
    ConnectBox(box);
  }
  const auto choice = [this](ComboBox* combo, void (BillLinePane::*handler)(), const char* name) {
    context_.guard.Connect(combo, &QComboBox::activated, this, handler, QLatin1String(name));
    context_.guard.Connect(combo, &ComboBox::Left, this, handler, QLatin1String(name));
  };
  choice(Combo3, &BillLinePane::Combo3_Click, "Combo3_Click");
  choice(Combo4, &BillLinePane::Combo4_Click, "Combo4_Click");
  choice(Combo5, &BillLinePane::Combo5_Click, "Combo5_Click");
  choice(Combo6, &BillLinePane::Combo6_Click, "Combo6_Click");
  context_.guard.Connect(Check1, &QCheckBox::clicked, this, &BillLinePane::Check1_Click,
                         QStringLiteral("Check1_Click"));
  context_.guard.Connect(TxtScr, &TextBox::Left, this, &BillLinePane::TxtScr_Validate,
                         QStringLiteral("TxtScr_Validate"));
  context_.guard.Connect(head_.DateBox(), &TextBox::Left, this, &BillLinePane::Text1_Date_Left,
                         QStringLiteral("Text1_Validate"));
}

void BillLinePane::ConnectBox(BillBox box) {
  const auto on = [&](auto signal, const char* name, void (BillLinePane::*handler)(BillBox)) {
    connect(Text1[box], signal, this, [this, box, name, handler] {
      context_.guard.Run(QLatin1String(name), [&] { (this->*handler)(box); });
    });
  };
  on(&TextBox::Entered, "Text1_GotFocus", &BillLinePane::Text1_GotFocus);
  on(&TextBox::Left, "Text1_Validate", &BillLinePane::Text1_Validate);
}

void BillLinePane::ReadChoices() {
  database::Connection& connection = context_.Connection();
  const int scrip = Combo4->CurrentId();
  const QString stt_percent = Combo5->currentText();
  context_.scrips = ScripList(connection);
  Combo4->SetItems(context_.scrips.Names());
  Combo4->ById(scrip);
  TxtScr->SetCompletions(context_.scrips.Codes());
  std::vector<lookups::Item> percents =
      lookups::DropDownItems(connection, lookups::DropDown::kSttPercentages);
  for (lookups::Item& percent : percents) {
    percent.text = text::FormatPercent(text::Val(percent.text));
  }
  Combo5->SetItems(std::move(percents));
  Combo5->ByText(stt_percent);
}

void BillLinePane::Reset() {
  entry_ = {};
  entry_.SetSttInWholeRupees(stt_in_whole_rupees_);
  Clear();
}

void BillLinePane::Clear() {
  if (!DeliveryOf(entry_.DeliveryType())) {
    entry_.SetDelivery(Delivery::kDeliveryBased, PercentsOf(Delivery::kDeliveryBased));
  }
  entry_.Clear();
  ShowEntry();
}

void BillLinePane::Add() {
  state_ = State::kNew;
}

void BillLinePane::Change(std::size_t place) {
  const records::BillLine& line = context_.entry.Current().lines.at(place);
  state_ = State::kChange;
  changed_ = place;
  const std::optional<Delivery> delivery = DeliveryOf(line.delivery_type);
  entry_.Show(line, delivery ? PercentsOf(*delivery) : records::ChargePercents());
  ShowEntry();
}

void BillLinePane::End() {
  state_ = State::kNone;
  ++question_;
  Clear();
}

BillEntry::Changed BillLinePane::Changed() const {
  return state_ == State::kChange ? BillEntry::Changed(changed_) : std::nullopt;
}

const LineEntry& BillLinePane::Entry() {
  ReadInto(entry_);
  return entry_;
}

records::ChargePercents BillLinePane::PercentsOf(Delivery delivery) const {
  return ReadPercents(context_.Connection(), context_.of.year, delivery);
}

void BillLinePane::ShowEntry() {
  ShowLine(entry_, context_.scrips.Find(entry_.Scrip()));
}

void BillLinePane::Text1_GotFocus(BillBox box) {
  ReadInto(entry_);
  entry_.Enter(box);
  ShowBoxes(entry_);
}

void BillLinePane::Text1_Validate(BillBox box) {
  ReadInto(entry_);
  entry_.Leave(box);
  ShowBoxes(entry_);
  if (box == BillBox::kQuantity && IsOpen() && !context_.is_cancelling()) {
    context_.Accepts(context_.entry.CheckQuantity(entry_.Entered(), Changed()));
  }
}

// Another date has other rates.
void BillLinePane::Text1_Date_Left() {
  if (context_.is_cancelling() || !head_.DateBox()->IsProper()) {
    return;
  }
  const QString date = head_.DateBox()->DateText();
  if (context_.Accepts(CheckYear(date, context_.of.year)) && IsOpen() && Entry().Scrip() &&
      !CheckDate(date, context_.desk.today())) {
    OfferRate();
  }
}

void BillLinePane::Combo3_Click() {
  const std::optional<Side> side = ChosenSide();
  if (side == entry_.GetSide()) {
    return;
  }
  ReadInto(entry_);
  entry_.SetSide(side);
  ShowBoxes(entry_);
  ShowLot(entry_);
  PickOnlyLot();
}

void BillLinePane::Combo4_Click() {
  ChooseScrip(ScripId{Combo4->CurrentId()});
}

void BillLinePane::Combo5_Click() {
  if (Combo5->currentText() != text::FormatPercent(entry_.SttPercent())) {
    ReadInto(entry_);
    entry_.SetSttPercent(text::Val(Combo5->currentText()));
    ShowBoxes(entry_);
  }
}

void BillLinePane::Combo6_Click() {
  const std::optional<Delivery> delivery = ChosenDelivery();
  if (!delivery || DeliveryText(*delivery) == entry_.DeliveryType()) {
    return;
  }
  ReadInto(entry_);
  entry_.SetDelivery(*delivery, PercentsOf(*delivery));
  ShowBoxes(entry_);
  ShowSttPercent(entry_);
}

void BillLinePane::Check1_Click() {
  entry_.SetFo(Check1->isChecked());
}

void BillLinePane::TxtScr_Validate() {
  const QString code = TxtScr->text().trimmed();
  const ScripFound* shown = context_.scrips.Find(entry_.Scrip());
  if (code.isEmpty() || (shown != nullptr && shown->HasCode(code))) {
    ShowScrip(shown);
    return;
  }
  const std::optional<ScripFound> found = FindScripByCode(context_.Connection(), code);
  if (!found) {
    if (!context_.is_cancelling()) {
      context_.refuse({tr("There is no Scrip of the Code %1.").arg(code), Field::kScripCode});
    }
    return;
  }
  if (context_.scrips.Find(found->id) == nullptr) {
    ReadChoices();
  }
  ChooseScrip(found->id);
}

void BillLinePane::ChooseScrip(ScripId scrip) {
  if (scrip == entry_.Scrip()) {
    return;
  }
  ReadInto(entry_);
  entry_.SetScrip(scrip);
  ShowScrip(context_.scrips.Find(scrip));
  ShowBoxes(entry_);
  ShowLot(entry_);
  if (scrip) {
    PickOnlyLot();
    OfferRate();
  }
}

// A sale of a scrip that has one lot draws on it; of several the user picks one.
void BillLinePane::PickOnlyLot() {
  if (!Entry().Scrip() || entry_.Lot()) {
    return;
  }
  holdings_.BringUp(entry_.Scrip());
  if (entry_.GetSide() != Side::kSale) {
    return;
  }
  if (const std::optional<records::Lot> lot = holdings_.OnlyLotOf(entry_.Scrip())) {
    PickLot(*lot);
  }
}

void BillLinePane::PickLot(const records::Lot& lot) {
  ReadInto(entry_);
  if (!entry_.GetSide()) {
    entry_.SetSide(Side::kSale);
  }
  const bool other_scrip = entry_.Scrip() != lot.scrip;
  entry_.SetLot(lot);
  ShowEntry();
  if (other_scrip) {
    PickOnlyLot();
    OfferRate();
  }
}

/// The rate of the scrip on the bill's day, recorded or asked for. One that comes later is dropped
/// when another was asked for or the line has ended.
void BillLinePane::OfferRate() {
  const int question = ++question_;
  const QString date = head_.DateBox()->DateText();
  const text::Date today = context_.desk.today();
  if (!context_.Accepts(CheckDate(date, today))) {
    return;
  }
  const ScripId scrip = entry_.Scrip();
  const ScripFound* found = context_.scrips.Find(scrip);
  if (const auto rate = MarketRateOf(context_.Connection(), context_.of.year, scrip, date)) {
    TakeRate(*rate);
  } else if (found != nullptr) {
    rates_({head_.ExchangeName(), *found, *text::ParseDmy(date), today},
           [this, question](double found_rate) {
             if (question == question_ && found_rate > 0) {
               context_.guard.Run(QStringLiteral("TxtScr_Validate"), [&] { TakeRate(found_rate); });
             }
           });
  }
}

void BillLinePane::TakeRate(double rate) {
  ReadInto(entry_);
  if (!entry_.OfferRate(rate)) {
    return;
  }
  ShowBoxes(entry_);
  if (Text1[BillBox::kRate]->hasFocus()) {
    Text1[BillBox::kRate]->selectAll();
  }
}

}  // namespace quorvane::bills
