/// @file
/// The outline between two outlines.

#ifndef CALCULATIONS_PROFILES_MORPHING_OUTLINE_MEAN_H
#define CALCULATIONS_PROFILES_MORPHING_OUTLINE_MEAN_H

#include "profiles/morphing/PiecePairing.h"

namespace Ruv {
namespace Calculations {

/// How matched outlines lie in the plane: where their bases are, and by which angle (rad,
/// clockwise) each has been turned to be matched.
struct MorphPlacement {
  Point2D startBase;
  Point2D endBase;
  double startTurned = 0.0;
  double endTurned = 0.0;
};

/// The mean (1 - t) start + t end, closed and clockwise.
///
/// Nodes and turnings are interpolated linearly. Matched pieces have parallel chords and tangents,
/// so every mean has the same headings: joints stay tangent and arcs meet their tangents. Pieces
/// shorter than kSamePoint are left out.
TurningChords meanOf(const MatchedPieces& ring, const MorphPlacement& placement, double t);

}  // namespace Calculations
}  // namespace Ruv

#endif
