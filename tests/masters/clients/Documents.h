#pragma once

#include <QByteArray>
#include <QFile>
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
