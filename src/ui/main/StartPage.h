#pragma once

#include "controls/ZENButton.h"

#include <QLabel>
#include <QWidget>

#include <array>

namespace quorvane::ui {

/// What the empty main window says while there is no client: how to begin. Each button does what
/// the menu item under whose name it is sent does.
class StartPage : public QWidget {
  Q_OBJECT

 public:
  /// Covers `area` and keeps its size.
  explicit StartPage(QWidget& area);

  /// Writes its texts in the language in force.
  void ShowTexts();

 Q_SIGNALS:
  void Chosen(const QString& menu_item);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static constexpr std::size_t kSteps = 4;

  QLabel* title_;
  QLabel* hint_;
  std::array<controls::ZENButton*, kSteps> buttons_{};
  std::array<QLabel*, kSteps> words_{};
};

}  // namespace quorvane::ui
