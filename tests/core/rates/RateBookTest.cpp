#include "core/rates/RateBook.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::rates;

namespace {

const text::Date kLastOfYear = *text::MakeDate(31, 3, 2012);
const text::Date kFirstOfNext = *text::MakeDate(1, 4, 2012);
const ScripId kOne{1};
const ScripId kTwo{2};
const ScripId kThree{3};

}  // namespace

class RateBookTest : public test::DatabaseTest {
  Q_OBJECT

  /// Rows as "year|id|date|scrip|rate".
  QStringList Rows() {
    return test::Rows(**database_, "Select Fyear,Id,MDate,ScrId,Rate From MarketRate Order By Id");
  }

  void Save(text::Date date, const std::vector<ScripRate>& rates) {
    RateBook(**database_).Save(date, rates);
  }

 private Q_SLOTS:
  void cleanup() { (*database_)->Execute("Delete From MarketRate"); }

  void SavingReplacesAddsAndRemoves() {
    Save(kLastOfYear, {{kOne, 10.1}, {kTwo, 20}, {kThree, 0}});
    Save(kFirstOfNext, {{kOne, 11}});
    Save(kLastOfYear, {{kTwo, 0}, {kThree, 30}, {kOne, 10}, {kOne, 10.5}});
    QCOMPARE(Rows(), QStringList({QStringLiteral("2011-12|1|31/03/2012|1|10.5"),
                                  QStringLiteral("2012-13|3|01/04/2012|1|11"),
                                  QStringLiteral("2011-12|4|31/03/2012|3|30")}));
  }

  void NewestRateUpToADay() {
    Save(*text::MakeDate(2, 12, 2011), {{kOne, 9}, {kTwo, 8}});
    Save(kLastOfYear, {{kOne, 10}});
    Save(kFirstOfNext, {{kOne, 99}, {kThree, 1}});
    const auto rates = RateBook(**database_).NewestUpTo(kLastOfYear);
    QCOMPARE(rates.size(), std::size_t{2});
    QCOMPARE(rates.at(kOne).rate, 10.0);
    QCOMPARE(rates.at(kOne).date, kLastOfYear);
    QCOMPARE(rates.at(kTwo).rate, 8.0);
    QCOMPARE(rates.at(kTwo).date, *text::MakeDate(2, 12, 2011));
  }
};

static const test::RegisterTest<RateBookTest> kRegistered;
#include "RateBookTest.moc"
