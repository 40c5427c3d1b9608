#include "core/changes/Undo.h"

#include "core/actions/Application.h"
#include "core/changes/PutBack.h"
#include "core/changes/Words.h"
#include "core/database/Transaction.h"
#include "core/ledger/Rebuild.h"
#include "core/text/Tr.h"

#include <QStringList>

#include <fmt/format.h>

#include <algorithm>

namespace quorvane::changes {
namespace {

using database::Connection;
using database::Transaction;

/// That a statement was compared is in the log, but no change that a user means to take back.
std::int64_t LastOf(Connection& connection, std::optional<ClientId> client) {
  constexpr std::string_view kLast =
      "Select Max(L.Id) From ChangeLog L Left Join ChangeLog U On U.Undoes=L.Id Where "
      "L.UserName=? And L.Undoes=0 And L.TableName<>'StatementCheck' And U.Id Is Null";
  auto rows = client ? connection.Open(std::string(kLast) + " And L.ClientId=?",
                                       connection.Author().user, *client)
                     : connection.Open(kLast, connection.Author().user);
  return rows.Next() ? rows.Int64(0) : 0;
}

Refusal NotUndoable(const Entry& entry) {
  const QString what =
      QStringLiteral("%1, %2, %3").arg(NameOf(entry.kind), SubjectOf(entry), TimeOf(entry));
  switch (entry.kind) {
    case Kind::kImported:
    case Kind::kRates:
      return {Tr("Changes",
                 "The last change was an import, which can't be Taken Back as a whole: %1. Restore "
                 "the BackUp made before it, or Delete what it brought.")
                  .arg(what),
              {}};
    case Kind::kCarriedForward:
    case Kind::kRebuilt:
      return {Tr("Changes",
                 "The last change was computed from other records and can't be Taken Back: %1. "
                 "Correct those records and run it again.")
                  .arg(what),
              {}};
    default:
      return {Tr("Changes", "The last change can't be Taken Back: %1.").arg(what), {}};
  }
}

Refusal ChangedSince(Connection& connection, const Entry& entry) {
  const std::int64_t last = entry.key == 0 ? 0 : LastChangeOf(connection, entry.table, entry.key);
  const std::optional<Entry> later =
      last > entry.id ? LoadEntry(connection, last) : std::optional<Entry>();
  return later ? Refusal{Tr("Changes", "It can't be Taken Back: %1 Changed it Again on %2.")
                             .arg(later->user, TimeOf(*later)),
                         {}}
               : Refusal{Tr("Changes", "It can't be Taken Back: the Records were Changed Since."),
                         {}};
}

template <class Record>
Refusal IsUsed(const Record& record) {
  if constexpr (std::is_same_v<Record, records::TradeKey>) {
    return {Tr("Changes", "It can't be Taken Back: Trades of it were Taken In Again."), {}};
  } else {
    return {Tr("Changes", "It can't be Taken Back: \"%1\" is used by another record now.")
                .arg(records::TitleOf(record)),
            {}};
  }
}

/// Whether the entry itself gave what the record had alone to another one: the trades of a replaced
/// bill are passed on to its successor, which goes when the entry is taken back.
template <class Record>
bool IsPassedOn(const RowsOf<Record>& rows, const Record& record) {
  if constexpr (std::is_same_v<Record, records::TradeKey>) {
    return std::ranges::any_of(rows.added, [&](const Record& added) {
      return added.account == record.account && added.trade_key == record.trade_key;
    });
  } else {
    return false;
  }
}

/// One entry that is taken back.
class Taking {
 public:
  Taking(Transaction& transaction, const Entry& entry, EntryRows rows, Progress& progress)
      : transaction_(transaction), entry_(entry), rows_(std::move(rows)), progress_(progress) {}

  MaybeRefusal Run() {
    if (MaybeRefusal refusal = CheckState()) {
      return refusal;
    }
    // The scanned documents of a client that was deleted are gone.
    for (records::Client& client : rows_.Of<records::Client>().removed) {
      if (rows_.Of<records::Client>().added.empty()) {
        client.document.clear();
      }
    }
    if (!IsOfMaster()) {
      if (MaybeRefusal refusal = PutLotsBack(transaction_, rows_)) {
        return refusal;
      }
    }
    Write();
    if (MaybeRefusal refusal = CheckReferences(transaction_, entry_, rows_)) {
      return refusal;
    }
    return FinishLots();
  }

 private:
  MaybeRefusal CheckState() {
    if (transaction_.Open("Select 1 From ChangeLog Where Undoes=?", entry_.id).Next()) {
      return Refusal{Tr("Changes", "It was Taken Back Already."), {}};
    }
    MaybeRefusal refusal;
    rows_.ForEach([&]<class Record>(const RowsOf<Record>& rows) {
      if (refusal || rows.IsEmpty() || std::is_same_v<Record, records::Lot>) {
        return;
      }
      if (!StandsAsLeft(transaction_, rows)) {
        refusal = ChangedSince(transaction_.GetConnection(), entry_);
        return;
      }
      for (const Record& record : rows.removed) {
        if (rows.table == records::Table<Record>::kName && !IsPassedOn(rows, record) &&
            IsTaken(transaction_, record)) {
          refusal = IsUsed(record);
        }
      }
    });
    return refusal ? refusal : CheckActions();
  }

