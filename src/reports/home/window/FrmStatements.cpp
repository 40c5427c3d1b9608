#include "reports/home/window/FrmStatements.h"

#include "controls/Style.h"
#include "reports/home/Figures.h"
#include "reports/home/window/FamilyChoice.h"
#include "reports/home/window/HomeTexts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::home {
FrmStatements::FrmStatements(controls::Desk& desk)
    : ChildWindow(desk, QLatin1String(kStatementsWindow), tr("Demat Accounts and Statements"),
                  {720, 460}),
      CboFamily(new controls::ComboBox),
      CboState(new controls::ComboBox),
      VSF(new controls::Grid(QStringLiteral("VSF"), tr("Demat Accounts and Statements"))),
      cmdOpen(new controls::ZENButton(QStringLiteral("cmdOpen"), tr("&Compare"))),
      cmdExit(new controls::ZENButton(QStringLiteral("cmdExit"), tr("E&xit"))) {
  Build();
  OfferFamilies(*CboFamily, Session());
  FillStates();
  Read();
}

void FrmStatements::Build() {
  cmdExit->SetCancels(true);
  CboFamily->setObjectName(QStringLiteral("CboFamily"));
  CboState->setObjectName(QStringLiteral("CboState"));
  VSF->SetFilterable(true);
  VSF->SetColumns({{.heading = tr("Client")},
                   {.heading = tr("Demat A/c")},
                   {.heading = tr("Statement of"), .mask = controls::Mask::kDate},
                   {.heading = tr("Compared On"), .mask = controls::Mask::kDate},
                   {.heading = tr("Holdings"), .alignment = controls::Alignment::kRight},
                   {.heading = tr("Do Not Agree"), .alignment = controls::Alignment::kRight},
                   {.heading = tr("State")}});
  auto* choices = new QHBoxLayout;
  AddLabelled(*choices, tr("&Family"), CboFamily);
  AddLabelled(*choices, tr("Li&st"), CboState);
  choices->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdOpen);
  buttons->addWidget(cmdExit);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  rows->addLayout(choices);
  rows->addWidget(VSF, 1);
  rows->addLayout(buttons);
  for (const controls::ComboBox* box : {CboFamily, CboState}) {
    On(box, &QComboBox::activated, &FrmStatements::Cbo_Click,
       box->objectName() + QStringLiteral("_Click"));
  }
  On(VSF, &controls::Grid::RowActivated, &FrmStatements::VSF_DblClick,
     QStringLiteral("VSF_DblClick"));
  OnClick(cmdOpen, &FrmStatements::cmdOpen_Click);
  OnClick(cmdExit, &FrmStatements::cmdExit_Click);
}

void FrmStatements::FillStates() {
  QStringList states{tr("All accounts")};
  for (const CheckState state :
       {CheckState::kDiffers, CheckState::kNever, CheckState::kOld, CheckState::kAgrees}) {
    states << NameOf(state);
  }
  CboState->SetTexts(states);
  CboState->setCurrentIndex(0);
}

void FrmStatements::Read() {
  accounts_ =
      ReadCheckedAccounts(*Session().connection, ChosenFamily(*CboFamily), TheDesk().today());
  since_read_.start();
  ShowLines();
}

void FrmStatements::ShowLines() {
  const int state = CboState->CurrentPosition();
  const int chosen = VSF->CurrentId();
  std::vector<controls::Row> rows;
  for (const CheckedAccount& one : accounts_) {
    if (state > 0 && static_cast<int>(one.state) != state) {
      continue;
    }
    controls::Row row{.id = one.account.value, .cells = {one.client_name, one.number}};
    row.cells.emplace_back(one.day ? text::FormatDmy(*one.day) : QString());
    row.cells.emplace_back(one.checked_on);
    row.cells.emplace_back(one.day ? QVariant(one.compared) : QVariant());
    row.cells.emplace_back(one.day ? QVariant(one.differing) : QVariant());
    row.cells.emplace_back(NameOf(one.state));
    rows.push_back(std::move(row));
  }
  VSF->SetRows(std::move(rows));
  VSF->Reveal(chosen);
  if (VSF->CurrentRow() < 0) {
    VSF->SelectRow(0);
  }
  cmdOpen->setEnabled(VSF->Model().RowCount() > 0);
}

bool FrmStatements::GoTo(int record) {
  CboState->setCurrentIndex(std::clamp(record, 0, CboState->count() - 1));
  VSF->Header().ClearFilter();
  ShowLines();
  VSF->setFocus(Qt::OtherFocusReason);
  return true;
}

void FrmStatements::AskedAgain() {
  OfferFamilies(*CboFamily, Session());
  Read();
}

/// An account may have been compared meanwhile; the program is not in the middle of anything.
void FrmStatements::Activated() {
  constexpr qint64 kFreshMs = 500;
  if (since_read_.elapsed() > kFreshMs && !Session().connection->InTransaction()) {
    TheGuard().Run(QStringLiteral("Form_Activate"), [this] { Read(); });
  }
}

void FrmStatements::Cbo_Click() {
  Read();
}

void FrmStatements::VSF_DblClick(int row) {
  VSF->SelectRow(row);
  cmdOpen_Click();
}

void FrmStatements::cmdOpen_Click() {
  const AccountId account{VSF->CurrentId()};
  const auto found = std::ranges::find(accounts_, account, &CheckedAccount::account);
  if (account && found != accounts_.end()) {
    const auto year =
        Session().current ? Session().current->year : text::FinancialYear::Of(TheDesk().today());
    TheDesk().open_record({QStringLiteral("FrmReconcile"), account.value,
                           ClientYear{found->client, year}, found->client_name});
  }
}

void FrmStatements::cmdExit_Click() {
  close();
}

}  // namespace quorvane::home
