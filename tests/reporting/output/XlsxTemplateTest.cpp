#include "reporting/output/WorkbookFile.h"
#include "reporting/output/XlsxTemplate.h"
#include "support/Test.h"

#include <QRegularExpression>

using namespace quorvane;
using namespace quorvane::reporting;

namespace {

constexpr char kSheet[] = "xl/worksheets/sheet1.xml";
constexpr char kOfficeNs[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char kShippedFolder[] = QUORVANE_SOURCE_DIR "/data/shipped/";

/// A workbook as a user may have made it: elements with a prefix, an odd sheet name, merged cells,
/// a formula a row and one below, a picture, and cells without numbers of their own.
const std::map<std::string, std::string> kEdited{
    {"[Content_Types].xml",
     "<Types xmlns='http://schemas.openxmlformats.org/package/2006/content-types'>"
     "<Override PartName='/xl/calcChain.xml' ContentType='chain'/></Types>"},
    {"_rels/.rels",
     "<Relationships><Relationship Id='r1' Type='x/officeDocument' "
     "Target='/xl/workbook.xml'/></Relationships>"},
    {"xl/_rels/workbook.xml.rels",
     "<Relationships><Relationship Id='r1' Type='x/worksheet' Target='worksheets/sheet1.xml'/>"
     "<Relationship Id='r2' Type='x/calcChain' Target='calcChain.xml'/>"
     "<Relationship Id='r3' Type='x/worksheet' Target='worksheets/sheet2.xml'/></Relationships>"},
    {"xl/calcChain.xml", "<calcChain/>"},
    {"xl/workbook.xml",
     std::string("<x:workbook xmlns:x='m' xmlns:r='") + kOfficeNs +
         "'><x:sheets><x:sheet name=\"O'Brien &amp; Co\" sheetId='4' r:id='r1'/>"
         "<x:sheet name='Other' sheetId='5' r:id='r3'/></x:sheets><x:definedNames>"
         "<x:definedName name='Title'>'O''Brien &amp; Co'!$B$1</x:definedName>"
         "<x:definedName name='_fld1'>'O''Brien &amp; Co'!$B$3</x:definedName>"
         "<x:definedName name='FLD2'>'O''Brien &amp; Co'!$D$3</x:definedName>"
         "<x:definedName name='Below'>'O''Brien &amp; Co'!$D$6</x:definedName>"
         "<x:definedName name='Elsewhere'>Other!$A$6</x:definedName>"
         "<x:definedName name='_xlnm.Print_Area' localSheetId='0'>'O''Brien &amp; Co'!$A$1:$F$6"
         "</x:definedName></x:definedNames></x:workbook>"},
    {kSheet,
     "<x:worksheet xmlns:x='m' xmlns:a='q'><x:dimension ref='A1:F6'/><x:sheetData>"
     "<x:row><x:c/><x:c s='7'/></x:row>"
     "<x:row r='3' ht='20' a:dyDescent='1'><x:c r='A3' s='3' t='inlineStr'><x:is><x:t>No</x:t>"
     "</x:is></x:c><x:c r='D3' s='5'/><x:c r='F3' s='6'><x:f>D3*2+D$1</x:f><x:v>9</x:v></x:c>"
     "</x:row><x:row r='5'><x:c r='D5'><x:f>SUM(D3:D3)</x:f><x:v>1</x:v></x:c></x:row>"
     "</x:sheetData><x:mergeCells count='2'><x:mergeCell ref='B3:C3'/><x:mergeCell ref='A5:C6'/>"
     "</x:mergeCells><x:rowBreaks><x:brk id='5'/></x:rowBreaks></x:worksheet>"},
    {"xl/worksheets/_rels/sheet1.xml.rels",
     "<Relationships><Relationship Id='d' Type='x/drawing' Target='../drawings/drawing1.xml'/>"
     "</Relationships>"},
    {"xl/drawings/drawing1.xml",
     "<d xmlns:w='w'><w:from><w:row>0</w:row></w:from><w:to><w:row>5</w:row></w:to></d>"},
    {"xl/worksheets/sheet2.xml",
     "<worksheet><sheetData><row r='1'><c r='A1'><f>'O''Brien &amp; Co'!D5+D5</f></c></row>"
     "</sheetData></worksheet>"}};

}  // namespace

class XlsxTemplateTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EditedTemplateIsFilled_data() {
    const test::Table<int, QStringList, QStringList, QStringList, int> row;
    row("three lines", 3,
        QStringList{"B1=A & <B>", "A3=No", "B3=line 0", "D3=#0.1", "F3==D3*2+D$1", "A4=No",
                    "B4=line 1", "D4=#1.1", "F4==D4*2+D$1", "A5=No", "B5=line 2", "D5=#2.1",
                    "F5==D5*2+D$1", "D7==SUM(D3:D5)", "D8=#42"},
        QStringList{"A7:C8", "B3:C3", "B4:C4", "B5:C5"},
        QStringList{"Below='O''Brien & Co'!$D$8", "Elsewhere=Other!$A$6",
                    "Title='O''Brien & Co'!$B$1", "_xlnm.Print_Area='O''Brien & Co'!$A$1:$F$8"},
        7);
    row("no line", 0, QStringList{"B1=A & <B>", "D4==SUM(D3:D3)", "D5=#42"}, QStringList{"A4:C5"},
        QStringList{"Below='O''Brien & Co'!$D$5", "Elsewhere=Other!$A$6",
                    "Title='O''Brien & Co'!$B$1", "_xlnm.Print_Area='O''Brien & Co'!$A$1:$F$5"},
        4);
  }
  void EditedTemplateIsFilled() {
    const auto [lines, cells, merges, names, picture_end] =
        test::Table<int, QStringList, QStringList, QStringList, int>::Row();
    XlsxTemplate book(WriteEdited());
    book.Set("title", QString("A & <B>\x01"));
    std::vector<TemplateLine> rows;
    for (int i = 0; i < lines; ++i) {
      rows.push_back({"Fld", {QString("line %1").arg(i), i + 0.1}});
    }
    Progress progress;
    book.Repeat({"Fld"}, rows, progress);
    book.Set("Below", 42.0);
    book.Save(PathOf("filled.xlsx"));

    const test::WorkbookFile filled(PathOf("filled.xlsx"));
    QCOMPARE(filled.Cells(kSheet), cells);
    QCOMPARE(filled.Attributes(kSheet, "mergeCell", "ref"), merges);
    QCOMPARE(filled.Names(), names);
    QCOMPARE(filled.Styles(kSheet)["B1"], std::string("7"));
    for (const QString& height : filled.Attributes(kSheet, "row", "ht").mid(1, lines)) {
      QCOMPARE(height, "20");
    }
    const QString drawing = QString::fromStdString(filled.Part("xl/drawings/drawing1.xml"));
    QVERIFY(drawing.contains(QStringLiteral("<w:to><w:row>%1</w:row>").arg(picture_end)));
    QVERIFY(drawing.contains(QStringLiteral("<w:from><w:row>0</w:row>")));
    QVERIFY(filled.Part("xl/calcChain.xml").empty());
    QCOMPARE(filled.Part("[Content_Types].xml").find("calcChain"), std::string::npos);
    QCOMPARE(filled.Cells("xl/worksheets/sheet2.xml"),
             QStringList{QStringLiteral("A1=='O''Brien & Co'!D%1+D5").arg(lines + 4)});
    QCOMPARE(filled.Attributes("xl/workbook.xml", "calcPr", "fullCalcOnLoad"), QStringList("1"));
  }

