#pragma once

#include "controls/WindowMemory.h"

#include <QHeaderView>
#include <QLineEdit>

#include <optional>

class QMenu;
class QTableView;

namespace quorvane::controls {

/// The headings of a list, with what every list offers: a box below the headings that filters the
/// rows as it is typed into, and columns that the user hides, moves and sorts by. The list owns it,
/// filters and sorts its own rows, and tells it when its columns or rows changed.
///
/// F3 in the list goes to the box; there Down and Enter go back to the rows, Esc empties it. A
/// right click on the headings, or Shift+F3 in the list, opens the menu of the columns.
class ListHeader : public QHeaderView {
  Q_OBJECT

 public:
  /// How the rows are sorted.
  struct Order {
    int column = 0;
    Qt::SortOrder direction = Qt::AscendingOrder;

    bool operator==(const Order&) const = default;
  };

  explicit ListHeader(QTableView& list);

  /// Whether the list has the box. It is shown from a handful of rows on, and while it is used.
  void SetFilterable(bool on);

  /// Whether columns can be hidden and moved by the user; off while the rows are for entry.
  void SetArrangeable(bool on);
  bool IsArrangeable() const { return arrangeable_; }

  /// Whether the menu offers to sort. On unless switched off.
  void SetSortable(bool on) { sortable_ = on; }

  /// What is typed in the box, without blanks around it.
  QString Filter() const { return filterable_ ? box_->text().trimmed() : QString(); }
  void ClearFilter() { box_->clear(); }
  void FocusFilter();

  /// The list has other columns: those that are hidden now are the program's own. What the user did
  /// with such columns before is done again.
  void ColumnsChanged();

  /// How many rows the list has, filtered or not.
  void RowsChanged(int rows);

  /// Reads what the user did with the columns of that window's list, and keeps it from now on.
  void KeepIn(const WindowMemory& memory, const QString& window);

  /// The order that the user wants; none when the rows come as they are given.
  const std::optional<Order>& Wanted() const { return wanted_; }

  /// The user chose that order.
  void Want(const Order& order);

  /// The list has another height: a low one shows the box only while it is used.
  void ListResized() { ShowBox(); }

  /// Opens the menu of the columns at a place of the screen.
  void OpenMenu(const QPoint& at);

  /// True when the key is one of the list's: F3 and Shift+F3. It is done then.
  bool TakesKey(const QKeyEvent& event);

  QSize sizeHint() const override;

 Q_SIGNALS:
  void FilterChanged();

  /// By the menu, or because it was kept.
  void SortWanted(int column, Qt::SortOrder direction);

  /// Columns were moved, shown or hidden.
  void Arranged();

 protected:
  /// Of the headings alone.
  virtual int HeadingHeight() const;
  int FilterHeight() const;

  void paintSection(QPainter* painter, const QRect& area, int section) const override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildBox();
  void PlaceBox();
  void ShowBox();
  void FillMenu(QMenu& menu);
  void AddShownColumns(QMenu& menu);
  void AddSorting(QMenu& menu);
  void AddMoves(QMenu& menu);
  void Move(int column, int step);
  int Neighbour(int column, int step) const;
  void Toggle(int column, bool shown);
  void Restore();
  bool IsOffered(int column) const;
  int ShownCount() const;
  QString HeadingOf(int column) const;
  QString Key(const char* what) const;
  QList<int> Arrangement() const;
  void Arrange(const QList<int>& arrangement);
  void ReadKept();
  void Keep();

  QTableView& list_;
  QLineEdit* box_;
  bool filterable_ = false;
  bool arrangeable_ = true;
  bool sortable_ = true;
  bool arranging_ = false;
  int rows_ = 0;
  QList<bool> hidden_by_program_;
  std::optional<Order> wanted_;
  std::optional<WindowMemory> memory_;
  QString window_;
};

}  // namespace quorvane::controls
