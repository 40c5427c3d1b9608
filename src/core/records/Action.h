#pragma once

#include "core/ClientYear.h"
#include "core/records/Cells.h"
#include "core/records/Table.h"
#include "core/text/Ratio.h"

#include <QString>

#include <cstdint>

namespace quorvane {

using ActionId = Id<struct ActionTag>;

namespace records {

/// What a company does to the shares of everyone who holds them, as stored.
enum class ActionKind : std::uint8_t {
  kSplit = 1,      ///< `new_shares` for `old_shares`; cost and day of acquisition stay
  kConsolidation,  ///< the same, for fewer shares
  kBonus,          ///< `new_shares` more for every `old_shares`, without cost
  kRights,         ///< as many offered at `price`; what was subscribed is in the action's lots
  kMerger,         ///< `new_shares` of `other` for `old_shares`; cost and day go along
  kDemerger,       ///< `new_shares` of `other` for every `old_shares`, with a part of the cost
  kBuyBack,        ///< the company buys at `price`; what it took is in the action's lots
  kNameChange,     ///< the shares go to the scrip `other` one for one, or only the name is noted
  kDividend,       ///< `price` rupees a share
};

/// A corporate action of a scrip. Rupees, shares and days (dd/mm/yyyy).
struct Action {
  ActionId id;  ///< none until it is saved
  ActionKind kind = ActionKind::kBonus;
  ScripId scrip;
  QString ex_day;         ///< from this day on the shares are traded without what the action gives
  QString record_day;     ///< who holds the shares then gets it; may be empty
  QString allotment_day;  ///< from which new shares count as held; may be empty
  text::Shares new_shares;
  text::Shares old_shares;
  ScripId other;            ///< the scrip that the shares of a merger, demerger or change go to
  double price = 0;         ///< a share: paid or received; of splits, mergers: for a fraction
  double cost_percent = 0;  ///< of a demerger: the part of the cost that moves to `other`
  QString note;
  bool applied = false;  ///< the holdings have it

  text::ShareRatio Ratio() const { return {new_shares, old_shares}; }
};

/// What an applied action did to shares of one lot of an account: those that left the lot, those
/// that came into a lot, or both.
struct ActionLot {
  ActionId action;
  int number = 0;  ///< from 1 on within the action
  ClientId client;
  text::FinancialYear year;  ///< of the ex-day
  AccountId account;
  ScripId scrip;  ///< of the lot that the shares left
  double rate = 0;
  text::Shares out;
  ScripId to_scrip;  ///< of the lot that shares came into
  double to_rate = 0;
  text::Shares in;
  QString acquired;        ///< day from which the shares that came in count as held, dd/mm/yyyy
  double brokerage = 0;    ///< rupees a share that came in
  double service_tax = 0;  ///< rupees for all that came in
  double stt = 0;          ///< rupees for all that came in
  bool fo = false;         ///< futures and options

  ClientYear Of() const { return {client, year}; }
};

template <>
struct Table<Action> {
  static constexpr std::string_view kName = "CorpAction";
  static constexpr auto kColumns = std::tuple(
      Column{"Id", &Action::id}, Column{"Kind", &Action::kind}, Column{"ScrId", &Action::scrip},
      Column{"ExDay", &Action::ex_day}, Column{"RecordDay", &Action::record_day},
      Column{"AllotDay", &Action::allotment_day}, Column{"NewShares", &Action::new_shares},
      Column{"OldShares", &Action::old_shares}, Column{"OtherScrId", &Action::other},
      Column{"Price", &Action::price}, Column{"CostPercent", &Action::cost_percent},
      Column{"Note", &Action::note}, Column{"Applied", &Action::applied});
};

template <>
struct Table<ActionLot> {
  static constexpr std::string_view kName = "CorpActionLot";
  static constexpr auto kColumns =
      std::tuple(Column{"ActionId", &ActionLot::action}, Column{"Id", &ActionLot::number},
                 Column{"CId", &ActionLot::client}, Column{"Fyear", &ActionLot::year},
                 Column{"AcId", &ActionLot::account}, Column{"ScrId", &ActionLot::scrip},
                 Column{"Rate", &ActionLot::rate}, Column{"OutQty", &ActionLot::out},
                 Column{"ToScrId", &ActionLot::to_scrip}, Column{"ToRate", &ActionLot::to_rate},
                 Column{"InQty", &ActionLot::in}, Column{"Acquired", &ActionLot::acquired},
                 Column{"Brk", &ActionLot::brokerage}, Column{"STax", &ActionLot::service_tax},
                 Column{"STT", &ActionLot::stt}, Column{"FO", &ActionLot::fo});
};

}  // namespace records
}  // namespace quorvane
