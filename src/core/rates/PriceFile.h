#pragma once

#include "core/Result.h"
#include "core/files/TextTable.h"
#include "core/text/Dates.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace quorvane::rates {

/// Whose file it is and what names its scrips: in the program's own files the Bombay exchange's
/// code, the National exchange's symbol, or both.
enum class Exchange { kOwn, kBse, kNse };

/// What a file says of one scrip. Texts are UTF-8; what the file does not say is empty.
struct PriceRow {
  std::size_t line = 0;
  std::string code = {};    ///< at the Bombay exchange
  std::string symbol = {};  ///< at the National exchange
  std::string name = {};
  std::string scrip_class = {};  ///< the Bombay exchange's group, the National exchange's series
  std::string type = {};         ///< "EQUITY"; the letters of price files are turned into names
  std::string series_type = {};  ///< the type that the series or group tells, for a new scrip
  std::string isin = {};         ///< twelve capitals and digits
  double rate = 0;               ///< closing price in rupees; 0 when there was none
  double high = 0;               ///< highest price in rupees; 0 when there was none
};

/// A scrip list or the closing prices of one day, of any exchange and year. Each scrip is in it
/// once.
struct PriceFile {
  Exchange exchange = Exchange::kOwn;
  bool has_names = false;
  bool has_symbols = false;  ///< an empty symbol means that the scrip has none
  bool has_rates = false;
  bool has_highs = false;
  std::optional<text::Date> date = {};  ///< the day of the prices, when the file tells it
  std::vector<PriceRow> rows = {};      ///< in the order of the file
  std::size_t left_out = 0;  ///< rows of other segments and of series beside the chosen one
};

/// Reads a table by its headings. Refuses headings that belong to no
/// known file with "Invalid File." and what was expected, and rows that cannot be right with their
/// lines.
///
/// Of the National exchange's several series of a symbol the share itself is taken (EQ, else BE,
/// else BZ); block deals and bonds under its symbol are left out. Two records that were run
/// together on one line are told apart.
Result<PriceFile> ReadPriceTable(const files::TextTable& table);

/// The same from a file on the disk: .csv, .xls, .xlsx, .ods or .zip. Of a file of the Bombay
/// exchange that holds no day, the day is taken from the name that the exchange gave it, or the
/// file inside the archive.
Result<PriceFile> ReadPriceFile(const QString& path);

/// Refuses a file of rates that has none, or whose prices are of another day.
MaybeRefusal CheckPrices(const PriceFile& file, text::Date date);

/// The same for the highest prices of the day.
MaybeRefusal CheckHighestPrices(const PriceFile& file, text::Date date);

}  // namespace quorvane::rates
