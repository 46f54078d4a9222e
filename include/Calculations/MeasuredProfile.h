// SPDX-License-Identifier: BSL-1.0
/// @file
/// Measured cross-sections.

#ifndef CALCULATIONS_MEASURED_PROFILE_H
#define CALCULATIONS_MEASURED_PROFILE_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>
#include <Calculations/ThProfileDefinition.h>

#include <memory>

namespace Ruv {
namespace Calculations {

class MeasuredProfileImpl;

/// A measured cross-section: a closed polygon of points.
///
/// Conventions: metres, x to the right, y up. Segment i runs from point i to the next, the last one
///   back to the first, so there are as many segments as points. All are straight.
/// Failure: nothing is refused; an index out of range gives (0, 0). Points that are not finite are
///   kept and handed out, but whatever is worked out from the profile leaves them out.
/// Cost: constant for a point or a segment.
/// Threads: may be shared by threads that only read. Not copyable.
/// @snippet snippets/Profiles.cpp MeasuredProfile
class CALCULATIONS_EXPORT MeasuredProfile : public IProfileSegmentProvider {
 public:
  MeasuredProfile();
  MeasuredProfile(const MeasuredProfile&) = delete;
  MeasuredProfile& operator=(const MeasuredProfile&) = delete;
  ~MeasuredProfile() override;

  /// Appends a point.
  void addPoint(const Point2D& point);
  /// Removes all points.
  void reset();

  /// Number of points that were added.
  unsigned int getNumPoints() const;
  /// The point of an index; (0, 0) when it is out of range.
  Point2D getPointAt(unsigned int index) const;

  /// There are as many segments as points: the last one closes the polygon.
  unsigned int getNumSegments() const override;
  /// The point of the same index, where the segment starts.
  Point2D getSegmentStartAt(unsigned int index) const override;
  /// The next point, or the first one for the last segment. (0, 0) for an empty profile and an
  /// index out of range; the only point for a profile of one.
  Point2D getSegmentEndAt(unsigned int index) const override;
  /// Always 0, as all segments are straights.
  double getSegmentRadiusAt(unsigned int index) const override;
  /// Length of the polygon of finite points, the closing segment included; 0 for fewer than two
  /// points. O(n).
  double getCircumference() const override;

 private:
  friend class MeasuredProfileImpl;

  std::unique_ptr<MeasuredProfileImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
