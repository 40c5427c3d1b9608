#include "transactions/broker_money/window/FrmBrPayment.h"

#include "controls/FieldLayout.h"
#include "controls/GridModel.h"
#include "core/app/Session.h"
#include "core/lookups/Choices.h"

#include <algorithm>

namespace quorvane::broker_money {

using controls::ComboBox;
using controls::DateBox;
using controls::Mask;
using controls::TextBox;

FrmBrPayment::FrmBrPayment(controls::Desk& desk, PaymentKind kind)
    : RecordWindow(desk, QStringLiteral("FrmBrPayment"),
                   app::ClientTitle(KindTitle(kind), desk.session), {760, 480},
                   QStringLiteral("VSF"), Panels::kTogether),
      kind_(kind),
      book_(*desk.session.connection, kind, app::CurrentOf(desk.session)) {
  BuildFields();
  SetListColumns();
  Hold({{Field::kBroker, "Combo1"},
        {Field::kTransactionMode, "Combo2"},
        {Field::kAmount, "Text1_0"},
        {Field::kDate, "Text1_1"},
        {Field::kPaymentMode, "Combo3"},
        {Field::kChequeNumber, "Text1_2"},
        {Field::kDrawnOn, "Text1_4"},
        {Field::kRemark, "Text1_5"}});
  Start();
}

void FrmBrPayment::BuildFields() {
  auto* fields = new controls::FieldLayout(2, Details());
  Combo1 = fields->Add(tr("&Broker Name"), QStringLiteral("Combo1"), new ComboBox(), 2);
  Combo1->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kBrokers));
  Combo2 = fields->Add(tr("Transact&ion Mode"), QStringLiteral("Combo2"), new ComboBox());
  Combo2->SetItems(controls::ValueList(TransactionChoices(kind_)).Items());
  Text1_0 = fields->Add(tr("Amount"), QStringLiteral("Text1_0"), new controls::AmountBox());
  Text1_1 = fields->Add(tr("Date"), QStringLiteral("Text1_1"), new DateBox());
  Combo3 = fields->Add(tr("Payment Mod&e"), QStringLiteral("Combo3"), new ComboBox());
  Combo3->SetItems(controls::ValueList(PaymentModeChoices()).Items());
  Text1_2 = fields->Add(tr("C&heque No."), QStringLiteral("Text1_2"), new TextBox());
  Text1_3 = fields->Add(tr("Cheque Date"), QStringLiteral("Text1_3"), new DateBox());
  Text1_4 = fields->Add(tr("Dra&wn On"), QStringLiteral("Text1_4"), new TextBox(), 2);
  Text1_5 = fields->Add(tr("Remar&k"), QStringLiteral("Text1_5"), new TextBox(), 2);
  Watch(Text1_1);
  Watch(Text1_3);
  // While it is typed: Enter goes on to a box that is enabled by then.
  On(Combo3, &QComboBox::editTextChanged, &FrmBrPayment::Combo3_Click,
     QStringLiteral("Combo3_Click"));
}

void FrmBrPayment::SetListColumns() {
  List().SetColumns(
      {{.heading = tr("Date"), .mask = Mask::kDate},
       {.heading = tr("Broker Name"),
        .choices = lookups::ChoiceList(*Session().connection, lookups::Choices::kBrokers)},
       {.heading = tr("Transaction Mode"), .choices = TransactionChoices(kind_)},
       {.heading = tr("Amount"), .mask = Mask::kAmount},
       {.heading = tr("Payment Mode"), .choices = PaymentModeChoices()},
       {.heading = tr("Cheque No.")},
       {.heading = tr("Cheque Date"), .mask = Mask::kDate},
       {.heading = tr("Drawn On")},
       {.heading = tr("Remark")}});
}

void FrmBrPayment::FillList() {
  payments_ = book_.List();
  std::vector<controls::Row> rows;
  for (const BrokerPayment& payment : payments_) {
    rows.push_back(
        {.id = payment.id.value,
         .cells = {payment.date, payment.broker.value, *payment.transaction, payment.amount,
                   static_cast<int>(*payment.mode), payment.cheque_number, payment.cheque_date,
                   payment.drawn_on, payment.remark}});
  }
  List().SetRows(std::move(rows));
}

void FrmBrPayment::Clear() {
  for (ComboBox* combo : {Combo1, Combo2, Combo3}) {
    combo->Clear();
  }
  for (TextBox* box :
       std::initializer_list<TextBox*>{Text1_0, Text1_1, Text1_2, Text1_3, Text1_4, Text1_5}) {
    box->clear();
  }
}

void FrmBrPayment::Load(int id) {
  const auto found = std::ranges::find(payments_, PaymentId{id}, &BrokerPayment::id);
  if (found == payments_.end()) {
    return;
  }
  Combo1->ById(found->broker.value);
  Combo2->ById(*found->transaction);
  Text1_0->SetAmount(found->amount);
  Text1_1->SetDate(found->date);
  Combo3->ById(static_cast<int>(*found->mode));
  Text1_2->setText(found->cheque_number);
  Text1_3->SetDate(found->cheque_date);
  Text1_4->setText(found->drawn_on);
  Text1_5->setText(found->remark);
}

BrokerPayment FrmBrPayment::Entered() const {
  BrokerPayment payment{.id = PaymentId{CurrentId()},
                        .broker = BrokerId{Combo1->CurrentId()},
                        .transaction = {},
                        .amount = Text1_0->Amount(),
                        .date = Text1_1->DateText(),
                        .mode = {},
                        .cheque_number = {},
                        .cheque_date = {},
                        .drawn_on = {},
                        .remark = Text1_5->text()};
  if (Combo2->HasChoice()) {
    payment.transaction = Combo2->CurrentId();
  }
  if (Combo3->HasChoice()) {
    payment.mode = static_cast<PaymentMode>(Combo3->CurrentId());
  }
  if (IsCheque()) {
    payment.cheque_number = Text1_2->text();
    payment.cheque_date = Text1_3->DateText();
    payment.drawn_on = Text1_4->text();
  }
  return payment;
}

MaybeRefusal FrmBrPayment::Save() {
  return Saved(book_.Save(Entered()));
}

void FrmBrPayment::Remove(int id) {
  book_.Delete(PaymentId{id});
}

bool FrmBrPayment::IsCheque() const {
  return Combo3->HasChoice() && Combo3->CurrentId() == static_cast<int>(PaymentMode::kCheque);
}

void FrmBrPayment::StateChanged() {
  Combo3_Click();
}

/// Cash has no cheque: its boxes are passed over by the Tab key.
void FrmBrPayment::Combo3_Click() {
  for (QWidget* box : std::initializer_list<QWidget*>{Text1_2, Text1_3, Text1_4}) {
    box->setEnabled(IsCheque());
  }
}

}  // namespace quorvane::broker_money
