#include "transactions/corporate_actions/window/ImpCorpAction.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/actions/Terms.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::corporate_actions {
namespace {

using controls::Mask;
using controls::ZENButton;

bool CanBeRecorded(const ListedAction& row) {
  return row.state == ActionState::kNew && row.open.empty();
}

/// What is missing or wrong, in one text.
QString RemarkOf(const ListedAction& row) {
  QStringList texts;
  for (const OpenPoint point : row.open) {
    texts << TextOf(point);
  }
  if (!row.remark.isEmpty()) {
    texts << row.remark;
  }
  return texts.join(QStringLiteral("; "));
}

}  // namespace

ImpCorpAction::ImpCorpAction(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("ImpCorpAction"), tr("Corporate Actions from a File"),
                  {790, 520}),
      book_(*desk.session.connection) {
  Build();
  Fill();
}

void ImpCorpAction::Build() {
  auto* rows = new QVBoxLayout(this);
  LblFile =
      new QLabel(tr("Choose a list of corporate actions of an exchange, or a "
                    "corporate_actions.csv."));
  LblFile->setWordWrap(true);
  ChkHeld = new QCheckBox(tr("Only Scripts that Somebody &Holds or Held"));
  ChkHeld->setObjectName(QStringLiteral("ChkHeld"));
  ChkHeld->setChecked(true);
  VSF = new controls::Grid(QStringLiteral("VSF"), tr("Corporate actions in the file"));
  VSF->SetFilterable(true);
  VSF->SetColumns({{.heading = QString(), .mask = Mask::kTick},
                   {.heading = tr("Script Name")},
                   {.heading = tr("Ex-Date"), .mask = Mask::kDate},
                   {.heading = tr("Action")},
                   {.heading = tr("State")},
                   {.heading = tr("As Written")},
                   {.heading = tr("Open Points")}});
  auto* buttons = new QHBoxLayout();
  const auto add = [&](ZENButton*& button, const QString& name, const QString& text,
                       void (ImpCorpAction::*handler)()) {
    button = new ZENButton(name, text);
    buttons->addWidget(button);
    OnClick(button, handler);
  };
  add(CmdFile, QStringLiteral("CmdFile"), tr("From &File..."), &ImpCorpAction::CmdFile_Click);
  add(CmdRecord, QStringLiteral("CmdRecord"), tr("&Record Ticked"),
      &ImpCorpAction::CmdRecord_Click);
  add(CmdApply, QStringLiteral("CmdApply"), tr("Record and &Apply Ticked"),
      &ImpCorpAction::CmdApply_Click);
  buttons->addStretch();
  rows->addWidget(LblFile);
  rows->addWidget(ChkHeld);
  rows->addWidget(VSF, 1);
  rows->addLayout(buttons);
  On(ChkHeld, &QCheckBox::toggled, &ImpCorpAction::ChkHeld_Click, QStringLiteral("ChkHeld_Click"));
}

void ImpCorpAction::CmdFile_Click() {
  const QString path = TheDesk().ask_open_path(
      this, QString(), tr("Lists (*.csv *.json *.xlsx *.xls *.ods *.zip);;All Files (*)"));
  if (!path.isEmpty()) {
    Load(path);
  }
}

void ImpCorpAction::Load(const QString& path) {
  Result<ActionList> list = ReadActions(*Session().connection, {path});
  if (!list) {
    Show(list.Why());
    return;
  }
  path_ = path;
  list_ = std::move(*list);
  Fill();
}

void ImpCorpAction::Fill() {
  std::vector<controls::Row> rows;
  std::size_t ready = 0;
  for (std::size_t i = 0; i < list_.rows.size(); ++i) {
    const ListedAction& row = list_.rows[i];
    if (ChkHeld->isChecked() && !row.held) {
      continue;
    }
    const bool ticked = CanBeRecorded(row);
    ready += ticked ? 1 : 0;
    rows.push_back(
        {.id = static_cast<int>(i) + 1,
         .cells = {ticked, row.scrip_name.isEmpty() ? row.name : row.scrip_name, row.action.ex_day,
                   row.state == ActionState::kNotUnderstood ? QString()
                                                            : actions::DescribeForUser(row.action),
                   TextOf(row.state), row.purpose, RemarkOf(row)}});
  }
  if (!path_.isEmpty()) {
    LblFile->setText(tr("%1: %2 actions, %3 of them ready to be recorded. %4 rows mean nothing "
                        "for shares.")
                         .arg(QFileInfo(path_).fileName())
                         .arg(rows.size())
                         .arg(ready)
                         .arg(list_.left_out));
  }
  VSF->SetRows(std::move(rows));
  CmdRecord->setEnabled(ready > 0);
  CmdApply->setEnabled(ready > 0);
}

void ImpCorpAction::ChkHeld_Click() {
  Fill();
}

std::vector<Action> ImpCorpAction::Chosen() const {
  std::vector<Action> chosen;
  for (const int id : VSF->Model().TickedIds()) {
    const ListedAction& row = list_.rows[static_cast<std::size_t>(id) - 1];
    if (CanBeRecorded(row)) {
      chosen.push_back(row.action);
    }
  }
  return chosen;
}

void ImpCorpAction::CmdRecord_Click() {
  const std::vector<Action> chosen = Chosen();
  if (chosen.empty()) {
    return ShowAt(tr("Tick an Action without Open Points."), VSF);
  }
  const auto saved = book_.SaveAll(chosen);
  if (!saved) {
    Show(saved.Why());
    return;
  }
  Load(path_);
  Say().Inform(tr("%1 Actions are Recorded. They are Applied in the Window of the Corporate "
                  "Actions.")
                   .arg(chosen.size()));
}

void ImpCorpAction::CmdApply_Click() {
  const std::vector<Action> chosen = Chosen();
  if (chosen.empty()) {
    return ShowAt(tr("Tick an Action without Open Points."), VSF);
  }
  const Result<std::size_t> applied = [&] {
    controls::ProgressDialog progress(this);
    return book_.RecordAndApply(chosen, TheDesk().today(), progress);
  }();
  if (!applied) {
    Show(applied.Why());
    return;
  }
  Load(path_);
  Say().Inform(tr("%1 Actions are Recorded and Applied.").arg(chosen.size()));
}

}  // namespace quorvane::corporate_actions
