#include "reporting/output/RtfCode.h"

#include <fmt/format.h>

#include <iterator>
#include <utility>

namespace quorvane::reporting {
namespace {

constexpr int kShortSide = 11906;
constexpr int kLongSide = 16838;
constexpr int kMargin = 720;

void AppendEscaped(std::string& out, const QString& text) {
  for (const QChar c : text) {
    const char16_t unit = c.unicode();
    if (unit == '\\' || unit == '{' || unit == '}') {
      out += '\\';
      out += static_cast<char>(unit);
    } else if (unit == '\n') {
      out += "\\line ";
    } else if (unit >= ' ' && unit < 0x7F) {
      out += static_cast<char>(unit);
    } else if (unit >= 0x80) {
      // The number is a signed 16-bit one; "?" is for readers that know no such letters.
      fmt::format_to(std::back_inserter(out), "\\u{}?", static_cast<std::int16_t>(unit));
    }
  }
}

}  // namespace

int RtfCode::TextWidth(bool landscape) {
  return (landscape ? kLongSide : kShortSide) - 2 * kMargin;
}

void RtfCode::Head(bool landscape) {
  out_ += "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\n";
  fmt::format_to(std::back_inserter(out_),
                 "\\paperw{}\\paperh{}\\margl{}\\margr{}\\margt{}\\margb{}{}\n",
                 landscape ? kLongSide : kShortSide, landscape ? kShortSide : kLongSide, kMargin,
                 kMargin, kMargin, kMargin, landscape ? "\\landscape" : "");
  out_ +=
      "{\\footer\\pard\\qc\\f0\\fs16 Page {\\field{\\*\\fldinst PAGE}{\\fldrslt 1}} of "
      "{\\field{\\*\\fldinst NUMPAGES}{\\fldrslt 1}}\\par}\n";
}

void RtfCode::Paragraph(const char* words, int type, const QString& text) {
  fmt::format_to(std::back_inserter(out_), "{{\\pard{}\\f0\\fs{} ", words, type);
  AppendEscaped(out_, text);
  out_ += "\\par}\n";
}

void RtfCode::BeginRow(const std::vector<int>& ends, const char* words, bool ruled) {
  fmt::format_to(std::back_inserter(out_), "\\trowd\\trgaph{}\\trkeep\\trqc{}", kCellPadding,
                 words);
  for (const int end : ends) {
    out_ += ruled ? "\\clbrdrt\\brdrs\\brdrw10\\clbrdrb\\brdrs\\brdrw10"
                  : "\\clbrdrb\\brdrhair\\brdrw5";
    fmt::format_to(std::back_inserter(out_), "\\cellx{}", end);
  }
  out_ += '\n';
}

void RtfCode::Cell(const char* words, int type, const QString& text) {
  fmt::format_to(std::back_inserter(out_), "{{\\pard\\intbl\\sb20\\sa20{}\\f0\\fs{} ", words, type);
  AppendEscaped(out_, text);
  out_ += "\\cell}";
}

std::string RtfCode::Take() {
  out_ += "}\n";
  return std::exchange(out_, {});
}

}  // namespace quorvane::reporting
