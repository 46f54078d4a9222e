// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/AxisBuilder.h"
#include "common/exchange/LandXmlReader.h"
#include "common/exchange/LandXmlUnits.h"
#include "common/exchange/PointFile.h"
#include "tunnel_survey/PointTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <optional>
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

/// What is told about an alignment and the axis made of it; the reason when there is none.
std::vector<std::string> notesOn(const std::string& xml, std::optional<double> cantBase = {}) {
  const auto alignment = Exchange::readLandXml(xml, {"first", ""});
  if (!alignment.value) return {alignment.error.message};
  const auto built = Exchange::buildAxis(*alignment.value, cantBase);
  if (!built.value) return {built.error.message};
  std::vector<std::string> notes;
  for (const Exchange::Remark& note : built.value->notes) {
    notes.push_back(note.message);
  }
  return notes;
}

Exchange::BuiltAxis axisIn(const std::string& xml, std::optional<double> cantBase = {}) {
  return *Exchange::buildAxis(*Exchange::readLandXml(xml, {"first", ""}).value, cantBase).value;
}

ENHPoint placeAt(const Exchange::BuiltAxis& built, const AxisPoint& point) {
  ENHPoint place;
  EXPECT_TRUE(AxisCalculator(built.axis).axisPointToEnhPoint(point, place, false, true));
  return place;
}

TEST(LandXmlReader, TheAxisRunsAsItsCoordinatesSay) {
  EXPECT_THAT(notesOn(kFile), testing::IsEmpty());
  const Exchange::BuiltAxis built = axisIn(kFile);
  EXPECT_LT(built.largestMisfit, 2e-5);  // the file prints 1e-5 m
  const ENHPoint place = placeAt(built, AxisPoint(110, 10, 0));
  EXPECT_NEAR(place.east, 1016.3714 + 8.77583, 2e-5);  // 10 m to the right of azimuth 0.5
  EXPECT_NEAR(place.north, 2097.52877 - 4.79426, 2e-5);
  // The middle of a parabola: L dg / 8.
  EXPECT_NEAR(placeAt(built, AxisPoint(100, 0, 0)).height, 53.6 - 40 * 0.06 / 8, 1e-9);
}

