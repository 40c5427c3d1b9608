#pragma once

#include "reporting/charts/ChartData.h"

#include <QChartView>

namespace quorvane::charts {

/// Draws a chart in the colours of the theme in force. Series differ by their lines, marks and
/// hatching as well as by their colours, and parts of a whole are bars with their share beside
/// them, so that nothing is told by colour alone.
class ChartPictureView : public QChartView {
  Q_OBJECT

 public:
  explicit ChartPictureView(QWidget* parent = nullptr);

  void SetData(const ChartData& chart_data);

  /// The picture as it is shown, on a white ground in every theme, for paper and files.
  QImage Picture(QSize size);

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Draw();
  void DrawParts(QChart& chart);
  void DrawLines(QChart& chart);
  void DrawStacked(QChart& chart);
  void SetColors(QChart& chart);
  QColor ColorOf(int series) const;
  void FitLabels();
  QFont SmallFont() const;

  ChartData data_;
  bool for_paper_ = false;
};

}  // namespace quorvane::charts
