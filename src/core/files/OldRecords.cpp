#include "core/files/OldRecords.h"

#include "core/files/CompoundFile.h"
#include "core/files/TextTable.h"

#include <QString>

#include <bit>

namespace quorvane::files {
namespace {

constexpr int kContinue = 0x3C;
constexpr std::size_t kHead = 4;  ///< kind and length of a record

constexpr std::size_t kWide = 1;
constexpr std::size_t kExtended = 4;
constexpr std::size_t kRich = 8;

/// Reads on from piece to piece.
class Pieces {
 public:
  explicit Pieces(const std::vector<std::string_view>& pieces) : pieces_(pieces) {}

  bool AtEnd() {
    while (piece_ < pieces_.size() && at_ >= pieces_[piece_].size()) {
      ++piece_;
      at_ = 0;
    }
    return piece_ >= pieces_.size();
  }

  std::size_t Number(std::size_t bytes) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < bytes && !AtEnd(); ++i) {
      number |= std::size_t{static_cast<unsigned char>(pieces_[piece_][at_++])} << (8 * i);
    }
    return number;
  }

  void Skip(std::size_t bytes) {
    while (bytes > 0 && !AtEnd()) {
      const std::size_t step = std::min(bytes, pieces_[piece_].size() - at_);
      at_ += step;
      bytes -= step;
    }
  }

  /// The letters of a text; in a new piece their width is told anew.
  QString Letters(std::size_t count, bool wide) {
    QString text;
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t before = piece_;
      if (AtEnd()) {
        break;
      }
      if (i > 0 && piece_ != before) {
        wide = (Number(1) & kWide) != 0;
      }
      text += QChar(static_cast<char16_t>(Number(wide ? 2 : 1)));
    }
    return text;
  }

 private:
  const std::vector<std::string_view>& pieces_;
  std::size_t piece_ = 0;
  std::size_t at_ = 0;
};

}  // namespace

bool OldRecords::Next() {
  if (at_ > stream_.size() || stream_.size() - at_ < kHead) {
    return false;
  }
  const std::size_t length = LittleEndian(stream_, at_ + 2, 2);
  if (stream_.size() - at_ - kHead < length) {
    return false;
  }
  record_ = {.kind = static_cast<int>(LittleEndian(stream_, at_, 2)),
             .data = stream_.substr(at_ + kHead, length)};
  at_ += kHead + length;
  return true;
}

std::vector<std::string_view> OldRecords::WithContinuations() {
  std::vector<std::string_view> pieces{record_.data};
  while (LittleEndian(stream_, at_, 2) == kContinue && Next()) {
    pieces.push_back(record_.data);
  }
  return pieces;
}

std::vector<std::string> SharedOldTexts(const std::vector<std::string_view>& pieces) {
  Pieces bytes(pieces);
  bytes.Skip(4);
  const std::size_t count = bytes.Number(4);
  std::vector<std::string> texts;
  while (texts.size() < count && texts.size() < kMostCells && !bytes.AtEnd()) {
    const std::size_t letters = bytes.Number(2);
    const std::size_t flags = bytes.Number(1);
    const std::size_t runs = (flags & kRich) != 0 ? bytes.Number(2) : 0;
    const std::size_t extension = (flags & kExtended) != 0 ? bytes.Number(4) : 0;
    texts.push_back(bytes.Letters(letters, (flags & kWide) != 0).toStdString());
    bytes.Skip(4 * runs + extension);
  }
  return texts;
}

std::string OldText(std::string_view data) {
  const std::vector<std::string_view> pieces{data};
  Pieces bytes(pieces);
  const std::size_t letters = bytes.Number(2);
  const std::size_t flags = bytes.Number(1);
  return bytes.Letters(letters, (flags & kWide) != 0).toStdString();
}

double PackedNumber(std::uint32_t packed) {
  const std::uint32_t bits = packed & ~std::uint32_t{3};
  const std::int32_t whole = std::bit_cast<std::int32_t>(bits) / 4;
  const double number =
      (packed & 2) != 0 ? whole : std::bit_cast<double>(std::uint64_t{bits} << 32U);
  return (packed & 1) != 0 ? number / 100 : number;
}

}  // namespace quorvane::files
