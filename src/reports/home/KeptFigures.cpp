#include "reports/home/KeptFigures.h"

#include "core/database/BulkWriter.h"
#include "core/database/Transaction.h"
#include "core/positions/EventReader.h"
#include "reports/home/RecordStamps.h"
#include "reports/profit/ProfitStatement.h"

#include <QElapsedTimer>

#include <algorithm>
#include <map>
#include <span>
#include <utility>
#include <vector>

namespace quorvane::home {
namespace {

using database::BulkWriter;
using database::Connection;
using database::Transaction;

constexpr qint64 kBatchMs = 1000;
constexpr std::size_t kFewClients = 20;
constexpr int kEverybody = 0;  // the row of HomeClient that tells when all were looked at

/// What a client's figures were computed from.
struct Kept {
  std::string stamp;
  std::optional<Date> up_to;  // the first day on which they no longer hold
  std::string gain_stamp;     // of the year
};

struct Computed {
  ClientId client;
  std::string stamp;
  bool has_holdings = false;  // that are computed now
  std::optional<Date> up_to = {};
  std::map<ScripId, std::pair<Shares, Paise>> holdings = {};
  Gains gains = {};
};

class Refresher {
 public:
  Refresher(Connection& connection, text::FinancialYear year, Date today, Progress& progress,
            const std::function<void()>& committed, Known& known)
      : connection_(connection),
        year_(year),
        today_(today),
        progress_(progress),
        committed_(committed),
        known_(known) {}

  int Run() {
    Compare();
    const auto count = static_cast<int>(stale_.size());
    // Where many clients share their history, or most are stale, everything is read at once.
    if (parts_ > clients_.size()) {
      ComputeHoldings(std::nullopt, stale_);
      parts_ = 0;
    }
    if (stale_.size() > kFewClients && stale_.size() > clients_.size() / 4) {
      ComputeGains(std::nullopt, stale_);
    } else {
      gains_one_by_one_ = true;
    }
    since_.start();
    for (std::size_t next = 0; next < stale_.size(); ++next) {
      progress_.ThrowIfCancelled();
      ComputeRest(std::span(stale_).subspan(next, 1));
      if (since_.elapsed() >= kBatchMs) {
        Write(next + 1);
        since_.restart();
        committed_();
      }
    }
    Write(stale_.size());
    NoteRefresh(count > 0);
    return count;
  }

 private:
  /// Looks which clients' figures are not those of their records.
  void Compare() {
    for (const auto& row : connection_.Open("Select Id From ClientInfo Order By Id")) {
      clients_.push_back(ClientId{row.Int(0)});
    }
    std::map<ClientId, Kept> kept = ReadKept();
    ForgetChanged();
    RecordStamps stamps(connection_, known_.stamps);
    const auto& changed = known_.changed;
    const auto wanted = changed ? stamps.TakersFrom(*changed) : std::set<ClientId>();
    for (const ClientId client : clients_) {
      progress_.ThrowIfCancelled();
      if (!changed || wanted.contains(client)) {
        CompareOne(client, kept[client], stamps);
      }
      kept.erase(client);
    }
    for (const auto& [client, figures] : kept) {
      gone_.push_back(client);
    }
  }

  void ForgetChanged() {
    if (!known_.changed) {
      known_.stamps.clear();
      return;
    }
    for (const ClientId client : *known_.changed) {
      known_.stamps.erase(client);
    }
  }

  void CompareOne(ClientId client, const Kept& figures, RecordStamps& stamps) {
    const std::string stamp = stamps.Of(client);
    const bool holds = figures.stamp == stamp && (!figures.up_to || today_ < *figures.up_to);
    if (!holds || figures.gain_stamp != stamp) {
      stale_.push_back({.client = client, .stamp = stamp, .has_holdings = !holds});
      parts_ += holds ? 0 : stamps.GiversTo(client).size();
    }
  }

