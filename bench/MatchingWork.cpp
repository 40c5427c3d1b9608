#include "bench/Measure.h"
#include "bench/Works.h"
#include "core/gains/Matching.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <random>

namespace quorvane::bench {
namespace {

using gains::Match;
using gains::Purchase;
using gains::Sale;

/// The lots of one scrip in one account and what is sold of them.
struct Place {
  std::vector<Purchase> purchases;
  std::vector<Sale> sales;
};

enum class Rates { kDifferent, kFew };

/// Every second line is a sale; what it names was bought before it.
Place MakePlace(std::size_t lines, Rates rates, std::mt19937_64& random) {
  Place place;
  const std::size_t half = std::max<std::size_t>(lines / 2, 1);
  for (std::size_t i = 0; i < half; ++i) {
    const text::Date day{std::chrono::days(15000 + static_cast<int>(i * 365 / half))};
    const double quantity = static_cast<double>(1 + random() % 100);
    const double rate = rates == Rates::kFew ? static_cast<double>(100 + random() % 5)
                                             : 100 + static_cast<double>(i) / 100;
    Purchase& bought = place.purchases.emplace_back();
    bought.date = day;
    bought.quantity = quantity;
    bought.lot_rate = rate;
    bought.net = rate + 0.5;
    bought.amount = bought.net * quantity;
    bought.stt = 1.25;
    Sale& sold = place.sales.emplace_back();
    sold.date = day;
    sold.quantity = quantity;
    sold.lot_rate = place.purchases[random() % place.purchases.size()].lot_rate;
    sold.net = rate;
    sold.amount = rate * quantity;
    sold.stt = 1.25;
  }
  return place;
}

std::vector<Place> MakePlaces(std::size_t lines, std::size_t lines_a_place, Rates rates) {
  std::mt19937_64 random(lines);
  std::vector<Place> places;
  for (std::size_t made = 0; made < lines; made += lines_a_place) {
    places.push_back(MakePlace(lines_a_place, rates, random));
  }
  return places;
}

void StartOver(std::vector<Place>& places) {
  for (Place& place : places) {
    for (Purchase& purchase : place.purchases) {
      purchase.remaining = purchase.quantity;
    }
  }
}

void Run(benchmark::State& state, std::size_t lines, std::size_t lines_a_place, Rates rates) {
  std::vector<Place> places = MakePlaces(lines, lines_a_place, rates);
  std::vector<Match> matches;
  for ([[maybe_unused]] const auto& iteration : state) {
    StartOver(places);
    state.SetIterationTime(Seconds([&] {
      for (Place& place : places) {
        matches.clear();
        gains::MatchSales(place.purchases, place.sales, {}, gains::CostBasis::kLot, matches);
        benchmark::DoNotOptimize(matches.data());
      }
    }));
  }
}

struct Shape {
  const char* name;
  std::size_t lines_a_place;  ///< 0: all in one
  Rates rates;
};

constexpr Shape kShapes[] = {{"40 lines a scrip and account", 40, Rates::kDifferent},
                             {"one scrip and account, different rates", 0, Rates::kDifferent},
                             {"one scrip and account, five rates", 0, Rates::kFew}};

/// Keeps the medians, in nanoseconds, by the name of the run.
class Medians : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<benchmark::BenchmarkReporter::Run>& runs) override {
    for (const auto& run : runs) {
      if (run.aggregate_name == "median") {
        medians_[run.run_name.function_name] = run.GetAdjustedRealTime();
      }
    }
  }
  double Of(const std::string& name) const { return medians_.at(name); }

 private:
  std::map<std::string, double> medians_;
};

std::string NameOf(const Shape& shape, std::size_t lines) {
  return fmt::format("matching in memory, {}, N = {}", shape.name, lines);
}

void Register(const Shape& shape, std::size_t lines) {
  const std::size_t lines_a_place = shape.lines_a_place == 0 ? lines : shape.lines_a_place;
  benchmark::RegisterBenchmark(
      NameOf(shape, lines).c_str(),
      [=](benchmark::State& state) { Run(state, lines, lines_a_place, shape.rates); })
      ->UseManualTime()
      ->MinTime(0.2)
      ->Repetitions(5)
      ->Unit(benchmark::kNanosecond);
}

}  // namespace

void MeasureMatching(Table& table, std::span<const std::size_t> line_counts) {
  for (const Shape& shape : kShapes) {
    for (const std::size_t lines : line_counts) {
      Register(shape, lines);
    }
  }
  Medians medians;
  benchmark::RunSpecifiedBenchmarks(&medians);
  for (const Shape& shape : kShapes) {
    for (const std::size_t lines : line_counts) {
      const std::string name = NameOf(shape, lines);
      const double each = medians.Of(name) / static_cast<double>(lines);
      table.Add(name, fmt::format("{:.0f} ns a line", each), "under 100 ns a line", each < 100);
    }
  }
}

}  // namespace quorvane::bench
