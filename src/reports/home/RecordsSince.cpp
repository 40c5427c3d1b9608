#include "reports/home/RecordsSince.h"

#include "core/changes/PutBack.h"
#include "reports/home/RecordStamps.h"

#include <algorithm>
#include <array>

namespace quorvane::home {
namespace {

using changes::Entry;
using changes::EntryRows;
using changes::Kind;
using changes::RowsOf;

/// The tables from which holdings and gains follow.
constexpr auto kTables = std::to_array<std::string_view>(
    {"SPMaster", "SPTrans", "StkOpBal", "ScrTransfer", "CorpAction", "CorpActionLot", "Stock",
     "ClientInfo", "ClientActDet", "RemovedAccount"});

template <class Record>
void Add(const RowsOf<Record>& rows, ClientId Record::*member, std::set<ClientId>& clients) {
  for (const auto* list : {&rows.removed, &rows.added}) {
    for (const Record& record : *list) {
      clients.insert(record.*member);
    }
  }
}

std::set<ClientId> ClientsIn(EntryRows& rows) {
  std::set<ClientId> clients;
  for (const ClientYear& holder : changes::HoldersOf(rows)) {
    clients.insert(holder.client);
  }
  Add(rows.Of<records::Transfer>(), &records::Transfer::to_client, clients);
  Add(rows.Of<records::Client>(), &records::Client::id, clients);
  Add(rows.Of<records::Account>(), &records::Account::client, clients);
  Add(rows.removed_accounts, &records::Account::client, clients);
  Add(rows.Of<records::Lot>(), &records::Lot::client, clients);
  return clients;
}

/// Whether an entry of counts is of tables that matter.
bool CountsMatter(const Entry& entry) {
  const QJsonObject counts = QJsonDocument::fromJson(QByteArray::fromStdString(entry.new_rows))
                                 .object()[QLatin1String("counts")]
                                 .toObject();
  return std::ranges::any_of(kTables, [&](std::string_view table) {
    return counts.contains(QLatin1String(table.data(), std::ssize(table)));
  });
}

}  // namespace

std::optional<std::set<ClientId>> ClientsIn(const Entry& entry) {
  if (entry.table == changes::kEverything || entry.kind == Kind::kRepaired) {
    return std::nullopt;
  }
  std::set<ClientId> clients;
  if (std::optional<EntryRows> rows = changes::ReadRows(entry)) {
    clients = ClientsIn(*rows);
  } else if (CountsMatter(entry)) {
    const bool is_of_one = entry.kind == Kind::kRebuilt || entry.kind == Kind::kCarriedForward;
    if (!entry.client || !is_of_one) {
      return std::nullopt;  // others may have had transfers with the client
    }
  }
  if (entry.client) {
    clients.insert(entry.client);
  }
  return clients;
}

Known& RecordsSince::Begin(database::Connection& connection, text::FinancialYear year,
                           text::Date today) {
  begun_ = {changes::LastEntry(connection), RecordStamps::Common(connection), year, today};
  const bool follows = last_.entry && last_.common == begun_.common && last_.year == year &&
                       last_.today == today && *last_.entry < *begun_.entry;
  known_.changed = follows ? ClientsOf(connection, *last_.entry, *begun_.entry) : std::nullopt;
  return known_;
}

std::optional<std::set<ClientId>> RecordsSince::ClientsOf(database::Connection& connection,
                                                          std::int64_t after, std::int64_t last) {
  constexpr std::int64_t kMost = 2000;
  if (last - after > kMost) {
    return std::nullopt;
  }
  std::optional<std::set<ClientId>> clients(std::in_place);
  std::int64_t read = 0;
  changes::Filter filter;
  filter.after = after;
  changes::ReadEntries(connection, filter, true, [&](const Entry& entry) {
    read += entry.id <= last ? 1 : 0;
    std::optional<std::set<ClientId>> more = clients ? ClientsIn(entry) : std::nullopt;
    if (more) {
      clients->merge(*more);
    } else {
      clients.reset();
    }
  });
  // Entries that were removed from the log tell nothing.
  return read == last - after ? clients : std::nullopt;
}

}  // namespace quorvane::home
