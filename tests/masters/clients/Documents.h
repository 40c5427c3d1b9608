#pragma once

#include "support/Files.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtEndian>

#include <stdexcept>
#include <utility>
#include <vector>

namespace quorvane::test {

template <class Number>
void PutNumber(QByteArray& bytes, qsizetype at, Number number) {
  qToLittleEndian(number, bytes.data() + at);
}

/// A picture of one black dot.
inline QByteArray Gif() {
  return QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7");
}

/// A scan of grey pages, each 8 dots wide and as high as the page's entry says, without
/// compression.
inline QByteArray Tiff(const std::vector<quint32>& heights) {
  constexpr quint32 kWidth = 8;
  QByteArray bytes("II*\0\0\0\0\0", 8);
  qsizetype link = 4;
  for (const quint32 height : heights) {
    const auto pixels = static_cast<quint32>(bytes.size());
    bytes += QByteArray(static_cast<qsizetype>(kWidth * height), '\x60');
    PutNumber(bytes, link, static_cast<quint32>(bytes.size()));
    const std::vector<std::pair<quint16, quint32>> tags{
        {256, kWidth}, {257, height},         {258, 8}, {259, 1}, {262, 1}, {273, pixels}, {277, 1},
        {278, height}, {279, kWidth * height}};
    QByteArray directory(2 + 12 * static_cast<qsizetype>(tags.size()) + 4, '\0');
    PutNumber(directory, 0, static_cast<quint16>(tags.size()));
    for (std::size_t i = 0; i < tags.size(); ++i) {
      const qsizetype at = 2 + 12 * static_cast<qsizetype>(i);
      PutNumber(directory, at, tags[i].first);
      PutNumber(directory, at + 2, quint16{4});
      PutNumber(directory, at + 4, quint32{1});
      PutNumber(directory, at + 8, tags[i].second);
    }
    link = bytes.size() + directory.size() - 4;
    bytes += directory;
  }
  return bytes;
}

/// A PDF document of one page, whose objects from number 3 on are given.
inline QByteArray PdfOf(const QList<QByteArray>& objects) {
  QByteArray bytes = "%PDF-1.4\n";
  QByteArray places = "0000000000 65535 f \n";
  const QList<QByteArray> all =
      QList<QByteArray>{"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1>>"} +
      objects;
  for (qsizetype i = 0; i < all.size(); ++i) {
    places += QByteArray::number(bytes.size()).rightJustified(10, '0') + " 00000 n \n";
    bytes += QByteArray::number(i + 1) + " 0 obj\n" + all[i] + "\nendobj\n";
  }
  const QByteArray count = QByteArray::number(all.size() + 1);
  return bytes + "xref\n0 " + count + "\n" + places + "trailer\n<</Size " + count +
         "/Root 1 0 R>>\nstartxref\n" + QByteArray::number(bytes.size()) + "\n%%EOF\n";
}

inline QByteArray PdfStream(const QByteArray& entries, const QByteArray& content) {
  return "<<" + entries + "/Length " + QByteArray::number(content.size()) + ">>\nstream\n" +
         content + "\nendstream";
}

/// Its form paints itself twice.
inline QByteArray PdfThatDrawsItself() {
  const QByteArray form = "/Resources<</XObject<</F 5 0 R>>>>";
  return PdfOf({"<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 4 0 R" + form + ">>",
                PdfStream({}, "/F Do"),
                PdfStream("/Type/XObject/Subtype/Form/BBox[0 0 595 842]" + form, "/F Do /F Do")});
}

/// 30 times the same 20 MB of lines.
inline QByteArray PdfThatUnpacksToMuch() {
  const QByteArray lines = qCompress(QByteArray("0 0 m 9 9 l S ").repeated(20 << 16)).mid(4);
  return PdfOf({"<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents[" +
                    QByteArray("4 0 R ").repeated(30) + "]>>",
                PdfStream("/Filter/FlateDecode", lines)});
}

/// A word processor's document: a compound file of one stream, which begins with the table of where
/// its text lies.
inline QByteArray WordDocument(const QByteArray& text) {
  constexpr qsizetype kEndOfText = 1536 + 28;
  constexpr qsizetype kText = 1536 + 512;
  QByteArray bytes = qUncompress(QByteArray::fromBase64(
      "AAAWAHja7dRPDsFAGAXwN62iOzYWXTmJFRewcQAskTQsHMfCARzBCTgCe1dgvGmmycRCxlLzfs3L17SZP+2XzPXS"
      "vx1OxR0fRkjxsjnawTPjU+mB7611t3V1rPyVJ+P6l7J3LSZjXM87TJfJfX+lmabY8NpiiAnWrCX2+MUAmannMpFj"
      "wvNixtVLLDBmnWOHFZbVPmIVSEz4PTFjEn9+CfA4nr/8JBERERERERFpgjfegsMq"));
  PutNumber(bytes, kEndOfText, static_cast<quint32>(512 + text.size()));
  bytes.replace(kText, text.size(), text);
  return bytes;
}

}  // namespace quorvane::test
