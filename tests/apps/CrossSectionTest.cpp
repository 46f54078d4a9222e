// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/DesignProfile.h"
#include "common/exchange/PointFile.h"
#include "tunnel_survey/DevelopedMap.h"
#include "tunnel_survey/HtmlReport.h"
#include "tunnel_survey/SectionChecks.h"
#include "tunnel_survey/SectionCutter.h"
#include "tunnel_survey/SectionFile.h"
#include "tunnel_survey/SectionSurvey.h"
#include "tunnel_survey/SectionTable.h"
#include "tunnel_survey/SurveyReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace TunnelSurvey;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::Point2D;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

auto at(const Point2D& point) {
  return testing::AllOf(testing::Field(&Point2D::x, point.x), testing::Field(&Point2D::y, point.y));
}

constexpr double kPi = 3.141592653589793;
constexpr double kRadius = 5.0;

Exchange::DesignProfile circle() {
  std::istringstream in("start_x,start_y,end_x,end_y,radius\n-5,0,5,0,5\n5,0,-5,0,5\n");
  return *Exchange::readDesignProfile(in).value;
}

std::vector<Point2D> pointsAround(double radius, int count) {
  std::vector<Point2D> points;
  for (int i = 0; i < count; ++i) {
    const double bearing = 2.0 * kPi * i / count;
    points.emplace_back(radius * std::sin(bearing), radius * std::cos(bearing));
  }
  return points;
}

SectionSurvey surveyOf(const std::vector<MeasuredSection>& sections, const ComparisonRule& rule) {
  SectionSurvey survey{circle(), rule, "Section", "design.csv", "<b>.csv", 1.0, {}, {}, {}, {}};
  for (const MeasuredSection& section : sections) {
    survey.results.push_back(compareWithDesign(section, survey.design, rule));
  }
  return survey;
}

std::vector<int> linesOf(const std::vector<Exchange::Remark>& remarks) {
  std::vector<int> lines;
  for (const Exchange::Remark& remark : remarks) {
    lines.push_back(remark.line);
  }
  return lines;
}

/// Every pair of sides that are no neighbours.
bool crossesItself(const std::vector<Point2D>& p) {
  const auto side = [](const Point2D& a, const Point2D& b, const Point2D& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
  };
  const std::size_t n = p.size();
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const Point2D& a = p[i];
      const Point2D& b = p[(i + 1) % n];
      const Point2D& c = p[j];
      const Point2D& d = p[(j + 1) % n];
      if (side(a, b, c) * side(a, b, d) < 0.0 && side(c, d, a) * side(c, d, b) < 0.0) return true;
    }
  }
  return false;
}

TEST(SectionChecks, PointsOutOfOrderAreFoundAndSorted) {
  std::mt19937 random(3);
  std::size_t crossing = 0;
  for (int i = 0; i < 300; ++i) {
    std::vector<Point2D> points = pointsAround(kRadius, 12);
    const std::vector<Point2D> ordered = points;
    for (int swaps = i % 3; swaps > 0; --swaps) {
      std::swap(points[random() % 12], points[random() % 12]);
    }
    crossing += crossesItself(points) ? 1 : 0;
    EXPECT_EQ(crossingSides(points).has_value(), crossesItself(points));
    sortAround({0.1, 0.2}, points);
    EXPECT_FALSE(crossingSides(points));
  }
  EXPECT_GT(crossing, 50U);
}

TEST(SectionChecks, SectionsThatCannotBeRightAreTold) {
  const MeasuredSection fine{"fine", 10.0, pointsAround(5.1, 12)};
  MeasuredSection crossed{"crossed", 20.0, pointsAround(5.1, 12)};
  std::swap(crossed.points[2], crossed.points[7]);
  MeasuredSection beside{"beside", 101.0, pointsAround(5.1, 12)};
  for (Point2D& point : beside.points) {
    point = point + Point2D(0.0, -17.0);
  }
  EXPECT_THAT(doubtsOn({fine}, circle(), {}), testing::IsEmpty());
  EXPECT_THAT(doubtsOn({fine, crossed, beside}, circle(), Exchange::StationRange{0.0, 100.0}),
              ElementsAre(HasSubstr("section crossed: the outline crosses itself"),
                          HasSubstr("section beside: all points lie on one side"),
                          HasSubstr("section beside: the station lies outside the axis")));
}

