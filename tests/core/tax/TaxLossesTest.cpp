#include "core/tax/TaxLosses.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::tax;
using text::FinancialYear;

namespace {

constexpr ClientId kClient{1};

TaxLoss Loss(int loss_year, LossKind kind, std::int64_t paise, int year = 2018) {
  return {kClient, FinancialYear(year), FinancialYear(loss_year), kind, text::Paise(paise)};
}

QString FieldOf(const MaybeRefusal& refusal) {
  return refusal ? QString::number(static_cast<int>(refusal->field)) : QStringLiteral("well");
}

}  // namespace

Q_DECLARE_METATYPE(LossKind)

class TaxLossesTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void ALossIsOfAnEarlierYearAndNotTooOld_data() {
    const test::Table<int, LossKind, int, bool> row;
    row("the year before", 2017, LossKind::kLongTerm, 1, true);
    row("the eighth year", 2010, LossKind::kLongTerm, 1, true);
    row("the ninth year", 2009, LossKind::kShortTerm, 1, false);
    row("speculation, the fourth year", 2014, LossKind::kSpeculation, 1, true);
    row("speculation, the fifth year", 2013, LossKind::kSpeculation, 1, false);
    row("the year itself", 2018, LossKind::kShortTerm, 1, false);
    row("a later year", 2019, LossKind::kShortTerm, 1, false);
    row("no year", 0, LossKind::kShortTerm, 1, false);
    row("nothing", 2017, LossKind::kShortTerm, 0, false);
    row("a gain", 2017, LossKind::kShortTerm, -1, false);
  }
  void ALossIsOfAnEarlierYearAndNotTooOld() {
    const auto [year, kind, paise, fits] = test::Table<int, LossKind, int, bool>::Row();
    const MaybeRefusal refusal = CheckTaxLoss(Loss(year, kind, paise));
    const Field field = paise > 0 ? Field::kYear : Field::kAmount;
    QCOMPARE(FieldOf(refusal), FieldOf(fits ? MaybeRefusal() : MaybeRefusal(Refusal{{}, field})));
  }

  void OneOfAKindAYear() {
    std::vector<TaxLoss> losses{Loss(2017, LossKind::kLongTerm, 5),
                                Loss(2017, LossKind::kShortTerm, 5),
                                Loss(2016, LossKind::kLongTerm, 5)};
    QVERIFY(!CheckTaxLosses(losses));
    losses.push_back(Loss(2017, LossKind::kShortTerm, 6));
    QCOMPARE(CheckTaxLosses(losses)->text,
             QStringLiteral("Short-Term Capital Loss of 2017-18 is Entered Twice."));
  }

  void ReplacingTouchesOneClientAndYear() {
    const TaxLoss other_year = Loss(2017, LossKind::kLongTerm, 7, 2019);
    TaxLoss other_client = Loss(2017, LossKind::kLongTerm, 8);
    other_client.client = ClientId{2};
    const std::vector<TaxLoss> first{Loss(2017, LossKind::kLongTerm, 1)};
    // Amounts to the paisa, also large ones.
    const std::vector<TaxLoss> second{
        Loss(2016, LossKind::kLongTerm, 12'345'678'901'23), Loss(2017, LossKind::kShortTerm, 1),
        Loss(2017, LossKind::kLongTerm, 29), Loss(2016, LossKind::kSpeculation, 3)};
    database::InTransaction(**database_, [&](database::Transaction& transaction) {
      InsertTaxLosses(transaction, std::vector{other_year, other_client});
      ReplaceTaxLosses(transaction, kClient, FinancialYear(2018), first);
      ReplaceTaxLosses(transaction, kClient, FinancialYear(2018), second);
    });
    const std::vector<TaxLoss> in_order{second[0], second[3], second[2], second[1]};
    QVERIFY(ReadTaxLosses(**database_, kClient, FinancialYear(2018)) == in_order);
    std::vector<TaxLoss> all = in_order;
    all.push_back(other_year);
    all.push_back(other_client);
    QVERIFY(ReadAllTaxLosses(**database_) == all);
  }
};

static const test::RegisterTest<TaxLossesTest> kRegistered;
#include "TaxLossesTest.moc"
