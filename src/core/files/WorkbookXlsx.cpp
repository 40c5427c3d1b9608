#include "core/files/TableReaders.h"
#include "core/files/XmlStream.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace quorvane::files {
namespace {

constexpr const char* kFolder = "xl/";

using Targets = std::map<std::string, std::string>;

std::size_t NumberOf(std::string_view text) {
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// The parts that the workbook refers to, by their keys.
Targets TargetsOf(std::span<const ArchiveEntry> parts) {
  Targets targets;
  if (const ArchiveEntry* part = FindPart(parts, "xl/_rels/workbook.xml.rels")) {
    XmlStream xml(part->content);
    while (xml.Next()) {
      if (xml.Starts("Relationship")) {
        const std::string target = xml.Attribute("Target");
        targets[xml.Attribute("Id")] =
            target.starts_with('/') ? target.substr(1) : kFolder + target;
      }
    }
  }
  return targets;
}

std::vector<std::string> SheetParts(std::span<const ArchiveEntry> parts) {
  const ArchiveEntry* workbook = FindPart(parts, "xl/workbook.xml");
  if (workbook == nullptr) {
    Fail(Tr("Files", "The workbook cannot be read."));
  }
  const Targets targets = TargetsOf(parts);
  std::vector<std::string> sheets;
  XmlStream xml(workbook->content);
  while (xml.Next()) {
    if (xml.Starts("sheet")) {
      const auto target = targets.find(xml.Attribute("id"));
      sheets.push_back(target == targets.end() ? std::string() : target->second);
    }
  }
  return sheets;
}

/// The texts that cells refer to by number.
std::vector<std::string> SharedTexts(std::span<const ArchiveEntry> parts) {
  std::vector<std::string> texts;
  const ArchiveEntry* part = FindPart(parts, "xl/sharedStrings.xml");
  if (part == nullptr) {
    return texts;
  }
  XmlStream xml(part->content);
  while (xml.Next()) {
    if (xml.Starts("si")) {
      if (texts.size() >= kMostCells) {
        Fail(Tr("Files", "The file holds more than can be read."));
      }
      texts.emplace_back();
    } else if (xml.Starts("rPh")) {
      xml.Skip();
    } else if (xml.IsText() && !texts.empty()) {
      texts.back() += xml.Text();
    }
  }
  return texts;
}

class SheetReader {
 public:
  SheetReader(std::string_view sheet, const std::vector<std::string>& texts)
      : xml_(sheet), texts_(texts) {}

  TextTable Read() {
    while (xml_.Next()) {
      if (xml_.Starts("row")) {
        BeginRow();
      } else if (xml_.Starts("c")) {
        ReadCell();
      }
    }
    return builder_.Take();
  }

 private:
  void BeginRow() {
    const std::string number = xml_.Attribute("r");
    row_ = number.empty() ? row_ + 1 : NumberOf(number);
    column_ = 0;
  }

  /// A cell tells its place ("AB12"), or stands after the one before it.
  void ReadCell() {
    const std::string place = xml_.Attribute("r");
    std::size_t column = 0;
    for (const char letter : place) {
      if (letter < 'A' || letter > 'Z' || column > kMostColumns) {
        break;
      }
      column = column * 26 + static_cast<std::size_t>(letter - 'A' + 1);
    }
    column_ = column == 0 ? column_ + 1 : column;
    const std::string type = xml_.Attribute("t");
    const std::string value = xml_.IsEmpty() ? std::string() : CellText();
    if (!value.empty() && row_ > 0) {
      builder_.Put(row_ - 1, column_ - 1, Shown(type, value));
    }
  }

  /// The text of the value or of the text in the cell, without that of the formula.
  std::string CellText() {
    std::string text;
    bool in_value = false;
    while (xml_.Next() && !xml_.Ends("c")) {
      if (xml_.Starts("v") || xml_.Starts("t")) {
        in_value = !xml_.IsEmpty();
      } else if (xml_.Ends("v") || xml_.Ends("t")) {
        in_value = false;
      } else if (in_value && xml_.IsText()) {
        text += xml_.Text();
      }
    }
    return text;
  }

  std::string Shown(const std::string& type, const std::string& value) const {
    if (type == "s") {
      const std::size_t number = NumberOf(value);
      return number < texts_.size() ? texts_[number] : std::string();
    }
    return type.empty() || type == "n" ? ShortNumber(value) : value;
  }

  XmlStream xml_;
  const std::vector<std::string>& texts_;
  TableBuilder builder_;
  std::size_t row_ = 0;     ///< counted from 1
  std::size_t column_ = 0;  ///< counted from 1
};

}  // namespace

const ArchiveEntry* FindPart(std::span<const ArchiveEntry> parts, std::string_view name) {
  const auto found = std::ranges::find(parts, name, &ArchiveEntry::name);
  return found == parts.end() ? nullptr : &*found;
}

std::string ShortNumber(const std::string& text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() ||
      !(value < 1e18 && value > -1e18)) {
    return text;
  }
  std::string number;
  text::AppendExact(number, value);
  return number;
}

TextTable ReadXlsx(std::span<const ArchiveEntry> parts) {
  const std::vector<std::string> texts = SharedTexts(parts);
  for (const std::string& name : SheetParts(parts)) {
    const ArchiveEntry* sheet = FindPart(parts, name);
    TextTable table = sheet == nullptr ? TextTable() : SheetReader(sheet->content, texts).Read();
    if (!table.rows.empty()) {
      return table;
    }
  }
  Fail(Tr("Files", "The file is empty."));
}

}  // namespace quorvane::files
