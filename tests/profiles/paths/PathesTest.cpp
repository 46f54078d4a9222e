#include "testing/Numbers.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using ClipperLib::IntPoint;
using namespace TestSupport;

Path lineThrough(const std::vector<Point2D>& corners) {
  Path path;
  for (const Point2D& corner : corners) {
    path.addSegment(PathSegment(corner.x, corner.y));
  }
  return path;
}

Path ring(const std::vector<Point2D>& corners) {
  Path path = lineThrough(corners);
  path.close(true);
  return path;
}

Path box(double left, double bottom, double right, double top) {
  return ring({{left, bottom}, {left, top}, {right, top}, {right, bottom}});
}

Path circle(double radius, double x = 0.0, double y = 0.0) {
  Path path = lineThrough({{x - radius, y}});
  path.addSegment(PathSegment(x + radius, y, radius));
  path.addSegment(PathSegment(x - radius, y, radius));
  path.close(true);
  return path;
}

TEST(PathHelper, ConvertsUnitsByTruncation) {
  EXPECT_EQ(PathHelper::asClipperLibUnits(1.23456), 12346);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-1.23456), -12345);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-0.00004), 0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-5.0), -49999);
  EXPECT_EQ(PathHelper::fromClipperLibUnits(-12345), -1.2345);
  EXPECT_EQ(PathHelper::fromClipperLibArea(1e8), 1.0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(std::nan("")), 0);
  EXPECT_EQ(PathHelper::asClipperLibUnits(1e300), 1000000000000000);
  EXPECT_EQ(PathHelper::asClipperLibUnits(-std::numeric_limits<double>::infinity()),
            -1000000000000000);
}

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
  Path impossible = lineThrough({{0, 0}});
  impossible.addSegment(PathSegment(3, 0, 1.49));
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

