#pragma once

#include "core/files/TextTable.h"
#include "core/rates/PriceFile.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quorvane::rates {

/// What is read from a file; the rest of its columns is passed over.
enum Field {
  kCodeField,
  kSymbolField,
  kNameField,
  kClassField,
  kGroupField,
  kTypeField,
  kRateField,
  kDateField,
  kSeriesField,
  kSourceField,
  kSegmentField,
  kIsinField,
  kHighField,
  kFieldCount
};

/// One form of file. A heading that begins with "?" may be missing; an empty one is no part of it.
struct PriceLayout {
  Exchange exchange;
  std::array<std::string_view, kFieldCount> headings;
};

/// A layout and where its columns are in a file; -1 for one that is not there.
struct FoundLayout {
  const PriceLayout* layout = nullptr;
  std::array<int, kFieldCount> columns{};
  std::size_t width = 0;  ///< headings of the file

  bool Has(Field field) const { return columns[field] >= 0; }
  const std::string& Cell(const files::TextRow& row, Field field) const;
};

/// The layout whose headings a row has, in any order, capitals or blanks; nullopt when it has those
/// of none.
std::optional<FoundLayout> LayoutOf(const files::TextRow& headings);

/// The headings of the known files, for the user who chose another one.
QString ExpectedHeadings();

}  // namespace quorvane::rates
