// SPDX-License-Identifier: BSL-1.0
/// @file
/// The geometry behind ThProfileCalculator.

#ifndef CALCULATIONS_PROFILES_TH_PROFILE_CALCULATOR_IMPL_H
#define CALCULATIONS_PROFILES_TH_PROFILE_CALCULATOR_IMPL_H

#include "shapes/CurveChain.h"

#include <Calculations/ProfilePointResult.h>
#include <Calculations/ThProfileDefinition.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

/// Derolments inside are raw: lengths along the profile in the clockwise sense from its first
/// node. Public ones count from the crown.
class ThProfileCalculatorImpl {
 public:
  explicit ThProfileCalculatorImpl(boost::shared_ptr<const ThProfileDefinition> profile);

  double circumference() const { return m_circumference; }
  bool hasSegments() const { return m_chain.nodes().size() >= 2; }

  ProfilePointResult profilePoint(const Point2D& p) const;
  std::vector<ProfilePointResult> profilePoints(const std::vector<Point2D>& points) const;
  std::size_t profilePoints(const Point2D* points, std::size_t count,
                            ProfilePointResult* results) const;
  std::optional<CChainFoot> footOf(const Point2D& p) const { return m_chain.project(p); }
  /// (0, 0) where the profile has no point.
  Point2D pointAtDerolment(double derolment) const;

  /// All vertices but the closing one, clockwise from the first.
  std::vector<Point2D> vertices() const;
  /// Points at the multiples of an interval, as many as fit when rounded, and at the vertices.
  std::vector<Point2D> samples(double interval, double count, bool includeVertices) const;
  std::vector<Point2D> pointsAtUpOffset(double up) const;
  std::vector<Point2D> pointsAtRightOffset(double right) const;
  /// The largest double when nothing lies across.
  double diameterAt(const Point2D& p) const;

 private:
  /// Shows tell() the foot of each point, if it has one.
  template <class Tell>
  void findFeet(const Point2D* points, std::size_t count, const Tell& tell) const;
  ProfilePointResult resultOf(const std::optional<CChainFoot>& foot) const;
  /// Derolment as callers see it, counted from the crown.
  double derolmentAt(double station) const;
  double rawDerolmentOf(double station) const;
  double stationOf(double rawDerolment) const;
  /// @param end as CCurveChain::pointAt takes it
  Point2D pointAtRawDerolment(double rawDerolment, std::size_t& end) const;
  /// Those that are not a number are left out.
  std::vector<double> sortedRawDerolmentsOfVertices() const;
  double rawDerolmentOfCrown() const;

  boost::shared_ptr<const ThProfileDefinition> m_profile;  // kept alive, read only once
  CCurveChain m_chain;
  double m_circumference;
  bool m_isClockwise;
  double m_crown = 0.0;  // raw derolment of the crown
};

}  // namespace Calculations
}  // namespace Ruv

#endif
