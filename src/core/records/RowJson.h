#pragma once

#include "core/changes/Changes.h"
#include "core/records/Cells.h"
#include "core/records/Table.h"

#include <QJsonArray>
#include <QJsonValue>

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <iterator>
#include <string>

namespace quorvane::records {

// Records as JSON, in the form in which the log of changes keeps them: the names of the columns
// once for a table, and an array of values a row. Doubles are written so that they are read back
// exactly.

template <WholeNumber T>
void AppendCell(std::string& json, T value) {
  fmt::format_to(std::back_inserter(json), "{}", static_cast<int>(value));
}
inline void AppendCell(std::string& json, double value) {
  fmt::format_to(std::back_inserter(json), "{}", std::isfinite(value) ? value : 0.0);
}
inline void AppendCell(std::string& json, text::Shares value) {
  AppendCell(json, value.Number());
}
inline void AppendCell(std::string& json, const QString& value) {
  changes::AppendJson(json, value.toStdString());
}
inline void AppendCell(std::string& json, const std::string& value) {
  changes::AppendJson(json, value);
}
template <class Tag>
void AppendCell(std::string& json, Id<Tag> value) {
  AppendCell(json, value.value);
}
inline void AppendCell(std::string& json, text::FinancialYear value) {
  changes::AppendJson(json, value.Utf8());
}

template <WholeNumber T>
void TakeCell(const QJsonValue& json, T& into) {
  into = static_cast<T>(json.toInt());
}
inline void TakeCell(const QJsonValue& json, double& into) {
  into = json.toDouble();
}
inline void TakeCell(const QJsonValue& json, text::Shares& into) {
  into = text::Shares(json.toDouble());
}
inline void TakeCell(const QJsonValue& json, QString& into) {
  into = json.toString();
}
template <class Tag>
void TakeCell(const QJsonValue& json, Id<Tag>& into) {
  into.value = json.toInt();
}
inline void TakeCell(const QJsonValue& json, text::FinancialYear& into) {
  into = text::FinancialYear::Parse(json.toString()).value_or(text::FinancialYear());
}

/// A JSON array of the names of a record's columns.
template <class Record>
const std::string& ColumnsJson() {
  static const std::string json = [] {
    std::string names;
    ForEachColumn<Record>([&](const auto& column) {
      names += names.empty() ? "[" : ",";
      changes::AppendJson(names, column.name);
    });
    return names + "]";
  }();
  return json;
}

/// A JSON array of a record's values, null for those that are NULL in the database.
template <class Record>
std::string RowJson(const Record& record, const Nulls& nulls = {}) {
  std::string json;
  std::size_t place = 0;
  ForEachColumn<Record>([&](const auto& column) {
    json += json.empty() ? "[" : ",";
    if (nulls[place++]) {
      json += "null";
    } else {
      AppendCell(json, record.*(column.member));
    }
  });
  return json + "]";
}

/// Reads records out of arrays of values that come in the order of `columns`.
template <class Record>
class RowReader {
 public:
  explicit RowReader(const QJsonArray& columns) {
    auto place = places_.begin();
    ForEachColumn<Record>([&](const auto& column) {
      const QLatin1String name(column.name.data(), std::ssize(column.name));
      *place = columns.size() - 1;
      while (*place >= 0 && columns[*place].toString() != name) {
        --*place;
      }
      ++place;
    });
  }

  /// A column that is not among the values keeps what a new record has.
  Record RecordOf(const QJsonArray& values) const {
    Record record;
    auto place = places_.begin();
    ForEachColumn<Record>([&](const auto& column) {
      if (*place >= 0 && *place < values.size()) {
        TakeCell(values[*place], record.*(column.member));
      }
      ++place;
    });
    return record;
  }

  /// Which columns of the record are null.
  Nulls NullsOf(const QJsonArray& values) const {
    Nulls nulls;
    for (std::size_t i = 0; i < places_.size(); ++i) {
      nulls[i] = places_[i] >= 0 && places_[i] < values.size() && values[places_[i]].isNull();
    }
    return nulls;
  }

