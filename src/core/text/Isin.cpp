#include "core/text/Isin.h"

#include <algorithm>
#include <cstddef>

namespace quorvane::text {
namespace {

constexpr std::size_t kLength = 12;

bool IsDigit(char one) {
  return one >= '0' && one <= '9';
}

bool IsCapital(char one) {
  return one >= 'A' && one <= 'Z';
}

bool HasForm(std::string_view isin) {
  return isin.size() == kLength && IsCapital(isin[0]) && IsCapital(isin[1]) &&
         IsDigit(isin.back()) &&
         std::ranges::all_of(isin, [](char one) { return IsDigit(one) || IsCapital(one); });
}

/// Digits from the right, every second one doubled; a letter stands for two digits, A being 10.
class CheckSum {
 public:
  void Add(int digit) {
    const int counted = doubled_ ? 2 * digit : digit;
    sum_ += counted / 10 + counted % 10;
    doubled_ = !doubled_;
  }
  bool Fits() const { return sum_ % 10 == 0; }

 private:
  int sum_ = 0;
  bool doubled_ = false;
};

}  // namespace

bool IsValidIsin(std::string_view isin) {
  if (!HasForm(isin)) {
    return false;
  }
  CheckSum sum;
  for (std::size_t i = kLength; i-- > 0;) {
    const int value = IsDigit(isin[i]) ? isin[i] - '0' : isin[i] - 'A' + 10;
    sum.Add(value % 10);
    if (value > 9) {
      sum.Add(value / 10);
    }
  }
  return sum.Fits();
}

}  // namespace quorvane::text