TEST(LandXmlReader, WhatProgramsWriteDifferentlyGivesTheSameAxis) {
  const struct {
    const char* from;
    const char* to;
    const char* note;  ///< that is told, if any
  } variants[] = {
      {"CircCurve radius=\"1000\"", "CircCurve radius=\"-1000\"", nullptr},
      {"rot=\"cw\" radius=\"100\"", "rot=\"cw\"", nullptr},
      {"radius=\"100\" length=\"100\" staStart=\"110\"", "radius=\"100\"", nullptr},
      {"<Center>2049.58622 1104.12966 7</Center>", "", nullptr},
      {"length=\"100\" staStart=\"110\"><Start>2097.52877 1016.3714</Start>\n"
       "<Center>2049.58622 1104.12966 7</Center>",
       "><Start>2097.52877 1016.3714</Start><PI>2145.4713 1042.56254</PI>", nullptr},
      {"length=\"100\" dirStart=\"0\"", "constant=\"100\" dirStart=\"0\"", nullptr},
      {"\"INF\"", "\"0\"", nullptr},
      {"\"INF\"", "\"Infinity\"", nullptr},
      {"radius=\"100\" length=\"100\" staStart=\"110\"><Start>2097.52877 1016.3714</Start>\n"
       "<Center>2049.58622 1104.12966 7</Center>",
       "><Start>2097.52877 1016.3714</Start><PI>2145.4713 1042.56254</PI>", nullptr},
      {"length=\"100\" staStart=\"110\"><Start>2097.52877 1016.3714</Start>\n"
       "<Center>2049.58622 1104.12966 7</Center>",
       "delta=\"1\"><Start>2097.52877 1016.3714</Start>", nullptr},
      {"<Line ",
       "<Feature/><Curve rot=\"cw\" length=\"0\"><Start>2149.33572 1097.05594</Start>"
       "<End>2149.33572 1097.05594</End></Curve><Spiral spiType=\"clothoid\" length=\"0\">"
       "<Start>2149.33572 1097.05594</Start><End>2149.33572 1097.05594</End></Spiral><Line ",
       nullptr},
      {"<Line ",
       "<Line><Start>2149.33572 1097.05594</Start><End>2149.33572 1097.05594</End>"
       "</Line><Line ",
       nullptr},
      {"directionUnit=\"grads\"", "directionUnit=\"Gon\"", nullptr},
      {"linearUnit=\"meter\"", "linearUnit=\"Metres\"", nullptr},
      {"dirStart=\"0\"", "dirStart=\"100\"", "printed directions count anticlockwise from east"},
      {"<PVI>260 52.8</PVI>",
       "<PVI>260 52.8</PVI><ParaCurve length=\"0\">270 53</ParaCurve>"
       "<PVI>280 53.2</PVI>",
       nullptr},
      {"<Start>2097.52877 1016.3714</Start>", "<Start pntRef=\"7\"/>", nullptr},
      {"<ProfAlign name=\"p\">",
       "<ProfAlign name=\"old\"><PVI>0 0</PVI><PVI>300 0</PVI>"
       "</ProfAlign><ProfAlign name=\"p\" state=\"proposed\">",
       nullptr},
      {"<PVI>10 50</PVI>", "<PVI>12 50.08</PVI>",
       "2.000 m before and 0.000 m behind it are left out"},
      {" staStart=\"10\"", " staStart=\"10.000\"", nullptr},
  };
  const std::string points =
      "<CgPoints><CgPoint name=\"7\">2097.52877 1016.3714</CgPoint></CgPoints>";
  const Exchange::BuiltAxis plain = axisIn(kFile);
  for (const auto& variant : variants) {
    SCOPED_TRACE(variant.to);
    std::string xml = changed(variant.from, variant.to);
    xml.insert(xml.find("<Alignments>"), points);
    const auto notes = notesOn(xml);
    if (variant.note == nullptr) {
      EXPECT_THAT(notes, testing::IsEmpty());
    } else {
      EXPECT_THAT(notes, testing::ElementsAre(HasSubstr(variant.note)));
    }
    const Exchange::BuiltAxis built = axisIn(xml);
    for (const double station : {50.0, 120.0, 200.0, 230.0}) {
      const ENHPoint difference =
          placeAt(built, AxisPoint(station, 10, 1)) - placeAt(plain, AxisPoint(station, 10, 1));
      EXPECT_LT(difference.length(), 3e-5) << "at " << station;  // the file prints 1e-5 m
    }
  }
}

TEST(LandXmlReader, WithoutProfileOrFirstStationThereIsStillAnAxis) {
  std::string xml = changed(" staStart=\"10\"", "");
  for (const char* station : {" staStart=\"110\"", " staStart=\"210\""}) {
    xml.erase(xml.find(station), std::string(station).size());
  }
  xml.erase(xml.find("<Profile>"), xml.find("</Profile>") + 10 - xml.find("<Profile>"));
  EXPECT_THAT(notesOn(xml),
              testing::ElementsAre(HasSubstr("begins at station 0"), HasSubstr("has no profile")));
  const Exchange::BuiltAxis built = axisIn(xml);
  EXPECT_FALSE(built.hasHeights);
  EXPECT_NEAR(placeAt(built, AxisPoint(100, 0, 7)).east, 1016.3714, 2e-5);
  EXPECT_EQ(placeAt(built, AxisPoint(100, 0, 7)).height, 7.0);
}

TEST(LandXmlReader, UnsymmetricalParabolasKeepTheirTangents) {
  const Exchange::BuiltAxis built =
      axisIn(changed("<ParaCurve length=\"40\">100 53.6</ParaCurve>",
                     "<UnsymParaCurve lengthIn=\"60\" lengthOut=\"20\">100 53.6</UnsymParaCurve>"));
  // At the point it lies dg Lin Lout / (2 (Lin + Lout)) below, dg = 0.06 being the change of grade.
  const auto height = [&built](double station) {
    return placeAt(built, AxisPoint(station, 0, 0)).height;
  };
  EXPECT_NEAR(height(40), 51.2, 1e-9);
  EXPECT_NEAR(height(100), 53.6 - 0.06 * 60 * 20 / (2 * 80), 1e-9);
  EXPECT_NEAR(height(120), 53.2, 1e-9);
}

