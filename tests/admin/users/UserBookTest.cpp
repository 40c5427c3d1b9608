#include "admin/users/UserBook.h"
#include "masters/Records.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::users;
using test::TextOfRefusal;

namespace {

const QString kTaken = QStringLiteral("User Already Exits!");

}  // namespace

class UserBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { test::Empty(**database_, {"LoginId", "LoginPassword"}); }

  void SavedUserIsFound_data() {
    const test::Cases<QString, QString> cases("name", "password");
    cases.Add("Devanagari", "मीरा", "पासवर्ड");
    cases.Add("longest password", "RAVI", QString(63, QChar('~')));
  }

  void SavedUserIsFound() {
    QFETCH(const QString, name);
    QFETCH(const QString, password);
    User user{0, name, password};
    QCOMPARE(TextOfRefusal(test::Save(Book(), user)), "accepted");
    QCOMPARE(user.id, 1);
    const std::optional<User> found = Book().FindUser(name.toLower());
    QVERIFY(found);
    QCOMPARE(found->name, name);
    QCOMPARE(found->password, std::optional(password));
    const QStringList stored = test::Rows(**database_, "Select Password From LoginPassword");
    QVERIFY(!stored.front().contains(password));
  }

  void FirstBrokenRuleIsNamed_data() {
    const test::Cases<QString, QString, QString, Field> cases("name", "password", "text", "field");
    cases.Add("nothing", " ", "", "Enter Login Id!", Field::kName);
    cases.Add("no password", "Administrator", "", "Enter Password!", Field::kPassword);
    cases.Add("name of the administrator", "aDMINISTRATOR", "x", kTaken, Field::kName);
    cases.Add("long password", "RAVI", QString(5000, QChar('X')), "Password is too Long.",
              Field::kPassword);
    cases.Add("password long by its characters", "RAVI", QString(60, QChar(0x915)),
              "Password is too Long.", Field::kPassword);
  }

  void FirstBrokenRuleIsNamed() {
    QFETCH(const QString, name);
    QFETCH(const QString, password);
    User user{0, name, password};
    const MaybeRefusal refusal = test::Save(Book(), user);
    QTEST(TextOfRefusal(refusal), "text");
    QTEST(test::FieldOfRefusal(refusal), "field");
    QVERIFY(Book().List().empty());
  }

  void NameOfAnotherUserIsRefused_data() {
    const test::Cases<QString> cases("name");
    cases.Add("a letter that the database takes for the same", "RÀVI");
  }

  void NameOfAnotherUserIsRefused() {
    QFETCH(const QString, name);
    User ravi{0, "Ravi", "one"};
    User mira{0, "Mira", "two"};
    QVERIFY(!test::Save(Book(), ravi));
    QVERIFY(!test::Save(Book(), mira));
    const QStringList before = Everything();
    User fresh{0, name, "three"};
    QCOMPARE(TextOfRefusal(test::Save(Book(), fresh)), kTaken);
    mira.name = name;
    QCOMPARE(TextOfRefusal(test::Save(Book(), mira)), kTaken);
    QCOMPARE(Everything(), before);
    ravi.name = name;
    QCOMPARE(TextOfRefusal(test::Save(Book(), ravi)), "accepted");
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
