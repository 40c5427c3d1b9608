#include "admin/repair/DoubleKeys.h"

#include "core/database/Keys.h"
#include "core/database/SchemaTables.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>

namespace quorvane::repair {
namespace {

using database::KeyReference;
using database::Transaction;

constexpr qsizetype kLongestContents = 200;

using Fields = std::vector<std::optional<QString>>;

Fields FieldsOf(const database::Recordset& row, std::size_t first) {
  Fields fields;
  for (std::size_t column = first; column < row.ColumnCount(); ++column) {
    fields.push_back(row.OptionalText(column));
  }
  return fields;
}

QString ContentsOf(const database::Recordset& row) {
  QStringList texts;
  for (const std::optional<QString>& field : FieldsOf(row, 1)) {
    texts << field.value_or(QString());
  }
  return texts.join(QStringLiteral(", ")).left(kLongestContents);
}

/// The client that a record of the table belongs to; empty for what belongs to no client.
std::string_view ClientOf(std::string_view table) {
  if (table == "ClientActDet") {
    return "CId";
  }
  return table == "SPMaster" || table == "Stock" ? "Cid" : "";
}

/// The client on the side of the reference. A transfer's second account is of its second client.
std::string_view ClientOf(const KeyReference& reference) {
  if (reference.column == "ToAcId") {
    return "ToClientID";
  }
  return reference.table == "StkOpBal" ? "CId" : "Cid";
}

std::vector<KeyReference> Naming(std::string_view table) {
  std::vector<KeyReference> naming;
  std::ranges::copy_if(database::KeyReferences(), std::back_inserter(naming),
                       [&](const KeyReference& reference) { return reference.names == table; });
  return naming;
}

/// The records of one doubled key.
class Twins {
 public:
  Twins(Transaction& transaction, std::string_view table, int key)
      : transaction_(transaction), table_(table), key_(key), naming_(Naming(table)) {
    const std::string client = ClientOf(table).empty() ? "0" : std::string(ClientOf(table));
    for (const auto& row : transaction.Open(
             fmt::format(
                 "Select RowKey,Coalesce({},0),T.* From {} T Where Id=? Order By RowKey For Update",
                 client, table),
             key)) {
      rows_.push_back({row.Int64(0), row.Int(1), FieldsOf(row, 2)});
    }
  }

  /// The table whose records could mean any of them; empty when none does.
  std::string_view Ambiguous() {
    std::set<int> clients;
    for (const Row& row : rows_) {
      clients.insert(row.client);
    }
    const bool clients_tell = !ClientOf(table_).empty() && clients.size() == rows_.size();
    for (const KeyReference& reference : naming_) {
      if (!clients_tell && IsNamedBy(reference)) {
        return reference.table;
      }
    }
    return {};
  }

  /// No field tells one from another: which of them is meant makes no difference.
  bool AreEqual() const {
    return std::ranges::all_of(rows_,
                               [&](const Row& row) { return row.fields == rows_.front().fields; });
  }

  int RemoveCopies() {
    for (std::size_t i = 1; i < rows_.size(); ++i) {
      transaction_.Execute(fmt::format("Delete From {} Where RowKey=?", table_), rows_[i].number);
    }
    return static_cast<int>(rows_.size()) - 1;
  }

  int GiveNewKeys() {
    for (std::size_t i = 1; i < rows_.size(); ++i) {
      const int fresh = database::NextKey(transaction_, table_);
      transaction_.Execute(fmt::format("Update {} Set Id=? Where RowKey=?", table_), fresh,
                           rows_[i].number);
      for (const KeyReference& reference : naming_) {
        if (!ClientOf(table_).empty()) {
          transaction_.Execute(fmt::format("Update {0} Set {1}=? Where {1}=? And {2}=?",
                                           reference.table, reference.column, ClientOf(reference)),
                               fresh, key_, rows_[i].client);
        }
      }
    }
    return static_cast<int>(rows_.size()) - 1;
  }

 private:
  struct Row {
    std::int64_t number;
    int client;
    Fields fields;
  };

  bool IsNamedBy(const KeyReference& reference) {
    return transaction_
        .Open(fmt::format("Select 1 From {} Where {}=? Limit 1", reference.table, reference.column),
              key_)
        .Next();
  }

  Transaction& transaction_;
  std::string_view table_;
  int key_;
  std::vector<KeyReference> naming_;
  std::vector<Row> rows_;
};

std::vector<int> DoubledKeys(database::Connection& connection, std::string_view table) {
  std::vector<int> keys;
  for (const auto& row : connection.Open(fmt::format(
           "Select Id From {} Where Id>0 Group By Id Having Count(*)>1 Order By Id", table))) {
    keys.push_back(row.Int(0));
  }
  return keys;
}

void GiveNewKeys(Transaction& transaction, std::string_view table, NewKeys& result) {
  for (const int key : DoubledKeys(transaction.GetConnection(), table)) {
    Twins twins(transaction, table, key);
    const std::string_view named_by = twins.Ambiguous();
    if (!named_by.empty() && twins.AreEqual()) {
      result.removed += twins.RemoveCopies();
    } else if (!named_by.empty()) {
      result.refused << Tr("DoubleKeys",
                           "%1: the records of key %2 stay as they are, because records of %3 "
                           "name the key and nothing tells which of them is meant. Do not delete "
                           "one of them in its window: both would go. Restore a BackUp.")
                            .arg(QString::fromLatin1(table.data(), std::ssize(table)))
                            .arg(key)
                            .arg(QString::fromLatin1(named_by.data(), std::ssize(named_by)));
    } else {
      result.given += twins.GiveNewKeys();
    }
  }
}

}  // namespace

std::vector<DoubleRecord> FindDoubleRecords(database::Connection& connection) {
  std::vector<DoubleRecord> records;
  for (const std::string_view table : database::KeyedTables()) {
    for (const int key : DoubledKeys(connection, table)) {
      for (const auto& row : connection.Open(
               fmt::format("Select RowKey,T.* From {} T Where Id=? Order By RowKey", table), key)) {
        records.push_back({std::string(table), key, row.Int64(0), ContentsOf(row)});
      }
    }
  }
  return records;
}

NewKeys GiveNewKeys(database::Connection& connection) {
  NewKeys result;
  database::InTransaction(
      connection,
      [&](Transaction& transaction) {
        result = {};
        transaction.Changes().Summarise(changes::Kind::kRepaired, Tr("DoubleKeys", "Double keys"));
        for (const std::string_view table : database::KeyedTables()) {
          GiveNewKeys(transaction, table, result);
        }
      },
      database::Turn::kAlone);
  return result;
}

}  // namespace quorvane::repair
