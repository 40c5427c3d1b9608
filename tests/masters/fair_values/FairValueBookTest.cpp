#include "masters/fair_values/FairValueBook.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::fair_values;
using tax::FairValues;

class FairValueBookTest : public test::DeskTest {
  Q_OBJECT

  FairValueBook Book() { return FairValueBook(desk_->Connection()); }
  QStringList Stored() {
    return test::Rows(desk_->Connection(), "Select ScrId,Rate From FairValue Order By ScrId");
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(), {"FairValue"});
    desk_->Connection().Execute("Insert Into FairValue Values(1,10),(2,20)");
  }

  // Another program has changed 2 and added 2's neighbour since the values were read.
  void SaveWritesOnlyWhatWasChanged() {
    const FairValues before{{ScripId{1}, 10}, {ScripId{2}, 15}};
    QVERIFY(!Book().Save(before, {{ScripId{1}, 11.0375}, {ScripId{2}, 15}}));
    QCOMPARE(Stored(), QStringList({"1|11.0375", "2|20"}));
    QVERIFY(!Book().Save(before, {{ScripId{1}, 10}}));
    QCOMPARE(Stored(), QStringList({"1|11.0375"}));
  }

  void NothingIsSavedOfWhatIsRefused_data() {
    const test::Table<int, double> row;
    row("a rate below zero", 1, -1);
    row("a scrip that was deleted", 99, 5);
  }
  void NothingIsSavedOfWhatIsRefused() {
    const auto [scrip, rate] = test::Table<int, double>::Row();
    QVERIFY(Book().Save({{ScripId{2}, 20}}, {{ScripId{scrip}, rate}}));
    QVERIFY(!Book().Raise({{ScripId{99}, 5}, {ScripId{1}, 12}}));
    QCOMPARE(Stored(), QStringList({"1|10", "2|20"}));
  }

  // The file's first row of a scrip has the higher price, and the recorded value may be higher yet.
  void TheHighestOfAllIsKept() {
    const std::vector<rates::ListedScrip> scrips{{.id = ScripId{1}, .code = "500325"},
                                                 {.id = ScripId{2}, .code = "500209"}};
    rates::PriceFile file{.exchange = rates::Exchange::kBse};
    file.rows = {{.code = "500325", .rate = 99, .high = 12},
                 {.code = "500325", .rate = 99, .high = 11},
                 {.code = "500209", .rate = 99, .high = 19},
                 {.code = "500010", .rate = 99, .high = 99}};
    const FileValues values = MatchHighest(file, scrips);
    QCOMPARE(values.unmatched, std::size_t{1});
    const Taken would = Book().WouldRaise(values.highest);
    QCOMPARE(Stored(), QStringList({"1|10", "2|20"}));
    const Result<Taken> taken = Book().Raise(values.highest);
    QVERIFY(taken);
    for (const Taken& one : {would, *taken}) {
      QCOMPARE(one.added, std::size_t{0});
      QCOMPARE(one.raised, std::size_t{1});
      QCOMPARE(one.kept, std::size_t{1});
    }
    QCOMPARE(Stored(), QStringList({"1|12", "2|20"}));
  }
};

static const test::RegisterTest<FairValueBookTest> kRegistered;
#include "FairValueBookTest.moc"
