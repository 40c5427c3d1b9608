#include "portfolio/TakenDocuments.h"

#include "core/database/Keys.h"
#include "core/records/BillAmounts.h"
#include "core/records/Writing.h"

#include <array>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using records::Bill;
using records::BillLine;

/// The names as the database has them.
const QString& DeliveryType(std::uint8_t place) {
  static const std::array<QString, std::size(kDeliveryTypes)> kTexts = [] {
    std::array<QString, std::size(kDeliveryTypes)> texts;
    std::ranges::transform(kDeliveryTypes, texts.begin(),
                           [](std::string_view text) { return QString::fromUtf8(text); });
    return texts;
  }();
  return kTexts[place];
}

void SetTotals(Bill& bill) {
  const auto totals =
      quorvane::records::ComputeTotals(bill.lines, bill.other_charges, bill.transaction_charges);
  bill.total = totals.total;
  bill.stt = totals.stt;
  bill.grand_total = totals.grand_total;
}

/// The first of so many new keys of a record's table.
template <class Record>
int FirstKey(Transaction& transaction, std::size_t count) {
  return database::NextKeys(transaction, records::Table<Record>::kName, static_cast<int>(count));
}

template <class Record>
void WriteNumbered(Transaction& transaction, std::span<Record> records) {
  records::Writer<Record> writer(transaction);
  int next = FirstKey<Record>(transaction, records.size());
  for (Record& record : records) {
    record.id.value = next++;
    writer.Write(record);
  }
  writer.Finish();
}

}  // namespace

Bill TakenDocuments::HeaderOf(const BillRow& row, ClientId client, AccountId account) const {
  Bill bill;
  bill.client = client;
  bill.year = text::FinancialYear::Of(row.date);
  bill.number = QString::fromUtf8(row.number);
  bill.date = text::FormatDmy(row.date);
  bill.broker = names_.brokers[row.broker];
  bill.exchange = names_.exchanges[row.exchange];
  bill.account = account;
  bill.other_charges = row.other_charges;
  bill.transaction_charges = row.transaction_charges;
  bill.settlement_number = QString::fromUtf8(row.settlement);
  return bill;
}

void TakenDocuments::Add(const BillRow& bill, ClientId client, AccountId account,
                         std::span<const TakenLine> lines) {
  bills_.push_back({&bill, client, account, static_cast<std::uint32_t>(lines.size())});
  lines_.insert(lines_.end(), lines.begin(), lines.end());
}

BillLine TakenDocuments::LineOf(const TakenLine& taken, const Bill& bill) const {
  const BillLineRow& row = *taken.row;
  BillLine line;
  line.client = bill.client;
  line.year = bill.year;
  line.bill = bill.id;
  line.side = row.side;
  line.scrip = names_.scrips[row.scrip];
  line.quantity = taken.quantity;
  line.rate = row.rate;
  line.brokerage = row.brokerage;
  quorvane::records::ComputeAmount(line);
  line.service_tax = taken.service_tax;
  line.fo = row.fo;
  line.stt = taken.stt;
  line.stt_percent = row.stt_percent;
  line.delivery_type = DeliveryType(row.delivery);
  return line;
}

void TakenDocuments::WriteBills(Transaction& transaction, const ledger::Lots& lots,
                                Progress& progress) {
  records::Writer<Bill> bills(transaction);
  records::Writer<BillLine> lines(transaction);
  int next = FirstKey<Bill>(transaction, bills_.size());
  std::span<const TakenLine> left(lines_);
  for (const TakenBill& taken : bills_) {
    Bill bill = HeaderOf(*taken.row, taken.client, taken.account);
    bill.id.value = next++;
    for (const TakenLine& line : left.first(taken.line_count)) {
      BillLine& recorded = bill.lines.emplace_back(LineOf(line, bill));
      recorded.number = static_cast<int>(bill.lines.size());
      recorded.lot = lots.Numbered(line.lot);
      lines.Write(recorded);
    }
    left = left.subspan(taken.line_count);
    SetTotals(bill);
    bills.Write(bill);
    progress.Step(
        static_cast<std::int64_t>(portfolio_.bill_lines.size() + lines_.size() - left.size()));
    progress.ThrowIfCancelled();
  }
  bills.Finish();
  lines.Finish();
}

void TakenDocuments::Write(Transaction& transaction, ledger::Lots& lots, Progress& progress) {
  lots.Write(transaction);
  for (records::Transfer& transfer : transfers_) {
    transfer.lot = lots.Numbered(transfer.lot);
  }
  WriteNumbered(transaction, std::span(openings_));
  WriteNumbered(transaction, std::span(transfers_));
  WriteBills(transaction, lots, progress);
}

}  // namespace quorvane::portfolio
