#include "core/changes/Touched.h"

#include "core/changes/EntryRows.h"

#include <algorithm>
#include <set>

namespace quorvane::changes {
namespace {

std::vector<int> KeysIn(EntryRows& rows, std::string_view table) {
  std::set<int> keys;
  rows.ForEach([&]<class Record>(const RowsOf<Record>& of) {
    for (const auto* list : {&of.removed, &of.added}) {
      for (const Record& record : *list) {
        const Owner owner = records::OwnerOf(record, of.table);
        if (owner.table == table) {
          keys.insert(owner.key);
        }
      }
    }
  });
  return {keys.begin(), keys.end()};
}

/// Adds up what is counted of the table and of those whose rows belong to its records.
void AddCounts(const QJsonObject& counts, std::string_view table, Touched& touched) {
  EntryRows all;
  all.ForEach([&]<class Record>(const RowsOf<Record>& of) {
    if (records::OwnerOf(Record(), of.table).table == table) {
      const QJsonArray both =
          counts[QLatin1String(of.table.data(), std::ssize(of.table))].toArray();
      touched.went += both.at(0).toInteger();
      touched.came += both.at(1).toInteger();
    }
  });
}

}  // namespace

bool Touched::MayHaveChanged(int key) const {
  return everything || went > 0 || std::ranges::find(keys, key) != keys.end();
}

Touched TouchedBy(const Entry& entry, std::string_view table) {
  Touched touched;
  if (entry.table == kEverything || entry.kind == Kind::kRepaired) {
    touched.everything = true;
    return touched;
  }
  if (std::optional<EntryRows> rows = ReadRows(entry)) {
    touched.keys = KeysIn(*rows, table);
    return touched;
  }
  if (entry.table == table && entry.key != 0) {
    touched.keys = {entry.key};
  }
  const QJsonObject after =
      QJsonDocument::fromJson(QByteArray::fromStdString(entry.new_rows)).object();
  AddCounts(after[QLatin1String("counts")].toObject(), table, touched);
  return touched;
}

Touched TouchedBy(database::Connection& connection, const Entry& listed, std::string_view table) {
  const std::optional<Entry> entry = LoadEntry(connection, listed.id);
  return TouchedBy(entry.value_or(listed), table);
}

bool IsOf(const Entry& entry, ClientId client) {
  return !entry.client || !client || entry.client == client;
}

}  // namespace quorvane::changes
