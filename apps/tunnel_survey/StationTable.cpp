#include "tunnel_survey/StationTable.h"

#include "common/drawing/NumberText.h"

#include <cmath>

namespace TunnelSurvey {

using Drawing::fixed;
using Drawing::signedFixed;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::Utilities;

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

std::vector<double> regularStations(double lowest, double highest, double step) {
  constexpr double kMostStations = 100000.0;
  constexpr double kSameStation = 1e-6;  // not printed twice beside an end
  std::vector<double> stations = {lowest};
  const double first = std::ceil((lowest + kSameStation) / step);
  const double steps = (highest - lowest) / step;
  const int count = steps >= 0.0 && steps <= kMostStations ? static_cast<int>(steps) : -1;
  for (int i = 0; i <= count; ++i) {
    const double station = (first + i) * step;
    if (station < highest - kSameStation) stations.push_back(station);
  }
  stations.push_back(highest);
  return stations;
}

ResultTable stationTable(const AxisCalculator& calculator, const std::vector<double>& stations) {
  ResultTable table{{"stationing\nm", "tunnel meter\nm", "east\nm", "north\nm", "height\nm",
                     "azimuth\ngon", "radius\nm", "grade\n%"},
                    {}};
  for (const double station : stations) {
    const auto place = placeAt(calculator, station);
    if (!place) continue;
    table.rows.push_back({fixed(place->station, 3), fixed(place->tunnelMeter, 3),
                          fixed(place->grid.east, 3), fixed(place->grid.north, 3),
                          fixed(place->grid.height, 3),
                          fixed(Utilities::rad2gon(place->azimuth), 4),
                          place->radius == 0.0 ? "straight" : signedFixed(place->radius, 2),
                          signedFixed(place->grade, 3)});
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
