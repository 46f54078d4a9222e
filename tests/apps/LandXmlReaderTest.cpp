#include "common/exchange/AxisBuilder.h"
#include "common/exchange/LandXmlReader.h"
#include "common/exchange/LandXmlUnits.h"
#include "common/exchange/PointFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using testing::HasSubstr;

/// A clothoid with A = 100 m, an arc of 1 rad and a straight; 7-digit values of the unit clothoid.
const std::string kFile =
    R"(<LandXML><Units><Metric linearUnit="meter" directionUnit="grads"/></Units>
<Alignments><Alignment name="first" staStart="10">
<CoordGeom>
<Spiral spiType="clothoid" rot="cw" radiusStart="INF" radiusEnd="100" length="100" dirStart="0">
<Start>2000 1000</Start><PI>2067.55922 1000</PI><End>2097.52877 1016.3714</End></Spiral>
<Curve rot="cw" radius="100" length="100" staStart="110"><Start>2097.52877 1016.3714</Start>
<Center>2049.58622 1104.12966 7</Center><End>2149.33572 1097.05594</End></Curve>
<Line staStart="210"><Start>2149.33572 1097.05594</Start><End>2152.87258 1146.93069</End></Line>
</CoordGeom>
<Profile><ProfAlign name="p">
<PVI>10 50</PVI><ParaCurve length="40">100 53.6</ParaCurve>
<CircCurve radius="1000">200 51.6</CircCurve><PVI>260 52.8</PVI>
</ProfAlign></Profile></Alignment><Alignment name="second" staStart="0"/></Alignments></LandXML>)";

std::string changed(const std::string& from, const std::string& to) {
  std::string text = kFile;
  return text.replace(text.find(from), from.size(), to);
}

TEST(LandXmlReader, TheAxisRunsAsItsCoordinatesSay) {
  const auto alignment = Exchange::readLandXml(kFile);
  ASSERT_TRUE(alignment.value) << alignment.error.message;
  const auto built = Exchange::buildAxis(*alignment.value);
  ASSERT_TRUE(built.value) << built.error.message;
  EXPECT_TRUE(built.value->notes.empty());
  EXPECT_LT(built.value->largestMisfit, 2e-5);  // the file prints 1e-5 m
  ENHPoint place;
  const AxisCalculator calculator(built.value->axis);
  ASSERT_TRUE(calculator.axisPointToEnhPointVertical(AxisPoint(110, 10, 0), place));
  EXPECT_NEAR(place.east, 1016.3714 + 8.77583, 2e-5);  // 10 m to the right of azimuth 0.5
  EXPECT_NEAR(place.north, 2097.52877 - 4.79426, 2e-5);
  ASSERT_TRUE(calculator.axisPointToEnhPointVertical(AxisPoint(100, 0, 0), place));
  EXPECT_NEAR(place.height, 53.6 - 40 * 0.06 / 8, 1e-9);  // the middle of a parabola: L dg / 8
}

TEST(LandXmlReader, EveryUnitBecomesMetresAndRadians) {
  const auto feet = Exchange::readLandXml(
      changed(R"(Metric linearUnit="meter")", R"(Imperial linearUnit="USSurveyFoot")"));
  ASSERT_TRUE(feet.value) << feet.error.message;
  EXPECT_DOUBLE_EQ(feet.value->plan[1].radiusStart, 100 * 1200.0 / 3937);
  EXPECT_DOUBLE_EQ(feet.value->profile[3].height, 52.8 * 1200.0 / 3937);
  constexpr double kHalfPi = 1.5707963267948966;
  EXPECT_DOUBLE_EQ(Exchange::toRadians(100, Exchange::AngleUnit::Gon), kHalfPi);
  EXPECT_DOUBLE_EQ(Exchange::toRadians(-90, Exchange::AngleUnit::Degree), -kHalfPi);
  // 45.3 is stored a little below: it must not become 29' 100".
  EXPECT_NEAR(Exchange::toRadians(45.3, Exchange::AngleUnit::DegreeMinuteSecond),
              45.5 / 90 * kHalfPi, 1e-12);
  EXPECT_NEAR(Exchange::toRadians(-0.30256, Exchange::AngleUnit::DegreeMinuteSecond),
              -1825.6 / 324e3 * kHalfPi, 1e-12);
}

TEST(LandXmlReader, SlipsAreToldWithTheirLine) {
  const struct {
    const char* from;
    const char* to;
    int line;
    const char* message;
  } slips[] = {{"<Line staStart=\"210\">", "<Chain/><Line>", 8, "Chain: this element"},
               {"\"clothoid\"", "\"bloss\"", 4, "spiType \"bloss\""},
               {"rot=\"cw\" radius=", "radius=", 6, "attribute rot is missing"},
               {"length=\"100\" sta", "length=\"-100\" sta", 6, "not a positive number"},
               {"radius=\"100\"", "radius=\"1OO\"", 6, "radius is \"1OO\", not a number"},
               {"2049.58622", "2049,58622", 7, "is not north, east"},
               {"CircCurve radius", "UnsymParaCurve/><CircCurve radius", 12, "unsymmetrical"},
               {"<PVI>260", "<PVI>160", 12, "do not ascend"},
               {"rot=\"cw\" radiusS", "rot=\"ccw\" radiusS", 4, "rot contradicts"},
               {"radius=\"100\" l", "radius=\"101\" l", 6, "from the printed end"},
               {"staStart=\"210\"", "staStart=\"211\"", 8, "begins at station 211.000"},
               {"length=\"40\"", "length=\"190\"", 11, "rounding reaches"}};
  for (const auto& slip : slips) {
    SCOPED_TRACE(slip.to);
    const auto alignment = Exchange::readLandXml(changed(slip.from, slip.to));
    const Exchange::Remark error =
        alignment.value ? Exchange::buildAxis(*alignment.value).error : alignment.error;
    EXPECT_THAT(error.message, HasSubstr(slip.message));
    EXPECT_EQ(error.line, slip.line);
  }
}

TEST(PointFile, IdsOfAnyLettersComeBack) {
  std::vector<Exchange::ConvertedPoint> written;
  for (const char* id : {"#7", "=1+1", "'@", "say \"7\", please", "back\\slash", "#"}) {
    written.push_back({id, {}, {}});
  }
  std::istringstream in(Exchange::convertedPointsAsCsv(written));
  const auto read = Exchange::readSurveyedPoints(in);
  ASSERT_TRUE(read.value);
  ASSERT_EQ(read.value->points.size(), written.size());
  for (std::size_t i = 0; i < written.size(); ++i) {
    EXPECT_EQ(read.value->points[i].id, written[i].id);
  }
}

TEST(PointFile, BadRowsAreToldAndTheOthersRead) {
  std::istringstream in(
      "\xEF\xBB\xBFid,height,east,north\r\n#\nA,3,1,+2\nB,3,1\n\"C,1\",6,4,5\nD,1,nan,2\nE\\x");
  const auto file = Exchange::readSurveyedPoints(in);
  ASSERT_TRUE(file.value) << file.error.message;
  ASSERT_EQ(file.value->points.size(), 2U);
  EXPECT_EQ(file.value->points[0].grid, ENHPoint(1, 2, 3));
  EXPECT_EQ(file.value->points[1].id, "C,1");
  ASSERT_EQ(file.value->rejected.size(), 3U);
  EXPECT_EQ(file.value->rejected[0].line, 4);
  EXPECT_THAT(file.value->rejected[1].message, HasSubstr("east is \"nan\""));
}

}  // namespace
