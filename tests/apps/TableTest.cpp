// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/PointCloud.h"
#include "common/exchange/PointFile.h"
#include "common/exchange/Table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Exchange::Quantity;
using Exchange::TableFormat;
using Exchange::TableSchema;
using testing::HasSubstr;

const TableSchema kMeasurements = {{{"id", Quantity::Text},
                                    {"horizontal_angle", Quantity::Angle},
                                    {"zenith_angle", Quantity::Angle},
                                    {"slope_distance"}},
                                   {"id", "horizontal_angle", "zenith_angle", "slope_distance"}};

std::string utf16(const std::string& text, bool isLittle) {
  std::string bytes = isLittle ? "\xff\xfe" : "\xfe\xff";
  for (const char c : text) {
    bytes += isLittle ? std::string{c, '\0'} : std::string{'\0', c};
  }
  return bytes;
}

/// Rows as one text to compare, or why there are none.
std::string rowsOf(const std::string& text, const TableSchema& schema, const TableFormat& format) {
  const auto table = Exchange::Table::read(text, schema, format);
  if (!table.value) return "refused: " + table.error.message;
  std::ostringstream rows;
  rows.setf(std::ios::fixed);
  rows.precision(5);
  for (const Exchange::TableRow& row : table.value->rows) {
    for (std::size_t i = 0; i < schema.columns.size(); ++i) {
      if (schema.columns[i].quantity == Quantity::Text) {
        rows << row.texts[i] << ' ';
      } else {
        rows << row.numbers[i] << ' ';
      }
    }
    rows << "| ";
  }
  for (const Exchange::Remark& remark : table.value->rejected) {
    rows << "bad " << remark.line << ": " << remark.message << " | ";
  }
  return rows.str();
}

struct Dialect {
  const char* name;
  std::string text;
  TableFormat format = {};
  const char* refusal = nullptr;  ///< part of the reason, for what is not to be read
};

void expectEach(const std::vector<Dialect>& dialects, const TableSchema& schema,
                const std::string& plain) {
  for (const Dialect& dialect : dialects) {
    SCOPED_TRACE(dialect.name);
    const std::string rows = rowsOf(dialect.text, schema, dialect.format);
    if (dialect.refusal == nullptr) {
      EXPECT_EQ(rows, plain);
    } else {
      EXPECT_THAT(rows, HasSubstr(dialect.refusal));
    }
  }
}

TableFormat withColumns(std::vector<std::string> columns) {
  TableFormat format;
  format.columns = std::move(columns);
  return format;
}

std::string withSeparator(char separator, std::string table) {
  std::replace(table.begin(), table.end(), ',', separator);
  return table;
}

