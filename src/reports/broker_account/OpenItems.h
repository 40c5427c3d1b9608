#pragma once

#include "core/text/Dates.h"
#include "core/text/Paise.h"

#include <QString>

#include <array>
#include <cstddef>
#include <deque>

namespace quorvane::broker_account {

/// A bill, or money, of which something is not settled yet.
struct OpenItem {
  text::Date date;
  QString particulars;
  text::Paise amount;  ///< not settled yet: owed to the broker, below zero due from the broker
};

inline constexpr std::size_t kAgeCount = 4;

/// The heading of an age ("0-30 Days"), by its number.
QString AgeName(std::size_t age);

/// The age of a day on another one: 0 for up to 30 days, then up to 60, up to 90, and more.
std::size_t AgeOf(text::Date date, text::Date on);

/// What is open of a running account. What is posted settles the oldest open items of the other
/// side first; what is left of it is open itself. So all open items are of one side, and their sum
/// is the balance of the account.
class OpenItems {
 public:
  /// In the order of the account's lines.
  void Post(OpenItem item);

  /// The oldest first.
  const std::deque<OpenItem>& Items() const { return items_; }

 private:
  std::deque<OpenItem> items_;
};

}  // namespace quorvane::broker_account
