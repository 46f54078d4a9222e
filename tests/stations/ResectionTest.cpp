#include <Calculations/Resection.h>
#include <Calculations/Utilities.h>

#include "stations/SpatialRotation.h"
#include "stations/TransformationCase.h"
#include "support/Random.h"

#include <gtest/gtest.h>
#include <Eigen/Dense>

#include <cmath>
#include <iostream>
#include <limits>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using TestSupport::Random;
using TestSupport::TransformationCase;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Starts with values that no calculation gives.
struct Result {
  bool ok = false;
  ENHPoint station{-1.0, -2.0, -3.0};
  double orientation = -4.0;
  double scale = -5.0;
  ENHPoint stationStdDev{-6.0, -7.0, -8.0};
  double orientationStdDev = -9.0;
  double scaleStdDev = -10.0;

  bool operator==(const Result& o) const { return asTuple() == o.asTuple(); }

 private:
  std::tuple<bool, ENHPoint, double, double, ENHPoint, double, double> asTuple() const {
    return {ok, station, orientation, scale, stationStdDev, orientationStdDev, scaleStdDev};
  }
};

Result inPlane(const Resection& resection) {
  Result r;
  r.ok = resection.calculateResectionHelmert2d(r.station, r.orientation, r.scale, r.stationStdDev,
                                               r.orientationStdDev, r.scaleStdDev);
  return r;
}

/// @param diagnostics takes the text of std::clog; none by default
Result inSpace(const Resection& resection, std::streambuf* diagnostics = nullptr) {
  std::streambuf* const before = std::clog.rdbuf(diagnostics);
  Result r;
  r.ok = resection.calculateResectionHelmert3d(r.station, r.orientation, r.scale, r.stationStdDev,
                                               r.orientationStdDev, r.scaleStdDev);
  std::clog.rdbuf(before);
  return r;
}

/// What a refused calculation in space leaves.
Result refusedInSpace() {
  Result r;
  r.scale = 1.0;
  r.scaleStdDev = 0.0;
  return r;
}

struct Pair {
  ENHPoint local;
  ENHPoint global;
};

Resection resectionOf(const std::vector<Pair>& pairs) {
  Resection resection;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const std::wstring id = L"P" + std::to_wstring(i);
    resection.addFixPoint(id, pairs[i].global);
    resection.addMeasurement(id, Utilities::convertToPolarMeasurement(pairs[i].local));
  }
  return resection;
}

Eigen::Vector3d vectorOf(const ENHPoint& p) { return {p.east, p.north, p.height}; }
ENHPoint pointOf(const Eigen::Vector3d& v) { return {v.x(), v.y(), v.z()}; }

ENHPoint randomPoint(Random& random, double plan, double height) {
  return {random.uniform(-plan, plan), random.uniform(-plan, plan),
          random.uniform(-height, height)};
}

/// Translation, omega, phi, kappa and scale.
using Parameters = Eigen::Matrix<double, 7, 1>;

Eigen::Vector3d transformed(const Parameters& by, const ENHPoint& local) {
  return by.head<3>() + by(6) * (spatialRotation({by(3), by(4), by(5)}).matrix * vectorOf(local));
}

/// A station and the points around it, as a tilted instrument of a wrong scale sees them.
struct Scene {
  Parameters truth;
  std::vector<Pair> pairs;
};

Scene randomScene(Random& random, double tilt, double noise) {
  Scene scene;
  scene.truth << vectorOf(randomPoint(random, 200.0, 20.0)), random.uniform(-tilt, tilt),
      random.uniform(-tilt, tilt), random.uniform(0.0, 6.28),
      tilt == 0.0 ? 1.0 : random.uniform(0.999, 1.001);
  const std::uint64_t count = 3 + random.index(8);
  for (std::uint64_t i = 0; i < count; ++i) {
    const ENHPoint local = randomPoint(random, 60.0, 20.0);
    const ENHPoint global = pointOf(transformed(scene.truth, local));
    scene.pairs.push_back({local, global + randomPoint(random, noise, noise)});
  }
  return scene;
}

