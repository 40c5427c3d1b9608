#pragma once

#include "core/ClientYear.h"
#include "core/records/Table.h"

#include <QString>

namespace quorvane::records {

/// The market rate of a scrip on a day.
struct MarketRate {
  text::FinancialYear year;
  int id = 0;
  QString date;  ///< dd/mm/yyyy
  ScripId scrip;
  double rate = 0;  ///< rupees a share
};

/// The average rate of a scrip in an account, as last worked out.
struct AverageRate {
  ClientId client;
  text::FinancialYear year;
  AccountId account;
  ScripId scrip;
  BrokerId broker;  ///< none: of all brokers
  double rate = 0;  ///< rupees a share
};

template <>
struct Table<MarketRate> {
  static constexpr std::string_view kName = "MarketRate";
  static constexpr auto kColumns =
      std::tuple(Column{"Fyear", &MarketRate::year}, Column{"Id", &MarketRate::id},
                 Column{"MDate", &MarketRate::date}, Column{"ScrId", &MarketRate::scrip},
                 Column{"Rate", &MarketRate::rate});
};

template <>
struct Table<AverageRate> {
  static constexpr std::string_view kName = "ScriptAvgRate";
  static constexpr bool kIsDerived = true;
  static constexpr auto kColumns =
      std::tuple(Column{"Cid", &AverageRate::client}, Column{"Fyear", &AverageRate::year},
                 Column{"AcId", &AverageRate::account}, Column{"ScriptId", &AverageRate::scrip},
                 Column{"BrkId", &AverageRate::broker}, Column{"AvgRate", &AverageRate::rate});
};

}  // namespace quorvane::records
