#include "portfolio/reconcile/StatementLines.h"

#include "core/text/Isin.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace quorvane::reconcile {
namespace {

using paper::HasPhrase;
using paper::Line;
using paper::Word;

enum class Part { kHoldings, kMovements, kFolios };

/// A row whose numbers have not come yet.
struct Pending {
  StatedHolding holding;
  int lines_left = 0;
};

std::string Joined(std::span<const Word> words) {
  std::string text;
  for (const Word& word : words) {
    text += (text.empty() ? "" : " ") + word.text;
  }
  return text;
}

std::optional<std::size_t> IsinPlace(const Line& line) {
  for (std::size_t i = 0; i < line.words.size(); ++i) {
    if (!paper::IsinIn(line.words[i].text).empty()) {
      return i;
    }
  }
  return std::nullopt;
}

/// "ISIN : INE..." stands over movements of the security, not before its balance.
bool IsAnchor(const Line& line, std::size_t place) {
  for (std::size_t i = 0; i < place; ++i) {
    if (paper::TermOf(line.words[i].text) == "ISIN") {
      return true;
    }
  }
  return line.words[place].text.find("ISIN") != std::string::npos;
}

/// "RELIANCE.NSE" below the ISIN; empty for another word.
std::string SymbolIn(const std::string& word) {
  constexpr std::size_t kEnding = 4;
  const bool named = word.size() > kEnding && (word.ends_with(".NSE") || word.ends_with(".BSE"));
  return named ? word.substr(0, word.size() - kEnding) : std::string();
}

class LineReader {
 public:
  Statement Read(std::span<const Line> lines) {
    for (const Line& line : lines) {
      Take(line);
    }
    DropPending();
    facts_.Finish();
    return std::move(statement_);
  }

 private:
  void Take(const Line& line) {
    const std::string text = line.Text();
    const std::string upper = paper::Upper(text);
    const std::string before = facts_.Account();
    facts_.Take(text);
    if (const auto place = IsinPlace(line)) {
      TakeIsinLine(line, *place);
      return;
    }
    if (facts_.Account() != before) {
      part_ = Part::kHoldings;
    }
    if (TakeHeading(line, upper)) {
      return;
    }
    ChangePart(upper);
    if (pending_) {
      TakePending(line);
    } else {
      GoOnWithName(line, upper);
    }
  }

  /// Lines of headings are the one with the word ISIN and those around it.
  bool TakeHeading(const Line& line, const std::string& upper) {
    constexpr int kStacked = 3;
    if (paper::TrailingNumbers(line.words) > 0) {
      stacked_left_ = 0;
      above_.reset();
      return false;
    }
    const bool has_isin = HasPhrase(upper, "ISIN");
    if (has_isin && upper.find("ISIN:") == std::string::npos) {
      headings_.Clear();
      if (above_) {
        headings_.Add(*above_);
      }
      headings_.Add(line);
      stacked_left_ = kStacked;
      above_.reset();
      name_of_ = nullptr;
      part_ = HasPhrase(upper, "FOLIO")                                 ? Part::kFolios
              : HasPhrase(upper, "DEBIT") || HasPhrase(upper, "CREDIT") ? Part::kMovements
                                                                        : Part::kHoldings;
      return true;
    }
    HeadingReader alone;
    const std::size_t found = alone.Add(line);
    if (stacked_left_ > 0 && found > 0) {
      --stacked_left_;
      headings_.Add(line);
      part_ = HasPhrase(upper, "FOLIO") ? Part::kFolios : part_;
      return true;
    }
    above_ = found >= 2 ? std::optional(line) : std::nullopt;
    return false;
  }

  void ChangePart(const std::string& upper) {
    if (HasPhrase(upper, "MUTUAL FUND FOLIOS") || HasPhrase(upper, "FOLIO NO")) {
      part_ = Part::kFolios;
    } else if (HasPhrase(upper, "TRANSACTION") || HasPhrase(upper, "TRANSACTIONS")) {
      part_ = HasPhrase(upper, "HOLDING") ? part_ : Part::kMovements;
    } else if (HasPhrase(upper, "HOLDING STATEMENT") || HasPhrase(upper, "HOLDINGS AS ON")) {
      part_ = Part::kHoldings;
    }
  }

