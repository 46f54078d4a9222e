// SPDX-License-Identifier: BSL-1.0
#include "testing/Numbers.h"
#include "testing/Paths.h"

#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(Path, DiscretisesArcs) {
  const auto pointsOfArc = [](double radius, double length) {
    Path path = lineThrough({{0, 0}});
    const double chord = 2 * radius * std::sin(length / radius / 2);
    path.addSegment(PathSegment(chord, 0, radius));
    return path;
  };
  EXPECT_EQ(pointsOfArc(100, 5).numDiscretePathPoints(), 102u);   // 100 pieces, the start twice
  EXPECT_EQ(pointsOfArc(1, 0.555).numDiscretePathPoints(), 57u);  // 55 pieces
  EXPECT_EQ(pointsOfArc(1, 0.0051).numDiscretePathPoints(), 2u);  // only its end
  const Path arc = pointsOfArc(2, 3);
  EXPECT_EQ(arc.discretePathPointAt(1).x, 0.0);
  for (unsigned i = 2; i < arc.numDiscretePathPoints(); ++i) {
    EXPECT_GT(arc.discretePathPointAt(i).y, -1e-4);  // a clockwise arc bulges to the left
  }
  EXPECT_EQ(arc.discretePathPointAt(1000).y, 0.0);
  EXPECT_EQ(arc.discretePathPointAt(arc.numDiscretePathPoints()).x, 0.0);
  Path impossible = lineThrough({{0, 0}});
  impossible.addSegment(PathSegment(3, 0, 1.4999));  // two steps of the grid too long
  EXPECT_EQ(impossible.numDiscretePathPoints(), 2u);
  impossible.addSegment(PathSegment(0, 0, 1.49997));  // within the grid: a half circle
  EXPECT_EQ(impossible.numDiscretePathPoints(), 103u);
}

/// From the end points on the grid the arcs would be less than half circles.
TEST(Path, KeepsTheExactStartOfArcs) {
  for (const double shift : {0.0, 0.00003, 0.00007}) {
    EXPECT_NEAR(circle(5.0, shift, shift).area(), kPi * 25, 0.03) << shift;
  }
}

TEST(Path, ClosesAnticlockwise) {
  Path square = lineThrough({{0, 0}, {0, 1}, {1, 1}, {1, 0}});
  EXPECT_EQ(square.area(), -1.0);
  EXPECT_EQ(square.lineLength(), 3.0);
  square.close(false);
  EXPECT_EQ(square.numDiscretePathPoints(), 5u);
  EXPECT_EQ(square.area(), 1.0);
  EXPECT_EQ(square.lineLength(), 4.0);
  EXPECT_TRUE(square.pointWithin(Point2D(0.5, 0.5)));
  EXPECT_FALSE(square.pointWithin(Point2D(1, 0.5)));
  // Cleaning removes what hardly bends the outline, and thin outlines altogether.
  const Path cleaned = ring({{0, 0}, {0.5, 0.0001}, {1, 0}, {1, 1}, {0, 1}});
  EXPECT_EQ(cleaned.numDiscretePathPoints(), 5u);
  Path thin = ring({{0, 0}, {5, 0.0001}, {10, 0}});
  EXPECT_LT(thin.numDiscretePathPoints(), 3u);
  EXPECT_EQ(thin.area(), 0.0);
  EXPECT_EQ(Path::without(thin, square).numPathes(), 0u);
  // A path that came out of the clipper goes on from its last point.
  Path grown = Path::within(square, box(0, 0, 2, 2)).pathAt(0);
  const unsigned before = grown.numDiscretePathPoints();
  const Point2D last = grown.discretePathPointAt(before - 1);
  grown.addSegment(PathSegment(last.x + 1, last.y, 5));
  EXPECT_EQ(grown.numDiscretePathPoints(), before + 101);
}

TEST(Path, MeetsLinesInTheOrderOfItsEdges) {
  const Path path = box(0, 0, 2, 2);
  Point2D hit(7, 7);
  EXPECT_FALSE(path.firstIntersectionWithLine(Point2D(3, 0), Point2D(3, 1), hit));
  EXPECT_EQ(hit.x, 7.0);
  // Closed anticlockwise from the first corner: bottom, right, top, left.
  EXPECT_TRUE(path.firstIntersectionWithLine(Point2D(9, 1), Point2D(8, 1), hit));
  EXPECT_EQ(hit.y, 1.0);
  Pathes two(path);
  two.addPath(box(3, 0, 4, 4));
  EXPECT_TRUE(two.firstIntersectionWithLine(Point2D(0, 3), Point2D(1, 3), hit));
  EXPECT_TRUE(hit.x == 3.0 || hit.x == 4.0);
  EXPECT_FALSE(Path().firstIntersectionWithLine(Point2D(0, 3), Point2D(1, 3), hit));
}

TEST(Path, LeavesOutWhatIsNotFinite) {
  const double inf = std::numeric_limits<double>::infinity();
  const Path square = lineThrough({{std::nan(""), 1}, {0, 0}, {2, 0}, {2, inf}, {2, 2}, {0, 2}});
  EXPECT_EQ(square.numDiscretePathPoints(), 4u);
  EXPECT_EQ(square.area(), 4.0);
  EXPECT_TRUE(box(-1, -1, 1, 1).pointWithin(Point2D(0, 0)));
  EXPECT_FALSE(box(-1, -1, 1, 1).pointWithin(Point2D(std::nan(""), 0)));
}

}  // namespace
