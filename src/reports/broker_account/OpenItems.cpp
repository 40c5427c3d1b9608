#include "reports/broker_account/OpenItems.h"

#include <algorithm>
#include <utility>

namespace quorvane::broker_account {
namespace {

using text::Paise;

struct Age {
  int last_day;  ///< the most days of this age
  const char* name;
};

constexpr std::array<Age, kAgeCount - 1> kAges{
    {{30, "0-30 Days"}, {60, "31-60 Days"}, {90, "61-90 Days"}}};

}  // namespace

QString AgeName(std::size_t age) {
  return age < kAges.size() ? QLatin1String(kAges[age].name) : QStringLiteral("Over 90 Days");
}

std::size_t AgeOf(text::Date date, text::Date on) {
  const auto days = (on - date).count();
  const auto found =
      std::ranges::find_if(kAges, [&](const Age& age) { return days <= age.last_day; });
  return static_cast<std::size_t>(found - kAges.begin());
}

void OpenItems::Post(OpenItem item) {
  const bool owed = item.amount > Paise();
  while (item.amount != Paise() && !items_.empty() && (items_.front().amount > Paise()) != owed) {
    OpenItem& oldest = items_.front();
    const Paise settled =
        owed ? std::min(item.amount, -oldest.amount) : std::max(item.amount, -oldest.amount);
    oldest.amount += settled;
    item.amount -= settled;
    if (oldest.amount == Paise()) {
      items_.pop_front();
    }
  }
  if (item.amount != Paise()) {
    items_.push_back(std::move(item));
  }
}

}  // namespace quorvane::broker_account
