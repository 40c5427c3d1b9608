#include "masters/lookup_masters/LookupBook.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::lookup_masters;
using test::TextOf;

Q_DECLARE_METATYPE(LookupKind)

class LookupBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    test::Empty(**database_, {"ScriptType", "ScriptClass", "Exchange", "STTPer", "TransTaxPer"});
  }

  void MissingValueIsNamed_data() {
    const test::Table<LookupKind, QStringList, QString, Field> row;
    row("type", LookupKind::kScripTypes, {" "}, "Enter Script Type.", Field::kName);
    row("STT that is no number", LookupKind::kSttPercentages, {"0.1x"}, "Enter S.T.T. Percent.",
        Field::kPercent);
    row("STT below nothing", LookupKind::kSttPercentages, {"-0.1"}, "Enter S.T.T. Percent.",
        Field::kPercent);
    const LookupKind tax = LookupKind::kTaxPercentages;
    row("nothing of a percentage", tax, {"", "", "", ""}, "Enter Financial Year.", Field::kYear);
    row("kind", tax, {"2011", "", "", ""}, "Select Delivery Type .", Field::kDeliveryType);
    row("percentage", tax, {"2011", "Service Tax", " ", ""}, "Enter Percentage.", Field::kPercent);
    row("year of one", tax, {"2011", "Service Tax", "12.36", ""}, "Enter Proper Financial Year",
        Field::kYear);
    row("long name", LookupKind::kExchanges, {QString(256, QChar('X'))},
        "Exchange Name is too Long. At Most 255 Characters are Allowed.", Field::kName);
    row("long remark", tax, {"2011-12", "Service Tax", "12.36", QString(101, QChar('X'))},
        "As On is too Long. At Most 100 Characters are Allowed.", Field::kAsOn);
  }
  void MissingValueIsNamed() {
    const auto [kind, values, text, field] =
        test::Table<LookupKind, QStringList, QString, Field>::Row();
    LookupRow row{0, {values.begin(), values.end()}};
    const MaybeRefusal refusal = test::Save(Book(kind), row);
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), field);
    QVERIFY(Book(kind).List().empty());
  }

  void ValueOfAnotherRowIsRefused_data() {
    const test::Table<LookupKind, QString, QString, QString, QString> row;
    row("type", LookupKind::kScripTypes, "O'TYPE", "o'type", "BOND", "Script Type Already Exists.");
    row("class", LookupKind::kScripClasses, "A", "a", "B", "Script Class Already Exists!");
    row("exchange", LookupKind::kExchanges, "एनएसई", "एनएसई", "BSE",
        "Exchange Name Already Exists.");
    row("STT", LookupKind::kSttPercentages, "0.125", "0.1250", "0.025",
        "S.T.T. Percent Already Exists.");
  }
  void ValueOfAnotherRowIsRefused() {
    const auto [kind, first, same, other, text] =
        test::Table<LookupKind, QString, QString, QString, QString>::Row();
    LookupRow row{0, {first}};
    LookupRow second{0, {other}};
    LookupRow fresh{0, {same}};
    QVERIFY(!test::Save(Book(kind), row));
    QVERIFY(!test::Save(Book(kind), second));
    QCOMPARE(row.id, 1);
    QCOMPARE(second.id, 2);
    QCOMPARE(TextOf(test::Save(Book(kind), fresh)), text);
    second.values = {same};
    QCOMPARE(TextOf(test::Save(Book(kind), second)), text);
    row.values = {same};
    QCOMPARE(TextOf(test::Save(Book(kind), row)), "accepted");
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
    QCOMPARE(TextOf(test::Save(Tax(), again)), "Percent Detail Already Exists.");
    row.values[2] = QStringLiteral("10.3");
    QVERIFY(!test::Save(Tax(), row));
    QCOMPARE(test::Rows(**database_, "Select * From TransTaxPer Order By Id"),
             QStringList({"1|2011-12|Service Tax|10.3|01/04/2011",
                          "2|2012-13|Service Tax|12.36|01/04/2011",
                          "3|2011-12|STT Delivery Based|0.125|01/04/2011"}));
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
