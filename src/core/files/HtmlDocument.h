#pragma once

#include "core/files/TextTable.h"

#include <memory>
#include <optional>

namespace quorvane::files {

/// A web page in UTF-8, UTF-16 or the letters that it names, read as browsers do: what is broken in
/// it is passed over.
class HtmlDocument {
 public:
  explicit HtmlDocument(std::string_view html);
  ~HtmlDocument();
  HtmlDocument(const HtmlDocument&) = delete;

  /// Whether a text, or as much of it as is given, begins as a web page does, whatever the file is
  /// called. Comments may stand before the page.
  static bool IsOne(std::string_view bytes);

  /// What the page shows, from top to bottom: a row for each row of its innermost tables, a cell
  /// that spans several columns with empty ones behind it, and a row for each other line of text,
  /// preformatted text included. Throws TableError beyond the bounds of a table, and for a page
  /// that shows nothing.
  TextTable Rows() const;

  /// The addresses that the page links to, in its order, as they are written.
  std::vector<std::string> Links() const;

  /// The address to which the element of that id, or the first one within it, leads.
  std::optional<std::string> LinkAt(std::string_view id) const;

  /// The rows of the table of that id; nullopt when there is none. Cells of tables within it are
  /// not told apart from its own. Throws TableError beyond the bounds of a table.
  std::optional<TextTable> TableAt(std::string_view id) const;

 private:
  struct Document;

  std::unique_ptr<Document> document_;
};

}  // namespace quorvane::files
