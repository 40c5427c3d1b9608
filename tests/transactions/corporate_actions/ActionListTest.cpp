#include "core/actions/Terms.h"
#include "core/database/Transaction.h"
#include "core/files/JsonTable.h"
#include "core/files/TableReaders.h"
#include "core/records/Writing.h"
#include "support/DatabaseTest.h"
#include "transactions/corporate_actions/ActionList.h"

using namespace quorvane;
using namespace quorvane::corporate_actions;

namespace {

Result<ActionFile> Read(const QByteArray& file) {
  const std::string_view bytes(file.constData(), static_cast<std::size_t>(file.size()));
  return ReadActionTable(files::IsJson(bytes) ? files::ReadJsonTable(bytes)
                                              : files::ReadCsvText(bytes));
}

QStringList RowsOf(const ActionFile& file) {
  QStringList rows;
  for (const ActionRow& row : file.rows) {
    QStringList actions;
    for (const Action& action : row.meaning.actions) {
      actions << actions::Describe(action);
    }
    rows << QString::fromStdString(row.code + '|' + row.symbol + '|' + row.isin + '|') + row.name +
                QLatin1Char('|') + row.ex_day + QLatin1Char('|') + row.record_day +
                QLatin1Char('|') + actions.join(QLatin1Char(','));
  }
  return rows;
}

Action Recorded(int id, ActionKind kind, ScripId scrip, const char* ex_day, double price) {
  Action action;
  action.id = ActionId{id};
  action.kind = kind;
  action.scrip = scrip;
  action.ex_day = QLatin1String(ex_day);
  action.price = price;
  return action;
}

const QByteArray kNse =
    "\xEF\xBB\xBF\"SYMBOL\",\"COMPANY NAME\",\"SERIES\",\"PURPOSE\",\"FACE VALUE\",\"EX-DATE\","
    "\"RECORD DATE\",\"BOOK CLOSURE START DATE\",\"BOOK CLOSURE END DATE\"\n";
const QByteArray kOwn =
    "scrip_code,kind,ex_date,record_date,new,old,other_scrip_code,price,"
    "cost_percent,note\n";

}  // namespace

class ActionListTest : public test::DatabaseTest {
  Q_OBJECT

  ScripId AddScrip(const char* code, const char* symbol, const char* name, const char* isin) {
    const ScripId scrip = database_->AddScrip(QLatin1String(code), QLatin1String(name));
    database::InTransaction(**database_, [&](database::Transaction& transaction) {
      transaction.Execute("Update Script Set NCode=? Where Id=?", symbol, scrip);
      transaction.Execute("Insert Into ScripIsin(ScrId,Isin,FromDay) Values(?,?,?)", scrip, isin,
                          "01/04/2020");
    });
    return scrip;
  }