void shift(Scene& scene, const ENHPoint& by) {
  for (Pair& pair : scene.pairs) {
    pair.global += by;
  }
}

Eigen::VectorXd misclosures(const Scene& scene, const Parameters& at) {
  Eigen::VectorXd all(3 * static_cast<Eigen::Index>(scene.pairs.size()));
  Eigen::Index row = 0;
  for (const Pair& pair : scene.pairs) {
    all.segment<3>(3 * row++) = vectorOf(pair.global) - transformed(at, pair.local);
  }
  return all;
}

/// Parameters and standard deviations by least squares over all rows, with a design matrix of
/// difference quotients.
std::pair<Parameters, Parameters> denseAdjustment(const Scene& scene) {
  constexpr double kStep = 1e-5;
  Parameters x = scene.truth;
  Eigen::MatrixXd design(3 * scene.pairs.size(), 7);
  for (int iteration = 0; iteration < 10; ++iteration) {
    for (Eigen::Index i = 0; i < 7; ++i) {
      const Parameters step = kStep * Parameters::Unit(i);
      design.col(i) = (misclosures(scene, x - step) - misclosures(scene, x + step)) / (2.0 * kStep);
    }
    x += design.householderQr().solve(misclosures(scene, x));
  }
  const double redundancy = static_cast<double>(design.rows()) - 7.0;
  const double variance = misclosures(scene, x).squaredNorm() / redundancy;
  return {x, (variance * (design.transpose() * design).inverse().diagonal()).cwiseSqrt()};
}

TEST(ResectionGolden, AgreesWithFiftyDigitAdjustments) {
  // The northings of the last, 2e6 m, come in steps of 2e-10 m on a figure of 6 m.
  for (const auto& [name, tolerance] :
       {std::pair("plane_geoeasy6", 1e-12), std::pair("space_ghilani4", 1e-12),
        std::pair("space_dewitt4", 1e-12), std::pair("space_tbm17", 1e-11)}) {
    SCOPED_TRACE(name);
    const TransformationCase golden(name);
    Resection resection;
    for (const auto& p : golden.points) {
      resection.addMeasurement(p.id, p.measured);
      if (p.isFixPoint) resection.addFixPoint(p.id, p.global);
    }
    const auto expectSetup = [&golden, limit = tolerance](
                                 const Result& r, const std::string& group,
                                 const std::vector<std::string>& stationStdDevs) {
      const auto expect = [&](double actual, const std::string& quantity, double within) {
        EXPECT_NEAR(actual, golden.expected.at(group + quantity), within) << group + quantity;
      };
      const auto expectStdDev = [&](double actual, const std::string& quantity) {
        expect(actual, quantity, 1e-6 * golden.expected.at(group + quantity));
      };
      ASSERT_TRUE(r.ok);
      expect(r.station.east, ".station_east", 1e-9);
      expect(r.station.north, ".station_north", 1e-9);
      expect(r.station.height, ".station_height", 1e-9);
      expect(r.orientation, ".orientation", limit);
      expect(r.scale, ".scale", limit);
      expectStdDev(r.stationStdDev.east, stationStdDevs[0]);
      expectStdDev(r.stationStdDev.north, stationStdDevs[1]);
      expectStdDev(r.stationStdDev.height, stationStdDevs[2]);
      expectStdDev(r.orientationStdDev, ".orientation_std");
      expectStdDev(r.scaleStdDev, ".scale_std");
    };
    expectSetup(inPlane(resection), "plane",
                {".centroid_std", ".centroid_std", ".height_mean_abs_residual"});
    if (golden.expected.count("space.scale") == 0) continue;
    expectSetup(inSpace(resection), "space",
                {".station_east_std", ".station_north_std", ".station_height_std"});
  }
}

