#include "core/tax/Levies.h"

#include "core/files/TableFile.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <QFileInfo>

namespace quorvane::tax {
namespace {

enum Cell { kKind, kFrom, kPercent, kCells };

[[noreturn]] void FailAt(const QString& path, std::size_t line) {
  throw files::TableError(Tr("Tax", "Line %1 of %2 is no dated rate.")
                              .arg(static_cast<qulonglong>(line))
                              .arg(QFileInfo(path).fileName())
                              .toStdString());
}

Levy LevyOf(const QString& path, const files::TextRow& row) {
  if (row.cells.size() < kCells || row.cells[kKind].empty()) {
    FailAt(path, row.line);
  }
  const auto from = text::ParseDmy(row.cells[kFrom]);
  const auto percent = text::ParseNumber(row.cells[kPercent]);
  if (!from || !percent || *percent < 0) {
    FailAt(path, row.line);
  }
  return {QString::fromStdString(row.cells[kKind]), *from, *percent};
}

}  // namespace

std::vector<Levy> ReadLevies(const QString& path) {
  const files::TextTable table = files::ReadTableFile(path);
  std::vector<Levy> levies;
  for (std::size_t row = 1; row < table.rows.size(); ++row) {
    levies.push_back(LevyOf(path, table.rows[row]));
  }
  return levies;
}

std::optional<double> PercentOn(const std::vector<Levy>& levies, QLatin1String kind,
                                text::Date day) {
  const Levy* found = nullptr;
  for (const Levy& levy : levies) {
    if (levy.kind == kind && levy.from <= day && (found == nullptr || found->from <= levy.from)) {
      found = &levy;
    }
  }
  return found == nullptr ? std::nullopt : std::optional(found->percent);
}

}  // namespace quorvane::tax
