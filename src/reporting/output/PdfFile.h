#pragma once

#include "reporting/output/PageLayout.h"
#include "reporting/output/Typesetter.h"

#include <QIODevice>
#include <QStringList>

namespace quorvane::reporting {

/// A PDF that is drawn page by page into a device.
class PdfFile {
 public:
  /// `titles` name the file where programs list it. `out` outlives this object.
  PdfFile(QIODevice& out, PageSize page, const QStringList& titles);
  PdfFile(const PdfFile&) = delete;

  cairo_surface_t* Pages() const { return surface_.get(); }

  /// The size of the pages from the next one on.
  void SetSize(PageSize page) const;

  /// Writes the rest. Throws std::runtime_error when anything could not be written.
  void Finish();

 private:
  static cairo_status_t Write(void* self, const unsigned char* data, unsigned int length);

  QIODevice& out_;
  bool failed_ = false;
  reporting::Surface surface_;
};

}  // namespace quorvane::reporting
