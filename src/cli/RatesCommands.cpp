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

text::Date CheckedDate(const RatesOptions& options) {
  const text::Date date = DateOf("--date", options.date);
  if (const MaybeRefusal refusal =
          rates::CheckRateDate(text::FormatDmy(date), text::Today(), QString())) {
    throw Refused(refusal->text.toStdString());
  }
  return date;
}

/// The path of the daily price file from the exchange's archive.
QString FetchedFile(Context& context, const RatesOptions& options, text::Date date) {
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
    throw Refused(fetched.failure.toStdString());
  }
  return fetched.path;
}

void Rates(Context& context, const RatesOptions& options) {
  if (options.fetch != options.file.empty() || options.fetch == options.exchange.empty()) {
    throw WrongUsage("expected FILE --date D, or --fetch --date D --exchange BSE|NSE");
  }
  const text::Date date = CheckedDate(options);
  const QString path =
      options.fetch ? FetchedFile(context, options, date) : QString::fromStdString(options.file);
  const rates::MatchedRates matched = ValueOf(rates::ReadRates(context.Connection(), path, date));
  if (matched.rates.empty()) {
    throw Refused(
        fmt::format("no rate was saved: none of the {} rows of the file belongs to a scrip",
                    matched.unmatched.size()));
  }
  rates::RateBook(context.Connection()).Save(date, matched.rates, matched.isins);
  context.Inform(fmt::format("{} rates of {} saved; {} rows of the file belong to no scrip.",
                             matched.rates.size(), options.date, matched.unmatched.size()));
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
  rates->callback([&context, options] { Rates(context, *options); });
}

}  // namespace quorvane::cli
