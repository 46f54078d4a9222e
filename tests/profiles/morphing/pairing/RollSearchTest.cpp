// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/pairing/RollSearch.h"

#include "profiles/morphing/reading/ChainParts.h"
#include "shapes/PlaneGeometry.h"
#include "testing/Numbers.h"
#include "testing/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace {

using namespace Ruv;
using namespace Ruv::Calculations;
using TestSupport::kPi;
using TestSupport::Random;

constexpr double kLargest = 0.2;  // the roll up to which all of it is followed

/// A cavern of straights and arcs of both senses, no two of them alike.
TurningChords cavern() {
  return {{{-4.1, 0.2}, {-4.8, 3.4}, 0.35}, {{-4.8, 3.4}, {-2.2, 6.9}, 0.0},
          {{-2.2, 6.9}, {1.3, 7.6}, 0.8},   {{1.3, 7.6}, {4.4, 4.5}, -0.2},
          {{4.4, 4.5}, {5.2, 2.0}, 1.1},    {{5.2, 2.0}, {3.4, -0.7}, 0.0},
          {{3.4, -0.7}, {-4.1, 0.2}, 0.25}};
}

TurningChords placed(TurningChords chain, double roll, double scale, const Point2D& shift) {
  for (TurningChord& piece : chain) {
    piece.start = piece.start * scale;
    piece.end = piece.end * scale;
  }
  turnBy(chain, directionOfBearing(roll));
  moveBy(chain, shift);
  return chain;
}

TurningChords disturbed(TurningChords ring, double size, Random& random) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point2D shift(random.uniform(-size, size), random.uniform(-size, size));
    ring[i].start = ring[i].start + shift;
    TurningChord& before = ring[(i + ring.size() - 1) % ring.size()];
    before.end = ring[i].start;
  }
  return ring;
}

TEST(RollSearch, FindsByHowMuchOneChainIsTurned) {
  for (const bool isOpen : {false, true}) {
    for (const double roll : {-0.19, -0.03, 2e-3, 0.08, 0.2}) {
      SCOPED_TRACE(std::to_string(roll) + (isOpen ? " open" : " closed"));
      RolledChain start{cavern(), isOpen};
      if (isOpen) start.pieces.pop_back();
      const RolledChain end{placed(start.pieces, roll, 1.2, {600000.0, 200000.0}), isOpen};
      EXPECT_NEAR(rollBetween(start, end, kLargest), roll, 1e-9);
      EXPECT_NEAR(rollBetween(end, start, kLargest), -roll, 1e-9);
      EXPECT_EQ(rollBetween(start, end, std::abs(roll) * 0.74), 0.0);
      EXPECT_NEAR(rollBetween(start, end, std::abs(roll) * 0.9), roll * (4.0 - 1.0 / 0.9 * 3.0),
                  1e-9)
          << "fades out on a third of the way beyond the largest";
    }
  }
}

/// The sum of squares that the search makes least, by distances from fine polygons.
class PlainFit {
 public:
  using Unknowns = std::array<double, 4>;  // roll, logarithm of the scale, shift

  PlainFit(const TurningChords& start, const TurningChords& end)
      : m_start(start), m_end(end), m_origin(start.front().start) {}

  double squares(const Unknowns& u) const {
    const TurningChords start = halfWay(m_start, u, 0.5);
    const TurningChords end = halfWay(m_end, u, -0.5);
    return squaresFrom(samplesOf(start), end) + squaresFrom(samplesOf(end), start);
  }

  /// Steps along the unknowns that shrink when none of them helps.
  Unknowns least(Unknowns at) const {
    double known = squares(at);
    for (double step = 0.02; step > 1e-7; step /= 2.0) {
      for (bool isBetter = true; isBetter;) {
        isBetter = false;
        for (std::size_t i = 0; i < 8; ++i) {
          Unknowns next = at;
          next[i / 2] += i % 2 == 0 ? step : -step;
          const double value = squares(next);
          if (!(value < known)) continue;
          known = value;
          at = next;
          isBetter = true;
        }
      }
    }
    return at;
  }

 private:
  TurningChords halfWay(TurningChords chain, const Unknowns& u, double half) const {
    moveBy(chain, m_origin * -1.0);
    return placed(chain, half * u[0], std::exp(half * u[1]), Point2D(u[2], u[3]) * half);
  }

