#include "common/exchange/LandXmlUnits.h"

#include <map>

namespace Exchange {

namespace {

template <class Value>
std::optional<Value> valueOf(const std::map<std::string, Value>& table, const std::string& name) {
  const auto found = table.find(name);
  return found == table.end() ? std::nullopt : std::optional<Value>(found->second);
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

}  // namespace Exchange
