#pragma once

#include "core/Progress.h"
#include "reporting/charts/ChartData.h"
#include "reporting/document/ReportDocument.h"

#include <QIODevice>
#include <QString>
#include <QStringList>

#include <vector>

namespace quorvane::reporting {

/// A report within a booklet, as the table of contents names it, with pictures below its titles.
struct BookletPart {
  QString heading;
  QString of_whom;
  ReportDocument document;
  std::vector<charts::ChartData> charts = {};
};

/// Several reports that are one file: a cover, a table of contents and the reports.
struct Booklet {
  QStringList cover;  ///< its lines; the first one is the booklet's name
  std::vector<BookletPart> parts;
};

/// Writes the booklet as a PDF. Each report begins on a page of its own, upright or lying as it
/// needs; the pages are numbered through the whole. The rows of the contents and the outline
/// that readers show beside the pages lead to the reports. Throws std::runtime_error or
/// Cancellation.
void WriteBooklet(const Booklet& booklet, QIODevice& out, Progress& progress);

/// The same into a file, whole or not at all, as WriteReport does.
void WriteBooklet(const Booklet& booklet, const QString& path, Progress& progress);

}  // namespace quorvane::reporting
