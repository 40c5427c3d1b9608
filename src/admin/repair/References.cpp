#include "admin/repair/References.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace quorvane::repair {

using database::KeyReference;

std::vector<KeyReference> CheckedReferences() {
  std::vector<KeyReference> checked;
  std::ranges::copy_if(
      database::KeyReferences(), std::back_inserter(checked),
      [](const KeyReference& reference) { return reference.table != "Stock_Temp"; });
  return checked;
}

std::int64_t CountDangling(database::Connection& connection, const KeyReference& reference) {
  auto rows = connection.Open(
      fmt::format("Select Count(*) From {0} R Left Join {2} N On N.Id=R.{1} Where R.{1}<>0 And "
                  "N.Id Is Null",
                  reference.table, reference.column, reference.names));
  return rows.Next() ? rows.Int64(0) : 0;
}

std::vector<LostLines> FindLostLines(database::Connection& connection) {
  std::vector<LostLines> lost;
  for (const auto& row : connection.Open(
           "Select T.Cid,T.Fyear,T.SID,Count(*) From SPTrans T Left Join SPMaster M On M.ID=T.SID "
           "Where M.ID Is Null Group By T.SID,T.Cid,T.Fyear Order By T.SID,T.Cid,T.Fyear")) {
    lost.push_back(
        {ClientId{row.Int(0)}, std::string(row.Utf8(1)), BillId{row.Int(2)}, row.Int64(3)});
  }
  return lost;
}

}  // namespace quorvane::repair
