#include "core/rates/PriceFile.h"

#include "core/files/TableFile.h"
#include "core/rates/PriceRows.h"
#include "core/text/Tr.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace quorvane::rates {
namespace {

Refusal Invalid(const QString& why) {
  return {Tr("Rates", "Invalid File.") + QLatin1Char('\n') + why, {}};
}

Refusal Invalid(const std::vector<std::string>& errors) {
  constexpr std::size_t kShown = 10;
  QStringList lines;
  for (std::size_t i = 0; i < std::min(kShown, errors.size()); ++i) {
    lines << QString::fromStdString(errors[i]);
  }
  if (errors.size() > kShown) {
    lines << Tr("Rates", "... and %1 more.").arg(static_cast<qulonglong>(errors.size() - kShown));
  }
  return Invalid(lines.join(QLatin1Char('\n')));
}

/// The day in a name that the Bombay exchange gave: "EQ310118.CSV", "EQ_ISINCODE_310118.CSV" or
/// "BSE_EQ_BHAVCOPY_31012018.CSV".
std::optional<text::Date> DayInName(const QString& path) {
  static const QRegularExpression kName(
      QStringLiteral("^(?:EQ(?:_ISINCODE_)?(\\d\\d)(\\d\\d)(\\d\\d)|"
                     "BSE_EQ_BHAVCOPY_(\\d\\d)(\\d\\d)(\\d{4}))(?!\\d)"),
      QRegularExpression::CaseInsensitiveOption);
  const auto match = kName.match(QFileInfo(path).fileName());
  if (!match.hasMatch()) {
    return std::nullopt;
  }
  const bool is_long = match.hasCaptured(4);
  const int first = is_long ? 4 : 1;
  const auto number = [&](int part) { return match.capturedView(first + part).toInt(); };
  constexpr int kFirstOldYear = 90;  // of the two-digit years that belong to the last century
  const int year = number(2);
  const int century = is_long ? 0 : year < kFirstOldYear ? 2000 : 1900;
  return text::MakeDate(number(0), number(1), century + year);
}

}  // namespace

Result<PriceFile> ReadPriceTable(const files::TextTable& table) {
  const auto layout = table.rows.empty() ? std::nullopt : LayoutOf(table.rows.front());
  if (!layout) {
    return Invalid(ExpectedHeadings());
  }
  PriceRows rows(*layout);
  for (std::size_t row = 1; row < table.rows.size(); ++row) {
    rows.Add(table.rows[row]);
  }
  std::vector<std::string> errors;
  PriceFile file = rows.Take(errors);
  if (!errors.empty()) {
    return Invalid(errors);
  }
  if (file.rows.empty()) {
    return Invalid(Tr("Rates", "The file holds no scrip."));
  }
  return file;
}

Result<PriceFile> ReadPriceFile(const QString& path) {
  if (!files::HasTableEnding(path)) {
    return Invalid(Tr("Rates", "Expected is a .csv, .xls, .xlsx, .ods or .zip file."));
  }
  try {
    const files::TextTable table = files::ReadTableFile(path);
    Result<PriceFile> file = ReadPriceTable(table);
    if (file && !file->date && file->exchange == Exchange::kBse) {
      const auto inner = DayInName(QString::fromStdString(table.name));
      file->date = inner ? inner : DayInName(path);
    }
    return file;
  } catch (const files::TableError& error) {
    return Invalid(QString::fromUtf8(error.what()));
  }
}

namespace {

MaybeRefusal CheckDay(const PriceFile& file, text::Date date) {
  if (file.date && *file.date != date) {
    return Refusal{Tr("Rates", "The file holds the prices of %1, not of %2.")
                       .arg(text::FormatDmy(*file.date), text::FormatDmy(date)),
                   {}};
  }
  return std::nullopt;
}

}  // namespace

MaybeRefusal CheckPrices(const PriceFile& file, text::Date date) {
  return file.has_rates ? CheckDay(file, date) : Invalid(Tr("Rates", "The file holds no rates."));
}

MaybeRefusal CheckHighestPrices(const PriceFile& file, text::Date date) {
  return file.has_highs ? CheckDay(file, date)
                        : Invalid(Tr("Rates", "The file holds no highest prices of a day."));
}

}  // namespace quorvane::rates
