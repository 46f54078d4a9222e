// SPDX-License-Identifier: BSL-1.0
// Whether chance finds as much as it is expected to.

#include "stations/ChanceAssignments.h"

#include <Calculations/PointDetermination.h>
#include <Calculations/Utilities.h>

#include "stations/FixPointMatcher.h"
#include "testing/FixPoints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

using Points = std::vector<ENHPoint>;
using Place = std::function<ENHPoint(Random&)>;

/// In braces, so that every compiler draws the coordinates in the same order.
Place boxOf(double east, double north, double height) {
  return [=](Random& r) {
    return ENHPoint{r.uniform(0.0, east), r.uniform(0.0, north), r.uniform(0.0, height)};
  };
}

/// A tunnel that turns by a right angle.
ENHPoint inACurve(Random& random) {
  const double angle = random.uniform(0.0, 1.57);
  const double radius = random.uniform(125.0, 135.0);
  return {radius * std::cos(angle), radius * std::sin(angle), random.uniform(0.0, 10.0)};
}

Points pointsAt(const Place& place, std::size_t count, Random& random) {
  Points points(count);
  for (ENHPoint& p : points) {
    p = place(random);
  }
  return points;
}

struct LayoutCase {
  const char* name;
  Place place;
  std::size_t fixPoints;
  std::size_t measured;
  int figures;
};

std::ostream& operator<<(std::ostream& out, const LayoutCase& c) { return out << c.name; }

class ChanceOf : public testing::TestWithParam<LayoutCase> {};

TEST_P(ChanceOf, IsFourToTwelveTimesTheMeanNumberFound) {
  const LayoutCase& c = GetParam();
  constexpr int kLayouts = 10;
  Random random(3);
  const MatchSettings settings;
  std::size_t found = 0;
  double expected = 0;
  for (int layout = 0; layout < kLayouts; ++layout) {
    const Points fixPoints = pointsAt(c.place, c.fixPoints, random);
    for (int i = 0; i < c.figures / kLayouts; ++i) {
      FixPointMatcher matcher(settings, fixPoints, pointsAt(c.place, c.measured, random));
      matcher.matchAll();
      found += matcher.solutions().size();
    }
    expected += expectedChanceAssignments(fixPoints, c.measured, c.measured, settings) *
                (c.figures / kLayouts);
  }
  EXPECT_GT(found, 30u) << "the mean is of use only then";
  EXPECT_GT(expected, 4.0 * static_cast<double>(found));
  EXPECT_LT(expected, 12.0 * static_cast<double>(found));
}

INSTANTIATE_TEST_SUITE_P(Layouts, ChanceOf,
                         testing::Values(LayoutCase{"Cube", boxOf(8, 8, 8), 100, 3, 300},
                                         LayoutCase{"CubeOfMore", boxOf(4, 4, 4), 400, 4, 30},
                                         LayoutCase{"Tunnel", boxOf(4, 30, 4), 200, 3, 100},
                                         LayoutCase{"Slab", boxOf(30, 30, 1), 300, 3, 100},
                                         LayoutCase{"Shaft", boxOf(4, 4, 30), 200, 3, 100}),
                         [](const auto& layout) { return std::string(layout.param.name); });

TEST(ExpectedChanceAssignments, DependsOnTheFigureOfTheFixPointsAlone) {
  Random random(8);
  Points points = pointsAt(boxOf(10, 80, 6), 60, random);
  const MatchSettings settings;
  const double expected = expectedChanceAssignments(points, 9, 4, settings);
  Points moved;
  for (const ENHPoint& p : points) {
    moved.push_back(Utilities::rotateAroundHeightZaxis(p, 0.7) + ENHPoint(6e5, 2e5, 500.0));
  }
  EXPECT_NEAR(expectedChanceAssignments(moved, 9, 4, settings) / expected, 1.0, 0.3);
  std::reverse(points.begin(), points.end());
  points.push_back(points.front());
  points.emplace_back(std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0);
  EXPECT_EQ(expectedChanceAssignments(points, 9, 4, settings), expected);
  // The limit of the tilt leaves fewer poses.
  MatchSettings upright;
  upright.toleranceTilt = 30.0;
  MatchSettings any;
  any.toleranceTilt = 180.0;
  EXPECT_LT(expectedChanceAssignments(points, 9, 4, upright), 0.9 * expected);
  EXPECT_GT(expectedChanceAssignments(points, 9, 4, any), 1.5 * expected);
}

