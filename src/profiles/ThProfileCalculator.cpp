// SPDX-License-Identifier: BSL-1.0
// Argument handling only; ThProfileCalculatorImpl has the geometry and the three ways to count
// along a profile.

#include <Calculations/ThProfileCalculator.h>

#include "profiles/ThProfileCalculatorImpl.h"

#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

IProfileCalculator::IProfileCalculator() = default;
IProfileCalculator::~IProfileCalculator() = default;

ThProfileCalculator::ThProfileCalculator(
    const boost::shared_ptr<const ThProfileDefinition>& profile)
    : m_impl(new ThProfileCalculatorImpl(
          profile ? profile
                  : boost::shared_ptr<const ThProfileDefinition>(new ThProfileDefinition))) {}

ThProfileCalculator::~ThProfileCalculator() = default;

ProfilePointResult ThProfileCalculator::calculateProfilePoint(const Point2D& point) const {
  return m_impl->profilePoint(point);
}

std::vector<ProfilePointResult> ThProfileCalculator::calculateProfilePoints(
    const std::vector<Point2D>& points) const {
  return m_impl->profilePoints(points);
}

std::size_t ThProfileCalculator::calculateProfilePoints(const Point2D* in, std::size_t count,
                                                        ProfilePointResult* out) const {
  return m_impl->profilePoints(in, count, out);
}

Point2D ThProfileCalculator::applyRadialOffset(const Point2D& p, double offset) const {
  const auto foot = m_impl->footOf(p);
  return foot ? foot->offsetPoint(offset) : Point2D();
}

Point2D ThProfileCalculator::calcPointOnProfileAtDerolment(double derolment) const {
  return m_impl->pointAtDerolment(derolment);
}

double ThProfileCalculator::diameterAtProfilePoint(const Point2D& p) const {
  return m_impl->diameterAt(p);
}

std::vector<Point2D> ThProfileCalculator::pointsOnProfileByInterval(double interval,
                                                                    bool includeVertices) const {
  // Rounded to the nearest number, so that an interval which divides the circumference but for
  // rounding gets all its samples. The gap from the last one back to the start is between a half
  // and one and a half intervals.
  const double count = std::floor(m_impl->circumference() / interval + 0.5);
  return m_impl->samples(interval, count, includeVertices);
}

std::vector<Point2D> ThProfileCalculator::pointsOnProfileByFixedNumber(unsigned int count,
                                                                       double* interval) const {
  // For no points the step is infinite, and there are no samples.
  const double step = m_impl->circumference() / static_cast<double>(count);
  if (interval != nullptr) *interval = step;
  return m_impl->samples(step, static_cast<double>(count), false);
}

std::vector<Point2D> ThProfileCalculator::vertexPoints() const { return m_impl->vertices(); }

std::vector<Point2D> ThProfileCalculator::profilePointsAtGivenUpOffset(double up) const {
  return m_impl->pointsAtUpOffset(up);
}

std::vector<Point2D> ThProfileCalculator::profilePointsAtGivenRightOffset(double right) const {
  return m_impl->pointsAtRightOffset(right);
}

}  // namespace Calculations
}  // namespace Ruv
