#include "transactions/bills/window/BillPane.h"

#include "controls/Style.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace quorvane::bills {
namespace {

using controls::Grid;
using controls::Mask;
using controls::Row;
using controls::ZENButton;

// Of the width; on a wide screen the lines get what is left over.
constexpr int kLinesWidth = 560;
constexpr int kHoldingsWidth = 340;

struct ButtonText {
  const char* name;
  const char* caption;
  const char* keys;
};

constexpr std::array kButtons{
    ButtonText{"CmdAdd1", QT_TRANSLATE_NOOP("Bills", "Add L&ine"), "F6"},
    ButtonText{"CmdModify1", QT_TRANSLATE_NOOP("Bills", "Modi&fy Line"), "F7"},
    ButtonText{"CmdUpdate1", QT_TRANSLATE_NOOP("Bills", "Updat&e Line"), "F8"},
    ButtonText{"CmdDelete1", QT_TRANSLATE_NOOP("Bills", "Delete Line"),
               QT_TRANSLATE_NOOP("Bills", "Del in the list of lines")},
    ButtonText{"cmdCancel1", QT_TRANSLATE_NOOP("Bills", "Cancel Line"), "Esc"}};

Row RowOf(const BillLine& line, int number, const ScripList& scrips) {
  return {.id = number,
          .cells = {static_cast<int>(line.side), scrips.NameOf(line.scrip), line.quantity.Number(),
                    line.rate, line.brokerage, line.net, line.amount, line.service_tax, line.stt,
                    line.stt_percent, line.fo ? 1 : 0, line.delivery_type}};
}

// The button takes the focus first, so that the box left behind is settled before the click; a box
// that refuses takes the focus back.
void PressSettled(ZENButton& button) {
  if (!button.isEnabled()) {
    return;
  }
  button.setFocus(Qt::ShortcutFocusReason);
  if (button.hasFocus()) {
    button.click();
  }
}

}  // namespace

BillPane::BillPane(const controls::Guard& guard, database::Connection& connection,
                   text::FinancialYear year, QWidget* window)
    : head_(new BillHeaderPane(guard, window)),
      line_(new BillLinePane(guard, connection, year)),
      holdings_(new HoldingsPane()),
      foot_(new BillTotalsPane(guard)),
      Vs1(new Grid(QStringLiteral("Vs1"), tr("Lines of the bill"))) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, controls::kTightSpacing, 0, 0);
  rows->addWidget(head_);
  rows->addWidget(line_);
  auto* buttons = new QHBoxLayout();
  BuildButtons(*buttons);
  rows->addLayout(buttons);
  rows->addWidget(BuildLists(), 1);
  rows->addWidget(foot_);
  BuildKeys(window);
}

QWidget* BillPane::BuildLists() {
  Vs1->SetSortable(false);
  Vs1->SetColumns({{.heading = tr("S/P"), .choices = QStringLiteral("#0;S|#1;P")},
                   {.heading = tr("Scrip")},
                   {.heading = tr("Quantity"), .mask = Mask::kAmount},
                   {.heading = tr("Rate"), .mask = Mask::kAmount},
                   {.heading = tr("Brokerage"), .mask = Mask::kAmount},
                   {.heading = tr("Net Rate"), .mask = Mask::kAmount},
                   {.heading = tr("Amount"), .mask = Mask::kAmount},
                   {.heading = tr("Service Tax"), .mask = Mask::kAmount},
                   {.heading = tr("S.T.T."), .mask = Mask::kAmount},
                   {.heading = tr("S.T.T. %"), .mask = Mask::kPercent},
                   {.heading = tr("F&O"), .choices = QStringLiteral("#0;|#1;") + tr("Yes")},
                   {.heading = tr("Delivery")}});
  auto* lists = new QSplitter(Qt::Horizontal);
  lists->setChildrenCollapsible(false);
  lists->addWidget(Vs1);
  lists->addWidget(holdings_);
  lists->setStretchFactor(0, 1);
  lists->setSizes({kLinesWidth, kHoldingsWidth});
  return lists;
}

void BillPane::BuildButtons(QHBoxLayout& row) {
  for (std::size_t i = 0; i < kButtons.size(); ++i) {
    buttons_[i] = new ZENButton(QLatin1String(kButtons[i].name),
                                QCoreApplication::translate("Bills", kButtons[i].caption));
    buttons_[i]->setToolTip(QCoreApplication::translate("Bills", kButtons[i].keys));
    row.addWidget(buttons_[i]);
  }
  Button(LineCommand::kCancel).SetCancels(true);
  row.addStretch();
}

void BillPane::BuildKeys(QWidget* window) {
  const auto key = [window](Qt::Key keys) {
    auto* shortcut = new QShortcut(QKeySequence(keys), window);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    return shortcut;
  };
  const auto press = [&](Qt::Key keys, ZENButton* button) {
    connect(key(keys), &QShortcut::activated, button, [button] { PressSettled(*button); });
  };
  press(Qt::Key_F5, holdings_->Refresh());
  press(Qt::Key_F6, &Button(LineCommand::kAdd));
  press(Qt::Key_F7, &Button(LineCommand::kModify));
  press(Qt::Key_F8, &Button(LineCommand::kUpdate));
  connect(key(Qt::Key_F9), &QShortcut::activated, holdings_, &HoldingsPane::FocusBalance);
  auto* wipe = new QShortcut(QKeySequence::Delete, Vs1);
  wipe->setContext(Qt::WidgetShortcut);
  connect(wipe, &QShortcut::activated, &Button(LineCommand::kDelete), &QAbstractButton::click);
}

void BillPane::ReadChoices(database::Connection& connection, ClientId client) {
  head_->ReadChoices(connection, client);
  line_->ReadChoices();
}

void BillPane::Show(const Bill& bill, records::TotalCaption caption) {
  head_->Show(bill);
  ShowLines(bill, caption);
}

void BillPane::ShowLines(const Bill& bill, records::TotalCaption caption) {
  std::vector<Row> rows;
  for (const BillLine& line : bill.lines) {
    rows.push_back(RowOf(line, static_cast<int>(rows.size()) + 1, line_->Scrips()));
  }
  Vs1->SetRows(std::move(rows));
  holdings_->ShowMoves(bill.lines, line_->Scrips());
  foot_->Show(bill, caption);
}

void BillPane::SetEditing(bool bill, bool line) {
  const bool free = bill && !line;
  const bool chosen = free && Vs1->CurrentRow() >= 0;
  head_->setEnabled(bill);
  foot_->setEnabled(bill);
  line_->setEnabled(line);
  Button(LineCommand::kAdd).setEnabled(free);
  Button(LineCommand::kModify).setEnabled(chosen);
  Button(LineCommand::kDelete).setEnabled(chosen);
  Button(LineCommand::kUpdate).setEnabled(line);
  Button(LineCommand::kCancel).setEnabled(line);
}

}  // namespace quorvane::bills
