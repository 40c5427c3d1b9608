#include "portfolio/notes/NoteLines.h"

#include "core/text/Isin.h"
#include "portfolio/paper/Facts.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <set>

namespace quorvane::notes {
namespace {

using paper::HasPhrase;
using paper::Line;
using paper::Word;

/// What the sum of a note has in one line.
enum class Label { kNone, kObligation, kCharge, kNet };

struct Labelled {
  Label label = Label::kNone;
  Charge charge = Charge::kOther;
};

struct ChargeName {
  std::string_view phrase;
  Charge charge;
};

/// The first that fits counts.
constexpr std::array<ChargeName, 21> kCharges{{
    {"SEBI", Charge::kSebi},
    {"SECURITIES TRANSACTION TAX", Charge::kStt},
    {"SECURITY TRANSACTION TAX", Charge::kStt},
    {"STT", Charge::kStt},
    {"STAMP DUTY", Charge::kStamp},
    {"STAMP CHARGES", Charge::kStamp},
    {"CGST", Charge::kTax},
    {"SGST", Charge::kTax},
    {"IGST", Charge::kTax},
    {"UTGST", Charge::kTax},
    {"GST", Charge::kTax},
    {"SERVICE TAX", Charge::kTax},
    {"CESS", Charge::kTax},
    {"TAXABLE VALUE", Charge::kTaxableValue},
    {"BROKERAGE", Charge::kTaxableValue},
    {"TRANSACTION CHARGES", Charge::kExchange},
    {"TURNOVER CHARGES", Charge::kExchange},
    {"CLEARING CHARGES", Charge::kExchange},
    {"IPFT", Charge::kOther},
    {"INVESTOR PROTECTION", Charge::kOther},
    {"OTHER CHARGES", Charge::kOther},
}};

Labelled LabelOf(const std::string& upper) {
  if (HasPhrase(upper, "NET AMOUNT")) {
    return {Label::kNet};
  }
  if (HasPhrase(upper, "OBLIGATION")) {
    return {Label::kObligation};
  }
  const auto* found = std::ranges::find_if(
      kCharges, [&](const ChargeName& name) { return HasPhrase(upper, name.phrase); });
  return found == kCharges.end() ? Labelled{} : Labelled{Label::kCharge, found->charge};
}

/// The numbers at the end of a line, with "DR", "CR" and "Rs" after or between them passed over.
std::vector<double> AmountsIn(const Line& line) {
  std::vector<Word> words;
  for (const Word& word : line.words) {
    const std::string term = paper::TermOf(word.text);
    if (term != "DR" && term != "CR" && term != "RS") {
      words.push_back(word);
    }
  }
  std::vector<double> amounts;
  for (const Word& word : std::span(words).last(paper::TrailingNumbers(words))) {
    amounts.push_back(paper::NumberOrZero(word.text));
  }
  return amounts;
}

/// The first word with a digit after a phrase and before another label.
std::string NumberAfter(const Line& line, std::string_view phrase) {
  static constexpr std::array<std::string_view, 6> kLabels{"TRADE",      "DATE",   "DATED",
                                                           "SETTLEMENT", "CLIENT", "PAN"};
  if (!HasPhrase(paper::Upper(line.Text()), phrase)) {
    return {};
  }
  std::string before;
  for (const Word& word : line.words) {
    const bool follows = HasPhrase(paper::Upper(before), phrase);
    if (follows && std::ranges::find(kLabels, paper::TermOf(word.text)) != kLabels.end()) {
      return {};
    }
    std::string text = word.text;
    if (follows) {
      text.erase(0, std::min(text.find_first_not_of(":.#-"), text.size()));
    }
    if (follows &&
        std::ranges::any_of(text, [](unsigned char one) { return std::isdigit(one) != 0; })) {
      return text;
    }
    before += (before.empty() ? "" : " ") + word.text;
  }
  return {};
}

bool IsPan(std::string_view word) {
  constexpr std::size_t kLength = 10;
  if (word.size() != kLength) {
    return false;
  }
  for (std::size_t i = 0; i < kLength; ++i) {
    const bool digit = i >= 5 && i < 9;
    if (digit ? (word[i] < '0' || word[i] > '9') : (word[i] < 'A' || word[i] > 'Z')) {
      return false;
    }
  }
  return true;
}

class NoteReader {
 public:
  Note Read(std::span<const Line> lines) {
    for (const Line& line : lines) {
      Take(line);
    }
    return Finish();
  }

 private:
  void Take(const Line& line) {
    const std::string text = line.Text();
    const std::string upper = paper::Upper(text);
    TakeFacts(line, text, upper);
    if (TakeTrades(line, upper)) {
      waiting_ = Label::kNone;
    } else {
      TakeSum(line, upper);
    }
  }

  void TakeFacts(const Line& line, const std::string& text, const std::string& upper) {
    constexpr std::size_t kHeadLines = 40;
    if (++lines_ <= kHeadLines) {
      note_.head += upper + '\n';
    }
    for (const char* phrase :
         {"CONTRACT NOTE NO", "CONTRACT NOTE NUMBER", "CONTRACT NO", "CONTRACT NUMBER"}) {
      if (std::string number = NumberAfter(line, phrase); !number.empty()) {
        numbers_.insert(number);
        note_.number = note_.number.empty() ? number : note_.number;
        break;
      }
    }
    for (const char* phrase : {"SETTLEMENT NO", "SETTLEMENT NUMBER", "SETT NO", "SETTLEMENT"}) {
      if (note_.settlement.empty()) {
        note_.settlement = NumberAfter(line, phrase);
      }
    }
    if (!note_.day) {
      note_.day = paper::DayAfter(text, "TRADE DATE");
    }
    if (!any_day_) {
      any_day_ = paper::DayAfter(text, "DATE");
    }
    note_.revised = note_.revised || HasPhrase(upper, "REVISED");
    for (const Word& word : line.words) {
      if (std::string term = paper::TermOf(word.text); IsPan(term)) {
        note_.pans.push_back(std::move(term));
      }
    }
    TakeHeading(line);
  }

