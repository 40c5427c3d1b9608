#include "portfolio/reconcile/Reconciliation.h"

#include "core/actions/Terms.h"
#include "core/lookups/Directory.h"
#include "core/positions/Positions.h"
#include "core/rates/IsinBook.h"
#include "core/text/Tr.h"
#include "portfolio/paper/Owners.h"
#include "portfolio/reconcile/Causes.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

namespace quorvane::reconcile {
namespace {

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

MaybeRefusal CheckContents(const Statement& statement) {
  if (!statement.no_holdings.empty()) {
    return Refusal{Tr("Reconcile", "The File is a %1, no Statement of Holdings.")
                       .arg(Utf8(statement.no_holdings))};
  }
  if (statement.holdings.empty()) {
    return Refusal{Tr("Reconcile", "The File has no Holdings that can be Read.")};
  }
  return std::nullopt;
}

Result<text::Date> DayOf(const Statement& statement, const ReconcileQuery& query) {
  const auto day = query.day ? query.day : statement.day;
  if (!day) {
    return Refusal{Tr("Reconcile", "The Statement does not say of which Day it is. Enter the Day."),
                   Field::kDate};
  }
  if (*day > query.today) {
    return Refusal{
        Tr("Reconcile", "The Statement is of %1, a Day in the Future.").arg(text::FormatDmy(*day)),
        Field::kDate};
  }
  return *day;
}

bool HasRowsWithoutAccount(const Statement& statement) {
  return std::ranges::any_of(statement.holdings,
                             [](const StatedHolding& one) { return one.account.empty(); });
}

/// The account of rows that name none: the chosen one, or the only one of the client.
Result<AccountId> AccountWithoutNumber(std::span<const paper::OwnAccount> accounts,
                                       const ReconcileQuery& query) {
  AccountId only = query.account;
  for (const paper::OwnAccount& account : accounts) {
    if (query.account || account.client != query.client) {
      continue;
    }
    if (only) {
      return Refusal{Tr("Reconcile", "The Statement names no Account. Select the Demat A/c No."),
                     Field::kAccount};
    }
    only = account.id;
  }
  if (!only) {
    return Refusal{Tr("Reconcile", "The Client has no Demat A/c."), Field::kAccount};
  }
  return only;
}

}  // namespace

std::size_t Reconciliation::Differences() const {
  return static_cast<std::size_t>(std::ranges::count_if(
      rows, [](const ReconciledRow& row) { return row.agreement != Agreement::kAgrees; }));
}

Result<StatementOwner> OwnerOf(database::Connection& connection, const Statement& statement,
                               const ReconcileQuery& query) {
  if (const MaybeRefusal refusal = CheckContents(statement)) {
    return *refusal;
  }
  const Result<text::Date> day = DayOf(statement, query);
  if (!day) {
    return day.Why();
  }
  StatementOwner owner{.day = *day, .accounts = {}, .unknown = {}};
  const auto accounts = paper::ReadAccounts(connection);
  for (const std::string& number : statement.accounts) {
    if (const auto* own = paper::AccountNamed(accounts, query.client, number)) {
      owner.accounts.emplace(number, own->id);
    } else if (const auto* other = paper::AccountOfAnother(accounts, query.client, number)) {
      const lookups::Directory directory(connection);
      return Refusal{Tr("Reconcile", "The Account %1 is of Another Client: %2.")
                         .arg(Utf8(number), Utf8(directory.Client(other->client).name)),
                     Field::kAccount};
    } else {
      owner.unknown << Utf8(number);
    }
  }
  if (HasRowsWithoutAccount(statement)) {
    const Result<AccountId> account = AccountWithoutNumber(accounts, query);
    if (!account) {
      return account.Why();
    }
    owner.accounts.emplace(std::string(), *account);
  }
  if (owner.accounts.empty()) {
    return Refusal{Tr("Reconcile", "No Account of the Statement is a Demat A/c of the Client: %1.")
                       .arg(owner.unknown.join(QStringLiteral(", "))),
                   Field::kAccount};
  }
  return owner;
}

namespace {

/// Puts the two sides together.
class Comparison {
 public:
  Comparison(database::Connection& connection, const StatementOwner& owner)
      : directory_(connection), isins_(connection), owner_(owner) {}

  void TakeRecorded(const positions::Positions& positions) {
    for (const positions::Holding& holding : positions.holdings) {
      if (!holding.place.fo && holding.Quantity() != Shares()) {
        recorded_[{holding.place.account, holding.place.scrip}] += holding.Quantity();
      }
    }
  }