  void DatesFollowTheStyleOfTheirCell() {
    XlsxTemplate book(QLatin1String(kShippedFolder) + "TransRpt.xlsx");
    const text::Date date = *text::MakeDate(6, 4, 2011);
    Progress progress;
    book.Repeat({"Fld"}, {{"Fld", {1.0, date, date}}}, progress);
    book.Save(PathOf("dates.xlsx"));
    const QStringList cells = test::WorkbookFile(PathOf("dates.xlsx")).Cells(kSheet);
    QVERIFY2(cells.contains("B8=#40639") && cells.contains("C8=06/04/2011"),
             qPrintable(cells.join(' ')));
  }

  void SheetOfANameIsTakenOut() {
    XlsxTemplate book(QLatin1String(kShippedFolder) + "ProfitGainRpt.xlsx");
    book.RemoveSheetOf("Title1");
    QVERIFY_EXCEPTION_THROWN(book.Set("Title1", 1.0), std::runtime_error);
    book.RemoveSheetOf("S_Title1");
    book.Save(PathOf("one.xlsx"));
    const test::WorkbookFile file(PathOf("one.xlsx"));
    QCOMPARE(file.Attributes("xl/workbook.xml", "sheet", "name"), QStringList("Summary"));
    QVERIFY(file.Part(kSheet).empty());
    for (const QString& name : file.Names()) {
      QVERIFY2(name.contains("Summary"), qPrintable(name));
    }
    QCOMPARE(file.Attributes("xl/workbook.xml", "definedName", "localSheetId").filter("1"),
             QStringList());
  }

