#include "reports/performance/Returns.h"

#include "core/lookups/Directory.h"
#include "core/records/BillAmounts.h"
#include "core/records/Query.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace quorvane::performance {
namespace {

using positions::Event;
using positions::PositionsQuery;

Date EndOfMonth(Date day) {
  const std::chrono::year_month_day date(day);
  return std::chrono::sys_days(
      std::chrono::year_month_day_last(date.year(), std::chrono::month_day_last(date.month())));
}

/// The day before the period, the ends of its months and its last day.
std::vector<Date> DaysOf(const reporting::Period& period) {
  std::vector<Date> days{period.from - std::chrono::days(1)};
  for (Date end = EndOfMonth(period.from); end < period.to;
       end = EndOfMonth(end + std::chrono::days(1))) {
    days.push_back(end);
  }
  days.push_back(period.to);
  return days;
}

bool IsMoved(FlowKind kind) {
  return kind == FlowKind::kOpeningBalance || kind == FlowKind::kAction ||
         kind == FlowKind::kTransfer;
}

void AddIncoming(Figures& figures, const Flow& flow) {
  Paise& sum = flow.kind == FlowKind::kOpeningValue ? figures.opening
               : IsMoved(flow.kind)                 ? figures.moved
                                                    : figures.bought;
  sum += flow.amount;
  figures.flows.push_back({flow.day, -flow.amount});
}

void AddOutgoing(Figures& figures, const Flow& flow) {
  if (flow.kind == FlowKind::kClosingValue) {
    figures.closing += flow.amount;
  } else if (flow.kind == FlowKind::kDividend) {
    figures.dividends += flow.amount;
    figures.tax += flow.tax;
  } else if (IsMoved(flow.kind)) {
    figures.moved -= flow.amount;
  } else {
    figures.sold += flow.amount;
  }
  figures.flows.push_back({flow.day, flow.amount});
}

/// Which holdings are wanted.
class Scope {
 public:
  explicit Scope(const ReturnsQuery& query) : query_(query) {}

  bool Has(const Spot& spot) const {
    return query_.clients.contains(spot.client) &&
           (!query_.account || *query_.account == spot.account) &&
           (!query_.scrip || *query_.scrip == spot.scrip);
  }
  bool Has(const std::optional<Spot>& spot) const { return spot && Has(*spot); }
  bool Has(ClientId client, const positions::Place& place) const {
    return !place.fo && Has(Spot{client, place.account, place.scrip});
  }

 private:
  const ReturnsQuery& query_;
};

/// Figures of the wanted holdings by a key of theirs. What goes from one key to another is a flow
/// of both.
template <class KeyOf>
auto FiguresBy(std::span<const Flow> flows, const Scope& scope, KeyOf key_of) {
  std::map<decltype(key_of(Spot())), Figures> groups;
  for (const Flow& flow : flows) {
    const bool from = scope.Has(flow.from);
    const bool to = scope.Has(flow.to);
    if (from && to && key_of(*flow.from) == key_of(*flow.to)) {
      continue;
    }
    if (to) {
      AddIncoming(groups[key_of(*flow.to)], flow);
    }
    if (from) {
      AddOutgoing(groups[key_of(*flow.from)], flow);
    }
  }
  return groups;
}

class ReturnsReader {
 public:
  ReturnsReader(database::Connection& connection, const ReturnsQuery& query, Progress& progress)
      : connection_(connection),
        query_(query),
        progress_(progress),
        scope_(query_),
        directory_(connection) {}

  Returns Read() {
    ReadHistory();
    ReadDividends();
    progress_.ThrowIfCancelled();
    result_.period = {query_.from ? *query_.from : FirstDay(), query_.to};
    NameScope();
    positions::EventList list = history_;
    const std::vector<Date> days = DaysOf(result_.period);
    positions_ = positions::Compute(list, query_.to, days);
    progress_.ThrowIfCancelled();
    const rates::RateHistory rates(connection_, ScripsSeen(), history_.actions);
    progress_.ThrowIfCancelled();
    const BillCharges charges = ReadCharges();
    flows_ = MakeFlows({history_, positions_, dividends_, charges, rates, result_.period});
    GroupFlows(rates);
    ListFlows();
    ValueDays(rates, std::span(days).subspan(1));
    AddNotes();
    return std::move(result_);
  }

