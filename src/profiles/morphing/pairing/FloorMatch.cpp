// SPDX-License-Identifier: BSL-1.0
// Floors lead from the right foot to the left one, so places on them fall. A kink is the change of
// slope at a corner, negative at a crown and positive at a gutter.

#include "profiles/morphing/pairing/FloorMatch.h"

#include "profiles/morphing/reading/ChainPlaces.h"
#include "profiles/morphing/reading/FloorReading.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// A corner of the other floor appears at least this part of a floor's width from its feet.
constexpr double kLeastFootDistance = 0.02;

/// A corner between two parts of a floor.
struct FloorCorner {
  double x = 0.0;
  double kink = 0.0;  ///< slope on the right less slope on the left
};

/// The feet are no corners of the floor: they are paired with the feet.
std::vector<FloorCorner> cornersOf(const TurningChords& floor) {
  std::vector<FloorCorner> corners;
  for (std::size_t i = 1; i < floor.size(); ++i) {
    corners.push_back({floor[i].start.x, slopeOf(floor[i - 1]) - slopeOf(floor[i])});
  }
  return corners;
}

/// A corner outside of the other floor would take a part of its wall away.
double placeWithin(const TurningChords& floor, double x) {
  const double left = floor.back().end.x;
  const double right = floor.front().start.x;
  const double margin = kLeastFootDistance * (right - left);
  return std::clamp(x, left + margin, right - margin);
}

double sizeOf(const FloorCorner& corner) { return std::abs(corner.kink); }

const FloorCorner* sharpest(const std::vector<FloorCorner>& corners) {
  const auto found = std::max_element(
      corners.begin(), corners.end(),
      [](const FloorCorner& a, const FloorCorner& b) { return sizeOf(a) < sizeOf(b); });
  return found == corners.end() ? nullptr : &*found;
}

/// How much two corners are one: their ratio when they are bent alike, from 0 for a kink that is
/// only appearing to 1 for equal ones. It is continuous, so that a small change of a floor is a
/// small change of the match.
double likeness(const FloorCorner* a, const FloorCorner* b) {
  if (!a || !b || !(a->kink * b->kink > 0.0)) return 0.0;
  return std::min(a->kink / b->kink, b->kink / a->kink);
}

/// Cuts a floor at places from the right to the left, among which are all of its corners.
TurningChords cutAt(const TurningChords& floor, const std::vector<double>& places) {
  TurningChords pieces;
  std::size_t index = 0;
  double from = 0.0;
  for (const double place : places) {
    if (from == 1.0 && index + 1 < floor.size()) {
      ++index;
      from = 0.0;
    }
    const double to = std::max(from, fractionLeftwards(floor[index], place));
    pieces.push_back(floor[index].part(from, to));
    from = to;
  }
  if (from == 1.0 && index + 1 < floor.size()) {
    ++index;
    from = 0.0;
  }
  pieces.push_back(floor[index].part(from, 1.0));
  return pieces;
}

}  // namespace

/// A corner of one floor appears on the other at the same plan distance and there has no kink. The
/// sharpest corners of both become each other as far as they are bent alike: two crowns meet, a
/// crown and a gutter do not. So nothing jumps where a kink changes its sign.
MatchedPieces matchFloors(const TurningChords& start, const TurningChords& end,
                          const Point2D& shift) {
  const std::vector<FloorCorner> startCorners = cornersOf(start);
  const std::vector<FloorCorner> endCorners = cornersOf(end);
  const FloorCorner* startMain = sharpest(startCorners);
  const FloorCorner* endMain = sharpest(endCorners);
  const double alike = likeness(startMain, endMain);
  std::vector<double> startPlaces;
  std::vector<double> endPlaces;
  for (const FloorCorner& corner : startCorners) {
    startPlaces.push_back(corner.x);
    double place = placeWithin(end, corner.x - shift.x);
    if (&corner == startMain && endMain) place += alike * (endMain->x - place);
    endPlaces.push_back(place);
  }
  for (const FloorCorner& corner : endCorners) {
    endPlaces.push_back(corner.x);
    double place = placeWithin(start, corner.x + shift.x);
    if (&corner == endMain && startMain) place += alike * (startMain->x - place);
    startPlaces.push_back(place);
  }
  // Both lists have a place for every corner of either floor, so equally many, and are paired in
  // their order.
  std::sort(startPlaces.rbegin(), startPlaces.rend());
  std::sort(endPlaces.rbegin(), endPlaces.rend());
  const TurningChords startPieces = cutAt(start, startPlaces);
  const TurningChords endPieces = cutAt(end, endPlaces);
  MatchedPieces pieces;
  for (std::size_t i = 0; i < startPieces.size() && i < endPieces.size(); ++i) {
    pieces.push_back({startPieces[i], endPieces[i], true, 0, true});
  }
  return pieces;
}

}  // namespace Calculations
}  // namespace Ruv
