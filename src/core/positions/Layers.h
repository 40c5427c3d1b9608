#pragma once

#include "core/positions/FairRates.h"
#include "core/positions/Layer.h"
#include "core/text/Ratio.h"

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace quorvane::positions {

/// A layer while its account is replayed.
struct OpenLayer : Layer {
  bool non_delivery = false;  ///< bought to be sold on the same day
};

/// The layers of a scrip in an account, first in, first out by the day of entry.
class Layers {
 public:
  /// Puts a layer behind those that entered before or on its day.
  void Add(const OpenLayer& layer);

  /// Takes a quantity, the first that entered first, and calls `take` with each part and its part
  /// of the cost. What was bought without delivery on `day` is taken last, or first when the sale
  /// is without delivery, too. Returns how many shares are missing.
  using TakePart = std::function<void(const OpenLayer& part)>;
  Shares Take(Shares quantity, Date day, bool non_delivery, const TakePart& take);

  /// The same of the layers that were acquired on a day.
  Shares TakeAcquired(Shares quantity, Date acquired);

  /// Gives every layer its part of `total` shares in place of its own; costs stay.
  void Restate(Shares total);

  /// A copy with `total` shares in all and that per cent (millionths of a per cent) of each cost,
  /// which the layers here lose.
  Layers SplitOff(Shares total, std::int64_t percent_millionths);

  /// Adds all layers of another scrip or account and leaves none there.
  void TakeOver(Layers& from);

  /// Gives the layers that were acquired up to a day their value of that day.
  void Value(Date acquired_to, const FairRate& rate);

  Shares Quantity() const;
  Paise Cost() const;

  /// Those with shares left, in order.
  std::vector<Layer> Left() const;

 private:
  void TakeFrom(OpenLayer& layer, Shares& wanted, const TakePart& take);
  void SkipUsedUp();

  std::vector<OpenLayer> layers_;
  std::size_t first_left_ = 0;  ///< those before it are used up
};

/// Divides an amount among the parts of a quantity, so that the parts add up to it.
class Spread {
 public:
  Spread(Paise whole, Shares quantity) : whole_(whole), quantity_(quantity) {}

  Paise Next(Shares part) {
    taken_ += part;
    const Paise upto = text::PartOf(whole_, taken_, quantity_);
    const Paise next = upto - given_;
    given_ = upto;
    return next;
  }

 private:
  Paise whole_;
  Shares quantity_;
  Shares taken_;
  Paise given_;
};

}  // namespace quorvane::positions
