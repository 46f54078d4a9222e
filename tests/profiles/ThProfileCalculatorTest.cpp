// SPDX-License-Identifier: BSL-1.0
#include "testing/Csv.h"
#include "testing/Expectations.h"
#include "testing/Numbers.h"
#include "testing/Profiles.h"
#include "testing/Promises.h"

#include <Calculations/ThProfileCalculator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(ThProfileCalculator, GoldenNearestPoints) {
  std::string name;
  ProfilePtr profile;
  for (const CsvRow& row : rowsOf("profiles/nearest_points.csv")) {
    SCOPED_TRACE(row.text("case") + " " + row.text("x"));
    if (row.text("case") != name) {
      name = row.text("case");
      profile = goldenProfile(name);
    }
    const ThProfileCalculator calculator(profile);
    // The derolment of the first node is minus the crown's length along the chain.
    const double crown = -calculator.calculateProfilePoint(profile->getSegmentStartAt(0)).derolment;
    const double circumference = profile->getCircumference();
    const Point2D p(row.number("x"), row.number("y"));
    const Point2D foot(row.number("foot_x"), row.number("foot_y"));
    const ProfilePointResult result = calculator.calculateProfilePoint(p);
    expectPoint(result.profilePoint, foot, Promise::kProfilePoint);
    EXPECT_NEAR(result.distance, row.number("distance") * (row.number("inside") == 1 ? -1 : 1),
                Promise::kProfilePoint);
    EXPECT_NEAR(
        std::remainder(result.derolment - (row.number("length_along") - crown), circumference), 0.0,
        1e-9);
    expectPoint(calculator.calcPointOnProfileAtDerolment(result.derolment), foot, 1e-9);
    expectPoint(calculator.applyRadialOffset(p, result.distance), p, 1e-10);
  }
}

/// The road tunnel entered clockwise and anticlockwise, here and far from the origin.
class RoadTunnel : public testing::TestWithParam<int> {
 protected:
  bool m_isClockwise = (GetParam() & 1) == 0;
  double m_shift = (GetParam() & 2) == 0 ? 0.0 : 700.0;
  ProfilePtr m_profile = shiftedTunnel();
  ThProfileCalculator m_calculator{m_profile};

  ProfilePtr shiftedTunnel() const {
    std::vector<ProfileNode> nodes = roadTunnelNodes();
    for (ProfileNode& node : nodes) {
      node.x += m_shift;
    }
    return profileThrough(nodes, !m_isClockwise);
  }
  Point2D at(double x, double y) const { return Point2D(x + m_shift, y); }
};

TEST_P(RoadTunnel, CountsDerolmentsClockwiseFromTheCrown) {
  const double circumference = m_profile->getCircumference();
  EXPECT_EQ(m_profile->isDefinedClockwise(), m_isClockwise);
  const ProfilePointResult crown = m_calculator.calculateProfilePoint(at(0, 9.7));
  EXPECT_NEAR(crown.derolment, 0.0, 3e-6);
  EXPECT_NEAR(crown.distance, 0.2, 1e-9);
  expectPoint(crown.profilePoint, at(0, 9.5), 1e-9);
  const ProfilePointResult right = m_calculator.calculateProfilePoint(at(5.0, 4.0));
  EXPECT_NEAR(right.derolment, kPi / 2 * 5.5, 3e-6);
  EXPECT_NEAR(right.distance, -0.5, 1e-9);
  EXPECT_NEAR(m_calculator.calculateProfilePoint(at(-6.0, 4.0)).derolment, -kPi / 2 * 5.5, 3e-6);
  for (double d = -0.999; d < 1.0; d += 0.01) {
    const double derolment = d * circumference / 2;
    const Point2D point = m_calculator.calcPointOnProfileAtDerolment(derolment);
    const ProfilePointResult result = m_calculator.calculateProfilePoint(point);
    EXPECT_NEAR(result.derolment, derolment, Promise::kDerolmentBack);
    EXPECT_NEAR(result.distance, 0.0, 1e-9);
    expectPoint(m_calculator.calcPointOnProfileAtDerolment(derolment + circumference), point, 1e-9);
  }
}

