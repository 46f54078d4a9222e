// SPDX-License-Identifier: BSL-1.0
#include <Calculations/StationPlacement.h>

#include "stations/Setups.h"
#include "testing/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(StationPlacement, PlacesWhatTheInstrumentSees) {
  Random random(31);
  Scene scene = randomScene(random, 0.2, 0.003);
  Resection resection = resectionOf(scene.pairs, kGrid);
  const PolarPoint again = Utilities::convertToPolarMeasurement(scene.pairs[1].local * 1.0001);
  resection.addMeasurement(L"P1", again);
  resection.addMeasurement(L"unknown", again);
  StationPlacement found;
  ASSERT_TRUE(place(resection, found));
  const Result expected = inSpace(resection);
  Result same;
  same.ok = true;
  same.values << vectorOf(found.station()), found.orientation(), found.scale(),
      vectorOf(found.stationStdDev()), found.orientationStdDev(), found.scaleStdDev();
  EXPECT_EQ(same, expected);

  ENHPoint sum;
  for (std::size_t i = 0; i < scene.pairs.size(); ++i) {
    const Pair& pair = scene.pairs[i];
    const PolarPoint polar = Utilities::convertToPolarMeasurement(pair.local);
    const std::vector<ENHPoint> residuals = found.residuals(L"P" + std::to_wstring(i));
    ASSERT_EQ(residuals.size(), i == 1 ? 2u : 1u);
    EXPECT_LT((found.toGlobal(polar) - (pair.global + kGrid) - residuals[0]).length(), 1e-9);
    EXPECT_LT((found.toGlobal(pair.local) - found.toGlobal(polar)).length(), 1e-9);
    const PolarPoint back = found.toPolar(found.toGlobal(polar));
    EXPECT_NEAR(back.horizontalAngle, polar.horizontalAngle, 1e-10);
    EXPECT_NEAR(back.verticalAngle, polar.verticalAngle, 1e-10);
    EXPECT_NEAR(back.slopeDistance, polar.slopeDistance, 1e-9);
    for (const ENHPoint& r : residuals) {
      EXPECT_LT(r.length(), 0.02);
      sum += r;
    }
  }
  EXPECT_LT(sum.length(), 1e-8) << "residuals of a least squares shift";
  EXPECT_GT((found.residuals(L"P1")[1] - found.residuals(L"P1")[0]).length(), 1e-4);
  for (const wchar_t* unknown : {L"", L"A", L"P10", L"unknown"}) {
    EXPECT_TRUE(found.residuals(unknown).empty());
  }

  // A value: neither what is added later nor a failure changes it.
  const StationPlacement copy = found;
  resection.reset();
  EXPECT_FALSE(place(resection, found));
  EXPECT_TRUE(found.station() == copy.station() && found.residuals(L"P1").size() == 2);
  found = StationPlacement();
  EXPECT_TRUE(copy.station() != found.station());
  EXPECT_TRUE(found.toGlobal(ENHPoint(1, 2, 3)) == ENHPoint(1, 2, 3));
}

TEST(StationPlacement, TiltsPointTheZeroDirectionDownAndTheRightOneUp) {
  const ENHPoint station(10.0, 20.0, 30.0);
  const double orientation = 1.0;
  const SpatialAngles cases[] = {{0.01, 0.0, orientation}, {0.0, 0.02, orientation}, {0, 0, 4.0}};
  for (const SpatialAngles& angles : cases) {
    Parameters truth;
    truth << vectorOf(station), angles.omega, angles.phi, angles.kappa, 1.0;
    std::vector<Pair> pairs;
    for (const Pair& pair : kSquare) {
      pairs.push_back({pair.local, pointOf(transformed(truth, pair.local))});
    }
    StationPlacement found;
    ASSERT_TRUE(place(resectionOf(pairs), found));
    const ENHPoint forward = found.toGlobal(ENHPoint(0, 100, 0)) - station;
    const ENHPoint right = found.toGlobal(ENHPoint(100, 0, 0)) - station;
    EXPECT_NEAR(forward.height, -100.0 * std::sin(angles.omega), 1e-9);
    EXPECT_NEAR(right.height, 100.0 * std::sin(angles.phi), 1e-9);
    EXPECT_NEAR(found.orientation(), angles.kappa, 1e-11);
    if (angles.omega != 0.0 || angles.phi != 0.0) continue;
    const PolarPoint any(5.0, 1.0, 50.0);
    const ENHPoint level = Utilities::transformLocalToGlobal(any, station, angles.kappa, 1.0);
    EXPECT_LT((found.toGlobal(any) - level).length(), 1e-9);
  }
}

TEST(StationPlacement, TellsTiltsWithinATurnHoweverTheInstrumentHangs) {
  Random random(32);
  for (int i = 0; i < 200; ++i) {
    const Scene scene = randomScene(random, 3.14, 0.0);
    StationPlacement found;
    ASSERT_TRUE(place(resectionOf(scene.pairs), found));
    EXPECT_LT((found.toGlobal(scene.pairs[0].local) - scene.pairs[0].global).length(), 1e-8);
    EXPECT_TRUE(found.tiltAboutEast() >= -kPi && found.tiltAboutEast() < kPi);
    EXPECT_LE(std::abs(found.tiltAboutNorth()), kPi / 2);
    EXPECT_TRUE(found.orientation() >= 0.0 && found.orientation() < 2 * kPi);
  }
}

}  // namespace
