#include "controls/GridModel.h"

#include "core/text/Amounts.h"
#include "core/text/Dates.h"

#include <QFont>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <optional>
#include <utility>

namespace quorvane::controls {
namespace {

constexpr double kBeforeAllDays = -1e9;  // where cells without a date stand

QString Masked(Mask mask, const QVariant& value) {
  const bool number = table::IsNumeric(mask) && value.typeId() != QMetaType::QString;
  return number ? table::NumberText(value.toDouble(), mask) : value.toString();
}

std::optional<lookups::Item> ReadItem(QStringView piece) {
  const qsizetype semicolon = piece.indexOf(QLatin1Char(';'));
  if (!piece.startsWith(QLatin1Char('#')) || semicolon < 0) {
    return std::nullopt;
  }
  bool is_number = false;
  const int id = piece.mid(1, semicolon - 1).toInt(&is_number);
  if (!is_number) {
    return std::nullopt;
  }
  QString text = piece.mid(semicolon + 1).toString();
  text.replace(lookups::kBarInText, QLatin1Char('|'));
  return lookups::Item{.id = id, .text = std::move(text)};
}

}  // namespace

ValueList::ValueList(const QString& list) {
  for (const QStringView piece : QStringView(list).split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
    if (std::optional<lookups::Item> item = ReadItem(piece)) {
      texts_.insert(item->id, item->text);
      items_.push_back(std::move(*item));
    }
  }
}

GridModel::GridModel(QObject* parent) : QAbstractTableModel(parent) {}

void GridModel::SetColumns(std::vector<Column> columns) {
  beginResetModel();
  columns_ = std::move(columns);
  choices_.clear();
  for (const Column& column : columns_) {
    choices_.emplace_back(column.choices);
  }
  rows_.clear();
  aside_.clear();
  endResetModel();
}

void GridModel::SetChoices(int column, const QString& choices) {
  choices_[static_cast<std::size_t>(column)] = ValueList(choices);
  if (!rows_.empty()) {
    Q_EMIT dataChanged(index(0, column), index(RowCount() - 1, column));
  }
}

void GridModel::SetCellChoices(int row, int column, const QString& choices) {
  rows_[static_cast<std::size_t>(row)].choices[column] = ValueList(choices);
  Changed(row, column);
}

const ValueList& GridModel::ChoicesOf(int row, int column) const {
  return ChoicesIn(rows_[static_cast<std::size_t>(row)], column);
}

const ValueList& GridModel::ChoicesIn(const Entry& entry, int column) const {
  const auto own = entry.choices.find(column);
  return own != entry.choices.end() ? own->second : choices_[static_cast<std::size_t>(column)];
}

void GridModel::SetRows(std::vector<Row> rows) {
  beginResetModel();
  rows_.clear();
  aside_.clear();
  rows_.reserve(rows.size());
  for (Row& row : rows) {
    row.cells.resize(columns_.size());
    rows_.push_back({.row = std::move(row), .place = RowCount()});
  }
  PutAside();
  endResetModel();
}

void GridModel::SetFilter(const QString& text) {
  beginResetModel();
  TakeBack();
  words_ = text.toUpper().split(QLatin1Char(' '), Qt::SkipEmptyParts);
  PutAside();
  endResetModel();
}

bool GridModel::Fits(const Entry& entry) const {
  if (entry.row.kind != RowKind::kData) {
    return false;
  }
  QString text;
  for (int column = 0; column < columnCount(); ++column) {
    if (!columns_[static_cast<std::size_t>(column)].hidden) {
      text += TextIn(entry, column).toUpper() + QLatin1Char('\n');
    }
  }
  return std::ranges::all_of(words_, [&](const QString& word) { return text.contains(word); });
}

void GridModel::PutAside() {
  if (words_.isEmpty()) {
    return;
  }
  const auto kept = std::stable_partition(rows_.begin(), rows_.end(),
                                          [this](const Entry& entry) { return Fits(entry); });
  aside_.assign(std::move_iterator(kept), std::move_iterator(rows_.end()));
  rows_.erase(kept, rows_.end());
}

void GridModel::TakeBack() {
  if (aside_.empty()) {
    return;
  }
  std::ranges::move(aside_, std::back_inserter(rows_));
  aside_.clear();
  std::ranges::stable_sort(rows_, {}, &Entry::place);
}

bool GridModel::IsAside(int id) const {
  return std::ranges::any_of(aside_, [&](const Entry& entry) { return entry.row.id == id; });
}

void GridModel::ResetOrder() {
  std::vector<std::size_t> sequence(rows_.size());
  std::iota(sequence.begin(), sequence.end(), std::size_t{0});
  std::ranges::stable_sort(sequence, {}, [this](std::size_t at) { return rows_[at].place; });
  Reorder(sequence);
}

int GridModel::AddRow(Row row) {
  const int at = RowCount();
  row.cells.resize(columns_.size());
  beginInsertRows({}, at, at);
  rows_.push_back({.row = std::move(row), .place = CountOfAll()});
  endInsertRows();
  return at;
}

void GridModel::RemoveRow(int row) {
  beginRemoveRows({}, row, row);
  rows_.erase(rows_.begin() + row);
  endRemoveRows();
}

int GridModel::RowOf(int id) const {
  const auto found =
      std::ranges::find_if(rows_, [&](const Entry& entry) { return entry.row.id == id; });
  return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

QVariant GridModel::Value(int row, int column) const {
  return RowAt(row).cells[static_cast<std::size_t>(column)];
}

QString GridModel::Text(int row, int column) const {
  return TextIn(rows_[static_cast<std::size_t>(row)], column);
}

QString GridModel::TextIn(const Entry& entry, int column) const {
  const QVariant value = entry.row.cells[static_cast<std::size_t>(column)];
  if (!value.isValid()) {
    return {};
  }
  if (const ValueList& choices = ChoicesIn(entry, column); !choices.IsEmpty()) {
    return value.typeId() == QMetaType::QString ? value.toString() : choices.TextOf(value.toInt());
  }
  const Mask mask = columns_[static_cast<std::size_t>(column)].mask;
  return mask == Mask::kTick ? QString() : Masked(mask, value);
}

void GridModel::SetValue(int row, int column, const QVariant& value) {
  rows_[static_cast<std::size_t>(row)].row.cells[static_cast<std::size_t>(column)] = value;
  Changed(row, column);
}

void GridModel::Changed(int row, int column) {
  const QModelIndex cell = index(row, column);
  Q_EMIT dataChanged(cell, cell);
}

std::optional<int> GridModel::TickColumn() const {
  const auto found = std::ranges::find(columns_, Mask::kTick, &Column::mask);
  return found == columns_.end() ? std::nullopt
                                 : std::optional(static_cast<int>(found - columns_.begin()));
}

bool GridModel::IsTickedIn(const Entry& entry) const {
  const std::optional<int> column = TickColumn();
  return column && entry.row.kind == RowKind::kData &&
         entry.row.cells[static_cast<std::size_t>(*column)].toBool();
}

bool GridModel::IsUnticked(const Entry& entry) const {
  return entry.row.kind == RowKind::kData && !IsTickedIn(entry);
}

bool GridModel::IsTicked(int row) const {
  return IsTickedIn(rows_[static_cast<std::size_t>(row)]);
}

std::vector<int> GridModel::TickedIds() const {
  std::vector<int> ids;
  for (const auto* entries : {&rows_, &aside_}) {
    for (const Entry& entry : *entries) {
      if (IsTickedIn(entry)) {
        ids.push_back(entry.row.id);
      }
    }
  }
  return ids;
}

QStringList GridModel::TickedTexts(int column) const {
  QStringList texts;
  for (const auto* entries : {&rows_, &aside_}) {
    for (const Entry& entry : *entries) {
      if (IsTickedIn(entry)) {
        texts << TextIn(entry, column);
      }
    }
  }
  return texts;
}

void GridModel::SetTicked(int row, bool on) {
  if (const std::optional<int> column = TickColumn()) {
    SetValue(row, *column, on);
    Q_EMIT TicksChanged();
  }
}

void GridModel::TickAll(bool on) {
  const std::optional<int> column = TickColumn();
  if (!column || rows_.empty()) {
    return;
  }
  for (Entry& entry : rows_) {
    if (entry.row.kind == RowKind::kData) {
      entry.row.cells[static_cast<std::size_t>(*column)] = on;
    }
  }
  Q_EMIT dataChanged(index(0, *column), index(RowCount() - 1, *column));
  Q_EMIT TicksChanged();
}

bool GridModel::AllShownTicked() const {
  return std::ranges::none_of(rows_, [this](const Entry& entry) { return IsUnticked(entry); });
}

bool GridModel::AllTicked() const {
  return AllShownTicked() &&
         std::ranges::none_of(aside_, [this](const Entry& entry) { return IsUnticked(entry); });
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : RowCount();
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

bool GridModel::IsTickCell(const QModelIndex& index) const {
  return columns_[static_cast<std::size_t>(index.column())].mask == Mask::kTick &&
         RowAt(index.row()).kind == RowKind::kData;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return {};
  }
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return Text(index.row(), index.column());
    case Qt::CheckStateRole:
      return IsTickCell(index) ? QVariant(IsTicked(index.row()) ? Qt::Checked : Qt::Unchecked)
                               : QVariant();
    case Qt::TextAlignmentRole:
      return static_cast<int>(
          table::ViewAlignment(columns_[static_cast<std::size_t>(index.column())]));
    case Qt::FontRole:
      return FontOf(RowAt(index.row()).kind);
    case Qt::AccessibleTextRole:
      return IsTickCell(index) ? QVariant(IsTicked(index.row()) ? tr("Ticked") : tr("Not ticked"))
                               : QVariant();
    default:
      return {};
  }
}

QVariant GridModel::FontOf(RowKind kind) {
  if (kind == RowKind::kData) {
    return {};
  }
  QFont font;
  font.setBold(true);
  return font;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
    return false;
  }
  if (role == Qt::CheckStateRole && IsTickCell(index)) {
    SetTicked(index.row(), value.toInt() == Qt::Checked);
    return true;
  }
  return role == Qt::EditRole && (flags(index) & Qt::ItemIsEditable) != 0 && Accept(index, value);
}

