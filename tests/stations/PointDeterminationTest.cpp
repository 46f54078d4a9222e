// SPDX-License-Identifier: BSL-1.0
#include <Calculations/PointDetermination.h>
#include <Calculations/Utilities.h>

#include "testing/Numbers.h"
#include "testing/Random.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using testing::Each;
using testing::ElementsAre;
using namespace TestSupport;

constexpr double kDegree = 3.141592653589793 / 180.0;

std::wstring numbered(const wchar_t* name, std::size_t i) { return name + std::to_wstring(i); }

void addPoints(PointDetermination& d, const std::vector<ENHPoint>& points) {
  for (const ENHPoint& p : points) {
    d.addPoint(numbered(L"F", d.getNumPoints()), p);
  }
}

void addMeasurements(PointDetermination& d, const std::vector<ENHPoint>& locals) {
  for (const ENHPoint& p : locals) {
    d.addMeasurement(numbered(L"M", d.getNumMeasurements()),
                     Utilities::convertToPolarMeasurement(p));
  }
}

std::vector<std::wstring> identified(const PointDetermination& d) {
  std::vector<std::wstring> ids;
  for (unsigned int i = 0; i < d.getNumMeasurements(); ++i) {
    ids.push_back(d.getFixPointIdForMeasurementId(numbered(L"M", i)));
  }
  return ids;
}

/// An irregular figure at grid coordinates.
const std::vector<ENHPoint> kFixPoints = {{600010.0, 200000.0, 503.0}, {600003.0, 200012.0, 500.0},
                                          {599992.0, 200005.0, 506.0}, {599995.0, 199991.0, 501.0},
                                          {600007.0, 199993.0, 508.0}, {600001.0, 200031.0, 502.0}};

/// Some fix points as seen by an instrument tilted about east and turned about the vertical.
std::vector<ENHPoint> seen(const std::vector<std::size_t>& indices, double turn, double tilt) {
  std::vector<ENHPoint> locals;
  for (const std::size_t i : indices) {
    const ENHPoint ray = kFixPoints[i] - ENHPoint(600000.5, 200001.5, 501.5);
    locals.push_back(
        Utilities::rotateAroundEastXaxis(Utilities::rotateAroundHeightZaxis(ray, turn), tilt));
  }
  return locals;
}

TEST(PointDetermination, IdentifiesUnderAnyTurnAndUpToTheLargestTilt) {
  for (int turn = 0; turn < 63; ++turn) {
    for (const double tilt : {0.0, 79.9, 80.1}) {
      SCOPED_TRACE(testing::Message() << "turn " << turn << ", tilt " << tilt);
      PointDetermination d;
      addPoints(d, kFixPoints);
      addMeasurements(d, seen({4, 2, 0, 5}, 0.1 * turn, tilt * kDegree));
      if (turn % 2 == 0) {  // down to the rounding of coordinates
        d.setToleranceDistanceDifference(1e-7);
        d.setToleranceHeightDifference(1e-7);
      }
      ASSERT_EQ(d.determineMeasuredPointsStrict(), tilt < 80.0);
      EXPECT_EQ(d.isBestSolutionSignificantlyBetter(), tilt < 80.0);
      if (tilt > 80.0) continue;
      EXPECT_THAT(identified(d), ElementsAre(L"F4", L"F2", L"F0", L"F5"));
    }
  }
}

TEST(PointDetermination, PrismsOnALineAreFoundFromATiltedInstrument) {
  for (const ENHPoint& grid : {ENHPoint(), ENHPoint(600000.0, 5000000.0, 500.0)}) {
    for (int i = 0; i < 40; ++i) {
      PointDetermination d;
      for (const double north : {10.0, 13.0, 17.0, 22.0}) {
        const ENHPoint p(5.0, north, 1.0);
        d.addPoint(numbered(L"F", d.getNumPoints()), p + grid);
        PolarPoint seenTilted = Utilities::convertToPolarMeasurement(
            Utilities::rotateAroundEastXaxis(p, Utilities::gon2rad(1.0)));
        if (d.getNumPoints() == 1) seenTilted.slopeDistance += 1e-5 * i;
        d.addMeasurement(numbered(L"M", d.getNumMeasurements()), seenTilted);
      }
      EXPECT_TRUE(d.determineMeasuredPointsStrict()) << i;
      EXPECT_THAT(identified(d), ElementsAre(L"F0", L"F1", L"F2", L"F3"));
    }
  }
}

