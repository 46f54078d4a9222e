// SPDX-License-Identifier: BSL-1.0
/// @file
/// Images as PNG files.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_PNG_IMAGE_H
#define CALCULATIONS_APPS_COMMON_DRAWING_PNG_IMAGE_H

#include "common/drawing/Picture.h"

#include <string>

namespace Drawing {

/// The bytes of a file. Throws a std::runtime_error when there is not enough memory.
/// @{

/// @param pixelsPerMillimetre of the page; more than 32 767 pixels across or down are refused
std::string pngOf(const Picture& picture, double pixelsPerMillimetre);

/// A pixel for each cell; those without a colour are transparent.
std::string pngOf(const Raster& raster);

/// @}

}  // namespace Drawing

#endif
