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
    MaybeRefusal refusal = CheckEntries(client);
    refusal = refusal ? refusal : CheckValues(client, {});
    QTEST(test::TextOfRefusal(refusal), "text");
    QTEST(test::FieldOfRefusal(refusal), "field");
  }

  void UnchangedValuesOfAnOlderRecordStopNoSave() {
    Client stored = Complete();
    stored.date_of_birth = QStringLiteral("00/00/0000");
    stored.pan = QStringLiteral("A1");
    Client client = stored;
    QCOMPARE(test::TextOfRefusal(CheckValues(client, stored)), QStringLiteral("accepted"));
    client.date_of_birth = QStringLiteral("00/00/0001");
    QCOMPARE(test::FieldOfRefusal(CheckValues(client, stored)), QStringLiteral("MaskEdBox1"));
    client.date_of_birth.clear();
    client.pan = QStringLiteral("A2");
    QCOMPARE(test::FieldOfRefusal(CheckValues(client, stored)), QStringLiteral("Text1_11"));
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
