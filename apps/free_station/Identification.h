// SPDX-License-Identifier: BSL-1.0
/// @file
/// Which fix points were measured.

#ifndef CALCULATIONS_APPS_FREE_STATION_IDENTIFICATION_H
#define CALCULATIONS_APPS_FREE_STATION_IDENTIFICATION_H

#include "free_station/FieldBook.h"

#include <string>
#include <vector>

namespace FreeStation {

struct Tolerances {
  double distance = 0.05;  ///< m, between measured and known distances
  double height = 0.02;    ///< m
};

struct Sighting {
  Measurement measurement;
  Exchange::SurveyedPoint fixPoint;
};

struct Identification {
  std::vector<Sighting> sightings;
  std::vector<Measurement> strays;  ///< measurements of no fix point
  bool isUnambiguous = false;
  double expectedByChance = 0.0;    ///< assignments of as many strays, which fit by chance
  std::vector<std::string> doubts;  ///< why it may be wrong
};

/// Finds the fix points by the shape of the measured figure alone. Throws a Console::Failure when
/// nothing fits, and when the search takes more than a minute. Doubts: another assignment fits as
/// well; measurements of nothing would fit too often; more measurements would fit if their angles
/// were in another unit; a measurement has the id of another fix point.
Identification identify(const FieldBook& book, const Tolerances& tolerances);

/// A number of assignments, "3e-05"; "less than 1e-12" and "more than 100" beyond.
std::string expectedText(double expected);

}  // namespace FreeStation

#endif
