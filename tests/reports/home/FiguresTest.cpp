#include "core/positions/Positions.h"
#include "core/rates/RateBook.h"
#include "core/records/Opening.h"
#include "core/records/Rates.h"
#include "core/records/StatementCheck.h"
#include "core/records/Transfer.h"
#include "core/records/Writing.h"
#include "reports/Sample.h"
#include "reports/home/Figures.h"
#include "reports/home/KeptFigures.h"
#include "reports/home/RecordsSince.h"
#include "reports/profit/ProfitStatement.h"
#include "support/DatabaseTest.h"
#include "transactions/bills/BillBook.h"

#include <map>

using namespace quorvane;
using home::Scope;
using text::Paise;

namespace {

text::Date Day(int day, int month, int year) {
  return *text::MakeDate(day, month, year);
}

/// Stops when it was asked so many times.
class Impatient final : public Progress {
 public:
  explicit Impatient(int times) : left_(times) {}
  bool Cancelled() const override { return --left_ < 0; }

 private:
  mutable int left_;
};

}  // namespace

/// The kept figures are those that the statements and the reading of all years give, and no change
/// of the records escapes them.
class FiguresTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
    Refresh();
  }
  void cleanupTestCase() { database_.reset(); }

  void GainsAreThoseOfTheStatement() {
    Progress progress;
    std::map<int, QString> expected;
    static_cast<void>(profit::BuildStatement(
        **database_, profit::ProfitQuery::OfYear({}, year_), progress,
        [&](ClientId client, std::span<const profit::StatementRow> rows) {
          const profit::StatementRow& total = rows.back();
          if (total.long_term != 0 || total.short_term != 0 || total.speculation != 0) {
            expected[client.value] =
                TextOf({Paise(total.long_term), Paise(total.short_term), Paise(total.speculation)});
          }
        }));
    std::map<int, QString> kept;
    Paise together;
    for (const home::ClientGains& one : home::ReadGains(**database_, All())) {
      kept[one.client.value] = TextOf(one.gains);
      together += one.gains.Total();
    }
    QVERIFY(expected.size() > 1);
    QVERIFY(kept == expected);
    QCOMPARE(home::ReadFigures(**database_, All()).gains.Total().Count(), together.Count());
  }

  void HoldingsAreThoseOfAllYearsReadAtOnce() {
    Progress progress;
    positions::PositionsQuery query;
    query.to = today_;
    std::map<std::pair<int, int>, std::pair<double, std::int64_t>> expected;
    for (const positions::Holding& holding :
         positions::ReadPositions(**database_, query, progress).holdings) {
      if (!holding.place.fo && holding.Quantity()) {
        auto& sum = expected[{holding.client.value, holding.place.scrip.value}];
        sum.first = (text::Shares(sum.first) + holding.Quantity()).Number();
        sum.second += holding.Cost().Count();
      }
    }
    std::map<std::pair<int, int>, std::pair<double, std::int64_t>> kept;
    for (const home::Held& held : home::ReadHoldings(**database_, All()).held) {
      kept[{held.client.value, held.scrip.value}] = {held.quantity.Number(), held.cost.Count()};
    }
    QVERIFY(expected.size() > 10);
    QVERIFY(kept == expected);
  }

  // Alone a client is read with those whose shares came to it, not with everybody.
  void EachClientAloneGivesTheSame() {
    const auto contents = [&] {
      return test::Contents(**database_, {"HomeHolding", "HomeGain"}).join(QLatin1Char(' '));
    };
    const QString all = contents();
    for (const QString& key : test::Rows(**database_, "Select Id From ClientInfo")) {
      const ClientId client{key.toInt()};
      for (const char* table : {"HomeClient", "HomeHolding", "HomeGain"}) {
        (*database_)->Execute(fmt::format("Delete From {} Where CId=?", table), client);
      }
      QVERIFY(contents() != all);
      QCOMPARE(Refresh(), 1);
      QCOMPARE(contents(), all);
    }
  }

  void FamiliesAddUpToTheWhole() {
    (*database_)->Execute("Update ClientInfo Set GCode='SECOND' Order By Id Limit 1");
    const home::Figures whole = home::ReadFigures(**database_, All());
    Paise value;
    Paise cost;
    int clients = 0;
    for (const QString& family : home::Families(**database_)) {
      const home::Figures part = home::ReadFigures(**database_, {family, year_, today_});
      value += part.value;
      cost += part.cost;
      clients += part.clients;
      QVERIFY(part.clients < whole.clients);
    }
    QVERIFY(value > Paise());
    QCOMPARE(value.Count(), whole.value.Count());
    QCOMPARE(cost.Count(), whole.cost.Count());
    QCOMPARE(clients, whole.clients);
    QCOMPARE(whole.computed, whole.clients);
  }

  // Each as another program could make it, behind this one's back.
  void AnyChangeOfRecordsIsSeen_data() {
    const test::Table<QString, bool> row;
    row("nothing", "Update SPTrans Set Qty=Qty", false);
    row("a quantity", "Update SPTrans Set Qty=Qty+1 Where SP=1 Limit 1", true);
    row("two quantities exchanged",
        "Update SPTrans a Join SPTrans b Set a.Rate=b.Rate+a.Rate*0,b.Rate=b.Rate+1 Where "
        "a.SID<b.SID and a.Cid=b.Cid",
        true);
    row("a side", "Update SPTrans Set SP=1-SP Limit 1", true);
    row("a line deleted", "Delete From SPTrans Limit 1", true);
    row("a bill's day", "Update SPMaster Set BDate='05/04/2011' Where BDate<>'05/04/2011' Limit 1",
        true);
    row("an opening lot's cost", "Update StkOpBal Set Total=Total+0.01 Limit 1", true);
    row("a transfer", "Update ScrTransfer Set Qty=Qty/2 Limit 1", true);
    row("a lot's rate", "Update Stock Set Rate=Rate+0.5 Limit 1", true);
    row("an account's owner", "Delete From ClientActDet Limit 1", true);
    row("a bill's number is no figure", "Update SPMaster Set BillNo=Concat(BillNo,'X')", false);
    row("a rate is no record", "Update MarketRate Set Rate=Rate*2", false);
  }
  void AnyChangeOfRecordsIsSeen() {
    const auto [statement, is_seen] = test::Table<QString, bool>::Row();
    QCOMPARE(Refresh(), 0);
    (*database_)->Execute(statement.toStdString());
    QCOMPARE(Refresh() > 0, is_seen);
    QCOMPARE(Refresh(), 0);
  }

  void AClientThatIsGoneCountsNoMore() {
    const auto all = home::ReadHoldings(**database_, All()).held;
    const ClientId gone = all.front().client;
    (*database_)->Execute("Delete From ClientInfo Where Id=?", gone);
    QVERIFY(std::ranges::none_of(home::ReadHoldings(**database_, All()).held,
                                 [&](const home::Held& held) { return held.client == gone; }));
    Refresh();
    QVERIFY(!(*database_)->Open("Select 1 From HomeHolding Where CId=?", gone).Next());
  }

  void WhatIsCancelledGoesOnWhereItStopped() {
    (*database_)->Execute("Delete From HomeClient");
    Impatient progress(3);
    QVERIFY_THROWS_EXCEPTION(Cancellation,
                             home::RefreshFigures(**database_, year_, today_, progress));
    Refresh();
    QCOMPARE(home::ReadFigures(**database_, All()).computed,
             home::ReadFigures(**database_, All()).clients);
    QVERIFY(home::LastRefresh(**database_).has_value());
  }

 private:
  int Refresh() {
    Progress progress;
    return home::RefreshFigures(**database_, year_, today_, progress);
  }
  Scope All() const { return {{}, year_, today_}; }
  static QString TextOf(const home::Gains& gains) {
    return QStringLiteral("%1 %2 %3")
        .arg(gains.long_term.Count())
        .arg(gains.short_term.Count())
        .arg(gains.speculation.Count());
  }

  std::optional<test::TestDatabase> database_;
  text::FinancialYear year_{2012};
  text::Date today_ = Day(31, 3, 2014);
};

