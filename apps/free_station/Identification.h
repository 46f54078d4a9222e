/// @file
/// Which fix points were measured.

#ifndef CALCULATIONS_APPS_FREE_STATION_IDENTIFICATION_H
#define CALCULATIONS_APPS_FREE_STATION_IDENTIFICATION_H

#include "free_station/FieldBook.h"

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
};

/// Finds the fix points by the shape of the measured figure alone. Throws a Console::Failure when
/// nothing fits, and when so little fits that chance may have brought it about.
Identification identify(const FieldBook& book, const Tolerances& tolerances);

}  // namespace FreeStation

#endif
