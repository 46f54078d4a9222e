// SPDX-License-Identifier: BSL-1.0
/// @file
/// From the command line to the results.

#ifndef CALCULATIONS_APPS_FREE_STATION_SURVEY_STEPS_H
#define CALCULATIONS_APPS_FREE_STATION_SURVEY_STEPS_H

#include "free_station/Options.h"
#include "free_station/Survey.h"

namespace FreeStation {

/// Ends with the identification when that is doubtful and --accept is not given: a boom would be
/// steered by it. Throws a Console::Failure for what cannot be computed; tells what is noticed
/// about the files.
Survey surveyWith(const Options& options);

}  // namespace FreeStation

#endif
