#pragma once

#include "core/ClientYear.h"
#include "core/records/Table.h"

namespace quorvane::records {

/// Says that opening stock of a scrip was taken from a statement, without cost and day of purchase.
struct OpeningMark {
  ClientId client;
  text::FinancialYear year;
  AccountId account;
  ScripId scrip;

  static constexpr int id = 0;  ///< it has no key of its own
};

template <>
struct Table<OpeningMark> {
  static constexpr std::string_view kName = "OpeningMark";
  static constexpr auto kColumns =
      std::tuple(Column{"CId", &OpeningMark::client}, Column{"Fyear", &OpeningMark::year},
                 Column{"AcId", &OpeningMark::account}, Column{"ScrId", &OpeningMark::scrip});
};

}  // namespace quorvane::records
