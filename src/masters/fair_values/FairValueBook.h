#pragma once

#include "core/rates/RateImport.h"
#include "core/tax/FairValues.h"
#include "masters/fair_values/FairValueFile.h"

#include <optional>
#include <set>
#include <vector>

namespace quorvane::fair_values {

/// The fair values of all scrips; every save is one transaction.
class FairValueBook {
 public:
  explicit FairValueBook(database::Connection& connection) : connection_(connection) {}

  tax::FairValues Read() const { return tax::ReadFairValues(connection_); }

  /// Writes what differs between the values as they were read and as they were entered; others keep
  /// what they have meanwhile. Refused when a value is none, or when its scrip was deleted.
  MaybeRefusal Save(const tax::FairValues& before, const tax::FairValues& after);

  /// Saves each value that is higher than the recorded one, or the first of its scrip. Refused when
  /// a scrip was deleted.
  Result<Taken> Raise(const tax::FairValues& values);

  /// What Raise would do.
  Taken WouldRaise(const tax::FairValues& values) const;

  /// The scrips that were acquired up to the day, by anybody or by one client, and have no value;
  /// by name.
  std::vector<rates::ListedScrip> Missing(std::optional<ClientId> client) const;

 private:
  database::Connection& connection_;
};

}  // namespace quorvane::fair_values
