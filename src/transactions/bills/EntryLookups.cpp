#include "transactions/bills/EntryLookups.h"

namespace quorvane::bills {
namespace {

struct PercentNames {
  const char* brokerage;
  const char* stt;
};

PercentNames NamesOf(Delivery delivery) {
  return delivery == Delivery::kDeliveryBased
             ? PercentNames{"Brokerage Delivery Based", "STT Delivery Based"}
             : PercentNames{"Brokerage Non Delivery Based", "STT Non Delivery Based"};
}

}  // namespace

QString DeliveryText(Delivery delivery) {
  return delivery == Delivery::kDeliveryBased ? QStringLiteral("Delivery Based")
                                              : QStringLiteral("Non Delivery Based");
}

std::optional<Delivery> DeliveryOf(const QString& text) {
  for (const Delivery delivery : {Delivery::kDeliveryBased, Delivery::kNonDeliveryBased}) {
    if (text.compare(DeliveryText(delivery), Qt::CaseInsensitive) == 0) {
      return delivery;
    }
  }
  return std::nullopt;
}

records::ChargePercents ReadPercents(database::Connection& connection, text::FinancialYear year,
                                     Delivery delivery) {
  const PercentNames names = NamesOf(delivery);
  records::ChargePercents percents;
  for (const auto& row : connection.Open(
           "Select Name,Percent From TransTaxPer Where FYear=? and (Name=? or Name=? or "
           "Name='Service Tax')",
           year.Text(), names.brokerage, names.stt)) {
    const QString name = row.Text(0);
    double& percent =
        name.compare(QLatin1String(names.brokerage), Qt::CaseInsensitive) == 0 ? percents.brokerage
        : name.compare(QLatin1String(names.stt), Qt::CaseInsensitive) == 0     ? percents.stt
                                                                           : percents.service_tax;
    percent = row.Double(1);
  }
  return percents;
}

std::optional<double> MarketRateOf(database::Connection& connection, text::FinancialYear year,
                                   ScripId scrip, const QString& date) {
  auto rows = connection.Open("Select Rate From MarketRate Where ScrId=? and FYear=? and MDate=?",
                              scrip, year.Text(), date);
  const std::optional<double> rate = rows.Next() ? rows.OptionalDouble(0) : std::nullopt;
  return rate && *rate > 0 ? rate : std::nullopt;
}

}  // namespace quorvane::bills
