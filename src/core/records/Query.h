#pragma once

#include "core/database/Connection.h"
#include "core/database/DateSql.h"
#include "core/records/Cells.h"
#include "core/records/Table.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::records {

/// The conditions, order and locking of a query over one table; what Select and Delete share.
/// Columns are named by the members that keep them.
template <class Record>
class Conditions {
 public:
  template <class Field, class Wanted>
  void Where(Field Record::*member, const Wanted& value) {
    Add(ColumnOf(member), "=?");
    values.push_back(Bound(value));
  }

  /// Any of the ids; none of them when the list is empty.
  template <class Field, class Ids>
  void In(Field Record::*member, const Ids& ids) {
    std::string list;
    for (const auto& id : ids) {
      list += list.empty() ? "?" : ",?";
      values.push_back(Bound(id));
    }
    Add(ColumnOf(member), list.empty() ? " In (NULL)" : " In (" + list + ")");
  }

  std::string text;
  std::vector<Value> values;

 private:
  void Add(std::string_view column, std::string_view test) {
    text += text.empty() ? " Where " : " and ";
    text.append(column).append(test);
  }
};

/// Reads records of a table, one query for any number:
///
///     Select<BillLine>(connection).Where(&BillLine::bill, id).OrderBy(&BillLine::number).All()
///
/// Without an order the rows come as the server gives them. Throws DatabaseError.
template <class Record>
class Select {
 public:
  explicit Select(database::Connection& connection, std::string_view table = Table<Record>::kName)
      : connection_(connection), table_(table) {}

  template <class Field, class Wanted>
  Select& Where(Field Record::*member, const Wanted& value) {
    conditions_.Where(member, value);
    return *this;
  }

  /// These conditions in place of those before.
  Select& With(const Conditions<Record>& conditions) {
    conditions_ = conditions;
    return *this;
  }

  /// No condition when there is no value.
  template <class Field, class Wanted>
  Select& Where(Field Record::*member, const std::optional<Wanted>& value) {
    return value ? Where(member, *value) : *this;
  }

  template <class Field, class Ids>
  Select& In(Field Record::*member, const Ids& ids) {
    conditions_.In(member, ids);
    return *this;
  }

  template <class Field>
  Select& OrderBy(Field Record::*member) {
    return OrderByText(std::string(ColumnOf(member)));
  }

  /// The largest first.
  template <class Field>
  Select& OrderDownBy(Field Record::*member) {
    return OrderByText(std::string(ColumnOf(member)) + " Desc");
  }

  /// By the day that a "dd/mm/yyyy" column names.
  template <class Field>
  Select& OrderByDay(Field Record::*member) {
    return OrderByText(database::DateOf(ColumnOf(member)));
  }

  /// Locks the rows to the end of the transaction, and the places where rows could be inserted.
  Select& ForUpdate() {
    lock_ = " For Update";
    return *this;
  }

  /// Locks the rows against changes by others to the end of the transaction.
  Select& Shared() {
    lock_ = " Lock In Share Mode";
    return *this;
  }

  std::vector<Record> All() {
    std::vector<Record> records;
    Each([&](const Record& record) { records.push_back(record); });
    return records;
  }

  std::optional<Record> First() {
    limit_ = " Limit 1";
    std::optional<Record> first;
    Each([&](const Record& record) { first = record; });
    return first;
  }

  /// Calls `visit` with each record; the record is the same object each time.
  template <class Visit>
  void Each(const Visit& visit) {
    std::apply([&](const auto&... column) { EachOf(visit, column.member...); },
               Table<Record>::kColumns);
  }

  /// Calls `visit` with each record and which of its columns are NULL.
  template <class Visit>
  void EachWithNulls(const Visit& visit) {
    std::apply([&](const auto&... column) { EachRow(visit, column.member...); },
               Table<Record>::kColumns);
  }

  /// Reads these members only and leaves the others as they are when nothing was read.
  template <auto... Members, class Visit>
  void Only(const Visit& visit) {
    EachOf(visit, Members...);
  }

 private:
  Select& OrderByText(const std::string& expression) {
    order_ += order_.empty() ? " Order By " : ",";
    order_ += expression;
    return *this;
  }

  template <class Visit, class... Fields>
  void EachOf(const Visit& visit, Fields Record::*... members) {
    Record record;
    auto rows = Open(members...);
    while (rows.Next()) {
      std::size_t place = 0;
      (ReadCell(rows, place++, record.*members), ...);
      visit(static_cast<const Record&>(record));
    }
  }

  template <class Visit, class... Fields>
  void EachRow(const Visit& visit, Fields Record::*... members) {
    static_assert(sizeof...(members) <= Nulls().size());
    Record record;
    auto rows = Open(members...);
    while (rows.Next()) {
      std::size_t place = 0;
      (ReadCell(rows, place++, record.*members), ...);
      Nulls nulls;
      for (place = 0; place < sizeof...(members); ++place) {
        nulls[place] = rows.IsNull(place);
      }
      visit(static_cast<const Record&>(record), nulls);
    }
  }

  template <class... Fields>
  Recordset Open(Fields Record::*... members) {
    std::string sql = "Select ";
    std::string_view comma;
    ((sql.append(comma).append(ColumnOf(members)), comma = ","), ...);
    sql.append(" From ").append(table_).append(conditions_.text).append(order_);
    sql.append(limit_).append(lock_);
    return connection_.OpenValues(sql, conditions_.values);
  }

  database::Connection& connection_;
  std::string_view table_;
  Conditions<Record> conditions_;
  std::string order_;
  std::string_view limit_;
  std::string_view lock_;
};

}  // namespace quorvane::records
