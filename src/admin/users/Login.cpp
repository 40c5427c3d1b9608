#include "admin/users/Login.h"

#include <QCoreApplication>

#include <algorithm>
#include <numeric>
#include <utility>

namespace quorvane::users {

using std::chrono::milliseconds;

Attempts::Attempts(Clock now) : now_(std::move(now)), next_(now_()) {}

void Attempts::Failed(const QString& account) {
  constexpr int kMostDoublings = 10;
  ++failures_[account];
  const int all = std::accumulate(failures_.cbegin(), failures_.cend(), 0);
  next_ = now_() + std::min(kLongestDelay, kFirstDelay * (1 << std::min(all - 1, kMostDoublings)));
}

void Attempts::Succeeded(const QString& account) {
  failures_.remove(account);
  failures_.remove(QString());
  next_ = now_();
}

milliseconds Attempts::Delay() const {
  return std::max(milliseconds(0), std::chrono::ceil<milliseconds>(next_ - now_()));
}

namespace {

constexpr char kDefaultAdministratorPassword[] = "tavel";
constexpr char kLogInName[] = "Text1_0";
constexpr char kLogInPassword[] = "Text1_1";
constexpr char kChangeName[] = "Text2_0";
constexpr char kChangeOld[] = "Text2_1";
constexpr char kChangeNew[] = "Text2_2";
constexpr char kChangeConfirmed[] = "Text2_3";

Refusal Refuse(const char* text, const char* field) {
  return {QCoreApplication::translate("Login", text), QString::fromLatin1(field)};
}

Refusal UserNotFound(const char* field) {
  return Refuse(QT_TRANSLATE_NOOP("Login", "User Not Found!"), field);
}

MaybeRefusal CheckEntries(const PasswordChange& change) {
  if (change.name.trimmed().isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Login", "Enter Login ID."), kChangeName);
  }
  if (change.old_password.isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Login", "Enter Old Password."), kChangeOld);
  }
  if (change.new_password.isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Login", "Enter New Password."), kChangeNew);
  }
  if (change.confirmed_password.isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Login", "Enter Confirm Password."), kChangeConfirmed);
  }
  if (change.new_password != change.confirmed_password) {
    return Refuse(QT_TRANSLATE_NOOP("Login", "New Password and Confirm Password not Match."),
                  kChangeConfirmed);
  }
  return std::nullopt;
}

}  // namespace

Login::Login(database::Connection& connection, app::MachineKey machine_key, Attempts& attempts)
    : users_(connection), machine_key_(std::move(machine_key)), attempts_(attempts) {}

MaybeRefusal Login::LogIn(const QString& name, const QString& password) {
  return Counted(name, CheckLogIn(name, password));
}

MaybeRefusal Login::EnterSetUp(const QString& name, const QString& password) {
  if (!IsAdministrator(name)) {
    return Refuse(QT_TRANSLATE_NOOP("Login", "You have no Rights to Enter in SetUp."), kLogInName);
  }
  if (!IsAdministratorPassword(password)) {
    return Counted(name, Refuse(QT_TRANSLATE_NOOP("Login", "Invalid Password."), kLogInPassword));
  }
  return Counted(name, std::nullopt);
}

MaybeRefusal Login::ChangePassword(const PasswordChange& change) {
  if (MaybeRefusal refusal = CheckEntries(change)) {
    return refusal;
  }
  if (MaybeRefusal refusal = Counted(change.name, CheckOldPassword(change))) {
    return refusal;
  }
  if (!IsAdministrator(change.name)) {
    return StoreUserPassword(change);
  }
  machine_key_.SetAdminPass(change.new_password);
  return std::nullopt;
}

bool Login::IsAdministratorPassword(const QString& password) const {
  const QString stored = machine_key_.AdminPass();
  return password ==
         (stored.isEmpty() ? QString::fromLatin1(kDefaultAdministratorPassword) : stored);
}

MaybeRefusal Login::CheckLogIn(const QString& name, const QString& password) const {
  const Refusal wrong_password =
      Refuse(QT_TRANSLATE_NOOP("Login", "InVaild Password."), kLogInPassword);
  if (IsAdministrator(name)) {
    return IsAdministratorPassword(password) ? std::nullopt : MaybeRefusal(wrong_password);
  }
  const std::optional<User> user = users_.FindUser(name);
  if (!user) {
    return UserNotFound(kLogInPassword);
  }
  return user->password == password ? std::nullopt : MaybeRefusal(wrong_password);
}

MaybeRefusal Login::CheckOldPassword(const PasswordChange& change) const {
  const Refusal wrong_password =
      Refuse(QT_TRANSLATE_NOOP("Login", "Old Password is Incorrect."), kChangeOld);
  if (IsAdministrator(change.name)) {
    return IsAdministratorPassword(change.old_password) ? std::nullopt
                                                        : MaybeRefusal(wrong_password);
  }
  const std::optional<User> user = users_.FindUser(change.name);
  if (!user) {
    return UserNotFound(kChangeName);
  }
  return user->password == change.old_password ? std::nullopt : MaybeRefusal(wrong_password);
}

MaybeRefusal Login::StoreUserPassword(const PasswordChange& change) {
  if (MaybeRefusal refusal =
          CheckPasswordLength(change.new_password, QString::fromLatin1(kChangeNew))) {
    return refusal;
  }
  const std::optional<User> user = users_.FindUser(change.name);
  if (!user || !users_.SetPassword(user->id, change.new_password)) {
    return UserNotFound(kChangeName);
  }
  return std::nullopt;
}

MaybeRefusal Login::Counted(const QString& name, MaybeRefusal refusal) {
  QString account = IsAdministrator(name) ? AdministratorName() : QString();
  if (account.isEmpty()) {
    const std::optional<User> user = users_.FindUser(name);
    account = user ? user->name : QString();
  }
  if (refusal) {
    attempts_.Failed(account);
  } else {
    attempts_.Succeeded(account);
  }
  return refusal;
}

QString PasswordChanged() {
  return QCoreApplication::translate("Login", "Password has Successfully Changed.");
}

}  // namespace quorvane::users
