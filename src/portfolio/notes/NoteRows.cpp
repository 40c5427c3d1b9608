#include "portfolio/notes/NoteLines.h"

#include <algorithm>
#include <cmath>

namespace quorvane::notes {
namespace {

using paper::Line;
using paper::NumberOf;
using paper::Word;

constexpr std::size_t kSide = 5;  // quantity, rate, brokerage, net rate, total
constexpr std::size_t kNet = 2;   // quantity, amount

std::vector<double> NumbersIn(std::span<const Word> words) {
  std::vector<double> numbers(words.size());
  std::ranges::transform(words, numbers.begin(),
                         [](const Word& word) { return paper::NumberOrZero(word.text); });
  return numbers;
}

/// Whether five numbers are those of one side.
bool AreSide(std::span<const double> n) {
  constexpr double kRounded = 0.0051;
  // Larger ones are no trades, and their sums no numbers.
  constexpr double kMost = 1e12;
  const double quantity = std::abs(n[0]);
  if (quantity > kMost || std::abs(n[4]) > kMost) {
    return false;
  }
  const bool brokerage = std::abs(std::abs(n[1] - n[3]) - std::abs(n[2])) <= 2 * kRounded;
  return quantity > 0 && n[1] > 0 && brokerage &&
         std::abs(quantity * n[3] - std::abs(n[4])) <= quantity * kRounded + 0.011;
}

bool AreNothing(std::span<const double> n) {
  return std::ranges::all_of(n, [](double number) { return number == 0; });
}

NoteLine LineOf(std::span<const double> n, Side side, const NoteLine& named) {
  NoteLine line = named;
  line.side = side;
  line.quantity = Shares(std::abs(n[0]));
  line.rate = n[1];
  line.brokerage = std::abs(n[2]);
  line.net = n[3];
  line.total = Paise::OfRupees(std::abs(n[4]));
  return line;
}

std::string NameIn(std::span<const Word> words) {
  std::string name;
  for (const Word& word : words) {
    name += (name.empty() ? "" : " ") + word.text;
  }
  return name;
}

/// Both sides and the net of them.
std::vector<NoteLine> BothSides(std::span<const double> n, const NoteLine& named) {
  const auto buy = n.first(kSide);
  const auto sell = n.subspan(kSide, kSide);
  if (!(AreSide(buy) || AreNothing(buy)) || !(AreSide(sell) || AreNothing(sell))) {
    return {};
  }
  std::vector<NoteLine> lines;
  if (!AreNothing(buy)) {
    lines.push_back(LineOf(buy, Side::kPurchase, named));
  }
  if (!AreNothing(sell)) {
    lines.push_back(LineOf(sell, Side::kSale, named));
  }
  return lines;
}

}  // namespace

std::vector<NoteLine> AverageLines(const Line& line, const std::optional<double>& sell_left) {
  const auto place = std::ranges::find_if(
      line.words, [](const Word& word) { return !paper::IsinIn(word.text).empty(); });
  if (place == line.words.end()) {
    return {};
  }
  const auto rest =
      std::span(line.words).subspan(static_cast<std::size_t>(place - line.words.begin()) + 1);
  const std::size_t count = paper::TrailingNumbers(rest);
  const std::vector<double> all = NumbersIn(rest.last(count));
  const std::span<const double> numbers(all);
  NoteLine named;
  named.isin = paper::IsinIn(place->text);
  named.line = line.number;
  if (count >= 2 * kSide + kNet) {
    named.name = NameIn(rest.first(rest.size() - 2 * kSide - kNet));
    auto lines = BothSides(numbers.last(2 * kSide + kNet), named);
    if (!lines.empty()) {
      return lines;
    }
  }
  if (count < kSide + kNet || !AreSide(numbers.last(kSide + kNet).first(kSide))) {
    return {};
  }
  const auto own = numbers.last(kSide + kNet);
  named.name = NameIn(rest.first(rest.size() - kSide - kNet));
  const double left = rest[rest.size() - kSide - kNet].left;
  const bool sold = own[kSide] < 0 || own[0] < 0 || (sell_left && left >= *sell_left);
  return {LineOf(own.first(kSide), sold ? Side::kSale : Side::kPurchase, named)};
}

namespace {

bool IsSide(const Word& word) {
  const std::string term = paper::TermOf(word.text);
  return term == "B" || term == "S" || term == "BUY" || term == "SELL";
}

/// The trade whose side is the word at that place.
std::optional<NoteLine> TradeAt(const Line& line, std::vector<Word>::const_iterator side,
                                std::string& exchange) {
  auto from = side + 1;
  for (; from != line.words.end() && !NumberOf(from->text); ++from) {
    const std::string term = paper::TermOf(from->text);
    exchange = term == "NSE" || term == "BSE" ? term : exchange;
  }
  const auto to = std::find_if(from, line.words.end(),
                               [](const Word& word) { return !NumberOf(word.text).has_value(); });
  const std::vector<double> n = NumbersIn(std::span(from, to));
  if (n.size() < kSide) {
    return std::nullopt;
  }
  // A closing rate may stand before the total.
  const std::vector<double> numbers{n[0], n[1], n[2], n[3], n.back()};
  if (!AreSide(numbers)) {
    return std::nullopt;
  }
  NoteLine named;
  named.line = line.number;
  for (auto word = line.words.begin(); word != side; ++word) {
    if (std::string isin = paper::IsinIn(word->text); !isin.empty()) {
      named.isin = std::move(isin);
    }
    // Numbers and times of orders and trades come before the name.
    if (word->text.find(':') == std::string::npos && !NumberOf(word->text)) {
      named.name += (named.name.empty() ? "" : " ") + word->text;
    }
  }
  const bool sold = paper::TermOf(side->text).front() == 'S';
  return LineOf(numbers, sold ? Side::kSale : Side::kPurchase, named);
}

}  // namespace

std::optional<NoteLine> TradeLine(const Line& line, std::string& exchange) {
  for (auto word = line.words.begin(); word != line.words.end(); ++word) {
    exchange.clear();
    auto trade = IsSide(*word) ? TradeAt(line, word, exchange) : std::nullopt;
    if (trade) {
      return trade;
    }
  }
  return std::nullopt;
}

}  // namespace quorvane::notes