  void TakeIsinLine(const Line& line, std::size_t place) {
    stacked_left_ = 0;
    above_.reset();
    DropPending();
    name_of_ = nullptr;
    if (IsAnchor(line, place)) {
      part_ = Part::kMovements;
    }
    if (part_ != Part::kHoldings) {
      statement_.folio_rows += part_ == Part::kFolios ? 1 : 0;
      return;
    }
    StatedHolding holding;
    holding.account = facts_.Account();
    holding.isin = paper::IsinIn(line.words[place].text);
    holding.line = line.number;
    if (!text::IsValidIsin(holding.isin)) {
      statement_.doubts.push_back(
          {holding.account, fmt::format("line {}: {} is no ISIN, its check digit is wrong",
                                        line.number, holding.isin)});
      return;
    }
    const auto rest = std::span(line.words).subspan(place + 1);
    const std::size_t numbers = paper::TrailingNumbers(rest);
    holding.name = Joined(rest.first(rest.size() - numbers));
    if (numbers == 0) {
      pending_ = Pending{std::move(holding), kLinesOfARow};
      return;
    }
    Complete(std::move(holding), rest.last(numbers));
  }

  void TakePending(const Line& line) {
    const std::span<const Word> words(line.words);
    const std::size_t numbers = paper::TrailingNumbers(words);
    const std::string more = Joined(words.first(words.size() - numbers));
    if (numbers == 0) {
      pending_->holding.name += (pending_->holding.name.empty() ? "" : " ") + more;
      if (--pending_->lines_left == 0) {
        DropPending();
      }
      return;
    }
    StatedHolding holding = std::move(pending_->holding);
    pending_.reset();
    holding.name += (holding.name.empty() || more.empty() ? "" : " ") + more;
    Complete(std::move(holding), words.last(numbers));
  }

  void Complete(StatedHolding holding, std::span<const Word> words) {
    std::vector<double> numbers(words.size());
    std::ranges::transform(words, numbers.begin(),
                           [](const Word& word) { return paper::NumberOrZero(word.text); });
    const std::vector<ColumnKind> columns = headings_.Kinds();
    const auto row = ReadNumbers(numbers, columns);
    if (!row) {
      Doubt(holding, "its quantity is not clear");
      return;
    }
    holding.quantity = row->quantity;
    holding.price = row->price;
    if (!columns.empty() && words.size() > columns.size()) {
      holding.name += " " + Joined(words.first(words.size() - columns.size()));
    }
    statement_.holdings.push_back(std::move(holding));
    name_of_ = &statement_.holdings.back();
    name_lines_left_ = kLinesOfARow;
  }

  void GoOnWithName(const Line& line, const std::string& upper) {
    const bool ends = name_of_ == nullptr || name_lines_left_-- == 0 ||
                      upper.find(':') != std::string::npos || upper.find("TOTAL") == 0 ||
                      upper.starts_with("SUB") || upper.starts_with("GRAND") ||
                      upper.starts_with("PAGE");
    if (ends) {
      name_of_ = nullptr;
      return;
    }
    const std::span<const Word> words(line.words);
    for (const Word& word : words.first(words.size() - paper::TrailingNumbers(words))) {
      if (std::string symbol = SymbolIn(word.text); !symbol.empty()) {
        name_of_->symbol = std::move(symbol);
      } else if (word.text != "NOT" && word.text != "LISTED") {
        name_of_->name += " " + word.text;
      }
    }
  }

  void DropPending() {
    if (pending_) {
      Doubt(pending_->holding, "it has no quantity");
      pending_.reset();
    }
  }

  void Doubt(const StatedHolding& holding, const char* why) {
    statement_.doubts.push_back({holding.account, fmt::format("line {}: {} {}: {}", holding.line,
                                                              holding.isin, holding.name, why)});
  }

  static constexpr int kLinesOfARow = 3;

  Statement statement_;
  StatementFacts facts_{statement_};
  HeadingReader headings_;
  std::optional<Line> above_;
  int stacked_left_ = 0;
  Part part_ = Part::kHoldings;
  std::optional<Pending> pending_;
  StatedHolding* name_of_ = nullptr;  ///< the row whose name may go on
  int name_lines_left_ = 0;
};

}  // namespace

Statement ReadStatementLines(std::span<const Line> lines) {
  return LineReader().Read(lines);
}

}  // namespace quorvane::reconcile
