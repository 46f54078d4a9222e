// SPDX-License-Identifier: BSL-1.0
/// @file
/// What several tests expect of points.

#ifndef CALCULATIONS_TESTING_EXPECTATIONS_H
#define CALCULATIONS_TESTING_EXPECTATIONS_H

#include <Calculations/AxisCalculator.h>
#include <Calculations/Points.h>

#include <gtest/gtest.h>

namespace TestSupport {

/// What each coordinate of a cut that does not exist is: the largest number of single precision.
constexpr double kNoCoordinate = 3.4028234663852886e38;

inline void expectPoint(const Ruv::Calculations::Point2D& actual,
                        const Ruv::Calculations::Point2D& expected, double tolerance) {
  EXPECT_NEAR(actual.x, expected.x, tolerance);
  EXPECT_NEAR(actual.y, expected.y, tolerance);
}

/// Conversions that have to succeed.
inline Ruv::Calculations::ENHPoint gridPoint(const Ruv::Calculations::AxisCalculator& calculator,
                                             const Ruv::Calculations::AxisPoint& point,
                                             bool inSpace = false, bool withTransSlope = true) {
  Ruv::Calculations::ENHPoint result;
  EXPECT_TRUE(calculator.axisPointToEnhPoint(point, result, inSpace, withTransSlope));
  return result;
}

/// The point of the axis itself.
inline Ruv::Calculations::ENHPoint axisPointAt(const Ruv::Calculations::AxisCalculator& calculator,
                                               double stationing) {
  return gridPoint(calculator, Ruv::Calculations::AxisPoint(stationing, 0, 0));
}

inline Ruv::Calculations::AxisPoint axisPoint(const Ruv::Calculations::AxisCalculator& calculator,
                                              const Ruv::Calculations::ENHPoint& point,
                                              bool inSpace = false, bool withTransSlope = true) {
  Ruv::Calculations::AxisPoint result;
  EXPECT_TRUE(calculator.enhPointToAxisPoint(point, result, inSpace, withTransSlope));
  return result;
}

}  // namespace TestSupport

#endif
