#include "reporting/output/PdfFile.h"

#include <cairo-pdf.h>

#include <stdexcept>

namespace quorvane::reporting {

PdfFile::PdfFile(QIODevice& out, PageSize page, const QStringList& titles)
    : out_(out),
      surface_(cairo_pdf_surface_create_for_stream(Write, this, page.width, page.height)) {
  if (!titles.isEmpty()) {
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE,
                                   titles.join(QStringLiteral(", ")).toUtf8().constData());
  }
  cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "Quorvane");
}

// An exception must not cross cairo, so that a failure is remembered.
cairo_status_t PdfFile::Write(void* self, const unsigned char* data, unsigned int length) {
  auto* file = static_cast<PdfFile*>(self);
  const auto written = file->out_.write(reinterpret_cast<const char*>(data), length);
  file->failed_ = file->failed_ || written != static_cast<qint64>(length);
  return file->failed_ ? CAIRO_STATUS_WRITE_ERROR : CAIRO_STATUS_SUCCESS;
}

void PdfFile::SetSize(PageSize page) const {
  cairo_pdf_surface_set_size(surface_.get(), page.width, page.height);
}

void PdfFile::Finish() {
  cairo_surface_finish(surface_.get());
  const cairo_status_t status = cairo_surface_status(surface_.get());
  if (failed_) {
    throw std::runtime_error("the pages cannot be written: " + out_.errorString().toStdString());
  }
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(std::string("the pages cannot be written: ") +
                             cairo_status_to_string(status));
  }
}

}  // namespace quorvane::reporting