TEST(PointDetermination, FailureLeavesTheResult) {
  PointDetermination d;
  addPoints(d, kFixPoints);
  std::vector<ENHPoint> locals = seen({1, 3, 5, 0}, 2.1, 0.02);
  locals.insert(locals.begin() + 1, ENHPoint(5.0, 4.0, 3.0));
  addMeasurements(d, locals);
  EXPECT_FALSE(d.determineMeasuredPointsStrict());
  EXPECT_THAT(identified(d), Each(L""));
  ASSERT_TRUE(d.determineMeasuredPointsRobust());
  d.setMinNumberOfFixPointMeasurementsRequired(5);
  EXPECT_FALSE(d.determineMeasuredPointsRobust());
  addMeasurements(d, {ENHPoint(1.0, 2.0, 3.0)});
  EXPECT_THAT(identified(d), ElementsAre(L"F1", L"", L"F3", L"F5", L"F0", L""));
  EXPECT_EQ(d.getFixPointIdForMeasurementId(L"unknown"), L"");
}

TEST(PointDetermination, QueriesAnswerFromTheFirstDeterminationUntilReset) {
  PointDetermination d;
  addPoints(d, {{0, 0, 0}, {7, 0, 1}, {0, 11, 2}});
  addMeasurements(d, {{1, 1, 0}, {8, 1, 1}, {1, 12, 2}});
  ASSERT_TRUE(d.determineMeasuredPointsStrict());
  EXPECT_TRUE(d.isBestSolutionSignificantlyBetter());
  // Another figure of the same shape, and an id that comes first.
  d.addPoint(L"A", {100, 0, 0});
  addPoints(d, {{107, 0, 1}, {100, 11, 2}});
  ASSERT_TRUE(d.determineMeasuredPointsStrict());
  EXPECT_THAT(identified(d), ElementsAre(L"F0", L"F1", L"F2"));
  EXPECT_FALSE(d.isBestSolutionSignificantlyBetter());
  d.reset();
  EXPECT_EQ(d.getNumPoints() + d.getNumMeasurements(), 0u);
  EXPECT_FALSE(d.determineMeasuredPointsStrict());
  EXPECT_FALSE(d.determineMeasuredPointsRobust());
  // Points and measurements under the old ids do not bring the old solutions back.
  addPoints(d, {{0, 0, 0}, {7, 0, 1}, {0, 11, 2}});
  addMeasurements(d, {{1, 1, 0}, {8, 1, 1}, {1, 12, 2}});
  EXPECT_THAT(identified(d), Each(L""));
  EXPECT_FALSE(d.isBestSolutionSignificantlyBetter());
  EXPECT_EQ(d.expectedChanceSolutions(), kInfinity);
}

TEST(PointDetermination, SettingsRefuseWhatMakesNoSense) {
  PointDetermination d;
  const auto set = [&d](int number, double tolerance) {
    d.setMinNumberOfFixPointMeasurementsRequired(number);
    d.setToleranceDistanceDifference(tolerance);
    d.setToleranceHeightDifference(2.0 * tolerance);
    d.setToleranceTilt(3.0 * tolerance);
  };
  const auto values = [&d] {
    return std::vector<double>{1.0 * d.getMinNumberOfFixPointMeasurementsRequired(),
                               d.getToleranceDistanceDifference(), d.getToleranceHeightDifference(),
                               d.getToleranceTilt()};
  };
  EXPECT_THAT(values(), ElementsAre(3.0, 0.05, 0.02, 80.0));
  for (const double good : {5.0, 0.0, kInfinity, 0.25}) {
    set(5, good);
    EXPECT_THAT(values(), ElementsAre(5.0, good, 2.0 * good, 3.0 * good));
  }
  for (const double bad : {-1.0, kNaN, -kInfinity}) {
    set(2, bad);
    EXPECT_THAT(values(), ElementsAre(3.0, 0.25, 0.5, 0.75));
  }
  d.reset();
  EXPECT_THAT(values(), ElementsAre(3.0, 0.05, 0.02, 80.0));
}

