#include "bench/Measure.h"
#include "bench/Works.h"
#include "core/app/Session.h"

#include <fmt/format.h>

namespace quorvane::bench {
namespace {

double StartOnce(const QString& folder) {
  app::StartUpOptions options;
  options.application_folder = folder;
  std::unique_ptr<app::Session> session;
  return Seconds([&] { session = app::StartUp(options); });
}

void AddStart(Table& table, std::string_view work, const std::vector<double>& times, double most) {
  const double seconds = Median(times);
  table.Add(fmt::format("start without windows, {}", work), fmt::format("{:.2f} s", seconds),
            fmt::format("under {} s with the main window", most), seconds < most);
}

}  // namespace

void MeasureStart(Table& table) {
  std::vector<double> first;
  std::vector<double> again;
  for (int run = 0; run < 5; ++run) {
    const QTemporaryDir folder;
    first.push_back(StartOnce(folder.path()));
    again.push_back(StartOnce(folder.path()));
  }
  AddStart(table, "a new folder", first, 3);
  AddStart(table, "an existing database", again, 1);
}

}  // namespace quorvane::bench
