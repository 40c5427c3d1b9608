#pragma once

#include "reporting/document/ReportDocument.h"

#include <cairo.h>
#include <pango/pangocairo.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorvane::reporting {

enum class Face : std::uint8_t { kRegular, kBold };

template <auto destroy>
struct Destroy {
  template <class T>
  void operator()(T* object) const {
    destroy(object);
  }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroy<cairo_surface_destroy>>;
using Canvas = std::unique_ptr<cairo_t, Destroy<cairo_destroy>>;
using Layout = std::unique_ptr<PangoLayout, Destroy<g_object_unref>>;

/// Sets lines of text in any script. Texts of plain ASCII, which nearly all cells are, are shaped
/// once and then only placed; the glyphs of a page are drawn together. Widths are for type of size
/// 1 and grow with the size.
class Typesetter {
 public:
  Typesetter();
  ~Typesetter();
  Typesetter(const Typesetter&) = delete;

  double Width(std::string_view text, Face face);

  /// How many lines the text takes when it is broken to a width (for type of size 1).
  int Lines(std::string_view text, Face face, double width);

  /// Height of a line, and of its part above the base line, for type of size 1.
  double LineHeight() const { return line_height_; }
  double Ascent() const { return ascent_; }

  /// Puts a line of the collected size on the page; `x` is its left end. Shown by Flush.
  void Collect(cairo_t* page, std::string_view text, Face face, double x, double baseline);
  void SetSize(double size) { size_ = size; }

  /// Draws what was collected.
  void Flush(cairo_t* page);

  /// Draws a text at once in a size of its own, broken into lines of `width` points; `top` is its
  /// upper edge.
  void Draw(cairo_t* page, std::string_view text, Face face, double size, double x, double top,
            double width, Alignment alignment);

 private:
  struct Run {
    std::vector<cairo_glyph_t> glyphs;  ///< for type of size 1, from (0, 0)
    double width = 0;
  };
  struct FaceData {
    PangoFontDescription* description = nullptr;
    PangoFont* font = nullptr;
    cairo_font_face_t* cairo_face = nullptr;
    std::array<cairo_glyph_t, 128> glyphs{};
    std::array<double, 128> advances{};
    std::unordered_map<std::string, Run> runs;
    std::vector<cairo_glyph_t> collected;
  };

  FaceData& Of(Face face) { return faces_[static_cast<std::size_t>(face)]; }
  void Load(FaceData& face, bool bold);
  Layout MakeLayout(std::string_view text, Face face, double size) const;
  const Run& Shaped(std::string_view text, Face face);

  PangoContext* context_ = nullptr;
  std::array<FaceData, 2> faces_;
  double line_height_ = 0;
  double ascent_ = 0;
  double size_ = 1;
};

}  // namespace quorvane::reporting
