#include "core/text/Pan.h"
#include "support/TestMain.h"

#include <QTest>

using quorvane::text::IsValidPan;

class PanTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PanForm_data();
  void PanForm();
};

void PanTest::PanForm_data() {
  QTest::addColumn<QString>("pan");
  QTest::addColumn<bool>("valid");
  QTest::addColumn<bool>("warned");
  QTest::newRow("optional") << "" << true << false;
  QTest::newRow("company") << "ABCCE1234F" << true << false;
  QTest::newRow("every known holder kind, last") << "ABCGE1234F" << true << false;
  QTest::newRow("unknown holder kind only warns") << "ABCXE1234F" << true << true;
  QTest::newRow("D is no holder kind") << "ABCDE1234F" << true << true;
  QTest::newRow("lower case") << "abcde1234f" << false << false;
  QTest::newRow("one lower-case letter") << "ABCPE1234f" << false << false;
  QTest::newRow("nine characters") << "ABCPE1234" << false << false;
  QTest::newRow("eleven characters") << "ABCPE1234FF" << false << false;
  QTest::newRow("letter among the digits") << "ABCPEA234F" << false << false;
  QTest::newRow("digit among the letters") << "ABCP11234F" << false << false;
  QTest::newRow("digit at the end") << "ABCPE12345" << false << false;
  QTest::newRow("accented capital") << QString::fromUtf8("ÀBCPE1234F") << false << false;
  QTest::newRow("comma is no holder kind") << "ABC,E1234F" << false << false;
  QTest::newRow("applied for, any case") << "PANApplied" << true << false;
  QTest::newRow("not available") << "PANNOTAVBL" << true << false;
  QTest::newRow("known to be invalid") << "paninvalid" << true << false;
  QTest::newRow("another word") << "PANMISSING" << false << false;
}

void PanTest::PanForm() {
  QFETCH(QString, pan);
  QFETCH(bool, warned);
  const auto check = IsValidPan(pan);
  QTEST(check.valid, "valid");
  QCOMPARE(check.warning, warned
                              ? QString("Fourth character of PAN should be [P,H,C,J,F,A,T,B,L,G].")
                              : QString());
}

static const quorvane::test::RegisterTest<PanTest> kRegistered;

#include "PanTest.moc"
