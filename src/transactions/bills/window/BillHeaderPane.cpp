#include "transactions/bills/window/BillHeaderPane.h"

#include "controls/FieldLayout.h"
#include "core/lookups/Choices.h"
#include "transactions/bills/window/BillContext.h"

#include <algorithm>
#include <utility>

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

BillHeaderPane::BillHeaderPane(const BillContext& context, QWidget* window)
    : context_(context),
      number_(new TextBox()),
      date_(new controls::DateBox()),
      settlement_(new TextBox()),
      broker_(new TextBox()),
      Combo1(new ComboBox()),
      Combo2(new ComboBox()) {
  Arrange();
  Lst1 = new controls::PickList(QStringLiteral("Lst1"), broker_, window);
  context.guard.Connect(Combo2, &QComboBox::activated, this, &BillHeaderPane::Combo2_Click,
                        QStringLiteral("Combo2_Click"));
  context.guard.Connect(Combo2, &ComboBox::Left, this, &BillHeaderPane::Combo2_Click,
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

void BillHeaderPane::ReadChoices() {
  database::Connection& connection = context_.Connection();
  const int broker = Lst1->CurrentId();
  Lst1->SetItems(lookups::DropDownItems(connection, DropDown::kBrokers));
  if (broker != 0) {
    Lst1->ById(broker);
  }
  SetItemsKeepingChoice(*Combo1, lookups::DropDownItems(connection, DropDown::kExchanges));
  accounts_ = lookups::AccountItems(connection, context_.of.client);
  SetItemsKeepingChoice(*Combo2, accounts_);
}

void BillHeaderPane::Show() {
  const records::Bill& bill = context_.entry.Current();
  number_->setText(bill.number);
  date_->SetDate(bill.date);
  settlement_->setText(bill.settlement_number.trimmed());
  Lst1->ById(bill.broker.value);
  Combo1->ById(bill.exchange.value);
  ShowAccount();
}

void BillHeaderPane::Take() const {
  records::Bill bill;
  bill.number = number_->text();
  bill.date = date_->IsProper() ? date_->DateText() : date_->text();
  bill.settlement_number = settlement_->text();
  bill.broker = BrokerId{Lst1->CurrentId()};
  bill.exchange = ExchangeId{Combo1->CurrentId()};
  context_.entry.SetHeader(bill);
}

QString BillHeaderPane::AccountNumber() const {
  return Combo2->CurrentId() == 0 ? QString() : Combo2->currentText();
}

void BillHeaderPane::ShowAccount() {
  Combo2->ById(context_.entry.Current().account.value);
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
  if (account == std::exchange(shown_account_, account) || !context_.entry.IsOpen()) {
    return;
  }
  if (!context_.Accepts(context_.entry.ChooseAccount(AccountId{account}))) {
    ShowAccount();
    return;
  }
  OfferOldestLots();
  Q_EMIT AccountChanged();
}

void BillHeaderPane::OfferOldestLots() {
  const std::size_t sales = context_.entry.SalesWithoutLot();
  if (sales > 0 &&
      context_.desk.messages.Ask(
          tr("%1 of the Bill's Sales name no Lot. Take the oldest Lots of the Demat A/c?")
              .arg(sales),
          controls::Answer::kYes, controls::Icon::kInformation)) {
    context_.Accepts(context_.entry.TakeOldestLots());
  }
}

}  // namespace quorvane::bills
