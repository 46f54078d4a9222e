// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/StationTable.h"

#include "common/drawing/Geometry.h"
#include "common/drawing/NumberText.h"

#include <limits>

namespace TunnelSurvey {

using Drawing::fixed;
using Drawing::signedFixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::Utilities;

namespace {

/// Stations closer together than this are printed once.
constexpr double kSameStation = 1e-6;

}  // namespace

std::optional<AxisPlace> placeAt(const AxisCalculator& calculator, double station) {
  AxisPlace place;
  place.station = station;
  double slope = 0.0;
  double transSlope = 0.0;
  double transSlopePercent = 0.0;
  const bool isOnAxis =
      calculator.axisPointToEnhPointVertical(AxisPoint(station, 0.0, 0.0), place.grid) &&
      calculator.stationingToTunnelmeter(station, place.tunnelMeter) &&
      calculator.axisPropertiesAtStationing(station, place.azimuth, place.radius, slope,
                                            place.grade, transSlope, transSlopePercent);
  if (!isOnAxis) return std::nullopt;
  return place;
}

std::vector<double> regularStations(const Exchange::Stationing& stationing,
                                    const Exchange::StationRange& range, double step) {
  std::vector<double> stations = {range.from};
  for (const double station : roundStations(stationing, range, step)) {
    const bool isAtEnd = station - range.from < kSameStation || range.to - station < kSameStation;
    if (!isAtEnd) stations.push_back(station);
  }
  stations.push_back(range.to);
  return stations;
}

std::vector<double> roundStations(const Exchange::Stationing& stationing,
                                  const Exchange::StationRange& range, double step) {
  std::vector<double> places;
  double from = range.from;
  double equation = -std::numeric_limits<double>::infinity();
  double shift = 0.0;  // from the place to the station that is read there
  const auto addUpTo = [&](double to) {
    for (const double station : Drawing::multiplesWithin(from + shift, to + shift, step)) {
      // At the equation itself the station before it is read.
      if (station - shift > equation + kSameStation) places.push_back(station - shift);
    }
  };
  for (const Exchange::StationEquation& jump : stationing.equations()) {
    if (jump.place >= range.to) break;
    if (jump.place > from) {
      addUpTo(jump.place);
      from = jump.place;
    }
    equation = jump.place;
    shift = jump.ahead - jump.place;
  }
  addUpTo(range.to);
  return places;
}

ResultTable stationTable(const SurveyPicture& picture) {
  const AxisCalculator calculator(picture.axis);
  ResultTable table{{"stationing\nm", "tunnel meter\nm", "east\nm", "north\nm", "height\nm",
                     "azimuth\ngon", "radius\nm", "grade\n%"},
                    {}};
  for (const double station : picture.stations) {
    const auto place = placeAt(calculator, station);
    if (!place) continue;
    table.rows.push_back({picture.stationing.metresText(place->station, 3),
                          fixed(place->tunnelMeter, 3), fixed(place->grid.east, 3),
                          fixed(place->grid.north, 3),
                          picture.hasHeights ? fixed(place->grid.height, 3) : "-",
                          fixed(Utilities::rad2gon(place->azimuth), 4),
                          place->radius == 0.0 ? "straight" : signedFixed(place->radius, 2),
                          picture.hasHeights ? signedFixed(place->grade, 3) : "-"});
  }
  return table;
}

double lengthBetween(const AxisCalculator& calculator, double from, double to) {
  double first = from;
  double last = to;
  const bool isOnAxis = calculator.stationingToTunnelmeter(from, first) &&
                        calculator.stationingToTunnelmeter(to, last);
  return isOnAxis ? last - first : to - from;
}

}  // namespace TunnelSurvey
