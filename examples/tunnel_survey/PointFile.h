/// @file
/// Surveyed points and printed check coordinates, read from CSV, and the converted points.

#ifndef CALCULATIONS_EXAMPLES_TUNNEL_SURVEY_POINT_FILE_H
#define CALCULATIONS_EXAMPLES_TUNNEL_SURVEY_POINT_FILE_H

#include "tunnel_survey/AlignmentModel.h"

#include <Calculations/Calculations.h>

#include <string>
#include <vector>

namespace TunnelSurvey {

struct SurveyedPoint {
  int line = 0;
  std::string id;
  Ruv::Calculations::ENHPoint grid;
};

/// What a point should be according to others.
struct CheckPoint {
  int line = 0;
  Ruv::Calculations::AxisPoint onAxis;
  Ruv::Calculations::ENHPoint grid;
  double azimuth = 0.0;
};

/// A file is refused as a whole only when its columns are missing; a row that cannot be read is
/// rejected alone.
template <class P>
struct PointFile {
  std::vector<P> points;
  std::vector<Remark> rejected;
};

/// Columns id, east, north, height.
Outcome<PointFile<SurveyedPoint>> readSurveyedPoints(const std::string& text);

/// Columns station, offset, height_above_axis, east, north, height (m) and azimuth (rad).
Outcome<PointFile<CheckPoint>> readCheckPoints(const std::string& text);

struct ConvertedPoint {
  std::string id;
  Ruv::Calculations::ENHPoint grid;
  Ruv::Calculations::AxisPoint onAxis;
};

/// Converts to stationing, offset and height above the axis. Points without a foot on the axis,
/// or farther beside it than the largest offset, are rejected.
PointFile<ConvertedPoint> convertPoints(const Ruv::Calculations::AxisCalculator& calculator,
                                        const std::vector<SurveyedPoint>& points,
                                        double largestOffset);

/// The converted points as CSV, in metres with four decimals.
std::string convertedPointsAsCsv(const std::vector<ConvertedPoint>& points);

}  // namespace TunnelSurvey

#endif
