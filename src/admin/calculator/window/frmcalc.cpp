#include "admin/calculator/window/frmcalc.h"

#include "controls/Style.h"
#include "controls/TextBox.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>

namespace quorvane::calculator {
namespace {

using controls::ZENButton;
using Operation = Calculator::Operation;

}  // namespace

frmcalc::frmcalc(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("frmcalc"), tr("Calculator"), {440, 300}) {
  // The window itself has the keyboard, so that no button swallows Enter or Space.
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(windowTitle());
  auto* columns = new QHBoxLayout(this);
  columns->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                              controls::kMargin);
  columns->setSpacing(controls::kMargin);
  auto* left = new QVBoxLayout();
  left->addLayout(Screen());
  left->addLayout(Keys(), 1);
  columns->addLayout(left, 3);
  columns->addLayout(Sums(), 2);
  ShowState();
}

QLayout* frmcalc::Screen() {
  auto* rows = new QGridLayout();
  rows->setSpacing(0);
  lblMemory = new QLabel();
  lblMemory->setObjectName(QStringLiteral("lblMemory"));
  lblWaiting = new QLabel();
  lblWaiting->setObjectName(QStringLiteral("lblWaiting"));
  lblDisplay = new QLabel();
  lblDisplay->setObjectName(QStringLiteral("lblDisplay"));
  lblDisplay->setAccessibleName(tr("Result"));
  QFont large = font();
  large.setPointSizeF(large.pointSizeF() * 1.8);
  lblDisplay->setFont(large);
  for (QLabel* label : {lblWaiting, lblDisplay}) {
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setTextFormat(Qt::PlainText);
  }
  lblDisplay->setMinimumWidth(
      lblDisplay->fontMetrics().horizontalAdvance(QStringLiteral("-1,23,45,67,89,012.345")));
  rows->addWidget(lblMemory, 0, 0);
  rows->addWidget(lblWaiting, 0, 1);
  rows->addWidget(lblDisplay, 1, 0, 1, 2);
  return rows;
}

void frmcalc::AddKey(QGridLayout& keys, const char* name, const QString& caption, int row,
                     int column, Action action, int span) {
  auto* key = new ZENButton(QLatin1String(name), caption);
  key->setFocusPolicy(Qt::NoFocus);
  key->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  keys.addWidget(key, row, column, 1, span);
  connect(key, &QAbstractButton::clicked, this, [this, action = std::move(action)] { Do(action); });
}

QLayout* frmcalc::Keys() {
  auto* keys = new QGridLayout();
  keys->setSpacing(controls::kTightSpacing);
  AddKey(*keys, "cmdMC", tr("MC"), 0, 0, &Calculator::MemoryClear);
  AddKey(*keys, "cmdMR", tr("MR"), 0, 1, &Calculator::MemoryRecall);
  AddKey(*keys, "cmdMPlus", tr("M+"), 0, 2, &Calculator::MemoryAdd);
  AddKey(*keys, "cmdMMinus", tr("M−"), 0, 3, &Calculator::MemorySubtract);
  AddKey(*keys, "cmdC", tr("C"), 1, 0, &Calculator::Clear);
  AddKey(*keys, "cmdCE", tr("CE"), 1, 1, &Calculator::ClearEntry);
  AddKey(*keys, "cmdBack", QStringLiteral("⌫"), 1, 2, &Calculator::Backspace);
  AddKey(*keys, "cmdPercent", QStringLiteral("%"), 1, 3, &Calculator::Percent);
  for (int digit = 1; digit <= 9; ++digit) {
    AddKey(*keys, qPrintable(QStringLiteral("cmdDigit_%1").arg(digit)), QString::number(digit),
           4 - (digit - 1) / 3, (digit - 1) % 3,
           [digit](Calculator& calculator) { calculator.Digit(digit); });
  }
  const auto operation = [&](const char* name, const QString& sign, int row, Operation what) {
    AddKey(*keys, name, sign, row, 3, [what](Calculator& calculator) { calculator.Operate(what); });
  };
  operation("cmdDivide", QStringLiteral("÷"), 2, Operation::kDivide);
  operation("cmdMultiply", QStringLiteral("×"), 3, Operation::kMultiply);
  operation("cmdSubtract", QStringLiteral("−"), 4, Operation::kSubtract);
  operation("cmdAdd", QStringLiteral("+"), 5, Operation::kAdd);
  AddKey(*keys, "cmdSign", QStringLiteral("±"), 5, 0, &Calculator::Negate);
  AddKey(*keys, "cmdDigit_0", QStringLiteral("0"), 5, 1,
         [](Calculator& calculator) { calculator.Digit(0); });
  AddKey(*keys, "cmdPoint", QStringLiteral("."), 5, 2, &Calculator::Point);
  constexpr int kWholeRow = 4;
  AddKey(*keys, "cmdEquals", QStringLiteral("="), 6, 0, &Calculator::Equals, kWholeRow);
  return keys;
}

