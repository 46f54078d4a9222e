// SPDX-License-Identifier: BSL-1.0
/// @file
/// The outline between two outlines.

#ifndef CALCULATIONS_PROFILES_MORPHING_EVALUATION_OUTLINE_MEAN_H
#define CALCULATIONS_PROFILES_MORPHING_EVALUATION_OUTLINE_MEAN_H

#include "profiles/morphing/pairing/DetourMatch.h"
#include "profiles/morphing/pairing/PiecePairing.h"

#include <vector>

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

/// A node at which outlines begin: of the base, or of a detour.
struct FirstNode {
  enum class Of { Nothing, Base, Detour };
  Of of = Of::Nothing;
  std::size_t index = 0;  ///< of the piece of the base or of the detour
  std::size_t node = 0;   ///< of the detour
};

/// Two matched outlines.
struct MatchedOutlines {
  MatchedPieces ring;  ///< the base, clockwise; the floor, when there is one, comes last
  std::vector<MatchedDetour> detours;
  MorphPlacement placement;
  FirstNode first;
};

/// The node that is at a place of the start outline.
FirstNode firstNodeAt(const MatchedOutlines& outlines, const Point2D& place);

/// The mean (1 - t) start + t end, closed and clockwise.
///
/// Nodes and turnings are interpolated linearly. Matched pieces have parallel chords and tangents,
/// so every mean has the same headings: joints stay tangent and arcs meet their tangents. Pieces
/// shorter than kSamePoint are left out.
TurningChords meanOf(const MatchedOutlines& outlines, double t);

/// True when no mean crosses itself where the way is tried: at all ends of equal parts of it but
/// the first and the last, where the outlines are the inputs.
bool isWaySimple(const MatchedOutlines& outlines, int numParts = 4);

}  // namespace Calculations
}  // namespace Ruv

#endif
