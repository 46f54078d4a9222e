// SPDX-License-Identifier: BSL-1.0
/// @file
/// The grid of the clipping library.

#ifndef CALCULATIONS_PROFILES_PATHS_GRID_UNITS_H
#define CALCULATIONS_PROFILES_PATHS_GRID_UNITS_H

#include <Calculations/ClipperLib.h>
#include <Calculations/Points.h>

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

constexpr double kUnitsPerMetre = 10000.0;

/// Limit of converted magnitudes: far beyond any site, far within what the clipper computes with.
constexpr double kMostUnits = 1e15;

/// Rounds as PathHelper::asClipperLibUnits tells.
inline ClipperLib::cInt gridUnits(double metres) {
  const double units = metres * kUnitsPerMetre + 0.5;
  if (std::isnan(units)) return 0;
  return static_cast<ClipperLib::cInt>(std::max(-kMostUnits, std::min(units, kMostUnits)));
}

inline ClipperLib::IntPoint onGrid(const Point2D& p) {
  return ClipperLib::IntPoint(gridUnits(p.x), gridUnits(p.y));
}

inline double metresOf(ClipperLib::cInt units) {
  return static_cast<double>(units) / kUnitsPerMetre;
}

inline Point2D fromGrid(const ClipperLib::IntPoint& p) { return {metresOf(p.X), metresOf(p.Y)}; }

inline double squareMetresOf(double squareUnits) {
  return squareUnits / (kUnitsPerMetre * kUnitsPerMetre);
}

inline void appendOnGrid(ClipperLib::Path& points, const Point2D& p) {
  points.emplace_back(gridUnits(p.x), gridUnits(p.y));
}

}  // namespace Calculations
}  // namespace Ruv

#endif