TEST(Table, PointsInAnyDialectReadAsTheirPlainTwin) {
  const std::string body = "P1,2600123.456,1200456.789,431.250\nP2,2600130.5,1200460.25,431.5\n";
  const std::string plain =
      "P1 2600123.45600 1200456.78900 431.25000 | P2 2600130.50000 1200460.25000 431.50000 | ";
  const std::string comma = "id,east,north,height\n" + body;
  const std::string german =
      "Punktnummer;Rechtswert;Hochwert;H\xc3\xb6he\nP1;2600123,456;1200456,789;431,250\n"
      "P2;2600130,5;1200460,25;431,5\n";
  TableFormat noHeader;
  noHeader.hasNoHeader = true;
  TableFormat feet;
  feet.metresPerLength = Exchange::kSurveyFoot;
  TableFormat semicolon;
  semicolon.separator = Exchange::Separator::Semicolon;
  expectEach(
      {{"plain", comma},
       {"byte order mark", "\xef\xbb\xbf" + comma},
       {"UTF-16 little endian", utf16(comma, true)},
       {"UTF-16 big endian", utf16(comma, false)},
       {"Latin-1 heading",
        "Punkt;Rechtswert;Hochwert;H\xf6he\nP1;2600123.456;1200456.789;431.25\n"
        "P2;2600130.5;1200460.25;431.5\n"},
       {"carriage returns",
        "id,east,north,height\r\nP1,2600123.456,1200456.789,431.25\r\n"
        "P2,2600130.5,1200460.25,431.5\r\n"},
       {"no last line end", comma.substr(0, comma.size() - 1)},
       {"comments and empty lines",
        "# made today\n\nid,east,north,height\n\n# here\n" + body + "\n\n"},
       {"title lines", "Project X\nSurvey of today\n\nid,east,north,height\n" + body},
       {"semicolons, German, decimal commas", german},
       {"tabs",
        "id\teast\tnorth\theight\nP1\t2600123.456\t1200456.789\t431.25\n"
        "P2\t2600130.5\t1200460.25\t431.5\n"},
       {"blanks, in columns",
        "  id        east        north   height\n  P1 2600123.456  1200456.789  431.25\n"
        "  P2 2600130.5    1200460.25   431.5\n"},
       {"blanks, decimal commas",
        "Nr East North Height\nP1 2600123,456 1200456,789 431,25\nP2 2600130,5 1200460,25 431,5\n"},
       {"quoted with decimal commas",
        "id,east,north,height\nP1,\"2600123,456\",\"1200456,789\",\"431,25\"\n"
        "P2,\"2600130,5\",\"1200460,25\",\"431,5\"\n"},
       {"all quoted",
        "\"id\",\"east\",\"north\",\"height\"\n\"P1\",\"2600123.456\",\"1200456.789\",\"431.250\"\n"
        "\"P2\",\"2600130.5\",\"1200460.25\",\"431.5\"\n"},
       {"trailing separators",
        "id,east,north,height,\nP1,2600123.456,1200456.789,431.250,\nP2,2600130.5,1200460.25,431.5,"
        "\n"},
       {"units in brackets",
        "Point ID;East [m];North [m];Height [m]\nP1;2600123.456;1200456.789;431.25\n"
        "P2;2600130.5;1200460.25;431.5\n"},
       {"units in a line of their own", "id,east,north,height\n,m,m,m\n" + body},
       {"millimetres of height",
        "Name,Easting (m),Northing (m),Elevation (mm)\nP1,2600123.456,1200456.789,431250\n"
        "P2,2600130.5,1200460.25,431500\n"},
       {"other order, further columns",
        "code,height,north,east,Nr\nx,431.25,1200456.789,2600123.456,P1\n"
        "y,431.5,1200460.25,2600130.5,P2\n"},
       {"upper case", "ID,EAST,NORTH,HEIGHT\n" + body},
       {"E, N, H", "Pkt,E,N,H\n" + body},
       {"Y is east, X north, as surveyors in Germany name them",
        "Punkt;Y;X;Z\nP1;2600123.456;1200456.789;431.25\nP2;2600130.5;1200460.25;431.5\n"},
       {"no headings, said so", body, noHeader},
       {"no headings, columns said", body, withColumns({"id", "east", "north", "height"})},
       {"headings unknown, columns said", "a,b,c,d\n" + body,
        withColumns({"id", "east", "north", "height"})},
       {"grouped by apostrophes",
        "id;east;north;height\nP1;2'600'123.456;1'200'456.789;431.25\nP2;2'600'130.5;1'200'460.25;"
        "431.5\n"},
       {"exponents",
        "id,east,north,height\nP1,2.600123456e6,1.200456789E+06,431.25\n"
        "P2,2600130.5,1200460.25,4.315e2\n"},
       {"US survey feet",
        "id,Easting (usft),Northing (usft),Elev (usft)\n"
        "P1,8530571.7052,3938499.4814,1414.8594\nP2,8530594.8146,3938510.8365,1415.6796\n",
        {},
        "2600123.4"},
       {"feet by option", "id,east,north,height\nP1,3280.833333333,1,1\n", feet, "P1 1000.00000"},
       {"separator by option", german, semicolon},
       {"one word in two, systems of reference, a unit after in",
        "Punkt ID,Y Coord,X LV95,H\xc3\xb6he \xc3\xbc. M.\n" + body},
       {"in metres", "PNr,east in m,north in m,height in m\n" + body},
       {"blanks between thousands",
        "id;east;north;height\nP1;2 600 123,456;1 200 456,789;431,25\n"
        "P2;2 600 130,5;1 200 460,25;431,5\n"},
       {"points between thousands",
        "id;east;north;height\nP1;2.600.123,456;1.200.456,789;431,25\n"
        "P2;2.600.130,5;1.200.460,25;431,5\n"},
       {"a line of lines",
        "id east north height\n-- ---- ----- ------\n" + withSeparator(' ', body)},
       {"bars", withSeparator('|', comma)},
       {"a separator told in the file", "sep=;\n" + german},
       {"headings in a comment", "# id east north height\n" + withSeparator(' ', body)},
       {"a comma told in the file", "sep=,\nid,east,north,height\n" + body},
       {"no headings", body, {}, "--no-header"},
       {"unknown headings", "a,b,c,d\n" + body, {}, "--columns"},
       {"decimal commas in a table of commas",
        "id,east,north,height\nP1,2600123,456,1200456,789,431,250\n",
        {},
        "refused"},
       {"second column of a name", "id,east,north,height,east\nP1,1.5,2.5,3.5,4.5\n", {}, "east"},
       {"cells beyond the headings",
        "id,east,north,height\nP1,1.5,2.5,3.5,4.5\nP2,1.5,2.5,3.5\n",
        {},
        "bad 2"},
       {"too few cells", "id,east,north,height\nP1,1.5,2.5\nP2,1.5,2.5,3.5\n", {}, "bad 2"},
       {"a thousands comma",
        "id;east;north;height\nP1;2,600,123.456;1,200,456.789;431.25\n",
        {},
        "P1 2600123.45600 1200456.78900"},
       {"X and Y, which may be either",
        "Punkt;X;Y;Z\nP1;600123.456;200456.789;431.25\n",
        {},
        "--columns"},
       {"a unit that nobody knows",
        "id,East [furlong],north,height\nP1,1.5,2.5,3.5\n",
        {},
        "unit of \"East [furlong]\" is not known"},
       {"a unit of angles", "id,East [gon],north,height\nP1,1.5,2.5,3.5\n", {}, "names no unit of"},
       {"further columns of one name",
        "id,east,north,height,x,x\nP1,1.5,2.5,3.5,1,2\n",
        {},
        "two columns are named"},
       {"both decimals", "id;east;north;height\nP1;1.5;2.5;3.5\nP2;1,5;2,5;3,5\n", {}, "--decimal"},
       {"another decimal in a row",
        "id;east;north;height\nP1;1.5;2.5;3.5\nP2;1.5;2.5;3,5\n",
        {},
        "mixed (, in line 3): give --decimal"},
       {"whole numbers that may be halves of numbers",
        "id,east,north,height,code,c2,c3\nP1,1,5,2,5,3,5\n",
        {},
        "whole numbers between commas"},
       {"two separators", "id,east;north,height;2\n", {}, "--columns"},
       {"many columns", "a b c d e f g h i\n1 2 3 4 5 6 7 8 9\n", {}, "\"h\", ..."},
       {"a line without an end",
        "id,east,north,height\n" + std::string(1100000, '1'),
        {},
        "megabyte"},
       {"half a letter", utf16(comma, true) + "x", {}, "no letters of its encoding"},
       {"XML", "<?xml version=\"1.0\"?><a/>", {}, "XML"},
       {"nothing", "\n\n# only this\n", {}, "refused"},
       {"zeros in the text", std::string("id,ea\0st\n", 9), {}, "refused"}},
      Exchange::surveyedPointColumns(), plain);
}

