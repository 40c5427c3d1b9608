#include "core/rates/IsinBook.h"
#include "core/rates/RateBook.h"
#include "reports/search/Search.h"
#include "support/DatabaseTest.h"
#include "transactions/bills/BillBook.h"
#include "transactions/broker_money/PaymentBook.h"

using namespace quorvane;
using search::Kind;

/// One office: two clients and scrips of the desk, a bill, a payment and a receipt.
class SearchTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void EverythingIsFoundByItsNames_data() {
    const test::Table<QString, QStringList> row;
    row("client's name", "raghav", QStringList{"0 SUNANDA RAGHAV"});
    row("words in any order", "raghav suna", QStringList{"0 SUNANDA RAGHAV"});
    row("client's code and family", "c2", QStringList{"0 SHAH & SONS"});
    row("account", "1001", QStringList{"1 1001"});
    row("middle of an account", "00",
        QStringList{"1 1001", "1 1002", "1 2001", "2 INFOSYS", "2 RELIANCE"});
    row("scrip's name", "relia", QStringList{"2 RELIANCE"});
    row("scrip's code", "500325", QStringList{"2 RELIANCE"});
    row("beginning of an ISIN", "INE009", QStringList{"2 INFOSYS"});
    row("middle of an ISIN", "009A", QStringList{});
    row("beginning of a bill's number", "B/1", QStringList{"3 B/17", "3 B/18"});
    row("middle of a bill's number", "17", QStringList{});
    row("cheque", "4455", QStringList{"4 445566", "5 445577"});
    row("a sign of the query language is a letter", "B_1", QStringList{});
    row("another such sign", "%", QStringList{});
    row("quote", "O'B", QStringList{});
    row("nothing", "  ", QStringList{});
  }
  void EverythingIsFoundByItsNames() {
    const auto [text, expected] = test::Table<QString, QStringList>::Row();
    Fill();
    QStringList found;
    for (const search::Found& one : search::Search(desk_->Connection(), text)) {
      found << QStringLiteral("%1 %2").arg(static_cast<int>(one.kind)).arg(one.name);
    }
    QCOMPARE(found, expected);
  }

  void ABillTellsItsClientYearAndKey() {
    Fill();
    const auto found = search::Search(desk_->Connection(), QStringLiteral("b/18"));
    QCOMPARE(found.size(), std::size_t{1});
    QCOMPARE(found[0].record, second_.value);
    QVERIFY(found[0].of == desk_->of);
    QCOMPARE(found[0].client_name, "SUNANDA RAGHAV");
    QCOMPARE(found[0].about, "11/06/2011, SUNANDA RAGHAV, O'BRIEN & SONS, 2000.00");
  }

  // What begins with the text stands before what only contains it, however many there are.
  void TheBeginningComesFirstAndAtMostTwentyOfAKind() {
    for (int number = 1; number <= 30; ++number) {
      desk_->database.AddScrip(QStringLiteral("X%1").arg(number),
                               QStringLiteral("AA %1 ZINC").arg(number));
    }
    desk_->database.AddScrip(QStringLiteral("Y1"), QStringLiteral("ZINC LTD"));
    const auto found = search::Search(desk_->Connection(), QStringLiteral("zinc"));
    QCOMPARE(found.size(), static_cast<std::size_t>(search::kMostOfAKind));
    QCOMPARE(found[0].name, "ZINC LTD");
  }

 private:
  void Fill() {
    database::Connection& connection = desk_->Connection();
    connection.Execute("Update ClientInfo Set Name='SUNANDA RAGHAV' Where Id=?", desk_->client);
    connection.Execute("Update ClientInfo Set Name='SHAH & SONS' Where Id=?", desk_->other_client);
    const rates::SeenIsin isin{desk_->second_scrip, "INE009A01021"};
    rates::RateBook(connection).Save(*text::MakeDate(1, 6, 2011), {}, {&isin, 1});
    for (const auto& [number, day] : {std::pair{"B/17", "10/06/2011"}, {"B/18", "11/06/2011"}}) {
      records::Bill bill = desk_->NewBill(QLatin1String(day), {desk_->Purchase(20, 100)});
      bill.number = QLatin1String(number);
      bill.grand_total = 2000;
      bills::BillBook book(connection, desk_->of);
      QCOMPARE(test::TextOf(test::Save(book, bill)), test::kAccepted);
      second_ = bill.id;
    }
    for (const auto& [table, cheque] : {std::pair{"BrPayment", "445566"}, {"BrRec", "445577"}}) {
      connection.Execute(
          fmt::format("Insert Into {}(Cid,Fyear,Id,BrId,TMode,Amt,PDate,PMode,ChqNo) "
                      "Values(?,'2011-12',1,?,0,500,'12/06/2011',1,?)",
                      table),
          desk_->client, desk_->broker, cheque);
    }
  }

  BillId second_;
};

static const test::RegisterTest<SearchTest> kRegistered;
#include "SearchTest.moc"
