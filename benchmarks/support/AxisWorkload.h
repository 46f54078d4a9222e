// SPDX-License-Identifier: BSL-1.0
/// @file
/// The axis that all alignment benchmarks work on, and the points on and beside it.

#ifndef CALCULATIONS_BENCHMARKS_AXIS_WORKLOAD_H
#define CALCULATIONS_BENCHMARKS_AXIS_WORKLOAD_H

#include "support/ExactAxis.h"

#include <Calculations/Calculations.h>

#include <array>
#include <cstddef>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::Point2D;

/// 0.84, 8.5, 85 and 850 km.
constexpr std::array<std::size_t, 4> kAxisSizes = {10, 100, 1000, 10000};

/// Vertex distance (m) of the polylines that peers search.
constexpr double kPolylineStep = 0.1;

/// An axis of n plan elements: groups of a straight, a clothoid, an arc and a clothoid, turning
/// right and left by turns. Two groups share a radius, so the heading returns and the axis never
/// meets itself. A point of intersection of grades, rounded by an arc, follows every 400 m.
class AxisWorkload {
 public:
  explicit AxisWorkload(std::size_t numElements);

  const ExactAxis& exact() const { return m_exact; }

  /// Builds the axis through the public interface, one call for each element and point. All
  /// numbers that the calls take have been worked out before.
  boost::shared_ptr<const AxisDefinition> build() const;

  /// Places on the axis, spread evenly, in random order.
  std::vector<AxisPoint> randomPlaces(std::size_t count) const;

  /// Vertices of the axis in plan every so many metres, its end included.
  std::vector<Point2D> polyline(double step) const;

 private:
  struct Start {
    double east = 0.0;
    double north = 0.0;
    double azimuth = 0.0;
  };

  void addSegment(AxisDefinition& axis, std::size_t index) const;

  ExactAxis m_exact;
  std::vector<Start> m_starts;
};

/// Points around an axis as a scan of a tunnel has them, with the axis coordinates that they were
/// made from.
struct Scan {
  std::vector<ENHPoint> points;
  std::vector<AxisPoint> truth;
};

Scan scanAround(const ExactAxis& axis, std::size_t count);

/// The wall of a round tunnel as a scan has it that is ordered by sections: 200 points of one
/// section after the other, a section in each of as many equal parts of the axis.
std::vector<ENHPoint> sectionsAlong(const ExactAxis& axis, std::size_t count);

/// Slabs of 1 m of a scan that is sorted along the axis: 1000 points of ascending stationing in
/// each, as far beside the axis as those of scanAround, slabs in equal parts of the axis.
std::vector<ENHPoint> slabsAlong(const ExactAxis& axis, std::size_t count);

}  // namespace Benchmarks

#endif
