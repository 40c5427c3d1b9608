#pragma once

#include "core/IdMap.h"
#include "core/records/Masters.h"
#include "core/records/Query.h"

#include <set>
#include <string>
#include <string_view>

namespace quorvane::portfolio {

/// Names by key, and which of them an export has used: the masters that its documents need. UTF-8.
template <class Id>
class NameList {
 public:
  template <class Record>
  void Read(database::Connection& connection, QString Record::*name) {
    for (const Record& record : records::Select<Record>(connection).All()) {
      entries_.Put(record.id.value, {(record.*name).toStdString()});
    }
    entries_.Seal();
  }

  bool Has(Id id) const { return entries_.Find(id.value) != nullptr; }

  /// Empty for a key that no master has. Valid as long as the list.
  std::string_view Use(Id id) const {
    const Entry* entry = entries_.Find(id.value);
    if (entry == nullptr) {
      return {};
    }
    entry->used = true;
    return entry->name;
  }

  bool IsUsed(Id id) const {
    const Entry* entry = entries_.Find(id.value);
    return entry != nullptr && entry->used;
  }

 private:
  struct Entry {
    std::string name;
    mutable bool used = false;
  };

  IdMap<Entry> entries_;
};

/// The names that documents are exported with, and whose documents they are: every client's, or
/// those of one client and of the clients to whom transfers join it; without these the transfers
/// could not be taken in again.
struct ExportedNames {
  ExportedNames(database::Connection& connection, std::optional<ClientId> client);

  /// The records of the export's clients.
  template <class Record>
  records::Select<Record> Select(database::Connection& connection, ClientId Record::*client,
                                 std::string_view table = records::Table<Record>::kName) const {
    records::Select<Record> select(connection, table);
    return wanted_clients.empty() ? select : select.In(client, wanted_clients);
  }

  bool IsWhole() const { return wanted_clients.empty(); }

  std::set<ClientId> wanted_clients;  ///< empty: all
  NameList<ClientId> clients;
  NameList<AccountId> accounts;
  NameList<ScripId> scrips;
  NameList<BrokerId> brokers;
  NameList<ParticipantId> participants;
  NameList<ExchangeId> exchanges;
};

}  // namespace quorvane::portfolio
