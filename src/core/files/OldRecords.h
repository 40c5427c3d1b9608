#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::files {

/// One record of an .xls stream.
struct OldRecord {
  int kind = 0;
  std::string_view data;
};

/// Reads the records of an .xls stream.
class OldRecords {
 public:
  OldRecords(std::string_view stream, std::size_t start) : stream_(stream), at_(start) {}

  /// Moves on; false at the end, or where a record is not whole.
  bool Next();
  const OldRecord& Current() const { return record_; }

  /// The data of the current record and of those that continue it.
  std::vector<std::string_view> WithContinuations();

 private:
  std::string_view stream_;
  std::size_t at_;
  OldRecord record_;
};

/// The texts of the table of shared texts, which may break anywhere between two records.
std::vector<std::string> SharedOldTexts(const std::vector<std::string_view>& pieces);

/// A text with its length and width in front of it, in UTF-8; what is not there is left out.
std::string OldText(std::string_view data);

/// A number packed into four bytes.
double PackedNumber(std::uint32_t packed);

}  // namespace quorvane::files
