// SPDX-License-Identifier: BSL-1.0
// Lists of points give what single calls give, to the bit, in whatever order they come.

#include "testing/Axes.h"
#include "testing/Random.h"

#include <Calculations/AxisCalculator.h>

#include <gtest/gtest.h>
#include <boost/shared_ptr.hpp>

#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

/// Winds round itself with breaks and corners, so that many segments are near, and equally near.
AxisPtr windingAxis() {
  AxisPtr axis = newAxis();
  ChainBuilder chain(axis, 100.0, 600000.0, 200000.0, 0.0);
  for (int round = 0; round < 40; ++round) {
    const double radius = 20.0 + round / 4.0;
    chain.straight(8.0).clothoid(0.0, radius, 6.0).arc(radius, 30.0);
    chain.clothoid(radius, -90.0, 12.0).turn(round % 3 == 0 ? 0.4 : 0.0).straight(8.0);
  }
  axis->addVeralPointKink(100.0, 400.0);
  for (double s = 200.0; s < chain.stationing(); s += 100.0) {
    axis->addVeralPointArc(s, 400.0 + 3.0 * std::sin(s), 500.0);
  }
  axis->addVeralPointKink(chain.stationing() - 20.0, 410.0);
  axis->addTransSlopeSegmentLinear(100.0, 2000.0, 2.0, -4.0);
  return axis;
}

/// Straights of 1 m on whole coordinates: exact ties at joints and between rows 4 m apart.
AxisPtr meander() {
  AxisPtr axis = newAxis();
  ChainBuilder chain(axis, 0.0, 0.0, 0.0, 0.0);
  for (int i = 0; i < 160; ++i) {
    chain.straight(1.0);
    if (i % 20 == 19) chain.turn(i % 40 == 19 ? std::acos(0.0) : -std::acos(0.0));
  }
  axis->addVeralPointKink(0.0, 10.0);
  axis->addVeralPointKink(160.0, 12.0);
  return axis;
}

/// Lanes 60 m apart with bends between them and with joints that are smooth, broken by printing
/// errors, or corners: long stretches on which one segment is alone, and points between two lanes.
AxisPtr lanes() {
  Random random(18);
  AxisPtr axis = newAxis();
  ChainBuilder chain(axis, 100.0, 600000.0, 200000.0, 0.3);
  chain.printedTo(0.002, random);
  for (int lane = 0; lane < 6; ++lane) {
    const double radius = lane % 2 == 0 ? 30.0 : -30.0;
    chain.straight(90.0).turn(lane == 1 ? 3e-4 : 0.0).clothoid(0.0, 9.0 * radius, 40.0);
    chain.turn(lane == 3 ? 0.2 : 0.0).clothoid(9.0 * radius, 0.0, 40.0).straight(60.0);
    chain.arc(radius, 30.0 * 2.993);
  }
  axis->addVeralPointKink(100.0, 400.0);
  axis->addVeralPointArc(700.0, 430.0, 2000.0);
  axis->addVeralPointKink(chain.stationing(), 400.0);
  return axis;
}

/// Bends back beside a straight, so that its points have feet on either.
AxisPtr hook() {
  AxisPtr axis = newAxis();
  ChainBuilder chain(axis, 0.0, 600000.0, 200000.0, 1.0);
  chain.arc(30.0, 165.0).straight(70.0).arc(30.0, 165.0);
  axis->addVeralPointKink(0.0, 10.0);
  axis->addVeralPointKink(chain.stationing(), 12.0);
  return axis;
}

/// There and back half a metre beside: other segments are nearer than points are apart.
AxisPtr hairpin() {
  AxisPtr axis = newAxis();
  ChainBuilder chain(axis, 0.0, 600000.0, 200000.0, 1.0);
  chain.straight(60.0).arc(0.25, 0.25 * std::acos(-1.0)).straight(60.0);
  axis->addVeralPointKink(0.0, 10.0);
  axis->addVeralPointKink(chain.stationing(), 12.0);
  return axis;
}

double nextJoint(const AxisDefinition& axis, double stationing) {
  unsigned joint = 0;
  while (axis.getHoralSegmentAt(joint)->getStationing() < stationing) {
    ++joint;
  }
  return axis.getHoralSegmentAt(joint)->getStationing();
}

/// Sections, small steps along the axis with jumps and over the joints, points of no order, and
/// what is no point.
std::vector<ENHPoint> pointsAround(const AxisCalculator& calculator, const AxisDefinition& axis) {
  Random random(17);
  std::vector<ENHPoint> points;
  const double first = axis.minimumStng2d();
  const double length = axis.maximumStng2d() - first;
  double walked = 0.0;
  for (int i = 0; i < 6000; ++i) {
    const int section = i / 50;
    double along = i < 1500 ? length * section / 30.0 : random.uniform(0.0, length);
    if (i >= 3000) {
      walked += i % 400 == 0 ? random.uniform(0.0, length) : random.uniform(-0.2, 0.6);
      along = std::fmod(std::abs(walked), length);
    }
    if (i >= 3000 && i % 8 == 0) {
      // As little before and after the next joint as rounding and tolerances are.
      along = nextJoint(axis, first + along) - first;
      along += random.sign() * std::pow(10.0, random.uniform(-12.0, 0.0));
    }
    const double width = i % 3 == 0 ? 40.0 : 9.0;
    const AxisPoint place(first + along, random.uniform(-width, width), 3.0);
    ENHPoint point;
    calculator.axisPointToEnhPointPerpendicular(place, point);
    if (i % 7 == 0) point = ENHPoint(std::round(point.east), std::round(point.north), 410.0);
    if (i % 500 == 499) point.east += 3e4;
    if (i % 4 == 3) {
      const ENHPoint step{random.uniform(-0.5, 0.5), random.uniform(-0.5, 0.5), 0.0};
      point = points.back() + step;
    }
    points.push_back(point);
  }
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double odd : {std::nan(""), infinity, -1e300, 1e30}) {
    points.emplace_back(odd, 200000.0, 400.0);
    points.push_back(points[10]);
    points.emplace_back(600000.0, 200000.0, odd);
  }
  return points;
}

