#include "reporting/output/WriteReport.h"

#include <algorithm>

namespace quorvane::reporting {
namespace {

const QString kGap = QStringLiteral("  ");

using Line = std::vector<QString>;

/// A table's cells as texts and the width of each column.
class TableText {
 public:
  explicit TableText(const Table& table) : table_(table) {
    for (const Column& column : table.columns) {
      widths_.push_back(column.heading.size());
    }
    for (const Row& row : table.rows) {
      lines_.push_back(Texts(row));
      if (row.kind != RowKind::kGroup && row.kind != RowKind::kGap) {
        Widen(lines_.back());
      }
    }
    WidenForGroups();
  }

  QString Write() const {
    QString out = GroupHeadings();
    out += Headings() + Rule();
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      out += WriteRow(table_.rows[i], lines_[i]);
    }
    return out + Rule();
  }

 private:
  Line Texts(const Row& row) const {
    Line texts;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      const Mask mask = i < table_.columns.size() ? table_.columns[i].mask : Mask::kText;
      texts.push_back(CellText(row.cells[i], mask));
    }
    return texts;
  }

  void Widen(const Line& line) {
    for (std::size_t i = 0; i < line.size() && i < widths_.size(); ++i) {
      widths_[i] = std::max(widths_[i], line[i].size());
    }
  }

  qsizetype Span(std::size_t first, std::size_t count) const {
    qsizetype width = 0;
    for (std::size_t i = first; i < first + count && i < widths_.size(); ++i) {
      width += widths_[i] + (i > first ? kGap.size() : 0);
    }
    return width;
  }

  void WidenForGroups() {
    std::size_t first = 0;
    for (const ColumnGroup& group : table_.groups) {
      const qsizetype missing = group.heading.size() - Span(first, group.columns);
      if (missing > 0) {
        widths_[first + group.columns - 1] += missing;
      }
      first += group.columns;
    }
  }

  QString Padded(const QString& text, std::size_t column) const {
    const qsizetype width = widths_[column];
    switch (AlignmentOf(table_.columns[column])) {
      case Alignment::kRight:
        return text.rightJustified(width);
      case Alignment::kCentre:
        return text.rightJustified((width + text.size()) / 2).leftJustified(width);
      case Alignment::kLeft:
        break;
    }
    return text.leftJustified(width);
  }

  static QString Ended(QString line) {
    while (line.endsWith(QLatin1Char(' '))) {
      line.chop(1);
    }
    return line + QLatin1Char('\n');
  }

  QString GroupHeadings() const {
    if (table_.groups.empty()) {
      return {};
    }
    QString line;
    std::size_t first = 0;
    for (const ColumnGroup& group : table_.groups) {
      const qsizetype width = Span(first, group.columns);
      const qsizetype left = (width - group.heading.size()) / 2;
      line += (QString(left, QLatin1Char(' ')) + group.heading).leftJustified(width) + kGap;
      first += group.columns;
    }
    return Ended(line);
  }

  QString Headings() const {
    Line headings;
    for (const Column& column : table_.columns) {
      headings.push_back(column.heading);
    }
    return WriteCells(headings);
  }

  QString WriteCells(const Line& line) const {
    QString out;
    for (std::size_t i = 0; i < line.size() && i < widths_.size(); ++i) {
      out += Padded(line[i], i) + kGap;
    }
    return Ended(out);
  }

  QString Rule() const {
    return QString(Span(0, widths_.size()), QLatin1Char('-')) + QLatin1Char('\n');
  }

  QString WriteRow(const Row& row, const Line& line) const {
    switch (row.kind) {
      case RowKind::kGroup:
        return Ended(GroupText(row));
      case RowKind::kGap:
        return QStringLiteral("\n");
      case RowKind::kNetTotal:
        return Rule() + WriteCells(line);
      case RowKind::kTotal:
      case RowKind::kData:
        break;
    }
    return WriteCells(line);
  }

  const Table& table_;
  std::vector<qsizetype> widths_;
  std::vector<Line> lines_;
};

}  // namespace

std::string WriteText(const ReportDocument& document) {
  QString out;
  for (const QString& title : document.titles) {
    out += title + QLatin1Char('\n');
  }
  for (const Table& table : document.tables) {
    out += QLatin1Char('\n');
    for (const QString& title : table.titles) {
      out += title + QLatin1Char('\n');
    }
    out += TableText(table).Write();
  }
  for (const QString& note : document.notes) {
    out += QLatin1Char('\n') + note + QLatin1Char('\n');
  }
  return out.toStdString();
}

}  // namespace quorvane::reporting