 private:
  /// Of each column of the record among the values; -1 where it is not.
  std::array<qsizetype, std::tuple_size_v<decltype(Table<Record>::kColumns)>> places_{};
};

inline int KeyNumber(int key) {
  return key;
}
template <class Tag>
int KeyNumber(Id<Tag> key) {
  return key.value;
}

template <class Record>
inline constexpr bool kIsDerived = requires {
  Table<Record>::kIsDerived;
};

/// By what people know a record.
template <class Record>
QString TitleOf(const Record& record) {
  if constexpr (requires { record.settlement_number; }) {
    return record.number + QStringLiteral(", ") + record.date;
  } else if constexpr (requires { record.purchase_date; }) {
    return record.purchase_date;
  } else if constexpr (requires { record.ex_day; }) {
    return record.ex_day;
  } else if constexpr (requires { record.code; }) {
    return record.code;
  } else if constexpr (requires { record.name; }) {
    return record.name;
  } else if constexpr (requires { record.date; }) {
    return record.date;
  } else if constexpr (requires { record.percent; }) {
    return QString::number(record.percent);
  } else {
    return {};
  }
}

/// The record that a row of the table belongs to: a line to its bill, an account to its client.
template <class Record>
changes::Owner OwnerOf(const Record& record, std::string_view table) {
  changes::Owner owner{.table = table};
  if constexpr (
      requires {
        record.bill;
        record.number;
      } ||
      requires { record.trade_key; }) {
    owner.table = "SPMaster";
    owner.key = record.bill.value;
  } else if constexpr (requires {
                         record.participant;
                         record.dp_id;
                       }) {
    owner.table = "ClientInfo";
    owner.key = record.client.value;
  } else if constexpr (requires { record.participant; }) {
    owner.table = "DepPart";
    owner.key = record.participant.value;
  } else if constexpr (requires {
                         record.action;
                         record.number;
                       }) {
    owner.table = "CorpAction";
    owner.key = record.action.value;
  } else if constexpr (
      requires { record.isin; } || requires { record.fair_rate; }) {
    owner.table = "Script";
    owner.key = record.scrip.value;
  } else if constexpr (requires { record.loss_year; }) {
    owner.key = record.client.value;
    owner.title = record.year.Text();
  } else if constexpr (requires { record.statement_day; }) {
    owner.key = record.account.value;
    owner.title = record.statement_day;
  } else if constexpr (requires { record.rights; }) {
    owner.table = "LoginId";
    owner.key = record.user;
  } else {
    owner.key = KeyNumber(record.id);
    owner.title = TitleOf(record);
  }
  if constexpr (requires { record.client.value; }) {
    owner.client = record.client.value;
  } else if constexpr (requires { record.group_code; }) {
    owner.client = record.id.value;
  }
  if constexpr (requires { record.year.Utf8(); }) {
    owner.year = record.year.Utf8();
  }
  return owner;
}

/// Notes rows of a table that a transaction writes or deletes. Of a derived table it notes nothing,
/// or only what is deleted along with a master, which no computation brings back.
template <class Record>
class Notes {
 public:
  enum class Of { kWriting, kDeleting };

  Notes(changes::Changes& changes, std::string_view table, Of of) : changes_(changes) {
    if (!kIsDerived<Record> ||
        (kNotesDeletes && of == Of::kDeleting && table == Table<Record>::kName)) {
      table_ = &changes.Of(table);
    }
  }

  /// Whether a deleted row has to be read for its note.
  bool NeedRows() const { return table_ != nullptr && changes_.KeepsRows(); }

  void Added(const Record& record, const Nulls& nulls = {}) {
    if constexpr (!kIsDerived<Record>) {
      if (changes_.KeepsRows()) {
        changes_.Added(*table_, OwnerOf(record, table_->table), ColumnsJson<Record>(),
                       RowJson(record, nulls));
      } else {
        ++table_->added_count;
      }
    }
  }
  void Removed(const Record& record, const Nulls& nulls = {}) {
    if constexpr (!kIsDerived<Record> || kNotesDeletes) {
      changes_.Removed(*table_, OwnerOf(record, table_->table), ColumnsJson<Record>(),
                       RowJson(record, nulls));
    }
  }
  void RemovedUnread(std::int64_t count) {
    if (table_ != nullptr) {
      table_->removed_count += count;
    }
  }

 private:
  static constexpr bool kNotesDeletes = requires { Table<Record>::kNotesDeletes; };

  changes::Changes& changes_;
  changes::TableChanges* table_ = nullptr;
};

}  // namespace quorvane::records
