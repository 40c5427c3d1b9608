#include "portfolio/reconcile/HoldingColumns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quorvane::reconcile {
namespace {

using paper::TermOf;
using enum ColumnKind;

constexpr std::array kTerms{std::pair{std::string_view("CURRENT"), kCurrent},
                            std::pair{std::string_view("CURR"), kCurrent},
                            std::pair{std::string_view("TOT"), kTotal},
                            std::pair{std::string_view("TOTAL"), kTotal},
                            std::pair{std::string_view("FREE"), kFree},
                            std::pair{std::string_view("PLEDGE"), kPledged},
                            std::pair{std::string_view("PLEDGED"), kPledged},
                            std::pair{std::string_view("PLDG"), kPledged},
                            std::pair{std::string_view("FACE"), kFace},
                            std::pair{std::string_view("PRICE"), kPrice},
                            std::pair{std::string_view("RATE"), kPrice},
                            std::pair{std::string_view("NAV"), kPrice},
                            std::pair{std::string_view("VALUE"), kValue},
                            std::pair{std::string_view("VALUATION"), kValue},
                            std::pair{std::string_view("AMOUNT"), kValue},
                            std::pair{std::string_view("FROZEN"), kOther},
                            std::pair{std::string_view("LENT"), kOther},
                            std::pair{std::string_view("SAFEKEEP"), kOther},
                            std::pair{std::string_view("LOCKED"), kOther},
                            std::pair{std::string_view("LOCK-IN"), kOther},
                            std::pair{std::string_view("LOCKIN"), kOther},
                            std::pair{std::string_view("LOCK"), kOther},
                            std::pair{std::string_view("EARMARK"), kOther},
                            std::pair{std::string_view("EARMARKED"), kOther},
                            std::pair{std::string_view("DEMAT"), kOther},
                            std::pair{std::string_view("REMAT"), kOther},
                            std::pair{std::string_view("PLEDGEE"), kOther},
                            std::pair{std::string_view("PLEDGESETUP"), kOther},
                            std::pair{std::string_view("BLOCKED"), kOther},
                            std::pair{std::string_view("COUPON"), kOther},
                            std::pair{std::string_view("PAID"), kOther}};

/// Words that name a quantity when no word before them says which one.
constexpr std::array<std::string_view, 10> kWeak{"SHARES",  "UNITS", "BONDS",   "QUANTITY", "QTY",
                                                 "BALANCE", "BAL",   "HOLDING", "NO",       "NOS"};

std::optional<ColumnKind> TermKind(std::string_view term) {
  const auto* found = std::ranges::find(kTerms, term, &decltype(kTerms)::value_type::first);
  return found == kTerms.end() ? std::nullopt : std::optional(found->second);
}

bool IsWeak(std::string_view term) {
  return std::ranges::find(kWeak, term) != kWeak.end();
}

/// Whether a word goes on with the heading of a column whose words so far mean `kind`, of which the
/// first is `first`.
bool GoesOn(ColumnKind kind, std::string_view first, std::string_view term) {
  switch (kind) {
    case kFace:
      return term == "VALUE";
    case kPrice:
    case kValue:
      return false;
    case kPledged:
      return term == "SETUP" || (IsWeak(term) && !term.starts_with("NO"));
    case kOther:
      return (first == "PAID" && term == "VALUE") || (first == "COUPON" && term == "RATE") ||
             (IsWeak(term) && !term.starts_with("NO"));
    case kUnits:
      return IsWeak(term);
    default:
      return IsWeak(term) && !term.starts_with("NO");
  }
}

/// "Current NAV" and "Total Value" mean what their last word says.
bool GivesWay(ColumnKind kind, std::optional<ColumnKind> next) {
  return (kind == kCurrent || kind == kTotal) && (next == kPrice || next == kValue);
}

}  // namespace

std::optional<ColumnKind> KindOfHeading(std::string_view heading) {
  HeadingReader reader;
  for (const paper::Line& line : paper::LinesOf(heading)) {
    reader.Add(line);
  }
  const std::vector<ColumnKind> kinds = reader.Kinds();
  return kinds.empty() ? std::nullopt : std::optional(kinds.front());
}

void HeadingReader::Put(const Placed& heading, bool first_line) {
  constexpr double kNear = 4;
  for (const Placed& there : columns_) {
    if (!first_line && heading.left < there.right + kNear && heading.right > there.left - kNear) {
      return;
    }
  }
  columns_.push_back(heading);
}

