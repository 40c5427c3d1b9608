#include "core/database/TextWidths.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

#include <array>
#include <stdexcept>

using namespace quorvane;
using namespace quorvane::database;

class TextWidthsTest : public QObject {
  Q_OBJECT

  static MaybeRefusal Check(const QString& code) {
    const std::array cells{TextCell{"Code", "Client Code", code, QStringLiteral("Text1_0")}};
    return CheckTextWidths("ClientInfo", cells);
  }

  test::TestDatabase database_;

 private Q_SLOTS:
  void WidthIsWhatTheDatabaseTakes_data() {
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("column");
    for (const auto& row :
         database_->Open("Select TABLE_NAME,COLUMN_NAME From information_schema.COLUMNS Where "
                         "TABLE_SCHEMA=Database() and DATA_TYPE in ('varchar','longtext')")) {
      QTest::addRow("%s.%s", qPrintable(row.Text(0)), qPrintable(row.Text(1)))
          << row.Text(0) << row.Text(1);
    }
  }

  void WidthIsWhatTheDatabaseTakes() {
    QFETCH(const QString, table);
    QFETCH(const QString, column);
    auto rows = database_->Open(
        "Select If(DATA_TYPE='longtext',0,CHARACTER_MAXIMUM_LENGTH) From "
        "information_schema.COLUMNS Where TABLE_SCHEMA=Database() and TABLE_NAME=? and "
        "COLUMN_NAME=?",
        table, column);
    QVERIFY(rows.Next());
    const auto width = TextWidth(table.toStdString(), column.toStdString());
    QCOMPARE(width.value_or(0), static_cast<std::size_t>(rows.Int(0)));
  }

  void CharactersAreCountedAsTheDatabaseCountsThem_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("Latin") << QString(100, QChar('X'));
    QTest::newRow("Devanagari") << QString(100, QChar(0x915));
    QTest::newRow("beyond the first plane") << QStringLiteral("\U0001F600").repeated(100);
  }

  void CharactersAreCountedAsTheDatabaseCountsThem() {
    QFETCH(const QString, text);
    const auto refusal = Check(text + QLatin1Char('X'));
    QVERIFY(refusal);
    QCOMPARE(refusal->field, QStringLiteral("Text1_0"));
    QCOMPARE(refusal->text,
             QStringLiteral("Client Code is too Long. At Most 100 Characters are Allowed."));
    QVERIFY(!Check(text));
    database_->Execute("Insert Into ClientInfo(Id,Code) Values(1,?)", text);
    auto rows = database_->Open("Select Code From ClientInfo");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Text("Code"), text);
    database_->Execute("Delete From ClientInfo");
  }

  void UnknownColumnIsAFault() {
    QVERIFY_EXCEPTION_THROWN(TextWidth("ClientInfo", "Nothing"), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(TextWidth("ClientInfo", "Sex"), std::logic_error);
  }
};

static const test::RegisterTest<TextWidthsTest> kRegistered;

#include "TextWidthsTest.moc"
