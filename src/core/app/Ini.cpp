#include "core/app/Ini.h"

#include "core/app/IniLines.h"
#include "core/platform/PrivateFile.h"
#include "core/platform/Processes.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace quorvane::app {
namespace {

constexpr qsizetype kLongestValue = 254;
constexpr qsizetype kLargestFile = 1 << 20;

[[noreturn]] void Fail(const QString& path, const QString& reason) {
  throw std::runtime_error(QStringLiteral("settings file %1: %2")
                               .arg(QDir::toNativeSeparators(path), reason)
                               .toStdString());
}

QString Cut(const QString& value) {
  return TrimNul(value.left(kLongestValue));
}

/// Only a file that is surely not there is missing: one that cannot be reached may name a database.
bool IsMissing(const QString& path) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path name = QFileInfo(path).filesystemAbsoluteFilePath();
  const fs::file_status entry = fs::symlink_status(name, error);
  if (entry.type() == fs::file_type::not_found) {
    return true;
  }
  if (entry.type() == fs::file_type::none) {
    Fail(path, QString::fromStdString(error.message()));
  }
  // Reading a pipe would wait for somebody to write into it.
  if (!fs::is_regular_file(fs::status(name, error))) {
    Fail(path,
         error ? QString::fromStdString(error.message()) : QStringLiteral("it is no plain file"));
  }
  return false;
}

/// UTF-16, with its mark or without: there the first character, an ASCII one, has a zero byte.
bool IsUtf16(const QByteArray& content) {
  return content.startsWith("\xFF\xFE") || content.startsWith("\xFE\xFF") ||
         content.first(std::min<qsizetype>(2, content.size())).contains('\0');
}

QByteArray ReadFile(const QString& path) {
  if (IsMissing(path)) {
    return {};
  }
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(path, file.errorString());
  }
  QByteArray content = file.read(kLargestFile + 1);
  if (file.error() != QFileDevice::NoError) {
    Fail(path, file.errorString());
  }
  if (content.size() > kLargestFile) {
    Fail(path, QStringLiteral("it is too large for a settings file"));
  }
  if (IsUtf16(content)) {
    Fail(path, QStringLiteral("it is written in UTF-16; save it as UTF-8"));
  }
  return content;
}

void WriteFile(const QString& path, const QByteArray& content) {
  platform::MakeMissingFolder(QFileInfo(path).absolutePath());
  platform::WritePrivate(path, content);
}

void CheckWritable(const QString& path, const QString& section, const QString& key,
                   const QString& value) {
  const auto breaks_line = [](const QString& text) {
    return text.contains('\n') || text.contains('\r');
  };
  if (breaks_line(section) || breaks_line(key) || breaks_line(value)) {
    Fail(path, QStringLiteral("a setting cannot hold a line break"));
  }
  const QString name = key.trimmed();
  const bool bad_key =
      name.isEmpty() || name.contains('=') || name.startsWith('[') || name.startsWith(';');
  if (bad_key || section.contains(']')) {
    Fail(path, QStringLiteral("[%1] %2 cannot be a setting's name").arg(section, key));
  }
}

}  // namespace

QString TrimNul(const QString& text) {
  const qsizetype nul = text.indexOf(QChar(u'\0'));
  return nul < 0 ? text : text.left(nul);
}

IniFile::IniFile(QString path) : path_(std::move(path)) {}

QString IniFile::Read(const QString& section, const QString& key, const QString& fallback) const {
  return Find(section, key).value_or(Cut(fallback));
}

std::optional<QString> IniFile::Find(const QString& section, const QString& key) const {
  const auto value = IniLines(ReadFile(path_)).Value(section, key);
  return value ? std::optional(Cut(*value)) : std::nullopt;
}

void IniFile::Write(const QString& section, const QString& key, const QString& value) const {
  const IniSetting setting{section, key, value};
  Write(std::span(&setting, 1));
}

void IniFile::Write(std::span<const IniSetting> settings) const {
  IniLines lines(ReadFile(path_));
  for (const IniSetting& setting : settings) {
    const QString text = TrimNul(setting.value.value_or(QString()));
    CheckWritable(path_, setting.section, setting.key, text);
    if (setting.value) {
      lines.Set(setting.section, setting.key, text);
    } else {
      lines.Remove(setting.section, setting.key);
    }
  }
  WriteFile(path_, lines.Content());
}

}  // namespace quorvane::app
