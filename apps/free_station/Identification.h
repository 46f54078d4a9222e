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
  double chance = 0.0;              ///< see chanceOf()
  std::vector<std::string> doubts;  ///< why it may be wrong
};

/// Finds the fix points by the shape of the measured figure alone. Throws a Console::Failure when
/// nothing fits, and when the search takes more than a minute. Doubts: another assignment fits as
/// well; measurements of nothing would fit too often; more measurements would fit if their angles
/// were in another unit; a measurement has the id of another fix point.
Identification identify(const FieldBook& book, const Tolerances& tolerances);

/// How probable it is that measurements of anything else would have fitted as many fix points,
/// estimated rather too high. A figure of n points in space has 3n - 6 independent distances; each
/// agrees by chance as often as distances between fix points lie within the tolerance of a measured
/// one; and there are (m over n) F! / (F - n)! ways to assign n of m measurements to n of F fix
/// points.
double chanceOf(const Identification& found, const std::vector<Exchange::SurveyedPoint>& fixPoints,
                double tolerance);

/// "3e-05", "12 %"; no less than 1e-12.
std::string chanceText(double chance);

}  // namespace FreeStation

#endif
