#include "core/ledger/Layers.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace quorvane::ledger {

using records::Lot;
using records::Movement;
using records::MovementKind;

std::size_t Layers::HoldingHash::operator()(const Holding& holding) const noexcept {
  const Place& place = holding.place;
  std::uint64_t hash = static_cast<std::uint32_t>(place.account.value);
  hash = (hash << 32) ^ static_cast<std::uint32_t>(holding.scrip.value);
  hash ^= static_cast<std::uint64_t>(place.of.client.value) << 20;
  hash ^= static_cast<std::uint64_t>(place.of.year.FirstCalendarYear()) << 48;
  hash *= 0x9E3779B97F4A7C15ULL;
  return hash ^ (hash >> 29);
}

/// The lot that a movement adds to or draws on; of two rows of one lot the one that counts.
const Lot* Layers::LotOf(const Movement& m) const {
  const Place place{{m.client, m.year}, m.account};
  if (m.kind != MovementKind::kSale) {
    return lots_.Find(LotKey{place.of, m.account, m.scrip, m.rate});
  }
  const Lot* named = lots_.Find(place, m.lot, m.scrip);
  return named == nullptr ? nullptr : lots_.Find(KeyOf(*named));
}

void Layers::Add(const Movement& m) {
  const Lot* lot = m.dated ? LotOf(m) : nullptr;
  if (lot == nullptr) {
    return;
  }
  if (!records::IsReceipt(m.kind)) {
    gone_[lot->id] += m.quantity;
  } else {
    arrivals_.push_back({m.acquired, m.kind, m.document, m.line, lot->id, m.quantity,
                         m.non_delivery, m.fo, m.date});
  }
}

void Layers::Arrange() {
  std::ranges::sort(arrivals_, {}, &Arrival::Order);
  for (const Arrival& arrival : std::exchange(arrivals_, {})) {
    Shares& gone = gone_[arrival.lot];
    const Shares used_up = std::min(gone, arrival.quantity);
    gone -= used_up;
    if (used_up < arrival.quantity) {
      Append({.date = arrival.date,
              .lot = arrival.lot,
              .left = arrival.quantity - used_up,
              .non_delivery = arrival.non_delivery,
              .fo = arrival.fo,
              .kind = arrival.kind,
              .entered = arrival.entered});
    }
  }
  gone_.clear();
}

Layers::Queue& Layers::QueueOf(const Holding& holding) {
  const auto [place, fresh] =
      holding_places_.try_emplace(holding, static_cast<std::uint32_t>(holdings_.size()));
  if (fresh) {
    holdings_.emplace_back();
  }
  return holdings_[place->second];
}

Layers::OfLot& Layers::StateOf(LotId id) {
  const auto [place, fresh] = of_lot_.try_emplace(id);
  if (fresh) {
    const Lot& lot = *lots_.Find(id);
    const Queue& queue = QueueOf({{lot.Of(), lot.account}, lot.scrip});
    place->second.holding = static_cast<std::uint32_t>(&queue - holdings_.data());
  }
  return place->second;
}

LotId Layers::Receive(const LotKey& key, const Receipt& receipt) {
  const LotId lot = lots_.PostLot(Posting::kAdd, key, receipt.quantity);
  if (const Shares left = Repay(StateOf(lot), receipt.quantity)) {
    Append({.date = receipt.date,
            .lot = lot,
            .left = left,
            .non_delivery = receipt.non_delivery,
            .fo = receipt.fo,
            .kind = receipt.kind,
            .entered = receipt.entered.value_or(receipt.date)});
  }
  return lot;
}

/// Gives shares to the lot's advances, first come, first served; what is left of them.
Shares Layers::Repay(OfLot& state, Shares quantity) {
  while (!state.advances.empty() && quantity > Shares()) {
    Shares& open = advances_[state.advances.front()];
    const Shares part = std::min(open, quantity);
    open -= part;
    quantity -= part;
    if (!open) {
      state.advances.pop_front();
    }
  }
  return quantity;
}

void Layers::Append(const Layer& received) {
  const auto layer = static_cast<std::uint32_t>(layers_.size());
  layers_.push_back(received);
  layers_.back().arrival = layer;
  layers_.back().received = received.left;
  OfLot& state = StateOf(received.lot);
  Insert(holdings_[state.holding], layer);
  Insert(state.queue, layer);
}

void Layers::Insert(Queue& queue, std::uint32_t layer) {
  const auto place = std::upper_bound(
      queue.layers.begin(), queue.layers.end(), layer,
      [this](std::uint32_t a, std::uint32_t b) { return layers_[a].date < layers_[b].date; });
  queue.first_left =
      std::min(queue.first_left, static_cast<std::size_t>(place - queue.layers.begin()));
  queue.layers.insert(place, layer);
}

void Layers::SkipUsedUp(Queue& queue) {
  while (queue.first_left < queue.layers.size() &&
         !(layers_[queue.layers[queue.first_left]].left > Shares())) {
    ++queue.first_left;
  }
}

void Layers::TakeShares(LotId lot, std::uint32_t layer, Shares quantity) {
  if (layer < kAhead) {
    layers_[layer].left -= quantity;
  }
  lots_.AdjustLotQty(Posting::kSubtract, lot, quantity);
  taken_.push_back({lot, layer, quantity});
}

