#include "core/database/Connection.h"
#include "core/database/Schema.h"
#include "core/database/SchemaTables.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <fmt/format.h>

#include <array>
#include <barrier>
#include <thread>

using namespace quorvane::database;
using quorvane::test::TestDatabase;
namespace test = quorvane::test;

namespace {

constexpr std::size_t kFirst = 0;

const char* const kOpening =
    "CId int(11), Fyear varchar(10), Id int(11), ScriptId int(11), Qty double, Rate double, "
    "Total double, AcId int(11), PDate varchar(10), STax double = 0, Brk double = 0, "
    "STT double = 0, FO int(11) = 0";
const char* const kBills =
    "Cid int(11), Fyear varchar(10), ID int(11), BillNo varchar(100), BDate varchar(10), "
    "BrokId int(11), ExId int(11), AcId int(11), Tot double, OthCharge double, STT double, "
    "TranChg double = 0, Total double, SettlNo varchar(100) = ' '";
const char* const kLines =
    "Cid int(11), Fyear varchar(10), SID int(11), Id int(11), SP int(2), StkId int(11), "
    "ScriptId int(11), Qty double, Rate double, Brk double, Net double, Amt double, STax double, "
    "FO int(11) = 0, STT double = 0, STTPer double = 0, DelvType varchar(100) = 'N.A.'";
const char* const kScrips =
    "Id int(11), Code varchar(255), Name varchar(255), Type int(11), ScrCls int(11), "
    "NCode varchar(255) = ' '";

/// The tables that take rows without column names, from this program and from older ones.
const std::array<std::pair<const char*, const char*>, 4> kExpected{
    {{"StkOpBal", kOpening}, {"SPMaster", kBills}, {"SPTrans", kLines}, {"Script", kScrips}}};

/// The columns that a query sees, with their defaults.
QString ColumnsOf(Connection& connection, const QString& table) {
  QStringList columns;
  for (const auto& row : connection.Open(
           "Select COLUMN_NAME,COLUMN_TYPE,COLUMN_DEFAULT From information_schema.COLUMNS Where "
           "TABLE_SCHEMA=Database() And TABLE_NAME=? And EXTRA Not Like '%INVISIBLE%' "
           "Order By ORDINAL_POSITION",
           table.toLower())) {
    QString column = row.Text(kFirst) + QLatin1Char(' ') + row.Text(1);
    if (!row.IsNull(2) && row.Text(2) != QLatin1String("NULL")) {
      column += QStringLiteral(" = ") + row.Text(2);
    }
    columns << column;
  }
  return columns.join(QStringLiteral(", "));
}

/// Every row as "value|value|...", NULL as "-".
QStringList RowsOf(Connection& connection, const std::string& query) {
  QStringList lines;
  auto rows = connection.Open(query);
  while (rows.Next()) {
    QStringList values;
    for (std::size_t i = 0; i < rows.ColumnCount(); ++i) {
      values << (rows.IsNull(i) ? QStringLiteral("-") : rows.Text(i));
    }
    lines << values.join(QLatin1Char('|'));
  }
  return lines;
}

QStringList EverythingIn(Connection& connection) {
  QStringList all;
  for (const std::string& table : TableNames()) {
    all << RowsOf(connection, "Show Create Table " + table)
        << RowsOf(connection, "Select * From " + table);
  }
  return all;
}

QString Told(const std::vector<SkippedStatement>& skipped) {
  QStringList lines;
  for (const SkippedStatement& one : skipped) {
    lines << QString::fromStdString(one.statement + ": " + one.reason);
  }
  return lines.join(QLatin1Char('\n'));
}

}  // namespace

