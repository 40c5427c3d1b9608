#include "core/files/XmlStream.h"

#include "core/files/TextTable.h"
#include "core/text/Tr.h"

#include <libxml/xmlreader.h>

namespace quorvane::files {
namespace {

[[noreturn]] void Unreadable() {
  Fail(Tr("Files", "The workbook cannot be read."));
}

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

}  // namespace

struct XmlStream::Reader {
  xmlTextReader* xml = nullptr;
};

XmlStream::XmlStream(std::string_view xml) : reader_(std::make_unique<Reader>()) {
  reader_->xml =
      xml.size() > kLargestUnpacked
          ? nullptr
          : xmlReaderForMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr,
                               XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  if (reader_->xml == nullptr) {
    Unreadable();
  }
}

XmlStream::~XmlStream() {
  xmlFreeTextReader(reader_->xml);
}

bool XmlStream::Next() {
  const int status = skipped_ ? 1 : xmlTextReaderRead(reader_->xml);
  skipped_ = false;
  if (status < 0) {
    Unreadable();
  }
  return status == 1;
}

bool XmlStream::Is(int type, const char* element) const {
  return xmlTextReaderNodeType(reader_->xml) == type &&
         View(xmlTextReaderConstLocalName(reader_->xml)) == element;
}

bool XmlStream::Starts(const char* element) const {
  return Is(XML_READER_TYPE_ELEMENT, element);
}

bool XmlStream::Ends(const char* element) const {
  return Is(XML_READER_TYPE_END_ELEMENT, element);
}

bool XmlStream::IsEmpty() const {
  return xmlTextReaderIsEmptyElement(reader_->xml) == 1;
}

bool XmlStream::IsText() const {
  const int type = xmlTextReaderNodeType(reader_->xml);
  return type == XML_READER_TYPE_TEXT || type == XML_READER_TYPE_CDATA ||
         type == XML_READER_TYPE_SIGNIFICANT_WHITESPACE;
}

std::string XmlStream::Text() const {
  return std::string(View(xmlTextReaderConstValue(reader_->xml)));
}

std::string XmlStream::Attribute(const char* name) const {
  std::string value;
  while (xmlTextReaderMoveToNextAttribute(reader_->xml) == 1) {
    if (View(xmlTextReaderConstLocalName(reader_->xml)) == name) {
      value = View(xmlTextReaderConstValue(reader_->xml));
      break;
    }
  }
  xmlTextReaderMoveToElement(reader_->xml);
  return value;
}

void XmlStream::Skip() {
  const int status = xmlTextReaderNext(reader_->xml);
  if (status < 0) {
    Unreadable();
  }
  skipped_ = status == 1;
}

}  // namespace quorvane::files