TEST(PointDetermination, ChanceIsThatOfTheFirstDetermination) {
  PointDetermination d;
  const PointDetermination copy(d);
  EXPECT_EQ(d.expectedChanceSolutions(), kInfinity);
  addPoints(d, kFixPoints);
  addMeasurements(d, seen({4, 2, 0, 5}, 2.0, 0.0));
  EXPECT_EQ(d.expectedChanceSolutions(), kInfinity);
  ASSERT_TRUE(d.determineMeasuredPointsStrict());
  const double first = d.expectedChanceSolutions();
  EXPECT_LT(first, 1e-6);
  EXPECT_GT(first, 0.0);
  d.setToleranceDistanceDifference(0.5);
  d.setToleranceHeightDifference(0.3);
  d.setToleranceTilt(30.0);
  addPoints(d, {{700000.0, 200000.0, 503.0}});
  EXPECT_TRUE(d.determineMeasuredPointsStrict());
  d.addMeasurement(L"later", PolarPoint(1.0, 1.5, 20.0));
  EXPECT_EQ(copy.expectedChanceSolutions(), first);
  // One of two measurements in a choice of many more is less of a surprise, and so are wide
  // tolerances.
  const auto expected = [](double tolerance, std::size_t strays) {
    PointDetermination other;
    other.setToleranceDistanceDifference(tolerance);
    addPoints(other, kFixPoints);
    addMeasurements(other, seen({4, 2, 0, 5}, 2.0, 0.0));
    addMeasurements(other, std::vector<ENHPoint>(strays, ENHPoint(3.0, 4.0, 90.0)));
    EXPECT_TRUE(other.determineMeasuredPointsRobust());
    return other.expectedChanceSolutions();
  };
  EXPECT_EQ(expected(0.05, 0), first);
  EXPECT_NEAR(expected(0.05, 3) / first, 35.0, 1e-9) << "choices of 4 of 7";
  EXPECT_GT(expected(0.1, 0), 10.0 * first);
  EXPECT_GT(expected(kInfinity, 0), 1000.0);
}

TEST(PointDetermination, RepeatedSightingsAreNoEvidence) {
  // Three fix points, each sighted twice, and one of them under a second name.
  PointDetermination once;
  PointDetermination twice;
  for (PointDetermination* d : {&once, &twice}) {
    addPoints(*d, kFixPoints);
    addPoints(*d, {kFixPoints[1] + ENHPoint(0.01, 0.0, 0.0)});
    for (std::size_t i = 0; i < (d == &once ? 1u : 2u); ++i) {
      addMeasurements(*d, seen({1, 3, 5}, 0.4, 0.0));
    }
    ASSERT_TRUE(d->determineMeasuredPointsStrict());
  }
  EXPECT_NEAR(twice.expectedChanceSolutions() / once.expectedChanceSolutions(), 20.0, 1e-9)
      << "choices of 3 of 6";
  PointDetermination onePlace;
  addPoints(onePlace, std::vector<ENHPoint>(4, ENHPoint(5.0, 6.0, 7.0)));
  addMeasurements(onePlace, std::vector<ENHPoint>(4, ENHPoint(1.0, 2.0, 3.0)));
  ASSERT_TRUE(onePlace.determineMeasuredPointsStrict());
  EXPECT_EQ(onePlace.expectedChanceSolutions(), kInfinity);
}

