#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <optional>
#include <utility>

namespace quorvane::app {

/// The lines of a settings file, in UTF-8 or an 8-bit code. Sections and keys are the same in
/// capital and small letters and without the blanks around them; the first of several equal ones
/// counts. What is not changed stays byte for byte.
class IniLines {
 public:
  explicit IniLines(const QByteArray& content);

  /// Without blanks and one pair of quotes around it; nothing when the section or key is missing.
  std::optional<QString> Value(const QString& section, const QString& key) const;

  /// In quotes when Value would otherwise not return it unchanged. A section or key that is missing
  /// is added. Names and value hold no line break.
  void Set(const QString& section, const QString& key, const QString& value);

  void Remove(const QString& section, const QString& key);

  QByteArray Content() const;

 private:
  /// First line after the section's head and the line after its last; {-1, -1} when missing.
  std::pair<qsizetype, qsizetype> Section(const QString& name) const;

  /// The line that sets a key; `end` when there is none.
  qsizetype Find(qsizetype first, qsizetype end, const QString& key) const;
  qsizetype AfterLastText(qsizetype end) const;
  void Add(qsizetype at, const QByteArray& line);

  bool has_mark_;
  QByteArray line_end_;  ///< what comes before the line feed
  bool ends_with_line_end_ = false;
  QByteArrayList lines_;  ///< each without its line end
};

}  // namespace quorvane::app
