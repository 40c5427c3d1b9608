#include "reports/profit/ProfitStatement.h"

#include "core/text/Amounts.h"

#include <algorithm>

namespace quorvane::profit {
namespace {

using gains::GainKind;
using gains::Match;
using gains::Purchase;
using gains::Sale;
using gains::ScripHistory;

void AddTo(StatementRow& total, const StatementRow& row) {
  total.quantity += row.quantity;
  total.purchase_amount += row.purchase_amount;
  total.sale_quantity += row.sale_quantity;
  total.sale_amount += row.sale_amount;
  total.purchase_cost += row.purchase_cost;
  total.long_term += row.long_term;
  total.short_term += row.short_term;
  total.speculation += row.speculation;
  total.stt_paid += row.stt_paid;
}

template <class T>
bool Selected(const std::vector<T>& chosen, T one) {
  return chosen.empty() || std::find(chosen.begin(), chosen.end(), one) != chosen.end();
}

bool Wanted(GainFilter filter, GainKind kind) {
  return filter == GainFilter::kAll ||
         (filter == GainFilter::kSpeculation) == (kind == GainKind::kSpeculation);
}

std::int64_t& GainCell(StatementRow& row, GainKind kind) {
  switch (kind) {
    case GainKind::kSpeculation:
      return row.speculation;
    case GainKind::kShortTerm:
      return row.short_term;
    case GainKind::kLongTerm:
      break;
  }
  return row.long_term;
}

/// Collects the rows of one client after the other.
class Builder {
 public:
  using Give = std::function<void(ClientId, std::span<const StatementRow>)>;

  Builder(const ProfitQuery& query, const Give& give) : query_(query), give_(give) {}

  void Take(const ScripHistory& history) {
    if (!Selected(query_.accounts, history.account) || !Selected(query_.scrips, history.scrip)) {
      return;
    }
    if (history.client != client_) {
      CloseClient();
      client_ = history.client;
    }
    if (history.scrip != total_.scrip) {
      CloseScrip();
      total_ = {};
      total_.kind = LineKind::kTotal;
      total_.scrip = history.scrip;
    }
    matches_.clear();
    const std::int64_t rest = gains::MatchSales(
        history.purchases, history.sales, query_.charges,
        query_.average ? gains::CostBasis::kAverage : gains::CostBasis::kLot, matches_);
    for (const Match& match : matches_) {
      AddMatch(history, match);
    }
    if (query_.unsold && query_.gains != GainFilter::kSpeculation) {
      AddUnsold(history, rest);
    }
  }

  void CloseClient() {
    CloseScrip();
    if (!rows_.empty()) {
      net_total_.kind = LineKind::kNetTotal;
      net_total_.quantity = 0;
      net_total_.sale_quantity = 0;
      rows_.push_back(net_total_);
      give_(client_, rows_);
    }
    rows_.clear();
    net_total_ = {};
  }

 private:
  void CloseScrip() {
    if (total_.scrip) {
      rows_.push_back(total_);
      AddTo(net_total_, total_);
    }
    total_ = {};
  }

  void Push(const StatementRow& row) {
    rows_.push_back(row);
    AddTo(total_, row);
  }

  void AddMatch(const ScripHistory& history, const Match& match) {
    const Sale& sale = history.sales[match.sale];
    StatementRow row = SaleSide(history, sale, match);
    if (match.purchase == Match::kNoPurchase) {
      row.kind = sale.transfer ? LineKind::kTransfer : LineKind::kUnmatched;
      if (query_.gains != GainFilter::kSpeculation) {
        Push(row);
      }
      return;
    }
    // A transfer is no speculation, whatever its days.
    if (!Wanted(query_.gains, sale.transfer ? GainKind::kShortTerm : match.kind)) {
      return;
    }
    const Purchase& purchase = history.purchases[match.purchase];
    row.kind = sale.transfer ? LineKind::kTransfer : LineKind::kMatch;
    row.purchase_date = purchase.date;
    row.quantity = match.quantity;
    row.purchase_cost = match.cost;
    if (query_.average) {
      row.purchase_amount = match.cost;
      row.purchase_net = text::FromPaise(match.cost) / match.quantity;
    } else {
      row.purchase_net = purchase.net;
      row.purchase_amount = text::ToPaise(purchase.net * match.quantity);
    }
    if (!sale.transfer) {
      GainCell(row, match.kind) = match.gain;
    }
    Push(row);
  }

  static StatementRow SaleSide(const ScripHistory& history, const Sale& sale, const Match& match) {
    StatementRow row;
    row.account = history.account;
    row.scrip = history.scrip;
    row.sale_date = sale.date;
    row.sale_quantity = match.quantity;
    row.sale_net = sale.net;
    row.sale_amount = match.sale_amount;
    row.stt_paid = match.stt_paid;
    return row;
  }

  static double SharesLeft(const ScripHistory& history) {
    double shares = 0;
    for (const Purchase& purchase : history.purchases) {
      shares += std::max(purchase.remaining, 0.0);
    }
    return shares;
  }

  // At the average the parts of `cost` add up to it, to the paisa.
  void AddUnsold(const ScripHistory& history, std::int64_t cost) {
    const double shares = query_.average ? SharesLeft(history) : 0;
    double counted = 0;
    std::int64_t given = 0;
    for (const Purchase& purchase : history.purchases) {
      if (purchase.remaining <= 0) {
        continue;
      }
      StatementRow row;
      row.kind = LineKind::kUnsold;
      row.account = history.account;
      row.scrip = history.scrip;
      row.purchase_date = purchase.date;
      row.quantity = purchase.remaining;
      if (query_.average) {
        counted += purchase.remaining;
        row.purchase_amount = text::ToPaise(text::FromPaise(cost) * (counted / shares)) - given;
        row.purchase_net = text::FromPaise(cost) / shares;
        given += row.purchase_amount;
      } else {
        row.purchase_net = purchase.net;
        row.purchase_amount = text::ToPaise(purchase.net * purchase.remaining);
      }
      Push(row);
    }
  }

  const ProfitQuery& query_;
  const Give& give_;
  ClientId client_;
  StatementRow total_;
  StatementRow net_total_;
  std::vector<StatementRow> rows_;
  std::vector<Match> matches_;
};

}  // namespace

ProfitQuery ProfitQuery::OfYear(std::optional<ClientId> client, text::FinancialYear year) {
  return {.client = client,
          .year = year,
          .from = year.FirstDay(),
          .to = year.LastDay(),
          .accounts = {},
          .scrips = {},
          .charges = {}};
}

records::Faults BuildStatement(
    database::Connection& connection, const ProfitQuery& query, Progress& progress,
    const std::function<void(ClientId, std::span<const StatementRow>)>& give) {
  gains::History history(connection, {query.client, query.year, query.from, query.to, query.fo},
                         progress);
  Builder builder(query, give);
  history.Visit([&](const ScripHistory& scrip) {
    builder.Take(scrip);
    progress.ThrowIfCancelled();
  });
  builder.CloseClient();
  return history.Faults();
}

}  // namespace quorvane::profit
