#pragma once

#include "controls/ListHeader.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/screen/ReportModel.h"

#include <QTableView>

#include <vector>

namespace quorvane::reporting {

/// Headings of a report's columns with, above them, the headings of groups of columns.
class ReportHeadingsView : public controls::ListHeader {
  Q_OBJECT

 public:
  explicit ReportHeadingsView(QTableView& list);

  /// Columns under a common heading stay beside each other: they cannot be moved.
  void SetGroups(std::vector<ColumnGroup> groups);

 protected:
  int HeadingHeight() const override;
  void paintSection(QPainter* painter, const QRect& area, int section) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int LineHeight() const;
  QRect GroupArea(int first, int count) const;

  std::vector<ColumnGroup> groups_;
};

/// A report on the screen: group headings over the whole width, totals bold, numbers right, the
/// headings of groups of columns above the columns. Its lines are filtered and sorted on the screen
/// alone: pages and files have the whole report. Ctrl+C copies the chosen rows as tab-separated
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
  ReportHeadingsView& Headings() const;
  void RowsChanged();
  void ShowOrder();
  void SortWanted(int column, Qt::SortOrder direction);
  void HeadingClicked(int column);
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
