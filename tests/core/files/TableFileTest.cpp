#include "core/files/HtmlDocument.h"
#include "core/files/TableFile.h"
#include "core/files/TableReaders.h"
#include "support/Files.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::files;

namespace {

const QString kSamples = QStringLiteral(QUORVANE_SOURCE_DIR "/tests/core/files/samples/");

QStringList RowsOf(const TextTable& table) {
  QStringList rows;
  for (const TextRow& row : table.rows) {
    QStringList cells;
    for (const std::string& cell : row.cells) {
      cells << QString::fromStdString(cell);
    }
    rows << QString::number(row.line) + QLatin1Char(':') + cells.join(QLatin1Char('|'));
  }
  return rows;
}

QString WhyNot(const std::function<void()>& read) {
  try {
    read();
  } catch (const TableError& error) {
    return QString::fromUtf8(error.what());
  }
  return QStringLiteral("read");
}

}  // namespace

class TableFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EveryFormHoldsTheSameTable_data() {
    const test::Table<QString> row;
    for (const char* name : {"rates.csv", "rates.xls", "rates.xlsx", "rates.ods", "rates.zip"}) {
      row(name, kSamples + QLatin1String(name));
    }
  }
  void EveryFormHoldsTheSameTable() {
    const auto [file] = test::Table<QString>::Row();
    const TextTable table = ReadTableFile(file);
    QCOMPARE(table.rows.size(), std::size_t{3});
    QCOMPARE(QString::fromStdString(table.rows[0].cells[1]), QStringLiteral("SC_NAME"));
    const TextRow& infosys = table.rows[2];
    QCOMPARE(infosys.line, std::size_t{3});
    const QStringList wanted{"500209", "INFOSYS", "A", "Q", "1150.1"};
    const std::array<std::size_t, 5> places{0, 1, 2, 3, 7};
    for (qsizetype i = 0; i < wanted.size(); ++i) {
      QCOMPARE(QString::fromStdString(infosys.cells[places[static_cast<std::size_t>(i)]]),
               wanted[i]);
    }
  }

  void DangerousOrBrokenFileIsRefused_data() {
    const test::Table<QByteArray, QString> row;
    row("climbs out of its folder", test::Sample("climbing.zip"),
        "The archive holds a file outside its own folder.");
    row("archive in the archive", test::Sample("nested.zip"), "The archive holds another archive.");
    row("unpacks to far more", test::Sample("bomb.zip"),
        "The archive unpacks to more than can be read.");
    row("two tables", test::Sample("two.zip"),
        "The archive holds more than one .csv file. Unpack it and choose one.");
    row("no table", test::Sample("none.zip"), "The archive holds no .csv file.");
    row("cut archive", test::Sample("rates.zip").left(150), "The archive cannot be read.");
    row("cut workbook", test::Sample("rates.xlsx").left(3000), "The archive cannot be read.");
    row("cut old workbook", test::Sample("rates.xls").left(1500), "The workbook cannot be read.");
    row("empty", "", "The file is empty.");
    row("web page", "\xEF\xBB\xBF\r\n<!DOCTYPE html><html></html>",
        "The file is a web page, not a table.");
    row("open quote", "A,B\n1,\"2\n3", "Line 2: a quoted field is not closed.");
    row("a cell without an end", "A\n" + QByteArray(5000, 'x'),
        "The file holds more than can be read.");
    row("too many columns", QByteArray(300, ',') + "x", "The file holds more than can be read.");
    row("millions of empty columns", "A\n" + QByteArray(4'000'000, ','),
        "Line 2: the line holds too many fields.");
  }
  void DangerousOrBrokenFileIsRefused() {
    const auto [bytes, text] = test::Table<QByteArray, QString>::Row();
    const QTemporaryDir folder;
    const QString file = test::WriteFile(folder.filePath(QStringLiteral("file")), bytes);
    QCOMPARE(WhyNot([&] { ReadTableFile(file); }), text);
  }

  void CsvTextIsReadInItsEncoding_data() {
    const test::Table<QByteArray, QStringList> row;
    row("padded, quoted, blank lines",
        QByteArray("\xEF\xBB\xBF\"Symbol  \", A\r\n\r\n\"M&amp;M \",\"2,95,75,194\" \r\n")
            .replace(" \r\n", "\r\n"),
        QStringList({"1:Symbol|A", "3:M&M|2,95,75,194"}));
    row("Latin-1", QByteArray("N\nCAF\xC9\n"), QStringList({"1:N", "2:CAFÉ"}));
    row("UTF-16",
        QByteArray("\xFF\xFE"
                   "A\0,\0B\0\n\0",
                   10),
        QStringList("1:A|B"));
    row("entities by name and number, what is none left",
        QByteArray("L&#38;T,M&#x26;M,&amp;lt;,A&B;&#0;&#xD800;&#;&,R&#8217;S"),
        QStringList("1:L&T|M&M|&lt;|A&B;&#0;&#xD800;&#;&|R’S"));
    row("no line end, empty values, a quote inside", QByteArray("A,B,C\n1,,\n5\" pipe,,x"),
        QStringList({"1:A|B|C", "2:1", "3:5\" pipe||x"}));
  }
  void CsvTextIsReadInItsEncoding() {
    const auto [bytes, rows] = test::Table<QByteArray, QStringList>::Row();
    QCOMPARE(RowsOf(ReadCsvText({bytes.constData(), static_cast<std::size_t>(bytes.size())})),
             rows);
  }

  void PageShowsItsRows_data() {
    const test::Table<QByteArray, QStringList> row;
    const QString utf16 = QString(QChar(0xFEFF)) + "<meta charset=utf-8><table><tr><td>₹ 5<td>x";
    row("UTF-16, which names other letters",
        QByteArray(reinterpret_cast<const char*>(utf16.utf16()), utf16.size() * 2),
        QStringList("1:₹ 5|x"));
    row("behind a long comment",
        "\xEF\xBB\xBF<?xml version='1.0'?>\n<!--" + QByteArray(9000, '-') + "-->\n<html><p>x",
        QStringList("1:x"));
    row("lines of a preformatted text",
        "<html>above<pre>\n a  1\r\n<b>b</b>\n\n\n<b>c</b> 2\n</pre>below",
        QStringList({"1:above", "2:a 1", "3:b", "4:c 2", "5:below"}));
    row("preformatted cells",
        "<table><tr><td><pre>\na\n</pre><td>b: <pre>c\n</pre><tr><td><pre>d\ne</pre>",
        QStringList({"1:a|b: c", "2:d", "3:e"}));
  }
  void PageShowsItsRows() {
    const auto [bytes, rows] = test::Table<QByteArray, QStringList>::Row();
    const std::string page = bytes.toStdString();
    QVERIFY(HtmlDocument::IsOne(page));
    QCOMPARE(RowsOf(HtmlDocument(page).Rows()), rows);
    QVERIFY(!HtmlDocument::IsOne("<!-- no page --> but, text"));
  }

  void PageGivesItsTablesAndLinks() {
    const HtmlDocument page(
        "<html><body><a href='x.htm'>x</a><table id=grd1><tr><th>Code<th>LTP<tr><td>5&#38;&#x36;"
        "<td> <b>1,234.50</b></table><span id=tdNext0><a href=\"?Page=2\">Next</a></span>");
    QCOMPARE(RowsOf(page.TableAt("grd1").value()), QStringList({"1:Code|LTP", "2:5&6|1,234.50"}));
    QVERIFY(!page.TableAt("grd2"));
    QCOMPARE(page.Links(), (std::vector<std::string>{"x.htm", "?Page=2"}));
    QCOMPARE(page.LinkAt("tdNext0"), std::optional<std::string>("?Page=2"));
    QVERIFY(!page.LinkAt("grd1"));
    QVERIFY(HtmlDocument("").Links().empty());
  }
};

static const test::RegisterTest<TableFileTest> kRegistered;
#include "TableFileTest.moc"
