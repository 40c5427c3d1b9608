#pragma once

#include "reports/output/package/CellRefs.h"
#include "reports/output/package/XmlPart.h"
#include "reports/output/package/ZipPackage.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <map>
#include <stdexcept>

namespace quorvane::test {

/// A written workbook as a test looks into it.
class WorkbookFile {
 public:
  explicit WorkbookFile(const QString& path) : package_(report::ZipPackage::Read(path)) {}

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
      if (xmlNode* formula = report::Child(cell, "f")) {
        text = QLatin1Char('=') + Text(formula);
      } else if (xmlNode* value = report::Child(cell, "v")) {
        const bool shared = report::Attribute(cell, "t") == "s";
        text = shared ? Shared(Text(value).toInt()) : QLatin1Char('#') + Text(value);
      } else if (xmlNode* inline_text = report::Child(cell, "is")) {
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
      styles[Place(cell)] = report::Attribute(cell, "s").value_or("");
    });
    return styles;
  }

  /// An attribute of all elements of a name in a part.
  QStringList Attributes(const char* part, const char* element, const char* attribute) const {
    QStringList values;
    const report::XmlDocument document = report::ParseXml(Part(part));
    for (xmlNode* node : report::Descendants(xmlDocGetRootElement(document.get()), element)) {
      values << QString::fromStdString(report::Attribute(node, attribute).value_or(""));
    }
    return values;
  }

  /// "name=place" of each named cell.
  QStringList Names() const {
    QStringList names;
    const report::XmlDocument document = report::ParseXml(Part("xl/workbook.xml"));
    for (xmlNode* node : report::Descendants(xmlDocGetRootElement(document.get()), "definedName")) {
      names << QString::fromStdString(report::Attribute(node, "name").value_or("")) +
                   QLatin1Char('=') + Text(node);
    }
    names.sort();
    return names;
  }

 private:
  template <class Visit>
  void ForEachCell(const char* sheet, Visit visit) const {
    const report::XmlDocument document = report::ParseXml(Part(sheet));
    const xmlNode* data = report::Child(xmlDocGetRootElement(document.get()), "sheetData");
    for (const xmlNode* row : report::Children(data, "row")) {
      for (xmlNode* cell : report::Children(row, "c")) {
        if (!Place(cell).endsWith(
                QString::fromStdString(report::Attribute(row, "r").value_or("?")))) {
          throw std::runtime_error("a cell stands in another row than it says");
        }
        visit(cell);
      }
    }
  }

  static QString Text(xmlNode* node) { return QString::fromStdString(report::TextOf(node)); }
  static QString Place(const xmlNode* cell) {
    return QString::fromStdString(report::Attribute(cell, "r").value_or(""));
  }

  QString Shared(int index) const {
    const report::XmlDocument document = report::ParseXml(Part("xl/sharedStrings.xml"));
    const auto items = report::Children(xmlDocGetRootElement(document.get()), "si");
    return Text(items[static_cast<std::size_t>(index)]);
  }

  report::ZipPackage package_;
};

}  // namespace quorvane::test