TEST(LandXmlReader, CantTurnsTheSection) {
  const std::string cant =
      "<Cant gauge=\"1.435\" rotationPoint=\"insideRail\">"
      "<CantStation station=\"10\" appliedCant=\"0\" curvature=\"ccw\"/>"
      "<CantStation station=\"110\" appliedCant=\"150\" curvature=\"cw\"/>"
      "<CantStation station=\"210\" appliedCant=\"150\" curvature=\"cw\"/></Cant></Alignment>";
  const std::string xml = changed("</Alignment>", cant.c_str());
  EXPECT_THAT(notesOn(xml), testing::ElementsAre(HasSubstr("--cant-base")));
  EXPECT_THAT(notesOn(xml, 1.5), testing::ElementsAre(HasSubstr("insideRail")));
  const Exchange::BuiltAxis built = axisIn(xml, 1.5);
  // In a curve to the right the right side is lower: by a tenth, and half of it on the way.
  const double axisHeight = placeAt(built, AxisPoint(150, 0, 0)).height;
  EXPECT_NEAR(placeAt(built, AxisPoint(150, 1, 0)).height - axisHeight, -std::sin(std::atan(0.1)),
              1e-9);
  EXPECT_NEAR(
      placeAt(built, AxisPoint(60, 1, 0)).height - placeAt(built, AxisPoint(60, 0, 0)).height,
      -std::sin(std::atan(0.05)), 1e-9);
}

TEST(Stationing, StationsOnBothSidesOfAnEquation) {
  const Exchange::Alignment alignment =
      *Exchange::readLandXml(changed("<Profile>",
                                     "<StaEquation staBack=\"110\" staAhead=\"50\"/>"
                                     "<StaEquation staInternal=\"210\" staAhead=\"900\"/>"
                                     "<Profile>"),
                             {"first", ""})
           .value;
  const Exchange::Stationing& stations = alignment.stationing;
  EXPECT_TRUE(Exchange::buildAxis(alignment).value);
  const struct {
    const char* text;
    double place;
  } cases[] = {{"20", 20},           {"0+100 back", 100}, {"0+100 ahead", 160}, {"0+040", 40},
               {"0+140 ahead", 200}, {"910", 220},        {"0+950.5", 260.5},   {"110 back", 110}};
  for (const auto& c : cases) {
    const auto place = stations.placeOf(c.text);
    ASSERT_TRUE(place.value) << c.text << ": " << place.error.message;
    EXPECT_NEAR(*place.value, c.place, 1e-9) << c.text;
  }
  for (const char* text : {"0+100", "500", "7+32", "x", "20 ahead", "910 back", "20 there"}) {
    EXPECT_FALSE(stations.placeOf(text).value) << text;
  }
  EXPECT_EQ(stations.text(100, 1), "0+100.0");
  EXPECT_EQ(stations.text(110, 1), "0+110.0");
  EXPECT_EQ(stations.text(160, 1), "0+100.0 ahead");
  EXPECT_EQ(stations.metresText(220, 0), "910 ahead");
}

TEST(LandXmlReader, EveryUnitBecomesMetresAndRadians) {
  const auto feet = Exchange::readLandXml(
      changed(R"(Metric linearUnit="meter")", R"(Imperial linearUnit="USSurveyFoot")"));
  ASSERT_TRUE(feet.value) << feet.error.message;
  EXPECT_DOUBLE_EQ(feet.value->plan[1].radiusStart, 100 * 1200.0 / 3937);
  EXPECT_DOUBLE_EQ(feet.value->profile[3].height, 52.8 * 1200.0 / 3937);
  // Who counts lengths in survey feet means the same by feet of heights.
  const auto heights = Exchange::readLandXml(
      changed(R"(Metric linearUnit="meter")",
              R"(Imperial linearUnit="US Survey Feet" elevationUnit="feet")"));
  ASSERT_TRUE(heights.value) << heights.error.message;
  EXPECT_EQ(heights.value->profile[3].height, feet.value->profile[3].height);
  constexpr double kHalfPi = 1.5707963267948966;
  EXPECT_DOUBLE_EQ(Exchange::toRadians(100, Exchange::AngleUnit::Gon), kHalfPi);
  EXPECT_DOUBLE_EQ(Exchange::toRadians(-90, Exchange::AngleUnit::Degree), -kHalfPi);
  // 45.3 is stored a little below: it must not become 29' 100".
  EXPECT_NEAR(Exchange::toRadians(45.3, Exchange::AngleUnit::DegreeMinuteSecond),
              45.5 / 90 * kHalfPi, 1e-12);
  EXPECT_NEAR(Exchange::toRadians(-0.30256, Exchange::AngleUnit::DegreeMinuteSecond),
              -1825.6 / 324e3 * kHalfPi, 1e-12);
}

