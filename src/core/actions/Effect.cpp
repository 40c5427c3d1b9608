#include "core/actions/Effect.h"

#include "core/text/Amounts.h"

#include <algorithm>

namespace quorvane::actions {
namespace {

using records::Action;
using records::ActionKind;
using records::ActionLot;
using text::Tidy;

/// Makes the lots of an action for one account.
class Applying {
 public:
  Applying(const Action& action, text::Date ex_day, std::span<const HeldPiece> pieces)
      : action_(action), ex_day_(ex_day), pieces_(pieces) {
    for (const HeldPiece& piece : pieces) {
      effect_.before += piece.quantity;
      effect_.cost_before += piece.Cost();
    }
    effect_.after = effect_.before;
  }

  /// All shares become shares of `to`.
  Effect Exchange(ScripId to, const text::ShareRatio& ratio) {
    const Scaled scaled = Scale(ratio);
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      ActionLot& lot = AddLot(pieces_[i]);
      lot.out = pieces_[i].quantity;
      Receive(lot, to, scaled[i], 1, ratio);
      effect_.received += lot.in;
    }
    if (to == action_.scrip) {
      effect_.after = std::exchange(effect_.received, Shares());
    } else {
      effect_.after = {};
      effect_.cost_moved = effect_.cost_before;
    }
    return std::move(effect_);
  }

  /// New shares of the other scrip, with a part of the cost.
  Effect Demerge() {
    const Scaled scaled = Scale(action_.Ratio());
    const double part = Tidy(action_.cost_percent / kPercent);
    for (const HeldPiece& piece : pieces_) {
      ActionLot& kept = AddLot(piece);
      kept.out = piece.quantity;
      Receive(kept, action_.scrip, {piece.quantity, piece.quantity}, Tidy(1 - part), {kOne, kOne});
    }
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      ActionLot& given = AddLot(pieces_[i]);
      Receive(given, action_.other, scaled[i], part, action_.Ratio());
      effect_.received += given.in;
    }
    std::erase_if(effect_.lots, [](const ActionLot& lot) { return !lot.out && !lot.in; });
    effect_.cost_moved =
        Paise(text::Proportion(effect_.cost_before.Count(),
                               Shares(action_.cost_percent).Millionths(), kPercentMillionths));
    return std::move(effect_);
  }

  /// Shares that come in beside those that are held.
  Effect Give(Shares quantity, double rate) {
    effect_.received = quantity;
    effect_.after += quantity;
    effect_.cost_moved = Paise::OfRupees(rate * quantity.Number());
    if (quantity) {
      ActionLot& lot = AddLot({});
      lot.in = quantity;
      lot.to_scrip = action_.scrip;
      lot.to_rate = rate;
      lot.acquired = text::FormatDmy(HeldFrom(action_, ex_day_));
    }
    return std::move(effect_);
  }

  Effect GiveBonus() {
    const Shares exact = action_.Ratio().Of(effect_.before);
    const Shares whole = text::WholeShares(exact);
    AddFraction(exact - whole);
    return Give(whole, 0);
  }

  Effect TakeBack(Shares quantity) {
    effect_.after -= quantity;
    for (const HeldPiece& piece : pieces_) {
      const Shares part = std::min(quantity, piece.quantity);
      if (part) {
        AddLot(piece).out = part;
        quantity -= part;
      }
    }
    return std::move(effect_);
  }

  Effect Nothing() { return std::move(effect_); }

 private:
  /// The new quantity of a piece, exactly and without what is paid for in money.
  struct Quantity {
    Shares exact;
    Shares kept;
  };
  using Scaled = std::vector<Quantity>;

  static constexpr double kPercent = 100;
  static constexpr std::int64_t kPercentMillionths = 100'000'000;
  static constexpr Shares kOne = Shares::OfMillionths(1'000'000);

  Scaled Scale(const text::ShareRatio& ratio) {
    Scaled scaled;
    Shares held;
    Shares given;
    for (const HeldPiece& piece : pieces_) {
      held += piece.quantity;
      const Shares upto = ratio.Of(held);
      scaled.push_back({upto - given, upto - given});
      given = upto;
    }
    Shares fraction = given - text::WholeShares(given);
    AddFraction(fraction);
    for (Quantity& quantity : scaled) {
      const Shares part = std::min(fraction, quantity.kept);
      quantity.kept -= part;
      fraction -= part;
    }
    return scaled;
  }

