#include "core/lookups/Choices.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

using namespace quorvane::lookups;
using quorvane::AccountId;
using quorvane::ClientId;
using quorvane::ParticipantId;
using quorvane::database::Connection;
using quorvane::test::TestDatabase;

namespace {

using MakeList = std::function<QString(Connection&)>;
namespace test = quorvane::test;

QString Shown(const std::vector<Item>& items) {
  QString text;
  for (const Item& item : items) {
    text += QStringLiteral("%1=%2 ").arg(item.id).arg(item.text);
  }
  return text;
}

MakeList Grid(Choices choices) {
  return [=](Connection& connection) { return ChoiceList(connection, choices); };
}

MakeList Box(DropDown list) {
  return [=](Connection& connection) { return Shown(DropDownItems(connection, list)); };
}

constexpr ClientId kClient{7};
constexpr ParticipantId kParticipant{2};

}  // namespace

Q_DECLARE_METATYPE(MakeList)

/// What grids and drop-down lists offer, and in which order.
class ChoicesTest : public QObject {
  Q_OBJECT

  std::optional<TestDatabase> empty_;
  std::optional<TestDatabase> filled_;

 private Q_SLOTS:
  void initTestCase() {
    empty_.emplace();
    filled_.emplace();
    for (const char* table : {"ScriptType", "ScriptClass", "Exchange", "STTPer"}) {
      (*empty_)->Execute(std::string("Delete From ") + table);
    }
    // The lookup tables in an order that is neither the one by key nor the one by name.
    for (const char* insert : {
             "Insert Into DepPart(Id,Name) Values(2,'NSDL House'),(1,'CDSL & Sons'),(3,'O''Brien')",
             "Insert Into DpIDs Values(2,1,'IN300011'),(1,2,'12010600'),(2,3,'IN300022')",
             "Insert Into Broker(Id,Name) Values(1,'Mehta'),(2,'Zaveri'),(3,'Amin')",
             "Insert Into Script Values(1,'500325','RELIANCE',1,1,'RIL')",
             "Insert Into Script Values(2,'500180','HDFC BANK',1,1,'HDFCB')",
             "Insert Into Script Values(3,'532540','TCS',1,1,'AAA')",
             "Insert Into ClientActDet Values(6,10,0,0,'D-4'),(7,11,0,0,'B-2'),(8,12,0,0,'C-3'),"
             "(7,13,0,0,'A-1')",
             "Insert Into STTPer Values(5,0.01)",
         }) {
      (*filled_)->Execute(insert);
    }
  }

  void cleanupTestCase() {
    empty_.reset();
    filled_.reset();
  }

  void ListsHoldTheirRecordsInTheirOrder_data() {
    const test::Table<MakeList, QString> row;
    row("grid: participants", Grid(Choices::kParticipants),
        "#2;NSDL House|#1;CDSL & Sons|#3;O'Brien|");
    row(
        "grid: depository ids",
        [](Connection& connection) { return DpIdChoiceList(connection, kParticipant); },
        "#1;IN300011|#3;IN300022|");
    row("grid: types", Grid(Choices::kScripTypes),
        "#1;EQUITY|#2;BOND|#3;DEBENTURE|#4;UNIT|#5;BSE 500 SHARE|");
    row("grid: classes", Grid(Choices::kScripClasses), "#1;A|#2;B|#3;C|");
    row("grid: scrip names", Grid(Choices::kScripNames), "#3;TCS|#1;RELIANCE|#2;HDFC BANK|");
    row("grid: scrip codes by name", Grid(Choices::kScripCodes), "#3;532540|#1;500325|#2;500180|");
    row("grid: NSE codes by name", Grid(Choices::kScripNseCodes), "#3;AAA|#1;RIL|#2;HDFCB|");
    row(
        "grid: a client's accounts",
        [](Connection& connection) { return AccountChoiceList(connection, kClient); },
        "#11;B-2|#13;A-1|");
    row("grid: all accounts", Grid(Choices::kAccounts), "#10;D-4|#11;B-2|#12;C-3|#13;A-1|");
    row("grid: brokers", Grid(Choices::kBrokers), "#2;Zaveri|#1;Mehta|#3;Amin|");
    row("box: types", Box(DropDown::kScripTypes),
        "2=BOND 5=BSE 500 SHARE 3=DEBENTURE 1=EQUITY 4=UNIT ");
    row("box: classes", Box(DropDown::kScripClasses), "1=A 2=B 3=C ");
    row("box: exchanges", Box(DropDown::kExchanges), "2=BSE 1=NSE ");
    row("box: STT percentages", Box(DropDown::kSttPercentages),
        "1=0 5=0.01 4=0.017 2=0.025 3=0.125 ");
    row("box: brokers", Box(DropDown::kBrokers), "3=Amin 1=Mehta 2=Zaveri ");
    row("box: scrips", Box(DropDown::kScrips), "1=RELIANCE 2=HDFC BANK 3=TCS ");
    row(
        "box: a client's accounts",
        [](Connection& connection) { return Shown(AccountItems(connection, kClient)); },
        "11=B-2 13=A-1 ");
    row(
        "box: accounts of others",
        [](Connection& connection) { return Shown(AccountItemsOfOthers(connection, kClient)); },
        "10=D-4 12=C-3 ");
  }
  void ListsHoldTheirRecordsInTheirOrder() {
    const auto [make, expected] = test::Table<MakeList, QString>::Row();
    QCOMPARE(make(**filled_), expected);
    QCOMPARE(make(**empty_), QString());
  }

  void AccountKnowsItsClient() {
    QCOMPARE(AccountOwner(**filled_, AccountId{12}), ClientId{8});
    QCOMPARE(AccountOwner(**filled_, AccountId{13}), kClient);
    QVERIFY(!AccountOwner(**filled_, AccountId{99}));
  }

  void RecordsAddedMeanwhileAreOfferedNext() {
    TestDatabase database;
    const ClientId client = database.AddClient(QStringLiteral("K1"));
    QVERIFY(AccountItems(*database, client).empty());
    const AccountId account = database.AddAccount(client, QStringLiteral("IN1/2"));
    const std::vector<Item> expected{{account.value, QStringLiteral("IN1/2")}};
    QCOMPARE(AccountItems(*database, client), expected);
  }
};

static const quorvane::test::RegisterTest<ChoicesTest> kRegistered;
#include "ChoicesTest.moc"
