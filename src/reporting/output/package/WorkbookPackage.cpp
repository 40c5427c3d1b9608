#include "reporting/output/package/WorkbookPackage.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>

namespace quorvane::reporting {
namespace {

/// A name as it is looked up. "Fld1" would be a cell's place in this file format, so spreadsheet
/// programs write it "_Fld1".
std::string Folded(const std::string& name) {
  const std::string plain = name.starts_with('_') ? name.substr(1) : name;
  return QString::fromStdString(plain).toLower().toStdString();
}

std::string FolderOf(const std::string& part) {
  const std::size_t slash = part.rfind('/');
  return slash == std::string::npos ? std::string() : part.substr(0, slash + 1);
}

std::string RelationsPart(const std::string& part) {
  const std::string folder = FolderOf(part);
  return folder + "_rels/" + part.substr(folder.size()) + ".rels";
}

/// A target as it stands beside a part, as a name in the package.
std::string Resolve(const std::string& part, std::string target) {
  if (target.starts_with('/')) {
    return target.substr(1);
  }
  std::string folder = FolderOf(part);
  while (target.starts_with("../")) {
    target.erase(0, 3);
    folder = FolderOf(folder.substr(0, folder.empty() ? 0 : folder.size() - 1));
  }
  return folder + target;
}

int Number(const xmlNode* element, std::string_view attribute, int missing) {
  const auto text = Attribute(element, attribute);
  return text ? std::atoi(text->c_str()) : missing;
}

std::vector<xmlNode*> DefinedNames(const xmlNode* workbook) {
  const xmlNode* names = Child(workbook, "definedNames");
  return names == nullptr ? std::vector<xmlNode*>() : Children(names, "definedName");
}

}  // namespace

WorkbookPackage::WorkbookPackage(ZipPackage package) : package_(std::move(package)) {
  for (const auto& [id, relation] : RelationsOf("")) {
    if (relation.type.ends_with("/officeDocument")) {
      part_ = relation.target;
    }
  }
  workbook_ = ParseXml(Part(part_));
  if (!Is(Root(), "workbook")) {
    throw std::runtime_error("it holds another kind of document");
  }
  for (const auto& [id, relation] : RelationsOf(part_)) {
    if (relation.type.ends_with("/styles")) {
      styles_ = DateStyles(Part(relation.target));
    }
  }
  ReadSheets();
  ReadNames();
  DropCalculationChain();
}

const std::string& WorkbookPackage::Part(const std::string& name) const {
  const std::string* content = package_.Find(name);
  if (content == nullptr) {
    throw std::runtime_error("a part is missing");
  }
  return *content;
}

WorkbookPackage::Relations WorkbookPackage::RelationsOf(const std::string& part) const {
  Relations relations;
  const std::string* content = package_.Find(RelationsPart(part));
  if (content == nullptr) {
    return relations;
  }
  const XmlDocument document = ParseXml(*content);
  for (const xmlNode* node : Children(xmlDocGetRootElement(document.get()), "Relationship")) {
    relations[Attribute(node, "Id").value_or("")] = {
        Attribute(node, "Type").value_or(""),
        Resolve(part, Attribute(node, "Target").value_or(""))};
  }
  return relations;
}

void WorkbookPackage::ReadSheets() {
  const Relations relations = RelationsOf(part_);
  const xmlNode* sheets = Child(Root(), "sheets");
  for (const xmlNode* node :
       sheets == nullptr ? std::vector<xmlNode*>() : Children(sheets, "sheet")) {
    const auto relation = relations.find(Attribute(node, "id").value_or(""));
    if (relation == relations.end() || !relation->second.type.ends_with("/worksheet")) {
      throw std::runtime_error("it holds a sheet that is no table");
    }
    const std::string& part = relation->second.target;
    sheets_.emplace_back(Attribute(node, "name").value_or(""), part, Part(part));
  }
}

void WorkbookPackage::ReadNames() {
  names_.clear();
  for (xmlNode* node : DefinedNames(Root())) {
    const auto cell = ParseSheetCell(TextOf(node));
    if (!cell) {
      continue;
    }
    const auto sheet = std::ranges::find_if(
        sheets_, [&](const TemplateSheet& one) { return one.IsNamed(cell->sheet); });
    if (sheet != sheets_.end()) {
      names_.try_emplace(Folded(Attribute(node, "name").value_or("")),
                         NamedCell{static_cast<std::size_t>(sheet - sheets_.begin()), cell->cell});
    }
  }
}

// The order of calculation names cells that are about to move; programs make it anew.
void WorkbookPackage::DropCalculationChain() {
  for (const auto& [id, relation] : RelationsOf(part_)) {
    if (relation.type.ends_with("/calcChain")) {
      package_.Remove(relation.target);
      DropContentType(relation.target);
      DropRelation(part_, relation.target);
    }
  }
}

void WorkbookPackage::DropContentType(const std::string& part) {
  constexpr char kTypes[] = "[Content_Types].xml";
  const XmlDocument types = ParseXml(Part(kTypes));
  for (xmlNode* node : Children(xmlDocGetRootElement(types.get()), "Override")) {
    if (Attribute(node, "PartName") == "/" + part) {
      RemoveNode(node);
    }
  }
  package_.Put(kTypes, WriteXml(*types));
}

void WorkbookPackage::DropRelation(const std::string& part, const std::string& target) {
  const std::string name = RelationsPart(part);
  const XmlDocument document = ParseXml(Part(name));
  for (xmlNode* node : Children(xmlDocGetRootElement(document.get()), "Relationship")) {
    if (Resolve(part, Attribute(node, "Target").value_or("")) == target) {
      RemoveNode(node);
    }
  }
  package_.Put(name, WriteXml(*document));
}

void WorkbookPackage::Shift(std::size_t index, const BlockShift& shift,
                            const std::function<bool(const std::string& name)>& dropped) {
  const TemplateSheet& target = sheets_[index];
  const SheetTest wanted = [&](std::string_view sheet) { return target.IsNamed(sheet); };
  const RowMap map = [&](int row, RefEnd end, bool) { return shift.Map(row, end); };
  for (xmlNode* node : DefinedNames(Root())) {
    if (dropped(Folded(Attribute(node, "name").value_or("")))) {
      RemoveNode(node);
    } else {
      SetText(node, MapReferences(TextOf(node), wanted, map));
    }
  }
  if (xmlNode* names = Child(Root(), "definedNames");
      names != nullptr && Children(names, "definedName").empty()) {
    RemoveNode(names);
  }
  ReadNames();
  bool calculates = false;
  for (TemplateSheet& sheet : sheets_) {
    calculates = sheet.MapFormulas(target, shift) || calculates;
  }
  if (calculates) {
    CalculateOnOpening();
  }
  MovePictures(target, shift);
}

void WorkbookPackage::CalculateOnOpening() {
  xmlNode* properties = Child(Root(), "calcPr");
  if (properties == nullptr) {
    properties = AddChild(Root(), "calcPr");
    constexpr std::array<std::string_view, 4> kBefore{"definedNames", "externalReferences",
                                                      "functionGroups", "sheets"};
    for (const std::string_view name : kBefore) {
      if (xmlNode* before = Child(Root(), name)) {
        xmlAddNextSibling(before, properties);
        break;
      }
    }
  }
  SetAttribute(properties, "fullCalcOnLoad", "1");
}

void WorkbookPackage::MovePictures(const TemplateSheet& sheet, const BlockShift& shift) {
  for (const auto& [id, relation] : RelationsOf(sheet.Part())) {
    if (!relation.type.ends_with("/drawing")) {
      continue;
    }
    const XmlDocument drawing = ParseXml(Part(relation.target));
    for (xmlNode* row : Descendants(xmlDocGetRootElement(drawing.get()), "row")) {
      const int number = std::atoi(TextOf(row).c_str()) + 1;
      SetText(row, std::to_string(shift.Map(number, RefEnd::kSingle) - 1));
    }
    package_.Put(relation.target, WriteXml(*drawing));
  }
}

bool WorkbookPackage::RemoveSheet(std::size_t index) {
  if (sheets_.size() < 2) {
    return false;
  }
  RemoveNode(Children(Child(Root(), "sheets"), "sheet")[index]);
  for (xmlNode* node : DefinedNames(Root())) {
    const auto cell = ParseSheetCell(TextOf(node));
    const bool local = Number(node, "localSheetId", -1) == static_cast<int>(index);
    if (local || (cell && sheets_[index].IsNamed(cell->sheet))) {
      RemoveNode(node);
    }
  }
  RenumberAfter(index);
  const std::string part = sheets_[index].Part();
  package_.Remove(part);
  DropContentType(part);
  DropRelation(part_, part);
  sheets_.erase(sheets_.begin() + static_cast<std::ptrdiff_t>(index));
  ReadNames();
  return true;
}

/// Sheets that come after a removed one have moved up.
void WorkbookPackage::RenumberAfter(std::size_t removed) {
  for (xmlNode* node : DefinedNames(Root())) {
    const int local = Number(node, "localSheetId", -1);
    if (local > static_cast<int>(removed)) {
      SetAttribute(node, "localSheetId", std::to_string(local - 1));
    }
  }
  if (const xmlNode* views = Child(Root(), "bookViews")) {
    for (xmlNode* view : Children(views, "workbookView")) {
      RemoveAttribute(view, "activeTab");
      RemoveAttribute(view, "firstSheet");
    }
  }
}

ZipPackage WorkbookPackage::Finish() const {
  ZipPackage finished = package_;
  finished.Put(part_, WriteXml(*workbook_));
  for (const TemplateSheet& sheet : sheets_) {
    finished.Put(sheet.Part(), sheet.Write());
  }
  return finished;
}

}  // namespace quorvane::reporting
