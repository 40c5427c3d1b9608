#include "masters/clients/Client.h"
#include "masters/clients/ClientBook.h"
#include "masters/clients/Documents.h"
#include "support/DatabaseTest.h"
#include "support/Files.h"

#include <stdexcept>

using namespace quorvane;
using namespace quorvane::clients;
using test::TextOf;

namespace {

const QString kAccepted = QStringLiteral("accepted");
const QString kTaken = QStringLiteral("Client Code Already Exists.");

Account NewAccount(const QString& number) {
  Account account;
  account.participant = ParticipantId{4};
  account.dp_id = DpIdId{9};
  account.number = number;
  return account;
}

Client NewClient(const QString& code, const QStringList& numbers = {QStringLiteral("1001")}) {
  Client client;
  client.code = code;
  client.name = QStringLiteral("NAME OF ") + code;
  for (const QString& number : numbers) {
    client.accounts.push_back(NewAccount(number));
  }
  return client;
}

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

class ClientBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() { folder_ = std::make_unique<QTemporaryDir>(); }
  void cleanup() {
    (*database_)->Execute("Drop View If Exists Seen");
    (*database_)->Execute("Drop Table If Exists `Later ``one`,Unrelated,ZRefers,ZLast");
    test::Empty(**database_, {"ClientInfo", "ClientActDet", "DpIDs", "StkOpBal", "BrOpBal", "Stock",
                              "Stock_Temp", "SPMaster", "SPTrans", "BrPayment", "BrRec",
                              "ScrTransfer", "ScriptAvgRate", "RemovedAccount"});
  }

  void SavedClientReadsBackAsItWas() {
    const QString name =
        QStringLiteral("O'BRIEN \"&\" \\ '; Delete From ClientInfo; -- ? शाह \U0001F600");
    Client client = NewClient(QStringLiteral("C'1"), {QStringLiteral("IN'1"), "2"});
    client.group_code = name.left(50);
    client.name = name;
    client.contact = {name + "\n2nd line", "MUMBAI", "MAHARASHTRA", "400001", "022", "1", "2", "3",
                      "a@b.example"};
    client.date_of_birth = QStringLiteral("29/02/1960");
    client.pan = QStringLiteral("ABCPE1234F");
    client.sex = 1;
    client.marital_status = 2;
    QCOMPARE(TextOf(test::Save(Book(), client)), kAccepted);

    const std::optional<Client> read = Book().Load(client.id);
    QVERIFY(read);
    QCOMPARE(read->code, client.code);
    QCOMPARE(read->group_code, client.group_code);
    QCOMPARE(read->name, name);
    QVERIFY(read->contact == client.contact);
    QCOMPARE(read->date_of_birth, client.date_of_birth);
    QCOMPARE(read->pan, client.pan);
    QCOMPARE(read->sex, 1);
    QCOMPARE(read->marital_status, 2);
    QCOMPARE(test::Rows(**database_, "Select * From ClientActDet Order By id"),
             QStringList({"1|1|4|9|IN'1", "1|2|4|9|2"}));
  }

  void CodeOfAnotherClientIsRefused() {
    const QString code("o'n ");
    Client first = NewClient("O'N");
    Client second = NewClient("C2", {"2001"});
    QVERIFY(!test::Save(Book(), first));
    QVERIFY(!test::Save(Book(), second));
    const QStringList before = Everything();

    Client fresh = NewClient(code, {"3001"});
    QCOMPARE(TextOf(test::Save(Book(), fresh)), kTaken);
    QCOMPARE(fresh.id.value, 0);
    const QString second_code = second.code;
    second.code = code;
    second.accounts.push_back(NewAccount("2002"));
    QCOMPARE(TextOf(test::Save(Book(), second)), kTaken);
    QCOMPARE(second.accounts.back().id.value, 0);
    QCOMPARE(Everything(), before);

    first.name = QStringLiteral("UNDER ITS OWN CODE");
    QCOMPARE(TextOf(test::Save(Book(), first)), kAccepted);
    QCOMPARE(Book().Load(first.id)->name, first.name);
    QCOMPARE(Book().List().front().code, second_code);
    QCOMPARE(Book().List().size(), std::size_t{2});
  }

