#include "reporting/output/package/TemplateSheet.h"

#include <QString>

#include <libxml/parser.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace quorvane::reporting {
namespace {

constexpr char kMark[] = "quorvane-rows";

/// Where a sheet keeps areas of cells beside its formulas.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kAreas{
    {{"mergeCell", "ref"},
     {"conditionalFormatting", "sqref"},
     {"dataValidation", "sqref"},
     {"hyperlink", "ref"},
     {"autoFilter", "ref"}}};

constexpr std::array<std::string_view, 4> kFormulas{"f", "formula", "formula1", "formula2"};

int RowNumber(const xmlNode* row) {
  return std::atoi(Attribute(row, "r").value_or("0").c_str());
}

bool IsOwn(std::string_view sheet) {
  return sheet.empty();
}

RowMap MapOf(const BlockShift& shift) {
  return [shift](int row, RefEnd end, bool) { return shift.Map(row, end); };
}

}  // namespace

TemplateSheet::TemplateSheet(std::string name, std::string part, const std::string& content)
    : name_(std::move(name)), part_(std::move(part)), document_(ParseXml(content)) {
  data_ = Child(Root(), "sheetData");
  if (data_ == nullptr) {
    throw std::runtime_error("a sheet has no cells");
  }
  if (data_->ns != nullptr && data_->ns->prefix != nullptr) {
    prefix_ = std::string(reinterpret_cast<const char*>(data_->ns->prefix)) + ':';
  }
  NumberAll();
}

// Programs may leave the numbers of rows and cells out that follow from their order.
void TemplateSheet::NumberAll() {
  int row_number = 0;
  for (xmlNode* row : Children(data_, "row")) {
    const int given = RowNumber(row);
    row_number = given > 0 ? given : row_number + 1;
    SetAttribute(row, "r", std::to_string(row_number));
    int column = 0;
    for (xmlNode* cell : Children(row, "c")) {
      const auto place = ParseCell(Attribute(cell, "r").value_or(""));
      column = place ? place->column : column + 1;
      SetAttribute(cell, "r", CellName({row_number, column}));
    }
  }
}

bool TemplateSheet::IsNamed(std::string_view name) const {
  const auto text = [](std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
  };
  return text(name).compare(text(name_), Qt::CaseInsensitive) == 0;
}

xmlNode* TemplateSheet::FindRow(int number) const {
  for (xmlNode* row : Children(data_, "row")) {
    if (RowNumber(row) == number) {
      return row;
    }
  }
  return nullptr;
}

xmlNode* TemplateSheet::RowAt(int number) {
  if (xmlNode* row = FindRow(number)) {
    return row;
  }
  xmlNode* row = AddChild(data_, "row");
  SetAttribute(row, "r", std::to_string(number));
  for (xmlNode* other : Children(data_, "row")) {
    if (RowNumber(other) > number) {
      xmlAddPrevSibling(other, row);
      break;
    }
  }
  return row;
}

xmlNode* TemplateSheet::CellAt(const CellPlace& place) {
  xmlNode* row = RowAt(place.row);
  xmlNode* after = nullptr;
  for (xmlNode* cell : Children(row, "c")) {
    const auto other = ParseCell(Attribute(cell, "r").value_or(""));
    if (other && other->column == place.column) {
      return cell;
    }
    if (other && other->column > place.column && after == nullptr) {
      after = cell;
    }
  }
  xmlNode* cell = AddChild(row, "c");
  SetAttribute(cell, "r", CellName(place));
  if (after != nullptr) {
    xmlAddPrevSibling(after, cell);
  }
  return cell;
}

void TemplateSheet::SetCell(const CellPlace& place, const Cell& value, const DateStyles& styles) {
  xmlNode* cell = CellAt(place);
  const int style = std::atoi(Attribute(cell, "s").value_or("-1").c_str());
  const CellXml xml = MakeCellXml(value, styles, style, prefix_);
  SetText(cell, "");
  RemoveAttribute(cell, "t");
  if (!xml.type.empty()) {
    SetAttribute(cell, "t", xml.type);
  }
  if (!xml.content.empty()) {
    xmlNode* list = nullptr;
    const auto size = static_cast<int>(xml.content.size());
    if (xmlParseInNodeContext(cell, xml.content.data(), size, 0, &list) != XML_ERR_OK) {
      throw std::runtime_error("a value cannot be written into " + CellName(place));
    }
    xmlAddChildList(cell, list);
  }
}

RowPattern TemplateSheet::MakePattern(int number, const std::map<int, std::size_t>& fields,
                                      const DateStyles& styles) const {
  RowPattern pattern(FindRow(number), number, fields, styles, prefix_);
  for (const xmlNode* merge : Descendants(Root(), "mergeCell")) {
    const std::string area = Attribute(merge, "ref").value_or("");
    const std::size_t colon = area.find(':');
    const auto first = ParseCell(area.substr(0, colon));
    const auto last = colon == std::string::npos ? first : ParseCell(area.substr(colon + 1));
    if (first && last && first->row == number && last->row == number) {
      pattern.AddMerge(first->column, last->column);
    }
  }
  return pattern;
}

