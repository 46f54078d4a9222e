#include "common/exchange/LandXmlUnits.h"

#include <Calculations/Calculations.h>

#include <cmath>
#include <map>

namespace Exchange {

namespace {

constexpr double kInternationalFoot = 0.3048;
constexpr double kSurveyFoot = 1200.0 / 3937.0;

template <class Value>
std::optional<Value> valueOf(const std::map<std::string, Value>& table, const std::string& name) {
  const auto found = table.find(name);
  return found == table.end() ? std::nullopt : std::optional<Value>(found->second);
}

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

}  // namespace

std::optional<double> metresPerUnit(const std::string& name) {
  static const std::map<std::string, double> table = {
      {"millimeter", 0.001},         {"centimeter", 0.01}, {"meter", 1.0},
      {"kilometer", 1000.0},         {"inch", 0.0254},     {"foot", kInternationalFoot},
      {"USSurveyFoot", kSurveyFoot}, {"mile", 1609.344}};
  return valueOf(table, name);
}

std::optional<double> metresPerHeightUnit(const std::string& name, const std::string& lengthName) {
  if (name == "feet") return lengthName == "USSurveyFoot" ? kSurveyFoot : kInternationalFoot;
  if (name == "miles") return metresPerUnit("mile");
  return metresPerUnit(name);
}

std::optional<AngleUnit> angleUnit(const std::string& name) {
  static const std::map<std::string, AngleUnit> table = {
      {"radians", AngleUnit::Radian},
      {"grads", AngleUnit::Gon},
      {"gon", AngleUnit::Gon},
      {"decimal degrees", AngleUnit::Degree},
      {"decimal dd.mm.ss", AngleUnit::DegreeMinuteSecond}};
  return valueOf(table, name);
}

double toRadians(double angle, AngleUnit unit) {
  using Ruv::Calculations::Utilities;
  switch (unit) {
    case AngleUnit::Gon:
      return Utilities::gon2rad(angle);
    case AngleUnit::Degree:
      return Utilities::deg2rad(angle);
    case AngleUnit::DegreeMinuteSecond:
      return Utilities::deg2rad(degreesOfPackedSeconds(angle));
    default:
      return angle;
  }
}

}  // namespace Exchange
