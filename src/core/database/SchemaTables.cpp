#include "core/database/SchemaTables.h"

#include <array>

namespace quorvane::database {
namespace {

constexpr std::string_view kLotColumns =
    "Cid int(11), Fyear varchar(10), Id int(11), AcId int(11), ScriptId int(11), Qty Double, "
    "Rate double";

constexpr std::string_view kMoneyColumns =
    "Cid Int(11), Fyear varchar(10), Id int(11), BrId int(11), TMode Int(2), Amt Double, "
    "PDate varchar(10), PMode int(2), ChqNo varchar(100), ChqDate varchar(10), "
    "DrawOn varchar(255), Remark varchar(255)";

constexpr std::array<TableDefinition, 24> kTables{{
    {"LoginId", "id int(11), Name varchar(255)", ""},
    {"LoginPassword", "id int(11), Password varchar(255)", ""},
    {"ScriptClass", "Id int(11), Name varchar(255)", "(1,'A'),(2,'B'),(3,'C')"},
    {"ClientInfo",
     "Id int(11), Code varchar(100), GCode varchar(100), Name varchar(255), Address longtext, "
     "City varchar(255), State varchar(255), PIN varchar(10), STD varchar(10), "
     "Phone varchar(100), Mobile varchar(100), Fax varchar(100), EMail varchar(255), "
     "DOB varchar(10), PAN varchar(10), Sex int(11), MStatus int(11), SignDoc longtext",
     ""},
    {"ClientActDet", "CId int(11), id int(11), DMATAC int(11), DPID int(11), ACNo varchar(100)",
     ""},
    {"DpIDs", "DepId int(11), id int(11), DPID varchar(100)", ""},
    {"DepPart",
     "Id int(11), Name varchar(255), Address longtext, City varchar(255), State varchar(255), "
     "PIN varchar(11), STD varchar(10), Phone varchar(100), Mobile varchar(100), "
     "Fax varchar(100), Email varchar(100), Person varchar(255), Designation varchar(255), "
     "Depository int(11)",
     ""},
    {"Broker",
     "Id int(11), Name varchar(255), Address longtext, City varchar(255), State varchar(255), "
     "PIN varchar(11), STD varchar(10), Phone varchar(100), Mobile varchar(100), "
     "Fax varchar(100), Email varchar(100)",
     ""},
    {"Script", "Id int(11), Code varchar(255), Name varchar(255), Type int(11), ScrCls int(11)",
     ""},
    {"ScriptType", "Id int(11), Type varchar(255)",
     "(1,'EQUITY'),(2,'BOND'),(3,'DEBENTURE'),(4,'UNIT'),(5,'BSE 500 SHARE')"},
    {"STTPer", "Id int(11), STTPer Double", "(1,0.000),(2,0.025),(3,0.125),(4,0.017)"},
    {"Exchange", "Id int(11), ExName varchar(255)", "(1,'NSE'),(2,'BSE')"},
    {"StkOpBal",
     "CId Int(11), Fyear varchar(10), Id int(11), ScriptId int(11), Qty Double, Rate Double, "
     "Total Double, AcId int(11), PDate Varchar(10)",
     ""},
    {"BrOpBal", "CId Int(11), Fyear varchar(10), Id int(11), BrId int(11), OpBal Double, Dr int(2)",
     ""},
    {"Stock", kLotColumns, ""},
    {"Stock_Temp", kLotColumns, ""},
    {"MarketRate", "Fyear varchar(10), Id int(11), MDate varchar(11), ScrId int(11), Rate Double",
     ""},
    {"SPMaster",
     "Cid Int(11), Fyear Varchar(10), ID int(11), BillNo varchar(100), BDate varchar(10), "
     "BrokId Int(11), ExId int(11), AcId int(11), Tot Double, OthCharge Double, STT Double, "
     "Total Double",
     ""},
    {"SPTrans",
     "Cid Int(11), Fyear Varchar(10), SID int(11), Id int(11), SP int(2), StkId Int(11), "
     "ScriptId int(11), Qty Double, Rate Double, Brk double, Net Double, Amt Double, STax Double",
     ""},
    {"BrPayment", kMoneyColumns, ""},
    {"BrRec", kMoneyColumns, ""},
    {"ScrTransfer",
     "Cid int(11), Fyear varchar(10), ID int(11), TDate varchar(10), FrmAcId int(11), "
     "TransTo int(11), ToAcId int(11), ToClientID int(11), StkId int(11), ScrId int(11), "
     "PRate double, Qty Double",
     ""},
    {"TransTaxPer",
     "Id int(11), FYear varchar(11), Name varchar(100), Percent Double, Ason varchar(100)", ""},
    {"ScriptAvgRate",
     "Cid int(11), Fyear varchar(10), AcId int(11), ScriptId int(11), BrkId int(11), "
     "AvgRate double",
     ""},
}};

constexpr std::array<UpgradeStep, 8> kUpgradeSteps{{
    {"SPTrans", 14, "Alter Table SPTrans Add(FO Int(11) Default 0)"},
    {"stkOpBal", 10, "Alter Table stkOpBal Add(STax Double Default 0)"},
    {"sptrans", 15, "Alter Table sptrans Add(STT Double Default 0, STTPer Double Default 0)"},
    {"script", 6, "Alter Table script Add(NCode varchar(255) Default ' ')"},
    {"spmaster", 13, "Alter Table spmaster Add TranChg Double Default 0 After STT "},
    {"spmaster", 14, "Alter Table spmaster Add(SettlNo varchar(100) Default ' ')"},
    {"sptrans", 17, "Alter Table sptrans Add(DelvType varchar(100) Default 'N.A.')"},
    {"stkOpBal", 11,
     "Alter Table stkOpBal Add(Brk Double Default 0,STT Double Default 0,FO Int(11) Default 0)"},
}};

constexpr std::array<IndexDefinition, 32> kIndexes{{
    {"ClientInfo", "IxClientInfoId", "Id"},
    {"ClientInfo", "IxClientInfoCode", "Code"},
    {"ClientActDet", "IxClientActDetClient", "CId"},
    {"ClientActDet", "IxClientActDetId", "id"},
    {"DpIDs", "IxDpIDsParticipant", "DepId"},
    {"DepPart", "IxDepPartId", "Id"},
    {"Broker", "IxBrokerId", "Id"},
    {"Script", "IxScriptId", "Id"},
    {"Script", "IxScriptCode", "Code"},
    {"StkOpBal", "IxStkOpBalClient", "CId,Fyear,ScriptId"},
    {"StkOpBal", "IxStkOpBalId", "Id"},
    {"BrOpBal", "IxBrOpBalClient", "CId,Fyear"},
    {"BrOpBal", "IxBrOpBalId", "Id"},
    {"Stock", "IxStockLot", "Cid,Fyear,AcId,ScriptId"},
    {"Stock", "IxStockId", "Id"},
    {"Stock_Temp", "IxStockTempLot", "Cid,Fyear,AcId,ScriptId"},
    {"Stock_Temp", "IxStockTempId", "Id"},
    {"MarketRate", "IxMarketRateDate", "Fyear,MDate"},
    {"MarketRate", "IxMarketRateScrip", "ScrId"},
    {"MarketRate", "IxMarketRateId", "Id"},
    {"SPMaster", "IxSPMasterClient", "Cid,Fyear"},
    {"SPMaster", "IxSPMasterId", "ID"},
    {"SPMaster", "IxSPMasterBroker", "BrokId"},
    {"SPMaster", "IxSPMasterNumber", "BillNo"},
    {"SPTrans", "IxSPTransClient", "Cid,Fyear,ScriptId"},
    {"SPTrans", "IxSPTransBill", "SID"},
    {"ScrTransfer", "IxScrTransferClient", "Cid,Fyear"},
    {"ScrTransfer", "IxScrTransferScrip", "Fyear,ScrId"},
    {"ScrTransfer", "IxScrTransferId", "ID"},
    {"ScriptAvgRate", "IxScriptAvgRateAccount", "Cid,Fyear,AcId"},
    {"BrPayment", "IxBrPaymentCheque", "ChqNo"},
    {"BrRec", "IxBrRecCheque", "ChqNo"},
}};

constexpr auto kExtensionTables = std::to_array<ExtensionTable>({
    {"ScripIsin", true},     {"CorpAction", true},     {"CorpActionLot", true},
    {"Dividend", true},      {"FairValue", true},      {"TaxLoss", true},
    {"OpeningMark", true},   {"RemovedAccount", true}, {"UserRight", true},
    {"ImportProfile", true}, {"TradeKey", true},       {"RecordKey", true},
    {"ChangeLog", true},     {"ChangeHead", true},     {"OpenRecord", false},
    {"Writers", false},      {"CommitMark", false},    {"HomeClient", false},
    {"HomeHolding", false},  {"HomeGain", false},      {"StatementCheck", true},
});

constexpr auto kExtensionSteps = std::to_array<UpgradeStep>({
    {"ScripIsin", 1,
     "Create Table if not Exists ScripIsin(ScrId int(11) Not Null, Isin varchar(12) Not Null, "
     "FromDay varchar(10) Not Null, Primary Key(ScrId,Isin), Index IxScripIsinIsin(Isin)) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"CorpAction", 1,
     "Create Table if not Exists CorpAction(Id int(11) Default 0 Primary Key, Kind int(11) Not "
     "Null Default 0, ScrId int(11) Not Null Default 0, ExDay varchar(10) Not Null Default '', "
     "RecordDay varchar(10) Not Null Default '', AllotDay varchar(10) Not Null Default '', "
     "NewShares double Not Null Default 0, OldShares double Not Null Default 0, OtherScrId int(11) "
     "Not Null Default 0, Price double Not Null Default 0, CostPercent double Not Null Default 0, "
     "Note varchar(255) Not Null Default '', Applied int(11) Not Null Default 0, Index "
     "IxCorpActionScrip(ScrId)) Engine=InnoDB Default Character Set utf8mb4 Collate "
     "utf8mb4_general_ci"},
    {"CorpActionLot", 1,
     "Create Table if not Exists CorpActionLot(ActionId int(11) Not Null Default 0, Id int(11) Not "
     "Null Default 0, CId int(11) Not Null Default 0, Fyear varchar(10) Not Null Default '', AcId "
     "int(11) Not Null Default 0, ScrId int(11) Not Null Default 0, Rate double Not Null Default "
     "0, OutQty double Not Null Default 0, ToScrId int(11) Not Null Default 0, ToRate double Not "
     "Null Default 0, InQty double Not Null Default 0, Acquired varchar(10) Not Null Default '', "
     "Brk double Not Null Default 0, STax double Not Null Default 0, STT double Not Null Default "
     "0, FO int(11) Not Null Default 0, Primary Key(ActionId,Id), Index "
     "IxCorpActionLotClient(CId,Fyear)) Engine=InnoDB Default Character Set utf8mb4 Collate "
     "utf8mb4_general_ci"},
    {"Dividend", 1,
     "Create Table if not Exists Dividend(Id int(11) Default 0 Primary Key, ActionId int(11) Not "
     "Null Default 0, CId int(11) Not Null Default 0, AcId int(11) Not Null Default 0, ScrId "
     "int(11) Not Null Default 0, DDate varchar(10) Not Null Default '', Qty double Not Null "
     "Default 0, PerShare double Not Null Default 0, Tax double Not Null Default 0, Index "
     "IxDividendClient(CId), Index IxDividendAction(ActionId)) Engine=InnoDB Default Character Set "
     "utf8mb4 Collate utf8mb4_general_ci"},
    {"FairValue", 1,
     "Create Table if not Exists FairValue(ScrId int(11) Default 0 Primary Key, Rate double "
     "Not Null Default 0) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"TaxLoss", 1,
     "Create Table if not Exists TaxLoss(CId int(11) Not Null Default 0, Fyear varchar(10) Not "
     "Null Default '', LossYear varchar(10) Not Null Default '', Kind int(11) Not Null Default 0, "
     "Amount double Not Null Default 0, Primary Key(CId,Fyear,LossYear,Kind)) Engine=InnoDB "
     "Default Character Set utf8mb4 Collate "
     "utf8mb4_general_ci"},
    {"OpeningMark", 1,
     "Create Table if not Exists OpeningMark(CId int(11) Not Null Default 0, Fyear varchar(10) Not "
     "Null Default '', AcId int(11) Not Null Default 0, ScrId int(11) Not Null Default 0, Primary "
     "Key(CId,Fyear,AcId,ScrId)) Engine=InnoDB Default Character Set utf8mb4 Collate "
     "utf8mb4_general_ci"},
    {"StatementCheck", 1,
     "Create Table if not Exists StatementCheck(CId int(11) Not Null Default 0, AcId int(11) Not "
     "Null Default 0, StatementDay varchar(10) Not Null Default '', Compared int(11) Not Null "
     "Default 0, Differing int(11) Not Null Default 0, CheckedOn varchar(10) Not Null Default '', "
     "Primary Key(AcId,StatementDay), Index IxStatementCheckClient(CId)) Engine=InnoDB Default "
     "Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"RemovedAccount", 1,
     "Create Table if not Exists RemovedAccount(CId int(11) Not Null, id int(11) Primary Key, "
     "DMATAC int(11), DPID int(11), ACNo varchar(100), Index IxRemovedAccountClient(CId)) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"UserRight", 1,
     "Create Table if not Exists UserRight(LoginId int(11) Primary Key, Rights int(11) Not Null "
     "Default 0) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"ChangeLog", 1,
     "Create Table if not Exists ChangeLog(Id bigint Primary Key, MadeAt varchar(23) Not Null, "
     "UserName varchar(255) Not Null, Host varchar(255) Not Null, Kind int(11) Not Null, TableName "
     "varchar(64) Not Null, RecordId int(11) Not Null, ClientId int(11) Not Null, FYear "
     "varchar(10) Not Null, Title varchar(255) Not Null, Undoes bigint Not Null, OldRows longtext "
     "Not Null, NewRows longtext Not Null, Hash varchar(64) Not Null, Index "
     "IxChangeLogRecord(TableName,RecordId), Index IxChangeLogClient(ClientId), Index "
     "IxChangeLogUndoes(Undoes)) Engine=InnoDB Default Character Set utf8mb4 Collate "
     "utf8mb4_general_ci"},
    {"ChangeHead", 1,
     "Create Table if not Exists ChangeHead(Id int(11) Primary Key, LastId bigint Not Null, "
     "LastHash varchar(64) Not Null, BaseId bigint Not Null, BaseHash varchar(64) Not Null) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"OpenRecord", 1,
     "Create Table if not Exists OpenRecord(Token varchar(40) Not Null, TableName varchar(64) Not "
     "Null, RecordId int(11) Not Null, UserName varchar(255) Not Null, Host varchar(255) Not Null, "
     "OpenedAt datetime Not Null, SeenAt datetime Not Null, Primary Key(Token,TableName,RecordId), "
     "Index IxOpenRecordRecord(TableName,RecordId)) Engine=InnoDB Default Character Set utf8mb4 "
     "Collate utf8mb4_general_ci"},
    {"ImportProfile", 1,
     "Create Table if not Exists ImportProfile(Kind varchar(40) Not Null Default '', ProfileKey "
     "varchar(120) Not Null Default '', Header varchar(4000) Not Null Default '', Mapping "
     "varchar(4000) Not Null Default '', Primary Key(Kind,ProfileKey)) Engine=InnoDB Default "
     "Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"TradeKey", 1,
     "Create Table if not Exists TradeKey(AcId int(11) Not Null Default 0, TradeKey varchar(120) "
     "Character Set utf8mb4 Collate utf8mb4_bin Not Null Default '', BillId int(11) Not Null "
     "Default 0, Primary Key(AcId,TradeKey), Index IxTradeKeyBill(BillId)) Engine=InnoDB Default "
     "Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"RecordKey", 1,
     "Create Table if not Exists RecordKey(TableName varchar(64) Primary Key, LastKey bigint Not "
     "Null) Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"Writers", 1,
     "Create Table if not Exists Writers(Id int(11) Primary Key, Turn bigint Not Null, Holder "
     "varchar(40) Not Null, HeldUntil datetime Not Null) Engine=InnoDB Default Character Set "
     "utf8mb4 Collate utf8mb4_general_ci"},
    {"CommitMark", 1,
     "Create Table if not Exists CommitMark(Token varchar(40) Primary Key, Serial bigint Not Null, "
     "MadeAt datetime Not Null) Engine=InnoDB Default Character Set utf8mb4 Collate "
     "utf8mb4_general_ci"},
    {"HomeClient", 1,
     "Create Table if not Exists HomeClient(CId int(11) Primary Key, Stamp varchar(64) Not Null, "
     "UpTo varchar(10) Not Null, MadeAt datetime Not Null) Engine=InnoDB Default Character Set "
     "utf8mb4 Collate utf8mb4_general_ci"},
    {"HomeHolding", 1,
     "Create Table if not Exists HomeHolding(CId int(11) Not Null, ScrId int(11) Not Null, Qty "
     "bigint Not Null, Cost bigint Not Null, Primary Key(CId,ScrId)) Engine=InnoDB Default "
     "Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"HomeGain", 1,
     "Create Table if not Exists HomeGain(CId int(11) Not Null, Fyear varchar(10) Not Null, Stamp "
     "varchar(64) Not Null, LongTerm bigint Not Null, ShortTerm bigint Not Null, Speculation "
     "bigint "
     "Not Null, Primary Key(Fyear,CId)) Engine=InnoDB Default Character Set utf8mb4 Collate "
     "utf8mb4_general_ci"},
});

constexpr auto kReferences = std::to_array<KeyReference>({
    {"LoginPassword", "id", "LoginId"},
    {"UserRight", "LoginId", "LoginId"},
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
    {"FairValue", "ScrId", "Script"},
    {"TaxLoss", "CId", "ClientInfo"},
    {"OpeningMark", "CId", "ClientInfo"},
    {"OpeningMark", "AcId", "ClientActDet"},
    {"OpeningMark", "ScrId", "Script"},
    {"StatementCheck", "CId", "ClientInfo"},
    {"StatementCheck", "AcId", "ClientActDet"},
});

constexpr auto kKeyed = std::to_array<std::string_view>(
    {"LoginId",     "ScriptClass", "ClientInfo", "ClientActDet", "DpIDs",     "DepPart",
     "Broker",      "Script",      "ScriptType", "STTPer",       "Exchange",  "StkOpBal",
     "BrOpBal",     "Stock",       "MarketRate", "SPMaster",     "BrPayment", "BrRec",
     "ScrTransfer", "TransTaxPer", "CorpAction", "Dividend"});

}  // namespace

std::span<const TableDefinition> Tables() {
  return kTables;
}
std::span<const UpgradeStep> UpgradeSteps() {
  return kUpgradeSteps;
}
std::span<const IndexDefinition> Indexes() {
  return kIndexes;
}

std::span<const ExtensionTable> ExtensionTables() {
  return kExtensionTables;
}

std::span<const UpgradeStep> ExtensionSteps() {
  return kExtensionSteps;
}

std::span<const KeyReference> KeyReferences() {
  return kReferences;
}

std::span<const std::string_view> KeyedTables() {
  return kKeyed;
}

}  // namespace quorvane::database
