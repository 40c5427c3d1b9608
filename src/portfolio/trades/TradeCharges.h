#pragma once

#include "core/database/Connection.h"
#include "core/tax/Levies.h"
#include "core/text/FinancialYear.h"
#include "portfolio/trades/TradeFile.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::portfolio {

/// The percentages from which charges are proposed: those that the user keeps for a year, else
/// those that the law and the exchanges set, by day.
class ChargeRates {
 public:
  /// The year's percentages are read from the database, the others from "levies.csv" and
  /// "tax/exchange-charges.csv" in the data folder; a file that is missing gives none. Throws
  /// DatabaseError and files::TableError.
  ChargeRates(database::Connection& connection, const QString& data_folder);

  // Per cent; 0 where none is known.
  double Brokerage(text::Date day, bool non_delivery) const;
  double Stt(text::Date day, records::Side side, bool non_delivery) const;
  double Tax(text::Date day) const;
  double ExchangeFee(text::Date day, const std::string& exchange) const;
  double SebiFee(text::Date day) const;
  double StampDuty(text::Date day, records::Side side, bool non_delivery) const;

 private:
  double OfYear(text::Date day, QLatin1String kind) const;

  std::map<std::string, double> of_years_;  ///< by year and kind
  std::vector<tax::Levy> levies_;
};

/// What a bill line costs beside its shares, in rupees.
struct LineCharges {
  double brokerage = 0;
  double tax = 0;
  double stt = 0;
  double stt_percent = 0;  ///< from which `stt` was proposed; 0 when the file told it
  double exchange_fee = 0;
  double others = 0;
};

/// What the charges are for.
struct ChargedLine {
  text::Date day;
  records::Side side = records::Side::kPurchase;
  bool non_delivery = false;
  std::string exchange;
  double value = 0;  ///< rupees
};

/// What the file tells, and what the rates propose of the rest: where it tells a brokerage, its
/// tax; where it tells nothing at all, everything. Nothing is counted twice: of sums the parts that
/// are told are taken off. Amounts are not rounded, except those that the file tells.
LineCharges ChargesOf(const ChargedLine& line, const TradeCharges& told, bool has_charges,
                      const ChargeRates& rates);

}  // namespace quorvane::portfolio