TEST(SectionFile, BadRowsAreRejectedAlone) {
  std::istringstream in(
      "\xEF\xBB\xBF# a comment\r\n"
      "section,station,x,y\r\n"
      "\"roof, \"\"old\"\"\",10, 1.5 ,+2\r\n"
      "second,12.5,nan,1\n"
      "second,12.5,1e300,1\n"
      "second,1e300,1,1\n"
      "second,12.5,1\n"
      "second,12.5,1,x\n"
      "\"open,12.5,1\n"
      ",12.5,1,1\n"
      "second,12.5,3,4\n"
      "second,13,3,4\n");
  const auto file = readSections(in);
  ASSERT_TRUE(file.value) << file.error.message;
  EXPECT_EQ(file.value->noun, "Section");
  const auto& sections = file.value->sections;
  ASSERT_EQ(sections.size(), 2U);
  EXPECT_EQ(sections[0].name, "roof, \"old\"");
  EXPECT_THAT(sections[0].points, ElementsAre(at({1.5, 2.0})));
  EXPECT_EQ(sections[1].station, 12.5);
  EXPECT_THAT(sections[1].points, ElementsAre(at({3.0, 4.0})));
  EXPECT_THAT(linesOf(file.value->rejected),
              testing::UnorderedElementsAre(4, 5, 6, 7, 8, 9, 10, 12));
}

TEST(SectionFile, OriginsShiftTheirSectionsAndGiveStations) {
  std::istringstream sections("ring,x,y\n7,11,21\n8,1,1\n");
  SectionFile file = *readSections(sections).value;
  EXPECT_EQ(file.noun, "Ring");
  std::istringstream places("ring,x,y,station\n7,10,20,100.5\n7,0,0,0\n");
  const OriginFile origins = *readOrigins(places).value;
  EXPECT_THAT(linesOf(origins.rejected), ElementsAre(3));
  placeOnOrigins(file, origins.origins);
  ASSERT_EQ(file.sections.size(), 1U);  // ring 8 has no origin
  EXPECT_EQ(file.sections[0].station, 100.5);
  EXPECT_THAT(file.sections[0].points, ElementsAre(at({1.0, 1.0})));
  EXPECT_EQ(file.rejected.size(), 1U);
}

TEST(DesignProfile, TellsWhatIsWrong) {
  const struct {
    const char* rows;
    const char* message;
  } designs[] = {
      {"", "no rows below the headings"},
      {"0,0,1,0,0\n", "two elements or more"},
      {"0,0,1,0,0\n1.5,0,0,0,0\n", "0.500 m from the end of the one before"},
      {"0,0,1,0,0\n1,0,1,1,0\n", "does not close"},
      {"-5,0,5,0,4\n5,0,-5,0,5\n", "exceeds the diameter"},
      {"-5,0,5,0,nan\n5,0,-5,0,5\n", "radius is \"nan\""},
      {"-5,0,1e300,0,0\n1e300,0,-5,0,0\n", "larger than 1000 m"},
      {"3,3,3,3,0\n3,3,3,3,0\n", "encloses no area"},
  };
  for (const auto& design : designs) {
    std::istringstream in(std::string("start_x,start_y,end_x,end_y,radius\n") + design.rows);
    const auto profile = Exchange::readDesignProfile(in);
    EXPECT_FALSE(profile.value);
    EXPECT_THAT(profile.error.message, HasSubstr(design.message));
  }
}

TEST(SectionCutter, PointsGoToTheNearestGivenStationClockwiseFromBelow) {
  SectionCutter cutter({{30.0, 10.0, 11.0}, 5.0, 100.0});
  const Point2D around[] = {{1.0, 0.5}, {-1.0, 0.5}, {0.1, 2.0}, {0.1, -1.0}, {-0.1, -1.0}};
  for (const Point2D& point : around) {
    cutter.add(AxisPoint(10.6, point.x, point.y));
  }
  cutter.add(AxisPoint(10.5, 7.0, 7.0));  // the middle belongs to the first
  cutter.add(AxisPoint(75.0, 8.0, 8.0));
  cutter.add(AxisPoint(131.0, 9.0, 9.0));  // farther than half the thickness
  EXPECT_EQ(cutter.unused(), 1U);
  const auto sections = cutter.sections(Point2D(0.0, 0.0));
  ASSERT_EQ(sections.size(), 3U);
  EXPECT_THAT(sections[0].points, ElementsAre(at({7.0, 7.0})));
  EXPECT_THAT(sections[1].points, ElementsAre(at(around[4]), at(around[1]), at(around[2]),
                                              at(around[0]), at(around[3])));
  EXPECT_THAT(sections[2].points, ElementsAre(at({8.0, 8.0})));
}

TEST(SectionCutter, CrowdedSectionsBecomeMeansOfCells) {
  SectionCutter cutter({{10.0}, 5.0, 1.0});
  std::mt19937 random(7);
  std::uniform_real_distribution<double> angle(-kPi, kPi);
  std::uniform_real_distribution<double> radius(4.9, 5.1);
  for (int i = 0; i < 60000; ++i) {
    const double bearing = angle(random);
    const Point2D point = Point2D(std::sin(bearing), std::cos(bearing)) * radius(random);
    cutter.add(AxisPoint(10.0, point.x, point.y));
  }
  const auto points = cutter.sections({0.0, 0.0}).front().points;
  EXPECT_EQ(cutter.thinnedSections(), 1U);
  EXPECT_LE(points.size(), 8000U);
  EXPECT_GE(points.size(), 1000U);
  const double cell = cutter.largestCell();
  EXPECT_LE(cell, 0.08);
  std::set<std::pair<double, double>> cells;
  for (const Point2D& point : points) {
    EXPECT_LT(std::abs(point.length() - 5.0), 0.1);
    cells.emplace(std::floor(point.x / cell), std::floor(point.y / cell));
  }
  EXPECT_EQ(cells.size(), points.size());  // one of each cell
}

