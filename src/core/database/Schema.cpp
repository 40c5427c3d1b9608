#include "core/database/Schema.h"

#include "core/database/CommitMark.h"
#include "core/database/Keys.h"
#include "core/database/SchemaTables.h"
#include "core/database/SetUp.h"
#include "core/database/Transaction.h"

#include <QString>

#include <fmt/format.h>

#include <map>
#include <set>
#include <span>
#include <utility>

namespace quorvane::database {
namespace {

constexpr std::string_view kStorage =
    "Engine=InnoDB Default Character Set utf8mb4 Collate utf8mb4_general_ci";
constexpr std::string_view kRowKey =
    "RowKey bigint unsigned Not Null Auto_Increment Invisible Primary Key";

using Names = std::set<QString>;

QString Lower(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).toLower();
}

Names LowerNames(Connection& connection, std::string_view sql) {
  Names names;
  for (const auto& row : connection.Open(sql)) {
    names.insert(row.Text(0).toLower());
  }
  return names;
}

Names ExistingTables(Connection& connection) {
  return LowerNames(connection,
                    "Select TABLE_NAME From information_schema.TABLES Where TABLE_SCHEMA="
                    "Database()");
}

void CreateTable(SetUp& set_up, const TableDefinition& table) {
  const auto statement = [&](std::string_view more) {
    return fmt::format("Create Table if not Exists {}({}{}) {}", table.name, table.columns, more,
                       kStorage);
  };
  if (!set_up.Try(statement(fmt::format(", {}", kRowKey)))) {
    set_up.Run(statement(""));
  }
}

/// A lookup table that is empty gets its rows. The locking read makes a second program that starts
/// at the same time wait, or do its work again and find the rows. A table that has rows is not
/// locked: another program may hold it for as long as a large import takes.
void Seed(SetUp& set_up, const TableDefinition& table) {
  const std::string insert = fmt::format("Insert Into {} Values{}", table.name, table.seed_rows);
  try {
    if (set_up.GetConnection().Open(fmt::format("Select * From {} Limit 1", table.name)).Next()) {
      return;
    }
    InTransaction(set_up.GetConnection(), [&](Transaction& transaction) {
      const bool empty =
          !transaction.Open(fmt::format("Select * From {} Limit 1 For Update", table.name)).Next();
      if (empty) {
        transaction.Execute(insert);
      }
    });
  } catch (const DatabaseError& error) {
    set_up.Skip(insert, error);
  }
}

using ColumnCounts = std::map<QString, std::size_t>;

/// The columns that a query sees. Read in one statement, because a "Select *" fails when another
/// program changes the table between its preparation and its run.
ColumnCounts CountColumns(Connection& connection) {
  ColumnCounts counts;
  for (const auto& row : connection.Open(
           "Select TABLE_NAME,Count(*) From information_schema.COLUMNS Where "
           "TABLE_SCHEMA=Database() And EXTRA Not Like '%INVISIBLE%' Group By TABLE_NAME")) {
    counts[row.Text(0).toLower()] = static_cast<std::size_t>(row.Int(1));
  }
  return counts;
}

void RunSteps(SetUp& set_up, std::span<const UpgradeStep> steps) {
  ColumnCounts counts = CountColumns(set_up.GetConnection());
  for (const UpgradeStep& step : steps) {
    if (counts[Lower(step.table)] < step.below) {
      set_up.Run(std::string(step.statement));
      counts = CountColumns(set_up.GetConnection());
    }
  }
}

void AddRowKeys(SetUp& set_up) {
  const Names keyed = LowerNames(
      set_up.GetConnection(),
      "Select TABLE_NAME From information_schema.COLUMNS Where TABLE_SCHEMA=Database() And "
      "COLUMN_NAME='RowKey'");
  for (const TableDefinition& table : Tables()) {
    if (!keyed.contains(Lower(table.name))) {
      set_up.Run(fmt::format("Alter Table {} Add {}", table.name, kRowKey));
    }
  }
}

void ConvertStorage(SetUp& set_up) {
  const Names others = LowerNames(
      set_up.GetConnection(),
      "Select TABLE_NAME From information_schema.TABLES Where TABLE_SCHEMA=Database() And "
      "(Engine<>'InnoDB' Or TABLE_COLLATION Not Like 'utf8mb4%')");
  for (const TableDefinition& table : Tables()) {
    if (others.contains(Lower(table.name))) {
      set_up.Run(
          fmt::format("Alter Table {} Engine=InnoDB, Convert To Character Set utf8mb4 "
                      "Collate utf8mb4_general_ci",
                      table.name));
    }
  }
}

void AddIndexes(SetUp& set_up) {
  const Names existing =
      LowerNames(set_up.GetConnection(),
                 "Select Distinct INDEX_NAME From information_schema.STATISTICS Where "
                 "TABLE_SCHEMA=Database()");
  for (const IndexDefinition& index : Indexes()) {
    if (!existing.contains(Lower(index.name))) {
      set_up.Run(fmt::format("Create Index {} On {}({})", index.name, index.table, index.columns));
    }
  }
}

}  // namespace

std::vector<SkippedStatement> CreateTables(Connection& connection) {
  SetUp set_up(connection, SetUp::Makes::kTablesAndColumns);
  const Names existing = ExistingTables(connection);
  for (const TableDefinition& table : Tables()) {
    if (!existing.contains(Lower(table.name))) {
      CreateTable(set_up, table);
    }
    if (!table.seed_rows.empty()) {
      Seed(set_up, table);
    }
  }
  return set_up.Finish();
}

std::vector<SkippedStatement> UpgradeTables(Connection& connection) {
  SetUp set_up(connection, SetUp::Makes::kTablesAndColumns);
  RunSteps(set_up, UpgradeSteps());
  return set_up.Finish();
}

std::vector<SkippedStatement> StrengthenTables(Connection& connection) {
  SetUp set_up(connection, SetUp::Makes::kAids);
  ConvertStorage(set_up);
  AddRowKeys(set_up);
  AddIndexes(set_up);
  return set_up.Finish();
}

std::vector<SkippedStatement> ExtendTables(Connection& connection) {
  SetUp set_up(connection, SetUp::Makes::kTablesAndColumns);
  RunSteps(set_up, ExtensionSteps());
  try {
    // Only where it is missing: the row of a transaction that runs alone would be waited for.
    if (!connection.Open("Select 1 From Writers Where Id=1").Next()) {
      connection.Execute("Insert Ignore Into Writers Values(1,0,'','2000-01-01')");
    }
    if (!connection.Open("Select 1 From ChangeHead Where Id=1").Next()) {
      connection.Execute("Insert Ignore Into ChangeHead Values(1,0,'',0,'')");
    }
    MakeCounters(connection);
    CommitMark::RemoveOld(connection);
  } catch (const DatabaseError& error) {
    set_up.Skip("the rows of RecordKey, Writers, ChangeHead and CommitMark", error);
  }
  return set_up.Finish();
}

std::vector<SkippedStatement> PrepareDatabase(Connection& connection) {
  std::vector<SkippedStatement> skipped = CreateTables(connection);
  for (const auto step : {UpgradeTables, StrengthenTables, ExtendTables}) {
    for (SkippedStatement& one : step(connection)) {
      skipped.push_back(std::move(one));
    }
  }
  return skipped;
}

std::vector<std::string> TableNames() {
  std::vector<std::string> names;
  for (const TableDefinition& table : Tables()) {
    names.emplace_back(table.name);
  }
  for (const ExtensionTable& table : ExtensionTables()) {
    if (table.is_record) {
      names.emplace_back(table.name);
    }
  }
  return names;
}

}  // namespace quorvane::database
