#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/Grid.h"
#include "support/OnScreen.h"
#include "support/Test.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>

using namespace quorvane::controls;

using quorvane::test::PutOnScreen;
namespace test = quorvane::test;

namespace {

enum Columns { kTicks, kDay, kSide, kRate, kNote, kHidden };

std::vector<Column> BillColumns() {
  return {
      {.mask = Mask::kTick},
      {.heading = QStringLiteral("Date"), .mask = Mask::kDate, .editable = true},
      {.heading = QStringLiteral("S/P"), .choices = QStringLiteral("#0;S|#1;P"), .editable = true},
      {.heading = QStringLiteral("Rate"), .mask = Mask::kAmount, .editable = true},
      {.heading = QStringLiteral("Note")},
      {.heading = QStringLiteral("Key"), .hidden = true}};
}

std::vector<Row> BillRows() {
  return {{.id = 11, .cells = {false, "02/04/2011", 1, 100.0, "b", 1}},
          {.id = 12, .cells = {true, "31/12/2010", 0, 9.5, "a", 2}},
          {.id = 13, .cells = {false, "", 1, 20.0, "C", 3}}};
}

// A grid of bills on the screen, its model watched for broken promises.
struct Shown {
  Shown() {
    grid.SetColumns(BillColumns());
    grid.SetRows(BillRows());
    grid.resize(600, 300);
    PutOnScreen(grid);
    grid.setFocus();
  }

  QPoint MiddleOf(int row, int column) const {
    return grid.visualRect(grid.Model().index(row, column)).center();
  }

  void Edit(int row, int column) {
    const QModelIndex cell = grid.Model().index(row, column);
    grid.setCurrentIndex(cell);
    static_cast<QAbstractItemView&>(grid).edit(cell);
  }

  void ClickHeading(int column) {
    const QHeaderView& header = *grid.horizontalHeader();
    const QPoint at(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, 5);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, at);
  }

  std::vector<int> Ids() const {
    std::vector<int> ids;
    ids.reserve(static_cast<std::size_t>(grid.Model().RowCount()));
    for (int row = 0; row < grid.Model().RowCount(); ++row) {
      ids.push_back(grid.Model().IdOf(row));
    }
    return ids;
  }

  Grid grid{QStringLiteral("Vs1"), QStringLiteral("Lines")};
  QAbstractItemModelTester tester{&grid.Model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal};
};

}  // namespace

class GridTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ValueListPassesBrokenPiecesOver() {
    const ValueList list(QStringLiteral("#0;Dr|#1;Cr|Z|#x;Y||#7;A;B|") +
                         quorvane::lookups::ListOf({{.id = 8, .text = QStringLiteral("C|D")}}));
    QCOMPARE(list.Items().size(), std::size_t{4});
    QCOMPARE(list.TextOf(8), QStringLiteral("C|D"));
    QCOMPARE(list.TextOf(1), QStringLiteral("Cr"));
    QCOMPARE(list.TextOf(7), QStringLiteral("A;B"));
    QCOMPARE(list.TextOf(3), QString());
  }

  void HeadingSortsByValue_data() {
    const test::Table<int, std::vector<int>> row;
    row("amount", int{kRate}, std::vector<int>{12, 13, 11});
    row("date, empty first", int{kDay}, std::vector<int>{13, 12, 11});
    row("text in any case", int{kNote}, std::vector<int>{12, 11, 13});
    row("shown text, equals in order", int{kSide}, std::vector<int>{11, 13, 12});
  }
  void HeadingSortsByValue() {
    const auto [column, ids] = test::Table<int, std::vector<int>>::Row();
    Shown shown;
    shown.ClickHeading(column);
    QCOMPARE(shown.Ids(), ids);
  }

  void SortingKeepsTheCurrentRecordAndASecondClickTurnsItRound() {
    Shown shown;
    shown.grid.SelectId(11);
    shown.ClickHeading(kRate);
    QCOMPARE(shown.grid.CurrentId(), 11);
    QCOMPARE(shown.grid.CurrentRow(), 2);
    shown.ClickHeading(kRate);
    QCOMPARE(shown.Ids(), (std::vector<int>{11, 13, 12}));
  }

  void TotalsHoldTheOrder() {
    Shown shown;
    shown.grid.AddRow({.kind = RowKind::kTotal, .cells = {QVariant(), "Total"}});
    shown.ClickHeading(kRate);
    QCOMPARE(shown.Ids(), (std::vector<int>{11, 12, 13, 0}));
  }

  void ClickOrSpaceTicks() {
    Shown shown;
    QSignalSpy ticks(&shown.grid.Model(), &GridModel::TicksChanged);
    QTest::mouseClick(shown.grid.viewport(), Qt::LeftButton, {}, shown.MiddleOf(0, kTicks));
    QCOMPARE(shown.grid.Model().TickedIds(), (std::vector<int>{11, 12}));
    shown.grid.setCurrentIndex(shown.grid.Model().index(1, kNote));
    QTest::keyClick(&shown.grid, Qt::Key_Space);
    QCOMPARE(shown.grid.Model().TickedIds(), (std::vector<int>{11}));
    // A click on the row itself ticks as well, but not one that edits or chooses rows.
    QTest::mouseClick(shown.grid.viewport(), Qt::LeftButton, {}, shown.MiddleOf(2, kNote));
    QCOMPARE(shown.grid.Model().TickedIds(), (std::vector<int>{11, 13}));
    QTest::mouseClick(shown.grid.viewport(), Qt::LeftButton, {}, shown.MiddleOf(2, kRate));
    QTest::mouseClick(shown.grid.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      shown.MiddleOf(1, kNote));
    QCOMPARE(ticks.count(), 3);
  }

  void TotalsAreNeverTicked() {
    Shown shown;
    const int total = shown.grid.AddRow({.id = 99, .kind = RowKind::kTotal, .cells = {true}});
    shown.grid.SelectRow(total);
    QTest::keyClick(&shown.grid, Qt::Key_Space);
    shown.ClickHeading(kTicks);
    QCOMPARE(shown.grid.Model().TickedIds(), (std::vector<int>{11, 12, 13}));
    shown.ClickHeading(kTicks);
    QVERIFY(shown.grid.Model().TickedIds().empty());
  }

  void EnterMovesThroughTheCells() {
    Shown shown;
    QSignalSpy at_end(&shown.grid, &Grid::LastCellLeft);
    shown.Edit(2, kDay);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("010411"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(shown.grid.currentIndex().column(), int{kSide});
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("s"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(shown.grid.currentIndex().column(), int{kRate});
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("7.5"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(at_end.count(), 1);
    QCOMPARE(shown.grid.Model().Text(2, kDay), QStringLiteral("01/04/2011"));
    QCOMPARE(shown.grid.Model().Value(2, kSide).toInt(), 0);
    QCOMPARE(shown.grid.Model().Number(2, kRate), 7.5);
  }

  void UntouchedCellKeepsItsFullValue() {
    Shown shown;
    shown.grid.Model().SetValue(0, kRate, 33.33333);
    shown.Edit(0, kRate);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(shown.grid.Model().Number(0, kRate), 33.33333);
  }

  void ListOpensAtF2() {
    Shown shown;
    shown.grid.setCurrentIndex(shown.grid.Model().index(0, kSide));
    QTest::keyClick(shown.grid.viewport(), Qt::Key_F2);
    auto* list = shown.grid.findChild<ComboBox*>();
    QVERIFY(list != nullptr);
    QVERIFY(list->view()->isVisible());
    QCOMPARE(list->CurrentId(), 1);
  }

  void ImproperDateIsRefused() {
    Shown shown;
    QSignalSpy refused(&shown.grid, &Grid::EditRefused);
    shown.Edit(0, kDay);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("31022011"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(refused.count(), 1);
    QCOMPARE(shown.grid.Model().Text(0, kDay), QStringLiteral("02/04/2011"));
  }

  /// A hidden column is no wish of the user's for widths.
  void ColumnsFillTheListWhenItGrows() {
    Shown shown;
    shown.grid.resize(900, 300);
    QTRY_COMPARE(shown.grid.horizontalHeader()->length(), shown.grid.viewport()->width());
  }

  void CopyTakesTheShownColumns() {
    Shown shown;
    shown.grid.SelectRow(0);
    QTest::keyClick(&shown.grid, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(shown.grid.SelectedText(),
             QStringLiteral("02/04/2011\tP\t100.00\tb\n31/12/2010\tS\t9.50\ta"));
  }

  void RefillKeepsTheCurrentRecord() {
    Shown shown;
    shown.grid.SelectId(13);
    QSignalSpy moved(&shown.grid, &Grid::CurrentRowChanged);
    std::vector<Row> rows = BillRows();
    rows.erase(rows.begin());
    shown.grid.SetRows(rows);
    QCOMPARE(shown.grid.CurrentId(), 13);
    rows.pop_back();
    shown.grid.SetRows(rows);
    QCOMPARE(shown.grid.CurrentId(), 0);
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved.back().front().toInt(), -1);
  }

  void RemovedRowLeavesTheNextOneCurrent() {
    Shown shown;
    shown.grid.SelectId(12);
    shown.grid.RemoveCurrentRow();
    QCOMPARE(shown.Ids(), (std::vector<int>{11, 13}));
    QVERIFY(shown.grid.CurrentId() != 0);
    shown.grid.RemoveCurrentRow();
    shown.grid.RemoveCurrentRow();
    QCOMPARE(shown.grid.CurrentId(), 0);
    shown.grid.RemoveCurrentRow();
  }
};

static const quorvane::test::RegisterTest<GridTest> kRegistered;
#include "GridTest.moc"
