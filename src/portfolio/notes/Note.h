#pragma once

#include "core/records/Bill.h"
#include "core/text/Dates.h"
#include "core/text/Paise.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorvane::notes {

using records::Side;
using text::Paise;
using text::Shares;

/// A security that was bought or sold at one rate by a contract note. UTF-8.
struct NoteLine {
  std::string isin;  ///< empty when the note does not tell it
  std::string name;
  Side side = Side::kPurchase;
  Shares quantity;
  double rate = 0;       ///< rupees a share, before brokerage
  double brokerage = 0;  ///< rupees a share
  double net = 0;        ///< rupees a share, with brokerage
  Paise total;           ///< at `net`, as printed, without sign
  std::size_t line = 0;  ///< of the text, from 1 on
};

/// What a note charges beside brokerage a share.
enum class Charge : std::uint8_t {
  kTaxableValue,  ///< the brokerage, or all on which the tax is reckoned
  kExchange,      ///< transaction and clearing charges
  kTax,           ///< goods and services tax, service tax
  kStt,
  kSebi,
  kStamp,
  kOther
};

/// A broker's contract note as it is printed.
struct Note {
  std::string number;
  std::optional<text::Date> day;  ///< of the trades
  std::string settlement;
  std::string exchange;           ///< of the trades; empty when it names none or several
  std::string head;               ///< the first lines in capitals, in which the broker is named
  std::vector<std::string> pans;  ///< that it names
  bool revised = false;
  std::vector<NoteLine> lines;
  std::optional<Paise> obligation;  ///< without sign
  std::map<Charge, Paise> charges;  ///< without sign
  std::optional<Paise> net;         ///< without sign

  std::vector<std::string> doubts;  ///< what could not be understood, in English

  Paise Of(Charge charge) const {
    const auto found = charges.find(charge);
    return found == charges.end() ? Paise() : found->second;
  }
};

/// Whether lines and charges of a note add up to its net amount.
struct NoteBalance {
  bool adds_up = false;

  /// Brokerage that the lines do not have and the sum of the note does.
  Paise extra_brokerage = {};

  std::string why = {};  ///< it does not, in English
};

/// Checks a note against itself: every line's quantity, rates and total; the lines against the
/// obligation; obligation and charges against the net amount. Brokers print signs in different
/// ways, so what is compared has none: sales bring, purchases and charges cost.
NoteBalance CheckNote(const Note& note);

}  // namespace quorvane::notes
