#include "transactions/bills/RateSource.h"

#include "core/app/Ini.h"
#include "core/rates/QuoteDesk.h"

#include <memory>
#include <utility>

namespace quorvane::bills {
namespace {

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

RateSource AskExchanges(const app::Folders& folders) {
  return
      [desk = std::make_shared<ExchangeDesk>(folders)](
          const RateQuestion& question, Answer answer) { desk->Ask(question, std::move(answer)); };
}

}  // namespace quorvane::bills
