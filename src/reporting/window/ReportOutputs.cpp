#include "reporting/window/ReportOutputs.h"

#include "controls/ProgressDialog.h"
#include "core/platform/PrivateFile.h"
#include "reporting/output/WriteReport.h"

#include <QDir>

namespace quorvane::reporting {

ReportOutputs::ReportOutputs(ReportDesk& desk, const controls::Guard& guard, Source& source,
                             QWidget* window)
    : QObject(window), desk_(desk), source_(source), window_(window), mnuReport(new QMenu(window)) {
  mnuReport->setObjectName(QStringLiteral("mnuReport"));
  AddItem(guard, "mnupreview", tr("&Preview and Print"), &ReportOutputs::mnupreview_Click)
      ->setShortcut(QKeySequence::Print);
  AddItem(guard, "mnuword", tr("&Word"), &ReportOutputs::mnuword_Click);
  AddItem(guard, "mnuexcel", tr("&Excel"), &ReportOutputs::mnuexcel_Click);
  AddItem(guard, "mnupdf", tr("P&DF"), &ReportOutputs::mnupdf_Click);
  AddItem(guard, "mnucsv", tr("&CSV"), &ReportOutputs::mnucsv_Click);
}

QAction* ReportOutputs::AddItem(const controls::Guard& guard, const char* name,
                                const QString& caption, void (ReportOutputs::*handler)()) {
  QAction* action = mnuReport->addAction(caption);
  action->setObjectName(QLatin1String(name));
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  window_->addAction(action);
  guard.Connect(action, &QAction::triggered, this, handler,
                QLatin1String(name) + QStringLiteral("_Click"));
  return action;
}

void ReportOutputs::mnupreview_Click() {
  if (const auto document = source_.MakeOutput(std::nullopt)) {
    desk_.show_report(*document, window_);
  }
}

void ReportOutputs::mnuword_Click() {
  if (const auto document = source_.MakeOutput(OutputFormat::kRtf)) {
    source_.WriteWord(*document);
  }
}

void ReportOutputs::mnuexcel_Click() {
  if (const auto document = source_.MakeOutput(OutputFormat::kXlsx)) {
    WriteAndOpen(*document, OutputFormat::kXlsx);
  }
}

void ReportOutputs::mnupdf_Click() {
  WriteWhereAsked(OutputFormat::kPdf);
}

void ReportOutputs::mnucsv_Click() {
  WriteWhereAsked(OutputFormat::kCsv);
}

void ReportOutputs::Write(const ReportDocument& document, OutputFormat format,
                          const QString& path) {
  controls::ProgressDialog progress(window_);
  if (format == OutputFormat::kXlsx) {
    source_.WriteWorkbook(document, path, progress);
  } else {
    WriteReport(document, format, path, progress);
  }
}

void ReportOutputs::WriteAndOpen(const ReportDocument& document, OutputFormat format) {
  const QDir folder(desk_.session.folders.application + QStringLiteral("/Reports"));
  platform::MakeOutputFolder(folder.path());
  const QString path = folder.filePath(source_.FileName(document) + ExtensionOf(format));
  Write(document, format, path);
  Open(path);
}

void ReportOutputs::Open(const QString& path) {
  if (!desk_.open_file(path)) {
    desk_.messages.Inform(
        tr("The report lies in %1. No program that opens it was found.").arg(path));
  }
}

void ReportOutputs::WriteWhereAsked(OutputFormat format) {
  const auto document = source_.MakeOutput(format);
  if (!document) {
    return;
  }
  const QString suggested =
      QDir::home().filePath(source_.FileName(*document) + ExtensionOf(format));
  const QString path = desk_.ask_save_path(window_, suggested);
  if (!path.isEmpty()) {
    Write(*document, format, path);
    desk_.messages.Inform(tr("Saved as %1.").arg(path));
  }
}

}  // namespace quorvane::reporting
