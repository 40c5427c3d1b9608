#include "bench/Measure.h"
#include "bench/PortfolioDatabase.h"
#include "bench/RawRead.h"
#include "bench/Works.h"
#include "core/ledger/Rebuild.h"
#include "core/lookups/Directory.h"
#include "core/positions/Positions.h"
#include "reports/profit/ProfitDocument.h"

#include <QCoreApplication>
#include <QProcess>

#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace quorvane::bench {
namespace {

using database::Connection;

constexpr int kRuns = 5;
const text::FinancialYear kYear{2011};

/// Writes the capital-gain statement of every client; returns its rows.
std::size_t WriteStatement(Connection& connection, const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"),
                                                             std::fclose);
  if (file == nullptr) {
    throw std::runtime_error("cannot write " + path);
  }
  const lookups::Directory directory(connection);
  std::size_t count = 0;
  std::string text;
  profit::AppendStatementCsvHeader(text);
  Progress progress;
  const auto take = [&](ClientId, std::span<const profit::StatementRow> rows) {
    profit::AppendStatementCsv(text, rows, directory);
    count += rows.size();
    std::fwrite(text.data(), 1, text.size(), file.get());
    text.clear();
  };
  const auto faults = profit::BuildStatement(
      connection, profit::ProfitQuery::OfYear(std::nullopt, kYear), progress, take);
  return faults.empty() ? count : 0;
}

struct StatementFigures {
  double read = 0;       ///< seconds
  double statement = 0;  ///< seconds
  double peak = 0;       ///< MiB
  std::size_t rows = 0;  ///< of the statement
};

StatementFigures RunStatementProcess(const Office& office, const QString& database) {
  QProcess process;
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--statement"), office.server.Socket(), database,
                 office.Path("statement.csv")});
  if (!process.waitForFinished(-1) || process.exitCode() != 0) {
    throw std::runtime_error("the statement's process failed");
  }
  const QList<QByteArray> fields = process.readAllStandardOutput().split(' ');
  return {fields[0].toDouble(), fields[1].toDouble(), fields[2].toDouble(),
          fields[3].toULongLong()};
}

std::string Times(double seconds, double reference) {
  return fmt::format("{:.2f}x ({:.0f} ms to {:.0f} ms)", seconds / reference, seconds * 1000,
                     reference * 1000);
}

void AddStatement(Table& table, const StatementFigures& figures, const Portfolio& portfolio) {
  const std::string of = fmt::format("statement of every client, N = {}", portfolio.lines.size());
  table.Add(of, Times(figures.statement, figures.read), "at most 2x the read",
            figures.statement <= 2 * figures.read);
  table.Add(of + ", peak memory", fmt::format("{:.0f} MiB, {} rows", figures.peak, figures.rows),
            "under 400 MiB", figures.peak < 400);
}

/// Rebuilds after `before`; returns the medians of the raw read and of the rebuild.
template <class Before>
void AddRebuild(Table& table, Connection& connection, std::string_view work,
                std::size_t expected_changes, const Before& before) {
  std::vector<double> reads;
  std::vector<double> rebuilds;
  for (int run = 0; run < kRuns; ++run) {
    before();
    reads.push_back(Seconds([&] { ReadAndDrop(connection, kYear); }));
    rebuilds.push_back(Seconds([&] {
      Progress progress;
      if (ledger::RebuildStock(connection, std::nullopt, progress) != expected_changes) {
        throw std::runtime_error("the rebuild changed another number of lots than expected");
      }
    }));
  }
  const double read = Median(reads);
  const double rebuild = Median(rebuilds);
  table.Add(work, Times(rebuild, read), "at most 3x the read", rebuild <= 3 * read);
}

/// The history of every client: layers, sales and their gains over all years.
void AddHistory(Table& table, Connection& connection, const Portfolio& portfolio) {
  std::vector<double> reads;
  std::vector<double> histories;
  std::size_t pieces = 0;
  for (int run = 0; run < kRuns; ++run) {
    reads.push_back(Seconds([&] { ReadAndDrop(connection, kYear); }));
    histories.push_back(Seconds([&] {
      Progress progress;
      pieces = positions::ReadPositions(connection, {}, progress).pieces.size();
    }));
  }
  const double read = Median(reads);
  const double history = Median(histories);
  table.Add(fmt::format("history of every client, N = {}, {} pieces sold", portfolio.lines.size(),
                        pieces),
            Times(history, read), "at most 3x the read", history <= 3 * read);
}

}  // namespace

int StatementProcess(const QStringList& arguments) {
  database::ConnectionSettings settings;
  settings.socket = arguments.at(0);
  settings.user = QStringLiteral("root");
  settings.database = arguments.at(1);
  Connection connection(settings);
  std::vector<double> reads;
  std::vector<double> statements;
  std::size_t rows = 0;
  ReadAndDrop(connection, kYear);
  for (int run = 0; run < kRuns; ++run) {
    reads.push_back(Seconds([&] { ReadAndDrop(connection, kYear); }));
    statements.push_back(
        Seconds([&] { rows = WriteStatement(connection, arguments.at(2).toStdString()); }));
  }
  fmt::print("{} {} {} {}", Median(reads), Median(statements), PeakMebibytes(), rows);
  return 0;
}

void MeasureStatementAndRebuild(Table& table, const Office& office, const Portfolio& portfolio) {
  const QString name = QStringLiteral("office_%1").arg(portfolio.lines.size());
  Connection connection(NewDatabase(office, name));
  FillDatabase(connection, portfolio);
  AddStatement(table, RunStatementProcess(office, name), portfolio);
  AddHistory(table, connection, portfolio);
  const std::string of = fmt::format("rebuild of every client, N = {}", portfolio.lines.size());
  AddRebuild(table, connection, of, 0, [] {});
  AddRebuild(table, connection, of + ", every lot wrong", portfolio.lots.size(),
             [&] { connection.Execute("Update Stock Set Qty=Qty+1"); });
}

}  // namespace quorvane::bench