  /// Where the columns of sales begin, right of those of purchases.
  void TakeHeading(const Line& line) {
    std::optional<double> buy;
    for (const Word& word : line.words) {
      const std::string term = paper::TermOf(word.text);
      if (term == "BUY") {
        buy = word.left;
      } else if (term == "SELL" && buy && word.left > *buy) {
        // Each heading is above the middle of its columns.
        constexpr double kNear = 8;
        sell_left_ = (*buy + word.left) / 2 - (word.left - *buy) / kNear;
      }
    }
  }

  bool TakeTrades(const Line& line, const std::string& upper) {
    if (HasPhrase(upper, "TOTAL")) {
      return false;
    }
    std::vector<NoteLine> average = AverageLines(line, sell_left_);
    if (!average.empty()) {
      for (NoteLine& one : average) {
        averages_.push_back(std::move(one));
      }
      name_of_ = nullptr;
      return true;
    }
    std::string exchange;
    if (auto trade = TradeLine(line, exchange)) {
      trades_.push_back(std::move(*trade));
      exchanges_.insert(exchange);
      name_of_ = trades_.back().isin.empty() ? &trades_.back() : nullptr;
      return true;
    }
    if (name_of_ != nullptr) {
      for (const Word& word : line.words) {
        name_of_->isin = name_of_->isin.empty() ? paper::IsinIn(word.text) : name_of_->isin;
      }
      name_of_ = nullptr;
    }
    return false;
  }

  void TakeSum(const Line& line, const std::string& upper) {
    if (note_.net) {
      return;
    }
    Labelled labelled = LabelOf(upper);
    const std::vector<double> amounts = AmountsIn(line);
    if (labelled.label == Label::kNone && waiting_ != Label::kNone && !amounts.empty()) {
      labelled.label = waiting_;
    }
    if (amounts.empty()) {
      const bool waits = labelled.label == Label::kObligation || labelled.label == Label::kNet;
      if (waits) {
        waiting_ = labelled.label;
        waiting_lines_ = 2;
      } else if (waiting_lines_-- == 0) {
        waiting_ = Label::kNone;
      }
      return;
    }
    waiting_ = Label::kNone;
    constexpr double kMost = 1e12;
    if (std::abs(amounts.back()) > kMost) {
      return;
    }
    const Paise amount = Paise::OfRupees(std::abs(amounts.back()));
    switch (labelled.label) {
      case Label::kNone:
        return;
      case Label::kObligation:
        note_.obligation = note_.obligation ? note_.obligation : std::optional(amount);
        break;
      case Label::kNet:
        // In the sum alone: a table of trades has such a heading, too.
        if (note_.obligation) {
          note_.net = amount;
        }
        break;
      case Label::kCharge:
        if (note_.obligation) {
          note_.charges[labelled.charge] += amount;
        }
        break;
    }
    // Columns of several segments: shares come first, the sum of all last.
    if (note_.obligation && amounts.size() > 1 &&
        std::abs(std::abs(amounts.front()) - std::abs(amounts.back())) > 0.005) {
      other_segments_ = true;
    }
  }

  Note Finish() {
    note_.day = note_.day ? note_.day : any_day_;
    note_.lines = !averages_.empty() ? std::move(averages_) : AddedUp();
    exchanges_.erase(std::string());
    note_.exchange = exchanges_.size() == 1 ? *exchanges_.begin() : std::string();
    if (numbers_.size() > 1) {
      note_.doubts.push_back("the file holds more than one note");
    }
    if (other_segments_) {
      note_.doubts.push_back("it has trades of other segments than shares, such as futures");
    }
    for (const NoteLine& line : note_.lines) {
      if (!line.isin.empty() && !text::IsValidIsin(line.isin)) {
        note_.doubts.push_back(
            fmt::format("line {}: {} is no ISIN, its check digit is wrong", line.line, line.isin));
      }
    }
    return std::move(note_);
  }

  std::vector<NoteLine> AddedUp() {
    std::vector<NoteLine> sums;
    for (NoteLine& trade : trades_) {
      const auto same = std::ranges::find_if(sums, [&](const NoteLine& one) {
        return one.isin == trade.isin && one.side == trade.side && one.rate == trade.rate &&
               one.brokerage == trade.brokerage && (!one.isin.empty() || one.name == trade.name);
      });
      if (same == sums.end()) {
        sums.push_back(std::move(trade));
      } else {
        same->quantity += trade.quantity;
        same->total += trade.total;
      }
    }
    return sums;
  }

  Note note_;
  std::vector<NoteLine> averages_;
  std::vector<NoteLine> trades_;
  NoteLine* name_of_ = nullptr;  ///< a trade whose ISIN may be on the next line
  std::set<std::string> numbers_;
  std::set<std::string> exchanges_;
  std::optional<text::Date> any_day_;
  std::optional<double> sell_left_;
  Label waiting_ = Label::kNone;  ///< whose amount may be on one of the next lines
  int waiting_lines_ = 0;
  bool other_segments_ = false;
  std::size_t lines_ = 0;
};

}  // namespace

Note ReadNoteLines(std::span<const Line> lines) {
  return NoteReader().Read(lines);
}

}  // namespace quorvane::notes
