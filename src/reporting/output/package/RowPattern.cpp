#include "reporting/output/package/RowPattern.h"

#include <cstdlib>

namespace quorvane::reporting {
namespace {

std::string RowAttributes(const xmlNode* row) {
  std::string out;
  for (const xmlAttr* attribute = row->properties; attribute != nullptr;
       attribute = attribute->next) {
    const std::string name = reinterpret_cast<const char*>(attribute->name);
    if (name == "r" || name == "spans") {
      continue;
    }
    out += ' ';
    if (attribute->ns != nullptr && attribute->ns->prefix != nullptr) {
      out += reinterpret_cast<const char*>(attribute->ns->prefix);
      out += ':';
    }
    out += name + "=\"";
    AppendEscaped(out, Attribute(row, name).value_or(""));
    out += '"';
  }
  return out;
}

}  // namespace

RowPattern::RowPattern(xmlNode* row, int number, const std::map<int, std::size_t>& fields,
                       const DateStyles& styles, const std::string& prefix)
    : number_(number), styles_(styles), prefix_(prefix) {
  if (row != nullptr) {
    Read(row, fields);
  }
  for (const auto& [column, field] : fields) {
    cells_[column].takes_value = true;
    cells_[column].field = field;
  }
}

void RowPattern::Read(xmlNode* row, const std::map<int, std::size_t>& fields) {
  attributes_ = RowAttributes(row);
  for (xmlNode* node : Children(row, "c")) {
    const auto place = ParseCell(Attribute(node, "r").value_or(""));
    if (!place) {
      continue;
    }
    PatternCell& cell = cells_[place->column];
    cell.style = std::atoi(Attribute(node, "s").value_or("-1").c_str());
    if (fields.contains(place->column)) {
      continue;
    }
    if (xmlNode* formula = Child(node, "f")) {
      cell.formula = TextOf(formula);
    } else {
      cell.type = Attribute(node, "t").value_or("");
      cell.content = InnerXml(node);
    }
  }
}

void RowPattern::AppendCellXml(std::string& out, int number, int column, const PatternCell& cell,
                               const std::vector<Cell>& values, const BlockShift& shift) const {
  CellXml xml{cell.type, cell.content};
  if (cell.takes_value) {
    const bool given = cell.field < values.size();
    xml = MakeCellXml(given ? values[cell.field] : Cell(), styles_, cell.style, prefix_);
  } else if (!cell.formula.empty()) {
    const auto map = [&](int row, RefEnd end, bool absolute) {
      return row == number_ && !absolute ? number : shift.Map(row, end);
    };
    const auto own = [](std::string_view sheet) { return sheet.empty(); };
    xml.content = "<" + prefix_ + "f>";
    AppendEscaped(xml.content, MapReferences(cell.formula, own, map));
    xml.content += "</" + prefix_ + "f>";
  }
  out += "<" + prefix_ + "c r=\"" + CellName({number, column}) + '"';
  if (cell.style >= 0) {
    out += " s=\"" + std::to_string(cell.style) + '"';
  }
  if (!xml.type.empty()) {
    out += " t=\"" + xml.type + '"';
  }
  out += xml.content.empty() ? "/>" : ">" + xml.content + "</" + prefix_ + "c>";
}

void RowPattern::Append(std::string& out, int number, const std::vector<Cell>& values,
                        const BlockShift& shift) const {
  out += "<" + prefix_ + "row r=\"" + std::to_string(number) + '"' + attributes_ + ">";
  for (const auto& [column, cell] : cells_) {
    AppendCellXml(out, number, column, cell, values, shift);
  }
  out += "</" + prefix_ + "row>";
}

}  // namespace quorvane::reporting
