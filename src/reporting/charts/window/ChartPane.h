#pragma once

#include "controls/ComboBox.h"
#include "controls/Messages.h"
#include "controls/ZENButton.h"
#include "reporting/charts/window/ChartPictureView.h"
#include "reporting/screen/window/ReportGridView.h"
#include "reporting/window/ReportDesk.h"

#include <QWidget>

#include <optional>

namespace quorvane::charts {

/// A chart beside a table that says the same, with buttons that print the picture, save it as PNG
/// and show the table as pages. A window with several charts offers them in a list:
///
///     chart_ = new ChartPane(TheGuard(), TheDesk());
///     AddPage(tr("Chart"), chart_);
///     chart_->Show(gains.Take());
class ChartPane : public QWidget {
  Q_OBJECT

 public:
  /// With `titles` the pane has a list to choose from (`CmbChart`) and sends Chosen.
  ChartPane(const controls::Guard& guard, reporting::ReportDesk& desk,
            const QStringList& titles = {});

  void Show(const ChartData& chart);

  /// The place of the chosen title.
  int Choice() const;
  void Choose(int title);

  const ChartData& Shown() const { return chart_; }

 Q_SIGNALS:
  /// Another chart was chosen: the time to make it and to Show it.
  void Chosen(int title);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Arrange(const QStringList& titles);
  void CmbChart_Click();
  void CmdPrintChart_Click();
  void CmdSaveChart_Click();
  void CmdChartPages_Click();

  reporting::ReportDesk& desk_;
  ChartData chart_;
  ChartPictureView* picture_;
  reporting::ReportGridView* VSChart;
  controls::ComboBox* CmbChart = nullptr;
  controls::ZENButton* CmdPrintChart;
  controls::ZENButton* CmdSaveChart;
  controls::ZENButton* CmdChartPages;
};

}  // namespace quorvane::charts