TEST(PointDetermination, IdsAreUniqueAndCopiesShared) {
  PointDetermination d;
  const PointDetermination copy(d);
  EXPECT_FALSE(d.addPoint(L"", ENHPoint()));
  EXPECT_FALSE(d.addMeasurement(L"", PolarPoint()));
  EXPECT_TRUE(d.addPoint(L"A", ENHPoint()));
  EXPECT_FALSE(d.addPoint(L"A", ENHPoint(1.0, 2.0, 3.0)));
  EXPECT_TRUE(d.addMeasurement(L"A", PolarPoint()));
  EXPECT_FALSE(d.addMeasurement(L"A", PolarPoint()));
  EXPECT_EQ(copy.getNumPoints() + copy.getNumMeasurements(), 2u);
  PointDetermination other;
  other = d;
  d = PointDetermination();
  other.reset();
  EXPECT_EQ(copy.getNumPoints() + copy.getNumMeasurements(), 0u);
}

TEST(PointDetermination, FindsWhatMatchesAmongBadCoordinates) {
  const double values[] = {kNaN, kInfinity, 1e300, -1e160, 0.0, 1e-300, 5.0};
  Random random(12);
  const auto any = [&] { return values[random.index(7)]; };
  for (int i = 0; i < 500; ++i) {
    PointDetermination d;
    addPoints(d, kFixPoints);
    addMeasurements(d, seen({0, 1, 2, 3}, 1.0, 0.0));
    for (std::size_t k = 4; k < 7; ++k) {
      addPoints(d, {ENHPoint(any(), any(), any())});
      d.addMeasurement(numbered(L"M", k), PolarPoint(any(), any(), 1e9 + any()));
    }
    EXPECT_FALSE(d.determineMeasuredPointsStrict());
    ASSERT_TRUE(d.determineMeasuredPointsRobust()) << i;
    EXPECT_THAT(identified(d), ElementsAre(L"F0", L"F1", L"F2", L"F3", L"", L"", L""));
  }
}

TEST(PointDetermination, RegularGridsAndStraysTakeNoTime) {
  const auto start = std::chrono::steady_clock::now();
  PointDetermination d;
  Random random(2);
  std::vector<ENHPoint> grid;
  for (int i = 0; i < 100; ++i) {
    const auto place = std::div(i, 20);
    grid.emplace_back(2.0 * place.quot, 2.0 * place.rem, 0.0);
  }
  addPoints(d, grid);
  for (int i = 0; i < 10; ++i) {
    addMeasurements(d, {{random.uniform(0, 9), random.uniform(0, 40), random.uniform(0, 3)}});
  }
  EXPECT_FALSE(d.determineMeasuredPointsRobust());
  addMeasurements(d, {grid[3], grid[24], grid[65], grid[80], grid[99], grid[41], grid[17]});
  EXPECT_TRUE(d.determineMeasuredPointsRobust());
  EXPECT_NE(d.getFixPointIdForMeasurementId(L"M14"), L"");
  EXPECT_FALSE(d.isBestSolutionSignificantlyBetter()) << "the grid turned by half a turn";
  // One of two fix points measured twice: too few fix points, not too few measurements.
  PointDetermination pair;
  addPoints(pair, {{0, 0, 0}, {9, 0, 1}});
  addMeasurements(pair, {{5, 5, 5}, {14, 5, 6}, {14, 5, 6}});
  EXPECT_FALSE(pair.determineMeasuredPointsStrict());
  EXPECT_FALSE(pair.determineMeasuredPointsRobust());
  PointDetermination onePlace;
  addPoints(onePlace, std::vector<ENHPoint>(100, ENHPoint(5.0, 6.0, 7.0)));
  addMeasurements(onePlace, std::vector<ENHPoint>(10, ENHPoint(1.0, 2.0, 3.0)));
  EXPECT_TRUE(onePlace.determineMeasuredPointsStrict());
  EXPECT_TRUE(onePlace.isBestSolutionSignificantlyBetter()) << "they differ in the id only";
  // Some 10 ms. Without cuts these are millions of searches.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

}  // namespace
