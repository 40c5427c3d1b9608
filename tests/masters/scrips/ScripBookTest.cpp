#include "masters/scrips/ScripBook.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::scrips;
using test::TextOf;

namespace {

using Edit = std::function<void(Scrip&)>;

const QString kTaken = QStringLiteral("Script Code Already Exists.");

Scrip NewScrip(const QString& code, const QString& name = QStringLiteral("NAME")) {
  return {{}, code, name, {}, 1, 2};
}

}  // namespace

Q_DECLARE_METATYPE(Edit)

class ScripBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() {
    test::Empty(**database_, {"Script", "ScrTransfer", "SPMaster", "SPTrans", "StkOpBal", "Stock",
                              "MarketRate"});
  }

  void FirstBrokenRuleIsNamed_data() {
    const test::Table<QString, Field, Edit> row;
    row("complete", "accepted", Field::kNone, [](Scrip&) {});
    row("nothing at all", "Enter Script Code.", Field::kCode, [](Scrip& s) { s = {}; });
    row("code only", "Enter Script Name.", Field::kName,
        [](Scrip& s) { s = {{}, s.code, " ", {}, 0, 0}; });
    row("no type, no class", "Select Script Type.", Field::kType,
        [](Scrip& s) { s = {{}, s.code, s.name, {}, 0, 0}; });
    row("no class", "Select Script Class.", Field::kClass, [](Scrip& s) { s.scrip_class = 0; });
    row("long second code", "Second Script Code is too Long. At Most 255 Characters are Allowed.",
        Field::kSecondCode, [](Scrip& s) { s.second_code = QString(256, QChar('X')); });
  }
  void FirstBrokenRuleIsNamed() {
    const auto [text, field, edit] = test::Table<QString, Field, Edit>::Row();
    Scrip scrip = NewScrip("500325");
    edit(scrip);
    const MaybeRefusal refusal = test::Save(Book(), scrip);
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), field);
    QCOMPARE(Book().List().size(), refusal ? std::size_t{0} : std::size_t{1});
  }

  void RowHoldsTheValuesInTheirColumns() {
    Scrip scrip = NewScrip("M&M'S", "महिंद्रा \\ \"M\"");
    QVERIFY(!test::Save(Book(), scrip));
    Scrip second = NewScrip("500209", "INFOSYS");
    second.second_code = QStringLiteral("INFY");
    QVERIFY(!test::Save(Book(), second));
    QCOMPARE(test::Rows(**database_, "Select * From Script Order By Id"),
             QStringList({"1|M&M'S|महिंद्रा \\ \"M\"|1|2|", "2|500209|INFOSYS|1|2|INFY"}));
    QCOMPARE(Book().Load(second.id)->second_code, "INFY");
    QCOMPARE(Book().List().front().name, "INFOSYS");
  }

  void CodeOfAnotherScripIsRefused() {
    Scrip first = NewScrip("O'N");
    Scrip second = NewScrip("500209");
    QVERIFY(!test::Save(Book(), first));
    QVERIFY(!test::Save(Book(), second));
    const QStringList before = test::Contents(**database_, {"Script"});
    Scrip fresh = NewScrip("o'n ");
    QCOMPARE(TextOf(test::Save(Book(), fresh)), kTaken);
    second.code = QStringLiteral("O'N");
    QCOMPARE(TextOf(test::Save(Book(), second)), kTaken);
    QCOMPARE(test::Contents(**database_, {"Script"}), before);
    first.name = QStringLiteral("UNDER ITS OWN CODE");
    QVERIFY(!test::Save(Book(), first));
    QCOMPARE(first.id.value, 1);
    QCOMPARE(Book().Load(first.id)->name, first.name);
  }

  // Bill 1 holds both scrips, bill 2 the first one, bill 3 of another year and bill 4 of another
  // client the second one alone.
  void DeleteTakesTheBillsHeaderAndTheLotsOfTheLinesThatStay() {
    Scrip gone = NewScrip("1");
    Scrip stays = NewScrip("2");
    QVERIFY(!test::Save(Book(), gone));
    QVERIFY(!test::Save(Book(), stays));
    AddPurchase(1, 1, "2010-11", 1, 10, 50);
    AddPurchase(1, 1, "2010-11", 2, 11, 7);
    AddPurchase(2, 2, "2011-12", 1, 20, 8);
    AddPurchase(3, 1, "2011-12", 2, 30, 5);
    AddPurchase(4, 3, "2010-11", 2, 40, 6);
    // A lot that does not agree, of a client who loses no bill, is not this delete's affair.
    (*database_)->Execute("Update Stock Set Qty=66 Where Id=40");
    for (const int scrip : {1, 2}) {
      (*database_)->Execute("Insert Into ScrTransfer(ScrId) Values(?)", scrip);
      (*database_)->Execute("Insert Into StkOpBal(ScriptId) Values(?)", scrip);
      (*database_)->Execute("Insert Into MarketRate(ScrId) Values(?)", scrip);
      (*database_)->Execute("Insert Into FairValue(ScrId,Rate) Values(?,1)", scrip);
    }
    Progress progress;
    Book().Delete(gone.id, progress);
    QCOMPARE(test::Rows(**database_, "Select SID,ScriptId From SPTrans Order By SID"),
             QStringList({"1|2", "3|2", "4|2"}));
    QCOMPARE(test::Rows(**database_, "Select ID From SPMaster Order By ID"),
             QStringList({"3", "4"}));
    QCOMPARE(test::Rows(**database_, "Select Id,Qty From Stock Order By Id"),
             QStringList({"11|0", "30|5", "40|66"}));
    const QStringList other("2");
    QCOMPARE(test::Rows(**database_, "Select Id From Script"), other);
    QCOMPARE(test::Rows(**database_, "Select ScrId From ScrTransfer"), other);
    QCOMPARE(test::Rows(**database_, "Select ScriptId From StkOpBal"), other);
    QCOMPARE(test::Rows(**database_, "Select ScrId From MarketRate"), other);
    QCOMPARE(test::Rows(**database_, "Select ScrId From FairValue"), other);
  }

 private:
  ScripBook Book() { return ScripBook(**database_); }

  /// A line on a bill of that number, with its lot.
  void AddPurchase(int bill, int client, const char* year, int scrip, int lot, double quantity) {
    test::TestDatabase& database = *database_;
    if (test::Rows(*database, "Select ID From SPMaster").filter(QString::number(bill)).isEmpty()) {
      database->Execute("Insert Into SPMaster(Cid,Fyear,ID,AcId) Values(?,?,?,?)", client, year,
                        bill, client);
    }
    database->Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate) "
        "Values(?,?,?,1,1,?,?,?,100)",
        client, year, bill, lot, scrip, quantity);
    database->Execute("Insert Into Stock Values(?,?,?,?,?,?,100)", client, year, lot, client, scrip,
                      quantity);
  }
};

static const test::RegisterTest<ScripBookTest> kRegistered;
#include "ScripBookTest.moc"
