// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/GradeLine.h"

#include "tunnel_survey/StationTable.h"

#include <cmath>

namespace TunnelSurvey {

using Drawing::Point;
using Ruv::CVeralElement;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::Point2D;

std::vector<GradePoint> gradePointsOf(const AxisDefinition& axis) {
  constexpr double kCoarsest = 100.0;
  std::vector<GradePoint> points;
  for (unsigned i = 0; i < axis.getNumVeralPoints(); ++i) {
    const auto* element = dynamic_cast<const CVeralElement*>(axis.getVeralPointAt(i));
    if (element == nullptr) continue;
    const std::vector<Point2D> rounding = axis.getVeralPointPolylineAt(i, kCoarsest).points();
    GradePoint point;
    point.at = {element->getStationing(), element->getHeight()};
    point.from = rounding.empty() ? point.at.x : rounding.front().x;
    point.to = rounding.empty() ? point.at.x : rounding.back().x;
    point.radius = std::abs(element->getRoundingValue());
    points.push_back(point);
  }
  return points;
}

Point GradeLine::at(double station) const {
  const auto place = placeAt(m_calculator, station);
  return {station, place ? place->grid.height : 0.0};
}

std::vector<Point> GradeLine::between(const Exchange::StationRange& range, double step) const {
  std::vector<Point> points;
  for (const double station : Exchange::evenStations(range, step)) {
    points.push_back(at(station));
  }
  return points;
}

}  // namespace TunnelSurvey
