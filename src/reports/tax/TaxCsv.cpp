#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "reports/tax/TaxDocument.h"

#include <array>

namespace quorvane::tax_year {
namespace {

using tax::GainKind;

enum Column {
  kRow,
  kKind,
  kSection,
  kPercent,
  kAccount,
  kScrip,
  kAcquired,
  kSold,
  kQuantity,
  kSale,
  kExpenses,
  kCost,
  kFair,
  kCostTaken,
  kGain,
  kWindow,
  kLossYear,
  kLossKind,
  kColumns
};

constexpr std::string_view kHeader =
    "row,kind,section,percent,account_no,scrip_code,acquired,sold,quantity,sale_value,expenses,"
    "cost,"
    "fair_value,cost_taken,gain,window,loss_year,loss_kind\n";

/// A row under construction: cells that are not set are empty.
class CsvRow {
 public:
  explicit CsvRow(std::string_view row) { cells_[kRow] = row; }

  CsvRow& Text(Column column, std::string_view text) {
    cells_[column] = text;
    return *this;
  }
  CsvRow& Money(Column column, Paise amount) {
    text::AppendPaise(cells_[column], amount.Count());
    return *this;
  }
  CsvRow& Number(Column column, double number) {
    text::AppendExact(cells_[column], number);
    return *this;
  }
  CsvRow& Day(Column column, Date day) {
    text::AppendDmy(cells_[column], day);
    return *this;
  }
  CsvRow& Of(GainKind kind, const tax::Section& section) {
    Text(kKind, tax::NameOf(kind).file_name);
    Text(kSection, section.name.toStdString());
    if (section.percent) {
      Number(kPercent, section.percent->Number());
    }
    return *this;
  }
  CsvRow& Of(const GainGroup& group) { return Of(group.kind, group.section); }
  CsvRow& Of(FinancialYear year, tax::LossKind kind) {
    return Text(kLossYear, year.Utf8()).Text(kLossKind, tax::NameOf(kind).file_name);
  }

  void AppendTo(std::string& out) const {
    for (int column = 0; column < kColumns; ++column) {
      out += column > 0 ? "," : "";
      text::AppendCsvField(out, cells_[column]);
    }
    out += '\n';
  }

 private:
  std::array<std::string, kColumns> cells_;
};

void AppendPiece(std::string& out, const TaxPiece& piece, const lookups::Directory& directory) {
  CsvRow row("piece");
  row.Of(piece.kind, piece.section)
      .Text(kAccount, directory.Account(piece.of.place.account).number)
      .Text(kScrip, directory.Scrip(piece.of.place.scrip).code)
      .Day(kAcquired, piece.of.acquired)
      .Day(kSold, piece.of.sold)
      .Number(kQuantity, piece.of.quantity.Number())
      .Money(kSale, piece.sale)
      .Money(kExpenses, piece.expenses)
      .Money(kCost, piece.cost)
      .Money(kCostTaken, piece.cost_taken)
      .Money(kGain, piece.gain);
  if (piece.fair) {
    row.Money(kFair, *piece.fair);
  }
  if (piece.window > 0) {
    row.Number(kWindow, piece.window);
  }
  row.AppendTo(out);
}

void AppendTotals(std::string& out, const TaxYear& year) {
  for (const GainGroup& group : year.groups) {
    CsvRow("total")
        .Of(group)
        .Money(kSale, group.sale)
        .Money(kExpenses, group.expenses)
        .Money(kCost, group.cost)
        .Money(kCostTaken, group.cost_taken)
        .Money(kGain, group.gain)
        .AppendTo(out);
  }
  for (const WindowSum& sum : year.windows) {
    CsvRow("window")
        .Of(year.groups[sum.group])
        .Number(kWindow, sum.window)
        .Money(kGain, sum.gain)
        .AppendTo(out);
  }
}

bool IsTaxed(const GainGroup& group) {
  return group.gain > Paise() && (tax::IsShortTerm(group.kind) || tax::IsLongTerm(group.kind) ||
                                  group.kind == GainKind::kSpeculation);
}

void AppendTax(std::string& out, const TaxYear& year) {
  for (const SetOffLine& line : year.set_off.lines) {
    CsvRow("set_off")
        .Of(year.groups[line.group])
        .Of(line.loss_year, line.loss)
        .Money(kGain, line.amount)
        .AppendTo(out);
  }
  for (const ExemptionLine& line : year.set_off.exemptions) {
    CsvRow("exemption").Of(year.groups[line.group]).Money(kGain, line.amount).AppendTo(out);
  }
  for (std::size_t i = 0; i < year.groups.size(); ++i) {
    if (IsTaxed(year.groups[i])) {
      CsvRow("taxable").Of(year.groups[i]).Money(kGain, year.set_off.taxable[i]).AppendTo(out);
    }
  }
  for (std::size_t i = 0; i < year.groups.size(); ++i) {
    const std::optional<Paise> due = year.TaxOf(i);
    if (due && year.set_off.taxable[i] > Paise()) {
      CsvRow("tax").Of(year.groups[i]).Money(kGain, *due).AppendTo(out);
    }
  }
}

void AppendLosses(std::string& out, std::string_view row, std::span<const OpenLoss> losses) {
  for (const OpenLoss& loss : losses) {
    CsvRow(row).Of(loss.loss_year, loss.kind).Money(kGain, loss.amount).AppendTo(out);
  }
}

}  // namespace

void AppendTaxCsvHeader(std::string& out) {
  out += kHeader;
}

void AppendTaxCsv(std::string& out, const ClientTax& tax, const lookups::Directory& directory) {
  for (const TaxPiece& piece : tax.year.pieces) {
    AppendPiece(out, piece, directory);
  }
  AppendTotals(out, tax.year);
  AppendTax(out, tax.year);
  AppendLosses(out, "carried", tax.year.set_off.carried);
  AppendLosses(out, "lapsed", tax.year.set_off.lapsed);
}

}  // namespace quorvane::tax_year
