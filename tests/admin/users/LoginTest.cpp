#include "admin/users/Login.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::users;
using test::TextOf;

namespace {

const QString kAccepted = QStringLiteral("accepted");
const QString kInvalid = QStringLiteral("InVaild Password.");

}  // namespace

class LoginTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    (*database_)->SetAuthor(changes::SystemAuthor());
    attempts_.emplace([] { return std::chrono::steady_clock::time_point(); });
    folder_ = std::make_unique<QTemporaryDir>();
    User user{0, "Ravi", "Secret"};
    QVERIFY(!test::Save(UserBook(**database_), user));
    (*database_)->Execute("Insert Into LoginId Values(2,'NoPassword')");
  }
  void cleanup() {
    test::Empty(**database_, {"LoginId", "LoginPassword"});
    (*database_)->Execute("Delete From UserRight");
  }

  void LogInAdmitsWhoKnowsThePassword_data() {
    const test::Table<QString, QString, QString, QString> row;
    row("administrator by default", "", "Administrator", "tavel", kAccepted);
    row("no password at all", "", "Administrator", "", kInvalid);
    row("administrator's own", "Own'1", "Administrator", "Own'1", kAccepted);
    row("default after another was set", "Own'1", "Administrator", "tavel", kInvalid);
    row("user", "", "Ravi", "Secret", kAccepted);
    row("user in other capitals", "", "RAVI", "Secret", kAccepted);
    row("password in other capitals", "", "Ravi", "secret", kInvalid);
    row("user whose password is missing", "", "NoPassword", "", kInvalid);
    row("unknown user", "", "Nobody", "Secret", "User Not Found!");
    row("statement for a name", "", "' or '1'='1", "Secret", "User Not Found!");
  }
  void LogInAdmitsWhoKnowsThePassword() {
    const auto [stored, name, password, text] =
        test::Table<QString, QString, QString, QString>::Row();
    if (!stored.isEmpty()) {
      Key().SetAdminPass(stored);
    }
    const MaybeRefusal refusal = NewLogin().LogIn(name, password);
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), refusal ? Field::kPassword : Field::kNone);
  }

  /// Who logged in writes the log, with the rights that are kept in the database.
  void RightsFollowTheUser() {
    QVERIFY(!UserBook(**database_).HasLimitedUsers());
    User mira{0, "Mira", "two", changes::kEnter};
    QVERIFY(!test::Save(UserBook(**database_), mira));
    QVERIFY(UserBook(**database_).HasLimitedUsers());
    const auto author = [&] { return (*database_)->Author(); };
    QVERIFY(!NewLogin().LogIn("mira", "two"));
    QCOMPARE(author().user, "Mira");
    QCOMPARE(author().rights, int{changes::kEnter});
    User another{0, "Another", "three"};
    QCOMPARE(TextOf(test::Save(UserBook(**database_), another)),
             "Only a User who may Administer can do this.");
    QVERIFY(NewLogin().LogIn("Ravi", "wrong"));
    QCOMPARE(author().user, "Mira");
    QVERIFY(!NewLogin().EnterSetUp("Administrator", "tavel"));
    QCOMPARE(author().rights, int{changes::kAllRights});
    mira.rights = changes::kAllRights;
    QVERIFY(!test::Save(UserBook(**database_), mira));
    QVERIFY(!UserBook(**database_).HasLimitedUsers());
    QVERIFY(test::Rows(**database_, "Select OldRows,NewRows From ChangeLog")
                .filter(QStringLiteral("two"))
                .isEmpty());
  }

  void FirstBrokenRuleOfAChangeIsNamed_data() {
    const test::Table<QStringList, QString, Field> row;
    row("nothing", {"", "", "", ""}, "Enter Login ID.", Field::kChangedName);
    row("not confirmed", {"Nobody", "x", "new", ""}, "Enter Confirm Password.",
        Field::kConfirmedPassword);
    row("confirmed otherwise", {"Nobody", "x", "new", "New"},
        "New Password and Confirm Password not Match.", Field::kConfirmedPassword);
    row("unknown user", {"Nobody", "x", "new", "new"}, "User Not Found!", Field::kChangedName);
    row("wrong old password", {"Ravi", "secret", "new", "new"}, "Old Password is Incorrect.",
        Field::kOldPassword);
    row("administrator's wrong old password", {"Administrator", "Secret", "new", "new"},
        "Old Password is Incorrect.", Field::kOldPassword);
    const QString endless(5000, QChar('X'));
    row("endless password", {"Ravi", "Secret", endless, endless}, "Password is too Long.",
        Field::kNewPassword);
  }
  void FirstBrokenRuleOfAChangeIsNamed() {
    const auto [boxes, text, field] = test::Table<QStringList, QString, Field>::Row();
    const QStringList before = test::Contents(**database_, {"LoginId", "LoginPassword"});
    const MaybeRefusal refusal =
        NewLogin().ChangePassword({boxes[0], boxes[1], boxes[2], boxes[3]});
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), field);
    QCOMPARE(test::Contents(**database_, {"LoginId", "LoginPassword"}), before);
    QCOMPARE(Key().AdminPass(), QString());
  }

  void ChangedPasswordIsTheOneThatAdmits_data() {
    const test::Table<QString, QString> row;
    row("user", "ravi", "Secret");
    row("administrator", "Administrator", "tavel");
  }
  void ChangedPasswordIsTheOneThatAdmits() {
    const auto [name, old_password] = test::Table<QString, QString>::Row();
    const QString fresh = QStringLiteral("नया, 'n\"ew; \\ =%");
    QCOMPARE(TextOf(NewLogin().ChangePassword({name, old_password, fresh, fresh})), kAccepted);
    QCOMPARE(TextOf(NewLogin().LogIn(name, fresh)), kAccepted);
    QCOMPARE(TextOf(NewLogin().LogIn(name, old_password)), kInvalid);
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
