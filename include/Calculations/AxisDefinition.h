// SPDX-License-Identifier: BSL-1.0
/// @file
/// The tunnel axis and the factory that creates it.

#ifndef CALCULATIONS_AXIS_DEFINITION_H
#define CALCULATIONS_AXIS_DEFINITION_H

#include <Calculations/Export.h>
#include <Calculations/PointLists.h>
#include <Calculations/ShapeElements.h>

#include <memory>
#include <vector>

namespace Ruv {
namespace Calculations {

class AxisDefinitionImpl;

/// How far a horizontal segment, as it was entered, is from continuing the one before it.
///
/// Units: metres and radians.
/// Failure: none; not-a-number where a coordinate or azimuth of the axis is none.
/// Cost: constant.
/// @snippet snippets/Axes.cpp Misclosure
struct Misclosure {
  /// Distance (m) from the end of the segment before to the start point given with this one; 0 or
  /// more.
  double distance = 0.0;
  /// Angle (rad) from the direction in which the segment before ends to the azimuth given with this
  /// one, positive to the right, in [-pi, pi).
  double directionBreak = 0.0;
};

/// A tunnel axis: horizontal segments, vertical points and transverse slopes over one plan
/// stationing, or a vertical shaft.
///
/// Two words of the interface are short forms: "Horal" is the horizontal alignment, the course of
/// the axis in plan, and "Veral" the vertical alignment, its heights over the plan length. "Stng"
/// is the stationing.
///
/// Units: metres; azimuths in radians, clockwise from north; transverse slopes in percent,
///   positive when the right side is lower. A positive radius curves to the right, a radius of 0
///   is infinite. Pictures: docs/conventions.md.
/// Order: elements are kept by stationing, those of equal stationing in the order of adding.
///   Intervals of transverse slope must be added in ascending order: a later one that ends where
///   an earlier one begins takes its place there, and slopes between them come out wrong. The first
///   horizontal segment added must be the first of the axis: only that one sets the start point.
///   The other horizontal segments and the vertical points may be added in any order, but for
///   those that share a stationing, which ascend as they are added.
/// Chain: a segment leads from the end of the one before it to its own end, so its start
///   stationing, start point and azimuth must continue the chain. A deviation of up to 5 mm, as
///   printed coordinates have, is spread evenly along the segment, which keeps its azimuth. With a
///   larger one the segment is turned and scaled to fit between the two ends, whatever comes out;
///   misclosures() tells where that happens.
/// Failure: an add operation is refused (false, nothing stored) only for the type of the axis,
///   never for its geometry. A segment without geometry ends where it starts, and conversions fail
///   on it: an arc of radius 0 or of more than a full circle, a clothoid that turns more than 100
///   rad at its sharper curvature (length over the smaller radius), one of no length, or one with
///   a value that is not finite.
/// Cost: adding in order of stationing takes O(log n). The first calculation after a change
///   prepares the whole geometry, O(n).
/// Threads: may be shared by threads that only read.
/// Lifetime: created by AxisDefinitionFactory. Not copyable.
/// @snippet snippets/Axes.cpp AxisDefinition
class CALCULATIONS_EXPORT AxisDefinition {
 public:
  AxisDefinition(const AxisDefinition&) = delete;
  AxisDefinition& operator=(const AxisDefinition&) = delete;
  virtual ~AxisDefinition();

  /// @name Kind and range
  /// @{

  /// Whether it was created as an axis in plan and profile, or as a shaft.
  bool isTypeHoralVeral() const;
  bool isShaftAxis() const;
  /// True for a shaft whose stationing grows downwards.
  bool isShaftAxisTopDown() const;
  /// Range of stationings that the horizontal and the vertical alignment share; for a shaft that
  /// of its two vertical points. Both limits are 0.0 while the axis lacks two vertical points or,
  /// not being a shaft, two horizontal entries. The lower limit exceeds the upper one when the
  /// alignments do not overlap.
  double minimumStng2d() const;
  double maximumStng2d() const;  ///< the upper end of that range
  /// @}

  /// @name Emptying a list
  /// @{

  /// Removes all elements of the list; the kind of the axis stays.
  void resetHoral();
  void resetVeral();
  void resetTransSlope();
  /// @}

  /// @name Horizontal segments
  /// @{

  /// Adds a segment that starts at a stationing and point in a direction (the azimuth) and has a
  /// length and, as an arc, a radius. A shaft takes only the start point of its first straight.
  /// @return false on another kind of axis, and on a shaft that has its point
  bool addHoralSegmentStraight(double stationing, double east, double north, double azimuth,
                               double length);
  bool addHoralSegmentArc(double stationing, double east, double north, double azimuth,
                          double radius, double length);
  /// Adds a segment like the others, but its curvature changes linearly: it is 1 / radiusStart at
  /// the start and 1 / radiusEnd at the end. Radii of different sign give an S-curve; equal radii
  /// an arc, which may go round more than once.
  bool addHoralSegmentClothoid(double stationing, double east, double north, double azimuth,
                               double radiusStart, double radiusEnd, double length);
  /// @}

