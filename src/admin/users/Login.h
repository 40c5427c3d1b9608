#pragma once

#include "admin/users/UserBook.h"
#include "core/app/MachineKey.h"

#include <QString>

#include <chrono>

namespace quorvane::users {

/// What the change-password panel holds. Its boxes: "Text2_0" login id, "Text2_1" old, "Text2_2"
/// new, "Text2_3" confirmed password.
struct PasswordChange {
  QString name;
  QString old_password;
  QString new_password;
  QString confirmed_password;
};

/// Who may come in: the ordinary users of the database, and the administrator, whose password is
/// kept with the machine. The log-in's boxes: "Text1_0" name, "Text1_1" password.
///
/// One object serves all attempts of a log-in window, because it counts the failed ones. Throws
/// DatabaseError, or std::runtime_error when the machine's settings cannot be used.
class Login {
 public:
  Login(database::Connection& connection, app::MachineKey machine_key);

  MaybeRefusal LogIn(const QString& name, const QString& password);

  /// Only the administrator may set users up.
  MaybeRefusal EnterSetUp(const QString& name, const QString& password);

  MaybeRefusal ChangePassword(const PasswordChange& change);

  /// How long to wait before the next attempt is taken: nothing at first, then longer with every
  /// attempt that failed in a row, up to kLongestDelay. Against guessing.
  std::chrono::milliseconds Delay() const;

  static constexpr std::chrono::milliseconds kFirstDelay{500};
  static constexpr std::chrono::milliseconds kLongestDelay{30'000};

 private:
  bool IsAdministratorPassword(const QString& password) const;
  MaybeRefusal CheckLogIn(const QString& name, const QString& password) const;
  MaybeRefusal CheckOldPassword(const PasswordChange& change) const;
  MaybeRefusal StoreUserPassword(const PasswordChange& change);
  MaybeRefusal Counted(MaybeRefusal refusal);

  UserBook users_;
  app::MachineKey machine_key_;
  int failures_ = 0;
};

/// Said when a password was changed.
QString PasswordChanged();

}  // namespace quorvane::users
