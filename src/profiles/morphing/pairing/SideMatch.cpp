// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/pairing/SideMatch.h"

#include "profiles/morphing/assembly/RingAssembly.h"
#include "profiles/morphing/evaluation/OutlineMean.h"

#include <algorithm>
#include <array>

namespace Ruv {
namespace Calculations {

namespace {

/// A bench leaves the heading of the invert along its front, turning clockwise first, or that of
/// the wall along its top, turning anticlockwise first. A niche is one excursion from the wall, or
/// its floor and its roof are two. Both outlines should be read alike, so each of these preferences
/// is tried on both.
///
/// The order matters when the outline would cross itself. Read by its dents, which turn
/// anticlockwise first, a star-shaped outline hardly ever does.
constexpr double kPreferred = 1e-3;
constexpr std::array<ExcursionCosts, 4> kReadings = {{{1.0, kPreferred, 1.0, 1.0},
                                                      {1.0, 1.0, 1.0, 1.0},
                                                      {kPreferred, 1.0, 1.0, 1.0},
                                                      {1.0, 1.0, kPreferred, 1.0}}};

/// What grows or vanishes counts as if this part of the whole side were moved by its length. With
/// less a bench would sink where it could become narrower, with more the invert would be lifted to
/// be the floor of a niche.
constexpr double kChange = 0.25;

/// What vanishes while something else grows counts in full: a bench becomes another bench.
constexpr double kExchange = 1.0;

/// Efforts that differ by less than this part are equal.
constexpr double kSameEffort = 1e-9;

bool leadsUp(const LevelSteps& steps, const HeadingLevels& levels) {
  return !steps.empty() && steps.front().from == levels.base() && steps.back().to == levels.crown();
}

bool isSameStep(const LevelStep& a, const LevelStep& b) {
  return a.kind == b.kind && a.from == b.from && a.to == b.to;
}

using Readings = std::array<MatchedSide, kReadings.size()>;

std::optional<Readings> readingsOf(const MatchedLines& lines) {
  const auto start = unitSteps(lines.start, lines.levels);
  const auto end = unitSteps(lines.end, lines.levels);
  if (!start || !end) return std::nullopt;
  Readings readings;
  for (std::size_t i = 0; i < kReadings.size(); ++i) {
    const auto startRun = mainRunOf(*start, lines.levels.crown(), kReadings[i]);
    const auto endRun = mainRunOf(*end, lines.levels.crown(), kReadings[i]);
    if (!startRun || !endRun) return std::nullopt;
    readings[i] = pairRuns(*startRun, *endRun, lines.levels.base(), lines.startFoot, lines.endFoot);
  }
  return readings;
}

Point2D middleOf(const TurningChord& piece) { return (piece.start + piece.end) * 0.5; }

/// Lengths times the distances by which they are moved (m2), and what changes beside that.
double effortOf(const MatchedSide& side) {
  double moved = 0.0;
  double lengths = 0.0;
  for (const MatchedPiece& piece : side.pieces) {
    const double length = (piece.start.length() + piece.end.length()) / 2.0;
    moved += length * (middleOf(piece.end) - middleOf(piece.start)).length();
    lengths += length;
  }
  const double changed = side.vanishing + side.growing;
  const double exchanged = std::min(side.vanishing, side.growing);
  return moved + lengths * (kChange * changed + kExchange * exchanged);
}

/// The first of equally easy ones: a ditch as deep as the floor beside it is wide would otherwise
/// be read differently on either side.
MatchedPieces easiest(const Readings& readings) {
  std::array<double, kReadings.size()> efforts{};
  std::transform(readings.begin(), readings.end(), efforts.begin(), effortOf);
  const double least = *std::min_element(efforts.begin(), efforts.end());
  const auto found = std::find_if(efforts.begin(), efforts.end(), [least](double effort) {
    return effort <= least * (1.0 + kSameEffort);
  });
  return readings[found == efforts.end() ? 0 : static_cast<std::size_t>(found - efforts.begin())]
      .pieces;
}

bool isWaySimple(const MatchedSides& sides) {
  return isWaySimple(MatchedOutlines{ringOf(sides), {}, {}, {}});
}

}  // namespace

std::optional<MatchedLines> matchLines(const SideWalk& start, const SideWalk& end) {
  MatchedLines lines;
  lines.levels = HeadingLevels(start, end);
  lines.start = levelSteps(start, lines.levels);
  lines.end = levelSteps(end, lines.levels);
  lines.startFoot = start.front().chord.start;
  lines.endFoot = end.front().chord.start;
  if (!leadsUp(lines.start, lines.levels) || !leadsUp(lines.end, lines.levels)) return std::nullopt;
  return lines;
}

bool areAlike(const MatchedLines& lines) {
  return std::equal(lines.start.begin(), lines.start.end(), lines.end.begin(), lines.end.end(),
                    isSameStep);
}

MatchedSides matchAlike(const MatchedLines& left, const MatchedLines& right) {
  const auto paired = [](const MatchedLines& lines) {
    return pairSteps(lines.start, lines.end, lines.levels.base(), lines.startFoot, lines.endFoot)
        .pieces;
  };
  return {paired(left), paired(right), {}};
}

std::optional<MatchedSides> matchSegments(const MatchedLines& left, const MatchedLines& right) {
  const auto leftReadings = readingsOf(left);
  const auto rightReadings = readingsOf(right);
  if (!leftReadings || !rightReadings) return std::nullopt;
  const MatchedSides best = {easiest(*leftReadings), easiest(*rightReadings), {}};
  if (isWaySimple(best)) return best;
  for (std::size_t i = 0; i < kReadings.size(); ++i) {
    const MatchedSides sides = {(*leftReadings)[i].pieces, (*rightReadings)[i].pieces, {}};
    if (isWaySimple(sides)) return sides;
  }
  return best;
}

}  // namespace Calculations
}  // namespace Ruv
