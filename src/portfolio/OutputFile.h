#pragma once

#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "core/text/FinancialYear.h"
#include "core/text/Shares.h"
#include "portfolio/FileLayouts.h"

#include <QSaveFile>
#include <QString>

#include <algorithm>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

// The fields of a file, each written so that it reads as the same value again.

inline void AppendField(std::string& out, std::string_view text) {
  text::AppendCsvField(out, text);
}
inline void AppendField(std::string& out, const QString& text) {
  text::AppendCsvField(out, text.toStdString());
}
inline void AppendField(std::string& out, double number) {
  text::AppendExact(out, number);
}
inline void AppendField(std::string& out, text::Shares shares) {
  text::AppendExact(out, shares.Number());
}
inline void AppendField(std::string& out, bool flag) {
  out += flag ? '1' : '0';
}
/// A year that could not be read is empty.
inline void AppendField(std::string& out, text::FinancialYear year) {
  out += year == text::FinancialYear() ? std::string() : year.Utf8();
}

/// The word in the place of a coded number; empty for a code that has none.
template <class Code>
std::string_view WordOf(std::span<const std::string_view> words, Code code) {
  const auto place = static_cast<int>(code);
  return place >= 0 && place < static_cast<int>(words.size())
             ? words[static_cast<std::size_t>(place)]
             : std::string_view();
}

/// Appends fields with commas between them.
template <class First, class... Rest>
void AppendFields(std::string& out, const First& first, const Rest&... rest) {
  AppendField(out, first);
  ((out += ',', AppendField(out, rest)), ...);
}

/// Calls `write` with the records in the order of their keys, equal keys in the given order.
template <class Record, class Key, class Write>
void InOrder(const std::vector<Record>& records, const Key& key_of, const Write& write) {
  std::vector<std::pair<decltype(key_of(records.front())), std::size_t>> order;
  order.reserve(records.size());
  for (const Record& record : records) {
    order.emplace_back(key_of(record), order.size());
  }
  std::ranges::sort(order);
  for (const auto& [key, place] : order) {
    write(records[place]);
  }
}

/// A file of a portfolio folder being written, its header first. Until Publish it has another name
/// and the old file is as it was; one that is not published leaves nothing. Throws
/// std::runtime_error with the file's name and the system's reason.
class OutputFile {
 public:
  OutputFile(const QString& folder, const FileLayout& layout);

  std::string& Buffer() { return buffer_; }
  void WriteWhenLarge();

  template <class... Fields>
  void Row(const Fields&... fields) {
    AppendFields(buffer_, fields...);
    buffer_ += '\n';
    WriteWhenLarge();
  }

  /// Writes everything to the disk, so that only renaming remains.
  void Finish();

  /// Puts the finished file in the place of the old one.
  void Publish();

 private:
  void Write();

  QSaveFile file_;
  std::string buffer_;
};

/// The files of a portfolio folder that is written as one: until Publish the folder has its old
/// files, all of them. They are then renamed one after the other, so that old files
/// are beside new ones only when the program ends or the disk fails in that instant.
class OutputFolder {
 public:
  /// Makes the folder when it is missing.
  explicit OutputFolder(QString folder);

  /// The writer of the file calls its Finish.
  OutputFile& Add(const FileLayout& layout);

  /// The folder has no such file any more.
  void Remove(const FileLayout& layout);
  void Publish();

 private:
  QString folder_;
  std::vector<std::unique_ptr<OutputFile>> files_;
  std::vector<QString> removed_;
};

}  // namespace quorvane::portfolio
