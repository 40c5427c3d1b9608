#include "core/Progress.h"
#include "core/platform/Processes.h"
#include "documents/window/DocumentViewer.h"
#include "masters/clients/Documents.h"
#include "support/Test.h"

#include <QAction>
#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPageRanges>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfWriter>
#include <QPrinter>
#include <QSignalSpy>
#include <QTimer>

using namespace quorvane;
using namespace quorvane::documents;

class DocumentViewerTest : public QObject {
  Q_OBJECT

  /// Whether a process has the document among its arguments.
  static bool IsBeingRead(const QString& path) {
    for (const QString& process : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
      QFile arguments(QStringLiteral("/proc/%1/cmdline").arg(process));
      if (process.toInt() > 0 && arguments.open(QIODevice::ReadOnly) &&
          arguments.readAll().split('\0').contains(path.toUtf8())) {
        return true;
      }
    }
    return false;
  }

 private Q_SLOTS:
  void KindIsShown_data() {
    // The text that is read is empty for a picture.
    const test::Table<QString, QByteArray, QString> row;
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    for (const char* format : {"BMP", "JPG"}) {
      row(format, QStringLiteral("a.") + format, Encoded(picture, format), "");
    }
    row("GIF", "a.gif", test::Gif(), "");
    row("PDF", "A.PDF", Pdf(1), "");
    row("HTM", "a.htm", "<p>Sig<b>ned</b></p>", "Signed");
    row("RTF", "a.rtf", "{\\rtf1 Signed\\par}", "Signed");
    row("DOC", "a.doc", test::WordDocument("Signed\r"), "Signed");
  }
  void KindIsShown() {
    const auto [name, content, text] = test::Table<QString, QByteArray, QString>::Row();
    DocumentViewer viewer;
    QCOMPARE(Opened(viewer, Write(name, content)), QString("shown"));
    QVERIFY2(viewer.Page().text.contains(text), qPrintable(viewer.Page().text));
  }

