#include "masters/lookup_masters/LookupBook.h"

#include "core/database/Keys.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

namespace quorvane::lookup_masters {
namespace {

using database::Connection;
using database::Recordset;
using database::Transaction;
using database::Value;
using Kind = LookupColumn::Kind;

Value ValueOf(const LookupColumn& column, const QString& text) {
  return column.kind == Kind::kText ? Value(text) : Value(text::Val(text));
}

QString TextOf(const LookupColumn& column, const Recordset& record, std::size_t at) {
  if (column.kind == Kind::kText || record.IsNull(at)) {
    return record.Text(at);
  }
  return text::NumberText(record.Double(at));
}

std::string ColumnNames(const LookupMaster& master) {
  std::string names = "Id";
  for (const LookupColumn& column : master.columns) {
    names += fmt::format(",{}", column.name);
  }
  return names;
}

void Insert(Transaction& transaction, const LookupMaster& master, const LookupRow& row) {
  std::string sql = fmt::format("Insert Into {}({}) Values(?", master.table, ColumnNames(master));
  std::vector<Value> values{row.id};
  for (std::size_t i = 0; i < master.columns.size(); ++i) {
    sql += ",?";
    values.push_back(ValueOf(master.columns[i], row.values[i]));
  }
  transaction.GetConnection().ExecuteValues(sql + ")", values);
}

}  // namespace

LookupBook::LookupBook(Connection& connection, LookupKind kind)
    : connection_(connection), master_(MasterOf(kind)) {}

std::vector<LookupRow> LookupBook::List() const {
  std::vector<LookupRow> rows;
  const std::string order =
      master_.order.empty() ? std::string() : fmt::format(" Order By {}", master_.order);
  for (const auto& record : connection_.Open(SelectFrom() + order)) {
    rows.push_back(RowOf(record));
  }
  return rows;
}

std::optional<LookupRow> LookupBook::Load(int id) const {
  Recordset records = connection_.Open(SelectFrom() + " Where Id=?", id);
  return records.Next() ? std::optional(RowOf(records)) : std::nullopt;
}

Result<int> LookupBook::Save(const LookupRow& row) {
  if (const MaybeRefusal refusal = CheckRow(master_, row)) {
    return *refusal;
  }
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveIn(transaction, row); });
}

std::vector<LookupRow> LookupBook::AddMissing(const std::vector<LookupRow>& rows) {
  std::vector<LookupRow> added;
  database::InTransaction(connection_, [&](Transaction& transaction) {
    added.clear();
    for (LookupRow row : rows) {
      if (const Result<int> id = SaveIn(transaction, row)) {
        row.id = *id;
        added.push_back(std::move(row));
      }
    }
  });
  return added;
}

void LookupBook::Delete(int id) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    transaction.Execute(fmt::format("Delete From {} Where Id=?", master_.table), id);
  });
}

Result<int> LookupBook::SaveIn(Transaction& transaction, LookupRow row) const {
  if (IsTaken(transaction, row)) {
    return Refusal{Tr("LookupMasters", master_.if_taken), master_.columns.front().field};
  }
  row.id = database::ClaimKey(transaction, master_.table, row.id);
  Insert(transaction, master_, row);
  return row.id;
}

bool LookupBook::IsTaken(Transaction& transaction, const LookupRow& row) const {
  std::string sql = fmt::format("Select Id From {} Where Id<>?", master_.table);
  std::vector<Value> values{row.id};
  for (std::size_t i = 0; i < master_.unique_columns; ++i) {
    sql += fmt::format(" and {}=?", master_.columns[i].name);
    values.push_back(ValueOf(master_.columns[i], row.values[i]));
  }
  return transaction.GetConnection().OpenValues(sql + " For Update", values).Next();
}

LookupRow LookupBook::RowOf(const Recordset& record) const {
  LookupRow row{record.Int(0), {}};
  for (std::size_t i = 0; i < master_.columns.size(); ++i) {
    row.values.push_back(TextOf(master_.columns[i], record, i + 1));
  }
  return row;
}

std::string LookupBook::SelectFrom() const {
  return fmt::format("Select {} From {}", ColumnNames(master_), master_.table);
}

}  // namespace quorvane::lookup_masters
