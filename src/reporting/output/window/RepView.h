#pragma once

#include "controls/Desk.h"
#include "reporting/document/ReportBuilder.h"

#include <QPointer>
#include <QStatusBar>

class QWidget;

namespace quorvane::reporting {

class PreviewWindow;

/// The report writer: shows reports as pages to look at, print and save. One object serves the
/// whole run of the program. A report is handed over whole (Show), or is written into it block by
/// block (newreport ... ShowReport).
class RepView {
 public:
  explicit RepView(controls::Desk& desk) : desk_(desk) {}

  /// The application's folder; saved files are suggested there.
  void Setapppath(const QString& folder) { folder_ = folder; }

  /// Where the number of the page in sight is told; it may go before this object.
  void StatusBarobj(QStatusBar* bar) { status_bar_ = bar; }

  /// 1 fills the whole area of the main window with the pages, 0 gives them a window in it.
  void winmodereport(int mode) { mode_ = mode; }

  /// 1 turns the pages of the next report on their side, for tables of 130 letters a line; 0 leaves
  /// that to the width of its columns.
  void setcol130(int setting) { wide_ = setting != 0; }

  /// Makes the pages and shows them over the window that asks. Long work shows its progress and
  /// throws Cancellation when the user stops it.
  PreviewWindow* Show(const ReportDocument& document, QWidget* over);

  void newreport();

  /// One character a column; "1" as the second value begins a table with headings of its own.
  void createtable(const QString& columns, const QString& ruled);

  /// A block of lines, as ReportBuilder::Write takes it. `amounts` has a "1" for each column of
  /// amounts; the titles stand once over the report, the last one over the table.
  void WriteToReport(std::span<const QVariant> cells, std::span<const std::int16_t> alignments,
                     std::span<const std::int32_t> widths, const QStringList& headings,
                     const QStringList& groups, bool total, const QString& amounts,
                     const QString& title, const QString& second_title, const QString& table_title);

  PreviewWindow* ShowReport(QWidget* over) { return Show(builder_.Document(), over); }

 private:
  controls::Desk& desk_;
  QString folder_;
  QPointer<QStatusBar> status_bar_;
  int mode_ = 0;
  bool wide_ = false;
  ReportBuilder builder_;
};

}  // namespace quorvane::reporting
