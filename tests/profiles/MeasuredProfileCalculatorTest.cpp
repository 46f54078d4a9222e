#include "testing/Csv.h"
#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/FittingHelper.h>
#include <Calculations/MeasuredProfileCalculator.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

constexpr double kNone = 3.4028234663852886e38;
using Method = GeologicalOverProfileMethod;

/// The road tunnel as excavated: 0.2 m too wide, and 0.6 m at the crown between two bearings.
MeasuredPtr excavationWithChimney() {
  std::vector<Point2D> points;
  for (int i = 0; i < 720; ++i) {
    const double bearing = 2 * kPi * i / 720;
    const bool isChimney = bearing < 0.3 || bearing > 2 * kPi - 0.3;
    const double radius = isChimney ? 5.6 : 5.2;
    points.emplace_back(radius * std::sin(bearing), 4 + radius * std::cos(bearing));
  }
  return measuredThrough(points);
}

double areaOf(const std::vector<Polygon>& polygons) {
  double area = 0.0;
  for (const Polygon& polygon : polygons) {
    const std::vector<Point2D> points = polygon.points();
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Point2D& a = points[i];
      const Point2D& b = points[(i + 1) % points.size()];
      area += (a.x * b.y - b.x * a.y) / 2;
    }
  }
  return area;
}

TEST(MeasuredProfile, IsAClosedPolygon) {
  MeasuredProfile profile;
  EXPECT_EQ(profile.getCircumference(), 0.0);
  expectPoint(profile.getSegmentEndAt(0), Point2D(), 0);
  profile.addPoint(Point2D(1, 1));
  EXPECT_EQ(profile.getNumSegments(), 1u);
  for (const unsigned int index : {0u, 1u, 7u}) {
    expectPoint(profile.getSegmentEndAt(index), Point2D(1, 1), 0);
  }
  profile.addPoint(Point2D(4, 5));
  EXPECT_EQ(profile.getCircumference(), 10.0);
  expectPoint(profile.getSegmentStartAt(1), Point2D(4, 5), 0);
  expectPoint(profile.getSegmentEndAt(1), Point2D(1, 1), 0);
  expectPoint(profile.getPointAt(2), Point2D(), 0);
  expectPoint(profile.getSegmentEndAt(2), Point2D(), 0);
}

TEST(MeasuredProfileCalculator, GoldenRings) {
  std::map<std::string, MeasuredPtr> rings;
  for (const CsvRow& row : rowsOf("rings/lining_5800_points.csv")) {
    MeasuredPtr& ring = rings[row.text("ring")];
    if (!ring) ring = measuredThrough({});
    ring->addPoint(Point2D(row.number("x"), row.number("y")));
  }
  for (const CsvRow& row : rowsOf("rings/lining_5800_areas.csv")) {
    SCOPED_TRACE(row.text("ring"));
    const double radius = row.number("circle_radius");
    const MeasuredProfileCalculator calculator(
        circleProfile(radius, row.number("circle_x"), row.number("circle_y")),
        rings.at(row.text("ring")));
    // The design circle as four arcs of 100 chords each is 1.1e-3 m2 smaller. Truncation to the
    // grid of 0.1 mm takes 6e-4 m2 of a ring of 5.8 m about x = 0; rounding adds to that.
    const double chords = radius * radius * (kPi - 200 * std::sin(kPi / 200));
    EXPECT_NEAR(calculator.comparisonArea(), row.number("outline_area"), 7e-4);
    EXPECT_NEAR(calculator.comparisonCircumference(), row.number("outline_length"), 1e-9);
    EXPECT_NEAR(calculator.referenceArea(), kPi * radius * radius - chords, 7e-4);
    EXPECT_NEAR(calculator.overProfileArea(), row.number("outline_beyond_circle"), 1.5e-3);
    EXPECT_NEAR(calculator.underProfileArea(), row.number("circle_beyond_outline") - chords,
                1.5e-3);
  }
}

