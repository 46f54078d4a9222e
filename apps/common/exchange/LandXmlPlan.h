// SPDX-License-Identifier: BSL-1.0
/// @file
/// The plan of an alignment in LandXML.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_PLAN_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_PLAN_H

#include "common/exchange/LandXmlFile.h"

#include <vector>

namespace Exchange {

/// Line, Curve and Spiral (clothoids) of the CoordGeom. Lengths and radii that are missing are
/// computed where the points determine them. Elements without a length are left out. Throws a
/// LandXmlFailure.
std::vector<PlanElement> planOf(const LandXmlFile& file, const pugi::xml_node& alignment);

}  // namespace Exchange

#endif
