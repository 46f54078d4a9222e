// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/ChainParts.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

TurningChords mirrored(const TurningChords& chain) {
  TurningChords mirrored;
  for (auto piece = chain.rbegin(); piece != chain.rend(); ++piece) {
    mirrored.push_back(piece->reversed().mirrored());
  }
  return mirrored;
}

/// Half-open as all ranges are, so that parts that follow each other share no piece.
TurningChords part(const TurningChords& chain, std::size_t first, std::size_t last) {
  return TurningChords(chain.begin() + static_cast<std::ptrdiff_t>(first),
                       chain.begin() + static_cast<std::ptrdiff_t>(last));
}

/// The chord c and the radius r of an arc give its turning: 2 asin(c / 2r).
TurningChord continuedTo(const Point2D& end, const TurningChord& last) {
  if (!last.isArc()) return {last.end, end, 0.0};
  const double half = (end - last.end).length() / 2.0 / last.radius();
  return {last.end, end, 2.0 * std::asin(std::clamp(half, -1.0, 1.0))};
}

/// Between pieces that meet tangentially it is 0 but for rounding.
double cornerBefore(const TurningChords& chain, std::size_t i) {
  return turningBetween(chain[i - 1].headingAtEnd(), chain[i].headingAtStart());
}

/// Arcs and corners both count. A convex chain turns back nowhere.
double turningBackOf(const TurningChords& chain) {
  double turning = 0.0;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    turning += std::max(0.0, -chain[i].turning);
    if (i > 0) turning += std::max(0.0, -cornerBefore(chain, i));
  }
  return turning;
}

double lengthOf(const TurningChords& chain) {
  double length = 0.0;
  for (const TurningChord& piece : chain)
    length += piece.length();
  return length;
}

/// Beyond its end a chain stays there.
Point2D pointAlong(const TurningChords& chain, double distance) {
  for (const TurningChord& piece : chain) {
    const double length = piece.length();
    if (distance < length) return piece.pointAt(distance / length);
    distance -= length;
  }
  return chain.back().end;
}

}  // namespace Calculations
}  // namespace Ruv
