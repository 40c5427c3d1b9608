#include "core/files/CompoundFile.h"
#include "core/files/OldRecords.h"
#include "core/files/TableReaders.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <bit>
#include <cmath>

namespace quorvane::files {
namespace {

enum Kind {
  kFormula = 0x06,
  kEnd = 0x0A,
  kPassword = 0x2F,
  kSheet = 0x85,
  kPackedRow = 0xBD,
  kRichText = 0xD6,
  kSharedTexts = 0xFC,
  kSharedText = 0xFD,
  kNumber = 0x203,
  kText = 0x204,
  kTruth = 0x205,
  kResultText = 0x207,
  kPacked = 0x27E,
  kBegin = 0x809
};

constexpr std::size_t kCellHead = 6;  ///< row, column and format of a cell
constexpr std::size_t kRelease97 = 0x0600;

double DoubleAt(std::string_view data, std::size_t at) {
  return std::bit_cast<double>(std::uint64_t{LittleEndian(data, at, 8)});
}

/// What stands before the first sheet.
struct Contents {
  std::vector<std::size_t> sheets;  ///< where they begin
  std::vector<std::string> texts;
};

Contents ReadContents(std::string_view stream) {
  OldRecords records(stream, 0);
  if (!records.Next() || records.Current().kind != kBegin ||
      LittleEndian(records.Current().data, 0, 2) != kRelease97) {
    Fail(Tr("Files", "The workbook cannot be read."));
  }
  Contents contents;
  while (records.Next() && records.Current().kind != kEnd) {
    const std::string_view data = records.Current().data;
    if (records.Current().kind == kPassword) {
      Fail(Tr("Files", "The workbook is locked by a password."));
    }
    if (records.Current().kind == kSheet && LittleEndian(data, 5, 1) == 0) {
      contents.sheets.push_back(LittleEndian(data, 0, 4));
    } else if (records.Current().kind == kSharedTexts) {
      contents.texts = SharedOldTexts(records.WithContinuations());
    }
  }
  return contents;
}

class SheetReader {
 public:
  SheetReader(std::string_view stream, std::size_t start, const std::vector<std::string>& texts)
      : records_(stream, start), texts_(texts) {}

  TextTable Read() {
    // A chart in the sheet stands between a begin and an end of its own.
    int depth = 0;
    while (records_.Next()) {
      const int kind = records_.Current().kind;
      depth += kind == kBegin ? 1 : kind == kEnd ? -1 : 0;
      if (depth <= 0) {
        break;
      }
      if (depth == 1) {
        ReadCell(kind, records_.Current().data);
      }
    }
    return builder_.Take();
  }

 private:
  void ReadCell(int kind, std::string_view data) {
    if (kind == kResultText) {
      builder_.Put(row_, column_, OldText(data));
      return;
    }
    if (data.size() < kCellHead) {
      return;
    }
    const std::size_t row = LittleEndian(data, 0, 2);
    const std::size_t column = LittleEndian(data, 2, 2);
    if (kind == kPackedRow) {
      for (std::size_t i = 0; kCellHead * (i + 1) + 4 <= data.size(); ++i) {
        PutNumber(row, column + i, Packed(data, kCellHead * (i + 1)));
      }
    } else if (kind == kFormula) {
      ReadResult(row, column, data);
    } else {
      ReadValue(kind, row, column, data);
    }
  }

  void ReadValue(int kind, std::size_t row, std::size_t column, std::string_view data) {
    switch (kind) {
      case kSharedText: {
        const std::size_t text = LittleEndian(data, kCellHead, 4);
        builder_.Put(row, column, text < texts_.size() ? texts_[text] : std::string());
        break;
      }
      case kText:
      case kRichText:
        builder_.Put(row, column, OldText(data.substr(kCellHead)));
        break;
      case kNumber:
        PutNumber(row, column, DoubleAt(data, kCellHead));
        break;
      case kPacked:
        PutNumber(row, column, Packed(data, kCellHead));
        break;
      case kTruth:
        PutTruth(row, column, LittleEndian(data, kCellHead, 2));
        break;
      default:
        break;
    }
  }

  /// A text result follows in a record of its own.
  void ReadResult(std::size_t row, std::size_t column, std::string_view data) {
    row_ = row;
    column_ = column;
    if (LittleEndian(data, kCellHead + 6, 2) != 0xFFFF) {
      PutNumber(row, column, DoubleAt(data, kCellHead));
    } else if (LittleEndian(data, kCellHead, 1) == 1) {
      PutTruth(row, column, LittleEndian(data, kCellHead + 2, 1));
    }
  }

  /// A second byte that is not 0 marks an error.
  void PutTruth(std::size_t row, std::size_t column, std::size_t value) {
    if (value < 0x100) {
      builder_.Put(row, column, value != 0 ? "TRUE" : "FALSE");
    }
  }

  void PutNumber(std::size_t row, std::size_t column, double value) {
    if (std::isfinite(value) && std::abs(value) < 1e18) {
      std::string text;
      text::AppendExact(text, value);
      builder_.Put(row, column, text);
    }
  }

  static double Packed(std::string_view data, std::size_t at) {
    return PackedNumber(static_cast<std::uint32_t>(LittleEndian(data, at, 4)));
  }

  OldRecords records_;
  const std::vector<std::string>& texts_;
  TableBuilder builder_;
  std::size_t row_ = 0;     ///< of the last formula
  std::size_t column_ = 0;  ///< of the last formula
};

}  // namespace

TextTable ReadXlsWorkbook(std::string_view bytes) {
  const auto stream = CompoundFile(bytes).Stream("Workbook");
  if (!stream) {
    Fail(Tr("Files", "The workbook cannot be read."));
  }
  const Contents contents = ReadContents(*stream);
  for (const std::size_t start : contents.sheets) {
    TextTable table = SheetReader(*stream, start, contents.texts).Read();
    if (!table.rows.empty()) {
      return table;
    }
  }
  Fail(Tr("Files", "The file is empty."));
}

}  // namespace quorvane::files