TEST(LandXmlReader, WhatMayBeWrongIsTold) {
  const std::string cant = "<Cant><CantStation station=\"10\" appliedCant=\"0\"/>";
  const struct {
    const char* from;
    std::string to;
    const char* note;
  } cases[] = {
      {"rot=\"cw\" radius=", "rot=\"cw\" delta=\"2\" radius=",
       "turn by 63.6620 gon, not by the printed 127.3240 gon"},
      {"<End>2152.87258", "<End>2153.0", "Line: turns off the element before by 0.16"},
      {"dirStart=\"0\"", "dirStart=\"30\"", "not in the printed 30.0000 gon"},
      {"<Profile>",
       cant + "<CantStation station=\"60\" appliedCant=\"50\"/>"
              "<CantStation station=\"20\" appliedCant=\"50\"/></Cant><Profile>",
       "before the one above it"},
      {"<Profile>", cant + "<CantStation station=\"900\" appliedCant=\"0.05\"/></Cant><Profile>",
       "lies at 900.000, beyond the end"}};
  for (const auto& c : cases) {
    EXPECT_THAT(notesOn(changed(c.from, c.to), 1.5), testing::Contains(HasSubstr(c.note)));
  }
}

TEST(LandXmlReader, FilesThatHoldNoAlignmentAreRefused) {
  const struct {
    const char* xml;
    const char* message;
  } cases[] = {
      {" \n", "the file is empty"},
      {"<a/>", "the root element is not LandXML"},
      {"<LandXML/>", "element Units is missing"},
      {"<LandXML><Units><Metric linearUnit=\"m\"/></Units></LandXML>", "holds no alignment"}};
  for (const auto& c : cases) {
    EXPECT_THAT(Exchange::readLandXml(c.xml).error.message, HasSubstr(c.message));
  }
  std::string wide = "\xff\xfe";
  for (const char letter : kFile) {
    wide += {letter, '\0'};
  }
  EXPECT_THAT(notesOn(wide), testing::IsEmpty());
  wide.pop_back();  // half a letter: no UTF-16, and no XML
  EXPECT_THAT(notesOn(wide), testing::ElementsAre(HasSubstr("not well-formed")));
  EXPECT_EQ(Exchange::readLandXml(kFile, {"first", "p"}).value->profile.size(), 4U);
  EXPECT_THAT(Exchange::readLandXml(kFile, {"first", "q"}).error.message,
              HasSubstr("no profile is named \"q\"; there is \"p\""));
}