  void FileThatIsNoDocumentIsRefusedAtOnce_data() {
    const test::Table<QString, QString> row;
    row("vanished", "nothing.txt", "File does not Exist.");
    row("folder", "folder.pdf", "This is a Folder, not a Document.");
    row("1 GB", "large.txt", "The Document is too Large to be Shown.");
  }
  void FileThatIsNoDocumentIsRefusedAtOnce() {
    const auto [name, message] = test::Table<QString, QString>::Row();
    QVERIFY(QDir(folder_.path()).mkpath("folder.pdf"));
    QFile large(folder_.filePath("large.txt"));
    QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(qint64{1} << 30));
    Write("a.exe", "MZ");
    DocumentViewer viewer;
    QCOMPARE(Opened(viewer, Write("first.txt", "First")), QString("shown"));
    QCOMPARE(Opened(viewer, folder_.filePath(name)), message);
    QVERIFY(viewer.IsEmpty());
  }

  void DocumentThatHarmsItsReaderIsGivenUp_data() {
    // One of the messages is said.
    const test::Table<QString, QByteArray, QStringList> row;
    const QString too_long = "The Document takes too Long to be Shown.";
    const QString too_large = "The Document is too Large to be Shown.";
    const QString broken = "The Document is Broken, or Showing it Needs too Much Memory.";
    row("draws itself", "a.pdf", test::PdfThatDrawsItself(), QStringList(too_long));
    row("unpacks to 600 MB", "a.pdf", test::PdfThatUnpacksToMuch(),
        QStringList({too_long, too_large, broken}));
    row("deeply nested", "a.html", QByteArray("<table><tr><td>").repeated(60000),
        QStringList({too_long, broken}));
    row("marks on one letter", "a.html", "a" + QByteArray("\u0301").repeated(500000),
        QStringList(too_long));
    row("picture of 30000x30000", "a.html",
        "<img src='data:image/png;base64," + PngOfNothing(30000).toBase64() + "'>",
        QStringList(too_large));
  }
  void DocumentThatHarmsItsReaderIsGivenUp() {
    const auto [name, content, messages] = test::Table<QString, QByteArray, QStringList>::Row();
    DocumentViewer viewer(
        {.process = {.cpu = std::chrono::seconds(2)}, .longest = std::chrono::seconds(60)});
    const QString outcome = Opened(viewer, Write(name, content));
    QVERIFY2(messages.contains(outcome), qPrintable(outcome));
    QVERIFY(viewer.IsEmpty());
    QCOMPARE(Opened(viewer, Write("next.txt", "Signed")), QString("shown"));
  }

  void ReaderIsEndedByTheClockAndWithTheViewer() {
    const QString path = Write("never.pdf", test::PdfThatDrawsItself());
    auto viewer = std::make_unique<DocumentViewer>(ReadingLimits{
        .process = {.cpu = std::chrono::seconds(300)}, .longest = std::chrono::seconds(1)});
    QCOMPARE(Opened(*viewer, path), QString("The Document takes too Long to be Shown."));
    QTRY_VERIFY(!IsBeingRead(path));
    viewer = std::make_unique<DocumentViewer>(ReadingLimits{
        .process = {.cpu = std::chrono::seconds(300)}, .longest = std::chrono::seconds(300)});
    viewer->Open(path);
    QTRY_VERIFY(IsBeingRead(path));
    viewer.reset();
    QTRY_VERIFY(!IsBeingRead(path));
  }

  void MissingReaderIsTold() {
    DocumentViewer viewer({.find_reader = [] { return QString(); }});
    QVERIFY(
        Opened(viewer, Write("first.txt", "First")).startsWith("The Program \"quorvane-reader\""));
  }

  void AnswerThatIsNoPageIsRefused_data() {
    const test::Table<int, QByteArray> row;
    row("mark", 0, QByteArray(1, 'X'));
    row("size that is no number", 4, QByteArray(8, '\xff'));
    row("page beyond the last", 23, QByteArray(1, '\x7'));
    row("negative width", 33, QByteArray(1, '\xff'));
    row("more pixels than a page has", 33, QByteArray("\0\x70\0\0\0\x70", 6));
  }
  void AnswerThatIsNoPageIsRefused() {
    const auto [at, bytes] = test::Table<int, QByteArray>::Row();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(WritePage(MakePage(picture, QSizeF(3, 2), 0, 1), buffer));
    QByteArray answer = buffer.data();
    QCOMPARE(PageOf(answer)->levels.front(), picture);
    QVERIFY(!PageOf(answer.chopped(1)));
    answer.replace(at, bytes.size(), bytes);
    QVERIFY(!PageOf(answer));
  }

  void PagesAreTurnedAndCounted() {
    DocumentViewer viewer;
    QCOMPARE(Opened(viewer, Write("scan.tif", test::Tiff({8, 16, 24}))), QString("shown"));
    QCOMPARE(viewer.PageCount(), 3);
    QSignalSpy opened(&viewer, &DocumentViewer::Opened);
    viewer.PreviousPage();
    viewer.NextPage();
    QVERIFY(opened.wait());
    QCOMPARE(viewer.PageNumber(), 1);
  }

  void ChosenPagesArePrinted_data() {
    // of the printed pages' pictures: their numbers
    const test::Table<QString, QList<int>> row;
    row("all", "", QList<int>{1, 2, 3, 4});
    row("from and to", "2-3", QList<int>{2, 3});
    row("apart", "1,3-9", QList<int>{1, 3, 4});
  }
  void ChosenPagesArePrinted() {
    const auto [ranges, widths] = test::Table<QString, QList<int>>::Row();
    DocumentViewer viewer;
    QCOMPARE(Opened(viewer, Write("four.pdf", Pdf(4))), QString("shown"));
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder_.filePath("printed.pdf"));
    printer.setPageRanges(QPageRanges::fromString(ranges));
    Progress progress;
    viewer.PrintImage(printer, progress);
    QPdfDocument printed;
    QCOMPARE(printed.load(folder_.filePath("printed.pdf")), QPdfDocument::Error::None);
    QList<int> numbers;
    for (int page = 0; page < printed.pageCount(); ++page) {
      numbers.append(NumberOn(printed.render(page, QSize(400, 560))));
    }
    QCOMPARE(numbers, widths);
  }

  void PageThatIsNotThereIsNotPrinted() {
    DocumentViewer viewer;
    QCOMPARE(Opened(viewer, Write("four.pdf", Pdf(4))), QString("shown"));
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder_.filePath("none.pdf"));
    printer.setPageRanges(QPageRanges::fromString("7-9"));
    Progress progress;
    QVERIFY_EXCEPTION_THROWN(viewer.PrintImage(printer, progress), std::runtime_error);
    QVERIFY(!QFile::exists(folder_.filePath("none.pdf")));
  }

 private:
  /// A document whose pages are painted red, green, blue, black.
  static QByteArray Pdf(int pages) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    for (int page = 0; page < pages; ++page) {
      if (page > 0) {
        writer.newPage();
      }
      painter.fillRect(QRect(0, 0, writer.width(), writer.height()), kColors[page]);
    }
    painter.end();
    return buffer.data();
  }

  static int NumberOn(const QImage& page) {
    const QColor middle = page.pixelColor(page.rect().center());
    for (int number = 1; number <= 4; ++number) {
      const QColor& color = kColors[number - 1];
      if (std::abs(color.red() - middle.red()) + std::abs(color.green() - middle.green()) +
              std::abs(color.blue() - middle.blue()) <
          60) {
        return number;
      }
    }
    return 0;
  }

  static QByteArray Encoded(const QImage& picture, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return buffer.data();
  }

  /// A black picture, that many dots wide and high: packed, next to nothing.
  static QByteArray PngOfNothing(int side) {
    QImage picture(side, side, QImage::Format_Mono);
    picture.fill(0);
    return Encoded(picture, "PNG");
  }

  QString Write(const QString& name, const QByteArray& content) const {
    return test::WriteFile(folder_.filePath(name), content);
  }

  /// "shown", or what was said.
  static QString Opened(DocumentViewer& viewer, const QString& path) {
    QString outcome = "nothing";
    QEventLoop loop;
    const auto end = [&](const QString& text) {
      outcome = text;
      loop.quit();
    };
    connect(&viewer, &DocumentViewer::Opened, &loop, [&] { end("shown"); });
    // After Open has returned, since some documents fail at once.
    connect(&viewer, &DocumentViewer::Failed, &loop, end, Qt::QueuedConnection);
    QTimer::singleShot(90000, &loop, &QEventLoop::quit);
    viewer.Open(path);
    loop.exec();
    return outcome;
  }

  inline static const QColor kColors[4] = {Qt::red, Qt::green, Qt::blue, Qt::black};
  QTemporaryDir folder_;
};

static const test::RegisterTest<DocumentViewerTest> kRegistered;
#include "DocumentViewerTest.moc"
