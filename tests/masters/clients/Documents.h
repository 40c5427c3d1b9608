#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>
#include <QtEndian>

#include <stdexcept>
#include <utility>
#include <vector>

namespace quorvane::test {

inline QString WriteFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
    throw std::runtime_error("cannot write " + path.toStdString());
  }
  return path;
}

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

/// A black picture, that many dots wide and high: packed, next to nothing.
inline QByteArray PngOfNothing(quint32 side) {
  const auto chunk = [](const QByteArray& name, const QByteArray& content) {
    quint32 sum = 0xffffffff;
    for (const char byte : name + content) {
      sum ^= static_cast<quint8>(byte);
      for (int bit = 0; bit < 8; ++bit) {
        sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xedb88320 : 0);
      }
    }
    QByteArray numbers(8, '\0');
    qToBigEndian(static_cast<quint32>(content.size()), numbers.data());
    qToBigEndian(~sum, numbers.data() + 4);
    return numbers.left(4) + name + content + numbers.mid(4);
  };
  QByteArray header(13, '\0');
  qToBigEndian(side, header.data());
  qToBigEndian(side, header.data() + 4);
  header[8] = 1;
  const qsizetype row = 1 + (side + 7) / 8;
  return QByteArray::fromHex("89504e470d0a1a0a") + chunk("IHDR", header) +
         chunk("IDAT", qCompress(QByteArray(row * side, '\0')).mid(4)) + chunk("IEND", {});
}

/// A word processor's document: a compound file of one stream, which begins with the table of where
/// its text lies.
inline QByteArray WordDocument(const QByteArray& text) {
  constexpr qsizetype kSector = 512;
  constexpr qsizetype kStreamSectors = 8;
  constexpr quint32 kFree = 0xffffffff;
  constexpr quint32 kEnd = 0xfffffffe;
  QByteArray bytes((3 + kStreamSectors) * kSector, '\0');
  bytes.replace(0, 8, QByteArray::fromHex("d0cf11e0a1b11ae1"));
  PutNumber(bytes, 24, quint16{0x3e});
  PutNumber(bytes, 26, quint16{3});
  PutNumber(bytes, 28, quint16{0xfffe});
  PutNumber(bytes, 30, quint16{9});
  PutNumber(bytes, 32, quint16{6});
  PutNumber(bytes, 44, quint32{1});
  PutNumber(bytes, 48, quint32{1});
  PutNumber(bytes, 56, quint32{4096});
  PutNumber(bytes, 60, kEnd);
  PutNumber(bytes, 68, kEnd);
  for (qsizetype at = 80; at < kSector; at += 4) {
    PutNumber(bytes, at, kFree);
  }
  const qsizetype table = kSector;
  for (qsizetype i = 0; i < kSector / 4; ++i) {
    const bool chained = i >= 2 && i < 1 + kStreamSectors;
    PutNumber(bytes, table + 4 * i, chained ? static_cast<quint32>(i + 1) : kFree);
  }
  PutNumber(bytes, table, quint32{0xfffffffd});
  PutNumber(bytes, table + 4, kEnd);
  PutNumber(bytes, table + 4 * (1 + kStreamSectors), kEnd);
  const auto entry = [&](qsizetype at, const char16_t* name, char type, quint32 child,
                         quint32 start, quint32 size) {
    qsizetype length = 0;
    for (; name[length] != 0; ++length) {
      PutNumber(bytes, at + 2 * length, static_cast<quint16>(name[length]));
    }
    PutNumber(bytes, at + 64, static_cast<quint16>(2 * length + 2));
    bytes[at + 66] = type;
    bytes[at + 67] = 1;
    PutNumber(bytes, at + 68, kFree);
    PutNumber(bytes, at + 72, kFree);
    PutNumber(bytes, at + 76, child);
    PutNumber(bytes, at + 116, start);
    PutNumber(bytes, at + 120, size);
  };
  entry(2 * kSector, u"Root Entry", 5, 1, kEnd, 0);
  entry(2 * kSector + 128, u"WordDocument", 2, kFree, 2, kStreamSectors * kSector);
  const qsizetype stream = 3 * kSector;
  PutNumber(bytes, stream, quint16{0xa5ec});
  PutNumber(bytes, stream + 2, quint16{0xc1});
  PutNumber(bytes, stream + 24, quint32{kSector});
  PutNumber(bytes, stream + 28, static_cast<quint32>(kSector + text.size()));
  bytes.replace(stream + kSector, text.size(), text);
  return bytes;
}

}  // namespace quorvane::test
