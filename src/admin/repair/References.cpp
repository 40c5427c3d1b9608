#include "admin/repair/References.h"

#include <fmt/format.h>

namespace quorvane::repair {

const std::vector<Reference>& References() {
  static const std::vector<Reference> kReferences{
      {"LoginPassword", "id", "LoginId", "id"},
      {"ClientActDet", "CId", "ClientInfo", "Id"},
      {"ClientActDet", "DMATAC", "DepPart", "Id"},
      {"ClientActDet", "DPID", "DpIDs", "id"},
      {"DpIDs", "DepId", "DepPart", "Id"},
      {"Script", "Type", "ScriptType", "Id"},
      {"Script", "ScrCls", "ScriptClass", "Id"},
      {"StkOpBal", "CId", "ClientInfo", "Id"},
      {"StkOpBal", "AcId", "ClientActDet", "id"},
      {"StkOpBal", "ScriptId", "Script", "Id"},
      {"BrOpBal", "CId", "ClientInfo", "Id"},
      {"BrOpBal", "BrId", "Broker", "Id"},
      {"Stock", "Cid", "ClientInfo", "Id"},
      {"Stock", "AcId", "ClientActDet", "id"},
      {"Stock", "ScriptId", "Script", "Id"},
      {"MarketRate", "ScrId", "Script", "Id"},
      {"SPMaster", "Cid", "ClientInfo", "Id"},
      {"SPMaster", "AcId", "ClientActDet", "id"},
      {"SPMaster", "BrokId", "Broker", "Id"},
      {"SPMaster", "ExId", "Exchange", "Id"},
      {"SPTrans", "SID", "SPMaster", "ID"},
      {"SPTrans", "ScriptId", "Script", "Id"},
      {"SPTrans", "StkId", "Stock", "Id"},
      {"BrPayment", "Cid", "ClientInfo", "Id"},
      {"BrPayment", "BrId", "Broker", "Id"},
      {"BrRec", "Cid", "ClientInfo", "Id"},
      {"BrRec", "BrId", "Broker", "Id"},
      {"ScrTransfer", "FrmAcId", "ClientActDet", "id"},
      {"ScrTransfer", "ToAcId", "ClientActDet", "id"},
      {"ScrTransfer", "ScrId", "Script", "Id"},
  };
  return kReferences;
}

std::int64_t CountDangling(database::Connection& connection, const Reference& reference) {
  auto rows = connection.Open(
      fmt::format("Select Count(*) From {0} R Left Join {2} N On N.{3}=R.{1} Where R.{1}<>0 And "
                  "N.{3} Is Null",
                  reference.table, reference.column, reference.names, reference.key));
  return rows.Next() ? rows.Int64(0) : 0;
}

}  // namespace quorvane::repair
