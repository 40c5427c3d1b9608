#include "core/changes/Chain.h"

#include "core/changes/Words.h"
#include "core/database/Transaction.h"
#include "core/text/Csv.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

namespace quorvane::changes {
namespace {

using database::Connection;
using database::Transaction;

/// Where the chain begins and ends.
struct Ends {
  std::int64_t last = 0;
  std::string last_hash;
  std::int64_t base = 0;
  std::string base_hash;
};

std::optional<Ends> ReadEnds(Connection& connection, std::string_view lock) {
  auto rows = connection.Open(
      fmt::format("Select LastId,LastHash,BaseId,BaseHash From ChangeHead Where Id=1{}", lock));
  if (!rows.Next()) {
    return std::nullopt;
  }
  return Ends{rows.Int64(0), std::string(rows.Utf8(1)), rows.Int64(2), std::string(rows.Utf8(3))};
}

/// Follows the chain entry by entry. After a break it goes on from the entry that is there, so that
/// each break is told once.
class Follower {
 public:
  explicit Follower(const Ends& ends) : ends_(ends), at_(ends.base), hash_(ends.base_hash) {}

  void Look(const Entry& entry) {
    if (entry.id > at_ + 1) {
      TellMissing(entry.id - 1);
      hash_.clear();
    }
    const bool follows = !hash_.empty() || entry.id == 1;
    if (entry.id <= at_) {
      faults_ << Tr("Changes", "Entry %1 of the log does not belong to it.").arg(entry.id);
    } else if (follows && HashOf(hash_, entry) != entry.hash) {
      faults_ << Tr("Changes", "Entry %1 of the log was edited: %2, %3 by %4.")
                     .arg(entry.id)
                     .arg(SubjectOf(entry), TimeOf(entry), entry.user);
    }
    at_ = entry.id;
    hash_ = entry.hash;
  }

  QStringList Finish() {
    if (at_ < ends_.last) {
      TellMissing(ends_.last);
    } else if (at_ > ends_.last || hash_ != ends_.last_hash) {
      faults_
          << Tr("Changes", "The log does not end where it was ended, at entry %1.").arg(ends_.last);
    }
    return faults_;
  }

 private:
  void TellMissing(std::int64_t last) {
    faults_ << (at_ + 1 == last ? Tr("Changes", "Entry %1 of the log was removed.").arg(last)
                                : Tr("Changes", "Entries %1 to %2 of the log were removed.")
                                      .arg(at_ + 1)
                                      .arg(last));
  }

  Ends ends_;
  std::int64_t at_;
  std::string hash_;
  QStringList faults_;
};

Refusal NothingOld() {
  return {Tr("Changes", "The log has no entry before that day."), Field::kDate};
}

}  // namespace

QStringList CheckChain(Connection& connection, Progress& progress) {
  const std::optional<Ends> ends = ReadEnds(connection, "");
  if (!ends) {
    return {Tr("Changes", "The end of the log (table ChangeHead) was removed.")};
  }
  Follower follower(*ends);
  std::int64_t done = 0;
  ReadEntries(connection, {}, true, [&](const Entry& entry) {
    follower.Look(entry);
    constexpr std::int64_t kNow = 1000;
    if (++done % kNow == 0) {
      progress.ThrowIfCancelled();
    }
  });
  return follower.Finish();
}

QString EndOf(Connection& connection) {
  const Ends ends = ReadEnds(connection, "").value_or(Ends());
  return QStringLiteral("entry %1, %2").arg(ends.last).arg(QString::fromStdString(ends.last_hash));
}

Result<std::int64_t> Export(Connection& connection, const std::string& day,
                            const std::function<void(const Entry&)>& keep) {
  if (!connection.Author().May(kAdminister)) {
    return NoRight(kAdminister);
  }
  Filter filter;
  filter.before = day;
  std::int64_t last = 0;
  ReadEntries(connection, filter, true, [&](const Entry& entry) {
    keep(entry);
    last = entry.id;
  });
  return last == 0 ? Result<std::int64_t>(NothingOld()) : last;
}

Result<std::int64_t> RemoveUpTo(Connection& connection, std::int64_t last) {
  return database::InTransaction(connection, [&](Transaction& transaction) -> Result<std::int64_t> {
    const std::optional<Ends> ends = ReadEnds(connection, " For Update");
    const std::optional<Entry> newest = LoadEntry(connection, last);
    if (!ends || !newest) {
      return NothingOld();
    }
    const std::int64_t count = transaction.Execute("Delete From ChangeLog Where Id<=?", last);
    transaction.Execute("Update ChangeHead Set BaseId=?,BaseHash=? Where Id=1", last, newest->hash);
    transaction.Changes().Summarise(Kind::kCleared, Tr("Changes", "Entries up to %1").arg(last));
    transaction.Changes().Of("ChangeLog").removed_count = count;
    return count;
  });
}

std::string CsvHeadings() {
  return "entry,time_utc,user,host,kind,table,record,title,client_code,year,undoes,before,after\n";
}

std::string CsvOf(const Entry& entry, const std::string& client_code) {
  std::string line;
  const auto add = [&](const std::string& field) {
    line += line.empty() ? "" : ",";
    text::AppendCsvField(line, field);
  };
  add(std::to_string(entry.id));
  add(entry.made_at);
  add(entry.user.toStdString());
  add(entry.host.toStdString());
  add(std::string(WordOf(entry.kind)));
  add(entry.table);
  add(std::to_string(entry.key));
  add(entry.title.toStdString());
  add(client_code);
  add(entry.year);
  add(entry.undoes == 0 ? std::string() : std::to_string(entry.undoes));
  add(entry.old_rows);
  add(entry.new_rows);
  return line + "\n";
}

}  // namespace quorvane::changes