TEST(PointFile, PointsWithoutNamesAreCountedUnlessAnotherColumnMayHoldThem) {
  const std::string rows = "1.5,2.5,3.5\n4.5,5.5,6.5\n";
  for (const auto& [text, format] : {std::pair("east,north,height,\n" + rows, TableFormat()),
                                     std::pair(rows, withColumns({"east", "north", "height"}))}) {
    std::istringstream in(text);
    const auto file = Exchange::readSurveyedPoints(in, format);
    ASSERT_TRUE(file.value) << file.error.message;
    ASSERT_EQ(file.value->points.size(), 2U);
    EXPECT_EQ(file.value->points[1].id, "#2");
    EXPECT_EQ(file.value->points[1].grid.height, 6.5);
    EXPECT_EQ(file.value->description, "rows counted");
  }
  for (const char* headings :
       {"ref,east,north,height", ",east,north,height", "east,north,height,x"}) {
    EXPECT_THAT(rowsOf(headings + ("\n7," + rows), Exchange::surveyedPointColumns(), {}),
                HasSubstr("there is no column id"));
  }
}

TEST(Table, QuotesAndBackslashesAreKept) {
  EXPECT_EQ(rowsOf("id,east,north,height\n\"a \"\"b\"\" c\",1.5,2.5,3.5\n"
                   "5\" pipe,1.5,2.5,3.5\nC:\\new,1.5,2.5,3.5\n\"a,b\",1.5,2.5,3.5\n",
                   Exchange::surveyedPointColumns(), {}),
            "a \"b\" c 1.50000 2.50000 3.50000 | 5\" pipe 1.50000 2.50000 3.50000 | "
            "C:\\new 1.50000 2.50000 3.50000 | a,b 1.50000 2.50000 3.50000 | ");
}

