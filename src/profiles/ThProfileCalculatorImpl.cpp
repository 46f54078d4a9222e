#include "profiles/ThProfileCalculatorImpl.h"

#include "profiles/ProfileReach.h"
#include "shapes/ChainIntersections.h"

#include <Calculations/Utilities.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numeric>

namespace Ruv {
namespace Calculations {

namespace {

/// Up to this station (m) the start of an anticlockwise profile stays at its start instead of
/// moving on by a circumference. Beyond it derolments fold back by as much; callers know them so.
constexpr double kStartStation = 0.0001;

/// Derolments this close (m) are one sample.
constexpr double kSameDerolment = 1e-9;

/// More samples than this are refused.
constexpr double kMostSamples = 1e7;

/// Interval (m) of the samples on which the crown is found. Derolments depend on it.
constexpr double kCrownInterval = 0.1;

/// A point of the profile this near (m) to the foot is the foot, not the other end of a diameter.
constexpr double kSmallestDiameter = 0.001;

/// Centroid of the area of a polygon by the shoelace formula.
Point2D areaCentroid(const std::vector<Point2D>& polygon) {
  // Reduced coordinates: the products would cost digits far from the origin.
  const Point2D reference = polygon.front();
  double doubledArea = 0.0;
  Point2D moment;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2D a = polygon[i] - reference;
    const Point2D b = polygon[i + 1 < polygon.size() ? i + 1 : 0] - reference;
    const double cross = a.x * b.y - b.x * a.y;
    doubledArea += cross;
    moment = moment + (a + b) * cross;
  }
  return reference + moment / (3.0 * doubledArea);
}

/// For each node whether an earlier node has the same coordinates.
std::vector<bool> repeatsEarlierNode(const std::vector<CChainNode>& nodes) {
  std::vector<std::size_t> order(nodes.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t i, std::size_t j) {
    const Point2D& a = nodes[i].point;
    const Point2D& b = nodes[j].point;
    if (a.x != b.x) return a.x < b.x;
    if (a.y != b.y) return a.y < b.y;
    return i < j;
  });
  std::vector<bool> repeats(nodes.size(), false);
  for (std::size_t k = 1; k < order.size(); ++k) {
    const Point2D& a = nodes[order[k - 1]].point;
    const Point2D& b = nodes[order[k]].point;
    repeats[order[k]] = a.x == b.x && a.y == b.y;
  }
  return repeats;
}

}  // namespace

ThProfileCalculatorImpl::ThProfileCalculatorImpl(const ThProfileDefinitionImpl& profile,
                                                 double circumference)
    : m_chain(profile.nodes),
      m_circumference(circumference),
      m_isClockwise(profile.sense.isClockwise()) {
  m_crown = rawDerolmentOfCrown();
}

double ThProfileCalculatorImpl::rawDerolmentOf(double station) const {
  return m_isClockwise || station < kStartStation ? station : m_circumference - station;
}

double ThProfileCalculatorImpl::stationOf(double rawDerolment) const {
  const bool isSame = m_isClockwise || rawDerolment < kStartStation;
  double station = isSame ? rawDerolment : m_circumference - rawDerolment;
  Utilities::forceInRange(station, 0.0, m_circumference);
  return station;
}

ProfilePointResult ThProfileCalculatorImpl::profilePoint(const Point2D& p) const {
  const auto foot = m_chain.project(p);
  if (!foot) return ProfilePointResult();
  double derolment = rawDerolmentOf(foot->station) - m_crown;
  if (derolment < -m_circumference / 2.0) derolment += m_circumference;
  if (derolment > m_circumference / 2.0) derolment -= m_circumference;
  return ProfilePointResult(foot->point, foot->outside, derolment);
}

Point2D ThProfileCalculatorImpl::pointAtDerolment(double derolment) const {
  return pointAtRawDerolment(derolment + m_crown);
}

Point2D ThProfileCalculatorImpl::pointAtRawDerolment(double rawDerolment) const {
  if (rawDerolment < 0.0) rawDerolment += m_circumference;
  if (rawDerolment > m_circumference) rawDerolment -= m_circumference;
  return m_chain.pointAt(stationOf(rawDerolment)).value_or(Point2D());
}

