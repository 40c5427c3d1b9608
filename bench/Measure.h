#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace quorvane::bench {

/// Wall-clock seconds that `work` takes.
template <class Work>
double Seconds(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The middle value; of an even number the lower one of the two.
double Median(std::vector<double> values);

/// The largest amount of memory that this process has held, in MiB.
double PeakMebibytes();

}  // namespace quorvane::bench