bool GridModel::Accept(const QModelIndex& index, const QVariant& value) {
  const QVariant kept = Kept(index.row(), index.column(), value);
  if (kept != Value(index.row(), index.column())) {
    SetValue(index.row(), index.column(), kept);
    Q_EMIT CellEdited(index.row(), index.column());
  }
  return true;
}

QVariant GridModel::Kept(int row, int column, const QVariant& given) const {
  if (!ChoicesOf(row, column).IsEmpty()) {
    return given.toInt();
  }
  if (!table::IsNumeric(columns_[static_cast<std::size_t>(column)].mask)) {
    return given.toString();
  }
  return given.typeId() == QMetaType::QString ? text::Val(given.toString().remove(QLatin1Char(',')))
                                              : given.toDouble();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
    return QAbstractTableModel::headerData(section, orientation, role);
  }
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>(table::ViewAlignment(columns_[static_cast<std::size_t>(section)]));
  }
  return role == Qt::DisplayRole ? QVariant(columns_[static_cast<std::size_t>(section)].heading)
                                 : QVariant();
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!index.isValid() || RowAt(index.row()).kind != RowKind::kData) {
    return flags;
  }
  const Column& column = columns_[static_cast<std::size_t>(index.column())];
  if (column.mask == Mask::kTick) {
    return flags | Qt::ItemIsUserCheckable;
  }
  return column.editable ? flags | Qt::ItemIsEditable : flags;
}

