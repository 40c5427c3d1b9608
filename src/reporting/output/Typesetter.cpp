#include "reporting/output/Typesetter.h"

#include <algorithm>
#include <stdexcept>

namespace quorvane::reporting {
namespace {

constexpr double kBaseSize = 100;  // at which texts are measured
constexpr std::size_t kMostRuns = 50'000;
constexpr const char* kFamilies = "Noto Sans, DejaVu Sans, Sans";

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= ' ' && c < 0x7F; });
}

/// Digits have one width and no kerning in the faces used, so they need no shaping.
bool IsFigure(std::string_view text) {
  return std::ranges::all_of(
      text, [](char c) { return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '/'; });
}

std::size_t Place(char c) {
  return static_cast<unsigned char>(c);
}

double Points(int pango_units) {
  return static_cast<double>(pango_units) / PANGO_SCALE;
}

}  // namespace

Typesetter::Typesetter() {
  PangoFontMap* fonts = pango_cairo_font_map_get_default();
  context_ = pango_font_map_create_context(fonts);
  pango_cairo_context_set_resolution(context_, 72);
  pango_context_set_round_glyph_positions(context_, FALSE);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  pango_cairo_context_set_font_options(context_, options);
  cairo_font_options_destroy(options);
  Load(Of(Face::kRegular), false);
  Load(Of(Face::kBold), true);
  PangoFontMetrics* metrics = pango_font_get_metrics(Of(Face::kRegular).font, nullptr);
  ascent_ = Points(pango_font_metrics_get_ascent(metrics)) / kBaseSize;
  line_height_ = ascent_ + Points(pango_font_metrics_get_descent(metrics)) / kBaseSize;
  pango_font_metrics_unref(metrics);
}

Typesetter::~Typesetter() {
  for (FaceData& face : faces_) {
    pango_font_description_free(face.description);
    g_clear_object(&face.font);
  }
  g_object_unref(context_);
}

void Typesetter::Load(FaceData& face, bool bold) {
  face.description = pango_font_description_from_string(kFamilies);
  pango_font_description_set_weight(face.description,
                                    bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_absolute_size(face.description, kBaseSize * PANGO_SCALE);
  face.font = pango_context_load_font(context_, face.description);
  if (face.font == nullptr) {
    throw std::runtime_error("no font was found for the pages");
  }
  cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(face.font));
  face.cairo_face = cairo_scaled_font_get_font_face(scaled);
  for (char c = ' '; c < 0x7F; ++c) {
    const auto at = Place(c);
    cairo_glyph_t* glyph = nullptr;
    int count = 0;
    cairo_scaled_font_text_to_glyphs(scaled, 0, 0, &c, 1, &glyph, &count, nullptr, nullptr,
                                     nullptr);
    if (count == 1) {
      cairo_text_extents_t extents;
      cairo_scaled_font_glyph_extents(scaled, glyph, 1, &extents);
      face.glyphs[at] = *glyph;
      face.advances[at] = extents.x_advance / kBaseSize;
    }
    cairo_glyph_free(glyph);
  }
}

Layout Typesetter::MakeLayout(std::string_view text, Face face, double size) const {
  Layout layout(pango_layout_new(context_));
  PangoFontDescription* description =
      pango_font_description_copy(faces_[static_cast<std::size_t>(face)].description);
  pango_font_description_set_absolute_size(description, size * PANGO_SCALE);
  pango_layout_set_font_description(layout.get(), description);
  pango_font_description_free(description);
  pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
  return layout;
}

const Typesetter::Run& Typesetter::Shaped(std::string_view text, Face face) {
  auto& runs = Of(face).runs;
  const auto found = runs.find(std::string(text));
  if (found != runs.end()) {
    return found->second;
  }
  if (runs.size() >= kMostRuns) {
    runs.clear();
  }
  Run run;
  const Layout layout = MakeLayout(text, face, kBaseSize);
  const PangoLayoutLine* line = pango_layout_get_line_readonly(layout.get(), 0);
  for (const GSList* at = line->runs; at != nullptr; at = at->next) {
    const PangoGlyphString* glyphs = static_cast<const PangoGlyphItem*>(at->data)->glyphs;
    for (int i = 0; i < glyphs->num_glyphs; ++i) {
      const PangoGlyphInfo& info = glyphs->glyphs[i];
      if (info.glyph != PANGO_GLYPH_EMPTY) {
        run.glyphs.push_back(
            {info.glyph, run.width + Points(info.geometry.x_offset) / kBaseSize, 0});
      }
      run.width += Points(info.geometry.width) / kBaseSize;
    }
  }
  return runs.emplace(text, std::move(run)).first->second;
}

double Typesetter::Width(std::string_view text, Face face) {
  if (IsFigure(text)) {
    double width = 0;
    for (const char c : text) {
      width += Of(face).advances[Place(c)];
    }
    return width;
  }
  if (IsAscii(text)) {
    return Shaped(text, face).width;
  }
  int width = 0;
  pango_layout_get_size(MakeLayout(text, face, kBaseSize).get(), &width, nullptr);
  return Points(width) / kBaseSize;
}

int Typesetter::Lines(std::string_view text, Face face, double width) {
  const Layout layout = MakeLayout(text, face, kBaseSize);
  pango_layout_set_width(layout.get(), static_cast<int>(width * kBaseSize * PANGO_SCALE));
  pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
  return pango_layout_get_line_count(layout.get());
}

void Typesetter::Collect(cairo_t* page, std::string_view text, Face face, double x,
                         double baseline) {
  FaceData& data = Of(face);
  if (IsFigure(text)) {
    for (const char c : text) {
      const auto at = Place(c);
      data.collected.push_back({data.glyphs[at].index, x, baseline});
      x += data.advances[at] * size_;
    }
  } else if (IsAscii(text)) {
    for (const cairo_glyph_t& glyph : Shaped(text, face).glyphs) {
      data.collected.push_back({glyph.index, x + glyph.x * size_, baseline});
    }
  } else {
    const Layout layout = MakeLayout(text, face, size_);
    cairo_move_to(page, x, baseline);
    pango_cairo_show_layout_line(page, pango_layout_get_line_readonly(layout.get(), 0));
  }
}

void Typesetter::Flush(cairo_t* page) {
  for (FaceData& face : faces_) {
    cairo_set_font_face(page, face.cairo_face);
    cairo_set_font_size(page, size_);
    cairo_show_glyphs(page, face.collected.data(), static_cast<int>(face.collected.size()));
    face.collected.clear();
  }
}

void Typesetter::Draw(cairo_t* page, std::string_view text, Face face, double size, double x,
                      double top, double width, Alignment alignment) {
  constexpr std::array kAlignments{PANGO_ALIGN_LEFT, PANGO_ALIGN_RIGHT, PANGO_ALIGN_CENTER};
  const Layout layout = MakeLayout(text, face, size);
  pango_layout_set_width(layout.get(), static_cast<int>(width * PANGO_SCALE));
  pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
  pango_layout_set_alignment(layout.get(), kAlignments[static_cast<std::size_t>(alignment)]);
  cairo_move_to(page, x, top);
  pango_cairo_show_layout(page, layout.get());
}

}  // namespace quorvane::reporting
