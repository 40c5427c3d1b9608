#include "masters/Records.h"
#include "masters/clients/Client.h"
#include "support/TestMain.h"

#include <QTest>

#include <functional>

using namespace quorvane;
using namespace quorvane::clients;

namespace {

using Edit = std::function<void(Client&)>;

Client Complete() {
  Client client;
  client.code = QStringLiteral("C1");
  client.name = QStringLiteral("O'BRIEN");
  client.accounts.push_back({});
  client.accounts.back().number = QStringLiteral("1001");
  return client;
}

}  // namespace

Q_DECLARE_METATYPE(Edit)

class ClientTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FirstBrokenRuleIsNamed_data() {
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    const auto row = [](const char* name, const char* text, const char* field, const Edit& edit) {
      QTest::newRow(name) << edit << QString(text) << QString(field);
    };
    row("complete", "accepted", "none", [](Client&) {});
    row("nothing at all", "Enter Client Code.", "Text1_0", [](Client& c) { c = {}; });
    row("code of blanks", "Enter Client Code.", "Text1_0", [](Client& c) { c.code = "  "; });
    row("name and accounts", "Enter Client Name.", "Text1_2", [](Client& c) {
      c.name.clear();
      c.accounts.clear();
    });
    row("no account", "Enter Demat A/c Details.", "VS", [](Client& c) { c.accounts.clear(); });
    row("account without a number", "Enter Demat A/c Details.", "VS", [](Client& c) {
      c.accounts[0].number = " ";
      c.accounts[0].participant = ParticipantId{1};
      c.pan = "X";
    });
    row("one account of two", "accepted", "none",
        [](Client& c) { c.accounts.insert(c.accounts.begin(), Account{}); });
    row("day that is none", "Enter Proper Date.", "MaskEdBox1", [](Client& c) {
      c.date_of_birth = "30/02/1970";
      c.pan = "X";
    });
    row("number of nine characters", "Enter Proper PAN.", "Text1_11",
        [](Client& c) { c.pan = "ABCPE1234"; });
    row("small letters in the number", "Enter Proper PAN.", "Text1_11",
        [](Client& c) { c.pan = "abcpe1234f"; });
    row("number that only warns", "accepted", "none", [](Client& c) { c.pan = "ABCXE1234F"; });
    row("long account number", "Demat A/c No. is too Long. At Most 100 Characters are Allowed.",
        "VS", [](Client& c) { c.accounts[0].number = QString(101, QChar('9')); });
    row("long PIN", "PIN is too Long. At Most 10 Characters are Allowed.", "Text1_5",
        [](Client& c) { c.contact.pin = "12345678901"; });
    row("long e-mail", "E-Mail is too Long. At Most 255 Characters are Allowed.", "Text1_10",
        [](Client& c) { c.contact.email = QString(256, QChar('e')); });
    row("long state", "State is too Long. At Most 255 Characters are Allowed.", "Combo1",
        [](Client& c) { c.contact.state = QString(256, QChar('e')); });
    row("long address", "accepted", "none",
        [](Client& c) { c.contact.address = QString(5000, QChar('e')); });
  }

  void FirstBrokenRuleIsNamed() {
    QFETCH(const Edit, edit);
    Client client = Complete();
    edit(client);
    const MaybeRefusal refusal = CheckClient(client);
    QTEST(test::TextOfRefusal(refusal), "text");
    QTEST(test::FieldOfRefusal(refusal), "field");
  }

  void DateOfBirthIsCompleted_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("whole") << "01/02/1970"
                           << "01/02/1970";
    QTest::newRow("short") << "1.2.85"
                           << "01/02/1985";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("empty mask") << "__/__/____"
                                << "";
    QTest::newRow("blank mask") << "  /  /    "
                                << "";
    QTest::newRow("no date") << "31/11/1970"
                             << "Enter Proper Date.";
    QTest::newRow("half a mask") << "01/0_/____"
                                 << "Enter Proper Date.";
  }

  void DateOfBirthIsCompleted() {
    QFETCH(QString, typed);
    QFETCH(const QString, stored);
    const QString before = typed;
    const MaybeRefusal refusal = CompleteDateOfBirth(typed, *text::MakeDate(1, 6, 2011));
    QCOMPARE(refusal ? refusal->text : typed, stored);
    QVERIFY(!refusal || typed == before);
  }

  void OnlyNewRowsThatSayNothingAreBlank() {
    Account account;
    QVERIFY(IsBlank(account));
    account.number = QStringLiteral(" ");
    QVERIFY(IsBlank(account));
    account.id = AccountId{3};
    QVERIFY(!IsBlank(account));
    account = {};
    account.participant = ParticipantId{1};
    QVERIFY(!IsBlank(account));
  }
};

static const test::RegisterTest<ClientTest> kRegistered;

#include "ClientTest.moc"
