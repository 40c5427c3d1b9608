#include "admin/backup/window/frmrestoration.h"

#include "admin/backup/Restore.h"
#include "controls/ProgressDialog.h"
#include "controls/Style.h"

#include <QDir>
#include <QHBoxLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVBoxLayout>

namespace quorvane::backup {
namespace {

using controls::Answer;
using controls::Icon;
using controls::TextBox;
using controls::ZENButton;

constexpr int kHoldsWidth = 250;

QHBoxLayout* RowIn(QWidget* row) {
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(controls::kSpacing);
  return layout;
}

}  // namespace

frmrestoration::frmrestoration(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("frmrestoration"), tr("Restore"), {760, 420}) {
  BuildControls();
  TxtFolder->setText(QDir::toNativeSeparators(ReadSettings(Session().folders).folder));
  On(TxtFolder, &TextBox::Left, &frmrestoration::TxtFolder_Validate,
     QStringLiteral("TxtFolder_Validate"));
  On(VSF, &controls::Grid::CurrentRowChanged, &frmrestoration::VSF_RowColChange,
     QStringLiteral("VSF_RowColChange"));
  Refresh();
}

void frmrestoration::BuildControls() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  layout->addWidget(FolderRow());
  auto* lists = new QHBoxLayout;
  lists->setSpacing(controls::kSpacing);
  VSF = new BackupsView;
  VSFHolds = new controls::Grid(QStringLiteral("VSFHolds"), tr("What the backup holds"));
  VSFHolds->SetColumns(
      {{.heading = tr("Holds")}, {.heading = tr("Records"), .mask = controls::Mask::kNumber}});
  VSFHolds->SetSortable(false);
  VSFHolds->setMinimumWidth(kHoldsWidth);
  lists->addWidget(VSF, 1);
  lists->addWidget(VSFHolds);
  layout->addLayout(lists, 1);
  LblState = new QLabel;
  LblState->setObjectName(QStringLiteral("LblState"));
  LblState->setTextFormat(Qt::PlainText);
  LblState->setWordWrap(true);
  layout->addWidget(LblState);
  layout->addWidget(ButtonRow());
}

QWidget* frmrestoration::FolderRow() {
  auto* row = new QWidget;
  auto* layout = RowIn(row);
  TxtFolder = new TextBox;
  TxtFolder->setObjectName(QStringLiteral("TxtFolder"));
  Hold({{Field::kFolder, TxtFolder->objectName()}});
  TxtFolder->SetUpperCase(false);
  TxtFolder->setAccessibleName(tr("Folder of the backups"));
  auto* label = new QLabel(tr("&Folder"));
  label->setBuddy(TxtFolder);
  auto* browse = new ZENButton(QStringLiteral("cmdBrowse"), tr("C&hoose..."));
  OnClick(browse, &frmrestoration::cmdBrowse_Click);
  layout->addWidget(label);
  layout->addWidget(TxtFolder, 1);
  layout->addWidget(browse);
  return row;
}

QWidget* frmrestoration::ButtonRow() {
  auto* row = new QWidget;
  auto* layout = RowIn(row);
  const auto add = [&](const char* name, const QString& text, void (frmrestoration::*handler)()) {
    auto* button = new ZENButton(QLatin1String(name), text);
    layout->addWidget(button);
    OnClick(button, handler);
    return button;
  };
  add("cmdVerify", tr("&Verify"), &frmrestoration::cmdVerify_Click);
  add("cmdRestore", tr("Re&store"), &frmrestoration::cmdRestore_Click);
  layout->addStretch(1);
  add("cmdexit", tr("E&xit"), &frmrestoration::cmdexit_Click)->SetCancels(true);
  return row;
}

void frmrestoration::Refresh() {
  folder_ = QDir::fromNativeSeparators(TxtFolder->text().trimmed());
  VSF->ShowFolder(folder_);
  VSF_RowColChange(VSF->CurrentRow());
}

void frmrestoration::TxtFolder_Validate() {
  if (!IsCancelling() && QDir::fromNativeSeparators(TxtFolder->text().trimmed()) != folder_) {
    Refresh();
  }
}

void frmrestoration::cmdBrowse_Click() {
  const QString folder = TheDesk().ask_folder(this, folder_);
  if (!folder.isEmpty()) {
    TxtFolder->setText(QDir::toNativeSeparators(folder));
    Refresh();
  }
}

void frmrestoration::VSF_RowColChange(int) {
  const Entry* entry = VSF->Current();
  std::vector<controls::Row> rows;
  if (entry != nullptr) {
    if (const Result<Manifest> manifest = ReadManifest(entry->path)) {
      for (const Holding& holding : HoldingsOf(*manifest)) {
        rows.push_back({.cells = {holding.what, static_cast<qlonglong>(holding.count)}});
      }
    }
  }
  VSFHolds->SetRows(std::move(rows));
  LblState->setText(entry == nullptr ? tr("There is no backup in this folder.") : entry->fault);
  LblState->setVisible(!LblState->text().isEmpty());
}

MaybeRefusal frmrestoration::Verify() {
  MaybeRefusal refusal = VSF->Verify();
  VSF_RowColChange(VSF->CurrentRow());
  return refusal;
}

void frmrestoration::cmdVerify_Click() {
  if (const MaybeRefusal refusal = Verify()) {
    Show(*refusal);
  } else {
    Say().Inform(tr("The backup is whole: every file agrees with its checksum."));
  }
}

/// They would go on showing records that are no longer there. False when one of them stays, such as
/// one with a record that is still being entered.
bool frmrestoration::CloseOtherWindows() {
  const auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget());
  if (frame == nullptr) {
    return true;
  }
  for (QMdiSubWindow* other : frame->mdiArea()->subWindowList()) {
    if (other != frame && other->isVisible() && !other->close()) {
      return false;
    }
  }
  return true;
}

/// The backup may hold other clients under the same numbers.
void frmrestoration::ForgetClient() {
  Session().current.reset();
  Session().current_client_name.clear();
}

void frmrestoration::cmdRestore_Click() {
  // Nobody is asked to risk everything, or loses a window, for a backup that is no good.
  if (const MaybeRefusal refusal = Verify()) {
    return Show(*refusal);
  }
  const QString path = VSF->Current()->path;
  const QString made = DateText(VSF->Current()->made);
  if (!Say().Ask(tr("The backup of %1 takes the place of everything that the program holds now. "
                    "All other windows are closed.\n\nAre You Sure, You want to Restore it?")
                     .arg(made),
                 Answer::kNo, Icon::kCritical)) {
    return;
  }
  if (!CloseOtherWindows()) {
    return Say().Refuse(tr("Close the other windows first. Nothing was changed."));
  }
  const Result<QString> aside = [&] {
    controls::ProgressDialog progress(this);
    return RestoreBackup({*Session().connection, Session().folders}, path,
                         QDateTime::currentDateTime(), progress);
  }();
  if (!aside) {
    return Show(aside.Why());
  }
  ForgetClient();
  VSF->ShowVerified(path);
  Say().Inform(tr("The backup of %1 is restored.\nWhat it replaced lies in %2.")
                   .arg(made, QDir::toNativeSeparators(*aside)));
}

void frmrestoration::cmdexit_Click() {
  close();
}

}  // namespace quorvane::backup
