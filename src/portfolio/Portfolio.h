#pragma once

#include "core/rates/IsinBook.h"
#include "core/records/Action.h"
#include "core/records/Bill.h"
#include "core/records/Dividend.h"
#include "core/records/Masters.h"
#include "core/records/Money.h"
#include "core/records/Opening.h"
#include "core/records/Rates.h"
#include "core/records/StatementCheck.h"
#include "core/records/Transfer.h"
#include "core/tax/TaxLosses.h"
#include "portfolio/CsvTable.h"

#include <QString>

#include <cstdint>
#include <deque>
#include <limits>
#include <map>
#include <memory>
#include <optional>
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

  Symbol Intern(std::string_view text, const CsvTable& table, FileKind file) {
    return Intern(text, file, table.Line());
  }
  Symbol Intern(std::string_view text, FileKind file, std::size_t line);
  const std::vector<Name>& Names() const { return names_; }

 private:
  std::unordered_map<std::string, Symbol> symbols_;
  std::vector<Name> names_;
  std::string last_text_;
  Symbol last_ = 0;
};

/// A master record of the file, without a key.
template <class Record>
struct MasterRow {
  Record record;
  std::size_t line = 0;
};

// What identifies a master record: a code, a name, or a name of a year, folded.
std::string KeyOf(const records::Participant& participant);
std::string KeyOf(const records::Client& client);
std::string KeyOf(const records::Broker& broker);
std::string KeyOf(const records::Scrip& scrip);
std::string KeyOf(const records::Percentage& percentage);

/// A scrip with the names of its type and class, which its record lacks.
struct ScripRow : MasterRow<records::Scrip> {
  QString type;
  QString scrip_class;
};

struct DpIdRow {
  std::string participant;  ///< folded name
  QString dp_id;
  std::size_t line = 0;
};

struct AccountRow {
  Symbol client = 0;
  std::string participant;  ///< folded name
  QString dp_id;
  QString number;
  std::size_t line = 0;
};

// Of the rows below, `record` has everything but its keys: these follow from the names.

struct OpeningRow {
  records::Opening record;
  Symbol client = 0;
  Symbol account = 0;
  Symbol scrip = 0;
  text::Date purchase_date;
  std::size_t line = 0;
};

inline constexpr std::string_view kDeliveryTypes[] = {"N.A.", "Delivery Based",
                                                      "Non Delivery Based"};
inline constexpr std::uint8_t kDelivery = 1;
inline constexpr std::uint8_t kNonDelivery = 2;

struct BillLineRow {
  Symbol scrip = 0;
  records::Side side = records::Side::kSale;
  bool fo = false;
  std::uint8_t delivery = 0;  ///< place in kDeliveryTypes
  text::Shares quantity;
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

  bool IsPurchase() const { return side == records::Side::kPurchase; }
  bool IsNonDelivery() const { return delivery == kNonDelivery; }
};

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
  records::Transfer record;
  text::Date date;
  Symbol from_account = 0;
  Symbol to_account = 0;
  std::optional<Symbol> from_client;  ///< whose account; needed where clients share a number
  std::optional<Symbol> to_client;
  Symbol scrip = 0;
  std::size_t line = 0;
};

struct BrokerOpeningRow {
  records::BrokerOpening record;
  Symbol client = 0;
  Symbol broker = 0;
  std::size_t line = 0;
};

struct MoneyRow {
  records::Payment record;
  Symbol client = 0;
  Symbol broker = 0;
  std::size_t line = 0;
};

struct RateRow {
  records::MarketRate record;
  Symbol scrip = 0;
  std::size_t line = 0;
};

struct IsinRow {
  quorvane::rates::DatedIsin isin;
  Symbol scrip = 0;
  std::size_t line = 0;
};

struct ActionRow {
  records::Action record;
  text::Date ex_day;
  Symbol scrip = 0;
  std::optional<Symbol> other;
  std::size_t line = 0;
};

