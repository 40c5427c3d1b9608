#include "transactions/bills/BillBook.h"

#include "core/database/BulkWriter.h"
#include "core/database/DateSql.h"
#include "core/database/Keys.h"
#include "transactions/bills/BillChecks.h"
#include "transactions/bills/LinePosting.h"
#include "transactions/posting/Owner.h"
#include "transactions/posting/ScratchLots.h"

#include <fmt/format.h>

namespace quorvane::bills {
namespace {

using database::Connection;
using database::Recordset;
using database::Transaction;
using posting::LotSheet;

constexpr std::string_view kSelectHeaders =
    "Select ID,BillNo,BDate,BrokId,ExId,AcId,Tot,OthCharge,STT,TranChg,Total,SettlNo From SPMaster "
    "Where Cid=? and Fyear=?";
constexpr std::string_view kSelectLines =
    "Select SP,StkId,ScriptId,Qty,Rate,Brk,Net,Amt,STax,FO,STT,STTPer,DelvType From SPTrans "
    "Where Cid=? and Fyear=? and SID=? Order By Id";
constexpr std::string_view kForUpdate = " For Update";

Bill HeaderOf(const Recordset& row) {
  Bill bill;
  bill.id = BillId{row.Int(std::size_t{0})};
  bill.number = row.Text(1);
  bill.date = row.Text(2);
  bill.broker = BrokerId{row.Int(3)};
  bill.exchange = ExchangeId{row.Int(4)};
  bill.account = AccountId{row.Int(5)};
  bill.total = row.Double(6);
  bill.other_charges = row.Double(7);
  bill.stt = row.Double(8);
  bill.transaction_charges = row.Double(9);
  bill.grand_total = row.Double(10);
  bill.settlement_number = row.Text(11);
  return bill;
}

BillLine LineOf(const Recordset& row) {
  BillLine line;
  line.side = row.Int(std::size_t{0}) == 1 ? Side::kPurchase : Side::kSale;
  line.lot = LotId{row.Int(1)};
  line.scrip = ScripId{row.Int(2)};
  line.quantity = row.Double(3);
  line.rate = row.Double(4);
  line.brokerage = row.Double(5);
  line.net = row.Double(6);
  line.amount = row.Double(7);
  line.service_tax = row.Double(8);
  line.fo = row.Int(9) != 0;
  line.stt = row.Double(10);
  line.stt_percent = row.Double(11);
  line.delivery_type = row.Text(12);
  return line;
}

std::optional<Bill> ReadHeader(Connection& connection, const ClientYear& of, BillId id,
                               std::string_view suffix) {
  auto rows = connection.Open(fmt::format("{} and ID=?{}", kSelectHeaders, suffix), of.client,
                              of.year.Text(), id);
  return rows.Next() ? std::optional(HeaderOf(rows)) : std::nullopt;
}

std::optional<Bill> ReadBill(Connection& connection, const ClientYear& of, BillId id,
                             std::string_view suffix = "") {
  std::optional<Bill> bill = ReadHeader(connection, of, id, suffix);
  if (bill) {
    for (const auto& row : connection.Open(fmt::format("{}{}", kSelectLines, suffix), of.client,
                                           of.year.Text(), id)) {
      bill->lines.push_back(LineOf(row));
    }
  }
  return bill;
}

void DeleteRows(Transaction& transaction, const ClientYear& of, BillId id) {
  transaction.Execute("Delete From SPMaster Where ID=? and Cid=? and Fyear=?", id, of.client,
                      of.year.Text());
  transaction.Execute("Delete From SPTrans Where SID=? and Cid=? and Fyear=?", id, of.client,
                      of.year.Text());
}

void InsertHeader(Transaction& transaction, const ClientYear& of, const Bill& bill) {
  transaction.Execute(
      "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,ExId,AcId,Tot,OthCharge,STT,TranChg,"
      "Total,SettlNo) Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
      of.client, of.year.Text(), bill.id, bill.number, bill.date, bill.broker, bill.exchange,
      bill.account, bill.total, bill.other_charges, bill.stt, bill.transaction_charges,
      bill.grand_total, bill.settlement_number);
}

void InsertLines(Transaction& transaction, const ClientYear& of, const Bill& bill) {
  database::BulkWriter writer(
      transaction,
      "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate,Brk,Net,Amt,STax,FO,STT,"
      "STTPer,DelvType) Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
      "itiiiiiddddddiddt");
  int number = 0;
  for (const BillLine& line : bill.lines) {
    writer.Int(of.client.value)
        .Text(of.year.Utf8())
        .Int(bill.id.value)
        .Int(++number)
        .Int(static_cast<int>(line.side))
        .Int(line.lot.value)
        .Int(line.scrip.value)
        .Double(line.quantity)
        .Double(line.rate)
        .Double(line.brokerage)
        .Double(line.net)
        .Double(line.amount)
        .Double(line.service_tax)
        .Int(line.fo ? 1 : 0)
        .Double(line.stt)
        .Double(line.stt_percent)
        .Text(line.delivery_type.toStdString())
        .EndRow();
  }
  writer.Finish();
}

// What is recorded is what the ledger counts: more decimals would add up to another balance there.
void SettleQuantities(Bill& bill) {
  for (BillLine& line : bill.lines) {
    line.quantity = ledger::SettleQuantity(line.quantity);
  }
}

void PostInPlaceOf(LotSheet& sheet, const ClientYear& of, const std::optional<Bill>& old,
                   Bill& bill) {
  if (old) {
    ReverseLines(sheet, {of, old->account}, old->lines);
  }
  PostLines(sheet, {of, bill.account}, bill.lines);
}

MaybeRefusal Replace(Transaction& transaction, const ClientYear& of, const std::optional<Bill>& old,
                     Bill& bill) {
  // Before new lots are numbered, so that they can have the numbers that they had there.
  posting::EmptyScratch(transaction, of);
  LotSheet sheet(transaction, ledger::LotTable::kStock);
  PostInPlaceOf(sheet, of, old, bill);
  if (MaybeRefusal refusal = sheet.CheckShortage(QStringLiteral("Vs1"))) {
    return refusal;
  }
  sheet.Write();
  if (old) {
    DeleteRows(transaction, of, bill.id);
  } else {
    // A bill that was deleted meanwhile is written as a new one: its key may be taken.
    bill.id = BillId{database::NextKey(transaction, "SPMaster")};
  }
  InsertHeader(transaction, of, bill);
  InsertLines(transaction, of, bill);
  return std::nullopt;
}

MaybeRefusal SaveIn(Transaction& transaction, const ClientYear& of, Bill& bill) {
  const QString field = QStringLiteral("Combo2");
  if (MaybeRefusal refusal = posting::CheckClient(transaction, of.client, field)) {
    return refusal;
  }
  const std::optional<Bill> old =
      bill.id ? ReadBill(transaction.GetConnection(), of, bill.id, kForUpdate) : std::nullopt;
  if (MaybeRefusal refusal = posting::CheckAccount(transaction, of.client, bill.account,
                                                   old ? old->account : AccountId{}, field)) {
    return refusal;
  }
  return Replace(transaction, of, old, bill);
}

}  // namespace

BillBook::BillBook(Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

std::vector<Bill> BillBook::List() const {
  std::vector<Bill> bills;
  for (const auto& row :
       connection_.Open(fmt::format("{} Order By {},ID", kSelectHeaders, database::DateOf("BDate")),
                        of_.client, of_.year.Text())) {
    bills.push_back(HeaderOf(row));
  }
  return bills;
}

std::optional<Bill> BillBook::Load(BillId id) const {
  return ReadBill(connection_, of_, id);
}

MaybeRefusal BillBook::Save(Bill& bill) {
  if (MaybeRefusal refusal = CheckBill(bill, of_.year)) {
    return refusal;
  }
  Bill saved;
  MaybeRefusal refusal = database::InTransaction(connection_, [&](Transaction& transaction) {
    saved = bill;
    SettleQuantities(saved);
    return SaveIn(transaction, of_, saved);
  });
  if (!refusal) {
    bill = std::move(saved);
  }
  return refusal;
}

MaybeRefusal BillBook::Delete(BillId id) {
  return database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    const std::optional<Bill> old = ReadBill(transaction.GetConnection(), of_, id, kForUpdate);
    if (!old) {
      return std::nullopt;
    }
    LotSheet sheet(transaction, ledger::LotTable::kStock);
    ReverseLines(sheet, {of_, old->account}, old->lines);
    if (MaybeRefusal refusal = sheet.CheckShortage(QStringLiteral("VSF"))) {
      return refusal;
    }
    sheet.Write();
    DeleteRows(transaction, of_, id);
    return std::nullopt;
  });
}

}  // namespace quorvane::bills
