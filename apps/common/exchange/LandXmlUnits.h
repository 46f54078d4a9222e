// SPDX-License-Identifier: BSL-1.0
/// @file
/// The units a LandXML file declares.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_UNITS_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_UNITS_H

#include "common/exchange/Units.h"

#include <optional>
#include <string>

namespace Exchange {

struct LandXmlUnits {
  bool isMetric = true;
  std::string lengthName;
  double metresPerLength = 1.0;
  double metresPerHeight = 1.0;
  AngleUnit angle = AngleUnit::Radian;
  AngleUnit direction = AngleUnit::Radian;
};

/// Metres in a linear unit of LandXML, as "USSurveyFoot". Capitals, blanks and the plural do not
/// matter, for units and for angles.
std::optional<double> metresPerUnit(const std::string& name);

/// Metres in a unit of heights. "feet" are those of the lengths when these are feet.
std::optional<double> metresPerHeightUnit(const std::string& name, const std::string& lengthName);

std::optional<AngleUnit> angleUnit(const std::string& name);

}  // namespace Exchange

#endif