TEST(Resection, IsTheDenseLeastSquaresSolutionWhereverTheGridLies) {
  for (const ENHPoint& grid : {ENHPoint(600000.0, 200000.0, 500.0), ENHPoint(5e6, 5e6, 500.0)}) {
    Random random(71);
    for (int i = 0; i < 60; ++i) {
      SCOPED_TRACE(testing::Message() << "grid " << grid.east << ", scene " << i);
      const bool isExact = i % 3 == 0;
      const bool isLevel = i % 6 == 0;
      Scene scene = randomScene(random, isLevel ? 0.0 : 0.15, isExact ? 0.0 : 0.003);
      shift(scene, grid);
      const Resection resection = resectionOf(scene.pairs);
      shift(scene, -grid);
      const auto [parameters, stdDevs] = denseAdjustment(scene);
      const auto expectSetup = [&, x = parameters](const Result& found, double limit) {
        ASSERT_TRUE(found.ok);
        EXPECT_LT((found.station - grid - pointOf(x.head<3>())).length(), 3e-9);
        EXPECT_NEAR(std::sin(found.orientation - x(5)), 0.0, limit);
        EXPECT_NEAR(found.scale, x(6), limit);
      };
      const Result space = inSpace(resection);
      expectSetup(space, 1e-12);
      if (isLevel) expectSetup(inPlane(resection), 3e-11);  // feels the rounding of the grid
      Parameters stdDevsFound = stdDevs;                    // those of the tilts are not returned
      stdDevsFound.head<3>() = vectorOf(space.stationStdDev);
      stdDevsFound.tail<2>() << space.orientationStdDev, space.scaleStdDev;
      EXPECT_TRUE(isExact ? stdDevsFound.isZero(1e-8)
                          : stdDevsFound.cwiseQuotient(stdDevs).isOnes(1e-6));
    }
  }
}

const std::vector<Pair> kSquare = {{{10.0, 0.0, 1.0}, {110.0, 200.0, 51.0}},
                                   {{0.0, 10.0, 0.0}, {100.0, 210.0, 50.0}},
                                   {{-10.0, 0.0, 2.0}, {90.0, 200.0, 52.0}},
                                   {{0.0, -10.0, 0.0}, {100.0, 190.0, 50.0}}};

TEST(Resection, CountsMeasurementsAndPairsById) {
  Resection resection = resectionOf(kSquare);
  const Result before = inSpace(resection);
  EXPECT_FALSE(resection.addFixPoint(L"", ENHPoint()));
  EXPECT_FALSE(resection.addMeasurement(L"", PolarPoint()));
  EXPECT_FALSE(resection.addFixPointU({}, ENHPoint()));
  EXPECT_FALSE(resection.addMeasurementU({}, PolarPoint()));
  EXPECT_TRUE(resection.addFixPoint(L"never measured", ENHPoint(1.0, 1.0, 1.0)));
  EXPECT_TRUE(resection.addMeasurement(L"unknown", PolarPoint(1.0, 1.0, 1.0)));
  EXPECT_TRUE(resection.addMeasurement(L"unknown", PolarPoint(1.0, 1.0, 2.0)));
  EXPECT_EQ(resection.getNumFixpoints(), 5);
  EXPECT_EQ(resection.getNumFixPointMeasurements(), 6);
  EXPECT_EQ(inSpace(resection), before);
  // 16-bit units are taken one by one, and a later fix point replaces the earlier.
  const unsigned short id[] = {'P', '3'};
  resection.addFixPointU({id, 2}, ENHPoint(100.0, 195.0, 50.0));
  EXPECT_EQ(resection.getNumFixpoints(), 5);
  EXPECT_GT(inPlane(resection).scaleStdDev, 0.01);
  resection.addFixPoint(L"P3", kSquare[3].global);
  EXPECT_EQ(inSpace(resection), before);
  resection.addMeasurementU({id, 2}, Utilities::convertToPolarMeasurement({0.0, -20.0, 0.0}));
  EXPECT_GT(inPlane(resection).scaleStdDev, 0.01);
}

TEST(Resection, CopiesShareWhatOutlivesThem) {
  Resection copy;
  {
    Resection original = resectionOf(kSquare);
    copy = original;
    original.addMeasurement(L"P0", PolarPoint());
  }
  const Resection another(copy);
  EXPECT_EQ(another.getNumFixPointMeasurements(), 5);
  copy.reset();
  EXPECT_EQ(another.getNumFixpoints() + another.getNumFixPointMeasurements(), 0);
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
  EXPECT_LT((plane.station - ENHPoint(100.0, 200.0, 50.0)).length(), 1e-12);
  EXPECT_EQ(inSpace(resection), refusedInSpace());
  // A third id lets the pairing go ahead, which two places cannot satisfy.
  resection.addFixPoint(L"not measured", ENHPoint());
  resection.addMeasurement(L"not known", PolarPoint());
  EXPECT_EQ(inSpace(resection), refusedInSpace());
}