TEST(LandXmlReader, SlipsAreToldWithTheirLine) {
  const struct {
    const char* from;
    const char* to;
    int line;
    const char* message;
  } slips[] = {
      {"<Line staStart=\"210\">", "<Chain/><Line>", 8, "Chain: this element"},
      {"\"clothoid\"", "\"bloss\"", 4, "spiType \"bloss\""},
      {"rot=\"cw\" radius=", "radius=", 6, "attribute rot is missing"},
      {"length=\"100\" sta", "length=\"-100\" sta", 6, "not a positive number"},
      {"radius=\"100\"", "radius=\"1OO\"", 6, "radius is \"1OO\", not a number"},
      {"2049.58622", "2049,58622", 7, "is not north, east"},
      {"<ProfAlign name=\"p\">", "<ProfAlign/><ProfAlign name=\"p\">", 2,
       "choose one by --profile"},
      {"<PVI>260", "<PVI>160", 12, "do not ascend"},
      {"rot=\"cw\" radiusS", "rot=\"ccw\" radiusS", 4, "rot contradicts"},
      {"radius=\"100\" l", "radius=\"101\" l", 6, "from the printed end"},
      {"staStart=\"210\"", "staStart=\"211\"", 8, "begins at station 211.000"},
      {"length=\"40\"", "length=\"190\"", 11, "rounding reaches"},
      {"length=\"100\" staStart=\"110\"", "length=\"0\"", 6, "start and end lie apart"},
      {"<Profile>", "<StaEquation staAhead=\"1\"/><Profile>", 10, "staInternal and staBack"},
      {"<Start>2149", "<Start pntRef=\"9\"/><Start>2149", 8, "not among the CgPoints"},
      {"rot=\"cw\" radius=", "rot=\"right\" radius=", 6, "neither cw nor ccw"},
      {"radius=\"100\" length=\"100\" staStart=\"110\"><Start>2097.52877 1016.3714</Start>\n"
       "<Center>2049.58622 1104.12966 7</Center>",
       "><Start>2097.52877 1016.3714</Start>", 6, "neither Center nor PI gives it"},
      {" length=\"100\" staStart=\"110\"><Start>2097.52877 1016.3714</Start>\n"
       "<Center>2049.58622 1104.12966 7</Center>",
       "><Start>2097.52877 1016.3714</Start>", 6, "to tell the shorter way"},
      {"radius=\"100\" l", "radius=\"1e300\" l", 6, "larger than any alignment"},
      {"radiusEnd=\"100\"", "radiusEnd=\"INF\"", 4, "both INF"},
      {" length=\"100\" dirStart=\"0\"", "", 4, "length is missing, and so is constant"},
      {" length=\"100\" dirStart=\"0\"", " constant=\"1e6\"", 4, "give no length"},
      {"<End>2152.87258", "<End>1e300", 8, "lie outside any grid"},
      {"staStart=\"110\"", "staStart=\"1e300\"", 6, "staStart is too large"},
      {"<Start>2149.33572 1097.05594", "<Start>2149.33572 1097.1", 8,
       "from the end of the element"},
      {"10 50</PVI>", "10</PVI>", 11, "is not station and height"},
      {"<PVI>260 52.8</PVI>", "<Chain/>", 12, "not supported, only PVI"},
      {"<ParaCurve length=\"40\">100 53.6</ParaCurve>",
       "<UnsymParaCurve lengthIn=\"0\" lengthOut=\"2\">100 53.6</UnsymParaCurve>", 11, "is 0"},
      {"<PVI>10 50</PVI>", "<ParaCurve length=\"2\">10 50</ParaCurve>", 11, "cannot be rounded"},
      {"<PVI>10 50</PVI><ParaCurve length=\"40\">100 53.6</ParaCurve>\n"
       "<CircCurve radius=\"1000\">200 51.6</CircCurve><PVI>260 52.8</PVI>",
       "<PVI>10 50</PVI>", 10, "fewer than two points"},
      {"<PVI>10 50</PVI>", "<PVI>-5 50</PVI><PVI>-4 50</PVI></ProfAlign><ProfAlign>", 2,
       "choose one by --profile"},
      {"<Profile>",
       "<StaEquation staBack=\"99\" staAhead=\"1\" staIncrement=\"decreasing\"/>"
       "<Profile>",
       10, "decrease ahead"},
      {"<Profile>",
       "<StaEquation staInternal=\"99\" staAhead=\"1\"/>"
       "<StaEquation staInternal=\"98\" staAhead=\"1\"/><Profile>",
       10, "before the equation"},
      {"<Profile>", "<Cant><CantStation station=\"10\"/></Cant><Profile>", 10, "are needed"},
      {"<Profile>", "<Cant><CantStation station=\"10\" appliedCant=\"900\"/></Cant><Profile>", 10,
       "larger than any cant"},
      {"linearUnit=\"meter\"", "linearUnit=\"ell\"", 1, "linearUnit \"ell\" is not known"},
      {"linearUnit=\"meter\"", "linearUnit=\"meter\" elevationUnit=\"ell\"", 1, "elevationUnit"},
      {"directionUnit=\"grads\"", "directionUnit=\"ell\"", 1, "directionUnit \"ell\""},
      {"<Metric", "<Natural", 1, "neither Metric nor Imperial"},
      {"<PVI>10 50</PVI>",
       "<PVI>1000 50</PVI><PVI>2000 50</PVI><Feature/></ProfAlign></Profile>"
       "<Profile><ProfAlign state=\"old\"/></Profile><Profile><ProfAlign>",
       2, "by --profile"}};
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
  std::istringstream in(TunnelSurvey::csvOf(TunnelSurvey::pointTable(written, {})));
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
