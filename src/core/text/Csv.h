#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::text {

/// A text that is no CSV: what is wrong and on which line, counted from 1.
class CsvError : public std::runtime_error {
 public:
  CsvError(std::size_t line, const std::string& what) : std::runtime_error(what), line_(line) {}
  std::size_t Line() const { return line_; }

 private:
  std::size_t line_;
};

/// The most fields of a record; no table has so many.
inline constexpr std::size_t kMostCsvFields = 4'096;

/// Reads comma separated values as RFC 4180 has them: quoted fields with doubled quotes and line
/// breaks inside, lines ended by LF or CRLF, a UTF-8 byte order mark passed over. The text must
/// outlive the reader, and fields stay valid as long as both.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text);

  /// Moves to the next record that is not a blank line; false at the end. Throws CsvError,
  /// also for a record of more than kMostCsvFields.
  bool Next();

  /// The line on which the current record begins, counted from 1.
  std::size_t Line() const { return record_line_; }
  const std::vector<std::string_view>& Fields() const { return fields_; }

 private:
  std::string_view ReadField();
  std::string_view ReadQuoted();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::size_t record_line_ = 0;
  std::vector<std::string_view> fields_;
  std::deque<std::string> unquoted_;  ///< fields that are not in the text as they are
};

/// Appends a field, quoted when it must be.
void AppendCsvField(std::string& out, std::string_view field);

}  // namespace quorvane::text
