#include "masters/lookup_masters/LookupBook.h"

#include "core/records/Masters.h"
#include "core/records/Writing.h"
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

/// Calls `work` with the row as a record of its table.
template <class Work>
auto WithRecord(LookupKind kind, const LookupRow& row, const Work& work) {
  const auto text = [&](std::size_t at) {
    return at < row.values.size() ? row.values[at] : QString();
  };
  switch (kind) {
    case LookupKind::kScripTypes:
      return work(records::ScripType{row.id, text(0)});
    case LookupKind::kScripClasses:
      return work(records::ScripClass{row.id, text(0)});
    case LookupKind::kExchanges:
      return work(records::Exchange{ExchangeId{row.id}, text(0)});
    case LookupKind::kSttPercentages:
      return work(records::SttPercent{row.id, text::Val(text(0))});
    case LookupKind::kTaxPercentages:
      break;
  }
  return work(records::Percentage{
      row.id, text::FinancialYear::Parse(text(0)).value_or(text::FinancialYear()), text(1),
      text::Val(text(2)), text(3)});
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
    WithRecord(master_.kind, {id, {}}, [&]<class Record>(const Record& record) {
      records::Delete<Record>(transaction).Where(&Record::id, record.id).Run();
    });
  });
}

Result<int> LookupBook::SaveIn(Transaction& transaction, LookupRow row) const {
  if (IsTaken(transaction, row)) {
    return Refusal{Tr("LookupMasters", master_.if_taken), master_.columns.front().field};
  }
  row.id = WithRecord(master_.kind, row, [&]<class Record>(Record record) {
    record.id = records::ClaimKey(transaction, &Record::id, record.id);
    records::Insert(transaction, record);
    return records::KeyNumber(record.id);
  });
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
