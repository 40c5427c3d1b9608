#pragma once

#include "core/database/Keys.h"
#include "core/lookups/Directory.h"
#include "core/records/Writing.h"

#include <QString>

#include <string>
#include <vector>

namespace quorvane::portfolio {

/// What the import of master records does with a table.

/// The form in which names are compared: without regard to capitals.
inline std::string Folded(const QString& text) {
  return lookups::Folded(text.toStdString());
}

/// The number of a key.
inline int& Number(int& key) {
  return key;
}
template <class Tag>
inline int& Number(Id<Tag>& key) {
  return key.value;
}

inline bool IsSame(const QString& a, const QString& b) {
  return a == b || Folded(a) == Folded(b);
}
template <class Field>
bool IsSame(const Field& a, const Field& b) {
  return a == b;
}

/// Whether a recorded master has the details of the one in the file, without regard to capitals.
template <class Record>
bool HasDetailsOf(const Record& recorded, Record given) {
  given.id = recorded.id;
  if constexpr (requires { given.document; }) {
    given.document = recorded.document;
  }
  bool same = true;
  records::ForEachColumn<Record>([&](const auto& column) {
    same = same && IsSame(recorded.*(column.member), given.*(column.member));
  });
  return same;
}

/// Writes new records of a table, each with a new key.
template <class Record>
class NewRecords {
 public:
  explicit NewRecords(database::Transaction& transaction)
      : transaction_(transaction), writer_(transaction) {}

  /// Sets the record's key.
  void Add(Record& record) {
    if (next_ == 0) {
      next_ = database::FirstFreeKey(transaction_, records::Table<Record>::kName);
    }
    Number(record.id) = next_++;
    writer_.Write(record);
    ++added_;
  }

  /// Returns how many were added.
  std::size_t Finish() {
    writer_.Finish();
    if (added_ > 0) {
      database::KeepKeys(transaction_, records::Table<Record>::kName, next_);
    }
    return added_;
  }

 private:
  database::Transaction& transaction_;
  records::Writer<Record> writer_;
  int next_ = 0;
  std::size_t added_ = 0;
};

/// The records of a table by key.
template <class Record>
std::vector<Record> AllRecords(database::Transaction& transaction) {
  return records::Select<Record>(transaction.GetConnection()).OrderBy(&Record::id).All();
}

}  // namespace quorvane::portfolio
