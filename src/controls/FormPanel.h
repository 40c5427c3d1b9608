#pragma once

#include <QStringList>

class QScrollArea;
class QWidget;

namespace quorvane::controls {

class Grid;

/// What is entered in the controls of a panel at a moment, to see later whether it was changed:
/// texts, choices, ticks and the cells of lists.
class FormContents {
 public:
  FormContents() = default;
  explicit FormContents(const QWidget& panel);

  friend bool operator==(const FormContents&, const FormContents&) = default;

 private:
  QStringList texts_;
};

/// The panel of a form in an area that scrolls where the window is too small for it.
QScrollArea* Scrolling(QWidget* panel);

/// Shows a text in the middle of a list while it has no rows at all.
void HintWhenEmpty(Grid& list, const QString& text);

/// Gives the focus to the first control of a panel that Tab reaches and that is enabled and not
/// hidden; leaves it where it is when there is none.
void FocusFirstField(QWidget& panel);

}  // namespace quorvane::controls
