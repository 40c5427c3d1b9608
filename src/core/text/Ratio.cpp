#include "core/text/Ratio.h"

#include "core/text/Amounts.h"

namespace quorvane::text {

namespace {

__extension__ using Wide = __int128;

}  // namespace

std::int64_t Proportion(std::int64_t whole, std::int64_t part, std::int64_t of) {
  if (of == 0) {
    return 0;
  }
  const Wide twice = Wide{2} * whole * part;
  const Wide rounded = (twice < 0) == (of < 0) ? twice + of : twice - of;
  return static_cast<std::int64_t>(rounded / (Wide{2} * of));
}

double ShareRatio::RateFor(double rate) const {
  return of_new ? Tidy(rate * of_old.Number() / of_new.Number()) : 0;
}

}  // namespace quorvane::text
