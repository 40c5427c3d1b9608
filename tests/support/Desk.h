#pragma once

#include "core/ledger/Lots.h"
#include "core/records/BillAmounts.h"
#include "core/text/Amounts.h"
#include "support/Records.h"
#include "support/Save.h"
#include "support/TestDatabase.h"

#include <string>

namespace quorvane::test {

/// A database with two clients, the first of which has two demat accounts, and two scrips.
struct Desk {
  TestDatabase database;
  ClientId client = database.AddClient(QStringLiteral("C1"));
  ClientId other_client = database.AddClient(QStringLiteral("C2"));
  AccountId account = database.AddAccount(client, QStringLiteral("1001"));
  AccountId second_account = database.AddAccount(client, QStringLiteral("1002"));
  AccountId other_account = database.AddAccount(other_client, QStringLiteral("2001"));
  ScripId scrip = database.AddScrip(QStringLiteral("500325"), QStringLiteral("RELIANCE"));
  ScripId second_scrip = database.AddScrip(QStringLiteral("500209"), QStringLiteral("INFOSYS"));
  BrokerId broker = database.AddBroker(QStringLiteral("O'BRIEN & SONS"));
  text::FinancialYear year{2011};
  ClientYear of{client, year};
  ClientYear other_of{other_client, year};

  database::Connection& Connection() { return database.Get(); }

  /// Takes every record and lot away again; the masters stay.
  void Empty() {
    test::Empty(Connection(), {"SPMaster", "SPTrans", "StkOpBal", "ScrTransfer", "Stock",
                               "Stock_Temp", "ScriptAvgRate", "BrOpBal", "BrPayment", "BrRec"});
  }

  /// A lot of the ledger as "10@100", "none" when there is no such lot.
  QString LotAt(const ClientYear& owner, AccountId where, ScripId what, double rate) {
    for (const records::Lot& lot :
         ledger::ReadLots(Connection(), ledger::LotScope::Of({owner, where}))) {
      if (lot.scrip == what && lot.rate == rate) {
        return text::NumberText(lot.quantity.Number()) + QLatin1Char('@') +
               text::NumberText(lot.rate);
      }
    }
    return QStringLiteral("none");
  }

  /// The first scrip's lot in the first account.
  QString LotAt(double rate) { return LotAt(of, account, scrip, rate); }

  LotId IdOfLot(double rate) {
    for (const records::Lot& lot :
         ledger::ReadLots(Connection(), ledger::LotScope::Of({of, account}))) {
      if (lot.scrip == scrip && lot.rate == rate) {
        return lot.id;
      }
    }
    return {};
  }

  /// A line of the first scrip without charges.
  records::BillLine Purchase(double quantity, double rate) const {
    records::BillLine line;
    line.side = records::Side::kPurchase;
    line.scrip = scrip;
    line.quantity = text::Shares(quantity);
    line.rate = rate;
    records::ComputeAmount(line);
    return line;
  }

  records::BillLine Sale(double quantity, double rate, LotId lot) const {
    records::BillLine line = Purchase(quantity, rate);
    line.side = records::Side::kSale;
    line.lot = lot;
    return line;
  }

  records::Bill NewBill(const QString& date, std::vector<records::BillLine> lines) const {
    records::Bill bill;
    bill.number = QStringLiteral("B/1");
    bill.date = date;
    bill.broker = broker;
    bill.exchange = ExchangeId{1};
    bill.account = account;
    bill.lines = std::move(lines);
    return bill;
  }

  records::Bill NewBill(std::vector<records::BillLine> lines) const {
    return NewBill(QStringLiteral("10/06/2011"), std::move(lines));
  }

  /// Every row of the records and of the ledger, to see that nothing changed.
  QStringList Everything() {
    return test::Contents(Connection(),
                          {"SPMaster", "SPTrans", "StkOpBal", "ScrTransfer", "Stock"});
  }

  QStringList Contents(const char* table) { return test::Contents(Connection(), {table}); }
};

inline const QString kNegativeReliance = QStringLiteral(
    "You Can't Update Record.\n\nQunatity of RELIANCE Script Can't be Negative Value.");

/// A double as the digits that tell it from every other: QCOMPARE lets doubles differ.
inline std::string Exact(double value) {
  std::string text;
  text::AppendExact(text, value);
  return text;
}

}  // namespace quorvane::test
