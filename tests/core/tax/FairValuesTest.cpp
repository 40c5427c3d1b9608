#include "core/tax/FairValues.h"
#include "support/DatabaseTest.h"

#include <limits>

using namespace quorvane;
using namespace quorvane::tax;

class FairValuesTest : public test::DeskTest {
  Q_OBJECT

  database::Connection& Connection() { return desk_->Connection(); }

  void Run(const char* sql) { Connection().Execute(sql); }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(Connection(), {"FairValue", "CorpActionLot"});
  }

  void ARateIsAboveZeroAndNoNonsense() {
    QVERIFY(!CheckFairValue(0.05));
    for (const double bad : {0.0, -0.01, 1e9, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
      QVERIFY(CheckFairValue(bad));
    }
  }

  void WhatIsNotNamedStays() {
    const ScripId a{1};
    const ScripId b{2};
    const ScripId c{3};
    database::InTransaction(Connection(), [&](database::Transaction& transaction) {
      SaveFairValues(transaction, {{a, 964.9}, {b, 1.05}, {c, 7}});
      SaveFairValue(transaction, b, 0.1 + 0.2);
      RemoveFairValue(transaction, c);
    });
    QCOMPARE(ReadFairValues(Connection()), FairValues({{a, 964.9}, {b, 0.1 + 0.2}}));
  }

  void ScripsAreToldByTheDayOfTheirAcquisition_data() {
    const test::Table<const char*, bool> row;
    row("opening of the day",
        "Insert Into StkOpBal(CId,Fyear,ScriptId,PDate) "
        "Values(1,'2020-21',9,'31/01/2018')",
        true);
    row("opening of the day after",
        "Insert Into StkOpBal(CId,Fyear,ScriptId,PDate) "
        "Values(1,'2020-21',9,'01/02/2018')",
        false);
    row("opening of the year, without a day",
        "Insert Into StkOpBal(CId,Fyear,ScriptId,PDate) "
        "Values(1,'2017-18',9,'')",
        true);
    row("opening of a later year, without a day",
        "Insert Into StkOpBal(CId,Fyear,ScriptId,PDate) Values(1,'2018-19',9,'')", false);
    row("opening of F&O",
        "Insert Into StkOpBal(CId,Fyear,ScriptId,PDate,FO) "
        "Values(1,'2011-12',9,'31/01/2011',1)",
        false);
    row("purchase", "Insert Into SPTrans(Cid,SID,ScriptId,SP) Values(1,1,9,1)", true);
    row("sale", "Insert Into SPTrans(Cid,SID,ScriptId,SP) Values(1,1,9,0)", false);
    row("purchase of F&O", "Insert Into SPTrans(Cid,SID,ScriptId,SP,FO) Values(1,1,9,1,1)", false);
    row("purchase too late", "Insert Into SPTrans(Cid,SID,ScriptId,SP) Values(1,2,9,1)", false);
    row("by an action that keeps the day",
        "Insert Into CorpActionLot(ActionId,Id,CId,ScrId,ToScrId,"
        "InQty,Acquired) Values(1,1,1,8,9,5,'30/12/2017')",
        true);
    row("bonus of a later day",
        "Insert Into CorpActionLot(ActionId,Id,CId,ScrId,ToScrId,InQty,"
        "Acquired) Values(1,1,1,8,9,5,'30/12/2018')",
        false);
  }
  void ScripsAreToldByTheDayOfTheirAcquisition() {
    const auto [sql, acquired] = test::Table<const char*, bool>::Row();
    Run("Insert Into SPMaster(Cid,ID,BDate) Values(1,1,'31/01/2018'),(1,2,'01/02/2018')");
    Run(sql);
    const std::set<ScripId> wanted = acquired ? std::set<ScripId>{ScripId{9}} : std::set<ScripId>{};
    QVERIFY(ScripsAcquiredByFairValueDay(Connection()) == wanted);
    QVERIFY(ScripsAcquiredByFairValueDay(Connection(), ClientId{1}) == wanted);
    QVERIFY(ScripsAcquiredByFairValueDay(Connection(), ClientId{2}).empty());
  }

  // 1 gave to 2, and 2 to 3; what 4 has came from nobody who had it by then.
  void WhatIsGivenOnKeepsItsDay() {
    Run("Insert Into StkOpBal(CId,Fyear,ScriptId) Values(1,'2011-12',9)");
    Run("Insert Into ScrTransfer(Cid,ToClientID,ScrId) Values(2,3,9),(1,2,9),(5,4,9),(1,4,8)");
    for (const auto& [client, has] : {std::pair{1, true}, {2, true}, {3, true}, {4, false}}) {
      QCOMPARE(ScripsAcquiredByFairValueDay(Connection(), ClientId{client}).contains(ScripId{9}),
               has);
    }
  }
};

static const test::RegisterTest<FairValuesTest> kRegistered;
#include "FairValuesTest.moc"
