#include "reporting/output/Booklet.h"

#include "core/platform/PrivateFile.h"
#include "core/text/Tr.h"
#include "reporting/output/PagePainter.h"
#include "reporting/output/PdfFile.h"

#include <QSaveFile>

#include <cairo-pdf.h>
#include <fmt/format.h>

#include <algorithm>
#include <functional>

namespace quorvane::reporting {
namespace {

constexpr PageSize kCoverPage{595.28, 841.89};

/// Where each report is: its first page counted from 1.
struct LaidOutPart {
  PageLayout layout;
  std::size_t first_page = 0;
};

class BookletWriter {
 public:
  BookletWriter(const Booklet& booklet, Progress& progress)
      : booklet_(booklet), progress_(progress) {}

  void Write(QIODevice& out) {
    LayOutParts();
    LayOutContents();
    PdfFile file(out, kCoverPage, booklet_.cover.mid(0, 2));
    progress_.Begin(Tr("ReportOutput", "Writing the pages"), static_cast<std::int64_t>(pages_));
    {
      const Canvas canvas(cairo_create(file.Pages()));
      PaintCover(canvas.get());
      Paint(file, canvas.get(), {contents_, {}}, contents_layout_, 2,
            [&](std::size_t page) { LinkRows(canvas.get(), contents_layout_.pages[page]); });
      for (std::size_t i = 0; i < parts_.size(); ++i) {
        const BookletPart& part = booklet_.parts[i];
        AddToOutline(file, part, parts_[i].first_page);
        Paint(file, canvas.get(), {part.document, part.charts}, parts_[i].layout,
              parts_[i].first_page, [&](std::size_t page) {
                if (page == 0) {
                  MarkPart(canvas.get(), i);
                }
              });
      }
    }
    file.Finish();
  }

 private:
  struct Contents {
    const ReportDocument& document;
    std::span<const charts::ChartData> charts;
  };

  void LayOutParts() {
    std::int64_t rows = 0;
    for (const BookletPart& part : booklet_.parts) {
      rows += RowCount(part.document);
    }
    progress_.Begin(Tr("ReportOutput", "Laying out the pages"), rows);
    for (const BookletPart& part : booklet_.parts) {
      parts_.push_back({LayOut(part.document, typesetter_, progress_, part.charts)});
      progress_.ThrowIfCancelled();
    }
  }

  /// Once to learn how many pages the contents take, and again with the numbers of the pages.
  void LayOutContents() {
    for (int pass = 0; pass < 2; ++pass) {
      pages_ = 1 + contents_layout_.pages.size();
      for (LaidOutPart& part : parts_) {
        part.first_page = pages_ + 1;
        pages_ += part.layout.pages.size();
      }
      FillContents();
      contents_layout_ = LayOut(contents_, typesetter_, progress_);
    }
  }

  void FillContents() {
    Table table;
    table.columns = {TextColumn(QStringLiteral("Part")), TextColumn(QStringLiteral("Of")),
                     NumberColumn(QStringLiteral("Page"))};
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      const BookletPart& part = booklet_.parts[i];
      table.rows.push_back(
          {.cells = {part.heading, part.of_whom, static_cast<double>(parts_[i].first_page)}});
    }
    contents_ = {{QStringLiteral("Contents")}, {std::move(table)}, {}, false};
  }

  static void AddToOutline(const PdfFile& file, const BookletPart& part, std::size_t page) {
    const QString name = part.of_whom.isEmpty()
                             ? part.heading
                             : QStringLiteral("%1: %2").arg(part.heading, part.of_whom);
    cairo_pdf_surface_add_outline(file.Pages(), CAIRO_PDF_OUTLINE_ROOT, name.toUtf8().constData(),
                                  LinkTo(page).c_str(), static_cast<cairo_pdf_outline_flags_t>(0));
  }

  static std::string LinkTo(std::size_t page) { return fmt::format("page={} pos=[0 0]", page); }

  /// The place to which the contents lead. By its name: cairo 1.16 leaves a link to the number of a
  /// later page without its target.
  static void MarkPart(cairo_t* canvas, std::size_t part) {
    cairo_tag_begin(canvas, CAIRO_TAG_DEST, fmt::format("name='part{}' x=0 y=0", part).c_str());
    cairo_tag_end(canvas, CAIRO_TAG_DEST);
  }

