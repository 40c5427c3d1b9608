#pragma once

#include "core/app/Folders.h"
#include "core/rates/QuoteDesk.h"
#include "core/rates/RateImport.h"

#include <functional>
#include <optional>
#include <vector>

namespace quorvane::mis {

/// Scrips whose prices of a day are looked for at an exchange.
struct RateQuestions {
  QString exchange;  ///< "BSE" or "NSE"
  std::vector<rates::ListedScrip> scrips;
  text::Date date;
  text::Date today;
};

/// Asks an exchange for the prices of scrips in the background, one after the other.
class ExchangeRates {
 public:
  /// Called for each scrip with its rate in rupees, 0 when nothing was found.
  using Answer = std::function<void(ScripId scrip, double rate)>;

  explicit ExchangeRates(app::Folders folders) : folders_(std::move(folders)) {}

  /// Begins with the first scrip; questions before are dropped. `done` follows the last answer;
  /// neither is called after Stop, or when this object is gone.
  void Ask(RateQuestions questions, Answer answer, std::function<void()> done);
  void Stop();
  bool IsRunning() const { return questions_.has_value(); }

 private:
  void AskNext();
  void Take(double rate);

  app::Folders folders_;
  std::unique_ptr<rates::QuoteDesk> desk_;  ///< made for the first question
  std::optional<RateQuestions> questions_;
  std::size_t next_ = 0;
  Answer answer_;
  std::function<void()> done_;
};

}  // namespace quorvane::mis