TEST(MeasuredProfileCalculator, GoldenDigitisedOutline) {
  const MeasuredPtr profile = measuredThrough(digitisedOutline());
  const CsvRow row = rowsOf("profiles/digitised/expected.csv").front();
  const MeasuredProfileCalculator calculator(profile, profile);
  EXPECT_NEAR(calculator.comparisonArea(), row.number("outline_area"), 1e-3);
  EXPECT_NEAR(calculator.comparisonCircumference(), row.number("outline_length"), 1e-9);
  EXPECT_EQ(calculator.overProfileArea(), 0.0);
  EXPECT_EQ(calculator.underProfileArea(), 0.0);
  EXPECT_EQ(calculator.comparisonArea(), calculator.referenceArea());
  const FittingResult ellipse =
      calculator.leastSquarePointOfComparisonProfile(FittingMethod::EllipseFitzgibbon);
  EXPECT_NEAR(ellipse.semiAxisA, row.number("ellipse_a"), 1e-9);
  EXPECT_NEAR(ellipse.rotation, row.number("ellipse_rotation"), 1e-9);
}

TEST(MeasuredProfileCalculator, TellsPointsRelativeToAnyReference) {
  Random random(111);
  const ProfilePtr design = profileThrough(roadTunnelNodes());
  const ThProfileCalculator theoretical(design);
  const MeasuredPtr reference = measuredCircle(5.0, 300, 0.0, 4.0);
  const MeasuredProfileCalculator byDesign(design, reference);
  const MeasuredProfileCalculator byMeasured(reference, reference);
  std::vector<Point2D> points;
  for (int i = 0; i < 50; ++i) {
    points.emplace_back(random.uniform(-6, 6), random.uniform(-2, 10));
  }
  const std::vector<ProfilePointResult> all = byDesign.calculateProfilePoints(points);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const ProfilePointResult expected = theoretical.calculateProfilePoint(points[i]);
    EXPECT_EQ(all[i].derolment, expected.derolment);
    EXPECT_EQ(all[i].distance, expected.distance);
    expectPoint(all[i].profilePoint, expected.profilePoint, 0);
    EXPECT_EQ(byDesign.calculateProfilePoint(points[i]).distance, expected.distance);
    const double radius = (points[i] - Point2D(0, 4)).length();
    EXPECT_NEAR(byMeasured.calculateProfilePoint(points[i]).distance, radius - 5.0, 1.2e-3);
  }
}

