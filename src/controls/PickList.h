#pragma once

#include "core/lookups/Choices.h"

#include <QListView>

#include <vector>

namespace quorvane::controls {

class ItemModel;
class TextBox;

/// A list of records that opens under a text box while the box has the focus, to pick the box's
/// text from. Typing completes the text and moves in the list, and so do Up and Down; a click
/// picks, Esc closes the list.
class PickList : public QListView {
  Q_OBJECT

 public:
  /// The list is shown over `window`, which has the box.
  PickList(const QString& name, TextBox* box, QWidget* window);

  void SetItems(std::vector<lookups::Item> items);

  /// The key behind the box's text, 0 when it is no item. Of several items with one text it is the
  /// one that was picked or shown last.
  int CurrentId() const;

  /// Puts an item's text into the box; an unknown key empties it.
  void ById(int id);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Open();
  void Follow();
  void Move(int step);
  void Pick(int row);
  int RowOfText() const;

  TextBox* box_;
  ItemModel* items_;
  int picked_ = 0;
};

}  // namespace quorvane::controls
