#pragma once

#include "core/database/Transaction.h"
#include "core/records/Query.h"

#include <span>
#include <string>

namespace quorvane::records {

using database::Transaction;

/// Inserts records of a table, thousands at a time, in the order in which they are given. What was
/// written after the last Finish is not sent.
template <class Record>
class Writer {
 public:
  explicit Writer(Transaction& transaction, std::string_view table = Table<Record>::kName)
      : writer_(transaction, Statement(table), Types()) {}

  void Write(const Record& record) {
    ForEachColumn<Record>([&](const auto& column) { WriteCell(writer_, record.*(column.member)); });
    writer_.EndRow();
  }
  void Finish() { writer_.Finish(); }

 private:
  static std::string Statement(std::string_view table) {
    std::string columns;
    std::string places;
    ForEachColumn<Record>([&](const auto& column) {
      columns.append(columns.empty() ? "" : ",").append(column.name);
      places += places.empty() ? "?" : ",?";
    });
    return std::string("Insert Into ").append(table) + "(" + columns + ") Values(" + places + ")";
  }

  static std::string Types() {
    std::string types;
    ForEachColumn<Record>([&](const auto& column) {
      types += TypeLetter<std::remove_cvref_t<decltype(std::declval<Record>().*(column.member))>>();
    });
    return types;
  }

  BulkWriter writer_;
};

template <class Record>
void Insert(Transaction& transaction, std::span<const Record> records,
            std::string_view table = Table<Record>::kName) {
  Writer<Record> writer(transaction, table);
  for (const Record& record : records) {
    writer.Write(record);
  }
  writer.Finish();
}

template <class Record>
void Insert(Transaction& transaction, const Record& record,
            std::string_view table = Table<Record>::kName) {
  Insert(transaction, std::span<const Record>(&record, 1), table);
}

/// Deletes the records of a table that meet the conditions; without one nothing is deleted.
template <class Record>
class Delete {
 public:
  explicit Delete(Transaction& transaction, std::string_view table = Table<Record>::kName)
      : transaction_(transaction), table_(table) {}

  template <class Field, class Wanted>
  Delete& Where(Field Record::*member, const Wanted& value) {
    conditions_.Where(member, value);
    return *this;
  }
  template <class Field, class Ids>
  Delete& In(Field Record::*member, const Ids& ids) {
    conditions_.In(member, ids);
    return *this;
  }

  /// Returns the number of records deleted.
  std::int64_t Run() {
    if (conditions_.text.empty()) {
      return 0;
    }
    return transaction_.GetConnection().ExecuteValues(
        std::string("Delete From ").append(table_).append(conditions_.text), conditions_.values);
  }

 private:
  Transaction& transaction_;
  std::string_view table_;
  Conditions<Record> conditions_;
};

}  // namespace quorvane::records
