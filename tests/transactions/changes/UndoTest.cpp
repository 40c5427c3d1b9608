#include "core/changes/Chain.h"
#include "core/changes/EditedRecord.h"
#include "core/changes/Undo.h"
#include "core/ledger/Rebuild.h"
#include "core/records/Masters.h"
#include "core/records/StatementCheck.h"
#include "core/records/Writing.h"
#include "support/DatabaseTest.h"
#include "support/Desk.h"
#include "support/Records.h"
#include "support/Save.h"
#include "transactions/bills/BillBook.h"
#include "transactions/broker_money/PaymentBook.h"
#include "transactions/corporate_actions/ActionBook.h"
#include "transactions/opening_stock/OpeningStockBook.h"
#include "transactions/transfers/TransferBook.h"

using namespace quorvane;
using test::Desk;
using test::TextOf;

namespace {

using Step = std::function<void(Desk&)>;

/// The bill of the start, with its lines.
bills::Bill Stored(Desk& desk) {
  return bills::BillBook(desk.Connection(), desk.of).Load(BillId{1}).value();
}

void Resave(Desk& desk, const std::function<void(bills::Bill&)>& edit) {
  bills::Bill bill = Stored(desk);
  edit(bill);
  const auto saved = bills::BillBook(desk.Connection(), desk.of).Save(bill);
  QVERIFY2(saved, qPrintable(saved ? QString() : saved.Why().text));
}

void AddBill(Desk& desk, std::vector<records::BillLine> lines) {
  bills::Bill bill = desk.NewBill(std::move(lines));
  bill.number = QStringLiteral("B/2");
  QCOMPARE(TextOf(test::Save(bills::BillBook(desk.Connection(), desk.of), bill)), test::kAccepted);
}

opening_stock::OpeningLot NewOpening(const Desk& desk) {
  opening_stock::OpeningLot lot;
  lot.scrip = desk.second_scrip;
  lot.account = desk.account;
  lot.quantity = text::Shares(30);
  lot.rate = 55.5;
  lot.total = 1665;
  lot.purchase_date = QStringLiteral("10/06/2010");
  return lot;
}

void AddOpening(Desk& desk) {
  opening_stock::OpeningLot lot = NewOpening(desk);
  QCOMPARE(TextOf(test::Save(opening_stock::OpeningStockBook(desk.Connection(), desk.of), lot)),
           test::kAccepted);
}

void MoveSome(Desk& desk) {
  records::Transfer transfer;
  transfer.date = QStringLiteral("01/07/2011");
  transfer.from = desk.account;
  transfer.to = desk.other_account;
  transfer.lot = desk.IdOfLot(100);
  transfer.quantity = text::Shares(4);
  QCOMPARE(TextOf(test::Save(transfers::TransferBook(desk.Connection(), desk.of), transfer)),
           test::kAccepted);
}

void Pay(Desk& desk) {
  broker_money::BrokerPayment payment;
  payment.broker = desk.broker;
  payment.transaction = 0;
  payment.amount = 125.5;
  payment.date = QStringLiteral("02/07/2011");
  payment.mode = broker_money::PaymentMode::kCash;
  QCOMPARE(TextOf(test::Save(broker_money::PaymentBook(
                                 desk.Connection(), broker_money::PaymentKind::kReceipt, desk.of),
                             payment)),
           test::kAccepted);
}

records::Action BonusOf(const Desk& desk) {
  records::Action action;
  action.kind = records::ActionKind::kBonus;
  action.scrip = desk.scrip;
  action.ex_day = QStringLiteral("01/09/2011");
  action.new_shares = text::Shares(1);
  action.old_shares = text::Shares(1);
  return action;
}

void Bonus(Desk& desk) {
  const auto saved = corporate_actions::ActionBook(desk.Connection()).Save(BonusOf(desk));
  QVERIFY2(saved, qPrintable(saved ? QString() : saved.Why().text));
}

void ApplyBonus(Desk& desk) {
  Progress quiet;
  corporate_actions::ActionBook book(desk.Connection());
  const ActionId id = book.List().front().id;
  const auto applied =
      book.Apply(std::span(&id, 1), {}, text::Date{std::chrono::days(20000)}, quiet);
  QVERIFY2(applied, qPrintable(applied ? QString() : applied.Why().text));
}

void TakeBonusBack(Desk& desk) {
  corporate_actions::ActionBook book(desk.Connection());
  QCOMPARE(TextOf(book.TakeBack(book.List().front().id)), test::kAccepted);
}

}  // namespace

