#include "reporting/output/package/CellXml.h"

#include "core/text/Amounts.h"
#include "reporting/output/package/XmlPart.h"

#include <cmath>

namespace quorvane::reporting {
namespace {

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
