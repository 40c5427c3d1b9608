#include "core/text/Amounts.h"
#include "reporting/output/WorkbookFile.h"
#include "reports/Sample.h"
#include "reports/demat/Movements.h"
#include "reports/demat/TransactionDocument.h"
#include "support/Test.h"

#include <QRegularExpression>

using namespace quorvane;
using namespace quorvane::demat;

namespace {

std::vector<std::pair<ClientId, std::vector<TransactionSection>>> Build(
    database::Connection& connection, const TransactionQuery& query) {
  std::vector<std::pair<ClientId, std::vector<TransactionSection>>> clients;
  Progress progress;
  const auto faults = BuildTransactions(
      connection, query, progress,
      [&](ClientId client, std::span<const TransactionSection> sections) {
        clients.emplace_back(client, std::vector(sections.begin(), sections.end()));
      });
  return faults.empty() ? clients : decltype(clients)();
}

/// The report for machines without its first columns' sameness: "line,1001,LOTUS,...".
QStringList Records(database::Connection& connection, const TransactionQuery& query) {
  std::string csv;
  const lookups::Directory directory(connection);
  for (const auto& [client, sections] : Build(connection, query)) {
    AppendTransactionCsv(csv, sections, directory);
  }
  return QString::fromStdString(csv).split('\n', Qt::SkipEmptyParts);
}

}  // namespace

class TransactionReportTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LinesAndClosingAreThoseOfTheBills_data() {
    const test::Table<bool, bool, QStringList> row;
    const QString head = "line,1001,LOTUS,B/4,S1,05/05/2011,";
    const QString first = head + "500325,buy,10,100.05,1000.50,5.00,0.52,1.25,1006.75";
    const QString second = head + "500325,buy,30,110,3300.00,15.00,1.55,4.13,3319.13";
    const QString both = head + "500325,buy,40,107.5125,4300.50,20.00,2.07,5.38,4325.88";
    const QString sale = head + "500209,sell,5,200,1000.00,2.50,0.26,1.25,1003.75";
    const QString later =
        "line,1002,LOTUS,B/2,S1,06/05/2011,500209,buy,1,50,50.00,0.00,0.00,0.00,50.00";
    const QString amber =
        "line,1001,AMBER,B/3,S1,07/05/2011,500209,sell,2,60,120.00,0.00,0.00,0.00,120.00";
    const auto closing = [](const char* account, const char* broker, const char* other,
                            const char* charges, const char* what, const char* amount) {
      const QString between = QStringLiteral(",%1,%2,,,,,,,,,,,,").arg(account, broker);
      return QStringList{"other_charges" + between + other,
                         "transaction_charges" + between + charges,
                         QLatin1String(what) + between + amount};
    };
    // 4300.50 + 20.00 + 2.07 - (1000.00 - 2.50 - 0.26) + 10.00 + 6.63 + 3.00 = 3344.96
    row("detailed", true, false,
        QStringList{amber} + closing("", "AMBER", "0.00", "0.00", "receivable", "120.00") +
            QStringList{first, second, sale, later} +
            closing("", "LOTUS", "10.00", "3.00", "payable", "3394.96"));
    row("account by account", false, true,
        QStringList{amber} + closing("1001", "AMBER", "0.00", "0.00", "receivable", "120.00") +
            QStringList{both, sale} +
            closing("1001", "LOTUS", "10.00", "3.00", "payable", "3344.96") + QStringList{later} +
            closing("1002", "LOTUS", "0.00", "0.00", "payable", "50.00"));
  }
  void LinesAndClosingAreThoseOfTheBills() {
    test::MovementDesk desk;
    desk.AddBill(4, "05/05/2011", desk.first, desk.lotus, 10, 3);
    desk.AddLine(4, true, desk.reliance, 10, 100.05, {0.5, 0.52, 1.25});
    desk.AddLine(4, true, desk.reliance, 30, 110, {0.5, 1.55, 4.13});
    desk.AddLine(4, false, desk.infosys, 5, 200, {0.5, 0.26, 1.25});
    desk.AddBill(2, "06/05/2011", desk.second, desk.lotus);
    desk.AddLine(2, true, desk.infosys, 1, 50);
    desk.AddBill(3, "07/05/2011", desk.first, desk.amber);
    desk.AddLine(3, false, desk.infosys, 2, 60);
    desk.AddBill(5, "01/06/2011", desk.first, desk.amber, 99, 99);
    const auto [detailed, account_wise, records] = test::Table<bool, bool, QStringList>::Row();
    const reporting::Period may{*text::MakeDate(1, 5, 2011), *text::MakeDate(31, 5, 2011)};
    QCOMPARE(Records(*desk.database,
                     {desk.client,
                      desk.year,
                      may,
                      {},
                      {},
                      detailed ? TransactionLayout::kDetailed : TransactionLayout::kSummarized,
                      account_wise}),
             records);
  }

  void CaptionFollowsWhatIsLarger_data() {
    const test::Table<int, int, QString> row;
    row("charges exceed the rest of sales", -100, 101, "Total Payable");
    row("equal", -100, 100, "Total Receivable");
  }
  void CaptionFollowsWhatIsLarger() {
    const auto [net, charges, caption] = test::Table<int, int, QString>::Row();
    TransactionClosing closing;
    closing.net = net;
    closing.stt = charges;
    QCOMPARE(ClosingCaption(closing), caption);
  }

  void WorkbookHoldsEveryLineAndTheTotal_data() {
    const test::Table<bool> row;
    row("TransRpt", false);
    row("TransRptNew", true);
  }

  void WorkbookHoldsEveryLineAndTheTotal() {
    const auto [detailed] = test::Table<bool>::Row();
    test::TestDatabase database;
    test::TakeInSample(database);
    const text::FinancialYear year(2011);
    const lookups::Directory directory(*database);
    const ClientId client = directory.FindClient("ATH001")->id;
    const TransactionQuery query{
        client, year, reporting::Period::Of(year),
        {},     {},   detailed ? TransactionLayout::kDetailed : TransactionLayout::kSummarized,
        false};
    const auto sections = Build(*database, query).front().second;
    const QTemporaryDir folder;
    const QString path = folder.filePath("report.xlsx");
    Progress progress;
    WriteTransactionWorkbook(query, client, sections, directory,
                             QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped"), path, progress);
    const QStringList cells = test::WorkbookFile(path).Cells("xl/worksheets/sheet1.xml");
    qsizetype lines = 0;
    for (const BrokerTransactions& broker : sections.front().brokers) {
      lines += static_cast<qsizetype>(broker.lines.size());
    }
    QVERIFY(sections.front().brokers.size() > 1);
    QCOMPARE(cells.filter(QRegularExpression("^A\\d+=#")).size(), lines);
    const QString total = cells.filter(QRegularExpression("^E\\d+=TOTAL$")).value(0);
    const QString row = total.mid(1, total.indexOf('=') - 1);
    QVERIFY(cells.contains(QStringLiteral("M%1=#").arg(row) +
                           text::NumberText(text::FromPaise(sections.front().sums.total))));
    QVERIFY(cells.contains("A1=RAGHAV MOHAN ATHALEKAR (ATH001)"));
    QVERIFY(cells.contains("A4=Period - From 01/04/2011 To 31/03/2012"));
  }
};

static const test::RegisterTest<TransactionReportTest> kRegistered;
#include "TransactionReportTest.moc"
