#pragma once

#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/records/Dividend.h"

#include <optional>
#include <vector>

namespace quorvane::dividends {

using records::Dividend;

/// The first rule that an entry of the year breaks: account, scrip, date within the year, quantity
/// and rupees a share above zero, tax not below zero and not above the dividend.
MaybeRefusal CheckDividend(const Dividend& dividend, text::FinancialYear year);

/// The dividends that a client received in a financial year.
class DividendBook {
 public:
  DividendBook(database::Connection& connection, const ClientYear& of)
      : connection_(connection), of_(of) {}

  /// By date, then as they were entered.
  std::vector<Dividend> List() const;
  std::optional<Dividend> Load(DividendId id) const;

  /// Saves a new dividend or a changed one, in one transaction. Refused when the entry breaks a
  /// rule, or when the client, account or scrip was deleted meanwhile. One that was deleted
  /// meanwhile becomes a new one.
  Result<DividendId> Save(const Dividend& dividend);
  void Delete(DividendId id);

 private:
  database::Connection& connection_;
  ClientYear of_;
};

}  // namespace quorvane::dividends