  void AddFraction(Shares fraction) {
    effect_.fraction = fraction;
    effect_.fraction_money = Paise::OfRupees(action_.price * fraction.Number());
  }

  ActionLot& AddLot(const HeldPiece& piece) {
    ActionLot& lot = effect_.lots.emplace_back();
    lot.scrip = action_.scrip;
    lot.rate = piece.rate;
    lot.acquired = text::FormatDmy(piece.acquired);
    lot.brokerage = piece.brokerage;
    lot.service_tax = piece.service_tax;
    lot.stt = piece.stt;
    return lot;
  }

  /// The shares of a piece come in as others, with `part` of what they cost.
  static void Receive(ActionLot& lot, ScripId to, const Quantity& quantity, double part,
                      const text::ShareRatio& ratio) {
    const double kept = quantity.exact ? quantity.kept.Number() / quantity.exact.Number() : 0;
    lot.in = quantity.kept;
    lot.to_scrip = to;
    lot.to_rate = ratio.RateFor(lot.rate * part);
    lot.brokerage = ratio.RateFor(lot.brokerage * part);
    lot.service_tax = text::RoundAmount(lot.service_tax * part * kept);
    lot.stt = text::RoundAmount(lot.stt * part * kept);
  }

  const Action& action_;
  text::Date ex_day_;
  std::span<const HeldPiece> pieces_;
  Effect effect_;
};

/// Numbers the lots and clears what lots without shares coming in have no use for.
Effect Finished(Effect effect) {
  int number = 0;
  for (ActionLot& lot : effect.lots) {
    lot.number = ++number;
    if (!lot.in) {
      lot.to_scrip = {};
      lot.to_rate = 0;
      lot.acquired.clear();
      lot.brokerage = 0;
      lot.service_tax = 0;
      lot.stt = 0;
    }
  }
  return effect;
}

Effect ApplyKind(const Action& action, text::Date ex_day, std::span<const HeldPiece> pieces,
                 const std::optional<Shares>& chosen) {
  Applying applying(action, ex_day, pieces);
  constexpr Shares kOne = Shares::OfMillionths(1'000'000);
  Shares held;
  for (const HeldPiece& piece : pieces) {
    held += piece.quantity;
  }
  switch (action.kind) {
    case ActionKind::kSplit:
    case ActionKind::kConsolidation:
      return applying.Exchange(action.scrip, action.Ratio());
    case ActionKind::kMerger:
      return applying.Exchange(action.other, action.Ratio());
    case ActionKind::kNameChange:
      return action.other ? applying.Exchange(action.other, {kOne, kOne}) : applying.Nothing();
    case ActionKind::kDemerger:
      return applying.Demerge();
    case ActionKind::kBonus:
      return applying.GiveBonus();
    case ActionKind::kRights:
      return applying.Give(chosen.value_or(Entitlement(action, held)), action.price);
    case ActionKind::kBuyBack:
      return applying.TakeBack(std::min(held, chosen.value_or(Shares())));
    case ActionKind::kDividend:
      return applying.Nothing();
  }
  return applying.Nothing();
}

}  // namespace

Paise HeldPiece::Cost() const {
  return Paise::OfRupees(Tidy(rate + brokerage) * quantity.Number()) + Paise::OfRupees(service_tax);
}

Shares Entitlement(const Action& action, Shares held) {
  const bool offered = action.kind == ActionKind::kRights || action.kind == ActionKind::kBuyBack;
  return offered && action.old_shares ? text::WholeShares(action.Ratio().Of(held)) : Shares();
}

text::Date HeldFrom(const Action& action, text::Date ex_day) {
  if (const auto allotted = text::ParseDmy(action.allotment_day)) {
    return *allotted;
  }
  if (action.kind != ActionKind::kBonus) {
    return ex_day;
  }
  constexpr unsigned kFriday = 5;
  text::Date day = text::ParseDmy(action.record_day).value_or(ex_day) + std::chrono::days(1);
  while (std::chrono::weekday(day).iso_encoding() > kFriday) {
    day += std::chrono::days(1);
  }
  return day;
}

Effect Apply(const Action& action, text::Date ex_day, std::span<const HeldPiece> pieces,
             const std::optional<Shares>& chosen) {
  return Finished(ApplyKind(action, ex_day, pieces, chosen));
}

}  // namespace quorvane::actions
