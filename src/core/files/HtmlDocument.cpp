#include "core/files/HtmlDocument.h"

#include <libxml/HTMLparser.h>

#include <functional>

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

}  // namespace

struct HtmlDocument::Document {
  xmlDoc* tree = nullptr;

  xmlNode* Root() const { return tree == nullptr ? nullptr : xmlDocGetRootElement(tree); }
  xmlNode* At(std::string_view id) const {
    return Find(Root(), [id](const xmlNode* node) { return Attribute(node, "id") == id; });
  }
};

HtmlDocument::HtmlDocument(std::string_view html) : document_(std::make_unique<Document>()) {
  if (html.size() <= kLargestFile) {
    document_->tree = htmlReadMemory(
        html.data(), static_cast<int>(html.size()), nullptr, nullptr,
        HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET);
  }
}

HtmlDocument::~HtmlDocument() {
  xmlFreeDoc(document_->tree);
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