std::vector<Point2D> ThProfileCalculatorImpl::vertices() const {
  std::vector<Point2D> points;
  if (!hasSegments()) return points;
  const std::size_t count = m_chain.nodes().size() - 1;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    points.push_back(m_chain.nodes()[i].point);
  }
  if (!m_isClockwise && points.size() >= 2) std::reverse(points.begin() + 1, points.end());
  return points;
}

/// A vertex is its own foot, so its station is that of its node, unless the chain has been there
/// before.
std::vector<double> ThProfileCalculatorImpl::rawDerolmentsOfVertices() const {
  std::vector<double> derolments;
  if (!hasSegments()) return derolments;
  const std::vector<CChainNode>& nodes = m_chain.nodes();
  const std::vector<bool> repeats = repeatsEarlierNode(nodes);
  derolments.reserve(nodes.size());
  for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
    const auto foot = repeats[i] ? m_chain.project(nodes[i].point) : std::nullopt;
    derolments.push_back(rawDerolmentOf(foot ? foot->station : nodes[i].station));
  }
  return derolments;
}

std::vector<Point2D> ThProfileCalculatorImpl::samples(double interval, double count,
                                                      bool includeVertices) const {
  const bool hasSamples = interval > 0.0 && std::isfinite(interval) && count >= 1.0;
  if (hasSamples && count > kMostSamples) return {};
  std::vector<double> derolments;
  if (includeVertices) derolments = rawDerolmentsOfVertices();
  const int numSamples = hasSamples ? static_cast<int>(count) : 0;
  double derolment = 0.0;
  for (int i = 0; i < numSamples; ++i) {
    derolments.push_back(derolment);
    derolment += interval;
  }
  const auto isNoNumber = [](double value) { return std::isnan(value); };
  derolments.erase(std::remove_if(derolments.begin(), derolments.end(), isNoNumber),
                   derolments.end());
  std::sort(derolments.begin(), derolments.end());
  const auto isSame = [](double kept, double next) { return next - kept <= kSameDerolment; };
  derolments.erase(std::unique(derolments.begin(), derolments.end(), isSame), derolments.end());
  std::vector<Point2D> points;
  points.reserve(derolments.size());
  for (const double sampled : derolments) {
    points.push_back(pointAtRawDerolment(sampled));
  }
  return points;
}

std::vector<Point2D> ThProfileCalculatorImpl::pointsAtUpOffset(double up) const {
  return intersectionsOf(m_chain.segments(), Point2D(-kReach, up), Point2D(kReach, up));
}

std::vector<Point2D> ThProfileCalculatorImpl::pointsAtRightOffset(double right) const {
  return intersectionsOf(m_chain.segments(), Point2D(right, -kReach), Point2D(right, kReach));
}

double ThProfileCalculatorImpl::diameterAt(const Point2D& p) const {
  double diameter = std::numeric_limits<double>::max();
  const auto foot = m_chain.project(p);
  if (!foot) return diameter;
  for (const Point2D& other :
       intersectionsOf(m_chain.segments(), foot->offsetPoint(-kReach), foot->offsetPoint(kReach))) {
    const double distance = (other - foot->point).length();
    if (distance > kSmallestDiameter) diameter = std::min(diameter, distance);
  }
  return diameter;
}

double ThProfileCalculatorImpl::rawDerolmentOfCrown() const {
  const double count = std::floor(m_circumference / kCrownInterval + 0.5);
  const std::vector<Point2D> outline = samples(kCrownInterval, count, true);
  if (outline.empty()) return 0.0;
  const double x = areaCentroid(outline).x;
  double highest = std::numeric_limits<double>::lowest();
  Point2D crown;
  for (const Point2D& point : pointsAtRightOffset(x)) {
    if (!(point.y > highest)) continue;
    highest = point.y;
    crown = point;
  }
  if (highest == std::numeric_limits<double>::lowest()) return 0.0;
  const auto foot = m_chain.project(crown);
  return foot ? rawDerolmentOf(foot->station) : 0.0;
}

}  // namespace Calculations
}  // namespace Ruv
