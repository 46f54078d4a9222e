// SPDX-License-Identifier: BSL-1.0
#include "common/console/CommandLine.h"
#include "common/console/Files.h"
#include "common/console/Progress.h"
#include "common/console/TableOptions.h"
#include "common/console/TextTable.h"
#include "common/exchange/ColumnNames.h"
#include "common/exchange/PointFile.h"
#include "common/exchange/VisibleText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <functional>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <pty.h>
#include <unistd.h>

namespace {

using Console::ExitCode;
using Console::TableOptions;
using testing::HasSubstr;
using testing::ThrowsMessage;

const Console::NamedTable kPoints{"points", &Exchange::surveyedPointColumns()};
const Console::NamedTable kCheck{"check", &Exchange::checkPointColumns()};

/// As they come from a command line.
TableOptions optionsFrom(std::vector<std::string> words) {
  Console::CommandLine line({"program", "", ""});
  TableOptions options;
  Console::addTableOptions(line.options(), options, "points, check");
  words.insert(words.begin(), "program");
  std::vector<char*> arguments;
  for (std::string& word : words) {
    arguments.push_back(word.data());
  }
  EXPECT_FALSE(line.read(static_cast<int>(arguments.size()), arguments.data()));
  return options;
}

TEST(TableOptions, WordsHoldForTheTablesThatTheyName) {
  const TableOptions options =
      optionsFrom({"--delimiter", "tab", "--delimiter", "check:;", "--decimal", "check:comma",
                   "--angles", "d.mmss", "--lengths", "points:usft", "--lengths", "mm", "--columns",
                   "id,-,east,north,height", "--no-header"});
  options.check({kPoints, kCheck});
  const Exchange::TableFormat points = options.formatFor(kPoints);
  const Exchange::TableFormat check = options.formatFor(kCheck);
  EXPECT_EQ(points.separator, Exchange::Separator::Tab);
  EXPECT_EQ(check.separator, Exchange::Separator::Semicolon);
  EXPECT_FALSE(points.decimal);
  EXPECT_EQ(check.decimal, ',');
  EXPECT_EQ(check.angles, Exchange::AngleUnit::DegreeMinuteSecond);
  EXPECT_EQ(points.metresPerLength, Exchange::kSurveyFoot);
  EXPECT_EQ(check.metresPerLength, 0.001);
  EXPECT_EQ(points.columns.size(), 5U);  // of the check points these are not the names
  EXPECT_TRUE(check.columns.empty());
  EXPECT_TRUE(check.hasNoHeader);
}

TEST(TableOptions, WordsThatMeanNothingAreRefused) {
  const struct {
    std::vector<std::string> words;
    const char* message;
  } cases[] = {
      {{"--delimiter", "colon"}, "--delimiter: colon is none of bar, blank, comma, semicolon, tab"},
      {{"--delimiter", ":"}, "--delimiter: : is none"},
      {{"--delimiter", "points:"}, "--delimiter: points: is none"},
      {{"--decimal", "check:dot"}, "--decimal: dot is none of comma, point"},
      {{"--angles", "grad"}, "--angles: grad is none of d.mmss, deg, dms, gon, rad"},
      {{"--lengths", "km"}, "--lengths: km is none of m, mm, ft, usft"},
      {{"--angles", "sections:deg"}, "sections:deg: this command reads no table sections"},
      {{"--columns", "id,east,height"}, "suits no table of this command (points: id? east north"},
      {{"--columns", "id,east,north,height,colour"}, "suits no table"},
      {{"--columns", "id,east,east,north,height"}, "suits no table"},
      {{"--columns", "check:id,east,north,height"}, "suits no table"}};
  for (const auto& c : cases) {
    EXPECT_THAT(
        [&] {
          optionsFrom(c.words).check({kPoints, kCheck});
        },
        ThrowsMessage<Console::WrongUsage>(HasSubstr(c.message)));
  }
}

TEST(Files, WhatCannotBeReadIsTold) {
  const struct {
    const char* path;
    const char* message;
  } cases[] = {{"/no/such", "/no/such: there is no such file"},
               {"/tmp", "/tmp: is a directory"},
               {"/dev/null", "/dev/null: the file is empty"},
               {"/proc/self/mem", "/proc/self/mem: cannot be read"}};
  for (const auto& c : cases) {
    for (const bool isText : {false, true}) {
      EXPECT_THAT([&] { isText ? void(Console::textOf(c.path)) : void(Console::openFile(c.path)); },
                  ThrowsMessage<Console::Failure>(c.message));
    }
  }
  for (const char* station : {"7+32", "1e10", "-1e10", "1e400"}) {
    EXPECT_THROW(Console::placeOf("--stations", station, {}), Console::WrongUsage) << station;
  }
  EXPECT_EQ(Console::placeOf("--stations", "-7+320", {}), -7320.0);
}

TEST(Files, TheFirstRemarksAreToldInTheOrderOfTheirLines) {
  std::vector<Exchange::Remark> remarks;
  for (int line = 30; line > 0; --line) {
    remarks.push_back({line, "is bad"});
  }
  testing::internal::CaptureStderr();
  Console::printRemarks("a.csv", remarks);
  const std::string told = testing::internal::GetCapturedStderr();
  EXPECT_EQ(told.rfind("a.csv:1: is bad\na.csv:2: is bad\n", 0), 0U);
  EXPECT_THAT(told, testing::EndsWith("a.csv:20: is bad\na.csv: 10 more of these\n"));
}

TEST(CommandLine, EveryFailureHasItsExitCode) {
  const struct {
    std::function<ExitCode()> work;
    int code;
    const char* told;
  } cases[] = {{[] { return ExitCode::Fine; }, 0, ""},
               {[] { return ExitCode::Doubtful; }, 3, ""},
               {[]() -> ExitCode { throw Console::Failure("a"); }, 1, "p: a\n"},
               {[]() -> ExitCode { throw Console::WrongUsage("b"); }, 2, "p: b\n"},
               {[]() -> ExitCode { throw std::bad_alloc(); }, 1, "p: there is not enough memory\n"},
               {[]() -> ExitCode { throw std::out_of_range("c"); }, 1, "p: c\n"}};
  for (const auto& c : cases) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(Console::exitCodeOf("p", c.work), c.code);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), c.told);
  }
}

