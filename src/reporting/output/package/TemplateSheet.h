#pragma once

#include "reporting/output/package/RowPattern.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quorvane::reporting {

/// A sheet of a workbook that is filled in.
class TemplateSheet {
 public:
  /// `part` is the sheet's file inside the workbook.
  TemplateSheet(std::string name, std::string part, const std::string& content);

  const std::string& Name() const { return name_; }
  const std::string& Part() const { return part_; }

  /// True for this sheet's name as it is written in a formula.
  bool IsNamed(std::string_view name) const;

  /// Writes a value, keeping the cell's style.
  void SetCell(const CellPlace& place, const Cell& value, const DateStyles& styles);

  /// The row at `number` as a pattern; the fields as for RowPattern.
  RowPattern MakePattern(int number, const std::map<int, std::size_t>& fields,
                         const DateStyles& styles) const;

  /// Puts rows in the place of a block of pattern rows and moves what is below. `pattern_of` gives
  /// the pattern of each new row and `values_of` its values.
  using PatternOf = std::function<const RowPattern&(std::size_t index)>;
  using ValuesOf = std::function<const std::vector<Cell>&(std::size_t index)>;
  void ReplaceBlock(const BlockShift& shift, const PatternOf& pattern_of,
                    const ValuesOf& values_of);

  /// Changes the rows of references to a sheet in this sheet's formulas, whose old results are
  /// removed. False when there is no formula.
  bool MapFormulas(const TemplateSheet& target, const BlockShift& shift);

  std::string Write() const;

 private:
  xmlNode* Root() const { return xmlDocGetRootElement(document_.get()); }
  xmlNode* FindRow(int number) const;
  xmlNode* RowAt(int number);
  xmlNode* CellAt(const CellPlace& place);
  void NumberAll();
  void MoveRows(const BlockShift& shift);
  void MapAreas(const BlockShift& shift);
  void AddMerges(const BlockShift& shift, const PatternOf& pattern_of);

  std::string name_;
  std::string part_;
  XmlDocument document_;
  xmlNode* data_ = nullptr;
  std::string prefix_;  ///< of element names, with its colon
  std::string rows_;    ///< what takes the place of the mark
  bool filled_ = false;
};

}  // namespace quorvane::reporting
