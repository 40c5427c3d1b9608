#include "portfolio/RecordedDocuments.h"

#include "core/lookups/Directory.h"

#include <fmt/format.h>

namespace quorvane::portfolio {

namespace {

std::string BillNumbered(const records::Bill& bill, const std::string& number) {
  return fmt::format("{}|{}|{}|{}|{}", bill.client.value, bill.account.value, bill.broker.value,
                     bill.date.toStdString(), number);
}

}  // namespace

std::string IdentityOf(const records::Bill& bill) {
  return BillNumbered(bill, lookups::Folded(bill.number.toStdString()));
}

std::string SharedByParts(const records::Bill& bill) {
  return BillNumbered(bill, bill.number.toStdString());
}

std::string IdentityOf(const records::Opening& opening) {
  return fmt::format("{}|{}|{}|{}|{}|{}|{}", opening.client.value, opening.year.FirstCalendarYear(),
                     opening.account.value, opening.scrip.value, opening.quantity.Millionths(),
                     opening.rate, opening.purchase_date.toStdString());
}

std::string IdentityOf(const records::Transfer& transfer) {
  return fmt::format("{}|{}|{}|{}|{}|{}", transfer.from.value, transfer.to.value,
                     transfer.scrip.value, transfer.rate, transfer.quantity.Millionths(),
                     transfer.date.toStdString());
}

std::string IdentityOf(const records::Payment& payment) {
  return fmt::format("{}|{}|{}|{}|{}|{}|{}", payment.client.value, payment.broker.value,
                     payment.mode, payment.amount, payment.date.toStdString(), payment.payment_mode,
                     payment.cheque_number.toStdString());
}

std::string IdentityOf(const records::BrokerOpening& opening) {
  return fmt::format("{}|{}|{}", opening.client.value, opening.year.FirstCalendarYear(),
                     opening.broker.value);
}

std::string IdentityOf(const records::Dividend& dividend) {
  return fmt::format("{}|{}|{}|{}|{}|{}", dividend.client.value, dividend.account.value,
                     dividend.scrip.value, dividend.date.toStdString(),
                     dividend.quantity.Millionths(), dividend.per_share);
}

std::set<text::FinancialYear> TouchedYears(const Portfolio& portfolio) {
  std::set<text::FinancialYear> years;
  for (const OpeningRow& row : portfolio.openings) {
    years.insert(row.record.year);
  }
  const auto add_dates = [&](const auto& rows) {
    text::Date last{};
    for (const auto& row : rows) {
      if (row.date != last || years.empty()) {
        years.insert(text::FinancialYear::Of(row.date));
        last = row.date;
      }
    }
  };
  add_dates(portfolio.bills);
  add_dates(portfolio.transfers);
  for (const ActionRow& row : portfolio.actions) {
    years.insert(text::FinancialYear::Of(row.ex_day));
  }
  return years;
}

}  // namespace quorvane::portfolio
