// SPDX-License-Identifier: BSL-1.0
/// @file
/// Matches the sides of two outlines: first their headings, then their segments.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_SIDE_MATCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_SIDE_MATCH_H

#include "profiles/morphing/pairing/HeadingLevels.h"
#include "profiles/morphing/pairing/PiecePairing.h"

#include <optional>

namespace Ruv {
namespace Calculations {

/// The same side of both outlines, with the headings at which their lines and tangents are
/// parallel.
struct MatchedLines {
  HeadingLevels levels;
  LevelSteps start;
  LevelSteps end;
  Point2D startFoot;  ///< where the steps begin
  Point2D endFoot;
};

/// Nothing when a side does not lead from the base heading up to the crown heading.
std::optional<MatchedLines> matchLines(const SideWalk& start, const SideWalk& end);

/// True when both sides do the same things in the same order, so that they differ in lengths only.
bool areAlike(const MatchedLines& lines);

/// Pairs sides that are alike one by one. A bench that is low and wide becomes one that is high and
/// narrow, which is more than matching by headings alone would find.
MatchedSides matchAlike(const MatchedLines& left, const MatchedLines& right);

/// Pairs any two outlines: of several ways the one on which least has to be moved and grown, or
/// another one when the outline would cross itself on that. Nothing when a side has too many steps
/// or lengths that are not finite.
std::optional<MatchedSides> matchSegments(const MatchedLines& left, const MatchedLines& right);

}  // namespace Calculations
}  // namespace Ruv

#endif
