#include <Calculations/Resection.h>
#include <Calculations/Utilities.h>

#include "stations/SpatialNormals.h"
#include "stations/SpatialRotation.h"
#include "testing/Csv.h"
#include "testing/Numbers.h"
#include "testing/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <Eigen/Dense>

#include <cmath>
#include <iostream>
#include <limits>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

/// Station, orientation, scale and the standard deviations of these, in the order of the outputs.
/// They start with values that no calculation gives.
struct Result {
  bool ok = false;
  Eigen::Matrix<double, 10, 1> values = Eigen::VectorXd::LinSpaced(10, -1.0, -10.0);

  ENHPoint station() const { return {values(0), values(1), values(2)}; }
  bool operator==(const Result& o) const { return ok == o.ok && values == o.values; }
};

constexpr Eigen::Index kOrientation = 3, kScale = 4, kScaleStdDev = 9;

Result resultOf(const Resection& resection, decltype(&Resection::calculateResectionHelmert2d) by) {
  Result r;
  auto& v = r.values;
  ENHPoint station = r.station();
  ENHPoint stdDev(v(5), v(6), v(7));
  r.ok = (resection.*by)(station, v(kOrientation), v(kScale), stdDev, v(8), v(kScaleStdDev));
  v.head<3>() << station.east, station.north, station.height;
  v.segment<3>(5) << stdDev.east, stdDev.north, stdDev.height;
  return r;
}

Result inPlane(const Resection& resection) {
  return resultOf(resection, &Resection::calculateResectionHelmert2d);
}

/// @param diagnostics takes the text of std::clog; none by default
Result inSpace(const Resection& resection, std::streambuf* diagnostics = nullptr) {
  std::streambuf* const before = std::clog.rdbuf(diagnostics);
  Result r = resultOf(resection, &Resection::calculateResectionHelmert3d);
  std::clog.rdbuf(before);
  return r;
}

/// Without the diagnostics.
bool place(const Resection& resection, StationPlacement& placement) {
  std::streambuf* const before = std::clog.rdbuf(nullptr);
  const bool ok = resection.calculatePlacementHelmert3d(placement);
  std::clog.rdbuf(before);
  return ok;
}

/// What a refused calculation in space leaves.
Result refusedInSpace() {
  Result r;
  r.values(kScale) = 1.0;
  r.values(kScaleStdDev) = 0.0;
  return r;
}

struct Pair {
  ENHPoint local;
  ENHPoint global;
};