  void RemovedAccountsIdIsNotGivenToOneAddedInTheSameSave() {
    Client client = NewClient("C1", {"1001", "1002"});
    QVERIFY(!test::Save(Book(), client));
    client.accounts.back() = NewAccount("1003");
    QVERIFY(!test::Save(Book(), client));
    QCOMPARE(Accounts(), QStringList({"1|1|1001", "1|3|1003"}));
  }

  // Removed and entered again in one save, or a save later.
  void AccountThatRecordsNameKeepsItsIdWhenItIsEnteredAgain_data() {
    const test::Table<QString, bool, bool> row;
    const QString bill("Insert Into SPMaster(Cid,AcId) Values(?,?)");
    row("in one save", bill, false, true);
    row("named by a bill", bill, true, true);
    row("named by a transfer", "Insert Into ScrTransfer(Cid,ToAcId) Values(?+1,?)", true, true);
    row("named by none", "Insert Into SPMaster(Cid,AcId) Values(?,?+1000)", true, false);
  }
  void AccountThatRecordsNameKeepsItsIdWhenItIsEnteredAgain() {
    const auto [record, saved_between, same] = test::Table<QString, bool, bool>::Row();
    Client client = NewClient("C1", {"1001", "1002"});
    QVERIFY(!test::Save(Book(), client));
    const AccountId first = client.accounts[0].id;
    (*database_)->Execute(record.toStdString(), client.id, first);
    client.accounts.erase(client.accounts.begin());
    if (saved_between) {
      QVERIFY(!test::Save(Book(), client));
    }
    client.accounts.push_back(NewAccount(QStringLiteral(" 1001 ")));
    client.accounts.push_back(NewAccount(QStringLiteral("1001")));
    client.accounts.back().participant = ParticipantId{5};
    QVERIFY(!test::Save(Book(), client));
    QCOMPARE(client.accounts[1].id == first, same);
    QVERIFY(client.accounts[2].id != first);
    QCOMPARE(test::Rows(**database_, "Select id From RemovedAccount"), QStringList());
  }

  void IdOfAnAccountThatIsNotTheClientsIsNotTaken() {
    Client client = NewClient("C1", {"1001"});
    Client other = NewClient("C2", {"2001"});
    QVERIFY(!test::Save(Book(), client));
    QVERIFY(!test::Save(Book(), other));
    client.accounts.push_back(other.accounts[0]);
    client.accounts.push_back(client.accounts[0]);
    QVERIFY(!test::Save(Book(), client));
    QCOMPARE(Accounts(), QStringList({"1|1|1001", "1|3|2001", "1|4|1001", "2|2|2001"}));
  }

  void DeleteReachesEveryTableKeyedByTheClient() {
    const ClientId gone = Saved("C1");
    const ClientId stays = Saved("C2");
    (*database_)->Execute("Create Table `Later ``one` (cID int, Note varchar(10))");
    (*database_)->Execute("Create Table Unrelated (Id int, Cid int)");
    (*database_)->Execute("Create View Seen As Select Cid,Fyear From Stock");
    const QStringList keyed{"ClientActDet",  "StkOpBal", "BrOpBal",      "Stock", "Stock_Temp",
                            "SPMaster",      "SPTrans",  "BrPayment",    "BrRec", "ScrTransfer",
                            "ScriptAvgRate", "TaxLoss",  "`Later ``one`"};
    for (const ClientId client : {gone, stays}) {
      for (const QString& table : keyed) {
        (*database_)
            ->Execute(fmt::format("Insert Into {}(Cid) Values(?)", table.toStdString()), client);
      }
      (*database_)->Execute("Insert Into Unrelated Values(1,?)", client);
    }
    Book().Delete(gone);
    for (const QString& table : keyed) {
      const QStringList left =
          test::Rows(**database_, fmt::format("Select Distinct Cid From {}", table.toStdString()));
      QVERIFY2(left == QStringList(QString::number(stays.value)), qPrintable(table));
    }
    QCOMPARE(test::Rows(**database_, "Select Count(*) From Unrelated"), QStringList("2"));
    QCOMPARE(Book().List().size(), std::size_t{1});
  }

