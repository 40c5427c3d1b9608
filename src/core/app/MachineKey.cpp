#include "core/app/MachineKey.h"

#include "core/text/PasswordCode.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <optional>
#include <stdexcept>
#include <utility>

namespace quorvane::app {
namespace {

#ifdef Q_OS_WIN
constexpr auto kFormat = QSettings::NativeFormat;
constexpr char kAdminPass[] = "AdminPass";
constexpr char kAdminPassForm[] = "AdminPassForm";

QString DefaultLocation() {
  return QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\OrvikInfo\\Quorvane");
}
#else
constexpr auto kFormat = QSettings::IniFormat;
constexpr char kAdminPass[] = "Software/OrvikInfo/Quorvane/AdminPass";
constexpr char kAdminPassForm[] = "Software/OrvikInfo/Quorvane/AdminPassForm";
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

/// Says that the password is kept as users' passwords are.
const QString kMapped = QStringLiteral("mapped");

/// Before the password is in it: what is made anew would be open to every user for an instant.
void CloseToOthers(const QString& location) {
#ifdef Q_OS_WIN
  static_cast<void>(location);
#else
  constexpr auto kOwner = QFile::ReadOwner | QFile::WriteOwner;
  // Its folder stays open: whoever could not look into it would take the password for missing.
  QDir().mkpath(QFileInfo(location).absolutePath());
  QFile file(location);
  if (QFileInfo(location).isDir()) {
    return;
  }
  const bool closed = file.exists() ? file.setPermissions(kOwner)
                                    : file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kOwner);
  if (!closed) {
    throw std::runtime_error("writing the machine settings in " + location.toStdString() +
                             " failed: " + file.errorString().toStdString());
  }
#endif
}

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
  QSettings settings(location_, kFormat);
  ThrowIfFailed(settings, "reading");
  QString stored = settings.value(kAdminPass).toString();
  if (settings.value(kAdminPassForm).toString() != kMapped) {
    // An earlier release has written it as it is.
    if (!stored.isEmpty() && settings.isWritable()) {
      SetAdminPass(stored);
    }
    return stored;
  }
  const std::optional<QString> password = text::DecodePassword(stored);
  if (!password) {
    throw std::runtime_error("the administrator's password in " +
                             settings.fileName().toStdString() + " cannot be read");
  }
  return *password;
}

void MachineKey::SetAdminPass(const QString& password) const {
  CloseToOthers(location_);
  QSettings settings(location_, kFormat);
  settings.setValue(kAdminPass, text::EncodePassword(password));
  settings.setValue(kAdminPassForm, kMapped);
  settings.sync();
  ThrowIfFailed(settings, "writing");
}

}  // namespace quorvane::app
