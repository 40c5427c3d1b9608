#include "portfolio/MasterImport.h"

#include "core/database/Keys.h"
#include "core/lookups/Directory.h"
#include "core/records/Writing.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using records::Account;
using records::DpId;

std::string Folded(const QString& text) {
  return lookups::Folded(text.toStdString());
}

int& Number(int& key) {
  return key;
}
template <class Tag>
int& Number(Id<Tag>& key) {
  return key.value;
}

bool IsSame(const QString& a, const QString& b) {
  return a == b || Folded(a) == Folded(b);
}
template <class Field>
bool IsSame(const Field& a, const Field& b) {
  return a == b;
}

/// Whether a recorded master has the details of a file's, capitals aside.
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
  explicit NewRecords(Transaction& transaction) : transaction_(transaction), writer_(transaction) {}

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
  Transaction& transaction_;
  records::Writer<Record> writer_;
  int next_ = 0;
  std::size_t added_ = 0;
};

/// What the import of a master file says.
struct MasterFile {
  FileKind kind;
  std::string_view what;
  std::string_view key_column;
  std::string_view refusal;
};

constexpr MasterFile kParticipants{FileKind::kParticipants, "participants", "name",
                                   "Name Already Exists with other details."};
constexpr MasterFile kClients{FileKind::kClients, "clients", "code", "Client Code Already Exists."};
constexpr MasterFile kBrokers{FileKind::kBrokers, "brokers", "name",
                              "Broker Already Exists with other details."};
constexpr MasterFile kScrips{FileKind::kScrips, "scrips", "code", "Script Code Already Exists."};
constexpr MasterFile kPercentages{FileKind::kPercentages, "percentages", "name",
                                  "Percent Detail Already Exists."};

class MasterImport {
 public:
  MasterImport(Transaction& transaction, const Portfolio& portfolio, ErrorList& errors,
               ImportResult& result)
      : transaction_(transaction), portfolio_(portfolio), errors_(errors), result_(result) {}

  ResolvedNames Run() {
    const Ids participants = Merge(kParticipants, portfolio_.participants);
    const Ids clients = Merge(kClients, portfolio_.clients);
    ImportDpIds(participants);
    ResolvedNames names;
    names.clients = Resolve<ClientId>(portfolio_.client_codes, clients, "client_code", "client");
    ImportAccounts(names, participants);
    const Ids brokers = Merge(kBrokers, portfolio_.brokers);
    const Ids scrips = Merge(kScrips, WithLookupIds(portfolio_.scrips));
    Merge(kPercentages, portfolio_.percentages);
    names.brokers = Resolve<BrokerId>(portfolio_.broker_names, brokers, "broker", "broker");
    names.scrips = Resolve<ScripId>(portfolio_.scrip_codes, scrips, "scrip_code", "scrip");
    ResolveExchanges(names);
    ResolveAccounts(names);
    return names;
  }

 private:
  using Ids = std::unordered_map<std::string, int>;

  template <class Record>
  std::vector<Record> All() {
    return records::Select<Record>(transaction_.GetConnection()).OrderBy(&Record::id).All();
  }

  /// Adds what is new and returns the key number of every key, old and new.
  template <class Row>
  Ids Merge(const MasterFile& file, const std::vector<Row>& rows) {
    using Record = decltype(Row::record);
    std::unordered_map<std::string, Record> existing;
    Ids ids;
    for (Record& record : All<Record>()) {
      ids.try_emplace(KeyOf(record), Number(record.id));
      existing.try_emplace(KeyOf(record), std::move(record));
    }
    NewRecords<Record> fresh(transaction_);
    for (const Row& row : rows) {
      const auto found = existing.find(KeyOf(row.record));
      if (found == existing.end()) {
        Record record = row.record;
        fresh.Add(record);
        ids.emplace(KeyOf(record), Number(record.id));
      } else if (!HasDetailsOf(found->second, row.record)) {
        errors_.Add(file.kind, row.line, file.key_column, std::string(file.refusal));
      }
    }
    result_.Count(file.what, fresh.Finish());
    return ids;
  }

  /// A lookup table, in which names that are new are added.
  template <class Record>
  class Lookup {
   public:
    Lookup(MasterImport& import, std::string_view what)
        : import_(import), what_(what), fresh_(import.transaction_) {
      for (Record& record : import.All<Record>()) {
        ids_.try_emplace(Folded(record.name), Number(record.id));
      }
    }

    int IdOf(const QString& name) {
      const auto [entry, is_new] = ids_.try_emplace(Folded(name), 0);
      if (is_new) {
        Record record{{}, name};
        fresh_.Add(record);
        entry->second = Number(record.id);
        import_.result_.notes.push_back(fmt::format("new {}: {}", what_, name.toStdString()));
      }
      return entry->second;
    }

    void Finish() { fresh_.Finish(); }

   private:
    MasterImport& import_;
    std::string_view what_;
    NewRecords<Record> fresh_;
    Ids ids_;
  };

  std::vector<ScripRow> WithLookupIds(std::vector<ScripRow> rows) {
    Lookup<records::ScripType> types(*this, "script type");
    Lookup<records::ScripClass> classes(*this, "script class");
    for (ScripRow& row : rows) {
      row.record.type = types.IdOf(row.type);
      row.record.scrip_class = classes.IdOf(row.scrip_class);
    }
    types.Finish();
    classes.Finish();
    return rows;
  }