  void FailedDeleteLeavesEverything() {
    const ClientId client = Saved("C1");
    // The last table of the scan refuses.
    (*database_)->Execute("Create Table ZLast (Cid int Primary Key)");
    (*database_)->Execute("Insert Into ZLast Values(?)", client);
    (*database_)
        ->Execute(
            "Create Table ZRefers (Id int, Owner int, Foreign Key (Owner) References ZLast(Cid))");
    (*database_)->Execute("Insert Into ZRefers Values(1,?)", client);
    auto incoming = Documents().Receive(Write("sign.txt", "sign"));
    Documents().Place(client, std::move(*incoming));
    const QStringList before = Everything();
    QVERIFY_EXCEPTION_THROWN(Book().Delete(client), database::DatabaseError);
    QCOMPARE(Everything(), before);
    QVERIFY(Documents().Path(client, "sign.txt"));
  }

  void DocumentFollowsTheClient() {
    Client client = NewClient("C1");
    QVERIFY(!test::Save(Book(), client, Write("sign.txt", "first")));
    QCOMPARE(client.document, "sign.txt");
    QCOMPARE(Stored(client), QByteArray("first"));

    client.name = QStringLiteral("WITHOUT A NEW DOCUMENT");
    QVERIFY(!test::Save(Book(), client));
    QCOMPARE(Stored(client), QByteArray("first"));

    QVERIFY(!test::Save(Book(), client, Write("other.pdf", "second")));
    QCOMPARE(Book().Load(client.id)->document, "other.pdf");
    QCOMPARE(Stored(client), QByteArray("second"));
    QVERIFY(!Documents().Path(client.id, "sign.txt"));

    client.document.clear();
    QVERIFY(!test::Save(Book(), client));
    QCOMPARE(Book().Load(client.id)->document, QString());
    QVERIFY(!QFile::exists(folder_->filePath("SignDocs/1")));
  }

