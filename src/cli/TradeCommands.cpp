#include "cli/Command.h"
#include "core/lookups/Scrips.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "portfolio/trades/TradeBook.h"

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

using portfolio::LineState;
using portfolio::OpenedTrades;
using portfolio::ScripMatch;
using portfolio::TradeBook;
using portfolio::TradeLine;
using portfolio::TradePlan;

struct TradesOptions {
  std::vector<std::string> files;
  std::string account;
  std::string broker;
  std::string client;
  std::string map;
  std::string exchange = "NSE";
  bool dry_run = false;
  bool keep_fills = false;
  bool new_scrips = false;
  bool by_hand = false;
};

/// The names of scrips that the map file gives, with the program's code or "new".
using GivenScrips = std::vector<std::pair<std::string, std::string>>;

void AppendText(std::string& out, const QString& text) {
  text::AppendCsvField(out, text.toStdString());
}

void AppendNumbers(std::string& out, std::initializer_list<double> numbers) {
  for (const double number : numbers) {
    out += ',';
    text::AppendExact(out, number);
  }
}

/// A row a line of the bills that the trades make.
std::string PlanCsv(const TradePlan& plan, const lookups::Directory& directory) {
  std::string out =
      "state,saved,date,exchange,bill_no,scrip,scrip_code,side,quantity,rate,brokerage,"
      "service_tax,stt,delivery_type,missing\n";
  for (const TradeLine& line : plan.Lines()) {
    const portfolio::TradedScrip& scrip = plan.Scrips()[line.scrip];
    AppendText(out, TextOf(line.state));
    out += line.IsToBeSaved() ? ",1," : ",0,";
    AppendText(out, text::FormatDmy(line.day));
    for (const std::string& text : {line.exchange, line.bill_number, scrip.naming.Shown(),
                                    directory.Scrip(scrip.scrip).code}) {
      out += ',';
      text::AppendCsvField(out, text);
    }
    out += line.side == records::Side::kPurchase ? ",P" : ",S";
    AppendNumbers(out, {line.quantity.Number(), line.rate, line.charges.brokerage, line.charges.tax,
                        line.charges.stt});
    out += line.non_delivery ? ",Non Delivery Based" : ",Delivery Based";
    AppendNumbers(out, {line.missing.Number()});
    out += '\n';
  }
  return out;
}

Result<ScripId> ScripOf(Context& context, const std::string& code) {
  const auto found = lookups::FindScripByCode(context.Connection(), QString::fromStdString(code));
  return found ? Result<ScripId>(found->id) : RefusalOf("there is no scrip " + code);
}

bool IsNamed(const portfolio::ScripNaming& naming, const std::string& name) {
  return !name.empty() && (naming.name == name || naming.symbol == name || naming.isin == name ||
                           naming.own_code == name || naming.code == name);
}

/// Settles what the options say of scrips that are not known.
MaybeRefusal Settle(Context& context, TradePlan& plan, const TradesOptions& options,
                    const GivenScrips& given) {
  for (std::uint32_t place = 0; place < plan.Scrips().size(); ++place) {
    for (const auto& [name, code] : given) {
      if (!IsNamed(plan.Scrips()[place].naming, name)) {
        continue;
      }
      if (code == "new") {
        plan.SettleAsNew(place);
        continue;
      }
      const Result<ScripId> scrip = ScripOf(context, code);
      if (!scrip) {
        return scrip.Why();
      }
      plan.Settle(place, *scrip);
    }
    if (options.new_scrips && plan.Scrips()[place].match == ScripMatch::kUnknown) {
      plan.SettleAsNew(place);
    }
  }
  return std::nullopt;
}

void TickEntered(TradePlan& plan) {
  for (std::size_t line = 0; line < plan.Lines().size(); ++line) {
    if (plan.Lines()[line].state == LineState::kEntered) {
      plan.Tick(line, true);
    }
  }
}

std::vector<OpenedTrades> OpenFiles(const TradesOptions& options, TradeBook& book,
                                    GivenScrips& given) {
  std::vector<portfolio::TradeLayout> own;
  if (!options.map.empty()) {
    own = portfolio::ReadTradeLayoutFile(QString::fromStdString(options.map));
    for (const portfolio::TradeLayout& layout : own) {
      given.insert(given.end(), layout.scrips.begin(), layout.scrips.end());
    }
    std::erase_if(own, [](const auto& layout) { return layout.columns.empty(); });
  }
  QStringList names;
  for (const portfolio::TradeLayout& layout : own) {
    names << layout.name;
  }
  book.AddLayouts(std::move(own));
  std::vector<OpenedTrades> opened;
  for (const std::string& file : options.files) {
    opened.push_back(book.Open(QString::fromStdString(file)));
    opened.back().mapped = opened.back().header && names.contains(opened.back().header->layout);
  }
  return opened;
}

