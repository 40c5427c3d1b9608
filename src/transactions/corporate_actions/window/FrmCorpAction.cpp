#include "transactions/corporate_actions/window/FrmCorpAction.h"

#include "controls/ProgressDialog.h"
#include "core/actions/Terms.h"
#include "core/lookups/Choices.h"
#include "core/lookups/Directory.h"
#include "core/lookups/Scrips.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quorvane::corporate_actions {
namespace {

using actions::AccountEffect;
using actions::ActionKind;
using controls::Mask;
using controls::ZENButton;

enum AccountColumn { kClient, kAccount, kBefore, kChosen };

bool HasChoice(ActionKind kind) {
  return kind == ActionKind::kRights || kind == ActionKind::kBuyBack;
}

}  // namespace

FrmCorpAction::FrmCorpAction(controls::Desk& desk)
    : RecordWindow(desk, QStringLiteral("FrmCorpAction"), tr("Corporate Actions"), {790, 520},
                   QStringLiteral("VSF")),
      book_(*desk.session.connection),
      fields_(new ActionFields(Details())) {
  for (controls::DateBox* day : fields_->Days()) {
    Watch(day);
  }
  On(fields_->Kind(), &QComboBox::activated, &FrmCorpAction::Combo1_Click,
     QStringLiteral("Combo1_Click"));
  On(fields_->Kind(), &controls::ComboBox::Left, &FrmCorpAction::Combo1_Click,
     QStringLiteral("Combo1_Click"));
  BuildAccounts();
  BuildButtons();
  SetListColumns();
  Hold({{Field::kKind, QStringLiteral("Combo1")},
        {Field::kScrip, QStringLiteral("Combo2")},
        {Field::kToScrip, QStringLiteral("Combo3")},
        {Field::kRatio, QStringLiteral("Text1_0")},
        {Field::kPrice, QStringLiteral("Text1_2")},
        {Field::kPercent, QStringLiteral("Text1_3")},
        {Field::kDate, QStringLiteral("Text2_0")},
        {Field::kRecordDate, QStringLiteral("Text2_1")},
        {Field::kAllotmentDate, QStringLiteral("Text2_2")}});
  Start();
}

void FrmCorpAction::BuildAccounts() {
  auto* panel = new QWidget();
  auto* rows = new QVBoxLayout(panel);
  rows->setContentsMargins(0, 0, 0, 0);
  LblEffect = new QLabel();
  LblEffect->setObjectName(QStringLiteral("LblEffect"));
  LblEffect->setWordWrap(true);
  VSA = new controls::Grid(QStringLiteral("VSA"), tr("What the action makes of every account"));
  VSA->SetSortable(false);  // its rows are those of the effects
  rows->addWidget(LblEffect);
  rows->addWidget(VSA, 1);
  AddPanel(tr("Accounts"), panel);
  On(&VSA->Model(), &controls::GridModel::CellEdited, &FrmCorpAction::VSA_AfterEdit,
     QStringLiteral("VSA_AfterEdit"));
}

void FrmCorpAction::BuildButtons() {
  const auto add = [this](ZENButton*& button, const QString& name, const QString& text,
                          const QString& tip, void (FrmCorpAction::*handler)()) {
    button = new ZENButton(name, text);
    button->setToolTip(tip);
    Buttons()->addWidget(button);
    OnClick(button, handler);
  };
  add(CmdPreview, QStringLiteral("CmdPreview"), tr("Previe&w"),
      tr("Shows what the action makes of every account; nothing is changed"),
      &FrmCorpAction::CmdPreview_Click);
  add(CmdApply, QStringLiteral("CmdApply"), tr("Apply to &Holdings"),
      tr("Changes the holdings of every account shown"), &FrmCorpAction::CmdApply_Click);
  add(CmdTakeBack, QStringLiteral("CmdTakeBack"), tr("Ta&ke Back"),
      tr("Makes the holdings as they were before the action"), &FrmCorpAction::CmdTakeBack_Click);
  add(CmdFile, QStringLiteral("CmdFile"), tr("From &File..."),
      tr("Reads the corporate actions of an exchange's list"), &FrmCorpAction::CmdFile_Click);
  add(CmdStatement, QStringLiteral("CmdStatement"), tr("From State&ment..."),
      tr("Compares holdings with a depository's statement, which suggests actions that are "
         "missing"),
      &FrmCorpAction::CmdStatement_Click);
}

