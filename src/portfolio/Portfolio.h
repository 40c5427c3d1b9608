#pragma once

#include "core/text/FinancialYear.h"
#include "portfolio/CsvTable.h"

#include <QString>

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorvane::portfolio {

/// A name that documents use, as a small number. Names that differ in capitals only are one.
using Symbol = std::uint32_t;

/// The names of one kind, numbered from 0 in the order of their first use.
class Interner {
 public:
  struct Name {
    std::string text;
    FileKind file;  ///< where it was used first
    std::size_t line;
  };

  Symbol Intern(std::string_view text, const CsvTable& table, FileKind file);
  const std::vector<Name>& Names() const { return names_; }

 private:
  std::unordered_map<std::string, Symbol> symbols_;
  std::vector<Name> names_;
  std::string last_text_;
  Symbol last_ = 0;
};

/// One row of a master table: the values of its columns in the database's order, as texts, without
/// the key number.
struct MasterRow {
  std::string key;  ///< folded
  std::vector<std::string> values;
  std::size_t line = 0;
};

struct DpIdRow {
  std::string participant;  ///< folded name
  std::string dp_id;
  std::size_t line = 0;
};

struct AccountRow {
  Symbol client = 0;
  std::string participant;  ///< folded name
  std::string dp_id;
  std::string number;
  std::size_t line = 0;
};

struct OpeningRow {
  Symbol client = 0;
  Symbol account = 0;
  text::FinancialYear year{0};
  Symbol scrip = 0;
  double quantity = 0;
  double rate = 0;
  text::Date purchase_date;
  double service_tax = 0;
  double brokerage = 0;
  double stt = 0;
  bool fo = false;
  std::size_t line = 0;
};

struct BillLineRow {
  Symbol scrip = 0;
  bool purchase = false;
  bool fo = false;
  std::uint8_t delivery = 0;  ///< place in kDeliveryTypes
  double quantity = 0;
  double rate = 0;
  double brokerage = 0;
  double service_tax = 0;
  double stt = 0;
  double stt_percent = 0;
  double lot_rate = kNoLotRate;
  std::uint32_t bill = 0;
  std::uint32_t line = 0;

  static constexpr double kNoLotRate = -1;  ///< to be taken first in, first out
  static constexpr double kNoLot = -2;      ///< recorded as it is, taken from no lot
};

inline constexpr std::string_view kDeliveryTypes[] = {"N.A.", "Delivery Based",
                                                      "Non Delivery Based"};

struct BillRow {
  Symbol client = 0;
  Symbol account = 0;
  std::string_view number;
  std::string_view settlement;
  text::Date date;
  Symbol broker = 0;
  Symbol exchange = 0;
  double other_charges = 0;
  double transaction_charges = 0;
  std::uint32_t line = 0;        ///< of its first row
  std::uint32_t first_line = 0;  ///< its lines in Portfolio::bill_lines, once they are grouped
  std::uint32_t line_count = 0;
};

struct TransferRow {
  text::Date date;
  Symbol from_account = 0;
  Symbol to_account = 0;
  Symbol scrip = 0;
  double rate = 0;
  double quantity = 0;
  std::size_t line = 0;
};

struct BrokerOpeningRow {
  Symbol client = 0;
  text::FinancialYear year{0};
  Symbol broker = 0;
  double amount = 0;
  int side = 0;  ///< 0 debit, 1 credit
  std::size_t line = 0;
};

struct MoneyRow {
  Symbol client = 0;
  Symbol broker = 0;
  int mode = 0;
  double amount = 0;
  text::Date date;
  int payment_mode = 0;
  std::string cheque_no;
  std::string cheque_date;
  std::string drawn_on;
  std::string remark;
  std::size_t line = 0;
};

struct RateRow {
  text::Date date;
  Symbol scrip = 0;
  double rate = 0;
  std::size_t line = 0;
};

/// A portfolio folder in memory, checked row by row but not yet against a database.
struct Portfolio {
  std::vector<MasterRow> participants;
  std::vector<DpIdRow> dp_ids;
  std::vector<MasterRow> clients;
  std::vector<AccountRow> accounts;
  std::vector<MasterRow> brokers;
  std::vector<MasterRow> scrips;  ///< type and class as names
  std::vector<MasterRow> percentages;
  std::vector<OpeningRow> openings;
  std::vector<BillRow> bills;  ///< in the order of their first rows
  std::vector<BillLineRow> bill_lines;
  std::vector<TransferRow> transfers;
  std::vector<BrokerOpeningRow> broker_openings;
  std::vector<MoneyRow> payments;
  std::vector<MoneyRow> receipts;
  std::vector<RateRow> rates;

  Interner client_codes;
  Interner account_numbers;
  Interner scrip_codes;
  Interner broker_names;
  Interner exchange_names;

  /// The files' contents, which views of the rows point into.
  std::vector<std::unique_ptr<CsvTable>> tables;
};

// The words for coded numbers, each in the place of its code.
inline constexpr std::string_view kDepositories[] = {"NSDL", "CDSL"};
inline constexpr std::string_view kSexes[] = {"Male", "Female", "Other"};
inline constexpr std::string_view kMaritalStatuses[] = {"Single", "Married", "Widowed", "Divorced"};
inline constexpr std::string_view kPaymentModes[] = {"Payment", "Cr. By Broker"};
inline constexpr std::string_view kReceiptModes[] = {"Receving", "Dr. By Broker"};
inline constexpr std::string_view kPaymentKinds[] = {"Cash", "Cheque"};
inline constexpr std::string_view kDebitCredit[] = {"Dr", "Cr"};
inline constexpr std::string_view kPurchaseSale[] = {"P", "S"};
inline constexpr std::string_view kNoLotWord = "none";  ///< as the lot rate of a sale
inline constexpr std::string_view kPercentKinds[] = {
    "Brokerage Delivery Based", "Brokerage Non Delivery Based", "STT Delivery Based",
    "STT Non Delivery Based", "Service Tax"};

/// Reads the files that the folder holds. Breaches of the rules go to `errors`; the portfolio is
/// then not to be used. Throws std::runtime_error when the folder or a file cannot be read.
Portfolio ReadPortfolio(const QString& folder, ErrorList& errors);

}  // namespace quorvane::portfolio
