#include "reporting/screen/window/ReportGridView.h"
#include "support/OnScreen.h"
#include "support/Test.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>

using namespace quorvane;
using namespace quorvane::reporting;
using Line = ReportModel::Line;

namespace {

Table Amounts(const QStringList& titles, const QString& heading, int lines) {
  Table table;
  table.titles = titles;
  table.groups = {{"Sale", 2}};
  table.columns = {TextColumn("Particulars"), AmountColumn(heading)};
  for (int i = 0; i < lines; ++i) {
    table.rows.push_back(
        {.kind = RowKind::kData, .cells = {QStringLiteral("line %1").arg(i), i + 0.005}});
  }
  table.rows.push_back({.kind = RowKind::kTotal, .cells = {QString("Total"), 1.0}});
  return table;
}

}  // namespace

class ReportGridViewTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TablesStandOneAfterTheOther() {
    ReportModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetDocument({{"Report"},
                       {Amounts({"Demat A/c No. 1"}, "Amount", 1), Amounts({"No. 2"}, "Amount", 1),
                        Amounts({"No. 3"}, "Balance", 1)}});
    QList<int> lines;
    for (int row = 0; row < model.rowCount(); ++row) {
      lines.append(static_cast<int>(model.LineAt(row)));
    }
    const QList<int> expected{int(Line::kGroup),    int(Line::kData),  int(Line::kTotal),
                              int(Line::kGap),      int(Line::kGroup), int(Line::kData),
                              int(Line::kTotal),    int(Line::kGap),   int(Line::kGroup),
                              int(Line::kHeadings), int(Line::kData),  int(Line::kTotal)};
    QCOMPARE(lines, expected);
    QCOMPARE(model.RowText(0), "Demat A/c No. 1\t");
    QCOMPARE(model.RowText(1), "line 0\t0.01");
    QCOMPARE(model.RowText(9), "Particulars\tBalance");
    model.SetDocument({});
    QCOMPARE(model.rowCount(), 0);
  }

  // Totals are of all lines: beside some of them they would tell something else.
  void LinesAreFilteredAndSortedWithinTheirGroups() {
    ReportModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetDocument({{"Report"},
                       {Amounts({"No. 1"}, "Amount", 3), Amounts({"No. 2"}, "Amount", 2)},
                       {"A note"}});
    const auto texts = [&] {
      QStringList rows;
      for (int row = 0; row < model.rowCount(); ++row) {
        rows << model.index(row, 0).data().toString();
      }
      return rows.join(QLatin1Char('|'));
    };
    const QString whole = "No. 1|line 0|line 1|line 2|Total||No. 2|line 0|line 1|Total||A note";
    QCOMPARE(texts(), whole);
    model.sort(1, Qt::DescendingOrder);
    QCOMPARE(texts(), "No. 1|line 2|line 1|line 0|Total||No. 2|line 1|line 0|Total||A note");
    model.SetFilter("LINE 1.0");
    QCOMPARE(texts(), "No. 1|line 1|No. 2|line 1");
    model.SetFilter("2.0");
    QCOMPARE(texts(), "No. 1|line 2");
    model.SetFilter("none");
    QCOMPARE(texts(), "");
    model.SetFilter("");
    model.sort(-1, Qt::AscendingOrder);
    QCOMPARE(texts(), whole);
  }

  void ChosenRowsAreCopiedWithTabs() {
    ReportGridView view("VS", "Report");
    view.SetDocument({{"Report"}, {Amounts({}, "Amount", 2)}});
    test::PutOnScreen(view);
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), "line 0\t0.01\nline 1\t1.01\nTotal\t1.00");
  }
};

static const test::RegisterTest<ReportGridViewTest> kRegistered;
#include "ReportGridViewTest.moc"
