#include "reports/output/TextWriter.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane::report;

class TextWriterTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ColumnsFitTheirWidestCell();
  void HeadingsOfGroupsWidenTheirColumns();
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

static const quorvane::test::RegisterTest<TextWriterTest> kRegistered;

#include "TextWriterTest.moc"
