#include "reporting/output/package/XmlPart.h"

#include <libxml/parser.h>

#include <limits>
#include <stdexcept>

namespace quorvane::reporting {
namespace {

const xmlChar* AsXml(const char* text) {
  return reinterpret_cast<const xmlChar*>(text);
}

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

struct FreeText {
  void operator()(xmlChar* text) const { xmlFree(text); }
};
using OwnedText = std::unique_ptr<xmlChar, FreeText>;

struct FreeBuffer {
  void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};

xmlAttr* FindAttribute(const xmlNode* element, std::string_view name) {
  for (xmlAttr* attribute = element->properties; attribute != nullptr;
       attribute = attribute->next) {
    if (View(attribute->name) == name) {
      return attribute;
    }
  }
  return nullptr;
}

}  // namespace

XmlDocument ParseXml(const std::string& content) {
  if (content.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    throw std::runtime_error("a part is too large");
  }
  XmlDocument document(xmlReadMemory(content.data(), static_cast<int>(content.size()), nullptr,
                                     nullptr,
                                     XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
  if (!document || xmlDocGetRootElement(document.get()) == nullptr) {
    throw std::runtime_error("a part of it cannot be read");
  }
  return document;
}

std::string WriteXml(xmlDoc& document) {
  xmlChar* text = nullptr;
  int size = 0;
  xmlDocDumpMemoryEnc(&document, &text, &size, "UTF-8");
  const OwnedText owned(text);
  if (text == nullptr) {
    throw std::runtime_error("a part cannot be written");
  }
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)};
}

std::string InnerXml(xmlNode* element) {
  const std::unique_ptr<xmlBuffer, FreeBuffer> buffer(xmlBufferCreate());
  for (xmlNode* child = element->children; child != nullptr; child = child->next) {
    xmlNodeDump(buffer.get(), element->doc, child, 0, 0);
  }
  return std::string(View(xmlBufferContent(buffer.get())));
}

bool Is(const xmlNode* node, std::string_view name) {
  return node->type == XML_ELEMENT_NODE && View(node->name) == name;
}

xmlNode* Child(const xmlNode* parent, std::string_view name) {
  for (xmlNode* child = parent->children; child != nullptr; child = child->next) {
    if (Is(child, name)) {
      return child;
    }
  }
  return nullptr;
}

std::vector<xmlNode*> Children(const xmlNode* parent, std::string_view name) {
  std::vector<xmlNode*> found;
  for (xmlNode* child = parent->children; child != nullptr; child = child->next) {
    if (Is(child, name)) {
      found.push_back(child);
    }
  }
  return found;
}

std::vector<xmlNode*> Descendants(xmlNode* parent, std::string_view name) {
  std::vector<xmlNode*> found;
  std::vector<xmlNode*> open{parent};
  while (!open.empty()) {
    xmlNode* node = open.back();
    open.pop_back();
    for (xmlNode* child = node->children; child != nullptr; child = child->next) {
      if (child->type == XML_ELEMENT_NODE) {
        open.push_back(child);
        if (Is(child, name)) {
          found.push_back(child);
        }
      }
    }
  }
  return found;
}

std::optional<std::string> Attribute(const xmlNode* element, std::string_view name) {
  const xmlAttr* attribute = FindAttribute(element, name);
  if (attribute == nullptr) {
    return std::nullopt;
  }
  const OwnedText text(xmlNodeListGetString(element->doc, attribute->children, 1));
  return std::string(View(text.get()));
}

void SetAttribute(xmlNode* element, std::string_view name, const std::string& value) {
  if (xmlAttr* attribute = FindAttribute(element, name)) {
    xmlSetNsProp(element, attribute->ns, attribute->name, AsXml(value.c_str()));
  } else {
    xmlNewProp(element, AsXml(std::string(name).c_str()), AsXml(value.c_str()));
  }
}

void RemoveAttribute(xmlNode* element, std::string_view name) {
  if (xmlAttr* attribute = FindAttribute(element, name)) {
    xmlRemoveProp(attribute);
  }
}

xmlNode* AddChild(xmlNode* parent, std::string_view name) {
  return xmlNewChild(parent, parent->ns, AsXml(std::string(name).c_str()), nullptr);
}

void SetText(xmlNode* element, const std::string& text) {
  xmlNodeSetContent(element, nullptr);
  xmlNodeAddContentLen(element, AsXml(text.data()), static_cast<int>(text.size()));
}

std::string TextOf(xmlNode* element) {
  const OwnedText text(xmlNodeGetContent(element));
  return std::string(View(text.get()));
}

void RemoveNode(xmlNode* node) {
  xmlUnlinkNode(node);
  xmlFreeNode(node);
}

void AppendEscaped(std::string& out, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        if (static_cast<unsigned char>(c) >= ' ' || c == '\n' || c == '\t') {
          out += c;
        }
    }
  }
}

}  // namespace quorvane::reporting
