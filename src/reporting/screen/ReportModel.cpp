#include "reporting/screen/ReportModel.h"

#include <algorithm>
#include <iterator>

namespace quorvane::reporting {
namespace {

constexpr std::uint32_t kTitle = 0x80000000;  // marks the number of a title

bool SameHeadings(const Table& a, const Table& b) {
  return std::ranges::equal(a.columns, b.columns, {}, &Column::heading, &Column::heading);
}

ReportModel::Line LineOf(RowKind kind) {
  using Line = ReportModel::Line;
  switch (kind) {
    case RowKind::kGroup:
      return Line::kGroup;
    case RowKind::kTotal:
      return Line::kTotal;
    case RowKind::kNetTotal:
      return Line::kNetTotal;
    case RowKind::kGap:
      return Line::kGap;
    case RowKind::kData:
      break;
  }
  return Line::kData;
}

}  // namespace

void ReportModel::SetDocument(ReportDocument document) {
  beginResetModel();
  document_ = std::move(document);
  lines_.clear();
  columns_ = 0;
  for (std::uint32_t i = 0; i < document_.tables.size(); ++i) {
    columns_ = std::max(columns_, static_cast<int>(document_.tables[i].columns.size()));
    AddTable(i);
  }
  AddNotes();
  sort_column_ = -1;
  Arrange();
  endResetModel();
}

void ReportModel::SetFilter(const QString& text) {
  beginResetModel();
  filter_ = text.toUpper();
  Arrange();
  endResetModel();
}

void ReportModel::sort(int column, Qt::SortOrder order) {
  beginResetModel();
  sort_column_ = column < columns_ ? column : -1;
  sort_order_ = order;
  Arrange();
  endResetModel();
}

void ReportModel::Arrange() {
  shown_ = lines_;
  if (sort_column_ >= 0) {
    SortLines();
  }
  if (!filter_.isEmpty()) {
    KeepFitting();
  }
}

const Cell& ReportModel::CellAt(const Place& place, int column) const {
  static const Cell kNothing;
  const std::vector<Cell>& cells = document_.tables[place.table].rows[place.row].cells;
  const auto at = static_cast<std::size_t>(column);
  return at < cells.size() ? cells[at] : kNothing;
}

/// Lines that follow each other without anything between them are one group's.
void ReportModel::SortLines() {
  const auto is_data = [](const Place& place) { return place.line == Line::kData; };
  for (auto first = shown_.begin(); first != shown_.end();) {
    first = std::find_if(first, shown_.end(), is_data);
    const auto last = std::find_if_not(first, shown_.end(), is_data);
    std::stable_sort(first, last, [this](const Place& left, const Place& right) {
      const Cell& a = CellAt(left, sort_column_);
      const Cell& b = CellAt(right, sort_column_);
      return sort_order_ == Qt::AscendingOrder ? a < b : b < a;
    });
    first = last;
  }
}

bool ReportModel::Fits(const Place& place, const QStringList& words) const {
  QString text;
  for (int column = 0; column < columns_; ++column) {
    text += TextAt(place, column).toUpper() + QLatin1Char('\n');
  }
  return std::ranges::all_of(words, [&](const QString& word) { return text.contains(word); });
}

void ReportModel::KeepFitting() {
  const QStringList words = filter_.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  std::vector<Place> kept;
  std::vector<Place> headings;
  bool after_data = false;
  for (const Place& place : shown_) {
    if (place.line == Line::kGroup || place.line == Line::kHeadings) {
      if (after_data) {
        headings.clear();
      }
      after_data = false;
      headings.push_back(place);
    } else if (place.line == Line::kData) {
      after_data = true;
      if (Fits(place, words)) {
        std::ranges::move(headings, std::back_inserter(kept));
        headings.clear();
        kept.push_back(place);
      }
    }
  }
  shown_ = std::move(kept);
}

void ReportModel::AddTable(std::uint32_t index) {
  const Table& table = document_.tables[index];
  if (index > 0) {
    lines_.push_back({Line::kGap, index, 0});
  }
  for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(table.titles.size()); ++i) {
    lines_.push_back({Line::kGroup, index, kTitle | i});
  }
  if (index > 0 && !SameHeadings(table, document_.tables.front())) {
    lines_.push_back({Line::kHeadings, index, 0});
  }
  for (std::uint32_t i = 0; i < table.rows.size(); ++i) {
    lines_.push_back({LineOf(table.rows[i].kind), index, i});
  }
}

void ReportModel::AddNotes() {
  if (lines_.empty() || document_.notes.isEmpty()) {
    return;
  }
  lines_.push_back({Line::kGap, 0, 0});
  for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(document_.notes.size()); ++i) {
    lines_.push_back({Line::kNote, 0, i});
  }
}

std::vector<ColumnGroup> ReportModel::Groups() const {
  return document_.tables.empty() ? std::vector<ColumnGroup>() : document_.tables.front().groups;
}

int ReportModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int ReportModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QString ReportModel::TextAt(const Place& place, int column) const {
  const Table& table = document_.tables[place.table];
  const auto at = static_cast<std::size_t>(column);
  switch (place.line) {
    case Line::kGap:
      return {};
    case Line::kNote:
      return column > 0 ? QString() : document_.notes[static_cast<int>(place.row)];
    case Line::kHeadings:
      return at < table.columns.size() ? table.columns[at].heading : QString();
    case Line::kGroup:
      if (column > 0) {
        return {};
      }
      return (place.row & kTitle) != 0 ? table.titles[static_cast<int>(place.row & ~kTitle)]
                                       : GroupText(table.rows[place.row]);
    case Line::kData:
    case Line::kTotal:
    case Line::kNetTotal:
      break;
  }
  const Row& row = table.rows[place.row];
  return at < row.cells.size() && at < table.columns.size()
             ? CellText(row.cells[at], table.columns[at].mask)
             : QString();
}

Qt::Alignment ReportModel::AlignmentAt(std::size_t table, int column) const {
  const std::vector<Column>& columns = document_.tables[table].columns;
  const auto at = static_cast<std::size_t>(column);
  return table::ViewAlignment(at < columns.size() ? columns[at] : Column());
}

QVariant ReportModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  const Place& place = At(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return TextAt(place, index.column());
    case Qt::TextAlignmentRole:
      return static_cast<int>(place.line == Line::kGroup || place.line == Line::kNote
                                  ? Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter)
                                  : AlignmentAt(place.table, index.column()));
    case kLineRole:
      return static_cast<int>(place.line);
    default:
      return {};
  }
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || document_.tables.empty()) {
    return {};
  }
  const std::vector<Column>& columns = document_.tables.front().columns;
  const auto at = static_cast<std::size_t>(section);
  if (at >= columns.size()) {
    return {};
  }
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>(AlignmentAt(0, section));
  }
  return role == Qt::DisplayRole ? QVariant(columns[at].heading) : QVariant();
}

QString ReportModel::RowText(int row) const {
  const Place& place = At(row);
  QStringList cells;
  for (int column = 0; column < columns_; ++column) {
    cells.append(TextAt(place, column));
  }
  return cells.join(QLatin1Char('\t'));
}

}  // namespace quorvane::reporting
