#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/records/Faults.h"
#include "core/text/Shares.h"
#include "reporting/period/Period.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quorvane::demat {

/// Summarized has one line a bill, scrip and side, at the average rate; detailed every line of
/// every bill.
enum class TransactionLayout : std::uint8_t { kSummarized, kDetailed };

/// What a transaction report is made of.
struct TransactionQuery {
  std::optional<ClientId> client;  ///< every client when there is none
  text::FinancialYear year;
  reporting::Period period;
  std::vector<AccountId> accounts;  ///< all when empty, bills without an account included
  std::vector<ScripId> scrips;      ///< all when empty
  TransactionLayout layout = TransactionLayout::kSummarized;
  bool account_wise = false;  ///< each account separately instead of all together
};

/// Sums of money in paise, as they are shown line by line.
struct TransactionSums {
  std::int64_t trade_value = 0;
  std::int64_t brokerage = 0;
  std::int64_t service_tax = 0;
  std::int64_t stt = 0;
  std::int64_t total = 0;  ///< trade value, brokerage and STT, for buys and sells alike

  void Add(const TransactionSums& more);
};

struct TransactionLine {
  text::Date date;
  BillId bill;
  QString bill_number;
  QString settlement_number;
  AccountId account;
  ScripId scrip;
  bool purchase = false;
  text::Shares quantity;
  double rate = 0;  ///< rupees a share
  TransactionSums money;
};

/// What is to be paid in the end, in paise; what is to be received is negative.
struct TransactionClosing {
  std::int64_t net = 0;  ///< purchases less sales, each with its brokerage and service tax
  std::int64_t other_charges = 0;
  std::int64_t stt = 0;
  std::int64_t transaction_charges = 0;

  std::int64_t Amount() const { return net + other_charges + stt + transaction_charges; }
  void Add(const TransactionClosing& more);
};

/// "Total Payable" when purchases with their charges exceed sales, else "Total Receivable".
QString ClosingCaption(const TransactionClosing& closing);

/// The bills of one broker: lines by date, those of one date by bill and place in it.
struct BrokerTransactions {
  BrokerId broker;
  QString name;
  std::vector<TransactionLine> lines;
  TransactionSums sums;
  TransactionClosing closing;
};

/// The bills of one account, or of all accounts together; the brokers by name.
struct TransactionSection {
  std::optional<AccountId> account;  ///< none when all are together
  std::vector<BrokerTransactions> brokers;
  TransactionSums sums;
  TransactionClosing closing;
};

/// Calls `give` with each client's sections, accounts by number, clients by code; a client without
/// bills in the period is left out. With scrips chosen, the charges of whole bills are left out:
/// they belong to no single scrip. One query a table. The span lasts as long as the call. Returns
/// the records that could not count as they are written. Throws DatabaseError and Cancellation.
[[nodiscard]] records::Faults BuildTransactions(
    database::Connection& connection, const TransactionQuery& query, Progress& progress,
    const std::function<void(ClientId, std::span<const TransactionSection>)>& give);

}  // namespace quorvane::demat