void FrmCorpAction::SetListColumns() {
  List().SetColumns({{.heading = tr("Ex-Date"), .mask = Mask::kDate},
                     {.heading = tr("Script Name")},
                     {.heading = tr("Action")},
                     {.heading = tr("To Script")},
                     {.heading = tr("Applied")},
                     {.heading = tr("Note")}});
}

void FrmCorpAction::FillList() {
  fields_->SetScrips(lookups::DropDownItems(*Session().connection, lookups::DropDown::kScrips));
  listed_ = book_.List();
  const lookups::Directory directory(*Session().connection);
  const auto name = [&](ScripId scrip) {
    return scrip ? QString::fromStdString(directory.Scrip(scrip).name) : QString();
  };
  std::vector<controls::Row> rows;
  for (const Action& action : listed_) {
    rows.push_back(
        {.id = action.id.value,
         .cells = {action.ex_day, name(action.scrip), actions::DescribeForUser(action),
                   name(action.other), action.applied ? tr("Yes") : tr("No"), action.note}});
  }
  List().SetRows(std::move(rows));
}

void FrmCorpAction::Clear() {
  fields_->Clear();
  ClearEffects();
}

void FrmCorpAction::Load(int id) {
  const auto found = std::ranges::find(listed_, ActionId{id}, &Action::id);
  if (found != listed_.end()) {
    fields_->Fill(*found);
  }
}

void FrmCorpAction::BeginEditing() {
  fields_->EnableTerms();
}

void FrmCorpAction::Combo1_Click() {
  if (IsEditing()) {
    fields_->EnableTerms();
  }
}

MaybeRefusal FrmCorpAction::Save() {
  if (!fields_->HasKind()) {
    return Refusal{tr("Select the Kind of Action."), Field::kKind};
  }
  Action action = fields_->Entered();
  action.id = ActionId{CurrentId()};
  return Saved(book_.Save(action));
}

void FrmCorpAction::Remove(int id) {
  if (const MaybeRefusal refusal = book_.Delete(ActionId{id})) {
    Show(*refusal);
  }
}

void FrmCorpAction::StateChanged() {
  const Action action = Chosen();
  const bool browses = !IsEditing() && action.id;
  CmdPreview->setEnabled(browses);
  CmdApply->setEnabled(browses && !action.applied);
  CmdTakeBack->setEnabled(browses && action.applied);
  CmdFile->setEnabled(!IsEditing());
  CmdStatement->setEnabled(!IsEditing());
}

/// The action chosen in the list; without a key when there is none.
Action FrmCorpAction::Chosen() const {
  const auto found = std::ranges::find(listed_, ActionId{CurrentId()}, &Action::id);
  return found == listed_.end() ? Action{} : *found;
}

void FrmCorpAction::ClearEffects() {
  effects_.clear();
  chosen_.clear();
  effects_of_ = 0;
  VSA->SetRows({});
  LblEffect->setText(tr("Preview shows what the chosen action makes of every account."));
}

void FrmCorpAction::CmdPreview_Click() {
  ShowEffects();
}

void FrmCorpAction::ShowEffects() {
  const Action action = Chosen();
  Result<std::vector<AccountEffect>> effects = [&] {
    controls::ProgressDialog progress(this);
    return book_.Preview(action, chosen_, progress);
  }();
  if (!effects) {
    Show(effects.Why());
    return;
  }
  effects_ = std::move(*effects);
  effects_of_ = action.id.value;
  FillAccounts(effects_);
  TellOfEffects(action, effects_.size());
  constexpr int kAccountsPanel = 2;
  ShowPanel(kAccountsPanel);
}

void FrmCorpAction::FillAccounts(const std::vector<AccountEffect>& effects) {
  const Action action = Chosen();
  const lookups::Directory directory(*Session().connection);
  const bool choice = HasChoice(action.kind);
  const bool pays = action.kind == ActionKind::kDividend;
  VSA->SetColumns({{.heading = tr("Client")},
                   {.heading = tr("Demat A/c No.")},
                   {.heading = tr("Shares Before"), .mask = Mask::kNumber},
                   {.heading = action.kind == ActionKind::kBuyBack ? tr("Given") : tr("Subscribed"),
                    .mask = Mask::kNumber,
                    .editable = choice && !action.applied,
                    .hidden = !choice},
                   {.heading = tr("Received"), .mask = Mask::kNumber},
                   {.heading = tr("Shares After"), .mask = Mask::kNumber},
                   {.heading = tr("Fraction"), .mask = Mask::kNumber},
                   {.heading = tr("Paid for It"), .mask = Mask::kAmount},
                   {.heading = tr("Cost"), .mask = Mask::kAmount},
                   {.heading = pays ? tr("Dividend") : tr("Cost Moved"), .mask = Mask::kAmount}});
  std::vector<controls::Row> rows;
  for (std::size_t i = 0; i < effects.size(); ++i) {
    const auto& [client, account, effect] = effects[i];
    const text::Shares given = effect.before - effect.after;
    rows.push_back(
        {.id = static_cast<int>(i) + 1,
         .cells = {QString::fromStdString(directory.Client(client).name),
                   QString::fromStdString(directory.Account(account).number),
                   effect.before.Number(),
                   (action.kind == ActionKind::kBuyBack ? given : effect.received).Number(),
                   effect.received.Number(), effect.after.Number(), effect.fraction.Number(),
                   effect.fraction_money.Rupees(), effect.cost_before.Rupees(),
                   pays ? text::RoundAmount(effect.before.Number() * action.price)
                        : effect.cost_moved.Rupees()}});
  }
  VSA->SetRows(std::move(rows));
}