QLayout* frmcalc::Sums() {
  auto* rows = new QVBoxLayout();
  List1 = new QListWidget();
  List1->setObjectName(QStringLiteral("List1"));
  List1->setAccessibleName(tr("Finished sums"));
  List1->setFocusPolicy(Qt::NoFocus);
  List1->setToolTip(tr("A click takes the result"));
  auto* copy = new ZENButton(QStringLiteral("cmdCopyAll"), tr("Copy All"));
  auto* clear = new ZENButton(QStringLiteral("cmdClearAll"), tr("Clear All"));
  auto* buttons = new QHBoxLayout();
  for (ZENButton* button : {copy, clear}) {
    button->setFocusPolicy(Qt::NoFocus);
    buttons->addWidget(button);
  }
  rows->addWidget(List1, 1);
  rows->addLayout(buttons);
  On(List1, &QListWidget::itemClicked, &frmcalc::List1_Click, QStringLiteral("List1_Click"));
  OnClick(copy, &frmcalc::cmdCopyAll_Click);
  OnClick(clear, &frmcalc::cmdClearAll_Click);
  return rows;
}

void frmcalc::Do(const Action& action) {
  action(calculator_);
  ShowState();
}

void frmcalc::ShowState() {
  const QString display = calculator_.Display();
  lblDisplay->setText(calculator_.HasError() ? display : Grouped(display));
  lblWaiting->setText(calculator_.Waiting());
  lblMemory->setText(calculator_.HasMemory() ? tr("M %1").arg(calculator_.MemoryText())
                                             : QString());
  const QStringList& history = calculator_.History();
  if (List1->count() != history.size() ||
      (!history.isEmpty() && List1->item(List1->count() - 1)->text() != history.back())) {
    List1->clear();
    List1->addItems(history);
    List1->scrollToBottom();
  }
}

bool frmcalc::Press(const QKeyEvent& event) {
  const QString text = event.text();
  const QChar letter = text.isEmpty() ? QChar() : text.front();
  if (letter >= QLatin1Char('0') && letter <= QLatin1Char('9')) {
    calculator_.Digit(letter.unicode() - u'0');
  } else if (letter == QLatin1Char('+')) {
    calculator_.Operate(Operation::kAdd);
  } else if (letter == QLatin1Char('-')) {
    calculator_.Operate(Operation::kSubtract);
  } else if (letter == QLatin1Char('*') || letter == QLatin1Char('x')) {
    calculator_.Operate(Operation::kMultiply);
  } else if (letter == QLatin1Char('/')) {
    calculator_.Operate(Operation::kDivide);
  } else if (letter == QLatin1Char('.')) {
    calculator_.Point();
  } else if (letter == QLatin1Char(',')) {
    // It groups digits, as on the display; 1,000 is a thousand.
  } else if (letter == QLatin1Char('%')) {
    calculator_.Percent();
  } else if (letter == QLatin1Char('=') || event.key() == Qt::Key_Return ||
             event.key() == Qt::Key_Enter) {
    calculator_.Equals();
  } else if (event.key() == Qt::Key_Backspace) {
    calculator_.Backspace();
  } else if (event.key() == Qt::Key_Delete) {
    calculator_.ClearEntry();
  } else if (event.key() == Qt::Key_F9) {
    calculator_.Negate();
  } else {
    return false;
  }
  return true;
}

void frmcalc::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    Copy();
  } else if (event->matches(QKeySequence::Paste)) {
    Paste();
  } else if (!(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && Press(*event)) {
    ShowState();
  } else {
    ChildWindow::keyPressEvent(event);
  }
}

/// The first Esc clears, the next one closes.
void frmcalc::EscapePressed() {
  if (calculator_.IsClear()) {
    close();
    return;
  }
  Do(&Calculator::Clear);
}

void frmcalc::Copy() const {
  QApplication::clipboard()->setText(calculator_.Display());
}

void frmcalc::Paste() {
  if (!calculator_.Paste(QApplication::clipboard()->text())) {
    Say().Inform(tr("The Clipboard Holds no Number."));
  }
  ShowState();
}

void frmcalc::List1_Click() {
  const QString sum = List1->currentItem()->text();
  calculator_.Paste(sum.sliced(sum.lastIndexOf(QLatin1Char('=')) + 1));
  ShowState();
}

void frmcalc::cmdCopyAll_Click() {
  QApplication::clipboard()->setText(calculator_.History().join(QLatin1Char('\n')));
}

void frmcalc::cmdClearAll_Click() {
  calculator_.ClearHistory();
  ShowState();
}

}  // namespace quorvane::calculator
