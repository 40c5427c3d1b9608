#pragma once

#include "core/rates/RateImport.h"
#include "portfolio/trades/TradeFile.h"

#include <map>
#include <span>
#include <string>
#include <vector>

namespace quorvane::portfolio {

/// How sure it is which scrip a file means.
enum class ScripMatch : std::uint8_t {
  kUnknown,
  kLikely,  ///< by its name: the user confirms it
  kKnown,
  kNew,  ///< to be recorded with the trades
};

/// A scrip of the files and the program's scrip for it.
struct TradedScrip {
  ScripNaming naming;
  ScripMatch match = ScripMatch::kUnknown;
  ScripId scrip;           ///< known or likely; none while unknown or new
  bool confirmed = false;  ///< by the user, in this import; remembered for the broker's next file

  bool IsSettled() const { return match == ScripMatch::kKnown || match == ScripMatch::kNew; }
};

/// Scrips that users confirmed for names of a broker's earlier files, by the name in small letters.
using ConfirmedScrips = std::map<std::string, ScripId>;

/// The name by which a confirmation is kept.
std::string ConfirmedName(const ScripNaming& naming);

/// Finds the program's scrips: by what the user confirmed before, by ISIN, by the symbol of the
/// National and the code of the Bombay exchange; else the one with the most similar name, as
/// likely. Two scrips that fit equally well leave it unknown.
std::vector<TradedScrip> MatchScrips(std::span<const ScripNaming> namings,
                                     const std::vector<quorvane::rates::ListedScrip>& scrips,
                                     const ConfirmedScrips& confirmed);

/// The record for a scrip that is new: its code at the Bombay exchange, else its symbol, else its
/// ISIN, else its name.
QString NewCode(const ScripNaming& naming);

}  // namespace quorvane::portfolio
