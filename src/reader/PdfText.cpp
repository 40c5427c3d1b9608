#include "reader/Pages.h"
#include "reader/Refuse.h"

#include <QFile>

#include <poppler-document.h>
#include <poppler-global.h>
#include <poppler-page.h>

#include <memory>

namespace quorvane::reader {
namespace {

constexpr qint64 kLargestFile = qint64{64} << 20;

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Refuse(QT_TRANSLATE_NOOP("Clients", "File does not Exist."));
  }
  QByteArray bytes = file.read(kLargestFile + 1);
  if (bytes.size() > kLargestFile) {
    RefuseTooLarge();
  }
  return bytes;
}

void AddWords(documents::PrintedText& text, const poppler::page& page, int number) {
  for (const poppler::text_box& box : page.text_list()) {
    // Along the edge and across the page stand notices, and no lines of a table.
    if (box.rotation() != 0) {
      continue;
    }
    if (text.words.size() >= documents::PrintedText::kMostWords) {
      RefuseTooLarge();
    }
    const poppler::rectf place = box.bbox();
    const poppler::byte_array utf8 = box.text().to_utf8();
    text.words.push_back({number, place.left(), place.right(), place.top(), place.bottom(),
                          QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()))});
  }
}

}  // namespace

std::optional<documents::PrintedText> ReadPdfText(const QString& path, const QByteArray& password) {
  poppler::set_debug_error_function([](const std::string&, void*) {}, nullptr);
  const QByteArray bytes = BytesOf(path);
  const std::unique_ptr<poppler::document> document(
      poppler::document::load_from_raw_data(bytes.constData(), static_cast<int>(bytes.size()),
                                            password.toStdString(), password.toStdString()));
  if (document == nullptr) {
    Refuse(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
  }
  if (document->is_locked()) {
    return std::nullopt;
  }
  documents::PrintedText text;
  text.pages = document->pages();
  if (text.pages <= 0) {
    Refuse(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
  }
  if (text.pages > documents::PrintedText::kMostPages) {
    RefuseTooLarge();
  }
  for (int number = 0; number < text.pages; ++number) {
    const std::unique_ptr<poppler::page> page(document->create_page(number));
    if (page == nullptr) {
      Refuse(QT_TRANSLATE_NOOP("Clients", "The PDF Document is Broken."));
    }
    AddWords(text, *page, number);
  }
  return text;
}

}  // namespace quorvane::reader
