#include "bench/Measure.h"
#include "bench/PortfolioFolder.h"
#include "bench/Works.h"
#include "portfolio/Import.h"

#include <QDir>

#include <fmt/format.h>

#include <stdexcept>

namespace quorvane::bench {
namespace {

double ImportOnce(const Office& office, const QString& folder) {
  database::Connection connection(NewDatabase(office, QStringLiteral("taken_in")));
  Progress progress;
  portfolio::ImportResult result;
  const double seconds =
      Seconds([&] { result = portfolio::ImportPortfolio(connection, folder, false, progress); });
  connection.Execute("Drop Database taken_in");
  if (!result.errors.empty()) {
    throw std::runtime_error("the import was refused: " + result.errors.front().Text());
  }
  return seconds;
}

}  // namespace

void MeasureImport(Table& table, const Office& office, const Portfolio& portfolio) {
  const QString folder = office.Path("portfolio");
  WriteFolder(folder, portfolio);
  std::vector<double> times(3);
  for (double& time : times) {
    time = ImportOnce(office, folder);
  }
  QDir(folder).removeRecursively();
  const double seconds = Median(times);
  const double speed = static_cast<double>(portfolio.lines.size()) / seconds;
  table.Add(fmt::format("import of a portfolio folder, N = {}", portfolio.lines.size()),
            fmt::format("{:.0f} lines/s ({:.2f} s)", speed, seconds), "over 50000 lines/s",
            speed > 50000);
}

}  // namespace quorvane::bench