TEST(Table, AnglesAndLengthsComeInAnyUnit) {
  const std::string plain = "1 3.27541 1.57080 6.67620 | ";
  const std::string gon = "1,208.51889,100.0,6.6762\n";
  TableFormat degrees;
  degrees.angles = Exchange::AngleUnit::Degree;
  TableFormat sexagesimal;
  sexagesimal.angles = Exchange::AngleUnit::Sexagesimal;
  TableFormat packed;
  packed.angles = Exchange::AngleUnit::DegreeMinuteSecond;
  TableFormat feet;
  feet.metresPerLength = Exchange::kInternationalFoot;
  const std::string heads = "id,horizontal_angle,zenith_angle,slope_distance\n";
  expectEach(
      {{"gon", heads + gon},
       {"Hz, V, SD", "Pkt;Hz [gon];V [gon];SD [m]\n1;208,51889;100,0;6,6762\n"},
       {"degrees in the headings", "Nr,Hz [deg],Vz [deg],Slope dist [m]\n1,187.667,90.0,6.6762\n"},
       {"degree signs in the headings",
        "Nr,Hz [\xc2\xb0],V [\xc2\xb0],D [m]\n1,187.667,90.0,6.6762\n"},
       {"radians", "id,Hz (rad),ZA (rad),SD (m)\n1,3.275407,1.5707963,6.6762\n"},
       {"degrees, minutes, seconds", heads + "1,187\xc2\xb0"
                                             "40'01.2\",90\xc2\xb0"
                                             "00'00\",6.6762\n"},
       {"typographic signs", heads + "1,187\xc2\xb0"
                                     "40\xe2\x80\xb2"
                                     "01.2\xe2\x80\xb3,90\xc2\xb0"
                                     "00\xe2\x80\xb2"
                                     "00\xe2\x80\xb3,6.6762\n"},
       {"dashes by option", heads + "1,187-40-01.2,90-00-00,6.6762\n", sexagesimal},
       {"degrees by option", heads + "1,187.667,90.0,6.6762\n", degrees},
       {"packed degrees by option", heads + "1,187.40012,90.0000,6.6762\n", packed},
       {"feet by option", heads + "1,208.51889,100.0,21.9035433\n", feet},
       {"units in the cells", heads + "1,208.51889 gon,100g,6676.2 mm\n"},
       {"signs that are letters", heads + "1,187d40m01.2s,90d,6.6762\n"},
       {"colons by option", heads + "1,187:40:01.2,90:00:00,6.6762\n", sexagesimal},
       {"a word for a unit", heads + "1,208.51889 grades,100,6.6762\n", {}, "no angle"},
       {"metres for an angle", heads + "1,208.51889 m,100,6.6762\n", {}, "no angle"},
       {"gon for a length", heads + "1,208.51889,100,6.6762 gon\n", {}, "not a number"},
       {"degrees in gon",
        "id,Hz [gon],V [gon],SD [m]\n1,187d40m,90d,6.6762\n",
        {},
        "no angle in gon"},
       {"four parts", heads + "1,187d40m01s2s,90d,6.6762\n", {}, "refused"},
       {"halves of minutes", heads + "1,187d40.5m1s,90d,6.6762\n", {}, "refused"},
       {"grad", "id,Hz [grad],V [grad],SD [m]\n1,1,1,1\n", {}, "--angles gon or --angles deg"},
       {"minutes above 59",
        heads + "1,187\xc2\xb0"
                "61'01.2\",90\xc2\xb0"
                "00'00\",6.6762\n",
        {},
        "refused"}},
      kMeasurements, plain);
}

