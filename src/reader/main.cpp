#include "core/app/AppInfo.h"
#include "core/platform/Processes.h"
#include "core/text/Tr.h"
#include "documents/DocumentKind.h"
#include "documents/DocumentReading.h"
#include "reader/Pages.h"
#include "reader/Refuse.h"

#include <QCommandLineParser>
#include <QFile>
#include <QGuiApplication>
#include <QTranslator>

#include <cstdio>
#include <new>

namespace {

using namespace quorvane;
using documents::DocumentKind;

constexpr std::int64_t kMegabyte = 1 << 20;

struct Order {
  QString path;
  int page = 0;
  int dots = 0;
  bool text = false;
  platform::ProcessLimits limits;
  QString language_file;
};

Order OrderOf(const QGuiApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Reads a page of a document for Quorvane and writes its picture, or the text "
                     "of all pages, to "
                     "standard output."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The document"));
  parser.addOptions({{QStringLiteral("page"), QStringLiteral("Counted from 0"), "N", "0"},
                     {QStringLiteral("dots"), QStringLiteral("To the inch"), "N", "192"},
                     {QStringLiteral("text"),
                      QStringLiteral("The text of a PDF document, whose password is the first line "
                                     "of standard input")},
                     {QStringLiteral("seconds"), QStringLiteral("Of CPU time at most"), "N", "10"},
                     {QStringLiteral("megabytes"), QStringLiteral("At most"), "N", "1536"},
                     {QStringLiteral("language"), QStringLiteral("Texts of a language"), "FILE"}});
  parser.process(application);
  if (parser.positionalArguments().size() != 1) {
    parser.showHelp(2);
  }
  return {.path = parser.positionalArguments().constFirst(),
          .page = std::max(0, parser.value(QStringLiteral("page")).toInt()),
          .dots = std::clamp(parser.value(QStringLiteral("dots")).toInt(), 1, 1200),
          .text = parser.isSet(QStringLiteral("text")),
          .limits = {.cpu = std::chrono::seconds(parser.value(QStringLiteral("seconds")).toInt()),
                     .bytes = kMegabyte * parser.value(QStringLiteral("megabytes")).toInt()},
          .language_file = parser.value(QStringLiteral("language"))};
}

documents::DocumentPage Read(const Order& order) {
  switch (documents::KindOf(order.path)) {
    case DocumentKind::kImage:
      return reader::ReadPicturePage(order.path, order.page);
    case DocumentKind::kPdf:
      return reader::ReadPdfPage(order.path, order.page, order.dots);
    case DocumentKind::kText:
      return reader::ReadTextPage(order.path, order.page, order.dots);
    case DocumentKind::kUnsupported:
      break;
  }
  throw std::runtime_error(documents::FormatNotSupported().toStdString());
}

int Write(const QByteArray& line, QFile& out) {
  out.write(line + '\n');
  return documents::kReaderRefused;
}

/// The first line of standard input.
QByteArray Password() {
  constexpr qint64 kLongest = 256;
  QFile in;
  if (!in.open(stdin, QIODevice::ReadOnly)) {
    return {};
  }
  QByteArray line = in.readLine(kLongest);
  if (line.endsWith('\n')) {
    line.chop(1);
  }
  return line;
}

int AnswerWithText(const Order& order, QFile& out) {
  const auto text = reader::ReadPdfText(order.path, Password());
  if (!text) {
    return documents::kReaderLocked;
  }
  return documents::WriteText(*text, out) ? documents::kReaderDone : documents::kReaderRefused;
}

int Answer(const Order& order) {
  QFile out;
  if (!out.open(stdout, QIODevice::WriteOnly)) {
    return documents::kReaderRefused;
  }
  try {
    if (order.text) {
      return AnswerWithText(order, out);
    }
    return documents::WritePage(Read(order), out) ? documents::kReaderDone
                                                  : documents::kReaderRefused;
  } catch (const std::bad_alloc&) {
    return Write(quorvane::Tr("Clients", "The Document is too Large to be Shown.").toUtf8(), out);
  } catch (const std::exception& error) {
    return Write(error.what(), out);
  }
}

}  // namespace

/// Documents come from strangers. This program does nothing but read one, under limits of time and
/// memory, so that whatever happens in it leaves the windows alone.
int main(int argc, char** argv) {
  platform::EndWithParent();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("quorvane-reader"));
  QCoreApplication::setApplicationVersion(QLatin1String(app::kVersionText));
  const Order order = OrderOf(application);
  platform::LimitThisProcess(order.limits, documents::kReaderUsedUp);
  reader::BoundPictures();
  QTranslator translator;
  if (!order.language_file.isEmpty() && translator.load(order.language_file)) {
    QCoreApplication::installTranslator(&translator);
  }
  return Answer(order);
}
