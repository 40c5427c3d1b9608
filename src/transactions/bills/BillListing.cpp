#include "transactions/bills/BillListing.h"

#include "core/lookups/Choices.h"
#include "transactions/bills/BillBook.h"

#include <QHash>

namespace quorvane::bills {
namespace {

using lookups::DropDown;

QHash<int, QString> TextsById(const std::vector<lookups::Item>& items) {
  QHash<int, QString> texts;
  for (const lookups::Item& item : items) {
    texts.insert(item.id, item.text);
  }
  return texts;
}

}  // namespace

bool ListedBill::Has(const QString& text) const {
  return bill.number.contains(text, Qt::CaseInsensitive) || bill.date.contains(text) ||
         broker.contains(text, Qt::CaseInsensitive);
}

std::vector<ListedBill> ListBills(database::Connection& connection, const ClientYear& of) {
  const auto brokers = TextsById(lookups::DropDownItems(connection, DropDown::kBrokers));
  const auto exchanges = TextsById(lookups::DropDownItems(connection, DropDown::kExchanges));
  const auto accounts = TextsById(lookups::AccountItems(connection, of.client));
  std::vector<ListedBill> listed;
  for (Bill& bill : BillBook(connection, of).List()) {
    ListedBill& row = listed.emplace_back();
    row.broker = brokers.value(bill.broker.value);
    row.exchange = exchanges.value(bill.exchange.value);
    row.account = accounts.value(bill.account.value);
    row.bill = std::move(bill);
  }
  return listed;
}

}  // namespace quorvane::bills
