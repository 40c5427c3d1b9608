#include "core/app/Ini.h"

#include "core/platform/PrivateFile.h"
#include "core/platform/Processes.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

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
constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

[[noreturn]] void Fail(const QString& path, const QString& reason) {
  throw std::runtime_error(QStringLiteral("settings file %1: %2")
                               .arg(QDir::toNativeSeparators(path), reason)
                               .toStdString());
}

/// Settings that an old editor saved in an 8-bit code are not UTF-8.
QString Decode(const QByteArray& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(bytes);
  return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

bool SameName(const QByteArray& bytes, const QString& name) {
  return Decode(bytes).trimmed().compare(name.trimmed(), Qt::CaseInsensitive) == 0;
}

bool InQuotes(const QString& value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == QChar('"') || value.front() == QChar('\''));
}

QString Unquoted(const QString& value) {
  return InQuotes(value) ? value.sliced(1, value.size() - 2) : value;
}

/// Quotes what Read would otherwise not give back.
QString Quoted(const QString& value) {
  const bool needed = InQuotes(value) || value != value.trimmed();
  return needed ? QChar('"') + value + QChar('"') : value;
}

QString Cut(const QString& value) {
  return TrimNul(value.left(kLongestValue));
}

std::optional<QByteArray> SectionName(const QByteArray& line) {
  const QByteArray text = line.trimmed();
  if (!text.startsWith('[')) {
    return std::nullopt;
  }
  const qsizetype end = text.indexOf(']');
  return text.sliced(1, (end < 0 ? text.size() : end) - 1);
}

/// Length of "key=" with the blanks after it when the line sets the key, else 0.
qsizetype ValueStart(const QByteArray& line, const QString& key) {
  const qsizetype equals = line.indexOf('=');
  const bool sets =
      equals >= 0 && !line.trimmed().startsWith(';') && SameName(line.left(equals), key);
  if (!sets) {
    return 0;
  }
  qsizetype start = equals + 1;
  while (start < line.size() && (line[start] == ' ' || line[start] == '\t')) {
    ++start;
  }
  return start;
}

/// The lines of a settings file, each without its line end.
class Lines {
 public:
  explicit Lines(const QByteArray& content)
      : has_mark_(content.startsWith(kByteOrderMark)), line_end_(LineEnd(content)) {
    const qsizetype start = has_mark_ ? sizeof(kByteOrderMark) - 1 : 0;
    const QByteArray text = content.sliced(start);
    lines_ = text.isEmpty() ? QByteArrayList() : text.split('\n');
    ends_with_line_end_ = !lines_.isEmpty() && lines_.back().isEmpty();
    if (ends_with_line_end_) {
      lines_.removeLast();
    }
  }

  std::optional<QByteArray> Value(const QString& section, const QString& key) const {
    const auto [first, end] = Section(section);
    const qsizetype at = Find(first, end, key);
    return at < end ? std::optional(lines_[at].sliced(ValueStart(lines_[at], key)).trimmed())
                    : std::nullopt;
  }

  void Set(const QString& section, const QString& key, const QByteArray& value) {
    const auto [first, end] = Section(section);
    const qsizetype at = Find(first, end, key);
    if (at < end) {
      ReplaceValue(lines_[at], ValueStart(lines_[at], key), value);
      return;
    }
    if (first < 0) {
      Add(lines_.size(), '[' + section.trimmed().toUtf8() + ']');
    }
    const qsizetype section_end = first < 0 ? lines_.size() : end;
    Add(AfterLastText(section_end), key.trimmed().toUtf8() + '=' + value);
  }

  void Remove(const QString& section, const QString& key) {
    const auto [first, end] = Section(section);
    if (const qsizetype at = Find(first, end, key); at < end) {
      lines_.removeAt(at);
    }
  }

  QByteArray Content() const {
    QByteArray content = has_mark_ ? QByteArray(kByteOrderMark) : QByteArray();
    content += lines_.join('\n');
    return ends_with_line_end_ ? content + '\n' : content;
  }

 private:
  static QByteArray LineEnd(const QByteArray& content) {
    const qsizetype first = content.indexOf('\n');
    return first > 0 && content[first - 1] == '\r' ? QByteArray("\r") : QByteArray();
  }

  /// First line after the section's head and the line after its last; {-1, -1} when missing.
  std::pair<qsizetype, qsizetype> Section(const QString& name) const {
    qsizetype first = -1;
    for (qsizetype at = 0; at < lines_.size(); ++at) {
      const auto found = SectionName(lines_[at]);
      if (found && first >= 0) {
        return {first, at};
      }
      if (found && SameName(*found, name)) {
        first = at + 1;
      }
    }
    return {first, first < 0 ? -1 : lines_.size()};
  }

  qsizetype Find(qsizetype first, qsizetype end, const QString& key) const {
    qsizetype at = first;
    while (at < end && ValueStart(lines_[at], key) == 0) {
      ++at;
    }
    return at;
  }

  static void ReplaceValue(QByteArray& line, qsizetype start, const QByteArray& value) {
    const bool carriage_return = line.endsWith('\r');
    line.truncate(start);
    line += value;
    if (carriage_return) {
      line += '\r';
    }
  }

  qsizetype AfterLastText(qsizetype end) const {
    while (end > 0 && lines_[end - 1].trimmed().isEmpty()) {
      --end;
    }
    return end;
  }

  void Add(qsizetype at, const QByteArray& line) {
    if (at == lines_.size()) {
      if (at > 0 && !ends_with_line_end_) {
        lines_.back() += line_end_;
      }
      ends_with_line_end_ = true;
    }
    lines_.insert(at, line + line_end_);
  }

  bool has_mark_;
  QByteArray line_end_;  ///< what stands before the line feed
  bool ends_with_line_end_ = false;
  QByteArrayList lines_;
};

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
  const auto value = Lines(ReadFile(path_)).Value(section, key);
  return value ? std::optional(Cut(Unquoted(Decode(*value)))) : std::nullopt;
}

void IniFile::Write(const QString& section, const QString& key, const QString& value) const {
  const IniSetting setting{section, key, value};
  Write(std::span(&setting, 1));
}

void IniFile::Write(std::span<const IniSetting> settings) const {
  Lines lines(ReadFile(path_));
  for (const IniSetting& setting : settings) {
    const QString text = TrimNul(setting.value.value_or(QString()));
    CheckWritable(path_, setting.section, setting.key, text);
    if (setting.value) {
      lines.Set(setting.section, setting.key, Quoted(text).toUtf8());
    } else {
      lines.Remove(setting.section, setting.key);
    }
  }
  WriteFile(path_, lines.Content());
}

}  // namespace quorvane::app
