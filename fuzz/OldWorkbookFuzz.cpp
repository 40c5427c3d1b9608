#include "core/files/OldWorkbook.h"

#include <QFile>
#include <QTemporaryFile>

using namespace quorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The library reads files only; this one lies in memory.
  static QTemporaryFile file(QStringLiteral("/dev/shm/fuzz-XXXXXX.xls"));
  if (!file.isOpen() && !file.open()) {
    return -1;
  }
  file.resize(0);
  file.seek(0);
  file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
  file.flush();
  try {
    files::ReadOldWorkbook(QFile::encodeName(file.fileName()).toStdString());
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