template <class To, class From, class Single, class List>
void expectSame(const std::vector<From>& in, const Single& single, const List& list) {
  const To untouched(-7.0, -8.0, -9.0);
  std::vector<To> expected(in.size(), untouched);
  std::vector<To> out(in.size(), untouched);
  const std::unique_ptr<bool[]> found(new bool[in.size()]);
  std::size_t count = 0;
  for (std::size_t i = 0; i < in.size(); ++i) {
    count += single(in[i], expected[i]) ? 1 : 0;
  }
  EXPECT_EQ(list(in.data(), in.size(), out.data(), found.get()), count);
  for (std::size_t i = 0; i < in.size(); ++i) {
    To other = untouched;
    ASSERT_EQ(found[i], single(in[i], other)) << i;
    ASSERT_EQ(std::memcmp(&out[i], &expected[i], sizeof(To)), 0) << i;
  }
  // In place, without telling which were found: the others stay what they were.
  std::vector<From> both = in;
  auto* results = reinterpret_cast<To*>(both.data());
  static_assert(sizeof(To) == sizeof(From), "points of three numbers");
  EXPECT_EQ(list(both.data(), both.size(), results, nullptr), count);
  for (std::size_t i = 0; i < in.size(); ++i) {
    const bool isWritten = std::memcmp(&out[i], &untouched, sizeof(To)) != 0;
    const void* kept = isWritten ? static_cast<const void*>(&out[i]) : &in[i];
    ASSERT_EQ(std::memcmp(&both[i], kept, sizeof(From)), 0) << i;
  }
}

TEST(AxisCalculatorLists, AreTheSingleCallsToTheBit) {
  for (const AxisPtr& axis :
       {windingAxis(), meander(), lanes(), hook(), hairpin(), straightAxis(0.5, 0, 50, 1, 2)}) {
    const AxisCalculator calculator(axis);
    const std::vector<ENHPoint> points = pointsAround(calculator, *axis);
    for (const bool inSpace : {false, true}) {
      for (const bool withTransSlope : {false, true}) {
        std::vector<AxisPoint> places;
        for (const ENHPoint& point : points) {
          AxisPoint place(point.east, point.north, point.height);  // fails
          calculator.enhPointToAxisPoint(point, place, inSpace, withTransSlope);
          places.push_back(place);
        }
        expectSame<AxisPoint>(
            points,
            [&](const ENHPoint& in, AxisPoint& out) {
              return calculator.enhPointToAxisPoint(in, out, inSpace, withTransSlope);
            },
            [&](const ENHPoint* in, std::size_t count, AxisPoint* out, bool* found) {
              return calculator.enhPointsToAxisPoints(in, count, out, found, inSpace,
                                                      withTransSlope);
            });
        expectSame<ENHPoint>(
            places,
            [&](const AxisPoint& in, ENHPoint& out) {
              return calculator.axisPointToEnhPoint(in, out, inSpace, withTransSlope);
            },
            [&](const AxisPoint* in, std::size_t count, ENHPoint* out, bool* found) {
              return calculator.axisPointsToEnhPoints(in, count, out, found, inSpace,
                                                      withTransSlope);
            });
      }
    }
  }
}

TEST(AxisCalculatorLists, AreTheSingleCallsOnAShaftAndWithoutAnAxis) {
  const boost::shared_ptr<const AxisDefinition> shaft(
      AxisDefinitionFactory::createShaftAxis(1000.0, 2000.0, 500.0, 460.0, 0.0));
  const std::vector<ENHPoint> points = {{1001.0, 2002.0, 490.0}, {1.0, 2.0, 600.0}};
  const std::vector<AxisPoint> places = {{10.0, 1.0, 2.0}, {41.0, 3.0, 4.0}};
  for (const auto& axis : {shaft, boost::shared_ptr<const AxisDefinition>()}) {
    const AxisCalculator calculator(axis);
    EXPECT_EQ(calculator.enhPointsToAxisPoints(nullptr, 0, nullptr, nullptr, true, true), 0U);
    expectSame<AxisPoint>(
        points,
        [&](const ENHPoint& in, AxisPoint& out) {
          return calculator.enhPointToAxisPointVertical(in, out);
        },
        [&](const ENHPoint* in, std::size_t count, AxisPoint* out, bool* found) {
          return calculator.enhPointsToAxisPoints(in, count, out, found, false, true);
        });
    expectSame<ENHPoint>(
        places,
        [&](const AxisPoint& in, ENHPoint& out) {
          return calculator.axisPointToEnhPointVertical(in, out);
        },
        [&](const AxisPoint* in, std::size_t count, ENHPoint* out, bool* found) {
          return calculator.axisPointsToEnhPoints(in, count, out, found, false, true);
        });
  }
}

}  // namespace
