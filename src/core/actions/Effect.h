#pragma once

#include "core/records/Action.h"
#include "core/text/Dates.h"
#include "core/text/Paise.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvane::actions {

using text::Paise;
using text::Shares;

/// Shares of one lot that were acquired together, as an account holds them before an action.
struct HeldPiece {
  double rate = 0;  ///< of the lot, rupees a share
  Shares quantity;
  text::Date acquired;
  double brokerage = 0;    ///< rupees a share
  double service_tax = 0;  ///< rupees for the quantity
  double stt = 0;          ///< rupees for the quantity

  /// With brokerage and the tax on it.
  Paise Cost() const;
};

/// What an action does to the shares of one account.
struct Effect {
  Shares before;         ///< of the action's scrip
  Shares after;          ///< of it
  Shares received;       ///< of the other scrip, or by bonus and rights
  Shares fraction;       ///< of a share, paid for in money
  Paise fraction_money;  ///< for it
  Paise cost_before;
  Paise cost_moved;                      ///< to the other scrip, or paid for rights
  std::vector<records::ActionLot> lots;  ///< without client, year and account
};

/// The whole shares that a holder is offered by rights or asked for by a buy-back; 0 for others.
Shares Entitlement(const records::Action& action, Shares held);

/// The days of an action that are not recorded: bonus shares count as held from the working day
/// after the record day (holidays are not known), rights from the ex-day.
text::Date HeldFrom(const records::Action& action, text::Date ex_day);

/// Applies an action to the pieces of an account, which come in the order in which they entered it.
/// Of rights and buy-backs `chosen` says how many shares were subscribed or given; without it the
/// entitlement is taken for rights and nothing for buy-backs, at most what is held. Whole shares
/// only: the fraction is taken from the pieces that entered first.
Effect Apply(const records::Action& action, text::Date ex_day, std::span<const HeldPiece> pieces,
             const std::optional<Shares>& chosen = {});

}  // namespace quorvane::actions
