#pragma once

#include "core/positions/Events.h"
#include "core/positions/Layers.h"
#include "core/positions/Positions.h"

#include <deque>
#include <functional>
#include <set>
#include <span>
#include <unordered_map>
#include <vector>

namespace quorvane::positions {

/// The accounts of one scrip, or of several that corporate actions connect, while their events are
/// replayed in the order of Event::day and Event::kind.
class Replay {
 public:
  /// What is known of all clients: which years were opened with recorded balances, and each
  /// client's first year.
  struct Years {
    std::set<std::pair<int, text::FinancialYear>> opened;  ///< by client
    std::unordered_map<int, text::FinancialYear> first;    ///< by client
    std::vector<text::FinancialYear> all;                  ///< those in `opened`, ascending
  };

  /// `days`, ascending, are those whose balances are noted.
  Replay(std::span<const DatedAction> actions, const Years& years,
         const tax::FairValues& fair_values, std::span<const Date> days, Positions& result)
      : actions_(actions),
        years_(years),
        fair_values_(fair_values),
        fair_(fair_values),
        days_(days),
        result_(result) {}

  /// The events of the scrips; adds to the result.
  void Run(std::span<const Event> events, Date to);

 private:
  struct Account {
    ClientId client;
    Place place;
    Layers layers;
  };

  struct Sold {
    PieceKind kind;
    const Event& event;
    Paise sale;
  };

  Account& At(ClientId client, const Place& place);
  Account& Of(const Event& event) {
    return At(event.client, {event.account, event.scrip, event.fo});
  }

  void PassTo(Date day);
  void OpenYear(text::FinancialYear year, std::span<const Event> openings);
  void Open(Account& account, text::FinancialYear year, std::span<const Event> openings);
  void AddOpening(Account& account, OpenLayer layer);
  void Adopt(Account& account, Shares excess, std::span<const Event> openings);
  void Drop(Account& account, Shares missing, std::span<const Event> openings);
  void Play(const Event& event);
  void Sell(const Event& event, PieceKind kind);
  void Transfer(const Event& event);
  void Apply(const DatedAction& action, const Event& event);
  void ApplyTo(Account& account, const DatedAction& action, const Event& event);
  void GiveBonus(Account& account, const DatedAction& action, const Event& event);
  void MoveTo(Account& account, Layers moved, const DatedAction& action, const Event& event);
  void TakeFraction(const Account& account, Layers& layers, const DatedAction& action,
                    const Event& event);
  void AddShortage(const Account& account, const Event& event, Shares quantity);
  void AddOpeningMove(const Account& account, text::FinancialYear year, Shares before,
                      Paise cost_before);
  void NoteBalancesBefore(Date day);
  void Finish();

  std::span<const DatedAction> actions_;
  const Years& years_;
  const tax::FairValues& fair_values_;
  FairRates fair_;
  bool valued_ = false;  ///< 31-Jan-2018 is past
  std::span<const Date> days_;
  std::size_t next_day_ = 0;
  Positions& result_;
  std::deque<Account> accounts_;
  std::unordered_map<std::uint64_t, std::vector<Account*>> by_account_;
};

}  // namespace quorvane::positions
