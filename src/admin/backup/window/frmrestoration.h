#pragma once

#include "admin/backup/window/BackupsView.h"
#include "controls/ChildWindow.h"
#include "controls/Grid.h"
#include "controls/TextBox.h"

#include <QLabel>

namespace quorvane::backup {

/// Puts a backup in the place of everything that the program holds.
class frmrestoration : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit frmrestoration(controls::Desk& desk);

 private:
  void BuildControls();
  QWidget* FolderRow();
  QWidget* ButtonRow();
  void Refresh();
  MaybeRefusal Verify();
  bool CloseOtherWindows();
  void ForgetClient();
  void TxtFolder_Validate();
  void cmdBrowse_Click();
  void VSF_RowColChange(int row);
  void cmdVerify_Click();
  void cmdRestore_Click();
  void cmdexit_Click();

  QString folder_;  ///< whose backups are listed
  controls::TextBox* TxtFolder = nullptr;
  BackupsView* VSF = nullptr;
  controls::Grid* VSFHolds = nullptr;
  QLabel* LblState = nullptr;
};

}  // namespace quorvane::backup