TEST(MeasuredProfileCalculator, SeesChangedProfiles) {
  const MeasuredPtr scan = measuredThrough({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const ProfilePtr design = profileThrough({{0, 0, 0}, {0, 2, 0}, {2, 2, 0}, {2, 0, 0}, {0, 0, 0}});
  const MeasuredProfileCalculator calculator(design, scan);
  const MeasuredProfileCalculator byScan(scan, scan);
  EXPECT_NEAR(calculator.overProfileArea(), 12.0, 1e-7);
  EXPECT_EQ(byScan.calculateProfilePoint(Point2D(5, 1)).distance, 1.0);
  // As many points and segments as before: the scan smaller, one wall of the design an arc.
  scan->reset();
  for (const Point2D& point : {Point2D(0, 0), {1, 0}, {1, 1}, {0, 1}}) {
    scan->addPoint(point);
  }
  EXPECT_NEAR(calculator.comparisonArea(), 1.0, 1e-7);
  EXPECT_NEAR(calculator.underProfileArea(), 3.0, 1e-7);
  EXPECT_EQ(byScan.calculateProfilePoint(Point2D(5, 1)).distance, 4.0);
  design->resetThProfile();
  design->addSegmentArc(0, 0, 0, 2, 1.0);
  design->addSegmentStraight(0, 2, 2, 2);
  design->addSegmentStraight(2, 2, 2, 0);
  design->addSegmentStraight(2, 0, 0, 0);
  EXPECT_NEAR(calculator.referenceArea(), 4.0 + kPi / 2, 1e-3);
  // One coordinate of one point.
  const std::vector<Point2D> before = {{0, 0}, {2, 2}, {4, 0}};
  for (const Point2D& moved : {Point2D(2, 5), Point2D(5, 2)}) {
    for (const Point2D& top : {before[1], moved}) {
      scan->reset();
      scan->addPoint(before[0]);
      scan->addPoint(top);
      scan->addPoint(before[2]);
      EXPECT_NEAR(calculator.comparisonArea(), 2 * top.y, 1e-3);
      const ProfilePointResult atTop = byScan.calculateProfilePoint(top);
      EXPECT_EQ(atTop.distance, 0.0);
    }
  }
  scan->reset();
  EXPECT_EQ(calculator.comparisonArea(), 0.0);
  EXPECT_EQ(byScan.calculateProfilePoint(Point2D(5, 1)).distance, 0.0);
}

TEST(MeasuredProfileCalculator, LeavesOutAreasOfLessThanASquareCentimetre) {
  const ProfilePtr design = profileThrough({{0, 0, 0}, {0, 2, 0}, {2, 2, 0}, {2, 0, 0}, {0, 0, 0}});
  for (const double size : {0.02, 0.01}) {  // of a bump in the roof: 2 and 0.5 square centimetres
    const MeasuredPtr scan = measuredThrough(
        {{0, 0}, {2, 0}, {2, 2}, {1 + size, 2}, {1 + size / 2, 2 + size}, {1, 2}, {0, 2}});
    const MeasuredProfileCalculator calculator(design, scan);
    EXPECT_EQ(calculator.overProfileAreaPathes().size(), size > 0.015 ? 1u : 0u);
    EXPECT_TRUE(calculator.underProfileAreaPathes().empty());
    const MeasuredProfileCalculator swapped(scan,
                                            measuredThrough({{0, 0}, {2, 0}, {2, 2}, {0, 2}}));
    EXPECT_EQ(swapped.underProfileAreaPathes().size(), size > 0.015 ? 1u : 0u);
    EXPECT_NEAR(areaOf(swapped.underProfileAreaPathes()), size > 0.015 ? 2e-4 : 0.0, 1e-5);
    EXPECT_TRUE(swapped.overProfileAreaPathes().empty());
  }
}

TEST(MeasuredProfileCalculator, FindsTheComparisonAlongLines) {
  const MeasuredProfileCalculator calculator(circleProfile(2.0),
                                             measuredThrough({{-3, -3}, {3, -3}, {3, 3}, {-3, 3}}));
  expectPoint(calculator.horizontalDistanceToComparisonProfile(Point2D(0, 1)), Point2D(3, 1),
              1e-12);
  expectPoint(calculator.horizontalDistanceToComparisonProfile(Point2D(-1, 1)), Point2D(-3, 1),
              1e-12);  // on the edge that closes the polygon
  expectPoint(calculator.verticalDistanceToComparisonProfile(Point2D(1, -1)), Point2D(1, -3),
              1e-12);
  expectPoint(calculator.radialDistanceToComparisonProfile(Point2D(1, 0.5)), Point2D(3, 1.5), 1e-9);
  // Exactly one metre outside, where the offset point is the point itself.
  expectPoint(calculator.radialDistanceToComparisonProfile(Point2D(0, 3)), Point2D(0, 3), 1e-9);
  expectPoint(calculator.radialDistanceToComparisonProfile(Point2D(1.8, 2.4)), Point2D(2.25, 3),
              1e-9);
  expectPoint(calculator.horizontalDistanceToComparisonProfile(Point2D(0, 3.01)),
              Point2D(kNone, kNone), 0);
  expectPoint(calculator.verticalDistanceToComparisonProfile(Point2D(std::nan(""), 0)),
              Point2D(kNone, kNone), 0);
}

TEST(MeasuredProfileCalculator, CutsAtOffsets) {
  MeasuredProfileCalculator calculator(
      circleProfile(2.0), measuredThrough({{-3, -3}, {3, -3}, {3, 3}, {0, 5}, {-3, 3}}));
  EXPECT_EQ(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(0).size(), 2u);
  EXPECT_EQ(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(5).size(), 2u);   // a vertex
  EXPECT_EQ(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(-3).size(), 2u);  // an edge
  const auto cuts = calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(1);
  ASSERT_EQ(cuts.size(), 2u);
  expectPoint(cuts[0], Point2D(1, -3), 1e-12);
  expectPoint(cuts[1], Point2D(1, 5 - 2 / 3.0), 1e-12);
  // The reference by its corners, without arcs.
  expectPoint(calculator.intersectionsAtGivenUpOffsetOfReferenceProfile(1).at(0), Point2D(-1, 1),
              1e-12);
  expectPoint(calculator.intersectionsAtGivenRightOffsetOfReferenceProfile(0.5).at(0),
              Point2D(0.5, 1.5), 1e-12);
  EXPECT_TRUE(calculator.intersectionsAtGivenRightOffsetOfReferenceProfile(2.1).empty());
  // Filtered corners are bridged.
  calculator.setFilterExcludeAbove(4.0);
  EXPECT_TRUE(calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(3.5).empty());
  calculator.setFilterExcludeAbove(0.0);
  // Two points are no outline.
  EXPECT_TRUE(calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(1).empty());
}

TEST(MeasuredProfileCalculator, CutsWithinAKilometreOfTheOrigin) {
  const MeasuredPtr square = measuredThrough({{-1, -1}, {-1, 1}, {1, 1}, {1, -1}});
  for (const Point2D& centre : {Point2D(1000, 0), {-1000, 0}, {0, 1000}, {0, -1000}}) {
    const MeasuredPtr moved = measuredThrough({});
    for (unsigned int i = 0; i < 4; ++i) {
      moved->addPoint(square->getPointAt(i) + centre);
    }
    const MeasuredProfileCalculator calculator(moved, moved);
    const auto cuts = centre.y == 0.0
                          ? calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(0.5)
                          : calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(0.5);
    ASSERT_EQ(cuts.size(), 1u) << centre.x << ", " << centre.y;
    expectPoint(cuts[0],
                centre * 0.999 + Point2D(0, 0.5) * (centre.y == 0.0 ? 1.0 : 0.0) +
                    Point2D(0.5, 0) * (centre.y == 0.0 ? 0.0 : 1.0),
                1e-9);
  }
}

TEST(MeasuredProfileCalculator, FitsAsTheFitsDo) {
  std::vector<Point2D> points;
  for (int i = 0; i < 40; ++i) {
    points.emplace_back(5 * std::cos(0.15 * i), 1 + 4 * std::sin(0.15 * i));
  }
  points[11] = points[11] + Point2D(0, 3);
  const MeasuredProfileCalculator calculator(MeasuredPtr(), measuredThrough(points));
  std::vector<bool> used;
  for (const FittingResult& expected :
       {FittingHelper::circleFitRuvLegacy(points), FittingHelper::circleFitKasa(points),
        FittingHelper::circleFitLandau(points),
        FittingHelper::ellipseFitFitzgibbon(points, used, 1),
        FittingHelper::ellipseFitFitzgibbon(points, used, 10)}) {
    const FittingResult found = calculator.leastSquarePointOfComparisonProfile(expected.method);
    EXPECT_EQ(found.method, expected.method);
    EXPECT_EQ(found.semiAxisA, expected.semiAxisA);
    EXPECT_EQ(found.semiAxisB, expected.semiAxisB);
    expectPoint(found.center, expected.center, 0);
  }
  // Fewer than three points: none, the point itself, the middle of two.
  for (unsigned int count = 0; count < 3; ++count) {
    const std::vector<Point2D> few(points.begin(), points.begin() + count);
    const FittingResult found = MeasuredProfileCalculator(MeasuredPtr(), measuredThrough(few))
                                    .leastSquarePointOfComparisonProfile(FittingMethod::CircleKasa);
    EXPECT_EQ(found.method, FittingMethod::CircleKasa);
    EXPECT_EQ(found.radius, 0.0);
    expectPoint(found.center, count == 0 ? Point2D() : (points[0] + points[count - 1]) / 2.0, 0);
  }
}

TEST(MeasuredProfileCalculator, Filters) {
  MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0),
                                       measuredCircle(5.0, 360, 0.0, 4.0));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));
  calculator.setFilterExcludeAbove(2.0);
  calculator.setFilterExcludeAbove(4.0);
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 3)));
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(0, 4)));  // the border
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(0, -1001)));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(999, -999)));
  EXPECT_NEAR(calculator.comparisonArea(), 12.5 * kPi, 5e-3);
  EXPECT_NEAR(calculator.referenceArea(), 12.5 * kPi, 5e-3);
  EXPECT_NEAR(calculator.referenceCircumference(), 5 * kPi, 1e-2);
  EXPECT_EQ(calculator.leastSquarePointOfComparisonProfile(FittingMethod::CircleKasa).method, 1);
  calculator.setFilterExcludeRightOf(0.0);
  EXPECT_NEAR(calculator.comparisonArea(), 6.25 * kPi, 5e-3);
  calculator.setFilterExcludeBelow(1.0);
  calculator.setFilterExcludeLeftOf(-1.0);
  EXPECT_NEAR(calculator.comparisonArea(), 3.0, 1e-3);
  calculator.resetAllFilters();
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));
  // A wedge to the left of the centre, by bearings.
  calculator.setFilterExcludeBetweenAngles(5 * kPi / 4, 7 * kPi / 4, Point2D(0, 4));
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(-3, 4)));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(3, 4)));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 7)));
  EXPECT_NEAR(calculator.comparisonArea(), 0.75 * 25 * kPi, 0.02);
  EXPECT_EQ(calculator.comparisonCircumferenceLines(true).size(), 2u);  // cut at the first point
  // What two wedges share stays allowed.
  calculator.setFilterExcludeBetweenAngles(5 * kPi / 4, 7 * kPi / 4, Point2D(0, 4));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(-3, 4)));
  // Under a wedge upwards the middle of the section stays, and no outline is cut there.
  calculator.resetAllFilters();
  calculator.setFilterExcludeBetweenAngles(-0.3, 0.3, Point2D(0, 4));
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 3)));
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(0, 4)));  // the border
  EXPECT_EQ(calculator.comparisonCircumferenceLines(true).size(), 2u);
}

