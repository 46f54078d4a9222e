// SPDX-License-Identifier: BSL-1.0
// A profile has three coordinates along it.
//
//   station        length from the first node in the order of the segments
//   raw derolment  length from the first node in the clockwise sense: r = s for a clockwise one,
//                  r = C - s for an anticlockwise one of circumference C
//   derolment      what callers see: d = r - r0 with the raw derolment r0 of the crown, moved by C
//                  into [-C/2, C/2]
//
// "Derolment" is the field's word for the unrolled length of an outline. The crown is the highest
// point of the profile on the vertical through the centroid of its area, which is taken of samples
// 0.1 m apart, vertices included.

#include "profiles/ThProfileCalculatorImpl.h"

#include "profiles/ProfileReach.h"
#include "profiles/RepeatedNodes.h"
#include "profiles/ThProfileDefinitionImpl.h"
#include "shapes/AreaCentroid.h"
#include "shapes/ChainIntersections.h"

#include <Calculations/Utilities.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// Up to this station (m) the start of an anticlockwise profile stays at its start instead of
/// moving on by a circumference. So between 0 and this station raw derolments run on as stations,
/// and only beyond it backwards from the circumference; stored results of callers rest on that.
constexpr double kStartStation = 0.0001;

/// Derolments this close (m) are one sample.
constexpr double kSameDerolment = 1e-9;

/// More samples than this are refused: their list would take hundreds of megabytes.
constexpr double kMostSamples = 1e7;

/// Interval (m) of the samples on which the crown is found. Derolments depend on it.
constexpr double kCrownInterval = 0.1;

/// A point of the profile this near (m) to the foot is the foot, not the other end of a diameter.
constexpr double kSmallestDiameter = 0.001;

}  // namespace

ThProfileCalculatorImpl::ThProfileCalculatorImpl(
    boost::shared_ptr<const ThProfileDefinition> profile)
    : m_profile(std::move(profile)),
      m_chain(ThProfileDefinitionImpl::of(*m_profile).nodes),
      m_circumference(m_profile->getCircumference()),
      m_isClockwise(m_profile->isDefinedClockwise()) {
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

double ThProfileCalculatorImpl::derolmentAt(double station) const {
  double derolment = rawDerolmentOf(station) - m_crown;
  // Just half a circumference keeps the sign that it comes with, as both signs name the place
  // opposite the crown.
  if (derolment < -m_circumference / 2.0) derolment += m_circumference;
  if (derolment > m_circumference / 2.0) derolment -= m_circumference;
  return derolment;
}

ProfilePointResult ThProfileCalculatorImpl::resultOf(const std::optional<CChainFoot>& foot) const {
  if (!foot) return ProfilePointResult();
  return ProfilePointResult(foot->point, foot->outside, derolmentAt(foot->station));
}

ProfilePointResult ThProfileCalculatorImpl::profilePoint(const Point2D& p) const {
  return resultOf(m_chain.project(p));
}

/// Points of a list mostly follow the profile, so each has its foot near that of the one before.
template <class Tell>
void ThProfileCalculatorImpl::findFeet(const Point2D* points, std::size_t count,
                                       const Tell& tell) const {
  std::size_t hint = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const auto foot = m_chain.project(points[i], hint);
    tell(i, foot);
    if (foot) hint = foot->segment;
  }
}

std::vector<ProfilePointResult> ThProfileCalculatorImpl::profilePoints(
    const std::vector<Point2D>& points) const {
  std::vector<ProfilePointResult> results;
  results.reserve(points.size());
  findFeet(points.data(), points.size(),
           [&](std::size_t, const auto& foot) { results.push_back(resultOf(foot)); });
  return results;
}

std::size_t ThProfileCalculatorImpl::profilePoints(const Point2D* points, std::size_t count,
                                                   ProfilePointResult* results) const {
  std::size_t numFound = 0;
  findFeet(points, count, [&](std::size_t i, const auto& foot) {
    results[i] = resultOf(foot);
    if (foot) ++numFound;
  });
  return numFound;
}

Point2D ThProfileCalculatorImpl::pointAtDerolment(double derolment) const {
  std::size_t end = 1;
  return pointAtRawDerolment(derolment + m_crown, end);
}

