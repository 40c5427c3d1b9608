#pragma once

#include "core/text/FinancialYear.h"
#include "support/TestDatabase.h"

#include <QTest>

namespace quorvane::test {

/// A database with two clients, two accounts of the first and one of the second, two scrips and a
/// broker, in the year 2011-12.
struct MovementDesk {
  TestDatabase database;
  ClientId client = database.AddClient(QStringLiteral("C1"));
  ClientId other = database.AddClient(QStringLiteral("C2"));
  AccountId first = database.AddAccount(client, QStringLiteral("1001"));
  AccountId second = database.AddAccount(client, QStringLiteral("1002"));
  AccountId foreign = database.AddAccount(other, QStringLiteral("2001"));
  ScripId reliance = database.AddScrip(QStringLiteral("500325"), QStringLiteral("RELIANCE"));
  ScripId infosys = database.AddScrip(QStringLiteral("500209"), QStringLiteral("INFOSYS"));
  BrokerId lotus = database.AddBroker(QStringLiteral("LOTUS"));
  BrokerId amber = database.AddBroker(QStringLiteral("AMBER"));
  text::FinancialYear year{2011};

  void AddOpening(ScripId scrip, double quantity, const char* date) {
    database->Execute(
        "Insert Into StkOpBal(CId,Fyear,Id,ScriptId,Qty,AcId,PDate) Values(?,'2011-12',1,?,?,?,?)",
        client, scrip, quantity, first, QString(date));
  }

  void AddBill(int id, const char* date, AccountId account, BrokerId broker,
               double other_charges = 0, double transaction_charges = 0) {
    database->Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,AcId,OthCharge,TranChg,SettlNo) "
        "Values(?,'2011-12',?,?,?,?,?,?,?,'S1')",
        client, id, QStringLiteral("B/%1").arg(id), QString(date), broker, account, other_charges,
        transaction_charges);
  }

  struct Charges {
    double brokerage = 0;
    double service_tax = 0;
    double stt = 0;
  };
  void AddLine(int bill, bool purchase, ScripId scrip, double quantity, double rate = 100,
               Charges charges = {0, 0, 0}) {
    database->Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,ScriptId,Qty,Rate,Brk,STax,STT) "
        "Values(?,'2011-12',?,?,?,?,?,?,?,?,?)",
        client, bill, ++line_, purchase ? 1 : 0, scrip, quantity, rate, charges.brokerage,
        charges.service_tax, charges.stt);
  }

  void AddTransfer(int id, const char* date, ClientId by, AccountId from, AccountId to,
                   double quantity) {
    database->Execute(
        "Insert Into ScrTransfer(Cid,Fyear,ID,TDate,FrmAcId,ToAcId,ToClientID,ScrId,Qty) "
        "Values(?,'2011-12',?,?,?,?,?,?,?)",
        by, id, QString(date), from, to, by == client ? other : client, reliance, quantity);
  }

 private:
  int line_ = 0;
};

}  // namespace quorvane::test
