#pragma once

#include "core/Result.h"
#include "core/changes/Author.h"
#include "core/database/Transaction.h"

#include <QString>

#include <optional>
#include <vector>

namespace quorvane::users {

/// An ordinary user; the administrator is not one of them.
struct User {
  int id = 0;  ///< 0 until it is saved
  QString name;
  std::optional<QString> password;   ///< none when no readable one is stored
  int rights = changes::kAllRights;  ///< bits of changes::Right
};

/// Checks name and password, then the lengths of texts. The book checks that the name is free.
MaybeRefusal CheckUser(const User& user);

/// The ordinary users in the database. Every save and delete is one transaction; one that is
/// refused, or that throws DatabaseError, changes nothing.
class UserBook {
 public:
  explicit UserBook(database::Connection& connection);

  /// By name, then by id.
  std::vector<User> List() const;

  /// The user whom the database takes for that name, without regard to capitals.
  std::optional<User> FindUser(const QString& name) const;

  /// Writes a new user, or a changed one in place of the old. Returns its id. Refused when another
  /// user, or the administrator, has that name, without regard to capitals.
  Result<int> Save(const User& user);

  /// Gives a stored user another password and leaves the name; false when there is no such user.
  /// The password is short enough to be stored.
  bool SetPassword(int id, const QString& password);

  void Delete(int id);

  /// Whether a user has fewer rights than all. Then nobody may work without logging in.
  bool HasLimitedUsers() const;

 private:
  database::Connection& connection_;
};

/// The administrator's name.
QString AdministratorName();
bool IsAdministrator(const QString& name);

/// Refuses a password that is too long to be stored.
MaybeRefusal CheckPasswordLength(const QString& password, Field field);

/// What is asked before a user is deleted and before the set-up window closes.
QString AskDeleteUser();
QString AskExit();

}  // namespace quorvane::users
