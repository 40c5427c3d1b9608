#pragma once

#include "reporting/output/package/CellXml.h"
#include "reporting/output/package/TemplateSheet.h"
#include "reporting/output/package/ZipPackage.h"

#include <deque>
#include <map>
#include <optional>
#include <string>

namespace quorvane::reporting {

/// A workbook file taken apart: its sheets, the names of its cells, and the parts around them.
class WorkbookPackage {
 public:
  /// Throws std::runtime_error when it is no workbook.
  explicit WorkbookPackage(ZipPackage package);

  struct NamedCell {
    std::size_t sheet = 0;
    CellPlace place;
  };

  /// The cell of a name, by the name in small letters and without "_" before it.
  const std::map<std::string, NamedCell>& Names() const { return names_; }

  TemplateSheet& Sheet(std::size_t index) { return sheets_[index]; }
  const DateStyles& Styles() const { return styles_; }

  /// To be called once a sheet's block was replaced: moves names, pictures and formulas along.
  /// Names for which `dropped` is true are removed.
  void Shift(std::size_t sheet, const BlockShift& shift,
             const std::function<bool(const std::string& name)>& dropped);

  /// False for the only sheet.
  bool RemoveSheet(std::size_t index);

  /// The workbook with everything that was changed.
  ZipPackage Finish() const;

 private:
  struct Relation {
    std::string type;
    std::string target;  ///< the part's name in the package
  };
  using Relations = std::map<std::string, Relation>;

  xmlNode* Root() const { return xmlDocGetRootElement(workbook_.get()); }
  Relations RelationsOf(const std::string& part) const;
  const std::string& Part(const std::string& name) const;
  void ReadSheets();
  void ReadNames();
  void DropCalculationChain();
  void MovePictures(const TemplateSheet& sheet, const BlockShift& shift);
  void CalculateOnOpening();
  void DropRelation(const std::string& part, const std::string& target);
  void DropContentType(const std::string& part);
  void RenumberAfter(std::size_t removed);

  ZipPackage package_;
  std::string part_;  ///< of the workbook itself
  XmlDocument workbook_;
  std::deque<TemplateSheet> sheets_;
  std::map<std::string, NamedCell> names_;
  DateStyles styles_;
};

}  // namespace quorvane::reporting
