#include "bench/Measure.h"
#include "bench/Works.h"
#include "reporting/output/WriteReport.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <fmt/format.h>

namespace quorvane::bench {
namespace {

constexpr int kPages = 2000;
constexpr int kRowsAPage = 33;
constexpr int kScripEvery = 12;
constexpr double kBound = 10;  // seconds

/// Every cell another number, as in a long detailed statement.
reporting::ReportDocument LongStatement() {
  using reporting::AmountColumn;
  using reporting::RowKind;
  reporting::ReportDocument document;
  document.titles = {QStringLiteral("Capital Gain Statement"),
                     QStringLiteral("Financial Year - 2011-12")};
  reporting::Table& table = document.tables.emplace_back();
  for (int side = 0; side < 2; ++side) {
    table.columns.push_back(reporting::DateColumn(QStringLiteral("Date")));
    table.columns.push_back(reporting::QuantityColumn(QStringLiteral("Quantity")));
    table.columns.push_back(AmountColumn(QStringLiteral("Net")));
    table.columns.push_back(AmountColumn(QStringLiteral("Amount")));
  }
  for (const char* heading : {"Purchase Cost", "Long Term", "Short Term", "Speculation"}) {
    table.columns.push_back(AmountColumn(QLatin1String(heading)));
  }
  const text::Date day = *text::MakeDate(1, 4, 2011);
  for (int i = 0; i < kPages * kRowsAPage; ++i) {
    if (i % kScripEvery == 0) {
      table.rows.push_back(
          {.kind = RowKind::kGroup, .cells = {QStringLiteral("SCRIP %1 LIMITED").arg(i)}});
    }
    const double number = i * 17.03 + 1000;
    table.rows.push_back(
        {.kind = i % kScripEvery == kScripEvery - 1 ? RowKind::kTotal : RowKind::kData,
         .cells = {day + std::chrono::days(i % 365), 1.0 * (i % 5000), number / 100, number,
                   day + std::chrono::days(i % 300), 1.0 * (i % 4000), number / 90, number + 1,
                   number - 3, number / 7, number / 3, -number / 11}});
  }
  return document;
}

int PagesIn(const QString& pdf) {
  QFile file(pdf);
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("the pages were not written");
  }
  return static_cast<int>(file.readAll().count("/Type /Page %"));
}

}  // namespace

void MeasurePages(Table& table) {
  const QTemporaryDir folder;
  const reporting::ReportDocument document = LongStatement();
  for (const reporting::OutputFormatEntry& entry : reporting::OutputFormats()) {
    const QString path =
        folder.filePath(QStringLiteral("long%1").arg(QLatin1String(entry.extension)));
    Progress progress;
    const double seconds =
        Seconds([&] { reporting::WriteReport(document, entry.format, path, progress); });
    const std::string figure = fmt::format("{:.2f} s", seconds);
    const std::string work =
        fmt::format("{} rows of 12 columns as {}", reporting::RowCount(document), entry.name);
    if (entry.format == reporting::OutputFormat::kPdf) {
      table.Add(fmt::format("{}, {} pages", work, PagesIn(path)), figure, "2,000 pages under 10 s",
                seconds < kBound && PagesIn(path) >= kPages);
    } else {
      table.Add(work, figure);
    }
  }
}

}  // namespace quorvane::bench
