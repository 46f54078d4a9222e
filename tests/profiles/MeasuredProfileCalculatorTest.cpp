// SPDX-License-Identifier: BSL-1.0
#include "testing/Csv.h"
#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Polygons.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/FittingHelper.h>
#include <Calculations/MeasuredProfileCalculator.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

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
  points[7].x = std::nan("");
  const auto expectLikeSingleCalls = [&](const auto& calculator) {
    std::vector<ProfilePointResult> list(points.size(), ProfilePointResult({1, 2}, 3, 4));
    EXPECT_EQ(calculator.calculateProfilePoints(points.data(), points.size(), list.data()),
              points.size() - 1);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const ProfilePointResult expected = calculator.calculateProfilePoint(points[i]);
      EXPECT_EQ(std::memcmp(&list[i], &expected, sizeof expected), 0) << i;
    }
  };
  expectLikeSingleCalls(theoretical);
  expectLikeSingleCalls(byDesign);
  expectLikeSingleCalls(byMeasured);
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

TEST(MeasuredProfileCalculator, FitsAsTheFitsDo) {
  std::vector<Point2D> points;
  for (int i = 0; i < 40; ++i) {
    points.emplace_back(5 * std::cos(0.15 * i), 1 + 4 * std::sin(0.15 * i));
  }
  for (std::size_t i = 11; i < 40; i += 6) {
    points[i].y += 363.0 / double(i * i);  // the ellipse takes three rounds
  }
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
      each.overProfileDividedByGeologicalAreaPathes(
          GeologicalOverProfileMethod::GeologicalBandFromReference, limit, 0.5);
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
              Point2D(kNoCoordinate, kNoCoordinate), 0);  // there is no normal
  const MeasuredProfileCalculator nothing(ProfilePtr(), scans[0]);
  EXPECT_EQ(nothing.referenceArea() + nothing.comparisonCircumference(), 0.0);
  EXPECT_TRUE(nothing.comparisonCircumferenceLines(true).empty());
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
