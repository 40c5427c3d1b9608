#include "transactions/bills/AverageRates.h"

#include "core/database/Transaction.h"
#include "core/gains/AverageCost.h"
#include "core/records/Writing.h"
#include "core/text/Amounts.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace quorvane::bills {
namespace {

using database::Connection;
using database::Transaction;
using ledger::Place;
using records::Lot;
using records::Movement;
using records::MovementKind;
using records::Select;

using Walks = std::map<ScripId, gains::AverageCost>;

/// The opening balance of a scrip counts as one receipt.
void ReceiveOpenings(std::span<const Movement> movements, Walks& walks) {
  struct Sum {
    double quantity = 0;
    double cost = 0;
  };
  std::map<ScripId, Sum> sums;
  for (const Movement& m : movements) {
    if (m.kind == MovementKind::kOpening) {
      Sum& sum = sums[m.scrip];
      sum.quantity += m.quantity.Number();
      sum.cost += m.amount + m.service_tax;
    }
  }
  for (const auto& [scrip, sum] : sums) {
    if (const auto walk = walks.find(scrip); walk != walks.end()) {
      walk->second.Receive(sum.quantity, text::ToPaise(sum.cost));
    }
  }
}

bool IsOfBill(const Movement& m) {
  return m.kind == MovementKind::kPurchase || m.kind == MovementKind::kSale;
}

bool IsOfAction(const Movement& m) {
  return m.kind == MovementKind::kActionIn || m.kind == MovementKind::kActionOut;
}

/// Lines of a bill without a date come first. A corporate action comes before the bills of its day,
/// and what it takes before what it gives.
std::vector<Movement> LinesInOrder(std::span<const Movement> movements) {
  std::vector<Movement> lines;
  std::ranges::copy_if(movements, std::back_inserter(lines),
                       [](const Movement& m) { return IsOfBill(m) || IsOfAction(m); });
  std::ranges::sort(lines, {}, [](const Movement& m) {
    return std::tuple(m.dated, m.date, IsOfBill(m), m.document, m.kind == MovementKind::kActionIn,
                      m.line);
  });
  return lines;
}

Walks WalkAccount(Connection& connection, const Place& place, std::span<const Movement> movements) {
  Walks walks;
  Select<Lot>(connection)
      .Where(&Lot::client, place.of.client)
      .Where(&Lot::year, place.of.year)
      .Where(&Lot::account, place.account)
      .Only<&Lot::scrip>([&](const Lot& lot) { walks.try_emplace(lot.scrip); });
  ReceiveOpenings(movements, walks);
  for (const Movement& m : LinesInOrder(movements)) {
    const auto walk = walks.find(m.scrip);
    if (walk == walks.end()) {
      continue;
    }
    if (records::IsReceipt(m.kind)) {
      walk->second.Receive(m.quantity.Number(), text::ToPaise(m.amount + m.service_tax));
    } else {
      walk->second.Release(m.quantity.Number());
    }
  }
  return walks;
}

bool AreStored(Connection& connection, const Place& place, const Walks& walks) {
  return std::ranges::equal(ReadAverageRates(connection, place), walks,
                            [](const AverageRate& rate, const auto& walk) {
                              return rate.scrip == walk.first && rate.rate == walk.second.Average();
                            });
}

void Store(Transaction& transaction, const Place& place, const Walks& walks) {
  records::Delete<AverageRate>(transaction)
      .Where(&AverageRate::client, place.of.client)
      .Where(&AverageRate::year, place.of.year)
      .Where(&AverageRate::account, place.account)
      .Run();
  records::Writer<AverageRate> writer(transaction);
  for (const auto& [scrip, walk] : walks) {
    writer.Write({place.of.client, place.of.year, place.account, scrip, {}, walk.Average()});
  }
  writer.Finish();
}

}  // namespace

void RebuildAverageRates(Connection& connection, const Place& place,
                         std::span<const Movement> movements) {
  database::InTransaction(connection, [&](Transaction& transaction) {
    const Walks walks = WalkAccount(connection, place, movements);
    if (!AreStored(connection, place, walks)) {
      Store(transaction, place, walks);
    }
  });
}

std::vector<AverageRate> ReadAverageRates(Connection& connection, const Place& place) {
  return Select<AverageRate>(connection)
      .Where(&AverageRate::client, place.of.client)
      .Where(&AverageRate::year, place.of.year)
      .Where(&AverageRate::account, place.account)
      .OrderBy(&AverageRate::scrip)
      .All();
}

}  // namespace quorvane::bills
