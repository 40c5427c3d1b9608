#pragma once

#include "core/records/Movements.h"
#include "reports/demat/DematStatement.h"
#include "reports/demat/Ranking.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorvane::demat {

/// A quantity that came into an account or left it, as a document has it. In the order of the
/// statement: place by place, in each by date, kind and key.
struct RawMovement {
  enum class Kind : std::uint8_t { kOpening, kAction, kBill, kTransfer };

  std::uint32_t client_rank = 0;
  std::uint32_t account_rank = 0;
  std::uint32_t scrip_rank = 0;
  Date date;
  Kind kind = Kind::kOpening;
  int document = 0;  ///< key of the bill, transfer or corporate action; 0 for opening stock
  int other = 0;     ///< the broker, or the account at the other end
  Shares in;
  Shares out;

  bool IsSamePlace(const RawMovement& that) const {
    return client_rank == that.client_rank && account_rank == that.account_rank &&
           scrip_rank == that.scrip_rank;
  }
};

/// Reads everything that moved shares in a year, with one query a table.
class MovementReader {
 public:
  MovementReader(database::Connection& connection, const DematQuery& query, Progress& progress);

  /// Sorted; the lines of one bill and scrip are one movement.
  std::vector<RawMovement> Read();

  /// Records that could not count as they are written.
  const records::Faults& Faults() const { return faults_; }

  ClientId ClientOf(const RawMovement& movement) const;
  AccountId AccountOf(const RawMovement& movement) const;
  ScripId ScripOf(const RawMovement& movement) const;
  QString BrokerName(int broker) const { return Text(brokers_, broker); }
  QString AccountNumber(int account) const { return Text(numbers_, account); }

  /// "Split 10:1".
  QString ActionText(int action) const { return Text(actions_, action); }

 private:
  using Texts = std::unordered_map<int, QString>;

  static QString Text(const Texts& texts, int id);
  void ReadMasters();
  bool IsWanted(const records::Movement& movement) const;
  void Take(const records::Movement& movement);
  void Sort();

  database::Connection& connection_;
  const DematQuery& query_;
  Progress& progress_;
  Ranking clients_;
  Ranking accounts_;
  Ranking scrips_;
  Texts numbers_;
  Texts brokers_;
  Texts actions_;
  records::Faults faults_;
  std::vector<RawMovement> movements_;
};

}  // namespace quorvane::demat
