#pragma once

#include "core/files/TextTable.h"
#include "transactions/corporate_actions/ActionFile.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::corporate_actions {

/// What is read from a file; the rest of its columns is passed over.
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

/// A layout and where its columns stand in a file; -1 for one that is not there.
struct FoundActionLayout {
  const ActionLayout* layout = nullptr;
  std::array<int, kFieldCount> columns{};

  const std::string& Cell(const files::TextRow& row, ActionField field) const;
};

/// The layout whose headings a row has, in any order, capitals or blanks; nullopt when it has those
/// of none, or others than the program's own file knows.
std::optional<FoundActionLayout> LayoutOf(const files::TextRow& headings);

/// For the user who chose another file.
QString ExpectedActionHeadings();

}  // namespace quorvane::corporate_actions
