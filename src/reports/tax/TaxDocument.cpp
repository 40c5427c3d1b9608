#include "reports/tax/TaxDocument.h"

#include "core/tax/TaxLosses.h"
#include "core/text/Amounts.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorvane::tax_year {
namespace {

using reporting::Cell;
using reporting::Row;
using reporting::RowKind;
using reporting::Table;
using tax::GainKind;

QString Name(GainKind kind) {
  return QString::fromLatin1(tax::NameOf(kind).title);
}

QString Name(tax::LossKind kind) {
  return QString::fromLatin1(tax::NameOf(kind).title);
}

/// "Long term, STT paid: section 112A, 12.5 %".
QString Name(GainKind kind, const tax::Section& section) {
  QString name = Name(kind);
  if (!section.name.isEmpty()) {
    const bool is_section = section.name.front().isDigit();
    name += (is_section ? QStringLiteral(": section ") : QStringLiteral(": ")) + section.name;
  }
  if (section.percent) {
    name += QStringLiteral(", %1 %").arg(text::NumberText(section.percent->Number()));
  }
  return name;
}

QString Name(const GainGroup& group) {
  return Name(group.kind, group.section);
}

Cell Money(Paise amount) {
  return amount.Rupees();
}

Cell Money(std::optional<Paise> amount) {
  return amount ? Cell(amount->Rupees()) : Cell();
}

/// The sums of the columns behind the first one.
Row TotalRow(std::span<const Paise> sums) {
  Row row{.kind = RowKind::kNetTotal, .cells = {QStringLiteral("Total")}};
  for (const Paise sum : sums) {
    row.cells.push_back(Money(sum));
  }
  return row;
}

/// What is open before filing, a line a point.
QStringList NotesOf(std::span<const Point> points) {
  QStringList notes;
  for (const Point& point : points) {
    notes << (point.open ? QStringLiteral("Open before filing: %1") : QStringLiteral("Hint: %1"))
                 .arg(point.text);
  }
  return notes;
}

Row PieceRow(const TaxPiece& piece, const lookups::Directory& directory) {
  Row row{.cells = {QString::fromStdString(directory.Scrip(piece.of.place.scrip).name),
                    QString::fromStdString(directory.Account(piece.of.place.account).number),
                    piece.of.acquired, piece.of.sold, piece.of.quantity.Number(), Money(piece.sale),
                    Money(piece.expenses), Money(piece.cost), Money(piece.fair),
                    Money(piece.cost_taken), Money(piece.gain)}};
  if (!piece.of.has_cost) {
    row.cells[2] = {};
  }
  return row;
}

/// The pieces below a heading for each group, each with its total.
Table PieceTable(const TaxYear& year, const lookups::Directory& directory) {
  Table table;
  table.titles = {QStringLiteral("Sales")};
  table.columns = {reporting::TextColumn(QStringLiteral("Script Name")),
                   reporting::TextColumn(QStringLiteral("Demat A/c No.")),
                   reporting::DateColumn(QStringLiteral("Acquired")),
                   reporting::DateColumn(QStringLiteral("Sold")),
                   reporting::QuantityColumn(QStringLiteral("Quantity")),
                   reporting::AmountColumn(QStringLiteral("Sale Value")),
                   reporting::AmountColumn(QStringLiteral("Expenses")),
                   reporting::AmountColumn(QStringLiteral("Cost")),
                   reporting::AmountColumn(QStringLiteral("Value 31-Jan-2018")),
                   reporting::AmountColumn(QStringLiteral("Cost Taken")),
                   reporting::AmountColumn(QStringLiteral("Gain"))};
  const auto add_pieces = [&](const auto& belongs) {
    for (const TaxPiece& piece : year.pieces) {
      if (belongs(piece)) {
        table.rows.push_back(PieceRow(piece, directory));
      }
    }
  };
  for (const GainGroup& group : year.groups) {
    table.rows.push_back({.kind = RowKind::kGroup, .cells = {Name(group)}});
    add_pieces([&](const TaxPiece& piece) {
      return piece.kind == group.kind && piece.section == group.section;
    });
    table.rows.push_back({.kind = RowKind::kTotal,
                          .cells = {QStringLiteral("Total"),
                                    {},
                                    {},
                                    {},
                                    {},
                                    Money(group.sale),
                                    Money(group.expenses),
                                    Money(group.cost),
                                    {},
                                    Money(group.cost_taken),
                                    Money(group.gain)}});
  }
  const auto is_unknown = [](const TaxPiece& piece) { return piece.kind == GainKind::kUnknown; };
  if (std::ranges::any_of(year.pieces, is_unknown)) {
    table.rows.push_back(
        {.kind = RowKind::kGroup, .cells = {QStringLiteral("Cost not known: in no total")}});
    add_pieces(is_unknown);
  }
  return table;
}

/// What was taken from each group.
template <class Line>
std::vector<Paise> ByGroup(std::size_t groups, std::span<const Line> lines) {
  std::vector<Paise> sums(groups);
  for (const Line& line : lines) {
    sums[line.group] += line.amount;
  }
  return sums;
}

bool TakesPart(GainKind kind) {
  return tax::IsShortTerm(kind) || tax::IsLongTerm(kind) || kind == GainKind::kSpeculation;
}

Table SumTable(const TaxYear& year) {
  Table table;
  table.titles = {QStringLiteral("Sums by Section")};
  table.columns = {reporting::TextColumn(QStringLiteral("Gain")),
                   reporting::AmountColumn(QStringLiteral("Sale Value")),
                   reporting::AmountColumn(QStringLiteral("Expenses")),
                   reporting::AmountColumn(QStringLiteral("Cost Taken")),
                   reporting::AmountColumn(QStringLiteral("Gain or Loss")),
                   reporting::AmountColumn(QStringLiteral("Set Off")),
                   reporting::AmountColumn(QStringLiteral("Free of Tax")),
                   reporting::AmountColumn(QStringLiteral("Taxable")),
                   reporting::AmountColumn(QStringLiteral("Tax (Estimate)"))};
  const auto set_off = ByGroup<SetOffLine>(year.groups.size(), year.set_off.lines);
  const auto exempt = ByGroup<ExemptionLine>(year.groups.size(), year.set_off.exemptions);
  std::array<Paise, 8> total{};
  for (std::size_t i = 0; i < year.groups.size(); ++i) {
    const GainGroup& group = year.groups[i];
    const bool part = TakesPart(group.kind);
    const std::array<Paise, 8> sums{
        group.sale, group.expenses, group.cost_taken,        group.gain,
        set_off[i], exempt[i],      year.set_off.taxable[i], year.TaxOf(i).value_or(Paise())};
    Row row{.cells = {Name(group)}};
    for (std::size_t column = 0; column < sums.size(); ++column) {
      total[column] += sums[column];
      const bool empty = column >= 4 && (!part || (column == 7 && !year.TaxOf(i)));
      row.cells.push_back(empty ? Cell() : Money(sums[column]));
    }
    table.rows.push_back(std::move(row));
  }
  table.rows.push_back(TotalRow(total));
  return table;
}

/// A column a window.
Table WindowTable(const tax::Rules& rules, const TaxYear& year) {
  Table table;
  table.titles = {QStringLiteral("Gains by Advance-Tax Window, before Set-Off")};
  table.columns = {reporting::TextColumn(QStringLiteral("Gain"))};
  for (const tax::AdvanceTaxWindow& window : rules.Windows()) {
    table.columns.push_back(reporting::AmountColumn(
        QStringLiteral("Up To %1").arg(text::FormatDmy(window.last_day).left(5))));
  }
  table.columns.push_back(reporting::AmountColumn(QStringLiteral("Year")));
  std::vector<Paise> total(rules.Windows().size() + 1);
  for (std::size_t i = 0; i < year.groups.size(); ++i) {
    std::vector<Paise> sums(total.size());
    for (const WindowSum& sum : year.windows) {
      if (sum.group == i) {
        sums[static_cast<std::size_t>(sum.window) - 1] = sum.gain;
      }
    }
    sums.back() = year.groups[i].gain;
    Row row{.cells = {Name(year.groups[i])}};
    for (std::size_t column = 0; column < sums.size(); ++column) {
      total[column] += sums[column];
      row.cells.push_back(Money(sums[column]));
    }
    table.rows.push_back(std::move(row));
  }
  table.rows.push_back(TotalRow(total));
  return table;
}

Table LossTable(const TaxYear& year) {
  Table table;
  table.titles = {QStringLiteral("Losses")};
  table.columns = {reporting::TextColumn(QStringLiteral("Loss")),
                   reporting::TextColumn(QStringLiteral("Of")),
                   reporting::TextColumn(QStringLiteral("What Becomes of It")),
                   reporting::AmountColumn(QStringLiteral("Amount"))};
  const auto add = [&](tax::LossKind kind, FinancialYear of, const QString& what, Paise amount) {
    table.rows.push_back({.cells = {Name(kind), of.Text(), what, Money(amount)}});
  };
  for (const tax::TaxLoss& loss : year.brought_forward) {
    add(loss.kind, loss.loss_year, QStringLiteral("Brought forward"), loss.amount);
  }
  for (const SetOffLine& line : year.set_off.lines) {
    add(line.loss, line.loss_year,
        QStringLiteral("Set off against %1").arg(Name(year.groups[line.group])), line.amount);
  }
  for (const OpenLoss& loss : year.set_off.carried) {
    add(loss.kind, loss.loss_year, QStringLiteral("Left for %1").arg(year.of.year.Next().Text()),
        loss.amount);
  }
  for (const OpenLoss& loss : year.set_off.lapsed) {
    add(loss.kind, loss.loss_year, QStringLiteral("Lapses"), loss.amount);
  }
  for (const OpenLoss& loss : year.set_off.ignored) {
    add(loss.kind, loss.loss_year, QStringLiteral("Too old, not counted"), loss.amount);
  }
  return table;
}

QStringList NotesOf(const TaxYear& year) {
  QStringList notes{
      QStringLiteral("The tax is an estimate: special rates only, without slabs, surcharge, cess "
                     "and rebates. Gains without a per cent are taxed with the other income."),
      QStringLiteral("STT is not deducted. First in, first out within each demat account by the "
                     "day of entry; gifts and transfers keep cost and day of acquisition.")};
  const auto has = [&](GainKind kind) {
    return std::ranges::any_of(year.groups,
                               [&](const GainGroup& group) { return group.kind == kind; });
  };
  if (has(GainKind::kFo)) {
    notes << QStringLiteral(
        "Futures and options are business income and stand apart from the "
        "set-off of capital gains.");
  }
  if (has(GainKind::kDividend)) {
    notes << QStringLiteral(
        "What a company paid for its own shares is dividend here; the cost of "
        "these shares is a capital loss.");
  }
  return notes;
}

QStringList TitlesOf(const QString& report, FinancialYear year) {
  return {QStringLiteral("%1 %2").arg(report, year.Text())};
}

}  // namespace

