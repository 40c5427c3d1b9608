#pragma once

#include "core/gains/History.h"
#include "core/IdMap.h"

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::gains {

/// Fills a History from the database. Apart from it so that the History's users do not see how.
class HistoryReader {
 public:
  HistoryReader(database::Connection& connection, History& history, Progress& progress);

  void Read();

 private:
  struct BillHeader {
    std::int32_t day;
    int account;
  };
  using Ranks = IdMap<std::uint32_t>;

  /// Ids in the query's order become ranks; ids that documents name and no master knows follow in
  /// the order of their appearance.
  struct Ranking {
    Ranks known;
    std::vector<int>* ids = nullptr;
    std::vector<std::pair<int, std::uint32_t>> strangers;

    std::uint32_t Of(int id);
  };

  void ReadRanking(Ranking& ranking, std::vector<int>& ids, std::string_view sql);
  database::Recordset OpenScoped(std::string_view sql, std::string_view client_column = "Cid");
  void ReadOpenings();
  void ReadBills();
  void ReadLotRates();
  void ReadLines();
  void ReadTransfers();
  bool IsWanted(bool fo) const;
  std::int32_t DayOf(std::string_view text, const char* document, int id) const;
  History::Movement& Add(int client, int scrip, int account);
  void Done();

  database::Connection& connection_;
  History& history_;
  Progress& progress_;
  int steps_ = 0;
  Ranking clients_;
  Ranking scrips_;
  Ranking accounts_;
  IdMap<BillHeader> bills_;
  IdMap<double> lot_rates_;
};

}  // namespace quorvane::gains
