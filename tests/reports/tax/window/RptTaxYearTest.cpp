#include "controls/Grid.h"
#include "core/tax/TaxLosses.h"
#include "reports/ShownReport.h"
#include "reports/tax/Folder.h"
#include "reports/tax/window/RptTaxYear.h"

using namespace quorvane;
using namespace quorvane::tax_year;
using Kind = test::RecordingMessages::Kind;

namespace {

struct Shown : test::ShownReport<RptTaxYear> {
  explicit Shown(test::TestDatabase& database, int year = 2024)
      : ShownReport(database, "RptTaxYear", "AN", year) {}

  controls::Grid& Points() const { return *Named<controls::Grid>("VSF"); }
};

}  // namespace

class RptTaxYearTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    database_.emplace();
    test::TakeInTaxYears(*database_);
    client_ = lookups::Directory(**database_).FindClient("AN")->id;
  }

  void APointOpensTheWindowThatMendsItForItsClient() {
    Shown window(*database_);
    window.messages.WillAnswer(false);
    QCOMPARE(window.Points().CurrentId(), 0);
    window.Click("CmdReport");
    QCOMPARE(window.Points().Model().RowCount(), 5);
    for (int row = 0; row < window.Points().Model().RowCount(); ++row) {
      window.Session().current.reset();
      window.Points().SelectRow(row);
      window.Click("cmdOpen");
      QCOMPARE(window.Session().current->client, client_);
    }
    QCOMPARE(window.opened, QStringList({"FrmFairValue", "FrmSalePurchase", "FrmTaxLoss",
                                         "FrmScript", "FrmClientMaster"}));
  }

  void LossesOfTheYearBeforeAreBroughtForwardOnAQuestion() {
    Shown window(*database_);
    window.messages.WillAnswer(false);
    window.Click("CmdReport");
    QVERIFY(tax::ReadTaxLosses(**database_, client_, text::FinancialYear(2024)).empty());
    window.Click("CmdReport");
    QCOMPARE(window.messages.said.size(), std::size_t{1});

    Shown other(*database_);
    other.messages.WillAnswer(true);
    other.Click("CmdReport");
    const auto losses = tax::ReadTaxLosses(**database_, client_, text::FinancialYear(2024));
    QCOMPARE(losses.size(), std::size_t{1});
    QCOMPARE(losses.front().amount, text::Paise(50000));
    QCOMPARE(losses.front().loss_year, text::FinancialYear(2023));
    QCOMPARE(other.Points().Model().RowCount(), 4);
  }

  void TheUploadFileNeedsAWordWhilePointsAreOpen() {
    Shown window(*database_);
    window.save_path = window.folder.filePath("112a.csv");
    window.messages.WillAnswer(false);
    window.Click("cmdUpload");
    QVERIFY(!QFile::exists(window.save_path));
    window.messages.WillAnswer(true);
    window.Click("cmdUpload");
    const QByteArray written = test::ReadFile(window.save_path);
    QCOMPARE(written.count('\n'), 2);
    QVERIFY(written.contains("BE,BE,INNOTREQUIRD,ZINC ALLOYS LTD,10,700,7000.00,2000.00,2000.00"));
  }

  void TheFamilyHasARowForEachMember() {
    const Shown window(*database_);
    window.Click("optW_1");
    window.Click("CmdReport");
    const reporting::Table& table = window.Screen().Document().tables.front();
    QCOMPARE(table.rows.size(), std::size_t{3});
    QCOMPARE(std::get<QString>(table.rows[1].cells.front()), "BINA KAMDHENU");
    QCOMPARE(std::get<double>(table.rows[1].cells[1]), 500.0);
  }

  void AYearWithoutLawIsRefused() {
    const Shown window(*database_, 2027);
    window.Click("CmdReport");
    QCOMPARE(window.messages.said.back().kind, Kind::kRefuse);
    QVERIFY(window.messages.LastText().contains("2027-28"));
    QVERIFY(window.Screen().Document().tables.empty());
  }

 private:
  ClientId client_;
};

static const test::RegisterTest<RptTaxYearTest> kRegistered;
#include "RptTaxYearTest.moc"
