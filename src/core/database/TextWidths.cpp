#include "core/database/TextWidths.h"

#include "core/database/SchemaTables.h"
#include "core/text/Tr.h"

#include <QRegularExpression>

#include <stdexcept>

namespace quorvane::database {
namespace {

QString TextOf(std::string_view ascii) {
  return QString::fromLatin1(ascii.data(), static_cast<qsizetype>(ascii.size()));
}

bool SameName(std::string_view a, std::string_view b) {
  return TextOf(a).compare(TextOf(b), Qt::CaseInsensitive) == 0;
}

/// Everything that the schema says about a table's columns, those of later releases included.
QString ColumnsOf(std::string_view table) {
  QString columns;
  for (const TableDefinition& definition : Tables()) {
    if (SameName(definition.name, table)) {
      columns += TextOf(definition.columns);
    }
  }
  for (const auto& steps : {UpgradeSteps(), ExtensionSteps()}) {
    for (const UpgradeStep& step : steps) {
      if (SameName(step.table, table)) {
        columns += QStringLiteral(", ") + TextOf(step.statement);
      }
    }
  }
  return columns;
}

std::size_t CharactersIn(const QString& text) {
  return static_cast<std::size_t>(text.toUcs4().size());
}

Refusal TooLong(const TextCell& cell, std::size_t width) {
  const QString text = Tr("Masters", "%1 is too Long. At Most %2 Characters are Allowed.");
  return {text.arg(Tr("Masters", cell.label)).arg(width), cell.field};
}

}  // namespace

std::optional<std::size_t> TextWidth(std::string_view table, std::string_view column) {
  static const QString kPattern = QStringLiteral("\\b%1\\s+(varchar\\((\\d+)\\)|longtext)");
  const QRegularExpression pattern(kPattern.arg(TextOf(column)),
                                   QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch match = pattern.match(ColumnsOf(table));
  if (!match.hasMatch()) {
    throw std::logic_error(std::string(table) + " has no text column " + std::string(column));
  }
  return match.captured(2).isEmpty() ? std::nullopt
                                     : std::optional<std::size_t>(match.captured(2).toULong());
}

MaybeRefusal CheckTextWidths(std::string_view table, std::span<const TextCell> cells) {
  for (const TextCell& cell : cells) {
    const std::optional<std::size_t> width = TextWidth(table, cell.column);
    if (width && CharactersIn(cell.text) > *width) {
      return TooLong(cell, *width);
    }
  }
  return std::nullopt;
}

}  // namespace quorvane::database