  void TakeStated(const Statement& statement) {
    for (const StatedHolding& stated : statement.holdings) {
      const auto account = owner_.accounts.find(stated.account);
      if (account != owner_.accounts.end()) {
        Add(stated, account->second);
      }
    }
  }

  std::vector<ReconciledRow> Rows() {
    AddMissingThere();
    for (ReconciledRow& row : rows_) {
      row.agreement = AgreementOf(row);
    }
    std::erase_if(rows_, [](const ReconciledRow& row) {
      return row.stated == Shares() && row.recorded == Shares();
    });
    std::ranges::stable_sort(rows_, {}, [](const ReconciledRow& row) {
      return std::tuple(row.account_number, row.name.toLower(), row.isin);
    });
    return std::move(rows_);
  }

 private:
  static Agreement AgreementOf(const ReconciledRow& row) {
    if (!row.scrip) {
      return Agreement::kUnknown;
    }
    if (row.stated == row.recorded) {
      return Agreement::kAgrees;
    }
    if (row.recorded == Shares()) {
      return Agreement::kMissingHere;
    }
    return row.stated == Shares() ? Agreement::kMissingThere : Agreement::kDiffers;
  }

  /// Two codes may share an ISIN: all shares of both count, under the one that is held. A scrip may
  /// have had two ISINs, of which a statement has both: they are one row.
  void Add(const StatedHolding& stated, AccountId account) {
    ReconciledRow row;
    row.account = account;
    row.account_number = Utf8(directory_.Account(account).number);
    row.isin = Utf8(stated.isin);
    row.symbol = Utf8(stated.symbol);
    row.name = Utf8(stated.name);
    row.stated = stated.quantity;
    for (const ScripId scrip : isins_.ScripsOf(stated.isin)) {
      if (const auto there = places_.find({account, scrip}); there != places_.end()) {
        rows_[there->second].stated += stated.quantity;
        return;
      }
      const auto recorded = recorded_.find({account, scrip});
      const bool held = recorded != recorded_.end();
      row.recorded += held ? recorded->second : Shares();
      row.scrip = held || !row.scrip ? scrip : row.scrip;
    }
    for (const ScripId scrip : isins_.ScripsOf(stated.isin)) {
      places_.emplace(std::pair(account, scrip), rows_.size());
    }
    if (row.scrip) {
      row.name = Utf8(directory_.Scrip(row.scrip).name);
    }
    rows_.push_back(std::move(row));
  }

  /// What is recorded in the statement's accounts and not in the statement.
  void AddMissingThere() {
    std::set<AccountId> covered;
    for (const auto& [number, account] : owner_.accounts) {
      covered.insert(account);
    }
    for (const auto& [place, quantity] : recorded_) {
      if (!covered.contains(place.first) || places_.contains(place)) {
        continue;
      }
      ReconciledRow row;
      row.account = place.first;
      row.account_number = Utf8(directory_.Account(place.first).number);
      row.scrip = place.second;
      row.name = Utf8(directory_.Scrip(place.second).name);
      const std::vector<std::string> isins = isins_.Of(place.second);
      row.isin = isins.empty() ? QString() : Utf8(isins.front());
      row.recorded = quantity;
      rows_.push_back(std::move(row));
    }
  }

