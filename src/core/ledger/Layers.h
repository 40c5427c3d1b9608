#pragma once

#include "core/ledger/Lots.h"
#include "core/records/Movements.h"
#include "core/text/Dates.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quorvane::ledger {

/// A purchase, opening lot or transfer in, as far as its shares are still there.
struct Layer {
  text::Date date;
  LotId lot;
  Shares left;
  Shares received = {};       ///< `left` before the first Take
  bool non_delivery = false;  ///< bought to be sold on the same day
  bool fo = false;            ///< futures and options
  records::MovementKind kind = records::MovementKind::kPurchase;
  text::Date entered;         ///< `date`, but of shares from a corporate action its ex-day
  std::uint32_t arrival = 0;  ///< in the order in which layers were added

  /// Whether a corporate action of that ex-day is of these shares: of opening stock, also when it
  /// counts as held from a later day, and of what other actions of the day made.
  bool IsThereFor(text::Date ex_day) const {
    return entered < ex_day || kind == records::MovementKind::kOpening ||
           (entered == ex_day && kind == records::MovementKind::kActionIn);
  }
};

/// Shares that come in.
struct Receipt {
  text::Date date;  ///< from which they count as held
  Shares quantity;
  bool non_delivery = false;
  bool fo = false;
  records::MovementKind kind = records::MovementKind::kPurchase;
  std::optional<text::Date> entered = {};  ///< `date` when there is none
};

/// The purchases that lots are made of, by account and scrip, so that shares can be taken first in,
/// first out by the day on which they were bought. Posts what comes in and what leaves to the lots.
///
/// Filled with Add and Arrange from recorded movements, over lots that have them already. Within a
/// lot their sales and transfers use up first what came in first, also what came in later than
/// they.
class Layers {
 public:
  /// The lots must outlive the layers. Nothing else may change them meanwhile.
  explicit Layers(Lots& lots) : lots_(lots) {}

  /// A movement that the lots hold. One without a date, or of a lot that is not there, is passed
  /// over: its shares belong to no purchase. Nothing may have been received or taken before.
  void Add(const records::Movement& movement);

  /// Puts the movements that were added in their order and uses up what was sold of them.
  void Arrange();

  /// Shares come in: by an opening lot, a purchase or a transfer.
  LotId Receive(const LotKey& key, const Receipt& receipt);

  /// Shares taken from one lot.
  struct Piece {
    LotId lot;
    double rate = 0;  ///< the lot's, rupees a share
    Shares quantity;
  };

  /// Pieces in the order of the purchases used up, neighbouring ones of one lot as one. When there
  /// are not enough shares nothing is taken, and `available` says how many there are.
  struct Taken {
    std::vector<Piece> pieces;
    Shares available;

    explicit operator bool() const { return !pieces.empty(); }
  };

  /// Takes a positive quantity from the purchases up to `date`, the oldest first; from what was
  /// bought without delivery on that day only when nothing else is left.
  Taken TakeOldest(const Place& place, ScripId scrip, text::Date date, Shares quantity);

  /// The same for a sale without delivery: first what was bought so on that day, then the oldest.
  Taken TakeNonDelivery(const Place& place, ScripId scrip, text::Date date, Shares quantity);

  /// Takes a positive quantity from one lot.
  Taken TakeFromLot(const LotKey& key, Shares quantity);

  /// A sale of shares that the lot does not have yet.
  struct Advance {
    LotId lot;
    std::size_t number = 0;
  };

  /// Takes what the lot has, and the rest from what it receives next, before anything else may be
  /// taken of that. The lot is made when there is none.
  Advance TakeAhead(const LotKey& key, Shares quantity);

  /// Whether shares of the advance have not come in.
  bool IsOpen(const Advance& advance) const { return advances_[advance.number] > Shares(); }

  /// Remembers the state so that GoBack undoes every Take since. Nothing may be received between.
  void Mark() { taken_.clear(); }
  void GoBack();

  /// What is left of the purchases of a lot when all that was taken of it used up first what came
  /// in first, as statements count it; in that order. The lot may have further shares that belong
  /// to no purchase.
  std::vector<Layer> ByEntry(LotId lot) const;

 private:
  /// Layers by date, then by arrival. Those before `first_left` are used up.
  struct Queue {
    std::vector<std::uint32_t> layers;
    std::size_t first_left = 0;
  };

  struct OfLot {
    Queue queue;
    std::uint32_t holding;
    std::deque<std::size_t> advances;  ///< open ones, oldest first; then no purchase is left
  };

  /// A scrip in an account of a client and year.
  struct Holding {
    Place place;
    ScripId scrip;

    bool operator==(const Holding&) const = default;
  };
  struct HoldingHash {
    std::size_t operator()(const Holding& holding) const noexcept;
  };

  struct Take {
    LotId lot;
    std::uint32_t layer;  ///< or kNoLayer, kAhead
    Shares quantity;
  };

  /// A movement before Arrange.
  struct Arrival {
    text::Date date;
    records::MovementKind kind;
    int document;
    int line;
    LotId lot;
    Shares quantity;
    bool non_delivery;
    bool fo;
    text::Date entered;

    auto Order() const { return std::tuple(entered, kind, document, line); }
  };

  static constexpr std::uint32_t kNoLayer = 0xFFFFFFFF;  ///< shares that belong to no purchase
  static constexpr std::uint32_t kAhead = 0xFFFFFFFE;    ///< by the last advance

  const records::Lot* LotOf(const records::Movement& movement) const;
  OfLot& StateOf(LotId lot);
  Queue& QueueOf(const Holding& holding);
  Shares Repay(OfLot& state, Shares quantity);
  void Append(const Layer& layer);
  void Insert(Queue& queue, std::uint32_t layer);
  void SkipUsedUp(Queue& queue);
  /// Parts of the layers that a sale uses up.
  struct Parts {
    std::vector<std::pair<std::uint32_t, Shares>> parts;
    Shares sum;
  };
  void AddParts(Parts& parts, const Queue& queue, text::Date date, Shares wanted,
                bool non_delivery_of_the_day) const;
  Taken TakeByDate(const Holding& holding, text::Date date, Shares quantity, bool non_delivery);
  Taken TakeParts(const Parts& parts, Shares wanted);
  void TakeShares(LotId lot, std::uint32_t layer, Shares quantity);
  Shares TakeLayers(LotId lot, Shares quantity);

  Lots& lots_;
  std::vector<Layer> layers_;
  std::unordered_map<LotId, OfLot> of_lot_;
  std::unordered_map<Holding, std::uint32_t, HoldingHash> holding_places_;
  std::vector<Queue> holdings_;
  std::vector<Shares> advances_;  ///< shares that have not come in
  std::vector<Take> taken_;
  std::vector<Arrival> arrivals_;
  std::unordered_map<LotId, Shares> gone_;
};

}  // namespace quorvane::ledger
