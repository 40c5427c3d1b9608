#pragma once

#include "core/files/TextTable.h"
#include "transactions/corporate_actions/ActionFile.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::corporate_actions {

/// What is read from a file; its other columns are not read.
enum ActionField : std::uint8_t {
  kCodeField,
  kSymbolField,
  kIsinField,
  kNameField,
  kSeriesField,
  kPurposeField,
  kExDayField,
  kRecordDayField,
  kKindField,
  kNewField,
  kOldField,
  kOtherField,
  kPriceField,
  kPercentField,
  kNoteField,
  kAllotmentField,
  kFieldCount
};

/// One form of file. A heading that begins with "?" may be missing; an empty one is no part of it.
struct ActionLayout {
  ActionSource source = ActionSource::kOwn;
  bool cuts_purposes = false;
  std::array<std::string_view, kFieldCount> headings{};
};

/// A layout and where its columns are in a file; -1 for one that is missing.
struct FoundActionLayout {
  const ActionLayout* layout = nullptr;
  std::array<int, kFieldCount> columns{};

  const std::string& Cell(const files::TextRow& row, ActionField field) const;
};

/// The layout whose headings a row has, in any order; capitals and blanks do not count. nullopt
/// when there is none, or when the headings of the program's own file have unknown ones among them.
std::optional<FoundActionLayout> LayoutOf(const files::TextRow& headings);

/// What a user is told who chose another file.
QString ExpectedActionHeadings();

}  // namespace quorvane::corporate_actions
