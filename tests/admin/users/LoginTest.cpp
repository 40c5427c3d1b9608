#include "admin/users/Login.h"
#include "masters/Records.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace quorvane;
using namespace quorvane::users;
using test::TextOfRefusal;

namespace {

const QString kAccepted = QStringLiteral("accepted");
const QString kInvalid = QStringLiteral("InVaild Password.");

}  // namespace

class LoginTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    attempts_.emplace([] { return std::chrono::steady_clock::time_point(); });
    folder_ = std::make_unique<QTemporaryDir>();
    User user{0, "Ravi", "Secret"};
    QVERIFY(!test::Save(UserBook(**database_), user));
    (*database_)->Execute("Insert Into LoginId Values(2,'NoPassword')");
  }
  void cleanup() { test::Empty(**database_, {"LoginId", "LoginPassword"}); }

  void LogInAdmitsWhoKnowsThePassword_data() {
    const test::Cases<QString, QString, QString, QString> cases("stored", "name", "password",
                                                                "text");
    cases.Add("administrator by default", "", "Administrator", "tavel", kAccepted);
    cases.Add("no password at all", "", "Administrator", "", kInvalid);
    cases.Add("administrator's own", "Own'1", "Administrator", "Own'1", kAccepted);
    cases.Add("default after another was set", "Own'1", "Administrator", "tavel", kInvalid);
    cases.Add("user", "", "Ravi", "Secret", kAccepted);
    cases.Add("user in other capitals", "", "RAVI", "Secret", kAccepted);
    cases.Add("password in other capitals", "", "Ravi", "secret", kInvalid);
    cases.Add("user whose password is missing", "", "NoPassword", "", kInvalid);
    cases.Add("unknown user", "", "Nobody", "Secret", "User Not Found!");
    cases.Add("statement for a name", "", "' or '1'='1", "Secret", "User Not Found!");
  }

  void LogInAdmitsWhoKnowsThePassword() {
    QFETCH(const QString, stored);
    QFETCH(const QString, name);
    QFETCH(const QString, password);
    if (!stored.isEmpty()) {
      Key().SetAdminPass(stored);
    }
    const MaybeRefusal refusal = NewLogin().LogIn(name, password);
    QTEST(TextOfRefusal(refusal), "text");
    QCOMPARE(test::FieldOfRefusal(refusal), refusal ? Field::kPassword : Field::kNone);
  }

  void OnlyTheAdministratorSetsUsersUp_data() {
    const test::Cases<QString, QString, QString> cases("name", "password", "text");
    cases.Add("administrator", "Administrator", "tavel", kAccepted);
    cases.Add("wrong password", "Administrator", "Tavel", "Invalid Password.");
    cases.Add("user", "Ravi", "Secret", "You have no Rights to Enter in SetUp.");
  }

  void OnlyTheAdministratorSetsUsersUp() {
    QFETCH(const QString, name);
    QFETCH(const QString, password);
    QTEST(TextOfRefusal(NewLogin().EnterSetUp(name, password)), "text");
  }

  void FirstBrokenRuleOfAChangeIsNamed_data() {
    const test::Cases<QStringList, QString, Field> cases("boxes", "text", "field");
    cases.Add("nothing", {"", "", "", ""}, "Enter Login ID.", Field::kChangedName);
    cases.Add("not confirmed", {"Nobody", "x", "new", ""}, "Enter Confirm Password.",
              Field::kConfirmedPassword);
    cases.Add("confirmed otherwise", {"Nobody", "x", "new", "New"},
              "New Password and Confirm Password not Match.", Field::kConfirmedPassword);
    cases.Add("unknown user", {"Nobody", "x", "new", "new"}, "User Not Found!",
              Field::kChangedName);
    cases.Add("wrong old password", {"Ravi", "secret", "new", "new"}, "Old Password is Incorrect.",
              Field::kOldPassword);
    cases.Add("administrator's wrong old password", {"Administrator", "Secret", "new", "new"},
              "Old Password is Incorrect.", Field::kOldPassword);
    const QString endless(5000, QChar('X'));
    cases.Add("endless password", {"Ravi", "Secret", endless, endless}, "Password is too Long.",
              Field::kNewPassword);
  }

  void FirstBrokenRuleOfAChangeIsNamed() {
    QFETCH(const QStringList, boxes);
    const QStringList before = test::Contents(**database_, {"LoginId", "LoginPassword"});
    const MaybeRefusal refusal =
        NewLogin().ChangePassword({boxes[0], boxes[1], boxes[2], boxes[3]});
    QTEST(TextOfRefusal(refusal), "text");
    QTEST(test::FieldOfRefusal(refusal), "field");
    QCOMPARE(test::Contents(**database_, {"LoginId", "LoginPassword"}), before);
    QCOMPARE(Key().AdminPass(), QString());
  }

  void ChangedPasswordIsTheOneThatAdmits_data() {
    const test::Cases<QString, QString> cases("name", "old_password");
    cases.Add("user", "ravi", "Secret");
    cases.Add("administrator", "Administrator", "tavel");
  }

  void ChangedPasswordIsTheOneThatAdmits() {
    QFETCH(const QString, name);
    QFETCH(const QString, old_password);
    const QString fresh = QStringLiteral("नया, 'n\"ew; \\ =%");
    QCOMPARE(TextOfRefusal(NewLogin().ChangePassword({name, old_password, fresh, fresh})),
             kAccepted);
    QCOMPARE(TextOfRefusal(NewLogin().LogIn(name, fresh)), kAccepted);
    QCOMPARE(TextOfRefusal(NewLogin().LogIn(name, old_password)), kInvalid);
    QCOMPARE(test::Rows(**database_, "Select id,Name From LoginId Order By id"),
             QStringList({"1|Ravi", "2|NoPassword"}));
  }

  void DelayGrowsWithFailuresInARowUpToABound() {
    Login login = NewLogin();
    QCOMPARE(login.Delay().count(), 0);
    std::chrono::milliseconds before = login.Delay();
    for (int i = 0; i < 100; ++i) {
      QVERIFY(login.LogIn("Ravi", "guess"));
      QVERIFY(login.Delay() > before || login.Delay() == Attempts::kLongestDelay);
      QVERIFY(login.Delay() <= Attempts::kLongestDelay);
      before = login.Delay();
    }
    QVERIFY(before == Attempts::kLongestDelay);
    QVERIFY(!login.LogIn("Ravi", "Secret"));
    QCOMPARE(login.Delay().count(), 0);
  }

  void EveryWayOfGuessingIsDelayed() {
    Login login = NewLogin();
    QVERIFY(login.EnterSetUp("Administrator", "guess"));
    QVERIFY(login.Delay() == Attempts::kFirstDelay);
    QVERIFY(login.ChangePassword({"Ravi", "guess", "a", "a"}));
    QVERIFY(login.Delay() == 2 * Attempts::kFirstDelay);
    QVERIFY(login.LogIn("Nobody", "guess"));
    QVERIFY(login.Delay() == 4 * Attempts::kFirstDelay);
    QVERIFY(login.ChangePassword({"Ravi", "", "a", "a"}));
    QVERIFY(login.Delay() == 4 * Attempts::kFirstDelay);
    // One's own password is no fresh start for guessing somebody else's, nor is a new window.
    QVERIFY(!login.LogIn("Ravi", "Secret"));
    QVERIFY(NewLogin().LogIn("Administrator", "guess"));
    QVERIFY(login.Delay() == 2 * Attempts::kFirstDelay);
  }

 private:
  app::MachineKey Key() const { return app::MachineKey(folder_->filePath("machine.ini")); }
  Login NewLogin() { return Login(**database_, Key(), *attempts_); }
  std::unique_ptr<QTemporaryDir> folder_;
  std::optional<Attempts> attempts_;
};

static const test::RegisterTest<LoginTest> kRegistered;

#include "LoginTest.moc"
