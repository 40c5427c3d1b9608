#include "masters/Records.h"
#include "masters/lookup_masters/LookupBook.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

#include <memory>

using namespace quorvane;
using namespace quorvane::lookup_masters;
using test::TextOfRefusal;

Q_DECLARE_METATYPE(LookupKind)

class LookupBookTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { database_ = std::make_unique<test::TestDatabase>(); }
  void init() {
    test::Empty(**database_, {"ScriptType", "ScriptClass", "Exchange", "STTPer", "TransTaxPer"});
  }
  void cleanupTestCase() { database_.reset(); }

  void MissingValueIsNamed_data() {
    QTest::addColumn<LookupKind>("kind");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    const auto row = [](const char* name, LookupKind kind, const QStringList& values,
                        const char* text, const char* field) {
      QTest::newRow(name) << kind << values << QString(text) << QString(field);
    };
    row("type", LookupKind::kScripTypes, {" "}, "Enter Script Type.", "Text1_0");
    row("class", LookupKind::kScripClasses, {""}, "Enter Script Class Name.", "Text1_0");
    row("exchange", LookupKind::kExchanges, {""}, "Enter Exchange Name.", "Text1_0");
    row("STT", LookupKind::kSttPercentages, {""}, "Enter S.T.T. Percent.", "Text1_0");
    row("STT that is no number", LookupKind::kSttPercentages, {"0.1x"}, "Enter S.T.T. Percent.",
        "Text1_0");
    row("STT below nothing", LookupKind::kSttPercentages, {"-0.1"}, "Enter S.T.T. Percent.",
        "Text1_0");
    const LookupKind tax = LookupKind::kTaxPercentages;
    row("nothing of a percentage", tax, {"", "", "", ""}, "Enter Financial Year.", "Text1_0");
    row("kind", tax, {"2011", "", "", ""}, "Select Delivery Type .", "CmbName");
    row("percentage", tax, {"2011", "Service Tax", " ", ""}, "Enter Percentage.", "Text1_1");
    row("year of one", tax, {"2011", "Service Tax", "12.36", ""}, "Enter Proper Financial Year",
        "Text1_0");
    row("long name", LookupKind::kExchanges, {QString(256, QChar('X'))},
        "Exchange Name is too Long. At Most 255 Characters are Allowed.", "Text1_0");
    row("long remark", tax, {"2011-12", "Service Tax", "12.36", QString(101, QChar('X'))},
        "As On is too Long. At Most 100 Characters are Allowed.", "Text1_2");
  }

  void MissingValueIsNamed() {
    QFETCH(const LookupKind, kind);
    QFETCH(const QStringList, values);
    LookupRow row{0, {values.begin(), values.end()}};
    const MaybeRefusal refusal = Book(kind).Save(row);
    QTEST(TextOfRefusal(refusal), "text");
    QTEST(test::FieldOfRefusal(refusal), "field");
    QVERIFY(Book(kind).List().empty());
  }

  void ValueOfAnotherRowIsRefused_data() {
    QTest::addColumn<LookupKind>("kind");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("same");
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("text");
    QTest::newRow("type") << LookupKind::kScripTypes << "O'TYPE"
                          << "o'type"
                          << "BOND"
                          << "Script Type Already Exists.";
    QTest::newRow("class") << LookupKind::kScripClasses << "A"
                           << "a"
                           << "B"
                           << "Script Class Already Exists!";
    QTest::newRow("exchange") << LookupKind::kExchanges << "एनएसई"
                              << "एनएसई"
                              << "BSE"
                              << "Exchange Name Already Exists.";
    QTest::newRow("STT") << LookupKind::kSttPercentages << "0.125"
                         << "0.1250"
                         << "0.025"
                         << "S.T.T. Percent Already Exists.";
  }

  void ValueOfAnotherRowIsRefused() {
    QFETCH(const LookupKind, kind);
    QFETCH(const QString, first);
    QFETCH(const QString, same);
    QFETCH(const QString, other);
    LookupRow row{0, {first}};
    LookupRow second{0, {other}};
    LookupRow fresh{0, {same}};
    QVERIFY(!Book(kind).Save(row));
    QVERIFY(!Book(kind).Save(second));
    QCOMPARE(row.id, 1);
    QCOMPARE(second.id, 2);
    QTEST(TextOfRefusal(Book(kind).Save(fresh)), "text");
    second.values = {same};
    QTEST(TextOfRefusal(Book(kind).Save(second)), "text");
    row.values = {same};
    QCOMPARE(TextOfRefusal(Book(kind).Save(row)), QStringLiteral("accepted"));
    QCOMPARE(row.id, 1);
    QCOMPARE(Book(kind).List().size(), std::size_t{2});
    QCOMPARE(Book(kind).Load(2)->values.front(), other);
  }

  void PercentageIsUniqueByYearAndKind() {
    LookupRow row = Percentage("2011-12", "Service Tax", "12.36");
    LookupRow next_year = Percentage("2012-13", "Service Tax", "12.36");
    LookupRow other_kind = Percentage("2011-12", "STT Delivery Based", "0.125");
    LookupRow again = Percentage("2011-12", "Service Tax", "10.3");
    QVERIFY(!Tax().Save(row));
    QVERIFY(!Tax().Save(next_year));
    QVERIFY(!Tax().Save(other_kind));
    QCOMPARE(TextOfRefusal(Tax().Save(again)), QStringLiteral("Percent Detail Already Exists."));
    row.values[2] = QStringLiteral("10.3");
    QVERIFY(!Tax().Save(row));
    QCOMPARE(test::Rows(**database_, "Select * From TransTaxPer Order By Id"),
             QStringList({"1|2011-12|Service Tax|10.3|01/04/2011",
                          "2|2012-13|Service Tax|12.36|01/04/2011",
                          "3|2011-12|STT Delivery Based|0.125|01/04/2011"}));
  }

  void PercentKeepsAllItsDigits() {
    LookupRow row{0, {QStringLiteral("0.0125")}};
    QVERIFY(!Book(LookupKind::kSttPercentages).Save(row));
    QCOMPARE(Book(LookupKind::kSttPercentages).Load(1)->values.front(), QStringLiteral("0.0125"));
  }

  void ZeroIsAPercent() {
    LookupRow row{0, {QStringLiteral("0.000")}};
    QVERIFY(!Book(LookupKind::kSttPercentages).Save(row));
    QCOMPARE(Book(LookupKind::kSttPercentages).List().front().values.front(), QStringLiteral("0"));
  }

  void OnlyClassesAreListedByName() {
    for (const LookupKind kind : {LookupKind::kScripClasses, LookupKind::kScripTypes}) {
      for (const char* name : {"B", "A"}) {
        LookupRow row{0, {name}};
        QVERIFY(!Book(kind).Save(row));
      }
    }
    QCOMPARE(Book(LookupKind::kScripClasses).List().front().values.front(), QStringLiteral("A"));
    QCOMPARE(Book(LookupKind::kScripTypes).List().front().values.front(), QStringLiteral("B"));
  }

  void EmptyColumnsReadAsEmpty() {
    (*database_)->Execute("Insert Into TransTaxPer(Id) Values(4)");
    const std::optional<LookupRow> row = Tax().Load(4);
    QVERIFY(row);
    QCOMPARE(row->values, std::vector<QString>(4));
    QVERIFY(!Tax().Load(5));
  }

  void DeleteTakesOneRow() {
    LookupRow first{0, {"A"}};
    LookupRow second{0, {"B"}};
    QVERIFY(!Book(LookupKind::kExchanges).Save(first));
    QVERIFY(!Book(LookupKind::kExchanges).Save(second));
    Book(LookupKind::kExchanges).Delete(first.id);
    QCOMPARE(test::Rows(**database_, "Select * From Exchange"), QStringList("2|B"));
  }

  void FinancialYearHasItsForm_data() {
    QTest::addColumn<QString>("year");
    QTest::addColumn<bool>("proper");
    QTest::newRow("proper") << "2011-12" << true;
    QTest::newRow("turn of the century") << "1999-00" << true;
    QTest::newRow("one year") << "2011" << false;
    QTest::newRow("not following") << "2011-13" << false;
    QTest::newRow("backwards") << "2012-11" << false;
    QTest::newRow("two digits") << "11-12" << false;
    QTest::newRow("other sign") << "2011/12" << false;
    QTest::newRow("whole years") << "2011-2012" << false;
    QTest::newRow("letters") << "201X-12" << false;
  }

  void FinancialYearHasItsForm() {
    QFETCH(const QString, year);
    QFETCH(const bool, proper);
    QCOMPARE(TextOfRefusal(CheckFinancialYear(year)),
             proper ? QStringLiteral("accepted") : QStringLiteral("Enter Proper Financial Year"));
  }

 private:
  LookupBook Book(LookupKind kind) { return LookupBook(**database_, kind); }
  LookupBook Tax() { return Book(LookupKind::kTaxPercentages); }

  static LookupRow Percentage(const QString& year, const QString& kind, const QString& percent) {
    return {0, {year, kind, percent, QStringLiteral("01/04/2011")}};
  }

  std::unique_ptr<test::TestDatabase> database_;
};

static const test::RegisterTest<LookupBookTest> kRegistered;

#include "LookupBookTest.moc"
