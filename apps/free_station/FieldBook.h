// SPDX-License-Identifier: BSL-1.0
/// @file
/// What was measured, and the fix points around: read from tables.

#ifndef CALCULATIONS_APPS_FREE_STATION_FIELD_BOOK_H
#define CALCULATIONS_APPS_FREE_STATION_FIELD_BOOK_H

#include "free_station/Readings.h"

#include "common/console/TableOptions.h"
#include "common/exchange/PointFile.h"

#include <Calculations/Calculations.h>

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace FreeStation {

struct FieldBook {
  std::vector<Exchange::SurveyedPoint> fixPoints;
  std::vector<Reading> readings;           ///< as the instrument saw them, those of the boom too
  std::vector<Measurement> measurements;   ///< of points, the boom left out
  std::optional<Measurement> boom;         ///< of the point to be guided
  std::optional<double> instrumentHeight;  ///< above the ground point (m)
  std::vector<std::string> doubts;         ///< what contradicts itself in the files
};

struct FieldFiles {
  std::string fixPoints;
  std::string measurements;
  std::string boom;             ///< id of its measurement
  bool isBoomRequired = false;  ///< else there need not be such a measurement
};

/// Throws a Console::Failure for files that cannot be used, and when there is no measurement of a
/// boom that is required; tells about rows that it passes over.
FieldBook readFieldBook(const FieldFiles& files, const Console::TableOptions& tables);

/// Columns id, horizontal_angle, zenith_angle (gon unless the table says otherwise),
/// slope_distance, and if there are any target_height and instrument_height (m).
const Exchange::TableSchema& measurementColumns();

Exchange::Outcome<Exchange::PointFile<Reading>> readReadings(std::istream& in,
                                                             const Exchange::TableFormat& format);

/// The library takes ids as wide strings. Bytes are widened one by one: ids are only compared.
std::wstring wideId(const std::string& id);

}  // namespace FreeStation

#endif
