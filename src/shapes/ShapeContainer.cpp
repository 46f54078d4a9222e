// SPDX-License-Identifier: BSL-1.0
// Callers see elements, which they may change at any time through setters and links. Conversions do
// not walk them: they work on CAxisGeometry, tables that are derived from all elements at the first
// question after a change and kept until the next one. So a setter has only to forget what was
// derived, and a million conversions derive once.

#include "shapes/ShapeContainer.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <utility>

namespace Ruv {

namespace {

/// What precedes an element, for the segment that ends there. Normally the element before it in
/// the list; a caller may have set another one, or none.
const CHoralElement* startOf(const CHoralElement& end, const CHoralElement* listed) {
  const CShapeBase* previous = end.getPrevious();
  return previous == listed ? listed : dynamic_cast<const CHoralElement*>(previous);
}

}  // namespace

template <class Element>
void CShapeList<Element>::reset() {
  m_elements.clear();
  m_numLinked = 0;
}

// The elements before m_numLinked are sorted and linked. As long as callers only append, and mostly
// in order of stationing, each added element finds its place by halving and moves pointers only
// where it belongs before the end. When a setter was used nothing is known any more, and all are
// sorted.
template <class Element>
void CShapeList<Element>::sortAndLinkAdded() {
  if (m_numLinked == 0) {
    std::stable_sort(m_elements.begin(), m_elements.end(),
                     [](const auto& a, const auto& b) { return a->isLess(b.get()); });
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
      link(i, i + 1);
    }
  } else {
    for (std::size_t i = m_numLinked; i < m_elements.size(); ++i) {
      insertLinked(i);
    }
  }
  m_numLinked = m_elements.size();
}

/// Moves the element at the index to its place among the sorted ones before it. It goes behind
/// those of equal stationing, which so keep the order of adding.
template <class Element>
void CShapeList<Element>::insertLinked(std::size_t index) {
  const auto added = m_elements.begin() + static_cast<std::ptrdiff_t>(index);
  auto place = added;
  if ((*added)->isLess((added - 1)->get())) {
    place = std::upper_bound(m_elements.begin(), added, *added,
                             [](const auto& a, const auto& b) { return a->isLess(b.get()); });
    std::rotate(place, added, added + 1);
  }
  link(static_cast<std::size_t>(place - m_elements.begin()), index + 1);
}

/// Links an element with both neighbours among the first ones, as many as numLinked tells.
template <class Element>
void CShapeList<Element>::link(std::size_t index, std::size_t numLinked) {
  Element* element = m_elements[index].get();
  CShapeContainer::join(index > 0 ? m_elements[index - 1].get() : nullptr, element);
  CShapeContainer::join(element, index + 1 < numLinked ? m_elements[index + 1].get() : nullptr);
}

/// Links two neighbours; null stands for the end of a list.
void CShapeContainer::join(CShapeBase* before, CShapeBase* after) {
  if (before != nullptr) before->m_next = after;
  if (after != nullptr) after->m_previous = before;
}

template <class Element>
void CShapeContainer::take(CShapeList<Element>& list, std::unique_ptr<Element> element) {
  element->m_container = this;
  list.append(std::move(element));
  m_geometry.forget();
}

void CShapeContainer::appendHoral(std::unique_ptr<CHoralElement> element) {
  take(m_horal, std::move(element));
}

std::unique_ptr<CHoralElement> CShapeContainer::horalElementOf(const CHoralEntry& entry) {
  auto element = std::make_unique<CHoralElement>();
  element->m_typeId = entry.typeId;
  element->m_stationing = entry.stationing;
  element->m_east = entry.end.x;
  element->m_north = entry.end.y;
  element->m_radiusStart = entry.radiusStart;
  element->m_radiusEnd = entry.radiusEnd;
  element->m_clothoidParameter = entry.clothoidParameter;
  return element;
}

void CShapeContainer::define(CHoralElement& element, const CHoralDefinition& definition) {
  m_definitions.push_back(definition);
  element.m_definition = static_cast<std::uint32_t>(m_definitions.size() - 1);
}

CHoralDefinition CShapeContainer::definitionOf(const CHoralElement& element) const {
  if (element.m_definition < m_definitions.size()) return m_definitions[element.m_definition];
  return {Point2D(kNotANumber, kNotANumber), kNotANumber, kNotANumber};
}

void CShapeContainer::appendVeral(std::unique_ptr<CVeralElement> element) {
  take(m_veral, std::move(element));
}

