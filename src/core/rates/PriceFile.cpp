#include "core/rates/PriceFile.h"

#include "core/files/TableFile.h"
#include "core/rates/PriceRows.h"

#include <QCoreApplication>

namespace quorvane::rates {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("Rates", text);
}

Refusal Invalid(const QString& why) {
  return {Tr("Invalid File.") + QLatin1Char('\n') + why, {}};
}

Refusal Invalid(const std::vector<std::string>& errors) {
  constexpr std::size_t kShown = 10;
  QStringList lines;
  for (std::size_t i = 0; i < std::min(kShown, errors.size()); ++i) {
    lines << QString::fromStdString(errors[i]);
  }
  if (errors.size() > kShown) {
    lines << Tr("... and %1 more.").arg(static_cast<qulonglong>(errors.size() - kShown));
  }
  return Invalid(lines.join(QLatin1Char('\n')));
}

}  // namespace

MaybeRefusal ReadPriceTable(const files::TextTable& table, PriceFile& file) {
  const auto layout = table.rows.empty() ? std::nullopt : LayoutOf(table.rows.front());
  if (!layout) {
    return Invalid(ExpectedHeadings());
  }
  PriceRows rows(*layout);
  for (std::size_t row = 1; row < table.rows.size(); ++row) {
    rows.Add(table.rows[row]);
  }
  std::vector<std::string> errors;
  file = rows.Take(errors);
  if (!errors.empty()) {
    return Invalid(errors);
  }
  return file.rows.empty() ? MaybeRefusal(Invalid(Tr("The file holds no scrip."))) : std::nullopt;
}

MaybeRefusal ReadPriceFile(const QString& path, PriceFile& file) {
  if (!files::HasTableEnding(path)) {
    return Invalid(Tr("Expected is a .csv, .xls, .xlsx, .ods or .zip file."));
  }
  try {
    return ReadPriceTable(files::ReadTableFile(path), file);
  } catch (const files::TableError& error) {
    return Invalid(QString::fromUtf8(error.what()));
  }
}

MaybeRefusal CheckPrices(const PriceFile& file, text::Date date) {
  if (!file.has_rates) {
    return Invalid(Tr("The file holds no rates."));
  }
  if (file.date && *file.date != date) {
    return Refusal{Tr("The file holds the prices of %1, not of %2.")
                       .arg(text::FormatDmy(*file.date), text::FormatDmy(date)),
                   {}};
  }
  return std::nullopt;
}

}  // namespace quorvane::rates
