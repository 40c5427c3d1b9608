#include "admin/users/Login.h"

#include "core/text/Tr.h"

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

Refusal UserNotFound(Field field) {
  return {Tr("Login", "User Not Found!"), field};
}

MaybeRefusal CheckEntries(const PasswordChange& change) {
  if (change.name.trimmed().isEmpty()) {
    return Refusal{Tr("Login", "Enter Login ID."), Field::kChangedName};
  }
  if (change.old_password.isEmpty()) {
    return Refusal{Tr("Login", "Enter Old Password."), Field::kOldPassword};
  }
  if (change.new_password.isEmpty()) {
    return Refusal{Tr("Login", "Enter New Password."), Field::kNewPassword};
  }
  if (change.confirmed_password.isEmpty()) {
    return Refusal{Tr("Login", "Enter Confirm Password."), Field::kConfirmedPassword};
  }
  if (change.new_password != change.confirmed_password) {
    return Refusal{Tr("Login", "New Password and Confirm Password not Match."),
                   Field::kConfirmedPassword};
  }
  return std::nullopt;
}

}  // namespace

Login::Login(database::Connection& connection, app::MachineKey machine_key, Attempts& attempts)
    : connection_(connection),
      users_(connection),
      machine_key_(std::move(machine_key)),
      attempts_(attempts) {}

MaybeRefusal Login::LogIn(const QString& name, const QString& password) {
  MaybeRefusal refusal = Counted(name, CheckLogIn(name, password));
  if (!refusal) {
    SetAuthor(name);
  }
  return refusal;
}

MaybeRefusal Login::EnterSetUp(const QString& name, const QString& password) {
  if (!IsAdministrator(name)) {
    return Refusal{Tr("Login", "You have no Rights to Enter in SetUp."), Field::kName};
  }
  if (!IsAdministratorPassword(password)) {
    return Counted(name, Refusal{Tr("Login", "Invalid Password."), Field::kPassword});
  }
  SetAuthor(name);
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

void Login::SetAuthor(const QString& name) const {
  changes::Author author = changes::SystemAuthor();
  const std::optional<User> user = IsAdministrator(name) ? std::nullopt : users_.FindUser(name);
  author.user = user ? user->name : AdministratorName();
  author.rights = user ? user->rights : changes::kAllRights;
  connection_.SetAuthor(author);
}

bool Login::IsAdministratorPassword(const QString& password) const {
  const QString stored = machine_key_.AdminPass();
  return password ==
         (stored.isEmpty() ? QString::fromLatin1(kDefaultAdministratorPassword) : stored);
}

MaybeRefusal Login::CheckLogIn(const QString& name, const QString& password) const {
  const Refusal wrong_password{Tr("Login", "InVaild Password."), Field::kPassword};
  if (IsAdministrator(name)) {
    return IsAdministratorPassword(password) ? std::nullopt : MaybeRefusal(wrong_password);
  }
  const std::optional<User> user = users_.FindUser(name);
  if (!user) {
    return UserNotFound(Field::kPassword);
  }
  return user->password == password ? std::nullopt : MaybeRefusal(wrong_password);
}

MaybeRefusal Login::CheckOldPassword(const PasswordChange& change) const {
  const Refusal wrong_password{Tr("Login", "Old Password is Incorrect."), Field::kOldPassword};
  if (IsAdministrator(change.name)) {
    return IsAdministratorPassword(change.old_password) ? std::nullopt
                                                        : MaybeRefusal(wrong_password);
  }
  const std::optional<User> user = users_.FindUser(change.name);
  if (!user) {
    return UserNotFound(Field::kChangedName);
  }
  return user->password == change.old_password ? std::nullopt : MaybeRefusal(wrong_password);
}

MaybeRefusal Login::StoreUserPassword(const PasswordChange& change) {
  if (MaybeRefusal refusal = CheckPasswordLength(change.new_password, Field::kNewPassword)) {
    return refusal;
  }
  const std::optional<User> user = users_.FindUser(change.name);
  if (!user || !users_.SetPassword(user->id, change.new_password)) {
    return UserNotFound(Field::kChangedName);
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
  return Tr("Login", "Password has Successfully Changed.");
}

}  // namespace quorvane::users