TEST(TextTable, ColumnsAreAlignedByTheirLetters) {
  Console::TextTable table({"id", "height\nm"});
  table.addRow({"H\xc3\xb6he", "1.5"});
  table.addRow({"short"});
  std::ostringstream out;
  table.print(out);
  EXPECT_EQ(out.str(),
            "     id  height\n"
            "              m\n"
            "  -----  ------\n"
            "   H\xc3\xb6he     1.5\n"
            "  short\n");
}

TEST(Progress, TellsTheShareAndTheTimeLeftOnATerminal) {
  EXPECT_EQ(Console::durationText(0.2), "1 s");
  EXPECT_EQ(Console::durationText(200), "3 min 20 s");
  EXPECT_EQ(Console::durationText(7260), "2 h 1 min");
  EXPECT_EQ(Console::durationText(1e300), "99 h 59 min");
  int terminal = -1;
  int end = -1;
  ASSERT_EQ(openpty(&terminal, &end, nullptr, nullptr, nullptr), 0);
  const int before = dup(STDERR_FILENO);
  dup2(end, STDERR_FILENO);
  {
    Console::Progress progress("Reading", 4);
    progress.advance();  // too soon to be worth a line
    std::this_thread::sleep_for(std::chrono::milliseconds(510));
    progress.reach(2);
    progress.advance();
  }
  dup2(before, STDERR_FILENO);
  std::array<char, 200> shown{};
  const auto size = read(terminal, shown.data(), shown.size());
  for (const int file : {terminal, end, before}) {
    close(file);
  }
  // On a busy machine the pause is longer, and other steps may take a moment too.
  EXPECT_THAT(std::string(shown.data(), static_cast<std::size_t>(size)),
              testing::MatchesRegex("(\r\x1B.KReading: [0-9]+ %, [0-9]+ s left)*"
                                    "\r\x1B.KReading: 50 %, [1-9][0-9]* s left"
                                    "(\r\x1B.KReading: 75 %, [0-9]+ s left)?\r\x1B.K"));
}

TEST(ColumnNames, GermanLettersAreWrittenOut) {
  EXPECT_EQ(Exchange::plainName(
                "\xc3\x84\xc3\xa4\xc3\x96\xc3\xb6\xc3\x9c\xc3\xbc\xc3\x9f\xc3\xa9 M-7\xc3"),
            "aeaeoeoeueuessm7");
}

TEST(VisibleText, WhatCannotBeSeenIsShownByItsNumber) {
  const struct {
    const char* text;
    const char* shown;
    bool isUtf8 = true;
  } cases[] = {
      {"plain", "plain"},
      {"H\xc3\xb6he \xe4\xb8\xad \xf0\x9f\x98\x80", "H\xc3\xb6he \xe4\xb8\xad \xf0\x9f\x98\x80"},
      {"\x1b[31m", "\\x1b[31m"},
      {"\xc2\x85", "\\x85"},
      {"\xe2\x80\xaegnp", "\\u202egnp"},
      {"\xf3\xa0\x81\x81", "\\U0e0041"},
      {"\xff\x80", "\\xff\\x80", false},
      {"\xc3", "\\xc3", false},
      {"\xc0\xaf", "\\xc0\\xaf", false},
      {"\xe0\x80\xaf", "\\xe0\\x80\\xaf", false},
      {"\xed\xa0\x80", "\\xed\\xa0\\x80", false},
      {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80", false}};
  for (const auto& c : cases) {
    EXPECT_EQ(Exchange::visible(c.text), c.shown);
    EXPECT_EQ(Exchange::isUtf8(c.text), c.isUtf8) << c.shown;
  }
  EXPECT_EQ(Exchange::fromWindows1252("\x80 \x81 \xe4"), "\xe2\x82\xac \xef\xbf\xbd \xc3\xa4");
  // Long texts are cut between letters.
  std::string umlauts = "x";
  for (int i = 0; i < 60; ++i) {
    umlauts += "\xc3\xa4";
  }
  const std::string longText = Exchange::inQuotes(umlauts);
  EXPECT_TRUE(Exchange::isUtf8(longText));
  EXPECT_THAT(longText, testing::EndsWith("\xc3\xa4...\""));
}

}  // namespace
