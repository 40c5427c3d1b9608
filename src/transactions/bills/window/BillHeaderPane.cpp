#include "transactions/bills/window/BillHeaderPane.h"

#include "controls/FieldLayout.h"
#include "core/lookups/Choices.h"
#include "transactions/bills/window/ControlName.h"

#include <algorithm>

namespace quorvane::bills {
namespace {

using controls::ComboBox;
using controls::TextBox;
using lookups::DropDown;
using lookups::Item;

constexpr int kColumns = 3;

void SetItemsKeepingChoice(ComboBox& combo, std::vector<Item> items) {
  const int chosen = combo.CurrentId();
  combo.SetItems(std::move(items));
  combo.ById(chosen);
}

}  // namespace

BillHeaderPane::BillHeaderPane(const controls::Guard& guard, QWidget* window)
    : number_(new TextBox()),
      date_(new controls::DateBox()),
      settlement_(new TextBox()),
      broker_(new TextBox()),
      Combo1(new ComboBox()),
      Combo2(new ComboBox()) {
  Arrange();
  Lst1 = new controls::PickList(QStringLiteral("Lst1"), broker_, window);
  guard.Connect(Combo2, &QComboBox::activated, this, &BillHeaderPane::Combo2_Click,
                QStringLiteral("Combo2_Click"));
  guard.Connect(Combo2, &ComboBox::Left, this, &BillHeaderPane::Combo2_Click,
                QStringLiteral("Combo2_Click"));
}

void BillHeaderPane::Arrange() {
  auto* fields = new controls::FieldLayout(kColumns, this);
  fields->setContentsMargins(0, 0, 0, 0);
  fields->Add(tr("&Bill No."), ControlName(BillBox::kNumber), number_);
  fields->Add(tr("Bill Date"), ControlName(BillBox::kDate), date_);
  fields->Add(tr("&Settlement No."), ControlName(BillBox::kSettlementNumber), settlement_);
  fields->Add(tr("Bro&ker"), ControlName(BillBox::kBroker), broker_);
  fields->Add(tr("Exchan&ge"), QStringLiteral("Combo1"), Combo1);
  fields->Add(tr("Demat A/c"), QStringLiteral("Combo2"), Combo2);
}

void BillHeaderPane::ReadChoices(database::Connection& connection, ClientId client) {
  const int broker = Lst1->CurrentId();
  Lst1->SetItems(lookups::DropDownItems(connection, DropDown::kBrokers));
  if (broker != 0) {
    Lst1->ById(broker);
  }
  SetItemsKeepingChoice(*Combo1, lookups::DropDownItems(connection, DropDown::kExchanges));
  accounts_ = lookups::AccountItems(connection, client);
  SetItemsKeepingChoice(*Combo2, accounts_);
}

void BillHeaderPane::Show(const Bill& bill) {
  number_->setText(bill.number);
  date_->SetDate(bill.date);
  settlement_->setText(bill.settlement_number.trimmed());
  Lst1->ById(bill.broker.value);
  Combo1->ById(bill.exchange.value);
  ShowAccount(bill.account);
}

Bill BillHeaderPane::Entered() const {
  Bill bill;
  bill.number = number_->text();
  bill.date = date_->IsProper() ? date_->DateText() : date_->text();
  bill.settlement_number = settlement_->text();
  bill.broker = BrokerId{Lst1->CurrentId()};
  bill.exchange = ExchangeId{Combo1->CurrentId()};
  return bill;
}

QString BillHeaderPane::AccountNumber() const {
  return Combo2->CurrentId() == 0 ? QString() : Combo2->currentText();
}

void BillHeaderPane::ShowAccount(AccountId account) {
  Combo2->ById(account.value);
  shown_account_ = Combo2->CurrentId();
}

AccountId BillHeaderPane::AccountToBeginWith(AccountId wanted) const {
  const bool has = std::ranges::find(accounts_, wanted.value, &Item::id) != accounts_.end();
  if (has) {
    return wanted;
  }
  return accounts_.size() == 1 ? AccountId{accounts_.front().id} : AccountId{};
}

void BillHeaderPane::Combo2_Click() {
  const int account = Combo2->CurrentId();
  if (account != shown_account_) {
    shown_account_ = account;
    Q_EMIT AccountChosen(account);
  }
}

}  // namespace quorvane::bills
