#pragma once

#include "reporting/output/package/CellRefs.h"
#include "reporting/output/package/XmlPart.h"
#include "reporting/output/package/ZipPackage.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <map>
#include <stdexcept>

namespace quorvane::test {

/// A written workbook as a test looks into it.
class WorkbookFile {
 public:
  explicit WorkbookFile(const QString& path) : package_(reporting::ZipPackage::Read(path)) {}

  std::string Part(const char* name) const {
    const std::string* content = package_.Find(name);
    return content == nullptr ? std::string() : *content;
  }

  /// A sheet's cells as "A1=text", numbers with "#" before them, formulas with "=", empty cells
  /// left out.
  QStringList Cells(const char* sheet) const {
    QStringList cells;
    ForEachCell(sheet, [&](xmlNode* cell) {
      QString text;
      if (xmlNode* formula = reporting::Child(cell, "f")) {
        text = QLatin1Char('=') + Text(formula);
      } else if (xmlNode* value = reporting::Child(cell, "v")) {
        const bool shared = reporting::Attribute(cell, "t") == "s";
        text = shared ? Shared(Text(value).toInt()) : QLatin1Char('#') + Text(value);
      } else if (xmlNode* inline_text = reporting::Child(cell, "is")) {
        text = Text(inline_text);
      }
      if (!text.isEmpty()) {
        cells << Place(cell) + QLatin1Char('=') + text;
      }
    });
    return cells;
  }

  /// The style of each cell.
  std::map<QString, std::string> Styles(const char* sheet) const {
    std::map<QString, std::string> styles;
    ForEachCell(sheet, [&](xmlNode* cell) {
      styles[Place(cell)] = reporting::Attribute(cell, "s").value_or("");
    });
    return styles;
  }

  /// An attribute of all elements of a name in a part.
  QStringList Attributes(const char* part, const char* element, const char* attribute) const {
    QStringList values;
    const reporting::XmlDocument document = reporting::ParseXml(Part(part));
    for (xmlNode* node : reporting::Descendants(xmlDocGetRootElement(document.get()), element)) {
      values << QString::fromStdString(reporting::Attribute(node, attribute).value_or(""));
    }
    return values;
  }

  /// "name=place" of each named cell.
  QStringList Names() const {
    QStringList names;
    const reporting::XmlDocument document = reporting::ParseXml(Part("xl/workbook.xml"));
    for (xmlNode* node :
         reporting::Descendants(xmlDocGetRootElement(document.get()), "definedName")) {
      names << QString::fromStdString(reporting::Attribute(node, "name").value_or("")) +
                   QLatin1Char('=') + Text(node);
    }
    names.sort();
    return names;
  }

 private:
  template <class Visit>
  void ForEachCell(const char* sheet, Visit visit) const {
    const reporting::XmlDocument document = reporting::ParseXml(Part(sheet));
    const xmlNode* data = reporting::Child(xmlDocGetRootElement(document.get()), "sheetData");
    for (const xmlNode* row : reporting::Children(data, "row")) {
      for (xmlNode* cell : reporting::Children(row, "c")) {
        if (!Place(cell).endsWith(
                QString::fromStdString(reporting::Attribute(row, "r").value_or("?")))) {
          throw std::runtime_error("a cell stands in another row than it says");
        }
        visit(cell);
      }
    }
  }

  static QString Text(xmlNode* node) { return QString::fromStdString(reporting::TextOf(node)); }
  static QString Place(const xmlNode* cell) {
    return QString::fromStdString(reporting::Attribute(cell, "r").value_or(""));
  }

  QString Shared(int index) const {
    const reporting::XmlDocument document = reporting::ParseXml(Part("xl/sharedStrings.xml"));
    const auto items = reporting::Children(xmlDocGetRootElement(document.get()), "si");
    return Text(items[static_cast<std::size_t>(index)]);
  }

  reporting::ZipPackage package_;
};

}  // namespace quorvane::test
