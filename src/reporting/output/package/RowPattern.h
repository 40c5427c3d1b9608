#pragma once

#include "reporting/output/package/CellRefs.h"
#include "reporting/output/package/CellXml.h"
#include "reporting/output/package/XmlPart.h"

#include <map>
#include <string>
#include <vector>

namespace quorvane::reporting {

/// A row of a sheet that is written again and again: its height and styles, the cells that take
/// values, and what else is in it.
class RowPattern {
 public:
  /// `fields` tells which value (counted from 0) goes into which column; `row` may be null for a
  /// row without cells of its own.
  RowPattern(xmlNode* row, int number, const std::map<int, std::size_t>& fields,
             const DateStyles& styles, const std::string& prefix);

  /// Cells that are merged within the row, by their first and last column.
  void AddMerge(int first, int last) { merges_.emplace_back(first, last); }
  const std::vector<std::pair<int, int>>& Merges() const { return merges_; }

  /// Writes the row as row `number`; `shift` is what happens to the rows that its formulas name.
  void Append(std::string& out, int number, const std::vector<Cell>& values,
              const BlockShift& shift) const;

 private:
  struct PatternCell {
    int style = -1;
    bool takes_value = false;
    std::size_t field = 0;
    std::string type;
    std::string content;
    std::string formula;
  };

  void Read(xmlNode* row, const std::map<int, std::size_t>& fields);
  void AppendCellXml(std::string& out, int number, int column, const PatternCell& cell,
                     const std::vector<Cell>& values, const BlockShift& shift) const;

  int number_;
  const DateStyles& styles_;
  const std::string& prefix_;
  std::string attributes_;
  std::map<int, PatternCell> cells_;  ///< by column
  std::vector<std::pair<int, int>> merges_;
};

}  // namespace quorvane::reporting
