#include "core/lookups/Directory.h"
#include "reporting/charts/ChartData.h"
#include "reports/Sample.h"
#include "reports/booklet/YearBooklet.h"
#include "reports/mis/MisReport.h"
#include "reports/performance/Returns.h"
#include "reports/tax/TaxDocument.h"
#include "support/DatabaseTest.h"
#include "support/Files.h"
#include "support/StopAfter.h"
#include "transactions/dividends/DividendBook.h"

#include <QBuffer>
#include <QProcess>
#include <QRegularExpression>

using namespace quorvane;
using namespace quorvane::booklet;

namespace {

const QString kShipped = QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped");

std::set<Part> Everything() {
  std::set<Part> parts;
  for (const PartEntry& entry : Parts()) {
    parts.insert(entry.part);
  }
  return parts;
}

/// What a reader of PDF files tells of the booklet; "%1" stands for the file. Empty when it finds
/// a fault.
QString Told(const reporting::Booklet& made, const QString& program, QStringList arguments) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("booklet.pdf");
  Progress progress;
  reporting::WriteBooklet(made, path, progress);
  QProcess reader;
  reader.start(program, arguments.replaceInStrings("%1", path));
  const bool done = reader.waitForFinished() && reader.exitCode() == 0;
  return done ? QString::fromUtf8(reader.readAllStandardOutput()) : QString();
}

/// The pages of a PDF as its readers find them, each as lines with single blanks.
QList<QStringList> PagesOf(const reporting::Booklet& made) {
  QList<QStringList> pages;
  const QString text = Told(made, "pdftotext", {"-layout", "%1", "-"});
  for (const QString& page : text.split('\f', Qt::SkipEmptyParts)) {
    QStringList lines;
    for (const QString& line : page.split('\n', Qt::SkipEmptyParts)) {
      lines << line.simplified();
    }
    pages << lines;
  }
  return pages;
}

double LastTotal(const reporting::Table& table, std::size_t column) {
  return std::get<double>(table.rows.back().cells[column]);
}

}  // namespace

class YearBookletTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
    client_ = lookups::Directory(**database_).FindClient("ATH001")->id;
  }

  void EveryPartIsInItsPlace_data() {
    const test::Table<bool, QStringList> row;
    row("a client", false, QStringList({"Portfolio Booklet", "RAGHAV MOHAN ATHALEKAR"}));
    row("a family", true,
        QStringList({"Family Booklet", "RAGHAV MOHAN ATHALEKAR", "SUNANDA RAGHAV ATHALEKAR",
                     "NIKHIL RAGHAV ATHALEKAR", "MEERA RAGHAV ATHALEKAR"}));
  }
  void EveryPartIsInItsPlace() {
    const auto [family, cover] = test::Table<bool, QStringList>::Row();
    const reporting::Booklet made = Made(QueryOf(2012, family));
    const QList<QStringList> pages = PagesOf(made);
    for (const QString& line : cover) {
      QVERIFY2(pages[0].contains(line), qPrintable(line));
    }
    QVERIFY(pages[0].contains("Financial Year 2012-13"));
    for (qsizetype i = 1; i < pages.size(); ++i) {
      QCOMPARE(pages[i].last(), QStringLiteral("Page %1 of %2").arg(i + 1).arg(pages.size()));
    }
    std::set<QString> headings;
    for (const reporting::BookletPart& part : made.parts) {
      headings.insert(part.heading);
      const QRegularExpression line(
          QStringLiteral("^%1 %2 (\\d+)$").arg(part.heading, part.of_whom));
      const QStringList found = pages[1].filter(line);
      QCOMPARE(found.size(), 1);
      const int page = line.match(found.front()).captured(1).toInt();
      QVERIFY2(part.document.titles.front().startsWith(pages[page - 1].front()),
               qPrintable(pages[page - 1].front()));
      for (const charts::ChartData& chart : part.charts) {
        QVERIFY2(!pages[page - 1].filter(chart.title).isEmpty(), qPrintable(chart.title));
      }
    }
    QCOMPARE(headings.size(), Parts().size());
  }

  // The number at the end of each line of the contents is a link to that page.
  void ContentsLeadToTheParts() {
    const reporting::Booklet made = Made(QueryOf(2012, true));
    QVERIFY(!Told(made, "qpdf", {"--check", "%1"}).isEmpty());
    const QString pages = Told(made, "pdftohtml", {"-xml", "-stdout", "-i", "%1"});
    static const QRegularExpression link("<a href=\"[^\"]*#(\\d+)\">(\\d+)</a>");
    std::size_t links = 0;
    for (auto found = link.globalMatch(pages); found.hasNext(); ++links) {
      const QRegularExpressionMatch one = found.next();
      QCOMPARE(one.captured(1), one.captured(2));
    }
    QCOMPARE(links, made.parts.size());
  }

  // Each sum is also the one that the report by itself has.
  void SumsAreThoseOfTheReports() {
    const BookletQuery query = QueryOf(2012, true);
    const reporting::Booklet made = Made(query);
    mis::MisQuery market =
        mis::MisQuery::OfYear(mis::ReportKind::kMarket, mis::Grouping::kClient, query.of.year);
    std::set<ClientId> family;
    for (const char* code : {"ATH001", "ATH002", "ATH003", "ATH004"}) {
      family.insert(lookups::Directory(**database_).FindClient(code)->id);
    }
    market.clients = {family.begin(), family.end()};
    market.detail = false;
    Progress progress;
    const auto report = mis::MakeMisReport(**database_, market, progress);
    const reporting::Table& holdings = DocumentOf(made, Part::kHoldings).tables.front();
    QCOMPARE(holdings.rows.back().cells, report.tables.front().rows.back().cells);
    const double value = LastTotal(DocumentOf(made, Part::kValue).tables.front(), 1);
    QVERIFY(std::ranges::find(holdings.rows.back().cells, reporting::Cell(value)) !=
            holdings.rows.back().cells.end());

    market.kind = mis::ReportKind::kProfitLoss;
    const auto gains =
        charts::TableOf(mis::GainsByKind(**database_, market, progress)).tables.front();
    const reporting::ReportDocument& by_kind = DocumentOf(made, Part::kGains);
    QCOMPARE(by_kind.tables.size(), std::size_t{2});
    for (const reporting::Table& table : by_kind.tables) {
      QCOMPARE(table.rows.back().cells, gains.rows.back().cells);
    }
    QVERIFY(LastTotal(gains, 4) != 0);

    const auto returns = performance::ReadReturns(
        **database_,
        {.clients = family, .from = query.of.year.FirstDay(), .to = query.of.year.LastDay()},
        progress);
    QCOMPARE(DocumentOf(made, Part::kReturns).tables.front().rows.back().cells[9],
             reporting::Cell(returns.whole.closing.Rupees()));
    QCOMPARE(DocumentOf(made, Part::kMonths).tables.front().rows.back().cells[2],
             reporting::Cell(returns.whole.closing.Rupees()));
    const bool differs = returns.whole.closing != text::Paise::OfRupees(value);
    QCOMPARE(!DocumentOf(made, Part::kMonths).notes.filter("Value and Largest").isEmpty(), differs);
  }

  // What is printed is what was computed: the total of each part is on one of its pages.
  void TotalsArePrinted() {
    const reporting::Booklet made = Made(QueryOf(2012, true));
    QStringList lines;
    for (const QStringList& page : PagesOf(made)) {
      lines += page;
    }
    int totals = 0;
    for (const reporting::BookletPart& part : made.parts) {
      for (const reporting::Table& table : part.document.tables) {
        const reporting::Row& last = table.rows.back();
        if (last.kind == reporting::RowKind::kNetTotal) {
          QStringList cells;
          for (std::size_t i = 0; i < last.cells.size(); ++i) {
            cells << reporting::CellText(last.cells[i], table.columns[i].mask);
          }
          const QString wanted = cells.join(' ').simplified();
          QVERIFY2(lines.contains(wanted), qPrintable(part.heading + ": " + wanted));
          ++totals;
        }
      }
    }
    QVERIFY(totals > 10);
  }

  void TaxOfEveryMemberAddsUpToTheFamilys() {
    BookletQuery query = QueryOf(2012, true);
    query.parts = {Part::kTax};
    const reporting::Booklet made = Made(query);
    QCOMPARE(made.parts.size(), std::size_t{5});
    text::Paise sum;
    for (std::size_t i = 1; i < made.parts.size(); ++i) {
      sum += text::Paise::OfRupees(LastTotal(made.parts[i].document.tables.front(), 8));
    }
    QVERIFY(sum > text::Paise());
    QCOMPARE(LastTotal(made.parts.front().document.tables.front(), 11), sum.Rupees());
  }

  // Whoever received none has no page; with none at all one line says so.
  void DividendsAreThoseOfTheYear() {
    BookletQuery query = QueryOf(2012, true);
    query.parts = {Part::kDividends};
    reporting::Booklet made = Made(query);
    QCOMPARE(made.parts.size(), std::size_t{1});
    QCOMPARE(made.parts.front().document.notes,
             QStringList("No dividend of the period is recorded."));
    const lookups::Directory directory(**database_);
    const ClientId other = directory.FindClient("ATH002")->id;
    const auto account =
        std::ranges::find(directory.Accounts(), other, &lookups::AccountEntry::client);
    dividends::DividendBook book(**database_, {other, query.of.year});
    const Result<DividendId> saved = book.Save({.id = {},
                                                .action = {},
                                                .client = other,
                                                .account = account->id,
                                                .scrip = directory.FindScrip("500312")->id,
                                                .date = QStringLiteral("10/07/2012"),
                                                .quantity = text::Shares(40),
                                                .per_share = 2.5,
                                                .tax_deducted = 10});
    QVERIFY(saved);
    made = Made(query);
    book.Delete(*saved);
    QCOMPARE(made.parts.size(), std::size_t{1});
    QCOMPARE(made.parts.front().of_whom, "SUNANDA RAGHAV ATHALEKAR");
    const reporting::Table& table = made.parts.front().document.tables.front();
    QCOMPARE(LastTotal(table, 5), 100.0);
    QCOMPARE(LastTotal(table, 7), 90.0);
  }

  void RunningYearEndsToday() {
    BookletQuery query = QueryOf(2012, false);
    query.today = *text::ParseDmy(QStringLiteral("15/09/2012"));
    const reporting::Booklet made = Made(query);
    QVERIFY(made.cover.contains("From 01/04/2012 To 15/09/2012, the year is not over"));
    QVERIFY(DocumentOf(made, Part::kValue).titles.front().endsWith("15/09/2012"));
    const reporting::Table& months = DocumentOf(made, Part::kMonths).tables.front();
    QCOMPARE(months.rows.size(), std::size_t{6});
    QCOMPARE(months.rows.back().cells.front(), reporting::Cell(query.today));
  }

  void TaxOfAnUnknownLawIsLeftOut() {
    BookletQuery query = QueryOf(2004, false);
    query.parts = {Part::kTax};
    const reporting::Booklet made = Made(query);
    QCOMPARE(made.parts.size(), std::size_t{1});
    const QStringList notes = made.parts.front().document.notes;
    QVERIFY2(notes.front().startsWith("Left out: ") && notes.front().contains("2004-05"),
             qPrintable(notes.front()));
    QVERIFY(!PagesOf(made).last().filter("Left out").isEmpty());
  }

  void WrongChoicesAreRefused_data() {
    const test::Table<bool, int, QString> row;
    row("no part", false, 2012, "Select a part of the booklet!");
    row("a year to come", true, 2030, "The year 2030-31 has not begun.");
  }
  void WrongChoicesAreRefused() {
    const auto [parts, year, text] = test::Table<bool, int, QString>::Row();
    BookletQuery query = QueryOf(year, false);
    query.parts = parts ? Everything() : std::set<Part>();
    Progress progress;
    const auto made = MakeBooklet(**database_, query, progress);
    QVERIFY(!made);
    QCOMPARE(made.Why().text, text);
  }

  // An older booklet stays as it was.
  void CancelledBookletWritesNothing() {
    const reporting::Booklet made = Made(QueryOf(2012, true));
    const QTemporaryDir folder;
    const QString path = folder.filePath("booklet.pdf");
    Progress progress;
    reporting::WriteBooklet(made, path, progress);
    const QByteArray older = test::ReadFile(path);
    test::StopAfter stop(3);
    QVERIFY_THROWS_EXCEPTION(Cancellation, reporting::WriteBooklet(made, path, stop));
    QCOMPARE(test::ReadFile(path), older);
  }

 private:
  BookletQuery QueryOf(int year, bool family) const {
    return {.of = {client_, text::FinancialYear(year)},
            .family = family,
            .parts = Everything(),
            .today = *text::ParseDmy(QStringLiteral("01/06/2026")),
            .data_folder = kShipped};
  }

  reporting::Booklet Made(const BookletQuery& query) {
    Progress progress;
    return *MakeBooklet(**database_, query, progress);
  }

  static const reporting::ReportDocument& DocumentOf(const reporting::Booklet& made, Part part) {
    const QString heading = Parts()[static_cast<std::size_t>(part)].title;
    return std::ranges::find(made.parts, heading, &reporting::BookletPart::heading)->document;
  }

  ClientId client_;
};

static const test::RegisterTest<YearBookletTest> kRegistered;
#include "YearBookletTest.moc"
