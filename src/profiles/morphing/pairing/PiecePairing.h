// SPDX-License-Identifier: BSL-1.0
/// @file
/// Pairs of pieces, one of the start and one of the end outline, that become each other.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_PIECE_PAIRING_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_PIECE_PAIRING_H

#include "profiles/morphing/pairing/HeadingRun.h"

#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

/// What a piece of the start outline becomes in the end outline. One of the two may have no length:
/// then the piece grows or vanishes, at one place and with one turning.
struct MatchedPiece {
  TurningChord start;
  TurningChord end;
  bool isInvert = false;  ///< flat at the base heading and no part of an excursion
  int niche = 0;          ///< number of the excursion from 1, 0 for none
  bool isFloor = false;   ///< of a floor that is matched for itself
};

using MatchedPieces = std::vector<MatchedPiece>;

/// The pieces of two sides, and the length (m) of their excursions that have no counterpart.
struct MatchedSide {
  MatchedPieces pieces;
  double vanishing = 0.0;  ///< of the start outline
  double growing = 0.0;    ///< of the end outline
};

/// All pieces of two outlines.
struct MatchedSides {
  MatchedPieces left;
  MatchedPieces right;  ///< mirrored, from the base to the crown
  MatchedPieces floor;  ///< from right to left, when it is no part of the sides
};

/// Pairs two walks of the same steps, one by one.
MatchedSide pairSteps(const LevelSteps& start, const LevelSteps& end, int baseLevel,
                      const Point2D& startFoot, const Point2D& endFoot);

/// Pairs two main runs, level by level.
///
/// Flat steps are matched by fraction of their length, excursions with what turns alike, turning
/// steps with those between the same levels. Where headings are equal chords are parallel, so every
/// mean of both outlines keeps its headings; for convex outlines it is their Minkowski mean.
/// @param startFoot,endFoot where the runs begin
MatchedSide pairRuns(const HeadingRun& start, const HeadingRun& end, int baseLevel,
                     const Point2D& startFoot, const Point2D& endFoot);

}  // namespace Calculations
}  // namespace Ruv

#endif
