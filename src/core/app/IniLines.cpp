#include "core/app/IniLines.h"

#include <QStringDecoder>

namespace quorvane::app {
namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

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

/// Quotes what Value would otherwise not give back.
QString Quoted(const QString& value) {
  const bool needed = InQuotes(value) || value != value.trimmed();
  return needed ? QChar('"') + value + QChar('"') : value;
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

QByteArray LineEnd(const QByteArray& content) {
  const qsizetype first = content.indexOf('\n');
  return first > 0 && content[first - 1] == '\r' ? QByteArray("\r") : QByteArray();
}

void ReplaceValue(QByteArray& line, qsizetype start, const QByteArray& value) {
  const bool carriage_return = line.endsWith('\r');
  line.truncate(start);
  line += value;
  if (carriage_return) {
    line += '\r';
  }
}

}  // namespace

IniLines::IniLines(const QByteArray& content)
    : has_mark_(content.startsWith(kByteOrderMark)), line_end_(LineEnd(content)) {
  const qsizetype start = has_mark_ ? sizeof(kByteOrderMark) - 1 : 0;
  const QByteArray text = content.sliced(start);
  lines_ = text.isEmpty() ? QByteArrayList() : text.split('\n');
  ends_with_line_end_ = !lines_.isEmpty() && lines_.back().isEmpty();
  if (ends_with_line_end_) {
    lines_.removeLast();
  }
}

std::optional<QString> IniLines::Value(const QString& section, const QString& key) const {
  const auto [first, end] = Section(section);
  const qsizetype at = Find(first, end, key);
  if (at >= end) {
    return std::nullopt;
  }
  return Unquoted(Decode(lines_[at].sliced(ValueStart(lines_[at], key)).trimmed()));
}

void IniLines::Set(const QString& section, const QString& key, const QString& value) {
  const QByteArray text = Quoted(value).toUtf8();
  const auto [first, end] = Section(section);
  const qsizetype at = Find(first, end, key);
  if (at < end) {
    ReplaceValue(lines_[at], ValueStart(lines_[at], key), text);
    return;
  }
  if (first < 0) {
    Add(lines_.size(), '[' + section.trimmed().toUtf8() + ']');
  }
  const qsizetype section_end = first < 0 ? lines_.size() : end;
  Add(AfterLastText(section_end), key.trimmed().toUtf8() + '=' + text);
}

void IniLines::Remove(const QString& section, const QString& key) {
  const auto [first, end] = Section(section);
  if (const qsizetype at = Find(first, end, key); at < end) {
    lines_.removeAt(at);
  }
}

QByteArray IniLines::Content() const {
  QByteArray content = has_mark_ ? QByteArray(kByteOrderMark) : QByteArray();
  content += lines_.join('\n');
  return ends_with_line_end_ ? content + '\n' : content;
}

std::pair<qsizetype, qsizetype> IniLines::Section(const QString& name) const {
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

qsizetype IniLines::Find(qsizetype first, qsizetype end, const QString& key) const {
  qsizetype at = first;
  while (at < end && ValueStart(lines_[at], key) == 0) {
    ++at;
  }
  return at;
}

qsizetype IniLines::AfterLastText(qsizetype end) const {
  while (end > 0 && lines_[end - 1].trimmed().isEmpty()) {
    --end;
  }
  return end;
}

void IniLines::Add(qsizetype at, const QByteArray& line) {
  if (at == lines_.size()) {
    if (at > 0 && !ends_with_line_end_) {
      lines_.back() += line_end_;
    }
    ends_with_line_end_ = true;
  }
  lines_.insert(at, line + line_end_);
}

}  // namespace quorvane::app
