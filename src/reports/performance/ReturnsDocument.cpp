#include "reports/performance/Returns.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace quorvane::performance {
namespace {

using reporting::AmountColumn;
using reporting::Cell;
using reporting::DateColumn;
using reporting::RowKind;
using reporting::TextColumn;

constexpr double kPerCent = 100;

QString PercentText(double rate) {
  return text::FormatAmount(rate * kPerCent) + QLatin1Char('%');
}

/// The annual return in per cent, or a word when there is not exactly one.
Cell ReturnCell(const std::vector<double>& rates) {
  switch (rates.size()) {
    case 0:
      return QStringLiteral("none");
    case 1:
      return rates.front() * kPerCent;
    default:
      return QStringLiteral("several");
  }
}

QString KindText(FlowKind kind) {
  switch (kind) {
    case FlowKind::kOpeningValue:
      return QStringLiteral("Opening Value");
    case FlowKind::kOpeningBalance:
      return QStringLiteral("Opening Balance");
    case FlowKind::kAction:
      return QStringLiteral("Corporate Action");
    case FlowKind::kTransfer:
      return QStringLiteral("Transfer");
    case FlowKind::kPurchase:
      return QStringLiteral("Purchase");
    case FlowKind::kRights:
      return QStringLiteral("Rights");
    case FlowKind::kSale:
      return QStringLiteral("Sale");
    case FlowKind::kBuyBack:
      return QStringLiteral("Buy-Back");
    case FlowKind::kFraction:
      return QStringLiteral("Fraction of a Share");
    case FlowKind::kDividend:
      return QStringLiteral("Dividend");
    case FlowKind::kClosingValue:
      return QStringLiteral("Closing Value");
  }
  return {};
}

/// What marks a value that is not at a rate of its day.
Cell MarkOf(bool at_cost, std::optional<Date> rate_day, Date day) {
  if (at_cost) {
    return QStringLiteral("at cost");
  }
  return rate_day && *rate_day != day ? Cell(*rate_day) : Cell();
}

/// A table of groups with their total, and what is to be said of their returns.
class GroupTable {
 public:
  GroupTable(const QString& title, const QString& heading, Date last_day, bool with_rates)
      : last_day_(last_day), with_rates_(with_rates) {
    table_.titles = {title};
    table_.columns = {TextColumn(heading),
                      AmountColumn(QStringLiteral("% a Year")),
                      AmountColumn(QStringLiteral("Gain")),
                      AmountColumn(QStringLiteral("Opening Value")),
                      AmountColumn(QStringLiteral("Bought")),
                      AmountColumn(QStringLiteral("Sold")),
                      AmountColumn(QStringLiteral("Dividends")),
                      AmountColumn(QStringLiteral("Tax Deducted")),
                      AmountColumn(QStringLiteral("Moved In")),
                      AmountColumn(QStringLiteral("Closing Value"))};
    if (with_rates) {
      table_.columns.push_back(DateColumn(QStringLiteral("Rate Of")));
    }
  }

  void Add(const GroupFigures& group, RowKind kind = RowKind::kData) {
    const Figures& of = group.figures;
    const std::vector<double> rates = MoneyWeightedReturns(of.flows);
    reporting::Row row{.kind = kind, .cells = {group.name, ReturnCell(rates)}};
    for (const Paise amount :
         {of.Gain(), of.opening, of.bought, of.sold, of.dividends, of.tax, of.moved, of.closing}) {
      row.cells.emplace_back(amount.Rupees());
    }
    if (with_rates_) {
      row.cells.push_back(MarkOf(group.at_cost, group.rate_day, last_day_));
    }
    table_.rows.push_back(std::move(row));
    if (rates.size() > 1) {
      QStringList texts;
      std::ranges::transform(rates, std::back_inserter(texts), PercentText);
      notes_ << QStringLiteral("%1: the flows have several returns: %2.")
                    .arg(group.name, texts.join(QStringLiteral(", ")));
    }
  }

  void AddTotal(const Figures& whole) { Add({QStringLiteral("Total"), whole}, RowKind::kNetTotal); }

  void MoveTo(reporting::ReportDocument& document) {
    document.tables.push_back(std::move(table_));
    document.notes += notes_;
  }

