#include "transactions/bills/window/BillPane.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"
#include "transactions/bills/BillChecks.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::bills {
namespace {

using controls::Answer;
using controls::Grid;
using controls::Icon;
using controls::Mask;
using controls::Row;
using controls::ZENButton;
using records::BillLine;

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
                    line.stt_percent, line.fo ? 1 : 0, ShownDelivery(line.delivery_type)}};
}

QString TextOf(std::span<const Piece> pieces) {
  QStringList lines;
  for (const Piece& piece : pieces) {
    const auto& since = piece.from.since;
    lines +=
        BillPane::tr("%1 at %2, held since %3")
            .arg(text::NumberText(piece.quantity.Number()), text::FormatAmount(piece.from.lot.rate),
                 since ? text::FormatDmy(*since) : QStringLiteral("-"));
  }
  return lines.join(QLatin1Char('\n'));
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

BillPane::BillPane(BillContext& context, RateSource rates, QWidget* window)
    : context_(context),
      head_(new BillHeaderPane(context, window)),
      holdings_(new HoldingsPane(context)),
      line_(new BillLinePane(context, *head_, *holdings_, std::move(rates))),
      foot_(new BillTotalsPane(context)),
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
  Connect();
}

QWidget* BillPane::BuildLists() {
  Vs1->SetSortable(false);
  Vs1->SetColumns(
      {{.heading = tr("S/P"), .choices = QStringLiteral("#0;%1|#1;%2").arg(tr("S"), tr("P"))},
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
    buttons_[i] = new ZENButton(QLatin1String(kButtons[i].name), Tr("Bills", kButtons[i].caption));
    buttons_[i]->setToolTip(Tr("Bills", kButtons[i].keys));
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

void BillPane::Connect() {
  const controls::Guard& guard = context_.guard;
  const auto on_click = [&](const ZENButton& button, void (BillPane::*handler)()) {
    guard.Connect(&button, &QAbstractButton::clicked, this, handler,
                  button.objectName() + QLatin1String("_Click"));
  };
  on_click(Button(LineCommand::kAdd), &BillPane::CmdAdd1_Click);
  on_click(Button(LineCommand::kModify), &BillPane::CmdModify1_Click);
  on_click(Button(LineCommand::kUpdate), &BillPane::CmdUpdate1_Click);
  on_click(Button(LineCommand::kDelete), &BillPane::CmdDelete1_Click);
  on_click(Button(LineCommand::kCancel), &BillPane::cmdCancel1_Click);
  on_click(*holdings_->Refresh(), &BillPane::ImgRefresh_Click);
  guard.Connect(head_, &BillHeaderPane::AccountChanged, this, &BillPane::Account_Changed,
                QStringLiteral("Combo2_Click"));
  guard.Connect(Vs1, &Grid::CurrentRowChanged, this, &BillPane::Enable,
                QStringLiteral("Vs1_RowColChange"));
  guard.Connect(Vs1, &Grid::RowActivated, this, &BillPane::VS1_RowActivated,
                QStringLiteral("Vs1_DblClick"));
  guard.Connect(holdings_->Balance(), &Grid::RowActivated, this, &BillPane::VS3_RowActivated,
                QStringLiteral("VS3_DblClick"));
}

void BillPane::ReadChoices() {
  head_->ReadChoices();
  line_->ReadChoices();
}

void BillPane::Clear() {
  head_->Show();
  ShowLines();
  holdings_->Clear();
}

void BillPane::Show() {
  head_->Show();
  Account_Changed();
}

void BillPane::Begin() {
  line_->Reset();
  Show();
}

void BillPane::ShowLines() {
  std::vector<Row> rows;
  for (const BillLine& line : context_.entry.Current().lines) {
    rows.push_back(RowOf(line, static_cast<int>(rows.size()) + 1, context_.scrips));
  }
  Vs1->SetRows(std::move(rows));
  holdings_->ShowMoves();
  foot_->Show();
}

void BillPane::SetEditing(bool editing) {
  editing_ = editing;
  EndLine();
}

void BillPane::EndLine() {
  line_->End();
  Enable();
}

void BillPane::Enable() {
  const bool line = line_->IsOpen();
  const bool free = editing_ && !line;
  const bool chosen = free && Vs1->CurrentRow() >= 0;
  head_->setEnabled(editing_);
  foot_->setEnabled(editing_);
  line_->setEnabled(line);
  Button(LineCommand::kAdd).setEnabled(free);
  Button(LineCommand::kModify).setEnabled(chosen);
  Button(LineCommand::kDelete).setEnabled(chosen);
  Button(LineCommand::kUpdate).setEnabled(line);
  Button(LineCommand::kCancel).setEnabled(line);
}

void BillPane::Take() {
  head_->Take();
  foot_->Take();
}

void BillPane::CancelLine() {
  Button(LineCommand::kCancel).setFocus(Qt::ShortcutFocusReason);
  Button(LineCommand::kCancel).click();
}

void BillPane::Account_Changed() {
  ShowLines();
  holdings_->ShowAccount(head_->AccountNumber());
}

void BillPane::VS1_RowActivated() {
  if (Button(LineCommand::kModify).isEnabled()) {
    CmdModify1_Click();
  }
}

void BillPane::VS3_RowActivated() {
  const std::optional<records::Lot> lot = holdings_->CurrentLot();
  if (!editing_ || !lot) {
    return;
  }
  if (!line_->IsOpen()) {
    CmdAdd1_Click();
  }
  if (line_->IsOpen()) {
    line_->PickLot(*lot);
    line_->FocusQuantity();
  }
}

void BillPane::CmdAdd1_Click() {
  head_->Take();
  if (!head_->IsDateRefused() && context_.Accepts(CheckBeforeLine(context_.entry.Current()))) {
    StartNewLine();
  }
}

void BillPane::StartNewLine() {
  line_->Add();
  Enable();
  line_->FocusFirst();
}

void BillPane::CmdModify1_Click() {
  line_->Change(static_cast<std::size_t>(Vs1->CurrentRow()));
  Enable();
  holdings_->BringUp(line_->Entry().Scrip());
  line_->FocusQuantity();
}

/// A sale that names no lot, or one with too few shares, may take several: a line for each.
MaybeRefusal BillPane::PutLine(const BillLine& line) {
  BillEntry& entry = context_.entry;
  const std::vector<Piece> pieces = entry.Spread(line, line_->Changed());
  if (!pieces.empty() &&
      Say().Ask(
          tr("Take the Sale from these Lots, with a Line for each?\n\n%1").arg(TextOf(pieces)),
          Answer::kYes, Icon::kInformation)) {
    return entry.Put(SpreadOver(line, pieces), line_->Changed());
  }
  return entry.Put(line, line_->Changed());
}

void BillPane::CmdUpdate1_Click() {
  const LineEntry& entered = line_->Entry();
  const BillLine line = entered.Entered();
  if (!context_.Accepts(CheckLine(entered.GetSide(), line.scrip, line.quantity)) ||
      !context_.Accepts(PutLine(line))) {
    return;
  }
  const bool another = line_->IsNew();
  EndLine();
  ShowLines();
  holdings_->ShowBalance();
  if (another) {
    StartNewLine();
  } else {
    Vs1->setFocus(Qt::OtherFocusReason);
  }
}

void BillPane::CmdDelete1_Click() {
  const int row = Vs1->CurrentRow();
  if (row < 0 ||
      !Say().Ask(tr("Are You Sure, You want to Delete this Record?"), Answer::kNo,
                 Icon::kCritical) ||
      !context_.Accepts(context_.entry.Remove(static_cast<std::size_t>(row)))) {
    return;
  }
  ShowLines();
  holdings_->ShowBalance();
  Vs1->SelectRow(std::min(row, Vs1->Model().RowCount() - 1));
  EndLine();
  Vs1->setFocus(Qt::OtherFocusReason);
}

void BillPane::cmdCancel1_Click() {
  EndLine();
  holdings_->ShowRecordedAverages();
  Button(LineCommand::kAdd).setFocus(Qt::OtherFocusReason);
}

void BillPane::ImgRefresh_Click() {
  if (context_.entry.IsOpen() && !context_.Accepts(context_.entry.Refresh())) {
    return;
  }
  Account_Changed();
  Say().Inform(tr("Refresh Successfully!"));
}

}  // namespace quorvane::bills
