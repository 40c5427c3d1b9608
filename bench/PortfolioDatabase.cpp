#include "bench/PortfolioDatabase.h"

#include "core/database/BulkWriter.h"
#include "core/records/BillAmounts.h"
#include "core/text/Amounts.h"

namespace quorvane::bench {
namespace {

using database::BulkWriter;
using database::Transaction;

class Filler {
 public:
  Filler(Transaction& transaction, const Portfolio& portfolio)
      : transaction_(transaction), portfolio_(portfolio), year_(portfolio.year.Utf8()) {}

  void Run() {
    WriteMasters();
    WriteOpenings();
    WriteLots();
    WriteBills();
    WriteLines();
    WriteTransfers();
  }

 private:
  const std::string& Day(text::Date date) {
    day_.clear();
    text::AppendDmy(day_, date);
    return day_;
  }

  void WriteMasters() {
    BulkWriter clients(transaction_, "Insert Into ClientInfo(Id,Code,GCode,Name) Values(?,?,?,?)",
                       "ittt");
    for (int id = 1; id <= portfolio_.clients; ++id) {
      clients.Int(id).Text(ClientCode(id)).Text("GROUP").Text("CLIENT " + ClientCode(id)).EndRow();
    }
    clients.Finish();
    BulkWriter scrips(transaction_,
                      "Insert Into Script(Id,Code,Name,Type,ScrCls) Values(?,?,?,1,1)", "itt");
    for (int id = 1; id <= portfolio_.scrips; ++id) {
      scrips.Int(id).Text(ScripCode(id)).Text(ScripName(id)).EndRow();
    }
    scrips.Finish();
    BulkWriter brokers(transaction_, "Insert Into Broker(Id,Name) Values(?,?)", "it");
    for (int id = 1; id <= portfolio_.brokers; ++id) {
      brokers.Int(id).Text(BrokerName(id)).EndRow();
    }
    brokers.Finish();
    WriteAccounts();
  }

  void WriteAccounts() {
    transaction_.Execute("Insert Into DepPart(Id,Name,Depository) Values(1,'DEPOSITORY',0)");
    transaction_.Execute("Insert Into DpIDs(DepId,id,DPID) Values(1,1,'IN300001')");
    BulkWriter accounts(
        transaction_, "Insert Into ClientActDet(CId,id,DMATAC,DPID,ACNo) Values(?,?,1,1,?)", "iit");
    int id = 0;
    for (const Account& account : portfolio_.accounts) {
      accounts.Int(account.client).Int(++id).Text(account.number).EndRow();
    }
    accounts.Finish();
  }

  void WriteOpenings() {
    BulkWriter writer(transaction_,
                      "Insert Into StkOpBal(CId,Fyear,Id,ScriptId,Qty,Rate,Total,AcId,PDate,STax,"
                      "Brk,STT,FO) Values(?,?,?,?,?,?,?,?,?,?,?,?,0)",
                      "itiiddditddd");
    int id = 0;
    for (const Opening& opening : portfolio_.openings) {
      writer.Int(portfolio_.AccountOf(opening.account).client)
          .Text(year_)
          .Int(++id)
          .Int(opening.scrip)
          .Double(opening.quantity)
          .Double(opening.rate)
          .Double(text::RoundAmount(opening.quantity * (opening.rate + opening.brokerage)))
          .Int(opening.account)
          .Text(Day(opening.date))
          .Double(opening.service_tax)
          .Double(opening.brokerage)
          .Double(opening.stt)
          .EndRow();
    }
    writer.Finish();
  }

  void WriteLots() {
    BulkWriter writer(transaction_, "Insert Into Stock Values(?,?,?,?,?,?,?)", "itiiidd");
    int id = 0;
    for (const Lot& lot : portfolio_.lots) {
      writer.Int(portfolio_.AccountOf(lot.account).client)
          .Text(year_)
          .Int(++id)
          .Int(lot.account)
          .Int(lot.scrip)
          .Double(lot.quantity)
          .Double(lot.rate)
          .EndRow();
    }
    writer.Finish();
  }

