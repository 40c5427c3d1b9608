#pragma once

#include "core/database/Transaction.h"
#include "core/records/Masters.h"
#include "portfolio/Portfolio.h"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>

namespace quorvane::portfolio {

/// The numbers of keys by folded name or code.
using Ids = std::unordered_map<std::string, int>;

/// Writes the DP ids and demat accounts that are new. What does not fit goes to the errors.
class AccountImport {
 public:
  /// `participants` are all of the database, and outlive the import.
  AccountImport(database::Transaction& transaction, const Ids& participants, ErrorList& errors)
      : transaction_(transaction), participants_(participants), errors_(errors) {}

  void ImportDpIds(std::span<const DpIdRow> rows);

  /// After the DP ids. The clients are by symbol; a row of one without a key is left out, since
  /// it has its error already. Returns how many accounts are new.
  std::size_t ImportAccounts(std::span<const AccountRow> rows, std::span<const ClientId> clients);

 private:
  std::optional<records::Account> AccountOf(const AccountRow& row,
                                            std::span<const ClientId> clients);
  std::optional<DpIdId> DpIdOf(ParticipantId participant, const AccountRow& row);

  database::Transaction& transaction_;
  const Ids& participants_;
  ErrorList& errors_;
  std::map<std::pair<ParticipantId, std::string>, DpIdId> dp_ids_;
};

}  // namespace quorvane::portfolio