Resection resectionOf(const std::vector<Pair>& pairs, const ENHPoint& grid = ENHPoint()) {
  Resection resection;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const std::wstring id = L"P" + std::to_wstring(i);
    resection.addFixPoint(id, pairs[i].global + grid);
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

Resection goldenResection(const std::string& name) {
  Resection resection;
  for (const CsvRow& row : rowsOf("transformations/" + name + ".csv")) {
    const std::wstring id(row.text("id").begin(), row.text("id").end());
    resection.addMeasurement(id,
                             PolarPoint(row.number("horizontal_angle"), row.number("zenith_angle"),
                                        row.number("slope_distance")));
    if (!row.has("global_east")) continue;
    resection.addFixPoint(id, ENHPoint(row.number("global_east"), row.number("global_north"),
                                       row.number("global_height")));
  }
  return resection;
}

void expectGolden(const Result& r, const std::map<std::string, double>& golden, double tolerance,
                  const std::vector<std::string>& stationStdDevs) {
  ASSERT_TRUE(r.ok);
  std::vector<std::string> quantities = {"station_east", "station_north", "station_height",
                                         "orientation", "scale"};
  quantities.insert(quantities.end(), stationStdDevs.begin(), stationStdDevs.end());
  quantities.insert(quantities.end(), {"orientation_std", "scale_std"});
  for (std::size_t i = 0; i < quantities.size(); ++i) {
    const double expected = golden.at(quantities[i]);
    const double within = i < 3 ? 1e-9 : i < 5 ? tolerance : 1e-6 * expected;
    EXPECT_NEAR(r.values(static_cast<Eigen::Index>(i)), expected, within) << quantities[i];
  }
}

TEST(Resection, AgreesWithFiftyDigitAdjustments) {
  // The northings of the last, 2e6 m, come in steps of 2e-10 m on a figure of 6 m.
  for (const auto& [name, tolerance] :
       {std::pair("plane_geoeasy6", 1e-12), std::pair("space_ghilani4", 1e-12),
        std::pair("space_dewitt4", 1e-12), std::pair("space_tbm17", 1e-11)}) {
    SCOPED_TRACE(name);
    std::map<std::string, std::map<std::string, double>> golden;
    for (const CsvRow& row : rowsOf("transformations/" + std::string(name) + "_expected.csv")) {
      golden[row.text("group")][row.text("quantity")] = row.number("value");
    }
    const Resection resection = goldenResection(name);
    expectGolden(inPlane(resection), golden["plane"], tolerance,
                 {"centroid_std", "centroid_std", "height_mean_abs_residual"});
    if (golden["space"].count("scale") == 0) continue;
    expectGolden(inSpace(resection), golden["space"], tolerance,
                 {"station_east_std", "station_north_std", "station_height_std"});
  }
}

const ENHPoint kGrid(600000.0, 200000.0, 500.0);

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

const std::vector<Pair> kSquare = {{{10.0, 0.0, 1.0}, {110.0, 200.0, 51.0}},
                                   {{0.0, 10.0, 0.0}, {100.0, 210.0, 50.0}},
                                   {{-10.0, 0.0, 2.0}, {90.0, 200.0, 52.0}},
                                   {{0.0, -10.0, 0.0}, {100.0, 190.0, 50.0}}};

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

/// Angles of an instrument whose standing axis is tilted by an angle towards an azimuth.
SpatialAngles tilted(double tilt, double azimuth, double kappa) {
  const double level = std::sin(tilt);
  return {std::atan2(-level * std::cos(azimuth), std::cos(tilt)),
          std::asin(level * std::sin(azimuth)), kappa};
}

TEST(ResectionHelmert3d, FindsTheSetupAtAnyTilt) {
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

TEST(ResectionHelmert3d, RefusesAngleThatAnotherOneUndoes) {
  // Instrument tilted by a right angle about north: omega and kappa turn about one axis.
  PointPairs pairs;
  for (const Pair& pair : kSquare) {
    pairs.local.push_back(pair.local);
    pairs.global.push_back(pair.global);
  }
  const ReducedPairs reduced(pairs);
  const auto at = [&](double phi) {
    return SpatialNormals(reduced, {{0, 0, 0}, {0.3, phi, 0.5}, 1.0}).cofactors();
  };
  EXPECT_FALSE(at(std::acos(0.0) + 1e-9));
  EXPECT_TRUE(at(std::acos(0.0) - 1e-5));
}

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
  EXPECT_TRUE(found.residuals(L"unknown").empty());

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

TEST(ResectionHelmert3d, RefusesWhatLeavesTheRotationOpen) {
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

TEST(ResectionHelmert3d, WritesDiagnosticsThatChangeNothing) {
  const Resection resection = resectionOf(kSquare);
  std::ostringstream text;
  EXPECT_EQ(inSpace(resection, text.rdbuf()), inSpace(resection));
  const std::string heading = "normal matrix\n";
  EXPECT_EQ(text.str().find(heading), 0u);
  EXPECT_EQ(std::stod(text.str().substr(heading.size())), 4.0) << "one for each pair";
  EXPECT_THAT(text.str(), testing::ContainsRegex("\nsigma0 [^\n]*\ncofactors\n"));
  EXPECT_EQ(text.str().back(), '\n');
}

}  // namespace
