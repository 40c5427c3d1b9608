#include "core/text/Csv.h"
#include "support/TestMain.h"

#include <QTest>

using quorvane::text::AppendCsvField;
using quorvane::text::CsvError;
using quorvane::text::CsvReader;

class CsvTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void RecordsAndFields_data();
  void RecordsAndFields();
  void LinesAreCountedWithinQuotesToo();
  void BrokenQuotesNameTheirLine_data();
  void BrokenQuotesNameTheirLine();
  void WhatIsWrittenReadsBack_data();
  void WhatIsWrittenReadsBack();
};

namespace {

/// Fields joined by "|", records by "/".
QString Read(const QByteArray& text) {
  CsvReader reader(std::string_view(text.constData(), static_cast<std::size_t>(text.size())));
  QStringList records;
  while (reader.Next()) {
    QStringList fields;
    for (const std::string_view field : reader.Fields()) {
      fields << QString::fromUtf8(field.data(), static_cast<qsizetype>(field.size()));
    }
    records << fields.join('|');
  }
  return records.join('/');
}

}  // namespace

void CsvTest::RecordsAndFields_data() {
  QTest::addColumn<QByteArray>("text");
  QTest::addColumn<QString>("records");
  QTest::newRow("empty text") << QByteArray() << "";
  QTest::newRow("no line end at the end") << QByteArray("a,b\nc,d") << "a|b/c|d";
  QTest::newRow("CRLF") << QByteArray("a,b\r\nc,d\r\n") << "a|b/c|d";
  QTest::newRow("blank lines between") << QByteArray("a\n\n\r\nb\n") << "a/b";
  QTest::newRow("byte order mark") << QByteArray(
                                          "\xEF\xBB\xBF"
                                          "a,b\n")
                                   << "a|b";
  QTest::newRow("empty fields") << QByteArray(",a,,\n") << "|a||";
  QTest::newRow("empty quoted field") << QByteArray("\"\",a\n") << "|a";
  QTest::newRow("comma in quotes") << QByteArray("\"a,b\",c\n") << "a,b|c";
  QTest::newRow("doubled quotes") << QByteArray("\"say \"\"so\"\"\",\"\"\"\"\n") << "say \"so\"|\"";
  QTest::newRow("line break in quotes") << QByteArray("\"a\nb\",c\nd\n") << "a\nb|c/d";
  QTest::newRow("quote inside a plain field") << QByteArray("5\" pipe,a\n") << "5\" pipe|a";
  QTest::newRow("blanks stay") << QByteArray(" a , b\n") << " a | b";
}

void CsvTest::RecordsAndFields() {
  QFETCH(QByteArray, text);
  QTEST(Read(text), "records");
}

void CsvTest::LinesAreCountedWithinQuotesToo() {
  CsvReader reader("h\n\"a\nb\"\n\nc\n");
  QList<std::size_t> lines;
  while (reader.Next()) {
    lines << reader.Line();
  }
  QCOMPARE(lines, (QList<std::size_t>{1, 2, 5}));
}

void CsvTest::BrokenQuotesNameTheirLine_data() {
  QTest::addColumn<QByteArray>("text");
  QTest::addColumn<int>("line");
  QTest::newRow("never closed") << QByteArray("a\n\"b\nc\n") << 2;
  QTest::newRow("text after the closing quote") << QByteArray("a\n\"b\"c\n") << 2;
}

void CsvTest::BrokenQuotesNameTheirLine() {
  QFETCH(QByteArray, text);
  QFETCH(int, line);
  try {
    Read(text);
    QFAIL("read what is no CSV");
  } catch (const CsvError& error) {
    QCOMPARE(static_cast<int>(error.Line()), line);
  }
}

void CsvTest::WhatIsWrittenReadsBack_data() {
  QTest::addColumn<QString>("field");
  for (const char* field : {"", "plain", "a,b", "\"", "line\nbreak", "\r", " ", " leading",
                            "O'BRIEN & SONS", "ह😀", "\\"}) {
    QTest::newRow(field) << QString::fromUtf8(field);
  }
}

void CsvTest::WhatIsWrittenReadsBack() {
  QFETCH(QString, field);
  std::string text = "first,";
  AppendCsvField(text, field.toStdString());
  text += ",last\n";
  CsvReader reader(text);
  QVERIFY(reader.Next());
  QCOMPARE(reader.Fields().size(), std::size_t{3});
  QCOMPARE(QString::fromStdString(std::string(reader.Fields()[1])), field);
}

static const quorvane::test::RegisterTest<CsvTest> kRegistered;

#include "CsvTest.moc"
