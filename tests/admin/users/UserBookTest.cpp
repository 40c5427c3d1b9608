#include "admin/users/UserBook.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::users;
using test::TextOf;

namespace {

const QString kTaken = QStringLiteral("User Already Exits!");

}  // namespace

class UserBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { test::Empty(**database_, {"LoginId", "LoginPassword"}); }

  void SavedUserIsFound_data() {
    const test::Table<QString, QString> row;
    row("Devanagari", "मीरा", "पासवर्ड");
    row("longest password", "RAVI", QString(63, QChar('~')));
  }
  void SavedUserIsFound() {
    const auto [name, password] = test::Table<QString, QString>::Row();
    User user{0, name, password};
    QCOMPARE(TextOf(test::Save(Book(), user)), "accepted");
    QCOMPARE(user.id, 1);
    const std::optional<User> found = Book().FindUser(name.toLower());
    QVERIFY(found);
    QCOMPARE(found->name, name);
    QCOMPARE(found->password, std::optional(password));
    const QStringList stored = test::Rows(**database_, "Select Password From LoginPassword");
    QVERIFY(!stored.front().contains(password));
  }

  void FirstBrokenRuleIsNamed_data() {
    const test::Table<QString, QString, QString, Field> row;
    row("nothing", " ", "", "Enter Login Id!", Field::kName);
    row("no password", "Administrator", "", "Enter Password!", Field::kPassword);
    row("name of the administrator", "aDMINISTRATOR", "x", kTaken, Field::kName);
    row("long password", "RAVI", QString(5000, QChar('X')), "Password is too Long.",
        Field::kPassword);
    row("password long by its characters", "RAVI", QString(60, QChar(0x915)),
        "Password is too Long.", Field::kPassword);
  }
  void FirstBrokenRuleIsNamed() {
    const auto [name, password, text, field] = test::Table<QString, QString, QString, Field>::Row();
    User user{0, name, password};
    const MaybeRefusal refusal = test::Save(Book(), user);
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), field);
    QVERIFY(Book().List().empty());
  }

  void NameOfAnotherUserIsRefused() {
    const QString name = QStringLiteral("RÀVI");  // the database takes the letter for the same
    User ravi{0, "Ravi", "one"};
    User mira{0, "Mira", "two"};
    QVERIFY(!test::Save(Book(), ravi));
    QVERIFY(!test::Save(Book(), mira));
    const QStringList before = Everything();
    User fresh{0, name, "three"};
    QCOMPARE(TextOf(test::Save(Book(), fresh)), kTaken);
    mira.name = name;
    QCOMPARE(TextOf(test::Save(Book(), mira)), kTaken);
    QCOMPARE(Everything(), before);
    ravi.name = name;
    QCOMPARE(TextOf(test::Save(Book(), ravi)), "accepted");
    QCOMPARE(ravi.id, 1);
  }

  void ChangedUserKeepsItsIdAndHasOnePassword() {
    User ravi{0, "Ravi", "one"};
    User mira{0, "Mira", "two"};
    QVERIFY(!test::Save(Book(), ravi));
    QVERIFY(!test::Save(Book(), mira));
    ravi.name = QStringLiteral("Zubin");
    ravi.password = QStringLiteral("three");
    QVERIFY(!test::Save(Book(), ravi));
    QVERIFY(!Book().FindUser("Ravi"));
    const std::vector<User> users = Book().List();
    QCOMPARE(users.size(), std::size_t{2});
    QCOMPARE(users[0].name, "Mira");
    QCOMPARE(users[1].id, 1);
    QCOMPARE(users[1].password, std::optional(QStringLiteral("three")));
    QCOMPARE(test::Rows(**database_, "Select id From LoginPassword Order By id"),
             QStringList({"1", "2"}));
  }

  void NewUserDoesNotInheritAPasswordThatWasLeftBehind() {
    (*database_)->Execute("Insert Into LoginPassword Values(1,'46')");
    User ravi{0, "Ravi", "one"};
    QVERIFY(!test::Save(Book(), ravi));
    QCOMPARE(ravi.id, 1);
    QCOMPARE(Book().FindUser("Ravi")->password, std::optional(QStringLiteral("one")));
  }

  void DeletedUserDoesNotComeBackWithAPassword() {
    User ravi{0, "Ravi", "one"};
    QVERIFY(!test::Save(Book(), ravi));
    QVERIFY(Book().SetPassword(ravi.id, "two"));
    QCOMPARE(Book().FindUser("Ravi")->password, std::optional(QStringLiteral("two")));
    Book().Delete(ravi.id);
    QVERIFY(!Book().SetPassword(ravi.id, "three"));
    QCOMPARE(Everything(), QStringList());
  }

 private:
  UserBook Book() { return UserBook(**database_); }

  QStringList Everything() { return test::Contents(**database_, {"LoginId", "LoginPassword"}); }
};

static const test::RegisterTest<UserBookTest> kRegistered;
#include "UserBookTest.moc"
