#include "bench/PortfolioFolder.h"
#include "bench/Works.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace quorvane::bench {
namespace {

constexpr std::size_t kLineCounts[] = {10'000, 100'000, 1'000'000};

struct Choice {
  QStringList works;  ///< all when empty
  std::vector<std::size_t> line_counts;
  QString folder;  ///< where a portfolio is to be written instead

  bool Has(const char* work) const {
    return works.isEmpty() || works.contains(QLatin1String(work));
  }
};

Choice ReadChoice() {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Measures how fast Quorvane works."));
  parser.addHelpOption();
  parser.addPositionalArgument(
      QStringLiteral("works"),
      QStringLiteral("start, matching, bill, pages, trades, statement, import, desk; or all"));
  const QCommandLineOption lines(QStringLiteral("lines"),
                                 QStringLiteral("bill lines of the portfolio; may be repeated"),
                                 QStringLiteral("N"));
  const QCommandLineOption write(
      QStringLiteral("write"),
      QStringLiteral("write the portfolio as a portfolio folder and measure nothing"),
      QStringLiteral("FOLDER"));
  parser.addOption(lines);
  parser.addOption(write);
  parser.process(*QCoreApplication::instance());
  Choice choice{parser.positionalArguments(), {}, parser.value(write)};
  for (const QString& count : parser.values(lines)) {
    choice.line_counts.push_back(count.toULongLong());
  }
  if (choice.line_counts.empty()) {
    choice.line_counts.assign(std::begin(kLineCounts), std::end(kLineCounts));
  }
  return choice;
}

Portfolio PortfolioOf(std::size_t lines) {
  PortfolioOptions options;
  options.lines = lines;
  return MakePortfolio(options);
}

void MeasurePortfolio(Table& table, const Choice& choice, const Office& office, std::size_t lines) {
  const Portfolio portfolio = PortfolioOf(lines);
  if (choice.Has("statement")) {
    MeasureStatementAndRebuild(table, office, portfolio);
  }
  if (choice.Has("import")) {
    MeasureImport(table, office, portfolio);
  }
  if (choice.Has("desk")) {
    MeasureDesk(table, office, portfolio);
  }
}

int Run(const Choice& choice) {
  if (!choice.folder.isEmpty()) {
    WriteFolder(choice.folder, PortfolioOf(choice.line_counts.front()));
    return 0;
  }
  Table table;
  table.Head();
  if (choice.Has("start")) {
    MeasureStart(table);
  }
  if (choice.Has("matching")) {
    MeasureMatching(table, choice.line_counts);
  }
  if (choice.Has("pages")) {
    MeasurePages(table);
  }
  const Office office;
  if (choice.Has("bill")) {
    MeasureBill(table, office);
  }
  if (choice.Has("trades")) {
    MeasureTrades(table, office);
  }
  for (const std::size_t lines : choice.line_counts) {
    MeasurePortfolio(table, choice, office, lines);
  }
  return table.EverythingHolds() ? 0 : 1;
}

}  // namespace
}  // namespace quorvane::bench

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  try {
    if (arguments.size() == 5 && arguments[1] == QLatin1String("--statement")) {
      return quorvane::bench::StatementProcess(arguments.mid(2));
    }
    return quorvane::bench::Run(quorvane::bench::ReadChoice());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
