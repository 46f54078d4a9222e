// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/Units.h"

#include "common/exchange/NumberParsing.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <vector>

namespace Exchange {

namespace {

using Ruv::Calculations::Utilities;

/// Lower case, without the blanks, points and dashes that some write into units.
std::string plainUnit(std::string_view name) {
  std::string plain;
  for (const char letter : name) {
    const bool isCapital = letter >= 'A' && letter <= 'Z';
    if (letter == ' ' || letter == '.' || letter == '-' || letter == '_') continue;
    plain += isCapital ? static_cast<char>(letter - 'A' + 'a') : letter;
  }
  return plain;
}

Unit length(double metres) { return {Unit::Kind::Length, metres, {}}; }
Unit angle(AngleUnit unit) { return {Unit::Kind::Angle, 1.0, unit}; }

double degreesOfPackedSeconds(double packed) {
  // 45.3 is stored just below 45.3; without this the minutes would be 29 and the seconds 100.
  constexpr double kRoundingNoise = 1e-9;
  const double size = std::abs(packed);
  const double degrees = std::floor(size + kRoundingNoise);
  const double minutesAndSeconds = (size - degrees) * 100.0;
  const double minutes = std::floor(minutesAndSeconds + kRoundingNoise * 100.0);
  const double seconds = (minutesAndSeconds - minutes) * 100.0;
  return std::copysign(degrees + minutes / 60.0 + seconds / 3600.0, packed);
}

/// With plain letters for the signs of degrees, minutes and seconds.
std::string withPlainSigns(std::string_view text) {
  struct Sign {
    std::string_view from;
    std::string_view to;
  };
  constexpr std::array<Sign, 10> kSigns = {{{"\xC2\xB0", "d"},      // degree
                                            {"\xC2\xBA", "d"},      // masculine ordinal
                                            {"\xCB\x9A", "d"},      // ring above
                                            {"\xE2\x80\xB2", "'"},  // prime
                                            {"\xE2\x80\x99", "'"},  // apostrophe
                                            {"\xC2\xB4", "'"},      // acute
                                            {"\xE2\x80\xB3", "\""},
                                            {"\xE2\x80\x9D", "\""},
                                            {"''", "\""},
                                            {"\xE2\x88\x92", "-"}}};
  std::string plain;
  while (!text.empty()) {
    const auto* found = std::find_if(kSigns.begin(), kSigns.end(), [&](const Sign& sign) {
      return text.compare(0, sign.from.size(), sign.from) == 0;
    });
    plain += found == kSigns.end() ? text.substr(0, 1) : found->to;
    text.remove_prefix(found == kSigns.end() ? 1 : found->from.size());
  }
  return plain;
}

/// Degrees, minutes and seconds as they stand, and what stands between them.
struct Sexagesimal {
  std::vector<std::string> parts;
  bool hasDegreeSign = false;
};

Sexagesimal partsOf(std::string_view text) {
  Sexagesimal found;
  std::string part;
  const auto finish = [&] {
    if (!part.empty()) found.parts.push_back(part);
    part.clear();
  };
  for (const char letter : withPlainSigns(text)) {
    const bool isOfNumber = (letter >= '0' && letter <= '9') || letter == '.' || letter == ',';
    if (isOfNumber) {
      part += letter;
      continue;
    }
    finish();
    if (letter == 'd' || letter == 'D') found.hasDegreeSign = true;
    constexpr std::string_view kBetween = "dDmMsS'\":- ";
    if (kBetween.find(letter) == std::string_view::npos) return {};
  }
  finish();
  return found;
}

/// In degrees; nothing when minutes or seconds reach 60.
std::optional<double> sexagesimalDegrees(std::string_view text, char decimal) {
  text = trimmed(text);
  const bool isNegative = !text.empty() && text[0] == '-';
  if (isNegative) text.remove_prefix(1);
  const Sexagesimal found = partsOf(text);
  constexpr std::size_t kMostParts = 3;
  const std::size_t count = found.parts.size();
  const bool isComplete = count == kMostParts || (found.hasDegreeSign && count >= 1);
  if (!isComplete || count > kMostParts) return std::nullopt;
  double degrees = 0.0;
  double share = 1.0;
  for (std::size_t i = 0; i < count; ++i) {
    const auto part = parseNumber(found.parts[i], decimal);
    const bool isLast = i + 1 == count;
    const bool fits = part && (isLast || *part == std::floor(*part)) && (i == 0 || *part < 60.0);
    if (!fits) return std::nullopt;
    degrees += *part * share;
    share /= 60.0;
  }
  return isNegative ? -degrees : degrees;
}

/// A number and the word that follows it.
struct Measure {
  std::string_view number;
  std::string_view unit;
};

Measure measureOf(std::string_view text) {
  text = trimmed(text);
  const std::size_t last = text.find_last_of("0123456789.,");
  if (last == std::string_view::npos) return {text, {}};
  return {text.substr(0, last + 1), trimmed(text.substr(last + 1))};
}

}  // namespace

double toRadians(double angle, AngleUnit unit) {
  switch (unit) {
    case AngleUnit::Gon:
      return Utilities::gon2rad(angle);
    case AngleUnit::Degree:
    case AngleUnit::Sexagesimal:
      return Utilities::deg2rad(angle);
    case AngleUnit::DegreeMinuteSecond:
      return Utilities::deg2rad(degreesOfPackedSeconds(angle));
    default:
      return angle;
  }
}

std::string nameOf(AngleUnit unit) {
  switch (unit) {
    case AngleUnit::Gon:
      return "gon";
    case AngleUnit::Degree:
      return "deg";
    case AngleUnit::Sexagesimal:
      return "dms";
    case AngleUnit::DegreeMinuteSecond:
      return "d.mmss";
    default:
      return "rad";
  }
}

std::optional<Unit> unitNamed(std::string_view name) {
  const Unit gon = angle(AngleUnit::Gon);
  const Unit degree = angle(AngleUnit::Degree);
  const Unit radian = angle(AngleUnit::Radian);
  const Unit surveyFoot = length(kSurveyFoot);
  const Unit foot = length(kInternationalFoot);
  static const std::map<std::string, Unit> units = {
      {"m", length(1.0)},
      {"meter", length(1.0)},
      {"meters", length(1.0)},
      {"metre", length(1.0)},
      {"metres", length(1.0)},
      {"mm", length(0.001)},
      {"cm", length(0.01)},
      {"dm", length(0.1)},
      {"km", length(1000.0)},
      {"ft", foot},
      {"foot", foot},
      {"feet", foot},
      {"ift", foot},
      {"usft", surveyFoot},
      {"ftus", surveyFoot},
      {"sft", surveyFoot},
      {"ussft", surveyFoot},
      {"usfoot", surveyFoot},
      {"usfeet", surveyFoot},
      {"ussurveyfoot", surveyFoot},
      {"ussurveyfeet", surveyFoot},
      {"surveyfeet", surveyFoot},
      {"in", length(0.0254)},
      {"inch", length(0.0254)},
      {"yd", length(0.9144)},
      {"gon", gon},
      {"gons", gon},
      {"grads", gon},
      {"neugrad", gon},
      {"g", gon},
      {"deg", degree},
      {"degree", degree},
      {"degrees", degree},
      {"altgrad", degree},
      {"\xC2\xB0", degree},
      {"\xC2\xBA", degree},
      {"dd", degree},
      {"dms", angle(AngleUnit::Sexagesimal)},
      {"ddmmss", angle(AngleUnit::Sexagesimal)},
      {"\xC2\xB0'\"", angle(AngleUnit::Sexagesimal)},
      {"dmmss", angle(AngleUnit::DegreeMinuteSecond)},
      {"dddmmss", angle(AngleUnit::DegreeMinuteSecond)},
      {"rad", radian},
      {"radian", radian},
      {"radians", radian},
      {"grad", {Unit::Kind::AmbiguousAngle, 1.0, {}}}};
  const auto found = units.find(plainUnit(name));
  return found == units.end() ? std::nullopt : std::optional<Unit>(found->second);
}

bool isSexagesimal(std::string_view text, char decimal) {
  return !parseNumber(text, decimal) && sexagesimalDegrees(text, decimal).has_value();
}

std::optional<double> parseAngle(std::string_view text, std::optional<AngleUnit> unit,
                                 char decimal) {
  if (const auto number = parseNumber(text, decimal)) {
    if (unit == AngleUnit::Sexagesimal) return std::nullopt;
    return toRadians(*number, unit.value_or(AngleUnit::Gon));
  }
  const bool maySayDegrees = !unit || *unit == AngleUnit::Sexagesimal || *unit == AngleUnit::Degree;
  if (const auto degrees = sexagesimalDegrees(text, decimal)) {
    return maySayDegrees ? std::optional<double>(toRadians(*degrees, AngleUnit::Degree))
                         : std::nullopt;
  }
  const Measure measure = measureOf(text);
  const auto number = parseNumber(measure.number, decimal);
  const auto named = unitNamed(measure.unit);
  if (!number || !named || named->kind != Unit::Kind::Angle) return std::nullopt;
  if (unit && *unit != named->angle) return std::nullopt;
  return toRadians(*number, named->angle);
}

std::optional<double> parseLength(std::string_view text, double metresPerUnit, char decimal) {
  if (const auto number = parseNumber(text, decimal)) return *number * metresPerUnit;
  const Measure measure = measureOf(text);
  const auto number = parseNumber(measure.number, decimal);
  const auto named = unitNamed(measure.unit);
  if (!number || !named || named->kind != Unit::Kind::Length) return std::nullopt;
  return *number * named->metres;
}

}  // namespace Exchange
