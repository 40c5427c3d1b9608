#include "core/text/Tr.h"
#include "reporting/output/PagePainter.h"
#include "reporting/output/PdfFile.h"
#include "reporting/output/WriteReport.h"

namespace quorvane::reporting {

void WritePdf(const ReportDocument& document, QIODevice& out, Progress& progress) {
  Typesetter typesetter;
  progress.Begin(Tr("ReportOutput", "Laying out the pages"), RowCount(document));
  const PageLayout layout = LayOut(document, typesetter, progress);
  PdfFile file(out, layout.page, document.titles);
  {
    const Canvas canvas(cairo_create(file.Pages()));
    PagePainter painter(document, layout, typesetter, canvas.get());
    progress.Begin(Tr("ReportOutput", "Writing the pages"),
                   static_cast<std::int64_t>(layout.pages.size()));
    for (std::size_t i = 0; i < layout.pages.size(); ++i) {
      painter.Paint(i);
      progress.Step(static_cast<std::int64_t>(i));
      progress.ThrowIfCancelled();
    }
  }
  file.Finish();
}

}  // namespace quorvane::reporting
