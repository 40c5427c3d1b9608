#include "controls/ComboBox.h"

#include "controls/GridModel.h"
#include "controls/Style.h"
#include "controls/TextBox.h"

#include <QAccessible>
#include <QListView>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>

namespace quorvane::controls {
namespace {

constexpr int kVisibleItems = 16;
constexpr int kMinimumLetters = 8;

bool SameText(const QString& left, const QString& right) {
  return left.compare(right, Qt::CaseInsensitive) == 0;
}

template <class Fits>
int PositionOf(const std::vector<lookups::Item>& items, Fits fits) {
  const auto found = std::ranges::find_if(items, fits);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

ComboBox::ComboBox(QWidget* parent, Entry entry)
    : QComboBox(parent), entry_(entry), items_(new ItemModel(this)), box_(new TextBox()) {
  auto* list = new QListView();
  list->setUniformItemSizes(true);
  setView(list);
  setModel(items_);
  setEditable(true);
  setInsertPolicy(NoInsert);
  setLineEdit(box_);
  setCompleter(nullptr);
  setMaxVisibleItems(kVisibleItems);
  setMinimumHeight(kBoxHeight);
  box_->setMinimumHeight(0);
  // Measuring every item would make the opening of a window slow.
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kMinimumLetters);
  // A text that is longer than the box shows its beginning.
  connect(box_, &QLineEdit::textChanged, this, [this] {
    if (!box_->hasFocus()) {
      box_->setCursorPosition(0);
    }
  });
  connect(box_, &TextBox::Entered, this, &ComboBox::Entered);
  connect(box_, &TextBox::Left, this, [this] {
    Settle();
    Q_EMIT Left();
  });
}

void ComboBox::SetItems(std::vector<lookups::Item> items) {
  const QSignalBlocker quiet(this);
  QStringList texts;
  for (const lookups::Item& item : items) {
    texts.append(item.text);
  }
  items_->SetItems(std::move(items));
  box_->SetCompletions(completes_ ? texts : QStringList());
  Clear();
}

void ComboBox::SetTexts(const QStringList& texts) {
  std::vector<lookups::Item> items;
  for (const QString& text : texts) {
    items.push_back({.id = static_cast<int>(items.size()), .text = text});
  }
  SetItems(std::move(items));
}

int ComboBox::CurrentPosition() const {
  const int chosen = currentIndex();
  if (chosen >= 0 && SameText(itemText(chosen), currentText())) {
    return chosen;
  }
  const int typed = PositionOf(
      items_->Items(), [&](const auto& item) { return SameText(item.text, currentText()); });
  const bool stays = entry_ == Entry::kItemsOnly && !currentText().isEmpty();
  return typed < 0 && stays ? chosen : typed;
}

int ComboBox::CurrentId() const {
  const int position = CurrentPosition();
  return position < 0 ? 0 : items_->Items()[static_cast<std::size_t>(position)].id;
}

bool ComboBox::ById(int id) {
  setCurrentIndex(PositionOf(items_->Items(), [&](const auto& item) { return item.id == id; }));
  return currentIndex() >= 0;
}

bool ComboBox::ByText(const QString& text) {
  setCurrentIndex(
      PositionOf(items_->Items(), [&](const auto& item) { return SameText(item.text, text); }));
  if (currentIndex() < 0 && entry_ == Entry::kFreeText) {
    setEditText(text);
  }
  return currentIndex() >= 0;
}

void ComboBox::Clear() {
  setCurrentIndex(-1);
  clearEditText();
}

// With no item chosen, setCurrentIndex leaves a typed text alone when the index does not change.
void ComboBox::Settle() {
  const QString typed = currentText();
  const int position = CurrentPosition();
  setCurrentIndex(position);
  if (position >= 0) {
    setEditText(itemText(position));
  } else {
    setEditText(entry_ == Entry::kFreeText ? typed : QString());
  }
  box_->setCursorPosition(0);
}

// A wheel that scrolls the window must not change a choice under the pointer.
// The box within has the keyboard: a screen reader calls it as it calls the list, also when that
// has its name of a label.
void ComboBox::showEvent(QShowEvent* event) {
  QComboBox::showEvent(event);
  if (QAccessibleInterface* list = QAccessible::queryAccessibleInterface(this)) {
    box_->setAccessibleName(list->text(QAccessible::Name));
  }
}

void ComboBox::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace quorvane::controls
