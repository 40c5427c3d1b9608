#include "transactions/opening_stock/OpeningReport.h"

#include "core/text/Amounts.h"

namespace quorvane::opening_stock {
namespace {

std::vector<reporting::Column> Columns() {
  using reporting::AmountColumn;
  return {reporting::TextColumn(QStringLiteral("Script Name")),
          reporting::TextColumn(QStringLiteral("Demat A/c No.")),
          AmountColumn(QStringLiteral("Rate")),
          reporting::QuantityColumn(QStringLiteral("Quantity")),
          reporting::DateColumn(QStringLiteral("Purchase Date")),
          AmountColumn(QStringLiteral("Total")),
          AmountColumn(QStringLiteral("Service Tax")),
          AmountColumn(QStringLiteral("STT")),
          reporting::TextColumn(QStringLiteral("F&O")),
          AmountColumn(QStringLiteral("Brokerage"))};
}

/// Old rows may hold a text that is no date; it is shown as it stands.
reporting::Cell DateCell(const QString& dmy) {
  const auto date = text::ParseDmy(dmy);
  return date ? reporting::Cell(*date) : reporting::Cell(dmy);
}

reporting::Row RowOf(const OpeningLot& lot, const lookups::Directory& directory) {
  return {.kind = reporting::RowKind::kData,
          .cells = {QString::fromStdString(directory.Scrip(lot.scrip).name),
                    QString::fromStdString(directory.Account(lot.account).number), lot.rate,
                    lot.quantity.Number(), DateCell(lot.purchase_date), lot.total, lot.service_tax,
                    lot.stt, lot.fo ? QStringLiteral("Yes") : QStringLiteral("No"), lot.brokerage}};
}

reporting::Row TotalOf(std::span<const OpeningLot> lots) {
  std::int64_t total = 0;
  std::int64_t service_tax = 0;
  std::int64_t stt = 0;
  for (const OpeningLot& lot : lots) {
    total += text::ToPaise(lot.total);
    service_tax += text::ToPaise(lot.service_tax);
    stt += text::ToPaise(lot.stt);
  }
  const std::monostate none;
  return {.kind = reporting::RowKind::kNetTotal,
          .cells = {QStringLiteral("Total"), none, none, none, none, text::FromPaise(total),
                    text::FromPaise(service_tax), text::FromPaise(stt), none, none}};
}

}  // namespace

reporting::ReportDocument MakeOpeningReport(std::span<const OpeningLot> lots, const ClientYear& of,
                                            const lookups::Directory& directory) {
  reporting::Table table;
  table.columns = Columns();
  for (const OpeningLot& lot : lots) {
    table.rows.push_back(RowOf(lot, directory));
  }
  if (!lots.empty()) {
    table.rows.push_back(TotalOf(lots));
  }
  const lookups::ClientEntry& client = directory.Client(of.client);
  return {{QStringLiteral("Stock Opening Balance"),
           QStringLiteral("Financial Year - ") + of.year.Text(),
           QString::fromStdString(client.name) + QStringLiteral(" (") +
               QString::fromStdString(client.code) + QLatin1Char(')')},
          {table}};
}

}  // namespace quorvane::opening_stock
