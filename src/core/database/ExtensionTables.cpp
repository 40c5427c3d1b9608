#include "core/database/ExtensionTables.h"

#include <array>

namespace quorvane::database {
namespace {

constexpr std::array<ExtensionTable, 5> kTables{{
    {"ScripIsin", true},
    {"RemovedAccount", true},
    {"RecordKey", true},
    {"Writers", false},
    {"CommitMark", false},
}};

constexpr std::array<UpgradeStep, 5> kSteps{{
    {"ScripIsin", 1,
     "Create Table if not Exists ScripIsin(ScrId int(11) Not Null, Isin varchar(12) Not Null, "
     "FromDay varchar(10) Not Null, Primary Key(ScrId,Isin), Index IxScripIsinIsin(Isin)) "
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
