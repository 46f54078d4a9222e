// SPDX-License-Identifier: BSL-1.0
#include "stations/Setups.h"
#include "testing/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

/// Angles of an instrument whose standing axis is tilted by an angle towards an azimuth.
SpatialAngles tilted(double tilt, double azimuth, double kappa) {
  const double level = std::sin(tilt);
  return {std::atan2(-level * std::cos(azimuth), std::cos(tilt)),
          std::asin(level * std::sin(azimuth)), kappa};
}

TEST(Helmert3d, FindsTheSetupAtAnyTilt) {
  Random random(5);
  for (const double tilt : {60.0, 70.0, 80.0, 90.0, 99.0, 130.0, 199.0}) {
    for (int i = 0; i < 600; ++i) {
      SCOPED_TRACE(testing::Message() << "tilt " << tilt << " gon, station " << i);
      const SpatialAngles angles =
          tilted(Utilities::gon2rad(tilt), random.uniform(0.0, 6.28), random.uniform(0.0, 6.28));
      Parameters truth;
      truth << 100.0, 200.0, 50.0, angles.omega, angles.phi, angles.kappa, 1.0;
      std::vector<Pair> pairs(3 + random.index(6));
      for (Pair& pair : pairs) {
        pair.local = ENHPoint(0, 25, 3) + randomPoint(random, 15.0, 6.0);
        pair.global = pointOf(transformed(truth, pair.local));
      }
      StationPlacement found;
      ASSERT_TRUE(place(resectionOf(pairs), found));
      // Near a right angle about north, cos(phi) is what kappa has to be divided by.
      const double tolerance = 1e-9 / std::cos(angles.phi);
      const auto turn = [](double a, double b) { return Utilities::getangleAsMinusPiToPi(a - b); };
      ASSERT_NEAR(turn(found.orientation(), angles.kappa), 0.0, tolerance);
      ASSERT_NEAR(turn(found.tiltAboutEast(), angles.omega), 0.0, tolerance);
      ASSERT_NEAR(found.tiltAboutNorth(), angles.phi, tolerance);
      ASSERT_LT((found.station() - ENHPoint(100, 200, 50)).length(), 1e-9);
    }
  }
}

TEST(Helmert3d, RefusesWhatLeavesTheRotationOpen) {
  const auto isRefused = [](const std::vector<Pair>& pairs) {
    return inSpace(resectionOf(pairs)) == refusedInSpace();
  };
  Random random(9);
  // Many lines: with every tenth or so a pivot of the normal equations vanishes altogether.
  for (std::size_t run = 0; run < 150; ++run) {
    std::vector<Pair> line;
    for (int i = 0; i < 5; ++i) {
      const ENHPoint p = ENHPoint(3.0, -4.0, 1.0) + ENHPoint(1.3, 2.1, 0.4) * i;
      const ENHPoint noise = randomPoint(random, 0.01, 0.0);
      line.push_back({run % 3 == 1 ? p + noise : p, run % 3 == 2 ? p + noise : p});
    }
    EXPECT_TRUE(inSpace(resectionOf(line, kGrid)) == refusedInSpace()) << "line " << run;
  }
  // Level sights east and west: the line is the axis of the first tilt angle.
  EXPECT_TRUE(isRefused({{ENHPoint(15, 0, 0), ENHPoint(15.002, -0.002, 0.002)},
                         {ENHPoint(-15, 0, 0), ENHPoint(-15.001, -0.001, -0.001)},
                         {ENHPoint(-5, 0, 0), ENHPoint(-5, -0.001, -0.001)}}));
  EXPECT_TRUE(isRefused({kSquare[0], kSquare[1], kSquare[1]})) << "two places";
  // The mean of three equal points differs from them by rounding.
  std::vector<Pair> oneFixPoint;
  std::vector<Pair> oneTarget;
  for (std::size_t i = 0; i < 3; ++i) {
    oneFixPoint.push_back({kSquare[i].local, ENHPoint(0.1, 0.2, 0.3)});
    oneTarget.push_back({ENHPoint(0.7, 0.2, 0.3), kSquare[i].global});
  }
  EXPECT_TRUE(isRefused(oneFixPoint));
  EXPECT_TRUE(isRefused(oneTarget));
  EXPECT_TRUE(std::isnan(inPlane(resectionOf(oneTarget)).values(kScale)));
  for (const double bad : {kNaN, kInfinity, -kInfinity, 1e300}) {
    std::vector<Pair> pairs = kSquare;
    pairs[1].global.north = bad;
    EXPECT_TRUE(isRefused(pairs)) << bad;
    EXPECT_TRUE(inPlane(resectionOf(pairs)).ok);
    Resection resection = resectionOf(kSquare);
    resection.addMeasurement(L"P1", PolarPoint(0.0, 1.0, bad));
    EXPECT_EQ(inSpace(resection), refusedInSpace()) << bad;
  }
}

TEST(Helmert3d, WritesDiagnosticsThatChangeNothing) {
  const Resection resection = resectionOf(kSquare);
  std::ostringstream text;
  EXPECT_EQ(inSpace(resection, text.rdbuf()), inSpace(resection));
  const std::string heading = "normal matrix\n";
  EXPECT_EQ(text.str().find(heading), 0u);
  EXPECT_EQ(std::stod(text.str().substr(heading.size())), 4.0) << "one for each pair";
  const auto sigma = text.str().find("\nsigma0 ");
  ASSERT_NE(sigma, std::string::npos);
  EXPECT_EQ(text.str().find('\n', sigma + 1), text.str().find("\ncofactors\n"));
  EXPECT_EQ(text.str().back(), '\n');
}

}  // namespace
