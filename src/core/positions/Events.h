#pragma once

#include "core/positions/Layer.h"
#include "core/records/Action.h"
#include "core/tax/FairValues.h"

#include <cstdint>
#include <vector>

namespace quorvane::positions {

/// The kinds of events, in the order in which events of one day count; what corporate actions do
/// counts in the order in which they were recorded.
enum class EventKind : std::uint8_t {
  kOpening,
  kAction,
  kRights,
  kBuyBack,
  kPurchase,
  kTransfer,
  kSale
};

/// One record of the history of a scrip. Amounts in whole paise.
struct Event {
  Date day;  ///< of an opening lot the first day of its year
  EventKind kind = EventKind::kOpening;
  bool non_delivery = false;
  bool fo = false;
  ClientId client;
  AccountId account;
  ScripId scrip;
  int document =
      0;  ///< key of the bill, transfer or opening lot; of an action its place in the list
  int line = 0;
  ClientId to_client;  ///< of a transfer
  AccountId to;        ///< of a transfer
  Date acquired;       ///< of an opening lot or of rights
  Shares quantity;
  Paise amount;    ///< cost of what comes in, price before expenses of what is sold
  Paise expenses;  ///< of a sale: brokerage and the tax on it
  Paise stt;       ///< of a trade or of rights; not part of the cost
};

/// A corporate action with its days read.
struct DatedAction {
  records::Action terms;
  Date ex_day;
  Date held_from;  ///< from which bonus shares count as held
};

/// The years for which a client's stock was carried forward: those with opening lots.
struct OpenedYear {
  ClientId client;
  text::FinancialYear year;
};

struct EventList {
  std::vector<Event> events;         ///< in any order
  std::vector<DatedAction> actions;  ///< applied ones
  std::vector<OpenedYear> opened;
  tax::FairValues fair_values;
};

}  // namespace quorvane::positions
