#include "core/gains/History.h"

#include "core/gains/HistoryReader.h"

#include <algorithm>

namespace quorvane::gains {

History::History(database::Connection& connection, const HistoryQuery& query, Progress& progress)
    : query_(query) {
  HistoryReader(connection, *this, progress).Read();
}

std::vector<History::Key> History::SortedKeys() const {
  std::vector<Key> keys(movements_.size());
  for (std::size_t i = 0; i < movements_.size(); ++i) {
    const Movement& m = movements_[i];
    keys[i].place =
        (std::uint64_t{m.client_rank} << 42) | (std::uint64_t{m.scrip_rank} << 21) | m.account_rank;
    // Days are counted from 1900 on, so that they are positive.
    constexpr std::int64_t kDaysFrom1900 = 25567;
    const auto day = static_cast<std::uint64_t>(std::max<std::int64_t>(m.day + kDaysFrom1900, 0));
    keys[i].order = (day << 36) | (static_cast<std::uint64_t>(m.kind) << 32) |
                    static_cast<std::uint32_t>(m.document);
    keys[i].movement = static_cast<std::uint32_t>(i);
  }
  std::sort(keys.begin(), keys.end(), [this](const Key& a, const Key& b) {
    if (a.place != b.place) {
      return a.place < b.place;
    }
    if (a.order != b.order) {
      return a.order < b.order;
    }
    const int line_a = movements_[a.movement].line;
    const int line_b = movements_[b.movement].line;
    return line_a != line_b ? line_a < line_b : a.movement < b.movement;
  });
  return keys;
}

void History::AddToBuffers(const Movement& m) {
  const Date date{std::chrono::days{m.day}};
  switch (m.kind) {
    case Kind::kOpening:
    case Kind::kPurchase:
    case Kind::kTransferIn: {
      Purchase purchase;
      purchase.date = date;
      purchase.quantity = m.quantity;
      purchase.lot_rate = m.lot_rate;
      purchase.net = m.net;
      purchase.amount = m.amount;
      purchase.service_tax = m.service_tax;
      purchase.stt = m.stt;
      purchase.brokerage = m.brokerage;
      purchase.fo = m.fo;
      purchase.transfer = m.kind == Kind::kTransferIn;
      purchase.remaining = m.quantity;
      purchases_.push_back(purchase);
      break;
    }
    case Kind::kSale:
    case Kind::kTransferOut:
      sales_.push_back({date, m.quantity, m.lot_rate, m.net, m.amount, m.stt,
                        m.kind == Kind::kTransferOut, date >= query_.from});
      break;
  }
}

void History::Visit(const std::function<void(const ScripHistory&)>& visit) {
  const std::vector<Key> keys = SortedKeys();
  for (std::size_t first = 0; first < keys.size();) {
    purchases_.clear();
    sales_.clear();
    std::size_t next = first;
    for (; next < keys.size() && keys[next].place == keys[first].place; ++next) {
      AddToBuffers(movements_[keys[next].movement]);
    }
    const Movement& m = movements_[keys[first].movement];
    visit({ClientId{clients_[m.client_rank]}, ScripId{scrips_[m.scrip_rank]},
           AccountId{accounts_[m.account_rank]}, purchases_, sales_});
    first = next;
  }
}

}  // namespace quorvane::gains
