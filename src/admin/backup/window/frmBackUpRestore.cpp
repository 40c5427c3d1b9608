#include "admin/backup/window/frmBackUpRestore.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"

#include <QDir>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quorvane::backup {
namespace {

using controls::TextBox;
using controls::ZENButton;

QHBoxLayout* RowIn(QWidget* row) {
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(controls::kSpacing);
  return layout;
}

}  // namespace

frmBackUpRestore::frmBackUpRestore(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("frmBackUpRestore"), tr("BackUp"), {640, 420}) {
  BuildControls();
  const Settings settings = ReadSettings(Session().folders);
  TxtFolder->setText(QDir::toNativeSeparators(settings.folder));
  ChkAutomatic->setChecked(settings.automatic);
  TxtKeep->setValue(settings.keep);
  Refresh();
  On(TxtFolder, &TextBox::Left, &frmBackUpRestore::TxtFolder_Validate,
     QStringLiteral("TxtFolder_Validate"));
  On(VSF, &controls::Grid::CurrentRowChanged, &frmBackUpRestore::VSF_RowColChange,
     QStringLiteral("VSF_RowColChange"));
  On(ChkAutomatic, &QCheckBox::toggled, &frmBackUpRestore::SaveSettings,
     QStringLiteral("ChkAutomatic_Click"));
  On(TxtKeep, &QSpinBox::valueChanged, &frmBackUpRestore::SaveSettings,
     QStringLiteral("TxtKeep_Change"));
}

void frmBackUpRestore::BuildControls() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  layout->addWidget(FolderRow());
  VSF = new BackupsView;
  layout->addWidget(VSF, 1);
  LblState = new QLabel;
  LblState->setObjectName(QStringLiteral("LblState"));
  LblState->setTextFormat(Qt::PlainText);
  LblState->setWordWrap(true);
  layout->addWidget(LblState);
  layout->addWidget(AutomaticRow());
  layout->addWidget(ButtonRow());
}

QWidget* frmBackUpRestore::FolderRow() {
  auto* row = new QWidget;
  auto* layout = RowIn(row);
  TxtFolder = new TextBox;
  TxtFolder->setObjectName(QStringLiteral("TxtFolder"));
  Hold({{Field::kFolder, TxtFolder->objectName()}});
  TxtFolder->SetUpperCase(false);
  TxtFolder->setAccessibleName(tr("Folder of the backups"));
  auto* label = new QLabel(tr("&Folder"));
  label->setBuddy(TxtFolder);
  cmdBrowse = new ZENButton(QStringLiteral("cmdBrowse"), tr("C&hoose..."));
  OnClick(cmdBrowse, &frmBackUpRestore::cmdBrowse_Click);
  layout->addWidget(label);
  layout->addWidget(TxtFolder, 1);
  layout->addWidget(cmdBrowse);
  return row;
}

QWidget* frmBackUpRestore::AutomaticRow() {
  auto* row = new QWidget;
  auto* layout = RowIn(row);
  ChkAutomatic = new QCheckBox(tr("Back up by itself at the first start of each &day"));
  ChkAutomatic->setObjectName(QStringLiteral("ChkAutomatic"));
  TxtKeep = new QSpinBox;
  TxtKeep->setObjectName(QStringLiteral("TxtKeep"));
  TxtKeep->setRange(1, Settings::kMostKept);
  TxtKeep->setAccessibleName(tr("Automatic backups to keep"));
  auto* label = new QLabel(tr("&Keep the newest"));
  label->setBuddy(TxtKeep);
  layout->addWidget(ChkAutomatic);
  layout->addStretch(1);
  layout->addWidget(label);
  layout->addWidget(TxtKeep);
  layout->addWidget(new QLabel(tr("of these")));
  return row;
}

QWidget* frmBackUpRestore::ButtonRow() {
  auto* row = new QWidget;
  auto* layout = RowIn(row);
  const auto add = [&](const char* name, const QString& text, void (frmBackUpRestore::*handler)()) {
    auto* button = new ZENButton(QLatin1String(name), text);
    layout->addWidget(button);
    OnClick(button, handler);
    return button;
  };
  cmdBackUp = add("cmdBackUp", tr("&Back up now"), &frmBackUpRestore::cmdBackUp_Click);
  cmdBackUp->setDefault(true);
  add("cmdVerify", tr("&Verify"), &frmBackUpRestore::cmdVerify_Click);
  add("cmdRestore", tr("Re&store..."), &frmBackUpRestore::cmdRestore_Click);
  layout->addStretch(1);
  add("cmdexit", tr("E&xit"), &frmBackUpRestore::cmdexit_Click)->SetCancels(true);
  return row;
}

void frmBackUpRestore::FirstShown() {
  cmdBackUp->setFocus();
}

Settings frmBackUpRestore::ShownSettings() const {
  return {QDir::fromNativeSeparators(TxtFolder->text().trimmed()), ChkAutomatic->isChecked(),
          TxtKeep->value()};
}

void frmBackUpRestore::SaveSettings() {
  if (const MaybeRefusal refusal = WriteSettings(Session().folders, ShownSettings())) {
    Show(*refusal);
  }
}

void frmBackUpRestore::Refresh() {
  VSF->ShowFolder(ShownSettings().folder);
  VSF_RowColChange(VSF->CurrentRow());
}

void frmBackUpRestore::TxtFolder_Validate() {
  if (IsCancelling() || ShownSettings().folder == ReadSettings(Session().folders).folder) {
    return;
  }
  SaveSettings();
  Refresh();
}

void frmBackUpRestore::cmdBrowse_Click() {
  const QString folder = TheDesk().ask_folder(this, ShownSettings().folder);
  if (!folder.isEmpty()) {
    TxtFolder->setText(QDir::toNativeSeparators(folder));
    SaveSettings();
    Refresh();
  }
}

void frmBackUpRestore::VSF_RowColChange(int) {
  const Entry* entry = VSF->Current();
  LblState->setText(entry == nullptr ? tr("There is no backup in this folder yet.") : entry->fault);
  LblState->setVisible(!LblState->text().isEmpty());
}

void frmBackUpRestore::cmdBackUp_Click() {
  QString made;
  {
    controls::ProgressDialog progress(this);
    const Result<QString> result =
        MakeBackup({*Session().connection, Session().folders}, ShownSettings().folder,
                   Kind::kByHand, QDateTime::currentDateTime(), progress);
    if (!result) {
      return Show(result.Why());
    }
    made = *result;
  }
  SaveSettings();
  Refresh();
  VSF->Select(made);
  VSF->ShowVerified(made);
  Say().Inform(tr("The backup is made and verified:\n%1").arg(QDir::toNativeSeparators(made)));
}

void frmBackUpRestore::cmdVerify_Click() {
  const MaybeRefusal refusal = VSF->Verify();
  VSF_RowColChange(VSF->CurrentRow());
  if (refusal) {
    Show(*refusal);
  } else {
    Say().Inform(tr("The backup is whole: every file agrees with its checksum."));
  }
}

void frmBackUpRestore::cmdRestore_Click() {
  TheDesk().open(QStringLiteral("frmrestoration"));
}

void frmBackUpRestore::cmdexit_Click() {
  close();
}

}  // namespace quorvane::backup
