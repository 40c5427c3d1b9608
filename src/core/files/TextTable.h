#pragma once

#include <QString>

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::files {

/// A row of a file as text (UTF-8, without blanks at the ends) and the line, or the row of the
/// sheet, on which it is, counted from 1.
struct TextRow {
  std::size_t line = 0;
  std::vector<std::string> cells = {};
};

/// What a comma separated file or the first sheet of a workbook holds. Rows without any text are
/// left out.
struct TextTable {
  std::vector<TextRow> rows;
  std::string name = {};  ///< of the file inside an archive that it was read from, with its folders
};

/// A file that cannot be taken: what() says why, for the user.
class TableError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws TableError.
[[noreturn]] void Fail(const QString& why);

/// What a table may hold at most; a larger one is no exchange's file.
inline constexpr std::size_t kMostRows = 200'000;
inline constexpr std::size_t kMostColumns = 256;
inline constexpr std::size_t kMostCells = 8'000'000;        ///< with the empty ones before others
inline constexpr std::size_t kLongestCell = 4'096;          ///< bytes
inline constexpr std::size_t kLargestFile = 64 << 20;       ///< bytes
inline constexpr std::size_t kLargestUnpacked = 256 << 20;  ///< bytes, of everything in an archive

/// Bytes of all cells; a workbook can show one text in many of them.
inline constexpr std::size_t kMostText = 256 << 20;

/// The text without blanks, tabs, no-break blanks and line ends around it.
std::string_view Trimmed(std::string_view utf8);

/// The cell of a column; an empty text where the row has none, and for column -1.
const std::string& CellAt(const TextRow& row, int column);

/// The cells of a row in capitals and without blanks around them, so that files are known by them.
std::vector<std::string> HeadingsOf(const TextRow& row);

/// Puts the column of each wanted heading, or -1, into `columns`. A heading that begins with "?"
/// may be missing; an empty one is in no column. False when another one is missing.
bool FindColumns(std::span<const std::string_view> wanted, std::span<const std::string> headings,
                 std::span<int> columns);

/// Collects the cells of a sheet in any order. Throws TableError beyond the bounds.
class TableBuilder {
 public:
  /// Rows and columns are counted from 0.
  void Put(std::size_t row, std::size_t column, std::string_view utf8);

  TextTable Take();

 private:
  std::vector<TextRow> rows_;
  std::size_t cells_ = 0;
  std::size_t text_ = 0;  ///< bytes
};

}  // namespace quorvane::files
