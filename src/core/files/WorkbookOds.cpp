#include "core/files/TableReaders.h"
#include "core/files/XmlStream.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <charconv>

namespace quorvane::files {
namespace {

/// How often something stands in a row; 1 when it does not tell.
std::size_t Times(const std::string& text) {
  std::size_t number = 1;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::max<std::size_t>(number, 1);
}

/// The sheet at which the text stands, up to its end.
class SheetReader {
 public:
  explicit SheetReader(XmlStream& xml) : xml_(xml) {}

  TextTable Read() {
    while (xml_.Next() && !xml_.Ends("table")) {
      if (xml_.Starts("table-row")) {
        repeated_ = Times(xml_.Attribute("number-rows-repeated"));
        column_ = 0;
        cells_.clear();
        if (xml_.IsEmpty()) {
          EndRow();
        }
      } else if (xml_.Ends("table-row")) {
        EndRow();
      } else if (xml_.Starts("table-cell") || xml_.Starts("covered-table-cell")) {
        ReadCell();
      }
    }
    return builder_.Take();
  }

 private:
  struct Cell {
    std::size_t column;
    std::string text;
  };

  void ReadCell() {
    const std::size_t times = Times(xml_.Attribute("number-columns-repeated"));
    const std::string type = xml_.Attribute("value-type");
    std::string text = ValueOf(type);
    if (!xml_.IsEmpty()) {
      const std::string shown = ShownText();
      text = text.empty() ? shown : text;
    }
    if (!Trimmed(text).empty()) {
      if (times > kMostColumns || column_ + times > kMostColumns) {
        Fail(Tr("Files", "The file holds more than can be read."));
      }
      for (std::size_t i = 0; i < times; ++i) {
        cells_.push_back({column_ + i, text});
      }
    }
    column_ += times;
  }

  std::string ValueOf(const std::string& type) const {
    if (type == "date") {
      constexpr std::size_t kDay = 10;  // letters of "yyyy-mm-dd"
      const std::string moment = xml_.Attribute("date-value");
      const bool midnight = moment.find_first_of("123456789", kDay) == std::string::npos;
      return midnight ? moment.substr(0, kDay) : moment;
    }
    const bool number = type == "float" || type == "currency" || type == "percentage";
    return number ? ShortNumber(xml_.Attribute("value")) : std::string();
  }

  /// What the cell shows; notes on it apart.
  std::string ShownText() {
    std::string text;
    while (xml_.Next() && !xml_.Ends("table-cell") && !xml_.Ends("covered-table-cell")) {
      if (xml_.Starts("annotation")) {
        SkipNote();
      } else if (xml_.Starts("s")) {
        text.append(std::min(Times(xml_.Attribute("c")), kLongestCell), ' ');
      } else if (xml_.IsText()) {
        text += xml_.Text();
      }
    }
    return text;
  }

  void SkipNote() {
    while (!xml_.IsEmpty() && xml_.Next() && !xml_.Ends("annotation")) {
    }
  }

  void EndRow() {
    for (std::size_t i = 0; i < repeated_ && !cells_.empty(); ++i) {
      for (const Cell& cell : cells_) {
        builder_.Put(row_ + i, cell.column, cell.text);
      }
    }
    row_ += repeated_;
    cells_.clear();
  }

  XmlStream& xml_;
  TableBuilder builder_;
  std::vector<Cell> cells_;
  std::size_t row_ = 0;
  std::size_t column_ = 0;
  std::size_t repeated_ = 1;
};

}  // namespace

TextTable ReadOds(std::span<const ArchiveEntry> parts) {
  const ArchiveEntry* content = FindPart(parts, "content.xml");
  if (content == nullptr) {
    Fail(Tr("Files", "The workbook cannot be read."));
  }
  XmlStream xml(content->content);
  while (xml.Next()) {
    if (xml.Starts("table") && !xml.IsEmpty()) {
      TextTable table = SheetReader(xml).Read();
      if (!table.rows.empty()) {
        return table;
      }
    }
  }
  Fail(Tr("Files", "The file is empty."));
}

}  // namespace quorvane::files
