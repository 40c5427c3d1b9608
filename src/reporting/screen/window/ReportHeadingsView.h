#pragma once

#include "reporting/document/ReportDocument.h"

#include <QHeaderView>

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

}  // namespace quorvane::reporting
