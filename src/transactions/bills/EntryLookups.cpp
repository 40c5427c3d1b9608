#include "transactions/bills/EntryLookups.h"

#include "core/app/Ini.h"
#include "core/rates/QuoteDesk.h"
#include "core/text/Tr.h"

#include <memory>
#include <utility>

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

using Answer = std::function<void(double rate)>;

rates::PriceQuestion PriceQuestionOf(const RateQuestion& question) {
  const bool national = question.exchange.trimmed().toUpper() == QLatin1String("NSE");
  return {.exchange = question.exchange,
          .code = national ? question.scrip.ncode : question.scrip.code,
          .name = question.scrip.name,
          .date = question.date};
}

/// The desk is made for the first question: most windows ask none.
class ExchangeDesk {
 public:
  explicit ExchangeDesk(app::Folders folders) : folders_(std::move(folders)) {}

  void Ask(const RateQuestion& question, Answer answer) {
    if (!desk_) {
      desk_ = std::make_unique<rates::QuoteDesk>(
          rates::ExchangeHosts::From(app::IniFile(folders_.config_file)), folders_.market_rate);
    }
    desk_->PriceOn(PriceQuestionOf(question), question.today, std::move(answer));
  }

 private:
  app::Folders folders_;
  std::unique_ptr<rates::QuoteDesk> desk_;
};

}  // namespace

QString DeliveryText(Delivery delivery) {
  return delivery == Delivery::kDeliveryBased ? QStringLiteral("Delivery Based")
                                              : QStringLiteral("Non Delivery Based");
}

QString ShownDelivery(const QString& stored) {
  const std::optional<Delivery> delivery = DeliveryOf(stored);
  if (!delivery) {
    return stored;
  }
  return *delivery == Delivery::kDeliveryBased ? Tr("Bills", "Delivery Based")
                                               : Tr("Bills", "Non Delivery Based");
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

RateSource AskExchanges(const app::Folders& folders) {
  return
      [desk = std::make_shared<ExchangeDesk>(folders)](
          const RateQuestion& question, Answer answer) { desk->Ask(question, std::move(answer)); };
}

}  // namespace quorvane::bills
