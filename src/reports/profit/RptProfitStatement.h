#pragma once

#include "reports/ReportWindow.h"
#include "reports/charts/ChartPane.h"
#include "reports/profit/ProfitStatement.h"
#include "reports/profit/StatementDocument.h"

#include <QCheckBox>

namespace quorvane::profit {

/// The "Scriptwise Profitability Statement" and, opened for the target "RptCapitalGain", the
/// "Capital Gain Statement" of the current client and year. The screen shows the detail; paper and
/// files have the layout that was chosen. A chart beside the report has its gains by month and
/// kind.
class RptProfitStatement : public report::ReportWindow {
  Q_OBJECT

 public:
  explicit RptProfitStatement(controls::Desk& desk);

 protected:
  MaybeRefusal CheckSelection() override;
  std::optional<report::ReportDocument> BuildDocument(Progress& progress) override;
  std::optional<report::ReportDocument> BuildOutput(Progress& progress) override;
  bool BeforeReport() override;
  void ReportShown(const report::ReportDocument& document) override;
  MaybeRefusal CheckWorkbook() override;
  QStringList Choices() const override;
  void WriteWorkbook(const report::ReportDocument& document, const QString& path,
                     Progress& progress) override;

 private:
  void BuildOptions();
  void BuildExport();
  void FillScrips();
  gains::FoChoice ChosenFo() const;
  StatementQuery Query() const;
  Layout OutputLayout() const;
  std::optional<report::ReportDocument> Build(Layout layout, Progress& progress);
  void ShowChart(const report::Period& period, std::span<const StatementRow> rows);

  void optF_Click(int index);
  void Option1_Click(int index);

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
  controls::Grid* VSD = nullptr;
  controls::Grid* VSS = nullptr;
  charts::ChartPane* chart_ = nullptr;
};

}  // namespace quorvane::profit
