#include "transactions/bills/window/FrmSalePurchase.h"

#include "core/app/Session.h"
#include "transactions/bills/BillChecks.h"
#include "transactions/bills/window/BillContext.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <stdexcept>

namespace quorvane::bills {

using controls::Answer;
using controls::Icon;
using controls::Mask;
using controls::Row;

FrmSalePurchase::FrmSalePurchase(controls::Desk& desk, RateSource rates)
    : RecordWindow(desk, QStringLiteral("FrmSalePurchase"),
                   app::ClientTitle(tr("Sale / Purchase"), desk.session), {796, 540},
                   QStringLiteral("VSF")),
      of_(app::CurrentOf(desk.session)),
      book_(*desk.session.connection, of_),
      entry_(*desk.session.connection, of_),
      context_{.desk = desk,
               .guard = TheGuard(),
               .of = of_,
               .entry = entry_,
               .refuse = [this](const Refusal& refusal) { Show(refusal); },
               .is_cancelling = [this] { return IsCancelling(); }} {
  List().SetColumns({{.heading = tr("Bill No.")},
                     {.heading = tr("Date"), .mask = Mask::kDate},
                     {.heading = tr("Broker")},
                     {.heading = tr("Exchange")},
                     {.heading = tr("Demat A/c")},
                     {.heading = tr("Total"), .mask = Mask::kAmount}});
  List().SetFilterable(false);  // the search box below does it
  auto* rows = new QVBoxLayout(Details());
  rows->setContentsMargins(0, 0, 0, 0);
  page_ =
      new BillPane(context_, rates ? std::move(rates) : AskExchanges(desk.session.folders), this);
  rows->addWidget(page_);
  Watch(page_->Head().DateBox());
  page_->ReadChoices();
  HoldFields();
  BuildSearch();
  On(this, &ChildWindow::Closed, &FrmSalePurchase::Form_Unload, QStringLiteral("Form_Unload"));
  Start();
}

void FrmSalePurchase::HoldFields() {
  Hold({{Field::kNumber, ControlName(BillBox::kNumber)},
        {Field::kDate, ControlName(BillBox::kDate)},
        {Field::kSettlementNumber, ControlName(BillBox::kSettlementNumber)},
        {Field::kBroker, ControlName(BillBox::kBroker)},
        {Field::kExchange, "Combo1"},
        {Field::kAccount, "Combo2"},
        {Field::kSide, "Combo3"},
        {Field::kScrip, "Combo4"},
        {Field::kScripCode, "TxtScr"},
        {Field::kLot, "VS3"},
        {Field::kQuantity, ControlName(BillBox::kQuantity)},
        {Field::kLine, "CmdUpdate1"},
        {Field::kLines, "Vs1"}});
}

void FrmSalePurchase::BuildSearch() {
  TxtSearch = new controls::TextBox();
  TxtSearch->setObjectName(QStringLiteral("TxtSearch"));
  TxtSearch->setAccessibleName(tr("Search"));
  TxtSearch->setPlaceholderText(tr("Search bill no., date or broker"));
  TxtSearch->setClearButtonEnabled(true);
  Buttons()->addWidget(TxtSearch, 1);
  On(TxtSearch, &QLineEdit::textChanged, &FrmSalePurchase::TxtSearch_Change,
     QStringLiteral("TxtSearch_Change"));
}

void FrmSalePurchase::FillList() {
  listed_ = ListBills(*Session().connection, of_);
  ShowListed();
}

bool FrmSalePurchase::ReadRecords(std::span<const int> keys) {
  ReadBills(*Session().connection, of_, keys, listed_);
  ShowListed();
  return true;
}

void FrmSalePurchase::ShowListed() {
  for (const ListedBill& listed : listed_) {
    if (listed.bill.id > last_.id) {
      last_ = listed.bill;
    }
  }
  ShowFound();
}

bool FrmSalePurchase::GoTo(int record) {
  if (!IsEditing()) {
    TxtSearch->clear();
  }
  return RecordWindow::GoTo(record);
}

/// The bills that the search finds.
void FrmSalePurchase::ShowFound() {
  std::vector<Row> rows;
  for (const ListedBill& listed : listed_) {
    const Bill& bill = listed.bill;
    if (listed.Has(TxtSearch->text())) {
      rows.push_back({.id = bill.id.value,
                      .cells = {bill.number, bill.date, listed.broker, listed.exchange,
                                listed.account, bill.grand_total}});
    }
  }
  List().SetRows(std::move(rows));
}

void FrmSalePurchase::Clear() {
  entry_.Show({});
  page_->Clear();
}

void FrmSalePurchase::Load(int id) {
  const std::optional<Bill> bill = book_.Load(BillId{id});
  if (!bill) {
    throw std::runtime_error(tr("This Bill was Deleted in the Meantime.").toStdString());
  }
  entry_.Show(*bill);
  page_->Show();
}

void FrmSalePurchase::BeginEditing() {
  page_->ReadChoices();
  entry_.Begin(CurrentId() == 0 ? NewBill() : entry_.Current());
  page_->Begin();
}

// The bills of a day mostly come from one broker, exchange and account.
Bill FrmSalePurchase::NewBill() const {
  Bill bill;
  bill.broker = last_.broker;
  bill.exchange = last_.exchange;
  bill.account = page_->Head().AccountToBeginWith(last_.account);
  return bill;
}

MaybeRefusal FrmSalePurchase::Save() {
  page_->Take();
  if (MaybeRefusal refusal = CheckBill(entry_.Current(), of_.year)) {
    return refusal;
  }
  if (page_->HasLineToLose()) {
    return Refusal{tr("The Line is not in the Bill yet. Update or Cancel it First."), Field::kLine};
  }
  if (MaybeRefusal refusal = entry_.CheckLots()) {
    return refusal;
  }
  if (entry_.IsTwin() && !AsksForTwin()) {
    return Refusal{{}, Field::kNumber};
  }
  MaybeRefusal refusal = entry_.Save();
  if (!refusal) {
    SetCurrentId(entry_.Current().id.value);
    last_ = entry_.Current();
    TxtSearch->clear();
  }
  return refusal;
}

bool FrmSalePurchase::AsksForTwin() {
  const Bill& bill = entry_.Current();
  return Say().Ask(tr("There is a Bill No. %1 of this Broker on %2 already.\n\nSave this one, too?")
                       .arg(bill.number, bill.date),
                   Answer::kNo, Icon::kInformation);
}

void FrmSalePurchase::Remove(int id) {
  context_.Accepts(book_.Delete(BillId{id}));
}

void FrmSalePurchase::StateChanged() {
  Details()->setEnabled(true);
  TxtSearch->setEnabled(!IsEditing());
  page_->SetEditing(IsEditing());
  if (!IsEditing() && entry_.IsOpen()) {
    TheGuard().Run(QStringLiteral("cmdCancel_Click"), [this] { entry_.Cancel(); });
  }
}

void FrmSalePurchase::EscapePressed() {
  if (page_->IsEnteringLine()) {
    page_->CancelLine();
  } else {
    RecordWindow::EscapePressed();
  }
}

QString FrmSalePurchase::GiveUpQuestion() const {
  return tr("The bill is not saved. Give it up?");
}

// Another row loads another bill, and the list takes the focus with it.
void FrmSalePurchase::TxtSearch_Change() {
  if (IsEditing()) {
    return;  // Saving clears it and fills the list itself.
  }
  const int cursor = TxtSearch->cursorPosition();
  ShowList();
  ShowFound();
  TxtSearch->setFocus(Qt::OtherFocusReason);
  TxtSearch->setCursorPosition(cursor);
}

void FrmSalePurchase::Form_Unload() {
  if (entry_.IsOpen()) {
    entry_.Cancel();
  }
}

}  // namespace quorvane::bills
