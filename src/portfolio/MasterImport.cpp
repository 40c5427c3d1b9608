#include "portfolio/AccountImport.h"
#include "portfolio/ImportSteps.h"
#include "portfolio/MasterRecords.h"

#include <fmt/format.h>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using records::Account;

/// What the import of a master file says.
struct MasterFile {
  FileKind kind;
  std::string_view what;
  std::string_view key_column;
  std::string_view refusal;
};

constexpr MasterFile kParticipants{FileKind::kParticipants,
                                   QT_TRANSLATE_NOOP("Portfolio", "participants"), "name",
                                   "Name Already Exists with other details."};
constexpr MasterFile kClients{FileKind::kClients, QT_TRANSLATE_NOOP("Portfolio", "clients"), "code",
                              "Client Code Already Exists."};
constexpr MasterFile kBrokers{FileKind::kBrokers, QT_TRANSLATE_NOOP("Portfolio", "brokers"), "name",
                              "Broker Already Exists with other details."};
constexpr MasterFile kScrips{FileKind::kScrips, QT_TRANSLATE_NOOP("Portfolio", "scrips"), "code",
                             "Script Code Already Exists."};
constexpr MasterFile kPercentages{FileKind::kPercentages,
                                  QT_TRANSLATE_NOOP("Portfolio", "percentages"), "name",
                                  "Percent Detail Already Exists."};

class MasterImport {
 public:
  MasterImport(Transaction& transaction, const Portfolio& portfolio, ErrorList& errors,
               ImportResult& result)
      : transaction_(transaction), portfolio_(portfolio), errors_(errors), result_(result) {}

  ResolvedNames Run() {
    const Ids participants = Merge(kParticipants, portfolio_.participants);
    const Ids clients = Merge(kClients, portfolio_.clients);
    AccountImport accounts(transaction_, participants, errors_);
    accounts.ImportDpIds(portfolio_.dp_ids);
    ResolvedNames names;
    names.clients = Resolve<ClientId>(portfolio_.client_codes, clients, "client_code", "client");
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "accounts"),
                  accounts.ImportAccounts(portfolio_.accounts, names.clients));
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
  /// Adds what is new and returns the key number of every key, old and new.
  template <class Row>
  Ids Merge(const MasterFile& file, const std::vector<Row>& rows) {
    using Record = decltype(Row::record);
    std::unordered_map<std::string, Record> existing;
    Ids ids;
    for (Record& record : AllRecords<Record>(transaction_)) {
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
      for (Record& record : AllRecords<Record>(import.transaction_)) {
        ids_.try_emplace(Folded(record.name), Number(record.id));
      }
    }

    /// 0 for an empty name: none is chosen.
    int IdOf(const QString& name) {
      if (name.isEmpty()) {
        return 0;
      }
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
    for (const Account& account : AllRecords<Account>(transaction_)) {
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