TEST(MeasuredProfileCalculator, CircumferencesDoNotDependOnWhereTheSectionStarts) {
  const std::vector<Point2D> corners = {{0, 0}, {0, 4}, {4, 4}, {4, 0}};
  for (std::size_t start = 0; start < 4; ++start) {
    for (const std::size_t step : {1u, 3u}) {  // clockwise, anticlockwise
      const MeasuredPtr section = measuredThrough({});
      for (std::size_t i = 0; i < 4; ++i) {
        section->addPoint(corners[(start + i * step) % 4]);
      }
      MeasuredProfileCalculator calculator(section, section);
      calculator.setFilterExcludeBelow(0.0);  // the floor lies on the border
      EXPECT_NEAR(calculator.comparisonCircumference(), 16.0, 1e-3) << start << ", " << step;
    }
  }
}

/// Right half of radius 7 round (0, 4), left half of radius 5.
TEST(MeasuredProfileCalculator, LeavesOutWhatFiltersExclude) {
  constexpr double kStep = 0.11;  // what lies between two bearings
  std::vector<Point2D> points;
  for (int i = 0; i < 400; ++i) {
    const double bearing = (i + 0.5) * kPi / 200;
    const double radius = bearing < kPi ? 7.0 : 5.0;
    points.emplace_back(radius * std::sin(bearing), 4 + radius * std::cos(bearing));
  }
  MeasuredProfileCalculator calculator(circleProfile(6.0, 0.0, 4.0), measuredThrough(points));
  const double over = kPi * (49 - 36) / 2;
  const double under = kPi * (36 - 25) / 2;
  EXPECT_NEAR(calculator.overProfileArea(), over, kStep);
  EXPECT_NEAR(calculator.underProfileArea(), under, kStep);
  const Point2D p(6.5, 4);
  const double distance = calculator.calculateProfilePoint(p).distance;
  calculator.setFilterExcludeRightOf(0.0);
  EXPECT_NEAR(calculator.overProfileArea(), 0.0, kStep);
  EXPECT_NEAR(calculator.underProfileArea(), under, kStep);
  const FittingResult fit =
      calculator.leastSquarePointOfComparisonProfile(FittingMethod::CircleKasa);
  expectPoint(fit.center, Point2D(0, 4), 1e-9);
  EXPECT_NEAR(fit.radius, 5.0, 1e-9);
  // Points are compared and distances measured all the same.
  EXPECT_EQ(calculator.calculateProfilePoint(p).distance, distance);
  EXPECT_NEAR(calculator.radialDistanceToComparisonProfile(p).x, 7.0, 1e-3);
  calculator.resetAllFilters();
  calculator.setFilterExcludeLeftOf(0.0);
  EXPECT_NEAR(calculator.overProfileArea(), over, kStep);
  EXPECT_NEAR(calculator.underProfileArea(), 0.0, kStep);
}

