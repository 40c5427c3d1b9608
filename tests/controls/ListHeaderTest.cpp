#include "controls/Grid.h"
#include "support/OnScreen.h"
#include "support/Test.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>

using namespace quorvane::controls;
namespace test = quorvane::test;

namespace {

/// A list of ten scrips with ticks and a column that the program hides.
struct Shown {
  explicit Shown(const QString& folder = {}) {
    grid.SetFilterable(true);
    grid.SetColumns({{.mask = Mask::kTick},
                     {.heading = "Code"},
                     {.heading = "Name"},
                     {.heading = "Rate", .mask = Mask::kAmount},
                     {.heading = "Key", .hidden = true}});
    Fill();
    quorvane::app::Folders folders;
    folders.application = folder;
    grid.Header().KeepIn(WindowMemory(folders), QStringLiteral("FrmTest"));
    grid.resize(500, 300);
    test::PutOnScreen(grid);
    grid.setFocus();
  }

  void Fill() {
    std::vector<Row> rows;
    for (int id = 1; id <= 10; ++id) {
      rows.push_back({.id = id,
                      .cells = {false, QStringLiteral("%1").arg(500 + id),
                                id % 2 == 0 ? "Alpha Mills" : "Beta Steel", 11.0 - id, id}});
    }
    grid.SetRows(std::move(rows));
  }

  void Filter(const QString& text) {
    QTest::keyClick(&grid, Qt::Key_F3);
    Box()->setText(text);
  }
  QLineEdit* Box() const { return grid.findChild<QLineEdit*>(QStringLiteral("TxtFilter")); }

  QList<int> Ids() const {
    QList<int> ids;
    for (int row = 0; row < grid.Model().RowCount(); ++row) {
      ids << grid.Model().IdOf(row);
    }
    return ids;
  }

  /// Does an item of the menu of the columns.
  void Choose(const QString& menu, const QString& item) {
    QTest::keyClick(&grid, Qt::Key_F3, Qt::ShiftModifier);
    auto* columns = grid.findChild<QMenu*>(QStringLiteral("mnuColumns"));
    QVERIFY(columns != nullptr);
    for (QAction* part : columns->actions()) {
      const auto items = part->menu() == nullptr ? QList{part} : part->menu()->actions();
      for (QAction* one : items) {
        if ((part->menu() == nullptr || part->text() == menu) && one->text() == item) {
          one->trigger();
        }
      }
    }
    delete columns;
  }

  /// The headings in sight, from left to right.
  QStringList Headings() const {
    QStringList headings;
    const QHeaderView& header = *grid.horizontalHeader();
    for (int place = 0; place < header.count(); ++place) {
      const int column = header.logicalIndex(place);
      if (!header.isSectionHidden(column)) {
        headings << grid.Model().Columns()[static_cast<std::size_t>(column)].heading;
      }
    }
    return headings;
  }

  Grid grid{QStringLiteral("VSF"), QStringLiteral("Scrips")};
  QAbstractItemModelTester tester{&grid.Model(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal};
};

}  // namespace

class ListHeaderTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RowsAreFilteredByEachWord_data() {
    const test::Table<QString, QList<int>> row;
    row("part of a text in any case", "ALPHA", {2, 4, 6, 8, 10});
    row("words of several columns", "mills 502", {2});
    row("an amount as it is shown", "9.00", {2});
    row("a hidden key is not searched", "beta 7", {7});
    row("blanks alone", "  ", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    row("nothing fits", "gamma", {});
  }
  void RowsAreFilteredByEachWord() {
    const auto [text, ids] = test::Table<QString, QList<int>>::Row();
    Shown shown;
    shown.Filter(text);
    QCOMPARE(shown.Ids(), ids);
  }

  void TheCursorStaysOnItsRecordOrGoesToTheFirst() {
    Shown shown;
    shown.grid.SelectId(4);
    shown.Filter("alpha");
    QCOMPARE(shown.grid.CurrentId(), 4);
    shown.Box()->setText("beta");
    QCOMPARE(shown.grid.CurrentId(), 1);
    QTest::keyClick(shown.Box(), Qt::Key_Down);
    QVERIFY(shown.grid.hasFocus());
    QTest::keyClick(&shown.grid, Qt::Key_F3);
    QTest::keyClick(shown.Box(), Qt::Key_Escape);
    QVERIFY(shown.grid.hasFocus());
    QCOMPARE(shown.Ids().size(), 10);
    QCOMPARE(shown.grid.CurrentId(), 1);
  }

  // What is ticked for a report does not depend on what the list shows just now.
  void TicksOfRowsThatAreNotShownCount() {
    Shown shown;
    shown.grid.Model().SetTicked(0, true);
    shown.Filter("alpha");
    QCOMPARE(shown.grid.Model().TickedIds(), std::vector<int>{1});
    shown.grid.Model().TickAll(true);
    QVERIFY(shown.grid.Model().AllShownTicked());
    QVERIFY(!shown.grid.Model().AllTicked());
    shown.Box()->clear();
    QCOMPARE(shown.grid.Model().TickedIds(), (std::vector<int>{1, 2, 4, 6, 8, 10}));
  }

  void OtherRowsAreFilteredAndSortedInTheSameWay() {
    Shown shown;
    shown.Filter("alpha");
    shown.grid.Header().Want({3, Qt::AscendingOrder});
    shown.Fill();
    QCOMPARE(shown.Ids(), QList<int>({10, 8, 6, 4, 2}));
    shown.grid.Reveal(3);
    QCOMPARE(shown.grid.CurrentId(), 3);
    QCOMPARE(shown.Ids(), QList<int>({10, 9, 8, 7, 6, 5, 4, 3, 2, 1}));
  }

  void WhatTheUserDoesWithTheColumnsIsKept() {
    const QTemporaryDir folder;
    {
      Shown shown(folder.path());
      QCOMPARE(shown.Headings(), QStringList({"", "Code", "Name", "Rate"}));
      shown.Choose("Columns Shown", "Code");
      shown.Choose("Move a Column", "Rate to the Left");
      shown.Choose("Sort by", "Rate");
      shown.grid.SelectId(5);
      QCOMPARE(shown.grid.SelectedText(), "6.00\tBeta Steel");
    }
    Shown shown(folder.path());
    QCOMPARE(shown.Headings(), QStringList({"", "Rate", "Name"}));
    QCOMPARE(shown.Ids().first(), 10);
    shown.Choose("Columns Shown", "Code");
    QCOMPARE(shown.Headings(), QStringList({"", "Code", "Rate", "Name"}));
    shown.Choose({}, "Columns as They Were at First");
    QCOMPARE(shown.Headings(), QStringList({"", "Code", "Name", "Rate"}));
    QCOMPARE(shown.Ids().first(), 1);
    const Shown again(folder.path());
    QCOMPARE(again.Headings(), QStringList({"", "Code", "Name", "Rate"}));
  }

  void OneColumnStays() {
    Shown shown;
    for (const char* heading : {"Code", "Name", "Rate"}) {
      shown.Choose("Columns Shown", QLatin1String(heading));
    }
    QCOMPARE(shown.Headings(), QStringList({"", "Rate"}));
  }

  void ColumnsForEntryStayInTheirPlaces() {
    Grid grid(QStringLiteral("Vs1"), QStringLiteral("Lines"));
    grid.SetColumns({{.heading = "Rate", .editable = true}, {.heading = "Note"}});
    QVERIFY(!grid.horizontalHeader()->sectionsMovable());
    QVERIFY(!grid.Header().IsArrangeable());
  }
};

static const test::RegisterTest<ListHeaderTest> kRegistered;
#include "ListHeaderTest.moc"
