#include "core/changes/Chain.h"
#include "core/changes/Undo.h"
#include "core/ledger/Posting.h"
#include "core/ledger/Rebuild.h"
#include "core/records/OpeningMark.h"
#include "core/records/TradeKey.h"
#include "core/records/Writing.h"
#include "masters/brokers/BrokerBook.h"
#include "masters/clients/ClientBook.h"
#include "masters/lookup_masters/LookupBook.h"
#include "masters/participants/ParticipantBook.h"
#include "masters/scrips/ScripBook.h"
#include "support/Desk.h"
#include "support/Records.h"
#include "support/Test.h"

#include <QTemporaryDir>

using namespace quorvane;
using test::Desk;
using test::TextOf;

namespace {

/// A desk with a bill of two scrips, an opening lot and a payment, recorded as another program
/// does.
struct Office : Desk {
  QTemporaryDir documents;
  Progress quiet;

  Office() {
    Connection().SetAuthor({QStringLiteral("RAVI"), {}});
    records::Bill bill = NewBill({Purchase(10, 100), Purchase(6, 40)});
    bill.lines[1].scrip = second_scrip;
    database::InTransaction(Connection(), [&](database::Transaction& transaction) {
      bill.id = BillId{database::NextKey(transaction, "SPMaster")};
      bill.client = client;
      bill.year = year;
      ledger::Lots lots;
      const ledger::Place place{of, account};
      ledger::LockAndLoad(transaction, lots, std::span(&place, 1));
      int number = 0;
      for (records::BillLine& line : bill.lines) {
        line.client = client;
        line.year = year;
        line.bill = bill.id;
        line.number = ++number;
      }
      ledger::PostLines(lots, place, bill.lines);
      records::Opening opening;
      opening.client = client;
      opening.year = year;
      opening.id = OpeningId{database::NextKey(transaction, "StkOpBal")};
      opening.scrip = scrip;
      opening.account = account;
      opening.quantity = text::Shares(2);
      opening.rate = 80;
      ledger::Post(lots, opening);
      lots.Write(transaction);
      ledger::NumberLots(lots, bill.lines);
      records::Insert(transaction, bill);
      records::Insert(transaction, std::span<const records::BillLine>(bill.lines));
      records::Insert(transaction, opening);
      records::Insert(transaction, records::OpeningMark{client, year, account, scrip});
      records::Insert(transaction, records::OpeningMark{client, year, account, second_scrip});
      records::Insert(transaction, records::TradeKey{account, QStringLiteral("T|1"), bill.id});
    });
    // An older program leaves values out.
    Connection().Execute("Update ClientInfo Set Sex=NULL,MStatus=NULL,GCode=NULL,DOB=NULL");
    Connection().Execute("Update Script Set Type=1,ScrCls=NULL,NCode=NULL");
    Connection().Execute("Update Broker Set City=NULL");
    Connection().Execute("Update SPMaster Set SettlNo=NULL,OthCharge=NULL,ExId=NULL");
    Connection().Execute("Update SPTrans Set STax=NULL,FO=NULL,DelvType=NULL Where Id=2");
    Connection().Execute("Update StkOpBal Set Brk=NULL,PDate=NULL");
    Connection().SetAuthor({QStringLiteral("ANITA"), {}});
  }

  QStringList Everything() {
    return test::Contents(
        Connection(), {"ClientInfo", "ClientActDet", "RemovedAccount", "DepPart", "DpIDs", "Broker",
                       "Script", "ScripIsin", "ScriptType", "Exchange", "STTPer", "TransTaxPer",
                       "SPMaster", "SPTrans", "StkOpBal", "Stock", "OpeningMark", "TradeKey"});
  }

  QString UndoLast() {
    const Result<changes::Entry> last = changes::LastToUndo(Connection(), std::nullopt);
    return last ? TextOf(changes::Undo(Connection(), *last, quiet)) : last.Why().text;
  }

  clients::ClientBook Clients() {
    return {Connection(), documents::DocumentStore(documents.path())};
  }
};

using Step = std::function<void(Office&)>;

void AddScrip(Office& office, const QString& code) {
  scrips::Scrip scrip{{}, code, QStringLiteral("NEW"), {}, 1, 1};
  scrip.isins = {{QStringLiteral("INE002A01018"), {}}};
  const auto saved = scrips::ScripBook(office.Connection()).Save(scrip);
  QVERIFY2(saved, qPrintable(saved ? QString() : saved.Why().text));
}

}  // namespace

