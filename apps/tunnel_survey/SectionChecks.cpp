// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SectionChecks.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace TunnelSurvey {

namespace {

using Ruv::Calculations::Point2D;

/// Twice the signed area of a triangle; positive when c lies to the left of the way from a to b.
double sideOf(const Point2D& a, const Point2D& b, const Point2D& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

struct Side {
  std::size_t index = 0;
  Point2D a;
  Point2D b;

  double left() const { return std::min(a.x, b.x); }
  double right() const { return std::max(a.x, b.x); }
  double low() const { return std::min(a.y, b.y); }
  double high() const { return std::max(a.y, b.y); }
};

bool cross(const Side& one, const Side& other) {
  if (one.low() > other.high() || other.low() > one.high()) return false;
  return sideOf(one.a, one.b, other.a) * sideOf(one.a, one.b, other.b) < 0.0 &&
         sideOf(other.a, other.b, one.a) * sideOf(other.a, other.b, one.b) < 0.0;
}

/// Clockwise from up, in [-pi, pi].
double bearing(const Point2D& from, const Point2D& to) {
  return std::atan2(to.x - from.x, to.y - from.y);
}

/// "sections 3, 7, 12 and 5 more"
std::string listOf(const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 5;
  std::string text = names.size() == 1 ? "section " : "sections ";
  for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i) {
    text += (i == 0 ? "" : ", ") + names[i];
  }
  return names.size() > kMost ? text + " and " + std::to_string(names.size() - kMost) + " more"
                              : text;
}

std::vector<std::string> namesOf(const std::vector<MeasuredSection>& sections,
                                 const std::function<bool(const MeasuredSection&)>& isDoubtful) {
  std::vector<std::string> names;
  for (const MeasuredSection& section : sections) {
    if (isDoubtful(section)) names.push_back(section.name);
  }
  return names;
}

}  // namespace

std::optional<std::pair<std::size_t, std::size_t>> crossingSides(
    const std::vector<Point2D>& points) {
  constexpr std::size_t kMostComparisons = 20000000;
  std::vector<Side> sides;
  for (std::size_t i = 0; i < points.size(); ++i) {
    sides.push_back({i, points[i], points[(i + 1) % points.size()]});
  }
  std::sort(sides.begin(), sides.end(), [](const Side& a, const Side& b) {
    return a.left() != b.left() ? a.left() < b.left() : a.index < b.index;
  });
  // A line sweeps from left to right; only sides that it meets at the same time can cross.
  std::vector<Side> met;
  std::size_t comparisons = 0;
  for (const Side& side : sides) {
    met.erase(std::remove_if(met.begin(), met.end(),
                             [&side](const Side& other) { return other.right() < side.left(); }),
              met.end());
    comparisons += met.size();
    if (comparisons > kMostComparisons) return std::nullopt;
    for (const Side& other : met) {
      if (cross(side, other)) return std::minmax(side.index, other.index);
    }
    met.push_back(side);
  }
  return std::nullopt;
}

bool liesBeside(const MeasuredSection& section, const Exchange::DesignProfile& design) {
  Point2D low = section.points.front();
  Point2D high = low;
  for (const Point2D& point : section.points) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y)};
  }
  const Point2D middle = (low + high) / 2.0;
  const Point2D corner = design.lowerLeft();
  const Point2D opposite = design.upperRight();
  const bool isWithin = middle.x >= corner.x && middle.x <= opposite.x && middle.y >= corner.y &&
                        middle.y <= opposite.y;
  return !isWithin;
}

std::vector<std::string> doubtsOn(const std::vector<MeasuredSection>& sections,
                                  const Exchange::DesignProfile& design,
                                  const std::optional<Exchange::StationRange>& axis) {
  std::vector<std::string> doubts;
  const auto tell = [&doubts](const std::vector<std::string>& names, const std::string& what) {
    if (!names.empty()) doubts.push_back(listOf(names) + ": " + what);
  };
  tell(namesOf(sections,
               [](const MeasuredSection& s) { return crossingSides(s.points).has_value(); }),
       "the outline crosses itself, so that its areas are wrong; --sort puts the points in order "
       "around the design");
  tell(namesOf(sections, [&](const MeasuredSection& s) { return liesBeside(s, design); }),
       "all points lie on one side of the design; is --origins missing, or are x and y swapped?");
  if (axis) {
    tell(namesOf(sections,
                 [&axis](const MeasuredSection& s) {
                   return s.station && !(*s.station >= axis->from && *s.station <= axis->to);
                 }),
         "the station lies outside the axis");
  }
  return doubts;
}

void sortAround(const Point2D& centre, std::vector<Point2D>& points) {
  std::stable_sort(points.begin(), points.end(), [&centre](const Point2D& a, const Point2D& b) {
    return bearing(centre, a) < bearing(centre, b);
  });
}

}  // namespace TunnelSurvey
