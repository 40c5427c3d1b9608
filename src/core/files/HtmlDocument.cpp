#include "core/files/HtmlDocument.h"

#include "core/text/Tr.h"

#include <QStringConverter>

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <initializer_list>

namespace quorvane::files {
namespace {

const xmlChar* Xml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}

std::string Taken(xmlChar* text) {
  std::string copy = text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
  xmlFree(text);
  return copy;
}

bool Is(const xmlNode* node, const char* element) {
  return node->type == XML_ELEMENT_NODE && xmlStrcasecmp(node->name, Xml(element)) == 0;
}

std::string Attribute(const xmlNode* node, const char* name) {
  return node->type == XML_ELEMENT_NODE ? Taken(xmlGetProp(node, Xml(name))) : std::string();
}

/// The node after this one in the order of the text, within `root`; nullptr after the last.
xmlNode* Following(xmlNode* node, const xmlNode* root) {
  if (node->children != nullptr && node->type == XML_ELEMENT_NODE) {
    return node->children;
  }
  while (node != nullptr && node != root && node->next == nullptr) {
    node = node->parent;
  }
  return node == nullptr || node == root ? nullptr : node->next;
}

/// The first node within `root`, itself included, of which `wanted` is true.
xmlNode* Find(xmlNode* root, const std::function<bool(const xmlNode*)>& wanted) {
  for (xmlNode* node = root; node != nullptr; node = Following(node, root)) {
    if (wanted(node)) {
      return node;
    }
  }
  return nullptr;
}

bool IsUtf8(std::string_view bytes) {
  QStringDecoder decoder(QStringConverter::Utf8);
  const QString text =
      decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return !decoder.hasError() && !text.isEmpty();
}

bool IsUtf16(std::string_view bytes) {
  return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
}

std::string FromUtf16(std::string_view bytes) {
  QStringDecoder decoder(QStringConverter::Utf16);
  const QString text =
      decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return text.toStdString();
}

/// The text behind the comments and processing instructions before a page; empty when one of them
/// does not end.
std::string_view BehindComments(std::string_view text) {
  while (true) {
    text = Trimmed(text);
    const bool is_comment = text.starts_with("<!--");
    if (!is_comment && !text.starts_with("<?")) {
      return text;
    }
    const std::string_view ending = is_comment ? "-->" : ">";
    const std::size_t end = text.find(ending);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + ending.size());
  }
}

/// Whether a page may begin so: with `<`, and a sign of a page soon.
bool BeginsAsPage(std::string_view text) {
  constexpr std::size_t kSoon = 4096;
  const std::string_view start = Trimmed(text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text);
  const std::string_view page = BehindComments(start).substr(0, kSoon);
  if (page.empty()) {
    return start.find("<!--") != std::string_view::npos;
  }
  const std::string words =
      QString::fromUtf8(page.data(), static_cast<qsizetype>(page.size())).toLower().toStdString();
  return page.starts_with('<') &&
         std::ranges::any_of(
             std::array{"<!doctype html", "<html", "<head", "<body", "<table"},
             [&](const char* sign) { return words.find(sign) != std::string::npos; });
}

bool IsAny(const xmlNode* node, std::initializer_list<const char*> elements) {
  return std::ranges::any_of(elements, [node](const char* name) { return Is(node, name); });
}

/// The nearest element of those names around a node; nullptr when there is none.
const xmlNode* Around(const xmlNode* node, std::initializer_list<const char*> elements) {
  constexpr int kDeepest = 100;
  const xmlNode* parent = node->parent;
  for (int i = 0; i < kDeepest && parent != nullptr; ++i, parent = parent->parent) {
    if (IsAny(parent, elements)) {
      return parent;
    }
  }
  return nullptr;
}

