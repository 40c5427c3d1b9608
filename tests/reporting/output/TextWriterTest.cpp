#include "reporting/output/CsvWriter.h"
#include "reporting/output/TextWriter.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane::reporting;

class TextWriterTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ColumnsFitTheirWidestCell();
  void HeadingsOfGroupsWidenTheirColumns();
  void SpreadsheetComputesNoTextOfACsv_data();
  void SpreadsheetComputesNoTextOfACsv();
};

void TextWriterTest::ColumnsFitTheirWidestCell() {
  Table table;
  table.columns = {{"Name", Mask::kText, Alignment::kLeft},
                   {"Amount", Mask::kAmount, Alignment::kRight}};
  table.rows = {{RowKind::kGroup, {QString("a text wider than the table is not cut")}},
                {RowKind::kData, {QString("TATA STEEL"), 1234567.5}},
                {RowKind::kData, {QString("हिन्दी"), Cell()}},
                {RowKind::kTotal, {QString("Total"), 1234567.5}}};
  QCOMPARE(QString::fromStdString(WriteText({{"Title"}, {table}})),
           QString::fromUtf8("Title\n"
                             "\n"
                             "Name            Amount\n"
                             "----------------------\n"
                             "a text wider than the table is not cut\n"
                             "TATA STEEL  1234567.50\n"
                             "हिन्दी\n"
                             "Total       1234567.50\n"
                             "----------------------\n"));
}

void TextWriterTest::HeadingsOfGroupsWidenTheirColumns() {
  Table table;
  table.groups = {{"Purchases", 2}, {"S", 1}};
  table.columns = {{"A", Mask::kText, Alignment::kLeft},
                   {"B", Mask::kNumber, Alignment::kRight},
                   {"C", Mask::kNumber, Alignment::kRight}};
  table.rows = {{RowKind::kData, {QString("x"), 1.5, 2.0}}};
  QCOMPARE(QString::fromStdString(WriteText({{}, {table}})), QString("\n"
                                                                     "Purchases  S\n"
                                                                     "A       B  C\n"
                                                                     "------------\n"
                                                                     "x     1.5  2\n"
                                                                     "------------\n"));
}

void TextWriterTest::SpreadsheetComputesNoTextOfACsv_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("written");
  const auto same = [](const char* text) { QTest::newRow(text) << text << text; };
  const auto marked = [](const char* text, const char* written) {
    QTest::newRow(text) << text << written;
  };
  for (const char* text : {"ITC LTD", "-", "--", "-12.50", "A=B", "1001", "O'BRIEN"}) {
    same(text);
  }
  marked("+1,234", "\"+1,234\"");
  marked("=1+1", "'=1+1");
  marked("@SUM(A1)", "'@SUM(A1)");
  marked("-2+3", "'-2+3");
  marked("+cmd|x", "'+cmd|x");
  marked("\tA", "'\tA");
  marked(" \"=A1,2", "\"' \"\"=A1,2\"");
}

void TextWriterTest::SpreadsheetComputesNoTextOfACsv() {
  QFETCH(const QString, text);
  QFETCH(const QString, written);
  Table table;
  table.columns = {TextColumn("Name"), AmountColumn("Amount")};
  table.rows = {{RowKind::kGroup, {text}}, {RowKind::kData, {text, -12.5}}};
  QCOMPARE(QString::fromStdString(WriteCsv({{text}, {table}})),
           written + "\nName,Amount\n" + written + "\n" + written + ",-12.50\n");
}

static const quorvane::test::RegisterTest<TextWriterTest> kRegistered;

#include "TextWriterTest.moc"
