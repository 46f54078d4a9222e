// SPDX-License-Identifier: BSL-1.0
/// @file
/// What all tests of guidance use.

#ifndef CALCULATIONS_TESTS_GUIDANCE_GUIDANCE_H
#define CALCULATIONS_TESTS_GUIDANCE_GUIDANCE_H

#include "testing/Axes.h"
#include "testing/Numbers.h"

#include <Calculations/GuidanceVectorDefinition.h>

#include <gtest/gtest.h>

namespace TestSupport {

using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::GuidanceOffsets;
using Factory = Ruv::Calculations::GuidanceVectorFactory;
using VectorPtr = boost::shared_ptr<Ruv::Calculations::GuidanceVectorDefinition>;

inline void expectOffsets(const GuidanceOffsets& actual, double forward, double horizontal,
                          double vertical, double tolerance) {
  EXPECT_NEAR(actual.forward, forward, tolerance);
  EXPECT_NEAR(actual.horizontal, horizontal, tolerance);
  EXPECT_NEAR(actual.vertical, vertical, tolerance);
}

inline void expectGrid(const ENHPoint& actual, const ENHPoint& expected, double tolerance) {
  EXPECT_LT((actual - expected).length(), tolerance);
}

/// Heading east from (0, 0), 200 m, rising by a grade from height 50, stationing from 100.
inline AxisPtr risingAxis(double grade) {
  return straightAxis(kPi / 2, 100, 200, 50, 50 + 200 * grade);
}

}  // namespace TestSupport

#endif
