#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::files {

/// The file in which old office programs keep several streams, read from memory. Nothing in it is
/// trusted: chains that leave the file or run in a circle end there.
class CompoundFile {
 public:
  /// The bytes must outlive the object.
  explicit CompoundFile(std::string_view bytes);

  static bool IsOne(std::string_view bytes);

  /// The contents of the stream of that name; nullopt when there is none that is whole.
  std::optional<std::string> Stream(std::string_view name) const;

 private:
  struct Entry {
    std::string name;  ///< its letters beyond ASCII as "?"
    int type = 0;
    std::size_t start = 0;
    std::size_t size = 0;
  };

  std::size_t Number(std::size_t at, std::size_t bytes) const;
  std::string_view Sector(std::size_t number) const;
  void ReadAllocation();
  void ReadDirectory();
  std::string Chain(std::size_t first) const;
  std::string MiniChain(std::size_t first, std::size_t size) const;

  std::string_view bytes_;
  std::size_t sector_size_ = 512;
  std::vector<std::size_t> next_;       ///< the sector after each sector
  std::vector<std::size_t> mini_next_;  ///< the same of the small sectors
  std::string mini_;                    ///< the contents of all small sectors
  std::vector<Entry> entries_;
};

/// A whole number of up to eight bytes, the lowest first; 0 beyond the end.
std::size_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count);

}  // namespace quorvane::files
