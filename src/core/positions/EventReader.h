#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/positions/Events.h"
#include "core/positions/Positions.h"
#include "core/records/Movements.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvane::positions {

/// An action with its days read; nullopt without an ex-day.
std::optional<DatedAction> Dated(const records::Action& action);

/// Reads the records of all years as events.
class EventReader {
 public:
  EventReader(database::Connection& connection, Progress& progress)
      : connection_(connection), progress_(progress) {}

  /// Throws DatabaseError and Cancellation.
  EventList Read(const PositionsQuery& query);

  /// Records that could not count as they are written.
  const records::Faults& Faults() const { return faults_; }

 private:
  void ReadActions();
  void ReadOwners();
  void ReadOpenedYears();
  std::vector<std::optional<ClientId>> ClientsOf(const PositionsQuery& query);
  std::vector<std::optional<ScripId>> ScripsOf(const PositionsQuery& query) const;
  void Take(const records::Movement& movement);
  void TakeSale(const records::Movement& movement);
  void TakeTransfer(const records::Movement& movement);
  void TakeActionLot(const records::Movement& movement);
  void Add(const records::Movement& movement, EventKind kind, Paise amount);

  database::Connection& connection_;
  Progress& progress_;
  EventList list_;
  records::Faults faults_;
  std::unordered_map<int, records::Action> terms_;  ///< of actions
  std::unordered_map<int, ClientId> owners_;        ///< of accounts
};

}  // namespace quorvane::positions
