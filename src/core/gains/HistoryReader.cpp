#include "core/gains/HistoryReader.h"

#include "core/records/Lot.h"
#include "core/records/Query.h"

#include <limits>

namespace quorvane::gains {
namespace {

using records::MovementKind;

std::int32_t DayNumber(Date date) {
  return static_cast<std::int32_t>(date.time_since_epoch().count());
}

}  // namespace

HistoryReader::HistoryReader(database::Connection& connection, History& history, Progress& progress)
    : connection_(connection), history_(history), progress_(progress) {}

void HistoryReader::Read() {
  ReadRanks(clients_, history_.clients_, "Select Id From ClientInfo Order By Code,Id");
  ReadRanks(scrips_, history_.scrips_, "Select Id From Script Order By Name,Id");
  ReadRanks(accounts_, history_.accounts_, "Select id From ClientActDet Order By ACNo,id");
  ReadLotRates();
  const HistoryQuery& query = history_.query_;
  records::ReadMovements(connection_,
                         {.client = query.client, .year = query.year, .scrip = query.scrip},
                         history_.faults_, progress_, [this](const records::Movement& movement) {
                           if (IsWanted(movement)) {
                             Take(movement);
                           }
                         });
}

void HistoryReader::ReadRanks(Ranks& ranks, std::vector<int>& ids, std::string_view sql) {
  ranks.ids = &ids;
  for (const auto& row : connection_.Open(sql)) {
    ranks.known.Put(row.Int(0), static_cast<std::uint32_t>(ids.size()));
    ids.push_back(row.Int(0));
  }
  ranks.known.Seal();
}

std::uint32_t HistoryReader::Ranks::Of(int id) {
  if (const std::uint32_t* rank = known.Find(id)) {
    return *rank;
  }
  for (const auto& [stranger, rank] : strangers) {
    if (stranger == id) {
      return rank;
    }
  }
  const auto rank = static_cast<std::uint32_t>(ids->size());
  ids->push_back(id);
  strangers.emplace_back(id, rank);
  return rank;
}

void HistoryReader::ReadLotRates() {
  records::Select<records::Lot>(connection_)
      .Where(&records::Lot::client, history_.query_.client)
      .Where(&records::Lot::year, history_.query_.year)
      .Only<&records::Lot::id, &records::Lot::rate>(
          [this](const records::Lot& lot) { lot_rates_.Put(lot.id.value, lot.rate); });
  lot_rates_.Seal();
}

bool HistoryReader::IsWanted(const records::Movement& movement) const {
  const HistoryQuery& query = history_.query_;
  const bool too_late = movement.kind != MovementKind::kOpening && movement.date > query.to &&
                        !IsBeforeAction(movement);
  const bool too_early =
      movement.kind == MovementKind::kPurchase && movement.date < query.year.FirstDay();
  if (!movement.dated || too_late || too_early) {
    return false;
  }
  return query.fo == FoChoice::kAll || movement.fo == (query.fo == FoChoice::kFo);
}

bool HistoryReader::IsBeforeAction(const records::Movement& movement) const {
  const HistoryQuery& query = history_.query_;
  const bool of_an_action =
      movement.kind == MovementKind::kActionIn || movement.kind == MovementKind::kActionOut;
  return of_an_action && query.before_action && movement.date == query.to + std::chrono::days(1) &&
         (!*query.before_action || movement.document < query.before_action->value);
}

/// A sale of a lot that is gone from the ledger finds no purchase: no rate equals NaN.
double HistoryReader::LotRateOf(const records::Movement& movement) const {
  if (movement.kind != MovementKind::kSale) {
    return movement.rate;
  }
  const double* rate = lot_rates_.Find(movement.lot.value);
  return rate != nullptr ? *rate : std::numeric_limits<double>::quiet_NaN();
}

void HistoryReader::Take(const records::Movement& movement) {
  History::Movement& m = history_.movements_.Add();
  m.client_rank = clients_.Of(movement.client.value);
  m.scrip_rank = scrips_.Of(movement.scrip.value);
  m.account_rank = accounts_.Of(movement.account.value);
  m.kind = movement.kind;
  m.day = DayNumber(movement.date);
  m.acquired = DayNumber(movement.acquired);
  m.document = movement.document;
  m.line = movement.line;
  m.fo = movement.fo;
  m.quantity = movement.quantity.Number();
  m.lot_rate = LotRateOf(movement);
  m.net = movement.net;
  m.amount = movement.amount;
  m.service_tax = movement.service_tax;
  m.stt = movement.stt;
  m.brokerage = movement.brokerage;
}

}  // namespace quorvane::gains
