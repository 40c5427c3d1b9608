#pragma once

#include "controls/Messages.h"
#include "core/Progress.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/output/WriteReport.h"
#include "reporting/window/ReportDesk.h"

#include <QMenu>

#include <optional>

namespace quorvane::reporting {

/// The outputs of a report window: the pop-up menu `mnuReport` with pages, Word, Excel, PDF and
/// CSV, and what its items do.
class ReportOutputs : public QObject {
  Q_OBJECT

 public:
  /// What the outputs ask of their window.
  class Source {
   public:
    virtual ~Source() = default;

    /// The report, checked and built; nullopt when that ended with a message. Without a format it
    /// is for pages.
    virtual std::optional<ReportDocument> MakeOutput(std::optional<OutputFormat> format) = 0;

    /// Name of a written file without its extension.
    virtual QString FileName(const ReportDocument& document) const = 0;

    /// Writes the workbook, or the document for a word processor with all that belongs to it.
    virtual void WriteWorkbook(const ReportDocument& document, const QString& path,
                               Progress& progress) = 0;
    virtual void WriteWord(const ReportDocument& document) = 0;
  };

  /// The menu's shortcuts hold in `window`, over which progress and questions are shown, too.
  ReportOutputs(ReportDesk& desk, const controls::Guard& guard, Source& source, QWidget* window);

  QMenu& Menu() { return *mnuReport; }

  /// Writes into the folder of reports and opens the file with the desktop's own program.
  void WriteAndOpen(const ReportDocument& document, OutputFormat format);

  /// Opens a written file with the desktop's own program, or tells where it is.
  void Open(const QString& path);

  void mnupreview_Click();
  void mnuword_Click();
  void mnuexcel_Click();
  void mnupdf_Click();
  void mnucsv_Click();

 private:
  QAction* AddItem(const controls::Guard& guard, const char* name, const QString& caption,
                   void (ReportOutputs::*handler)());
  void Write(const ReportDocument& document, OutputFormat format, const QString& path);
  void WriteWhereAsked(OutputFormat format);

  ReportDesk& desk_;
  Source& source_;
  QWidget* window_;
  QMenu* mnuReport;
};

}  // namespace quorvane::reporting
