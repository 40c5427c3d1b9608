#pragma once

#include "core/ClientYear.h"
#include "core/records/Table.h"
#include "core/text/Amounts.h"
#include "core/text/Shares.h"

#include <QString>

namespace quorvane::records {

/// Shares that a client holds already when a financial year begins: an opening lot.
struct Opening {
  ClientId client;
  text::FinancialYear year;
  OpeningId id;  ///< none until it is saved
  ScripId scrip;
  text::Shares quantity;
  double rate = 0;   ///< rupees a share
  double total = 0;  ///< rupees: quantity at rate and brokerage
  AccountId account;
  QString purchase_date;   ///< dd/mm/yyyy
  double service_tax = 0;  ///< rupees for the whole quantity
  double brokerage = 0;    ///< rupees a share; only carried lots have it
  double stt = 0;          ///< rupees for the whole quantity
  bool fo = false;         ///< futures and options
};

/// What an opening lot cost: Opening::total, in rupees rounded to paise.
inline double OpeningTotal(text::Shares quantity, double rate, double brokerage) {
  return text::RoundAmount(quantity.Number() * text::Tidy(rate + brokerage));
}

template <>
struct Table<Opening> {
  static constexpr std::string_view kName = "StkOpBal";
  static constexpr auto kColumns = std::tuple(
      Column{"CId", &Opening::client}, Column{"Fyear", &Opening::year}, Column{"Id", &Opening::id},
      Column{"ScriptId", &Opening::scrip}, Column{"Qty", &Opening::quantity},
      Column{"Rate", &Opening::rate}, Column{"Total", &Opening::total},
      Column{"AcId", &Opening::account}, Column{"PDate", &Opening::purchase_date},
      Column{"STax", &Opening::service_tax}, Column{"Brk", &Opening::brokerage},
      Column{"STT", &Opening::stt}, Column{"FO", &Opening::fo});
};

}  // namespace quorvane::records
