#include "core/app/Ini.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

using namespace quorvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz-XXXXXX"));
  const QString path = folder.filePath(QStringLiteral("Confg.ini"));
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) {
    return -1;
  }
  file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
  file.close();
  const app::IniFile settings(path);
  const QString section = QStringLiteral("Internet");
  const QString key = QStringLiteral("BseHost");
  settings.Read(section, key);
  const QString value = QStringLiteral("https://example.org");
  settings.Write(section, key, value);
  if (settings.Read(section, key) != value) {
    std::abort();
  }
  return 0;
}
