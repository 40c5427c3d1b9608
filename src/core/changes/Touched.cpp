#include "core/changes/Touched.h"

#include "core/changes/EntryRows.h"

#include <algorithm>

namespace quorvane::changes {
namespace {

using KeysOfTables = std::map<std::string, std::set<int>, std::less<>>;

void AddKeys(EntryRows& rows, KeysOfTables& keys) {
  rows.ForEach([&]<class Record>(const RowsOf<Record>& of) {
    for (const auto* list : {&of.removed, &of.added}) {
      for (const Record& record : *list) {
        const Owner owner = records::OwnerOf(record, of.table);
        auto known = keys.find(owner.table);
        if (known == keys.end()) {
          known = keys.try_emplace(std::string(owner.table)).first;
        }
        known->second.insert(owner.key);
      }
    }
  });
}

/// Adds up what is counted of each table and of those whose rows belong to its records.
void AddCounts(const QJsonObject& counts, std::map<std::string, Touched, std::less<>>& tables) {
  EntryRows all;
  all.ForEach([&]<class Record>(const RowsOf<Record>& of) {
    const auto found = counts.find(QLatin1String(of.table.data(), std::ssize(of.table)));
    if (found != counts.end()) {
      const QJsonArray both = found->toArray();
      Touched& touched = tables[std::string(records::OwnerOf(Record(), of.table).table)];
      touched.went += both.at(0).toInteger();
      touched.came += both.at(1).toInteger();
    }
  });
}

}  // namespace

bool Touched::Names(int key) const {
  return std::ranges::find(keys, key) != keys.end();
}

TouchedTables::TouchedTables(const Entry& entry)
    : everything_(entry.table == kEverything || entry.kind == Kind::kRepaired) {
  if (everything_) {
    return;
  }
  if (std::optional<EntryRows> rows = ReadRows(entry)) {
    AddKeys(*rows, keys_);
    return;
  }
  if (entry.key != 0) {
    keys_[entry.table] = {entry.key};
  }
  const QJsonObject after =
      QJsonDocument::fromJson(QByteArray::fromStdString(entry.new_rows)).object();
  AddCounts(after[QLatin1String("counts")].toObject(), counts_);
}

Touched TouchedTables::Of(std::string_view table) const {
  const auto counted = counts_.find(table);
  Touched touched = counted == counts_.end() ? Touched() : counted->second;
  touched.everything = everything_;
  if (const auto found = keys_.find(table); found != keys_.end()) {
    touched.keys.assign(found->second.begin(), found->second.end());
  }
  return touched;
}

Touched Novelties::TouchedBy(const Entry& entry, std::string_view table) const {
  auto known = read_.find(entry.id);
  if (known == read_.end()) {
    const std::optional<Entry> whole = LoadEntry(connection_, entry.id);
    known = read_.emplace(entry.id, TouchedTables(whole.value_or(entry))).first;
  }
  return known->second.Of(table);
}

Touched TouchedBy(const Entry& entry, std::string_view table) {
  return TouchedTables(entry).Of(table);
}

bool IsOf(const Entry& entry, ClientId client) {
  return !entry.client || !client || entry.client == client;
}

}  // namespace quorvane::changes
