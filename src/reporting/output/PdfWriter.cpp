#include "core/text/Tr.h"
#include "reporting/output/PagePainter.h"
#include "reporting/output/WriteReport.h"

#include <cairo-pdf.h>

#include <stdexcept>

namespace quorvane::reporting {
namespace {

/// Where cairo's bytes go. An exception must not cross cairo, so that a failure is remembered.
struct Sink {
  QIODevice& out;
  bool failed = false;

  static cairo_status_t Write(void* self, const unsigned char* data, unsigned int length) {
    auto* sink = static_cast<Sink*>(self);
    const auto written = sink->out.write(reinterpret_cast<const char*>(data), length);
    sink->failed = sink->failed || written != static_cast<qint64>(length);
    return sink->failed ? CAIRO_STATUS_WRITE_ERROR : CAIRO_STATUS_SUCCESS;
  }
};

void CheckSink(const Sink& sink, cairo_surface_t* surface) {
  const cairo_status_t status = cairo_surface_status(surface);
  if (sink.failed) {
    throw std::runtime_error("the pages cannot be written: " +
                             sink.out.errorString().toStdString());
  }
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(std::string("the pages cannot be written: ") +
                             cairo_status_to_string(status));
  }
}

void PaintPages(const ReportDocument& document, const PageLayout& layout, Typesetter& typesetter,
                cairo_surface_t* surface, Progress& progress) {
  const Canvas canvas(cairo_create(surface));
  PagePainter painter(document, layout, typesetter, canvas.get());
  progress.Begin(Tr("ReportOutput", "Writing the pages"),
                 static_cast<std::int64_t>(layout.pages.size()));
  for (std::size_t i = 0; i < layout.pages.size(); ++i) {
    painter.Paint(i);
    progress.Step(static_cast<std::int64_t>(i));
    progress.ThrowIfCancelled();
  }
}

}  // namespace

void WritePdf(const ReportDocument& document, QIODevice& out, Progress& progress) {
  Typesetter typesetter;
  progress.Begin(Tr("ReportOutput", "Laying out the pages"), RowCount(document));
  const PageLayout layout = LayOut(document, typesetter, progress);
  Sink sink{out};
  const Surface surface(cairo_pdf_surface_create_for_stream(Sink::Write, &sink, layout.page.width,
                                                            layout.page.height));
  if (!document.titles.isEmpty()) {
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE,
                                   document.titles.join(QStringLiteral(", ")).toUtf8().constData());
  }
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATOR, "Quorvane");
  PaintPages(document, layout, typesetter, surface.get(), progress);
  cairo_surface_finish(surface.get());
  CheckSink(sink, surface.get());
}

}  // namespace quorvane::reporting
