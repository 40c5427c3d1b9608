#include "portfolio/trades/TradeCharges.h"

#include "core/records/Masters.h"
#include "core/records/Query.h"
#include "core/text/Amounts.h"

#include <QFile>

#include <algorithm>

namespace quorvane::portfolio {
namespace {

using records::Side;

constexpr QLatin1String kBrokerageDelivery("Brokerage Delivery Based");
constexpr QLatin1String kBrokerageNonDelivery("Brokerage Non Delivery Based");
constexpr QLatin1String kSttDelivery("STT Delivery Based");
constexpr QLatin1String kSttNonDelivery("STT Non Delivery Based");
constexpr QLatin1String kServiceTax("Service Tax");
constexpr QLatin1String kSebi("SEBI Fee");
constexpr QLatin1String kExchangeNse("Exchange Charges NSE");
constexpr QLatin1String kExchangeBse("Exchange Charges BSE");
constexpr QLatin1String kStampDelivery("Stamp Duty Delivery Based");
constexpr QLatin1String kStampNonDelivery("Stamp Duty Non Delivery Based");

constexpr double kHundred = 100;

std::string YearKey(text::FinancialYear year, const QString& kind) {
  return year.Utf8() + '\n' + kind.toLower().toStdString();
}

double PercentOf(double whole, double percent) {
  return text::Tidy(whole * percent) / kHundred;
}

/// Brokerage and its tax out of their sum. The tax is also on the exchange's charges.
void Divide(double sum, double exchange_fee, double tax_percent, LineCharges& charges) {
  const double taxed = (sum + exchange_fee) / (1 + tax_percent / kHundred);
  charges.brokerage = std::max(text::Tidy(taxed - exchange_fee), 0.0);
  charges.tax = text::Tidy(sum - charges.brokerage);
}

}  // namespace

ChargeRates::ChargeRates(database::Connection& connection, const QString& data_folder) {
  records::Select<records::Percentage>(connection).Each([&](const records::Percentage& percentage) {
    of_years_[YearKey(percentage.year, percentage.name)] = percentage.percent;
  });
  for (const char* file : {"/levies.csv", "/tax/exchange-charges.csv"}) {
    const QString path = data_folder + QLatin1String(file);
    if (QFile::exists(path)) {
      const std::vector<tax::Levy> levies = tax::ReadLevies(path);
      levies_.insert(levies_.end(), levies.begin(), levies.end());
    }
  }
}

double ChargeRates::OfYear(text::Date day, QLatin1String kind) const {
  const auto found = of_years_.find(YearKey(text::FinancialYear::Of(day), QString(kind)));
  return found != of_years_.end() ? found->second : tax::PercentOn(levies_, kind, day).value_or(0);
}

double ChargeRates::Brokerage(text::Date day, bool non_delivery) const {
  return OfYear(day, non_delivery ? kBrokerageNonDelivery : kBrokerageDelivery);
}

double ChargeRates::Stt(text::Date day, Side side, bool non_delivery) const {
  if (non_delivery && side == Side::kPurchase) {
    return 0;
  }
  return OfYear(day, non_delivery ? kSttNonDelivery : kSttDelivery);
}

double ChargeRates::Tax(text::Date day) const {
  return OfYear(day, kServiceTax);
}

double ChargeRates::ExchangeFee(text::Date day, const std::string& exchange) const {
  return tax::PercentOn(levies_, exchange == "BSE" ? kExchangeBse : kExchangeNse, day).value_or(0);
}

double ChargeRates::SebiFee(text::Date day) const {
  return tax::PercentOn(levies_, kSebi, day).value_or(0);
}

double ChargeRates::StampDuty(text::Date day, Side side, bool non_delivery) const {
  return side == Side::kSale
             ? 0
             : tax::PercentOn(levies_, non_delivery ? kStampNonDelivery : kStampDelivery, day)
                   .value_or(0);
}

LineCharges ChargesOf(const ChargedLine& line, const TradeCharges& told, bool has_charges,
                      const ChargeRates& rates) {
  LineCharges charges;
  const double tax_percent = rates.Tax(line.day);
  charges.exchange_fee = told.exchange_fee.value_or(0);
  charges.others = told.others.value_or(0);
  if (!has_charges) {
    charges.exchange_fee =
        PercentOf(line.value, rates.ExchangeFee(line.day, line.exchange) + rates.SebiFee(line.day));
    charges.others = PercentOf(line.value, rates.StampDuty(line.day, line.side, line.non_delivery));
  }
  if (told.taxed_brokerage) {
    Divide(*told.taxed_brokerage, charges.exchange_fee, tax_percent, charges);
  } else {
    charges.brokerage = told.brokerage.value_or(
        PercentOf(line.value, rates.Brokerage(line.day, line.non_delivery)));
    charges.tax =
        told.tax.value_or(PercentOf(charges.brokerage + charges.exchange_fee, tax_percent));
  }
  if (told.stt) {
    charges.stt = *told.stt;
  } else {
    charges.stt_percent = rates.Stt(line.day, line.side, line.non_delivery);
    charges.stt = PercentOf(line.value, charges.stt_percent);
  }
  if (told.taxes) {
    charges.stt = std::min(charges.stt, *told.taxes);
    charges.tax = std::min(charges.tax, *told.taxes - charges.stt);
    charges.others = text::Tidy(*told.taxes - charges.stt - charges.tax);
  }
  return charges;
}

}  // namespace quorvane::portfolio