void Tell(Context& context, const TradePlan& plan, const portfolio::TradeOutcome& outcome) {
  context.Inform(fmt::format("{:>9} trades", outcome.trades));
  context.Inform(fmt::format("{:>9} bills", outcome.bills));
  context.Inform(fmt::format("{:>9} bill lines", outcome.lines));
  if (outcome.scrips > 0) {
    context.Inform(fmt::format("{:>9} new scrips", outcome.scrips));
  }
  if (outcome.carried > 0) {
    context.Inform(fmt::format("{:>9} lots carried forward", outcome.carried));
  }
  for (const LineState state : {LineState::kDoubled, LineState::kEntered}) {
    std::size_t left_out = 0;
    for (const TradeLine& line : plan.Lines()) {
      left_out += line.state == state && !line.ticked ? 1 : 0;
    }
    if (left_out > 0) {
      context.Inform(
          fmt::format("{:>9} lines left out: {}", left_out, TextOf(state).toStdString()));
    }
  }
  if (plan.File().derivatives > 0) {
    context.Inform(
        fmt::format("{:>9} rows of futures and options left out", plan.File().derivatives));
  }
  for (const QString& note : outcome.notes) {
    context.Inform(note.toStdString());
  }
}

bool HasNothingNew(const TradePlan& plan) {
  return std::ranges::none_of(plan.Lines(), &TradeLine::ticked);
}

MaybeRefusal Work(Context& context, const TradesOptions& options) {
  TradeBook book(context.Connection(), context.Session().folders.data);
  GivenScrips given;
  const std::vector<OpenedTrades> opened = OpenFiles(options, book, given);
  const auto target =
      book.TargetOf(QString::fromStdString(options.account), QString::fromStdString(options.client),
                    QString::fromStdString(options.broker));
  if (!target) {
    return target.Why();
  }
  portfolio::TradeOptions how;
  how.fills = options.keep_fills ? TradePlan::Fills::kKept : TradePlan::Fills::kJoined;
  how.exchange = portfolio::ExchangeIn(options.exchange);
  how.today = text::Today();
  const auto progress = context.MakeProgress();
  auto file = book.Read(opened, *target, how, *progress);
  if (!file) {
    return file.Why();
  }
  TradePlan plan = book.Plan(std::move(*file), *target, how, *progress);
  if (MaybeRefusal refusal = Settle(context, plan, options, given)) {
    return refusal;
  }
  plan.Build(how.fills, *progress);
  if (options.by_hand) {
    TickEntered(plan);
  }
  const bool nothing_new = HasNothingNew(plan);
  const auto outcome = options.dry_run || nothing_new
                           ? CheckTrades(context.Connection(), *target, plan, *progress)
                           : SaveTrades(context.Connection(), *target, plan,
                                        TradeBook::MappedHeaders(opened), *progress);
  if (!outcome) {
    return outcome.Why();
  }
  if (options.dry_run) {
    Print(PlanCsv(plan, lookups::Directory(context.Connection())));
  }
  Tell(context, plan, *outcome);
  context.Inform(options.dry_run ? "Checked; nothing was written."
                 : nothing_new   ? "Nothing is new; nothing was written."
                                 : "Taken in.");
  return std::nullopt;
}

MaybeRefusal Trades(Context& context, const TradesOptions& options) {
  try {
    return Work(context, options);
  } catch (const files::TableError& error) {
    return RefusalOf(error.what());
  }
}

}  // namespace

void AddTradeCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<TradesOptions>();
  CLI::App* command =
      app.add_subcommand("trades", "Take brokers' trade books in as bills, all or nothing");
  command->add_option("files", options->files, "Trade books: .csv, .xlsx, .xls or .ods")
      ->required();
  command->add_option("--account", options->account, "Number of the demat account")->required();
  command->add_option("--broker", options->broker, "Name of the broker")->required();
  command->add_option("--client", options->client,
                      "Code of the client, where several have an account of that number");
  command->add_option("--map", options->map,
                      "A file that says what the columns and scrips of the files mean");
  command->add_option("--exchange", options->exchange, "Of trades whose file names none");
  command->add_flag("--dry-run", options->dry_run, "List what would be saved; write nothing");
  command->add_flag("--keep-fills", options->keep_fills, "A bill line for each fill of an order");
  command->add_flag("--new-scrips", options->new_scrips, "Record scrips that are not known");
  command->add_flag("--by-hand", options->by_hand,
                    "Take in also what was probably entered by hand");
  SetWork(*command, context, [&context, options] { return Trades(context, *options); });
}

}  // namespace quorvane::cli
