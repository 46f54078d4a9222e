// SPDX-License-Identifier: BSL-1.0
/// @file
/// The results as text.

#ifndef CALCULATIONS_APPS_FREE_STATION_REPORT_H
#define CALCULATIONS_APPS_FREE_STATION_REPORT_H

#include "free_station/Survey.h"

namespace FreeStation {

/// To the standard output.
void printReport(const Survey& survey);

/// "-1989"
std::string scaleInMillionths(double scale);

}  // namespace FreeStation

#endif
