#pragma once

#include "core/IdMap.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/records/Masters.h"
#include "core/records/Query.h"
#include "portfolio/OutputFile.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

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

/// Every record of a table, by key.
template <class Record>
std::vector<Record> AllOf(database::Connection& connection) {
  return records::Select<Record>(connection).OrderBy(&Record::id).All();
}

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

  /// Whether a master is exported: every one, or in an export of one client those that were used.
  template <class Id>
  bool IsWanted(const NameList<Id>& names, Id id) const {
    return wanted_clients.empty() ? names.Has(id) : names.IsUsed(id);
  }

  /// The records of the export's clients who are there, by key. Those of others could not be taken
  /// in again.
  template <class Record>
  std::vector<Record> OfKnownClients(database::Connection& connection,
                                     std::string_view table = records::Table<Record>::kName) const {
    std::vector<Record> found =
        Select(connection, &Record::client, table).OrderBy(&Record::id).All();
    std::erase_if(found, [this](const Record& record) { return !clients.Has(record.client); });
    return found;
  }

  std::set<ClientId> wanted_clients;  ///< empty: all
  NameList<ClientId> clients;
  NameList<AccountId> accounts;
  NameList<ScripId> scrips;
  NameList<BrokerId> brokers;
  NameList<ParticipantId> participants;
  NameList<ExchangeId> exchanges;
};

// Parts of ExportPortfolio, which use these names.

/// Writes bills.csv, bills by client, account, date and key, each with its lines in order; and
/// trade_keys.csv, the trades of brokers' files by their bills in that order.
void ExportBills(database::Connection& connection, OutputFolder& folder, const ExportedNames& names,
                 Progress& progress);

/// Writes the master files and rates.csv: what the documents that were written before have used, or
/// everything when the export is of every client.
void ExportMasters(database::Connection& connection, OutputFolder& folder,
                   const ExportedNames& names);

}  // namespace quorvane::portfolio