  void RefusedSaveKeepsTheOldDocument() {
    Client client = NewClient("C1");
    QVERIFY(!test::Save(Book(), client, Write("sign.txt", "first")));
    Saved("C2");
    const QStringList before = Everything();
    Client changed = client;
    changed.code = QStringLiteral("C2");
    QCOMPARE(TextOf(test::Save(Book(), changed, Write("new.txt", "second"))), kTaken);
    QCOMPARE(changed.document, "sign.txt");
    QCOMPARE(TextOf(test::Save(Book(), client, folder_->filePath("vanished.txt"))),
             "File does not Exist.");
    QCOMPARE(client.document, "sign.txt");
    QCOMPARE(Everything(), before);
    QCOMPARE(Stored(client), QByteArray("first"));
    QCOMPARE(QDir(folder_->filePath("SignDocs")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList("1"));
  }

  void NameOfAFileThatIsNotTheClientsIsRefused() {
    const QString name("../2/sign.txt");
    Client client = NewClient("C1");
    QVERIFY(!test::Save(Book(), client));
    Client other = NewClient("C2", {"2001"});
    QVERIFY(!test::Save(Book(), other, Write("sign.txt", "other's")));
    client.document = name;
    QCOMPARE(TextOf(test::Save(Book(), client)), "File does not Exist.");
    Client fresh = NewClient("C3");
    fresh.document = name;
    QCOMPARE(TextOf(test::Save(Book(), fresh)), "File does not Exist.");
    QCOMPARE(Book().List().size(), std::size_t{2});
  }

  void DeletedClientsDocumentGoes() {
    Client client = NewClient("C1");
    QVERIFY(!test::Save(Book(), client, Write("sign.txt", "first")));
    Client other = NewClient("C2", {"2001"});
    QVERIFY(!test::Save(Book(), other, Write("sign.txt", "second")));
    Book().Delete(client.id);
    QVERIFY(!QFile::exists(folder_->filePath("SignDocs/1")));
    QCOMPARE(Stored(other), QByteArray("second"));
    Book().Delete(ClientId{});
    QCOMPARE(Stored(other), QByteArray("second"));
  }

  void FailureToFileSaysThatTheClientIsSaved() {
    QVERIFY(QDir(folder_->path()).mkpath("SignDocs/1/sign.txt/full"));
    Client client = NewClient("C1");
    try {
      static_cast<void>(test::Save(Book(), client, Write("sign.txt", "first")));
      QFAIL("a folder stands in the way");
    } catch (const DocumentNotFiled& error) {
      QVERIFY(QString(error.what()).startsWith("The Client is Saved, but the Document"));
      client.id = error.Client();
    }
    QCOMPARE(client.id.value, 1);
    QVERIFY(Book().Load(client.id));
  }

  void FirstBrokenRuleIsNamed_data() {
    const test::Table<QString, Field, Edit> row;
    row("complete", "accepted", Field::kNone, [](Client&) {});
    row("nothing at all", "Enter Client Code.", Field::kCode, [](Client& c) { c = {}; });
    row("name and accounts", "Enter Client Name.", Field::kName, [](Client& c) {
      c.name.clear();
      c.accounts.clear();
    });
    row("no account", "Enter Demat A/c Details.", Field::kAccounts,
        [](Client& c) { c.accounts.clear(); });
    row("account without a number", "Enter Demat A/c Details.", Field::kAccounts, [](Client& c) {
      c.accounts[0].number = " ";
      c.accounts[0].participant = ParticipantId{1};
      c.pan = "X";
    });
    row("one account of two", "accepted", Field::kNone,
        [](Client& c) { c.accounts.insert(c.accounts.begin(), Account{}); });
    row("day that is none", "Enter Proper Date.", Field::kDateOfBirth, [](Client& c) {
      c.date_of_birth = "30/02/1970";
      c.pan = "X";
    });
    row("small letters in the number", "Enter Proper PAN.", Field::kPan,
        [](Client& c) { c.pan = "abcpe1234f"; });
    row("number that only warns", "accepted", Field::kNone,
        [](Client& c) { c.pan = "ABCXE1234F"; });
    row("long account number", "Demat A/c No. is too Long. At Most 100 Characters are Allowed.",
        Field::kAccounts, [](Client& c) { c.accounts[0].number = QString(101, QChar('9')); });
    row("long PIN", "PIN is too Long. At Most 10 Characters are Allowed.", Field::kPin,
        [](Client& c) { c.contact.pin = "12345678901"; });
  }
  void FirstBrokenRuleIsNamed() {
    const auto [text, field, edit] = test::Table<QString, Field, Edit>::Row();
    Client client = Complete();
    edit(client);
    MaybeRefusal refusal = CheckEntries(client);
    refusal = refusal ? refusal : CheckValues(client, {});
    QCOMPARE(test::TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), field);
  }

 private:
  documents::DocumentStore Documents() const {
    return documents::DocumentStore(folder_->filePath("SignDocs"));
  }
  ClientBook Book() { return ClientBook(**database_, Documents()); }

  ClientId Saved(const QString& code) {
    Client client = NewClient(code);
    if (test::Save(Book(), client)) {
      throw std::runtime_error("a test's client was refused");
    }
    return client.id;
  }

  QString Write(const QString& name, const QByteArray& content) const {
    return test::WriteFile(folder_->filePath(name), content);
  }

  QByteArray Stored(const Client& client) const {
    return test::ReadFile(Documents().Path(client.id, client.document).value_or(QString()));
  }

  QStringList Accounts() {
    return test::Rows(**database_, "Select CId,id,ACNo From ClientActDet Order By CId,id");
  }

  QStringList Everything() { return test::Contents(**database_, {"ClientInfo", "ClientActDet"}); }
  std::unique_ptr<QTemporaryDir> folder_;
};

static const test::RegisterTest<ClientBookTest> kRegistered;
#include "ClientBookTest.moc"
