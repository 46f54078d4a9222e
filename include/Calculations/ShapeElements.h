// SPDX-License-Identifier: BSL-1.0
/// @file
/// The elements of an axis, as AxisDefinition hands them out.

#ifndef CALCULATIONS_SHAPE_ELEMENTS_H
#define CALCULATIONS_SHAPE_ELEMENTS_H

#include <Calculations/Export.h>

#include <cstdint>

namespace Ruv {

/// Type ids of shape elements.
///
/// Conventions: one id for each kind of element that an axis holds.
/// Failure: CShapeBase::setTypeId stores any number; a segment of unknown type has no geometry.
/// Cost: constant.
/// @snippet snippets/Axes.cpp CHoralElement
struct CShapeType {
  /// Tells which kind of element it is.
  enum Id : std::int32_t {
    Untyped = 0,
    StartPoint = 1,
    Straight = 2,
    Arc = 3,
    Clothoid = 4,
    Gap = 7,
    VerticalKink = 8,
    VerticalArc = 9,
    VerticalParabola = 10,
    VerticalParabolaVariant = 11,
    TransverseSlope = 12
  };
};

class CShapeContainer;

/// An element of one of the stationing-ordered lists of an axis.
///
/// Conventions: lists are ordered by stationing (m).
/// Failure: none; an element without neighbour gives null.
/// Cost: constant; the first calculation after a change prepares the whole geometry anew.
/// Lifetime: elements belong to the axis that hands them out and live until the axis is destroyed
///   or the list is reset. Setters act on the axis at once, but the list keeps its order until the
///   next element is added. Not copyable: an element is linked to its neighbours.
/// @snippet snippets/Axes.cpp CHoralElement
class CALCULATIONS_EXPORT CShapeBase {
 public:
  CShapeBase();
  CShapeBase(const CShapeBase&) = delete;
  CShapeBase& operator=(const CShapeBase&) = delete;
  virtual ~CShapeBase();

  /// @name Extension hooks
  /// @{

  /// Does nothing and returns true; keeps the order of the virtual functions.
  virtual bool extensionHook1();
  virtual bool extensionHook2();
  virtual bool extensionHook3();
  /// @}

  /// True when other is null or stands at a greater stationing.
  virtual bool isLess(const CShapeBase* other) const;
  /// True when other is null or stands at a smaller stationing.
  virtual bool isGreater(const CShapeBase* other) const;

  /// @name Extension hooks, continued
  /// @{

  /// Does nothing and returns true; keeps the order of the virtual functions.
  virtual bool extensionHook4();
  virtual bool extensionHook5();
  virtual bool extensionHook6();
  virtual bool extensionHook7();
  virtual bool extensionHook8();
  /// @}

  /// A number that tells the element classes apart: 20 here, more in each derived class. It is
  /// not the size of the object.
  virtual int classSize() const;

  /// Plan length along the axis (m); for a horizontal element, where its segment ends.
  double getStationing() const { return m_stationing; }
  /// Moves the element along the axis.
  void setStationing(double stationing);
  /// The kind of element, one of CShapeType::Id.
  std::int32_t getTypeId() const { return m_typeId; }
  /// Makes it an element of another kind.
  void setTypeId(std::int32_t typeId);
  /// The following element of the same list, or null.
  CShapeBase* getNext() const { return m_next; }
  /// Links the element with the one after it, as the library's own lists do.
  void setNext(CShapeBase* next);
  /// The preceding element of the same list, or null.
  CShapeBase* getPrevious() const { return m_previous; }
  /// Links the element with the one before it, as the library's own lists do.
  void setPrevious(CShapeBase* previous);

 protected:
  /// Tells the axis that the element has changed.
  void noteChange();

 private:
  friend class CShapeContainer;

