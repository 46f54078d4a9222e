// SPDX-License-Identifier: BSL-1.0
/// @file
/// Guidance vectors and the factory that builds the common kinds.

#ifndef CALCULATIONS_GUIDANCE_VECTOR_DEFINITION_H
#define CALCULATIONS_GUIDANCE_VECTOR_DEFINITION_H

#include <Calculations/AxisDefinition.h>
#include <Calculations/Export.h>
#include <Calculations/Points.h>
#include <Calculations/ThProfileDefinition.h>

#include <boost/shared_ptr.hpp>

#include <memory>

namespace Ruv {
namespace Calculations {

class GuidanceVectorDefinitionImpl;

/// The line along which a machine is steered: from an origin in axis coordinates either parallel to
/// the axis, through all its curves, or straight in a fixed direction.
///
/// Direction: components relative to the axis at the origin: forward along its tangent, horizontal
///   to the right, vertical upwards. Whether forward is the inclined tangent or the level one is
///   chosen with the GuidanceCalculator.
/// Units: metres and radians. Angles are those of docs/conventions.md.
/// Failure: none; angles that belong to no direction give components that are not finite.
/// Cost: constant.
/// Lifetime: copying moves. The copy takes over what the source holds and leaves it empty; an
///   empty definition reads as a new one and a setter fills it anew.
/// @snippet snippets/Guidance.cpp GuidanceVectorDefinition
class CALCULATIONS_EXPORT GuidanceVectorDefinition {
 public:
  /// Origin (0, 0, 0), parallel to the axis.
  GuidanceVectorDefinition();
  /// Empties the other definition.
  GuidanceVectorDefinition(GuidanceVectorDefinition& other);
  /// Empties the other definition, unless it is this one.
  GuidanceVectorDefinition& operator=(GuidanceVectorDefinition& other);
  virtual ~GuidanceVectorDefinition();

  /// @name Origin and direction
  /// @{

  /// The axis point where the vector begins.
  void setVectorOriginPoint(const AxisPoint& origin);
  /// The axis point that was set; (0, 0, 0) at first.
  AxisPoint getVectorOriginPoint() const;

  /// Makes the vector parallel to the axis; the direction becomes (0, 0, 0).
  void setVectorDirectionAsAxisParallel();
  /// Makes the vector straight. The direction is stored as it is, not normalised.
  void setVectorDirectionAsStraight(const GuidanceOffsets& direction);
  /// The direction that was set; (0, 0, 0) at first.
  GuidanceOffsets getVectorDirection() const;
  /// True for a vector parallel to the axis, false for a straight one.
  bool isVectorDirectionAxisParallel() const;

  /// @}

  /// @name Projected angles
  /// @{

  /// The angles of the direction as seen along the axis, from above and from the side; see
  /// Utilities::getGuidanceAngleInFrontView and its siblings.
  double getGuidanceAngleProjectedInFrontViewPlane() const;
  double getGuidanceAngleProjectedInTopViewPlane() const;
  double getGuidanceAngleProjectedInSideViewPlane() const;
  /// @}

  /// @name Direction from projected angles
  /// @{

  /// Replaces the direction by one of the given length: a vector parallel to the axis stays so
  /// until setVectorDirectionAsStraight is called.
  void setVectorDirectionFromProjectedAnglesFrontAndTopViewPlane(double front, double top,
                                                                 double length);
  void setVectorDirectionFromProjectedAnglesTopAndSideViewPlane(double top, double side,
                                                                double length);
  void setVectorDirectionFromProjectedAnglesFrontAndSideViewPlane(double front, double side,
                                                                  double length);
  /// @}

 private:
  GuidanceVectorDefinitionImpl& filled();
  const GuidanceVectorDefinitionImpl& read() const;

  std::unique_ptr<GuidanceVectorDefinitionImpl> m_impl;
};

/// Creates guidance vectors. The caller owns them. Directions of straight vectors have length 1.
///
/// Conventions: those of GuidanceVectorDefinition; origins are axis points.
/// Failure: directions that are not numbers, as each function says; never null.
/// Cost: constant, but for a profile, which is prepared as by ThProfileCalculator, and for a pair
///   of axis points, which takes a few conversions by AxisCalculator.
/// @snippet snippets/Guidance.cpp GuidanceVectorFactory
class CALCULATIONS_EXPORT GuidanceVectorFactory {
 public:
  /// Makes a vector that follows all curves of the axis from an axis point on.
  static GuidanceVectorDefinition* createAsAxisParallelFromAxisCoordinate(const AxisPoint& origin);

  /// Makes a vector from an axis point in a direction of any length but zero, which gives
  /// not-a-number.
  static GuidanceVectorDefinition* createAsStraightFromAxisCoordinateAndVectorComponents(
      const AxisPoint& origin, const GuidanceOffsets& components);

  /// Makes a vector in the plane of the cross-section, at an angle from straight up towards the
  /// right.
  static GuidanceVectorDefinition* createAsStraightInProfilePlaneWithVerticalAngle(
      const AxisPoint& origin, double angle);

  /// Makes a vector in the plane of the cross-section, outwards along the profile's normal through
  /// the origin, wherever the origin lies. Not-a-number for a profile without segments.
  static GuidanceVectorDefinition* createAsStraightRadialFromAxisCoordinateAndProfile(
      const boost::shared_ptr<const ThProfileDefinition>& profile, const AxisPoint& origin);

  /// Makes a vector from one axis point towards another. Evaluated with the same perpendicular
  /// flag, the vector passes through both. The flags say how the points are read, see
  /// AxisCalculator. Not-a-number when a point cannot be converted, and when both are the same; a
  /// shaft goes straight on beyond its ends.
  static GuidanceVectorDefinition* createAsStraightFromPairOfAxisCoordinates(
      const boost::shared_ptr<const AxisDefinition>& axis, const AxisPoint& first,
      const AxisPoint& second, bool perpendicular, bool withTransSlope);
};

}  // namespace Calculations
}  // namespace Ruv

#endif
