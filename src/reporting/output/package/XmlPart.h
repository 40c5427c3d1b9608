#pragma once

#include <libxml/tree.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::reporting {

struct FreeXml {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using XmlDocument = std::unique_ptr<xmlDoc, FreeXml>;

/// Reads an XML text; loads nothing from elsewhere. Throws std::runtime_error.
XmlDocument ParseXml(const std::string& content);
std::string WriteXml(xmlDoc& document);

/// The content of an element as XML text.
std::string InnerXml(xmlNode* element);

/// Elements are found by their local name, with any prefix.
bool Is(const xmlNode* node, std::string_view name);
xmlNode* Child(const xmlNode* parent, std::string_view name);
std::vector<xmlNode*> Children(const xmlNode* parent, std::string_view name);

/// All elements of that name below a node, at any depth.
std::vector<xmlNode*> Descendants(xmlNode* parent, std::string_view name);

/// Attributes without regard to their prefix.
std::optional<std::string> Attribute(const xmlNode* element, std::string_view name);
void SetAttribute(xmlNode* element, std::string_view name, const std::string& value);
void RemoveAttribute(xmlNode* element, std::string_view name);

/// A new last child in the namespace of its parent.
xmlNode* AddChild(xmlNode* parent, std::string_view name);
void SetText(xmlNode* element, const std::string& text);
std::string TextOf(xmlNode* element);
void RemoveNode(xmlNode* node);

/// Text as the content of an element or a quoted attribute; characters that XML does not allow are
/// left out.
void AppendEscaped(std::string& out, std::string_view text);

}  // namespace quorvane::reporting
