#pragma once

#include "controls/GridModel.h"
#include "controls/ListHeader.h"

#include <QTableView>

#include <optional>

namespace quorvane::controls {

/// A table of records on the screen: a view over its own GridModel. A click on a heading sorts, on
/// the heading of ticks it ticks all or none; Space or a click on a row ticks it; F2 or typing
/// edits, Enter then moves on to the next cell that can be edited; Ctrl+C copies as tab-separated
/// text. When it gets the focus by key and has no current row, the first row becomes current. In an
/// empty grid the window handles Enter and moves on. Lists that are not for entry have the filter
/// and the columns of a ListHeader.
class Grid : public QTableView {
  Q_OBJECT

 public:
  /// `name` is the control's name ("VSF"), `purpose` what a screen reader calls it.
  Grid(const QString& name, const QString& purpose, QWidget* parent = nullptr);

  GridModel& Model() { return *model_; }
  const GridModel& Model() const { return *model_; }

  void SetColumns(std::vector<Column> columns);

  /// Replaces all rows and fits the columns to a sample of them. The current row keeps its key when
  /// it is still there; otherwise there is none.
  void SetRows(std::vector<Row> rows);

  /// How the user sorted the rows; nullopt when they are in the order that was set. Other rows are
  /// sorted in the same way.
  using Order = ListHeader::Order;
  std::optional<Order> SortedBy() const;
  void SortBy(const std::optional<Order>& order);

  /// Off where the order of the rows has a meaning of its own, as for the lines of a bill.
  void SetSortable(bool on);

  /// Gives the list a box that filters its rows.
  void SetFilterable(bool on) { header_->SetFilterable(on); }
  ListHeader& Header() { return *header_; }

  /// -1 and 0 when no row is current.
  int CurrentRow() const;
  int CurrentId() const;

  /// Makes that row the current and the only selected one, with any keys held down; an unknown row
  /// leaves none current.
  void SelectRow(int row);
  void SelectId(int id);

  /// The same for a row that the filter may not show: it is emptied then.
  void Reveal(int id);

  /// Adds an empty row and puts the cursor on its first cell that can be edited.
  int AddRow(Row row = {});
  void RemoveCurrentRow();

  /// Column widths by the headings and a sample of the rows; what is left over is given to the
  /// widest column of text.
  void FitColumns();

  /// The widths that the user gave the columns by hand, in pixels; empty while there are none.
  QList<int> WidthsByHand() const;

  /// Gives the columns such widths again; a list that is not one width a column changes nothing.
  void SetWidths(const QList<int>& widths);

  /// What Ctrl+C copies.
  QString SelectedText() const;

 Q_SIGNALS:
  void CurrentRowChanged(int row);

  /// Enter or a double click on a row that is not edited.
  void RowActivated(int row);

  /// Enter in the last cell that can be edited: the place to add a row.
  void LastCellLeft();

  /// A typed value was not taken ("Enter Proper Date."); the cell keeps its value.
  void EditRefused(const QString& text);

 protected:
  using QTableView::edit;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void SetLook();
  void HeadingClicked(int column);
  void SortAgain();
  void SortWanted(int column, Qt::SortOrder direction);
  void FilterChanged();
  void RowClicked(const QModelIndex& cell);
  void SectionResized(int column);
  void MakeCurrent(const QModelIndex& cell);
  void ToggleTick(int row);
  bool EnterPressed();
  void MoveOn(bool forward);
  QModelIndex NextEditable(const QModelIndex& from, bool forward) const;
  int FirstShownColumn() const;

  GridModel* model_;
  ListHeader* header_;
  bool sortable_ = true;
  bool descending_ = false;
  bool filling_ = false;
  bool fitting_ = false;
  bool fitted_by_hand_ = false;
  int sorted_column_ = -1;
};

}  // namespace quorvane::controls