void TemplateSheet::ReplaceBlock(const BlockShift& shift, const PatternOf& pattern_of,
                                 const ValuesOf& values_of) {
  if (filled_) {
    throw std::logic_error("a sheet takes one block of rows");
  }
  filled_ = true;
  for (int i = 0; i < shift.count; ++i) {
    const auto index = static_cast<std::size_t>(i);
    pattern_of(index).Append(rows_, shift.first + i, values_of(index), shift);
  }
  MoveRows(shift);
  MapAreas(shift);
  AddMerges(shift, pattern_of);
  if (xmlNode* dimension = Child(Root(), "dimension")) {
    RemoveNode(dimension);
  }
}

void TemplateSheet::MoveRows(const BlockShift& shift) {
  xmlNode* below = nullptr;
  for (xmlNode* row : Children(data_, "row")) {
    const int number = RowNumber(row);
    if (shift.Holds(number)) {
      RemoveNode(row);
    } else if (number > shift.last) {
      below = below == nullptr ? row : below;
      const int moved = shift.Map(number, RefEnd::kSingle);
      SetAttribute(row, "r", std::to_string(moved));
      for (xmlNode* cell : Children(row, "c")) {
        const auto place = ParseCell(Attribute(cell, "r").value_or(""));
        SetAttribute(cell, "r", CellName({moved, place ? place->column : 1}));
      }
    }
  }
  xmlNode* mark = xmlNewDocPI(document_.get(), reinterpret_cast<const xmlChar*>(kMark), nullptr);
  if (below != nullptr) {
    xmlAddPrevSibling(below, mark);
  } else {
    xmlAddChild(data_, mark);
  }
}

void TemplateSheet::MapAreas(const BlockShift& shift) {
  const RowMap map = MapOf(shift);
  for (const auto& [element, attribute] : kAreas) {
    for (xmlNode* node : Descendants(Root(), element)) {
      if (const auto area = Attribute(node, attribute)) {
        const auto first = ParseCell(std::string_view(*area).substr(0, area->find(':')));
        const bool merge_of_block = element == "mergeCell" && first && shift.Holds(first->row);
        if (merge_of_block) {
          RemoveNode(node);
        } else {
          SetAttribute(node, attribute, MapReferences(*area, IsOwn, map));
        }
      }
    }
  }
  for (xmlNode* breaks : Children(Root(), "rowBreaks")) {
    for (xmlNode* one : Children(breaks, "brk")) {
      const int row = std::atoi(Attribute(one, "id").value_or("0").c_str());
      SetAttribute(one, "id", std::to_string(shift.Map(row, RefEnd::kLast)));
    }
  }
}

void TemplateSheet::AddMerges(const BlockShift& shift, const PatternOf& pattern_of) {
  xmlNode* merges = Child(Root(), "mergeCells");
  if (merges == nullptr) {
    return;
  }
  for (int i = 0; i < shift.count; ++i) {
    for (const auto& [first, last] : pattern_of(static_cast<std::size_t>(i)).Merges()) {
      const int row = shift.first + i;
      SetAttribute(AddChild(merges, "mergeCell"), "ref",
                   CellName({row, first}) + ':' + CellName({row, last}));
    }
  }
  const std::size_t count = Children(merges, "mergeCell").size();
  if (count == 0) {
    RemoveNode(merges);
  } else {
    SetAttribute(merges, "count", std::to_string(count));
  }
}

bool TemplateSheet::MapFormulas(const TemplateSheet& target, const BlockShift& shift) {
  const RowMap map = MapOf(shift);
  const bool own = &target == this;
  const SheetTest wanted = [&](std::string_view sheet) {
    return sheet.empty() ? own : target.IsNamed(sheet);
  };
  bool any = rows_.find("<" + prefix_ + "f>") != std::string::npos;
  for (const std::string_view element : kFormulas) {
    for (xmlNode* formula : Descendants(Root(), element)) {
      any = true;
      const std::string text = TextOf(formula);
      if (!text.empty()) {
        SetText(formula, MapReferences(text, wanted, map));
      }
      if (const auto area = Attribute(formula, "ref"); area && own) {
        SetAttribute(formula, "ref", MapReferences(*area, IsOwn, map));
      }
      if (xmlNode* result = Child(formula->parent, "v"); result != nullptr && element == "f") {
        RemoveNode(result);
        RemoveAttribute(formula->parent, "t");
      }
    }
  }
  return any;
}

std::string TemplateSheet::Write() const {
  std::string text = WriteXml(*document_);
  const std::string mark = "<?" + std::string(kMark) + "?>";
  if (const std::size_t at = text.find(mark); at != std::string::npos) {
    text.replace(at, mark.size(), rows_);
  }
  return text;
}

}  // namespace quorvane::reporting
