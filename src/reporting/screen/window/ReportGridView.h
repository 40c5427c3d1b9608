#pragma once

#include "reporting/document/ReportDocument.h"
#include "reporting/screen/ReportModel.h"

#include <QHeaderView>
#include <QTableView>

#include <vector>

namespace quorvane::reporting {

/// Headings of a report's columns with, above them, the headings of groups of columns.
class ReportHeadingsView : public QHeaderView {
  Q_OBJECT

 public:
  explicit ReportHeadingsView(QWidget* parent = nullptr);

  void SetGroups(std::vector<ColumnGroup> groups);

  QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& area, int section) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int LineHeight() const;
  QRect GroupArea(int first, int count) const;

  std::vector<ColumnGroup> groups_;
};

/// A report on the screen: group headings over the whole width, totals bold, numbers right, the
/// headings of groups of columns above the columns. Ctrl+C copies the chosen rows as tab-separated
/// text, Ctrl+A chooses all.
class ReportGridView : public QTableView {
  Q_OBJECT

 public:
  /// `name` is the control's name ("VS"), `purpose` what a screen reader calls it.
  ReportGridView(const QString& name, const QString& purpose, QWidget* parent = nullptr);

  void SetDocument(ReportDocument document);
  const ReportModel& Model() const { return *model_; }

  /// What is shown while there is no report.
  void SetHint(const QString& hint);

  /// The chosen rows with their cells separated by tabs.
  QString SelectedText() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void SpanGroups();
  void MeasureColumns();
  void FitColumns();
  int WidthOf(int column) const;
  bool IsText(int column) const;

  ReportModel* model_;
  QString hint_;
  std::vector<int> widths_;  ///< that the columns need
};

}  // namespace quorvane::reporting
