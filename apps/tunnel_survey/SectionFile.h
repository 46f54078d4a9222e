/// @file
/// Measured cross-sections read from CSV.

#ifndef CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_FILE_H
#define CALCULATIONS_APPS_TUNNEL_SURVEY_SECTION_FILE_H

#include "common/exchange/AlignmentModel.h"

#include <Calculations/Calculations.h>

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
};

/// Columns section or ring, x, y and, if there is one, station. Sections come in the order of the
/// file, and so do their points. A file with stations need not name its sections. Rows that cannot
/// be read, and those whose station is not that of their section, are rejected.
Exchange::Outcome<SectionFile> readSections(const std::string& text);

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
};

/// Columns section or ring, x, y and, if there is one, station. The second row for a section is
/// rejected.
Exchange::Outcome<OriginFile> readOrigins(const std::string& text);

/// Moves the sections so that their points count from the origin, and takes over its station.
/// Sections without an origin are rejected.
void placeOnOrigins(SectionFile& file, const std::vector<SectionOrigin>& origins);

/// Along the stationing if every section has one; else the order stays.
void sortAlongTunnel(std::vector<MeasuredSection>& sections);

}  // namespace TunnelSurvey

#endif
