#include "cli/Command.h"
#include "core/actions/Terms.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "transactions/corporate_actions/ActionBook.h"
#include "transactions/corporate_actions/ActionList.h"

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

using corporate_actions::ActionBook;
using corporate_actions::ActionList;
using corporate_actions::ActionState;
using corporate_actions::ListedAction;

struct ActionOptions {
  std::string file;
  bool apply = false;
  bool preview = false;
  bool all = false;
};

void AppendText(std::string& out, const QString& text) {
  text::AppendCsvField(out, text.toStdString());
}

std::string OpenPointsOf(const ListedAction& row) {
  QStringList points;
  for (const corporate_actions::OpenPoint point : row.open) {
    points << TextOf(point);
  }
  return (points << row.remark).join(QLatin1Char(' ')).trimmed().toStdString();
}

/// A row an action of the list.
std::string ListCsv(const ActionList& list, bool all) {
  std::string out = "state,scrip,ex_date,action,purpose,open_points\n";
  for (const ListedAction& row : list.rows) {
    if (!all && !row.held) {
      continue;
    }
    AppendText(out, TextOf(row.state));
    out += ',';
    AppendText(out, row.scrip_name.isEmpty() ? row.name : row.scrip_name);
    out += ',';
    AppendText(out, row.action.ex_day);
    out += ',';
    AppendText(
        out, row.state == ActionState::kNotUnderstood ? QString() : actions::Describe(row.action));
    out += ',';
    AppendText(out, row.purpose);
    out += ',';
    text::AppendCsvField(out, OpenPointsOf(row));
    out += '\n';
  }
  return out;
}

std::vector<records::Action> Ready(const ActionList& list) {
  std::vector<records::Action> ready;
  for (const ListedAction& row : list.rows) {
    if (row.held && row.state == ActionState::kNew && row.open.empty()) {
      ready.push_back(row.action);
    }
  }
  return ready;
}

/// A row an account of each action.
MaybeRefusal PrintPreview(Context& context, ActionBook& book, const ActionList& list) {
  const lookups::Directory directory(context.Connection());
  const auto progress = context.MakeProgress();
  std::string out =
      "scrip_code,action,ex_date,client_code,account_no,before,after,received,fraction,"
      "fraction_money,cost_moved\n";
  for (const records::Action& action : Ready(list)) {
    const auto effects = book.Preview(action, {}, *progress);
    if (!effects) {
      return effects.Why();
    }
    for (const auto& [client, account, effect] : *effects) {
      text::AppendCsvField(out, directory.Scrip(action.scrip).code);
      out += ',';
      AppendText(out, actions::Describe(action));
      out += ',';
      AppendText(out, action.ex_day);
      out += ',';
      text::AppendCsvField(out, directory.Client(client).code);
      out += ',';
      text::AppendCsvField(out, directory.Account(account).number);
      for (const text::Shares shares :
           {effect.before, effect.after, effect.received, effect.fraction}) {
        out += ',';
        text::AppendExact(out, shares.Number());
      }
      for (const text::Paise amount : {effect.fraction_money, effect.cost_moved}) {
        out += ',';
        text::AppendPaise(out, amount.Count());
      }
      out += '\n';
    }
  }
  Print(out);
  return std::nullopt;
}

/// Records what is ready and applies it, all or nothing.
MaybeRefusal Apply(Context& context, ActionBook& book, const ActionList& list) {
  const std::vector<records::Action> ready = Ready(list);
  if (ready.empty()) {
    return RefusalOf("the file holds no action that is new, complete and of a scrip that is held");
  }
  const auto progress = context.MakeProgress();
  const Result<std::size_t> accounts = book.RecordAndApply(ready, text::Today(), *progress);
  if (!accounts) {
    return accounts.Why();
  }
  context.Inform(fmt::format("{} actions applied to {} accounts", ready.size(), *accounts));
  return std::nullopt;
}

MaybeRefusal Actions(Context& context, const ActionOptions& options) {
  const Result<ActionList> list =
      corporate_actions::ReadActions(context.Connection(), {QString::fromStdString(options.file)});
  if (!list) {
    return list.Why();
  }
  ActionBook book(context.Connection());
  if (options.apply) {
    return Apply(context, book, *list);
  }
  if (options.preview) {
    return PrintPreview(context, book, *list);
  }
  Print(ListCsv(*list, options.all));
  return std::nullopt;
}

}  // namespace

void AddActionCommands(CLI::App& app, Context& context) {
  auto options = std::make_shared<ActionOptions>();
  CLI::App* command = app.add_subcommand(
      "corporate-action", "Splits, bonus shares and the like from an exchange's list");
  command
      ->add_option("file", options->file,
                   "corporate_actions.csv or an exchange's list: .csv, .json, .xlsx, .xls or .zip")
      ->required();
  auto* preview = command->add_flag("--preview", options->preview,
                                    "What the new actions would make of every account");
  auto* apply = command->add_flag("--apply", options->apply,
                                  "Record the new actions of scrips that are held, and apply them");
  preview->excludes(apply);
  command->add_flag("--all", options->all, "List scrips that nobody held, too");
  SetWork(*command, context, [&context, options] { return Actions(context, *options); });
}

}  // namespace quorvane::cli