/// Every line end falls on the end of a block in some of these.
TEST(Table, LongTablesReadAlikeInEveryEncoding) {
  for (const std::size_t first : {1U, 2U, 3U, 4U, 5U, 6U, 7U}) {
    std::string text = std::string(first, '#') + "\nid,east,north,height\n";
    for (int i = 0; i < 2000; ++i) {
      text += std::to_string(i) + ",1.5,2.5,3.5\n";
    }
    const std::string plain = rowsOf(text, Exchange::surveyedPointColumns(), {});
    std::string returns;
    std::string utf32("\xff\xfe\0\0", 4);
    for (const char c : text) {
      returns += c == '\n' ? "\r\n" : std::string{c};
      utf32 += {c, '\0', '\0', '\0'};
    }
    std::string macintosh = text;
    std::replace(macintosh.begin(), macintosh.end(), '\n', '\r');
    for (const std::string& other : {returns, macintosh, utf32, utf16(text, false),
                                     utf16(text, true).substr(2), utf16(text, false).substr(2)}) {
      EXPECT_TRUE(rowsOf(other, Exchange::surveyedPointColumns(), {}) == plain);
    }
  }
}

/// A disk that fails in the middle of a file.
class FailingBuffer : public std::stringbuf {
 public:
  using std::stringbuf::stringbuf;

 protected:
  std::streamsize xsgetn(char* to, std::streamsize count) override {
    if (in_avail() < (1 << 19)) throw std::runtime_error("the disk is broken");
    return std::stringbuf::xsgetn(to, count);
  }
};

TEST(Table, HalfAFileIsNoTable) {
  std::string text = "id,east,north,height\n";
  while (text.size() < (1U << 20U)) {
    text += "P1,1.5,2.5,3.5\n";
  }
  FailingBuffer buffer(text);
  std::istream in(&buffer);
  EXPECT_EQ(Exchange::Table::read(in, Exchange::surveyedPointColumns(), {}).error.message,
            "the file cannot be read on");
}

std::string pointsIn(const std::string& bytes) {
  std::istringstream in(bytes);
  const auto cloud = Exchange::openPointCloud(in);
  if (!cloud.value) return "refused: " + cloud.error.message;
  std::ostringstream points;
  std::vector<Exchange::CloudPoint> part;
  while ((*cloud.value)->next(part)) {
    for (const Exchange::CloudPoint& p : part) {
      points << p.grid.east << ' ' << p.grid.north << ' ' << p.grid.height << " | ";
    }
  }
  return points.str() + (*cloud.value)->problem().message;
}

template <class Number>
void put(std::string& bytes, std::size_t at, Number number) {
  if (bytes.size() < at + sizeof(number)) bytes.resize(at + sizeof(number));
  for (std::size_t i = 0; i < sizeof(number); ++i) {
    bytes[at + i] = reinterpret_cast<const char*>(&number)[i];
  }
}

