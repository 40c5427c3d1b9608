#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/lookups/Directory.h"
#include "core/records/Faults.h"
#include "core/text/Shares.h"
#include "reporting/document/ReportDocument.h"
#include "reporting/period/Period.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quorvane::demat {

using text::Date;
using text::Shares;

/// What a demat statement is made of.
struct DematQuery {
  std::optional<ClientId> client;  ///< every client when there is none
  text::FinancialYear year;
  reporting::Period period;
  std::vector<AccountId> accounts;  ///< all when empty, records without an account included
  std::vector<ScripId> scrips;      ///< all when empty
};

enum class Movement : std::uint8_t {
  kOpening,          ///< stock of one purchase date, or all that came before the period
  kPurchase,         ///< a bill that bought the scrip
  kSale,             ///< a bill that sold it
  kPurchaseAndSale,  ///< a bill that did both
  kTransferTo,       ///< out, to another account
  kTransferFrom,     ///< in, from another account
  kAction            ///< what a corporate action took and gave
};

/// One line of the statement.
struct DematLine {
  Movement movement = Movement::kOpening;
  Date date;
  QString particulars;
  Shares in;
  Shares out;
  Shares balance;  ///< after the line, of the scrip in the account
};

struct ScripMovements {
  AccountId account;
  ScripId scrip;
  std::vector<DematLine> lines;  ///< never empty
};

/// Calls `give` with the movements of each client that has any, by code; in each the accounts by
/// number, in each the scrips by name. Lines are in the order of their dates; of one date opening
/// stock comes first, then bills by key, then transfers by key. A bill is one line a scrip.
/// Transfers count for both clients, whichever they were entered for.
///
/// Opening stock is listed by its purchase dates. When the period begins after the year does, the
/// opening stock and all movements before the period are one line dated with its first day; where
/// nothing is left of them there is none.
///
/// One query a table for any number of clients. The span lasts as long as the call. Returns
/// the records that could not count as they are written. Throws DatabaseError and Cancellation.
[[nodiscard]] records::Faults BuildDematStatement(
    database::Connection& connection, const DematQuery& query, Progress& progress,
    const std::function<void(ClientId, std::span<const ScripMovements>)>& give);

/// One client's "Demat A/c Statement" as a document, from what BuildDematStatement gives: a
/// table an account, the scrips one after the other, each closed by its totals.
reporting::ReportDocument MakeDematDocument(const DematQuery& query, ClientId client,
                                            std::span<const ScripMovements> scrips,
                                            const lookups::Directory& directory);

/// The statement for machines: plain quantities, one record a line.
void AppendDematCsvHeader(std::string& out);
void AppendDematCsv(std::string& out, std::span<const ScripMovements> scrips,
                    const lookups::Directory& directory);

}  // namespace quorvane::demat
