// SPDX-License-Identifier: BSL-1.0
/// @file
/// Theoretical profiles, and the interface through which any profile is read.

#ifndef CALCULATIONS_TH_PROFILE_DEFINITION_H
#define CALCULATIONS_TH_PROFILE_DEFINITION_H

#include <Calculations/Export.h>
#include <Calculations/Points.h>

#include <memory>

namespace Ruv {
namespace Calculations {

class ThProfileDefinitionImpl;

/// Reads the segments of a profile: straights and circular arcs in the plane of a cross-section.
///
/// Conventions: metres, x to the right, y up.
/// Failure: an index out of range gives (0, 0) or 0.
/// Cost: constant, but linear in the number of segments for the circumference.
/// @snippet snippets/Profiles.cpp IProfileSegmentProvider
class CALCULATIONS_EXPORT IProfileSegmentProvider {
 public:
  IProfileSegmentProvider();
  IProfileSegmentProvider(const IProfileSegmentProvider& other);
  IProfileSegmentProvider& operator=(const IProfileSegmentProvider& other);
  virtual ~IProfileSegmentProvider();

  /// @name Segments
  /// @{

  /// Segments count from 0 in the order of the chain.
  virtual unsigned int getNumSegments() const = 0;
  virtual Point2D getSegmentStartAt(unsigned int index) const = 0;
  virtual Point2D getSegmentEndAt(unsigned int index) const = 0;
  /// The radius is 0 for a straight, positive for an arc traversed clockwise around its centre,
  /// negative for one traversed anticlockwise.
  virtual double getSegmentRadiusAt(unsigned int index) const = 0;
  /// @}

  /// Length of all segments.
  virtual double getCircumference() const = 0;
};

/// The design cross-section of a tunnel: a chain of straights and arcs, added in order.
///
/// Conventions: metres, x to the right, y up.
/// Arcs: an arc is the minor arc between its end points, at most a half circle. A positive radius
///   has its centre to the right of the chord, so the arc bulges to the left of travel.
/// Chain: each segment runs from the end of the one before it to its own end. The start point
///   given with a segment counts for the first one only; for the others it enters the stations
///   that are kept along the chain, so it should repeat the end before it.
/// Failure: nothing is refused. An arc whose chord exceeds its diameter has no length
///   (not-a-number), nor has a segment with a coordinate that is not finite; one whose end points
///   coincide has length 0. An index out of range gives (0, 0) or 0.
/// Cost: adding takes constant time, also for the sense of travel.
/// Threads: may be shared by threads that only read. Not copyable.
/// @snippet snippets/Profiles.cpp ThProfileDefinition
class CALCULATIONS_EXPORT ThProfileDefinition : public IProfileSegmentProvider {
 public:
  ThProfileDefinition();
  ThProfileDefinition(const ThProfileDefinition&) = delete;
  ThProfileDefinition& operator=(const ThProfileDefinition&) = delete;
  ~ThProfileDefinition() override;

  /// Removes all segments. The sense of travel stays as it was until there are two again.
  void resetThProfile();

  /// Adds a straight from a start point to an end point.
  /// @return true
  bool addSegmentStraight(double startX, double startY, double endX, double endY);
  /// Adds an arc from a start point to an end point with a radius signed as above; a radius of 0
  /// adds an arc that consumers take for a straight.
  /// @return true
  bool addSegmentArc(double startX, double startY, double endX, double endY, double radius);

  /// True when the corners turn clockwise in sum: over consecutive end points, arcs counted by
  /// their ends only, and from the last back to the second, as a closed profile repeats its first
  /// point. False for a new profile; with fewer than two segments it keeps its value.
  bool isDefinedClockwise() const;

  /// Number of segments that were added.
  unsigned int getNumSegments() const override;
  /// The end of the segment before; for the first segment the point that was given.
  Point2D getSegmentStartAt(unsigned int index) const override;
  /// The end point as it was added.
  Point2D getSegmentEndAt(unsigned int index) const override;
  /// The radius as it was added; 0 for a straight.
  double getSegmentRadiusAt(unsigned int index) const override;
  /// Length of all segments; 0 for fewer than two segments. O(n).
  double getCircumference() const override;

 private:
  friend class ThProfileDefinitionImpl;

  std::unique_ptr<ThProfileDefinitionImpl> m_impl;
};

}  // namespace Calculations
}  // namespace Ruv

#endif
