#pragma once

#include "core/Progress.h"
#include "core/gains/History.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quorvane::profit {

using text::Date;

enum class GainFilter : std::uint8_t { kAll, kSpeculation, kNonSpeculation };

/// What a profit or capital-gain statement is made of.
struct ProfitQuery {
  std::optional<ClientId> client;  ///< every client when there is none
  text::FinancialYear year;
  Date from;
  Date to;
  std::vector<AccountId> accounts;  ///< all when empty
  std::vector<ScripId> scrips;      ///< all when empty
  gains::ChargeChoice charges;
  GainFilter gains = GainFilter::kAll;
  gains::FoChoice fo = gains::FoChoice::kAll;
  bool average = false;  ///< cost at the average rate instead of lot by lot
  bool unsold = true;    ///< list what is left of the purchases, too

  /// The whole of a year, everything in it.
  static ProfitQuery OfYear(std::optional<ClientId> client, text::FinancialYear year);
};

enum class LineKind : std::uint8_t {
  kMatch,      ///< a quantity sold and the purchase that it used up
  kUnmatched,  ///< a quantity sold without a purchase
  kTransfer,   ///< a quantity that left by a transfer, at its purchase rate: no gain
  kUnsold,     ///< what is left of a purchase
  kTotal,      ///< of a scrip
  kNetTotal    ///< of the client
};

/// One line of a statement. Money in paise. What does not apply to the kind is 0.
struct StatementRow {
  LineKind kind = LineKind::kMatch;
  AccountId account;
  ScripId scrip;
  Date purchase_date;
  double quantity = 0;      ///< shares bought: matched, left, or their sum
  double purchase_net = 0;  ///< rupees a share
  std::int64_t purchase_amount = 0;
  Date sale_date;
  double sale_quantity = 0;
  double sale_net = 0;  ///< rupees a share
  std::int64_t sale_amount = 0;
  std::int64_t purchase_cost = 0;
  std::int64_t long_term = 0;
  std::int64_t short_term = 0;
  std::int64_t speculation = 0;
  std::int64_t stt_paid = 0;

  /// True for a line with a purchase side; HasSale for one with the side of a sale or transfer.
  bool HasPurchase() const {
    return kind == LineKind::kMatch || kind == LineKind::kUnsold ||
           (kind == LineKind::kTransfer && quantity != 0);
  }
  bool HasSale() const {
    return kind == LineKind::kMatch || kind == LineKind::kUnmatched || kind == LineKind::kTransfer;
  }
};

/// Computes the statement and calls `give` once with each client's rows, clients by code: scrips by
/// name, in each the accounts by number, in each the sales by date and then what is left unsold by
/// purchase date; after each scrip its total, at the end the net total. A client without any row
/// is left out. Every total is the sum of the rows that it closes, to the paisa. The span lasts as
/// long as the call. Transfers out gain nothing, but count: what they cost is what was paid. They
/// are no speculation, and not listed where only that is wanted. Returns the records that could not
/// count as they are written. Throws as gains::History does.
[[nodiscard]] records::Faults BuildStatement(
    database::Connection& connection, const ProfitQuery& query, Progress& progress,
    const std::function<void(ClientId, std::span<const StatementRow>)>& give);

}  // namespace quorvane::profit
