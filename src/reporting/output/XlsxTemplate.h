#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/app/Folders.h"
#include "reporting/document/ReportDocument.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace quorvane::reporting {

/// A line to be written into a template: the pattern row by which it is written, and the values of
/// the cells named after the pattern. `cells[0]` goes into "Fld1" for the pattern "Fld".
struct TemplateLine {
  QString pattern;
  std::vector<Cell> cells;
};

/// A workbook that users design and the program fills in. Only the names of cells matter: cells may
/// be moved, restyled and merged, sheets renamed, columns, pictures and formulas added.
///
///     XlsxTemplate book(path);
///     book.Set("Period", QString("From 01/04/2011 To 31/03/2012"));
///     book.Repeat({"Fld", "Tot"}, {{"Fld", {1.0, QString("TATA STEEL")}}, {"Tot",
///     {Cell(), 1.0}}}); book.Save(target, progress);
///
/// Spreadsheet programs take "Fld1" for the place of a cell and want "_Fld1"; here both mean the
/// same. Values take the style of the cell that they are in; numbers are numbers, and dates too
/// where the style is one for dates. Every failure is a std::runtime_error that names the template.
class XlsxTemplate {
 public:
  /// Throws when there is no such file or it is no workbook.
  explicit XlsxTemplate(const QString& path);
  ~XlsxTemplate();
  XlsxTemplate(XlsxTemplate&&) noexcept;

  /// Writes into the named cell, found without regard to capitals. Throws when no cell has the
  /// name.
  void Set(const QString& name, const Cell& value);

  /// Writes the lines into the rows of the patterns: the rows from the first to the last pattern
  /// row are replaced by one row a line, each in the height, the styles and the merged cells of its
  /// pattern; what is below moves, with names, areas, pictures and formulas. A pattern that the
  /// template does not have is written as the first one, which it must have. A value whose cell has
  /// no name is an error, an empty one is not. Once a sheet.
  void Repeat(const QStringList& patterns, const std::vector<TemplateLine>& lines,
              Progress& progress);

  /// Takes the sheet of a named cell out of the workbook; the last sheet stays.
  void RemoveSheetOf(const QString& name);

  /// Writes the workbook, whole or not at all.
  void Save(const QString& path) const;

 private:
  class Book;

  std::unique_ptr<Book> book_;
};

/// A template of the program's workbooks by its file name ("ProfitGainRpt.xlsx"): in the folder
/// that the settings name (Confg.ini, section "Paths", key "Reports"), else in the folder of
/// shipped files.
QString TemplatePath(const app::Folders& folders, const QString& file_name);

/// A refusal that tells where the template was looked for when it is not there.
MaybeRefusal RefuseWithoutTemplate(const QString& path);

}  // namespace quorvane::reporting
