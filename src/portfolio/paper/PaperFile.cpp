#include "portfolio/paper/PaperFile.h"

#include "core/files/HtmlDocument.h"
#include "core/files/TableFile.h"
#include "core/text/Tr.h"
#include "documents/PdfText.h"

#include <QFile>

namespace quorvane::paper {
namespace {

bool BeginsAsPdf(QFile& file) {
  constexpr qint64 kHeader = 1024;  // bytes within which the signature stands
  return file.peek(kHeader).contains("%PDF-");
}

bool BeginsAsWebPage(QFile& file) {
  constexpr qint64 kHead = 65'536;  // bytes, with comments before the page
  return files::HtmlDocument::IsOne(file.peek(kHead).toStdString());
}

files::TextTable ReadWebPage(const QString& path) {
  return files::HtmlDocument(files::BytesOf(path).toStdString()).Rows();
}

}  // namespace

Result<PaperContent> ReadPaper(const QString& path, const QStringList& passwords,
                               Progress& progress) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return Refusal{Tr("Files", "%1: %2").arg(path, file.errorString())};
  }
  if (BeginsAsPdf(file)) {
    const auto text = documents::ReadPdfText(path, passwords, progress);
    if (!text) {
      return text.Why();
    }
    return PaperContent(LinesOf(*text));
  }
  try {
    return PaperContent(BeginsAsWebPage(file) ? ReadWebPage(path) : files::ReadTableFile(path));
  } catch (const files::TableError& error) {
    return Refusal{QString::fromUtf8(error.what())};
  }
}

QStringList PasswordsFor(const QString& pan, const QString& date_of_birth,
                         const QStringList& entered) {
  QStringList passwords = entered;
  const QString day = QString(date_of_birth).remove(QLatin1Char('/'));
  for (const QString& own : {pan.toUpper(), pan.toLower()}) {
    passwords << own;
    if (!own.isEmpty() && !day.isEmpty()) {
      passwords << own + day;
    }
  }
  passwords << day;
  passwords.removeAll(QString());
  passwords.removeDuplicates();
  return passwords;
}

}  // namespace quorvane::paper
