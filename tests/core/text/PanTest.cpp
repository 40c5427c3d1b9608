#include "core/text/Pan.h"
#include "support/Test.h"

using quorvane::text::IsValidPan;
namespace test = quorvane::test;

class PanTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PanForm_data() {
    const test::Table<QString, bool, bool> row;
    row("optional", "", true, false);
    row("every known holder kind, last", "ABCGE1234F", true, false);
    row("unknown holder kind only warns", "ABCXE1234F", true, true);
    row("one lower-case letter", "ABCPE1234f", false, false);
    row("letter among the digits", "ABCPEA234F", false, false);
    row("digit among the letters", "ABCP11234F", false, false);
    row("accented capital", QString::fromUtf8("ÀBCPE1234F"), false, false);
    row("comma is no holder kind", "ABC,E1234F", false, false);
    row("applied for, any case", "PANApplied", true, false);
  }
  void PanForm() {
    const auto [pan, valid, warned] = test::Table<QString, bool, bool>::Row();
    const auto check = IsValidPan(pan);
    QCOMPARE(check.valid, valid);
    QCOMPARE(
        check.warning,
        warned ? QString("Fourth character of PAN should be [P,H,C,J,F,A,T,B,L,G].") : QString());
  }
};

static const quorvane::test::RegisterTest<PanTest> kRegistered;
#include "PanTest.moc"
