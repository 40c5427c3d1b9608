#pragma once

#include "admin/backup/window/BackupsView.h"
#include "controls/ChildWindow.h"
#include "controls/TextBox.h"

#include <QCheckBox>
#include <QLabel>
#include <QSpinBox>

namespace quorvane::backup {

/// Makes and verifies backups and keeps the settings of automatic ones.
class frmBackUpRestore : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit frmBackUpRestore(controls::Desk& desk);

 protected:
  void FirstShown() override;

 private:
  void BuildControls();
  QWidget* FolderRow();
  QWidget* AutomaticRow();
  QWidget* ButtonRow();
  Settings ShownSettings() const;
  void SaveSettings();
  void Refresh();
  void TxtFolder_Validate();
  void cmdBrowse_Click();
  void VSF_RowColChange(int row);
  void cmdBackUp_Click();
  void cmdVerify_Click();
  void cmdRestore_Click();
  void cmdexit_Click();

  controls::TextBox* TxtFolder = nullptr;
  controls::ZENButton* cmdBrowse = nullptr;
  controls::ZENButton* cmdBackUp = nullptr;
  BackupsView* VSF = nullptr;
  QLabel* LblState = nullptr;
  QCheckBox* ChkAutomatic = nullptr;
  QSpinBox* TxtKeep = nullptr;
};

}  // namespace quorvane::backup
