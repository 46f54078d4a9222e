// SPDX-License-Identifier: BSL-1.0
#include <Calculations/Resection.h>
#include <Calculations/Utilities.h>

#include "stations/Setups.h"
#include "testing/Numbers.h"
#include "testing/Promises.h"
#include "testing/Random.h"
#include "testing/TransformationCase.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

void expectGolden(const Result& r, const TransformationCase& golden, const std::string& group,
                  double tolerance, const std::vector<std::string>& stationStdDevs) {
  ASSERT_TRUE(r.ok);
  std::vector<std::string> quantities = {"station_east", "station_north", "station_height",
                                         "orientation", "scale"};
  quantities.insert(quantities.end(), stationStdDevs.begin(), stationStdDevs.end());
  quantities.insert(quantities.end(), {"orientation_std", "scale_std"});
  for (std::size_t i = 0; i < quantities.size(); ++i) {
    const double expected = golden.expected.at(group + quantities[i]);
    const double within = i < 3   ? Promise::kStation
                          : i < 5 ? tolerance
                                  : Promise::kStdDev * expected;
    EXPECT_NEAR(r.values(static_cast<Eigen::Index>(i)), expected, within) << quantities[i];
  }
}

TEST(Resection, AgreesWithFiftyDigitAdjustments) {
  // The northings of the last, 2e6 m, come in steps of 2e-10 m on a figure of 6 m.
  for (const auto& [name, tolerance] :
       {std::pair("plane_geoeasy6", Promise::kScale), std::pair("space_ghilani4", Promise::kScale),
        std::pair("space_dewitt4", Promise::kScale), std::pair("space_tbm17", 1e-11)}) {
    SCOPED_TRACE(name);
    const TransformationCase golden(name);
    Resection resection;
    for (const TransformationPoint& p : golden.points) {
      resection.addMeasurement(p.id, p.measured);
      if (p.isFixPoint) resection.addFixPoint(p.id, p.global);
    }
    expectGolden(inPlane(resection), golden, "plane.", tolerance,
                 {"centroid_std", "centroid_std", "height_mean_abs_residual"});
    if (golden.expected.count("space.scale") == 0) continue;
    expectGolden(inSpace(resection), golden, "space.", tolerance,
                 {"station_east_std", "station_north_std", "station_height_std"});
  }
}

TEST(Resection, FindsTheSetupWhereverTheGridLies) {
  for (const ENHPoint& grid : {kGrid, ENHPoint(5e6, 5e6, 500.0)}) {
    Random random(71);
    for (int i = 0; i < 60; ++i) {
      SCOPED_TRACE(testing::Message() << "grid " << grid.east << ", scene " << i);
      const double noise = i % 3 == 0 ? 0.0 : 0.003;
      const double tilt = i % 2 == 0 ? 0.0 : 0.15;
      Scene scene = randomScene(random, tilt, noise);
      for (Pair& pair : scene.pairs) {
        pair.global = (pair.global + grid) - grid;  // rounded as in the grid
      }
      for (const auto& solve : {inPlane, +[](const Resection& r) { return inSpace(r); }}) {
        if (tilt > 0.0 && solve == inPlane) continue;
        const Result near = solve(resectionOf(scene.pairs));
        const Result far = solve(resectionOf(scene.pairs, grid));
        ASSERT_TRUE(near.ok && far.ok);
        EXPECT_LT((far.station() - grid - near.station()).length(), 3e-9);
        EXPECT_TRUE(far.values.tail<7>().isApprox(near.values.tail<7>(), 1e-6));
        if (noise > 0.0) continue;
        EXPECT_LT((near.station() - pointOf(scene.truth.head<3>())).length(), 3e-9);
        EXPECT_NEAR(Utilities::getangleAsMinusPiToPi(near.values(kOrientation) - scene.truth(5)),
                    0.0, 3e-11);
        EXPECT_NEAR(near.values(kScale), scene.truth(6), 3e-11);
        EXPECT_TRUE(near.values.tail<5>().isZero(1e-8));
      }
    }
  }
}

TEST(Resection, CountsMeasurementsAndPairsByIdInAllCopies) {
  auto original = std::make_unique<Resection>(resectionOf(kSquare));
  Resection resection;
  resection = *original;
  const Result before = inSpace(resection);
  EXPECT_FALSE(resection.addFixPoint(L"", ENHPoint()));
  EXPECT_FALSE(resection.addMeasurement(L"", PolarPoint()));
  EXPECT_FALSE(resection.addFixPointU(u"", ENHPoint()));
  EXPECT_FALSE(resection.addMeasurementU(u"", PolarPoint()));
  resection.addFixPoint(L"never measured", ENHPoint(1.0, 1.0, 1.0));
  EXPECT_TRUE(original->addMeasurement(L"unknown", PolarPoint(1.0, 1.0, 1.0)));
  original.reset();
  EXPECT_TRUE(resection.addMeasurement(L"unknown", PolarPoint(1.0, 1.0, 2.0)));
  EXPECT_EQ(resection.getNumFixpoints(), 5);
  EXPECT_EQ(resection.getNumFixPointMeasurements(), 6);
  EXPECT_EQ(inSpace(resection), before);
  // 16-bit units are taken one by one, and a later fix point replaces the earlier.
  EXPECT_TRUE(resection.addFixPointU(u"P3", ENHPoint(100.0, 195.0, 50.0)));
  EXPECT_EQ(resection.getNumFixpoints(), 5);
  EXPECT_GT(inPlane(resection).values(kScaleStdDev), 0.01);
  const unsigned short id[] = {'P', '3'};
  const std::basic_string<unsigned short> p3(id, 2);
  EXPECT_TRUE(resection.addFixPointU(p3, kSquare[3].global));
  EXPECT_EQ(inSpace(resection), before);
  const PolarPoint astray = Utilities::convertToPolarMeasurement({0.0, -20.0, 0.0});
  EXPECT_TRUE(resection.addMeasurementU(p3, astray) && resection.addMeasurementU(u"P0", astray));
  EXPECT_EQ(resection.getNumFixPointMeasurements(), 8);
  EXPECT_GT(inPlane(resection).values(kScaleStdDev), 0.01);
  const Resection copy(resection);
  resection.reset();
  EXPECT_EQ(copy.getNumFixpoints() + copy.getNumFixPointMeasurements(), 0);
}

TEST(Resection, TwoIdsMeasuredTwiceSufficeInThePlaneOnly) {
  Resection resection = resectionOf({kSquare[0], kSquare[1]});
  EXPECT_EQ(inPlane(resection), Result());
  for (std::size_t i = 0; i < 2; ++i) {
    resection.addMeasurement(L"P" + std::to_wstring(i),
                             Utilities::convertToPolarMeasurement(kSquare[i].local));
  }
  const Result plane = inPlane(resection);
  ASSERT_TRUE(plane.ok);
  EXPECT_LT((plane.station() - ENHPoint(100.0, 200.0, 50.0)).length(), 1e-12);
  EXPECT_EQ(inSpace(resection), refusedInSpace());
  // A third id lets the pairing go ahead, which two places cannot satisfy.
  resection.addFixPoint(L"not measured", ENHPoint());
  resection.addMeasurement(L"not known", PolarPoint());
  EXPECT_EQ(inSpace(resection), refusedInSpace());
}

}  // namespace
