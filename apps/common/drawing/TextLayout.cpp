// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/TextLayout.h"

#include "common/drawing/Picture.h"

#include <pango/pangocairo.h>

namespace Drawing {

namespace {

/// Pango counts in whole units of 1/1024 of its base unit, and knows base units for pixels: a
/// millimetre is given many, so that widths are exact to a micrometre.
constexpr double kLayoutUnitsPerMillimetre = 100.0;

/// Calls a function of Pango in a surface scaled to its units.
template <class Call>
void inLayoutUnits(cairo_t* surface, const Call& call) {
  cairo_save(surface);
  cairo_scale(surface, 1.0 / kLayoutUnitsPerMillimetre, 1.0 / kLayoutUnitsPerMillimetre);
  cairo_move_to(surface, 0.0, 0.0);
  call();
  cairo_restore(surface);
}

}  // namespace

void GObjectDeleter::operator()(void* object) const { g_object_unref(object); }

TextLayouts::TextLayouts()
    : m_context(pango_font_map_create_context(pango_cairo_font_map_get_default())) {
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  pango_cairo_context_set_font_options(m_context.get(), options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(m_context.get(), FALSE);
}

TextLayouts::Layout TextLayouts::layoutOf(const std::string& words, const TextStyle& style) const {
  Layout layout(pango_layout_new(m_context.get()));
  PangoFontDescription* font = pango_font_description_new();
  pango_font_description_set_family_static(font, "sans-serif");
  pango_font_description_set_weight(font, style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_absolute_size(font,
                                           style.size * kLayoutUnitsPerMillimetre * PANGO_SCALE);
  pango_layout_set_font_description(layout.get(), font);
  pango_font_description_free(font);
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  pango_layout_set_text(layout.get(), words.data(), static_cast<int>(words.size()));
  return layout;
}

const TextLayouts::Extent& TextLayouts::extentOf(const std::string& words, const TextStyle& style) {
  const std::string key = (style.bold ? "b" : "r") + std::to_string(style.size) + words;
  const auto [found, isNew] = m_extents.try_emplace(key);
  if (isNew) {
    const Layout layout = layoutOf(words, style);
    PangoRectangle extent{};
    pango_layout_get_extents(layout.get(), nullptr, &extent);
    found->second.width = extent.width / (kLayoutUnitsPerMillimetre * PANGO_SCALE);
    found->second.isReadable = pango_layout_get_unknown_glyphs_count(layout.get()) == 0;
  }
  return found->second;
}

void TextLayouts::show(cairo_t* surface, const std::string& words, const TextStyle& style) {
  const Layout layout = layoutOf(words, style);
  inLayoutUnits(surface, [&] {
    pango_cairo_show_layout_line(surface, pango_layout_get_line_readonly(layout.get(), 0));
  });
}

void TextLayouts::appendOutline(cairo_t* surface, const std::string& words,
                                const TextStyle& style) {
  const Layout layout = layoutOf(words, style);
  inLayoutUnits(surface, [&] {
    pango_cairo_layout_line_path(surface, pango_layout_get_line_readonly(layout.get(), 0));
  });
}

}  // namespace Drawing
