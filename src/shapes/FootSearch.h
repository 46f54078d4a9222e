// SPDX-License-Identifier: BSL-1.0
/// @file
/// Finds the places where the normal of a curve passes through a point.

#ifndef CALCULATIONS_SHAPES_FOOT_SEARCH_H
#define CALCULATIONS_SHAPES_FOOT_SEARCH_H

#include <algorithm>
#include <cmath>

namespace Ruv {

/// How far a point lies ahead of a place on a curve, measured along the tangent there.
struct CForwardDistance {
  double value = 0.0;
  double slope = 0.0;  ///< derivative of the value by the place; about -1 near the curve
};

/// One end of a stretch that is searched.
struct CSearchNode {
  double place = 0.0;
  CForwardDistance forward;
};

/// No stretch that is searched may turn more than this (rad): the forward distance then has at
/// most one extremum in it.
constexpr double kLargestSearchedTurning = 0.39269908169872414;  // pi / 8

/// A stretch is searched in no more pieces than this. A clothoid that turns by kLargestCurveTurning
/// has 255; only a rounding of the profile that all but stands upright would have more.
constexpr double kMostSearchedPieces = 300.0;

/// Newton's method converges in three or four steps; bisection alone would need sixty.
constexpr int kMostSearchSteps = 100;

/// A place is found when the next correction stays below this part of it (or of 1 m).
constexpr double kPlaceAccuracy = 1e-12;

/// The root of a forward distance between a place where it is not negative and one where it is
/// not positive. Newton's method, replaced by bisection where it would leave the bracket.
template <class ForwardAt>
double footBetween(const ForwardAt& forwardAt, const CSearchNode& ahead,
                   const CSearchNode& behind) {
  double low = ahead.place;
  double high = behind.place;
  const double drop = ahead.forward.value - behind.forward.value;
  double place = low + (high - low) * (ahead.forward.value / drop);
  if (!(place >= low && place <= high)) place = low;  // a drop of zero or of infinity
  for (int step = 0; step < kMostSearchSteps; ++step) {
    const CForwardDistance forward = forwardAt(place);
    (forward.value >= 0.0 ? low : high) = place;
    double next = place - forward.value / forward.slope;
    if (!(forward.slope < 0.0 && next >= low && next <= high)) next = low + (high - low) / 2.0;
    const double correction = std::abs(next - place);
    place = next;
    if (!(correction > kPlaceAccuracy * std::max(1.0, std::abs(place)))) break;
  }
  return place;
}

/// The place between two nodes of opposite slope where the slope changes its sign.
template <class ForwardAt>
CSearchNode extremumBetween(const ForwardAt& forwardAt, const CSearchNode& a,
                            const CSearchNode& b) {
  constexpr int kBisections = 60;
  double low = a.place;
  double high = b.place;
  CSearchNode middle = a;
  for (int step = 0; step < kBisections; ++step) {
    middle.place = low + (high - low) / 2.0;
    middle.forward = forwardAt(middle.place);
    const bool slopesLikeStart = (middle.forward.slope < 0.0) == (a.forward.slope < 0.0);
    (slopesLikeStart ? low : high) = middle.place;
  }
  return middle;
}

/// Reports every foot on one stretch: the roots where the forward distance falls through zero.
/// Roots where it rises belong to places that are farther away than their neighbours.
template <class ForwardAt, class Found>
void findFeet(const ForwardAt& forwardAt, const CSearchNode& a, const CSearchNode& b,
              const Found& found) {
  const CForwardDistance& fa = a.forward;
  const CForwardDistance& fb = b.forward;
  if (fa.value >= 0.0 && fb.value <= 0.0) {
    found(footBetween(forwardAt, a, b));
  } else if (fa.value > 0.0 && fb.value > 0.0 && fa.slope < 0.0 && fb.slope > 0.0) {
    const CSearchNode lowest = extremumBetween(forwardAt, a, b);
    if (lowest.forward.value <= 0.0) found(footBetween(forwardAt, a, lowest));
  } else if (fa.value < 0.0 && fb.value < 0.0 && fa.slope > 0.0 && fb.slope < 0.0) {
    const CSearchNode highest = extremumBetween(forwardAt, a, b);
    if (highest.forward.value >= 0.0) found(footBetween(forwardAt, highest, b));
  }
}

/// In how many equal pieces a stretch is searched that turns by an angle (rad) in all.
inline int numSearchedPieces(double turning) {
  return static_cast<int>(
      std::min(std::max(1.0, std::ceil(turning / kLargestSearchedTurning)), kMostSearchedPieces));
}

/// Reports every foot from a node on up to an end, piece by piece.
/// @param sharpest the largest angle (rad) by which the stretch turns on a metre
/// @param nodeAt gives the node at a place; the ends of the curve are mostly known beforehand
/// @return the node at the end
template <class ForwardAt, class NodeAt, class Found>
CSearchNode findFeetUpTo(double end, double sharpest, const CSearchNode& start,
                         const ForwardAt& forwardAt, const NodeAt& nodeAt, const Found& found) {
  const double begin = start.place;
  const int pieces = numSearchedPieces(sharpest * (end - begin));
  CSearchNode node = start;
  for (int piece = 1; piece <= pieces; ++piece) {
    const double place = piece == pieces ? end : begin + (end - begin) * piece / pieces;
    const CSearchNode next = nodeAt(place);
    findFeet(forwardAt, node, next, found);
    node = next;
  }
  return node;
}

}  // namespace Ruv

#endif
