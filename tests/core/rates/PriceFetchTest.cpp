#include "core/rates/PriceFetch.h"
#include "support/Files.h"
#include "support/LocalExchange.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::rates;
using test::LocalExchange;
using Manner = LocalExchange::Manner;
using Reply = LocalExchange::Reply;

Q_DECLARE_METATYPE(Reply)
Q_DECLARE_METATYPE(quorvane::text::Date)

namespace {

const QString kArchived = QStringLiteral("/Hisbhav/eq310118_csv.zip");
const QString kCommon =
    QStringLiteral("/download/BhavCopy/Equity/BhavCopy_BSE_CM_0_0_0_20240708_F_0000.CSV");
const QString kMovers = QStringLiteral("/sensex/mktwatchR.aspx?filter=");
const QString kMissing =
    QStringLiteral("File Not Found.This Date Bhav Copy Not available on site.");

QByteArray MoverPage(const QByteArray& table, const QByteArray& rows, bool more = false) {
  return "<table id='" + table + "'><tr><th>Scrip Code<th>Scrip Name<th>LTP (Rs.)<th>Change</tr>" +
         rows + "</table>" +
         (more ? "<td id='tdNext0'><a href='#'>Next</a></td>" : "<td id='tdNext0'>Next</td>");
}

}  // namespace

class PriceFetchTest : public QObject {
  Q_OBJECT

