#include "support/TestMain.h"
#include "transactions/Desk.h"
#include "transactions/posting/LotSheet.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::posting;
using ledger::LotTable;
using test::Desk;
using test::kNegativeReliance;
using test::TextOf;

class LotSheetTest : public QObject {
  Q_OBJECT

  ledger::LotKey Key(double rate) const { return {desk_->of, desk_->account, desk_->scrip, rate}; }

  void PutLot(const char* table, int id, double quantity, double rate) {
    desk_->Connection().Execute(fmt::format("Insert Into {} Values(?,?,?,?,?,?,?)", table),
                                desk_->client, desk_->year.Text(), id, desk_->account, desk_->scrip,
                                quantity, rate);
  }

  /// Posts, checks and writes as a save does.
  template <class Post>
  MaybeRefusal OnSheet(const Post& post, LotTable table = LotTable::kStock) {
    return database::InTransaction(desk_->Connection(),
                                   [&](database::Transaction& transaction) -> MaybeRefusal {
                                     LotSheet sheet(transaction, table);
                                     post(sheet);
                                     if (MaybeRefusal refusal = sheet.CheckShortage(QString())) {
                                       return refusal;
                                     }
                                     sheet.Write();
                                     return std::nullopt;
                                   });
  }

  std::optional<Desk> desk_;

 private Q_SLOTS:
  void initTestCase() { desk_.emplace(); }
  void init() { desk_->Empty(); }
  void cleanupTestCase() { desk_.reset(); }

  void NewLotsAreNumberedAfterLedgerAndScratchTable() {
    PutLot("Stock", 4, 10, 100);
    PutLot("Stock_Temp", 7, 10, 90);
    LotId first;
    LotId second;
    OnSheet([&](LotSheet& sheet) {
      first = sheet.Add(Key(80), 1);
      second = sheet.Add(Key(70), 1);
      QCOMPARE(sheet.Add(Key(80), 1), first);
    });
    QCOMPARE(first.value, 8);
    QCOMPARE(second.value, 9);
    QCOMPARE(desk_->LotAt(80), QStringLiteral("2@80"));
  }

  void PartsOfSharesLeaveNoDust() {
    OnSheet([&](LotSheet& sheet) {
      sheet.Add(Key(100), 0.3);
      sheet.Take(Key(100), 0.1);
      sheet.Take(Key(100), 0.2);
    });
    QCOMPARE(desk_->LotAt(100), QStringLiteral("0@100"));
  }

  void OnlyTheOutcomeCounts() {
    PutLot("Stock", 1, 10, 100);
    QCOMPARE(TextOf(OnSheet([&](LotSheet& sheet) {
               sheet.Take(Key(100), 15);
               sheet.Add(Key(100), 5);
             })),
             test::kAccepted);
    QCOMPARE(desk_->LotAt(100), QStringLiteral("0@100"));
  }

  void ShortLotIsRefusedByTheNameOfItsScrip() {
    PutLot("Stock", 1, 10, 100);
    QCOMPARE(TextOf(OnSheet([&](LotSheet& sheet) { sheet.Take(Key(100), 10.000001); })),
             kNegativeReliance);
    QCOMPARE(TextOf(OnSheet([&](LotSheet& sheet) { sheet.Take(Key(99.99), 1); })),
             kNegativeReliance);
    QCOMPARE(desk_->LotAt(100), QStringLiteral("10@100"));
  }

  void LotThatWasBelowZeroBeforeMayComeNearer() {
    PutLot("Stock", 1, -10, 100);
    QCOMPARE(TextOf(OnSheet([&](LotSheet& sheet) { sheet.Add(Key(100), 4); })), test::kAccepted);
    QCOMPARE(desk_->LotAt(100), QStringLiteral("-6@100"));
    QCOMPARE(TextOf(OnSheet([&](LotSheet& sheet) { sheet.Take(Key(100), 1); })), kNegativeReliance);
  }

  void UnknownLotIsShortOnlyWhenMoreIsTakenThanGiven() {
    const Place place{desk_->of, desk_->account};
    QVERIFY(!OnSheet([&](LotSheet& sheet) {
      sheet.Add(place, LotId{55}, desk_->scrip, 3);
      sheet.Take(place, LotId{55}, desk_->scrip, 3);
    }));
    QCOMPARE(TextOf(OnSheet([&](LotSheet& sheet) {
               sheet.Add(place, LotId{55}, desk_->scrip, 3);
               sheet.Take(place, LotId{55}, desk_->scrip, 4);
             })),
             kNegativeReliance);
    QCOMPARE(desk_->Contents("Stock"), QStringList());
  }

  void LotOfAnotherAccountIsUnknownHere() {
    PutLot("Stock", 1, 10, 100);
    QCOMPARE(TextOf(OnSheet([&](LotSheet& sheet) {
               const Place here{desk_->of, desk_->account};
               const Place elsewhere{desk_->of, desk_->second_account};
               QVERIFY(sheet.Find(here, LotId{1}));
               QVERIFY(!sheet.Find(elsewhere, LotId{1}));
               sheet.Take(elsewhere, LotId{1}, desk_->scrip, 1);
             })),
             kNegativeReliance);
  }

  void OfTwoRowsOfOneLotTheOlderIsPostedTo() {
    PutLot("Stock", 5, 10, 100);
    PutLot("Stock", 3, 20, 100);
    LotId posted;
    OnSheet([&](LotSheet& sheet) { posted = sheet.Add(Key(100), 1); });
    QCOMPARE(posted.value, 3);
  }

  void ScratchTableAndLedgerAreApart() {
    PutLot("Stock", 1, 10, 100);
    PutLot("Stock_Temp", 1, 10, 100);
    OnSheet([&](LotSheet& sheet) { sheet.Add(Key(100), 5); }, LotTable::kStockTemp);
    QCOMPARE(desk_->LotAt(100), QStringLiteral("10@100"));
    QVERIFY(desk_->Contents("Stock_Temp").first().endsWith(QStringLiteral("|15|100")));
  }
};

static const quorvane::test::RegisterTest<LotSheetTest> kRegistered;
#include "LotSheetTest.moc"
