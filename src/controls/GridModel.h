#pragma once

#include "core/lookups/Choices.h"
#include "core/table/Columns.h"

#include <QAbstractListModel>
#include <QAbstractTableModel>
#include <QHash>
#include <QString>
#include <QVariant>

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace quorvane::controls {

/// The lines of a drop-down list, replaced all at once.
class ItemModel : public QAbstractListModel {
  Q_OBJECT

 public:
  explicit ItemModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

  void SetItems(std::vector<lookups::Item> items) {
    beginResetModel();
    items_ = std::move(items);
    endResetModel();
  }
  const std::vector<lookups::Item>& Items() const { return items_; }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const bool text = role == Qt::DisplayRole || role == Qt::EditRole;
    return text && checkIndex(index, CheckIndexOption::IndexIsValid)
               ? QVariant(items_[static_cast<std::size_t>(index.row())].text)
               : QVariant();
  }

 private:
  std::vector<lookups::Item> items_;
};

using table::Alignment;
using table::Column;
using table::Mask;
using table::RowKind;

/// A row's cells hold texts, numbers, "dd/mm/yyyy" in a column of dates, a bool in a tick column.
using Row = table::Row<QVariant>;

/// A list of numbers with the texts that stand for them, read from "#0;S|#1;P". A piece without the
/// "#number;" form is passed over. lookups::kBarInText in a text is a "|".
class ValueList {
 public:
  ValueList() = default;
  explicit ValueList(const QString& list);

  const std::vector<lookups::Item>& Items() const { return items_; }
  bool IsEmpty() const { return items_.empty(); }
  bool Contains(int value) const { return texts_.contains(value); }

  /// Empty for a number that is not in the list.
  QString TextOf(int value) const { return texts_.value(value); }

 private:
  std::vector<lookups::Item> items_;
  QHash<int, QString> texts_;
};

/// The contents of a Grid. Rows are counted from 0, in the order in which they are shown.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit GridModel(QObject* parent = nullptr);

  void SetColumns(std::vector<Column> columns);
  const std::vector<Column>& Columns() const { return columns_; }

  /// Replaces a column's value list, for all rows or for one.
  void SetChoices(int column, const QString& choices);
  void SetCellChoices(int row, int column, const QString& choices);
  const ValueList& ChoicesOf(int row, int column) const;

  /// Replaces all rows at once, without a signal for each row.
  void SetRows(std::vector<Row> rows);
  void Clear() { SetRows({}); }

  /// The new row's number. Missing cells are empty.
  int AddRow(Row row);
  void RemoveRow(int row);

  int RowCount() const { return static_cast<int>(rows_.size()); }
  const Row& RowAt(int row) const { return rows_[static_cast<std::size_t>(row)].row; }
  int IdOf(int row) const { return RowAt(row).id; }

  /// The first row with that key, -1 when there is none.
  int RowOf(int id) const;

  /// The value as kept; the text as shown; the value as a number (0 when it is none).
  QVariant Value(int row, int column) const;
  QString Text(int row, int column) const;
  double Number(int row, int column) const { return Value(row, column).toDouble(); }
  void SetValue(int row, int column, const QVariant& value);

  /// The keys of the rows that are ticked in the first tick column, in the order of the grid.
  std::vector<int> TickedIds() const;
  bool IsTicked(int row) const;
  void SetTicked(int row, bool on);
  void TickAll(bool on);

  /// True when no row that could be ticked is left.
  bool AllTicked() const;
  std::optional<int> TickColumn() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// By value, not by text; rows of equal value keep their order. Rows are left as they are while
  /// any of them is a group or a total.
  void sort(int column, Qt::SortOrder order) override;

 Q_SIGNALS:
  /// The user changed a cell; setting values from the program does not send it.
  void CellEdited(int row, int column);
  void TicksChanged();

 private:
  struct Entry {
    Row row;
    std::map<int, ValueList> choices;
  };

  using SortKey = std::pair<double, QString>;

  bool IsTickCell(const QModelIndex& index) const;
  static QVariant FontOf(RowKind kind);
  bool Accept(const QModelIndex& index, const QVariant& value);
  QVariant Kept(int row, int column, const QVariant& given) const;
  SortKey SortKeyOf(int row, int column) const;
  void Reorder(const std::vector<std::size_t>& sequence);
  void Changed(int row, int column);

  std::vector<Column> columns_;
  std::vector<ValueList> choices_;
  std::vector<Entry> rows_;
};

}  // namespace quorvane::controls