TEST(ResectionHelmert3d, RefusesWhatLeavesTheRotationOpen) {
  const auto isRefused = [](const std::vector<Pair>& pairs) {
    return inSpace(resectionOf(pairs)) == refusedInSpace();
  };
  Random random(9);
  std::vector<Pair> line;
  std::vector<Pair> fixPointsOnLine;
  std::vector<Pair> targetsOnLine;
  for (int i = 0; i < 5; ++i) {
    const ENHPoint local = ENHPoint(3.0, -4.0, 1.0) + ENHPoint(1.3, 2.1, 0.4) * i;
    const ENHPoint global = local + ENHPoint(600000.0, 200000.0, 500.0);
    line.push_back({local, global});
    fixPointsOnLine.push_back({local + randomPoint(random, 0.01, 0.01), global});
    targetsOnLine.push_back({local, global + randomPoint(random, 0.01, 0.01)});
  }
  EXPECT_TRUE(isRefused(line));
  EXPECT_TRUE(isRefused(fixPointsOnLine));
  EXPECT_TRUE(isRefused(targetsOnLine));
  EXPECT_TRUE(isRefused({kSquare[0], kSquare[1], kSquare[1]})) << "two places";
  // The mean of three equal points differs from them by rounding.
  std::vector<Pair> oneFixPoint(kSquare.begin(), kSquare.begin() + 3);
  std::vector<Pair> oneTarget = oneFixPoint;
  for (std::size_t i = 0; i < 3; ++i) {
    oneFixPoint[i].global = ENHPoint(0.1, 0.2, 0.3);
    oneTarget[i].local = ENHPoint(0.7, 0.2, 0.3);
  }
  EXPECT_TRUE(isRefused(oneFixPoint));
  EXPECT_TRUE(isRefused(oneTarget));
  EXPECT_TRUE(std::isnan(inPlane(resectionOf(oneTarget)).scale));
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

TEST(ResectionHelmert3d, WritesDiagnosticsThatChangeNothing) {
  const Resection resection = resectionOf(kSquare);
  std::ostringstream text;
  EXPECT_EQ(inSpace(resection, text.rdbuf()), inSpace(resection));
  const std::string heading = "normal matrix\n";
  EXPECT_EQ(text.str().find(heading), 0u);
  EXPECT_EQ(std::stod(text.str().substr(heading.size())), 4.0) << "one for each pair";
  EXPECT_NE(text.str().find("\nsigma0 "), std::string::npos);
  EXPECT_EQ(text.str().back(), '\n');
}

TEST(SpatialRotation, DerivativesAreDifferenceQuotients) {
  constexpr double kStep = 1e-6;
  Random random(17);
  const auto angle = [&random] { return random.uniform(-3.0, 3.0); };
  for (int i = 0; i < 20; ++i) {
    const SpatialAngles at = {angle(), angle(), angle()};
    const SpatialRotation r = spatialRotation(at);
    EXPECT_LT((r.matrix * r.matrix.transpose() - Eigen::Matrix3d::Identity()).norm(), 1e-14);
    for (const auto& [by, derivative] :
         {std::pair(&SpatialAngles::omega, r.byOmega), std::pair(&SpatialAngles::phi, r.byPhi),
          std::pair(&SpatialAngles::kappa, r.byKappa)}) {
      SpatialAngles more = at;
      SpatialAngles less = at;
      more.*by += kStep;
      less.*by -= kStep;
      const Eigen::Matrix3d change = spatialRotation(more).matrix - spatialRotation(less).matrix;
      EXPECT_LT((change / (2.0 * kStep) - derivative).norm(), 1e-9);
    }
  }
}

}  // namespace