TEST(MeasuredProfileCalculator, GivesOutlines) {
  MeasuredProfileCalculator calculator(
      circleProfile(2.0), measuredThrough({{0, 0}, {0, 4}, {2, 4.0001}, {4, 4}, {4, 0}}));
  EXPECT_EQ(calculator.comparisonCircumferenceLines(false).at(0).points().size(), 6u);
  EXPECT_EQ(calculator.comparisonCircumferenceLines(true).at(0).points().size(), 5u);
  EXPECT_DOUBLE_EQ(calculator.referenceCircumference(), 4 * kPi);
  EXPECT_GT(calculator.referenceCircumferenceLines(true)[0].points().size(), 390u);
  calculator.setFilterExcludeAbove(2.0);
  EXPECT_EQ(calculator.comparisonCircumferenceLines(false).size(), 2u);  // cut at the first point
  EXPECT_NEAR(calculator.comparisonCircumference(), 8.0, 1e-3);
}

/// Area between two radii within half a bearing to both sides.
double sector(double outer, double inner, double halfBearing) {
  return (outer * outer - inner * inner) * halfBearing;
}

TEST(GeologicalOverProfile, TakesWhatLiesBeyondTheLimitAndItsBand) {
  const MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0), excavationWithChimney());
  const auto area = [&](Method::Method method, double limit, double second) {
    return calculator.geologicalOverProfileArea(method, limit, second);
  };
  const double beyond = sector(5.6, 5.3, 0.3);
  EXPECT_NEAR(area(Method::GeologicalBeyondLimitOnly, 0.3, 0), beyond, 0.02);
  EXPECT_EQ(area(Method::GeologicalBeyondLimitOnly, 0.61, 0), 0.0);
  EXPECT_NEAR(area(Method::GeologicalBandFromReference, 0.3, 0), beyond + sector(5.3, 5.0, 0.3),
              0.03);
  EXPECT_NEAR(area(Method::GeologicalBandBetweenLimits, 0.3, 0.1), beyond + sector(5.3, 5.1, 0.3),
              0.03);
  // Around the whole section.
  const MeasuredProfileCalculator ring(circleProfile(5.0, 0.0, 4.0),
                                       measuredCircle(5.6, 720, 0, 4));
  EXPECT_NEAR(ring.geologicalOverProfileArea(Method::GeologicalBandFromReference, 0.3, 0),
              sector(5.6, 5.0, kPi), 0.01);
  // No band between crossed limits, nor for a method that there is not.
  EXPECT_NEAR(area(Method::GeologicalBandBetweenLimits, 0.3, 0.4), beyond, 0.02);
  EXPECT_NEAR(area(static_cast<Method::Method>(7), 0.3, 0), beyond, 0.02);
}