 private:
  QString ScripName(ScripId scrip) const {
    return QString::fromStdString(directory_.Scrip(scrip).name);
  }
  QString AccountNumber(AccountId account) const {
    return QString::fromStdString(directory_.Account(account).number);
  }
  QString ClientName(ClientId client) const {
    return QString::fromStdString(directory_.Client(client).name);
  }

  void ReadHistory() {
    positions::EventReader reader(connection_, progress_);
    PositionsQuery wanted;
    wanted.clients = query_.clients;
    wanted.to = query_.to;
    history_ = reader.Read(wanted);
    result_.faults = reader.Faults();
  }

  void ReadDividends() {
    records::Select<records::Dividend>(connection_)
        .In(&records::Dividend::client, query_.clients)
        .OrderBy(&records::Dividend::id)
        .Each([this](const records::Dividend& dividend) {
          if (scope_.Has(Spot{dividend.client, dividend.account, dividend.scrip})) {
            dividends_.push_back(dividend);
          }
        });
  }

  BillCharges ReadCharges() {
    using records::Bill;
    BillCharges charges;
    records::Select<Bill>(connection_)
        .In(&Bill::client, query_.clients)
        .Only<&Bill::id, &Bill::client, &Bill::other_charges, &Bill::transaction_charges>(
            [&](const Bill& bill) {
              charges[{bill.client, bill.id.value}] +=
                  records::AmountsOnNote({}, bill.other_charges, bill.transaction_charges).charges;
            });
    return charges;
  }

  /// Of what is wanted; the last day when nothing is recorded.
  Date FirstDay() const {
    Date first = query_.to;
    for (const Event& event : history_.events) {
      const bool comes = scope_.Has(event.client, {event.account, event.scrip, event.fo}) ||
                         scope_.Has(event.to_client, {event.to, event.scrip, event.fo});
      if (comes) {
        first = std::min(first, event.day);
      }
    }
    for (const records::Dividend& dividend : dividends_) {
      first = std::min(first, text::ParseDmy(dividend.date).value_or(first));
    }
    return first;
  }

  std::set<ScripId> ScripsSeen() const {
    std::set<ScripId> scrips;
    for (const positions::Balance& balance : positions_.balances) {
      scrips.insert(balance.place.scrip);
    }
    for (const positions::Move& move : positions_.moves) {
      scrips.insert(move.to_client ? move.to.scrip : move.from.scrip);
    }
    return scrips;
  }

  void NameScope() {
    QStringList names;
    for (const ClientId client : query_.clients) {
      names << ClientName(client);
    }
    result_.of_whom << names.join(QStringLiteral(", "));
    if (query_.account) {
      result_.of_whom << QStringLiteral("Demat A/c No. ") + AccountNumber(*query_.account);
    }
    if (query_.scrip) {
      result_.of_whom << ScripName(*query_.scrip);
    }
  }

  void GroupFlows(const rates::RateHistory& rates) {
    auto whole = FiguresBy(flows_, scope_, [](const Spot&) { return 0; });
    result_.whole = std::move(whole[0]);
    for (auto& [scrip, figures] :
         FiguresBy(flows_, scope_, [](const Spot& spot) { return spot.scrip; })) {
      GroupFigures group{ScripName(scrip), std::move(figures)};
      if (group.figures.closing != Paise()) {
        const auto rate = rates.NewestUpTo(scrip, query_.to);
        group.at_cost = !rate;
        group.rate_day = rate ? std::optional(rate->date) : std::nullopt;
      }
      result_.scrips.push_back(std::move(group));
    }
    for (auto& [account, figures] :
         FiguresBy(flows_, scope_, [](const Spot& spot) { return spot.account; })) {
      result_.accounts.push_back({AccountNumber(account), std::move(figures)});
    }
    for (auto& [client, figures] :
         FiguresBy(flows_, scope_, [](const Spot& spot) { return spot.client; })) {
      result_.clients.push_back({ClientName(client), std::move(figures)});
    }
    for (auto* groups : {&result_.scrips, &result_.accounts, &result_.clients}) {
      std::ranges::stable_sort(*groups, {}, &GroupFigures::name);
    }
    for (auto* groups : {&result_.accounts, &result_.clients}) {
      if (groups->size() == 1) {
        groups->clear();
      }
    }
  }