Point2D ThProfileCalculatorImpl::pointAtRawDerolment(double rawDerolment, std::size_t& end) const {
  if (rawDerolment < 0.0) rawDerolment += m_circumference;
  if (rawDerolment > m_circumference) rawDerolment -= m_circumference;
  return m_chain.pointAt(stationOf(rawDerolment), end).value_or(Point2D());
}

/// The start point comes first either way round; the closing node, which repeats it, is left out.
std::vector<Point2D> ThProfileCalculatorImpl::vertices() const {
  std::vector<Point2D> points;
  if (!hasSegments()) return points;
  const std::size_t count = m_chain.nodes().size() - 1;
  points.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    points.push_back(m_chain.nodes()[i].point);
  }
  if (!m_isClockwise) std::reverse(points.begin() + 1, points.end());
  return points;
}

/// A vertex is its own foot, so its station is that of its node, unless the chain has been there
/// before.
std::vector<double> ThProfileCalculatorImpl::sortedRawDerolmentsOfVertices() const {
  std::vector<double> derolments;
  const std::vector<CChainNode>& nodes = m_chain.nodes();
  const std::vector<bool> repeats = repeatsEarlierNode(nodes);
  derolments.reserve(nodes.size());
  for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
    const auto foot = repeats[i] ? m_chain.project(nodes[i].point) : std::nullopt;
    const double derolment = rawDerolmentOf(foot ? foot->station : nodes[i].station);
    if (!std::isnan(derolment)) derolments.push_back(derolment);
  }
  // The derolments of a clockwise profile mostly are in order.
  if (!std::is_sorted(derolments.begin(), derolments.end())) {
    std::sort(derolments.begin(), derolments.end());
  }
  return derolments;
}

std::vector<Point2D> ThProfileCalculatorImpl::samples(double interval, double count,
                                                      bool includeVertices) const {
  const bool hasSamples = interval > 0.0 && std::isfinite(interval) && count >= 1.0;
  if (hasSamples && count > kMostSamples) return {};
  std::vector<double> derolments;
  if (includeVertices) derolments = sortedRawDerolmentsOfVertices();
  const auto numVertices = static_cast<std::ptrdiff_t>(derolments.size());
  const int numSamples = hasSamples ? static_cast<int>(count) : 0;
  // Summed up and not multiplied: the crown, and with it every derolment, depends on these digits.
  double derolment = 0.0;
  for (int i = 0; i < numSamples; ++i) {
    derolments.push_back(derolment);
    derolment += interval;
  }
  // Both parts are ascending, the vertices and behind them the multiples.
  std::inplace_merge(derolments.begin(), derolments.begin() + numVertices, derolments.end());
  const auto isSame = [](double kept, double next) { return next - kept <= kSameDerolment; };
  derolments.erase(std::unique(derolments.begin(), derolments.end(), isSame), derolments.end());
  std::vector<Point2D> points;
  points.reserve(derolments.size());
  std::size_t end = 1;
  for (const double sampled : derolments) {
    points.push_back(pointAtRawDerolment(sampled, end));
  }
  return points;
}

std::vector<Point2D> ThProfileCalculatorImpl::pointsAtUpOffset(double up) const {
  return intersectionsOf(m_chain.segments(), Point2D(-kReach, up), Point2D(kReach, up));
}

std::vector<Point2D> ThProfileCalculatorImpl::pointsAtRightOffset(double right) const {
  return intersectionsOf(m_chain.segments(), Point2D(right, -kReach), Point2D(right, kReach));
}

/// The shortest of the chords that the normal through the foot cuts out of the profile. The foot
/// itself is among the intersections, hence the smallest length that counts.
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

/// Works on raw derolments only, as there is no crown yet. The crown is the start of the profile
/// where nothing lies on the vertical through the centroid; of equally high points the first in the
/// order of the segments counts.
double ThProfileCalculatorImpl::rawDerolmentOfCrown() const {
  const double count = std::floor(m_circumference / kCrownInterval + 0.5);
  const std::vector<Point2D> outline = samples(kCrownInterval, count, true);
  const auto surface = areaAndCentroid(outline);
  if (!surface) return 0.0;
  double highest = std::numeric_limits<double>::lowest();
  Point2D crown;
  for (const Point2D& point : pointsAtRightOffset(surface->centroid.x)) {
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
