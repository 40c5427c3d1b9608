#include "masters/brokers/window/FrmBroker.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::brokers;

namespace {

const QString kQuestion = QStringLiteral(
    "Are You Sure, You want to Delete this Record?\nAll Related Records Will be Deleted.");

}  // namespace

class FrmBrokerTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() {
    test::Empty(**database_, {"Broker", "BrPayment", "SPMaster", "SPTrans", "Stock", "Stock_Temp"});
  }

  void KeyboardAloneAddsABroker() {
    const test::ShownWindow<FrmBroker> shown(*database_);
    shown.AddByKeyboard({"o'brien & sons", "1 fort road\nby the mint", "mumbai", "mah", "400001",
                         "022", "55501", "98200", "55502", "Desk@Obrien.example"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Brokers(),
             QStringList("1|O'BRIEN & SONS|1 FORT ROAD\nBY THE MINT|MUMBAI|MAHARASHTRA|400001|022|"
                         "55501|98200|55502|Desk@Obrien.example"));
    QVERIFY(!shown->IsEditing());
    QCOMPARE(shown.ListRow(0),
             QStringList({"O'BRIEN & SONS", "MUMBAI", "MAHARASHTRA", "55501", "98200"}));
  }

  void BrokerThatIsSavedUntouchedStaysAsItWas() {
    AddBroker(4, "Mixed Case", "1, FORT\nROAD", "PUNE", "411001", "A STATE OF ITS OWN");
    const QStringList before = Brokers();
    const test::ShownWindow<FrmBroker> shown(*database_);
    shown->List().SelectId(4);
    shown.Click("cmdModify");
    shown.Click("cmdUpdate");
    QVERIFY(!shown->IsEditing());
    QCOMPARE(Brokers(), before);
  }

  void DeletedBrokerTakesBillsAlongAndHoldingsAreRecomputed() {
    AddBrokerWithBill();
    AddBroker(9, "STAYS");
    test::ShownWindow<FrmBroker> shown(*database_);
    shown->List().SelectId(4);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(shown.messages.Texts(), QStringList(kQuestion));
    QCOMPARE(test::Rows(**database_, "Select Id,Name From Broker"), QStringList("9|STAYS"));
    QCOMPARE(test::Contents(**database_, {"BrPayment", "SPMaster", "SPTrans"}), QStringList());
    QCOMPARE(test::Rows(**database_, "Select Id,Qty From Stock"), QStringList("1|0"));
    QCOMPARE(shown->List().Model().RowCount(), 1);
    QCOMPARE(shown.TextIn("Text1_0"), "STAYS");
  }

 private:
  QStringList Brokers() { return test::Rows(**database_, "Select * From Broker Order By Id"); }

  void AddBroker(int id, const char* name, const char* address = "", const char* city = "",
                 const char* pin = "", const char* state = "") {
    (*database_)
        ->Execute(
            "Insert Into Broker Values(?,?,?,?,?,?,'020','55501','98200','','desk@x.example')", id,
            QString(name), QString(address), QString(city), QString(state), QString(pin));
  }

  void AddBrokerWithBill() {
    AddBroker(4, "GOES");
    test::TestDatabase& database = *database_;
    database->Execute("Insert Into BrPayment(Cid,Id,BrId) Values(1,1,4)");
    database->Execute("Insert Into SPMaster(Cid,Fyear,ID,BrokId,AcId) Values(1,'2011-12',1,4,1)");
    database->Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate) "
        "Values(1,'2011-12',1,1,1,1,1,10,100)");
    database->Execute("Insert Into Stock Values(1,'2011-12',1,1,1,10,100)");
  }
};

static const test::RegisterTest<FrmBrokerTest> kRegistered;
#include "FrmBrokerTest.moc"
