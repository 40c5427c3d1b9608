#pragma once

#include "core/database/Connection.h"
#include "core/rates/RateImport.h"
#include "transactions/corporate_actions/ActionFile.h"

#include <QStringList>

#include <set>
#include <span>

namespace quorvane::corporate_actions {

enum class ActionState : std::uint8_t {
  kNew,
  kRecorded,       ///< the database has it
  kDoubled,        ///< another row tells the same, or more
  kScripMissing,   ///< no scrip has its ISIN or code
  kNotUnderstood,  ///< by its text, or because its terms break a rule
};

/// Its name for the user.
QString TextOf(ActionState state);

/// An action in the lists of corporate actions, or a text there that was not understood.
struct ListedAction {
  ActionState state = ActionState::kNew;
  ActionSource source = ActionSource::kOwn;
  std::size_t line = 0;         ///< in its file
  QString code;                 ///< the scrip's code in the list
  QString name;                 ///< the company's name in the list
  QString purpose;              ///< as written
  QString scrip_name;           ///< the database's; empty when there is no such scrip
  bool held = false;            ///< somebody holds or held the scrip
  Action action;                ///< scrip and days alone when the text was not understood
  std::vector<OpenPoint> open;  ///< to be filled before the action can be recorded
  QString remark;               ///< what was not understood, or the rule that is broken
};

struct ActionList {
  /// Scrips that somebody holds or held first, those not in the database last; else by name, ex-day
  /// and the order of the files.
  std::vector<ListedAction> rows;
  std::size_t left_out = 0;  ///< rows of the files that do not change shares
};

/// What lists are compared with.
struct KnownActions {
  std::vector<rates::ListedScrip> scrips;
  std::set<ScripId> held;  ///< by any bill line, opening stock, transfer or action
  std::vector<Action> recorded;
};

/// One query a table. Throws DatabaseError.
KnownActions ReadKnownActions(database::Connection& connection);

/// Files of several exchanges may be listed together. A scrip is found by ISIN, else by the
/// exchange's code, never by name; two scrips under one ISIN or symbol get a row each. Actions of
/// one scrip, kind and ex-day are the same when no term that both have differs. Dividends of a day
/// are also the same when their sum is: one exchange may list in two rows what the other lists in
/// one.
ActionList ListActions(std::span<const ActionFile> files, const KnownActions& known);

/// Reads the files and lists them. Writes nothing. A refusal names its file.
Result<ActionList> ReadActions(database::Connection& connection, const QStringList& paths);

}  // namespace quorvane::corporate_actions
