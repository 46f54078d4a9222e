// SPDX-License-Identifier: BSL-1.0
/// @file
/// Reads an alignment from LandXML 1.x.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_READER_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_READER_H

#include "common/exchange/AlignmentModel.h"

#include <string>

namespace Exchange {

/// What to read of a file.
struct AlignmentChoice {
  std::string alignment;  ///< its name; empty for the first one
  std::string profile;    ///< its name; empty for the only one, or the one whose state is proposed
};

/// Reads Line, Curve and Spiral (clothoids) of the CoordGeom, PVI, ParaCurve, UnsymParaCurve and
/// CircCurve of a ProfAlign, StaEquation and Cant. Units are those the file declares. Anything else
/// in the first two lists, and numbers out of any sensible range, are refused; cross sections and
/// features are passed over. What had to be assumed is among the notes.
/// @param xml the text of the file
Outcome<Alignment> readLandXml(const std::string& xml, const AlignmentChoice& choice = {});

}  // namespace Exchange

#endif