/// Values, what is missing and what is to come, of one small portfolio.
class HomeOfADeskTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void ValueAndChangeAreOfTheNewestRates_data() {
    const test::Table<QString, QString, int> row;
    // Rates of the first scrip, "day:rate"; the second one has 50 on the 12th and 51 on the 13th.
    row("both of the newest day", "12:100 13:102.5", "1022.50 + 22.50", 0);
    row("an older rate does not change", "11:90 12:100", "1010.00 + 10.00", 0);
    row("one rate alone does not change", "13:100", "1010.00 + 10.00", 0);
    row("days between are passed over", "1:80 13:100", "1010.00 + 110.00", 0);
    row("of a day to come", "12:100 13:102.5 20:500", "1022.50 + 22.50", 0);
    row("older than seven days", "1:100 5:110", "1060.00 + 10.00", 1);
    row("none", "", "510.00 + 10.00", 1);
  }
  void ValueAndChangeAreOfTheNewestRates() {
    const auto [rates, expected, without] = test::Table<QString, QString, int>::Row();
    (*desk_).Connection().Execute("Delete From MarketRate");
    Buy(desk_->scrip, QStringLiteral("01/06/2011"), 5);
    Buy(desk_->second_scrip, QStringLiteral("01/06/2011"), 10);
    for (const QString& rate : rates.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
      Rate(rate.section(QLatin1Char(':'), 0, 0).toInt(), desk_->scrip,
           rate.section(QLatin1Char(':'), 1).toDouble());
    }
    // So many days that the first of them are not read whole.
    for (int day = 3; day <= 8; ++day) {
      Rate(day, desk_->second_scrip, 40);
    }
    Rate(12, desk_->second_scrip, 50);
    Rate(13, desk_->second_scrip, 51);
    const home::Figures figures = Read(Day(13, 6, 2011));
    const QString change = text::FormatAmount(figures.change.Rupees());
    QCOMPARE(text::FormatAmount(figures.value.Rupees()) + QStringLiteral(" + ") + change, expected);
    QCOMPARE(figures.without_rate, without);
  }

  void ALaterRecordCountsFromItsDay() {
    Buy(desk_->scrip, QStringLiteral("01/06/2011"), 5);
    Buy(desk_->scrip, QStringLiteral("20/06/2011"), 7);
    QCOMPARE(Read(Day(13, 6, 2011)).cost.Count(), 5 * 10000);
    QCOMPARE(Read(Day(19, 6, 2011)).cost.Count(), 5 * 10000);
    QCOMPARE(Read(Day(20, 6, 2011)).cost.Count(), 12 * 10000);
  }

  void DividendsToComeAreAnnouncedOutstandingOrRecorded() {
    Buy(desk_->scrip, QStringLiteral("01/06/2011"), 40);
    database::Connection& connection = desk_->Connection();
    const auto announce = [&](int id, ScripId scrip, const char* day, int applied) {
      connection.Execute(
          "Insert Into CorpAction(Id,Kind,ScrId,ExDay,Price,Applied) Values(?,9,?,?,2.5,?)", id,
          scrip, day, applied);
    };
    announce(1, desk_->scrip, "20/06/2011", 0);
    announce(2, desk_->scrip, "05/06/2011", 0);
    announce(3, desk_->scrip, "01/01/2010", 0);         // long ago
    announce(4, desk_->scrip, "06/06/2011", 1);         // recorded
    announce(5, desk_->second_scrip, "20/06/2011", 0);  // not held
    connection.Execute(
        "Insert Into Dividend(Id,CId,AcId,ScrId,DDate,Qty,PerShare,Tax) "
        "Values(1,?,?,?,'30/06/2011',10,3,2.5),(2,?,?,?,'10/06/2011',10,3,0)",
        desk_->client, desk_->account, desk_->scrip, desk_->client, desk_->account, desk_->scrip);
    QStringList found;
    for (const home::ComingDividend& one : Read(Day(13, 6, 2011)).dividends) {
      found << QStringLiteral("%1 %2 %3 %4")
                   .arg(one.scrip_name, one.day)
                   .arg(one.action)
                   .arg(one.amount ? text::FormatAmount(one.amount->Rupees())
                                   : QStringLiteral("-"));
    }
    connection.Execute("Delete From CorpAction");
    connection.Execute("Delete From Dividend");
    QCOMPARE(found, QStringList({"RELIANCE 05/06/2011 2 -", "RELIANCE 20/06/2011 1 100.00",
                                 "RELIANCE 30/06/2011 0 27.50"}));
  }

  /// What a change tells of whose figures have to be computed, and that nothing else changed.
  void ChangedClientsAreToldByTheLog_data() {
    using Work = std::function<void(database::Transaction&, const test::Desk&)>;
    const test::Table<Work, QString> row;
    const auto own = [](const test::Desk& desk) {
      return changes::Owner{.client = desk.client.value};
    };
    row(
        "bills of two clients",
        [](database::Transaction& transaction, const test::Desk& desk) {
          for (const ClientId client : {desk.client, desk.other_client}) {
            records::Bill bill = desk.NewBill({});
            bill.id = BillId{70 + client.value};
            bill.client = client;
            bill.year = desk.year;
            records::Insert(transaction, bill);
          }
        },
        "the first and the second");
    row(
        "shares to another client",
        [](database::Transaction& transaction, const test::Desk& desk) {
          records::Transfer transfer;
          transfer.id = TransferId{70};
          transfer.client = desk.client;
          transfer.year = desk.year;
          transfer.date = QStringLiteral("03/06/2011");
          transfer.from = desk.account;
          transfer.to = desk.other_account;
          transfer.to_client = desk.other_client;
          transfer.kind = records::TransTo::kOtherClient;
          transfer.scrip = desk.scrip;
          transfer.rate = 100;
          transfer.quantity = text::Shares(2);
          records::Insert(transaction, transfer);
        },
        "the first and the second");
    row(
        "a rate",
        [](database::Transaction& transaction, const test::Desk& desk) {
          records::Insert(
              transaction,
              records::MarketRate{desk.year, 1, QStringLiteral("12/06/2011"), desk.scrip, 100});
        },
        "nobody");
    row(
        "lots of one client rebuilt",
        [=](database::Transaction& transaction, const test::Desk& desk) {
          transaction.Changes().Summarise(changes::Kind::kRebuilt, {}, own(desk));
          transaction.Changes().Of("Stock").added_count = 1;
        },
        "the first");
    row(
        "a work of counts",
        [=](database::Transaction& transaction, const test::Desk& desk) {
          transaction.Changes().Summarise(changes::Kind::kImported, {}, own(desk));
          transaction.Changes().Of("SPTrans").added_count = 1;
        },
        "all");
    row(
        "a new year's opening",
        [](database::Transaction& transaction, const test::Desk& desk) {
          records::Opening opening;
          opening.client = desk.client;
          opening.year = desk.year.Next();
          records::Insert(transaction, opening);
        },
        "all");
    row(
        "nothing in the log", [](database::Transaction&, const test::Desk&) {}, "all");
  }
  void ChangedClientsAreToldByTheLog() {
    const auto [work, expected] =
        test::Table<std::function<void(database::Transaction&, const test::Desk&)>, QString>::Row();
    Buy(desk_->scrip, QStringLiteral("01/06/2011"), 5);
    database::Connection& connection = desk_->Connection();
    const text::Date today = Day(13, 6, 2011);
    home::RecordsSince since;
    Progress progress;
    home::Known& known = since.Begin(connection, desk_->year, today);
    QVERIFY(!known.changed);
    home::RefreshFigures(
        connection, desk_->year, today, progress, [] {}, &known);
    since.End();
    database::InTransaction(connection,
                            [&](database::Transaction& transaction) { work(transaction, *desk_); });
    since.Begin(connection, desk_->year, today);
    QCOMPARE(Named(known.changed), expected);
    home::RefreshFigures(
        connection, desk_->year, today, progress, [] {}, &known);
    QCOMPARE(home::RefreshFigures(connection, desk_->year, today, progress), 0);
    test::Empty(connection, {"MarketRate"});
  }

  void AccountsWithoutAGoodStatementAreCounted_data() {
    const test::Table<QString, QString> row;  // statements of an account; never, differing, old
    row("none", "", "1 0 0");
    row("six months ago", "13/12/2010:0", "0 0 0");
    row("a day before", "12/12/2010:0", "0 0 1");
    row("differs", "12/12/2010:3", "0 1 0");
    row("the last one counts", "12/06/2011:0 12/05/2011:3", "0 0 0");
    row("and not the last one entered", "12/06/2011:1 12/05/2011:0", "0 1 0");
  }
  void AccountsWithoutAGoodStatementAreCounted() {
    const auto [statements, expected] = test::Table<QString, QString>::Row();
    Buy(desk_->scrip, QStringLiteral("01/06/2011"), 5);
    database::InTransaction(desk_->Connection(), [&](database::Transaction& transaction) {
      for (const QString& one : statements.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        records::Insert(transaction,
                        records::StatementCheck{desk_->client, desk_->account,
                                                one.section(QLatin1Char(':'), 0, 0), 5,
                                                one.section(QLatin1Char(':'), 1).toInt(),
                                                QStringLiteral("13/06/2011")});
      }
    });
    // The other account was emptied this year.
    for (const auto& [year, quantity] : {std::pair(desk_->year.Previous(), 5), {desk_->year, 0}}) {
      desk_->Connection().Execute(
          "Insert Into Stock(Cid,Fyear,AcId,ScriptId,Rate,Qty) Values(?,?,?,?,100,?)",
          desk_->client, year.Utf8(), desk_->second_account, desk_->scrip, quantity);
    }
    const home::StatementCounts counts = Read(Day(13, 6, 2011)).statements;
    test::Empty(desk_->Connection(), {"StatementCheck"});
    QCOMPARE(QStringLiteral("%1 %2 %3").arg(counts.never).arg(counts.differing).arg(counts.old),
             expected);
  }

  void TheLastRecordsComeFirst() {
    for (int bill = 0; bill < 8; ++bill) {
      Buy(desk_->scrip, QStringLiteral("01/06/2011"), 1);
    }
    const auto last = Read(Day(13, 6, 2011)).last;
    QCOMPARE(last.size(), std::size_t{6});
    QVERIFY(last[0].record > last[5].record);
    QVERIFY(last[0].of == desk_->of);
  }

 private:
  QString Named(const std::optional<std::set<ClientId>>& clients) const {
    QStringList names;
    for (const ClientId client : clients.value_or(std::set<ClientId>())) {
      names << (client == desk_->client         ? "the first"
                : client == desk_->other_client ? "the second"
                                                : "another");
    }
    return !clients ? "all" : names.isEmpty() ? "nobody" : names.join(QLatin1String(" and "));
  }

  void Buy(ScripId scrip, const QString& day, double quantity) {
    records::BillLine line = desk_->Purchase(quantity, 100);
    line.scrip = scrip;
    records::Bill bill = desk_->NewBill(day, {line});
    QCOMPARE(test::TextOf(test::Save(bills::BillBook(desk_->Connection(), desk_->of), bill)),
             test::kAccepted);
  }

  void Rate(int day, ScripId scrip, double rate) {
    const rates::ScripRate one{scrip, rate};
    rates::RateBook(desk_->Connection()).Save(Day(day, 6, 2011), {&one, 1});
  }

  home::Figures Read(text::Date today) {
    Progress progress;
    home::RefreshFigures(desk_->Connection(), desk_->year, today, progress);
    return home::ReadFigures(desk_->Connection(), {{}, desk_->year, today});
  }
};

static const test::RegisterTest<FiguresTest> kRegistered;
static const test::RegisterTest<HomeOfADeskTest> kAlsoRegistered;
#include "FiguresTest.moc"