TEST(GeologicalOverProfile, LeavesTheRestOfTheOverProfile) {
  MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0), excavationWithChimney());
  for (const bool filtered : {false, true}) {
    if (filtered) calculator.setFilterExcludeLeftOf(0.0);
    const double share = filtered ? 0.5 : 1.0;
    const auto parts = calculator.overProfileDividedByGeologicalAreaPathes(
        Method::GeologicalBandFromReference, 0.3, 0);
    EXPECT_NEAR(areaOf(parts.first),
                calculator.geologicalOverProfileArea(Method::GeologicalBandFromReference, 0.3, 0),
                1e-3);
    const auto whole =
        calculator.geologicalOverProfileAreaPathes(Method::GeologicalBandFromReference, 0.3, 0);
    EXPECT_NEAR(areaOf(parts.first), areaOf(whole), 1e-12);
    EXPECT_NEAR(areaOf(parts.second), share * sector(5.2, 5.0, kPi - 0.3), 0.03);
    EXPECT_NEAR(areaOf(calculator.overProfileAreaPathes()), calculator.overProfileArea(), 1e-3);
  }
}

/// One such point used to lie in the middle of the section: 1.7 m2 less, and 85 m2 of over profile.
TEST(MeasuredProfileCalculator, LeavesOutPointsThatAreNotFinite) {
  const double nan = std::nan("");
  const double inf = std::numeric_limits<double>::infinity();
  const auto numbersOf = [](const MeasuredPtr& scan, bool asReference) {
    const MeasuredProfileCalculator c =
        asReference ? MeasuredProfileCalculator(scan, measuredCircle(5.1, 90, 0.0, 4.0))
                    : MeasuredProfileCalculator(circleProfile(5.1, 0.0, 4.0), scan);
    const ProfilePointResult point = c.calculateProfilePoint(Point2D(4, 6));
    const Point2D p(-2, 5.5);
    return std::vector<double>{
        c.comparisonArea(),
        c.referenceArea(),
        c.overProfileArea(),
        c.underProfileArea(),
        c.comparisonCircumference(),
        c.referenceCircumference(),
        point.distance,
        point.derolment,
        c.horizontalDistanceToComparisonProfile(p).x,
        c.verticalDistanceToComparisonProfile(p).y,
        c.radialDistanceToComparisonProfile(p).x,
        c.leastSquarePointOfComparisonProfile(FittingMethod::CircleKasa).radius,
        c.leastSquarePointOfComparisonProfile(FittingMethod::CircleLegacy).center.y,
        static_cast<double>(c.intersectionsAtGivenUpOffsetOfComparisonProfile(5).size())};
  };
  const MeasuredPtr sound = measuredCircle(5.2, 100, 0.3, 4.0);
  for (const std::size_t place : {0u, 1u, 40u, 99u, 100u}) {
    for (const Point2D& bad : {Point2D(nan, 3), Point2D(1, inf), Point2D(-inf, nan)}) {
      SCOPED_TRACE(testing::Message() << place << ": " << bad.x << ", " << bad.y);
      const MeasuredPtr spoilt = measuredThrough({});
      for (unsigned i = 0; i <= 100; ++i) {
        if (i == place) spoilt->addPoint(bad);
        if (i < 100) spoilt->addPoint(sound->getPointAt(i));
      }
      EXPECT_EQ(spoilt->getNumPoints(), 101u);
      for (const bool asReference : {false, true}) {
        const std::vector<double> expected = numbersOf(sound, asReference);
        const std::vector<double> found = numbersOf(spoilt, asReference);
        for (std::size_t i = 0; i < expected.size(); ++i) {
          EXPECT_NEAR(found[i], expected[i], 1e-12) << i;
        }
      }
    }
  }
}

