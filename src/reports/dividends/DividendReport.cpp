#include "reports/dividends/DividendReport.h"

#include "core/lookups/Directory.h"
#include "core/records/Query.h"
#include "core/text/Paise.h"

#include <algorithm>
#include <tuple>

namespace quorvane::dividends {
namespace {

using records::Dividend;
using reporting::RowKind;
using text::Paise;

/// A dividend with its day read and its amounts in paise.
struct Received {
  text::Date date;
  QString scrip;
  QString account;
  const Dividend* dividend = nullptr;
  Paise gross;
  Paise tax;
};

struct Sums {
  Paise gross;
  Paise tax;

  void Add(const Received& one) {
    gross += one.gross;
    tax += one.tax;
  }
};

std::vector<Received> InPeriod(std::span<const Dividend> all, const reporting::Period& period,
                               const lookups::Directory& directory) {
  std::vector<Received> received;
  for (const Dividend& dividend : all) {
    const auto date = text::ParseDmy(dividend.date);
    if (date && period.from <= *date && *date <= period.to) {
      received.push_back({*date, QString::fromStdString(directory.Scrip(dividend.scrip).name),
                          QString::fromStdString(directory.Account(dividend.account).number),
                          &dividend, Paise::OfRupees(dividend.Gross()),
                          Paise::OfRupees(dividend.tax_deducted)});
    }
  }
  std::ranges::stable_sort(received, {}, [](const Received& one) {
    return std::tuple(one.date, one.scrip, one.account);
  });
  return received;
}

reporting::Table ListOf(std::span<const Received> received) {
  reporting::Table table;
  table.columns = {reporting::DateColumn(QStringLiteral("Date")),
                   reporting::TextColumn(QStringLiteral("Script Name")),
                   reporting::TextColumn(QStringLiteral("Demat A/c No.")),
                   reporting::QuantityColumn(QStringLiteral("Quantity")),
                   reporting::AmountColumn(QStringLiteral("Rs a Share")),
                   reporting::AmountColumn(QStringLiteral("Dividend")),
                   reporting::AmountColumn(QStringLiteral("Tax Deducted")),
                   reporting::AmountColumn(QStringLiteral("Received"))};
  Sums total;
  for (const Received& one : received) {
    total.Add(one);
    table.rows.push_back(
        {.cells = {one.date, one.scrip, one.account, one.dividend->quantity.Number(),
                   one.dividend->per_share, one.gross.Rupees(), one.tax.Rupees(),
                   (one.gross - one.tax).Rupees()}});
  }
  table.rows.push_back({.kind = RowKind::kNetTotal,
                        .cells = {{},
                                  QStringLiteral("Total"),
                                  {},
                                  {},
                                  {},
                                  total.gross.Rupees(),
                                  total.tax.Rupees(),
                                  (total.gross - total.tax).Rupees()}});
  return table;
}

reporting::Table WindowsOf(std::span<const Received> received,
                           std::span<const tax::AdvanceTaxWindow> windows) {
  reporting::Table table;
  table.titles = {QStringLiteral("By Advance-Tax Window")};
  table.columns = {reporting::DateColumn(QStringLiteral("From")),
                   reporting::DateColumn(QStringLiteral("To")),
                   reporting::AmountColumn(QStringLiteral("Dividend")),
                   reporting::AmountColumn(QStringLiteral("Tax Deducted"))};
  for (const tax::AdvanceTaxWindow& window : windows) {
    Sums sums;
    for (const Received& one : received) {
      if (window.Contains(one.date)) {
        sums.Add(one);
      }
    }
    table.rows.push_back(
        {.cells = {window.first_day, window.last_day, sums.gross.Rupees(), sums.tax.Rupees()}});
  }
  return table;
}

}  // namespace

reporting::ReportDocument MakeDividendReport(database::Connection& connection,
                                             const DividendQuery& query,
                                             std::span<const tax::AdvanceTaxWindow> windows) {
  const lookups::Directory directory(connection);
  const std::vector<Dividend> all = records::Select<Dividend>(connection)
                                        .Where(&Dividend::client, query.of.client)
                                        .OrderBy(&Dividend::id)
                                        .All();
  const std::vector<Received> received = InPeriod(all, query.period, directory);
  reporting::ReportDocument document;
  document.titles = {QStringLiteral("Dividends (From %1 To %2)")
                         .arg(text::FormatDmy(query.period.from), text::FormatDmy(query.period.to)),
                     QString::fromStdString(directory.Client(query.of.client).name)};
  document.tables.push_back(ListOf(received));
  if (windows.empty()) {
    document.notes << QStringLiteral("The windows of advance tax of this year are not known.");
  } else {
    document.tables.push_back(WindowsOf(received, windows));
  }
  return document;
}

}  // namespace quorvane::dividends
