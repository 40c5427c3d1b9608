#include "portfolio/MasterImport.h"

#include "core/database/Keys.h"
#include "core/lookups/Directory.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using database::Value;
using lookups::Folded;

/// What a master table's import differs in.
struct MasterTable {
  std::string_view table;
  std::string_view columns;  ///< those that MasterRow::values hold, in order
  std::string_view tail;     ///< values of further columns of a new row
  std::string_view what;
  std::string_view key_column;  ///< of the file
  std::string_view refusal;
  FileKind file;
  std::size_t key_values;  ///< how many of the first values make the key
};

constexpr MasterTable kParticipantTable{
    "DepPart",
    "Name,Address,City,State,PIN,STD,Phone,Mobile,Fax,Email,Person,Designation,Depository",
    "",
    "participants",
    "name",
    "Name Already Exists with other details.",
    FileKind::kParticipants,
    1};
constexpr MasterTable kClientTable{
    "ClientInfo",
    "Code,GCode,Name,Address,City,State,PIN,STD,Phone,Mobile,Fax,EMail,DOB,PAN,Sex,MStatus",
    ",''",
    "clients",
    "code",
    "Client Code Already Exists.",
    FileKind::kClients,
    1};
constexpr MasterTable kBrokerTable{"Broker",
                                   "Name,Address,City,State,PIN,STD,Phone,Mobile,Fax,Email",
                                   "",
                                   "brokers",
                                   "name",
                                   "Broker Already Exists with other details.",
                                   FileKind::kBrokers,
                                   1};
constexpr MasterTable kScripTable{"Script",
                                  "Code,Name,Type,ScrCls,NCode",
                                  "",
                                  "scrips",
                                  "code",
                                  "Script Code Already Exists.",
                                  FileKind::kScrips,
                                  1};
constexpr MasterTable kPercentTable{"TransTaxPer",
                                    "FYear,Name,Percent,Ason",
                                    "",
                                    "percentages",
                                    "name",
                                    "Percent Detail Already Exists.",
                                    FileKind::kPercentages,
                                    2};

struct ExistingRow {
  int id;
  std::vector<std::string> values;
};

std::string KeyOf(const std::vector<std::string>& values, std::size_t count) {
  std::string key = Folded(values.front());
  for (std::size_t i = 1; i < count; ++i) {
    key += "\n" + Folded(values[i]);
  }
  return key;
}

std::unordered_map<std::string, ExistingRow> ReadExisting(Transaction& transaction,
                                                          const MasterTable& table) {
  std::unordered_map<std::string, ExistingRow> existing;
  for (const auto& row : transaction.Open(
           fmt::format("Select Id,{} From {} Order By Id", table.columns, table.table))) {
    ExistingRow found{row.Int(std::size_t{0}), {}};
    for (std::size_t i = 1; i < row.ColumnCount(); ++i) {
      found.values.push_back(row.Text(i).toStdString());
    }
    std::string key = KeyOf(found.values, table.key_values);
    existing.try_emplace(std::move(key), std::move(found));
  }
  return existing;
}

class MasterImport {
 public:
  MasterImport(Transaction& transaction, const Portfolio& portfolio, ErrorList& errors,
               ImportResult& result)
      : transaction_(transaction), portfolio_(portfolio), errors_(errors), result_(result) {}

  ResolvedNames Run() {
    const Ids participants = Merge(kParticipantTable, portfolio_.participants);
    const Ids clients = Merge(kClientTable, portfolio_.clients);
    ImportDpIds(participants);
    ResolvedNames names;
    names.clients = Resolve<ClientId>(portfolio_.client_codes, clients, "client_code", "client");
    ImportAccounts(names, participants);
    const Ids brokers = Merge(kBrokerTable, portfolio_.brokers);
    const Ids scrips = Merge(kScripTable, WithLookupIds(portfolio_.scrips));
    Merge(kPercentTable, portfolio_.percentages);
    names.brokers = Resolve<BrokerId>(portfolio_.broker_names, brokers, "broker", "broker");
    names.scrips = Resolve<ScripId>(portfolio_.scrip_codes, scrips, "scrip_code", "scrip");
    ResolveExchanges(names);
    ResolveAccounts(names);
    for (const auto& [table, next] : next_keys_) {
      database::KeepKeys(transaction_, table, next);
    }
    return names;
  }

