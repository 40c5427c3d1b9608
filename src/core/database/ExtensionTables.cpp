#include "core/database/ExtensionTables.h"

#include <array>

namespace quorvane::database {
namespace {

constexpr std::array<ExtensionTable, 3> kTables{{
    {"RecordKey", true},
    {"Writers", false},
    {"CommitMark", false},
}};

constexpr std::array<UpgradeStep, 3> kSteps{{
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
