// SPDX-License-Identifier: BSL-1.0
/// @file
/// The elements of one axis: three lists by stationing, and the geometry prepared from them.

#ifndef CALCULATIONS_SHAPES_SHAPE_CONTAINER_H
#define CALCULATIONS_SHAPES_SHAPE_CONTAINER_H

#include "foundation/DerivedOnDemand.h"
#include "foundation/MakeRoom.h"
#include "shapes/HoralAlignment.h"
#include "shapes/TransSlopes.h"
#include "shapes/VeralAlignment.h"

#include <Calculations/ShapeElements.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace Ruv {

/// A list of owned elements in order of stationing.
template <class Element>
class CShapeList {
 public:
  std::size_t size() const { return m_elements.size(); }
  /// Null when the index is out of range.
  Element* at(std::size_t index) const {
    return index < m_elements.size() ? m_elements[index].get() : nullptr;
  }
  /// Makes room, so that appending as many elements cannot fail.
  void makeRoom(std::size_t count) { makeRoomFor(count, m_elements); }
  void append(std::unique_ptr<Element> element) { m_elements.push_back(std::move(element)); }
  void reset();
  /// Sorts by stationing, elements of equal stationing in the order of adding, and links each
  /// element with its neighbours. Takes O(log n) steps for elements appended since the last call
  /// (and moves the pointers behind an element that belongs before the end).
  void sortAndLink() {
    if (m_numLinked < m_elements.size()) sortAndLinkAdded();
  }
  /// Stationings or links may have changed behind the list's back.
  void distrust() { m_numLinked = 0; }

 private:
  void sortAndLinkAdded();
  void insertLinked(std::size_t index);
  void link(std::size_t index, std::size_t numLinked);

  std::vector<std::unique_ptr<Element>> m_elements;
  std::size_t m_numLinked = 0;  // elements at the front that are sorted and linked
};

/// The fields of a horizontal element.
struct CHoralEntry {
  std::int32_t typeId = CShapeType::StartPoint;
  double stationing = 0.0;
  Point2D end;
  double radiusStart = 0.0;
  double radiusEnd = 0.0;
  double clothoidParameter = 0.0;
};

/// How a caller has defined a horizontal segment, of which the element stores the end.
struct CHoralDefinition {
  Point2D start;
  /// Settles the direction where the end points cannot, as on a full circle.
  double startAzimuth = 0.0;
  double endAzimuth = 0.0;
};

/// The prepared geometry of an axis.
struct CAxisGeometry {
  CHoralAlignment horal;
  CVeralAlignment veral;
  CTransSlopes transSlopes;
  double minimumStationing = 0.0;  ///< common range of horizontal and vertical alignment
  double maximumStationing = 0.0;
  bool isComplete = false;  ///< at least two horizontal elements and two vertical points
};

/// Owns the shape elements of an axis.
class CShapeContainer {
 public:
  CShapeContainer() = default;
  CShapeContainer(const CShapeContainer&) = delete;
  CShapeContainer& operator=(const CShapeContainer&) = delete;

  std::size_t numHoral() const { return m_horal.size(); }
  std::size_t numVeral() const { return m_veral.size(); }
  std::size_t numTransSlope() const { return m_transSlopes.size(); }

  /// Null when the index is out of range.
  CHoralElement* horalAt(std::size_t index) const { return m_horal.at(index); }
  CVeralElement* veralAt(std::size_t index) const { return m_veral.at(index); }
  CTransSlopeElement* transSlopeAt(std::size_t index) const { return m_transSlopes.at(index); }

  /// Make room for a segment and the start of its list, so that appending both cannot fail.
  /// @{
  void makeRoomForTwoHoral() { m_horal.makeRoom(2); }
  void makeRoomForTwoTransSlopes() { m_transSlopes.makeRoom(2); }
  /// @}

  /// An element of no list yet.
  static std::unique_ptr<CHoralElement> horalElementOf(const CHoralEntry& entry);
  /// Keeps the definition of a segment that is about to be appended.
  void define(CHoralElement& element, const CHoralDefinition& definition);
  void appendHoral(std::unique_ptr<CHoralElement> element);
  void appendVeral(std::unique_ptr<CVeralElement> element);
  void appendTransSlope(std::unique_ptr<CTransSlopeElement> element);

  void resetHoral();
  void resetVeral();
  void resetTransSlope();

  /// Sorts and relinks the lists; to be called after every change.
  void update();

  /// The common stationing range of the horizontal and vertical lists. (0, 0) without vertical
  /// points; minimum > maximum when the two do not overlap.
  void stationingRange(double& minimum, double& maximum) const;

  /// Evaluates the horizontal alignment; false outside it or on an element without geometry.
  bool positionAt(double stationing, CAlignmentPosition& result) const;

  /// The definition of the segment that ends at an element; not-a-number where the element was
  /// appended without one.
  CHoralDefinition definitionOf(const CHoralElement& element) const;
  static constexpr std::uint32_t kNoDefinition = std::numeric_limits<std::uint32_t>::max();

  std::vector<CVeralPoint> veralPoints() const;

  /// The geometry of the elements as they are now, prepared at the first call after a change.
  /// Threads that only read may call it at the same time.
  const CAxisGeometry& geometry() const;

  /// Called by elements whose setters were used.
  void elementChanged();

 private:
  template <class Element>
  friend class CShapeList;

  static void join(CShapeBase* before, CShapeBase* after);
  template <class Element>
  void take(CShapeList<Element>& list, std::unique_ptr<Element> element);
  std::vector<CHoralSegmentData> horalSegments() const;
  CAxisGeometry derivedGeometry() const;

  CShapeList<CHoralElement> m_horal;
  // Definitions are kept in the order of adding and apart from the elements, which they would make
  // too large for what memory allocators are quick to hand out.
  std::deque<CHoralDefinition> m_definitions;
  CShapeList<CVeralElement> m_veral;
  CShapeList<CTransSlopeElement> m_transSlopes;
  DerivedOnDemand<CAxisGeometry> m_geometry;
};

}  // namespace Ruv

#endif
