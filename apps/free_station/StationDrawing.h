// SPDX-License-Identifier: BSL-1.0
/// @file
/// The station, what it sees and where it guides to, as a drawing.

#ifndef CALCULATIONS_APPS_FREE_STATION_STATION_DRAWING_H
#define CALCULATIONS_APPS_FREE_STATION_STATION_DRAWING_H

#include "free_station/Survey.h"

#include "common/drawing/Canvas.h"

namespace FreeStation {

/// Plan and cross-section at one scale on an A3 sheet, with the residuals exaggerated.
Drawing::Sheet stationSheet(const Survey& survey);

}  // namespace FreeStation

#endif