 private:
  using Ids = std::unordered_map<std::string, int>;

  void Count(std::string_view what, std::size_t added) {
    if (added > 0) {
      result_.counts.push_back({std::string(what), added});
    }
  }

  /// Adds what is new and returns the key number of every key, old and new.
  Ids Merge(const MasterTable& table, const std::vector<MasterRow>& rows) {
    const auto existing = ReadExisting(transaction_, table);
    Ids ids;
    for (const auto& [key, row] : existing) {
      ids.emplace(key, row.id);
    }
    std::size_t added = 0;
    for (const MasterRow& row : rows) {
      const auto found = existing.find(row.key);
      if (found == existing.end()) {
        ids.emplace(row.key, Insert(table, row));
        ++added;
      } else if (!SameValues(found->second.values, row.values)) {
        errors_.Add(LayoutOf(table.file).name, row.line, table.key_column,
                    std::string(table.refusal));
      }
    }
    Count(table.what, added);
    return ids;
  }

  static bool SameValues(const std::vector<std::string>& old_values,
                         const std::vector<std::string>& new_values) {
    return std::equal(old_values.begin(), old_values.end(), new_values.begin(), new_values.end(),
                      [](const std::string& a, const std::string& b) {
                        return a == b || Folded(a) == Folded(b);
                      });
  }

  int Insert(const MasterTable& table, const MasterRow& row) {
    const int id = NextKey(table.table);
    std::string sql = fmt::format("Insert Into {} Values(?", table.table);
    std::vector<Value> values{id};
    for (const std::string& value : row.values) {
      sql += ",?";
      values.emplace_back(value);
    }
    transaction_.GetConnection().ExecuteValues(sql + std::string(table.tail) + ")", values);
    return id;
  }

  /// One read of the counter a table, then counted here.
  int NextKey(std::string_view table) {
    auto [entry, fresh] = next_keys_.try_emplace(std::string(table), 0);
    if (fresh) {
      entry->second = database::FirstFreeKey(transaction_, table);
    }
    return entry->second++;
  }

  /// Type and class names become keys; those that are new are added.
  std::vector<MasterRow> WithLookupIds(std::vector<MasterRow> rows) {
    LookupTable types(*this, "ScriptType", "Type", "script type");
    LookupTable classes(*this, "ScriptClass", "Name", "script class");
    constexpr std::size_t kType = 2;
    constexpr std::size_t kClass = 3;
    for (MasterRow& row : rows) {
      row.values[kType] = std::to_string(types.IdOf(row.values[kType]));
      row.values[kClass] = std::to_string(classes.IdOf(row.values[kClass]));
    }
    return rows;
  }

  class LookupTable {
   public:
    LookupTable(MasterImport& import, std::string_view table, std::string_view column,
                std::string_view what)
        : import_(import), table_(table), what_(what) {
      for (const auto& row : import.transaction_.Open(
               fmt::format("Select Id,{} From {} Order By Id", column, table))) {
        ids_.try_emplace(Folded(row.Utf8(1)), row.Int(std::size_t{0}));
      }
    }

    int IdOf(const std::string& name) {
      const auto [entry, fresh] = ids_.try_emplace(Folded(name), 0);
      if (fresh) {
        entry->second = import_.NextKey(table_);
        import_.transaction_.Execute(fmt::format("Insert Into {} Values(?,?)", table_),
                                     entry->second, name);
        import_.result_.notes.push_back(fmt::format("new {}: {}", what_, name));
      }
      return entry->second;
    }

   private:
    MasterImport& import_;
    std::string_view table_;
    std::string_view what_;
    Ids ids_;
  };

  void ImportDpIds(const Ids& participants) {
    for (const auto& row : transaction_.Open("Select DepId,id,DPID From DpIDs Order By id")) {
      dp_ids_.try_emplace({row.Int(std::size_t{0}), Folded(row.Utf8(2))}, row.Int(1));
    }
    for (const DpIdRow& row : portfolio_.dp_ids) {
      const auto participant = participants.find(row.participant);
      if (row.dp_id.empty() || participant == participants.end()) {
        continue;
      }
      const auto [entry, fresh] = dp_ids_.try_emplace({participant->second, Folded(row.dp_id)}, 0);
      if (fresh) {
        entry->second = NextKey("DpIDs");
        transaction_.Execute("Insert Into DpIDs Values(?,?,?)", participant->second, entry->second,
                             row.dp_id);
      }
    }
  }

