
#include "core/text/Amounts.h"
#include "reports/mis/Groups.h"

#include <algorithm>

namespace quorvane::mis {
namespace {

using reporting::Cell;
using reporting::RowKind;

reporting::Column ColumnOf(const FigureColumn& column) {
  return column.nature == Nature::kShares ? reporting::QuantityColumn(column.heading)
                                          : reporting::AmountColumn(column.heading);
}

Cell CellOf(const std::optional<double>& figure, Nature nature) {
  if (!figure) {
    return {};
  }
  const bool paise = nature == Nature::kMoney || nature == Nature::kRunning;
  return paise ? text::FromPaise(static_cast<std::int64_t>(*figure)) : *figure;
}

/// The sum of what a group holds.
struct Sum {
  Figures figures;
  ScripId scrip;
  bool of_one_scrip = true;
  bool all_count = true;  ///< no line is left out of the totals
  QString name;           ///< as its closing line calls it

  void Add(ScripId more_scrip, bool counts, const Figures& more,
           const std::vector<FigureColumn>& columns) {
    of_one_scrip = of_one_scrip && (!scrip || scrip == more_scrip);
    all_count = all_count && counts;
    scrip = more_scrip;
    if (counts) {
      AddFigures(figures, more, columns);
    }
  }
};

/// Fills the table holding by holding, in the order of the groups.
class TableBuilder {
 public:
  TableBuilder(const MisQuery& query, const ReportForm& form, const std::vector<Holding>& holdings,
               const Names& names)
      : detail_(query.detail),
        form_(form),
        columns_(form.Columns()),
        names_(names),
        levels_(LevelsOf(query.grouping, query.detail)),
        headings_(form, holdings, names, levels_),
        sums_(levels_.size() + 1) {
    table_.columns.push_back(reporting::TextColumn(QStringLiteral("Particulars")));
    for (const FigureColumn& column : columns_) {
      table_.columns.push_back(ColumnOf(column));
    }
  }

  void Take(const Place& place, const Holding& holding) {
    const std::size_t first = FirstChange(place);
    if (!any_ || first < levels_.size() || line_.scrip != holding.scrip) {
      CloseLine();
    }
    if (any_) {
      Close(first);
    }
    Open(any_ ? first : 0, holding);
    last_ = place;
    any_ = true;
    Put(holding);
  }

  reporting::Table Finish() {
    if (any_) {
      CloseLine();
      Close(0);
      AddTotal(RowKind::kNetTotal, QStringLiteral("Total"), sums_[0]);
    }
    return std::move(table_);
  }

 private:
  std::size_t FirstChange(const Place& place) const {
    const auto end = place.path.begin() + static_cast<std::ptrdiff_t>(levels_.size());
    return static_cast<std::size_t>(
        std::mismatch(place.path.begin(), end, last_.path.begin()).first - place.path.begin());
  }

  void Open(std::size_t from, const Holding& holding) {
    for (std::size_t level = from; level < levels_.size(); ++level) {
      sums_[level + 1] = {};
      sums_[level + 1].name = headings_.NameAt(levels_[level], holding);
      table_.rows.push_back(
          {.kind = RowKind::kGroup, .cells = {headings_.At(levels_[level], holding)}});
      running_ = 0;
    }
  }

  void Close(std::size_t down_to) {
    for (std::size_t level = levels_.size(); level > down_to; --level) {
      const Sum& sum = sums_[level];
      const bool innermost = level == levels_.size();
      AddTotal(
          RowKind::kTotal,
          innermost ? QStringLiteral("SubTotal") : QStringLiteral("SubTotal - %1").arg(sum.name),
          sum);
    }
    if (down_to == 0 && !levels_.empty()) {
      table_.rows.push_back({.kind = RowKind::kGap, .cells = {}});
    }
  }

  void Put(const Holding& holding) {
    const Figures figures = form_.Of(holding);
    for (Sum& sum : sums_) {
      sum.Add(holding.scrip, form_.Counts(holding.scrip), figures, columns_);
    }
    if (!detail_) {
      line_.Add(holding.scrip, true, figures, columns_);
      return;
    }
    for (FigureLine& line : form_.Detail(holding)) {
      AddLine(line.label, std::move(line.figures));
    }
  }

  void CloseLine() {
    if (!line_.figures.empty()) {
      form_.SettleRate(line_.figures);
      AddLine(names_.Scrip(line_.scrip) + form_.Mark(line_.scrip), std::move(line_.figures));
    }
    line_ = {};
  }

  void AddLine(const QString& label, Figures figures) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (columns_[i].nature == Nature::kRunning && figures[i]) {
        figures[i] = running_ += *figures[i];
      }
    }
    AddRow(RowKind::kData, label, figures);
  }

  void AddTotal(RowKind kind, const QString& label, const Sum& sum) {
    Figures figures = sum.figures;
    figures.resize(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const bool shown =
          columns_[i].nature == Nature::kMoney || columns_[i].nature == Nature::kRunning ||
          (columns_[i].nature == Nature::kShares && sum.of_one_scrip && sum.all_count);
      figures[i] = shown ? figures[i] : std::nullopt;
    }
    AddRow(kind, label, figures);
  }

  void AddRow(RowKind kind, const QString& label, const Figures& figures) {
    reporting::Row& row = table_.rows.emplace_back();
    row.kind = kind;
    row.cells.emplace_back(label);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      row.cells.push_back(CellOf(figures[i], columns_[i].nature));
    }
  }

  bool detail_;
  const ReportForm& form_;
  const std::vector<FigureColumn>& columns_;
  const Names& names_;
  std::vector<Level> levels_;
  GroupHeadings headings_;
  std::vector<Sum> sums_;  ///< of everything, then of the open group of each level
  Sum line_;               ///< of one scrip, while it is not detailed
  double running_ = 0;
  Place last_;
  bool any_ = false;
  reporting::Table table_;
};

}  // namespace

reporting::Table MakeTable(const MisQuery& query, const ReportForm& form,
                           const std::vector<Holding>& holdings, const Names& names) {
  TableBuilder builder(query, form, holdings, names);
  for (const Place& place : OrderBy(LevelsOf(query.grouping, query.detail), holdings, names)) {
    if (form.Shows(holdings[place.holding])) {
      builder.Take(place, holdings[place.holding]);
    }
  }
  return builder.Finish();
}

}  // namespace quorvane::mis
