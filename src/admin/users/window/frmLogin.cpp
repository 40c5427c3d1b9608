#include "admin/users/window/frmLogin.h"

#include "admin/users/window/frmLoginSetUp.h"
#include "controls/Style.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QTimer>
#include <QVBoxLayout>

namespace quorvane::users {

using controls::TextBox;
using controls::ZENButton;

frmLogin::frmLogin(controls::Desk& desk, Login login)
    : ChildWindow(desk, QStringLiteral("frmLogin"), tr("Login"), {360, 150}),
      login_(std::move(login)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  layout->addWidget(BuildLogin());
  change_ = BuildChange();
  change_->hide();
  layout->addWidget(change_);
  layout->addStretch(1);
  Hold({{Field::kName, "Text1_0"},
        {Field::kPassword, "Text1_1"},
        {Field::kChangedName, "Text2_0"},
        {Field::kOldPassword, "Text2_1"},
        {Field::kNewPassword, "Text2_2"},
        {Field::kConfirmedPassword, "Text2_3"}});
  // What was guessed in an earlier window counts here too.
  Wait();
}

TextBox* frmLogin::PasswordBox(const QString& name, const QString& purpose) {
  auto* box = new TextBox();
  box->setObjectName(name);
  box->setAccessibleName(purpose);
  box->SetUpperCase(false);
  box->setEchoMode(QLineEdit::Password);
  return box;
}

QWidget* frmLogin::BuildLogin() {
  auto* panel = new QWidget;
  auto* form = new QFormLayout(panel);
  form->setContentsMargins(0, 0, 0, 0);
  Text1[kName] = new TextBox();
  Text1[kName]->setObjectName(QStringLiteral("Text1_0"));
  Text1[kName]->SetUpperCase(false);
  Text1[kPassword] = PasswordBox(QStringLiteral("Text1_1"), tr("Password"));
  form->addRow(tr("&Name"), Text1[kName]);
  form->addRow(tr("&Password"), Text1[kPassword]);
  cmdOK = new ZENButton(QStringLiteral("cmdOK"), tr("&OK"));
  cmdOK->setDefault(true);
  cmdSetUp = new ZENButton(QStringLiteral("cmdSetUp"), tr("&Set Up"));
  cmdChange = new ZENButton(QStringLiteral("cmdChange"), tr("&Change Password"));
  cmdChange->setCheckable(true);
  auto* exit = new ZENButton(QStringLiteral("cmdexit"), tr("E&xit"));
  exit->SetCancels(true);
  auto* buttons = new QHBoxLayout;
  for (ZENButton* button : {cmdOK, cmdSetUp, cmdChange, exit}) {
    buttons->addWidget(button);
  }
  form->addRow(buttons);
  OnClick(cmdOK, &frmLogin::cmdOK_Click);
  OnClick(cmdSetUp, &frmLogin::cmdSetUp_Click);
  OnClick(cmdChange, &frmLogin::cmdChange_Click);
  OnClick(exit, &frmLogin::cmdexit_Click);
  return panel;
}

QGroupBox* frmLogin::BuildChange() {
  auto* panel = new QGroupBox(tr("Change Password"));
  auto* form = new QFormLayout(panel);
  Text2[kLoginId] = new TextBox();
  Text2[kLoginId]->setObjectName(QStringLiteral("Text2_0"));
  Text2[kLoginId]->SetUpperCase(false);
  Text2[kOld] = PasswordBox(QStringLiteral("Text2_1"), tr("Old password"));
  Text2[kNew] = PasswordBox(QStringLiteral("Text2_2"), tr("New password"));
  Text2[kConfirm] = PasswordBox(QStringLiteral("Text2_3"), tr("Confirm password"));
  form->addRow(tr("&Login ID"), Text2[kLoginId]);
  form->addRow(tr("Ol&d Password"), Text2[kOld]);
  form->addRow(tr("N&ew Password"), Text2[kNew]);
  form->addRow(tr("Con&firm Password"), Text2[kConfirm]);
  cmdOk1 = new ZENButton(QStringLiteral("cmdOk1"), tr("Cha&nge"));
  form->addRow(cmdOk1);
  OnClick(cmdOk1, &frmLogin::cmdOk1_Click);
  return panel;
}

void frmLogin::Refused(const Refusal& refusal) {
  Text1[kPassword]->clear();
  Show(refusal);
  Text1[kPassword]->setFocus();
  Wait();
}

/// After failed attempts the next one is taken only after a while.
void frmLogin::Wait() {
  const auto delay = login_.Delay();
  if (delay.count() <= 0) {
    return;
  }
  for (QWidget* button : {cmdOK, cmdSetUp, cmdOk1}) {
    button->setEnabled(false);
    QTimer::singleShot(delay, button, [button] { button->setEnabled(true); });
  }
}

/// Another window of the program may have taken a wrong password in the meantime.
bool frmLogin::MustWait() {
  Wait();
  return !cmdOK->isEnabled();
}

void frmLogin::cmdOK_Click() {
  if (MustWait()) {
    return;
  }
  if (const MaybeRefusal refusal = login_.LogIn(Text1[kName]->text(), Text1[kPassword]->text())) {
    Refused(*refusal);
    return;
  }
  Q_EMIT Admitted();
  close();
}

void frmLogin::cmdSetUp_Click() {
  if (MustWait()) {
    return;
  }
  if (const MaybeRefusal refusal =
          login_.EnterSetUp(Text1[kName]->text(), Text1[kPassword]->text())) {
    Refused(*refusal);
    return;
  }
  Text1[kPassword]->clear();
  (new frmLoginSetUp(TheDesk()))->OpenModal(this);
}

void frmLogin::cmdChange_Click() {
  change_->setVisible(cmdChange->isChecked());
  window()->adjustSize();
  if (change_->isVisible()) {
    Text2[kLoginId]->setText(Text1[kName]->text());
    Text2[kLoginId]->setFocus();
  }
}

void frmLogin::cmdOk1_Click() {
  if (MustWait()) {
    return;
  }
  const PasswordChange change{Text2[kLoginId]->text(), Text2[kOld]->text(), Text2[kNew]->text(),
                              Text2[kConfirm]->text()};
  if (const MaybeRefusal refusal = login_.ChangePassword(change)) {
    Show(*refusal);
    Wait();
    return;
  }
  for (TextBox* box : {Text2[kOld], Text2[kNew], Text2[kConfirm]}) {
    box->clear();
  }
  Say().Inform(PasswordChanged());
  cmdChange->setChecked(false);
  cmdChange_Click();
}

void frmLogin::cmdexit_Click() {
  close();
}

}  // namespace quorvane::users
