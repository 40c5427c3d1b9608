#pragma once

#include "core/ClientYear.h"
#include "core/text/Dates.h"
#include "core/text/Paise.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::positions {

using text::Date;
using text::Paise;
using text::Shares;

/// How the shares of a layer were acquired first.
enum class Source : std::uint8_t { kOpening, kPurchase, kBonus, kRights, kTransfer };

/// Shares of one scrip in one account that were acquired together.
struct Layer {
  Date acquired;  ///< holding periods count from it
  Date entered;   ///< into this account: the order in which shares leave
  Shares quantity;
  Paise cost;  ///< of the quantity, with brokerage and the tax on it, without STT
  Source source = Source::kPurchase;

  /// What the shares were worth at the highest price of 31-Jan-2018. It stays with them as their
  /// cost does. None for shares acquired later, and where the price is not known.
  std::optional<Paise> fair = std::nullopt;
};

/// The account and scrip of shares; futures and options are a place of their own.
struct Place {
  AccountId account;
  ScripId scrip;
  bool fo = false;

  auto operator<=>(const Place&) const = default;
};

/// How a piece of a layer left the account.
enum class PieceKind : std::uint8_t {
  kDelivery,     ///< sold by a bill
  kSpeculation,  ///< bought and sold on one day without delivery
  kFo,           ///< futures and options
  kBuyBack,      ///< taken by the company
  kFraction,     ///< a part of a share, paid for in money by a corporate action
};

/// A quantity that was sold, with the layer that it came from. The pieces of a sale add up to its
/// amounts, to the paisa.
struct Piece {
  ClientId client{};
  Place place{};
  PieceKind kind = PieceKind::kDelivery;
  bool has_cost = true;  ///< false for shares that were not there: cost and days are not known
  Date acquired{};
  Date entered{};
  Date sold{};
  Shares quantity{};
  Paise cost{};
  Paise sale{};      ///< before expenses
  Paise expenses{};  ///< brokerage and the tax on it
  Paise stt{};
  bool stt_paid = false;  ///< on the sale, also where this piece's part of it rounds to nothing
  std::optional<Paise> fair{};  ///< as of the layer
  Source source = Source::kPurchase;
  int document = 0;  ///< key of the bill or corporate action
  int line = 0;

  Paise Gain() const { return has_cost ? sale - expenses - cost : Paise(); }
};

/// What an account holds of a scrip, by the day on which the layers entered.
struct Holding {
  ClientId client{};
  Place place{};
  std::vector<Layer> layers;

  Shares Quantity() const;
  Paise Cost() const;
};

/// An opening balance that is not what the years before leave. The balance is taken as recorded.
struct Difference {
  ClientYear of{};
  Place place{};
  Shares recorded{};
  Shares computed{};
  Paise recorded_cost{};
  Paise computed_cost{};

  Shares Excess() const { return recorded - computed; }
};

/// How shares came into an account or left it without a trade.
enum class MoveKind : std::uint8_t {
  kOpening,   ///< recorded by an opening balance, and not what the years before leave
  kTransfer,  ///< to an account of the same or of another client
  kAction,    ///< to another scrip, by a corporate action
};

/// Shares that came in, left or went from one place to another without a trade, with their cost.
struct Move {
  Date day{};
  MoveKind kind = MoveKind::kOpening;
  ClientId from_client{};  ///< none of shares that an opening balance brings
  Place from{};
  ClientId to_client{};  ///< none of shares that an opening balance lacks
  Place to{};
  Shares quantity{};  ///< of the scrip that they come into; of `from` when there is none
  Paise cost{};
  int document = 0;  ///< key of the transfer or corporate action
};

/// What an account had of a scrip when a day ended.
struct Balance {
  Date day{};
  ClientId client{};
  Place place{};
  Shares quantity{};
  Paise cost{};
};

/// Shares that left an account which did not have them.
struct Shortage {
  ClientId client{};
  Place place{};
  Date day{};
  Shares quantity{};
  int document = 0;  ///< key of the bill, transfer or corporate action
};

}  // namespace quorvane::positions
