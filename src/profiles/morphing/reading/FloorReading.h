// SPDX-License-Identifier: BSL-1.0
/// @file
/// The parts of a floor.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_FLOOR_READING_H
#define CALCULATIONS_PROFILES_MORPHING_READING_FLOOR_READING_H

#include "profiles/morphing/reading/Detour.h"

#include <cstddef>
#include <optional>
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

/// The left half of a floor: how it goes on from one of its parts.
struct LeftHalf {
  TurningChords floor;  ///< without the part from which it is read
  std::vector<Detour> detours;
  double width = 0.0;        ///< of the parts, mouths left out
  double widestPart = 0.0;   ///< of them
  std::size_t numRead = 1;   ///< pieces of the outline, the first part included
  bool isLastJoined = true;  ///< to the part before it, without a detour
};

/// A floor as read from one of its parts to both sides.
struct FloorReading {
  TurningChords ring;           ///< the outline, begun with that part
  TurningChords ringFromRight;  ///< its mirror image, begun likewise
  LeftHalf left;
  LeftHalf right;  ///< mirrored
  double width = 0.0;
};

/// The floor that is widest; nothing when there is none.
std::optional<FloorReading> readWidestFloor(const TurningChords& elements);

}  // namespace Calculations
}  // namespace Ruv

#endif