Q_DECLARE_METATYPE(Step)

/// The desk begins with a bill: 10 shares bought at 100, 5 at 90, of which 2 were sold.
class UndoTest : public test::DeskTest {
  Q_OBJECT

  QStringList Records() {
    return test::Contents(desk_->Connection(),
                          {"SPMaster", "SPTrans", "StkOpBal", "ScrTransfer", "BrRec", "CorpAction",
                           "CorpActionLot", "Dividend"});
  }

  /// The quantities that are held, lots without shares left out.
  QStringList Held() {
    return test::Rows(desk_->Connection(),
                      "Select Cid,Fyear,AcId,ScriptId,Rate,Qty From Stock Where Qty<>0 Order By "
                      "Cid,AcId,ScriptId,Rate");
  }

  QString UndoLast() {
    const Result<changes::Entry> last = changes::LastToUndo(desk_->Connection(), std::nullopt);
    return last ? TextOf(changes::Undo(desk_->Connection(), *last, quiet_)) : last.Why().text;
  }

  QStringList Wrong() {
    QStringList wrong = changes::CheckChain(desk_->Connection(), quiet_);
    for (const auto& change :
         ledger::CheckStock(desk_->Connection(), std::nullopt, quiet_).changes) {
      wrong << QStringLiteral("lot %1").arg(change.lot.id.value);
    }
    return wrong;
  }

