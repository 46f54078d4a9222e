// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/LandXmlUnits.h"

#include <map>

namespace Exchange {

namespace {

template <class Value>
std::optional<Value> valueOf(const std::map<std::string, Value>& table, const std::string& name) {
  const auto found = table.find(name);
  return found == table.end() ? std::nullopt : std::optional<Value>(found->second);
}

/// In small letters, without blanks and dashes, in the singular, in one spelling.
std::string plainUnit(const std::string& name) {
  std::string plain;
  for (const char letter : name) {
    if (letter >= 'A' && letter <= 'Z') {
      plain += static_cast<char>(letter - 'A' + 'a');
    } else if (letter != ' ' && letter != '-' && letter != '_' && letter != '.') {
      plain += letter;
    }
  }
  const bool isPlural =
      plain.size() > 2 && plain.back() == 's' && plain.substr(plain.size() - 2) != "ss";
  if (isPlural) plain.pop_back();
  const std::size_t metre = plain.find("metre");
  if (metre != std::string::npos) plain.replace(metre, 5, "meter");
  const std::size_t feet = plain.find("feet");
  if (feet != std::string::npos) plain.replace(feet, 4, "foot");
  return plain;
}

}  // namespace

std::optional<double> metresPerUnit(const std::string& name) {
  static const std::map<std::string, double> table = {{"millimeter", 0.001},
                                                      {"mm", 0.001},
                                                      {"centimeter", 0.01},
                                                      {"cm", 0.01},
                                                      {"decimeter", 0.1},
                                                      {"meter", 1.0},
                                                      {"m", 1.0},
                                                      {"kilometer", 1000.0},
                                                      {"km", 1000.0},
                                                      {"inch", 0.0254},
                                                      {"foot", kInternationalFoot},
                                                      {"ft", kInternationalFoot},
                                                      {"internationalfoot", kInternationalFoot},
                                                      {"ussurveyfoot", kSurveyFoot},
                                                      {"surveyfoot", kSurveyFoot},
                                                      {"usfoot", kSurveyFoot},
                                                      {"mile", 1609.344}};
  return valueOf(table, plainUnit(name));
}

std::optional<double> metresPerHeightUnit(const std::string& name, const std::string& lengthName) {
  const auto own = metresPerUnit(name);
  const auto ofLengths = metresPerUnit(lengthName);
  const bool areSurveyFeet = own == kInternationalFoot && ofLengths == kSurveyFoot;
  return areSurveyFeet ? ofLengths : own;
}

std::optional<AngleUnit> angleUnit(const std::string& name) {
  // "ddmmss" is what is left of "decimal dd.mm.ss" without points and plural.
  static const std::map<std::string, AngleUnit> table = {
      {"radian", AngleUnit::Radian},
      {"rad", AngleUnit::Radian},
      {"grad", AngleUnit::Gon},
      {"gon", AngleUnit::Gon},
      {"decimaldegree", AngleUnit::Degree},
      {"degree", AngleUnit::Degree},
      {"deg", AngleUnit::Degree},
      {"decimalddmmss", AngleUnit::DegreeMinuteSecond},
      {"ddmmss", AngleUnit::DegreeMinuteSecond}};
  return valueOf(table, plainUnit(name));
}

}  // namespace Exchange
