#include "reporting/output/window/RepView.h"

#include "controls/ProgressDialog.h"
#include "reporting/output/PdfWriter.h"
#include "reporting/output/WriteReport.h"
#include "reporting/output/window/PreviewWindow.h"

#include <QBuffer>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace quorvane::reporting {
namespace {

constexpr int kMessageMs = 3000;
const QString kPdf = QStringLiteral(".pdf");

QMdiArea* AreaAround(QWidget* widget) {
  while (widget != nullptr) {
    if (auto* area = qobject_cast<QMdiArea*>(widget)) {
      return area;
    }
    widget = widget->parentWidget();
  }
  return nullptr;
}

QByteArray PagesOf(const ReportDocument& document, QWidget* over) {
  controls::ProgressDialog progress(over);
  QByteArray pdf;
  QBuffer buffer(&pdf);
  buffer.open(QIODevice::WriteOnly);
  WritePdf(document, buffer, progress);
  return pdf;
}

}  // namespace

PreviewWindow* RepView::Show(const ReportDocument& document, QWidget* over) {
  auto* preview = new PreviewWindow(desk_, document.titles.value(0), PagesOf(document, over),
                                    QDir(folder_).filePath(FileStem(document.titles) + kPdf));
  const auto tell_page = [this](int page, int pages) {
    if (status_bar_ != nullptr) {
      status_bar_->showMessage(PreviewWindow::tr("Page %1 of %2").arg(page).arg(pages), kMessageMs);
    }
  };
  QObject::connect(preview, &PreviewWindow::PageShown, preview, tell_page);
  tell_page(1, preview->PageCount());
  if (QMdiArea* area = AreaAround(over)) {
    preview->OpenIn(*area);
    if (mode_ == 1) {
      preview->parentWidget()->showMaximized();
    }
  } else {
    preview->OpenModal(over);
  }
  return preview;
}

void RepView::newreport() {
  builder_.NewReport(wide_ ? Orientation::kLandscape : Orientation::kByWidth);
}

void RepView::createtable(const QString& columns, const QString& ruled) {
  builder_.CreateTable(columns, ruled == QLatin1String("1"));
}

void RepView::WriteToReport(std::span<const QVariant> cells,
                            std::span<const std::int16_t> alignments,
                            std::span<const std::int32_t> widths, const QStringList& headings,
                            const QStringList& groups, bool total, const QString& amounts,
                            const QString& title, const QString& second_title,
                            const QString& table_title) {
  builder_.Write(cells, alignments, widths, headings, groups, total, amounts);
  builder_.AddTitle(title);
  builder_.AddTitle(second_title);
  builder_.AddTableTitle(table_title);
}

}  // namespace quorvane::reporting
