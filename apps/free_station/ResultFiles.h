// SPDX-License-Identifier: BSL-1.0
/// @file
/// The results for other programs.

#ifndef CALCULATIONS_APPS_FREE_STATION_RESULT_FILES_H
#define CALCULATIONS_APPS_FREE_STATION_RESULT_FILES_H

#include "free_station/Survey.h"

#include <string>

namespace FreeStation {

/// A row for each quantity: its value and standard deviation, with their units.
std::string stationAsCsv(const Survey& survey);

/// A row for each sighting: residuals, redundancy numbers, w.
std::string residualsAsCsv(const Survey& survey);

/// A row for each measured point that is no fix point.
std::string newPointsAsCsv(const Survey& survey);

/// All of these and the guidance. Metres, gon, parts per million. Without a station only why there
/// is none.
std::string asJson(const Survey& survey);

}  // namespace FreeStation

#endif