  /// Those of the whole: what stays within it is none.
  void ListFlows() {
    for (const Flow& flow : flows_) {
      const bool from = scope_.Has(flow.from);
      if (from == scope_.Has(flow.to)) {
        continue;
      }
      const Spot& spot = from ? *flow.from : *flow.to;
      FlowLine line{flow.day, flow.kind, ScripName(spot.scrip), AccountNumber(spot.account),
                    {},       {},        flow.IsAtCost(),       flow.rate_day};
      (from ? line.came_out : line.put_in) = flow.amount;
      result_.flows.push_back(std::move(line));
    }
    std::ranges::stable_sort(result_.flows, {}, [](const FlowLine& line) {
      return std::tuple(line.day, line.kind, line.scrip, line.account);
    });
  }

  void ValueDays(const rates::RateHistory& rates, std::span<const Date> days) {
    std::map<Date, DayValue> values;
    for (const Date day : days) {
      values[day].day = day;
    }
    for (const positions::Balance& balance : positions_.balances) {
      const auto found = values.find(balance.day);
      if (found == values.end() || !scope_.Has(balance.client, balance.place)) {
        continue;
      }
      const Worth worth =
          WorthOf(rates, balance.place.scrip, balance.quantity, balance.cost, balance.day);
      DayValue& value = found->second;
      value.cost += balance.cost;
      value.value += worth.amount;
      if (!worth.rate_day) {
        value.at_cost += worth.amount;
      } else {
        value.oldest = std::min(value.oldest.value_or(*worth.rate_day), *worth.rate_day);
      }
    }
    for (const auto& [day, value] : values) {
      result_.months.push_back(value);
    }
  }

  void AddNotes() {
    NoteFlowsAtCost();
    const auto fo = std::ranges::count_if(history_.events, [this](const Event& event) {
      return event.fo && event.kind != positions::EventKind::kOpening &&
             query_.clients.contains(event.client) && result_.period.from <= event.day &&
             event.day <= result_.period.to;
    });
    if (fo > 0) {
      result_.notes << QStringLiteral("Futures and options are left out: %1 lines.").arg(fo);
    }
    for (const positions::Shortage& shortage : positions_.shortages) {
      if (scope_.Has(shortage.client, shortage.place) && result_.period.from <= shortage.day &&
          shortage.day <= result_.period.to) {
        result_.notes << QStringLiteral("%1 of %2: %3 shares left that were not there.")
                             .arg(text::FormatDmy(shortage.day), ScripName(shortage.place.scrip),
                                  text::NumberText(shortage.quantity.Number()));
      }
    }
  }

  /// One note a day and scrip, up to a number of them.
  void NoteFlowsAtCost() {
    constexpr std::size_t kMost = 20;
    std::set<std::pair<Date, QString>> noted;
    for (const Flow& flow : flows_) {
      const bool counts = scope_.Has(flow.from) || scope_.Has(flow.to);
      if (flow.IsAtCost() && flow.kind != FlowKind::kClosingValue && counts) {
        noted.insert({flow.day, ScripName(flow.to ? flow.to->scrip : flow.from->scrip)});
      }
    }
    std::size_t count = 0;
    for (const auto& [day, scrip] : noted) {
      if (++count <= kMost) {
        result_.notes << QStringLiteral("%1 counts at cost on %2: no rate is stored.")
                             .arg(scrip, text::FormatDmy(day));
      }
    }
    if (count > kMost) {
      result_.notes << QStringLiteral("And %1 more at cost.").arg(count - kMost);
    }
  }

  database::Connection& connection_;
  const ReturnsQuery& query_;
  Progress& progress_;
  Scope scope_;
  lookups::Directory directory_;
  positions::EventList history_;
  positions::Positions positions_;
  std::vector<records::Dividend> dividends_;
  std::vector<Flow> flows_;
  Returns result_;
};

}  // namespace

Returns ReadReturns(database::Connection& connection, const ReturnsQuery& query,
                    Progress& progress) {
  return ReturnsReader(connection, query, progress).Read();
}

}  // namespace quorvane::performance
