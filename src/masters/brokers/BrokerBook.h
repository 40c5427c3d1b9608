#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "masters/Contact.h"

#include <QString>

#include <optional>
#include <vector>

namespace quorvane::brokers {

/// A share broker through whom bills are made.
struct Broker {
  BrokerId id;  ///< none until it is saved
  QString name;
  masters::Contact contact;
};

/// Checks the name, then whether a text is too long.
MaybeRefusal CheckBroker(const Broker& broker);

/// The brokers in the database. Every save and delete is one transaction; one that is refused, or
/// that throws, changes nothing.
class BrokerBook {
 public:
  explicit BrokerBook(database::Connection& connection);

  /// In the order of the table: a broker saved later comes later.
  std::vector<Broker> List() const;

  std::optional<Broker> Load(BrokerId id) const;

  /// Writes a new broker, or a changed one in place of the old. Returns its id.
  Result<BrokerId> Save(const Broker& broker);

  /// Removes the broker with every bill, opening balance, payment and receipt, and recomputes the
  /// holdings of every client and year. Throws Cancellation, with everything as it was, when the
  /// user stops it.
  void Delete(BrokerId id, Progress& progress);

 private:
  database::Connection& connection_;
};

}  // namespace quorvane::brokers
