// SPDX-License-Identifier: BSL-1.0
// Lines for drawing. Curves are sampled at the multiples of a step from their start, and at their
// end whatever the step, so that neighbouring curves meet. Straights and grades need no points
// between their ends.

#include "alignment/AxisPolylines.h"

#include <Calculations/Utilities.h>

namespace Ruv {
namespace Calculations {

namespace {

/// Steps (m) outside these limits are taken for them.
constexpr double kSmallestStep = 0.1;
constexpr double kLargestStep = 100.0;

/// More samples than this are refused: only the two ends are then given. A curve of 1000 km has as
/// many at the smallest step.
constexpr double kMostSteps = 1e7;

/// Calls sample for from, from + step, ... while below to, then for to. Multiples of the step, not
/// sums, so that no rounding accumulates.
template <class Sample>
void sampleAlong(double from, double to, double step, const Sample& sample) {
  Utilities::forceInRange(step, kSmallestStep, kLargestStep);
  if (from < to) sample(from);
  // A step or an end that is not a number is not countable either.
  const bool isCountable = (to - from) / step <= kMostSteps;
  for (int steps = 1; isCountable && from + steps * step < to; ++steps) {
    sample(from + steps * step);
  }
  sample(to);
}

/// Adds the point of intersection where nothing is rounded. Otherwise it adds the rounding, as the
/// point then lies off the line.
void appendVeralPoint(const std::vector<CVeralPoint>& points, std::size_t index, double step,
                      std::vector<Point2D>& line) {
  const auto rounding = CVeralAlignment::roundingAt(points, index);
  if (!rounding) {
    line.emplace_back(points[index].stationing, points[index].height);
    return;
  }
  sampleAlong(rounding->from, rounding->to, step, [&](double stationing) {
    if (const auto place = rounding->curve.at(stationing)) {
      line.emplace_back(stationing, place->height);
    }
  });
}

/// True for a repeat of the last point, and for one that lies behind it, as the start of a rounding
/// that overlaps the rounding before it: the earlier rounding holds there.
bool isPassed(const Point2D& point, const std::vector<Point2D>& line) {
  if (line.empty()) return false;
  const Point2D& last = line.back();
  return point.x < last.x || (point.x == last.x && point.y == last.y);
}

}  // namespace

std::vector<Point2D> sampledSegment(const CShapeContainer& container, std::size_t index,
                                    double step) {
  const CHoralElement& start = *container.horalAt(index);
  const CHoralElement& end = *container.horalAt(index + 1);
  std::vector<Point2D> line;
  switch (end.getTypeId()) {
    case CShapeType::Straight:
      line.emplace_back(start.getEast(), start.getNorth());
      line.emplace_back(end.getEast(), end.getNorth());
      break;
    case CShapeType::Arc:
    case CShapeType::Clothoid:
      sampleAlong(start.getStationing(), end.getStationing(), step, [&](double stationing) {
        CAlignmentPosition place;
        if (container.positionAt(stationing, place)) line.push_back(place.position);
      });
      break;
    default:
      break;
  }
  return line;
}

std::vector<Point2D> sampledVeralPoint(const CShapeContainer& container, std::size_t index,
                                       double step) {
  std::vector<Point2D> line;
  appendVeralPoint(container.veralPoints(), index, step, line);
  return line;
}

std::vector<Point2D> sampledVeral(const CShapeContainer& container, double step) {
  const std::vector<CVeralPoint> points = container.veralPoints();
  std::vector<Point2D> line;
  // Each point is sampled by itself, then the line takes what lies ahead of its end. What a
  // rounding has beyond the last point is no part of the alignment.
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::vector<Point2D> part;
    appendVeralPoint(points, i, step, part);
    for (const Point2D& point : part) {
      if (!isPassed(point, line) && !(point.x > points.back().stationing)) line.push_back(point);
    }
  }
  return line;
}

}  // namespace Calculations
}  // namespace Ruv
