#include "masters/clients/window/AccountsPane.h"

#include "core/lookups/Choices.h"
#include "masters/clients/AccountBook.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <utility>

namespace quorvane::clients {
namespace {

using controls::Grid;
using controls::GridModel;
using controls::Row;
using controls::ZENButton;

enum Column { kParticipant, kDpId, kNumber };

/// With an empty line to take a choice back, and so that a cell without choices takes no text.
QString WithNone(const QString& choices) {
  return QStringLiteral("#0;|") + choices;
}

/// The key of the only record in a list of choices; 0 when there is none or more.
int OnlyChoice(const QString& choices) {
  const controls::ValueList list(choices);
  return list.Items().size() == 1 ? list.Items().front().id : 0;
}

Row RowOf(const Account& account) {
  return {.id = account.id.value,
          .cells = {account.participant.value, account.dp_id.value, account.number}};
}

}  // namespace

AccountsPane::AccountsPane(const controls::Guard& guard, database::Connection& connection,
                           controls::Messages& messages)
    : guard_(guard),
      connection_(connection),
      messages_(messages),
      VS(new Grid(QStringLiteral("VS"), tr("Demat accounts of the client"))),
      CmdAddRow(new ZENButton(QStringLiteral("CmdAddRow"), tr("Add Ro&w"))),
      CmdDelRow(new ZENButton(QStringLiteral("CmdDelRow"), tr("Delete Row"))) {
  Arrange();
  VS->SetSortable(false);
  VS->SetColumns({{.heading = tr("Depository Participant"), .editable = true},
                  {.heading = tr("DP Id"), .editable = true},
                  {.heading = tr("Demat A/c No."), .editable = true}});
  VS->installEventFilter(this);
  guard.Connect(&VS->Model(), &GridModel::CellEdited, this, &AccountsPane::VS_CellEdited,
                QStringLiteral("VS_AfterEdit"));
  guard.Connect(VS, &Grid::LastCellLeft, this, &AccountsPane::VS_LastCellLeft,
                QStringLiteral("VS_KeyDown"));
  guard.Connect(CmdAddRow, &QAbstractButton::clicked, this, &AccountsPane::CmdAddRow_Click,
                QStringLiteral("CmdAddRow_Click"));
  guard.Connect(CmdDelRow, &QAbstractButton::clicked, this, &AccountsPane::CmdDelRow_Click,
                QStringLiteral("CmdDelRow_Click"));
}

void AccountsPane::Arrange() {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(new QLabel(tr("Demat Accounts")));
  auto* columns = new QHBoxLayout();
  rows->addLayout(columns, 1);
  columns->addWidget(VS, 1);
  auto* buttons = new QVBoxLayout();
  buttons->addWidget(CmdAddRow);
  buttons->addWidget(CmdDelRow);
  buttons->addStretch();
  columns->addLayout(buttons);
}

void AccountsPane::Show(const std::vector<Account>& accounts) {
  std::vector<Row> rows;
  rows.reserve(accounts.size());
  for (const Account& account : accounts) {
    rows.push_back(RowOf(account));
  }
  VS->SetRows(std::move(rows));
  RefreshChoices();
  VS->FitColumns();
}

std::vector<Account> AccountsPane::Entered() const {
  const GridModel& model = VS->Model();
  std::vector<Account> accounts;
  accounts.reserve(static_cast<std::size_t>(model.RowCount()));
  for (int row = 0; row < model.RowCount(); ++row) {
    accounts.push_back({.id = AccountId{model.IdOf(row)},
                        .participant = ParticipantId{model.Value(row, kParticipant).toInt()},
                        .dp_id = DpIdId{model.Value(row, kDpId).toInt()},
                        .number = model.Text(row, kNumber)});
  }
  return accounts;
}

void AccountsPane::RefreshChoices() {
  VS->Model().SetChoices(
      kParticipant, WithNone(lookups::ChoiceList(connection_, lookups::Choices::kParticipants)));
  for (int row = 0; row < VS->Model().RowCount(); ++row) {
    RefreshDpIds(row);
  }
}

void AccountsPane::RefreshDpIds(int row) {
  const ParticipantId participant{VS->Model().Value(row, kParticipant).toInt()};
  VS->Model().SetCellChoices(row, kDpId,
                             WithNone(lookups::DpIdChoiceList(connection_, participant)));
}

bool AccountsPane::eventFilter(QObject* watched, QEvent* event) {
  if (watched == VS && event->type() == QEvent::FocusIn) {
    guard_.Run(QStringLiteral("VS_GotFocus"), [this] { VS_GotFocus(); });
  }
  return QWidget::eventFilter(watched, event);
}

// A participant may have been added in its own window since the grid was left.
void AccountsPane::VS_GotFocus() {
  RefreshChoices();
  if (VS->Model().RowCount() == 0) {
    CmdAddRow_Click();
  }
}

void AccountsPane::VS_CellEdited(int row, int column) {
  if (column != kParticipant) {
    VS->FitColumns();
    return;
  }
  const ParticipantId participant{VS->Model().Value(row, kParticipant).toInt()};
  const QString dp_ids = lookups::DpIdChoiceList(connection_, participant);
  VS->Model().SetCellChoices(row, kDpId, WithNone(dp_ids));
  VS->Model().SetValue(row, kDpId, OnlyChoice(dp_ids));
  VS->FitColumns();
}

// Enter on a last row without an account number is the way out of the grid.
void AccountsPane::VS_LastCellLeft() {
  const int row = VS->CurrentRow();
  if (row < 0 || VS->Model().Text(row, kNumber).trimmed().isEmpty()) {
    CmdAddRow->setFocus(Qt::TabFocusReason);
  } else {
    CmdAddRow_Click();
  }
}

void AccountsPane::CmdAddRow_Click() {
  const int row = VS->AddRow({.cells = {0, 0, QString()}});
  RefreshDpIds(row);
  VS->setCurrentIndex(VS->Model().index(row, kParticipant));
  VS->setFocus(Qt::OtherFocusReason);
}

void AccountsPane::CmdDelRow_Click() {
  const AccountUse use = RecordsNaming(connection_, AccountId{VS->CurrentId()});
  if (use.IsNone() ||
      messages_.Ask(AskRemoveAccount(use), controls::Answer::kNo, controls::Icon::kCritical)) {
    VS->RemoveCurrentRow();
  }
}

}  // namespace quorvane::clients
