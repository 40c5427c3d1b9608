#include "core/database/KeyReferences.h"

#include <array>

namespace quorvane::database {
namespace {

constexpr auto kReferences = std::to_array<KeyReference>({
    {"LoginPassword", "id", "LoginId"},
    {"ClientActDet", "CId", "ClientInfo"},
    {"ClientActDet", "DMATAC", "DepPart"},
    {"ClientActDet", "DPID", "DpIDs"},
    {"DpIDs", "DepId", "DepPart"},
    {"Script", "Type", "ScriptType"},
    {"Script", "ScrCls", "ScriptClass"},
    {"StkOpBal", "CId", "ClientInfo"},
    {"StkOpBal", "AcId", "ClientActDet"},
    {"StkOpBal", "ScriptId", "Script"},
    {"BrOpBal", "CId", "ClientInfo"},
    {"BrOpBal", "BrId", "Broker"},
    {"Stock", "Cid", "ClientInfo"},
    {"Stock", "AcId", "ClientActDet"},
    {"Stock", "ScriptId", "Script"},
    {"Stock_Temp", "Cid", "ClientInfo"},
    {"Stock_Temp", "AcId", "ClientActDet"},
    {"Stock_Temp", "ScriptId", "Script"},
    {"MarketRate", "ScrId", "Script"},
    {"SPMaster", "Cid", "ClientInfo"},
    {"SPMaster", "AcId", "ClientActDet"},
    {"SPMaster", "BrokId", "Broker"},
    {"SPMaster", "ExId", "Exchange"},
    {"SPTrans", "Cid", "ClientInfo"},
    {"SPTrans", "SID", "SPMaster"},
    {"SPTrans", "ScriptId", "Script"},
    {"SPTrans", "StkId", "Stock"},
    {"BrPayment", "Cid", "ClientInfo"},
    {"BrPayment", "BrId", "Broker"},
    {"BrRec", "Cid", "ClientInfo"},
    {"BrRec", "BrId", "Broker"},
    {"ScrTransfer", "Cid", "ClientInfo"},
    {"ScrTransfer", "ToClientID", "ClientInfo"},
    {"ScrTransfer", "FrmAcId", "ClientActDet"},
    {"ScrTransfer", "ToAcId", "ClientActDet"},
    {"ScrTransfer", "ScrId", "Script"},
    {"ScrTransfer", "StkId", "Stock"},
    {"ScriptAvgRate", "Cid", "ClientInfo"},
    {"ScriptAvgRate", "AcId", "ClientActDet"},
    {"ScriptAvgRate", "ScriptId", "Script"},
    {"ScriptAvgRate", "BrkId", "Broker"},
    {"CorpAction", "ScrId", "Script"},
    {"CorpAction", "OtherScrId", "Script"},
    {"CorpActionLot", "ActionId", "CorpAction"},
    {"CorpActionLot", "CId", "ClientInfo"},
    {"CorpActionLot", "AcId", "ClientActDet"},
    {"CorpActionLot", "ScrId", "Script"},
    {"CorpActionLot", "ToScrId", "Script"},
    {"Dividend", "ActionId", "CorpAction"},
    {"Dividend", "CId", "ClientInfo"},
    {"Dividend", "AcId", "ClientActDet"},
    {"Dividend", "ScrId", "Script"},
});

constexpr auto kKeyed = std::to_array<std::string_view>(
    {"LoginId",     "ScriptClass", "ClientInfo", "ClientActDet", "DpIDs",     "DepPart",
     "Broker",      "Script",      "ScriptType", "STTPer",       "Exchange",  "StkOpBal",
     "BrOpBal",     "Stock",       "MarketRate", "SPMaster",     "BrPayment", "BrRec",
     "ScrTransfer", "TransTaxPer", "CorpAction", "Dividend"});

}  // namespace

std::span<const KeyReference> KeyReferences() {
  return kReferences;
}

std::span<const std::string_view> KeyedTables() {
  return kKeyed;
}

}  // namespace quorvane::database