  void ShippedTemplateRepeatsItsRowsInTheirLooks() {
    const QString path = QLatin1String(kShippedFolder) + "TransRpt.xlsx";
    const test::WorkbookFile original(path);
    XlsxTemplate book(path);
    for (const char* name : {"CompId", "DMat", "FrmAndToDt"}) {
      book.Set(name, QString(name));
    }
    std::vector<Cell> cells;
    for (int i = 0; i < 13; ++i) {
      cells.emplace_back(i + 0.5);
    }
    Progress progress;
    book.Repeat({"Fld", "Grp", "Tot", "Sum", "Net", "Gap"},
                {{"Grp", {QString("BROKER")}}, {"Fld", cells}, {"Fld", cells}, {"Tot", cells}},
                progress);
    book.Save(PathOf("filled.xlsx"));
    const test::WorkbookFile filled(PathOf("filled.xlsx"));
    auto before = original.Styles(kSheet);
    auto after = filled.Styles(kSheet);
    for (const char* column : {"A", "E", "H", "M"}) {
      const QString at = QLatin1String(column);
      QCOMPARE(after[at + "7"], before[at + "7"]);
      QCOMPARE(after[at + "8"], before[at + "8"]);
      QCOMPARE(after[at + "9"], before[at + "8"]);
      QCOMPARE(after[at + "10"], before[at + "9"]);
    }
    const QStringList texts = filled.Cells(kSheet);
    QVERIFY(texts.contains("A7=BROKER") && texts.contains("M9=#12.5") &&
            texts.contains("M10=#12.5"));
    QCOMPARE(texts.filter(QRegularExpression("^[A-Z]+1[1-9]=")), QStringList());
    QVERIFY(filled.Attributes(kSheet, "mergeCell", "ref").contains("A7:M7"));
  }

  void FailureNamesTheTemplate_data() {
    const test::Table<QString> row;
    row("absent", "is not there");
    row("text file", "is no workbook");
    row("part missing", "is no workbook");
    row("name missing", "no cell named \"Nobody\"");
    row("pattern missing", "no cell named \"Row1\"");
    row("field missing", "no cell of its own named \"Fld3\"");
  }
  void FailureNamesTheTemplate() {
    const QString kind = QTest::currentDataTag();
    QString path = WriteEdited(kind == "part missing" ? "xl/worksheets/sheet2.xml" : "");
    if (kind == "absent") {
      path = PathOf("absent.xlsx");
    } else if (kind == "text file") {
      path = QLatin1String(kShippedFolder) + "statelist.txt";
    }
    try {
      XlsxTemplate book(path);
      Progress progress;
      if (kind == "name missing") {
        book.Set("Nobody", 1.0);
      } else {
        book.Repeat({kind == "pattern missing" ? "Row" : "Fld"}, {{"Fld", {1.0, Cell(), 3.0}}},
                    progress);
      }
      QFAIL("it is accepted");
    } catch (const std::runtime_error& error) {
      const QString text = QString::fromUtf8(error.what());
      const auto [said] = test::Table<QString>::Row();
      QVERIFY2(text.contains(said) && text.contains(path), qPrintable(text));
    }
  }

 private:
  QString PathOf(const char* name) const { return folder_.filePath(QLatin1String(name)); }

  QString WriteEdited(const char* left_out = "") const {
    ZipPackage package;
    for (const auto& [name, content] : kEdited) {
      if (name != left_out) {
        package.Put(name, content);
      }
    }
    QFile file(PathOf("edited.xlsx"));
    if (!file.open(QIODevice::WriteOnly)) {
      throw std::runtime_error("cannot write the template");
    }
    package.Write(file);
    return file.fileName();
  }

  QTemporaryDir folder_;
};

static const test::RegisterTest<XlsxTemplateTest> kRegistered;
#include "XlsxTemplateTest.moc"