struct ActionLotRow {
  records::ActionLot record;
  std::size_t action = 0;  ///< place in Portfolio::actions
  Symbol client = 0;
  Symbol account = 0;
  Symbol scrip = 0;
  std::optional<Symbol> to_scrip;
  std::optional<text::Date> acquired;
  std::size_t line = 0;
};

struct DividendRow {
  records::Dividend record;
  std::optional<std::size_t> action;  ///< place in Portfolio::actions
  Symbol client = 0;
  Symbol account = 0;
  Symbol scrip = 0;
  std::size_t line = 0;
};

/// The highest price of a scrip on the day of the fair values.
struct FairValueRow {
  double rate = 0;  ///< rupees a share
  Symbol scrip = 0;
  std::size_t line = 0;
};

struct TaxLossRow {
  tax::TaxLoss record;
  Symbol client = 0;
  std::size_t line = 0;
};

/// Opening stock whose cost is still to be entered.
struct OpeningMarkRow {
  text::FinancialYear year;
  Symbol client = 0;
  Symbol account = 0;
  Symbol scrip = 0;
  std::size_t line = 0;
};

/// A trade of a broker's file that is in a bill.
struct TradeKeyRow {
  std::string key;  ///< without its scrip
  std::string_view bill_number;
  text::Date bill_date;
  std::size_t bill_part = 1;
  Symbol client = 0;
  Symbol account = 0;
  Symbol broker = 0;
  std::optional<Symbol> scrip;
  std::size_t line = 0;
};

/// Whether a trade is told from others by its scrip, too: its key has a place for it.
bool NamesScrip(std::string_view trade_key);

/// A comparison of an account with a statement of its holdings.
struct StatementCheckRow {
  records::StatementCheck record;  ///< without client and account
  Symbol client = 0;
  Symbol account = 0;
  std::size_t line = 0;
};

/// A portfolio folder in memory, checked row by row but not yet against a database. Bills of
/// another origin have the same form and are taken in by the same rules.
struct Portfolio {
  std::vector<MasterRow<records::Participant>> participants;
  std::vector<DpIdRow> dp_ids;
  std::vector<MasterRow<records::Client>> clients;
  std::vector<AccountRow> accounts;
  std::vector<MasterRow<records::Broker>> brokers;
  std::vector<ScripRow> scrips;
  std::vector<MasterRow<records::Percentage>> percentages;
  std::vector<OpeningRow> openings;
  std::vector<BillRow> bills;  ///< in the order of their first rows
  std::vector<BillLineRow> bill_lines;
  std::vector<TransferRow> transfers;
  std::vector<BrokerOpeningRow> broker_openings;
  std::vector<MoneyRow> payments;
  std::vector<MoneyRow> receipts;
  std::vector<RateRow> rates;
  std::vector<IsinRow> isins;
  std::vector<ActionRow> actions;  ///< in file order, of which lots and dividends give the place
  std::vector<ActionLotRow> action_lots;
  std::vector<DividendRow> dividends;
  std::vector<FairValueRow> fair_values;
  std::vector<TaxLossRow> tax_losses;
  std::vector<OpeningMarkRow> opening_marks;
  std::vector<TradeKeyRow> trade_keys;
  std::vector<StatementCheckRow> statement_checks;

  /// Whether the folder says what was applied; otherwise actions are applied as they are taken in.
  bool has_action_lots = false;

  Interner client_codes;
  Interner account_numbers;
  Interner scrip_codes;
  Interner broker_names;
  Interner exchange_names;

  /// The files' contents, which views of the rows point into.
  std::vector<std::unique_ptr<CsvTable>> tables;

  /// Texts that views of the rows point into when the portfolio was not read from files.
  std::deque<std::string> texts;
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

/// The same for files in memory, such as the bills that are made of contract notes: what comes from
/// elsewhere meets the same rules.
Portfolio ReadPortfolioFiles(const std::map<FileKind, std::string>& contents, ErrorList& errors);

}  // namespace quorvane::portfolio
