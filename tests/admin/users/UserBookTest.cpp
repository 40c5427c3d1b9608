#include "admin/users/UserBook.h"
#include "masters/Records.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

#include <memory>

using namespace quorvane;
using namespace quorvane::users;
using test::TextOfRefusal;

namespace {

const QString kTaken = QStringLiteral("User Already Exits!");

}  // namespace

class UserBookTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { database_ = std::make_unique<test::TestDatabase>(); }
  void cleanup() { test::Empty(**database_, {"LoginId", "LoginPassword"}); }
  void cleanupTestCase() { database_.reset(); }

  void SavedUserIsFound_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("password");
    QTest::newRow("quotes") << "O'BRIEN"
                            << "a'b\\\"";
    QTest::newRow("Devanagari") << "मीरा"
                                << "पासवर्ड";
    QTest::newRow("longest password") << "RAVI" << QString(63, QChar('~'));
  }

  void SavedUserIsFound() {
    QFETCH(const QString, name);
    QFETCH(const QString, password);
    User user{0, name, password};
    QCOMPARE(TextOfRefusal(Book().Save(user)), QStringLiteral("accepted"));
    QCOMPARE(user.id, 1);
    const std::optional<User> found = Book().FindUser(name.toLower());
    QVERIFY(found);
    QCOMPARE(found->name, name);
    QCOMPARE(found->password, std::optional(password));
    const QStringList stored = test::Rows(**database_, "Select Password From LoginPassword");
    QVERIFY(!stored.front().contains(password));
  }

  void FirstBrokenRuleIsNamed_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    QTest::newRow("nothing") << " "
                             << ""
                             << "Enter Login Id!"
                             << "Text1_0";
    QTest::newRow("no password") << "Administrator"
                                 << ""
                                 << "Enter Password!"
                                 << "Text1_1";
    QTest::newRow("name of the administrator") << "aDMINISTRATOR"
                                               << "x" << kTaken << "Text1_0";
    QTest::newRow("the same with blanks") << " administrator "
                                          << "x" << kTaken << "Text1_0";
    QTest::newRow("long name") << QString(256, QChar('X')) << "x"
                               << "Login Id is too Long. At Most 255 Characters are Allowed."
                               << "Text1_0";
    QTest::newRow("long password") << "RAVI" << QString(5000, QChar('X')) << "Password is too Long."
                                   << "Text1_1";
    QTest::newRow("password long by its characters")
        << "RAVI" << QString(60, QChar(0x915)) << "Password is too Long."
        << "Text1_1";
  }

  void FirstBrokenRuleIsNamed() {
    QFETCH(const QString, name);
    QFETCH(const QString, password);
    User user{0, name, password};
    const MaybeRefusal refusal = Book().Save(user);
    QTEST(TextOfRefusal(refusal), "text");
    QTEST(test::FieldOfRefusal(refusal), "field");
    QVERIFY(Book().List().empty());
  }

  void NameOfAnotherUserIsRefused_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("same") << "Ravi";
    QTest::newRow("other capitals") << "rAVI";
    QTest::newRow("blank behind") << "RAVI ";
    QTest::newRow("a letter that the database takes for the same") << "RÀVI";
  }

  void NameOfAnotherUserIsRefused() {
    QFETCH(const QString, name);
    User ravi{0, "Ravi", "one"};
    User mira{0, "Mira", "two"};
    QVERIFY(!Book().Save(ravi));
    QVERIFY(!Book().Save(mira));
    const QStringList before = Everything();
    User fresh{0, name, "three"};
    QCOMPARE(TextOfRefusal(Book().Save(fresh)), kTaken);
    mira.name = name;
    QCOMPARE(TextOfRefusal(Book().Save(mira)), kTaken);
    QCOMPARE(Everything(), before);
    ravi.name = name;
    QCOMPARE(TextOfRefusal(Book().Save(ravi)), QStringLiteral("accepted"));
    QCOMPARE(ravi.id, 1);
  }

  void ChangedUserKeepsItsIdAndHasOnePassword() {
    User ravi{0, "Ravi", "one"};
    User mira{0, "Mira", "two"};
    QVERIFY(!Book().Save(ravi));
    QVERIFY(!Book().Save(mira));
    ravi.name = QStringLiteral("Zubin");
    ravi.password = QStringLiteral("three");
    QVERIFY(!Book().Save(ravi));
    QVERIFY(!Book().FindUser("Ravi"));
    const std::vector<User> users = Book().List();
    QCOMPARE(users.size(), std::size_t{2});
    QCOMPARE(users[0].name, QStringLiteral("Mira"));
    QCOMPARE(users[1].id, 1);
    QCOMPARE(users[1].password, std::optional(QStringLiteral("three")));
    QCOMPARE(test::Rows(**database_, "Select id From LoginPassword Order By id"),
             QStringList({"1", "2"}));
  }

  void NewUserDoesNotInheritAPasswordThatWasLeftBehind() {
    (*database_)->Execute("Insert Into LoginPassword Values(1,'46')");
    User ravi{0, "Ravi", "one"};
    QVERIFY(!Book().Save(ravi));
    QCOMPARE(ravi.id, 1);
    QCOMPARE(Book().FindUser("Ravi")->password, std::optional(QStringLiteral("one")));
  }

  void DeleteTakesBothRows() {
    User ravi{0, "Ravi", "one"};
    User mira{0, "Mira", "two"};
    QVERIFY(!Book().Save(ravi));
    QVERIFY(!Book().Save(mira));
    Book().Delete(ravi.id);
    QCOMPARE(test::Rows(**database_, "Select id From LoginId"), QStringList("2"));
    QCOMPARE(test::Rows(**database_, "Select id From LoginPassword"), QStringList("2"));
  }

  void DeletedUserDoesNotComeBackWithAPassword() {
    User ravi{0, "Ravi", "one"};
    QVERIFY(!Book().Save(ravi));
    QVERIFY(Book().SetPassword(ravi.id, "two"));
    QCOMPARE(Book().FindUser("Ravi")->password, std::optional(QStringLiteral("two")));
    Book().Delete(ravi.id);
    QVERIFY(!Book().SetPassword(ravi.id, "three"));
    QCOMPARE(Everything(), QStringList());
  }

  void UnreadablePasswordIsNone() {
    (*database_)->Execute("Insert Into LoginId Values(1,'A'),(2,'B'),(3,'C')");
    (*database_)->Execute("Insert Into LoginPassword Values(1,'x'),(2,Null)");
    for (const User& user : Book().List()) {
      QCOMPARE(user.password, std::optional<QString>());
    }
  }

 private:
  UserBook Book() { return UserBook(**database_); }

  QStringList Everything() { return test::Contents(**database_, {"LoginId", "LoginPassword"}); }

  std::unique_ptr<test::TestDatabase> database_;
};

static const test::RegisterTest<UserBookTest> kRegistered;

#include "UserBookTest.moc"