  /// @name Vertical points of intersection
  /// The rounding lies on the concave side whatever the sign of its value. One that reaches into
  /// another or beyond a neighbour is accepted; the height then jumps where the earlier one ends.
  /// @{

  /// Adds a point that is not rounded. @return false on a shaft that has its two points, and on an
  /// untyped axis
  bool addVeralPointKink(double stationing, double height);
  /// Rounded by a circle. @return false unless the axis has horizontal and vertical alignment
  bool addVeralPointArc(double stationing, double height, double radius);
  /// Rounded by a parabola whose curvature over the stationing is 1 / value.
  /// @return false unless the axis has horizontal and vertical alignment
  bool addVeralPointParabola(double stationing, double height, double value);
  /// @}

  /// @name Transverse slopes
  /// @{

  /// An interval of constant or linearly changing slope (percent). Outside all intervals the slope
  /// is 0, between two of them it changes linearly. Where two meet, the earlier one's end value
  /// holds.
  /// @return false unless the axis has horizontal and vertical alignment
  bool addTransSlopeSegmentConstant(double stationingFrom, double stationingTo, double slope);
  bool addTransSlopeSegmentLinear(double stationingFrom, double stationingTo, double slopeFrom,
                                  double slopeTo);
  /// @}

  /// @name Elements
  /// @{

  /// The number of segments or points, 0 on a shaft.
  unsigned getNumHoralSegments() const;
  unsigned getNumVeralPoints() const;
  /// The element that ends the segment, a CHoralElement; null on a shaft and when the index is out
  /// of range.
  CShapeBase* getHoralSegmentAt(unsigned index) const;
  /// The element of a vertical point, a CVeralElement; null on a shaft and when the index is out of
  /// range.
  CShapeBase* getVeralPointAt(unsigned index) const;
  /// How well the segments continue each other: one entry for each horizontal segment, the first
  /// zero. Its distance is not zero when another segment than the first was added first. Look at
  /// it once an axis is entered, and refuse the axis when a distance exceeds what printing
  /// explains: beyond 5 mm a gap bends the segment after it. A start stationing that leaves a gap
  /// does the same; it is not seen here, but from getStationing() of the element before. O(n).
  std::vector<Misclosure> misclosures() const;
  /// @}

  /// @name Sampled polylines
  /// The step is forced into [0.1, 100] m. Curves longer than 1e7 steps give their ends only.
  /// Empty on a shaft.
  /// @{

  /// East and north along one segment; places that cannot be evaluated are left out.
  Polyline getHoralSegmentPolylineAt(unsigned index, double step) const;
  /// Stationing and height of one vertical point: the point itself, or its rounding.
  Polyline getVeralPointPolylineAt(unsigned index, double step) const;
  /// Stationing and height along the whole vertical alignment, without repeats. Never runs back:
  /// where roundings overlap the earlier one is followed to its end.
  Polyline getVeralPolyline(double step) const;
  /// @}

  /// @name Tunnel meter
  /// @{

  /// Ties the length in space along the axis to the stationing: at stationing origin2d the tunnel
  /// meter is value3dAtOrigin. Both are 0.0 at first.
  void setStationingMappingValues(double origin2d, double value3dAtOrigin);
  double getStationingMappingOrigin2d() const;
  double getStationingMappingValue3dAtOrigin() const;
  /// @}

  /// What the library's calculators, which are no friends of the axis, work on. The type is the
  /// library's own: callers can do nothing with it. It is public because it belongs to the
  /// interface that programs are linked with.
  AxisDefinitionImpl* getImpl() const;

 private:
  friend class AxisDefinitionFactory;

  AxisDefinition();

  std::unique_ptr<AxisDefinitionImpl> m_impl;
};

/// Creates axes. The caller owns them.
///
/// Conventions: those of AxisDefinition.
/// Failure: none; a shaft is accepted as it is, whatever its heights.
/// Cost: constant.
/// @snippet snippets/Axes.cpp AxisDefinitionFactory
class CALCULATIONS_EXPORT AxisDefinitionFactory {
 public:
  /// An axis without elements, to be filled with horizontal segments and vertical points.
  static AxisDefinition* createHoralVeralAxis();

  /// A vertical shaft. Its stationing runs over the height difference, from stationingStart at
  /// heightStart, whichever way the shaft runs.
  static AxisDefinition* createShaftAxis(double east, double north, double heightStart,
                                         double heightEnd, double stationingStart);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
