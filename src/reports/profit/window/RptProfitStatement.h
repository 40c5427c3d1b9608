#pragma once

#include "reporting/charts/window/ChartPane.h"
#include "reporting/window/ReportWindow.h"
#include "reports/profit/ProfitDocument.h"
#include "reports/profit/ProfitStatement.h"

#include <QCheckBox>

namespace quorvane::profit {

/// The "Scriptwise Profitability Statement" and, opened for the target "RptCapitalGain", the
/// "Capital Gain Statement" of the current client and year. The screen shows the detail; paper and
/// files have the layout that was chosen. A chart beside the report has its gains by month and
/// kind.
class RptProfitStatement : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptProfitStatement(reporting::ReportDesk& desk);

 protected:
  MaybeRefusal CheckSelection() override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;
  std::optional<reporting::ReportDocument> BuildOutput(Progress& progress) override;
  bool BeforeReport() override;
  void ReportShown(const reporting::ReportDocument& document) override;
  MaybeRefusal CheckWorkbook() override;
  QStringList Choices() const override;
  void WriteWorkbook(const reporting::ReportDocument& document, const QString& path,
                     Progress& progress) override;

 private:
  void BuildOptions();
  void BuildExport();
  void AddTaxYearLine();
  void FillScrips();
  gains::FoChoice ChosenFo() const;
  ProfitQuery Query() const;
  Layout OutputLayout() const;
  std::optional<reporting::ReportDocument> Build(Layout layout, Progress& progress);
  void ShowChart(const reporting::Period& period, std::span<const StatementRow> rows);

  void optF_Click(int index);
  void Option1_Click(int index);
  void CmdTaxYear_Click();

  StatementMode mode_;
  bool unsold_ = true;  ///< as answered last
  Choice optF;
  Choice optSTax;
  Choice optSTT;
  Choice Option2;
  Choice OptFormat;
  Choice Option1;
  QCheckBox* ChkAverage = nullptr;
  QGroupBox* FrmExp = nullptr;
  reporting::TickGrid* VSD = nullptr;
  reporting::TickGrid* VSS = nullptr;
  charts::ChartPane* chart_ = nullptr;
};

}  // namespace quorvane::profit
