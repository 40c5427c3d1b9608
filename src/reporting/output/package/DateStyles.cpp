#include "reporting/output/package/DateStyles.h"

#include "reporting/output/package/XmlPart.h"

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

}  // namespace quorvane::reporting
