#pragma once

#include "admin/users/UserBook.h"
#include "core/app/MachineKey.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <functional>

namespace quorvane::users {

/// How long to wait before the next password is taken. The time grows with each failure in a row,
/// against guessing. One object serves every window of the program, so that a new window starts no
/// new count.
class Attempts {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  explicit Attempts(Clock now = std::chrono::steady_clock::now);

  /// Failures of an account count until its own password is given: the password of another account
  /// does not reset them. An empty account is a name that no user has; any success resets those.
  void Failed(const QString& account);
  void Succeeded(const QString& account);

  /// What is left of the time to wait; nothing when the next attempt is taken at once.
  std::chrono::milliseconds Delay() const;

  static constexpr std::chrono::milliseconds kFirstDelay{500};
  static constexpr std::chrono::milliseconds kLongestDelay{30'000};

 private:
  Clock now_;
  QHash<QString, int> failures_;
  std::chrono::steady_clock::time_point next_;
};

/// What is entered to change a password.
struct PasswordChange {
  QString name;
  QString old_password;
  QString new_password;
  QString confirmed_password;
};

/// Who may log in: the ordinary users of the database, and the administrator, whose password is
/// kept with the machine.
///
/// Throws DatabaseError, or std::runtime_error when the machine's settings cannot be used.
class Login {
 public:
  /// `attempts` outlives the object.
  Login(database::Connection& connection, app::MachineKey machine_key, Attempts& attempts);

  /// Who was let in is the author of the connection's changes from then on, with their rights; so
  /// is the administrator who was let in to the set-up.
  MaybeRefusal LogIn(const QString& name, const QString& password);

  /// Only the administrator may set users up.
  MaybeRefusal EnterSetUp(const QString& name, const QString& password);

  MaybeRefusal ChangePassword(const PasswordChange& change);

  /// How long to wait before the next attempt is taken.
  std::chrono::milliseconds Delay() const { return attempts_.Delay(); }

 private:
  bool IsAdministratorPassword(const QString& password) const;
  MaybeRefusal CheckLogIn(const QString& name, const QString& password) const;
  MaybeRefusal CheckOldPassword(const PasswordChange& change) const;
  MaybeRefusal StoreUserPassword(const PasswordChange& change);
  MaybeRefusal Counted(const QString& name, MaybeRefusal refusal);

  void SetAuthor(const QString& name) const;

  database::Connection& connection_;
  UserBook users_;
  app::MachineKey machine_key_;
  Attempts& attempts_;
};

/// The message after a password was changed.
QString PasswordChanged();

}  // namespace quorvane::users
