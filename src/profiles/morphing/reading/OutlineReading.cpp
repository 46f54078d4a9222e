// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/OutlineReading.h"

#include "profiles/morphing/reading/BenchReading.h"
#include "profiles/morphing/reading/ChainParts.h"
#include "profiles/morphing/reading/ChainPlaces.h"
#include "profiles/morphing/reading/FloorFirmness.h"
#include "profiles/morphing/reading/FloorReading.h"
#include "profiles/morphing/reading/NicheReading.h"
#include "profiles/morphing/reading/SegmentMerging.h"

#include <algorithm>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// All dents of a nearly convex outline turn by no more than this (rad).
constexpr double kShallowDents = 0.75;

/// Dents count in full between pieces that are this part of the outline long, 9 cm of 30 m.
constexpr double kFullDent = 0.003;

/// The ends (m) of a detour are found again with the digits that bridging its mouth leaves.
constexpr double kFoundAgain = 1e-6;

Detour mirrored(const Detour& detour) {
  Detour other{detour.site, mirrored(detour.pieces), detour.turningBack};
  switch (detour.site) {
    case DetourSite::Floor:
      break;
    case DetourSite::LeftFoot:
      other.site = DetourSite::RightFoot;
      break;
    case DetourSite::RightFoot:
      other.site = DetourSite::LeftFoot;
      break;
    case DetourSite::LeftWall:
      other.site = DetourSite::RightWall;
      break;
    case DetourSite::RightWall:
      other.site = DetourSite::LeftWall;
      break;
  }
  return other;
}

bool isAt(const TurningChords& chain, const ChainPlace& place, const Point2D& p) {
  return (pointAt(chain, place) - p).length() < kFoundAgain;
}

/// True when the ends of all detours on the floor and the left side are where the base has their
/// heights or plan distances first. Others, in a wall that leads up and down, could not be put back
/// to their places. The beginning of a bench is the end of the floor.
bool areFoundAgain(const OutlineReading& reading) {
  return std::all_of(reading.detours.begin(), reading.detours.end(), [&](const Detour& detour) {
    const Point2D start = detour.pieces.front().start;
    const Point2D end = detour.pieces.back().end;
    const auto isOnWall = [&](const Point2D& p) {
      return isAt(reading.upper, placeUpwards(reading.upper, p.y), p);
    };
    const auto isOnFloor = [&](const Point2D& p) {
      return isAt(reading.floor, placeLeftwards(reading.floor, p.x), p);
    };
    if (detour.site == DetourSite::LeftWall) return isOnWall(start) && isOnWall(end);
    if (detour.site == DetourSite::LeftFoot) return isOnWall(end);
    return detour.site != DetourSite::Floor || (isOnFloor(start) && isOnFloor(end));
  });
}

OutlineReading mirrored(const OutlineReading& reading) {
  OutlineReading other{mirrored(reading.upper), mirrored(reading.floor)};
  for (const Detour& detour : reading.detours)
    other.detours.push_back(mirrored(detour));
  return other;
}

/// A floor goes on under a bench to the foot of the wall behind it. Where that wall leans so far
/// inwards below that its foot lies before the bench, the floor is shorter.
void endAt(TurningChords& floor, const Point2D& foot) {
  while (floor.size() > 1 && foot.x >= floor.back().start.x)
    floor.pop_back();
  TurningChord& last = floor.back();
  if (foot.x < last.end.x) {
    floor.push_back({last.end, foot, 0.0});
  } else {
    last = last.part(0.0, fractionLeftwards(last, foot.x));
    last.end = foot;
  }
}

}  // namespace

TurningChords OutlineReading::ring() const {
  TurningChords ring = upper;
  ring.insert(ring.end(), floor.begin(), floor.end());
  return ring;
}

void OutlineReading::moveBy(const Point2D& shift) {
  Calculations::moveBy(upper, shift);
  Calculations::moveBy(floor, shift);
  for (Detour& detour : detours)
    Calculations::moveBy(detour.pieces, shift);
}

void OutlineReading::turnBy(double angle) {
  const CDirection direction = directionOfBearing(angle);
  Calculations::turnBy(upper, direction);
  Calculations::turnBy(floor, direction);
  for (Detour& detour : detours)
    Calculations::turnBy(detour.pieces, direction);
}

/// A dent between short pieces hardly dents the outline, though it may turn by a lot.
double dentsOf(const TurningChords& ring) {
  const double full = kFullDent * lengthOf(ring);
  const auto share = [full](double length) { return std::min(1.0, length / full); };
  double dents = 0.0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const TurningChord& last = ring[(i + ring.size() - 1) % ring.size()];
    const double corner = turningBetween(last.headingAtEnd(), ring[i].headingAtStart());
    const double length = ring[i].length();
    dents += std::max(0.0, -ring[i].turning) * share(length);
    dents += std::max(0.0, -corner) * share(std::min(length, last.length()));
  }
  return dents;
}

/// The joint of the last with the first piece counts as well.
bool isNearlyConvex(const TurningChords& ring) {
  const double joint = turningBetween(ring.back().headingAtEnd(), ring.front().headingAtStart());
  return turningBackOf(ring) + std::max(0.0, -joint) <= kShallowDents;
}

/// What is not floor are walls and crown, from which niches are cut first and benches at the feet
/// last. Left and right are read alike, so a mirrored outline is read as the mirror image.
OutlineReading readOutline(const TurningChords& elements) {
  OutlineReading none{elements};
  auto found = readWidestFloor(elements);
  if (!found) return none;
  auto& [ring, ringFromRight, left, right, width] = *found;
  if (left.numRead + right.numRead > ring.size()) return none;
  TurningChords upper = part(ring, left.numRead, ring.size() + 1 - right.numRead);
  OutlineReading reading;
  if (!cutNiches(upper, reading.detours)) return none;

  reading.floor = mirrored(right.floor);
  reading.floor.push_back(ring.front());
  reading.floor.insert(reading.floor.end(), left.floor.begin(), left.floor.end());

  const auto cutFoot = [&](std::vector<Detour>& detours) {
    const auto detour = cutFootDetour(upper, reading.floor.back());
    if (!detour) return;
    detours.push_back(*detour);
    endAt(reading.floor, upper.front().start);
  };
  cutFoot(left.detours);
  upper = mirrored(upper);
  reading.floor = mirrored(reading.floor);
  cutFoot(right.detours);
  reading.upper = mirrored(upper);
  reading.floor = merged(mirrored(reading.floor));

  reading.detours.insert(reading.detours.end(), left.detours.begin(), left.detours.end());
  for (const Detour& detour : right.detours) {
    reading.detours.push_back(mirrored(detour));
  }
  if (!areFoundAgain(reading) || !areFoundAgain(mirrored(reading))) return none;
  reading.sureness = surenessOf(reading, left, right);
  reading.firmness = firmnessOf(reading);
  return reading.sureness > 0.0 ? reading : none;
}

}  // namespace Calculations
}  // namespace Ruv