void CShapeContainer::appendTransSlope(std::unique_ptr<CTransSlopeElement> element) {
  take(m_transSlopes, std::move(element));
}

void CShapeContainer::resetHoral() {
  m_horal.reset();
  // No element is left that refers to them.
  m_definitions.clear();
  m_geometry.forget();
}

void CShapeContainer::resetVeral() {
  m_veral.reset();
  m_geometry.forget();
}

void CShapeContainer::resetTransSlope() {
  m_transSlopes.reset();
  m_geometry.forget();
}

/// Costs next to nothing for lists to which nothing was added.
void CShapeContainer::update() {
  m_horal.sortAndLink();
  m_veral.sortAndLink();
  m_transSlopes.sortAndLink();
}

/// An element knows neither which list it is in nor whether its order matters, so all are
/// distrusted.
void CShapeContainer::elementChanged() {
  m_horal.distrust();
  m_veral.distrust();
  m_transSlopes.distrust();
  m_geometry.forget();
}

void CShapeContainer::stationingRange(double& minimum, double& maximum) const {
  minimum = 0.0;
  maximum = 0.0;
  // The common range leads from the later one of the two starts to the earlier one of the two ends.
  if (m_veral.size() == 0) return;
  if (m_horal.size() > 0) {
    minimum = m_horal.at(0)->getStationing();
    maximum = m_horal.at(m_horal.size() - 1)->getStationing();
  }
  minimum = std::max(minimum, m_veral.at(0)->getStationing());
  maximum = std::min(maximum, m_veral.at(m_veral.size() - 1)->getStationing());
}

bool CShapeContainer::positionAt(double stationing, CAlignmentPosition& result) const {
  const auto position = geometry().horal.positionAt(stationing);
  if (position) result = *position;
  return position.has_value();
}

/// A segment leads from the element before it to its own; the first element is a start point only.
/// Its type and radii stand in the element that ends it, its start in the one before.
std::vector<CHoralSegmentData> CShapeContainer::horalSegments() const {
  std::vector<CHoralSegmentData> segments;
  if (m_horal.size() < 2) return segments;
  segments.reserve(m_horal.size() - 1);
  for (std::size_t i = 1; i < m_horal.size(); ++i) {
    const CHoralElement& end = *m_horal.at(i);
    const CHoralElement* start = startOf(end, m_horal.at(i - 1));
    CHoralSegmentData data;
    data.typeId = end.getTypeId();
    data.hasStart = start != nullptr;
    if (data.hasStart) {
      data.stationingStart = start->getStationing();
      data.start = {start->getEast(), start->getNorth()};
    }
    data.stationingEnd = end.getStationing();
    data.end = {end.getEast(), end.getNorth()};
    data.radiusStart = end.getRadiusStart();
    data.radiusEnd = end.getRadiusEnd();
    data.definedAzimuth = definitionOf(end).startAzimuth;
    segments.push_back(data);
  }
  return segments;
}

std::vector<CVeralPoint> CShapeContainer::veralPoints() const {
  std::vector<CVeralPoint> points;
  points.reserve(m_veral.size());
  for (std::size_t i = 0; i < m_veral.size(); ++i) {
    const CVeralElement& element = *m_veral.at(i);
    points.push_back({element.getTypeId(), element.getStationing(), element.getHeight(),
                      element.getRoundingValue()});
  }
  return points;
}

const CAxisGeometry& CShapeContainer::geometry() const {
  return m_geometry.get([this] { return derivedGeometry(); });
}

/// Everything that calculations need of the elements, worked out at once.
CAxisGeometry CShapeContainer::derivedGeometry() const {
  CAxisGeometry geometry;
  if (m_horal.size() > 0) {
    geometry.horal = CHoralAlignment(m_horal.at(0)->getStationing(), horalSegments());
  }
  geometry.veral = CVeralAlignment(veralPoints());
  std::vector<std::pair<double, double>> slopes;
  slopes.reserve(m_transSlopes.size());
  for (std::size_t i = 0; i < m_transSlopes.size(); ++i) {
    slopes.emplace_back(m_transSlopes.at(i)->getStationing(), m_transSlopes.at(i)->getSlope());
  }
  geometry.transSlopes = CTransSlopes(slopes);
  // One segment in plan and one grade are the least that has places with a height.
  geometry.isComplete = m_horal.size() >= 2 && m_veral.size() >= 2;
  stationingRange(geometry.minimumStationing, geometry.maximumStationing);
  return geometry;
}

}  // namespace Ruv
