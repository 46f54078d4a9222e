// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/FloorReading.h"

#include "profiles/morphing/reading/ChainParts.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// A floor falls or rises by no more than this, as a slope.
constexpr double kSteepestFloor = 0.466;

/// Parts of one floor differ by no more than this in slope.
constexpr double kLargestKink = 0.35;

/// Over the mouth of a ditch one part of a floor is no more than this part of the mouth beside the
/// continuation of the other.
constexpr double kLargestStep = 0.6;

/// True when a piece leads to the left and is nearly level.
bool leadsLeft(const TurningChord& piece) {
  const Point2D chord = piece.chord();
  return chord.x < 0.0 && std::abs(chord.y) <= -chord.x * kSteepestFloor;
}

/// A part of a floor or of a flat invert.
bool isFloorLike(const TurningChord& piece) {
  return leadsLeft(piece) && kCurvedFloor(std::abs(piece.turning)) > 0.0;
}

/// Seen alike from either part: the mean of both slopes is what the mouth between them is compared
/// with.
bool continuesFloor(const TurningChord& last, const TurningChord& next, bool isNeighbour) {
  if (!isFloorLike(next) || std::abs(slopeOf(next) - slopeOf(last)) > kLargestKink) return false;
  const double slope = (slopeOf(last) + slopeOf(next)) / 2.0;
  const Point2D gap = next.start - last.end;
  return isNeighbour || (gap.x < 0.0 && std::abs(gap.y - slope * gap.x) <= -gap.x * kLargestStep);
}

}  // namespace

double Fading::operator()(double value) const {
  return std::clamp((none - value) / (none - full), 0.0, 1.0);
}

double slopeOf(const TurningChord& piece) {
  const Point2D chord = piece.chord();
  return chord.y / chord.x;
}

bool isLedge(const TurningChord& piece) { return !piece.isArc() && leadsLeft(piece); }

TurningChords::const_iterator mainPartOf(const TurningChords& elements) {
  auto main = elements.end();
  for (auto piece = elements.begin(); piece != elements.end(); ++piece) {
    if (!isFloorLike(*piece)) continue;
    if (main == elements.end() || piece->chord().x < main->chord().x) main = piece;
  }
  return main;
}

LeftHalf readFloorLeftwards(const TurningChords& ring) {
  LeftHalf half;
  std::size_t last = 0;
  for (std::size_t next = 1; next < ring.size(); ++next) {
    if (!continuesFloor(ring[last], ring[next], next == last + 1)) continue;
    if (next > last + 1) {
      half.detours.push_back({DetourSite::Floor, part(ring, last + 1, next)});
      half.floor.push_back(continuedTo(ring[next].start, ring[last]));
    }
    half.floor.push_back(ring[next]);
    half.isLastJoined = next == last + 1;
    last = next;
  }
  half.numRead = last + 1;
  return half;
}

}  // namespace Calculations
}  // namespace Ruv
