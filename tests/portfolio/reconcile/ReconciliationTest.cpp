#include "portfolio/Import.h"
#include "portfolio/paper/Owners.h"
#include "portfolio/reconcile/KeptChecks.h"
#include "portfolio/reconcile/Reconciliation.h"
#include "support/DatabaseTest.h"
#include "support/Desk.h"
#include "support/Records.h"

using namespace quorvane;
using namespace quorvane::reconcile;

/// Books of the desk's client, against statements of 31 October 2011.
class ReconciliationTest : public test::DeskTest {
  Q_OBJECT

  void Record(portfolio::FileKind kind, const std::string& rows) {
    static const std::map<portfolio::FileKind, std::string> kHeaders{
        {portfolio::FileKind::kBills,
         "client_code,account_no,bill_no,bill_date,broker,exchange,side,scrip_code,quantity,rate"},
        {portfolio::FileKind::kTransfers, "date,from_account,to_account,scrip_code,rate,quantity"},
        {portfolio::FileKind::kActions, "scrip_code,kind,ex_date,new,old"}};
    Progress progress;
    const auto result = portfolio::ImportFiles(
        desk_->Connection(), {{kind, kHeaders.at(kind) + "\n" + rows}}, false, {}, progress);
    QVERIFY(result);
    QCOMPARE(result->errors.empty() ? "" : result->errors.front().Text(), std::string());
  }

  void Bill(const std::string& number, const std::string& day, const std::string& rest) {
    Record(portfolio::FileKind::kBills,
           "C1,1001," + number + "," + day + ",O'BRIEN & SONS,BSE," + rest + "\n");
  }

  /// "account scrip recorded stated: result (cause)" a row.
  QStringList Told(const std::vector<StatedHolding>& holdings) {
    Statement statement;
    statement.day = text::MakeDate(31, 10, 2011);
    statement.accounts = {"1001", "1002"};
    statement.holdings = holdings;
    Progress progress;
    const auto result =
        Reconcile(desk_->Connection(), statement,
                  {.client = desk_->client, .today = *text::MakeDate(15, 11, 2011)}, progress);
    if (!result) {
      return {result.Why().text};
    }
    QStringList told;
    for (const ReconciledRow& row : result->rows) {
      told << QStringLiteral("%1 %2 %3 %4: %5 (%6)")
                  .arg(row.account_number, row.name)
                  .arg(row.recorded.Number())
                  .arg(row.stated.Number())
                  .arg(TextOf(row.agreement, Language::kEnglish),
                       TextOf(row.cause, Language::kEnglish));
    }
    return told;
  }

