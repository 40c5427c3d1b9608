#pragma once

#include "core/records/Action.h"
#include "core/text/Amounts.h"

namespace quorvane {

using DividendId = Id<struct DividendTag>;

namespace records {

/// A dividend that an account received. Rupees.
struct Dividend {
  DividendId id;    ///< none until it is saved
  ActionId action;  ///< none when it was entered by hand
  ClientId client;
  AccountId account;
  ScripId scrip;
  QString date;  ///< dd/mm/yyyy; decides year and advance-tax window
  text::Shares quantity;
  double per_share = 0;
  double tax_deducted = 0;  ///< at source, for the whole quantity

  double Gross() const { return text::RoundAmount(quantity.Number() * per_share); }
};

template <>
struct Table<Dividend> {
  static constexpr std::string_view kName = "Dividend";
  static constexpr auto kColumns =
      std::tuple(Column{"Id", &Dividend::id}, Column{"ActionId", &Dividend::action},
                 Column{"CId", &Dividend::client}, Column{"AcId", &Dividend::account},
                 Column{"ScrId", &Dividend::scrip}, Column{"DDate", &Dividend::date},
                 Column{"Qty", &Dividend::quantity}, Column{"PerShare", &Dividend::per_share},
                 Column{"Tax", &Dividend::tax_deducted});
};

}  // namespace records
}  // namespace quorvane