/// Puts what a page shows into rows, node by node in the order of the page.
class PageRows {
 public:
  void Take(const xmlNode* node) {
    if (IsAny(node, {"td", "th"})) {
      BeginCell(node);
    } else if (IsAny(node, {"tr", "table"})) {
      EndRow();
    } else if (IsAny(node, {"br", "p", "div", "li", "h1", "h2", "h3", "h4", "h5", "h6"})) {
      BreakLine(node);
    } else if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
      AddText(node);
    }
  }

  TextTable Rows() {
    EndRow();
    return builder_.Take();
  }

 private:
  void BeginCell(const xmlNode* node) {
    const xmlNode* row = Around(node, {"tr"});
    if (row != row_ || cell_ == nullptr) {
      EndRow();
    } else {
      PutCell();
      column_ += Span(cell_);
    }
    row_ = row;
    cell_ = node;
  }

  static std::size_t Span(const xmlNode* cell) {
    constexpr std::size_t kMost = 64;
    const std::string text = Attribute(cell, "colspan");
    std::size_t span = 1;
    std::from_chars(text.data(), text.data() + text.size(), span);
    return std::clamp<std::size_t>(span, 1, kMost);
  }

  /// In a cell the lines are one text.
  void BreakLine(const xmlNode* node) {
    if (cell_ != nullptr && Around(node, {"td", "th"}) == cell_) {
      text_ += ' ';
    } else {
      EndRow();
    }
  }

  void AddText(const xmlNode* node) {
    const std::string_view text(
        node->content == nullptr ? "" : reinterpret_cast<const char*>(node->content));
    const xmlNode* lines = Around(node, {"pre"});
    if (Trimmed(text).empty()) {
      text_ += ' ';
      line_ended_ |= lines != nullptr && text.find('\n') != std::string_view::npos;
      return;
    }
    if (Around(node, {"script", "style", "title"}) != nullptr) {
      return;
    }
    // Text behind a table is not in its last cell.
    if (cell_ != nullptr && Around(node, {"td", "th"}) != cell_) {
      EndRow();
    }
    if (lines != lines_ && cell_ != nullptr) {
      AddLetter(' ');
    }
    line_ended_ |= lines != lines_ && cell_ == nullptr;
    lines_ = lines;
    for (const char one : text) {
      AddLetter(one);
    }
  }

  /// Where line ends are shown, the text behind one is a row of its own.
  void AddLetter(char one) {
    const bool blank = one == '\n' || one == '\r' || one == '\t' || one == ' ';
    line_ended_ |= one == '\n' && lines_ != nullptr;
    if (line_ended_ && !blank) {
      if (!Trimmed(text_).empty()) {
        EndRow();
      }
      line_ended_ = false;
    }
    if (text_.size() < kLongestCell && !(blank && text_.ends_with(' '))) {
      text_ += blank ? ' ' : one;
    }
  }

  void PutCell() {
    if (text_.size() >= kLongestCell) {
      CutLastLetter();
    }
    if (!Trimmed(text_).empty()) {
      builder_.Put(count_, column_, text_);
      any_ = true;
    }
    text_.clear();
    line_ended_ = false;
  }

  /// A longer text was cut, perhaps within a letter.
  void CutLastLetter() {
    constexpr unsigned kHighBits = 0xC0;
    constexpr unsigned kWithinLetter = 0x80;
    while ((static_cast<unsigned char>(text_.back()) & kHighBits) == kWithinLetter) {
      text_.pop_back();
    }
    text_.pop_back();
  }

  void EndRow() {
    PutCell();
    count_ += any_ ? 1 : 0;
    any_ = false;
    column_ = 0;
    row_ = nullptr;
    cell_ = nullptr;
  }

  TableBuilder builder_;
  std::size_t count_ = 0;  ///< rows that are complete
  std::size_t column_ = 0;
  bool any_ = false;                ///< the row has a text
  const xmlNode* row_ = nullptr;    ///< of the cell
  const xmlNode* cell_ = nullptr;   ///< whose text it is; nullptr outside tables
  const xmlNode* lines_ = nullptr;  ///< of the last text: what shows line ends; nullptr for none
  bool line_ended_ = false;         ///< the text that follows is on another line
  std::string text_;
};

}  // namespace

struct HtmlDocument::Document {
  xmlDoc* tree = nullptr;

  xmlNode* Root() const { return tree == nullptr ? nullptr : xmlDocGetRootElement(tree); }
  xmlNode* At(std::string_view id) const {
    return Find(Root(), [id](const xmlNode* node) { return Attribute(node, "id") == id; });
  }
};

HtmlDocument::HtmlDocument(std::string_view html) : document_(std::make_unique<Document>()) {
  if (html.size() > kLargestFile) {
    return;
  }
  // The letters that the page names are passed over where it is UTF-8.
  const std::string in_utf8 = IsUtf16(html) ? FromUtf16(html) : std::string();
  const std::string_view page = in_utf8.empty() ? html : in_utf8;
  document_->tree = htmlReadMemory(
      page.data(), static_cast<int>(page.size()), nullptr, IsUtf8(page) ? "UTF-8" : nullptr,
      HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET);
}

HtmlDocument::~HtmlDocument() {
  xmlFreeDoc(document_->tree);
}

bool HtmlDocument::IsOne(std::string_view bytes) {
  return BeginsAsPage(IsUtf16(bytes) ? FromUtf16(bytes) : bytes);
}

TextTable HtmlDocument::Rows() const {
  PageRows rows;
  Find(document_->Root(), [&](const xmlNode* node) {
    rows.Take(node);
    return false;
  });
  TextTable table = rows.Rows();
  if (table.rows.empty()) {
    Fail(Tr("Files", "The file is empty."));
  }
  return table;
}

std::vector<std::string> HtmlDocument::Links() const {
  std::vector<std::string> links;
  Find(document_->Root(), [&](const xmlNode* node) {
    if (Is(node, "a")) {
      links.push_back(Attribute(node, "href"));
    }
    return false;
  });
  std::erase_if(links, [](const std::string& link) { return link.empty(); });
  return links;
}

std::optional<std::string> HtmlDocument::LinkAt(std::string_view id) const {
  xmlNode* place = document_->At(id);
  const xmlNode* link =
      Find(place, [](const xmlNode* node) { return !Attribute(node, "href").empty(); });
  return link == nullptr ? std::nullopt : std::optional(Attribute(link, "href"));
}

std::optional<TextTable> HtmlDocument::TableAt(std::string_view id) const {
  xmlNode* table = document_->At(id);
  if (table == nullptr) {
    return std::nullopt;
  }
  TableBuilder builder;
  std::size_t row = 0;
  std::size_t column = 0;
  bool any = false;
  Find(table, [&](const xmlNode* node) {
    if (Is(node, "tr")) {
      row += any ? 1 : 0;
      any = true;
      column = 0;
    } else if (Is(node, "td") || Is(node, "th")) {
      builder.Put(row, column++, Taken(xmlNodeGetContent(node)));
    }
    return false;
  });
  return builder.Take();
}

}  // namespace quorvane::files
