#include "core/ledger/Rebuild.h"
#include "masters/brokers/BrokerBook.h"
#include "support/DatabaseTest.h"
#include "support/StopAfter.h"

using namespace quorvane;
using namespace quorvane::brokers;
using test::TextOf;

namespace {

Broker NewBroker(const QString& name) {
  Broker broker;
  broker.name = name;
  return broker;
}

}  // namespace

class BrokerBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() {
    test::Empty(**database_, {"Broker", "BrOpBal", "BrPayment", "BrRec", "SPMaster", "SPTrans",
                              "Stock", "Stock_Temp", "ClientInfo"});
  }

  void SavedBrokerReadsBackAndAChangedOneKeepsItsKey() {
    Broker first = NewBroker("FIRST");
    Broker second = NewBroker("SECOND");
    QVERIFY(!test::Save(Book(), first));
    QVERIFY(!test::Save(Book(), second));
    second.name = QStringLiteral("O'BRIEN & SONS \\ शाह");
    second.contact = {"1, FORT\nROAD", "MUMBAI", "MAHARASHTRA", "40000100001", "022", "1", "2", "3",
                      "a@b.example"};
    QVERIFY(!test::Save(Book(), second));
    QCOMPARE(test::Rows(**database_, "Select Id,Name From Broker Order By Id"),
             QStringList({"1|FIRST", "2|" + second.name}));
    QVERIFY(Book().Load(second.id)->contact == second.contact);
  }

  void BrokenRuleChangesNothing_data() {
    const test::Table<QString, QString, QString, Field> row;
    row("no name", " ", QString(101, QChar('e')), "Enter Name.", Field::kName);
    row("long e-mail", "NAME", QString(101, QChar('e')),
        "E-Mail is too Long. At Most 100 Characters are Allowed.", Field::kEmail);
  }
  void BrokenRuleChangesNothing() {
    const auto [name, email, text, field] = test::Table<QString, QString, QString, Field>::Row();
    Broker broker = NewBroker("STORED");
    QVERIFY(!test::Save(Book(), broker));
    broker.name = name;
    broker.contact.email = email;
    const MaybeRefusal refusal = test::Save(Book(), broker);
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), field);
    QCOMPARE(Book().List()[0].name, "STORED");
  }

  void DeleteTakesTheBrokersRecordsAndTheirLots() {
    FillTwoBrokers();
    Progress progress;
    Book().Delete(BrokerId{1}, progress);
    for (const char* table : {"BrOpBal", "BrPayment", "BrRec"}) {
      QCOMPARE(test::Rows(**database_, fmt::format("Select BrId From {}", table)),
               QStringList("2"));
    }
    QCOMPARE(test::Rows(**database_, "Select Name From Broker"), QStringList("STAYS"));
    QCOMPARE(test::Rows(**database_, "Select ID From SPMaster"), QStringList("2"));
    // The bill's lines go by the bill, not by a number that happens to be the broker's.
    QCOMPARE(test::Rows(**database_, "Select SID,Qty From SPTrans Order By SID"),
             QStringList({"1|3", "2|5"}));
    // Every client's lots of every year are what the remaining bills say.
    QCOMPARE(Lots(), QStringList({"1|2010-11|1|0", "1|2011-12|2|5", "2|2011-12|3|0"}));
  }

  void CancelledDeleteLeavesEverything_data() {
    const test::Table<int> row;
    row("at the first step", 1);
    row("at the last step", 4);
  }
  void CancelledDeleteLeavesEverything() {
    const auto [steps] = test::Table<int>::Row();
    FillTwoBrokers();
    const QStringList before = Everything();
    test::StopAfter progress(steps);
    QVERIFY_EXCEPTION_THROWN(Book().Delete(BrokerId{1}, progress), Cancellation);
    QCOMPARE(Everything(), before);
    // The connection serves again.
    Progress patient;
    Book().Delete(BrokerId{1}, patient);
    QCOMPARE(Book().List().size(), std::size_t{1});
  }

 private:
  BrokerBook Book() { return BrokerBook(**database_); }

  QStringList Lots() {
    return test::Rows(**database_, "Select Cid,Fyear,Id,Qty From Stock Order By Id");
  }

  QStringList Everything() {
    return test::Contents(**database_, {"Broker", "BrOpBal", "BrPayment", "BrRec", "SPMaster",
                                        "SPTrans", "Stock", "Stock_Temp"});
  }

  /// Broker 1 has the bills 10 and 11 of two clients and years, broker 2 bill 2. A line without a
  /// header has broker 1's number as its bill.
  void FillTwoBrokers() {
    test::TestDatabase& database = *database_;
    for (const char* name : {"GOES", "STAYS"}) {
      Broker broker = NewBroker(name);
      static_cast<void>(test::Save(Book(), broker));
      for (const char* table : {"BrOpBal", "BrPayment", "BrRec"}) {
        database->Execute(fmt::format("Insert Into {}(Cid,Id,BrId) Values(1,?,?)", table),
                          broker.id, broker.id);
      }
    }
    AddPurchase(10, 1, 1, "2010-11", 1, 10);
    AddPurchase(2, 2, 1, "2011-12", 2, 5);
    AddPurchase(11, 1, 2, "2011-12", 3, 7);
    database->Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,ScriptId,Qty,Rate) Values(9,'2011-12',1,1,1,1,3,"
        "100)");
    database->Execute("Insert Into Stock_Temp(Cid,Fyear,Id) Values(1,'2011-12',1)");
  }

  void AddPurchase(int bill, int broker, int client, const char* year, int lot, double quantity) {
    test::TestDatabase& database = *database_;
    database->Execute("Insert Into SPMaster(Cid,Fyear,ID,BrokId,AcId) Values(?,?,?,?,?)", client,
                      year, bill, broker, client);
    database->Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate) "
        "Values(?,?,?,1,1,?,1,?,100)",
        client, year, bill, lot, quantity);
    database->Execute("Insert Into Stock Values(?,?,?,?,1,?,100)", client, year, lot, client,
                      quantity);
  }
};

static const test::RegisterTest<BrokerBookTest> kRegistered;
#include "BrokerBookTest.moc"
