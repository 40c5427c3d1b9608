#include "transactions/corporate_actions/ActionLayouts.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <vector>

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

/// A term under a misspelt heading of the program's own file must not be lost.
bool HasUnknown(const FoundActionLayout& found, std::size_t headings) {
  const auto known = std::ranges::count_if(found.columns, [](int column) { return column >= 0; });
  return found.layout->source == ActionSource::kOwn && static_cast<std::size_t>(known) < headings;
}

}  // namespace

const std::string& FoundActionLayout::Cell(const files::TextRow& row, ActionField field) const {
  return files::CellAt(row, columns[field]);
}

std::optional<FoundActionLayout> LayoutOf(const files::TextRow& headings) {
  const std::vector<std::string> names = files::HeadingsOf(headings);
  for (const ActionLayout& layout : kLayouts) {
    FoundActionLayout found{.layout = &layout};
    if (files::FindColumns(layout.headings, names, found.columns) &&
        !HasUnknown(found, names.size())) {
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
