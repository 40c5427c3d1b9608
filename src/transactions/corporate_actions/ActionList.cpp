#include "transactions/corporate_actions/ActionList.h"

#include "core/actions/Terms.h"
#include "core/rates/ScripFinder.h"
#include "core/records/Query.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"
#include "transactions/corporate_actions/SameActions.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace quorvane::corporate_actions {
namespace {

/// Makes the rows of the list, without comparing them with each other.
class Lister {
 public:
  explicit Lister(const KnownActions& known) : known_(known), finder_(known.scrips) {
    for (const rates::ListedScrip& scrip : known.scrips) {
      names_.emplace(scrip.id, QString::fromStdString(scrip.name));
    }
  }

  void Add(const ActionRow& row) {
    std::vector<ScripId> scrips = ScripsOf(row);
    if (scrips.empty()) {
      scrips.push_back({});
    }
    for (const ScripId scrip : scrips) {
      for (const Action& action : row.meaning.actions) {
        AddAction(row, scrip, action);
      }
      if (!row.meaning.left_over.isEmpty()) {
        AddLeftOver(row, scrip);
      }
    }
    ++row_number_;
  }

  std::vector<NumberedAction> Take() { return std::move(rows_); }

 private:
  std::vector<ScripId> ScripsOf(const ActionRow& row) const {
    std::vector<ScripId> found = finder_.OfIsin(row.isin);
    if (found.empty()) {
      found = finder_.OfCode(row.code);
    }
    const std::string& symbol = row.source == ActionSource::kOwn ? row.code : row.symbol;
    return found.empty() ? finder_.OfSymbol(symbol) : found;
  }

  /// None when several scrips have the code.
  ScripId OtherOf(const ActionRow& row) const {
    std::vector<ScripId> found = finder_.OfCode(row.other_code);
    if (found.empty()) {
      found = finder_.OfSymbol(row.other_code);
    }
    return found.size() == 1 ? found.front() : ScripId();
  }

  ListedAction Begin(const ActionRow& row, ScripId scrip) const {
    ListedAction listed;
    listed.state = scrip ? ActionState::kNew : ActionState::kScripMissing;
    listed.source = row.source;
    listed.line = row.line;
    listed.code = QString::fromStdString(row.code.empty() ? row.symbol : row.code);
    listed.name = row.name;
    listed.purpose = row.purpose;
    const auto name = names_.find(scrip);
    listed.scrip_name = name == names_.end() ? QString() : name->second;
    listed.held = known_.held.contains(scrip);
    return listed;
  }

  void AddAction(const ActionRow& row, ScripId scrip, const Action& action) {
    ListedAction listed = Begin(row, scrip);
    listed.action = action;
    listed.action.scrip = scrip;
    listed.action.other = OtherOf(row);
    listed.open = OpenPointsOf(listed.action);
    if (listed.purpose.isEmpty()) {
      listed.purpose = actions::DescribeForUser(listed.action);
    }
    const MaybeRefusal broken =
        scrip && listed.open.empty() ? actions::Check(listed.action) : MaybeRefusal();
    if (broken) {
      listed.state = ActionState::kNotUnderstood;
      listed.remark = broken->text;
    }
    rows_.push_back({std::move(listed), row_number_});
  }

  void AddLeftOver(const ActionRow& row, ScripId scrip) {
    ListedAction listed = Begin(row, scrip);
    listed.state = scrip ? ActionState::kNotUnderstood : ActionState::kScripMissing;
    listed.action.scrip = scrip;
    listed.action.ex_day = row.ex_day;
    listed.action.record_day = row.record_day;
    listed.remark = row.meaning.left_over;
    rows_.push_back({std::move(listed), row_number_});
  }

  const KnownActions& known_;
  rates::ScripFinder finder_;
  std::unordered_map<ScripId, QString> names_;
  std::vector<NumberedAction> rows_;
  std::size_t row_number_ = 0;
};

auto PlaceOf(const ListedAction& row) {
  const QString& name = row.scrip_name.isEmpty() ? row.name : row.scrip_name;
  return std::tuple(!row.held, row.scrip_name.isEmpty(), name.toCaseFolded(), row.action.scrip,
                    text::ParseDmy(row.action.ex_day));
}

std::vector<ListedAction> InOrder(std::vector<NumberedAction> rows) {
  using Place = decltype(PlaceOf(std::declval<ListedAction>()));
  std::vector<std::pair<Place, std::size_t>> places;
  places.reserve(rows.size());
  for (std::size_t at = 0; at < rows.size(); ++at) {
    places.emplace_back(PlaceOf(rows[at].listed), at);
  }
  std::ranges::sort(places);
  std::vector<ListedAction> sorted;
  sorted.reserve(rows.size());
  for (const auto& place : places) {
    sorted.push_back(std::move(rows[place.second].listed));
  }
  return sorted;
}

}  // namespace

QString TextOf(ActionState state) {
  constexpr std::array kTexts{QT_TRANSLATE_NOOP("ActionList", "New"),
                              QT_TRANSLATE_NOOP("ActionList", "Recorded Already"),
                              QT_TRANSLATE_NOOP("ActionList", "Doubled"),
                              QT_TRANSLATE_NOOP("ActionList", "Script not Here"),
                              QT_TRANSLATE_NOOP("ActionList", "Not Understood")};
  return Tr("ActionList", kTexts[static_cast<std::size_t>(state)]);
}

KnownActions ReadKnownActions(database::Connection& connection) {
  KnownActions known;
  known.scrips = rates::ListScrips(connection);
  for (const char* query :
       {"Select Distinct ScriptId From SPTrans", "Select Distinct ScriptId From StkOpBal",
        "Select Distinct ScrId From ScrTransfer", "Select Distinct ToScrId From CorpActionLot"}) {
    for (const auto& row : connection.Open(query)) {
      known.held.insert(ScripId{row.Int(0)});
    }
  }
  known.held.erase(ScripId());
  known.recorded = records::Select<Action>(connection).OrderBy(&Action::id).All();
  return known;
}

ActionList ListActions(std::span<const ActionFile> files, const KnownActions& known) {
  ActionList list;
  Lister lister(known);
  for (const ActionFile& file : files) {
    list.left_out += file.left_out;
    for (const ActionRow& row : file.rows) {
      lister.Add(row);
    }
  }
  std::vector<NumberedAction> rows = lister.Take();
  MarkDoubled(rows);
  MarkRecorded(rows, known.recorded);
  list.rows = InOrder(std::move(rows));
  return list;
}

Result<ActionList> ReadActions(database::Connection& connection, const QStringList& paths) {
  std::vector<ActionFile> files;
  for (const QString& path : paths) {
    Result<ActionFile> file = ReadActionFile(path);
    if (!file) {
      return Refusal{QFileInfo(path).fileName() + QLatin1String(": ") + file.Why().text, {}};
    }
    files.push_back(std::move(*file));
  }
  return ListActions(files, ReadKnownActions(connection));
}

}  // namespace quorvane::corporate_actions