  struct ExistingAccount {
    int id;
    int participant;
    int dp_id;
  };

  void ImportAccounts(const ResolvedNames& names, const Ids& participants) {
    std::map<std::pair<int, std::string>, ExistingAccount> existing;
    for (const auto& row :
         transaction_.Open("Select CId,id,DMATAC,DPID,ACNo From ClientActDet Order By id")) {
      existing.try_emplace({row.Int(std::size_t{0}), Folded(row.Utf8(4))},
                           ExistingAccount{row.Int(1), row.Int(2), row.Int(3)});
    }
    std::size_t added = 0;
    std::set<std::pair<int, std::string>> seen;
    for (const AccountRow& row : portfolio_.accounts) {
      const ClientId client = names.clients[row.client];
      const auto participant = participants.find(row.participant);
      if (participant == participants.end()) {
        Fail(row.line, "participant", "expected a participant's name; this one is not known");
        continue;
      }
      const auto dp_id = DpIdOf(participant->second, row);
      if (!dp_id || !client) {
        continue;
      }
      const std::pair<int, std::string> key{client.value, Folded(row.number)};
      if (!seen.insert(key).second) {
        Fail(row.line, "account_no", "stands in this file already");
        continue;
      }
      const auto old = existing.find(key);
      if (old == existing.end()) {
        transaction_.Execute("Insert Into ClientActDet Values(?,?,?,?,?)", client,
                             NextKey("ClientActDet"), participant->second, *dp_id, row.number);
        ++added;
      } else if (old->second.participant != participant->second || old->second.dp_id != *dp_id) {
        Fail(row.line, "account_no", "the account is recorded with another participant or DP id");
      }
    }
    Count("accounts", added);
  }

  void Fail(std::size_t line, std::string_view column, std::string message) {
    errors_.Add(LayoutOf(FileKind::kAccounts).name, line, column, std::move(message));
  }

  std::optional<int> DpIdOf(int participant, const AccountRow& row) {
    if (row.dp_id.empty()) {
      return 0;
    }
    const auto found = dp_ids_.find({participant, Folded(row.dp_id)});
    if (found == dp_ids_.end()) {
      Fail(row.line, "dp_id", "expected a DP id of the participant, found " + Quoted(row.dp_id));
      return std::nullopt;
    }
    return found->second;
  }

  template <class IdType>
  std::vector<IdType> Resolve(const Interner& interner, const Ids& ids, std::string_view column,
                              std::string_view what) {
    std::vector<IdType> resolved;
    for (const Interner::Name& name : interner.Names()) {
      const auto found = ids.find(Folded(name.text));
      if (found == ids.end()) {
        errors_.Add(LayoutOf(name.file).name, name.line, column,
                    fmt::format("expected a known {}, found {}", what, Quoted(name.text)));
      }
      resolved.push_back(IdType{found == ids.end() ? 0 : found->second});
    }
    return resolved;
  }

  void ResolveExchanges(ResolvedNames& names) {
    LookupTable exchanges(*this, "Exchange", "ExName", "exchange");
    for (const Interner::Name& name : portfolio_.exchange_names.Names()) {
      names.exchanges.push_back(ExchangeId{exchanges.IdOf(name.text)});
    }
  }

  void ResolveAccounts(ResolvedNames& names) {
    std::unordered_map<std::string, std::vector<ResolvedNames::Owned>> by_number;
    for (const auto& row : transaction_.Open("Select CId,id,ACNo From ClientActDet Order By id")) {
      by_number[Folded(row.Utf8(2))].push_back(
          {AccountId{row.Int(1)}, ClientId{row.Int(std::size_t{0})}});
    }
    for (const Interner::Name& name : portfolio_.account_numbers.Names()) {
      names.accounts.push_back(by_number[Folded(name.text)]);
    }
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  ErrorList& errors_;
  ImportResult& result_;
  std::map<std::pair<int, std::string>, int> dp_ids_;
  std::unordered_map<std::string, int> next_keys_;
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