TEST_P(RoadTunnel, OffsetsOutwards) {
  expectPoint(m_calculator.applyRadialOffset(at(0.0, 12.0), -1.0), at(0.0, 8.5), 1e-9);
  // At a convex corner along the line through the point.
  expectPoint(m_calculator.applyRadialOffset(at(-4.95, -0.1), 1.0),
              at(-4.8, 0) + Point2D(-0.15, -0.1) / std::hypot(0.15, 0.1), 1e-9);
}

TEST_P(RoadTunnel, SamplesClockwise) {
  const double circumference = m_profile->getCircumference();
  const std::vector<Point2D> vertices = m_calculator.vertexPoints();
  ASSERT_EQ(vertices.size(), 12u);
  expectPoint(vertices[0], at(-4.8, 0), 0);
  expectPoint(vertices[11], at(-4.0, -0.8), 0);
  double interval = 0;
  const std::vector<Point2D> samples = m_calculator.pointsOnProfileByFixedNumber(7, &interval);
  ASSERT_EQ(samples.size(), 7u);
  EXPECT_DOUBLE_EQ(interval, circumference / 7);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double step = m_calculator.calculateProfilePoint(samples[(i + 1) % 7]).derolment -
                        m_calculator.calculateProfilePoint(samples[i]).derolment;
    EXPECT_NEAR(std::remainder(step - interval, circumference), 0.0, 1e-8);
  }
  EXPECT_EQ(m_calculator.pointsOnProfileByInterval(circumference / 4.4, false).size(), 4u);
  EXPECT_EQ(m_calculator.pointsOnProfileByInterval(circumference / 4.6, false).size(), 5u);
  // The first vertex is the first sample.
  EXPECT_EQ(m_calculator.pointsOnProfileByInterval(1.0, true).size(),
            std::floor(circumference + 0.5) + 11);
}

TEST_P(RoadTunnel, MeasuresAcross) {
  EXPECT_NEAR(m_calculator.diameterAtProfilePoint(at(-5.6, 3.5)), 11.0, 1e-9);
  const std::vector<Point2D> level = m_calculator.profilePointsAtGivenUpOffset(3.5);
  ASSERT_EQ(level.size(), 2u);
  expectPoint(level[m_isClockwise ? 0 : 1], at(-5.5, 3.5), 1e-9);
  expectPoint(level[m_isClockwise ? 1 : 0], at(5.5, 3.5), 1e-9);
  // Through vertices: each joint once, the first node too.
  EXPECT_EQ(m_calculator.profilePointsAtGivenUpOffset(0).size(), 2u);
  EXPECT_EQ(m_calculator.profilePointsAtGivenUpOffset(9.5).size(), 1u);
  EXPECT_TRUE(m_calculator.profilePointsAtGivenUpOffset(9.501).empty());
  EXPECT_EQ(m_calculator.profilePointsAtGivenRightOffset(m_shift + 5.5).size(), 2u);  // the wall
}

INSTANTIATE_TEST_SUITE_P(Entered, RoadTunnel, testing::Range(0, 4), [](const auto& test) {
  return std::string((test.param & 1) == 0 ? "Clockwise" : "Anticlockwise") +
         ((test.param & 2) == 0 ? "" : "FarAway");
});

