// SPDX-License-Identifier: BSL-1.0
/// @file
/// Paints a picture with cairo, for files made of pixels and for PDF.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_CAIRO_RENDERER_H
#define CALCULATIONS_APPS_COMMON_DRAWING_CAIRO_RENDERER_H

#include "common/drawing/Picture.h"

#include <cairo.h>

#include <memory>

namespace Drawing {

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

/// White paper with the picture on it. Throws a std::runtime_error when cairo cannot paint it.
void paint(const Picture& picture, cairo_surface_t* surface, double unitsPerMillimetre);

}  // namespace Drawing

#endif
