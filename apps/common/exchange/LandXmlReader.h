/// @file
/// Reads an alignment from LandXML 1.x.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_READER_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_READER_H

#include "common/exchange/AlignmentModel.h"

#include <string>

namespace Exchange {

/// Reads Line, Curve and Spiral (clothoids) of the CoordGeom, and PVI, ParaCurve and CircCurve of
/// the first ProfAlign. Units are those the file declares. Anything else in these two lists,
/// station equations, and numbers out of any sensible range are refused; cant, cross sections and
/// features are passed over.
/// @param xml the text of the file
/// @param name of the alignment; empty for the first one
Outcome<Alignment> readLandXml(const std::string& xml, const std::string& name = "");

}  // namespace Exchange

#endif
