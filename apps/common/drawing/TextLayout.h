// SPDX-License-Identifier: BSL-1.0
/// @file
/// One line of text, shaped: each letter in a font that has it, in the direction of its script.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_TEXT_LAYOUT_H
#define CALCULATIONS_APPS_COMMON_DRAWING_TEXT_LAYOUT_H

#include <memory>
#include <string>
#include <unordered_map>

using cairo_t = struct _cairo;              // NOLINT(bugprone-reserved-identifier): cairo's name
using PangoLayout = struct _PangoLayout;    // NOLINT(bugprone-reserved-identifier): Pango's name
using PangoContext = struct _PangoContext;  // NOLINT(bugprone-reserved-identifier): Pango's name

namespace Drawing {

struct TextStyle;

/// Releases what the text libraries count references of.
struct GObjectDeleter {
  void operator()(void* object) const;
};

/// Fonts without hinting: letters stand where they are measured, at every size and in every file.
class TextLayouts {
 public:
  TextLayouts();

  struct Extent {
    double width = 0.0;      ///< mm
    bool isReadable = true;  ///< false when a letter is in no installed font
  };
  /// Remembered, as finding a place for a label asks for it again and again.
  const Extent& extentOf(const std::string& words, const TextStyle& style);

  /// Writes in a surface in millimetres, the left end of the base line at the origin.
  void show(cairo_t* surface, const std::string& words, const TextStyle& style);
  /// Adds the outlines of the letters to the surface's path.
  void appendOutline(cairo_t* surface, const std::string& words, const TextStyle& style);

 private:
  using Layout = std::unique_ptr<PangoLayout, GObjectDeleter>;

  Layout layoutOf(const std::string& words, const TextStyle& style) const;

  std::unique_ptr<PangoContext, GObjectDeleter> m_context;
  std::unordered_map<std::string, Extent> m_extents;
};

}  // namespace Drawing

#endif