  /// A click on a row of the contents leads to its report. Links are parts of the structure of the
  /// file, which cairo writes only for those that are within another part.
  void LinkRows(cairo_t* canvas, const Page& page) const {
    cairo_tag_begin(canvas, "TOC", nullptr);
    for (const Item& item : page) {
      if (item.kind == ItemKind::kRow) {
        LinkRow(canvas, item);
      }
    }
    cairo_tag_end(canvas, "TOC");
  }

  void LinkRow(cairo_t* canvas, const Item& row) const {
    const TableShape& shape = contents_layout_.tables[row.table];
    const double left = shape.lefts.front();
    const double more_lines = (shape.lines[row.row] - 1) * typesetter_.LineHeight();
    const std::string link =
        fmt::format("rect=[{} {} {} {}] dest='part{}'", left, row.top, shape.lefts.back() - left,
                    contents_layout_.row_height + more_lines * contents_layout_.type, row.row);
    cairo_tag_begin(canvas, CAIRO_TAG_LINK, link.c_str());
    cairo_tag_end(canvas, CAIRO_TAG_LINK);
  }

  /// Calls `before` with the number of each page, from 0 on, before it is drawn.
  void Paint(const PdfFile& file, cairo_t* canvas, const Contents& of, const PageLayout& layout,
             std::size_t first_page, const std::function<void(std::size_t page)>& before) {
    file.SetSize(layout.page);
    PagePainter painter(of.document, layout, typesetter_, canvas, of.charts,
                        {.before = first_page - 1, .all = pages_});
    for (std::size_t i = 0; i < layout.pages.size(); ++i) {
      before(i);
      painter.Paint(i);
      progress_.Step(static_cast<std::int64_t>(first_page + i));
      progress_.ThrowIfCancelled();
    }
  }

  void PaintCover(cairo_t* canvas) {
    constexpr double kName = 28;
    constexpr double kLine = 14;
    constexpr double kTop = 230;
    constexpr double kMargin = 60;
    constexpr double kRule = 1.2;
    const double room = kCoverPage.width - 2 * kMargin;
    const auto height = [&](double scale) {
      double sum = 0;
      for (const QString& line : booklet_.cover.mid(1)) {
        sum += TextHeight(typesetter_, line, Face::kRegular, kLine * scale, room) * 1.4;
      }
      return sum;
    };
    const double most = kCoverPage.height - kTop - 150;
    double scale = 1;
    while (height(scale) > most && scale > 0.3) {
      scale -= 0.1;
    }
    double top = kTop;
    cairo_set_source_rgb(canvas, 0, 0, 0);
    typesetter_.Draw(canvas, booklet_.cover.value(0).toStdString(), Face::kBold, kName, kMargin,
                     top, room, Alignment::kCentre);
    top += TextHeight(typesetter_, booklet_.cover.value(0), Face::kBold, kName, room) + 14;
    cairo_set_line_width(canvas, kRule);
    cairo_move_to(canvas, kMargin, top);
    cairo_line_to(canvas, kMargin + room, top);
    cairo_stroke(canvas);
    top += 20;
    for (const QString& line : booklet_.cover.mid(1)) {
      typesetter_.Draw(canvas, line.toStdString(), Face::kRegular, kLine * scale, kMargin, top,
                       room, Alignment::kCentre);
      top += TextHeight(typesetter_, line, Face::kRegular, kLine * scale, room) * 1.4;
    }
    cairo_show_page(canvas);
  }

  const Booklet& booklet_;
  Progress& progress_;
  Typesetter typesetter_;
  std::vector<LaidOutPart> parts_;
  ReportDocument contents_;
  PageLayout contents_layout_;
  std::size_t pages_ = 0;
};

}  // namespace

void WriteBooklet(const Booklet& booklet, QIODevice& out, Progress& progress) {
  BookletWriter(booklet, progress).Write(out);
}

void WriteBooklet(const Booklet& booklet, const QString& path, Progress& progress) {
  QSaveFile file(path);
  platform::OpenPrivate(file);
  WriteBooklet(booklet, file, progress);
  progress.ThrowIfCancelled();
  platform::Commit(file);
}

}  // namespace quorvane::reporting
