#include "core/positions/Layers.h"

#include <algorithm>

namespace quorvane::positions {
namespace {

constexpr std::int64_t kAllPercent = 100'000'000;

/// Takes a part out of an amount that may be unknown.
template <class PartOf>
std::optional<Paise> TakeOut(std::optional<Paise>& from, const PartOf& part_of) {
  if (!from) {
    return std::nullopt;
  }
  const Paise moved = part_of(*from);
  *from -= moved;
  return moved;
}

}  // namespace

void Layers::Add(const OpenLayer& layer) {
  const auto place = std::upper_bound(
      layers_.begin() + static_cast<std::ptrdiff_t>(first_left_), layers_.end(), layer,
      [](const OpenLayer& a, const OpenLayer& b) { return a.entered < b.entered; });
  layers_.insert(place, layer);
}

void Layers::SkipUsedUp() {
  while (first_left_ < layers_.size() && !layers_[first_left_].quantity) {
    ++first_left_;
  }
}

void Layers::TakeFrom(OpenLayer& layer, Shares& wanted, const TakePart& take) {
  const Shares quantity = std::min(layer.quantity, wanted);
  if (!quantity) {
    return;
  }
  OpenLayer part = layer;
  part.quantity = quantity;
  part.cost = text::PartOf(layer.cost, quantity, layer.quantity);
  part.fair = TakeOut(layer.fair,
                      [&](Paise whole) { return text::PartOf(whole, quantity, layer.quantity); });
  layer.quantity -= quantity;
  layer.cost -= part.cost;
  wanted -= quantity;
  take(part);
}

Shares Layers::Take(Shares quantity, Date day, bool non_delivery, const TakePart& take) {
  SkipUsedUp();
  for (const bool of_the_day : {non_delivery, !non_delivery}) {
    for (std::size_t i = first_left_; i < layers_.size() && quantity > Shares(); ++i) {
      OpenLayer& layer = layers_[i];
      if ((layer.non_delivery && layer.entered == day) == of_the_day) {
        TakeFrom(layer, quantity, take);
      }
    }
  }
  return quantity;
}

Shares Layers::TakeAcquired(Shares quantity, Date acquired) {
  for (OpenLayer& layer : layers_) {
    if (layer.acquired == acquired) {
      TakeFrom(layer, quantity, [](const OpenLayer&) {});
    }
  }
  return quantity;
}

void Layers::Restate(Shares total) {
  const Shares whole = Quantity();
  Shares before;
  Shares given;
  for (OpenLayer& layer : layers_) {
    before += layer.quantity;
    const Shares upto = Shares::OfMillionths(
        text::Proportion(total.Millionths(), before.Millionths(), whole.Millionths()));
    layer.quantity = upto - given;
    given = upto;
  }
}

Layers Layers::SplitOff(Shares total, std::int64_t percent_millionths) {
  const auto part_of = [&](Paise whole) {
    return Paise(text::Proportion(whole.Count(), percent_millionths, kAllPercent));
  };
  SkipUsedUp();
  Layers part = *this;
  part.Restate(total);
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    const Paise moved = part_of(layers_[i].cost);
    part.layers_[i].cost = moved;
    layers_[i].cost -= moved;
    part.layers_[i].fair = TakeOut(layers_[i].fair, part_of);
  }
  return part;
}

void Layers::TakeOver(Layers& from) {
  for (const OpenLayer& layer : from.layers_) {
    if (layer.quantity) {
      Add(layer);
    }
  }
  from = {};
}

void Layers::Value(Date acquired_to, const FairRate& rate) {
  for (std::size_t i = first_left_; i < layers_.size(); ++i) {
    OpenLayer& layer = layers_[i];
    if (layer.acquired <= acquired_to) {
      layer.fair = rate.ValueOf(layer.quantity);
    }
  }
}

Shares Layers::Quantity() const {
  Shares sum;
  for (std::size_t i = first_left_; i < layers_.size(); ++i) {
    sum += layers_[i].quantity;
  }
  return sum;
}

Paise Layers::Cost() const {
  Paise sum;
  for (std::size_t i = first_left_; i < layers_.size(); ++i) {
    sum += layers_[i].cost;
  }
  return sum;
}

std::vector<Layer> Layers::Left() const {
  std::vector<Layer> left;
  for (const OpenLayer& layer : layers_) {
    if (layer.quantity) {
      left.push_back(layer);
    }
  }
  return left;
}

}  // namespace quorvane::positions
