#include "core/rates/PriceLayouts.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <cctype>

namespace quorvane::rates {
namespace {

// The order of the columns is that of the fields: code, symbol, name, class, group, type, rate,
// date, series, source, segment, ISIN. What has more of its headings stands first.
constexpr std::array kLayouts{
    // The program's own files.
    PriceLayout{Exchange::kOwn,
                {"SC_BCODE", "SC_NCODE", "SC_NAME", "SC_CLASS", "", "SC_TYPE", "?SC_RATE", "", "",
                 "", "", "?ISIN"}},
    PriceLayout{Exchange::kOwn,
                {"SC_CODE", "?SYMBOL", "SC_NAME", "SC_CLASS", "SC_GROUP", "SC_TYPE", "SC_RATE", "",
                 "", "", "", "?ISIN"}},
    PriceLayout{Exchange::kOwn,
                {"SC_CODE", "SYMBOL", "SC_NAME", "SC_CLASS", "SC_GROUP", "SC_TYPE", "?CLOSE", "",
                 "SERIES", "", "", "?ISIN"}},
    PriceLayout{Exchange::kOwn,
                {"SC_CODE", "", "SC_NAME", "SC_CLASS", "SC_GROUP", "SC_TYPE", "?CLOSE", "", "", "",
                 "", "?ISIN"}},
    // Daily prices of the Bombay exchange, without and with ISIN, then of 2022.
    PriceLayout{Exchange::kBse,
                {"SC_CODE", "", "SC_NAME", "", "SC_GROUP", "SC_TYPE", "CLOSE", "?TRADING_DATE", "",
                 "", "", "?ISIN_CODE"}},
    PriceLayout{Exchange::kBse,
                {"SCRIP_CODE", "", "SC_NAME", "", "SC_GROUP", "", "CLOSING PRICE", "?TRADING_DATE",
                 "", "", "", "?ISIN"}},
    // The common daily file of both exchanges; the Bombay exchange's of 2023 names no source.
    PriceLayout{Exchange::kBse,
                {"FININSTRMID", "TCKRSYMB", "FININSTRMNM", "", "SCTYSRS", "", "CLSPRIC", "TRADDT",
                 "SCTYSRS", "?SRC", "?SGMT", "?ISIN"}},
    // Daily prices of the National exchange: with deliveries, and the older one.
    PriceLayout{
        Exchange::kNse,
        {"", "SYMBOL", "", "", "SERIES", "", "CLOSE_PRICE", "DATE1", "SERIES", "", "", "?ISIN"}},
    PriceLayout{
        Exchange::kNse,
        {"", "SYMBOL", "", "", "SERIES", "", "CLOSE", "TIMESTAMP", "SERIES", "", "", "?ISIN"}},
    // Scrip lists.
    PriceLayout{Exchange::kNse,
                {"", "SYMBOL", "NAME OF COMPANY", "", "SERIES", "", "", "", "SERIES", "", "",
                 "?ISIN NUMBER"}},
    PriceLayout{Exchange::kBse,
                {"SECURITY CODE", "", "SECURITY NAME", "", "GROUP", "INSTRUMENT", "", "", "", "",
                 "", "?ISIN NO"}}};

std::string Upper(std::string_view text) {
  std::string upper(files::Trimmed(text));
  std::ranges::transform(upper, upper.begin(),
                         [](unsigned char one) { return static_cast<char>(std::toupper(one)); });
  return upper;
}

std::optional<FoundLayout> Fit(const PriceLayout& layout, const std::vector<std::string>& names) {
  FoundLayout found{.layout = &layout, .width = names.size()};
  for (std::size_t field = 0; field < kFieldCount; ++field) {
    std::string_view heading = layout.headings[field];
    const bool optional = heading.empty() || heading.front() == '?';
    heading.remove_prefix(heading.starts_with('?') ? 1 : 0);
    const auto at = heading.empty() ? names.end() : std::ranges::find(names, heading);
    found.columns[field] = at == names.end() ? -1 : static_cast<int>(at - names.begin());
    if (at == names.end() && !optional) {
      return std::nullopt;
    }
  }
  return found;
}

}  // namespace

const std::string& FoundLayout::Cell(const files::TextRow& row, Field field) const {
  static const std::string kNone;
  const auto column = static_cast<std::size_t>(columns[field]);
  return Has(field) && column < row.cells.size() ? row.cells[column] : kNone;
}

std::optional<FoundLayout> LayoutOf(const files::TextRow& headings) {
  std::vector<std::string> names;
  for (const std::string& cell : headings.cells) {
    names.push_back(Upper(cell));
  }
  for (const PriceLayout& layout : kLayouts) {
    if (const auto found = Fit(layout, names)) {
      return found;
    }
  }
  return std::nullopt;
}

QString ExpectedHeadings() {
  return Tr(
      "Rates",
      "Expected are the columns SC_BCode, SC_NCode, SC_Name, SC_Class, SC_Type; or SC_Code, "
      "SC_Name, SC_Group, SC_Class, SC_Type, SC_Rate; or those of an exchange's daily price file "
      "or scrip list.");
}

}  // namespace quorvane::rates