TEST(Pathes, HaveNoPiecesOfNegativeArea) {
  // The clipper makes a hole of a part of this outline, which runs along itself.
  const Path crossed = lineThrough({{2, 1}, {3, 3}, {3, 1}, {0, 1}, {3, 3}, {3, 2}, {0, 1}});
  EXPECT_NEAR(Path::without(crossed, Path()).area(), 1.9, 1e-3);
  // Cleaning turns this common sliver inside out.
  const Path a = PathHelper::pathFromClipperLibPath(
      {IntPoint(-17, 8050), IntPoint(-23, -2920), IntPoint(17, -3218), IntPoint(0, -1923)});
  const Path b = PathHelper::pathFromClipperLibPath(
      {IntPoint(-13, -38), IntPoint(-25, 1095), IntPoint(16, -3796)});
  EXPECT_EQ(Path::within(a, b).area(), 0.0);
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

TEST(Pathes, CombineAreas) {
  const Path a = box(0, 0, 4, 4);
  const Path b = box(2, 1, 6, 3);
  EXPECT_NEAR(Path::within(a, b).area(), 4.0, 1e-7);
  EXPECT_NEAR(Path::without(a, b).area(), 12.0, 1e-7);
  Pathes nested(a);
  nested.addPath(box(1, 1, 3, 3));
  EXPECT_FALSE(nested.pointWithin(Point2D(2, 2)));
  EXPECT_TRUE(nested.pointWithin(Point2D(0.5, 2)));
  nested.addPaths(nested);
  EXPECT_EQ(nested.numPathes(), 4u);
  EXPECT_EQ(nested.area(), 40.0);
  EXPECT_EQ(nested.pathAt(9).numDiscretePathPoints(), 0u);
  EXPECT_NEAR(Path::linesWithin(a, b).linesLength(), 2.0, 1e-7);
  EXPECT_NEAR(b.borderWithinOtherPathes(Pathes(a)), 6.0, 1e-7);
  EXPECT_EQ(Path::within(Path(), a).numPathes(), 0u);
}

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
TEST(Pathes, FindAllPartsOfSteppedLinesOnce) {
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
TEST(Pathes, FindAllPartsOfALineThatEndsLevel) {
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
TEST(Pathes, RoundCrossingsToTheNearest) {
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

/// Left to itself the clipper finds no area in the first two cases and 4.2 m of line in the last.
TEST(Pathes, MayShareEdges) {
  Pathes adjoining(ring({{3, 3}, {2, 3}, {1, 2}, {2, 2}, {2, 1}, {2.5, 1.5}, {3, 1}}));
  adjoining.addPath(ring({{2, 1}, {3, 1}, {3, 2}, {2.5, 1.5}, {2, 2}}));
  EXPECT_NEAR(Pathes::within(box(2, 1, 3, 2), adjoining).area(), 0.5, 1e-7);
  Pathes halfTwice(box(0, 1, 2, 2));
  halfTwice.addPath(box(1, 1, 2, 2));
  halfTwice.addPath(box(1, 1, 2, 2));
  EXPECT_NEAR(Pathes::without(halfTwice, box(1, 0, 2, 1)).area(), 2.0, 1e-7);
  Pathes overlapping(ring({{3, 1}, {4, 0}, {4, 6}, {0, 6}, {0, 2}, {2, 0}}));
  overlapping.addPath(ring({{1, 5}, {0, 4}, {0, 0}, {2, 0}, {3, 1}, {1, 3}, {2, 4}}));
  const Path line = lineThrough({{4, 2}, {2, 0}, {2, 2}, {0, 2}, {2, 4}});
  const Pathes inside = Pathes::linesWithin(line, overlapping, false);
  EXPECT_LT(inside.linesLength(), 2 * std::sqrt(2.0) + 1e-3);  // half of it along an outline
  EXPECT_GT(inside.linesLength(), std::sqrt(2.0) - 1e-3);
}

TEST(Pathes, ExpandWithRoundCornersAndFlatEnds) {
  EXPECT_NEAR(Path::expand(box(0, 0, 4, 4), 0.5).area(), 16 + 8 + kPi * 0.25, 1e-3);
  const Path line = lineThrough({{0, 0}, {3, 0}, {3, 3}});
  // The outer side of the corner is round.
  EXPECT_NEAR(Path::expandLine(line, 0.5).area(), 3 + 3 - 0.25 + kPi * 0.25 / 4, 1e-3);
  EXPECT_EQ(Path::expandLine(line, 0.0).numPathes(), 0u);
  // Around a closed line: a ring, in pieces without a hole.
  const Path closed = box(0, 0, 4, 4);
  const Pathes band = Path::expandLine(closed, 0.1);
  EXPECT_GE(band.numPathes(), 2u);
  EXPECT_NEAR(band.area(), 16 * 0.2, 0.03);
}

/// Bands of kilometres round an outline took the clipper seconds, at 4500 points for each corner.
TEST(Pathes, HugeOffsetsHaveFewPointsForTheirCorners) {
  for (const double d : {1e3, 1e5, 1e8}) {
    const Pathes grown = Path::expand(box(0, 0, 4, 4), d);
    ASSERT_EQ(grown.numPathes(), 1u) << d;
    EXPECT_LT(grown.pathAt(0).numDiscretePathPoints(), 1500u) << d;
    EXPECT_NEAR(grown.area() / (16 + 16 * d + kPi * d * d), 1.0, 3e-4) << d;
  }
}

TEST(Pathes, GrownOutlinesMayHoldHolesAndBandsNoSpurs) {
  // The arms of the C meet and close round a hole.
  const Pathes grown = Path::expand(ring({{0, 0},
                                          {0, 10},
                                          {10, 10},
                                          {10, 6},
                                          {9, 6},
                                          {9, 9},
                                          {1, 9},
                                          {1, 1},
                                          {9, 1},
                                          {9, 5},
                                          {10, 5},
                                          {10, 0}}),
                                    0.6);
  ASSERT_EQ(grown.numPathes(), 2u);
  EXPECT_NEAR(grown.pathAt(1).area(), -(8 - 1.2) * (8 - 1.2), 0.1);
  EXPECT_NEAR(grown.area(), grown.pathAt(0).area() + grown.pathAt(1).area(), 1e-12);
  // What leads back along itself goes when the line is cleaned.
  const Path spur = lineThrough({{0, 0}, {1, 0}, {3, 0}, {2, 0}});
  EXPECT_NEAR(Path::expandLine(spur, 0.5).area(), 2.0, 1e-3);
}

TEST(Pathes, TellFailureFromNothing) {
  const double nan = std::nan("");
  const Path square = box(0, 0, 4, 4);
  EXPECT_EQ(Path::within(square, box(5, 5, 6, 6)).area(), 0.0);
  EXPECT_EQ(Path::expand(square, -3).area(), 0.0);
  // No distance, no offset. What is made of a failure fails too.
  const Pathes failed = Path::expand(square, nan);
  Pathes joined(square);
  joined.addPaths(failed);
  Pathes assigned(square);
  assigned = failed;
  for (const Pathes& each :
       {failed, joined, assigned, Path::expandLine(square, nan), Pathes::expand(failed, 1),
        Path::expand(square, std::numeric_limits<double>::infinity()),
        Pathes::within(failed, Pathes(square)), Pathes::without(Pathes(square), failed),
        Pathes::linesWithin(failed, Pathes(square), true)}) {
    EXPECT_TRUE(std::isnan(each.area()));
    EXPECT_TRUE(std::isnan(each.linesLength()));
    EXPECT_FALSE(each.pointWithin(Point2D(9, 9)));
  }
  EXPECT_EQ(failed.numPathes(), 0u);
  EXPECT_TRUE(std::isnan(square.borderWithinOtherPathes(failed)));
  assigned = Pathes(square);
  EXPECT_EQ(assigned.area(), square.area());
}

TEST(Path, LeavesOutWhatIsNotFinite) {
  const double inf = std::numeric_limits<double>::infinity();
  const Path square = lineThrough({{std::nan(""), 1}, {0, 0}, {2, 0}, {2, inf}, {2, 2}, {0, 2}});
  EXPECT_EQ(square.numDiscretePathPoints(), 4u);
  EXPECT_EQ(square.area(), 4.0);
  EXPECT_TRUE(box(-1, -1, 1, 1).pointWithin(Point2D(0, 0)));
  EXPECT_FALSE(box(-1, -1, 1, 1).pointWithin(Point2D(std::nan(""), 0)));
}

/// Such points come from callers who make paths of the clipper's own.
TEST(Path, RefusesWhatTheClipperCannotHold) {
  const ClipperLib::cInt limit = ClipperLib::hiRange;
  for (const ClipperLib::cInt far : {limit + 1, std::numeric_limits<ClipperLib::cInt>::max()}) {
    for (const IntPoint& p : {IntPoint(far, 0), IntPoint(0, -far)}) {
      const Path path = PathHelper::pathFromClipperLibPath({{0, 0}, {10, 0}, p, {0, 10}});
      EXPECT_THROW(Path::within(path, box(0, 0, 1, 1)), ClipperLib::clipperException);
      EXPECT_THROW(Path::expand(path, 1), ClipperLib::clipperException);
      EXPECT_THROW(Path::expandLine(path, 1), ClipperLib::clipperException);
      EXPECT_THROW(Path::linesWithin(path, box(0, 0, 1, 1)), ClipperLib::clipperException);
      EXPECT_THROW(PathHelper::convertRingToSimplePaths(
                       {{{0, 0}, {9, 0}, {9, 9}}, PathHelper::clipperLibPathFromPath(path)}),
                   ClipperLib::clipperException);
    }
  }
  const ClipperLib::cInt most = limit - 100000;  // room to grow
  const Path wide = PathHelper::pathFromClipperLibPath({{0, 0}, {most, 0}, {0, most}});
  EXPECT_GT(Path::expand(wide, 1).area(), wide.area());
}

/// Every piece is a simple polygon without a hole, and the pieces do not overlap. Cleaning by
/// 0.14 mm may change their area.
void expectSimplePieces(const Pathes& pieces, double area) {
  constexpr double kCleaning = 1e-3;
  EXPECT_NEAR(pieces.area(), area, kCleaning);
  double absolute = 0.0;
  for (unsigned i = 0; i < pieces.numPathes(); ++i) {
    const Path piece = pieces.pathAt(i);
    absolute += std::abs(piece.area());
    // Cleaning of self-touching outlines would change the area.
    ClipperLib::Paths simple;
    ClipperLib::SimplifyPolygon(PathHelper::clipperLibPathFromPath(piece), simple,
                                ClipperLib::pftNonZero);
    EXPECT_EQ(simple.size(), 1u);
    for (unsigned k = 0; k < i; ++k) {
      EXPECT_LT(Path::within(piece, pieces.pathAt(k)).area(), 1e-6);
    }
  }
  EXPECT_NEAR(absolute, area, kCleaning);
}

TEST(Pathes, HandOutRingsInSimplePieces) {
  const Path outer = circle(5.2);
  const Path inner = circle(5.0);
  const Pathes ringPieces = Path::without(outer, inner);
  EXPECT_EQ(ringPieces.numPathes(), 2u);
  expectSimplePieces(ringPieces, outer.area() - inner.area());
  EXPECT_NEAR(ringPieces.pathAt(0).area(), ringPieces.pathAt(1).area(), 1e-3);
  // Several holes, a hole in an island, and outlines without holes beside.
  Pathes holes(circle(1.0, -2.5, 0));
  holes.addPath(circle(1.0, 2.5, 0.5));
  holes.addPath(circle(0.3, 2.5, 3));
  expectSimplePieces(Pathes::without(Pathes(outer), holes),
                     outer.area() - 2 * circle(1.0).area() - circle(0.3).area());
  Pathes island(outer);
  island.addPath(circle(3.0));
  island.addPath(circle(2.0));
  island.addPath(box(8, 0, 9, 1));
  expectSimplePieces(
      Pathes::without(island, Pathes(circle(1.0))),
      outer.area() - circle(3.0).area() + circle(2.0).area() - circle(1.0).area() + 1.0);
  // Holes that touch the outline with all their corners, and with two edges as the grid allows.
  const ClipperLib::Paths touching[] = {
      {{{0, 0}, {400, 0}, {400, 400}, {0, 400}}, {{200, 0}, {0, 200}, {200, 400}, {400, 200}}},
      {{{50526, 4976}, {53665, 9764}, {53787, 11339}, {50984, 13965}, {50236, 4377}},
       {{50674, 9997}, {50797, 11572}, {53787, 11338}, {53664, 9763}}}};
  for (const ClipperLib::Paths& paths : touching) {
    double sum = 0.0;
    for (const ClipperLib::Path& piece : PathHelper::convertRingToSimplePaths(paths)) {
      EXPECT_GT(ClipperLib::Area(piece), 0.0);
      sum += ClipperLib::Area(piece);
    }
    EXPECT_NEAR(sum, ClipperLib::Area(paths[0]) + ClipperLib::Area(paths[1]), 1e4);
  }
  // A hole too narrow for the grid to be cut in its middle is filled.
  const ClipperLib::Paths narrow = {{{0, 0}, {90, 0}, {90, 90}, {0, 90}},
                                    {{40, 10}, {40, 80}, {41, 80}, {41, 10}}};
  EXPECT_EQ(PathHelper::convertRingToSimplePaths(narrow), ClipperLib::Paths(1, narrow[0]));
  Random random(101);
  for (int round = 0; round < 15; ++round) {
    Pathes cut;
    double area = outer.area();
    for (int i = 0; i < 8; ++i) {
      const double size = random.uniform(0.05, 0.4);
      const double angle = 2 * kPi * i / 8;
      cut.addPath(circle(size, 3 * std::cos(angle), 3 * std::sin(angle)));
      area -= cut.pathAt(static_cast<unsigned>(i)).area();
    }
    expectSimplePieces(Pathes::without(Pathes(outer), cut), area);
  }
}

TEST(SimplyfyLine, KeepsEndsAndCorners) {
  const auto pointOf = &PathHelper::fromClipperLibPoint;
  ClipperLib::Path line;
  for (int i = 0; i <= 40; ++i) {
    line.emplace_back(i * 100, i > 1 && i < 40 ? i % 2 : 0);  // within the tolerance
  }
  for (int i = 1; i <= 40; ++i) {
    line.emplace_back(4000, i * 100);
  }
  const ClipperLib::Path kept = PathHelper::simplyfyLine(line, 1.415);
  ASSERT_EQ(kept.size(), 3u);
  EXPECT_EQ(kept[1], IntPoint(4000, 0));
  EXPECT_EQ(PathHelper::simplyfyLine({{0, 0}, {1, 0}, {2, 0}}, 5).size(), 3u);
  // Products of these overflow.
  const ClipperLib::cInt far = 1000000000000000;
  const ClipperLib::Path wide = {{-far, -far}, {far, far}, {-far, far}, {far, -far}, {0, 0}};
  EXPECT_GE(PathHelper::simplyfyLine(wide, 1).size(), 4u);
  // So do their differences.
  const ClipperLib::cInt lowest = std::numeric_limits<ClipperLib::cInt>::min();
  const ClipperLib::cInt highest = std::numeric_limits<ClipperLib::cInt>::max();
  const ClipperLib::Path widest = {
      {lowest, lowest}, {highest, highest}, {lowest, highest}, {highest, lowest}, {lowest, 0}};
  EXPECT_EQ(PathHelper::simplyfyLine(widest, 1), widest);
  // Points in one place give no direction, and what is no tolerance allows nothing.
  const ClipperLib::Path corner = {{0, 0}, {0, 0}, {9, 0}, {9, 9}, {18, 9}};
  EXPECT_EQ(PathHelper::simplyfyLine(corner, 0.0).size(), 4u);
  EXPECT_EQ(PathHelper::simplyfyLine(corner, std::nan("")).size(), 4u);
  Random random(102);
  for (int round = 0; round < 50; ++round) {
    ClipperLib::Path walk(1, IntPoint(0, 0));
    for (int i = 0; i < 200; ++i) {
      walk.emplace_back(walk.back().X + static_cast<int>(random.index(7)) - 1,
                        walk.back().Y + static_cast<int>(random.index(5)) - 2);
    }
    const ClipperLib::Path simple = PathHelper::simplyfyLine(walk, 3.0);
    EXPECT_EQ(simple.front(), walk.front());
    EXPECT_EQ(simple.back(), walk.back());
    // Every point left out lies near the simplified line.
    for (const IntPoint& p : walk) {
      double nearest = 1e9;
      for (std::size_t i = 1; i < simple.size(); ++i) {
        const Point2D d = pointOf(simple[i]) - pointOf(simple[i - 1]);
        const Point2D q = pointOf(p) - pointOf(simple[i - 1]);
        const double t = (q.x * d.x + q.y * d.y) / std::max(1e-12, d.x * d.x + d.y * d.y);
        nearest = std::min(nearest, (q - d * std::max(0.0, std::min(1.0, t))).length());
      }
      EXPECT_LE(nearest, 2 * 3e-4 + 1e-12);
    }
  }
}

TEST(PathHelper, LeavesOutSmallAreas) {
  Pathes paths(box(0, 0, 0.7, 0.7));
  ClipperLib::Path negative = PathHelper::clipperLibPathFromPath(box(2, 0, 2.5, 1));
  ClipperLib::ReversePath(negative);
  paths.addPath(PathHelper::pathFromClipperLibPath(negative));
  const std::vector<Polygon> areas = PathHelper::profileAreasFromPathes(paths, 0.5);
  ASSERT_EQ(areas.size(), 1u);
  EXPECT_GE(areas[0].points()[0].x, 2.0);
  EXPECT_EQ(PathHelper::profileLinesFromPathes(paths).size(), 2u);
  // A hole in nothing is not cut.
  EXPECT_EQ(PathHelper::convertRingToSimplePaths({negative}), ClipperLib::Paths(1, negative));
  EXPECT_EQ(PathHelper::convertRingToSimplePaths({ClipperLib::Path(), negative}).size(), 2u);
}

}  // namespace