  double m_stationing = 0.0;
  std::int32_t m_typeId = CShapeType::Untyped;
  CShapeBase* m_next = nullptr;
  CShapeBase* m_previous = nullptr;
  CShapeContainer* m_container = nullptr;  // the owner, told of every change
};

/// The start point of the horizontal alignment, or the end of a straight, arc or clothoid. "Horal"
/// is short for horizontal alignment: the course of the axis in plan.
///
/// Units: metres.
/// Failure: none; conversions fail on a segment that was left without geometry.
/// Cost: constant; the first calculation after a change prepares the whole geometry anew.
/// @snippet snippets/Axes.cpp CHoralElement
class CALCULATIONS_EXPORT CHoralElement : public CShapeBase {
 public:
  CHoralElement();
  ~CHoralElement() override;

  int classSize() const override;

  /// @name End point
  /// @{

  /// Grid coordinates of the end point (m).
  double getEast() const { return m_east; }
  double getNorth() const { return m_north; }
  void setEast(double east);
  void setNorth(double north);
  /// @}

  /// @name Second point
  /// @{

  /// A further point that is kept with the element; no calculation uses it.
  double getSecondEast() const { return m_secondEast; }
  double getSecondNorth() const { return m_secondNorth; }
  void setSecondEast(double east);
  void setSecondNorth(double north);
  /// @}

  /// @name Radii at both ends
  /// @{

  /// The radius (m): positive curves to the right, 0 is infinite.
  double getRadiusStart() const { return m_radiusStart; }
  double getRadiusEnd() const { return m_radiusEnd; }
  void setRadiusStart(double radius);
  void setRadiusEnd(double radius);
  /// @}

  /// @name Clothoid
  /// @{

  /// The parameter A of a clothoid, else 0. Shown to callers; the geometry follows from the
  /// radii and the length.
  double getClothoidParameter() const { return m_clothoidParameter; }
  void setClothoidParameter(double parameter);
  /// @}

 private:
  friend class CShapeContainer;

  double m_east = 0.0;
  double m_north = 0.0;
  double m_secondEast = 0.0;
  double m_secondNorth = 0.0;
  double m_radiusStart = 0.0;
  double m_radiusEnd = 0.0;
  double m_clothoidParameter = 0.0;
  std::uint32_t m_definition;  // which of those that the axis keeps tells how it was defined
};

/// A point of the vertical alignment: a kink or a rounded point of intersection. "Veral" is short
/// for vertical alignment: the heights of the axis over its plan length.
///
/// Units: metres.
/// Failure: none.
/// Cost: constant; the first calculation after a change prepares the whole geometry anew.
/// @snippet snippets/Axes.cpp CVeralElement
class CALCULATIONS_EXPORT CVeralElement : public CShapeBase {
 public:
  CVeralElement();
  ~CVeralElement() override;

  int classSize() const override;

  /// Height of the point of intersection, not of the rounding (m).
  double getHeight() const { return m_height; }
  /// Lifts or lowers the point of intersection.
  void setHeight(double height);
  /// Radius of an arc, or the radius R of a parabola of curvature 1/R; 0 for a kink.
  double getRoundingValue() const { return m_roundingValue; }
  /// Changes the rounding; a kink has none and ignores it.
  void setRoundingValue(double value);

 private:
  double m_height = 0.0;
  double m_roundingValue = 0.0;
};

/// One end of a transverse-slope interval. An axis keeps these to itself.
///
/// Units: percent, positive when the right side is lower.
/// Failure: none.
/// Cost: constant.
/// @snippet snippets/Axes.cpp AxisDefinition
class CALCULATIONS_EXPORT CTransSlopeElement : public CShapeBase {
 public:
  CTransSlopeElement();
  ~CTransSlopeElement() override;

  int classSize() const override;

  /// Slope at this end of the interval (percent).
  double getSlope() const { return m_slope; }
  /// Changes the slope at this end of the interval (percent).
  void setSlope(double slope);

 private:
  double m_slope = 0.0;
};

}  // namespace Ruv

#endif