  static std::vector<Point2D> samplesOf(const TurningChords& chain) {
    constexpr int kSamples = 24;  // as many as the search takes
    double length = 0.0;
    for (const TurningChord& piece : chain) {
      length += piece.length();
    }
    std::vector<Point2D> samples;
    for (int i = 0; i < kSamples; ++i) {
      double place = (i + 0.5) / kSamples * length;
      auto piece = chain.begin();
      for (; place > piece->length(); ++piece) {
        place -= piece->length();
      }
      samples.push_back(piece->pointAt(place / piece->length()));
    }
    return samples;
  }

  static double squaresFrom(const std::vector<Point2D>& points, const TurningChords& chain) {
    const std::vector<Point2D> polygon = sampled(chain, 0.01);
    double sum = 0.0;
    for (const Point2D& p : points) {
      double nearest = HUGE_VAL;
      for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point2D edge = polygon[(i + 1) % polygon.size()] - polygon[i];
        const Point2D v = p - polygon[i];
        const double along = (v.x * edge.x + v.y * edge.y) / (edge.x * edge.x + edge.y * edge.y);
        nearest = std::min(nearest, (v - edge * std::clamp(along, 0.0, 1.0)).length());
      }
      sum += nearest * nearest;
    }
    return sum;
  }

  TurningChords m_start;
  TurningChords m_end;
  Point2D m_origin;
};

TEST(RollSearch, MakesTheSquaresOfTheDistancesLeast) {
  Random random(5);
  for (int i = 0; i < 2; ++i) {
    const TurningChords start = cavern();
    const TurningChords end =
        placed(disturbed(start, 0.06, random), 0.12 * random.sign(), 1.05, {0.3, -0.2});
    const double roll = rollBetween({start, false}, {end, false}, kLargest);
    const auto least = PlainFit(start, end).least({-roll, 0.0, 0.3, -0.2});
    EXPECT_NEAR(std::abs(roll), std::abs(least[0]), 1e-4);
    EXPECT_GT(std::abs(roll), 0.02) << "a pair that tells nothing";
  }
}

/// Whatever of an open chain is near beyond its first or behind its last piece.
TEST(RollSearch, TurnsBackInTheMirror) {
  Random random(7);
  for (int i = 0; i < 40; ++i) {
    TurningChords start = cavern();
    TurningChords end = placed(disturbed(start, 0.3, random), 0.1 * random.sign(), 1.1, {0.3, 0.4});
    start.resize(2 + random.index(4));
    end.resize(2 + random.index(4));
    const double roll = rollBetween({start, true}, {end, true}, 1.0);
    const double other = rollBetween({mirrored(start), true}, {mirrored(end), true}, 1.0);
    EXPECT_NEAR(other, -roll, 1e-9);
  }
}

TEST(RollSearch, FollowsNothingThatTurningDoesNotExplain) {
  const TurningChords start = cavern();
  TurningChords taller = start;
  for (TurningChord& piece : taller) {
    piece.start.y *= piece.start.y > 1.0 ? 1.5 : 1.0;
    piece.end.y *= piece.end.y > 1.0 ? 1.5 : 1.0;
  }
  EXPECT_EQ(rollBetween({start, false}, {taller, false}, kLargest), 0.0);
  Random random(6);
  for (int i = 0; i < 10; ++i) {
    const double first = random.uniform(1.0, 2.6);
    const double second = random.uniform(1.0, 2.6);
    double bearing = random.uniform(0.0, 6.0);
    Point2D node = Point2D(std::sin(bearing), std::cos(bearing)) * 3.0;
    TurningChords circle;
    for (const double turning : {first, second, 2.0 * kPi - first - second}) {
      bearing += turning;
      const Point2D next = Point2D(std::sin(bearing), std::cos(bearing)) * 3.0;
      circle.push_back({node, next, turning});
      node = next;
    }
    const TurningChords other = placed(circle, 0.1, 1.0, {6e5, 2e5});
    EXPECT_NEAR(rollBetween({circle, false}, {other, false}, kLargest), 0.0, 1e-6);
  }
}

}  // namespace
