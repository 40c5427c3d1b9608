#include "reports/scrip_page/ScripPage.h"

#include "core/actions/Terms.h"
#include "core/lookups/Directory.h"
#include "core/positions/EventReader.h"
#include "core/records/Query.h"
#include "core/records/Rates.h"

#include <algorithm>
#include <tuple>

namespace quorvane::scrip_page {
namespace {

using positions::Event;
using positions::EventKind;
using positions::Holding;
using positions::Layer;
using positions::Piece;
using positions::PieceKind;
using reporting::AmountColumn;
using reporting::DateColumn;
using reporting::QuantityColumn;
using reporting::RowKind;
using reporting::TextColumn;
using text::Paise;
using text::Shares;

Paise ValueOf(Shares quantity, double rate) {
  return Paise::OfRupees(quantity.Number() * rate);
}

QString KindText(PieceKind kind) {
  switch (kind) {
    case PieceKind::kDelivery:
      return QStringLiteral("Sale");
    case PieceKind::kSpeculation:
      return QStringLiteral("Speculation");
    case PieceKind::kFo:
      return QStringLiteral("F&O");
    case PieceKind::kBuyBack:
      return QStringLiteral("Buy-Back");
    case PieceKind::kFraction:
      return QStringLiteral("Fraction of a Share");
  }
  return {};
}

QString KindText(EventKind kind) {
  switch (kind) {
    case EventKind::kOpening:
      return QStringLiteral("Opening Balance");
    case EventKind::kRights:
      return QStringLiteral("Rights");
    case EventKind::kBuyBack:
      return QStringLiteral("Buy-Back");
    case EventKind::kPurchase:
      return QStringLiteral("Purchase");
    case EventKind::kTransfer:
      return QStringLiteral("Transfer");
    case EventKind::kSale:
      return QStringLiteral("Sale");
    case EventKind::kAction:
      break;
  }
  return {};
}

constexpr int kMonths = 12;

Date EndOfMonth(Date day) {
  const std::chrono::year_month_day date(day);
  return std::chrono::sys_days(
      std::chrono::year_month_day_last(date.year(), std::chrono::month_day_last(date.month())));
}

}  // namespace

ScripPage::ScripPage(database::Connection& connection, const ScripPageQuery& query,
                     Progress& progress)
    : query_(query) {
  positions::EventReader reader(connection, progress);
  positions::PositionsQuery wanted;
  wanted.scrip = query.scrip;
  wanted.to = query.as_on;
  if (query.clients.size() == 1) {
    wanted.client = *query.clients.begin();
  }
  history_ = reader.Read(wanted);
  positions::EventList list = history_;
  now_ = positions::Compute(list, query.as_on);
  for (const records::Dividend& dividend : records::Select<records::Dividend>(connection)
                                               .Where(&records::Dividend::scrip, query.scrip)
                                               .OrderByDay(&records::Dividend::date)
                                               .All()) {
    const auto day = text::ParseDmy(dividend.date);
    if (IsWanted(dividend.client) && day && *day <= query.as_on) {
      dividends_.push_back(dividend);
    }
  }
  ReadRates(connection);
  ReadNames(connection);
}

void ScripPage::ReadRates(database::Connection& connection) {
  records::Select<records::MarketRate>(connection)
      .Where(&records::MarketRate::scrip, query_.scrip)
      .Each([this](const records::MarketRate& rate) {
        const auto day = text::ParseDmy(rate.date);
        if (day && *day <= query_.as_on && rate.rate > 0) {
          rates_.push_back({*day, rate.rate});
        }
      });
  std::ranges::stable_sort(rates_, {}, &RateOfDay::date);
}

void ScripPage::ReadNames(database::Connection& connection) {
  const lookups::Directory directory(connection);
  const auto add = [&](ClientId client, AccountId account) {
    clients_.try_emplace(client, QString::fromStdString(directory.Client(client).name));
    accounts_.try_emplace(account, QString::fromStdString(directory.Account(account).number));
  };
  for (const Event& event : history_.events) {
    add(event.client, event.account);
    add(event.client, event.to);
  }
  for (const Holding& holding : now_.holdings) {
    add(holding.client, holding.place.account);
  }
  for (const ClientId client : query_.clients) {
    add(client, {});
  }
  for (const records::Dividend& dividend : dividends_) {
    add(dividend.client, dividend.account);
  }
  scrips_.emplace(query_.scrip, QString::fromStdString(directory.Scrip(query_.scrip).name));
  for (const positions::DatedAction& action : history_.actions) {
    for (const ScripId scrip : {action.terms.scrip, action.terms.other}) {
      if (scrip) {
        scrips_.try_emplace(scrip, QString::fromStdString(directory.Scrip(scrip).name));
      }
    }
  }
}

/// The newest rate up to a day; nullptr when there is none.
const ScripPage::RateOfDay* ScripPage::NewestRate(Date day) const {
  const auto after = std::ranges::upper_bound(rates_, day, {}, &RateOfDay::date);
  return after == rates_.begin() ? nullptr : &*std::prev(after);
}

reporting::Table ScripPage::HoldingTable() const {
  reporting::Table table;
  table.titles = {QStringLiteral("Held")};
  table.columns = {TextColumn(QStringLiteral("Client")),
                   TextColumn(QStringLiteral("Demat A/c No.")),
                   DateColumn(QStringLiteral("Acquired")),
                   DateColumn(QStringLiteral("In the Account Since")),
                   QuantityColumn(QStringLiteral("Quantity")),
                   AmountColumn(QStringLiteral("Cost")),
                   AmountColumn(QStringLiteral("Value")),
                   AmountColumn(QStringLiteral("Gain"))};
  const RateOfDay* rate = NewestRate(query_.as_on);
  Shares quantity;
  Paise cost;
  Paise value;
  const auto with_value = [&](std::vector<reporting::Cell> cells, Paise of_cost, Paise of_value) {
    cells.emplace_back(of_cost.Rupees());
    if (rate != nullptr) {
      cells.emplace_back(of_value.Rupees());
      cells.emplace_back((of_value - of_cost).Rupees());
    }
    return cells;
  };
  for (const Holding& holding : now_.holdings) {
    if (!IsWanted(holding.client) || holding.place.scrip != query_.scrip) {
      continue;
    }
    for (const Layer& layer : holding.layers) {
      const Paise worth = rate == nullptr ? Paise() : ValueOf(layer.quantity, rate->rate);
      table.rows.push_back(
          {.cells = with_value({clients_.at(holding.client), accounts_.at(holding.place.account),
                                layer.acquired, layer.entered, layer.quantity.Number()},
                               layer.cost, worth)});
      quantity += layer.quantity;
      cost += layer.cost;
      value += worth;
    }
  }
  if (!table.rows.empty()) {
    table.rows.push_back(
        {.kind = RowKind::kNetTotal,
         .cells =
             with_value({QStringLiteral("Total"), {}, {}, {}, quantity.Number()}, cost, value)});
  }
  return table;
}

reporting::Table ScripPage::GainTable() const {
  reporting::Table table;
  table.titles = {QStringLiteral("Sold")};
  table.columns = {
      DateColumn(QStringLiteral("Sold")),         TextColumn(QStringLiteral("Demat A/c No.")),
      TextColumn(QStringLiteral("Kind")),         DateColumn(QStringLiteral("Acquired")),
      QuantityColumn(QStringLiteral("Quantity")), AmountColumn(QStringLiteral("Sale Amount")),
      AmountColumn(QStringLiteral("Expenses")),   AmountColumn(QStringLiteral("Cost")),
      AmountColumn(QStringLiteral("Gain"))};
  Paise sale;
  Paise expenses;
  Paise cost;
  Paise gain;
  for (const Piece& piece : now_.pieces) {
    if (!IsWanted(piece.client) || piece.place.scrip != query_.scrip) {
      continue;
    }
    const reporting::Cell acquired = piece.has_cost ? reporting::Cell(piece.acquired)
                                                    : reporting::Cell(QStringLiteral("not known"));
    table.rows.push_back(
        {.cells = {piece.sold, accounts_.at(piece.place.account), KindText(piece.kind), acquired,
                   piece.quantity.Number(), piece.sale.Rupees(), piece.expenses.Rupees(),
                   piece.cost.Rupees(), piece.Gain().Rupees()}});
    sale += piece.sale;
    expenses += piece.expenses;
    cost += piece.cost;
    gain += piece.Gain();
  }
  if (!table.rows.empty()) {
    table.rows.push_back({.kind = RowKind::kNetTotal,
                          .cells = {QStringLiteral("Total"),
                                    {},
                                    {},
                                    {},
                                    {},
                                    sale.Rupees(),
                                    expenses.Rupees(),
                                    cost.Rupees(),
                                    gain.Rupees()}});
  }
  return table;
}

/// The balances that later years open with are the shares that are listed already.
bool ScripPage::IsCarried(const Event& event) const {
  return event.kind == EventKind::kOpening &&
         std::ranges::any_of(history_.events, [&](const Event& other) {
           return other.client == event.client && other.day < event.day;
         });
}

reporting::Table ScripPage::MovementTable() const {
  reporting::Table table;
  table.titles = {QStringLiteral("Recorded")};
  table.columns = {
      DateColumn(QStringLiteral("Date")),          TextColumn(QStringLiteral("Record")),
      TextColumn(QStringLiteral("Demat A/c No.")), TextColumn(QStringLiteral("To A/c No.")),
      QuantityColumn(QStringLiteral("Quantity")),  AmountColumn(QStringLiteral("Amount"))};
  std::vector<Event> events;
  std::ranges::copy_if(history_.events, std::back_inserter(events), [this](const Event& event) {
    const bool concerns = IsWanted(event.client) || IsWanted(event.to_client);
    return concerns && event.scrip == query_.scrip && event.day <= query_.as_on &&
           !IsCarried(event);
  });
  std::ranges::stable_sort(events, {}, [](const Event& event) {
    return std::tuple(event.day, event.kind, event.document, event.line);
  });
  for (const Event& event : events) {
    table.rows.push_back(
        {.cells = {event.day, KindText(event.kind), accounts_.at(event.account),
                   event.to ? reporting::Cell(accounts_.at(event.to)) : reporting::Cell(),
                   event.quantity.Number(), event.amount.Rupees()}});
  }
  return table;
}

/// Balances that a year opens with and that the years before do not leave.
reporting::Table ScripPage::DifferenceTable() const {
  reporting::Table table;
  table.titles = {QStringLiteral("Opening Balances that Differ")};
  table.columns = {TextColumn(QStringLiteral("Year")), TextColumn(QStringLiteral("Demat A/c No.")),
                   QuantityColumn(QStringLiteral("Recorded")),
                   QuantityColumn(QStringLiteral("Left by the Years Before"))};
  for (const positions::Difference& difference : now_.differences) {
    if (IsWanted(difference.of.client) && difference.place.scrip == query_.scrip) {
      table.rows.push_back(
          {.cells = {difference.of.year.Text(), accounts_.at(difference.place.account),
                     difference.recorded.Number(), difference.computed.Number()}});
    }
  }
  return table;
}

reporting::Table ScripPage::ActionTable() const {
  reporting::Table table;
  table.titles = {QStringLiteral("Corporate Actions")};
  table.columns = {DateColumn(QStringLiteral("Ex-Date")), TextColumn(QStringLiteral("Script Name")),
                   TextColumn(QStringLiteral("Action")), TextColumn(QStringLiteral("To Script")),
                   TextColumn(QStringLiteral("Note"))};
  std::vector<const positions::DatedAction*> actions;
  for (const positions::DatedAction& action : history_.actions) {
    const bool concerns = action.terms.scrip == query_.scrip || action.terms.other == query_.scrip;
    if (concerns && action.ex_day <= query_.as_on) {
      actions.push_back(&action);
    }
  }
  std::ranges::stable_sort(actions, {}, [](const auto* action) { return action->ex_day; });
  for (const positions::DatedAction* action : actions) {
    const auto other = scrips_.find(action->terms.other);
    table.rows.push_back(
        {.cells = {action->ex_day, scrips_.at(action->terms.scrip),
                   actions::Describe(action->terms),
                   other == scrips_.end() ? reporting::Cell() : reporting::Cell(other->second),
                   action->terms.note}});
  }
  return table;
}

reporting::Table ScripPage::DividendTable() const {
  reporting::Table table;
  table.titles = {QStringLiteral("Dividends")};
  table.columns = {
      DateColumn(QStringLiteral("Date")),         TextColumn(QStringLiteral("Demat A/c No.")),
      QuantityColumn(QStringLiteral("Quantity")), AmountColumn(QStringLiteral("Rs a Share")),
      AmountColumn(QStringLiteral("Dividend")),   AmountColumn(QStringLiteral("Tax Deducted"))};
  Paise gross;
  Paise deducted;
  for (const records::Dividend& dividend : dividends_) {
    const Paise amount = Paise::OfRupees(dividend.Gross());
    table.rows.push_back({.cells = {text::ParseDmy(dividend.date).value_or(Date{}),
                                    accounts_.at(dividend.account), dividend.quantity.Number(),
                                    dividend.per_share, amount.Rupees(), dividend.tax_deducted}});
    gross += amount;
    deducted += Paise::OfRupees(dividend.tax_deducted);
  }
  if (!table.rows.empty()) {
    table.rows.push_back(
        {.kind = RowKind::kNetTotal,
         .cells = {QStringLiteral("Total"), {}, {}, {}, gross.Rupees(), deducted.Rupees()}});
  }
  return table;
}

reporting::ReportDocument ScripPage::Document() const {
  reporting::ReportDocument document;
  QStringList names;
  for (const ClientId client : query_.clients) {
    names << clients_.at(client);
  }
  document.titles = {
      QStringLiteral("%1 (Up To %2)").arg(scrips_.at(query_.scrip), text::FormatDmy(query_.as_on)),
      names.join(QStringLiteral(", "))};
  for (reporting::Table table : {HoldingTable(), GainTable(), MovementTable(), DifferenceTable(),
                                 ActionTable(), DividendTable()}) {
    if (!table.rows.empty()) {
      document.tables.push_back(std::move(table));
    }
  }
  if (const RateOfDay* rate = NewestRate(query_.as_on)) {
    document.notes << QStringLiteral("Valued at the rate of %1.").arg(text::FormatDmy(rate->date));
  }
  return document;
}

charts::ChartData ScripPage::RateChart() const {
  charts::ChartData chart;
  chart.kind = charts::ChartKind::kLines;
  chart.title = QStringLiteral("Rate of %1").arg(scrips_.at(query_.scrip));
  chart.category_heading = QStringLiteral("Month");
  chart.series = {{QStringLiteral("Rate"), {}}};
  for (std::size_t i = 0; i < rates_.size(); ++i) {
    const bool is_last_of_month =
        i + 1 == rates_.size() || EndOfMonth(rates_[i + 1].date) != EndOfMonth(rates_[i].date);
    if (is_last_of_month) {
      chart.categories << charts::MonthName(rates_[i].date);
      chart.series[0].paise.push_back(Paise::OfRupees(rates_[i].rate).Count());
    }
  }
  return chart;
}

/// From the month of the first record to that of the page's day; of a long history the last ten
/// years.
std::vector<Date> ScripPage::MonthEnds() const {
  constexpr int kYears = 10;
  std::vector<Date> ends;
  if (history_.events.empty()) {
    return ends;
  }
  const auto first = std::ranges::min_element(history_.events, {}, &Event::day)->day;
  for (Date end = EndOfMonth(first); end < EndOfMonth(query_.as_on);
       end = EndOfMonth(end + std::chrono::days(1))) {
    ends.push_back(end);
  }
  ends.push_back(query_.as_on);
  if (ends.size() > kYears * kMonths) {
    ends.erase(ends.begin(), ends.end() - kYears * kMonths);
  }
  return ends;
}

charts::ChartData ScripPage::HoldingChart() const {
  charts::ChartData chart;
  chart.kind = charts::ChartKind::kLines;
  chart.title = QStringLiteral("Holding of %1").arg(scrips_.at(query_.scrip));
  chart.category_heading = QStringLiteral("Month");
  chart.series = {{QStringLiteral("Cost"), {}}, {QStringLiteral("Value"), {}}};
  for (const Date end : MonthEnds()) {
    positions::EventList list = history_;
    Shares quantity;
    Paise cost;
    for (const Holding& holding : positions::Compute(list, end).holdings) {
      if (IsWanted(holding.client) && holding.place.scrip == query_.scrip) {
        quantity += holding.Quantity();
        cost += holding.Cost();
      }
    }
    const RateOfDay* rate = NewestRate(end);
    chart.categories << charts::MonthName(end);
    chart.series[0].paise.push_back(cost.Count());
    chart.series[1].paise.push_back(rate == nullptr ? 0 : ValueOf(quantity, rate->rate).Count());
  }
  return chart;
}

}  // namespace quorvane::scrip_page
