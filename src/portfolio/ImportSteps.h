#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/database/Transaction.h"
#include "core/ledger/Lots.h"
#include "portfolio/Import.h"
#include "portfolio/Portfolio.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvane::portfolio {

/// The keys behind the names of a portfolio's documents.
struct ResolvedNames {
  std::vector<ClientId> clients;  ///< by symbol
  std::vector<ScripId> scrips;
  std::vector<BrokerId> brokers;
  std::vector<ExchangeId> exchanges;

  /// The account of a client by its number; nullopt when the client has none of it.
  std::optional<AccountId> Account(ClientId client, Symbol number) const;

  /// The same; none for an empty number, which bills and opening stock may have.
  std::optional<AccountId> AccountOrNone(const Portfolio& portfolio, ClientId client,
                                         Symbol number) const {
    const bool none_named = portfolio.account_numbers.Names()[number].text.empty();
    return client && none_named ? std::optional(AccountId{}) : Account(client, number);
  }

  /// The lot of a scrip at a rate.
  ledger::LotKey LotKeyAt(const ledger::Place& place, Symbol scrip, double rate) const {
    return {place.of, place.account, scrips[scrip], rate};
  }

  struct Owned {
    AccountId account;
    ClientId client;
  };
  /// The accounts of that number, of every client.
  const std::vector<Owned>& Accounts(Symbol number) const { return accounts[number]; }

  std::vector<std::vector<Owned>> accounts;  ///< by symbol of the number
};

// The steps of ImportPortfolio in their order. What is wrong goes to the errors.

/// Writes the master records that are new and finds the key of every name that a document uses.
ResolvedNames ImportMasters(database::Transaction& transaction, const Portfolio& portfolio,
                            ErrorList& errors, ImportResult& result);

/// Takes in opening lots, corporate actions, bills and transfers in the order of their dates and
/// posts them to the holdings ledger. On one date corporate actions come first, then bills in file
/// order, in a bill purchases before sales, then transfers; a bill that lacks shares is tried again
/// after the date's transfers that are possible. Writes nothing when there is an error.
void ImportMovements(database::Transaction& transaction, const Portfolio& portfolio,
                     const ResolvedNames& names, Movements movements, ErrorList& errors,
                     ImportResult& result, Progress& progress);

/// Takes in broker opening balances, payments to and receipts from brokers, market rates and ISINs.
void ImportMoney(database::Transaction& transaction, const Portfolio& portfolio,
                 const ResolvedNames& names, ErrorList& errors, ImportResult& result);

/// Takes in fair values and losses brought forward.
void ImportTaxRecords(database::Transaction& transaction, const Portfolio& portfolio,
                      const ResolvedNames& names, ErrorList& errors, ImportResult& result);

/// Takes in which opening stock has no cost yet and which trades are in bills, once opening stock
/// and bills are written.
void ImportMarks(database::Transaction& transaction, const Portfolio& portfolio,
                 const ResolvedNames& names, ErrorList& errors, ImportResult& result);

}  // namespace quorvane::portfolio
