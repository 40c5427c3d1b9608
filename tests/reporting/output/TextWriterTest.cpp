#include "reporting/output/WriteReport.h"
#include "support/Test.h"

using namespace quorvane::reporting;

class TextWriterTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ColumnsFitTheirWidestCell() {
    Table table;
    table.columns = {{"Name", Mask::kText, Alignment::kLeft},
                     {"Amount", Mask::kAmount, Alignment::kRight}};
    table.rows = {
        {.kind = RowKind::kGroup, .cells = {QString("a text wider than the table is not cut")}},
        {.kind = RowKind::kData, .cells = {QString("TATA STEEL"), 1234567.5}},
        {.kind = RowKind::kData, .cells = {QString("हिन्दी"), Cell()}},
        {.kind = RowKind::kTotal, .cells = {QString("Total"), 1234567.5}}};
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

  void HeadingsOfGroupsWidenTheirColumns() {
    Table table;
    table.groups = {{"Purchases", 2}, {"S", 1}};
    table.columns = {{"A", Mask::kText, Alignment::kLeft},
                     {"B", Mask::kNumber, Alignment::kRight},
                     {"C", Mask::kNumber, Alignment::kRight}};
    table.rows = {{.kind = RowKind::kData, .cells = {QString("x"), 1.5, 2.0}}};
    QCOMPARE(QString::fromStdString(WriteText({{}, {table}})), QString("\n"
                                                                       "Purchases  S\n"
                                                                       "A       B  C\n"
                                                                       "------------\n"
                                                                       "x     1.5  2\n"
                                                                       "------------\n"));
  }

  void SpreadsheetComputesNoTextOfACsv_data() {
    const quorvane::test::Table<QString> row;
    for (const char* text : {"ITC LTD", "-", "--", "-12.50", "A=B", "1001", "O'BRIEN"}) {
      row(text, text);
    }
    row("+1,234", "\"+1,234\"");
    row("=1+1", "'=1+1");
    row("@SUM(A1)", "'@SUM(A1)");
    row("-2+3", "'-2+3");
    row("+cmd|x", "'+cmd|x");
    row("\tA", "'\tA");
    row(" \"=A1,2", "\"' \"\"=A1,2\"");
  }
  void SpreadsheetComputesNoTextOfACsv() {
    const QString text = QTest::currentDataTag();
    const auto [written] = quorvane::test::Table<QString>::Row();
    Table table;
    table.columns = {TextColumn("Name"), AmountColumn("Amount")};
    table.rows = {{.kind = RowKind::kGroup, .cells = {text}},
                  {.kind = RowKind::kData, .cells = {text, -12.5}}};
    QCOMPARE(QString::fromStdString(WriteCsv({{text}, {table}})),
             written + "\nName,Amount\n" + written + "\n" + written + ",-12.50\n");
  }
};

static const quorvane::test::RegisterTest<TextWriterTest> kRegistered;
#include "TextWriterTest.moc"
