#pragma once

#include "core/records/Bill.h"
#include "core/records/Query.h"
#include "reports/demat/Ranking.h"
#include "reports/demat/TransactionReport.h"

#include <unordered_map>
#include <vector>

namespace quorvane::demat {

/// A bill in its place in the report.
struct PlacedBill {
  std::uint32_t client_rank = 0;
  std::uint32_t account_rank = 0;
  std::uint32_t broker_rank = 0;
  text::Date date;
  records::Bill bill;  ///< with its lines
};

/// Reads the bills of the period with their lines, in the order of the report.
class BillReader {
 public:
  BillReader(database::Connection& connection, const TransactionQuery& query, Progress& progress)
      : connection_(connection), query_(query), progress_(progress) {}

  std::vector<PlacedBill> Read();

  const records::Faults& Faults() const { return faults_; }

  QString NameOf(BrokerId broker) const;

 private:
  void Step();
  void ReadMasters();

  template <class Record>
  records::Select<Record> OfYear();
  void ReadBills();
  void ReadLines();

  database::Connection& connection_;
  const TransactionQuery& query_;
  Progress& progress_;
  int steps_ = 0;
  Ranking clients_;
  Ranking accounts_;
  Ranking brokers_;
  records::Faults faults_;
  std::unordered_map<BrokerId, QString> names_;
  std::unordered_map<BillId, std::size_t> places_;
  std::vector<PlacedBill> bills_;
};

}  // namespace quorvane::demat
