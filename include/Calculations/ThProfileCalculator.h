// SPDX-License-Identifier: BSL-1.0
/// @file
/// Positions of points relative to a theoretical profile.

#ifndef CALCULATIONS_TH_PROFILE_CALCULATOR_H
#define CALCULATIONS_TH_PROFILE_CALCULATOR_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>
#include <Calculations/ProfilePointResult.h>
#include <Calculations/ThProfileDefinition.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <memory>
#include <vector>

namespace Ruv {
namespace Calculations {

class ThProfileCalculatorImpl;

/// Tells where points lie relative to a profile, theoretical or measured.
///
/// Conventions: those of ThProfileCalculator.
/// Failure: a profile without segments gives zero results.
/// Cost: that of the calculator behind it, ThProfileCalculator or MeasuredProfileCalculator.
/// @snippet snippets/Profiles.cpp IProfileCalculator
class CALCULATIONS_EXPORT IProfileCalculator {
 public:
  IProfileCalculator();
  virtual ~IProfileCalculator();

  /// Nearest point of the profile, signed distance and derolment; all zero when there is none.
  virtual ProfilePointResult calculateProfilePoint(const Point2D& point) const = 0;
  /// The same for every point, in order.
  virtual std::vector<ProfilePointResult> calculateProfilePoints(
      const std::vector<Point2D>& points) const = 0;
};

/// Geometry of one theoretical profile.
///
/// Conventions: metres, x to the right, y up. Pictures: docs/conventions.md.
/// Derolment: the place on the profile when its outline is unrolled, which is the length along it,
///   positive clockwise from the crown, in [-C/2, C/2] for a circumference C. The crown is the
///   highest point above the area's centroid, found on samples 0.1 m apart, so on arcs it is good
///   to a few micrometres.
/// Distance: positive outside the profile, negative inside, whichever way round it was entered.
/// Failure: nothing throws but std::bad_alloc. A profile without segments, or a point that is not
///   finite, gives zero results, the distance too, empty lists, or the largest double where a
///   diameter is asked for. Of an arc whose chord exceeds its diameter only the ends count. Where a
///   point of the profile is not finite both its segments are missing, and derolments are of no
///   use.
/// Cost: constructing takes O(C / 0.1 m + n log n), a point O(log n) near the profile.
/// Lifetime: shares ownership of the profile. It is read when the calculator is constructed; later
///   changes to it are not seen.
/// Threads: may be shared. Not copyable.
/// @snippet snippets/Profiles.cpp ThProfileCalculator
class CALCULATIONS_EXPORT ThProfileCalculator : public IProfileCalculator {
 public:
  /// A null pointer counts as an empty profile.
  ThProfileCalculator(const boost::shared_ptr<const ThProfileDefinition>& profile);
  ThProfileCalculator(const ThProfileCalculator&) = delete;
  ThProfileCalculator& operator=(const ThProfileCalculator&) = delete;
  ~ThProfileCalculator() override;

  ProfilePointResult calculateProfilePoint(const Point2D& point) const override;
  std::vector<ProfilePointResult> calculateProfilePoints(
      const std::vector<Point2D>& points) const override;
  /// The same without a list of results of its own.
  /// @param      in    the points; may be null when there are none
  /// @param      count how many there are
  /// @param[out] out   as many places; all zero where a point has no foot
  /// @return the number of points that have a foot
  std::size_t calculateProfilePoints(const Point2D* in, std::size_t count,
                                     ProfilePointResult* out) const;

  /// The point at a distance from the profile on the normal through p: outside for a positive
  /// offset, inside for a negative one. (0, 0) when p has no foot on the profile.
  Point2D applyRadialOffset(const Point2D& p, double offset) const;

  /// The inverse of calculateProfilePoint on the profile. Derolments may lie up to one
  /// circumference outside their range; those farther out give an end of the profile. (0, 0) for
  /// an empty profile and for not-a-number.
  Point2D calcPointOnProfileAtDerolment(double derolment) const;

  /// The distance from the foot of p across the profile along its normal, to the nearest other
  /// point of the profile within 1000 m; the largest double when there is none.
  double diameterAtProfilePoint(const Point2D& p) const;

  /// @name Samples
  /// Clockwise from the profile's start point. Empty for more than 1e7 samples; an interval that is
  /// not positive gives none but the vertices asked for.
  /// @{

  /// Points at equal distances along the profile.
  /// @param interval along the profile (m); the number of samples is the circumference divided by
  ///   it, rounded
  /// @param includeVertices add the end points of all segments in their places
  std::vector<Point2D> pointsOnProfileByInterval(double interval, bool includeVertices) const;
  /// A given number of points at equal distances along the profile.
  /// @param      count of the points
  /// @param[out] interval if not null, the circumference divided by the count
  std::vector<Point2D> pointsOnProfileByFixedNumber(unsigned int count, double* interval) const;
  /// End points of all segments but the last, clockwise from the start point.
  std::vector<Point2D> vertexPoints() const;
  /// @}

  /// @name Intersections with a horizontal or vertical line
  /// @{

  /// Points are in the order of the segments and lie within 1000 m of the origin.
  std::vector<Point2D> profilePointsAtGivenUpOffset(double up) const;
  std::vector<Point2D> profilePointsAtGivenRightOffset(double right) const;
  /// @}

 private:
  std::unique_ptr<ThProfileCalculatorImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
