#include "core/gains/History.h"

#include "core/gains/HistoryReader.h"

#include <algorithm>
#include <numeric>

namespace quorvane::gains {

History::History(database::Connection& connection, const HistoryQuery& query, Progress& progress)
    : query_(query) {
  HistoryReader(connection, *this, progress).Read();
}

/// Where the keys of each client begin, by rank, and where those of the last one end.
std::vector<std::size_t> History::ClientStarts() const {
  std::vector<std::size_t> starts(clients_.size() + 1);
  for (std::size_t i = 0; i < movements_.size(); ++i) {
    ++starts[movements_[i].client_rank + 1];
  }
  std::partial_sum(starts.begin(), starts.end(), starts.begin());
  return starts;
}

History::Key History::KeyOf(std::size_t movement) const {
  const Movement& m = movements_[movement];
  Key key;
  key.place =
      (std::uint64_t{m.client_rank} << 42) | (std::uint64_t{m.scrip_rank} << 21) | m.account_rank;
  // Days are counted from 1900 on, so that they are positive.
  constexpr std::int64_t kDaysFrom1900 = 25567;
  const auto day = static_cast<std::uint64_t>(std::max<std::int64_t>(m.day + kDaysFrom1900, 0));
  key.order = (day << 36) | (static_cast<std::uint64_t>(m.kind) << 32) |
              static_cast<std::uint32_t>(m.document);
  key.movement = static_cast<std::uint32_t>(movement);
  return key;
}

std::vector<History::Key> History::SortedKeys() const {
  std::vector<Key> keys(movements_.size());
  const std::vector<std::size_t> starts = ClientStarts();
  std::vector<std::size_t> next = starts;
  for (std::size_t i = 0; i < movements_.size(); ++i) {
    keys[next[movements_[i].client_rank]++] = KeyOf(i);
  }
  const auto before = [this](const Key& a, const Key& b) {
    if (a.place != b.place) {
      return a.place < b.place;
    }
    if (a.order != b.order) {
      return a.order < b.order;
    }
    const int line_a = movements_[a.movement].line;
    const int line_b = movements_[b.movement].line;
    return line_a != line_b ? line_a < line_b : a.movement < b.movement;
  };
  // A client's keys fit into the processor's cache; those of all clients do not.
  for (std::size_t client = 0; client < clients_.size(); ++client) {
    std::sort(keys.begin() + static_cast<std::ptrdiff_t>(starts[client]),
              keys.begin() + static_cast<std::ptrdiff_t>(starts[client + 1]), before);
  }
  return keys;
}

void History::AddToBuffers(const Movement& m) {
  const Date date{std::chrono::days{m.day}};
  switch (m.kind) {
    case Kind::kOpening:
    case Kind::kActionIn:
    case Kind::kPurchase:
    case Kind::kTransferIn: {
      Purchase purchase;
      purchase.date = Date{std::chrono::days{m.acquired}};
      purchase.entered = date;
      purchase.quantity = m.quantity;
      purchase.lot_rate = m.lot_rate;
      purchase.net = m.net;
      purchase.amount = m.amount;
      purchase.service_tax = m.service_tax;
      purchase.stt = m.stt;
      purchase.brokerage = m.brokerage;
      purchase.fo = m.fo;
      purchase.transfer = m.kind == Kind::kTransferIn || m.kind == Kind::kActionIn;
      purchase.opening = m.kind == Kind::kOpening;
      purchase.remaining = m.quantity;
      purchases_.push_back(purchase);
      break;
    }
    case Kind::kActionOut:
    case Kind::kSale:
    case Kind::kTransferOut:
      sales_.push_back({date, m.quantity, m.lot_rate, m.net, m.amount, m.stt, m.kind != Kind::kSale,
                        date >= query_.from, m.kind == Kind::kActionOut});
      break;
  }
}

/// Movements lie in the order in which they were read; asked for in time they are there.
void History::LookAhead(const std::vector<Key>& keys, std::size_t place) const {
  constexpr std::size_t kMovements = 12;
  if (place + kMovements < keys.size()) {
    const Movement& m = movements_[keys[place + kMovements].movement];
    __builtin_prefetch(&m);
    __builtin_prefetch(&m.brokerage);
  }
}

void History::Visit(const std::function<void(const ScripHistory&)>& visit) {
  const std::vector<Key> keys = SortedKeys();
  for (std::size_t first = 0; first < keys.size();) {
    purchases_.clear();
    sales_.clear();
    std::size_t next = first;
    for (; next < keys.size() && keys[next].place == keys[first].place; ++next) {
      LookAhead(keys, next);
      AddToBuffers(movements_[keys[next].movement]);
    }
    const Movement& m = movements_[keys[first].movement];
    visit({ClientId{clients_[m.client_rank]}, ScripId{scrips_[m.scrip_rank]},
           AccountId{accounts_[m.account_rank]}, purchases_, sales_});
    first = next;
  }
}

}  // namespace quorvane::gains