  /// Corporate actions are applied and taken back in the order of their days.
  MaybeRefusal CheckActions() {
    if (entry_.kind != Kind::kApplied && entry_.kind != Kind::kTakenBack) {
      return std::nullopt;
    }
    const std::vector<records::Action>& all = rows_.Of<records::Action>().added;
    for (const records::Action& action : all) {
      if (MaybeRefusal refusal = actions::CheckIsLast(transaction_, action, all)) {
        return refusal;
      }
    }
    return std::nullopt;
  }

  void Write() {
    Changes& changes = transaction_.Changes();
    changes.Undoes(entry_.id);
    rows_.ForEach([&](const auto& rows) { DeleteAdded(transaction_, rows); });
    rows_.ForEach([&]<class Record>(const RowsOf<Record>& rows) {
      records::Writer<Record> writer(transaction_, rows.table);
      for (std::size_t i = 0; i < rows.removed.size(); ++i) {
        writer.Write(rows.removed[i], rows.removed_nulls[i]);
      }
      writer.Finish();
    });
    if (entry_.kind == Kind::kApplied || entry_.kind == Kind::kTakenBack) {
      changes.Is(entry_.kind == Kind::kApplied ? Kind::kTakenBack : Kind::kApplied);
    }
  }

  MaybeRefusal FinishLots() {
    if (entry_.kind == Kind::kTakenBack) {
      for (const records::Action& action : rows_.Of<records::Action>().removed) {
        if (!actions::IsCurrent(transaction_.GetConnection(), action, progress_)) {
          return Refusal{Tr("Changes",
                            "It can't be Taken Back: the Books were Changed Since. Apply the "
                            "Corporate Action Anew."),
                         {}};
        }
      }
    }
    return IsOfMaster() ? Rebuild() : std::nullopt;
  }

  /// The delete of a master took documents of many clients along, and a trade book may have brought
  /// scrips; then lots are computed anew.
  bool IsOfMaster() {
    return entry_.table == "ClientInfo" || entry_.table == "Broker" || entry_.table == "Script" ||
           !rows_.Of<records::Scrip>().IsEmpty();
  }

  MaybeRefusal Rebuild() {
    for (const ClientYear& holder : HoldersOf(rows_)) {
      const std::int64_t before = CountBelowZero(holder);
      ledger::RebuildStock(transaction_, holder, progress_);
      if (CountBelowZero(holder) > before) {
        return Refusal{Tr("Changes",
                          "It can't be Taken Back: Shares that it Concerns were Sold or "
                          "Transferred Since."),
                       {}};
      }
    }
    return std::nullopt;
  }

  std::int64_t CountBelowZero(const ClientYear& of) {
    auto rows = transaction_.Open("Select Count(*) From Stock Where Cid=? And Fyear=? And Qty<0",
                                  of.client, of.year.Utf8());
    return rows.Next() ? rows.Int64(0) : 0;
  }

  Transaction& transaction_;
  const Entry& entry_;
  EntryRows rows_;
  Progress& progress_;
};

}  // namespace

Result<Entry> LastToUndo(Connection& connection, std::optional<ClientId> client) {
  const std::int64_t last = LastOf(connection, client);
  std::optional<Entry> entry = last == 0 ? std::nullopt : LoadEntry(connection, last);
  if (!entry) {
    return Refusal{Tr("Changes", "There is no Change of Yours to Take Back."), {}};
  }
  if (!ReadRows(*entry)) {
    return NotUndoable(*entry);
  }
  return *std::move(entry);
}

QString AskUndo(const Entry& entry) {
  constexpr std::size_t kMost = 10;
  QStringList lines{
      Tr("Changes", "Take this Change Back?"),
      QStringLiteral("%1, %2, %3").arg(NameOf(entry.kind), SubjectOf(entry), TimeOf(entry))};
  const std::vector<Difference> differences = Differences(entry.old_rows, entry.new_rows);
  for (const Difference& one : std::span(differences).first(std::min(kMost, differences.size()))) {
    lines << Tr("Changes", "%1, %2: %3 | %4").arg(one.place, one.column, one.before, one.after);
  }
  if (differences.size() > kMost) {
    lines << Tr("Changes", "and %1 more").arg(differences.size() - kMost);
  }
  return lines.join(QLatin1Char('\n'));
}

MaybeRefusal Undo(Connection& connection, const Entry& entry, Progress& progress) {
  const std::optional<EntryRows> rows = ReadRows(entry);
  if (!rows) {
    return NotUndoable(entry);
  }
  // Alone: it looks at many tables, and what it finds must stay until it is done.
  return database::InTransaction(
      connection,
      [&](Transaction& transaction) { return Taking(transaction, entry, *rows, progress).Run(); },
      database::Turn::kAlone);
}

}  // namespace quorvane::changes
