#include "reports/home/KeptFigures.h"

#include "core/database/BulkWriter.h"
#include "core/database/Transaction.h"
#include "core/positions/EventReader.h"
#include "reports/home/RecordStamps.h"
#include "reports/profit/ProfitStatement.h"

#include <QElapsedTimer>

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace quorvane::home {
namespace {

using database::BulkWriter;
using database::Connection;
using database::Transaction;

constexpr qint64 kBatchMs = 1000;
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
  std::optional<Date> up_to = {};
  bool has_holdings = false;  // that were computed now
  std::map<ScripId, std::pair<Shares, Paise>> holdings = {};
  Gains gains = {};
};

class Refresher {
 public:
  Refresher(Connection& connection, text::FinancialYear year, Date today, Progress& progress,
            const std::function<void()>& committed)
      : connection_(connection),
        year_(year),
        today_(today),
        progress_(progress),
        committed_(committed) {}

  int Run() {
    const std::vector<ClientId> clients = Clients();
    std::map<ClientId, Kept> kept = ReadKept();
    RecordStamps stamps(connection_);
    since_.start();
    for (const ClientId client : clients) {
      progress_.ThrowIfCancelled();
      Look(client, kept[client], stamps.Of(client));
      kept.erase(client);
    }
    for (const auto& [client, figures] : kept) {
      gone_.push_back(client);
    }
    Write(true);
    return count_;
  }

 private:
  std::vector<ClientId> Clients() {
    std::vector<ClientId> clients;
    for (const auto& row : connection_.Open("Select Id From ClientInfo Order By Id")) {
      clients.push_back(ClientId{row.Int(0)});
    }
    return clients;
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

  void Look(ClientId client, const Kept& kept, const std::string& stamp) {
    const bool holds = kept.stamp == stamp && (!kept.up_to || today_ < *kept.up_to);
    if (holds && kept.gain_stamp == stamp) {
      return;
    }
    Computed computed{.client = client, .stamp = stamp};
    if (!holds) {
      ComputeHoldings(computed);
    }
    ComputeGains(computed);
    done_.push_back(std::move(computed));
    ++count_;
    if (since_.elapsed() >= kBatchMs) {
      Write(false);
      since_.restart();
      committed_();
    }
  }

  void ComputeHoldings(Computed& computed) {
    computed.has_holdings = true;
    positions::EventReader reader(connection_, progress_);
    positions::PositionsQuery query;
    query.client = computed.client;
    positions::EventList list = reader.Read(query);
    const auto later = [&](Date day) {
      if (day > today_ && (!computed.up_to || day < *computed.up_to)) {
        computed.up_to = day;
      }
    };
    for (const positions::Event& event : list.events) {
      later(event.day);
    }
    for (const positions::DatedAction& action : list.actions) {
      later(action.ex_day);
    }
    for (const positions::Holding& holding : positions::Compute(list, today_).holdings) {
      if (holding.client == computed.client && !holding.place.fo && holding.Quantity()) {
        auto& [quantity, cost] = computed.holdings[holding.place.scrip];
        quantity += holding.Quantity();
        cost += holding.Cost();
      }
    }
  }

  void ComputeGains(Computed& computed) {
    const auto query = profit::ProfitQuery::OfYear(computed.client, year_);
    static_cast<void>(profit::BuildStatement(
        connection_, query, progress_,
        [&](ClientId client, std::span<const profit::StatementRow> rows) {
          if (client == computed.client && !rows.empty()) {
            const profit::StatementRow& total = rows.back();
            computed.gains = {Paise(total.long_term), Paise(total.short_term),
                              Paise(total.speculation)};
          }
        }));
  }

  /// The row of everybody is written at the end alone, and only when something changed or it is
  /// old: looking changes nothing that others would have to look at.
  void Write(bool at_end) {
    constexpr int kOldSeconds = 600;
    const auto last = LastRefresh(connection_);
    const bool is_old = !last || last->secsTo(QDateTime::currentDateTime()) > kOldSeconds;
    if (done_.empty() && gone_.empty() && !(at_end && (is_old || count_ > 0))) {
      return;
    }
    database::InTransaction(connection_, [&](Transaction& transaction) {
      DeleteOld(transaction);
      WriteClients(transaction);
      WriteHoldings(transaction);
      WriteGains(transaction);
      if (at_end) {
        transaction.Execute(
            "Insert Into HomeClient Values(?,'','',Utc_Timestamp()) On Duplicate Key Update "
            "MadeAt=Values(MadeAt)",
            kEverybody);
      }
    });
    done_.clear();
    gone_.clear();
  }

  void DeleteOld(Transaction& transaction) {
    BulkWriter clients(transaction, "Delete From HomeClient Where CId=?", "i");
    BulkWriter holdings(transaction, "Delete From HomeHolding Where CId=?", "i");
    BulkWriter gains(transaction, "Delete From HomeGain Where CId=? and Fyear=?", "it");
    const auto drop = [&](ClientId client) {
      clients.Int(client.value).EndRow();
      holdings.Int(client.value).EndRow();
    };
    for (const Computed& one : done_) {
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

  void WriteClients(Transaction& transaction) {
    BulkWriter writer(transaction,
                      "Insert Into HomeClient(CId,Stamp,UpTo,MadeAt) "
                      "Values(?,?,?,Utc_Timestamp())",
                      "itt");
    for (const Computed& one : done_) {
      if (one.has_holdings) {
        const QString up_to = one.up_to ? text::FormatDmy(*one.up_to) : QString();
        writer.Int(one.client.value).Text(one.stamp).Text(up_to.toStdString()).EndRow();
      }
    }
    writer.Finish();
  }

  void WriteHoldings(Transaction& transaction) {
    BulkWriter writer(transaction, "Insert Into HomeHolding(CId,ScrId,Qty,Cost) Values(?,?,?,?)",
                      "iiii");
    for (const Computed& one : done_) {
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

  void WriteGains(Transaction& transaction) {
    BulkWriter writer(
        transaction,
        "Insert Into HomeGain(CId,Fyear,Stamp,LongTerm,ShortTerm,Speculation) Values(?,?,?,?,?,?)",
        "ittiii");
    for (const Computed& one : done_) {
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
  std::vector<Computed> done_;
  std::vector<ClientId> gone_;
  QElapsedTimer since_;
  int count_ = 0;
};

}  // namespace

int RefreshFigures(Connection& connection, text::FinancialYear year, Date today, Progress& progress,
                   const std::function<void()>& committed) {
  return Refresher(connection, year, today, progress, committed).Run();
}

std::optional<QDateTime> LastRefresh(Connection& connection) {
  auto rows = connection.Open(
      "Select Timestampdiff(Second,MadeAt,Utc_Timestamp()) From HomeClient Where CId=?",
      kEverybody);
  return rows.Next() ? std::optional(QDateTime::currentDateTime().addSecs(-rows.Int(0)))
                     : std::nullopt;
}

}  // namespace quorvane::home
