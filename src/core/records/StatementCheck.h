#pragma once

#include "core/records/Cells.h"
#include "core/records/Table.h"

namespace quorvane::records {

/// The last comparison of an account's holdings with a statement of a day.
struct StatementCheck {
  ClientId client;
  AccountId account;
  QString statement_day;  ///< at whose end, dd/mm/yyyy
  int compared = 0;       ///< holdings on either side
  int differing = 0;      ///< those that do not agree, and its rows that could not be understood
  QString checked_on;     ///< dd/mm/yyyy

  bool operator==(const StatementCheck&) const = default;
};

template <>
struct Table<StatementCheck> {
  static constexpr std::string_view kName = "StatementCheck";
  static constexpr auto kColumns =
      std::tuple(Column{"CId", &StatementCheck::client}, Column{"AcId", &StatementCheck::account},
                 Column{"StatementDay", &StatementCheck::statement_day},
                 Column{"Compared", &StatementCheck::compared},
                 Column{"Differing", &StatementCheck::differing},
                 Column{"CheckedOn", &StatementCheck::checked_on});
};

}  // namespace quorvane::records
