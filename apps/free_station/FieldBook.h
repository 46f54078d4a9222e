/// @file
/// What was measured, and the fix points around: read from CSV.

#ifndef CALCULATIONS_APPS_FREE_STATION_FIELD_BOOK_H
#define CALCULATIONS_APPS_FREE_STATION_FIELD_BOOK_H

#include "common/console/TableOptions.h"
#include "common/exchange/PointFile.h"

#include <Calculations/Calculations.h>

#include <string>
#include <vector>

namespace FreeStation {

struct Measurement {
  int line = 0;
  std::string id;  ///< what the instrument counted or somebody typed, not that of a fix point
  Ruv::Calculations::PolarPoint polar;
};

struct FieldBook {
  std::vector<Exchange::SurveyedPoint> fixPoints;
  std::vector<Measurement> measurements;
  Measurement boom;  ///< of the point to be guided
};

/// Reads columns id, east, north, height (m) of the fix points, and id, horizontal_angle,
/// zenith_angle (gon), slope_distance (m) of the measurements. Throws a TunnelSurvey::Failure for
/// files that cannot be used, and when no measurement has the id of the boom; tells about rows
/// that it passes over.
FieldBook readFieldBook(const std::string& fixPointFile, const std::string& measurementFile,
                        const std::string& boomId, const Console::TableOptions& tables);

/// Columns id, horizontal_angle, zenith_angle (gon unless the table says otherwise),
/// slope_distance.
const Exchange::TableSchema& measurementColumns();

/// The library takes ids as wide strings. Bytes are widened one by one: ids are only compared.
std::wstring wideId(const std::string& id);

}  // namespace FreeStation

#endif
