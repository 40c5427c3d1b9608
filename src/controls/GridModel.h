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

  /// Shows only the data rows that have each word of a text in one of their cells, in any case; an
  /// empty text shows all. Rows that are not shown are still there: their ticks count. Where a
  /// function counts or names rows, it means those that are shown.
  void SetFilter(const QString& text);
  bool IsFiltered() const { return !words_.isEmpty(); }

  /// All rows, those included that are not shown.
  int CountOfAll() const { return RowCount() + static_cast<int>(aside_.size()); }

  /// True for a row that the filter does not show.
  bool IsAside(int id) const;

  /// Puts the rows back into the order in which they were set.
  void ResetOrder();

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

  /// The keys of the rows that are ticked in the first tick column, in the order of the grid; those
  /// that are not shown come last. TickedTexts tells the same rows by the texts of a column.
  std::vector<int> TickedIds() const;
  QStringList TickedTexts(int column) const;
  bool IsTicked(int row) const;
  void SetTicked(int row, bool on);

  /// Ticks every row that is shown, or none of them.
  void TickAll(bool on);
  bool AllShownTicked() const;

  /// True when no row that could be ticked is left, shown or not.
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
    std::map<int, ValueList> choices = {};
    int place = 0;  ///< in the order in which the rows were set
  };

  using SortKey = std::pair<double, QString>;

  bool IsTickCell(const QModelIndex& index) const;
  bool IsTickedIn(const Entry& entry) const;
  bool IsUnticked(const Entry& entry) const;
  QString TextIn(const Entry& entry, int column) const;
  const ValueList& ChoicesIn(const Entry& entry, int column) const;
  bool Fits(const Entry& entry) const;
  void PutAside();
  void TakeBack();
  static QVariant FontOf(RowKind kind);
  bool Accept(const QModelIndex& index, const QVariant& value);
  QVariant Kept(int row, int column, const QVariant& given) const;
  SortKey SortKeyOf(int row, int column) const;
  void Reorder(const std::vector<std::size_t>& sequence);
  void Changed(int row, int column);

  std::vector<Column> columns_;
  std::vector<ValueList> choices_;
  std::vector<Entry> rows_;   ///< that are shown
  std::vector<Entry> aside_;  ///< that the filter does not show, in the order of their places
  QStringList words_;         ///< of the filter
};

}  // namespace quorvane::controls