/// Adds parts of the layers up to a date, oldest first, until the wanted shares are together: of
/// those bought without delivery on that day, or of the others.
void Layers::AddParts(Parts& parts, const Queue& queue, text::Date date, Shares wanted,
                      bool non_delivery_of_the_day) const {
  std::size_t i = queue.first_left;
  if (non_delivery_of_the_day) {
    const auto first = std::ranges::lower_bound(
        queue.layers, date, {}, [this](std::uint32_t at) { return layers_[at].date; });
    i = std::max(i, static_cast<std::size_t>(first - queue.layers.begin()));
  }
  for (; i < queue.layers.size() && parts.sum < wanted; ++i) {
    const Layer& layer = layers_[queue.layers[i]];
    if (layer.date > date) {
      break;
    }
    const bool of_the_day = layer.non_delivery && layer.date == date;
    const Shares part = std::min(layer.left, wanted - parts.sum);
    if (part > Shares() && of_the_day == non_delivery_of_the_day) {
      parts.parts.emplace_back(queue.layers[i], part);
      parts.sum += part;
    }
  }
}

Layers::Taken Layers::TakeParts(const Parts& parts, Shares wanted) {
  Taken taken;
  taken.available = parts.sum;
  if (parts.sum < wanted) {
    return taken;
  }
  for (const auto& [layer, part] : parts.parts) {
    const LotId lot = layers_[layer].lot;
    TakeShares(lot, layer, part);
    if (!taken.pieces.empty() && taken.pieces.back().lot == lot) {
      taken.pieces.back().quantity += part;
    } else {
      taken.pieces.push_back({lot, lots_.Find(lot)->rate, part});
    }
  }
  return taken;
}

Layers::Taken Layers::TakeOldest(const Place& place, ScripId scrip, text::Date date,
                                 Shares quantity) {
  return TakeByDate({place, scrip}, date, quantity, false);
}

Layers::Taken Layers::TakeNonDelivery(const Place& place, ScripId scrip, text::Date date,
                                      Shares quantity) {
  return TakeByDate({place, scrip}, date, quantity, true);
}

Layers::Taken Layers::TakeByDate(const Holding& holding, text::Date date, Shares quantity,
                                 bool non_delivery) {
  Queue& queue = QueueOf(holding);
  SkipUsedUp(queue);
  Parts parts;
  AddParts(parts, queue, date, quantity, non_delivery);
  AddParts(parts, queue, date, quantity, !non_delivery);
  return TakeParts(parts, quantity);
}

/// Takes from the purchases of a lot, oldest first; how many shares they do not have.
Shares Layers::TakeLayers(LotId lot, Shares quantity) {
  Queue& queue = StateOf(lot).queue;
  for (SkipUsedUp(queue); queue.first_left < queue.layers.size() && quantity > Shares();
       SkipUsedUp(queue)) {
    const std::uint32_t layer = queue.layers[queue.first_left];
    const Shares part = std::min(layers_[layer].left, quantity);
    TakeShares(lot, layer, part);
    quantity -= part;
  }
  return quantity;
}

Layers::Taken Layers::TakeFromLot(const LotKey& key, Shares quantity) {
  const Lot* lot = lots_.Find(key);
  Taken taken;
  taken.available = lot == nullptr ? Shares() : lot->quantity;
  if (taken.available < quantity) {
    return taken;
  }
  taken.pieces = {{lot->id, lot->rate, quantity}};
  if (const Shares beyond = TakeLayers(lot->id, quantity)) {
    TakeShares(taken.pieces.front().lot, kNoLayer, beyond);
  }
  return taken;
}

Layers::Advance Layers::TakeAhead(const LotKey& key, Shares quantity) {
  const LotId lot = lots_.PostLot(Posting::kAdd, key, Shares());
  const Shares held = std::clamp(lots_.Find(lot)->quantity, Shares(), quantity);
  if (held) {
    TakeFromLot(key, held);
  }
  TakeShares(lot, kAhead, quantity - held);
  StateOf(lot).advances.push_back(advances_.size());
  advances_.push_back(quantity - held);
  return {lot, advances_.size() - 1};
}

void Layers::GoBack() {
  while (!taken_.empty()) {
    const Take take = taken_.back();
    taken_.pop_back();
    lots_.AdjustLotQty(Posting::kAdd, take.lot, take.quantity);
    OfLot& state = StateOf(take.lot);
    if (take.layer == kAhead) {
      advances_[state.advances.back()] = {};
      state.advances.pop_back();
    } else if (take.layer != kNoLayer) {
      layers_[take.layer].left += take.quantity;
      state.queue.first_left = 0;
      holdings_[state.holding].first_left = 0;
    }
  }
}

std::vector<Layer> Layers::ByEntry(LotId lot) const {
  std::vector<Layer> layers;
  Shares taken;
  if (const auto state = of_lot_.find(lot); state != of_lot_.end()) {
    for (const std::uint32_t layer : state->second.queue.layers) {
      layers.push_back(layers_[layer]);
      taken += layers.back().received - layers.back().left;
    }
  }
  std::ranges::sort(layers, {},
                    [](const Layer& layer) { return std::pair(layer.entered, layer.arrival); });
  for (Layer& layer : layers) {
    const Shares used_up = std::min(taken, layer.received);
    layer.left = layer.received - used_up;
    taken -= used_up;
  }
  std::erase_if(layers, [](const Layer& layer) { return !layer.left; });
  return layers;
}

}  // namespace quorvane::ledger
