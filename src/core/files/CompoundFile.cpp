#include "core/files/CompoundFile.h"

#include <algorithm>

namespace quorvane::files {
namespace {

constexpr std::string_view kMark = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t kEntrySize = 128;
constexpr std::size_t kMiniSize = 64;
constexpr std::size_t kSmallStream = 4096;  ///< streams below this lie in small sectors
constexpr std::size_t kLastSector = 0xFFFFFFFA;
constexpr int kStream = 2;
constexpr int kRoot = 5;

// Places in the header.
constexpr std::size_t kSectorShift = 30;
constexpr std::size_t kDirectory = 48;
constexpr std::size_t kMiniAllocation = 60;
constexpr std::size_t kMoreAllocation = 68;
constexpr std::size_t kAllocation = 76;
constexpr std::size_t kHeaderEnd = 512;

std::vector<std::size_t> NumbersIn(std::string_view bytes) {
  std::vector<std::size_t> numbers;
  for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
    numbers.push_back(LittleEndian(bytes, at, 4));
  }
  return numbers;
}

}  // namespace

std::size_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count) {
  std::size_t number = 0;
  if (at <= bytes.size() && bytes.size() - at >= count) {
    for (std::size_t i = count; i > 0; --i) {
      number = number << 8U | static_cast<unsigned char>(bytes[at + i - 1]);
    }
  }
  return number;
}

bool CompoundFile::IsOne(std::string_view bytes) {
  return bytes.starts_with(kMark);
}

CompoundFile::CompoundFile(std::string_view bytes) : bytes_(bytes) {
  sector_size_ = Number(kSectorShift, 2) == 12 ? 4096 : 512;
  ReadAllocation();
  ReadDirectory();
  mini_next_ = NumbersIn(Chain(Number(kMiniAllocation, 4)));
  const auto root = std::ranges::find(entries_, kRoot, &Entry::type);
  mini_ = root == entries_.end() ? std::string() : Chain(root->start);
}

std::size_t CompoundFile::Number(std::size_t at, std::size_t bytes) const {
  return LittleEndian(bytes_, at, bytes);
}

std::string_view CompoundFile::Sector(std::size_t number) const {
  if (number >= bytes_.size() / sector_size_) {
    return {};
  }
  const std::size_t start = (number + 1) * sector_size_;
  return start < bytes_.size() ? bytes_.substr(start, sector_size_) : std::string_view();
}

/// The sectors that say which sector follows which: the first ones stand in the header, more of
/// them in a chain of their own.
void CompoundFile::ReadAllocation() {
  std::vector<std::size_t> sectors =
      NumbersIn(bytes_.substr(std::min(kAllocation, bytes_.size()), kHeaderEnd - kAllocation));
  std::size_t more = Number(kMoreAllocation, 4);
  for (std::size_t i = 0; i < bytes_.size() / sector_size_ && more < kLastSector; ++i) {
    std::vector<std::size_t> further = NumbersIn(Sector(more));
    if (further.empty()) {
      break;
    }
    more = further.back();
    further.pop_back();
    sectors.insert(sectors.end(), further.begin(), further.end());
  }
  for (const std::size_t sector : sectors) {
    if (sector < kLastSector && next_.size() * sector_size_ <= bytes_.size() + sector_size_) {
      const std::vector<std::size_t> numbers = NumbersIn(Sector(sector));
      next_.insert(next_.end(), numbers.begin(), numbers.end());
    }
  }
}

void CompoundFile::ReadDirectory() {
  const std::string directory = Chain(Number(kDirectory, 4));
  for (std::size_t at = 0; at + kEntrySize <= directory.size(); at += kEntrySize) {
    const std::string_view entry = std::string_view(directory).substr(at, kEntrySize);
    Entry read{.name = {},
               .type = static_cast<int>(LittleEndian(entry, 66, 1)),
               .start = LittleEndian(entry, 116, 4),
               .size = LittleEndian(entry, 120, 4)};
    const std::size_t letters = std::min<std::size_t>(LittleEndian(entry, 64, 2), 64) / 2;
    for (std::size_t letter = 0; letter + 1 < letters; ++letter) {
      read.name += entry[2 * letter + 1] == 0 ? entry[2 * letter] : '?';
    }
    entries_.push_back(std::move(read));
  }
}

std::string CompoundFile::Chain(std::size_t first) const {
  std::string contents;
  std::size_t sector = first;
  for (std::size_t i = 0; i <= bytes_.size() / sector_size_ && sector < kLastSector; ++i) {
    const std::string_view bytes = Sector(sector);
    contents += bytes;
    sector = sector < next_.size() && !bytes.empty() ? next_[sector] : kLastSector;
  }
  return contents;
}

std::string CompoundFile::MiniChain(std::size_t first, std::size_t size) const {
  std::string contents;
  std::size_t sector = first;
  while (contents.size() < size && sector < mini_.size() / kMiniSize) {
    contents += std::string_view(mini_).substr(sector * kMiniSize, kMiniSize);
    sector = sector < mini_next_.size() ? mini_next_[sector] : kLastSector;
  }
  return contents;
}

std::optional<std::string> CompoundFile::Stream(std::string_view name) const {
  const auto entry = std::ranges::find_if(
      entries_, [&](const Entry& one) { return one.type == kStream && one.name == name; });
  if (entry == entries_.end()) {
    return std::nullopt;
  }
  std::string contents =
      entry->size < kSmallStream ? MiniChain(entry->start, entry->size) : Chain(entry->start);
  if (contents.size() < entry->size) {
    return std::nullopt;
  }
  contents.resize(entry->size);
  return contents;
}

}  // namespace quorvane::files