TEST(ThProfileCalculator, KnowsInsideFromOutsideOnTwoHalfCircles) {
  for (const double radius : {2.0, -2.0}) {
    const ThProfileCalculator circle(profileThrough({{-2, 0, 0}, {2, 0, radius}, {-2, 0, radius}}));
    EXPECT_NEAR(circle.calculateProfilePoint(Point2D(1, 1)).distance, std::sqrt(2.0) - 2, 1e-12);
    EXPECT_NEAR(circle.calculateProfilePoint(Point2D(0, -3)).distance, 1.0, 1e-12);
    expectPoint(circle.applyRadialOffset(Point2D(0.5, 0.5), 1.0),
                Point2D(3 * std::sqrt(0.5), 3 * std::sqrt(0.5)), 1e-12);
    EXPECT_NEAR(circle.diameterAtProfilePoint(Point2D(0.3, 0.4)), 4.0, 1e-9);
    // Vertices are samples, and sums of intervals miss them by their rounding.
    const double interval = 4 * kPi / 12;
    EXPECT_EQ(circle.pointsOnProfileByInterval(interval, true).size(), 12u);
  }
}

/// Points beside corners, one of them acute, where the normal of either neighbour alone can lie.
TEST(ThProfileCalculator, KnowsInsideFromOutsideAtRepeatedNodes) {
  const std::vector<ProfileNode> once = {{0, 0, 0}, {0, 4, 0}, {2, 4, 0}, {2, 2, 0},
                                         {4, 2, 0}, {9, 0, 0}, {0, 0, 0}};
  std::vector<ProfileNode> twice;
  for (const ProfileNode& node : once) {
    twice.insert(twice.end(), {node, {node.x, node.y, 0}});
  }
  const ThProfileCalculator expected(profileThrough(once));
  const ThProfileCalculator repeated(profileThrough(twice));
  for (int i = 0; i < 24 * 16; ++i) {
    const Point2D p(-1 + 0.5 * (i % 24), -2 + 0.5 * (i / 24));
    EXPECT_EQ(repeated.calculateProfilePoint(p).distance,
              expected.calculateProfilePoint(p).distance)
        << p.x << ", " << p.y;
  }
}

TEST(ThProfileCalculator, MeasuresTheShortestWayAcross) {
  const ProfilePtr u = profileThrough({{0, 0, 0},
                                       {0, 9, 0},
                                       {3, 9, 0},
                                       {3, 2, 0},
                                       {7, 2, 0},
                                       {7, 9, 0},
                                       {10, 9, 0},
                                       {10, 0, 0},
                                       {0, 0, 0}});
  const ThProfileCalculator calculator(u);
  EXPECT_NEAR(calculator.diameterAtProfilePoint(Point2D(0.1, 5)), 3.0, 1e-12);
  EXPECT_NEAR(calculator.diameterAtProfilePoint(Point2D(0.1, 1)), 10.0, 1e-12);
}

TEST(ThProfileCalculator, LooksForCutsWithinAKilometre) {
  const ThProfileCalculator right(circleProfile(5, 1000, 0));
  EXPECT_EQ(right.profilePointsAtGivenUpOffset(0).size(), 1u);
  const ThProfileCalculator below(circleProfile(5, 0, -1000));
  EXPECT_EQ(below.profilePointsAtGivenRightOffset(0).size(), 1u);
}

TEST(ThProfileCalculator, FoldsTheStartOfAnticlockwiseProfiles) {
  // Up to a tenth of a millimetre from the start, raw derolments run with the station.
  const ThProfileCalculator calculator(
      profileThrough({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, {0, 0, 0}}));
  const auto derolmentAt = [&](double x) {
    return calculator.calculateProfilePoint(Point2D(x, 0)).derolment;
  };
  EXPECT_NEAR(derolmentAt(0.00009) - derolmentAt(0), 0.00009, 1e-12);
  EXPECT_NEAR(derolmentAt(0.00011) - derolmentAt(0), -0.00011, 1e-12);
}

