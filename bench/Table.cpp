#include "bench/Table.h"

#include <fmt/format.h>

#include <cstdio>

namespace quorvane::bench {
namespace {

void Print(std::string_view work, std::string_view figure, std::string_view bound,
           std::string_view verdict) {
  fmt::print("| {} | {} | {} | {} |\n", work, figure, bound, verdict);
  std::fflush(stdout);
}

}  // namespace

void Table::Head() const {
  Print("work", "figure", "bound", "holds");
  Print("---", "---", "---", "---");
}

void Table::Add(std::string_view work, std::string_view figure) {
  Print(work, figure, "", "");
}

void Table::Add(std::string_view work, std::string_view figure, std::string_view bound,
                bool holds) {
  Print(work, figure, bound, holds ? "yes" : "NO");
  everything_holds_ = everything_holds_ && holds;
}

}  // namespace quorvane::bench