reporting::ReportDocument MakeTaxDocument(const tax::Rules& rules, const ClientTax& tax,
                                          std::span<const Point> points,
                                          const lookups::Directory& directory) {
  const TaxYear& year = tax.year;
  reporting::ReportDocument document;
  document.titles = TitlesOf(QStringLiteral("Tax Year"), year.of.year);
  document.titles << QString::fromStdString(directory.Client(year.of.client).name);
  document.notes = NotesOf(points);
  if (year.pieces.empty()) {
    document.notes << QStringLiteral("Nothing was sold in the year.");
  } else {
    document.tables.push_back(SumTable(year));
    document.tables.push_back(WindowTable(rules, year));
  }
  Table losses = LossTable(year);
  if (!losses.rows.empty()) {
    document.tables.push_back(std::move(losses));
  }
  if (!year.pieces.empty()) {
    document.tables.push_back(PieceTable(year, directory));
    document.notes << NotesOf(year);
  }
  return document;
}

reporting::ReportDocument MakeFamilyDocument(const tax::Rules& rules,
                                             std::span<const Member> members,
                                             const lookups::Directory& directory) {
  constexpr std::array kShown{
      GainKind::kShortTermStt, GainKind::kShortTerm, GainKind::kLongTermStt, GainKind::kLongTerm,
      GainKind::kSpeculation,  GainKind::kFo,        GainKind::kDividend,    GainKind::kExempt};
  Table table;
  table.columns = {reporting::TextColumn(QStringLiteral("Client"))};
  for (const GainKind kind : kShown) {
    table.columns.push_back(reporting::AmountColumn(Name(kind)));
  }
  table.columns.push_back(reporting::AmountColumn(QStringLiteral("Set Off")));
  table.columns.push_back(reporting::AmountColumn(QStringLiteral("Free of Tax")));
  table.columns.push_back(reporting::AmountColumn(QStringLiteral("Tax (Estimate)")));
  table.columns.push_back(reporting::NumberColumn(QStringLiteral("Open Points")));
  std::array<Paise, kShown.size() + 3> total{};
  std::int64_t open_points = 0;
  for (const Member& member : members) {
    const TaxYear& year = member.tax.year;
    std::vector<Paise> sums;
    sums.reserve(total.size());
    std::ranges::transform(kShown, std::back_inserter(sums),
                           [&](GainKind kind) { return year.GainOf(kind); });
    sums.emplace_back();
    for (const SetOffLine& line : year.set_off.lines) {
      sums.back() += line.amount;
    }
    sums.emplace_back();
    for (const ExemptionLine& line : year.set_off.exemptions) {
      sums.back() += line.amount;
    }
    sums.push_back(year.Tax());
    Row row{.cells = {QString::fromStdString(directory.Client(year.of.client).name)}};
    for (std::size_t i = 0; i < sums.size(); ++i) {
      total[i] += sums[i];
      row.cells.push_back(Money(sums[i]));
    }
    const auto open = std::ranges::count_if(member.points, &Point::open);
    row.cells.emplace_back(static_cast<double>(open));
    open_points += open;
    table.rows.push_back(std::move(row));
  }
  Row last = TotalRow(total);
  last.cells.emplace_back(static_cast<double>(open_points));
  table.rows.push_back(std::move(last));
  reporting::ReportDocument document;
  document.titles = TitlesOf(QStringLiteral("Tax Year of the Family"), rules.Year());
  document.tables.push_back(std::move(table));
  document.notes = {
      QStringLiteral("Everyone is taxed alone: nothing is set off between members. "
                     "The tax is an estimate at the special rates.")};
  return document;
}

}  // namespace quorvane::tax_year
