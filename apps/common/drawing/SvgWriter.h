// SPDX-License-Identifier: BSL-1.0
/// @file
/// Pictures as SVG files.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_SVG_WRITER_H
#define CALCULATIONS_APPS_COMMON_DRAWING_SVG_WRITER_H

#include "common/drawing/Picture.h"

#include <string>

namespace Drawing {

/// A small text: words are words, arcs are arcs, and points that lie on a line between others are
/// left out.
/// Fonts are those of the reader; the usual ones are narrower than what the sheets leave room for.
/// @param idPrefix begins the names inside the file; those of pictures in one page must differ
std::string svgOf(const Picture& picture, const std::string& idPrefix = "");

}  // namespace Drawing

#endif