  std::map<ClientId, Kept> ReadKept() {
    std::map<ClientId, Kept> kept;
    for (const auto& row : connection_.Open(
             "Select c.CId,c.Stamp,c.UpTo,g.Stamp From HomeClient c Left Join HomeGain "
             "g On g.Fyear=? and g.CId=c.CId Where c.CId<>?",
             year_.Text(), kEverybody)) {
      kept[ClientId{row.Int(0)}] = {row.Text(1).toStdString(), text::ParseDmy(row.Utf8(2)),
                                    row.Text(3).toStdString()};
    }
    return kept;
  }

  void ComputeRest(std::span<Computed> one) {
    if (parts_ > 0 && one.front().has_holdings) {
      ComputeHoldings(one.front().client, one);
    }
    if (gains_one_by_one_) {
      ComputeGains(one.front().client, one);
    }
  }

  /// Of one client, or of all.
  void ComputeHoldings(std::optional<ClientId> client, std::span<Computed> into) {
    positions::EventReader reader(connection_, progress_);
    positions::PositionsQuery query;
    query.client = client;
    positions::EventList list = reader.Read(query);
    const std::optional<Date> up_to = NextDay(list);
    std::map<ClientId, Computed*> wanted;
    for (Computed& one : into) {
      one.up_to = up_to;
      wanted[one.client] = one.has_holdings ? &one : nullptr;
    }
    for (const positions::Holding& holding : positions::Compute(list, today_).holdings) {
      const auto found = wanted.find(holding.client);
      if (found != wanted.end() && found->second != nullptr && !holding.place.fo &&
          holding.Quantity()) {
        auto& [quantity, cost] = found->second->holdings[holding.place.scrip];
        quantity += holding.Quantity();
        cost += holding.Cost();
      }
    }
  }

  /// The first day after today on which something is recorded.
  std::optional<Date> NextDay(const positions::EventList& list) const {
    std::optional<Date> next;
    const auto look = [&](Date day) {
      if (day > today_ && (!next || day < *next)) {
        next = day;
      }
    };
    std::ranges::for_each(list.events, look, &positions::Event::day);
    std::ranges::for_each(list.actions, look, &positions::DatedAction::ex_day);
    return next;
  }

  void ComputeGains(std::optional<ClientId> client, std::span<Computed> into) {
    std::map<ClientId, Computed*> wanted;
    for (Computed& one : into) {
      wanted[one.client] = &one;
    }
    profit::ProfitQuery query = profit::ProfitQuery::OfYear(client, year_);
    query.unsold = false;
    static_cast<void>(profit::BuildStatement(
        connection_, query, progress_,
        [&](ClientId of, std::span<const profit::StatementRow> rows) {
          const auto found = wanted.find(of);
          if (found != wanted.end() && !rows.empty()) {
            const profit::StatementRow& total = rows.back();
            found->second->gains = {Paise(total.long_term), Paise(total.short_term),
                                    Paise(total.speculation)};
          }
        }));
  }

  /// Writes the stale clients up to the first `count`, and drops the figures of those that are
  /// gone.
  void Write(std::size_t count) {
    const auto done = std::span(stale_).subspan(written_, count - written_);
    if (done.empty() && gone_.empty()) {
      return;
    }
    database::InTransaction(connection_, [&](Transaction& transaction) {
      DeleteOld(transaction, done);
      WriteClients(transaction, done);
      WriteHoldings(transaction, done);
      WriteGains(transaction, done);
    });
    written_ = count;
    gone_.clear();
  }

  /// Only when something changed or the note is old: looking changes nothing that others would have
  /// to look at.
  void NoteRefresh(bool changed) {
    constexpr int kOldSeconds = 600;
    const auto last = LastRefresh(connection_);
    if (changed || !last || last->secsTo(QDateTime::currentDateTime()) > kOldSeconds) {
      database::InTransaction(connection_, [&](Transaction& transaction) {
        transaction.Execute(
            "Insert Into HomeClient Values(?,'','',Utc_Timestamp()) On Duplicate Key Update "
            "MadeAt=Values(MadeAt)",
            kEverybody);
      });
    }
  }

