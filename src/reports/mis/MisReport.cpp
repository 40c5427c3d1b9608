#include "reports/mis/MisReport.h"

#include "core/text/Amounts.h"
#include "reports/mis/Groups.h"

#include <QDate>
#include <QLocale>

#include <algorithm>
#include <set>

namespace quorvane::mis {
namespace {

QString GroupedName(ReportKind kind) {
  return kind == ReportKind::kProfitLoss ? QStringLiteral("Profit/Loss Report") : TitleOf(kind);
}

QString NameOf(Grouping grouping) {
  switch (grouping) {
    case Grouping::kScrip:
      return QStringLiteral("Script Wise");
    case Grouping::kAccount:
      return QStringLiteral("Demat A/c Wise");
    case Grouping::kClient:
      break;
  }
  return QStringLiteral("Client/Group Wise");
}

reporting::Period PeriodOf(const MisQuery& query) {
  return IsOfOneDay(query.kind) ? reporting::Period{query.year.FirstDay(), query.ValuedOn()}
                                : query.period;
}

/// The client, or the group of which they are all; nothing for any other selection.
QString ClientsText(const MisQuery& query, const Names& names) {
  if (query.clients.empty()) {
    return {};
  }
  if (query.clients.size() == 1) {
    return names.Client(query.clients.front());
  }
  const QString group = names.GroupOf(query.clients.front());
  std::vector<ClientId> chosen = query.clients;
  std::vector<ClientId> all = names.ClientsOf(group);
  std::ranges::sort(chosen);
  std::ranges::sort(all);
  return !group.isEmpty() && chosen == all ? QStringLiteral("GROUP NAME- ") + group
                                           : QStringLiteral("Clients : %1").arg(chosen.size());
}

void AddTitles(reporting::ReportDocument& document, const MisQuery& query, const Names& names) {
  const QString grouped = TitleOf(query.kind, query.grouping);
  if (IsOfOneDay(query.kind)) {
    document.titles << TitleOf(query.kind) + QStringLiteral(" as on ") + LongDate(query.ValuedOn());
    document.tables.front().titles << grouped;
  } else {
    document.titles << grouped;
  }
  document.titles << QStringLiteral("Financial Year : ") + query.year.Text();
  if (!IsOfOneDay(query.kind) && query.period != reporting::Period::Of(query.year)) {
    document.titles << reporting::PeriodLine(query.period);
  }
  const QString clients = ClientsText(query, names);
  if (!clients.isEmpty()) {
    document.titles << clients;
  }
}

/// "A, B, C and 4 more".
QString Listed(const std::set<QString>& all) {
  constexpr std::size_t kMost = 12;
  QStringList names(all.begin(), all.end());
  const qsizetype more = names.size() - static_cast<qsizetype>(kMost);
  if (more <= 0) {
    return names.join(QStringLiteral(", "));
  }
  return QStringLiteral("%1 and %2 more")
      .arg(names.mid(0, kMost).join(QStringLiteral(", ")))
      .arg(more);
}

void AddNotes(reporting::ReportDocument& document, const ReportForm& form,
              const std::vector<Holding>& holdings, const Names& names) {
  std::set<QString> uncounted;
  std::set<QString> without_lot;
  bool older = false;
  for (const Holding& holding : holdings) {
    const bool shown = form.Shows(holding);
    if (shown && !form.Counts(holding.scrip)) {
      uncounted.insert(names.Scrip(holding.scrip));
    } else if (shown && !form.Mark(holding.scrip).isEmpty()) {
      older = true;
    }
    if (const double shares = holding.SoldWithoutLot(); shares > 0) {
      without_lot.insert(QStringLiteral("%1 (%2): %3")
                             .arg(names.Scrip(holding.scrip), names.Account(holding.account),
                                  text::NumberText(shares)));
    }
  }
  if (older) {
    document.notes << QStringLiteral(
        "[Rate of ...]: the newest rate before the day of the valuation.");
  }
  if (!uncounted.empty()) {
    document.notes
        << QStringLiteral("Without any market rate, and in no total: %1").arg(Listed(uncounted));
  }
  if (!without_lot.empty()) {
    document.notes << QStringLiteral(
                          "Shares sold without a purchase at their lot's rate, which lower no lot: "
                          "%1")
                          .arg(Listed(without_lot));
  }
}

}  // namespace

QString TitleOf(ReportKind kind) {
  switch (kind) {
    case ReportKind::kPosition:
      return QStringLiteral("Portfolio Position");
    case ReportKind::kValuation:
      return QStringLiteral("Portfolio Valuation");
    case ReportKind::kMarket:
      return QStringLiteral("Market Valuation");
    case ReportKind::kProfitLoss:
      return QStringLiteral("Profit/Loss Statement");
    case ReportKind::kStock:
      break;
  }
  return QStringLiteral("Stock Valuation");
}

QString TitleOf(ReportKind kind, Grouping grouping) {
  return GroupedName(kind) + QStringLiteral(" (") + NameOf(grouping) + QLatin1Char(')');
}

QString LongDate(Date date) {
  const std::chrono::year_month_day day(date);
  return QLocale::c().toString(
      QDate(static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day()))),
      QStringLiteral("dd MMMM, yyyy"));
}

reporting::ReportDocument MakeMisReport(database::Connection& connection, const MisQuery& query,
                                        Progress& progress) {
  const Names names(connection);
  const auto [holdings, faults] = ReadHoldings(connection, query, PeriodOf(query), progress);
  const MarketRates market = NeedsRates(query.kind)
                                 ? rates::RateBook(connection).NewestUpTo(query.ValuedOn())
                                 : MarketRates();
  const auto form = MakeForm(query.kind, market, query.ValuedOn());
  reporting::ReportDocument document;
  document.tables.push_back(MakeTable(query, *form, holdings, names));
  AddTitles(document, query, names);
  AddNotes(document, *form, holdings, names);
  document.notes += records::FaultTexts(connection, faults);
  return document;
}

}  // namespace quorvane::mis