TEST(MeasuredProfileCalculator, JoinsTheNeighboursOfAPointThatIsNotFiniteByAStraight) {
  const MeasuredPtr scan = measuredThrough({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
  const MeasuredProfileCalculator calculator(
      profileThrough({{0, 0, 0}, {0, 4, 0}, {std::nan(""), 6, 0}, {4, 4, 3}, {4, 0, 0}, {0, 0, 0}}),
      scan);
  EXPECT_EQ(calculator.referenceArea(), calculator.comparisonArea());
  EXPECT_EQ(calculator.calculateProfilePoint(Point2D(2, 3)).distance, -1.0);
}

TEST(MeasuredProfileCalculator, LimitsThatAreNoNumbersAreNone) {
  const double nan = std::nan("");
  MeasuredProfileCalculator calculator(circleProfile(5.0, 0.0, 4.0), excavationWithChimney());
  calculator.setFilterExcludeAbove(4.0);
  calculator.setFilterExcludeLeftOf(0.0);
  const double quarter = calculator.comparisonArea();
  EXPECT_TRUE(calculator.isInFilteredArea(Point2D(nan, 1)));
  calculator.setFilterExcludeLeftOf(nan);
  EXPECT_NEAR(calculator.comparisonArea(), 2 * quarter, 0.01);
  calculator.setFilterExcludeBetweenAngles(nan, 1.0, Point2D(0, 4));
  calculator.setFilterExcludeBetweenAngles(0.0, 1.0, Point2D(0, nan));
  EXPECT_NEAR(calculator.comparisonArea(), 2 * quarter, 0.01);
  calculator.setFilterExcludeAbove(nan);
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));  // no filter is set any more
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(nan, 1)));
  calculator.setFilterExcludeAbove(std::numeric_limits<double>::infinity());
  EXPECT_FALSE(calculator.isInFilteredArea(Point2D(0, 5000)));
  // Nor is there a geological part.
  for (const auto& [a, b] : {std::pair(nan, 0.1), {0.3, nan}}) {
    EXPECT_TRUE(std::isnan(
        calculator.geologicalOverProfileArea(Method::GeologicalBandBetweenLimits, a, b)));
    const auto parts = calculator.overProfileDividedByGeologicalAreaPathes(
        Method::GeologicalBandBetweenLimits, a, b);
    EXPECT_EQ(parts.first.size() + parts.second.size(), 0u);
  }
}