  void DeleteOld(Transaction& transaction, std::span<const Computed> done) {
    BulkWriter clients(transaction, "Delete From HomeClient Where CId=?", "i");
    BulkWriter holdings(transaction, "Delete From HomeHolding Where CId=?", "i");
    BulkWriter gains(transaction, "Delete From HomeGain Where CId=? and Fyear=?", "it");
    const auto drop = [&](ClientId client) {
      clients.Int(client.value).EndRow();
      holdings.Int(client.value).EndRow();
    };
    for (const Computed& one : done) {
      if (one.has_holdings) {
        drop(one.client);
      }
      gains.Int(one.client.value).Text(year_.Utf8()).EndRow();
    }
    for (const ClientId client : gone_) {
      drop(client);
      gains.Int(client.value).Text(year_.Utf8()).EndRow();
    }
    clients.Finish();
    holdings.Finish();
    gains.Finish();
  }

  static void WriteClients(Transaction& transaction, std::span<const Computed> done) {
    BulkWriter writer(transaction,
                      "Insert Into HomeClient(CId,Stamp,UpTo,MadeAt) "
                      "Values(?,?,?,Utc_Timestamp())",
                      "itt");
    for (const Computed& one : done) {
      if (one.has_holdings) {
        const QString up_to = one.up_to ? text::FormatDmy(*one.up_to) : QString();
        writer.Int(one.client.value).Text(one.stamp).Text(up_to.toStdString()).EndRow();
      }
    }
    writer.Finish();
  }

  static void WriteHoldings(Transaction& transaction, std::span<const Computed> done) {
    BulkWriter writer(transaction, "Insert Into HomeHolding(CId,ScrId,Qty,Cost) Values(?,?,?,?)",
                      "iiii");
    for (const Computed& one : done) {
      for (const auto& [scrip, held] : one.holdings) {
        writer.Int(one.client.value)
            .Int(scrip.value)
            .Int(held.first.Millionths())
            .Int(held.second.Count())
            .EndRow();
      }
    }
    writer.Finish();
  }

  void WriteGains(Transaction& transaction, std::span<const Computed> done) {
    BulkWriter writer(
        transaction,
        "Insert Into HomeGain(CId,Fyear,Stamp,LongTerm,ShortTerm,Speculation) Values(?,?,?,?,?,?)",
        "ittiii");
    for (const Computed& one : done) {
      writer.Int(one.client.value)
          .Text(year_.Utf8())
          .Text(one.stamp)
          .Int(one.gains.long_term.Count())
          .Int(one.gains.short_term.Count())
          .Int(one.gains.speculation.Count())
          .EndRow();
    }
    writer.Finish();
  }

  Connection& connection_;
  text::FinancialYear year_;
  Date today_;
  Progress& progress_;
  const std::function<void()>& committed_;
  Known& known_;
  std::vector<ClientId> clients_;
  std::vector<Computed> stale_;
  std::vector<ClientId> gone_;
  std::size_t parts_ = 0;    // clients' histories to be read for the holdings, one by one
  std::size_t written_ = 0;  // of the stale clients
  bool gains_one_by_one_ = false;
  QElapsedTimer since_;
};

}  // namespace

int RefreshFigures(Connection& connection, text::FinancialYear year, Date today, Progress& progress,
                   const std::function<void()>& committed, Known* known) {
  Known nothing;
  return Refresher(connection, year, today, progress, committed,
                   known == nullptr ? nothing : *known)
      .Run();
}

std::optional<QDateTime> LastRefresh(Connection& connection) {
  auto rows = connection.Open(
      "Select Timestampdiff(Second,MadeAt,Utc_Timestamp()) From HomeClient Where CId=?",
      kEverybody);
  return rows.Next() ? std::optional(QDateTime::currentDateTime().addSecs(-rows.Int(0)))
                     : std::nullopt;
}

}  // namespace quorvane::home
