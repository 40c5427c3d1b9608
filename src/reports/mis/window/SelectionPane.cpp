#include "reports/mis/window/SelectionPane.h"

#include "controls/Style.h"
#include "reporting/selection/ReportLists.h"
#include "reports/mis/MisLists.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace quorvane::mis {
namespace {

using controls::Grid;
using controls::GridModel;
using controls::Mask;
using controls::Row;
using reporting::TickGrid;

constexpr int kLeastHeight = 2 * controls::kBoxHeight + 4;
enum OptionIndex { kScriptsOption = 2, kGroupOption = 4 };

TickGrid* MakeGrid(const QString& name, const QString& purpose,
                   std::vector<controls::Column> columns) {
  auto* grid = new TickGrid(name, purpose, std::move(columns));
  grid->setMinimumHeight(kLeastHeight);
  grid->horizontalHeader()->setStretchLastSection(true);
  return grid;
}

/// Notes what the user has taken the tick away from, and takes back what was ticked again.
void NoteLeftOut(const Grid& grid, std::set<int>& left_out) {
  for (int row = 0; row < grid.Model().RowCount(); ++row) {
    const int id = grid.Model().IdOf(row);
    if (grid.Model().IsTicked(row)) {
      left_out.erase(id);
    } else {
      left_out.insert(id);
    }
  }
}

std::vector<Row> RowsOf(const std::vector<lookups::Item>& items, const std::set<int>& left_out) {
  std::vector<Row> rows;
  rows.reserve(items.size());
  for (const lookups::Item& item : items) {
    rows.push_back({.id = item.id, .cells = {!left_out.contains(item.id), item.text}});
  }
  return rows;
}

}  // namespace

OptionPairView::OptionPairView(int first, const QString& one, const QString& other,
                               const QString& purpose)
    : group_(new QButtonGroup(this)) {
  setAccessibleName(purpose);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(controls::kSpacing);
  int number = 0;
  for (const QString& caption : {one, other}) {
    auto* button = new QRadioButton(caption);
    button->setObjectName(QStringLiteral("Option1_%1").arg(first + number));
    button->setChecked(number == 0);
    group_->addButton(button, number++);
    row->addWidget(button);
  }
  row->addStretch(1);
  connect(group_, &QButtonGroup::idClicked, this, &OptionPairView::Clicked);
}

SelectionPane::SelectionPane(const controls::Guard& guard, database::Connection& connection)
    : connection_(connection),
      by_group_(new OptionPairView(kGroupOption, tr("&Group Wise"), tr("&Individual"),
                                   tr("A group or single clients"))),
      client_scrips_(new OptionPairView(kScriptsOption, tr("Gro&up/Client Scripts"),
                                        tr("&All Scripts"), tr("Which scrips"))),
      CboGroup(new controls::ComboBox),
      VSC(MakeGrid(QStringLiteral("VSC"), tr("Clients"),
                   {{.heading = tr("ID"), .mask = Mask::kNumber}, {.heading = tr("CLIENT NAME")}})),
      VSD(MakeGrid(QStringLiteral("VSD"), tr("Demat accounts"),
                   {{.heading = tr("DEMAT A/c NO.")},
                    {.heading = tr("Cid"), .mask = Mask::kNumber, .hidden = true}})),
      VSS(MakeGrid(QStringLiteral("VSS"), tr("Scrips"), {{.heading = tr("SCRIPT NAME")}})) {
  CboGroup->setObjectName(QStringLiteral("CboGroup"));
  CboGroup->setAccessibleName(tr("Select Group Name"));
  Arrange();
  Connect(guard);
}

void SelectionPane::Arrange() {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(controls::kTightSpacing);
  rows->addWidget(by_group_);
  auto* group = new QHBoxLayout;
  auto* label = new QLabel(tr("Select Group Name"));
  label->setBuddy(CboGroup);
  group->addWidget(label);
  group->addWidget(CboGroup, 1);
  rows->addLayout(group);
  auto* scrips = new QWidget;
  auto* scrip_rows = new QVBoxLayout(scrips);
  scrip_rows->setContentsMargins(0, 0, 0, 0);
  scrip_rows->setSpacing(controls::kTightSpacing);
  scrip_rows->addWidget(client_scrips_);
  scrip_rows->addWidget(VSS, 1);
  auto* grids = new QSplitter(Qt::Vertical);
  grids->setChildrenCollapsible(false);
  grids->addWidget(VSC);
  grids->addWidget(VSD);
  grids->addWidget(scrips);
  grids->setStretchFactor(0, 2);
  grids->setStretchFactor(1, 2);
  grids->setStretchFactor(2, 3);
  rows->addWidget(grids, 1);
}