  lookups::Directory directory_;
  rates::Isins isins_;
  const StatementOwner& owner_;
  std::map<std::pair<AccountId, ScripId>, Shares> recorded_;
  std::map<std::pair<AccountId, ScripId>, std::size_t> places_;  ///< in rows_, of what is stated
  std::vector<ReconciledRow> rows_;
};

std::vector<AccountId> AccountsOf(const StatementOwner& owner) {
  std::set<AccountId> accounts;
  for (const auto& [number, account] : owner.accounts) {
    accounts.insert(account);
  }
  return {accounts.begin(), accounts.end()};
}

/// Rows of an account that is not the client's are no doubt about those that are.
std::vector<AccountId> DoubtsOf(const Statement& statement, const StatementOwner& owner) {
  std::vector<AccountId> doubts;
  for (const Doubt& doubt : statement.doubts) {
    const auto account = owner.accounts.find(doubt.account);
    if (account != owner.accounts.end() || doubt.account.empty()) {
      doubts.push_back(account == owner.accounts.end() ? AccountId() : account->second);
    }
  }
  return doubts;
}

QStringList NotesOf(const Statement& statement, const StatementOwner& owner,
                    const positions::Positions& positions) {
  QStringList notes;
  for (const QString& account : owner.unknown) {
    notes << QStringLiteral("Account %1 of the statement is no demat account of the client.")
                 .arg(account);
  }
  for (const Doubt& doubt : statement.doubts) {
    notes << QStringLiteral("Not understood, ") + Utf8(doubt.text);
  }
  if (statement.folio_rows > 0) {
    notes << QStringLiteral("%1 folios of mutual funds are in no demat account and were left out.")
                 .arg(static_cast<qulonglong>(statement.folio_rows));
  }
  if (!positions.shortages.empty()) {
    notes << QStringLiteral(
        "By the records more shares left the accounts than were there: see the "
        "check of the holdings.");
  }
  return notes;
}

}  // namespace

Result<Reconciliation> Reconcile(database::Connection& connection, const Statement& statement,
                                 const ReconcileQuery& query, Progress& progress) {
  const Result<StatementOwner> owner = OwnerOf(connection, statement, query);
  if (!owner) {
    return owner.Why();
  }
  positions::PositionsQuery held;
  held.client = query.client;
  held.to = owner->day;
  const positions::Positions positions = positions::ReadPositions(connection, held, progress);
  Comparison comparison(connection, *owner);
  comparison.TakeRecorded(positions);
  comparison.TakeStated(statement);
  Reconciliation result{.client = query.client,
                        .day = owner->day,
                        .stated_day = statement.day.value_or(owner->day),
                        .accounts = AccountsOf(*owner),
                        .rows = comparison.Rows(),
                        .notes = {},
                        .doubts = DoubtsOf(statement, *owner)};
  Causes(connection, query.client, owner->day, progress).Find(result.rows);
  result.notes = NotesOf(statement, *owner, positions);
  return result;
}

namespace {

constexpr const char* kContext = "Reconcile";

/// A text in the user's language or as it is.
QString Said(const char* text, Language language) {
  return language == Language::kOfUser ? Tr(kContext, text) : QString::fromUtf8(text);
}

QString Said(const records::Action& action, Language language) {
  return language == Language::kOfUser ? actions::DescribeForUser(action)
                                       : actions::Describe(action);
}

constexpr std::array kAgreements{QT_TRANSLATE_NOOP("Reconcile", "Agrees"),
                                 QT_TRANSLATE_NOOP("Reconcile", "Differs"),
                                 QT_TRANSLATE_NOOP("Reconcile", "Missing in the Books"),
                                 QT_TRANSLATE_NOOP("Reconcile", "Missing in the Statement"),
                                 QT_TRANSLATE_NOOP("Reconcile", "ISIN of no Script")};

}  // namespace

QString TextOf(Agreement agreement, Language language) {
  return Said(kAgreements.at(static_cast<std::size_t>(agreement)), language);
}

QString TextOf(const Cause& cause, Language language) {
  const QString day = cause.day ? text::FormatDmy(*cause.day) : QString();
  switch (cause.kind) {
    case CauseKind::kNone:
      return {};
    case CauseKind::kActionToApply:
      return Said(QT_TRANSLATE_NOOP("Reconcile", "%1 of %2 is recorded and not applied"), language)
          .arg(Said(cause.action, language), day);
    case CauseKind::kActionOnItsWay:
      return Said(QT_TRANSLATE_NOOP("Reconcile", "%1 of %2 is applied; its shares come later"),
                  language)
          .arg(Said(cause.action, language), day);
    case CauseKind::kSuggestedAction:
      return cause.also ? Said(QT_TRANSLATE_NOOP("Reconcile", "Suggests: %1 or %2"), language)
                              .arg(Said(cause.action, language), Said(*cause.also, language))
                        : Said(QT_TRANSLATE_NOOP("Reconcile", "Suggests: %1"), language)
                              .arg(Said(cause.action, language));
    case CauseKind::kBill:
      return Said(QT_TRANSLATE_NOOP("Reconcile", "Bill %1 of %2 was not settled on that day"),
                  language)
          .arg(cause.number, day);
    case CauseKind::kTransfer:
      return Said(QT_TRANSLATE_NOOP("Reconcile", "A transfer of %1 is near that day"), language)
          .arg(day);
    case CauseKind::kOtherAccount:
      return Said(QT_TRANSLATE_NOOP("Reconcile", "The other way round in account %1: a transfer?"),
                  language)
          .arg(cause.number);
  }
  return {};
}

}  // namespace quorvane::reconcile
