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

Detour mirrored(const Detour& detour) {
  Detour other{detour.site, mirrored(detour.pieces)};
  if (detour.site == DetourSite::LeftFoot) other.site = DetourSite::RightFoot;
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

/// The joint of the last with the first piece counts as well.
double dentsOf(const TurningChords& ring) {
  const double joint = turningBetween(ring.back().headingAtEnd(), ring.front().headingAtStart());
  return turningBackOf(ring) + std::max(0.0, -joint);
}

bool isNearlyConvex(const TurningChords& ring) { return dentsOf(ring) <= kShallowDents; }

/// What is not floor are walls and crown, from which niches are cut first and benches at the feet
/// last. Left and right are read alike, so a mirrored outline is read as the mirror image.
OutlineReading readOutline(const TurningChords& elements, bool cutsFeet) {
  OutlineReading none{elements, {}, {}, 0.0};
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
  if (cutsFeet) cutFoot(left.detours);
  upper = mirrored(upper);
  reading.floor = mirrored(reading.floor);
  if (cutsFeet) cutFoot(right.detours);
  reading.upper = mirrored(upper);
  reading.floor = merged(mirrored(reading.floor));

  reading.detours.insert(reading.detours.end(), left.detours.begin(), left.detours.end());
  for (const Detour& detour : right.detours) {
    reading.detours.push_back(mirrored(detour));
  }
  reading.firmness = firmnessOf(reading, left, right);
  return reading.firmness > 0.0 ? reading : none;
}

}  // namespace Calculations
}  // namespace Ruv
