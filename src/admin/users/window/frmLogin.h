#pragma once

#include "admin/users/Login.h"
#include "controls/ChildWindow.h"
#include "controls/TextBox.h"
#include "controls/ZENButton.h"

#include <QGroupBox>

#include <array>

namespace quorvane::users {

/// Admits a user to the main window, leads the administrator to the set-up of users, and changes
/// passwords.
class frmLogin : public controls::ChildWindow {
  Q_OBJECT

 public:
  frmLogin(controls::Desk& desk, Login login);

 Q_SIGNALS:
  /// The user has logged in; the window closes.
  void Admitted();

 private:
  enum LoginBox { kName, kPassword, kLoginBoxes };
  enum ChangeBox { kLoginId, kOld, kNew, kConfirm, kChangeBoxes };

  QWidget* BuildLogin();
  QGroupBox* BuildChange();
  controls::TextBox* PasswordBox(const QString& name, const QString& purpose);
  void Refused(const Refusal& refusal);
  void Wait();
  bool MustWait();
  void cmdOK_Click();
  void cmdSetUp_Click();
  void cmdChange_Click();
  void cmdOk1_Click();
  void cmdexit_Click();

  Login login_;
  std::array<controls::TextBox*, kLoginBoxes> Text1{};
  std::array<controls::TextBox*, kChangeBoxes> Text2{};
  controls::ZENButton* cmdOK = nullptr;
  controls::ZENButton* cmdSetUp = nullptr;
  controls::ZENButton* cmdChange = nullptr;
  controls::ZENButton* cmdOk1 = nullptr;
  QGroupBox* change_ = nullptr;
};

}  // namespace quorvane::users
