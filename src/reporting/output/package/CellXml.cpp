#include "reporting/output/package/CellXml.h"

#include "core/text/Amounts.h"
#include "reporting/output/package/XmlPart.h"

#include <cmath>
#include <cstdlib>
#include <map>

namespace quorvane::reporting {
namespace {

int Number(const xmlNode* element, std::string_view attribute) {
  return std::atoi(Attribute(element, attribute).value_or("0").c_str());
}

bool IsBuiltInDate(int format) {
  return (format >= 14 && format <= 17) || format == 22 || (format >= 27 && format <= 36) ||
         (format >= 50 && format <= 58);
}

/// A day or a year outside quotes, brackets and escapes.
bool IsDateCode(const std::string& code) {
  char closing = 0;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (closing != 0) {
      closing = c == closing ? '\0' : closing;
    } else if (c == '"') {
      closing = '"';
    } else if (c == '[') {
      closing = ']';
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == 'd' || c == 'D' || c == 'y' || c == 'Y') {
      return true;
    }
  }
  return false;
}

constexpr int kEpochDays = 25569;  // 1970-01-01 as a workbook counts days
constexpr int kFirstSafeDay = 61;  // the format counts a day too many before 01/03/1900

CellXml NumberXml(double number, const std::string& prefix) {
  CellXml xml{"", "<" + prefix + "v>"};
  text::AppendExact(xml.content, number);
  xml.content += "</" + prefix + "v>";
  return xml;
}

CellXml TextXml(std::string_view text, const std::string& prefix) {
  CellXml xml{"inlineStr", "<" + prefix + "is><" + prefix + "t xml:space=\"preserve\">"};
  AppendEscaped(xml.content, text);
  xml.content += "</" + prefix + "t></" + prefix + "is>";
  return xml;
}

}  // namespace

DateStyles::DateStyles(const std::string& styles_xml) {
  const XmlDocument document = ParseXml(styles_xml);
  const xmlNode* root = xmlDocGetRootElement(document.get());
  std::map<int, bool> own;
  if (const xmlNode* formats = Child(root, "numFmts")) {
    for (const xmlNode* format : Children(formats, "numFmt")) {
      own[Number(format, "numFmtId")] = IsDateCode(Attribute(format, "formatCode").value_or(""));
    }
  }
  if (const xmlNode* styles = Child(root, "cellXfs")) {
    for (const xmlNode* style : Children(styles, "xf")) {
      const int format = Number(style, "numFmtId");
      const auto found = own.find(format);
      dates_.push_back(found == own.end() ? IsBuiltInDate(format) : found->second);
    }
  }
}

CellXml MakeCellXml(const Cell& cell, const DateStyles& styles, int style,
                    const std::string& prefix) {
  if (const auto* number = std::get_if<double>(&cell);
      number != nullptr && std::isfinite(*number)) {
    return NumberXml(*number, prefix);
  }
  if (const auto* date = std::get_if<text::Date>(&cell)) {
    const auto day = date->time_since_epoch().count() + kEpochDays;
    if (styles.IsDate(style) && day >= kFirstSafeDay) {
      return NumberXml(static_cast<double>(day), prefix);
    }
  }
  std::string text;
  AppendCell(text, cell, Mask::kNumber);
  return text.empty() ? CellXml{} : TextXml(text, prefix);
}

}  // namespace quorvane::reporting
