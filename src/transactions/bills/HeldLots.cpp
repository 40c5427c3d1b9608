#include "transactions/bills/HeldLots.h"

#include "core/text/Paise.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

namespace quorvane::bills {
namespace {

using records::Lot;
using records::Movement;
using records::MovementKind;
using text::Shares;

/// Oldest first; a day that is not known comes after all others, and so does a lot without a
/// number.
auto AgeOf(const HeldLot& held) {
  const int number = held.lot.id.value;
  return std::tuple(held.since.value_or(text::Date::max()), number < 0, std::abs(number));
}

}  // namespace

std::vector<Movement> ReadAccount(database::Connection& connection, const ledger::Place& place) {
  std::vector<Movement> movements;
  records::Faults faults;
  Progress silent;
  records::ReadMovements(
      connection, {.client = place.of.client, .year = place.of.year}, faults, silent,
      [&](const Movement& movement) {
        if (movement.account == place.account && movement.client == place.of.client) {
          movements.push_back(movement);
        }
      });
  return movements;
}

std::vector<HeldLot> ReadBalance(database::Connection& connection, const ledger::Place& place,
                                 std::span<const Movement> movements) {
  ledger::Lots lots;
  for (const Lot& lot : ledger::ReadLots(connection, ledger::LotScope::Of(place))) {
    lots.Load(lot);
  }
  LotDates dates;
  dates.Receive(movements, {});
  return dates.Date(lots.Of(place));
}

void LotDates::Receive(ScripId scrip, double rate, text::Date day, Shares quantity) {
  received_[{scrip, rate}][day] += quantity;
}

void LotDates::Receive(std::span<const Movement> movements, BillId without) {
  for (const Movement& m : movements) {
    const bool is_left_out =
        without && m.kind == MovementKind::kPurchase && m.document == without.value;
    if (m.dated && records::IsReceipt(m.kind) && !is_left_out) {
      Receive(m.scrip, m.rate, m.acquired, m.quantity);
    }
  }
}

std::optional<text::Date> LotDates::Of(const Lot& lot) const {
  const auto found = received_.find({lot.scrip, lot.rate});
  if (found == received_.end() || lot.quantity <= Shares()) {
    return std::nullopt;
  }
  // What is left are the shares that came in last.
  Shares left = lot.quantity;
  auto day = found->second.rbegin();
  while (std::next(day) != found->second.rend() && day->second < left) {
    left -= day->second;
    ++day;
  }
  return day->first;
}

std::vector<HeldLot> LotDates::Date(const std::vector<Lot>& lots) const {
  std::vector<HeldLot> held;
  held.reserve(lots.size());
  for (const Lot& lot : lots) {
    held.push_back({lot, Of(lot)});
  }
  return held;
}

void Arrange(std::vector<HeldLot>& lots, ScripId first) {
  std::ranges::stable_sort(lots, {}, [first](const HeldLot& held) {
    const bool used_up = !held.lot.quantity;
    const bool is_first = first && held.lot.scrip == first && !used_up;
    return std::tuple(used_up, !is_first, is_first ? AgeOf(held) : AgeOf({}));
  });
}

std::vector<Piece> TakeOldest(std::vector<HeldLot>& lots, ScripId scrip, LotId chosen,
                              Shares quantity) {
  std::vector<HeldLot*> order;
  for (HeldLot& held : lots) {
    if (held.lot.scrip == scrip && held.lot.quantity > Shares()) {
      order.push_back(&held);
    }
  }
  std::ranges::stable_sort(order, {}, [chosen](const HeldLot* held) {
    return std::tuple(!chosen || held->lot.id != chosen, AgeOf(*held));
  });
  std::vector<Piece> pieces;
  for (const HeldLot* held : order) {
    if (quantity > Shares()) {
      pieces.push_back({*held, std::min(quantity, held->lot.quantity)});
      quantity -= pieces.back().quantity;
    }
  }
  if (quantity > Shares()) {
    return {};
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    order[i]->lot.quantity -= pieces[i].quantity;
  }
  return pieces;
}

std::vector<BillLine> SpreadOver(const BillLine& sale, std::span<const Piece> pieces) {
  text::ShareOut service_tax(sale.service_tax, sale.quantity);
  text::ShareOut stt(sale.stt, sale.quantity);
  std::vector<BillLine> lines;
  for (const Piece& piece : pieces) {
    BillLine line = sale;
    line.lot = piece.from.lot.id;
    line.lot_rate = piece.from.lot.rate;
    line.quantity = piece.quantity;
    line.service_tax = service_tax.Next(piece.quantity);
    line.stt = stt.Next(piece.quantity);
    records::ComputeAmount(line);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace quorvane::bills
