#include "reporting/output/WriteReport.h"
#include "support/Files.h"
#include "support/StopAfter.h"
#include "support/Test.h"

#include <QProcess>
#include <QRegularExpression>

using namespace quorvane;
using namespace quorvane::reporting;

namespace {

/// Groups of `lines` lines with a total each.
ReportDocument Groups(int groups, int lines) {
  ReportDocument document{{"Name of the report", "Financial Year - 2011-12"}, {}};
  Table& table = document.tables.emplace_back();
  table.groups = {{"Sale", 2}};
  table.columns = {TextColumn("Particulars"), AmountColumn("Amount")};
  for (int group = 0; group < groups; ++group) {
    table.rows.push_back(
        {.kind = RowKind::kGroup, .cells = {QStringLiteral("GROUP %1").arg(group)}});
    for (int line = 0; line < lines; ++line) {
      table.rows.push_back(
          {.kind = RowKind::kData, .cells = {QStringLiteral("line %1").arg(line), 1.5}});
    }
    table.rows.push_back({.kind = RowKind::kTotal, .cells = {QString("Total"), 1.5 * lines}});
    table.rows.push_back({.kind = RowKind::kGap, .cells = {}});
  }
  table.rows.push_back(
      {.kind = RowKind::kNetTotal, .cells = {QString("Net Total"), 1.5 * lines * groups}});
  return document;
}

QString ReadAs(const char* manner, const ReportDocument& document) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("report.pdf");
  Progress progress;
  WriteReport(document, OutputFormat::kPdf, path, progress);
  QProcess reader;
  reader.start("pdftotext", {manner, path, "-"});
  if (!reader.waitForFinished() || reader.exitCode() != 0) {
    throw std::runtime_error("the pages cannot be read");
  }
  return QString::fromUtf8(reader.readAllStandardOutput());
}

/// How far down the first page a word stands, in points.
double TopOf(const QString& word, const ReportDocument& document) {
  const QRegularExpression place("yMin=\"([0-9.]+)\"[^>]*>" + word + "<");
  return place.match(ReadAs("-bbox", document)).captured(1).toDouble();
}

/// The lines of each page as a reader of the file finds them.
QList<QStringList> PagesOf(const ReportDocument& document) {
  QList<QStringList> pages;
  for (const QString& page : ReadAs("-layout", document).split('\f', Qt::SkipEmptyParts)) {
    QStringList lines;
    for (const QString& line : page.split('\n', Qt::SkipEmptyParts)) {
      lines.append(line.simplified());
    }
    pages.append(lines);
  }
  return pages;
}

}  // namespace

class PagesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LongTitlesHaveTheirLines() {
    ReportDocument document = Groups(1, 1);
    QVERIFY(TopOf("Particulars", document) > TopOf("Financial", document));
    document.titles[1] = QStringList(40, QStringLiteral("1209990000012345")).join(' ') + " LAST";
    const double below = TopOf("Particulars", document) - TopOf("LAST", document);
    QVERIFY2(below > 10, qPrintable(QString::number(below)));
  }

  void EachPageHasItsHeadingsAndNumber() {
    const QList<QStringList> pages = PagesOf(Groups(30, 5));
    QVERIFY(pages.size() > 2);
    for (qsizetype i = 0; i < pages.size(); ++i) {
      QCOMPARE(pages[i].last(), QStringLiteral("Page %1 of %2").arg(i + 1).arg(pages.size()));
      QVERIFY(pages[i].contains("Particulars Amount"));
      QVERIFY(pages[i].contains("Sale"));
    }
    QCOMPARE(pages[0].first(), "Name of the report");
    QVERIFY(pages[1].first().startsWith("Name of the report \u00b7 Financial Year"));
  }

  void NothingIsLostBetweenPages() {
    constexpr int kGroups = 40;
    int groups = 0;
    int totals = 0;
    int lines = 0;
    for (const QStringList& page : PagesOf(Groups(kGroups, 7))) {
      groups += static_cast<int>(page.filter(QRegularExpression("^GROUP ")).size());
      totals += static_cast<int>(page.filter(QRegularExpression("^Total 10.50$")).size());
      lines += static_cast<int>(page.filter(QRegularExpression("^line \\d 1.50$")).size());
    }
    QCOMPARE(groups, kGroups);
    QCOMPARE(totals, kGroups);
    QCOMPARE(lines, kGroups * 7);
  }

  void HeadingAndTotalAreNotParted() {
    for (int lines = 1; lines <= 9; ++lines) {
      for (QStringList page : PagesOf(Groups(40, lines))) {
        page.removeLast();
        QVERIFY2(!page.last().startsWith("GROUP"), qPrintable(page.last()));
        const qsizetype first = page.indexOf("Particulars Amount") + 1;
        QVERIFY2(!page[first].startsWith("Total"), qPrintable(page[first]));
      }
    }
  }

  void WideTablesLieOnTheirSide_data() {
    const test::Table<int, bool> row;
    row("few columns", 5, false);
    row("more than any page has", 60, true);
  }
  void WideTablesLieOnTheirSide() {
    const auto [columns, landscape] = test::Table<int, bool>::Row();
    ReportDocument document{{"Wide"}, {}};
    Table& table = document.tables.emplace_back();
    Row row;
    for (int i = 0; i < columns; ++i) {
      table.columns.push_back(AmountColumn("Amount"));
      row.cells.emplace_back(1234567.25 + i);
    }
    table.rows = {row};
    const QTemporaryDir folder;
    Progress progress;
    WriteReport(document, OutputFormat::kPdf, folder.filePath("wide.pdf"), progress);
    QCOMPARE(test::ReadFile(folder.filePath("wide.pdf")).contains("/MediaBox [ 0 0 841.8"),
             landscape);
    const QStringList page = PagesOf(document).first();
    QVERIFY(page.join(' ').contains(QString::number(1234567.25 + columns - 1, 'f', 2)));
  }

  void LettersOfAnyScriptAreShown() {
    ReportDocument document{{"शेयर विवरण"}, {}};
    Table& table = document.tables.emplace_back();
    table.columns = {TextColumn("नाम"), AmountColumn("Amount")};
    table.rows = {{.kind = RowKind::kData, .cells = {QString("भारत हेवी इलेक्ट्रिकल्स"), 2.0}},
                  {.kind = RowKind::kData, .cells = {QString("Müller & Söhne \u20ac"), 3.0}},
                  {.kind = RowKind::kData,
                   .cells = {QString("A long name of many words ").repeated(9), 4.0}}};
    const QString page = PagesOf(document).first().join(' ');
    QVERIFY(page.contains("भारत"));
    QVERIFY(page.contains("Müller & Söhne \u20ac"));
    QCOMPARE(page.count("many"), 9);
  }

  void StoppedOrFailedWritingLeavesTheOldFile_data() {
    const test::Table<OutputFormat> row;
    for (const OutputFormat format :
         {OutputFormat::kPdf, OutputFormat::kXlsx, OutputFormat::kRtf, OutputFormat::kCsv}) {
      row(EntryOf(format).name, format);
    }
  }
  void StoppedOrFailedWritingLeavesTheOldFile() {
    const auto [format] = test::Table<OutputFormat>::Row();
    const QTemporaryDir folder;
    const QString path = test::WriteFile(folder.filePath("report"), "older");
    test::StopAfter stopped(0);
    QVERIFY_EXCEPTION_THROWN(WriteReport(Groups(400, 9), format, path, stopped), Cancellation);
    QVERIFY2(stopped.Done() < 4000, "all lines were written first");
    QCOMPARE(test::ReadFile(path), QByteArray("older"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    Progress progress;
    QVERIFY_EXCEPTION_THROWN(
        WriteReport(Groups(1, 1), format, folder.filePath("none/report"), progress),
        std::runtime_error);
  }

  void FileNamesLeadNowhereElse_data() {
    const test::Table<QStringList, QString> row;
    row("words", QStringList{"Broker Ledger", " A & B ", "2011-12"}, "Broker Ledger A & B 2011-12");
    row("separators", QStringList{"../a\\b:c"}, "_.._a_b_c");
    row("nothing", QStringList{}, "_");
    row("dots", QStringList{".."}, "_");
  }
  void FileNamesLeadNowhereElse() {
    const auto [words, stem] = test::Table<QStringList, QString>::Row();
    QCOMPARE(FileStem(words), stem);
  }
};

static const test::RegisterTest<PagesTest> kRegistered;
#include "PagesTest.moc"