  void ImportDpIds(const Ids& participants) {
    for (const DpId& dp_id : All<DpId>()) {
      dp_ids_.try_emplace({dp_id.participant, Folded(dp_id.number)}, dp_id.id);
    }
    NewRecords<DpId> fresh(transaction_);
    for (const DpIdRow& row : portfolio_.dp_ids) {
      const auto participant = participants.find(row.participant);
      if (row.dp_id.isEmpty() || participant == participants.end()) {
        continue;
      }
      DpId dp_id{ParticipantId{participant->second}, {}, row.dp_id};
      const auto [entry, is_new] =
          dp_ids_.try_emplace({dp_id.participant, Folded(dp_id.number)}, DpIdId{});
      if (is_new) {
        fresh.Add(dp_id);
        entry->second = dp_id.id;
      }
    }
    fresh.Finish();
  }

  void ImportAccounts(const ResolvedNames& names, const Ids& participants) {
    std::map<std::pair<ClientId, std::string>, Account> existing;
    for (const Account& account : All<Account>()) {
      existing.try_emplace({account.client, Folded(account.number)}, account);
    }
    NewRecords<Account> fresh(transaction_);
    std::set<std::pair<ClientId, std::string>> seen;
    for (const AccountRow& row : portfolio_.accounts) {
      auto account = AccountOf(row, names, participants);
      if (!account) {
        continue;
      }
      const std::pair<ClientId, std::string> key{account->client, Folded(account->number)};
      const auto old = existing.find(key);
      if (!seen.insert(key).second) {
        errors_.Add(FileKind::kAccounts, row.line, "account_no", "stands in this file already");
      } else if (old == existing.end()) {
        fresh.Add(*account);
      } else if (!HasDetailsOf(old->second, *account)) {
        errors_.Add(FileKind::kAccounts, row.line, "account_no",
                    "the account is recorded with another participant or DP id");
      }
    }
    result_.Count("accounts", fresh.Finish());
  }

  std::optional<Account> AccountOf(const AccountRow& row, const ResolvedNames& names,
                                   const Ids& participants) {
    const auto participant = participants.find(row.participant);
    if (participant == participants.end()) {
      errors_.Add(FileKind::kAccounts, row.line, "participant",
                  "expected a participant's name; this one is not known");
      return std::nullopt;
    }
    const ParticipantId keeper{participant->second};
    const auto dp_id = DpIdOf(keeper, row);
    const ClientId client = names.clients[row.client];
    if (!dp_id || !client) {
      return std::nullopt;
    }
    return Account{client, {}, keeper, *dp_id, row.number};
  }

  std::optional<DpIdId> DpIdOf(ParticipantId participant, const AccountRow& row) {
    if (row.dp_id.isEmpty()) {
      return DpIdId{};
    }
    const auto found = dp_ids_.find({participant, Folded(row.dp_id)});
    if (found == dp_ids_.end()) {
      errors_.Add(FileKind::kAccounts, row.line, "dp_id",
                  "expected a DP id of the participant, found " + Quoted(row.dp_id.toStdString()));
      return std::nullopt;
    }
    return found->second;
  }

  template <class IdType>
  std::vector<IdType> Resolve(const Interner& interner, const Ids& ids, std::string_view column,
                              std::string_view what) {
    std::vector<IdType> resolved;
    for (const Interner::Name& name : interner.Names()) {
      const auto found = ids.find(lookups::Folded(name.text));
      if (found == ids.end()) {
        errors_.Add(name.file, name.line, column,
                    fmt::format("expected a known {}, found {}", what, Quoted(name.text)));
      }
      resolved.push_back(IdType{found == ids.end() ? 0 : found->second});
    }
    return resolved;
  }

  void ResolveExchanges(ResolvedNames& names) {
    Lookup<records::Exchange> exchanges(*this, "exchange");
    for (const Interner::Name& name : portfolio_.exchange_names.Names()) {
      names.exchanges.push_back(ExchangeId{exchanges.IdOf(QString::fromStdString(name.text))});
    }
    exchanges.Finish();
  }

  void ResolveAccounts(ResolvedNames& names) {
    std::unordered_map<std::string, std::vector<ResolvedNames::Owned>> by_number;
    for (const Account& account : All<Account>()) {
      by_number[Folded(account.number)].push_back({account.id, account.client});
    }
    for (const Interner::Name& name : portfolio_.account_numbers.Names()) {
      names.accounts.push_back(by_number[lookups::Folded(name.text)]);
    }
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  ErrorList& errors_;
  ImportResult& result_;
  std::map<std::pair<ParticipantId, std::string>, DpIdId> dp_ids_;
};

}  // namespace

std::optional<AccountId> ResolvedNames::Account(ClientId client, Symbol number) const {
  for (const Owned& owned : accounts[number]) {
    if (owned.client == client) {
      return owned.account;
    }
  }
  return std::nullopt;
}

ResolvedNames ImportMasters(Transaction& transaction, const Portfolio& portfolio, ErrorList& errors,
                            ImportResult& result) {
  return MasterImport(transaction, portfolio, errors, result).Run();
}

}  // namespace quorvane::portfolio
