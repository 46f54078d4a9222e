// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/FloorReading.h"

#include "profiles/morphing/reading/ChainParts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// A floor falls or rises by no more than this, as a slope.
constexpr double kSteepestFloor = 0.466;

/// Parts of one floor differ by no more than this in slope.
constexpr double kLargestKink = 0.35;

/// Over the mouth of a ditch one part of a floor is no more than this part of the mouth beside the
/// continuation of the other: what is higher is a walkway, and the ditch beside it a part of that.
constexpr double kLargestStep = 0.3;

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

/// Goes along a floor to the left, over the mouths of ditches.
/// @param ring begins with the part of the floor from which it is read
LeftHalf readLeftwards(const TurningChords& ring) {
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
    half.width -= ring[next].chord().x;
    half.widestPart = std::max(half.widestPart, -ring[next].chord().x);
    last = next;
  }
  half.numRead = last + 1;
  return half;
}

/// The floor of which a piece is a part. The outline is begun with that piece and read from there
/// to the left, and its mirror image likewise; so both halves are read alike.
FloorReading readAround(TurningChords::const_iterator piece, const TurningChords& elements) {
  FloorReading floor;
  floor.ring.assign(piece, elements.end());
  floor.ring.insert(floor.ring.end(), elements.begin(), piece);
  floor.ringFromRight = mirrored(floor.ring);
  std::rotate(floor.ringFromRight.begin(), floor.ringFromRight.end() - 1,
              floor.ringFromRight.end());
  floor.left = readLeftwards(floor.ring);
  floor.right = readLeftwards(floor.ringFromRight);
  floor.width = floor.left.width + floor.right.width - piece->chord().x;
  return floor;
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

/// A floor is read from its widest part: from there the mouth of a ditch does not lead up to a
/// bench. The mouths do not count: two benches of one height would otherwise make a floor with a
/// ditch of what is a floor between benches.
std::optional<FloorReading> readWidestFloor(const TurningChords& elements) {
  std::optional<FloorReading> widest;
  for (auto piece = elements.begin(); piece != elements.end(); ++piece) {
    if (!isFloorLike(*piece)) continue;
    FloorReading floor = readAround(piece, elements);
    const double wider = std::max(floor.left.widestPart, floor.right.widestPart);
    if (wider > -piece->chord().x) continue;
    if (!widest || floor.width > widest->width) widest = std::move(floor);
  }
  return widest;
}

}  // namespace Calculations
}  // namespace Ruv
