#include "admin/repair/DoubleKeys.h"
#include "admin/repair/TableCheck.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

using namespace quorvane;

class TableCheckTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FindsWhatIsWrong_data() {
    const test::Table<QString, QString> row;
    row("nothing", "Update Broker Set City='X'", "");
    row("double key", "Insert Into Broker(Id,Name) Values(1,'TWIN')", "Broker(Id) 1;");
    row("two users under one number",
        "Insert Into LoginId(id,Name) Values(7,'ANN'),(7,'BOB'),(8,'CARL')", "LoginId(id) 1;");
    row("broker's opening balance twice",
        "Insert Into BrOpBal(CId,Fyear,Id,BrId,OpBal,Dr) Values(1,'2011-12',1,1,5,0),"
        "(1,'2011-12',2,1,5,0),(1,'2012-13',3,1,5,0)",
        "BrOpBal(CId,Fyear,BrId) 1;");
    row("two rates of a day",
        "Insert Into MarketRate(Fyear,Id,MDate,ScrId,Rate) Values('2011-12',1,'2011-06-15',1,5),"
        "('2011-12',2,'2011-06-15',1,6),('2011-12',3,'2011-06-16',1,6)",
        "MarketRate(ScrId,MDate) 1;");
    row("wrong lot", "Update Stock Set Qty=7", "lot 1 7;");
    row("lines without a bill",
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId) "
        "Values(1,'2011-12',55,1,0,0,1),(1,'2011-12',55,2,0,0,1)",
        "SPTrans.SID>SPMaster 2;2 of bill 55, 1 2011-12;");
    row("table that cannot be read", "Alter Table Broker Discard Tablespace", "Broker damaged;");
    row("no reference at all", "Insert Into Script(Id,Code,Type,ScrCls) Values(2,'S',Null,0)", "");
  }
  void FindsWhatIsWrong() {
    const auto [statement, found] = test::Table<QString, QString>::Row();
    test::TestDatabase database;
    const ClientId client = database.AddClient(QStringLiteral("C1"));
    const AccountId account = database.AddAccount(client, QStringLiteral("1001"));
    const ScripId scrip = database.AddScrip(QStringLiteral("S1"), QStringLiteral("S1"));
    database.AddBroker(QStringLiteral("B1"));
    database->Execute(
        "Insert Into StkOpBal(CId,Fyear,Id,ScriptId,Qty,Rate,AcId,PDate) "
        "Values(?,'2011-12',1,?,10,5,?,'01/01/2010')",
        client, scrip, account);
    database->Execute("Insert Into Stock Values(?,'2011-12',1,?,?,10,5)", client, account, scrip);
    database->Execute(statement.toStdString());
    Progress quiet;
    const repair::TableCheck check = repair::CheckTables(*database, quiet);
    QString text;
    for (const auto& key : check.double_keys) {
      text += QStringLiteral("%1(%2) %3;")
                  .arg(QString::fromStdString(key.table), QString::fromStdString(key.columns),
                       QString::number(key.keys));
    }
    for (const auto& change : check.wrong_lots) {
      text +=
          QStringLiteral("lot %1 %2;").arg(change.lot.id.value).arg(change.lot.quantity.Number());
    }
    for (const auto& dangling : check.dangling) {
      text +=
          QStringLiteral("%1.%2>%3 %4;")
              .arg(QString::fromStdString(dangling.table), QString::fromStdString(dangling.column),
                   QString::fromStdString(dangling.names), QString::number(dangling.rows));
    }
    for (const auto& lost : check.lost_lines) {
      text += QStringLiteral("%1 of bill %2, %3 %4;")
                  .arg(lost.lines)
                  .arg(lost.bill.value)
                  .arg(lost.client.value)
                  .arg(QString::fromStdString(lost.year));
    }
    for (const auto& fault : check.faults) {
      text += QString::fromStdString(fault.table + " damaged;");
    }
    QCOMPARE(text, found);
    QVERIFY(check.unchecked.empty());
    QCOMPARE(check.AllIsWell(), check.double_keys.empty() && check.wrong_lots.empty() &&
                                    check.faults.empty() && check.record_faults.isEmpty());
  }

  void DoubledKeysAreCuredWhereItIsClearWhatNamesThem() {
    test::TestDatabase database;
    database->Execute("Insert Into ScriptClass(Id,Name) Values(9,'X'),(9,'Y')");
    database->Execute(
        "Insert Into Broker(Id,Name) Values(1,'ONE'),(1,'TWO'),(3,'SAME'),(3,'SAME')");
    database->Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BrokId) Values(1,'2011-12',5,1),"
        "(2,'2011-12',5,1),(3,'2011-12',4,3)");
    database->Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP) Values(1,'2011-12',5,1,0),"
        "(2,'2011-12',5,1,1)");
    QCOMPARE(repair::FindDoubleRecords(*database).size(), std::size_t{8});
    const repair::NewKeys keys = repair::GiveNewKeys(*database);
    QCOMPARE(keys.given, 2);
    QCOMPARE(keys.removed, 1);
    QCOMPARE(keys.refused.size(), 1);
    QVERIFY2(keys.refused[0].contains("Broker: the records of key 1"), qPrintable(keys.refused[0]));
    auto rows = database->Open(
        "Select M.Cid,T.Cid,T.SP From SPMaster M Join SPTrans T On T.SID=M.ID Order By M.Cid");
    for (const int client : {1, 2}) {
      QVERIFY(rows.Next());
      QCOMPARE(rows.Int(0), client);
      QCOMPARE(rows.Int(1), client);
    }
    QVERIFY(!rows.Next());
    QCOMPARE(repair::FindDoubleRecords(*database).size(), std::size_t{2});
  }
};

static const test::RegisterTest<TableCheckTest> kRegistered;
#include "TableCheckTest.moc"