TEST(MeasuredProfileCalculator, AnswersNeutrallyOnBadProfiles) {
  const double inf = std::numeric_limits<double>::infinity();
  const std::vector<MeasuredPtr> scans = {
      MeasuredPtr(),
      measuredThrough({}),
      measuredThrough({{1, 1}}),
      measuredThrough({{1, 1}, {2, 2}}),
      measuredThrough({{1, 1}, {1, 1}, {1, 1}, {1, 1}}),
      measuredThrough({{0, 0}, {4, 4}, {4, 0}, {0, 4}}),  // crosses itself
      measuredThrough({{0, 0}, {std::nan(""), 4}, {inf, 0}, {0, -1e300}, {3, 3}})};
  for (const MeasuredPtr& scan : scans) {
    MeasuredProfileCalculator each(scan, scan);
    each.calculateProfilePoint(Point2D(1, 2));
    each.radialDistanceToComparisonProfile(Point2D(1, 2));
    for (const double limit : {0.1, 0.0, -3.0, std::nan(""), inf, 1e300}) {
      EXPECT_GE(each.overProfileArea(), 0.0);
      each.overProfileDividedByGeologicalAreaPathes(Method::GeologicalBandFromReference, limit,
                                                    0.5);
      each.setFilterExcludeBelow(limit);
      each.setFilterExcludeBetweenAngles(limit, 1.0, Point2D(limit, 0));
      each.comparisonCircumferenceLines(false);
      each.isInFilteredArea(Point2D(limit, limit));
      if (!std::isfinite(limit)) {
        EXPECT_TRUE(each.intersectionsAtGivenUpOffsetOfComparisonProfile(limit).empty());
      }
      each.resetAllFilters();
    }
  }
  const MeasuredProfileCalculator withoutReference(ProfilePtr(), scans[5]);
  expectPoint(withoutReference.radialDistanceToComparisonProfile(Point2D(1, 2)),
              Point2D(kNone, kNone), 0);  // there is no normal
  const MeasuredProfileCalculator nothing(ProfilePtr(), scans[0]);
  EXPECT_EQ(nothing.referenceArea() + nothing.comparisonCircumference(), 0.0);
  const auto unknown = static_cast<FittingMethod::Method>(5);
  // No fit, but the mean, for less than three points.
  const MeasuredProfileCalculator two(ProfilePtr(), scans[3]);
  expectPoint(two.leastSquarePointOfComparisonProfile(unknown).center, Point2D(1.5, 1.5), 0);
  const MeasuredProfileCalculator square(ProfilePtr(), scans[5]);
  EXPECT_THAT([&] { square.leastSquarePointOfComparisonProfile(unknown); },
              testing::ThrowsMessage<std::exception>("Fitting method not implemented"));
  EXPECT_EQ(square.leastSquarePointOfComparisonProfile(FittingMethod::CircleLegacy).radius, 0.0);
  for (const auto method :
       {FittingMethod::CircleKasa, FittingMethod::CircleLandau, FittingMethod::EllipseFitzgibbon,
        FittingMethod::EllipseFitzgibbonIterative}) {
    const FittingResult found = square.leastSquarePointOfComparisonProfile(method);
    EXPECT_EQ(found.method, method);
    const bool isCircle = method < FittingMethod::EllipseFitzgibbon;
    EXPECT_NEAR(found.radius, isCircle ? std::sqrt(8.0) : 0.0, 1e-12);
  }
}

}  // namespace
