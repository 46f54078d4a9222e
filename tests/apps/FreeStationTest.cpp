// SPDX-License-Identifier: BSL-1.0
#include "free_station/FieldBook.h"
#include "free_station/Identification.h"
#include "free_station/Readings.h"
#include "free_station/Reliability.h"
#include "free_station/Station.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace FreeStation;
using Exchange::SurveyedPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::PolarPoint;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double kFullTurn = 6.283185307179586;
constexpr double kGon = kFullTurn / 400.0;

/// Of a levelled instrument at (1000, 2000, 12) with its zero at azimuth 0.7.
PolarPoint seen(const ENHPoint& point) {
  const ENHPoint d = point - ENHPoint(1000.0, 2000.0, 12.0);
  return {std::remainder(std::atan2(d.east, d.north) - 0.7, kFullTurn),
          std::acos(d.height / d.length()), d.length()};
}

FieldBook bookOf(std::size_t fixPoints, std::size_t measured, double noise) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> place(-1.0, 1.0);
  std::normal_distribution<double> error(0.0, 1.0);
  FieldBook book;
  for (std::size_t i = 0; i < fixPoints; ++i) {
    const ENHPoint grid(1000.0 + 6.0 * place(random), 2000.0 + 25.0 * place(random),
                        14.0 + 4.0 * place(random));
    book.fixPoints.push_back({0, "F" + std::to_string(i), grid});
    if (i >= measured) continue;
    PolarPoint polar = seen(grid);
    polar.slopeDistance += noise * error(random);
    book.readings.push_back({0, std::to_string(i), polar, 0.0, NAN});
  }
  book.measurements = measurementsOf(book.readings);
  return book;
}

TEST(Readings, FacesAndRepetitionsGiveOnePoint) {
  std::istringstream table(
      "id,Hz [gon],V [gon],SD [m],th [m],hi [m]\n"
      "A,399.9990,90.0010,10.000,1.5,1.6\nB,10,100,5,0,1.6\nA,200.0030,310.0030,10.002,1.5,1.6\n"
      "A,399.9990,90.0010,10.000,1.5,1.6\nC,10,100,0,0,1.6\nC,10,401,5,0,1.6\n");
  const auto file = readReadings(table, {});
  ASSERT_TRUE(file.value);
  EXPECT_EQ(file.value->rejected.size(), 2U);
  const auto points = measurementsOf(file.value->points);
  ASSERT_EQ(points.size(), 2U);
  const Measurement& a = points[0];
  EXPECT_EQ(a.readings, 3U);
  EXPECT_TRUE(a.hasBothFaces);
  EXPECT_FALSE(points[1].hasBothFaces);
  // The faces count alike: 399.9990 and 0.0030; 90.0010 and 89.9970.
  EXPECT_NEAR(std::remainder(a.polar.horizontalAngle - 0.001 * kGon, kFullTurn), 0.0, 1e-12);
  EXPECT_NEAR(a.spread.horizontal, 0.004 * kGon, 1e-12);
  // 1.5 m below what lies 10.001 m away under 89.999 gon.
  const double up = 10.001 * std::cos(89.999 * kGon) - 1.5;
  EXPECT_NEAR(a.polar.slopeDistance * std::cos(a.polar.verticalAngle), up, 1e-6);
  EXPECT_NEAR(a.spreadInSpace(), 0.0021, 2e-4);
}

TEST(Identification, DoubtsWhatChanceOrAnotherUnitExplains) {
  const FieldBook book = bookOf(12, 8, 0.001);
  const Identification found = identify(book, {});
  EXPECT_EQ(found.sightings.size(), 8U);
  EXPECT_THAT(found.doubts, IsEmpty());
  EXPECT_LT(found.expectedByChance, 1e-6);
  // Three of many points nearly always fit somewhere.
  EXPECT_THAT(identify(bookOf(80, 3, 0.001), {}).doubts, testing::Contains(HasSubstr("chance")));

  FieldBook degrees = book;
  degrees.readings = withAnglesTimes(0.9, book.readings);
  degrees.measurements = measurementsOf(degrees.readings);
  try {
    EXPECT_THAT(identify(degrees, {}).doubts, testing::Contains(HasSubstr("--angles deg")));
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("--angles deg"));
  }

  FieldBook swapped = book;
  for (SurveyedPoint& point : swapped.fixPoints) {
    std::swap(point.grid.east, point.grid.north);
  }
  try {
    EXPECT_THAT(identify(swapped, {}).doubts, testing::Contains(HasSubstr("are swapped")));
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), HasSubstr("are swapped"));
  }

  FieldBook named = book;
  named.measurements[0].id = "F5";
  EXPECT_THAT(identify(named, {}).doubts, ElementsAre(HasSubstr("F5 fits the fix point F0")));
}

TEST(Reliability, AgreesWithTheResectionAndFindsTheOutlier) {
  FieldBook book = bookOf(9, 9, 0.002);
  std::vector<Sighting> sightings = identify(book, {}).sightings;
  const Ruv::Calculations::StationPlacement station = setUpStation(sightings);
  const Reliability reliability = reliabilityOf(station, sightings);
  double redundancy = 0.0;
  for (const Control& control : reliability.sightings) {
    const ENHPoint& r = control.redundancy;
    redundancy += r.east + r.north + r.height;
    EXPECT_TRUE(r.east > 0.0 && r.east < 1.0 && r.height > 0.0 && r.height < 1.0);
  }
  EXPECT_NEAR(redundancy, 20.0, 1e-9);
  EXPECT_EQ(reliability.redundancy, 20);
  EXPECT_FALSE(reliability.outlier);
  // The ellipse holds the standard deviations in its axes' sum of squares.
  const ErrorEllipse& ellipse = reliability.ellipse;
  const double sine = std::sin(ellipse.azimuth);
  const double cosine = std::cos(ellipse.azimuth);
  EXPECT_NEAR(std::hypot(ellipse.semiMajor * sine, ellipse.semiMinor * cosine),
              station.stationStdDev().east, 0.01 * station.stationStdDev().east);
  EXPECT_NEAR(std::hypot(ellipse.semiMajor * cosine, ellipse.semiMinor * sine),
              station.stationStdDev().north, 0.01 * station.stationStdDev().north);

  sightings[4].fixPoint.grid.height += 0.05;
  const Reliability wrong = reliabilityOf(setUpStation(sightings), sightings);
  ASSERT_TRUE(wrong.outlier);
  EXPECT_EQ(*wrong.outlier, 4U);
}

}  // namespace
