#include "transactions/corporate_actions/ActionLayouts.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <cctype>

namespace quorvane::corporate_actions {
namespace {

// The order of the columns is that of the fields: code, symbol, ISIN, name, series, purpose,
// ex-day, record day, then those of the program's own file.
constexpr std::array kLayouts{
    ActionLayout{
        ActionSource::kOwn,
        false,
        {"SCRIP_CODE", "", "", "", "", "", "EX_DATE", "?RECORD_DATE", "KIND", "?NEW", "?OLD",
         "?OTHER_SCRIP_CODE", "?PRICE", "?COST_PERCENT", "?NOTE", "?ALLOTMENT_DATE"}},
    // The National exchange's page, its JSON, and its daily file.
    ActionLayout{
        ActionSource::kNse,
        false,
        {"", "SYMBOL", "", "COMPANY NAME", "SERIES", "PURPOSE", "EX-DATE", "?RECORD DATE"}},
    ActionLayout{ActionSource::kNse,
                 false,
                 {"", "SYMBOL", "?ISIN", "?COMP", "SERIES", "SUBJECT", "EXDATE", "?RECDATE"}},
    ActionLayout{ActionSource::kNse,
                 true,
                 {"", "SYMBOL", "", "SECURITY", "SERIES", "PURPOSE", "EX_DT", "?RECORD_DT"}},
    // The Bombay exchange's page, and its JSON.
    ActionLayout{
        ActionSource::kBse,
        false,
        {"SECURITY CODE", "", "", "COMPANY NAME", "", "PURPOSE", "EX DATE", "?RECORD DATE"}},
    ActionLayout{ActionSource::kBse,
                 false,
                 {"SCRIP_CODE", "", "", "?LONG_NAME", "", "PURPOSE", "EX_DATE", "?RD_DATE"}},
    ActionLayout{ActionSource::kBse,
                 false,
                 {"SCRIP_CODE", "", "", "?LONG_NAME", "", "PURPOSE", "EXDATE", "?RD_DATE"}}};

std::string Upper(std::string_view text) {
  std::string upper(files::Trimmed(text));
  std::ranges::transform(upper, upper.begin(),
                         [](unsigned char one) { return static_cast<char>(std::toupper(one)); });
  return upper;
}

std::optional<FoundActionLayout> Fit(const ActionLayout& layout,
                                     const std::vector<std::string>& names) {
  FoundActionLayout found{.layout = &layout};
  std::size_t known = 0;
  for (std::size_t field = 0; field < kFieldCount; ++field) {
    std::string_view heading = layout.headings[field];
    const bool optional = heading.empty() || heading.front() == '?';
    heading.remove_prefix(heading.starts_with('?') ? 1 : 0);
    const auto at = heading.empty() ? names.end() : std::ranges::find(names, heading);
    found.columns[field] = at == names.end() ? -1 : static_cast<int>(at - names.begin());
    known += at == names.end() ? 0 : 1;
    if (at == names.end() && !optional) {
      return std::nullopt;
    }
  }
  // A term under a misspelt heading must not be lost.
  const bool has_others = layout.source == ActionSource::kOwn && known < names.size();
  return has_others ? std::nullopt : std::optional(found);
}

}  // namespace

const std::string& FoundActionLayout::Cell(const files::TextRow& row, ActionField field) const {
  static const std::string kNone;
  const auto column = static_cast<std::size_t>(columns[field]);
  return columns[field] >= 0 && column < row.cells.size() ? row.cells[column] : kNone;
}

std::optional<FoundActionLayout> LayoutOf(const files::TextRow& headings) {
  std::vector<std::string> names;
  for (const std::string& cell : headings.cells) {
    names.push_back(Upper(cell));
  }
  for (const ActionLayout& layout : kLayouts) {
    if (const auto found = Fit(layout, names)) {
      return found;
    }
  }
  return std::nullopt;
}

QString ExpectedActionHeadings() {
  return Tr(
      "ActionList",
      "Expected are the columns scrip_code, kind, ex_date and, as far as there are any, "
      "record_date, "
      "new, old, other_scrip_code, price, cost_percent, note, allotment_date; or those of an "
      "exchange's list of corporate actions: SYMBOL, COMPANY NAME, SERIES, PURPOSE, EX-DATE; "
      "SYMBOL, SERIES, SUBJECT, EXDATE; SYMBOL, SECURITY, SERIES, PURPOSE, EX_DT; Security Code, "
      "Company Name, Ex Date, Purpose; scrip_code, Purpose, Ex_date.");
}

}  // namespace quorvane::corporate_actions
