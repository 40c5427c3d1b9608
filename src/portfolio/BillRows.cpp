#include "portfolio/PortfolioRows.h"

#include <fmt/format.h>

#include <algorithm>

namespace quorvane::portfolio {
namespace {

std::string FirstRowOnly(const BillRow& first) {
  return fmt::format("expected nothing: the charge stands on the bill's first row, line {}",
                     first.line);
}

}  // namespace

void BillRows::Read() {
  using namespace bills;
  BillRow bill;
  bill.client = fields_.Client(kClientCode);
  bill.account = fields_.Account(kAccountNo);
  bill.number = fields_.Table().Text(kBillNo);
  bill.settlement = fields_.Table().Text(kSettlementNo);
  bill.broker = fields_.Broker(kBroker);
  bill.exchange = fields_.Exchange(kExchange);
  bill.other_charges = fields_.Table().Number(kOtherCharges);
  bill.transaction_charges = fields_.Table().Number(kTransactionCharges);
  bill.line = static_cast<std::uint32_t>(fields_.Table().Line());
  const auto date = fields_.Table().DateOf(kBillDate);
  if (!date) {
    return;
  }
  bill.date = *date;
  const double part = fields_.Table().OptionalNumber(kBillPart).value_or(1);
  BillLineRow line = ReadLineOnly();
  line.bill = BillOf(bill, part);
  portfolio_.bill_lines.push_back(line);
}

BillLineRow BillRows::ReadLineOnly() {
  using namespace bills;
  BillLineRow line;
  line.scrip = fields_.Scrip(kScripCode);
  line.side = fields_.Table().Choice(kSide, kPurchaseSale) == 0 ? records::Side::kPurchase
                                                                : records::Side::kSale;
  line.quantity = fields_.Table().Shares(kQuantity);
  line.rate = fields_.Table().Number(kRate);
  line.brokerage = fields_.Table().Number(kBrokerage);
  line.service_tax = fields_.Table().Number(kServiceTax);
  line.stt = fields_.Table().Number(kStt);
  line.stt_percent = fields_.Table().Number(kSttPercent);
  line.delivery =
      static_cast<std::uint8_t>(std::max(fields_.Table().Choice(kDeliveryType, kDeliveryTypes), 0));
  line.fo = fields_.Table().Flag(kFo);
  line.line = static_cast<std::uint32_t>(fields_.Table().Line());
  line.lot_rate = LotRate();
  if (line.IsPurchase() && line.lot_rate != BillLineRow::kNoLotRate) {
    fields_.Table().Fail(kLotRate, "expected nothing: a purchase makes its lot at its own rate");
  }
  return line;
}

double BillRows::LotRate() const {
  if (fields_.Table().IsWord(bills::kLotRate, kNoLotWord)) {
    return BillLineRow::kNoLot;
  }
  return fields_.Table().OptionalNumber(bills::kLotRate).value_or(BillLineRow::kNoLotRate);
}

std::uint32_t BillRows::BillOf(const BillRow& row, double part) {
  std::string key = fmt::format("{} {} {} {} {} ", row.client, row.account, row.broker,
                                row.date.time_since_epoch().count(), part);
  key += row.number;
  if (!portfolio_.bills.empty() && key == last_bill_key_) {
    return JoinBill(last_bill_, row);
  }
  const auto [entry, fresh] =
      bills_by_key_.try_emplace(key, static_cast<std::uint32_t>(portfolio_.bills.size()));
  last_bill_key_ = std::move(key);
  last_bill_ = entry->second;
  if (!fresh) {
    return JoinBill(last_bill_, row);
  }
  portfolio_.bills.push_back(row);
  return last_bill_;
}

std::uint32_t BillRows::JoinBill(std::uint32_t index, const BillRow& row) {
  using namespace bills;
  const BillRow& first = portfolio_.bills[index];
  if (row.other_charges != 0) {
    fields_.Table().Fail(kOtherCharges, FirstRowOnly(first));
  }
  if (row.transaction_charges != 0) {
    fields_.Table().Fail(kTransactionCharges, FirstRowOnly(first));
  }
  if (row.exchange != first.exchange) {
    fields_.Table().Fail(
        kExchange,
        fmt::format("expected the exchange of the bill's first row, line {}", first.line));
  }
  if (!row.settlement.empty() && row.settlement != first.settlement) {
    fields_.Table().Fail(
        kSettlementNo,
        fmt::format("expected the settlement number of the bill's first row, line {}", first.line));
  }
  return index;
}

void BillRows::Group() {
  auto& lines = portfolio_.bill_lines;
  const auto by_bill = [](const BillLineRow& a, const BillLineRow& b) { return a.bill < b.bill; };
  if (!std::is_sorted(lines.begin(), lines.end(), by_bill)) {
    std::stable_sort(lines.begin(), lines.end(), by_bill);
  }
  for (std::uint32_t i = 0; i < lines.size(); ++i) {
    BillRow& bill = portfolio_.bills[lines[i].bill];
    if (bill.line_count++ == 0) {
      bill.first_line = i;
    }
  }
}

}  // namespace quorvane::portfolio
