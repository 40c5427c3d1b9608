#include "reports/mis/ExchangeRates.h"

#include "core/app/Ini.h"

#include <utility>

namespace quorvane::mis {

void ExchangeRates::Ask(RateQuestions questions, Answer answer, std::function<void()> done) {
  Stop();
  if (!desk_) {
    desk_ = std::make_unique<rates::QuoteDesk>(
        rates::ExchangeHosts::From(app::IniFile(folders_.config_file)), folders_.market_rate);
  }
  questions_ = std::move(questions);
  next_ = 0;
  answer_ = std::move(answer);
  done_ = std::move(done);
  AskNext();
}

void ExchangeRates::Stop() {
  questions_.reset();
  if (desk_) {
    desk_->Cancel();
  }
}

void ExchangeRates::AskNext() {
  if (next_ >= questions_->scrips.size()) {
    questions_.reset();
    done_();
    return;
  }
  const rates::ListedScrip& scrip = questions_->scrips[next_];
  const bool national = questions_->exchange == QLatin1String("NSE");
  desk_->PriceOn({.exchange = questions_->exchange,
                  .code = QString::fromStdString(national ? scrip.symbol : scrip.code),
                  .name = QString::fromStdString(scrip.name),
                  .date = questions_->date},
                 questions_->today, [this](double rate) { Take(rate); });
}

void ExchangeRates::Take(double rate) {
  answer_(questions_->scrips[next_].id, rate);
  if (questions_) {
    ++next_;
    AskNext();
  }
}

}  // namespace quorvane::mis