TEST(ExpectedChanceAssignments, OfPointsWithoutVolumeIsTheMorePoints) {
  const MatchSettings settings;
  Random random(4);
  const auto expected = [&](const Place& place) {
    return expectedChanceAssignments(pointsAt(place, 30, random), 6, 4, settings);
  };
  const double inSpace = expected(boxOf(20, 20, 20));
  const double inPlane = expected(boxOf(20, 20, 0));
  const double onLine = expected(boxOf(0, 20, 0));
  EXPECT_GT(inPlane, 100.0 * inSpace);
  EXPECT_GT(onLine, 100.0 * inPlane);
  EXPECT_LT(onLine, 15.0 * std::pow(30.0, 4)) << "no more than there are assignments";
}

/// What robust determinations of random figures say about chance.
struct Answers {
  int found = 0;
  int belowHundredth = 0;
  int belowThousandth = 0;
  int significant = 0;

  void ask(const Points& fixPoints, const Points& measured) {
    PointDetermination d;
    for (const ENHPoint& p : fixPoints) {
      d.addPoint(std::to_wstring(d.getNumPoints()), p);
    }
    for (const ENHPoint& p : measured) {
      const ENHPoint local = Utilities::rotateAroundHeightZaxis(p - ENHPoint(1, 50, 2), 1.0);
      d.addMeasurement(std::to_wstring(d.getNumMeasurements()),
                       Utilities::convertToPolarMeasurement(local));
    }
    if (!d.determineMeasuredPointsRobust()) return;
    const double expected = d.expectedChanceSolutions();
    ++found;
    belowHundredth += expected < 0.01 ? 1 : 0;
    belowThousandth += expected < 0.001 ? 1 : 0;
    significant += d.isBestSolutionSignificantlyBetter() ? 1 : 0;
  }
};

TEST(ExpectedChanceSolutions, TellChanceFromEvidence) {
  const Place layouts[] = {boxOf(10, 200, 10), pointOnTheWall, inACurve};
  Answers strays;
  Answers figures;
  Random random(17);
  for (const Place& place : layouts) {
    for (const std::size_t count : {17u, 100u, 300u, 3000u}) {
      // Of thousands of fix points, many stray measurements take seconds.
      const std::size_t mostSighted = count > 1000 ? 6 : 16;
      for (int i = 0; i < (count > 1000 ? 3 : 14); ++i) {
        const Points fixPoints = pointsAt(place, count, random);
        strays.ask(fixPoints, pointsAt(place, 5 + random.index(mostSighted - 4), random));
        Points measured = pointsAt(place, random.index(mostSighted - 5), random);
        const std::size_t matching = 6 + random.index(5);
        for (std::size_t k = 0; k < matching; ++k) {
          const ENHPoint noise{random.uniform(-0.002, 0.002), random.uniform(-0.002, 0.002), 0.001};
          measured.insert(
              measured.begin() + static_cast<std::ptrdiff_t>(random.index(measured.size() + 1)),
              fixPoints[k * count / matching] + noise);
        }
        figures.ask(fixPoints, measured);
      }
    }
  }
  EXPECT_GT(strays.found, 50);
  EXPECT_LE(strays.belowHundredth, strays.found / 50);
  EXPECT_GT(strays.significant, strays.found * 3 / 4) << "among assignments, not against chance";
  EXPECT_EQ(figures.found, 3 * 45);
  EXPECT_GE(figures.belowThousandth, figures.found * 99 / 100);
}

}  // namespace
