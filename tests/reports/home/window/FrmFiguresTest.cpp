#include "core/text/Amounts.h"
#include "reports/Sample.h"
#include "reports/home/KeptFigures.h"
#include "reports/home/window/FrmFigures.h"
#include "support/DatabaseTest.h"
#include "support/ShownWindow.h"

#include <QCheckBox>
#include <QLabel>

using namespace quorvane;
using home::FrmFigures;
using text::Paise;

namespace {

/// The window over the sample portfolio on the last day of its last year.
struct ShownFigures : test::ShownWindow<FrmFigures> {
  ShownFigures(test::TestDatabase& database, FrmFigures::What what) {
    desk_.open_record = [this](const controls::RecordPlace& place) { places.push_back(place); };
    today_ = *text::MakeDate(31, 3, 2014);
    session_.current = ClientYear{ClientId{1}, text::FinancialYear(2012)};
    Open(database, what);
  }

  controls::Grid& List() const { return *Named<controls::Grid>("VSF"); }

  Paise Sum(int column) const {
    Paise sum;
    for (int row = 0; row < List().Model().RowCount(); ++row) {
      sum += Paise::OfRupees(List().Model().Number(row, column));
    }
    return sum;
  }

  void Enter(int row) const {
    List().setFocus();
    List().SelectRow(row);
    Press(Qt::Key_Return);
  }

  void Choose(const char* box, int position) const {
    auto* list = Named<controls::ComboBox>(QLatin1String(box));
    list->setCurrentIndex(position);
    Q_EMIT list->activated(position);
  }

  std::vector<controls::RecordPlace> places;
};

}  // namespace

/// Every line is made of the lines behind it, down to the last one, which opens its page.
class FrmFiguresTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
    Progress progress;
    home::RefreshFigures(**database_, year_, today_, progress);
    figures_ = home::ReadFigures(**database_, {{}, year_, today_});
  }
  void cleanupTestCase() { database_.reset(); }

  void ListsAddUpToTheFigure_data() {
    const test::Table<int> row;
    row("by scrip", 0);
    row("by client", 1);
  }
  void ListsAddUpToTheFigure() {
    const auto [by] = test::Table<int>::Row();
    ShownFigures shown(*database_, FrmFigures::What::kHoldings);
    shown.Choose("CboBy", by);
    QCOMPARE(shown.Sum(kCost).Count(), figures_.cost.Count());
    QCOMPARE(shown.Sum(kValue).Count(), figures_.value.Count());
    for (int row = 0; row < 3; ++row) {
      const auto cost = Paise::OfRupees(shown.List().Model().Number(row, kCost));
      const int id = shown.List().Model().IdOf(row);
      shown.Enter(row);
      QCOMPARE(shown.Sum(kCost).Count(), cost.Count());
      shown.Press(Qt::Key_Escape);
      QCOMPARE(shown.List().CurrentId(), id);
    }
    shown.Enter(0);
    const int inner = shown.List().Model().IdOf(0);
    shown.Enter(0);
    QCOMPARE(shown.places.size(), std::size_t{1});
    QCOMPARE(shown.places[0].window, "RptScripPage");
    QCOMPARE(by == 0 ? shown.places[0].of->client.value : shown.places[0].record, inner);
  }

  void TotalsAreOfTheLinesThatAreShown() {
    ShownFigures shown(*database_, FrmFigures::What::kHoldings);
    const auto text = [&] { return text::FormatAmount(shown.Sum(kCost).Rupees()); };
    QVERIFY(Totals(shown).contains(text()));
    const QString whole = Totals(shown);
    shown.List().Header().findChild<QLineEdit*>()->setText(
        shown.List().Model().Text(0, 0).section(QLatin1Char(' '), 0, 0));
    QVERIFY(Totals(shown) != whole);
    QVERIFY(Totals(shown).contains(text()));
  }

  void OldRatesAreShownAlone() {
    ShownFigures shown(*database_, FrmFigures::What::kHoldings);
    QVERIFY(shown->GoTo(FrmFigures::kOldRates));
    QVERIFY(shown.Named<QCheckBox>("ChkOld")->isChecked());
    QCOMPARE(shown.List().Model().RowCount(), figures_.without_rate);
  }

  void GainsLeadToTheStatement() {
    ShownFigures shown(*database_, FrmFigures::What::kGains);
    QCOMPARE(shown.Sum(4).Count(), figures_.gains.Total().Count());
    const int client = shown.List().Model().IdOf(0);
    shown.Enter(0);
    QCOMPARE(shown.places.at(0).window, "RptCapitalGain");
    QVERIFY(shown.places[0].of == (ClientYear{ClientId{client}, year_}));
  }

 private:
  enum { kCost = 4, kValue = 5 };

  static QString Totals(const ShownFigures& shown) {
    return shown.Named<QLabel>("LblTotals")->text();
  }

  std::optional<test::TestDatabase> database_;
  home::Figures figures_;
  text::FinancialYear year_{2012};
  text::Date today_ = *text::MakeDate(31, 3, 2014);
};

static const test::RegisterTest<FrmFiguresTest> kRegistered;
#include "FrmFiguresTest.moc"
