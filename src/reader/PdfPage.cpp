#include "reader/Pages.h"
#include "reader/Refuse.h"

#include <QFile>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfSelection>

namespace quorvane::reader {
namespace {

constexpr double kPoint = 96.0 / 72.0;  // device-independent pixels
constexpr qint64 kPdfHeader = 1024;     // bytes within which the signature stands

[[noreturn]] void RefuseBroken() {
  Refuse(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
}

bool BeginsAsPdf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) && file.read(kPdfHeader).contains("%PDF-");
}

void Load(QPdfDocument& document, const QString& path) {
  if (!BeginsAsPdf(path)) {
    RefuseBroken();
  }
  switch (document.load(path)) {
    case QPdfDocument::Error::None:
      return;
    case QPdfDocument::Error::IncorrectPassword:
    case QPdfDocument::Error::UnsupportedSecurityScheme:
      Refuse(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Protected by a Password."));
    case QPdfDocument::Error::FileNotFound:
      Refuse(QT_TRANSLATE_NOOP("Clients", "File does not Exist."));
    case QPdfDocument::Error::InvalidFileFormat:
      RefuseBroken();
    default:
      Refuse(QT_TRANSLATE_NOOP("Clients", "Could not create PDF Object."));
  }
}

}  // namespace

documents::DocumentPage ReadPdfPage(const QString& path, int number, int dots) {
  QPdfDocument document;
  Load(document, path);
  const QSizeF actual = document.pagePointSize(number) * kPoint;
  if (document.pageCount() <= number || actual.isEmpty()) {
    RefuseBroken();
  }
  QImage paper = BlankPaper(actual, dots);
  const QImage ink = document.render(number, paper.size());
  if (ink.isNull()) {
    RefuseBroken();
  }
  QPainter(&paper).drawImage(0, 0, ink);
  documents::DocumentPage page =
      documents::MakePage(std::move(paper), actual, number, document.pageCount());
  page.text = document.getAllText(number).text();
  return page;
}

}  // namespace quorvane::reader
