#pragma once

#include <QString>

#include <optional>
#include <span>

namespace quorvane::app {

/// The text before its first NUL character; the whole text when there is none.
QString TrimNul(const QString& text);

/// One setting to be written; without a value its line is removed and the fallback counts.
struct IniSetting {
  QString section;
  QString key;
  std::optional<QString> value;
};

/// A settings file of "[Section]" and "key=value" lines. Sections and keys are the same in capital
/// and small letters; the first of several equal ones counts. The file is read anew at each call
/// and may be edited at any time.
class IniFile {
 public:
  explicit IniFile(QString path);

  const QString& Path() const { return path_; }

  /// The value without blanks and one pair of quotes around it, cut at 254 characters and at the
  /// first NUL; `fallback`, cut in the same way, when file, section or key is missing. Throws
  /// std::runtime_error when there is a file that cannot be read: no permission, a link that leads
  /// nowhere, no plain file, over 1 MiB, or another code than UTF-8 or an 8-bit one.
  QString Read(const QString& section, const QString& key, const QString& fallback = {}) const;

  /// The same value; nothing when it is missing.
  std::optional<QString> Find(const QString& section, const QString& key) const;

  /// Sets one value so that Read returns it, and leaves every other line, comment and blank line
  /// where it is. The file and its folder are made when missing; nobody but this user can read the
  /// file afterwards. Either the whole change reaches the disk or the file stays as it was. Throws
  /// std::runtime_error with the path and the reason.
  void Write(const QString& section, const QString& key, const QString& value) const;

  /// The same for several settings at once: all of them reach the disk or none.
  void Write(std::span<const IniSetting> settings) const;

 private:
  QString path_;
};

}  // namespace quorvane::app
