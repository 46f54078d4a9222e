// SPDX-License-Identifier: BSL-1.0
/// @file
/// The profile of an alignment in LandXML.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_PROFILE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_PROFILE_H

#include "common/exchange/LandXmlFile.h"

#include <string>
#include <vector>

namespace Exchange {

/// PVI, ParaCurve, UnsymParaCurve and CircCurve of a ProfAlign. Throws a LandXmlFailure.
/// @param name of the profile; empty for the only one, or the one whose state is proposed
/// @return no points when the alignment has no profile and none is asked for by its name
std::vector<ProfilePoint> profileOf(const LandXmlFile& file, const pugi::xml_node& alignment,
                                    const std::string& name);

}  // namespace Exchange

#endif
