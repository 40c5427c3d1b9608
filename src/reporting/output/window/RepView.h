#pragma once

#include "controls/Desk.h"
#include "reporting/document/ReportDocument.h"

#include <QPointer>
#include <QStatusBar>

#include <span>

class QWidget;

namespace quorvane::reporting {

class PreviewWindow;

/// The report writer: takes a report block by block and shows it as pages to look at, print and
/// save. One object serves the whole run of the program. The order is newreport, then for each
/// table createtable and WriteToReport as often as needed, then ShowReport. Report windows do not
/// hold it: what they give to ReportDesk::show_report comes here by HandOver.
class RepView {
 public:
  explicit RepView(controls::Desk& desk) : desk_(desk) {}

  /// The application's folder; saved files are suggested there.
  void Setapppath(const QString& folder) { folder_ = folder; }

  /// Where the number of the page in sight is told; it may be destroyed before this object.
  void StatusBarobj(QStatusBar* bar) { status_bar_ = bar; }

  /// 1 fills the whole area of the main window with the pages, 0 gives them a window in it.
  void winmodereport(int mode) { mode_ = mode; }

  /// 1 makes the pages of the next report landscape where its columns need the width, as for 130
  /// letters a line; 0 keeps them portrait.
  void setcol130(int setting) { may_lie_ = setting != 0; }

  /// Starts an empty report.
  void newreport();

  /// Opens a table with a column for each character of `columns`. "1" as the second value begins a
  /// table with headings of its own, "0" continues the one before when that has as many columns. A
  /// table without columns is the place below the report: its titles are the report's notes.
  void createtable(const QString& columns, const QString& ruled);

  /// Adds lines of one kind to the table that was opened last. `cells` holds them one after the
  /// other, each as wide as the table. `alignments` (0 left, 1 right, 2 centre), `widths` (shares
  /// of the room that is left over), `headings` and `groups` (one a column; equal neighbours share
  /// one heading) are set when they are not empty, and so are the columns' masks: a character each,
  /// "1" for amounts and "0" for texts (all of them at MaskLetter). Titles are above the report,
  /// each once, the last one above the table; empty ones are left out. A block without lines only
  /// sets titles or columns; titles of the report may come before its first table. Throws
  /// std::invalid_argument when lines come before a table or the last line is not whole.
  void WriteToReport(std::span<const Cell> cells, std::span<const std::int16_t> alignments,
                     std::span<const std::int32_t> widths, const QStringList& headings,
                     const QStringList& groups, RowKind kind, const QString& masks,
                     const QString& title, const QString& second_title, const QString& table_title);

  /// Makes the pages and shows them over the window that asks. Long work shows its progress and
  /// throws Cancellation when the user stops it. The report is finished then.
  PreviewWindow* ShowReport(QWidget* over);

  /// Shows pages that are made already, a whole PDF.
  PreviewWindow* Open(const QStringList& titles, QByteArray pages, QWidget* over);

 private:
  void WriteBesideTables(std::span<const Cell> cells, const QString& note);
  QByteArray TakePages(QWidget* over);

  controls::Desk& desk_;
  QString folder_;
  QPointer<QStatusBar> status_bar_;
  int mode_ = 0;
  bool may_lie_ = false;
  bool below_ = false;  ///< the table without columns is open
  ReportDocument document_;
};

/// The character for a mask in WriteToReport.
QChar MaskLetter(Mask mask);

/// Gives a finished report to the writer and shows it. The pages are those of the document's other
/// outputs.
PreviewWindow* HandOver(const ReportDocument& document, RepView& writer, QWidget* over);

}  // namespace quorvane::reporting
