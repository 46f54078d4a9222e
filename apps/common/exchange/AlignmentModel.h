// SPDX-License-Identifier: BSL-1.0
/// @file
/// An alignment as a file describes it. Metres and radians; azimuths clockwise from north.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_ALIGNMENT_MODEL_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_ALIGNMENT_MODEL_H

#include "common/exchange/Outcome.h"
#include "common/exchange/Stationing.h"

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace Exchange {

struct PlanPoint {
  double east = 0.0;
  double north = 0.0;
};

inline double azimuthOf(const PlanPoint& from, const PlanPoint& to) {
  return std::atan2(to.east - from.east, to.north - from.north);
}

inline double distanceOf(const PlanPoint& from, const PlanPoint& to) {
  return std::hypot(to.east - from.east, to.north - from.north);
}

enum class ElementKind { Straight, Arc, Clothoid };

struct PlanElement {
  ElementKind kind = ElementKind::Straight;
  int line = 0;
  std::optional<double> startStation;
  double length = 0.0;
  double radiusStart = 0.0;  ///< positive to the right, 0 infinite
  double radiusEnd = 0.0;
  PlanPoint start;
  PlanPoint end;
  std::optional<PlanPoint> center;        ///< of an arc
  std::optional<PlanPoint> intersection;  ///< of the tangents at both ends
  std::optional<double>
      printedDirection;               ///< at the start, from where and which way round it may be
  std::optional<double> printedTurn;  ///< change of direction, without sign
};

enum class RoundingKind { None, Circle, Parabola };

struct ProfilePoint {
  int line = 0;
  double station = 0.0;
  double height = 0.0;
  RoundingKind rounding = RoundingKind::None;
  double size = 0.0;  ///< radius of a circle, length of a parabola over the stationing
};

/// How much higher one rail is than the other; linear between two of them.
struct CantPoint {
  int line = 0;
  double station = 0.0;
  double cant = 0.0;  ///< m, positive when the right rail is lower
};

struct Alignment {
  std::string name;
  std::string lengthUnit;  ///< as the file names it; the numbers here are metres
  double startStation = 0.0;
  Stationing stationing;  ///< where the stations that people read jump
  std::vector<PlanElement> plan;
  std::vector<ProfilePoint> profile;  ///< empty when the file has none
  std::vector<CantPoint> cant;        ///< empty when the file has none
  std::string cantTurnsAbout;         ///< as the file names it; empty for the axis
  std::vector<Remark> notes;          ///< what had to be assumed
};

}  // namespace Exchange

#endif
