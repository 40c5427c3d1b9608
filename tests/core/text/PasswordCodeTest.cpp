#include "core/text/PasswordCode.h"
#include "support/Test.h"

#include <set>

using namespace quorvane::text;
namespace test = quorvane::test;

class PasswordCodeTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PasswordReadsBackAsItWas_data() {
    const test::Table<QString> row;
    row("commas and digits", "1,2,,3");
    row("beyond the first plane", "\U0001F600\U0010FFFF");
    row("control characters", QString::fromUtf16(u"\0\n\t\x7f", 4));
  }
  void PasswordReadsBackAsItWas() {
    const auto [password] = test::Table<QString>::Row();
    const QString stored = EncodePassword(password);
    QVERIFY(!stored.contains(password));
    for (const QString& number : stored.split(QLatin1Char(','))) {
      bool decimal = false;
      number.toUInt(&decimal);
      QVERIFY(decimal);
    }
    QCOMPARE(stored.split(QLatin1Char(',')).size(), password.toUcs4().size());
    QCOMPARE(DecodePassword(stored), std::optional(password));
  }

  void EveryCharacterHasANumberOfItsOwn() {
    std::set<QString> numbers;
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
      if (character >= 0xD800 && character <= 0xDFFF) {
        continue;
      }
      const QString one = QStringView(QChar::fromUcs4(character)).toString();
      const QString number = EncodePassword(one);
      if (DecodePassword(number) != one || !numbers.insert(number).second) {
        QFAIL(qPrintable(QString::number(static_cast<uint>(character), 16)));
      }
    }
  }

  void TextThatIsNoListOfNumbersIsNoPassword_data() {
    const test::Table<QString> row;
    row("comma at the end", "46,");
    row("beyond the last character", "1114112");
    row("negative", "-46");
    row("half a character", "55386");
  }
  void TextThatIsNoListOfNumbersIsNoPassword() {
    const auto [stored] = test::Table<QString>::Row();
    QCOMPARE(DecodePassword(stored), std::optional<QString>());
  }
};

static const quorvane::test::RegisterTest<PasswordCodeTest> kRegistered;
#include "PasswordCodeTest.moc"
