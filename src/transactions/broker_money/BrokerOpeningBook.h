#pragma once

#include "core/ClientYear.h"
#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "core/records/Money.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::broker_money {

using BrokerOpeningId = Id<struct BrokerOpeningTag>;

using LedgerSide = records::DebitCredit;

/// The sides as a grid shows them, in the user's language: "#0;Dr|#1;Cr".
QString SideChoices();

/// What a client owed a broker, or had with the broker, when a financial year began.
struct BrokerOpening {
  BrokerOpeningId id;  ///< none until it is saved
  BrokerId broker;
  double amount = 0;               ///< rupees, never negative
  std::optional<LedgerSide> side;  ///< none while it is not chosen
};

/// The first rule that the balance breaks: broker, amount, side.
MaybeRefusal CheckBrokerOpening(const BrokerOpening& opening);

/// A balance in paise, credit positive, as it is carried into the next year: without its sign, and
/// on the credit side unless it is negative.
BrokerOpening CarriedOpening(BrokerId broker, std::int64_t balance_paise);

/// The opening balances of a client with brokers in a year, at most one a broker. Every save,
/// delete and carry forward is one transaction; one that is refused, or that throws DatabaseError,
/// changes nothing.
class BrokerOpeningBook {
 public:
  BrokerOpeningBook(database::Connection& connection, const ClientYear& of);

  /// The largest amount first; equal ones by id.
  std::vector<BrokerOpening> List() const;

  /// Writes a new balance, or a changed one in place of the old. Returns its id. Refused when
  /// a check fails or the broker has another balance in the year.
  Result<BrokerOpeningId> Save(const BrokerOpening& opening);

  void Delete(BrokerOpeningId id);

  /// Whether the year before has anything that could be carried forward.
  bool HasBalancesToCarryForward() const;

  /// Computes the closing balance of every broker's account of the year before (opening balance
  /// - bills - payments + receipts; credit positive) and writes it as this year's opening
  /// balance, 0 for a broker without any. A balance that the year has already, typed or carried
  /// before, is replaced, so doing it twice changes nothing; it stays where the year before has no
  /// record of the broker. Returns the number of balances written.
  std::size_t CarryForward();

 private:
  database::Connection& connection_;
  ClientYear of_;
};

}  // namespace quorvane::broker_money
