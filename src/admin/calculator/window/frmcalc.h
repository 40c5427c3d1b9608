#pragma once

#include "admin/calculator/Calculator.h"
#include "controls/ChildWindow.h"

#include <functional>

class QGridLayout;
class QLabel;
class QListWidget;

namespace quorvane::calculator {

/// The calculator. Every key has a button; Ctrl+C and Ctrl+V copy and paste the number, a click on
/// a finished sum takes its result.
class frmcalc : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit frmcalc(controls::Desk& desk);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void EscapePressed() override;

 private:
  using Action = std::function<void(Calculator&)>;

  QLayout* Screen();
  QLayout* Keys();
  QLayout* Sums();
  void AddKey(QGridLayout& keys, const char* name, const QString& caption, int row, int column,
              Action action, int span = 1);
  void Do(const Action& action);
  bool Press(const QKeyEvent& event);
  void ShowState();
  void Copy() const;
  void Paste();
  void List1_Click();
  void cmdCopyAll_Click();
  void cmdClearAll_Click();

  Calculator calculator_;
  QLabel* lblWaiting = nullptr;
  QLabel* lblMemory = nullptr;
  QLabel* lblDisplay = nullptr;
  QListWidget* List1 = nullptr;
};

}  // namespace quorvane::calculator
