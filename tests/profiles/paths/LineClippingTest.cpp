// SPDX-License-Identifier: BSL-1.0
#include "testing/Numbers.h"
#include "testing/Paths.h"
#include "testing/Random.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using ClipperLib::IntPoint;
using namespace TestSupport;

/// Length of a line inside a convex area, edge by edge.
double lengthInside(const std::vector<Point2D>& line, const std::vector<Point2D>& area) {
  double sum = 0.0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const Point2D d = line[i] - line[i - 1];
    double from = 0.0;
    double to = 1.0;
    for (std::size_t k = 0; k < area.size(); ++k) {
      const Point2D a = area[k];
      const Point2D e = area[(k + 1) % area.size()] - a;
      const double height = e.x * (line[i - 1].y - a.y) - e.y * (line[i - 1].x - a.x);
      const double climb = e.x * d.y - e.y * d.x;
      if (climb > 0.0) from = std::max(from, -height / climb);
      if (climb < 0.0) to = std::min(to, -height / climb);
      if (climb == 0.0 && height < 0.0) to = 0.0;
    }
    sum += std::max(to - from, 0.0) * d.length();
  }
  return sum;
}

/// Left to itself the clipper loses parts of lines like these, or counts them twice, where they
/// begin or end level: once in forty lines.
TEST(LineClipping, FindsAllPartsOfSteppedLinesOnce) {
  Random random(31);
  for (int round = 0; round < 2000; ++round) {
    std::vector<Point2D> area;
    for (int i = 0; i < 7; ++i) {
      const double angle = 2 * kPi * (i + random.uniform(0.1, 0.9)) / 7;
      area.emplace_back(4 * std::cos(angle) + 0.3, 4 * std::sin(angle) - 0.2);
    }
    std::vector<Point2D> line;
    const auto step = [&](int low, int high) {
      return low + static_cast<int>(random.index(static_cast<std::size_t>(high - low + 1)));
    };
    Point2D p(-7, step(-3, 3));
    for (int i = 0; i < 10; ++i) {
      line.push_back(p);
      if (step(0, 2) == 0) {
        p.y = step(-4, 4);
      } else {
        p.x += step(-1, 3);
      }
    }
    const Pathes inside = Pathes::linesWithin(lineThrough(line), ring(area), false);
    EXPECT_NEAR(inside.linesLength(), lengthInside(line, area), 2e-3) << round;
  }
}

/// Left to itself the clipper misses 2.4 m of this line.
TEST(LineClipping, FindsAllPartsOfALineThatEndsLevel) {
  const Path line = PathHelper::pathFromClipperLibPath(
      {IntPoint(-19999, 20001), IntPoint(30001, -59999), IntPoint(-19999, 50001),
       IntPoint(30001, -39999), IntPoint(20001, -29999), IntPoint(50001, 20001),
       IntPoint(-19999, 20001), IntPoint(10001, 20001)});
  const Path area = PathHelper::pathFromClipperLibPath(
      {IntPoint(34402, 37570), IntPoint(-7794, 35930), IntPoint(-25690, 7992),
       IntPoint(376, -29902), IntPoint(37136, -41594)});
  EXPECT_NEAR(Pathes::linesWithin(line, area, false).linesLength(), 34.1275, 2e-3);
}

/// Lines that end level are clipped after a shear. What comes back lies where the line crosses the
/// border, to the nearest step of the grid above the axis and below it.
TEST(LineClipping, RoundsCrossingsToTheNearest) {
  for (const int drop : {1000, 3333, 5557}) {
    for (const int y : {-70001, -3, 0, 3, 70001}) {
      const Path line = PathHelper::pathFromClipperLibPath({{-9000, y}, {0, y}, {8001, y - drop}});
      const Path area = PathHelper::pathFromClipperLibPath(
          {{-5000, y - 90000}, {5003, y - 90000}, {5003, y + 90000}, {-5000, y + 90000}});
      const Pathes inside = Pathes::linesWithin(line, area, false);
      ASSERT_EQ(inside.numPathes(), 1u);
      ClipperLib::Path points = PathHelper::clipperLibPathFromPath(inside.pathAt(0));
      if (points.front().X > 0) ClipperLib::ReversePath(points);
      EXPECT_EQ(points.front(), IntPoint(-5000, y));
      EXPECT_EQ(points.back().X, 5003);
      EXPECT_NEAR(static_cast<double>(points.back().Y), y - drop * 5003.0 / 8001.0, 0.501);
    }
  }
}

}  // namespace
