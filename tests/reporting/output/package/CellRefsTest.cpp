#include "reporting/output/package/CellRefs.h"
#include "support/Test.h"

using namespace quorvane::reporting;

/// Rows 5 to 6 of a sheet gave way to four rows.
class CellRefsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RowsOfReferencesMove_data() {
    const quorvane::test::Table<QString> row;
    row("A4+B7", "A4+B9");
    row("SUM(G5:G5)", "SUM(G5:G8)");
    row("SUM($G$5:$G$6)/G$7", "SUM($G$5:$G$8)/G$9");
    row("A1:K20", "A1:K22");
    row("A6", "A6");
    row("My!A7+Other!A7", "My!A9+Other!A7");
    row("'My'!A7+'It''s'!A7", "'My'!A9+'It''s'!A7");
    row("[1]My!A7", "[1]My!A7");
    row("\"A7 \"\"B7\"&A7", "\"A7 \"\"B7\"&A9");
    row("My!$3:$7", "My!$3:$9");
    row("A:K", "A:K");
    row("7*A7+1.7E7", "7*A9+1.7E7");
    row("LOG10(A7)+NAME7", "LOG10(A9)+NAME7");
    row("A7 B7:C8", "A9 B9:C10");
  }
  void RowsOfReferencesMove() {
    const auto [moved] = quorvane::test::Table<QString>::Row();
    const BlockShift shift{5, 6, 4};
    const std::string result = MapReferences(
        QTest::currentDataTag(),
        [](std::string_view sheet) { return sheet.empty() || sheet == "My"; },
        [&](int row, RefEnd end, bool) { return shift.Map(row, end); });
    QCOMPARE(QString::fromStdString(result), moved);
  }
};

static const quorvane::test::RegisterTest<CellRefsTest> kRegistered;
#include "CellRefsTest.moc"
