// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/OutlineReading.h"

#include "profiles/morphing/reading/BenchReading.h"
#include "profiles/morphing/reading/ChainParts.h"
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

}  // namespace

TurningChords OutlineReading::ring() const {
  TurningChords ring = upper;
  ring.insert(ring.end(), floor.begin(), floor.end());
  return ring;
}

/// The joint of the last with the first piece counts as well.
bool isNearlyConvex(const TurningChords& ring) {
  const double joint = turningBetween(ring.back().headingAtEnd(), ring.front().headingAtStart());
  return turningBackOf(ring) + std::max(0.0, -joint) <= kShallowDents;
}

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

  const auto cutFoot = [&](LeftHalf& half, const TurningChord& first) {
    const TurningChord last = half.floor.empty() ? first : half.floor.back();
    const FloorLine line{last.end, slopeOf(last)};
    const auto detour = cutFootDetour(upper, line);
    if (!detour) return;
    half.detours.push_back(*detour);
    half.floor.push_back({last.end, upper.front().start, 0.0});
  };
  if (cutsFeet) cutFoot(left, ring.front());
  upper = mirrored(upper);
  if (cutsFeet) cutFoot(right, ringFromRight.front());
  reading.upper = mirrored(upper);

  reading.floor = mirrored(right.floor);
  reading.floor.push_back(ring.front());
  reading.floor.insert(reading.floor.end(), left.floor.begin(), left.floor.end());
  reading.floor = merged(reading.floor);
  reading.detours.insert(reading.detours.end(), left.detours.begin(), left.detours.end());
  for (const Detour& detour : right.detours) {
    reading.detours.push_back(mirrored(detour));
  }
  reading.firmness = firmnessOf(reading, left, right);
  return reading.firmness > 0.0 ? reading : none;
}

}  // namespace Calculations
}  // namespace Ruv
