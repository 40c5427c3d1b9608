#include "core/ledger/Rebuild.h"
#include "support/Test.h"
#include "transactions/posting/RandomRecords.h"

#include <array>
#include <cmath>
#include <thread>

using namespace quorvane;
using test::Desk;
using test::RandomRecords;

namespace {

int FromEnvironment(const char* name, int otherwise) {
  bool given = false;
  const int value = qEnvironmentVariableIntValue(name, &given);
  return given ? value : otherwise;
}

}  // namespace

/// Whatever is saved, changed and deleted, the ledger says what the records say.
class RandomRecordsTest : public QObject {
  Q_OBJECT

  static bool NoneIsNegative(Desk& desk) {
    return !desk.Connection().Open("Select Id From Stock Where Qty<0 Limit 1").Next();
  }

  /// A rebuild looks at the lots there are; here the shares of the records are counted without
  /// asking where they lie. Transfers only move them.
  static bool NoneIsMissing(Desk& desk) {
    auto rows = desk.Connection().Open(
        "Select (Select Coalesce(Sum(Qty),0) From Stock),"
        "(Select Coalesce(Sum(Qty),0) From StkOpBal),"
        "(Select Coalesce(Sum(If(SP=1,Qty,If(StkId=0,0,-Qty))),0) From SPTrans)");
    return rows.Next() && std::abs(rows.Double(0) - rows.Double(1) - rows.Double(2)) < 1e-6;
  }

 private Q_SLOTS:
  void LedgerFollowsTheRecords() {
    const int steps = FromEnvironment("QUORVANE_RANDOM_RECORDS", 10000);
    const auto seed = static_cast<unsigned>(FromEnvironment("QUORVANE_RANDOM_SEED", 20111));
    qInfo("%d steps from seed %u", steps, seed);
    Desk desk;
    const RandomRecords::Third third(desk);
    RandomRecords records(desk, third, desk.Connection(), seed);
    int refused = 0;
    Progress silent;
    for (int step = 0; step < steps; ++step) {
      const bool looks = step % 100 == 0;
      const QStringList before = looks ? desk.Everything() : QStringList();
      const MaybeRefusal refusal = records.Step();
      refused += refusal ? 1 : 0;
      if (looks && refusal) {
        QCOMPARE(desk.Everything(), before);
      }
      QVERIFY2(NoneIsNegative(desk), qPrintable(QStringLiteral("step %1").arg(step)));
      if (looks) {
        QVERIFY2(ledger::CheckStock(desk.Connection(), std::nullopt, silent).changes.empty(),
                 qPrintable(QStringLiteral("step %1").arg(step)));
        QVERIFY2(NoneIsMissing(desk), qPrintable(QStringLiteral("step %1").arg(step)));
      }
    }
    qInfo("%d refused", refused);
    QVERIFY(refused > steps / 10 && refused < steps * 7 / 10);
    QVERIFY(NoneIsMissing(desk));
    QCOMPARE(ledger::RebuildStock(desk.Connection(), std::nullopt, silent), std::size_t{0});
  }

  void ThreeProgramsAtOnceKeepTheLedgerRight() {
    constexpr int kPrograms = 3;
    const int steps = FromEnvironment("QUORVANE_RANDOM_RECORDS", 10000) / kPrograms;
    Desk desk;
    const RandomRecords::Third third(desk);
    std::array<std::string, kPrograms> failures;
    std::vector<std::thread> programs;
    for (unsigned program = 0; program < kPrograms; ++program) {
      programs.emplace_back([&, program] {
        try {
          database::Connection own(desk.database.Settings());
          RandomRecords records(desk, third, own, 20111 + program);
          for (int step = 0; step < steps; ++step) {
            static_cast<void>(records.Step());  // refused now and then
          }
        } catch (const std::exception& error) {
          failures[program] = error.what();
        }
      });
    }
    for (std::thread& program : programs) {
      program.join();
    }
    QCOMPARE(failures, (std::array<std::string, kPrograms>()));
    QVERIFY(NoneIsNegative(desk));
    QVERIFY(NoneIsMissing(desk));
    Progress silent;
    QVERIFY(ledger::CheckStock(desk.Connection(), std::nullopt, silent).changes.empty());
    for (const char* table : {"SPMaster", "Stock", "StkOpBal", "ScrTransfer"}) {
      auto rows = desk.Connection().Open(
          fmt::format("Select Id From {} Group By Id Having Count(*)>1 Limit 1", table));
      QVERIFY2(!rows.Next(), table);
    }
  }
};

static const quorvane::test::RegisterTest<RandomRecordsTest> kRegistered;
#include "RandomRecordsTest.moc"
