#pragma once

#include "core/ClientYear.h"
#include "core/ledger/Ledger.h"
#include "core/text/Dates.h"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvane::portfolio {

/// The lots of many accounts in memory while documents are taken in, with the purchases that each
/// lot is made of, so that a sale can be taken first in, first out by purchase date. Rates and
/// quantities as in the ledger.
class HoldingsBook {
 public:
  /// A scrip in an account of a client and year.
  struct Place {
    ClientYear of;
    AccountId account;
    ScripId scrip;

    bool operator==(const Place&) const = default;
  };

  /// New lots get keys from `first_free_lot` on.
  explicit HoldingsBook(int first_free_lot) : next_lot_(first_free_lot) {}

  /// A lot as it stands in the ledger, with no purchases yet.
  void LoadLot(const Place& place, const ledger::Lot& lot);

  /// What is left of a purchase that the ledger's lot at `rate` holds already.
  void LoadLayer(const Place& place, text::Date date, double rate, double quantity);

  /// Shares come in: by an opening lot, a purchase or a transfer.
  LotId Receive(const Place& place, text::Date date, double rate, double quantity);

  /// Quantities taken from lots, in the order of the purchases used up.
  struct Piece {
    LotId lot;
    double rate = 0;
    double quantity = 0;
  };

  /// Takes shares first in, first out from the purchases up to `date`. nullopt, and nothing taken,
  /// when there are not so many; `available` then says how many there are. Neighbouring pieces of
  /// one lot are one.
  std::optional<std::vector<Piece>> TakeOldest(const Place& place, text::Date date, double quantity,
                                               double& available);

  /// Takes shares from the lot of that rate; nullopt as above.
  std::optional<Piece> TakeFromLot(const Place& place, double rate, double quantity,
                                   double& available);

  /// A sale from shares that the lot does not have yet.
  struct Advance {
    LotId lot;
    std::size_t number = 0;
  };

  /// Takes what the lot of that rate has, and the rest from what it receives next, before anything
  /// else may be taken of that. The lot is made when there is none.
  Advance TakeAhead(const Place& place, double rate, double quantity);

  /// Whether shares of the advance have not come in.
  bool IsOpen(const Advance& advance) const { return advances_[advance.number] > 0; }

  /// Remembers the state so that GoBack undoes every Take since.
  void Mark() { taken_.clear(); }
  void GoBack();

  struct LotState {
    Place place;
    ledger::Lot lot;
    double stored = 0;  ///< the quantity that the ledger holds
    bool is_new = false;
    std::vector<std::uint32_t> layers;  ///< by purchase date
    std::size_t first_left = 0;
  };

  /// Every lot, loaded or new, in the order of their appearance.
  const std::vector<LotState>& Lots() const { return lots_; }

 private:
  struct Layer {
    text::Date date;
    std::uint32_t lot;
    double left;
  };

  struct Holding {
    std::vector<std::uint32_t> layers;  ///< by purchase date, then by arrival
    std::size_t first_left = 0;
    std::map<double, std::uint32_t> lot_by_rate;
  };

  struct Taken {
    std::uint32_t lot;
    std::uint32_t layer;  ///< or kNoLayer, kAhead
    double quantity;
  };

  static constexpr std::uint32_t kNoLayer = 0xFFFFFFFF;  ///< from beyond the known purchases
  static constexpr std::uint32_t kAhead = 0xFFFFFFFE;    ///< by the last advance

  struct PlaceHash {
    std::size_t operator()(const Place& place) const noexcept;
  };

  std::uint32_t LotAt(const Place& place, Holding& holding, double rate);
  void AddLayer(Holding& holding, std::uint32_t lot, text::Date date, double quantity);
  void Insert(std::vector<std::uint32_t>& order, std::size_t& first_left, std::uint32_t layer);
  double RepayFrom(std::uint32_t lot, double quantity);
  void Take(std::uint32_t lot, std::uint32_t layer, double quantity);

  std::unordered_map<Place, Holding, PlaceHash> holdings_;
  std::vector<LotState> lots_;
  std::vector<Layer> layers_;
  std::vector<Taken> taken_;
  std::vector<double> advances_;  ///< shares that have not come in
  /// Numbers of open advances by lot, oldest first. A lot that has one has no purchase left.
  std::unordered_map<std::uint32_t, std::deque<std::size_t>> open_advances_;
  int next_lot_;
};

}  // namespace quorvane::portfolio
