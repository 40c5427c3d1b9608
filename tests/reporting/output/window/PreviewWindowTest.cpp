#include "controls/ZENButton.h"
#include "reporting/output/window/PreviewWindow.h"
#include "reporting/output/window/RepView.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"

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
    table.rows.push_back({RowKind::kData, {QStringLiteral("line <%1>").arg(line), 1.5}});
  }
  return document;
}

struct Shown {
  explicit Shown(const ReportDocument& document) {
    area.resize(900, 700);
    area.show();
    area.activateWindow();
    view = writer.Show(document, &area);
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
    writer.setcol130(1);
    writer.newreport();
    writer.createtable("111", "1");
    const std::int16_t alignments[] = {0, 1, 1};
    const std::int32_t widths[] = {3, 1, 1};
    const QVariant lines[] = {"ACC LTD", 20, 1059.5, "TCS LTD", 5, 100};
    writer.WriteToReport(lines, alignments, widths, {"Name", "Quantity", "Amount"}, {}, false,
                         "001", "Capital Gain Statement", "Financial Year - 2011-12",
                         "Demat A/c No. 1001");
    const QVariant total[] = {"Total", 25, 1159.5};
    writer.WriteToReport(total, {}, {}, {}, {}, true, "", "Capital Gain Statement", "", "");
    const PreviewWindow* view = writer.ShowReport(&shown.area);
    QCOMPARE(view->PageCount(), 1);
    QVERIFY(view->windowTitle() == QStringLiteral("Capital Gain Statement"));
    QVERIFY_EXCEPTION_THROWN(
        writer.WriteToReport(std::span(total).first(2), {}, {}, {}, {}, true, "", "", "", ""),
        std::invalid_argument);
  }
};

static const test::RegisterTest<PreviewWindowTest> kRegistered;
#include "PreviewWindowTest.moc"
