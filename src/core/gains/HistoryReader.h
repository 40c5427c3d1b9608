#pragma once

#include "core/IdMap.h"
#include "core/gains/History.h"
#include "core/records/Movements.h"

#include <string_view>
#include <vector>

namespace quorvane::gains {

/// Fills a History from the database. A class apart, so that users of History do not include it.
class HistoryReader {
 public:
  HistoryReader(database::Connection& connection, History& history, Progress& progress);

  void Read();

 private:
  /// Ids in the query's order become ranks; ids that documents name and no master knows follow in
  /// the order of their appearance.
  struct Ranks {
    IdMap<std::uint32_t> known;
    std::vector<int>* ids = nullptr;
    std::vector<std::pair<int, std::uint32_t>> strangers;

    std::uint32_t Of(int id);
  };

  void ReadRanks(Ranks& ranks, std::vector<int>& ids, std::string_view sql);
  void ReadLotRates();
  bool IsWanted(const records::Movement& movement) const;
  bool IsBeforeAction(const records::Movement& movement) const;
  void Take(const records::Movement& movement);
  double LotRateOf(const records::Movement& movement) const;

  database::Connection& connection_;
  History& history_;
  Progress& progress_;
  Ranks clients_;
  Ranks scrips_;
  Ranks accounts_;
  IdMap<double> lot_rates_;
};

}  // namespace quorvane::gains
