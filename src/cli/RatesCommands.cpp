#include "cli/Command.h"
#include "core/app/Ini.h"
#include "core/rates/PriceFetch.h"
#include "core/rates/RateImport.h"

#include <QEventLoop>

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

struct RatesOptions {
  std::string file;
  std::string date;
  bool fetch = false;
  std::string exchange;
};

/// The path of the daily price file from the exchange's archive.
Result<QString> FetchedFile(Context& context, const RatesOptions& options, text::Date date) {
  const app::Session& session = context.Session();
  rates::PriceFetch fetch(rates::ExchangeHosts::From(app::IniFile(session.folders.config_file)),
                          session.folders.market_rate);
  rates::Fetched fetched;
  QEventLoop waiting;
  fetch.FileOf(options.exchange == "NSE" ? rates::Exchange::kNse : rates::Exchange::kBse, date,
               [&](const rates::Fetched& answer) {
                 fetched = answer;
                 waiting.quit();
               });
  waiting.exec();
  if (!fetched.failure.isEmpty()) {
    return Refusal{fetched.failure};
  }
  return fetched.path;
}

MaybeRefusal Rates(Context& context, const RatesOptions& options) {
  if (options.fetch != options.file.empty() || options.fetch == options.exchange.empty()) {
    throw WrongUsage("expected FILE --date D, or --fetch --date D --exchange BSE|NSE");
  }
  const text::Date date = DateOf("--date", options.date);
  if (MaybeRefusal refusal = rates::CheckRateDate(text::FormatDmy(date), text::Today())) {
    return refusal;
  }
  const Result<QString> path = options.fetch
                                   ? FetchedFile(context, options, date)
                                   : Result<QString>(QString::fromStdString(options.file));
  if (!path) {
    return path.Why();
  }
  const Result<rates::MatchedRates> matched = rates::ReadRates(context.Connection(), *path, date);
  if (!matched) {
    return matched.Why();
  }
  if (matched->rates.empty()) {
    return RefusalOf(
        fmt::format("no rate was saved: none of the {} rows of the file belongs to a scrip",
                    matched->unmatched.size()));
  }
  rates::RateBook(context.Connection()).Save(date, matched->rates, matched->isins);
  context.Inform(fmt::format("{} rates of {} saved; {} rows of the file belong to no scrip.",
                             matched->rates.size(), options.date, matched->unmatched.size()));
  return std::nullopt;
}

}  // namespace

void AddRatesCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<RatesOptions>();
  CLI::App* rates =
      app.add_subcommand("rates", "Save the closing rates of a day from a price file");
  rates->add_option("file", options->file,
                    "Daily price file of an exchange: .csv, .xls, .xlsx, .ods or .zip");
  rates->add_option("--date", options->date, "The day of the rates, dd/mm/yyyy")->required();
  rates->add_flag("--fetch", options->fetch, "Get the file from the exchange's archive");
  rates->add_option("--exchange", options->exchange, "BSE or NSE, for --fetch")
      ->check(CLI::IsMember({"BSE", "NSE"}));
  SetWork(*rates, context, [&context, options] { return Rates(context, *options); });
}

}  // namespace quorvane::cli
