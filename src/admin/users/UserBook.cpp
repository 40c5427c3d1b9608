#include "admin/users/UserBook.h"

#include "core/database/TextWidths.h"
#include "core/records/Masters.h"
#include "core/records/Writing.h"
#include "core/text/PasswordCode.h"
#include "core/text/Tr.h"

#include <array>

namespace quorvane::users {
namespace {

using database::Connection;
using database::Recordset;
using database::TextCell;
using database::Transaction;

bool SameName(const QString& a, const QString& b) {
  return a.trimmed().toUpper() == b.trimmed().toUpper();
}

User UserOf(const Recordset& row) {
  User user{row.Int(0), row.Text(1), std::nullopt,
            row.OptionalInt(3).value_or(changes::kAllRights)};
  if (const std::optional<QString> stored = row.OptionalText(2)) {
    user.password = text::DecodePassword(*stored);
  }
  return user;
}

/// The comparison of the database is asked too: a log-in finds its user by it.
bool NameIsTaken(Transaction& transaction, const User& user) {
  if (IsAdministrator(user.name)) {
    return true;
  }
  for (const auto& row : transaction.Open("Select Name,Name=? From LoginId Where id<>? For Update",
                                          user.name, user.id)) {
    if (row.Int(1) != 0 || SameName(row.Text(0), user.name)) {
      return true;
    }
  }
  return false;
}

/// The log of changes tells that a password was changed and never holds one.
void SetStoredPassword(Transaction& transaction, int id, const QString& name,
                       const QString& password) {
  Recordset stored = transaction.Open("Select Password From LoginPassword Where id=?", id);
  if (stored.Next() && stored.Text(0) != text::EncodePassword(password)) {
    transaction.Changes().Is(changes::Kind::kPassword,
                             {.table = "LoginId", .key = id, .year = {}, .title = name});
  }
  transaction.Execute("Delete From LoginPassword Where id=?", id);
  transaction.Execute("Insert Into LoginPassword(id,Password) Values(?,?)", id,
                      text::EncodePassword(password));
}

/// A user without a row may do everything.
void SetRights(Transaction& transaction, const User& user) {
  records::Delete<records::UserRights>(transaction)
      .Where(&records::UserRights::user, user.id)
      .Run();
  if (user.rights != changes::kAllRights) {
    records::Insert(transaction, records::UserRights{user.id, user.rights});
  }
}

std::optional<QString> NameOf(Transaction& transaction, int id) {
  Recordset rows = transaction.Open("Select Name From LoginId Where id=? For Update", id);
  return rows.Next() ? std::optional(rows.Text(0)) : std::nullopt;
}

Result<int> SaveIn(Transaction& transaction, User user) {
  if (NameIsTaken(transaction, user)) {
    return Refusal{Tr("Users", "User Already Exits!"), Field::kName};
  }
  user.id = records::ClaimKey(transaction, &records::User::id, user.id);
  records::Insert(transaction, records::User{user.id, user.name});
  SetStoredPassword(transaction, user.id, user.name, *user.password);
  SetRights(transaction, user);
  return user.id;
}

}  // namespace

QString AdministratorName() {
  return QStringLiteral("Administrator");
}

bool IsAdministrator(const QString& name) {
  return SameName(name, AdministratorName());
}

MaybeRefusal CheckPasswordLength(const QString& password, Field field) {
  if (text::EncodePassword(password).size() > database::TextWidth("LoginPassword", "Password")) {
    return Refusal{Tr("Users", "Password is too Long."), field};
  }
  return std::nullopt;
}

MaybeRefusal CheckUser(const User& user) {
  if (user.name.trimmed().isEmpty()) {
    return Refusal{Tr("Users", "Enter Login Id!"), Field::kName};
  }
  if (!user.password || user.password->isEmpty()) {
    return Refusal{Tr("Users", "Enter Password!"), Field::kPassword};
  }
  const std::array cells{
      TextCell{"Name", QT_TRANSLATE_NOOP("Masters", "Login Id"), user.name, Field::kName}};
  MaybeRefusal refusal = database::CheckTextWidths("LoginId", cells);
  return refusal ? refusal : CheckPasswordLength(*user.password, Field::kPassword);
}

UserBook::UserBook(Connection& connection) : connection_(connection) {}

std::vector<User> UserBook::List() const {
  std::vector<User> users;
  for (const auto& row : connection_.Open(
           "Select id,Name,(Select P.Password From LoginPassword P Where P.id=L.id Limit "
           "1),R.Rights "
           "From LoginId L Left Join UserRight R On R.LoginId=L.id Order By Name,id")) {
    users.push_back(UserOf(row));
  }
  return users;
}

std::optional<User> UserBook::FindUser(const QString& name) const {
  Recordset rows = connection_.Open(
      "Select id,Name,(Select P.Password From LoginPassword P Where P.id=L.id Limit 1),R.Rights "
      "From LoginId L Left Join UserRight R On R.LoginId=L.id Where Name=? Order By id",
      name);
  return rows.Next() ? std::optional(UserOf(rows)) : std::nullopt;
}

Result<int> UserBook::Save(const User& user) {
  if (const MaybeRefusal refusal = CheckUser(user)) {
    return *refusal;
  }
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveIn(transaction, user); });
}

bool UserBook::SetPassword(int id, const QString& password) {
  bool found = false;
  database::InTransaction(connection_, [&](Transaction& transaction) {
    const std::optional<QString> name = NameOf(transaction, id);
    found = name.has_value();
    if (found) {
      SetStoredPassword(transaction, id, *name, password);
    }
  });
  return found;
}

void UserBook::Delete(int id) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    records::Delete<records::User>(transaction).Where(&records::User::id, id).Run();
    records::Delete<records::UserRights>(transaction).Where(&records::UserRights::user, id).Run();
    transaction.Execute("Delete From LoginPassword Where id=?", id);
  });
}

bool UserBook::HasLimitedUsers() const {
  return connection_.Open("Select 1 From UserRight R Join LoginId L On L.id=R.LoginId Limit 1")
      .Next();
}

QString AskDeleteUser() {
  return Tr("Users", "Do you want to Delete this User?");
}

QString AskExit() {
  return Tr("Users", "Do You want to Exit?");
}

}  // namespace quorvane::users
