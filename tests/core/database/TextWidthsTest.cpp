#include "core/database/TextWidths.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <array>

using namespace quorvane;
using namespace quorvane::database;

class TextWidthsTest : public QObject {
  Q_OBJECT

  static MaybeRefusal Check(const QString& code) {
    const std::array cells{TextCell{"Code", "Client Code", code, Field::kCode}};
    return CheckTextWidths("ClientInfo", cells);
  }

  test::TestDatabase database_;

 private Q_SLOTS:
  void WidthIsWhatTheDatabaseTakes() {
    int columns = 0;
    for (const auto& row : database_->Open(
             "Select TABLE_NAME,COLUMN_NAME,If(DATA_TYPE='longtext',0,CHARACTER_MAXIMUM_LENGTH) "
             "From information_schema.COLUMNS Where TABLE_SCHEMA=Database() and DATA_TYPE in "
             "('varchar','longtext')")) {
      const auto width = TextWidth(row.Utf8(0), row.Utf8(1));
      QVERIFY2(width.value_or(0) == static_cast<std::size_t>(row.Int(2)), qPrintable(row.Text(1)));
      ++columns;
    }
    QVERIFY(columns > 50);
  }

  void CharactersAreCountedAsTheDatabaseCountsThem() {
    const QString text = QStringLiteral("\U0001F600").repeated(100);
    const auto refusal = Check(text + QLatin1Char('X'));
    QVERIFY(refusal);
    QCOMPARE(refusal->field, Field::kCode);
    QCOMPARE(refusal->text,
             QStringLiteral("Client Code is too Long. At Most 100 Characters are Allowed."));
    QVERIFY(!Check(text));
    database_->Execute("Insert Into ClientInfo(Id,Code) Values(1,?)", text);
    auto rows = database_->Open("Select Code From ClientInfo");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Text("Code"), text);
    database_->Execute("Delete From ClientInfo");
  }
};

static const test::RegisterTest<TextWidthsTest> kRegistered;
#include "TextWidthsTest.moc"
