#include "reporting/output/package/CellRefs.h"
#include "support/Cases.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane::reporting;

/// Rows 5 to 6 of a sheet gave way to four rows.
class CellRefsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RowsOfReferencesMove_data() {
    const quorvane::test::Cases<QString> cases("moved");
    cases.Add("A4+B7", "A4+B9");
    cases.Add("SUM(G5:G5)", "SUM(G5:G8)");
    cases.Add("SUM($G$5:$G$6)/G$7", "SUM($G$5:$G$8)/G$9");
    cases.Add("A1:K20", "A1:K22");
    cases.Add("A6", "A6");
    cases.Add("My!A7+Other!A7", "My!A9+Other!A7");
    cases.Add("'My'!A7+'It''s'!A7", "'My'!A9+'It''s'!A7");
    cases.Add("[1]My!A7", "[1]My!A7");
    cases.Add("\"A7 \"\"B7\"&A7", "\"A7 \"\"B7\"&A9");
    cases.Add("My!$3:$7", "My!$3:$9");
    cases.Add("A:K", "A:K");
    cases.Add("7*A7+1.7E7", "7*A9+1.7E7");
    cases.Add("LOG10(A7)+NAME7", "LOG10(A9)+NAME7");
    cases.Add("A7 B7:C8", "A9 B9:C10");
  }

  void RowsOfReferencesMove() {
    const BlockShift shift{5, 6, 4};
    const std::string moved = MapReferences(
        QTest::currentDataTag(),
        [](std::string_view sheet) { return sheet.empty() || sheet == "My"; },
        [&](int row, RefEnd end, bool) { return shift.Map(row, end); });
    QTEST(QString::fromStdString(moved), "moved");
  }
};

static const quorvane::test::RegisterTest<CellRefsTest> kRegistered;

#include "CellRefsTest.moc"