/// Two points in millimetres about (100, 200, 0).
std::string las(std::uint8_t minor, std::uint8_t format, std::uint16_t recordLength) {
  const std::uint16_t header = minor == 4 ? 375 : minor == 3 ? 235 : 227;
  std::string bytes = "LASF";
  put(bytes, 24, std::uint8_t{1});
  put(bytes, 25, minor);
  put(bytes, 94, header);
  put(bytes, 96, std::uint32_t{header});
  put(bytes, 104, format);
  put(bytes, 105, recordLength);
  put(bytes, 107, std::uint32_t{minor == 4 ? 0U : 2U});
  for (const std::size_t i : {0U, 1U, 2U}) {
    put(bytes, 131 + 8 * i, 0.001);
    put(bytes, 155 + 8 * i, i == 0 ? 100.0 : i == 1 ? 200.0 : 0.0);
  }
  bytes.resize(header);
  if (minor == 4) put(bytes, 247, std::uint64_t{2});
  for (const std::size_t i : {0U, 1U}) {
    const std::size_t record = header + i * recordLength;
    put(bytes, record, std::int32_t{1500});
    put(bytes, record + 4, std::int32_t{-2500});
    put(bytes, record + 8, static_cast<std::int32_t>(i * 250));
    bytes.resize(record + recordLength);
  }
  return bytes;
}

TEST(PointCloud, TextAndLasGiveTheSamePoints) {
  const std::string points = "101.5 197.5 0 | 101.5 197.5 0.25 | ";
  for (const std::string& bytes :
       {las(2, 0, 20), las(2, 0, 65535), las(2, 3, 34), las(3, 4, 57), las(4, 6, 30), las(4, 7, 40),
        std::string("101.5 197.5 0\n101.5 197.5 0.25\n"),
        std::string("101.5 197.5 0 17 255 0 0\n101.5 197.5 0.25 3 255 0 0\n"),
        std::string("2\n101.5 197.5 0 17\n101.5 197.5 0.25 3\n"),
        std::string("X;Y;Z\n101,5;197,5;0,0\n101,5;197,5;0,25\n")}) {
    EXPECT_EQ(pointsIn(bytes), points) << bytes.substr(0, 40);
  }
  std::string withheld = las(2, 0, 20);
  put(withheld, 227 + 15, std::uint8_t{0x80});
  std::string extended = las(4, 6, 30);
  put(extended, 375 + 15, std::uint8_t{0x04});
  EXPECT_EQ(pointsIn(withheld), "101.5 197.5 0.25 | ");
  EXPECT_EQ(pointsIn(extended), "101.5 197.5 0.25 | ");
  EXPECT_EQ(pointsIn("101.5 197.5 0\nnothing\n101.5 197.5 0.25\n"), points);
  EXPECT_THAT(pointsIn("east,east,height\n1,2,3\n"), HasSubstr("refused"));
  const std::string cut = las(2, 0, 20);
  EXPECT_THAT(pointsIn(cut.substr(0, cut.size() - 1)), HasSubstr("ends"));
  EXPECT_THAT(pointsIn(las(2, 0x80, 20)), HasSubstr("compressed"));
  EXPECT_THAT(pointsIn(las(2, 0, 4)), HasSubstr("refused"));
  const struct {
    std::size_t place;
    double number;
    int bytes;
    const char* message;
  } headers[] = {{24, 2, 1, "only LAS 1.0 to 1.4"},
                 {25, 5, 1, "only LAS 1.0 to 1.4"},
                 {104, 11, 1, "format 11"},
                 {131, 0.0, 8, "no number of metres"},
                 {139, NAN, 8, "no number of metres"},
                 {155, INFINITY, 8, "no number of metres"},
                 {96, 200, 4, "inside itself"},
                 {96, 4000, 4, "ends before its points"}};
  for (const auto& header : headers) {
    std::string bytes = cut;
    if (header.bytes == 1) put(bytes, header.place, static_cast<std::uint8_t>(header.number));
    if (header.bytes == 4) put(bytes, header.place, static_cast<std::uint32_t>(header.number));
    if (header.bytes == 8) put(bytes, header.place, header.number);
    EXPECT_THAT(pointsIn(bytes), HasSubstr(header.message));
  }
  EXPECT_THAT(pointsIn(cut.substr(0, 100)), HasSubstr("not complete"));
  EXPECT_THAT(pointsIn(las(4, 6, 30).substr(0, 300)), HasSubstr("not complete"));
  EXPECT_THAT(pointsIn("3\n101.5 197.5 0\n101.5 197.5 1\n"), HasSubstr("ends after 2 of its 3"));
}

}  // namespace
