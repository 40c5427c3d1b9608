#include "reporting/window/ReportWindow.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::reporting;

namespace {

ReportDocument OneLine(const Period& period) {
  ReportDocument document{{"Report"}, {}};
  Table& table = document.tables.emplace_back();
  table.columns = {DateColumn("From"), DateColumn("To")};
  table.rows = {{.kind = RowKind::kData, .cells = {period.from, period.to}}};
  return document;
}

/// The smallest report window.
class RptSample : public ReportWindow {
 public:
  explicit RptSample(ReportDesk& desk) : ReportWindow(desk, "RptSample", "Sample", {700, 400}) {
    AddPeriod(Months::kYes);
    Start();
  }

  QStringList ScreenRows() const {
    QStringList rows;
    for (int row = 0; row < VS->Model().rowCount(); ++row) {
      rows.append(VS->Model().RowText(row));
    }
    return rows;
  }

  std::function<void()> before_building = [] {};

 protected:
  std::optional<ReportDocument> BuildDocument(Progress&) override {
    before_building();
    return OneLine(ThePeriod());
  }
};

}  // namespace

class ReportWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    messages_.said.clear();
    session_.current = ClientYear{ClientId{1}, text::FinancialYear(2011)};
    window_ = std::make_unique<RptSample>(desk_);
    window_->show();
    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
  }
  void cleanup() { window_.reset(); }

  void MonthsSetTheirDates() {
    Choose("CmbFromMth", "January");
    Choose("CmbToMth", "Feb");
    QCOMPARE(Box("Text1_0")->text(), "01/01/2012");
    QCOMPARE(Box("Text1_1")->text(), "29/02/2012");
    QCOMPARE(window_->findChild<QComboBox*>("CmbToMthId")->currentText(), "2");
    QVERIFY(!window_->findChild<QComboBox*>("CmbToMthId")->isVisible());
  }

  void TypedDateTakesTheMonthBack() {
    Choose("CmbFromMth", "May");
    Choose("CmbToMth", "June");
    Box("Text1_0")->setFocus();
    QTest::keyClicks(Box("Text1_0"), "02052011");
    QTest::keyClick(Box("Text1_0"), Qt::Key_Return);
    QCOMPARE(Box("Text1_0")->text(), "02/05/2011");
    QCOMPARE(window_->findChild<QComboBox*>("CmbFromMth")->currentText(), QString());
    QCOMPARE(window_->findChild<QComboBox*>("CmbToMth")->currentText(), "June");
  }

  // The key comes while the date is still under entry.
  void PrintKeySettlesTheDateUnderEntry_data() {
    const test::Table<QString, QStringList, QStringList> row;
    row("can be completed", "1.5.11", QStringList("01/05/2011\t31/03/2012"), QStringList());
    row("is no date", "99", QStringList(), QStringList("Enter Proper Date."));
  }
  void PrintKeySettlesTheDateUnderEntry() {
    const auto [typed, printed, said] = test::Table<QString, QStringList, QStringList>::Row();
    QStringList rows;
    desk_.show_report = [&](const ReportDocument& document, QWidget*) {
      const Table& table = document.tables.front();
      rows << CellText(table.rows.front().cells[0], table.columns[0].mask) + '\t' +
                  CellText(table.rows.front().cells[1], table.columns[1].mask);
    };
    Box("Text1_0")->setFocus();
    Box("Text1_0")->selectAll();
    QTest::keyClicks(Box("Text1_0"), typed);
    QTest::keyClick(Box("Text1_0"), Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(rows, printed);
    QCOMPARE(messages_.Texts(), said);
    QCOMPARE(Box("Text1_0")->hasFocus(), printed.isEmpty());
    QCOMPARE(Box("Text1_0")->hasSelectedText(), printed.isEmpty());
  }

  void StoppedOrFailedReportLeavesTheScreen() {
    Report();
    const QStringList shown = window_->ScreenRows();
    QCOMPARE(shown, QStringList("01/04/2011\t31/03/2012"));
    Choose("CmbFromMth", "May");
    window_->before_building = [] { throw Cancellation(); };
    Report();
    QCOMPARE(messages_.LastText(), "Cancelled. Nothing was changed.");
    window_->before_building = [] { throw std::runtime_error("no disk"); };
    Report();
    QCOMPARE(messages_.LastText(), "CmdReport_Click: no disk");
    QCOMPARE(window_->ScreenRows(), shown);
    QVERIFY(window_->isVisible());
  }

 private:
  QLineEdit* Box(const char* name) const { return window_->findChild<QLineEdit*>(name); }

  void Choose(const char* name, const QString& typed) const {
    auto* box = window_->findChild<QComboBox*>(name);
    box->setFocus();
    QTest::keyClicks(box->lineEdit(), typed);
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
  }

  void Report() const { window_->findChild<QAbstractButton*>("CmdReport")->click(); }

  app::Session session_;
  test::RecordingMessages messages_;
  ReportDesk desk_{{session_, messages_}};
  std::unique_ptr<RptSample> window_;
};

static const test::RegisterTest<ReportWindowTest> kRegistered;
#include "ReportWindowTest.moc"