 private:
  Date last_day_;
  bool with_rates_;
  reporting::Table table_;
  QStringList notes_;
};

void AddGroups(reporting::ReportDocument& document, const Returns& returns, const QString& title,
               const QString& heading, const std::vector<GroupFigures>& groups, bool with_rates) {
  if (groups.empty()) {
    return;
  }
  GroupTable table(title, heading, returns.period.to, with_rates);
  for (const GroupFigures& group : groups) {
    table.Add(group);
  }
  table.AddTotal(returns.whole);
  table.MoveTo(document);
}

reporting::Table MonthTable(const Returns& returns) {
  reporting::Table table;
  table.titles = {QStringLiteral("Value by Month")};
  table.columns = {DateColumn(QStringLiteral("Day")),
                   AmountColumn(QStringLiteral("Cost")),
                   AmountColumn(QStringLiteral("Value")),
                   AmountColumn(QStringLiteral("Gain")),
                   AmountColumn(QStringLiteral("Of the Value at Cost")),
                   DateColumn(QStringLiteral("Oldest Rate Of"))};
  for (const DayValue& day : returns.months) {
    table.rows.push_back(
        {.cells = {day.day, day.cost.Rupees(), day.value.Rupees(), (day.value - day.cost).Rupees(),
                   day.at_cost.Rupees(), MarkOf(false, day.oldest, day.day)}});
  }
  return table;
}

reporting::Table FlowTable(const Returns& returns) {
  reporting::Table table;
  table.titles = {QStringLiteral("Flows of Money and Value")};
  // The script first, as in the tables above: on the screen the columns share their widths.
  table.columns = {
      TextColumn(QStringLiteral("Script Name")), DateColumn(QStringLiteral("Date")),
      TextColumn(QStringLiteral("Kind")),        TextColumn(QStringLiteral("Demat A/c No.")),
      AmountColumn(QStringLiteral("Put In")),    AmountColumn(QStringLiteral("Came Out")),
      DateColumn(QStringLiteral("Rate Of"))};
  Paise put_in;
  Paise came_out;
  const auto amount = [](Paise paise) { return paise == Paise() ? Cell() : Cell(paise.Rupees()); };
  for (const FlowLine& flow : returns.flows) {
    put_in += flow.put_in;
    came_out += flow.came_out;
    table.rows.push_back(
        {.cells = {flow.scrip, flow.day, KindText(flow.kind), flow.account, amount(flow.put_in),
                   amount(flow.came_out), MarkOf(flow.at_cost, flow.rate_day, flow.day)}});
  }
  table.rows.push_back({.kind = RowKind::kNetTotal,
                        .cells = {QStringLiteral("Total"), Cell(), Cell(), Cell(), put_in.Rupees(),
                                  came_out.Rupees()}});
  return table;
}

void AddNotes(reporting::ReportDocument& document, const Returns& returns) {
  const auto year = std::chrono::days(365);
  document.notes << QStringLiteral(
      "% a Year is the money-weighted return (XIRR) of the flows between -99.99% and 10000.00%.");
  if (returns.period.to - returns.period.from + std::chrono::days(1) < year) {
    document.notes << QStringLiteral(
        "The period is shorter than a year: % a Year is what it would come to in a whole one.");
  }
  document.notes += returns.notes;
}

}  // namespace

reporting::ReportDocument MakeReturnsDocument(const Returns& returns, Months months) {
  reporting::ReportDocument document;
  document.titles = {
      QStringLiteral("Returns (From %1 To %2)")
          .arg(text::FormatDmy(returns.period.from), text::FormatDmy(returns.period.to))};
  document.titles += returns.of_whom;
  if (returns.flows.empty() && returns.scrips.empty()) {
    document.notes << QStringLiteral("Nothing is recorded in the period.");
    document.notes += returns.notes;
    return document;
  }
  AddGroups(document, returns, QStringLiteral("By Script"), QStringLiteral("Script Name"),
            returns.scrips, true);
  AddGroups(document, returns, QStringLiteral("By Demat Account"), QStringLiteral("Demat A/c No."),
            returns.accounts, false);
  AddGroups(document, returns, QStringLiteral("By Client"), QStringLiteral("Client"),
            returns.clients, false);
  if (months == Months::kWith) {
    document.tables.push_back(MonthTable(returns));
  }
  document.tables.push_back(FlowTable(returns));
  AddNotes(document, returns);
  return document;
}

reporting::ReportDocument MakeMonthsDocument(const Returns& returns) {
  reporting::ReportDocument document;
  document.titles = {
      QStringLiteral("Value by Month (From %1 To %2)")
          .arg(text::FormatDmy(returns.period.from), text::FormatDmy(returns.period.to))};
  document.titles += returns.of_whom;
  document.tables.push_back(MonthTable(returns));
  document.tables.back().titles.clear();
  return document;
}

charts::ChartData ValueChart(const Returns& returns) {
  constexpr std::size_t kMost = 120;
  charts::ChartData chart;
  chart.kind = charts::ChartKind::kLines;
  chart.title = QStringLiteral("Value by Month");
  chart.subtitle = returns.of_whom.join(QStringLiteral(" - "));
  chart.category_heading = QStringLiteral("Month");
  chart.series = {{QStringLiteral("Cost"), {}}, {QStringLiteral("Value"), {}}};
  const std::size_t skipped = returns.months.size() - std::min(returns.months.size(), kMost);
  for (std::size_t i = skipped; i < returns.months.size(); ++i) {
    const DayValue& day = returns.months[i];
    chart.categories << charts::MonthName(day.day);
    chart.series[0].paise.push_back(day.cost.Count());
    chart.series[1].paise.push_back(day.value.Count());
  }
  const bool at_cost = std::ranges::any_of(
      returns.months, [](const DayValue& day) { return day.at_cost != Paise(); });
  if (at_cost) {
    chart.notes << QStringLiteral("Shares without a stored rate count at cost.");
  }
  return chart;
}

}  // namespace quorvane::performance
