#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quorvane::files {

/// Reads an XML text from start to end, an element or a piece of text at a time. Names are without
/// their prefixes. Throws TableError where the text is no XML. Entities of the text's own are not
/// replaced.
class XmlStream {
 public:
  explicit XmlStream(std::string_view xml);
  ~XmlStream();
  XmlStream(const XmlStream&) = delete;

  /// Moves on; false at the end.
  bool Next();

  bool Starts(const char* element) const;  ///< an element begins, or is empty
  bool Ends(const char* element) const;    ///< an element ends; not reported for an empty one
  bool IsEmpty() const;                    ///< the element that begins has no contents
  bool IsText() const;

  std::string Text() const;

  /// An attribute of the element that begins; empty when it has none of that name.
  std::string Attribute(const char* name) const;

  /// Passes over the contents of the element that begins.
  void Skip();

 private:
  bool Is(int type, const char* element) const;

  struct Reader;
  std::unique_ptr<Reader> reader_;
  bool skipped_ = false;
};

}  // namespace quorvane::files
