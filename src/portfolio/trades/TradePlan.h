#pragma once

#include "core/Progress.h"
#include "portfolio/trades/TradeCharges.h"
#include "portfolio/trades/TradeMemory.h"
#include "portfolio/trades/TradeScrips.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

/// What is to become of a line.
enum class LineState : std::uint8_t {
  kNew,
  kDoubled,     ///< all its trades were taken in before
  kEntered,     ///< bills of the day have as many shares: probably entered by hand
  kLikely,      ///< the user is to confirm the scrip
  kUnknown,     ///< no scrip was found
  kImpossible,  ///< a sale of shares that are not there
};

QString TextOf(LineState state);

/// A line of a bill that the trades make: one trade, the fills of an order, or the part of these
/// that was bought and sold on one day or was not.
struct TradeLine {
  text::Date day;
  std::string exchange;
  std::string bill_number;  ///< empty when the file tells none
  std::string settlement;
  std::uint32_t scrip = 0;  ///< place in TradePlan::Scrips
  records::Side side = records::Side::kPurchase;
  bool non_delivery = false;
  text::Shares quantity;
  double rate = 0;  ///< rupees a share
  LineCharges charges;
  std::vector<std::uint32_t> trades;  ///< places in TradeFile::trades
  LineState state = LineState::kNew;
  bool ticked = false;
  text::Shares missing;  ///< of an impossible line

  /// Ticked, and of a kind that can be saved.
  bool IsToBeSaved() const {
    return ticked && (state == LineState::kNew || state == LineState::kEntered);
  }
  bool IsOpen() const { return ticked && !IsToBeSaved() && state != LineState::kDoubled; }
};

/// What the user corrects in a line. The charges are for the whole line.
struct LineChange {
  text::Shares quantity;
  double rate = 0;
  double brokerage = 0;  ///< rupees
  double tax = 0;
  double stt = 0;
};

/// What is recorded of the account already.
struct RecordedTrades {
  std::unordered_set<std::string> taken;  ///< identities of trades
  std::vector<EnteredTotal> entered;
};

/// The bill lines that the trades of files make, and what of them is new. Nothing is written here.
class TradePlan {
 public:
  enum class Fills : std::uint8_t {
    kJoined,  ///< fills of one order are one line; without an order number those of one price
    kKept,    ///< each fill is a line
  };

  TradePlan() = default;
  TradePlan(TradeFile file, std::vector<TradedScrip> scrips, RecordedTrades recorded,
            ChargeRates rates);

  /// Makes the lines anew, in the order of their days; what the user ticked and changed stays.
  /// Throws Cancellation.
  void Build(Fills fills, Progress& progress);

  const TradeFile& File() const { return file_; }
  const std::vector<TradedScrip>& Scrips() const { return scrips_; }
  const std::vector<TradeLine>& Lines() const { return lines_; }
  std::size_t Count(LineState state) const;

  /// The line's scrip as the file calls it.
  QString NameOf(const TradeLine& line) const {
    return QString::fromStdString(scrips_[line.scrip].naming.Shown());
  }

  // The lines are to be built again afterwards.
  void Settle(std::uint32_t place, ScripId scrip);
  void SettleAsNew(std::uint32_t place);

  void Tick(std::size_t line, bool on);
  void Change(std::size_t line, const LineChange& change);

  /// Whether a line that is to be saved is recorded by now: by a trade of it, or by bills of its
  /// day that were not there when the plan was made.
  bool IsOutdated(const RecordedTrades& now) const;

  /// The lines that were impossible are to be saved again, until the next look.
  void ForgetImpossible();
  void MarkImpossible(std::size_t line, text::Shares missing);

  /// The identity of each trade, given the program's scrips by their places; one that is none
  /// gives identities that agree with no recorded one.
  std::vector<std::string> Keys(std::span<const ScripId> scrips) const;

  /// The scrips by their places, none for those that are not known.
  std::vector<ScripId> KnownScrips() const;

 private:
  /// What tells a line again after another build: its first trade and its kind of delivery.
  using LineName = std::pair<std::uint32_t, bool>;

  void Join(Fills fills);
  void MarkEntered(std::vector<TradeLine>& lines) const;
  void SetStates();
  void SetCharges();
  void RoundStt();
  void Recall();

  TradeFile file_;
  std::vector<TradedScrip> scrips_;
  RecordedTrades recorded_;
  std::optional<ChargeRates> rates_;
  std::vector<TradeLine> lines_;
  std::vector<bool> doubled_;  ///< by trade
  std::map<LineName, bool> ticks_;
  std::map<LineName, LineChange> changes_;
};

}  // namespace quorvane::portfolio
