#pragma once

#include "core/records/Cells.h"
#include "core/records/Table.h"

namespace quorvane::records {

/// The highest price of a scrip on 31-Jan-2018, rupees a share.
struct FairValue {
  ScripId scrip;
  double fair_rate = 0;
};

/// What is left of a loss of an earlier year when a client's year begins.
struct TaxLoss {
  ClientId client;
  text::FinancialYear year;       ///< into which it is brought forward
  text::FinancialYear loss_year;  ///< in which it arose
  int kind = 0;                   ///< tax::LossKind
  double amount = 0;              ///< rupees
};

template <>
struct Table<FairValue> {
  static constexpr std::string_view kName = "FairValue";
  static constexpr auto kColumns =
      std::tuple(Column{"ScrId", &FairValue::scrip}, Column{"Rate", &FairValue::fair_rate});
};

template <>
struct Table<TaxLoss> {
  static constexpr std::string_view kName = "TaxLoss";
  static constexpr auto kColumns =
      std::tuple(Column{"CId", &TaxLoss::client}, Column{"Fyear", &TaxLoss::year},
                 Column{"LossYear", &TaxLoss::loss_year}, Column{"Kind", &TaxLoss::kind},
                 Column{"Amount", &TaxLoss::amount});
};

}  // namespace quorvane::records
