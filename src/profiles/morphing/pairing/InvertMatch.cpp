// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/pairing/InvertMatch.h"

#include "profiles/morphing/reading/SegmentMerging.h"

#include <algorithm>

namespace Ruv {
namespace Calculations {

namespace {

/// An element that leaves the base with the level tangent and ends at a corner.
bool beginsWithInvert(const LevelSteps& side, int baseLevel) {
  return side.size() > 1 && side[0].kind != WalkStepKind::Corner && side[0].from == baseLevel &&
         side[1].kind == WalkStepKind::Corner;
}

/// True when the walls of both outlines rise more steeply than either invert ends: convex corners
/// then stay convex.
bool risesFromInvert(const MatchedLines& lines) {
  if (!beginsWithInvert(lines.start, lines.levels.base())) return false;
  if (!beginsWithInvert(lines.end, lines.levels.base())) return false;
  return std::max(lines.start[0].to, lines.end[0].to) <=
         std::min(lines.start[1].to, lines.end[1].to);
}

/// Both parts of the invert, from right to left.
struct InvertParts {
  TurningChord right;
  TurningChord left;

  InvertParts(const LevelSteps& leftSide, const LevelSteps& rightSide)
      : right(rightSide[0].chord.reversed().mirrored()), left(leftSide[0].chord) {}

  bool isOneElement() const { return isContinued(right, left); }
  TurningChord whole() const { return joined(right, left); }
};

/// Without its length the invert is a corner, or none when it is flat.
void takeOff(LevelSteps& side, Point2D& foot) {
  LevelStep& invert = side.front();
  foot = invert.chord.end;
  invert.kind = WalkStepKind::Corner;
  invert.chord = {foot, foot, invert.chord.turning};
  if (invert.isFlat()) side.erase(side.begin());
}

void takeOff(MatchedLines& lines) {
  takeOff(lines.start, lines.startFoot);
  takeOff(lines.end, lines.endFoot);
}

}  // namespace

std::optional<MatchedPiece> takeInvert(MatchedLines& left, MatchedLines& right) {
  if (!risesFromInvert(left) || !risesFromInvert(right)) return std::nullopt;
  const InvertParts start(left.start, right.start);
  const InvertParts end(left.end, right.end);
  if (!start.isOneElement() || !end.isOneElement()) return std::nullopt;
  const MatchedPiece invert{start.whole(), end.whole(), true, 0};
  if (!invert.start.isArc() && !invert.end.isArc()) return std::nullopt;
  takeOff(left);
  takeOff(right);
  return invert;
}

}  // namespace Calculations
}  // namespace Ruv
