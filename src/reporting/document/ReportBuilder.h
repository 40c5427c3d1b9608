#pragma once

#include "reporting/document/ReportDocument.h"

#include <QVariant>

#include <cstdint>
#include <span>

namespace quorvane::reporting {

/// Builds a report out of blocks of lines, table by table.
class ReportBuilder {
 public:
  void NewReport(Orientation orientation);

  /// Opens a table with a column for each character of `columns`; with `ruled` false it continues
  /// the table before it when that has as many columns.
  void CreateTable(const QString& columns, bool ruled);

  /// Adds lines to the table. `cells` holds them one after the other, each as wide as the table: a
  /// number, a text, or "dd/mm/yyyy". `alignments` (0 left, 1 right, 2 centre), `widths` (shares
  /// of the room that is left over), `headings` and `groups` (one a column; equal neighbours stand
  /// over both) are set when they are not empty. A "1" in `amounts` gives the column the mask of
  /// amounts. Throws std::invalid_argument when no table is open or the last line is not whole.
  void Write(std::span<const QVariant> cells, std::span<const std::int16_t> alignments,
             std::span<const std::int32_t> widths, const QStringList& headings,
             const QStringList& groups, bool total, const QString& amounts);

  /// Lines over everything, each once.
  void AddTitle(const QString& title);
  void AddTableTitle(const QString& title);

  const ReportDocument& Document() const { return document_; }

 private:
  Table& Current();

  ReportDocument document_;
};

}  // namespace quorvane::reporting
