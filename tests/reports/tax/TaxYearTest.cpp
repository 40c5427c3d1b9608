#include "core/files/TextTable.h"
#include "core/tax/Rules.h"
#include "reports/tax/Folder.h"
#include "reports/tax/TaxDocument.h"
#include "support/DatabaseTest.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::tax_year;
using text::FinancialYear;

namespace {

const QString kShipped = QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped");

tax::Rules RulesOf(int year) {
  return *tax::Rules::Load(kShipped, FinancialYear(year));
}

/// The cells of a column in the rows of a kind, added up.
double SumOf(const reporting::Table& table, std::size_t first, std::size_t last,
             std::size_t column) {
  Paise sum;
  for (std::size_t i = first; i < last; ++i) {
    if (const auto* number = std::get_if<double>(&table.rows[i].cells[column])) {
      sum += Paise::OfRupees(*number);
    }
  }
  return sum.Rupees();
}

}  // namespace

class TaxYearTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInTaxYears(*database_);
  }

  void YearsWithoutLawAreRefused() {
    for (const int year : {2004, 2027}) {
      const auto rules = tax::Rules::Load(kShipped, FinancialYear(year));
      QVERIFY(!rules);
      QVERIFY(rules.Why().text.contains(FinancialYear(year).Text()));
    }
    for (int year = 2005; year < 2027; ++year) {
      const tax::Rules rules = RulesOf(year);
      QCOMPARE(rules.Windows().back().last_day, FinancialYear(year).LastDay());
      QVERIFY(!rules.SectionOf(tax::GainKind::kLongTermStt, FinancialYear(year).FirstDay())
                   .name.isEmpty());
      for (const tax::LossKindName& loss : tax::kLossKinds) {
        QCOMPARE(rules.CarryYears(loss.kind), loss.years);  // what may be entered can be set off
      }
    }
  }

  void BrokenDataAreNamedWithTheirLine() {
    const QTemporaryDir folder;
    for (const char* name :
         {"years.csv", "sections.csv", "buy-backs.csv", "losses.csv", "advance-tax-windows.csv"}) {
      test::WriteFile(folder.filePath(QStringLiteral("tax/") + name),
                      test::ReadFile(kShipped + "/tax/" + name));
    }
    const QString sections = folder.filePath("tax/sections.csv");
    test::WriteFile(sections, test::ReadFile(sections).replace("23/07/2024", "23/17/2024"));
    try {
      static_cast<void>(tax::Rules::Load(folder.path(), FinancialYear(2024)));
      QFAIL("taken");
    } catch (const files::TableError& error) {
      QCOMPARE(QString(error.what()), "Line 4 of tax/sections.csv cannot be read.");
    }
  }

  void EveryPrintedTotalIsTheSumOfItsRows() {
    const lookups::Directory directory(**database_);
    const tax::Rules rules = RulesOf(2024);
    const tax::Rules before = RulesOf(2023);
    Progress progress;
    const ClientTax tax = TaxBook(**database_, directory, rules, &before)
                              .Of(directory.FindClient("AN")->id, progress);
    const reporting::ReportDocument document = MakeTaxDocument(rules, tax, {}, directory);
    const reporting::Table& pieces = document.tables.back();
    QCOMPARE(pieces.titles.front(), "Sales");
    std::size_t first = 0;
    int totals = 0;
    for (std::size_t i = 0; i < pieces.rows.size(); ++i) {
      if (pieces.rows[i].kind == reporting::RowKind::kGroup) {
        first = i + 1;
      } else if (pieces.rows[i].kind == reporting::RowKind::kTotal) {
        ++totals;
        for (const std::size_t column : {5, 6, 7, 9, 10}) {
          QCOMPARE(std::get<double>(pieces.rows[i].cells[column]), SumOf(pieces, first, i, column));
        }
      }
    }
    QCOMPARE(totals, 2);
    for (const reporting::Table& table : document.tables) {
      const reporting::Row& last = table.rows.back();
      if (last.kind != reporting::RowKind::kNetTotal) {
        continue;
      }
      for (std::size_t column = 1; column < last.cells.size(); ++column) {
        QCOMPARE(std::get<double>(last.cells[column]),
                 SumOf(table, 0, table.rows.size() - 1, column));
      }
    }
  }

  void PointsNameWhatIsMissing() {
    const lookups::Directory directory(**database_);
    const tax::Rules rules = RulesOf(2024);
    const tax::Rules before = RulesOf(2023);
    Progress progress;
    const ClientTax tax = TaxBook(**database_, directory, rules, &before)
                              .Of(directory.FindClient("AN")->id, progress);
    QStringList found;
    for (const Point& point : CheckList(**database_, directory).PointsOf(tax, progress)) {
      found << point.window + (point.open ? ": " : "? ") + point.text;
    }
    QCOMPARE(found, QStringList({
                        "FrmFairValue: ZINC ALLOYS LTD was acquired before 1-Feb-2018: its highest "
                        "price of 31-Jan-2018 is missing.",
                        "FrmSalePurchase: ALUM CASTINGS LTD sold on 03/06/2024 without STT is "
                        "taxed as if it was not sold on an exchange: enter its STT if there was "
                        "one.",
                        "FrmTaxLoss: The losses that 2023-24 leaves are not what is brought "
                        "forward.",
                        "FrmScript: ZINC ALLOYS LTD has no ISIN: schedule 112A names it "
                        "INNOTREQUIRD.",
                        "FrmClientMaster? The client has no PAN.",
                    }));
  }
};

static const test::RegisterTest<TaxYearTest> kRegistered;
#include "TaxYearTest.moc"
