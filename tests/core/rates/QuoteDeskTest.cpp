#include "core/rates/QuoteDesk.h"
#include "support/Files.h"
#include "support/LocalExchange.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::rates;
using test::LocalExchange;
using Manner = LocalExchange::Manner;
using Reply = LocalExchange::Reply;

Q_DECLARE_METATYPE(Reply)

namespace {

constexpr int kPatienceMs = 700;
constexpr qint64 kMostBytes = 1 << 20;
const QString kBseFile = QStringLiteral(
    "/stockinfo/stockprc2_excel.aspx?scripcd=500325&FromDate=06/15/2011&ToDate=06/15/2011&OldDMY=D"
    "&ScripName=L%26T%20LTD");
const QString kNseFile =
    QStringLiteral("/content/equities/scripvol/datafiles/15-06-2011-TO-15-06-2011M&MALLN.csv");
const QByteArray kFile = "Date,Close Price\n15-Jun-2011,950.25\n";

}  // namespace

class QuoteDeskTest : public QObject {
  Q_OBJECT

  ExchangeHosts Hosts() const {
    const QUrl here = exchange_->Address();
    return {.bse = here, .nse = here, .bse_quotes = here, .nse_quotes = here, .archive = here};
  }

  static PriceQuestion Question(const char* exchange, const char* code) {
    return {.exchange = QLatin1String(exchange),
            .code = QLatin1String(code),
            .name = QStringLiteral("L&T LTD"),
            .date = *text::MakeDate(15, 6, 2011)};
  }

  double Ask(const PriceQuestion& question) {
    std::optional<double> got;
    desk_->ClosingPrice(question, [&](double price) { got = price; });
    [&] { QTRY_VERIFY_WITH_TIMEOUT(got.has_value(), 5 * kPatienceMs); }();
    return got.value_or(-1);
  }

 private Q_SLOTS:
  void init() {
    exchange_ = std::make_unique<LocalExchange>();
    folder_ = std::make_unique<QTemporaryDir>();
    desk_ = std::make_unique<QuoteDesk>(Hosts(), folder_->filePath(QStringLiteral("MRate")));
    desk_->SetLimits({.milliseconds = kPatienceMs, .bytes = kMostBytes});
  }
  void cleanup() { desk_.reset(); }

  void EachExchangeIsAskedInItsOwnWay() {
    exchange_->Answer(kBseFile, {.body = kFile});
    exchange_->Answer(kNseFile, {.body = "Close Price\n7\n"});
    QDir work(folder_->filePath(QStringLiteral("MRate/sub/.hidden")));
    QVERIFY(work.mkpath(QStringLiteral(".")));
    QCOMPARE(Ask(Question(" bse ", "500325")), 950.25);
    QVERIFY(!work.exists());
    const QString kept = folder_->filePath(QStringLiteral("MRate/DateMRate.csv"));
    QCOMPARE(test::ReadFile(kept), kFile);
    QCOMPARE(Ask(Question("NSE", "M&M")), 7.0);
    QCOMPARE(exchange_->asked, QStringList({kBseFile, kNseFile}));
    QCOMPARE(Ask(Question("MCX", "GOLD")), 0.0);
    QCOMPARE(Ask(Question("BSE", "")), 0.0);
    QCOMPARE(exchange_->asked.size(), 2);
    QVERIFY(!QFile::exists(kept));
  }

  void BadAnswersAreNoPrice_data() {
    const test::Table<Reply> row;
    row("not found", Reply{.body = kFile, .status = 404});
    row("larger than the limit", Reply{.body = kFile + QByteArray(kMostBytes, ' ')});
    row("redirect to itself", Reply{.status = 302, .location = kBseFile.toLatin1()});
  }
  void BadAnswersAreNoPrice() {
    const auto [reply] = test::Table<Reply>::Row();
    exchange_->Answer(kBseFile, reply);
    QCOMPARE(Ask(Question("BSE", "500325")), 0.0);
  }

  void ANewQuestionTakesThePlaceOfTheOld() {
    exchange_->Answer(kBseFile, {.manner = Manner::kSilent});
    exchange_->Answer(kNseFile, {.body = kFile});
    bool answered = false;
    desk_->ClosingPrice(Question("BSE", "500325"), [&](double) { answered = true; });
    QCOMPARE(Ask(Question("NSE", "M&M")), 950.25);
    QTest::qWait(2 * kPatienceMs);
    QVERIFY(!answered);
  }

 private:
  std::unique_ptr<LocalExchange> exchange_;
  std::unique_ptr<QTemporaryDir> folder_;
  std::unique_ptr<QuoteDesk> desk_;
};

static const test::RegisterTest<QuoteDeskTest> kRegistered;
#include "QuoteDeskTest.moc"