/// The tables as every other part of the program finds them, however the database came about.
class SchemaTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EveryTableIsTransactionalAndHasAKey() {
    TestDatabase database;
    const QStringList all{QString::number(RowsOf(*database, "Show Tables").size())};
    QCOMPARE(RowsOf(*database,
                    "Select Count(*) From information_schema.TABLES Where "
                    "TABLE_SCHEMA=Database() And Engine='InnoDB' And TABLE_COLLATION="
                    "'utf8mb4_general_ci'"),
             all);
    QCOMPARE(RowsOf(*database,
                    "Select Count(Distinct TABLE_NAME) From information_schema.STATISTICS Where "
                    "TABLE_SCHEMA=Database() And INDEX_NAME='PRIMARY'"),
             all);
  }

  void LookupTablesHoldTheirFirstRows_data() {
    const test::Table<QString, QStringList> row;
    row("types", "ScriptType",
        QStringList{"1|EQUITY", "2|BOND", "3|DEBENTURE", "4|UNIT", "5|BSE 500 SHARE"});
    row("classes", "ScriptClass", QStringList{"1|A", "2|B", "3|C"});
    row("exchanges", "Exchange", QStringList{"1|NSE", "2|BSE"});
    row("STT", "STTPer", QStringList{"1|0", "2|0.025", "3|0.125", "4|0.017"});
  }
  void LookupTablesHoldTheirFirstRows() {
    const auto [table, rows] = test::Table<QString, QStringList>::Row();
    TestDatabase database;
    const std::string select = "Select * From " + table.toStdString() + " Order By Id";
    QCOMPARE(RowsOf(*database, select), rows);

    database->Execute("Delete From " + table.toStdString());
    QCOMPARE(Told(PrepareDatabase(*database)), QString());
    QCOMPARE(RowsOf(*database, select), rows);

    database->Execute("Delete From " + table.toStdString() + " Where Id<>2");
    QCOMPARE(Told(PrepareDatabase(*database)), QString());
    QCOMPARE(RowsOf(*database, select), QStringList{rows.at(1)});
  }

  void StartingTwiceChangesNothing() {
    TestDatabase database;
    database->Execute("Insert Into SPTrans(Id,DelvType) Values(1,'Delivery')");
    database->Execute("Insert Into Exchange Values(3,'MCX')");
    const QStringList before = EverythingIn(*database);
    QCOMPARE(Told(PrepareDatabase(*database)), QString());
    QCOMPARE(EverythingIn(*database), before);
  }

  void OldTablesGetTheMissingColumnsAndKeepTheirRows_data() {
    const test::Table<QString, QString, QString, QString, QString> row;
    const auto first = [](const char* columns, qsizetype count) {
      QStringList list = QString::fromLatin1(columns).split(QStringLiteral(", ")).mid(0, count);
      list.replaceInStrings(QStringLiteral(" = "), QStringLiteral(" Default "));
      return list.join(QLatin1Char(','));
    };
    const QString line = QStringLiteral("7,'2011-12',3,4,1,5,6,10,1.5,0.1,1.6,16,0.2");
    const QString line_read = QStringLiteral("7|2011-12|3|4|1|5|6|10|1.5|0.1|1.6|16|0.2|");
    row("SPTrans of 13", "SPTrans", first(kLines, 13), line, line_read + "0|0|0|N.A.", kLines);
    row("SPTrans of 16", "SPTrans", first(kLines, 16), line + ",1,2.5,0.125",
        line_read + "1|2.5|0.125|N.A.", kLines);
    const QString lot = QStringLiteral("7,'2011-12',3,6,10,1.5,15,9,'01/04/2011'");
    const QString lot_read = QStringLiteral("7|2011-12|3|6|10|1.5|15|9|01/04/2011|");
    row("StkOpBal of 9", "StkOpBal", first(kOpening, 9), lot, lot_read + "0|0|0|0", kOpening);
    row("StkOpBal of 10", "StkOpBal", first(kOpening, 10), lot + ",0.5", lot_read + "0.5|0|0|0",
        kOpening);
    row("Script of 5", "Script", first(kScrips, 5), "1,'500325','RELIANCE',1,1",
        "1|500325|RELIANCE|1|1| ", kScrips);
    const QString old_bill = QStringLiteral(
        "Cid int,Fyear varchar(10),ID int,BillNo varchar(100),BDate varchar(10),BrokId int,"
        "ExId int,AcId int,Tot double,OthCharge double,STT double,Total double");
    const QString with_charge = QString(old_bill).replace(
        QStringLiteral("STT double,"), QStringLiteral("STT double,TranChg double Default 0,"));
    const QString bill = QStringLiteral("7,'2011-12',3,'B/1','05/04/2011',2,1,9,100,1,2");
    const QString bill_read = QStringLiteral("7|2011-12|3|B/1|05/04/2011|2|1|9|100|1|2|");
    row("SPMaster of 12", "SPMaster", old_bill, bill + ",103", bill_read + "0|103| ", kBills);
    row("SPMaster of 13", "SPMaster", with_charge, bill + ",4,107", bill_read + "4|107| ", kBills);
  }
  void OldTablesGetTheMissingColumnsAndKeepTheirRows() {
    const auto [table, columns, old_row, new_row, new_columns] =
        test::Table<QString, QString, QString, QString, QString>::Row();
    TestDatabase database(TestDatabase::Tables::kNone);
    const std::string name = table.toStdString();
    database->Execute(fmt::format("Create Table {}({}) Engine=MyISAM Default Charset=latin1", name,
                                  columns.toStdString()));
    database->Execute(fmt::format("Insert Into {} Values({})", name, old_row.toStdString()));
    QCOMPARE(Told(PrepareDatabase(*database)), QString());
    QCOMPARE(RowsOf(*database, "Select * From " + name), QStringList{new_row});
    QCOMPARE(ColumnsOf(*database, table), new_columns);
  }

  void TablesOfAnOldReleaseBecomeTransactionalAndTakeAnyCharacter() {
    TestDatabase database(TestDatabase::Tables::kNone);
    database->Execute(
        "Create Table Broker(Id int(11), Name varchar(255), Address longtext, City varchar(255), "
        "State varchar(255), PIN varchar(11), STD varchar(10), Phone varchar(100), "
        "Mobile varchar(100), Fax varchar(100), Email varchar(100)) Engine=MyISAM "
        "Default Charset=latin1");
    database->Execute("Insert Into Broker(Id,Name) Values(2,'Zo\xC3\xAB'),(1,'B'),(3,Null)");
    QCOMPARE(Told(PrepareDatabase(*database)), QString());
    QCOMPARE(RowsOf(*database, "Select Id,Name From Broker Order By RowKey"),
             (QStringList{QString::fromUtf8("2|Zoë"), "1|B", "3|-"}));
    QCOMPARE(RowsOf(*database,
                    "Select Engine,TABLE_COLLATION From information_schema.TABLES Where "
                    "TABLE_SCHEMA=Database() And TABLE_NAME='broker'"),
             QStringList{"InnoDB|utf8mb4_general_ci"});
    const QString name = QString::fromUtf8("₹😀");
    database->Execute("Insert Into Broker(Id,Name) Values(?,?)", 4, name);
    QVERIFY(database->Open("Select Id From Broker Where Name=?", name).Next());
  }

  void WhatTheServerRefusesIsToldAndTheRestIsDone() {
    TestDatabase database(TestDatabase::Tables::kNone);
    const std::string name = database.Settings().database.toStdString();
    database->Execute("Create Or Replace User clerk@localhost");
    database->Execute(
        fmt::format("Grant Select,Insert,Update,Delete,Create On {}.* To clerk@localhost", name));
    ConnectionSettings settings = database.Settings();
    settings.user = QStringLiteral("clerk");
    Connection connection(settings);
    const QString told = Told(PrepareDatabase(connection));
    QVERIFY2(told.contains(QLatin1String("Alter Table SPTrans Add(FO Int(11) Default 0)")),
             qPrintable(told));
    QVERIFY2(!told.contains(QLatin1String("Create Table")), qPrintable(told));
    const QStringList tables = RowsOf(connection, "Show Tables");
    QCOMPARE(RowsOf(connection, "Select * From Exchange Order By Id"),
             (QStringList{"1|NSE", "2|BSE"}));
    // The next start with more rights makes it whole.
    QCOMPARE(Told(PrepareDatabase(*database)), QString());
    QCOMPARE(ColumnsOf(*database, QStringLiteral("SPTrans")), QLatin1String(kLines));
    QCOMPARE(RowsOf(connection, "Show Tables"), tables);
  }
};

static const quorvane::test::RegisterTest<SchemaTest> kRegistered;
#include "SchemaTest.moc"
