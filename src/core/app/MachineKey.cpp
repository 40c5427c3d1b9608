#include "core/app/MachineKey.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <stdexcept>
#include <utility>

namespace quorvane::app {
namespace {

#ifdef Q_OS_WIN
constexpr auto kFormat = QSettings::NativeFormat;
constexpr char kAdminPass[] = "AdminPass";

QString DefaultLocation() {
  return QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\OrvikInfo\\Quorvane");
}
#else
constexpr auto kFormat = QSettings::IniFormat;
constexpr char kAdminPass[] = "Software/OrvikInfo/Quorvane/AdminPass";
constexpr char kMachineFolder[] = "/etc/xdg";
constexpr char kFile[] = "/quorvane/machine.ini";

QString DefaultLocation() {
  QString machine_wide = QString(kMachineFolder) + kFile;
  if (QFileInfo::exists(machine_wide) || QFileInfo(kMachineFolder).isWritable()) {
    return machine_wide;
  }
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + kFile;
}
#endif

void ThrowIfFailed(const QSettings& settings, const char* attempt) {
  if (settings.status() != QSettings::NoError) {
    throw std::runtime_error(std::string(attempt) + " the machine settings in " +
                             settings.fileName().toStdString() +
                             " failed: check that the user may use this file");
  }
}

}  // namespace

MachineKey::MachineKey() : location_(DefaultLocation()) {}
MachineKey::MachineKey(QString settings_file) : location_(std::move(settings_file)) {}

QString MachineKey::AdminPass() const {
  const QSettings settings(location_, kFormat);
  ThrowIfFailed(settings, "reading");
  return settings.value(kAdminPass).toString();
}

void MachineKey::SetAdminPass(const QString& password) const {
  QSettings settings(location_, kFormat);
  settings.setValue(kAdminPass, password);
  settings.sync();
  ThrowIfFailed(settings, "writing");
}

}  // namespace quorvane::app
