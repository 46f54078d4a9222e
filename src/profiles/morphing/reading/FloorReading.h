// SPDX-License-Identifier: BSL-1.0
/// @file
/// The parts of a floor.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_FLOOR_READING_H
#define CALCULATIONS_PROFILES_MORPHING_READING_FLOOR_READING_H

#include "profiles/morphing/reading/Detour.h"

#include <cstddef>
#include <vector>

namespace Ruv {
namespace Calculations {

/// From full (1) to none (0), between two values of what is looked at.
struct Fading {
  double full;
  double none;

  double operator()(double value) const;
};

/// How far (rad) a flat invert may be curved to count as a floor.
constexpr Fading kCurvedFloor{1.2, 1.5};

/// A straight line that is not plumb.
struct FloorLine {
  Point2D through;
  double slope = 0.0;

  double heightOf(const Point2D& p) const { return p.y - through.y - slope * (p.x - through.x); }
};

/// Slope of a chord.
double slopeOf(const TurningChord& piece);

/// True when a straight leads to the left and is nearly level: the top of a bench.
bool isLedge(const TurningChord& piece);

/// The widest part of a floor; the end when there is none.
TurningChords::const_iterator mainPartOf(const TurningChords& elements);

/// The left half of an outline as read: how the floor goes on from its main part, and the rest.
struct LeftHalf {
  TurningChords floor;  ///< without the main part
  std::vector<Detour> detours;
  std::size_t numRead = 0;   ///< pieces, main part included
  bool isLastJoined = true;  ///< to the part before it, without a detour
};

/// Goes along a floor to the left, over the mouths of ditches.
/// @param ring begins with the main part of the floor
LeftHalf readFloorLeftwards(const TurningChords& ring);

}  // namespace Calculations
}  // namespace Ruv

#endif
