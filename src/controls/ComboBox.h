#pragma once

#include "core/lookups/Choices.h"

#include <QComboBox>
#include <QStringList>

#include <vector>

namespace quorvane::controls {

class ItemModel;
class TextBox;

/// A drop-down list of records. Typing completes the text from the items; Enter moves on as Tab
/// does. A text that is no item is replaced by the chosen item when the box is left, unless free
/// text is allowed. Filling it with 10,000 items is quick.
class ComboBox : public QComboBox {
  Q_OBJECT

 public:
  enum class Entry { kItemsOnly, kFreeText };

  explicit ComboBox(QWidget* parent = nullptr, Entry entry = Entry::kItemsOnly);

  /// Whether typed text is completed. On by default; off for numbers, where 0.1 must not become
  /// 0.125. To be called before the items are set.
  void SetCompletes(bool on) { completes_ = on; }

  /// Replaces the items; nothing is chosen afterwards and no signal of a choice is sent.
  void SetItems(std::vector<lookups::Item> items);

  /// Items whose key is their position, counted from 0 ("S", "P").
  void SetTexts(const QStringList& texts);

  /// The position and the key of the chosen item, a text being typed included; -1 and 0 when there
  /// is none.
  int CurrentPosition() const;
  int CurrentId() const;
  bool HasChoice() const { return CurrentPosition() >= 0; }

  /// Choose an item; false when there is no such item, and then none is chosen. Texts are compared
  /// in upper case. With free text, a text that is no item is put into the box.
  bool ById(int id);
  bool ByText(const QString& text);

  /// No item, empty text.
  void Clear();

 Q_SIGNALS:
  void Entered();

  /// The box lost the focus to another control; the choice is final by then.
  void Left();

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Settle();

  Entry entry_;
  bool completes_ = true;
  ItemModel* items_;
  TextBox* box_;
};

}  // namespace quorvane::controls
