// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SectionCutter.h"

#include "tunnel_survey/SectionChecks.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace TunnelSurvey {

using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::Point2D;

namespace {

/// A section with more points is thinned, to half of them at most. Compared and drawn, a point
/// takes some hundred bytes: many sections have to be content with fewer points each.
constexpr std::size_t kMostPoints = 8000;
constexpr std::size_t kFewestKept = 2000;
constexpr std::size_t kMostPointsInAll = 8000000;
constexpr double kSmallestCell = 0.005;  // m: no finer than what a scanner measures

/// The cell of a grid that a point lies in.
struct Cell {
  double column = 0.0;
  double row = 0.0;

  bool operator==(const Cell& other) const { return column == other.column && row == other.row; }
  bool operator<(const Cell& other) const {
    return column != other.column ? column < other.column : row < other.row;
  }
};

Cell cellOf(const Point2D& point, double size) {
  return {std::floor(point.x / size), std::floor(point.y / size)};
}

}  // namespace

SectionCutter::SectionCutter(SlabRule rule) : m_rule(std::move(rule)), m_last(m_slabs.end()) {
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

std::size_t SectionCutter::mostPoints() const {
  const std::size_t share = kMostPointsInAll / std::max<std::size_t>(1, m_slabs.size());
  return std::clamp(share, kFewestKept, kMostPoints);
}

/// Doubles the cells until few enough points are left: grids of doubled cells fit into each other,
/// so that means of means are those of all points of a cell.
void SectionCutter::thin(Slab& slab, std::size_t most) {
  if (slab.cell == 0.0) slab.cell = kSmallestCell;
  for (;; slab.cell *= 2.0) {
    const double size = slab.cell;
    // The means of a cell are taken in the order of the scan.
    std::stable_sort(slab.points.begin(), slab.points.end(), [size](const Mean& a, const Mean& b) {
      return cellOf(a.point, size) < cellOf(b.point, size);
    });
    std::size_t kept = 0;
    for (std::size_t start = 0; start < slab.points.size();) {
      const Cell cell = cellOf(slab.points[start].point, size);
      Point2D sum;
      std::uint32_t count = 0;
      for (; start < slab.points.size() && cellOf(slab.points[start].point, size) == cell;
           ++start) {
        const Mean& mean = slab.points[start];
        sum = sum + mean.point * static_cast<double>(mean.count);
        count += mean.count;
      }
      slab.points[kept++] = {sum / static_cast<double>(count), count};
    }
    slab.points.resize(kept);
    if (kept <= most) return;
  }
}

void SectionCutter::add(const AxisPoint& point) {
  constexpr std::size_t kUsable = 3;
  const double station = nearestStation(point.stationing);
  if (!(std::abs(point.stationing - station) <= m_rule.width / 2.0)) {
    ++m_unused;
    return;
  }
  if (m_last == m_slabs.end() || m_last->first != station) {
    m_last = m_slabs.try_emplace(station).first;
  }
  Slab& slab = m_last->second;
  slab.points.push_back({{point.offset, point.height}, 1});
  if (slab.points.size() == kUsable && slab.cell == 0.0) ++m_usable;
  if (slab.points.size() >= mostPoints()) thin(slab, mostPoints() / 2);
}

std::vector<MeasuredSection> SectionCutter::sections(const Point2D& centre) {
  std::vector<MeasuredSection> sections;
  for (auto& [station, slab] : m_slabs) {
    MeasuredSection section{std::to_string(sections.size() + 1), station, {}};
    if (slab.cell > 0.0 || slab.points.size() > mostPoints()) thin(slab, mostPoints());
    section.points.reserve(slab.points.size());
    for (const Mean& mean : slab.points) {
      section.points.push_back(mean.point);
    }
    std::vector<Mean>().swap(slab.points);
    sortAround(centre, section.points);
    sections.push_back(std::move(section));
  }
  return sections;
}

std::size_t SectionCutter::thinnedSections() const {
  return static_cast<std::size_t>(std::count_if(
      m_slabs.begin(), m_slabs.end(), [](const auto& place) { return place.second.cell > 0.0; }));
}

double SectionCutter::largestCell() const {
  double largest = 0.0;
  for (const auto& [station, slab] : m_slabs) {
    largest = std::max(largest, slab.cell);
  }
  return largest;
}

}  // namespace TunnelSurvey
