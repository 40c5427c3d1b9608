#include "admin/repair/TableCheck.h"

#include "core/actions/Application.h"
#include "core/changes/Chain.h"
#include "core/database/Schema.h"
#include "core/database/Transaction.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace quorvane::repair {
namespace {

/// Tables and the columns that no two of their rows share.
constexpr std::pair<std::string_view, std::string_view> kKeys[] = {
    {"LoginId", "id"},
    {"LoginPassword", "id"},
    {"ClientInfo", "Id"},
    {"ClientActDet", "id"},
    {"DepPart", "Id"},
    {"DpIDs", "id"},
    {"Broker", "Id"},
    {"Script", "Id"},
    {"ScriptType", "Id"},
    {"ScriptClass", "Id"},
    {"STTPer", "Id"},
    {"Exchange", "Id"},
    {"StkOpBal", "Id"},
    {"BrOpBal", "Id"},
    {"BrOpBal", "CId,Fyear,BrId"},
    {"Stock", "Id"},
    {"MarketRate", "Id"},
    {"MarketRate", "ScrId,MDate"},
    {"SPMaster", "ID"},
    {"SPTrans", "SID,Id"},
    {"BrPayment", "Id"},
    {"BrRec", "Id"},
    {"ScrTransfer", "ID"},
    {"TransTaxPer", "Id"},
    {"ScriptAvgRate", "Cid,Fyear,AcId,ScriptId,BrkId"}};

std::int64_t CountOf(database::Connection& connection, const std::string& sql) {
  auto rows = connection.Open(sql);
  return rows.Next() ? rows.Int64(0) : 0;
}

}  // namespace

std::vector<TableSize> CountRows(database::Connection& connection) {
  std::vector<TableSize> sizes;
  for (const std::string& table : database::TableNames()) {
    sizes.push_back({table, CountOf(connection, "Select Count(*) From " + table)});
  }
  return sizes;
}

namespace {

/// One look through the database; two steps a table, one a key and a reference, and one each for
/// lost lines, lots, corporate actions and the log.
class Look {
 public:
  Look(database::Connection& connection, Progress& progress)
      : connection_(connection), progress_(progress) {
    const std::size_t steps =
        2 * database::TableNames().size() + std::size(kKeys) + references_.size() + 4;
    progress_.Begin(Tr("TableCheck", "Checking the tables"), static_cast<std::int64_t>(steps));
  }

  TableCheck Run() {
    for (const std::string& table : database::TableNames()) {
      AskServer(table);
      Done();
    }
    // Never committed: it only holds every query to one instant.
    const database::Transaction instant(connection_);
    for (const std::string& table : database::TableNames()) {
      check_.sizes.push_back({table});
      LookInto(table, [&] {
        check_.sizes.back().rows = CountOf(connection_, "Select Count(*) From " + table);
      });
    }
    for (const auto& [table, columns] : kKeys) {
      LookInto(table, [&, &name = table, &key = columns] { LookForDoubles(name, key); });
    }
    if (check_.faults.empty()) {
      LookAcrossTables();
    }
    return std::move(check_);
  }

 private:
  void LookAcrossTables() {
    for (const database::KeyReference& reference : references_) {
      LookInto(reference.table, [&] { LookForDangling(reference); });
    }
    LookInto("SPTrans", [&] { check_.lost_lines = FindLostLines(connection_); });
    LookInto("Stock", [&] { CheckLots(); });
    LookInto("CorpAction", [&] {
      WithinStep step(progress_, done_);
      check_.outdated_actions = actions::OutdatedActions(connection_, step);
    });
    LookInto("ChangeLog", [&] {
      WithinStep step(progress_, done_);
      check_.log_faults = changes::CheckChain(connection_, step);
    });
  }

  void Done() {
    progress_.Step(++done_);
    progress_.ThrowIfCancelled();
  }

  /// One step. A table that cannot be read is a fault of the table.
  void LookInto(std::string_view table, const std::function<void()>& look) {
    try {
      look();
    } catch (const database::DatabaseError& error) {
      if (error.IsConnectionLost()) {
        throw;
      }
      AddFault(table, error.what());
    }
    Done();
  }

  /// What is said of a table first, is said of it.
  void AddFault(std::string_view table, std::string text) {
    if (std::ranges::find(check_.faults, table, &TableFault::table) == check_.faults.end()) {
      check_.faults.push_back({std::string(table), std::move(text)});
    }
  }

  void AskServer(const std::string& table) {
    try {
      for (const auto& row : connection_.Open("Check Table " + table)) {
        const QString kind = row.Text("Msg_type");
        const bool is_fault =
            kind == QLatin1String("error") ||
            (kind == QLatin1String("status") && row.Text("Msg_text") != QLatin1String("OK") &&
             !row.Text("Msg_text").startsWith(QLatin1String("Table is already")));
        if (is_fault) {
          AddFault(table, row.Text("Msg_text").toStdString());
        }
      }
    } catch (const database::DatabaseError& error) {
      if (error.IsConnectionLost()) {
        throw;
      }
      check_.unchecked.push_back(table);
    }
  }

  void CheckLots() {
    WithinStep step(progress_, done_);
    ledger::StockCheck stock = ledger::CheckStock(connection_, std::nullopt, step);
    check_.wrong_lots = std::move(stock.changes);
    check_.record_faults = records::FaultTexts(connection_, stock.faults);
  }

  void LookForDoubles(std::string_view table, std::string_view columns) {
    const std::int64_t keys = CountOf(
        connection_,
        fmt::format("Select Count(*) From (Select 1 From {} Group By {} Having Count(*)>1) T",
                    table, columns));
    if (keys > 0) {
      check_.double_keys.push_back({std::string(table), std::string(columns), keys});
    }
  }

  void LookForDangling(const database::KeyReference& reference) {
    if (const std::int64_t rows = CountDangling(connection_, reference); rows > 0) {
      check_.dangling.push_back({std::string(reference.table), std::string(reference.column),
                                 std::string(reference.names), rows});
    }
  }

  database::Connection& connection_;
  Progress& progress_;
  std::int64_t done_ = 0;
  const std::vector<database::KeyReference> references_ = CheckedReferences();
  TableCheck check_;
};

}  // namespace

TableCheck CheckTables(database::Connection& connection, Progress& progress) {
  return Look(connection, progress).Run();
}

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