  template <class Ask>
  Fetched Await(Ask ask) {
    std::optional<Fetched> got;
    ask([&](const Fetched& fetched) { got = fetched; });
    [&] { QTRY_VERIFY_WITH_TIMEOUT(got.has_value(), 10'000); }();
    return got.value_or(Fetched{.failure = QStringLiteral("no answer")});
  }

  Fetched Archived(Exchange exchange, text::Date date) {
    return Await([&](auto answer) { fetch_->FileOf(exchange, date, answer); });
  }

 private Q_SLOTS:
  void init() {
    exchange_ = std::make_unique<LocalExchange>();
    folder_ = std::make_unique<QTemporaryDir>();
    const QUrl here = exchange_->Address();
    fetch_ = std::make_unique<PriceFetch>(ExchangeHosts{.bse = here,
                                                        .nse = here,
                                                        .bse_quotes = {},
                                                        .nse_quotes = {},
                                                        .archive = here,
                                                        .nse_archive = here},
                                          folder_->filePath(QStringLiteral("MRate")));
    fetch_->SetLimits({.milliseconds = 1500, .bytes = 1 << 20});
  }

  void ArchivedFileIsKeptAndUnpacked() {
    exchange_->Answer(kArchived, {.body = test::Sample("rates.zip")});
    const Fetched fetched = Archived(Exchange::kBse, *text::MakeDate(31, 1, 2018));
    QCOMPARE(fetched.failure, QString());
    QCOMPARE(fetched.path, folder_->filePath(QStringLiteral("MRate/EQ310118.CSV")));
    QVERIFY(QFile::exists(folder_->filePath(QStringLiteral("MRate/EQ.zip"))));
    const Result<PriceFile> file = ReadPriceFile(fetched.path);
    QVERIFY(file);
    QCOMPARE(file->rows.size(), std::size_t{2});
  }

  void AddressIsThatOfTheDay_data() {
    const test::Table<int, text::Date, QStringList> row;
    row("Bombay, old", int(Exchange::kBse), *text::MakeDate(5, 6, 2009),
        QStringList("/Hisbhav/eq050609_csv.zip"));
    row("Bombay, common file first", int(Exchange::kBse), *text::MakeDate(8, 7, 2024),
        QStringList({kCommon, "/Hisbhav/eq080724_csv.zip"}));
    row("National, old", int(Exchange::kNse), *text::MakeDate(5, 7, 2024),
        QStringList("/content/historical/EQUITIES/2024/JUL/cm05JUL2024bhav.csv.zip"));
    row("National, common file", int(Exchange::kNse), *text::MakeDate(8, 7, 2024),
        QStringList("/content/cm/BhavCopy_NSE_CM_0_0_0_20240708_F_0000.csv.zip"));
  }
  void AddressIsThatOfTheDay() {
    const auto [exchange, date, asked] = test::Table<int, text::Date, QStringList>::Row();
    QCOMPARE(Archived(Exchange{exchange}, date).failure, kMissing);
    QCOMPARE(exchange_->asked, asked);
  }

  void BadAnswerIsTold_data() {
    const test::Table<Reply, QString> row;
    const QString unusable = QStringLiteral("Invalid Site.");
    row("page in its place", Reply{.body = "<html>gone</html>"}, unusable);
    row("damaged", Reply{.body = test::Sample("rates.zip").left(200)}, unusable);
    row("cut short", Reply{.body = test::Sample("rates.zip"), .manner = Manner::kTruncated},
        unusable);
    row("silent", Reply{.manner = Manner::kSilent}, unusable);
    row("endless", Reply{.manner = Manner::kEndless}, unusable);
    row("server's failure", Reply{.status = 500}, unusable);
    row("none", Reply{.status = 404}, kMissing);
  }
  void BadAnswerIsTold() {
    const auto [reply, text] = test::Table<Reply, QString>::Row();
    exchange_->Answer(kArchived, reply);
    QCOMPARE(Archived(Exchange::kBse, *text::MakeDate(31, 1, 2018)).failure, text);
  }

  void NextAddressIsAskedAfterAnyFailure_data() {
    const test::Table<Reply> row;
    row("forbidden", Reply{.status = 403});
    row("damaged", Reply{.body = test::Sample("rates.zip").left(200)});
  }
  void NextAddressIsAskedAfterAnyFailure() {
    const auto [first] = test::Table<Reply>::Row();
    const text::Date date = *text::MakeDate(8, 7, 2024);
    exchange_->Answer(kCommon, first);
    exchange_->Answer(QStringLiteral("/Hisbhav/eq080724_csv.zip"),
                      {.body = test::Sample("rates.zip")});
    const Fetched fetched = Archived(Exchange::kBse, date);
    QCOMPARE(fetched.failure, QString());
    QVERIFY(fetched.path.endsWith(QLatin1String("/EQ310118.CSV")));
    exchange_->Answer(QStringLiteral("/Hisbhav/eq080724_csv.zip"), {.status = 403});
    QCOMPARE(Archived(Exchange::kBse, date).failure, QStringLiteral("Invalid Site."));
  }

  void NewestFileIsFoundByTheLinkOnItsPage() {
    exchange_->Answer(QStringLiteral("/mktlive/bhavcopy.asp"),
                      {.body = "<a href='/x.htm'>x</a><a href='../files/EQ_CSV.ZIP'>file</a>"});
    exchange_->Answer(QStringLiteral("/files/EQ_CSV.ZIP"), {.body = test::Sample("rates.zip")});
    const Fetched fetched = Await([&](auto answer) { fetch_->NewestFile(answer); });
    QCOMPARE(fetched.failure, QString());
    QVERIFY(fetched.path.endsWith(QLatin1String("/EQ310118.CSV")));
  }

  void MoversAreReadPageByPage() {
    exchange_->Answer(kMovers + QStringLiteral("gainer*all$all$"),
                      {.body = MoverPage("grd1", "<tr><td>500325<td>REL<td>1,961.15<td>5", true)});
    exchange_->Answer(kMovers + QStringLiteral("gainer*all$all$&Page=2"),
                      {.body = MoverPage("grd2",
                                         "<tr><td>500209<td>INFY<td>10.5<td>5"
                                         "<tr><td>500325<td>REL<td>7<td>5")});
    exchange_->Answer(kMovers + QStringLiteral("loser*all$all$"),
                      {.body = MoverPage("grd1",
                                         "<tr><td>500002<td>ABB<td>-<td>5"
                                         "<tr><td>500003<td>ABC<td>2.25<td>5")});
    const Fetched fetched = Await([&](auto answer) { fetch_->Movers(answer); });
    QCOMPARE(fetched.failure, QString());
    QStringList rows;
    for (const PriceRow& row : fetched.movers.rows) {
      rows << QStringLiteral("%1 %2").arg(QString::fromStdString(row.code)).arg(row.rate);
    }
    QCOMPARE(rows, QStringList({"500325 1961.15", "500209 10.5", "500003 2.25"}));
    QVERIFY(QFile::exists(folder_->filePath(QStringLiteral("MRate/a.htm"))));
    QVERIFY(QFile::exists(folder_->filePath(QStringLiteral("MRate/b.htm"))));
  }

  void EndlessPagesEnd() {
    for (int page = 1; page <= PriceFetch::kMostPages + 5; ++page) {
      for (const char* filter : {"gainer*all$all$", "loser*all$all$"}) {
        const QString number = page == 1 ? QString() : QStringLiteral("&Page=%1").arg(page);
        exchange_->Answer(kMovers + QLatin1String(filter) + number,
                          {.body = MoverPage("grd1", "<tr><td>1<td>A<td>2", true)});
      }
    }
    QCOMPARE(Await([&](auto answer) { fetch_->Movers(answer); }).failure, QString());
    QCOMPARE(exchange_->asked.size(), 2 * PriceFetch::kMostPages);
  }

 private:
  std::unique_ptr<LocalExchange> exchange_;
  std::unique_ptr<QTemporaryDir> folder_;
  std::unique_ptr<PriceFetch> fetch_;
};

static const test::RegisterTest<PriceFetchTest> kRegistered;
#include "PriceFetchTest.moc"
