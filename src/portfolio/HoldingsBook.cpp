#include "portfolio/HoldingsBook.h"

#include <algorithm>

namespace quorvane::portfolio {

using ledger::SettleQuantity;

std::size_t HoldingsBook::PlaceHash::operator()(const Place& place) const noexcept {
  std::uint64_t hash = static_cast<std::uint32_t>(place.account.value);
  hash = (hash << 32) ^ static_cast<std::uint32_t>(place.scrip.value);
  hash ^= static_cast<std::uint64_t>(place.of.client.value) << 20;
  hash ^= static_cast<std::uint64_t>(place.of.year.FirstCalendarYear()) << 48;
  hash *= 0x9E3779B97F4A7C15ULL;
  return hash ^ (hash >> 29);
}

std::uint32_t HoldingsBook::LotAt(const Place& place, Holding& holding, double rate) {
  const auto [entry, fresh] =
      holding.lot_by_rate.try_emplace(rate, static_cast<std::uint32_t>(lots_.size()));
  if (fresh) {
    lots_.push_back(
        {place, {LotId{next_lot_++}, place.account, place.scrip, 0, rate}, 0, true, {}, 0});
  }
  return entry->second;
}

void HoldingsBook::LoadLot(const Place& place, const ledger::Lot& lot) {
  Holding& holding = holdings_[place];
  const auto [entry, fresh] =
      holding.lot_by_rate.try_emplace(lot.rate, static_cast<std::uint32_t>(lots_.size()));
  if (fresh) {
    lots_.push_back({place, lot, lot.quantity, false, {}, 0});
  }
}

void HoldingsBook::LoadLayer(const Place& place, text::Date date, double rate, double quantity) {
  Holding& holding = holdings_[place];
  const auto lot = holding.lot_by_rate.find(rate);
  if (lot != holding.lot_by_rate.end()) {
    AddLayer(holding, lot->second, date, quantity);
  }
}

LotId HoldingsBook::Receive(const Place& place, text::Date date, double rate, double quantity) {
  Holding& holding = holdings_[place];
  const std::uint32_t lot = LotAt(place, holding, rate);
  lots_[lot].lot.quantity = SettleQuantity(lots_[lot].lot.quantity + quantity);
  AddLayer(holding, lot, date, RepayFrom(lot, quantity));
  return lots_[lot].lot.id;
}

/// Gives shares to the lot's advances, first come, first served; what is left of them.
double HoldingsBook::RepayFrom(std::uint32_t lot, double quantity) {
  const auto found = open_advances_.find(lot);
  if (found == open_advances_.end()) {
    return quantity;
  }
  std::deque<std::size_t>& numbers = found->second;
  while (!numbers.empty() && quantity > 0) {
    double& open = advances_[numbers.front()];
    const double part = std::min(open, quantity);
    open = SettleQuantity(open - part);
    quantity = SettleQuantity(quantity - part);
    if (open <= 0) {
      numbers.pop_front();
    }
  }
  return quantity;
}

void HoldingsBook::AddLayer(Holding& holding, std::uint32_t lot, text::Date date, double quantity) {
  const auto layer = static_cast<std::uint32_t>(layers_.size());
  layers_.push_back({date, lot, quantity});
  Insert(holding.layers, holding.first_left, layer);
  Insert(lots_[lot].layers, lots_[lot].first_left, layer);
}

void HoldingsBook::Insert(std::vector<std::uint32_t>& order, std::size_t& first_left,
                          std::uint32_t layer) {
  const auto place = std::upper_bound(
      order.begin(), order.end(), layer,
      [this](std::uint32_t a, std::uint32_t b) { return layers_[a].date < layers_[b].date; });
  first_left = std::min(first_left, static_cast<std::size_t>(place - order.begin()));
  order.insert(place, layer);
}

void HoldingsBook::Take(std::uint32_t lot, std::uint32_t layer, double quantity) {
  if (layer < kAhead) {
    layers_[layer].left = SettleQuantity(layers_[layer].left - quantity);
  }
  lots_[lot].lot.quantity = SettleQuantity(lots_[lot].lot.quantity - quantity);
  taken_.push_back({lot, layer, quantity});
}

std::optional<std::vector<HoldingsBook::Piece>> HoldingsBook::TakeOldest(const Place& place,
                                                                         text::Date date,
                                                                         double quantity,
                                                                         double& available) {
  Holding& holding = holdings_[place];
  while (holding.first_left < holding.layers.size() &&
         layers_[holding.layers[holding.first_left]].left <= 0) {
    ++holding.first_left;
  }
  std::vector<std::pair<std::uint32_t, double>> parts;
  available = 0;
  for (std::size_t i = holding.first_left; i < holding.layers.size() && available < quantity; ++i) {
    const Layer& layer = layers_[holding.layers[i]];
    if (layer.date > date) {
      break;
    }
    const double part = std::min(layer.left, SettleQuantity(quantity - available));
    if (part > 0) {
      parts.emplace_back(holding.layers[i], part);
      available = SettleQuantity(available + part);
    }
  }
  if (available < quantity) {
    return std::nullopt;
  }
  std::vector<Piece> pieces;
  for (const auto& [layer, part] : parts) {
    const std::uint32_t lot = layers_[layer].lot;
    Take(lot, layer, part);
    if (!pieces.empty() && pieces.back().lot == lots_[lot].lot.id) {
      pieces.back().quantity = SettleQuantity(pieces.back().quantity + part);
    } else {
      pieces.push_back({lots_[lot].lot.id, lots_[lot].lot.rate, part});
    }
  }
  return pieces;
}

std::optional<HoldingsBook::Piece> HoldingsBook::TakeFromLot(const Place& place, double rate,
                                                             double quantity, double& available) {
  Holding& holding = holdings_[place];
  const auto found = holding.lot_by_rate.find(rate);
  available = found == holding.lot_by_rate.end() ? 0 : lots_[found->second].lot.quantity;
  if (available < quantity) {
    return std::nullopt;
  }
  LotState& state = lots_[found->second];
  double open = quantity;
  for (std::size_t& i = state.first_left; i < state.layers.size() && open > 0; ++i) {
    const std::uint32_t layer = state.layers[i];
    const double part = std::min(layers_[layer].left, open);
    if (part > 0) {
      Take(found->second, layer, part);
      open = SettleQuantity(open - part);
    }
    if (layers_[layer].left > 0) {
      break;
    }
  }
  if (open > 0) {
    Take(found->second, kNoLayer, open);
  }
  return Piece{state.lot.id, rate, quantity};
}

HoldingsBook::Advance HoldingsBook::TakeAhead(const Place& place, double rate, double quantity) {
  const std::uint32_t lot = LotAt(place, holdings_[place], rate);
  const double held = std::clamp(lots_[lot].lot.quantity, 0.0, quantity);
  double available = 0;
  if (held > 0) {
    TakeFromLot(place, rate, held, available);
  }
  const double open = SettleQuantity(quantity - held);
  Take(lot, kAhead, open);
  open_advances_[lot].push_back(advances_.size());
  advances_.push_back(open);
  return {lots_[lot].lot.id, advances_.size() - 1};
}

void HoldingsBook::GoBack() {
  while (!taken_.empty()) {
    const Taken taken = taken_.back();
    taken_.pop_back();
    LotState& lot = lots_[taken.lot];
    lot.lot.quantity = SettleQuantity(lot.lot.quantity + taken.quantity);
    lot.first_left = 0;
    if (taken.layer == kAhead) {
      std::deque<std::size_t>& numbers = open_advances_[taken.lot];
      advances_[numbers.back()] = 0;
      numbers.pop_back();
    } else if (taken.layer != kNoLayer) {
      layers_[taken.layer].left = SettleQuantity(layers_[taken.layer].left + taken.quantity);
    }
    holdings_[lot.place].first_left = 0;
  }
}

}  // namespace quorvane::portfolio