GridModel::SortKey GridModel::SortKeyOf(int row, int column) const {
  const Mask mask = columns_[static_cast<std::size_t>(column)].mask;
  if (!ChoicesOf(row, column).IsEmpty() || mask == Mask::kText) {
    return {0, Text(row, column).toUpper()};
  }
  if (mask == Mask::kDate) {
    const std::optional<text::Date> date = text::ParseDmy(Text(row, column));
    return {date ? static_cast<double>(date->time_since_epoch().count()) : kBeforeAllDays, {}};
  }
  return {Number(row, column), {}};
}

void GridModel::sort(int column, Qt::SortOrder order) {
  const auto fixed = [](const Entry& entry) { return entry.row.kind != RowKind::kData; };
  if (column < 0 || column >= columnCount() || std::ranges::any_of(rows_, fixed)) {
    return;
  }
  std::vector<SortKey> keys;
  keys.reserve(rows_.size());
  for (int row = 0; row < RowCount(); ++row) {
    keys.push_back(SortKeyOf(row, column));
  }
  std::vector<std::size_t> sequence(rows_.size());
  std::iota(sequence.begin(), sequence.end(), std::size_t{0});
  std::ranges::stable_sort(sequence, [&](std::size_t left, std::size_t right) {
    return order == Qt::AscendingOrder ? keys[left] < keys[right] : keys[right] < keys[left];
  });
  Reorder(sequence);
}

// Current row and selection are persistent indexes: they move with their rows.
void GridModel::Reorder(const std::vector<std::size_t>& sequence) {
  Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
  std::vector<Entry> sorted(rows_.size());
  std::vector<int> place(rows_.size());
  for (std::size_t at = 0; at < sequence.size(); ++at) {
    sorted[at] = std::move(rows_[sequence[at]]);
    place[sequence[at]] = static_cast<int>(at);
  }
  rows_ = std::move(sorted);
  const QModelIndexList before = persistentIndexList();
  QModelIndexList after;
  for (const QModelIndex& old : before) {
    after.append(index(place[static_cast<std::size_t>(old.row())], old.column()));
  }
  changePersistentIndexList(before, after);
  Q_EMIT layoutChanged({}, VerticalSortHint);
}

}  // namespace quorvane::controls
