#include "core/database/ExtensionTables.h"

#include <array>

namespace quorvane::database {
namespace {

constexpr std::array<ExtensionTable, 8> kTables{{
    {"ScripIsin", true},
    {"CorpAction", true},
    {"CorpActionLot", true},
    {"Dividend", true},
    {"RemovedAccount", true},
    {"RecordKey", true},
    {"Writers", false},
    {"CommitMark", false},
}};

constexpr std::array<UpgradeStep, 8> kSteps{{
    {"ScripIsin", 1,
     "Create Table if not Exists ScripIsin(ScrId int(11) Not Null, Isin varchar(12) Not Null, "
     "FromDay varchar(10) Not Null, Primary Key(ScrId,Isin), Index IxScripIsinIsin(Isin)) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"CorpAction", 1,
     "Create Table if not Exists CorpAction(Id int(11) Primary Key, Kind int(11) Not Null, ScrId "
     "int(11) Not Null, ExDay varchar(10) Not Null, RecordDay varchar(10) Not Null, AllotDay "
     "varchar(10) Not Null, NewShares double Not Null, OldShares double Not Null, OtherScrId "
     "int(11) Not Null, Price double Not Null, CostPercent double Not Null, Note varchar(255) Not "
     "Null, Applied int(11) Not Null, Index IxCorpActionScrip(ScrId)) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"CorpActionLot", 1,
     "Create Table if not Exists CorpActionLot(ActionId int(11) Not Null, Id int(11) Not Null, CId "
     "int(11) Not Null, Fyear varchar(10) Not Null, AcId int(11) Not Null, ScrId int(11) Not Null, "
     "Rate double Not Null, OutQty double Not Null, ToScrId int(11) Not Null, ToRate double Not "
     "Null, InQty double Not Null, Acquired varchar(10) Not Null, Brk double Not Null, STax double "
     "Not Null, STT double Not Null, FO int(11) Not Null, Primary Key(ActionId,Id), Index "
     "IxCorpActionLotClient(CId,Fyear)) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"Dividend", 1,
     "Create Table if not Exists Dividend(Id int(11) Primary Key, ActionId int(11) Not Null, CId "
     "int(11) Not Null, AcId int(11) Not Null, ScrId int(11) Not Null, DDate varchar(10) Not Null, "
     "Qty double Not Null, PerShare double Not Null, Tax double Not Null, Index "
     "IxDividendClient(CId), Index IxDividendAction(ActionId)) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
    {"RemovedAccount", 1,
     "Create Table if not Exists RemovedAccount(CId int(11) Not Null, id int(11) Primary Key, "
     "DMATAC int(11), DPID int(11), ACNo varchar(100), Index IxRemovedAccountClient(CId)) "
     "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci"},
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
}};

}  // namespace

std::span<const ExtensionTable> ExtensionTables() {
  return kTables;
}

std::span<const UpgradeStep> ExtensionSteps() {
  return kSteps;
}

}  // namespace quorvane::database
