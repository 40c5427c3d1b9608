#include "ui/main/MainMenu.h"

#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QShortcutEvent>

#include <map>
#include <utility>

namespace quorvane::ui {

namespace {

using controls::ZENButton;

/// The menu items that have a button in the row, and its short caption: the row fits a screen 800
/// pixels wide.
struct RowButton {
  const char* item;
  const char* caption;
};
constexpr RowButton kRowButtons[] = {
    {"mnuClientInfo", QT_TRANSLATE_NOOP("MainMenu", "Clients")},
    {"mnuSalePurchaseEntry", QT_TRANSLATE_NOOP("MainMenu", "Bills")},
    {"mnuStkOpBal", QT_TRANSLATE_NOOP("MainMenu", "Opening")},
    {"mnuTransferScr", QT_TRANSLATE_NOOP("MainMenu", "Transfers")},
    {"mnuBrPayment", QT_TRANSLATE_NOOP("MainMenu", "Payments")},
    {"mnuBrokerLedger", QT_TRANSLATE_NOOP("MainMenu", "Ledger")},
    {"mnuProfitStatement", QT_TRANSLATE_NOOP("MainMenu", "Profit")},
    {"mnuCapitalGain", QT_TRANSLATE_NOOP("MainMenu", "Gains")},
    {"mnuVarReports", QT_TRANSLATE_NOOP("MainMenu", "MIS")},
    {"mnuAutoUpdateStock", QT_TRANSLATE_NOOP("MainMenu", "Update Stock")}};

QString Caption(const Feature& item) {
  return Tr("MainMenu", item.caption);
}

QString Caption(const RowButton& button) {
  return Tr("MainMenu", button.caption);
}

QString NameOfButton(int number) {
  return QStringLiteral("ZENButton1_%1").arg(number);
}

/// The action of an item, in its sub-menu or in the menu bar itself.
QAction* Add(QMainWindow& window, std::map<QString, QMenu*>& menus, const Feature& item) {
  if (item.action == MenuAction::kHeading) {
    QMenu* menu = window.menuBar()->addMenu(Caption(item));
    menu->setToolTipsVisible(true);
    menus[QLatin1String(item.item)] = menu;
    return menu->menuAction();
  }
  const auto heading = menus.find(QLatin1String(item.heading));
  if (heading == menus.end()) {
    return window.menuBar()->addAction(Caption(item));
  }
  return item.action == MenuAction::kSeparator ? heading->second->addSeparator()
                                               : heading->second->addAction(Caption(item));
}

}  // namespace

void BuildMenu(QMainWindow& window, const std::function<void(const Feature&)>& chosen) {
  std::map<QString, QMenu*> menus;
  for (const Feature& item : Features()) {
    if (item.action != MenuAction::kNoItem) {
      QAction* action = Add(window, menus, item);
      action->setObjectName(QLatin1String(item.item));
      action->setShortcut(QKeySequence(QLatin1String(item.key)));
      action->setCheckable(item.action == MenuAction::kTabs);
      if (item.action == MenuAction::kUndo) {
        action->setShortcut(QKeySequence::Undo);
      }
      QObject::connect(action, &QAction::triggered, &window, [chosen, &item] { chosen(item); });
    }
  }
}

// On a screen of 800 the row is as wide as its captions ask for, or the window would not fit.
void SetCaption(ZENButton& button, const QString& caption) {
  button.setText(caption);
  const QSize words = button.fontMetrics().size(Qt::TextShowMnemonic, caption);
  button.setMinimumWidth(words.width() + 2 * controls::kSpacing);
}

void BuildButtonRow(QMainWindow& window, QHBoxLayout& row) {
  int number = 0;
  for (const RowButton& entry : kRowButtons) {
    auto* action = window.findChild<QAction*>(QLatin1String(entry.item));
    auto* button = new ZENButton(NameOfButton(number++), QString());
    SetCaption(*button, Caption(entry));
    button->setToolTip(action->text().remove(QLatin1Char('&')));
    QObject::connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
    row.addWidget(button);
  }
  row.addStretch(1);
}

void ShowCaptions(QMainWindow& window) {
  for (const Feature& item : Features()) {
    if (item.action != MenuAction::kSeparator && item.action != MenuAction::kNoItem) {
      window.findChild<QAction*>(QLatin1String(item.item))->setText(Caption(item));
    }
  }
  int number = 0;
  for (const RowButton& entry : kRowButtons) {
    SetCaption(*window.findChild<ZENButton*>(NameOfButton(number++)), Caption(entry));
  }
}

MenuBar::MenuBar(std::function<bool(const QKeySequence& key)> child_takes)
    : child_takes_(std::move(child_takes)) {}

bool MenuBar::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut) {
    const auto& shortcut = *static_cast<QShortcutEvent*>(event);
    if (shortcut.isAmbiguous() && child_takes_(shortcut.key())) {
      return true;
    }
  }
  return QMenuBar::event(event);
}

}  // namespace quorvane::ui