 private Q_SLOTS:
  void LayoutIsToldByItsHeadings_data() {
    const test::Table<QByteArray, QStringList, int> table;
    table("own",
          kOwn +
              "500001,demerger,01/07/2023,,1,10,500002,,7.29,ITC\n"
              "500001,rights,2023-07-01,,1,15,,1257,,\n",
          {"500001||||01/07/2023||Demerger 1:10", "500001||||01/07/2023||Rights 1:15 Rs 1257.00"},
          0);
    table("National page, other series and meetings left out",
          kNse +
              "\"ONE\",\"One Ltd\",\"EQ\",\" Bonus 4:1\",\"1\",\"16-Jun-2025\",\"-\",\"-\",\"-\"\n"
              "\"ONE\",\"One Ltd\",\"N1\",\"Bonus 4:1\",\"1\",\"16-Jun-2025\",\"-\",\"-\",\"-\"\n"
              "\"ONE\",\"One Ltd\",\"EQ\",\"AGM\",\"1\",\"16-Jun-2025\",\"-\",\"-\",\"-\"\n",
          {"|ONE||One Ltd|16/06/2025||Bonus 4:1"}, 2);
    table("National JSON",
          R"([{"symbol":"ONE","series":"EQ","faceVal":"2","ind":"-","subject":"Bonus 2:1",)"
          R"("exDate":"17-Oct-2023","recDate":"18-Oct-2023","comp":"One Ltd",)"
          R"("isin":"INE06H201014","caBroadcastDate":null}])",
          {"|ONE|INE06H201014|One Ltd|17/10/2023|18/10/2023|Bonus 2:1"}, 0);
    table("National daily file, whose purposes are cut",
          "SERIES,SYMBOL,SECURITY,RECORD_DT,BC_STRT_DT,BC_END_DT,EX_DT,ND_STRT_DT,ND_END_DT,"
          "PURPOSE\nEQ,ONE,One Ltd,07/12/2019, , ,05/12/2019, , ,BONUS 1:1\n"
          "EQ,ONE,One Ltd,2026-02-03, , ,2026-02-02, , ,FVSPLT FRM RS 100 TO RS 1\n",
          {"|ONE||One Ltd|05/12/2019|07/12/2019|Bonus 1:1",
           "|ONE||One Ltd|02/02/2026|03/02/2026|Split"},
          0);
    table("Bombay page",
          "Security Code,Security Name,Company Name,Ex Date,Purpose,Record Date,BC Start Date,"
          " BC End Date\t,ND Start Date,ND End Date,Actual Payment Date\r\n"
          "506260,ONEP,One Ltd,15 Jul 2025,Bonus issue 1:1,15 Jul 2025,-,-,-,-,-\r\n",
          {"506260|||One Ltd|15/07/2025|15/07/2025|Bonus 1:1"}, 0);
    table("Bombay JSON, within an object",
          R"({"Table":[{"scrip_code":500209,"short_name":"ONE","long_name":"One Ltd",)"
          R"("exdate":"20231025","Purpose":"Interim Dividend - Rs. - 18.0000","RD_Date":""}]})",
          {"500209|||One Ltd|25/10/2023||Dividend Rs 18.00"}, 0);
  }
  void LayoutIsToldByItsHeadings() {
    const auto [file, rows, left_out] = test::Table<QByteArray, QStringList, int>::Row();
    const Result<ActionFile> read = Read(file);
    QVERIFY2(read, read ? "" : qPrintable(read.Why().text));
    QCOMPARE(RowsOf(*read), rows);
    QCOMPARE(static_cast<int>(read->left_out), left_out);
  }

  void BadFileIsRefusedWithItsLine_data() {
    const test::Table<QByteArray, QString> table;
    table("headings", "SYMBOL,PURPOSE\nONE,Bonus 1:1\n", "Expected are the columns scrip_code");
    table("misspelt own heading", "scrip_code,kind,ex_date,cost_pct\n1,bonus,01/04/2020,5\n",
          "Expected are the columns scrip_code");
    table("kind", kOwn + "1,present,01/04/2020,,1,1,,,,\n",
          "Line 2: present is no kind of corporate action.");
    table("day", kOwn + "1,bonus,31/04/2020,,1,1,,,,\n", "Line 2: 31/04/2020 is no date.");
    table("number", kOwn + "1,bonus,30/04/2020,,1,-1,,,,\n",
          "Line 2: -1 is no number that can stand there.");
    table("code", kOwn + ",bonus,30/04/2020,,1,1,,,,\n", "Line 2: there is no code.");
    table("nothing", "[]", "The file holds no corporate action.");
  }
  void BadFileIsRefusedWithItsLine() {
    const auto [file, why] = test::Table<QByteArray, QString>::Row();
    const Result<ActionFile> read = Read(file);
    QVERIFY(!read);
    QVERIFY2(read.Why().text.contains(why), qPrintable(read.Why().text));
  }

