#include "portfolio/trades/TradeBills.h"

#include "core/records/Opening.h"
#include "core/text/Amounts.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

namespace quorvane::portfolio {
namespace {

std::string DayDigits(text::Date day) {
  const QString dmy = text::FormatDmy(day);
  return (dmy.mid(6) + dmy.mid(3, 2) + dmy.left(2)).toStdString();
}

/// The wanted number, or with a count behind it the first that is free.
std::string FreeNumber(text::Date day, const std::string& wanted, BillNumbers& taken) {
  std::string number = wanted;
  for (int count = 2; !taken.emplace(day, lookups::Folded(number)).second; ++count) {
    number = fmt::format("{}-{}", wanted, count);
  }
  return number;
}

auto BillOf(const TradeLine& line) {
  return std::tie(line.day, line.exchange, line.bill_number);
}

/// What users record by hand for a share whose class is not known.
const QString kNewType = QStringLiteral("EQUITY");

}  // namespace

std::vector<PlannedBill> BillsOf(const TradePlan& plan, std::span<const std::uint32_t> lines,
                                 BillNumbers& taken) {
  std::vector<PlannedBill> bills;
  const TradeLine* last = nullptr;
  for (const std::uint32_t place : lines) {
    const TradeLine& line = plan.Lines()[place];
    if (last == nullptr || BillOf(*last) != BillOf(line)) {
      const std::string wanted =
          line.bill_number.empty() ? line.exchange + "-" + DayDigits(line.day) : line.bill_number;
      bills.push_back({line.day, FreeNumber(line.day, wanted, taken), line.exchange, {}});
    }
    bills.back().lines.push_back(place);
    last = &line;
  }
  return bills;
}

BillPortfolio::BillPortfolio(const TradeTarget& target, const TradePlan& plan,
                             const lookups::Directory& directory)
    : plan_(plan),
      directory_(directory),
      client_(portfolio_.client_codes.Intern(target.client_code, FileKind::kBills, 0)),
      account_(portfolio_.account_numbers.Intern(target.account_number, FileKind::kBills, 0)),
      broker_(portfolio_.broker_names.Intern(target.broker_name, FileKind::kBills, 0)) {}

void BillPortfolio::AddCarried(std::span<const gains::RemainingLot> lots,
                               text::FinancialYear year) {
  for (const gains::RemainingLot& lot : lots) {
    OpeningRow row;
    row.client = client_;
    row.account = account_;
    row.scrip =
        portfolio_.scrip_codes.Intern(directory_.Scrip(lot.scrip).code, FileKind::kOpening, 0);
    row.purchase_date = lot.date;
    records::Opening& record = row.record;
    record.year = year;
    record.quantity = text::Shares(lot.quantity);
    record.rate = lot.rate;
    record.total = lot.total;
    record.purchase_date = text::FormatDmy(lot.date);
    record.service_tax = lot.service_tax;
    record.brokerage = lot.brokerage;
    record.stt = lot.stt;
    record.fo = lot.fo;
    portfolio_.openings.push_back(std::move(row));
  }
}

void BillPortfolio::Add(const PlannedBill& planned) {
  const TradeLine& first = plan_.Lines()[planned.lines.front()];
  BillRow bill;
  bill.client = client_;
  bill.account = account_;
  bill.broker = broker_;
  bill.number = portfolio_.texts.emplace_back(planned.number);
  bill.settlement = portfolio_.texts.emplace_back(first.settlement);
  bill.date = planned.day;
  bill.exchange = portfolio_.exchange_names.Intern(planned.exchange, FileKind::kBills, 0);
  bill.line = planned.lines.front() + 1;
  bill.first_line = static_cast<std::uint32_t>(portfolio_.bill_lines.size());
  bill.line_count = static_cast<std::uint32_t>(planned.lines.size());
  for (const std::uint32_t place : planned.lines) {
    const TradeLine& line = plan_.Lines()[place];
    bill.transaction_charges += line.charges.exchange_fee;
    bill.other_charges += line.charges.others;
    AddLine(line, place);
  }
  bill.transaction_charges = text::RoundAmount(bill.transaction_charges);
  bill.other_charges = text::RoundAmount(bill.other_charges);
  portfolio_.bills.push_back(bill);
}

void BillPortfolio::AddLine(const TradeLine& line, std::uint32_t place) {
  BillLineRow row;
  row.scrip = ScripOf(plan_.Scrips()[line.scrip], place);
  row.side = line.side;
  row.delivery = line.non_delivery ? kNonDelivery : kDelivery;
  row.quantity = line.quantity;
  row.rate = line.rate;
  row.brokerage = text::Tidy(line.charges.brokerage / line.quantity.Number());
  row.service_tax = line.charges.tax;
  row.stt = line.charges.stt;
  row.stt_percent = line.charges.stt_percent;
  row.bill = static_cast<std::uint32_t>(portfolio_.bills.size());
  row.line = place + 1;
  portfolio_.bill_lines.push_back(row);
}

/// `place` is that of the first line of the scrip.
Symbol BillPortfolio::ScripOf(const TradedScrip& scrip, std::uint32_t place) {
  if (scrip.match == ScripMatch::kKnown) {
    return portfolio_.scrip_codes.Intern(directory_.Scrip(scrip.scrip).code, FileKind::kBills, 0);
  }
  const std::string code = NewCode(scrip.naming).toStdString();
  if (new_codes_.insert(code).second) {
    const ScripNaming& naming = scrip.naming;
    ScripRow row;
    row.line = place + 1;
    row.record.code = QString::fromStdString(code);
    row.record.name =
        QString::fromStdString(naming.name.empty() ? naming.Shown() : naming.name).toUpper();
    row.record.second_code = QString::fromStdString(naming.symbol).toUpper();
    row.type = kNewType;
    portfolio_.scrips.push_back(std::move(row));
  }
  return portfolio_.scrip_codes.Intern(code, FileKind::kBills, 0);
}

}  // namespace quorvane::portfolio