void SelectionPane::Connect(const controls::Guard& guard) {
  guard.Connect(by_group_, &OptionPairView::Clicked, this, &SelectionPane::Option1_Click,
                QStringLiteral("Option1_Click"));
  guard.Connect(client_scrips_, &OptionPairView::Clicked, this, &SelectionPane::OptionScripts_Click,
                QStringLiteral("Option1_Click"));
  guard.Connect(CboGroup, &QComboBox::currentIndexChanged, this, &SelectionPane::CboGroup_Click,
                QStringLiteral("CboGroup_Click"));
  guard.Connect(&VSC->Model(), &GridModel::TicksChanged, this, &SelectionPane::VSC_AfterEdit,
                QStringLiteral("VSC_AfterEdit"));
}

void SelectionPane::Fill(ClientId client, text::FinancialYear year) {
  year_ = year;
  client_ = client;
  const QStringList groups = ClientGroups(connection_);
  CboGroup->SetTexts(groups);
  by_group_->ChooseFirst(!groups.isEmpty());
  const QString group = client_ ? GroupOfClient(connection_, client_) : QString();
  const QSignalBlocker blocker(CboGroup);
  if (!CboGroup->ByText(group)) {
    CboGroup->ById(0);
  }
  FillClients();
}

void SelectionPane::SetYear(text::FinancialYear year) {
  year_ = year;
  FillScrips();
}

// Every client of a group takes part; ticks are for single clients.
void SelectionPane::FillClients() {
  const bool group = by_group_->IsFirst();
  CboGroup->setEnabled(group);
  std::vector<Row> rows;
  const auto items = !group                  ? AllClients(connection_)
                     : CboGroup->HasChoice() ? ClientsOfGroup(connection_, CboGroup->currentText())
                                             : std::vector<lookups::Item>();
  rows.reserve(items.size());
  for (const lookups::Item& item : items) {
    rows.push_back(
        {.id = item.id, .cells = {group || item.id == client_.value, item.id, item.text}});
  }
  VSC->SetRows(std::move(rows));
  FillAccounts();
  FillScrips();
}

void SelectionPane::FillAccounts() {
  NoteLeftOut(*VSD, accounts_left_out_);
  std::vector<Row> rows;
  for (const AccountItem& account : AccountsOfClients(connection_, Clients())) {
    rows.push_back({.id = account.id.value,
                    .cells = {!accounts_left_out_.contains(account.id.value), account.number,
                              account.client.value}});
  }
  VSD->SetRows(std::move(rows));
  filled_for_ = TickedClients();
}

void SelectionPane::FillScrips() {
  NoteLeftOut(*VSS, scrips_left_out_);
  VSS->SetRows(RowsOf(client_scrips_->IsFirst() ? ScripsOfClients(connection_, Clients(), year_)
                                                : reporting::AllScrips(connection_),
                      scrips_left_out_));
}

std::set<ClientId> SelectionPane::TickedClients() const {
  const std::vector<ClientId> clients = Clients();
  return {clients.begin(), clients.end()};
}

void SelectionPane::Option1_Click() {
  FillClients();
}

void SelectionPane::CboGroup_Click() {
  if (by_group_->IsFirst()) {
    FillClients();
  }
}

void SelectionPane::OptionScripts_Click() {
  FillScrips();
}

void SelectionPane::VSC_AfterEdit() {
  if (by_group_->IsFirst() && !VSC->Model().AllTicked()) {
    VSC->Model().TickAll(true);
    return;
  }
  if (TickedClients() == filled_for_) {
    return;
  }
  FillAccounts();
  if (client_scrips_->IsFirst()) {
    FillScrips();
  }
}

MaybeRefusal SelectionPane::Check() const {
  if (MaybeRefusal refusal = VSC->RefuseWithoutTick(tr("Select Client!"), Field::kClients)) {
    return refusal;
  }
  if (MaybeRefusal refusal = VSD->RefuseWithoutAccount()) {
    return refusal;
  }
  return VSS->RefuseWithoutTick(tr("Select Script Name!"), Field::kScrips);
}

QStringList SelectionPane::Choices() const {
  return VSD->TickedTexts() + VSS->TickedTexts();
}

std::vector<ClientId> SelectionPane::Clients() const {
  return VSC->Ticked<ClientId>();
}
std::vector<AccountId> SelectionPane::Accounts() const {
  return VSD->TickedAccounts();
}
std::vector<ScripId> SelectionPane::Scrips() const {
  return VSS->Ticked<ScripId>();
}

}  // namespace quorvane::mis
