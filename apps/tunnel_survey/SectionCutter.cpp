#include "tunnel_survey/SectionCutter.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace TunnelSurvey {

using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::Point2D;

namespace {

/// Clockwise from up, in [-pi, pi].
double bearing(const Point2D& from, const Point2D& to) {
  return std::atan2(to.x - from.x, to.y - from.y);
}

}  // namespace

SectionCutter::SectionCutter(SlabRule rule) : m_rule(std::move(rule)) {
  std::sort(m_rule.stations.begin(), m_rule.stations.end());
}

double SectionCutter::nearestStation(double station) const {
  const std::vector<double>& stations = m_rule.stations;
  if (stations.empty()) return std::round(station / m_rule.spacing) * m_rule.spacing;
  const auto above = std::lower_bound(stations.begin(), stations.end(), station);
  if (above == stations.begin()) return *above;
  const auto below = above - 1;
  return above == stations.end() || station - *below <= *above - station ? *below : *above;
}

void SectionCutter::add(const AxisPoint& point) {
  const double station = nearestStation(point.stationing);
  if (std::abs(point.stationing - station) <= m_rule.width / 2.0) {
    m_points[station].emplace_back(point.offset, point.height);
  } else {
    ++m_unused;
  }
}

std::vector<MeasuredSection> SectionCutter::sections(const Point2D& centre) const {
  std::vector<MeasuredSection> sections;
  for (const auto& [station, points] : m_points) {
    MeasuredSection section{std::to_string(sections.size() + 1), station, points};
    std::stable_sort(section.points.begin(), section.points.end(),
                     [&centre](const Point2D& a, const Point2D& b) {
                       return bearing(centre, a) < bearing(centre, b);
                     });
    sections.push_back(std::move(section));
  }
  return sections;
}

}  // namespace TunnelSurvey