  void RowsAreComparedWithTheDatabaseAndEachOther() {
    const ScripId apple = AddScrip("500001", "APPLE", "Apple", "INE000000001");
    const ScripId banana = AddScrip("500002", "BANANA", "Banana", "INE000000002");
    Action rights = Recorded(1, ActionKind::kRights, apple, "15/07/2025", 357);
    rights.new_shares = Shares(2);
    rights.old_shares = Shares(23);
    const Action dividend = Recorded(2, ActionKind::kDividend, banana, "16/01/2026", 57);
    database::InTransaction(**database_, [&](database::Transaction& transaction) {
      records::Insert(transaction, rights);
      records::Insert(transaction, dividend);
      transaction.Execute("Insert Into StkOpBal(Id,ScriptId) Values(1,?)", banana);
    });
    QTemporaryDir folder;
    const auto write = [&](const char* name, const QByteArray& bytes) {
      QFile file(folder.filePath(QLatin1String(name)));
      QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    write("nse.csv",
          kNse +
              "APPLE,A,EQ,Rights 2:23 @ Premium Rs 347/-,10,15-Jul-2025,-,-,-\n"
              "APPLE,A,EQ,Interim Dividend,10,01-Aug-2025,-,-,-\n"
              "APPLE,A,EQ,Dividend - Re 0.50 Per Share,10,01-Aug-2025,-,-,-\n"
              "APPLE,A,EQ,Dividend - Rs 4 Per Share & Special Dividend Rs 2,10,01-Sep-2025,,,\n"
              "APPLE,A,EQ,Capital Reduction,10,01-Oct-2025,-,-,-\n"
              "CHERRY,Cherry Ltd,EQ,Bonus 1:1,10,01-Aug-2025,-,-,-\n");
    write("bse.csv",
          "Security Code,Company Name,Ex Date,Purpose\n"
          "500002,B,16 Jan 2026,Special Dividend - Rs. - 46.0000\n"
          "500002,B,16 Jan 2026,Interim Dividend - Rs. - 11.0000\n"
          "500002,B,16 Feb 2026,Bonus issue 1:1\n"
          "500001,A,01 Sep 2025,Special Dividend - Rs. - 2.0000\n"
          "500001,A,01 Sep 2025,Interim Dividend - Rs. - 4.0000\n");
    write("json",
          R"([{"symbol":"NEWNAME","series":"EQ","subject":"Bonus 2:2","exDate":"16-Feb-2026",)"
          R"("isin":"INE000000002"}])");
    write("own.csv", kOwn + "500001,demerger,01/11/2025,,1,10,BANANA,,101,\n");
    QStringList paths;
    for (const char* name : {"nse.csv", "bse.csv", "json", "own.csv"}) {
      paths << folder.filePath(QLatin1String(name));
    }
    const Result<ActionList> list = ReadActions(**database_, paths);
    QVERIFY(list);
    QStringList rows;
    for (const ListedAction& row : list->rows) {
      rows << row.scrip_name + QLatin1Char('|') + row.code + QLatin1Char('|') + row.purpose +
                  QLatin1Char('|') + TextOf(row.state);
    }
    const QStringList expected{"Banana|500002|Special Dividend - Rs. - 46.0000|Recorded Already",
                               "Banana|500002|Interim Dividend - Rs. - 11.0000|Recorded Already",
                               "Banana|500002|Bonus issue 1:1|New",
                               "Banana|NEWNAME|Bonus 2:2|Doubled",
                               "Apple|APPLE|Rights 2:23 @ Premium Rs 347/-|Recorded Already",
                               "Apple|APPLE|Interim Dividend|Doubled",
                               "Apple|APPLE|Dividend - Re 0.50 Per Share|New",
                               "Apple|APPLE|Dividend - Rs 4 Per Share & Special Dividend Rs 2|New",
                               "Apple|500001|Special Dividend - Rs. - 2.0000|Doubled",
                               "Apple|500001|Interim Dividend - Rs. - 4.0000|Doubled",
                               "Apple|APPLE|Capital Reduction|Not Understood",
                               "Apple|500001|Demerger 1:10|Not Understood",
                               "|CHERRY|Bonus 1:1|Script not Here"};
    QCOMPARE(rows, expected);
  }
};

static const quorvane::test::RegisterTest<ActionListTest> kRegistered;
#include "ActionListTest.moc"
