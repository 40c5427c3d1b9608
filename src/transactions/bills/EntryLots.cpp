#include "transactions/bills/EntryLots.h"

#include "core/database/Transaction.h"
#include "core/ledger/Posting.h"
#include "transactions/posting/Owner.h"

#include <algorithm>

namespace quorvane::bills {

using database::Transaction;

EntryLots::EntryLots(database::Connection& connection, const ledger::Place& place,
                     const Bill& recorded)
    : connection_(&connection), place_(place), bill_(recorded.id) {
  if (recorded.id && recorded.account == place.account) {
    recorded_ = recorded.lines;
  }
  for (const records::Lot& lot : ledger::ReadLots(connection, ledger::LotScope::Of(place))) {
    stock_.Load(lot);
  }
  movements_ = ReadAccount(connection, place);
  WriteScratch(stock_);
  lots_ = stock_;
}

void EntryLots::WriteScratch(const ledger::Lots& lots) {
  database::InTransaction(*connection_, [&](Transaction& transaction) {
    ledger::WriteScratch(transaction, place_.of, lots);
  });
}

Result<std::vector<BillLine>> EntryLots::Post(std::vector<BillLine> lines, Field field) {
  ledger::Lots posted = stock_;
  ledger::PostLines(posted, place_, lines);
  ledger::TakeBackLines(posted, place_, recorded_);
  if (const MaybeRefusal refusal = posting::RefuseShortage(*connection_, posted, field)) {
    return *refusal;
  }
  WriteScratch(posted);
  lots_ = std::move(posted);
  return lines;
}

std::vector<HeldLot> EntryLots::Balance(const Bill& bill, const BillLine* replaced) const {
  LotDates dates;
  dates.Receive(movements_, bill_);
  const std::optional<text::Date> day = text::ParseDmy(bill.date);
  for (const BillLine& line : bill.lines) {
    if (line.IsPurchase() && day) {
      dates.Receive(line.scrip, line.rate, *day, line.quantity);
    }
  }
  std::vector<records::Lot> lots = lots_.Of(place_);
  if (replaced != nullptr && replaced->lot) {
    const auto lot = std::ranges::find(lots, replaced->lot, &records::Lot::id);
    if (lot != lots.end()) {
      lot->quantity += replaced->IsPurchase() ? -replaced->quantity : replaced->quantity;
    }
  }
  return dates.Date(lots);
}

}  // namespace quorvane::bills
