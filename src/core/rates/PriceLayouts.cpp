#include "core/rates/PriceLayouts.h"

#include "core/text/Tr.h"

#include <vector>

namespace quorvane::rates {
namespace {

// The order of the columns is that of the fields: code, symbol, name, class, group, type, rate,
// date, series, source, segment, ISIN, highest price. What has more of its headings stands first.
constexpr std::array kLayouts{
    // The program's own files.
    PriceLayout{Exchange::kOwn,
                {"SC_BCODE", "SC_NCODE", "SC_NAME", "SC_CLASS", "", "SC_TYPE", "?SC_RATE", "", "",
                 "", "", "?ISIN", ""}},
    PriceLayout{Exchange::kOwn,
                {"SC_CODE", "?SYMBOL", "SC_NAME", "SC_CLASS", "SC_GROUP", "SC_TYPE", "SC_RATE", "",
                 "", "", "", "?ISIN", ""}},
    PriceLayout{Exchange::kOwn,
                {"SC_CODE", "SYMBOL", "SC_NAME", "SC_CLASS", "SC_GROUP", "SC_TYPE", "?CLOSE", "",
                 "SERIES", "", "", "?ISIN", "?HIGH"}},
    PriceLayout{Exchange::kOwn,
                {"SC_CODE", "", "SC_NAME", "SC_CLASS", "SC_GROUP", "SC_TYPE", "?CLOSE", "", "", "",
                 "", "?ISIN", "?HIGH"}},
    // Daily prices of the Bombay exchange, without and with ISIN, then of 2022.
    PriceLayout{Exchange::kBse,
                {"SC_CODE", "", "SC_NAME", "", "SC_GROUP", "SC_TYPE", "CLOSE", "?TRADING_DATE", "",
                 "", "", "?ISIN_CODE", "?HIGH"}},
    PriceLayout{Exchange::kBse,
                {"SCRIP_CODE", "", "SC_NAME", "", "SC_GROUP", "", "CLOSING PRICE", "?TRADING_DATE",
                 "", "", "", "?ISIN", "?HIGH PRICE"}},
    // The common daily file of both exchanges; the Bombay exchange's of 2023 names no source.
    PriceLayout{Exchange::kBse,
                {"FININSTRMID", "TCKRSYMB", "FININSTRMNM", "", "SCTYSRS", "", "CLSPRIC", "TRADDT",
                 "SCTYSRS", "?SRC", "?SGMT", "?ISIN", "?HGHPRIC"}},
    // Daily prices of the National exchange: with deliveries, and the older one.
    PriceLayout{Exchange::kNse,
                {"", "SYMBOL", "", "", "SERIES", "", "CLOSE_PRICE", "DATE1", "SERIES", "", "",
                 "?ISIN", "?HIGH_PRICE"}},
    PriceLayout{Exchange::kNse,
                {"", "SYMBOL", "", "", "SERIES", "", "CLOSE", "TIMESTAMP", "SERIES", "", "",
                 "?ISIN", "?HIGH"}},
    // Scrip lists.
    PriceLayout{Exchange::kNse,
                {"", "SYMBOL", "NAME OF COMPANY", "", "SERIES", "", "", "", "SERIES", "", "",
                 "?ISIN NUMBER", ""}},
    PriceLayout{Exchange::kBse,
                {"SECURITY CODE", "", "SECURITY NAME", "", "GROUP", "INSTRUMENT", "", "", "", "",
                 "", "?ISIN NO", ""}}};

}  // namespace

const std::string& FoundLayout::Cell(const files::TextRow& row, Field field) const {
  return files::CellAt(row, columns[field]);
}

std::optional<FoundLayout> LayoutOf(const files::TextRow& headings) {
  const std::vector<std::string> names = files::HeadingsOf(headings);
  for (const PriceLayout& layout : kLayouts) {
    FoundLayout found{.layout = &layout, .width = names.size()};
    if (files::FindColumns(layout.headings, names, found.columns)) {
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