  records::BillTotals TotalsOf(const Bill& bill) {
    lines_.clear();
    for (std::size_t i = 0; i < bill.line_count; ++i) {
      const Line& line = portfolio_.lines[bill.first_line + i];
      records::BillLine& one = lines_.emplace_back();
      one.side = line.purchase ? records::Side::kPurchase : records::Side::kSale;
      one.amount = line.amount;
      one.service_tax = line.service_tax;
      one.stt = line.stt;
    }
    return records::ComputeTotals(lines_, 0, 0);
  }

  void WriteBills() {
    BulkWriter writer(transaction_,
                      "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,ExId,AcId,Tot,"
                      "OthCharge,STT,TranChg,Total,SettlNo) Values(?,?,?,?,?,?,1,?,?,0,?,0,?,' ')",
                      "itittiiddd");
    std::size_t id = 0;
    for (const Bill& bill : portfolio_.bills) {
      const records::BillTotals totals = TotalsOf(bill);
      ++id;
      writer.Int(portfolio_.AccountOf(bill.account).client)
          .Text(year_)
          .Int(static_cast<std::int64_t>(id))
          .Text(BillNumber(id))
          .Text(Day(bill.date))
          .Int(bill.broker)
          .Int(bill.account)
          .Double(totals.total)
          .Double(totals.stt)
          .Double(totals.grand_total)
          .EndRow();
    }
    writer.Finish();
  }

  void WriteLines() {
    BulkWriter writer(transaction_,
                      "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate,Brk,Net,Amt,"
                      "STax,FO,STT,STTPer,DelvType) "
                      "Values(?,?,?,?,?,?,?,?,?,?,?,?,?,0,?,0.125,'Delivery Based')",
                      "itiiiiiddddddd");
    int bill = 0;
    for (const Bill& header : portfolio_.bills) {
      ++bill;
      for (std::size_t i = 0; i < header.line_count; ++i) {
        const Line& line = portfolio_.lines[header.first_line + i];
        writer.Int(portfolio_.AccountOf(header.account).client)
            .Text(year_)
            .Int(bill)
            .Int(static_cast<std::int64_t>(i) + 1)
            .Int(line.purchase ? 1 : 0)
            .Int(line.lot)
            .Int(line.scrip)
            .Double(line.quantity)
            .Double(line.rate)
            .Double(line.brokerage)
            .Double(line.net)
            .Double(line.amount)
            .Double(line.service_tax)
            .Double(line.stt)
            .EndRow();
      }
    }
    writer.Finish();
  }

  void WriteTransfers() {
    BulkWriter writer(transaction_,
                      "Insert Into ScrTransfer(Cid,Fyear,ID,TDate,FrmAcId,TransTo,ToAcId,"
                      "ToClientID,StkId,ScrId,PRate,Qty) Values(?,?,?,?,?,?,?,?,?,?,?,?)",
                      "ititiiiiiidd");
    int id = 0;
    for (const Transfer& transfer : portfolio_.transfers) {
      const int from = portfolio_.AccountOf(transfer.from).client;
      const int to = portfolio_.AccountOf(transfer.to).client;
      const Lot& lot = portfolio_.LotOf(transfer.lot);
      writer.Int(from)
          .Text(year_)
          .Int(++id)
          .Text(Day(transfer.date))
          .Int(transfer.from)
          .Int(from == to ? 0 : 1)
          .Int(transfer.to)
          .Int(to)
          .Int(transfer.lot)
          .Int(lot.scrip)
          .Double(lot.rate)
          .Double(transfer.quantity)
          .EndRow();
    }
    writer.Finish();
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  std::string year_;
  std::string day_;
  std::vector<records::BillLine> lines_;
};

}  // namespace

void FillDatabase(database::Connection& connection, const Portfolio& portfolio) {
  Transaction transaction(connection);
  Filler(transaction, portfolio).Run();
  transaction.Commit();
}

}  // namespace quorvane::bench