TEST(SectionComparison, OutlinesMayFollowTheDesign) {
  ComparisonRule along;
  along.followDesign = true;
  const MeasuredSection few{"few", 10.0, pointsAround(5.1, 12)};
  const double ring = kPi * (5.1 * 5.1 - kRadius * kRadius);
  EXPECT_NEAR(compareWithDesign(few, circle(), along).overArea, ring, 0.01);
  EXPECT_LT(compareWithDesign(few, circle(), {}).overArea, 0.5 * ring);  // chords cut corners
}

TEST(SectionComparison, SidesAndSigns) {
  const double shift = 0.25;  // a larger circle, to the right
  std::vector<Point2D> points = pointsAround(kRadius + 0.1, 200);
  for (Point2D& point : points) {
    point.x += shift;
  }
  const SectionResult result = compareWithDesign({"1", {}, points}, circle(), {});
  ASSERT_TRUE(result.largestOver && result.largestUnder);
  EXPECT_NEAR(result.largestOver->deviation.distance, 0.1 + shift, 1e-3);
  EXPECT_NEAR(result.largestOver->deviation.derolment, kRadius * kPi / 2.0, 0.2);
  EXPECT_NEAR(result.largestUnder->deviation.distance, 0.1 - shift, 1e-3);
  EXPECT_NEAR(result.largestUnder->deviation.derolment, -kRadius * kPi / 2.0, 0.2);
  EXPECT_NEAR(result.circle.center.x, shift, 1e-9);
  EXPECT_NEAR(result.circle.radius, kRadius + 0.1, 1e-9);
  const double difference = result.measuredArea - result.designArea;
  EXPECT_NEAR(result.overArea - result.underArea, difference, 1e-4);
}

TEST(SectionComparison, PointsThatDetermineNothingAreReportedWithoutNumbers) {
  ComparisonRule everything;
  everything.excludeAbove = -100.0;
  const std::vector<Point2D> coincident(5, Point2D(1.0, 1.0));
  for (const SectionSurvey& survey :
       {surveyOf({{"1", 0.0, coincident}, {"2", 0.0, coincident}}, {}),
        surveyOf({{"1", 0.0, pointsAround(6.0, 20)}}, everything)}) {
    const std::string csv = csvOf(sectionTable(survey));
    EXPECT_THAT(csv, Not(HasSubstr("nan")));
    EXPECT_THAT(csv, Not(HasSubstr("inf")));
    EXPECT_FALSE(pictureOf(developedMapSheet(survey)).shapes.empty());
  }
}

TEST(DevelopedMap, InterpolatesBetweenSectionsButNotAcrossGaps) {
  std::vector<MeasuredSection> sections;
  for (const double station : {0.0, 5.0, 10.0, 15.0, 100.0}) {
    sections.push_back({"s", station, pointsAround(kRadius + 0.01 * station, 90)});
  }
  const DevelopedMap map(surveyOf(sections, {}));
  const auto columns = map.columnsAt({-1.0, 7.5, 50.0}, {-12.0, 0.0, 15.6});
  for (const double distance : columns[1]) {
    EXPECT_NEAR(distance, 0.075, 1e-9);
  }
  for (const std::size_t column : {0U, 2U}) {
    for (const double distance : columns[column]) {
      EXPECT_TRUE(std::isnan(distance));
    }
  }
}

TEST(HtmlReport, NeedsNoOtherFileAndEscapesNames) {
  SurveyResults results;
  results.sections = surveyOf({{"<i>", 1.0, pointsAround(5.1, 20)}}, {});
  const Report report = reportOf({}, results);
  HtmlReport html(HtmlPictures::Inside);
  html.addHead(report);
  for (const Chapter& chapter : report.chapters) {
    html.beginChapter(chapter);
    for (const Figure& figure : chapter.figures) {
      html.addFigure(figure, pictureOf(figure.sheet));
    }
    html.endChapter();
  }
  const std::string text = html.finish();
  EXPECT_THAT(text, HasSubstr("Section &lt;i&gt;"));
  EXPECT_THAT(text, HasSubstr("<svg"));
  for (const char* unwanted : {"<i>", "<b>", "<script", "<link", "src=\"http", "href=\"http"}) {
    EXPECT_THAT(text, Not(HasSubstr(unwanted)));
  }
}

}  // namespace
