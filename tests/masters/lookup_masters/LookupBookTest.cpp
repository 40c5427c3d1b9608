#include "masters/Records.h"
#include "masters/lookup_masters/LookupBook.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::lookup_masters;
using test::TextOfRefusal;

Q_DECLARE_METATYPE(LookupKind)

class LookupBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    test::Empty(**database_, {"ScriptType", "ScriptClass", "Exchange", "STTPer", "TransTaxPer"});
  }

  void MissingValueIsNamed_data() {
    const test::Cases<LookupKind, QStringList, QString, Field> cases("kind", "values", "text",
                                                                     "field");
    cases.Add("type", LookupKind::kScripTypes, {" "}, "Enter Script Type.", Field::kName);
    cases.Add("STT that is no number", LookupKind::kSttPercentages, {"0.1x"},
              "Enter S.T.T. Percent.", Field::kPercent);
    cases.Add("STT below nothing", LookupKind::kSttPercentages, {"-0.1"}, "Enter S.T.T. Percent.",
              Field::kPercent);
    const LookupKind tax = LookupKind::kTaxPercentages;
    cases.Add("nothing of a percentage", tax, {"", "", "", ""}, "Enter Financial Year.",
              Field::kYear);
    cases.Add("kind", tax, {"2011", "", "", ""}, "Select Delivery Type .", Field::kDeliveryType);
    cases.Add("percentage", tax, {"2011", "Service Tax", " ", ""}, "Enter Percentage.",
              Field::kPercent);
    cases.Add("year of one", tax, {"2011", "Service Tax", "12.36", ""},
              "Enter Proper Financial Year", Field::kYear);
    cases.Add("long name", LookupKind::kExchanges, {QString(256, QChar('X'))},
              "Exchange Name is too Long. At Most 255 Characters are Allowed.", Field::kName);
    cases.Add("long remark", tax, {"2011-12", "Service Tax", "12.36", QString(101, QChar('X'))},
              "As On is too Long. At Most 100 Characters are Allowed.", Field::kAsOn);
  }

  void MissingValueIsNamed() {
    QFETCH(const LookupKind, kind);
    QFETCH(const QStringList, values);
    LookupRow row{0, {values.begin(), values.end()}};
    const MaybeRefusal refusal = test::Save(Book(kind), row);
    QTEST(TextOfRefusal(refusal), "text");
    QTEST(test::FieldOfRefusal(refusal), "field");
    QVERIFY(Book(kind).List().empty());
  }

  void ValueOfAnotherRowIsRefused_data() {
    const test::Cases<LookupKind, QString, QString, QString, QString> cases("kind", "first", "same",
                                                                            "other", "text");
    cases.Add("type", LookupKind::kScripTypes, "O'TYPE", "o'type", "BOND",
              "Script Type Already Exists.");
    cases.Add("class", LookupKind::kScripClasses, "A", "a", "B", "Script Class Already Exists!");
    cases.Add("exchange", LookupKind::kExchanges, "एनएसई", "एनएसई", "BSE",
              "Exchange Name Already Exists.");
    cases.Add("STT", LookupKind::kSttPercentages, "0.125", "0.1250", "0.025",
              "S.T.T. Percent Already Exists.");
  }

  void ValueOfAnotherRowIsRefused() {
    QFETCH(const LookupKind, kind);
    QFETCH(const QString, first);
    QFETCH(const QString, same);
    QFETCH(const QString, other);
    LookupRow row{0, {first}};
    LookupRow second{0, {other}};
    LookupRow fresh{0, {same}};
    QVERIFY(!test::Save(Book(kind), row));
    QVERIFY(!test::Save(Book(kind), second));
    QCOMPARE(row.id, 1);
    QCOMPARE(second.id, 2);
    QTEST(TextOfRefusal(test::Save(Book(kind), fresh)), "text");
    second.values = {same};
    QTEST(TextOfRefusal(test::Save(Book(kind), second)), "text");
    row.values = {same};
    QCOMPARE(TextOfRefusal(test::Save(Book(kind), row)), "accepted");
    QCOMPARE(row.id, 1);
    QCOMPARE(Book(kind).List().size(), std::size_t{2});
    QCOMPARE(Book(kind).Load(2)->values.front(), other);
  }

  void PercentageIsUniqueByYearAndKind() {
    LookupRow row = Percentage("2011-12", "Service Tax", "12.36");
    LookupRow next_year = Percentage("2012-13", "Service Tax", "12.36");
    LookupRow other_kind = Percentage("2011-12", "STT Delivery Based", "0.125");
    LookupRow again = Percentage("2011-12", "Service Tax", "10.3");
    QVERIFY(!test::Save(Tax(), row));
    QVERIFY(!test::Save(Tax(), next_year));
    QVERIFY(!test::Save(Tax(), other_kind));
    QCOMPARE(TextOfRefusal(test::Save(Tax(), again)), "Percent Detail Already Exists.");
    row.values[2] = QStringLiteral("10.3");
    QVERIFY(!test::Save(Tax(), row));
    QCOMPARE(test::Rows(**database_, "Select * From TransTaxPer Order By Id"),
             QStringList({"1|2011-12|Service Tax|10.3|01/04/2011",
                          "2|2012-13|Service Tax|12.36|01/04/2011",
                          "3|2011-12|STT Delivery Based|0.125|01/04/2011"}));
  }

  void OnlyClassesAreListedByName() {
    for (const LookupKind kind : {LookupKind::kScripClasses, LookupKind::kScripTypes}) {
      for (const char* name : {"B", "A"}) {
        LookupRow row{0, {name}};
        QVERIFY(!test::Save(Book(kind), row));
      }
    }
    QCOMPARE(Book(LookupKind::kScripClasses).List().front().values.front(), "A");
    QCOMPARE(Book(LookupKind::kScripTypes).List().front().values.front(), "B");
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
    QVERIFY(!test::Save(Book(LookupKind::kExchanges), first));
    QVERIFY(!test::Save(Book(LookupKind::kExchanges), second));
    Book(LookupKind::kExchanges).Delete(first.id);
    QCOMPARE(test::Rows(**database_, "Select * From Exchange"), QStringList("2|B"));
  }

  void FinancialYearHasItsForm_data() {
    const test::Cases<QString, bool> cases("year", "proper");
    cases.Add("proper", "2011-12", true);
    cases.Add("turn of the century", "1999-00", true);
    cases.Add("not following", "2011-13", false);
    cases.Add("other sign", "2011/12", false);
    cases.Add("letters", "201X-12", false);
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
};

static const test::RegisterTest<LookupBookTest> kRegistered;

#include "LookupBookTest.moc"
