#include "core/text/PasswordCode.h"
#include "support/TestMain.h"

#include <QTest>

#include <set>

using namespace quorvane::text;

class PasswordCodeTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PasswordReadsBackAsItWas_data() {
    QTest::addColumn<QString>("password");
    QTest::newRow("letters") << "tavel";
    QTest::newRow("commas and digits") << "1,2,,3";
    QTest::newRow("quotes and blanks") << " O'N \"\\ ";
    QTest::newRow("Devanagari") << "पासवर्ड";
    QTest::newRow("beyond the first plane") << "\U0001F600\U0010FFFF";
    QTest::newRow("control characters") << QString::fromUtf16(u"\0\n\t\x7f", 4);
  }

  void PasswordReadsBackAsItWas() {
    QFETCH(const QString, password);
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
    QTest::addColumn<QString>("stored");
    QTest::newRow("nothing") << "";
    QTest::newRow("letters") << "tavel";
    QTest::newRow("comma at the end") << "46,";
    QTest::newRow("two commas") << "46,,47";
    QTest::newRow("beyond the last character") << "1114112";
    QTest::newRow("beyond every number") << "99999999999999999999";
    QTest::newRow("negative") << "-46";
    QTest::newRow("half a character") << "55386";
  }

  void TextThatIsNoListOfNumbersIsNoPassword() {
    QFETCH(const QString, stored);
    QCOMPARE(DecodePassword(stored), std::optional<QString>());
  }
};

static const quorvane::test::RegisterTest<PasswordCodeTest> kRegistered;

#include "PasswordCodeTest.moc"
