// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/reading/ChainPlaces.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

constexpr double kLeftwards = 1.5 * kPi;

/// Turned a quarter anticlockwise, upwards becomes leftwards.
TurningChord quarterTurned(const TurningChord& piece) {
  return {Point2D(-piece.start.y, piece.start.x), Point2D(-piece.end.y, piece.end.x),
          piece.turning};
}

/// True when an arc turns on clockwise beyond upwards: it has then been farther left than its end.
bool bulgesLeft(const TurningChord& piece) {
  const double first = turningBetween(kLeftwards, piece.headingAtStart());
  return piece.isArc() && first < kHalfPi && first + piece.turning > kHalfPi;
}

}  // namespace

double fractionLeftwards(const TurningChord& piece, double x) {
  if (!(x < piece.start.x)) return 0.0;
  if (!(x > piece.end.x) && !bulgesLeft(piece)) return 1.0;
  if (!piece.isArc()) return (x - piece.start.x) / piece.chord().x;
  // A point on an arc lies left of its centre by the radius times the cosine of the heading.
  const double first = turningBetween(kLeftwards, piece.headingAtStart());
  const double sine = std::sin(first) + (piece.start.x - x) / piece.radius();
  return std::clamp((std::asin(std::clamp(sine, -1.0, 1.0)) - first) / piece.turning, 0.0, 1.0);
}

/// The same question a quarter turn later.
double fractionUpwards(const TurningChord& piece, double y) {
  return fractionLeftwards(quarterTurned(piece), -y);
}

bool comesUpTo(const TurningChord& piece, double y) {
  if (piece.end.y >= y) return true;
  const TurningChord turned = quarterTurned(piece);
  if (!bulgesLeft(turned)) return false;
  const double first = turningBetween(kLeftwards, turned.headingAtStart());
  return piece.start.y + piece.radius() * (1.0 - std::sin(first)) >= y;
}

ChainPlace placeUpwards(const TurningChords& wall, double y) {
  for (std::size_t i = 0; i < wall.size(); ++i) {
    if (comesUpTo(wall[i], y)) return {i, fractionUpwards(wall[i], y)};
  }
  return {wall.size() - 1, 1.0};
}

ChainPlace placeLeftwards(const TurningChords& floor, double x) {
  std::size_t i = 0;
  while (i + 1 < floor.size() && floor[i].end.x > x)
    ++i;
  return {i, fractionLeftwards(floor[i], x)};
}

void appendPart(TurningChords& to, const TurningChords& chain, const ChainPlace& from,
                const ChainPlace& end) {
  if (from.index == end.index) {
    to.push_back(chain[from.index].part(from.fraction, end.fraction));
    return;
  }
  to.push_back(chain[from.index].part(from.fraction, 1.0));
  to.insert(to.end(), chain.begin() + static_cast<std::ptrdiff_t>(from.index) + 1,
            chain.begin() + static_cast<std::ptrdiff_t>(end.index));
  to.push_back(chain[end.index].part(0.0, end.fraction));
}

}  // namespace Calculations
}  // namespace Ruv