  static StatedHolding Stated(const char* account, const char* isin, double quantity) {
    return {account, isin, "AS STATED", {}, text::Shares(quantity), 0, 1};
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(),
                {"ScripIsin", "CorpAction", "CorpActionLot", "StatementCheck"});
    for (const auto& [scrip, isin] :
         {std::pair(desk_->scrip, "INE999A01015"), std::pair(desk_->scrip, "INE999C01037"),
          std::pair(desk_->second_scrip, "INE999B01021")}) {
      desk_->Connection().Execute("Insert Into ScripIsin(ScrId,Isin,FromDay) Values(?,?,'')", scrip,
                                  isin);
    }
  }

  void OldAndNewIsinOfAScripAreOneRow() {
    Bill("1", "02/05/2011", "P,500325,100,50");
    QCOMPARE(Told({Stated("1001", "INE999A01015", 40), Stated("1001", "INE999C01037", 60)}),
             QStringList("1001 RELIANCE 100 100: Agrees ()"));
  }

  void TradesThatWereNotSettledAreNamed() {
    Bill("1", "02/05/2011", "P,500325,100,50");
    Bill("2", "28/10/2011", "P,500325,30,51");
    Bill("3", "31/10/2011", "S,500325,10,52");
    QCOMPARE(Told({Stated("1001", "INE999A01015", 100)}),
             QStringList("1001 RELIANCE 120 100: Differs (Bill 2 of 28/10/2011 was not settled on "
                         "that day)"));
    Bill("4", "02/11/2011", "P,500325,5,51");
    QCOMPARE(Told({Stated("1001", "INE999A01015", 125)}),
             QStringList("1001 RELIANCE 120 125: Differs (Bill 4 of 02/11/2011 was not settled on "
                         "that day)"));
  }

  void TransferIsNamedOrSuspected() {
    Bill("1", "02/05/2011", "P,500325,100,50");
    const std::vector<StatedHolding> moved{Stated("1001", "INE999A01015", 60),
                                           Stated("1002", "INE999A01015", 40)};
    QCOMPARE(Told(moved),
             QStringList({"1001 RELIANCE 100 60: Differs (The other way round in account 1002: a "
                          "transfer?)",
                          "1002 RELIANCE 0 40: Missing in the Books (The other way round in "
                          "account 1001: a transfer?)"}));
    Record(portfolio::FileKind::kTransfers, "03/11/2011,1001,1002,500325,50,40\n");
    QCOMPARE(Told(moved).first(),
             QString("1001 RELIANCE 100 60: Differs (A transfer of 03/11/2011 is near that day)"));
  }

  void AppliedActionMayBeCreditedLater() {
    Bill("1", "02/05/2011", "P,500325,100,50");
    Record(portfolio::FileKind::kActions, "500325,bonus,28/10/2011,1,2\n");
    QCOMPARE(Told({Stated("1001", "INE999A01015", 100)}),
             QStringList("1001 RELIANCE 150 100: Differs (Bonus 1:2 of 28/10/2011 is applied; its "
                         "shares come later)"));
  }

  void ComparisonIsKeptOfEachAccountAndTheStatementsDay_data() {
    // The statement's day and the one asked for, its accounts, those of its rows in doubt; what is
    // kept: account, day, compared, differing.
    const test::Table<QString, QString, QStringList, QStringList, QString> row;
    const QStringList one("1001");
    const QStringList two{"1001", "1002"};
    row("doubts of one account", "31/10/2011", "", two, QStringList({"1002", "1002"}),
        "1001 31/10/2011 1 1, 1002 31/10/2011 0 2");
    row("doubts of no known account", "31/10/2011", "", two, QStringList({"", "9001"}),
        "1001 31/10/2011 1 1, 1002 31/10/2011 0 0");
    row("of the only account", "31/10/2011", "31/10/2011", one, QStringList({"", "9001"}),
        "1001 31/10/2011 1 2");
    row("no day in the statement", "", "30/10/2011", one, QStringList(), "1001 30/10/2011 1 1");
    row("books of another day", "31/10/2011", "01/11/2011", one, QStringList(), "");
  }
  void ComparisonIsKeptOfEachAccountAndTheStatementsDay() {
    const auto [day, asked, accounts, doubts, kept] =
        test::Table<QString, QString, QStringList, QStringList, QString>::Row();
    Statement statement;
    statement.day = text::ParseDmy(day);
    statement.holdings = {Stated("1001", "INE999A01015", 5)};
    for (const QString& account : accounts) {
      statement.accounts.push_back(account.toStdString());
    }
    for (const QString& account : doubts) {
      statement.doubts.push_back({account.toStdString(), "line 1: not clear"});
    }
    const text::Date today = *text::MakeDate(15, 11, 2011);
    Progress progress;
    const auto result = Reconcile(
        desk_->Connection(), statement,
        {.client = desk_->client, .day = text::ParseDmy(asked), .today = today}, progress);
    QVERIFY(result);
    KeepCheck(desk_->Connection(), *result, today);
    const std::string deletes = "Show Session Status Like 'Handler_delete'";
    const QStringList before = test::Rows(desk_->Connection(), deletes);
    KeepCheck(desk_->Connection(), *result, today);
    QCOMPARE(test::Rows(desk_->Connection(), deletes), before);
    QCOMPARE(test::Rows(desk_->Connection(),
                        "Select Concat_Ws(' ',A.ACNo,S.StatementDay,S.Compared,S.Differing) From "
                        "StatementCheck S Join ClientActDet A On A.id=S.AcId Order By A.ACNo")
                 .join(QStringLiteral(", ")),
             kept);
  }

  void StatementOfOtherAccountsIsRefused_data() {
    const test::Table<std::string, QString> row;
    row("another client's", "2001", "The Account 2001 is of Another Client: C2.");
    row("nobody's", "9001", "No Account of the Statement is a Demat A/c of the Client: 9001.");
  }
  void StatementOfOtherAccountsIsRefused() {
    const auto [number, told] = test::Table<std::string, QString>::Row();
    Statement statement;
    statement.day = text::MakeDate(31, 10, 2011);
    statement.accounts = {number};
    statement.holdings = {Stated(number.c_str(), "INE999A01015", 1)};
    const auto owner = OwnerOf(desk_->Connection(), statement,
                               {.client = desk_->client, .today = *text::MakeDate(15, 11, 2011)});
    QVERIFY(!owner);
    QCOMPARE(owner.Why().text, told);
    QCOMPARE(owner.Why().field, Field::kAccount);
  }

  void AccountIsFoundByItsNumber_data() {
    // The recorded number and DP id, the paper's number.
    const test::Table<std::string, std::string, std::string, bool> row;
    row("whole", "1299990000000012", "12999900", "1299990000000012", true);
    row("part of the client", "10000001", "IN399901", "IN39990110000001", true);
    row("other participant", "10000001", "IN399902", "IN39990110000001", false);
    row("no participant recorded", "10000001", "", "IN39990110000001", true);
    row("short number in a longer one", "1", "", "IN39990110000001", false);
  }
  void AccountIsFoundByItsNumber() {
    const auto [number, dp_id, printed, found] =
        test::Table<std::string, std::string, std::string, bool>::Row();
    const std::vector<paper::OwnAccount> accounts{{AccountId{7}, ClientId{1}, number, dp_id, {}}};
    QCOMPARE(paper::AccountNamed(accounts, ClientId{1}, printed) != nullptr, found);
    QVERIFY(paper::AccountNamed(accounts, ClientId{2}, printed) == nullptr);
  }
};

static const test::RegisterTest<ReconciliationTest> kRegistered;
#include "ReconciliationTest.moc"