TEST(ThProfileCalculator, KeepsTheSignOfHalfACircumference) {
  const ThProfileCalculator fromInvert(
      profileThrough({{0, 0, 0}, {-1, 0, 0}, {-1, 2, 0}, {1, 2, 0}, {1, 0, 0}, {0, 0, 0}}));
  EXPECT_EQ(fromInvert.calculateProfilePoint(Point2D(0, -1)).derolment, -4.0);
  // Without area there is no crown, and derolments count from the start.
  const ThProfileCalculator thereAndBack(profileThrough({{0, 4, 0}, {0, 0, 0}, {0, 4, 0}}));
  EXPECT_EQ(thereAndBack.calculateProfilePoint(Point2D(0, 5)).derolment, 0.0);
  EXPECT_EQ(thereAndBack.calculateProfilePoint(Point2D(0, -1)).derolment, 4.0);
}

TEST(ThProfileCalculator, CountsDerolmentsFromTheCrownWhereverTheProfileStarts) {
  std::vector<ProfileNode> corners = roadTunnelNodes();
  corners.pop_back();
  for (std::size_t start = 0; start < corners.size(); ++start) {
    for (const bool backwards : {false, true}) {
      SCOPED_TRACE(testing::Message() << start << ", " << backwards);
      const ProfilePtr profile = profileThrough(fromNode(corners, start), backwards);
      const ThProfileCalculator calculator(profile);
      const double half = profile->getCircumference() / 2;
      const double towardsInvert = half - calculator.calculateProfilePoint({0, -3}).derolment;
      EXPECT_NEAR(std::remainder(towardsInvert, 2 * half), 0.0, Promise::kDerolment);
      for (int i = 0; i < 20; ++i) {
        const double derolment = (i - 9.5) / 10 * half;
        const Point2D point = calculator.calcPointOnProfileAtDerolment(derolment);
        EXPECT_NEAR(calculator.calculateProfilePoint(point).derolment, derolment,
                    Promise::kDerolmentBack);
      }
    }
  }
}

TEST(ThProfileCalculator, KeepsTheProfileThatItWasGiven) {
  const ProfilePtr profile = profileThrough(roadTunnelNodes());
  const ThProfileCalculator calculator(profile);
  profile->resetThProfile();
  EXPECT_NEAR(calculator.calculateProfilePoint(Point2D(0, 9.7)).distance, 0.2, 1e-9);
  EXPECT_EQ(calculator.vertexPoints().size(), 12u);
}

TEST(ThProfileCalculator, SamplesAPlaceOnceThatTheChainPassesTwice) {
  const std::vector<ProfileNode> crossed = {{-2, -2, 0}, {-2, 2, 0}, {0, 0, 0},
                                            {2, 2, 0},   {2, -2, 0}, {-0.0, -0.0, 0}};
  for (std::size_t start = 0; start < crossed.size(); ++start) {
    const ThProfileCalculator calculator(profileThrough(fromNode(crossed, start)));
    // The interval is longer than the profile: one sample, at the start.
    EXPECT_EQ(calculator.pointsOnProfileByInterval(30.0, true).size(), 5u) << start;
    EXPECT_TRUE(calculator.pointsOnProfileByFixedNumber(10000001u, nullptr).empty());
  }
}

/// A square with a half circle in place of its right side, under a level roof.
TEST(ThProfileCalculator, HasItsCrownAboveTheCentroidOfTheArea) {
  const ThProfileCalculator calculator(
      profileThrough({{0, 0, 0}, {0, 4, 0}, {4, 4, 0}, {4, 0, 2}, {0, 0, 0}}));
  const double centroid = (32 + 8 * kPi + 16 / 3.0) / (16 + 2 * kPi);
  EXPECT_NEAR(calculator.calculateProfilePoint(Point2D(1, 5)).derolment, 1 - centroid, 1e-3);
  expectPoint(calculator.calcPointOnProfileAtDerolment(0), Point2D(centroid, 4), 1e-3);
}

