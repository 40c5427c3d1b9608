#include "admin/users/window/frmLoginSetUp.h"

#include "controls/Style.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::users {
namespace {

using controls::Answer;
using controls::Icon;
using controls::TextBox;
using controls::ZENButton;

const QString kDots = QString(8, QChar(0x2022));

}  // namespace

frmLoginSetUp::frmLoginSetUp(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("frmLoginSetUp"), tr("User Set Up"), {460, 420}),
      book_(*desk.session.connection) {
  BuildControls();
  Hold({{Field::kName, "Text1_0"}, {Field::kPassword, "Text1_1"}});
  FillList();
}

void frmLoginSetUp::BuildControls() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  VSF = new controls::Grid(QStringLiteral("VSF"), tr("Users"));
  VSF->SetColumns({{.heading = tr("Login Id")},
                   {.heading = tr("Password"), .upper_case = false},
                   {.heading = tr("May")}});
  layout->addWidget(VSF, 1);
  auto* form = new QFormLayout;
  name_box_ = new TextBox();
  name_box_->setObjectName(QStringLiteral("Text1_0"));
  name_box_->SetUpperCase(false);
  password_box_ = new TextBox();
  password_box_->setObjectName(QStringLiteral("Text1_1"));
  password_box_->SetUpperCase(false);
  password_box_->setEchoMode(QLineEdit::Password);
  form->addRow(tr("&Login Id"), name_box_);
  form->addRow(tr("&Password"), password_box_);
  ChkShow = new QCheckBox(tr("S&how passwords"));
  ChkShow->setObjectName(QStringLiteral("ChkShow"));
  form->addRow(QString(), ChkShow);
  auto* rights = new QHBoxLayout;
  const auto add_right = [&](const char* name, const QString& text) {
    auto* box = new QCheckBox(text);
    box->setObjectName(QLatin1String(name));
    box->setChecked(true);
    rights->addWidget(box);
    return box;
  };
  ChkEnter = add_right("ChkEnter", tr("En&ter and change"));
  ChkDelete = add_right("ChkDelete", tr("D&elete records"));
  ChkAdminister = add_right("ChkAdminister", tr("Ad&minister"));
  rights->addStretch();
  form->addRow(tr("Beside looking, may"), rights);
  layout->addLayout(form);
  auto* buttons = new QHBoxLayout;
  const auto add = [&](const char* name, const QString& text, void (frmLoginSetUp::*handler)()) {
    auto* button = new ZENButton(QLatin1String(name), text);
    buttons->addWidget(button);
    OnClick(button, handler);
    return button;
  };
  add("cmdAdd", tr("&Add"), &frmLoginSetUp::cmdAdd_Click);
  add("cmdUpdate", tr("&Save"), &frmLoginSetUp::cmdUpdate_Click)->setDefault(true);
  add("CmdDelete", tr("&Delete"), &frmLoginSetUp::CmdDelete_Click)->SetCancels(true);
  add("cmdexit", tr("E&xit"), &frmLoginSetUp::cmdexit_Click)->SetCancels(true);
  layout->addLayout(buttons);
  On(VSF, &controls::Grid::CurrentRowChanged, &frmLoginSetUp::VSF_RowColChange,
     QStringLiteral("VSF_RowColChange"));
  OnClick(ChkShow, &frmLoginSetUp::ChkShow_Click);
}

void frmLoginSetUp::FillList() {
  users_ = book_.List();
  std::vector<controls::Row> rows;
  for (const User& user : users_) {
    const QString shown = ChkShow->isChecked() ? user.password.value_or(QString()) : kDots;
    rows.push_back({.id = user.id, .cells = {user.name, shown, RightsText(user.rights)}});
  }
  const QScopedValueRollback<bool> filling(filling_, true);
  VSF->SetRows(std::move(rows));
}

QString frmLoginSetUp::RightsText(int rights) {
  QStringList texts;
  if ((rights & changes::kEnter) != 0) {
    texts << tr("enter");
  }
  if ((rights & changes::kDelete) != 0) {
    texts << tr("delete");
  }
  if ((rights & changes::kAdminister) != 0) {
    texts << tr("administer");
  }
  return texts.isEmpty() ? tr("only look") : texts.join(QStringLiteral(", "));
}

int frmLoginSetUp::Rights() const {
  return (ChkEnter->isChecked() ? changes::kEnter : 0) |
         (ChkDelete->isChecked() ? changes::kDelete : 0) |
         (ChkAdminister->isChecked() ? changes::kAdminister : 0);
}

void frmLoginSetUp::ShowRights(int rights) {
  ChkEnter->setChecked((rights & changes::kEnter) != 0);
  ChkDelete->setChecked((rights & changes::kDelete) != 0);
  ChkAdminister->setChecked((rights & changes::kAdminister) != 0);
}

const User* frmLoginSetUp::Current() const {
  const auto found = std::find_if(users_.begin(), users_.end(),
                                  [this](const User& user) { return user.id == current_; });
  return found == users_.end() ? nullptr : &*found;
}

// No row stays current: a click on any of them then chooses it.
void frmLoginSetUp::Clear() {
  VSF->SelectRow(-1);
  current_ = 0;
  name_box_->clear();
  password_box_->clear();
  ShowRights(changes::kAllRights);
  name_box_->setFocus();
}

void frmLoginSetUp::VSF_RowColChange(int row) {
  if (filling_) {
    return;
  }
  current_ = row < 0 ? 0 : VSF->Model().IdOf(row);
  if (const User* user = Current()) {
    name_box_->setText(user->name);
    password_box_->setText(user->password.value_or(QString()));
    ShowRights(user->rights);
  }
}

void frmLoginSetUp::cmdAdd_Click() {
  Clear();
}

void frmLoginSetUp::cmdUpdate_Click() {
  const User user{current_, name_box_->text(), password_box_->text(), Rights()};
  if (const Result<int> saved = book_.Save(user); !saved) {
    Show(saved.Why());
    return;
  }
  FillList();
  Clear();
}

void frmLoginSetUp::CmdDelete_Click() {
  if (Current() == nullptr || !Say().Ask(AskDeleteUser(), Answer::kNo, Icon::kCritical)) {
    return;
  }
  book_.Delete(current_);
  Clear();
  FillList();
}

void frmLoginSetUp::ChkShow_Click() {
  password_box_->setEchoMode(ChkShow->isChecked() ? QLineEdit::Normal : QLineEdit::Password);
  FillList();
}

void frmLoginSetUp::cmdexit_Click() {
  close();
}

bool frmLoginSetUp::MayClose() {
  return Say().Ask(AskExit(), Answer::kYes, Icon::kInformation);
}

}  // namespace quorvane::users
