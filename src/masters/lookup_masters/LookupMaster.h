#pragma once

#include "core/Result.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quorvane::lookup_masters {

enum class LookupKind { kScripTypes, kScripClasses, kExchanges, kSttPercentages, kTaxPercentages };

/// A value of a row, and its column.
struct LookupColumn {
  enum class Kind : std::uint8_t { kText, kNumber };

  std::string_view name;
  Kind kind = Kind::kText;
  const char* label = "";  ///< "Script Type"
  Field field = Field::kNone;
  const char* if_empty = "";  ///< the message when it is missing; empty when it may be missing
};

/// What the windows of the small lookup tables differ in.
struct LookupMaster {
  LookupKind kind;
  const char* window = "";
  std::string_view table;
  std::span<const LookupColumn> columns;  ///< after the key, in the order of the table
  std::size_t unique_columns = 1;         ///< how many of the first columns no two rows share
  const char* if_taken = "";              ///< the message when another row has the same
  std::string_view order;                 ///< of the list; empty for the order of the table
};

const LookupMaster& MasterOf(LookupKind kind);

/// A row with its values as text in the order of the columns. Numbers are plain decimal numbers.
struct LookupRow {
  int id = 0;  ///< 0 until it is saved
  std::vector<QString> values;
};

/// The first rule that a row breaks by itself: missing values in the order of the columns (a
/// number that cannot be read or is negative counts as missing), then the form of a financial year,
/// then texts that are too long.
MaybeRefusal CheckRow(const LookupMaster& master, const LookupRow& row);

/// "2011-12": two years joined by "-", the second following the first. Checked on leaving the box.
MaybeRefusal CheckFinancialYear(const QString& typed);

/// The charges that a yearly percentage may be for.
QStringList PercentageKinds();

}  // namespace quorvane::lookup_masters
