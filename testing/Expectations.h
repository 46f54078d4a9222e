// SPDX-License-Identifier: BSL-1.0
/// @file
/// What several tests expect of points.

#ifndef CALCULATIONS_TESTING_EXPECTATIONS_H
#define CALCULATIONS_TESTING_EXPECTATIONS_H

#include <Calculations/AxisCalculator.h>
#include <Calculations/Points.h>

#include <gtest/gtest.h>

namespace TestSupport {

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

inline Ruv::Calculations::AxisPoint axisPoint(const Ruv::Calculations::AxisCalculator& calculator,
                                              const Ruv::Calculations::ENHPoint& point,
                                              bool inSpace = false, bool withTransSlope = true) {
  Ruv::Calculations::AxisPoint result;
  EXPECT_TRUE(calculator.enhPointToAxisPoint(point, result, inSpace, withTransSlope));
  return result;
}

}  // namespace TestSupport

#endif