std::size_t HeadingReader::Add(const paper::Line& line) {
  constexpr double kBlank = 7;  // the widest blank within a heading, in points
  std::vector<Placed> found;
  std::string first;  // word of the heading that may go on; empty when none may
  for (const paper::Word& word : line.words) {
    const std::string term = TermOf(word.text);
    const std::optional<ColumnKind> kind = TermKind(term);
    const bool open = !first.empty();
    const bool near = open && word.left - found.back().right <= kBlank;
    if (open && GivesWay(found.back().kind, kind)) {
      found.back().kind = *kind;
      found.back().right = word.right;
    } else if (open && GoesOn(found.back().kind, first, term)) {
      found.back().kind = term == "SETUP" ? kOther : found.back().kind;
      found.back().right = word.right;
    } else if (kind || IsWeak(term)) {
      found.push_back({word.left, word.right, kind.value_or(kUnits)});
      first = term;
    } else if (near && (term == "UP" || term == "OF" || term == "IN" || term.empty())) {
      found.back().right = word.right;
    } else {
      first.clear();
    }
  }
  const bool first_line = columns_.empty();
  for (const Placed& heading : found) {
    Put(heading, first_line);
  }
  return found.size();
}

std::vector<ColumnKind> HeadingReader::Kinds() const {
  std::vector<Placed> sorted = columns_;
  std::ranges::stable_sort(sorted, {}, &Placed::left);
  std::vector<ColumnKind> kinds(sorted.size());
  std::ranges::transform(sorted, kinds.begin(), &Placed::kind);
  return kinds;
}

namespace {

/// Whether a quantity at a price is a value, up to how both are rounded.
bool Gives(double quantity, double price, double value) {
  constexpr double kPaisa = 0.01;
  constexpr double kHalfPaisa = 0.0051;
  return price > 0 && value > 0 &&
         std::abs(quantity * price - value) <= quantity * kHalfPaisa + kPaisa;
}

std::optional<RowNumbers> ByProduct(std::span<const double> numbers) {
  if (numbers.size() < 3) {
    return std::nullopt;
  }
  const double value = numbers.back();
  const double price = numbers[numbers.size() - 2];
  for (const double number : numbers.first(numbers.size() - 2)) {
    if (Gives(number, price, value)) {
      return RowNumbers{text::Shares(number), price};
    }
  }
  return std::nullopt;
}

/// Larger numbers are no shares, and their sums no numbers.
bool IsQuantity(double number) {
  constexpr double kMost = 1e10;
  return std::abs(number) <= kMost;
}

/// The places of the columns of a kind; the first of several counts.
struct Places {
  explicit Places(std::span<const ColumnKind> columns) : columns_(columns) {}

  std::optional<std::size_t> Of(ColumnKind kind) const {
    const auto found = std::ranges::find(columns_, kind);
    return found == columns_.end() ? std::nullopt
                                   : std::optional<std::size_t>(found - columns_.begin());
  }

 private:
  std::span<const ColumnKind> columns_;
};

std::optional<RowNumbers> ByColumns(std::span<const double> cells,
                                    std::span<const ColumnKind> columns) {
  const Places places(columns);
  RowNumbers row;
  if (const auto price = places.Of(kPrice)) {
    row.price = cells[*price];
  }
  for (const ColumnKind kind : {kTotal, kCurrent, kUnits}) {
    if (const auto place = places.Of(kind)) {
      row.quantity = text::Shares(cells[*place]);
      return row;
    }
  }
  const auto free = places.Of(kFree);
  const auto pledged = places.Of(kPledged);
  if (!free || !IsQuantity(cells[*free]) || (pledged && !IsQuantity(cells[*pledged]))) {
    return std::nullopt;
  }
  row.quantity =
      text::Shares(cells[*free]) + (pledged ? text::Shares(cells[*pledged]) : text::Shares());
  return row;
}

bool Disagrees(const RowNumbers& row, std::span<const double> cells,
               std::span<const ColumnKind> columns) {
  const auto value = Places(columns).Of(kValue);
  return value && row.price > 0 && cells[*value] > 0 &&
         !Gives(row.quantity.Number(), row.price, cells[*value]);
}

std::optional<RowNumbers> Understood(std::span<const double> numbers,
                                     std::span<const ColumnKind> columns) {
  const bool known = !columns.empty();
  if (known && numbers.size() >= columns.size()) {
    const auto cells = numbers.last(columns.size());
    const auto row = ByColumns(cells, columns);
    if (row && Disagrees(*row, cells, columns)) {
      const auto other = ByProduct(numbers);
      return other ? other : row;
    }
    if (row) {
      return row;
    }
  }
  if (auto row = ByProduct(numbers)) {
    return row;
  }
  const bool first_counts =
      known && (columns.front() == kCurrent || columns.front() == kUnits) && !numbers.empty();
  if (first_counts || numbers.size() == 1) {
    return RowNumbers{text::Shares(numbers.front()), 0};
  }
  return std::nullopt;
}

}  // namespace

std::optional<RowNumbers> ReadNumbers(std::span<const double> numbers,
                                      std::span<const ColumnKind> columns) {
  const auto row = Understood(numbers, columns);
  return row && IsQuantity(row->quantity.Number()) ? row : std::nullopt;
}

}  // namespace quorvane::reconcile
