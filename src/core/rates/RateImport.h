#pragma once

#include "core/database/Connection.h"
#include "core/rates/PriceFile.h"
#include "core/rates/RateBook.h"

namespace quorvane::rates {

/// A scrip as lists of rates show it. UTF-8.
struct ListedScrip {
  ScripId id = {};
  std::string code = {};
  std::string symbol = {};  ///< the second exchange's code
  std::string name = {};
  std::string scrip_class = {};
  std::string type = {};
  std::vector<std::string> isins = {};  ///< under which it was seen
};

/// Every scrip, by name, then by id.
std::vector<ListedScrip> ListScrips(database::Connection& connection);

/// What of a price file belongs to the program's scrips.
struct MatchedRates {
  std::vector<ScripRate> rates;        ///< of scrips with a price, in the order of the file
  std::size_t matched = 0;             ///< rows of the file that belong to a scrip
  std::vector<std::size_t> unmatched;  ///< places of the rows that belong to none
  std::vector<SeenIsin> isins;         ///< of scrips in the file, those that are kept already too
};

/// The Bombay exchange's rows belong to the scrip of that code, the National exchange's to every
/// scrip of that second code, those of the program's own files to either, the code first. A row
/// that belongs to none by its code belongs to the scrips of its ISIN.
MatchedRates MatchRates(const PriceFile& file, const std::vector<ListedScrip>& scrips);

/// Reads a file of rates for a day and matches it with the scrips in the database. Refuses what
/// ReadPriceFile and CheckPrices refuse. Records nothing: RateBook::Save does.
Result<MatchedRates> ReadRates(database::Connection& connection, const QString& path,
                               text::Date date);

}  // namespace quorvane::rates
