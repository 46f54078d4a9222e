// SPDX-License-Identifier: BSL-1.0
/// @file
/// How callers would otherwise compute the areas between two outlines: with the polygon clipper
/// alone, or with GEOS.

#ifndef CALCULATIONS_BENCHMARKS_CLIPPING_PEERS_H
#define CALCULATIONS_BENCHMARKS_CLIPPING_PEERS_H

#include "support/GeosHandles.h"

#include <Calculations/Points.h>

#include <clipper.hpp>

#include <cstddef>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::Point2D;

/// Square metres.
struct OverAndUnder {
  double over = 0.0;
  double under = 0.0;
};

/// @name The clipper alone, on a grid of 0.1 mm
/// @{

/// Converts, orients and cleans both outlines, cuts each from the other and cleans what is left.
OverAndUnder clipOverAndUnder(const std::vector<Point2D>& reference,
                              const std::vector<Point2D>& excavation);

/// The outline offset outwards.
/// @return the number of points of the result
std::size_t offsetOutline(const std::vector<Point2D>& outline, double distance);

/// The area excavated beyond a distance from the reference, and of the band from the reference to
/// that distance beside those places: the chain of offsets and clippings with nothing between.
double clipGeologicalArea(const std::vector<Point2D>& reference,
                          const std::vector<Point2D>& excavation, double distance);
/// @}

/// @name GEOS, in doubles
/// @{
OverAndUnder geosOverAndUnder(const GeosContext& geos, const std::vector<Point2D>& reference,
                              const std::vector<Point2D>& excavation);

/// The area excavated beyond a distance from the reference.
double geosAreaBeyond(const GeosContext& geos, const std::vector<Point2D>& reference,
                      const std::vector<Point2D>& excavation, double distance);
/// @}

}  // namespace Benchmarks

#endif
