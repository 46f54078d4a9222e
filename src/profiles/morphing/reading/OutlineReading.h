// SPDX-License-Identifier: BSL-1.0
/// @file
/// What an outline is made of: its floor, walls and crown, and what departs from them.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_OUTLINE_READING_H
#define CALCULATIONS_PROFILES_MORPHING_READING_OUTLINE_READING_H

#include "profiles/morphing/reading/Detour.h"

#include <vector>

namespace Ruv {
namespace Calculations {

/// An outline taken apart into its base and the detours from it. All chains lead clockwise: the
/// upper one from the left foot over the crown to the right foot, the floor back from the right
/// foot to the left one.
struct OutlineReading {
  TurningChords upper;  ///< the whole ring when there is no floor
  TurningChords floor = {};
  std::vector<Detour> detours = {};
  double firmness = 0.0;  ///< of the floor: 1 for a real one, 0 for none
  double sureness = 0.0;  ///< of the detours, likewise; no less than the firmness

  bool hasFloor() const { return !floor.empty(); }
  /// The base as a ring.
  TurningChords ring() const;

  void moveBy(const Point2D& shift);
  /// Clockwise about the origin.
  void turnBy(double angle);
};

/// Reads an outline that stands on a floor. One that does not is all upper chain.
OutlineReading readOutline(const TurningChords& elements);

/// How far (rad) an outline turns anticlockwise, all in all, short pieces counting for less: a
/// convex one nowhere.
double dentsOf(const TurningChords& ring);

/// True when an outline has no detours worth the name.
bool isNearlyConvex(const TurningChords& ring);

}  // namespace Calculations
}  // namespace Ruv

#endif
