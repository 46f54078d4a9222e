#include <Calculations/FittingResult.h>
#include <Calculations/PointLists.h>
#include <Calculations/Points.h>
#include <Calculations/ProfilePointResult.h>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;

constexpr double kPi = 3.141592653589793;

TEST(ENHPoint, ArithmeticIsComponentWise) {
  const ENHPoint a(1.0, 2.0, 4.0);
  const ENHPoint b(8.0, 16.0, 32.0);
  EXPECT_EQ(a + b, ENHPoint(9.0, 18.0, 36.0));
  EXPECT_EQ(b - a, ENHPoint(7.0, 14.0, 28.0));
  EXPECT_EQ(b * 0.5, ENHPoint(4.0, 8.0, 16.0));
  EXPECT_EQ(b / 8.0, a);
  EXPECT_EQ(-a, ENHPoint(-1.0, -2.0, -4.0));
  ENHPoint c = a;
  (((c += b) *= 2.0) -= a) /= 0.5;
  EXPECT_EQ(c, ENHPoint(34.0, 68.0, 136.0));
  EXPECT_EQ(ENHPoint(2.0, 3.0, 6.0).length(), 7.0);
  // Division is a true division, not a multiplication by a reciprocal.
  EXPECT_EQ((ENHPoint(5.0, 5.0, 5.0) / 49.0).east, 5.0 / 49.0);
}

TEST(XYZPoint, HasTheSameArithmetic) {
  XYZPoint p = (XYZPoint(1.0, 2.0, 4.0) - XYZPoint(8.0, 16.0, 32.0)) / 0.5;
  p += XYZPoint(1.0, 1.0, 1.0);
  EXPECT_EQ(p.x, -13.0);
  EXPECT_EQ(p.y, -27.0);
  EXPECT_EQ(p.z, -55.0);
  EXPECT_TRUE(p != XYZPoint(-13.0, -27.0, 55.0));
}

TEST(ENHPoint, EqualityHasNoTolerance) {
  EXPECT_FALSE(ENHPoint(1, 2, 3) == ENHPoint(1, 2, 3 + 1e-15));
  EXPECT_TRUE(ENHPoint(1, 2, 3) != ENHPoint(1 + 1e-15, 2, 3));
  EXPECT_EQ(ENHPoint::infinity(), ENHPoint::infinity());
  EXPECT_TRUE(std::isinf(XYZPoint::infinity().length()));
}

TEST(ENHPoint, DirectionsBelowAMillimetreAreZero) {
  EXPECT_EQ(ENHPoint(0.0009, -0.0009, 5).azimuthAngle(), 0.0);
  EXPECT_EQ(ENHPoint(0.0009, -0.001, 5).azimuthAngle(), std::atan2(0.0009, -0.001));
  EXPECT_EQ(ENHPoint(0.001, 0.0009, 5).azimuthAngle(), std::atan2(0.001, 0.0009));
  EXPECT_EQ(ENHPoint(0, -1, 0).azimuthAngle(), kPi);
  EXPECT_DOUBLE_EQ(ENHPoint(-1, 0, 0).azimuthAngle(), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(ENHPoint(0, 0, 1).elevationAngle(), kPi / 2);
  EXPECT_DOUBLE_EQ(ENHPoint(0, 0, -1).elevationAngle(), -kPi / 2);
  EXPECT_DOUBLE_EQ(ENHPoint(-3, 0, 3).elevationAngle(), kPi / 4);
  EXPECT_EQ(ENHPoint(0.0005, 0, 0.0005).elevationAngle(), 0.0);
  EXPECT_DOUBLE_EQ(ENHPoint(3, 4, 9).lengthOfEastNorthProjection(), 5.0);
}

TEST(GuidanceOffsets, NormalisingZeroGivesNoNumber) {
  const GuidanceOffsets unit = GuidanceOffsets(2.0, 3.0, 6.0).normalized();
  EXPECT_DOUBLE_EQ(unit.forward, 2.0 / 7.0);
  EXPECT_DOUBLE_EQ(unit.horizontal, 3.0 / 7.0);
  EXPECT_DOUBLE_EQ(unit.vertical, 6.0 / 7.0);
  EXPECT_TRUE(std::isnan(GuidanceOffsets().normalized().forward));
}

TEST(Records, ConstructorsFillTheFieldsOfTheirKind) {
  const Point2D centre(3.0, -2.0);
  const FittingResult none(FittingMethod::EllipseFitzgibbon);
  EXPECT_EQ(none.method, 3);
  EXPECT_EQ(none.radius + none.semiAxisA + none.semiAxisB + none.rotation, 0.0);
  const FittingResult circle(FittingMethod::CircleKasa, centre, 2.0);
  EXPECT_EQ(circle.semiAxisA, 2.0);
  EXPECT_EQ(circle.semiAxisB, 2.0);
  EXPECT_EQ(circle.rotation, 0.0);
  const FittingResult ellipse(FittingMethod::EllipseFitzgibbon, centre, 5.0, 3.0, 0.25);
  EXPECT_EQ(ellipse.radius, 0.0);
  EXPECT_EQ(ellipse.semiAxisA, 5.0);
  EXPECT_EQ(ellipse.semiAxisB, 3.0);
  EXPECT_EQ(ellipse.rotation, 0.25);
  EXPECT_EQ(ellipse.center.y, -2.0);
  const ProfilePointResult result(centre, 0.5, -7.0);
  EXPECT_EQ(result.profilePoint.x, 3.0);
  EXPECT_EQ(result.distance, 0.5);
  EXPECT_EQ(result.derolment, -7.0);
}

TEST(PointLists, KeepTheirOwnCopy) {
  std::vector<Point2D> points = {Point2D(1, 2), Point2D(3, 4)};
  const Polygon ring(points);
  Polyline line;
  line = Polyline(points);
  points.clear();
  EXPECT_EQ(Polygon(ring).points().size(), 2u);
  EXPECT_EQ(line.points().back().y, 4.0);
}

}  // namespace
