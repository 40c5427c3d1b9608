#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/text/Shares.h"
#include "portfolio/ImportErrors.h"
#include "portfolio/trades/TradeLayouts.h"

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorvane::portfolio {

/// A scrip as a broker's file names it. What the file does not tell is empty.
struct ScripNaming {
  std::string isin;
  std::string symbol;    ///< at the National exchange
  std::string code;      ///< at the Bombay exchange
  std::string own_code;  ///< by which only the broker knows it
  std::string name;

  auto operator<=>(const ScripNaming&) const = default;

  /// What a user recognises the scrip by.
  const std::string& Shown() const;
};

/// The charges of a trade that its file tells, in rupees; nullopt where it has no column for one.
struct TradeCharges {
  std::optional<double> brokerage;
  std::optional<double> tax;  ///< goods and services tax, service tax
  std::optional<double> stt;
  std::optional<double> exchange_fee;     ///< with the fee of the Securities and Exchange Board
  std::optional<double> others;           ///< stamp duty and what else there is
  std::optional<double> taxed_brokerage;  ///< brokerage with its tax, when the two are one sum
  std::optional<double> taxes;            ///< everything but the brokerage, when it is one sum
};

/// A purchase or sale as a broker's file has it: a fill, an order or a day's sum of one.
struct Trade {
  text::Date day;
  int seconds = -1;  ///< since midnight; -1 when the file does not tell
  records::Side side = records::Side::kPurchase;
  bool has_charges = false;      ///< the file has columns of charges
  bool trade_for_trade = false;  ///< delivered also when bought and sold on one day
  text::Shares quantity;
  double rate = 0;             ///< rupees a share, by the value where the file has a more exact one
  std::uint32_t scrip = 0;     ///< place in TradeFile::scrips
  std::uint32_t exchange = 0;  ///< place in TradeFile::exchanges
  std::uint32_t file = 0;      ///< place in TradeFile::names
  std::uint32_t line = 0;
  std::string trade_number;
  std::string order_number;
  std::string bill_number;
  std::string settlement;
  TradeCharges charges;

  double Value() const { return rate * quantity.Number(); }
};

/// The trades of one or several files, oldest first.
struct TradeFile {
  std::vector<std::string> names;  ///< of the files, without folders
  std::vector<ScripNaming> scrips;
  std::vector<std::string> exchanges;
  std::vector<Trade> trades;
  std::size_t derivatives = 0;  ///< rows of futures and options, which are left out
  std::size_t other_rows = 0;   ///< rows that are no trades: footers, orders that were not filled
  QString layout;               ///< of the last file; empty for one that the user mapped
  QString broker;               ///< as the layout calls it

  void Append(TradeFile other);

  /// By day, and on one day as the files have them.
  void Sort();
};

/// What a file is read for.
struct TradeReading {
  QString path;
  std::string exchange;  ///< of rows that name none
  std::string account;   ///< number of the demat account; a row of another one is an error
  text::Date today;      ///< trades of later days are errors
};

/// Takes the trades out of a table whose header was found. What is wrong goes to the errors, with
/// the file's name and line; the trades are then not to be used. Throws Cancellation.
TradeFile TradesIn(const files::TextTable& table, const FoundHeader& header,
                   const TradeReading& reading, ErrorList& errors, Progress& progress);

/// Whether a text file ends in the middle of a row: without a line end, and with a last row that is
/// shorter than the header and no sentence at the foot of the page.
bool EndsWithinRow(const QString& path, const files::TextTable& table, const FoundHeader& header);

/// Whether two numbers are of one demat account: equal, or one the end of the other, because the
/// participant's part is often left out.
bool IsSameAccount(std::string_view a, std::string_view b);

}  // namespace quorvane::portfolio
