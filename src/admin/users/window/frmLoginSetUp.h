#pragma once

#include "admin/users/UserBook.h"
#include "controls/ChildWindow.h"
#include "controls/Grid.h"
#include "controls/TextBox.h"
#include "controls/ZENButton.h"

#include <QCheckBox>

#include <vector>

namespace quorvane::users {

/// Where the administrator adds, changes and deletes users. Passwords show as dots until they are
/// asked to be shown.
class frmLoginSetUp : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit frmLoginSetUp(controls::Desk& desk);

 protected:
  bool MayClose() override;

 private:
  void BuildControls();
  void FillList();
  void Clear();
  const User* Current() const;
  static QString RightsText(int rights);
  int Rights() const;
  void ShowRights(int rights);
  void VSF_RowColChange(int row);
  void cmdAdd_Click();
  void cmdUpdate_Click();
  void CmdDelete_Click();
  void ChkShow_Click();
  void cmdexit_Click();

  UserBook book_;
  std::vector<User> users_;
  int current_ = 0;  ///< 0 while a new user is entered
  bool filling_ = false;
  controls::Grid* VSF = nullptr;
  controls::TextBox* name_box_ = nullptr;
  controls::TextBox* password_box_ = nullptr;
  QCheckBox* ChkShow = nullptr;
  QCheckBox* ChkEnter = nullptr;
  QCheckBox* ChkDelete = nullptr;
  QCheckBox* ChkAdminister = nullptr;
};

}  // namespace quorvane::users