  /// As an older program does.
  void LeaveValuesOut() {
    for (const char* update :
         {"SPMaster Set SettlNo=NULL,OthCharge=NULL,TranChg=NULL",
          "SPTrans Set STax=NULL,STT=NULL,STTPer=NULL,DelvType=NULL Where Id=1",
          "StkOpBal Set Brk=NULL,STT=NULL", "BrRec Set ChqNo=NULL,Remark=NULL"}) {
      desk_->Connection().Execute(std::string("Update ") + update);
    }
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(),
                {"CorpAction", "CorpActionLot", "Dividend", "StatementCheck", "ChangeLog"});
    desk_->Connection().Execute("Update ChangeHead Set LastId=0,LastHash='',BaseId=0,BaseHash=''");
    desk_->Connection().SetAuthor({QStringLiteral("ANITA"), QStringLiteral("desk-1")});
    bills::Bill bill = desk_->NewBill({desk_->Purchase(10, 100), desk_->Purchase(5, 90)});
    QVERIFY(!test::Save(bills::BillBook(desk_->Connection(), desk_->of), bill));
    AddBill(*desk_, {desk_->Sale(2, 120, desk_->IdOfLot(90))});
  }

  void RecordsAndLotsAreAsTheyWere_data() {
    const test::Table<Step, Step> row;  // what goes before, what is taken back
    const Step nothing = [](Desk&) {};
    row("bill added", nothing, [](Desk& desk) { AddBill(desk, {desk.Purchase(3, 70)}); });
    row("sale added", nothing,
        [](Desk& desk) { AddBill(desk, {desk.Sale(3, 130, desk.IdOfLot(100))}); });
    row("quantity changed", nothing, [](Desk& desk) {
      Resave(desk, [](bills::Bill& bill) { bill.lines[0].quantity = text::Shares(12); });
    });
    row("rate changed", nothing,
        [](Desk& desk) { Resave(desk, [](bills::Bill& bill) { bill.lines[0].rate = 101.3; }); });
    row("line dropped", nothing, [](Desk& desk) {
      Resave(desk, [](bills::Bill& bill) { bill.lines.erase(bill.lines.begin()); });
    });
    row("line added", nothing, [](Desk& desk) {
      Resave(desk, [&desk](bills::Bill& bill) { bill.lines.push_back(desk.Purchase(1, 66)); });
    });
    row("header changed", nothing, [](Desk& desk) {
      Resave(desk, [](bills::Bill& bill) { bill.number = QStringLiteral("N/9"); });
    });
    row(
        "bill deleted", [](Desk& desk) { AddBill(desk, {desk.Purchase(3, 70)}); },
        [](Desk& desk) {
          QCOMPARE(TextOf(bills::BillBook(desk.Connection(), desk.of).Delete(BillId{3})),
                   test::kAccepted);
        });
    row("sale deleted", nothing, [](Desk& desk) {
      QCOMPARE(TextOf(bills::BillBook(desk.Connection(), desk.of).Delete(BillId{2})),
               test::kAccepted);
    });
    row(
        "bill moved to another account", [](Desk& desk) { AddBill(desk, {desk.Purchase(3, 70)}); },
        [](Desk& desk) {
          bills::BillBook book(desk.Connection(), desk.of);
          bills::Bill bill = book.Load(BillId{3}).value();
          bill.account = desk.second_account;
          QVERIFY(book.Save(bill));
        });
    row("opening added", nothing, AddOpening);
    row("opening changed", AddOpening, [](Desk& desk) {
      opening_stock::OpeningStockBook book(desk.Connection(), desk.of);
      opening_stock::OpeningLot lot = book.List().front();
      lot.quantity = text::Shares(7);
      QVERIFY(book.Save(lot));
    });
    row("opening deleted", AddOpening, [](Desk& desk) {
      QCOMPARE(
          TextOf(opening_stock::OpeningStockBook(desk.Connection(), desk.of).Delete(OpeningId{1})),
          test::kAccepted);
    });
    row("transfer added", nothing, MoveSome);
    row("transfer deleted", MoveSome, [](Desk& desk) {
      QCOMPARE(TextOf(transfers::TransferBook(desk.Connection(), desk.of).Delete(TransferId{1})),
               test::kAccepted);
    });
    row("receipt added", nothing, Pay);
    row("receipt deleted", Pay, [](Desk& desk) {
      broker_money::PaymentBook(desk.Connection(), broker_money::PaymentKind::kReceipt, desk.of)
          .Delete(broker_money::PaymentId{1});
    });
    row("action recorded", nothing, Bonus);
    row("action applied", Bonus, ApplyBonus);
    row("actions of one day recorded and applied at once", nothing, [](Desk& desk) {
      Progress quiet;
      records::Action split = BonusOf(desk);
      split.kind = records::ActionKind::kSplit;
      split.new_shares = text::Shares(5);
      const auto applied = corporate_actions::ActionBook(desk.Connection())
                               .RecordAndApply(std::vector{split, BonusOf(desk)},
                                               text::Date{std::chrono::days(20000)}, quiet);
      QVERIFY2(applied, qPrintable(applied ? QString() : applied.Why().text));
    });
    row(
        "action taken back",
        [](Desk& desk) {
          Bonus(desk);
          ApplyBonus(desk);
        },
        TakeBonusBack);
  }
  void RecordsAndLotsAreAsTheyWere() {
    const auto [before, change] = test::Table<Step, Step>::Row();
    before(*desk_);
    LeaveValuesOut();
    const QStringList records = Records();
    const QStringList held = Held();
    change(*desk_);
    QVERIFY(Records() != records);
    QCOMPARE(UndoLast(), test::kAccepted);
    QCOMPARE(Records(), records);
    QCOMPARE(Held(), held);
    QCOMPARE(Wrong(), QStringList());
  }

  void WhatLaterRecordsBuildOnStays_data() {
    const test::Table<Step, Step, QString> row;
    row(
        "shares were sold", [](Desk& desk) { AddBill(desk, {desk.Purchase(3, 70)}); },
        [](Desk& desk) {
          desk.Connection().SetAuthor({QStringLiteral("RAVI"), {}});
          AddBill(desk, {desk.Sale(1, 75, desk.IdOfLot(70))});
        },
        "It can't be Taken Back: Shares of RELIANCE that it Concerns were Sold or Transferred "
        "Since.");
    row(
        "shares of a deleted sale were sold",
        [](Desk& desk) { QVERIFY(!bills::BillBook(desk.Connection(), desk.of).Delete(BillId{2})); },
        [](Desk& desk) {
          desk.Connection().SetAuthor({QStringLiteral("RAVI"), {}});
          AddBill(desk, {desk.Sale(5, 75, desk.IdOfLot(90))});
        },
        "It can't be Taken Back: Shares of RELIANCE that it Concerns were Sold or Transferred "
        "Since.");
    row(
        "changed again",
        [](Desk& desk) {
          Resave(desk, [](bills::Bill& bill) { bill.lines[0].quantity = text::Shares(12); });
        },
        [](Desk& desk) {
          desk.Connection().SetAuthor({QStringLiteral("RAVI"), {}});
          Resave(desk, [](bills::Bill& bill) { bill.lines[0].quantity = text::Shares(13); });
        },
        "It can't be Taken Back: RAVI Changed it Again on ");
    row(
        "its broker was deleted",
        [](Desk& desk) { QVERIFY(!bills::BillBook(desk.Connection(), desk.of).Delete(BillId{2})); },
        [](Desk& desk) {
          desk.Connection().SetAuthor({QStringLiteral("RAVI"), {}});
          database::InTransaction(desk.Connection(), [&](database::Transaction& transaction) {
            records::Delete<records::Broker>(transaction)
                .Where(&records::Broker::id, desk.broker)
                .Run();
          });
        },
        "It can't be Taken Back: the Broker that it names was Deleted.");
  }
  void WhatLaterRecordsBuildOnStays() {
    const auto [change, later, text] = test::Table<Step, Step, QString>::Row();
    change(*desk_);
    later(*desk_);
    const QStringList records = Records();
    const QStringList held = Held();
    desk_->Connection().SetAuthor({QStringLiteral("ANITA"), {}});
    const QString told = UndoLast();
    QVERIFY2(told.startsWith(text), qPrintable(told));
    QCOMPARE(Records(), records);
    QCOMPARE(Held(), held);
    if (text.contains(QLatin1String("Broker"))) {
      desk_.emplace();
    }
  }

  void UndoStepsBackThroughOwnChanges() {
    AddBill(*desk_, {desk_->Purchase(3, 70)});
    AddBill(*desk_, {desk_->Purchase(4, 60)});
    database::InTransaction(desk_->Connection(), [&](database::Transaction& transaction) {
      records::Insert(transaction, records::StatementCheck{.client = desk_->client,
                                                           .account = desk_->account,
                                                           .statement_day = {},
                                                           .checked_on = {}});
    });
    desk_->Connection().SetAuthor({QStringLiteral("RAVI"), {}});
    AddBill(*desk_, {desk_->Purchase(1, 50)});
    desk_->Connection().SetAuthor({QStringLiteral("ANITA"), {}});
    QCOMPARE(UndoLast(), test::kAccepted);
    QCOMPARE(desk_->LotAt(60), "0@60");
    QCOMPARE(UndoLast(), test::kAccepted);
    QCOMPARE(desk_->LotAt(70), "0@70");
    QCOMPARE(desk_->LotAt(50), "1@50");
    QCOMPARE(test::Rows(desk_->Connection(), "Select AcId From StatementCheck").size(), 1);
  }

  /// Two programs have one bill open: bill, lines and lots stay those of the first save until the
  /// second one has seen them.
  void BillThatAnotherProgramSavedIsNotSavedOver() {
    database::Connection other(desk_->database.Settings());
    other.SetAuthor({QStringLiteral("RAVI"), QStringLiteral("desk-2")});
    const changes::EditedRecord mine(desk_->Connection(), "SPMaster", 1);
    bills::Bill entered = Stored(*desk_);
    bills::Bill theirs = entered;
    theirs.lines[0].quantity = text::Shares(11);
    QVERIFY(bills::BillBook(other, desk_->of).Save(theirs));
    const QStringList records = Records();
    const QStringList held = Held();

    entered.lines[0].quantity = text::Shares(12);
    bills::BillBook book(desk_->Connection(), desk_->of);
    const auto refused = book.Save(entered);
    QVERIFY(!refused);
    QVERIFY2(refused.Why().text.contains(QLatin1String("Bill Line 1, Quantity: 11 | 12")),
             qPrintable(refused.Why().text));
    QCOMPARE(Records(), records);
    QCOMPARE(Held(), held);
    QVERIFY(book.Save(entered));
    QCOMPARE(desk_->LotAt(100), "12@100");
    QCOMPARE(Wrong(), QStringList());
  }

  void BillIsOneOfManyThatAnotherProgramChanged_data() {
    using Work = std::function<void(database::Transaction&, std::vector<bills::Bill>&)>;
    const test::Table<Work, QString> row;
    const auto replace = [](database::Transaction& transaction, std::vector<bills::Bill>& book) {
      for (bills::Bill& bill : book) {
        bill.settlement_number = QStringLiteral("S/9");
        records::Replace(transaction, bill);
      }
    };
    const auto of = [](ClientId client) { return changes::Owner{.client = client.value}; };
    row("changed with others", replace, "RAVI Changed this Record on desk-2");
    row(
        "replaced by a work of counts",
        [=](database::Transaction& transaction, std::vector<bills::Bill>& book) {
          transaction.Changes().Summarise(changes::Kind::kImported, QStringLiteral("book"));
          replace(transaction, book);
        },
        "RAVI Changed many Records on desk-2");
    row(
        "work of counts of another client",
        [=](database::Transaction& transaction, std::vector<bills::Bill>& book) {
          transaction.Changes().Summarise(changes::Kind::kCarriedForward, {}, of(ClientId{77}));
          replace(transaction, book);
        },
        test::kAccepted);
    row(
        "others brought",
        [](database::Transaction& transaction, std::vector<bills::Bill>& book) {
          bills::Bill more = book.front();
          for (more.id = BillId{50}; more.id < BillId{53}; ++more.id.value) {
            records::Insert(transaction, more);
          }
        },
        test::kAccepted);
    row(
        "deleted with others",
        [](database::Transaction& transaction, std::vector<bills::Bill>&) {
          records::Delete<bills::Bill>(transaction)
              .In(&bills::Bill::id, std::vector{BillId{40}, BillId{41}})
              .Run();
        },
        "RAVI Deleted this Record on desk-2");
    row("taken back with others", Work(), "RAVI Deleted this Record on desk-2");
  }
  /// A book of two bills is brought as one entry; the second of them is open when another program
  /// changes both.
  void BillIsOneOfManyThatAnotherProgramChanged() {
    const auto [work, text] =
        test::Table<std::function<void(database::Transaction&, std::vector<bills::Bill>&)>,
                    QString>::Row();
    database::Connection other(desk_->database.Settings());
    other.SetAuthor({QStringLiteral("RAVI"), QStringLiteral("desk-2")});
    std::vector<bills::Bill> book{desk_->NewBill({}), desk_->NewBill({})};
    const auto in_one_entry = [&](const auto& of_book) {
      database::InTransaction(other, [&](database::Transaction& transaction) {
        of_book(transaction);
        transaction.Changes().Is(changes::Kind::kImported);
      });
    };
    in_one_entry([&](database::Transaction& transaction) {
      for (int i = 0; i < 2; ++i) {
        bills::Bill& bill = book[static_cast<std::size_t>(i)];
        bill.id = BillId{40 + i};
        bill.client = desk_->client;
        bill.year = desk_->year;
        records::Insert(transaction, bill);
      }
    });
    const changes::EditedRecord mine(desk_->Connection(), "SPMaster", 41);
    bills::BillBook bills(desk_->Connection(), desk_->of);
    bills::Bill entered = bills.Load(BillId{41}).value();
    if (work) {
      in_one_entry([&](database::Transaction& transaction) { work(transaction, book); });
    } else {
      const auto last = changes::LastToUndo(other, std::nullopt);
      QCOMPARE(TextOf(changes::Undo(other, *last, quiet_)), test::kAccepted);
    }
    const QStringList records = Records();
    entered.number = QStringLiteral("MINE");
    const QString told = TextOf(bills.Save(entered).Refused());
    QVERIFY2(told.startsWith(text), qPrintable(told));
    if (text != test::kAccepted) {
      QCOMPARE(Records(), records);
      QCOMPARE(TextOf(bills.Save(entered).Refused()), test::kAccepted);
    }
  }

  void OpeningThatIsGoneIsNotSavedTwice_data() {
    const test::Table<bool, QString> row;  // by a carry forward
    row("deleted", false, "RAVI Deleted this Record on desk-2");
    row("carried forward again", true,
        "This Record was Deleted while You had it Open. RAVI Changed many Records on desk-2");
  }
  void OpeningThatIsGoneIsNotSavedTwice() {
    const auto [carried, text] = test::Table<bool, QString>::Row();
    const ClientYear next{desk_->client, desk_->year.Next()};
    database::Connection other(desk_->database.Settings());
    other.SetAuthor({QStringLiteral("RAVI"), QStringLiteral("desk-2")});
    QVERIFY(opening_stock::CarryForward(other, next, quiet_));
    opening_stock::OpeningStockBook book(desk_->Connection(), next);
    const opening_stock::OpeningLot entered = book.List().front();
    const changes::EditedRecord mine(desk_->Connection(), "StkOpBal", entered.id.value);
    if (carried) {
      QVERIFY(opening_stock::CarryForward(other, next, quiet_));
    } else {
      QCOMPARE(TextOf(opening_stock::OpeningStockBook(other, next).Delete(entered.id)),
               test::kAccepted);
    }
    const QStringList records = Records();
    const QStringList held = Held();
    const QString told = TextOf(book.Save(entered).Refused());
    QVERIFY2(told.startsWith(text), qPrintable(told));
    QCOMPARE(Records(), records);
    QCOMPARE(Held(), held);
  }

  void EntryIsTakenBackOnce() {
    AddBill(*desk_, {desk_->Purchase(3, 70)});
    const auto last = changes::LastToUndo(desk_->Connection(), desk_->client);
    QVERIFY(last);
    QCOMPARE(TextOf(changes::Undo(desk_->Connection(), *last, quiet_)), test::kAccepted);
    QCOMPARE(TextOf(changes::Undo(desk_->Connection(), *last, quiet_)),
             "It was Taken Back Already.");
    QVERIFY(!changes::LastToUndo(desk_->Connection(), desk_->other_client));
  }

  void ComputedWorkIsNotTakenBack() {
    QVERIFY(opening_stock::CarryForward(desk_->Connection(), {desk_->client, desk_->year.Next()},
                                        quiet_));
    const QString told = UndoLast();
    QVERIFY2(told.startsWith(QLatin1String("The last change was computed from other records")),
             qPrintable(told));
  }

 private:
  Progress quiet_;
};

static const test::RegisterTest<UndoTest> kRegistered;

#include "UndoTest.moc"