void FrmCorpAction::TellOfEffects(const Action& action, std::size_t accounts) {
  const lookups::Directory directory(*Session().connection);
  QString text = tr("%1 of %2, Ex-Date %3. Accounts that hold the shares: %4.")
                     .arg(actions::DescribeForUser(action),
                          QString::fromStdString(directory.Scrip(action.scrip).name), action.ex_day)
                     .arg(accounts);
  if (action.applied && !book_.IsCurrent(action)) {
    text += QLatin1Char(' ') + tr("The books were changed since it was applied: take it back and "
                                  "apply it again.");
  } else if (action.applied) {
    text += QLatin1Char(' ') + tr("It is applied.");
  }
  LblEffect->setText(text);
}

/// Shares subscribed by rights, or given to a buy-back, as entered beside the account.
void FrmCorpAction::VSA_AfterEdit(int row, int column) {
  if (column != kChosen || row >= static_cast<int>(effects_.size())) {
    return;
  }
  const AccountEffect& account = effects_[static_cast<std::size_t>(row)];
  chosen_[{account.client, account.account}] = text::Shares(VSA->Model().Number(row, column));
  const int at = row;
  ShowEffects();
  VSA->SelectRow(at);
}

void FrmCorpAction::CmdApply_Click() {
  const Action action = Chosen();
  if (effects_of_ != action.id.value) {
    ShowEffects();
  }
  if (effects_of_ != action.id.value ||
      !Say().Ask(tr("Apply %1 to the Holdings of %2 Accounts?")
                     .arg(actions::DescribeForUser(action))
                     .arg(effects_.size()),
                 controls::Answer::kNo, controls::Icon::kInformation)) {
    return;
  }
  const Result<std::size_t> applied = [&] {
    controls::ProgressDialog progress(this);
    return book_.Apply(std::span(&action.id, 1), chosen_, TheDesk().today(), progress);
  }();
  if (!applied) {
    Show(applied.Why());
    return;
  }
  Refill();
  Say().Inform(tr("Applied to %1 Accounts. Carry the Stock Forward again where a Later Year was "
                  "Opened already.")
                   .arg(*applied));
}

void FrmCorpAction::CmdTakeBack_Click() {
  const Action action = Chosen();
  if (!Say().Ask(tr("Take back %1 of %2?").arg(actions::DescribeForUser(action), action.ex_day),
                 controls::Answer::kNo, controls::Icon::kInformation)) {
    return;
  }
  if (const MaybeRefusal refusal = book_.TakeBack(action.id)) {
    Show(*refusal);
    return;
  }
  Refill();
}

void FrmCorpAction::CmdFile_Click() {
  TheDesk().open(QStringLiteral("ImpCorpAction"));
}

void FrmCorpAction::CmdStatement_Click() {
  TheDesk().open(QStringLiteral("FrmReconcile"));
}

void FrmCorpAction::FirstShown() {
  RecordWindow::FirstShown();
  TakeProposed();
}

void FrmCorpAction::AskedAgain() {
  TakeProposed();
}

/// What another window proposes waits while an action is being entered here.
void FrmCorpAction::TakeProposed() {
  if (IsEditing() || !TheDesk().proposed_action) {
    return;
  }
  const Action action = *std::exchange(TheDesk().proposed_action, std::nullopt);
  if (action.id) {
    Refill();
    List().SelectId(action.id.value);
    return;
  }
  cmdAdd->click();
  fields_->Fill(action);
  fields_->EnableTerms();
}

}  // namespace quorvane::corporate_actions
