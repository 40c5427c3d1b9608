#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/records/Action.h"
#include "portfolio/reconcile/Statement.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quorvane::reconcile {

using text::Shares;

/// How the books and a statement stand to each other.
enum class Agreement : std::uint8_t {
  kAgrees,
  kDiffers,
  kMissingHere,   ///< the books have none of it
  kMissingThere,  ///< the statement has none of it
  kUnknown        ///< no scrip has the ISIN
};

/// Why they may differ.
enum class CauseKind : std::uint8_t {
  kNone,
  kActionToApply,    ///< a recorded action that is not applied
  kActionOnItsWay,   ///< an applied action whose shares are credited later
  kSuggestedAction,  ///< the ratio is that of a usual action
  kBill,             ///< a bill near the day
  kTransfer,         ///< a transfer near the day
  kOtherAccount      ///< another account of the client differs the other way
};

/// The likely cause, and what would have to be opened to look at it.
struct Cause {
  CauseKind kind = CauseKind::kNone;
  records::Action action = {};               ///< recorded, or to be entered
  std::optional<records::Action> also = {};  ///< another action of the same effect
  int document = 0;                          ///< key of the bill or transfer
  QString number = {};                       ///< of the bill; of the other account
  std::optional<text::Date> day = {};
};

/// One security of one account.
struct ReconciledRow {
  AccountId account;
  QString account_number;
  ScripId scrip;  ///< none when no scrip has the ISIN
  QString name;   ///< of the scrip; as the statement has it when there is none
  QString isin;
  QString symbol;
  Shares recorded;
  Shares stated;
  Agreement agreement = Agreement::kAgrees;
  Cause cause = {};

  Shares Difference() const { return stated - recorded; }
};

struct Reconciliation {
  ClientId client;
  text::Date day{};                 ///< at whose end the books were compared
  text::Date stated_day{};          ///< that the statement names; as `day` when it names none
  std::vector<AccountId> accounts;  ///< that the statement covers, each once
  std::vector<ReconciledRow> rows;  ///< by account and name
  QStringList notes;                ///< what could not be compared, in English
  std::vector<AccountId> doubts;    ///< of each row not understood its account; none: not known

  std::size_t Differences() const;
};

/// What a statement is compared for.
struct ReconcileQuery {
  ClientId client;
  std::optional<text::Date> day = {};  ///< in place of the day that the statement names
  AccountId account = {};              ///< of rows without an account number; may be none
  text::Date today{};
};

/// The accounts of a client that a statement means, by the statement's numbers. Refused when the
/// statement holds nothing to compare, names no day or one in the future, or is of accounts of
/// which none is the client's.
struct StatementOwner {
  text::Date day{};
  std::map<std::string, AccountId> accounts;
  QStringList unknown;  ///< numbers that are no account of the client
};
Result<StatementOwner> OwnerOf(database::Connection& connection, const Statement& statement,
                               const ReconcileQuery& query);

/// Compares a statement with what the client's accounts held at the end of its day, by all records
/// of all years. One query a table. Refused as by OwnerOf. Throws DatabaseError and Cancellation.
Result<Reconciliation> Reconcile(database::Connection& connection, const Statement& statement,
                                 const ReconcileQuery& query, Progress& progress);

/// The words for them, in English for reports or in the user's language for windows.
enum class Language : std::uint8_t { kEnglish, kOfUser };
QString TextOf(Agreement agreement, Language language);
QString TextOf(const Cause& cause, Language language);

}  // namespace quorvane::reconcile
