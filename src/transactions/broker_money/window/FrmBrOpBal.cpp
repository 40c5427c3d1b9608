#include "transactions/broker_money/window/FrmBrOpBal.h"

#include "controls/FieldLayout.h"
#include "controls/GridModel.h"
#include "core/app/Session.h"
#include "core/lookups/Choices.h"

#include <algorithm>

namespace quorvane::broker_money {

using controls::ComboBox;

FrmBrOpBal::FrmBrOpBal(controls::Desk& desk)
    : RecordWindow(desk, QStringLiteral("FrmBrOpBal"),
                   app::ClientTitle(tr("Broker Opening Balance"), desk.session), {620, 420},
                   QStringLiteral("VSF"), Panels::kTogether),
      book_(*desk.session.connection, app::CurrentOf(desk.session)) {
  BuildFields();
  CmdImport = new controls::ZENButton(QStringLiteral("CmdImport"), tr("Carry &Forward"));
  CmdImport->setToolTip(tr("Brings the closing balances of the year before into this year"));
  Buttons()->addWidget(CmdImport);
  OnClick(CmdImport, &FrmBrOpBal::CmdImport_Click);
  Hold({{Field::kBroker, "Combo1"}, {Field::kAmount, "Text1_0"}, {Field::kSide, "Combo2"}});
  Start();
}

void FrmBrOpBal::BuildFields() {
  auto* fields = new controls::FieldLayout(2, Details());
  Combo1 = fields->Add(tr("&Broker Name"), QStringLiteral("Combo1"), new ComboBox(), 2);
  Combo1->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kBrokers));
  Text1_0 =
      fields->Add(tr("Openin&g Balance"), QStringLiteral("Text1_0"), new controls::AmountBox());
  Combo2 = fields->Add(tr("Dr/Cr"), QStringLiteral("Combo2"), new ComboBox());
  Combo2->SetItems(controls::ValueList(SideChoices()).Items());
  List().SetColumns(
      {{.heading = tr("Broker Name"),
        .choices = lookups::ChoiceList(*Session().connection, lookups::Choices::kBrokers)},
       {.heading = tr("Opening Balance"), .mask = controls::Mask::kAmount},
       {.heading = tr("Dr/Cr"), .choices = SideChoices()}});
}

void FrmBrOpBal::FillList() {
  openings_ = book_.List();
  std::vector<controls::Row> rows;
  for (const BrokerOpening& opening : openings_) {
    rows.push_back(
        {.id = opening.id.value,
         .cells = {opening.broker.value, opening.amount, static_cast<int>(*opening.side)}});
  }
  List().SetRows(std::move(rows));
}

void FrmBrOpBal::Clear() {
  Combo1->Clear();
  Text1_0->clear();
  Combo2->Clear();
}

void FrmBrOpBal::Load(int id) {
  const auto found = std::ranges::find(openings_, BrokerOpeningId{id}, &BrokerOpening::id);
  if (found != openings_.end()) {
    Combo1->ById(found->broker.value);
    Text1_0->SetAmount(found->amount);
    Combo2->ById(static_cast<int>(*found->side));
  }
}

MaybeRefusal FrmBrOpBal::Save() {
  BrokerOpening opening{.id = BrokerOpeningId{CurrentId()},
                        .broker = BrokerId{Combo1->CurrentId()},
                        .amount = Text1_0->Amount(),
                        .side = {}};
  if (Combo2->HasChoice()) {
    opening.side = static_cast<LedgerSide>(Combo2->CurrentId());
  }
  return Saved(book_.Save(opening));
}

void FrmBrOpBal::Remove(int id) {
  book_.Delete(BrokerOpeningId{id});
}

void FrmBrOpBal::StateChanged() {
  CmdImport->setEnabled(!IsEditing());
}

void FrmBrOpBal::FirstShown() {
  RecordWindow::FirstShown();
  if (openings_.empty() && book_.HasBalancesToCarryForward()) {
    CmdImport_Click();
  }
}

void FrmBrOpBal::CmdImport_Click() {
  if (!book_.HasBalancesToCarryForward()) {
    Say().Inform(tr("There are no Balances of the Previous Year to Carry Forward."));
    return;
  }
  if (Say().Ask(tr("Do you want to Carry Forward From Previous Year?"), controls::Answer::kNo,
                controls::Icon::kInformation)) {
    book_.CarryForward();
    Refill();
  }
}

}  // namespace quorvane::broker_money