TEST(ThProfileCalculator, CountsStationsFromTheStartsGiven) {
  const ProfilePtr profile = profileThrough({{0, 0, 0}, {0, 4, 0}});
  profile->addSegmentStraight(2, 4, 4, 4);  // 2 m, stretched over 4 m
  profile->addSegmentStraight(4, 4, 4, 0);
  profile->addSegmentStraight(4, 0, 0, 0);
  const ThProfileCalculator calculator(profile);
  const double start = calculator.calculateProfilePoint(Point2D(0, 4)).derolment;
  EXPECT_NEAR(calculator.calculateProfilePoint(Point2D(1, 5)).derolment - start, 0.5, 1e-12);
  EXPECT_NEAR(calculator.calculateProfilePoint(Point2D(5, 3)).derolment - start, 3.0, 1e-12);
}

TEST(ThProfileCalculator, AnswersNeutrallyOnDegenerateProfiles) {
  const double largest = std::numeric_limits<double>::max();
  const std::vector<ProfilePtr> profiles = {
      ProfilePtr(),
      profileThrough({{0, 0, 0}}),
      profileThrough({{1, 1, 0}, {1, 1, 0}, {1, 1, 5}}),
      profileThrough({{0, 0, 0}, {9, 0, 1}, {0, 0, -1}}),
      profileThrough({{0, 0, 0}, {std::nan(""), 2, 0}, {4, 1, 3}, {0, 0, 0}}),
      profileThrough({{0, 0, 0}, {1e300, 2, 0}, {4, -1e300, 3}, {0, 0, 0}})};
  for (const ProfilePtr& profile : profiles) {
    const ThProfileCalculator calculator(profile);
    calculator.applyRadialOffset(Point2D(1, 2), 1);
    calculator.diameterAtProfilePoint(Point2D(0, 0));
    for (const double bad :
         {std::nan(""), 1e300, -1.0, 0.0, 1e-300, std::numeric_limits<double>::infinity()}) {
      EXPECT_EQ(calculator.calculateProfilePoint(Point2D(bad, std::nan(""))).distance, 0.0);
      EXPECT_LE(calculator.pointsOnProfileByInterval(bad, true).size(), 4u);
      EXPECT_LE(calculator.profilePointsAtGivenUpOffset(bad).size(), 2u);
      calculator.calcPointOnProfileAtDerolment(bad);
    }
    EXPECT_LT(calculator.pointsOnProfileByFixedNumber(4000000000u, nullptr).size(), 10u);
    if (!profile || !(profile->getCircumference() > 0.0)) {
      EXPECT_TRUE(calculator.pointsOnProfileByFixedNumber(4, nullptr).empty());
    }
  }
  const ThProfileCalculator tunnel(profileThrough(roadTunnelNodes()));
  EXPECT_EQ(tunnel.diameterAtProfilePoint(Point2D(std::nan(""), 1)), largest);
  expectPoint(tunnel.applyRadialOffset(Point2D(1, std::nan("")), 1), Point2D(), 0);
  const auto among = tunnel.calculateProfilePoints({{0, 9.7}, {0, std::nan("")}, {0, 9.7}});
  ASSERT_EQ(among.size(), 3u);
  EXPECT_EQ(among[1].distance, 0.0);
  EXPECT_EQ(among[2].distance, among[0].distance);
  const ThProfileCalculator empty((ProfilePtr()));
  EXPECT_EQ(empty.diameterAtProfilePoint(Point2D(1, 1)), largest);
  expectPoint(empty.calcPointOnProfileAtDerolment(1), Point2D(), 0);
  EXPECT_TRUE(empty.vertexPoints().empty());
  const ThProfileCalculator single(profileThrough({{0, 0, 0}, {3, 0, 0}}));
  EXPECT_EQ(single.calculateProfilePoint(Point2D(1, -2)).distance, 2.0);  // right is outside
  EXPECT_EQ(single.vertexPoints().size(), 1u);
  EXPECT_EQ(single.diameterAtProfilePoint(Point2D(1, 1)), largest);
}

}  // namespace
