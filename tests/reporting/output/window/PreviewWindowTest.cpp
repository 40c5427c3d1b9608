#include "controls/ZENButton.h"
#include "reporting/output/WriteReport.h"
#include "reporting/output/window/PreviewWindow.h"
#include "reporting/output/window/RepView.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"

#include <QBuffer>
#include <QFile>
#include <QMdiArea>
#include <QPdfPageNavigator>
#include <QPointer>
#include <QPrinter>

using namespace quorvane;
using namespace quorvane::reporting;

namespace {

ReportDocument Lines(int lines) {
  ReportDocument document{{"Name of the report"}, {}};
  Table& table = document.tables.emplace_back();
  table.columns = {TextColumn("Particulars"), AmountColumn("Amount")};
  for (int line = 0; line < lines; ++line) {
    table.rows.push_back(
        {.kind = RowKind::kData, .cells = {QStringLiteral("line <%1>").arg(line), 1.5}});
  }
  return document;
}

struct Shown {
  explicit Shown(const ReportDocument& document) {
    area.resize(900, 700);
    area.show();
    area.activateWindow();
    view = HandOver(document, writer, &area);
    if (!QTest::qWaitForWindowActive(&area)) {
      throw std::runtime_error("the window does not become active");
    }
  }

  template <class Control>
  Control* Named(const char* name) const {
    return view->findChild<Control*>(QLatin1String(name));
  }
  void Click(const char* button) const {
    QTest::mouseClick(Named<controls::ZENButton>(button), Qt::LeftButton);
  }
  QString Found() const { return Named<QLabel>("LblFound")->text(); }

  app::Session session;
  test::RecordingMessages messages;
  controls::Desk desk{session, messages};
  QMdiArea area;
  RepView writer{desk};
  QPointer<PreviewWindow> view;
};

}  // namespace

class PreviewWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PagesAreLeafedThrough() {
    const Shown shown(Lines(200));
    const int pages = shown.view->PageCount();
    QVERIFY(pages >= 4);
    auto* number = shown.Named<QSpinBox>("TxtPage");
    shown.Click("CmdNext");
    QCOMPARE(number->value(), 2);
    shown.Click("CmdLast");
    QCOMPARE(number->value(), pages);
    shown.Click("CmdNext");
    QCOMPARE(number->value(), pages);
    shown.Click("CmdFirst");
    QCOMPARE(number->value(), 1);
    number->setFocus();
    number->selectAll();
    QTest::keyClicks(number, "3");
    QTest::keyClick(number, Qt::Key_Tab);
    QCOMPARE(shown.view->Pages().CurrentPage(), 2);
    auto* zoom = shown.Named<QComboBox>("CmbZoom");
    zoom->setFocus();
    zoom->lineEdit()->selectAll();
    QTest::keyClicks(zoom, "33");
    number->setFocus();
    QCOMPARE(shown.view->Pages().Zoom(), 0.33);
  }

  void SearchGoesThroughAllPagesAndAround() {
    const Shown shown(Lines(200));
    shown.Named<QLineEdit>("TxtFind")->setText("<1");  // 111 of them
    shown.Click("CmdFindNext");
    QCOMPARE(shown.Found(), "Page 1");
    shown.Click("CmdFindPrevious");
    QCOMPARE(shown.Found(), QStringLiteral("Page %1").arg(shown.view->PageCount()));
    shown.Click("CmdFindNext");
    QCOMPARE(shown.Found(), "Page 1");
    shown.Named<QLineEdit>("TxtFind")->setText("line <150>");
    shown.Click("CmdFindNext");
    const QString page = shown.Found();
    QVERIFY(page != QStringLiteral("Page 1"));
    shown.Click("CmdFindNext");
    QCOMPARE(shown.Found(), page);
    shown.Named<QLineEdit>("TxtFind")->setText("no such text");
    shown.Click("CmdFindNext");
    QCOMPARE(shown.Found(), "Not found");
  }

  void ChosenPagesArePrinted() {
    const Shown shown(Lines(200));
    const QTemporaryDir folder;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setResolution(72);
    printer.setOutputFileName(folder.filePath("printed.pdf"));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
    Progress progress;
    shown.view->PrintPages(printer, progress);
    QPdfDocument printed;
    QCOMPARE(printed.load(folder.filePath("printed.pdf")), QPdfDocument::Error::None);
    QCOMPARE(printed.pageCount(), 2);
    QCOMPARE(qRound(printed.pagePointSize(0).width()), 595);
  }

  void WhatIsSavedIsWhatIsShown() {
    Shown shown(Lines(3));
    const QTemporaryDir folder;
    QString suggested;
    shown.desk.ask_save_path = [&](QWidget*, const QString& path) {
      suggested = path;
      return folder.filePath("saved.pdf");
    };
    shown.Click("CmdSave");
    QCOMPARE(QFileInfo(suggested).fileName(), "Name of the report.pdf");
    QPdfDocument saved;
    QCOMPARE(saved.load(folder.filePath("saved.pdf")), QPdfDocument::Error::None);
    QCOMPARE(saved.pageCount(), shown.view->PageCount());
  }

  void ReportIsWrittenBlockByBlock() {
    Shown shown(Lines(1));
    RepView& writer = shown.writer;
    writer.newreport();
    const Cell lines[] = {QString("ACC LTD"), 20.0, 1059.5, QString("TCS LTD"), 5.0, 100.0};
    const auto write = [&](std::span<const Cell> cells) {
      writer.WriteToReport(cells, {}, {}, {}, {}, RowKind::kTotal, "0N1", "Capital Gain Statement",
                           "", "");
    };
    QVERIFY_EXCEPTION_THROWN(write(lines), std::invalid_argument);
    writer.createtable("111", "1");
    write(lines);
    QVERIFY_EXCEPTION_THROWN(write(std::span(lines).first(2)), std::invalid_argument);
    const PreviewWindow* view = writer.ShowReport(&shown.area);
    QCOMPARE(view->PageCount(), 1);
    QVERIFY(view->windowTitle() == QStringLiteral("Capital Gain Statement"));
  }

  /// What goes through the writer's blocks looks as the report's own PDF does.
  void PagesAreThoseOfTheReport() {
    ReportDocument document = Lines(3);
    document.titles << "Financial Year - 2011-12";
    document.notes << "a note";
    Table& table = document.tables.emplace_back();
    table.titles << "Demat A/c No. 1001"
                 << "a second line";
    table.groups = {{"Purchase", 2}, {"", 1}, {"Sale", 2}};
    table.columns = {DateColumn("Date"), QuantityColumn("Quantity"), NumberColumn("S.No"),
                     AmountColumn("Rate", Mask::kPercent), AmountColumn("Sum", Mask::kThousands)};
    table.columns[2].alignment = Alignment::kCentre;
    table.columns[3].weight = 2;
    table.rows = {{.kind = RowKind::kGroup, .cells = {QString("ACC LTD")}},
                  {.kind = RowKind::kData,
                   .cells = {*text::MakeDate(1, 4, 2011), 2.5, Cell(), 0.1255, 1234567.5}},
                  {.kind = RowKind::kTotal, .cells = {QString("Total"), 2.5}},
                  {.kind = RowKind::kGap, .cells = {}},
                  {.kind = RowKind::kNetTotal, .cells = {QString("Net Total"), 2.5}}};
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    Progress progress;
    WritePdf(document, buffer, progress);
    buffer.close();
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument expected;
    expected.load(&buffer);

    Shown shown(document);
    const QTemporaryDir folder;
    shown.desk.ask_save_path = [&](QWidget*, const QString&) { return folder.filePath("s.pdf"); };
    shown.Click("CmdSave");
    QPdfDocument saved;
    QCOMPARE(saved.load(folder.filePath("s.pdf")), QPdfDocument::Error::None);
    QCOMPARE(saved.pageCount(), expected.pageCount());
    QCOMPARE(saved.render(0, QSize(1200, 1700)), expected.render(0, QSize(1200, 1700)));
  }
};

static const test::RegisterTest<PreviewWindowTest> kRegistered;
#include "PreviewWindowTest.moc"
