#include "portfolio/MovementRecords.h"

#include "core/database/Keys.h"
#include "core/text/Amounts.h"

namespace quorvane::portfolio {
namespace {

using database::BulkWriter;
using database::Transaction;

constexpr std::string_view kInsertOpening =
    "Insert Into StkOpBal Values(?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertBill = "Insert Into SPMaster Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertLine =
    "Insert Into SPTrans Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertTransfer =
    "Insert Into ScrTransfer Values(?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertLot = "Insert Into Stock Values(?,?,?,?,?,?,?)";
constexpr std::string_view kUpdateLot = "Update Stock Set Qty=? Where Id=?";

}  // namespace

RecordDay RecordDay::Of(text::Date date) {
  RecordDay day;
  day.year = text::FinancialYear::Of(date);
  day.year_text = day.year.Utf8();
  text::AppendDmy(day.text, date);
  return day;
}

MovementRecords::MovementRecords(Transaction& transaction, const ResolvedNames& names)
    : transaction_(transaction),
      names_(names),
      openings_(transaction, kInsertOpening, "itiiddditdddi"),
      bills_(transaction, kInsertBill, "itittiiidddddt"),
      lines_(transaction, kInsertLine, "itiiiiiddddddiddt"),
      transfers_(transaction, kInsertTransfer, "ititiiiiiidd"),
      next_opening_(database::FirstFreeKey(transaction, "StkOpBal")),
      next_bill_(database::FirstFreeKey(transaction, "SPMaster")),
      next_transfer_(database::FirstFreeKey(transaction, "ScrTransfer")) {}

void MovementRecords::WriteOpening(const OpeningRow& row, ClientId client, AccountId account) {
  const ScripId scrip = names_.scrips[row.scrip];
  std::string day;
  text::AppendDmy(day, row.purchase_date);
  openings_.Int(client.value)
      .Text(row.year.Utf8())
      .Int(next_opening_++)
      .Int(scrip.value)
      .Double(row.quantity)
      .Double(row.rate)
      .Double(text::RoundAmount(row.quantity * text::Tidy(row.rate + row.brokerage)))
      .Int(account.value)
      .Text(day)
      .Double(row.service_tax)
      .Double(row.brokerage)
      .Double(row.stt)
      .Int(row.fo ? 1 : 0)
      .EndRow();
}

void MovementRecords::WriteBill(const BillRow& bill, ClientId client, AccountId account,
                                const RecordDay& day, std::span<const RecordedLine> lines) {
  const int id = next_bill_++;
  totals_lines_.clear();
  int number = 0;
  for (const RecordedLine& line : lines) {
    WriteLine(line, client, id, ++number, day);
    quorvane::bills::BillLine total;
    total.side =
        line.row->purchase ? quorvane::bills::Side::kPurchase : quorvane::bills::Side::kSale;
    total.amount = line.amount;
    total.service_tax = line.service_tax;
    total.stt = line.stt;
    totals_lines_.push_back(total);
  }
  line_count_ += lines.size();
  const auto totals =
      quorvane::bills::ComputeTotals(totals_lines_, bill.other_charges, bill.transaction_charges);
  bills_.Int(client.value)
      .Text(day.year_text)
      .Int(id)
      .Text(bill.number)
      .Text(day.text)
      .Int(names_.brokers[bill.broker].value)
      .Int(names_.exchanges[bill.exchange].value)
      .Int(account.value)
      .Double(totals.total)
      .Double(bill.other_charges)
      .Double(totals.stt)
      .Double(bill.transaction_charges)
      .Double(totals.grand_total)
      .Text(bill.settlement)
      .EndRow();
}

void MovementRecords::WriteLine(const RecordedLine& line, ClientId client, int bill, int number,
                                const RecordDay& day) {
  const BillLineRow& row = *line.row;
  lines_.Int(client.value)
      .Text(day.year_text)
      .Int(bill)
      .Int(number)
      .Int(row.purchase ? 1 : 0)
      .Int(line.lot.value)
      .Int(names_.scrips[row.scrip].value)
      .Double(line.quantity)
      .Double(row.rate)
      .Double(row.brokerage)
      .Double(line.net)
      .Double(line.amount)
      .Double(line.service_tax)
      .Int(row.fo ? 1 : 0)
      .Double(line.stt)
      .Double(row.stt_percent)
      .Text(kDeliveryTypes[row.delivery])
      .EndRow();
}

void MovementRecords::WriteTransfer(const TransferRow& row, const TransferEnds& ends, LotId lot,
                                    const RecordDay& day) {
  constexpr int kSameClient = 0;
  constexpr int kOtherClient = 1;
  transfers_.Int(ends.from.client.value)
      .Text(day.year_text)
      .Int(next_transfer_++)
      .Text(day.text)
      .Int(ends.from.account.value)
      .Int(ends.from.client == ends.to.client ? kSameClient : kOtherClient)
      .Int(ends.to.account.value)
      .Int(ends.to.client.value)
      .Int(lot.value)
      .Int(names_.scrips[row.scrip].value)
      .Double(row.rate)
      .Double(row.quantity)
      .EndRow();
}

void MovementRecords::Finish(const HoldingsBook& book) {
  openings_.Finish();
  bills_.Finish();
  lines_.Finish();
  transfers_.Finish();
  WriteLots(book);
  database::KeepKeys(transaction_, "StkOpBal", next_opening_);
  database::KeepKeys(transaction_, "SPMaster", next_bill_);
  database::KeepKeys(transaction_, "ScrTransfer", next_transfer_);
}

void MovementRecords::WriteLots(const HoldingsBook& book) {
  BulkWriter insert(transaction_, kInsertLot, "itiiidd");
  BulkWriter update(transaction_, kUpdateLot, "di");
  int next = 0;
  for (const HoldingsBook::LotState& state : book.Lots()) {
    if (!state.is_new) {
      if (state.lot.quantity != state.stored) {
        update.Double(state.lot.quantity).Int(state.lot.id.value).EndRow();
      }
      continue;
    }
    insert.Int(state.place.of.client.value)
        .Text(state.place.of.year.Utf8())
        .Int(state.lot.id.value)
        .Int(state.lot.account.value)
        .Int(state.lot.scrip.value)
        .Double(state.lot.quantity)
        .Double(state.lot.rate)
        .EndRow();
    next = state.lot.id.value + 1;
  }
  insert.Finish();
  update.Finish();
  if (next != 0) {
    database::KeepKeys(transaction_, "Stock", next);
  }
}

}  // namespace quorvane::portfolio
