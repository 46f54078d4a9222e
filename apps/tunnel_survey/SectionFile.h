// SPDX-License-Identifier: BSL-1.0
/// @file
/// Measured cross-sections read from tables.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_FILE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_FILE_H

#include "common/exchange/Outcome.h"
#include "common/exchange/TableFormat.h"

#include <Calculations/Calculations.h>

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace TunnelSurvey {

/// Points around a cross-section, x to the right and y up from the origin of the design profile.
struct MeasuredSection {
  std::string name;
  std::optional<double> station;
  std::vector<Ruv::Calculations::Point2D> points;
};

struct SectionFile {
  std::string noun = "Section";  ///< what a section is called: "Section" or "Ring"
  std::vector<MeasuredSection> sections;
  std::vector<Exchange::Remark> rejected;
  std::string description;  ///< how the table is written; empty for the plain form
};

/// Of sections, and of their origins.
const Exchange::TableSchema& sectionColumns();

/// Columns section or ring, x, y and, if there is one, station. Sections come in the order of the
/// file, and so do their points. A file with stations need not name its sections. Rows that cannot
/// be read, and those whose station is not that of their section, are rejected.
Exchange::Outcome<SectionFile> readSections(std::istream& in,
                                            const Exchange::TableFormat& format = {});

/// Where the origin of the design lies in a section, for sections in coordinates of their own.
struct SectionOrigin {
  int line = 0;
  std::string name;
  Ruv::Calculations::Point2D origin;
  std::optional<double> station;
};

struct OriginFile {
  std::vector<SectionOrigin> origins;
  std::vector<Exchange::Remark> rejected;
  std::string description;
};

/// Columns section or ring, x, y and, if there is one, station. The second row for a section is
/// rejected.
Exchange::Outcome<OriginFile> readOrigins(std::istream& in,
                                          const Exchange::TableFormat& format = {});

/// Moves the sections so that their points count from the origin, and takes over its station.
/// Sections without an origin are rejected.
void placeOnOrigins(SectionFile& file, const std::vector<SectionOrigin>& origins);

/// Along the stationing if every section has one; else the order stays.
void sortAlongTunnel(std::vector<MeasuredSection>& sections);

}  // namespace TunnelSurvey

#endif