Q_DECLARE_METATYPE(Step)

class UndoTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void MastersAndTheirRecordsAreAsTheyWere_data() {
    const test::Table<Step> row;
    row("broker added", Step([](Office& office) {
          QVERIFY(brokers::BrokerBook(office.Connection()).Save({{}, QStringLiteral("NEW"), {}}));
        }));
    row("broker deleted with its bills", Step([](Office& office) {
          brokers::BrokerBook(office.Connection()).Delete(office.broker, office.quiet);
        }));
    row("scrip added", Step([](Office& office) { AddScrip(office, QStringLiteral("777")); }));
    row("scrip deleted, and the bill stays without its header", Step([](Office& office) {
          scrips::ScripBook(office.Connection()).Delete(office.scrip, office.quiet);
        }));
    row("client deleted with everything",
        Step([](Office& office) { office.Clients().Delete(office.client); }));
    row("account removed that a bill names", Step([](Office& office) {
          clients::Client client = office.Clients().Load(office.client).value();
          client.name = QStringLiteral("CEE");
          client.accounts.erase(client.accounts.begin());
          const auto saved = office.Clients().Save(client, {});
          QVERIFY2(saved, qPrintable(saved ? QString() : saved.Why().text));
        }));
    row("participant added", Step([](Office& office) {
          participants::Participant one;
          one.name = QStringLiteral("NIDHI");
          one.dp_ids = {{{}, QStringLiteral("IN1")}, {{}, QStringLiteral("IN2")}};
          QVERIFY(participants::ParticipantBook(office.Connection()).Save(one));
        }));
    row("percentage added", Step([](Office& office) {
          lookup_masters::LookupBook book(office.Connection(),
                                          lookup_masters::LookupKind::kTaxPercentages);
          QVERIFY(book.Save({0,
                             {QStringLiteral("2011-12"), QStringLiteral("Delivery Based"),
                              QStringLiteral("0.125"), QString()}}));
        }));
    row("exchange deleted", Step([](Office& office) {
          lookup_masters::LookupBook(office.Connection(), lookup_masters::LookupKind::kExchanges)
              .Delete(2);
        }));
  }
  void MastersAndTheirRecordsAreAsTheyWere() {
    const auto [change] = test::Table<Step>::Row();
    Office office;
    const QStringList before = office.Everything();
    change(office);
    QVERIFY(office.Everything() != before);
    QCOMPARE(office.UndoLast(), test::kAccepted);
    QCOMPARE(office.Everything(), before);
    QCOMPARE(changes::CheckChain(office.Connection(), office.quiet), QStringList());
    QVERIFY(ledger::CheckStock(office.Connection(), std::nullopt, office.quiet).changes.empty());
  }

  void MasterInUseStays_data() {
    const test::Table<Step, Step, QString> row;
    row(
        "broker of a bill",
        [](Office& office) {
          QVERIFY(brokers::BrokerBook(office.Connection()).Save({{}, QStringLiteral("NEW"), {}}));
        },
        [](Office& office) {
          office.Connection().Execute("Update SPMaster Set BrokId=(Select Max(Id) From Broker)");
        },
        "It can't be Taken Back: 1 records of \"Bill\" name it.");
    row(
        "code taken meanwhile",
        [](Office& office) {
          scrips::ScripBook(office.Connection()).Delete(office.scrip, office.quiet);
        },
        [](Office& office) {
          office.Connection().SetAuthor({QStringLiteral("RAVI"), {}});
          AddScrip(office, QStringLiteral("500325"));
          office.Connection().SetAuthor({QStringLiteral("ANITA"), {}});
        },
        "It can't be Taken Back: \"500325\" is used by another record now.");
    row(
        "trade taken in again meanwhile",
        [](Office& office) {
          brokers::BrokerBook(office.Connection()).Delete(office.broker, office.quiet);
        },
        [](Office& office) {
          office.Connection().Execute("Insert Into TradeKey Values(?,'T|1',99)", office.account);
        },
        "It can't be Taken Back: Trades of it were Taken In Again.");
  }
  void MasterInUseStays() {
    const auto [change, later, text] = test::Table<Step, Step, QString>::Row();
    Office office;
    change(office);
    later(office);
    const QStringList before = office.Everything();
    QCOMPARE(office.UndoLast(), text);
    QCOMPARE(office.Everything(), before);
  }
};

static const test::RegisterTest<UndoTest> kRegistered;

#include "UndoTest.moc"
