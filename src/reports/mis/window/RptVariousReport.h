#pragma once

#include "reporting/charts/window/ChartPane.h"
#include "reporting/window/ReportWindow.h"
#include "reports/mis/MisQuery.h"
#include "reports/mis/window/RatesPane.h"
#include "reports/mis/window/SelectionPane.h"

#include <array>

namespace quorvane::mis {

/// "MIS Report:": the management reports of one client, a group or all clients, charts of the same
/// selection, and the market rates of a date kept by hand. A report button sets the kind of report
/// and shows the three groupings; a grouping makes the report, F5 the same once more.
class RptVariousReport : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptVariousReport(reporting::ReportDesk& desk);

 protected:
  std::optional<text::FinancialYear> PeriodYear() const override;
  MaybeRefusal CheckSelection() override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;
  bool BeforeReport() override;
  void ReportShown(const reporting::ReportDocument& document) override;
  QString FileName(const reporting::ReportDocument& document) const override;
  bool MayClose() override;
  void EscapePressed() override;

 private:
  void BuildHead();
  void BuildButtons();
  void BuildGroupings();
  void BuildPages();
  void FreeKeys();
  void SetKind(ReportKind kind);
  void ShowKind();
  MaybeRefusal CheckDays() const;
  MisQuery Query() const;
  void ShowChart();

  void CboYr_Click();
  void CmdPortPos_Click();
  void CmdPortVal_Click();
  void CmdProfitLossReport_Click();
  void CmdStkVal_Click();
  void CmdRepType_Click(int grouping);
  void CmdShowReport_Click();
  void CmdShowPLRpt_Click();
  void Pages_Click(int page);
  void Chart_Click(int chart);
  void RatesChosen(const QString& date);

  ReportKind kind_ = ReportKind::kPosition;
  bool kind_chosen_ = false;
  Grouping grouping_ = Grouping::kScrip;
  std::optional<Grouping> shown_;  ///< of the report on the screen
  OptionPairView* detail_ = nullptr;
  SelectionPane* selection_ = nullptr;
  controls::ComboBox* CboYr = nullptr;
  QWidget* FrmPL = nullptr;
  controls::DateBox* Text3 = nullptr;  ///< the date of the rates; empty: the period's last day
  controls::ZENButton* CmdShowReport = nullptr;
  controls::ZENButton* CmdShowPLRpt = nullptr;
  std::array<controls::ZENButton*, 4> kinds_{};  ///< CmdPortPos, CmdPortVal, ...
  QWidget* groupings_ = nullptr;
  QButtonGroup* CmdRepType = nullptr;
  QTabWidget* pages_ = nullptr;
  charts::ChartPane* chart_ = nullptr;
  RatesPane* rates_ = nullptr;
};

}  // namespace quorvane::mis
