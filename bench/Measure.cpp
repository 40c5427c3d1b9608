#include "bench/Measure.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>

namespace quorvane::bench {

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double PeakMebibytes() {
  // getrusage would tell the peak of the process that this one was started by, if that is higher.
  std::ifstream status("/proc/self/status");
  const std::string wanted = "VmHWM:";
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(wanted)) {
      return std::stod(line.substr(wanted.size())) / 1024;
    }
  }
  throw std::runtime_error("/proc/self/status does not tell VmHWM");
}

}  // namespace quorvane::bench
