#pragma once

#include "core/database/Keys.h"
#include "core/database/Transaction.h"
#include "core/records/Query.h"
#include "core/records/RowJson.h"

#include <algorithm>
#include <span>
#include <string>

namespace quorvane::records {

using database::Transaction;

// Records are written and deleted here and nowhere else, so that each change of one is in the log
// of changes (changes::Changes).

/// Inserts records of a table, thousands at a time, in the order in which they are given. What was
/// written after the last Finish is not sent.
template <class Record>
class Writer {
 public:
  explicit Writer(Transaction& transaction, std::string_view table = Table<Record>::kName)
      : writer_(transaction, Statement(table), Types()),
        notes_(transaction.Changes(), table, Notes<Record>::Of::kWriting) {}

  /// Columns that are among the `nulls` are written as NULL.
  void Write(const Record& record, const Nulls& nulls = {}) {
    std::size_t place = 0;
    ForEachColumn<Record>([&](const auto& column) {
      if (nulls[place++]) {
        writer_.Null();
      } else {
        WriteCell(writer_, record.*(column.member));
      }
    });
    writer_.EndRow();
    notes_.Added(record, nulls);
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
  Notes<Record> notes_;
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
    Notes<Record> notes(transaction_.Changes(), table_, Notes<Record>::Of::kDeleting);
    const bool by_row = notes.NeedRows();
    if (by_row) {
      Select<Record> doomed(transaction_.GetConnection(), table_);
      doomed.With(conditions_)
          .ForUpdate()
          .EachWithNulls([&](const Record& row, const Nulls& nulls) { notes.Removed(row, nulls); });
    }
    const std::int64_t count = transaction_.GetConnection().ExecuteValues(
        std::string("Delete From ").append(table_).append(conditions_.text), conditions_.values);
    if (!by_row) {
      notes.RemovedUnread(count);
    }
    return count;
  }

 private:
  Transaction& transaction_;
  std::string_view table_;
  Conditions<Record> conditions_;
};

/// Puts a record in the place of the one with its key.
template <class Record>
void Replace(Transaction& transaction, const Record& record,
             std::string_view table = Table<Record>::kName) {
  Delete<Record>(transaction, table).Where(&Record::id, record.id).Run();
  Insert(transaction, record, table);
}

/// Deletes the records that name any of the keys, some hundred keys at a time.
template <class Record, class Field>
void DeleteNaming(Transaction& transaction, Field Record::*member,
                  std::span<const std::type_identity_t<Field>> keys,
                  std::string_view table = Table<Record>::kName) {
  constexpr std::size_t kAtOnce = 500;
  for (; !keys.empty(); keys = keys.subspan(std::min(kAtOnce, keys.size()))) {
    Delete<Record>(transaction, table).In(member, keys.first(std::min(kAtOnce, keys.size()))).Run();
  }
}

/// Makes room for a record that is about to be written whole, and returns its key. A stored record
/// of that key is removed and its key kept; a record without a key, or one that was deleted
/// meanwhile, gets the table's next free key, because its own may be taken.
template <class Record, class Key>
Key ClaimKey(Transaction& transaction, Key Record::*member, Key key,
             std::string_view table = Table<Record>::kName) {
  const bool is_new = KeyNumber(key) == 0;
  if (!is_new && Delete<Record>(transaction, table).Where(member, key).Run() > 0) {
    return key;
  }
  if (!is_new) {
    transaction.Changes().Missed(table, KeyNumber(key));
  }
  return Key{database::NextKey(transaction, table)};
}

}  // namespace quorvane::records
