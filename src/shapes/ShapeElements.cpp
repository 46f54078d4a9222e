// SPDX-License-Identifier: BSL-1.0
// Every setter on which geometry depends tells the axis, which then derives its geometry anew. The
// second point and the parameter of a clothoid only tell callers something, so setting them changes
// nothing.

#include <Calculations/ShapeElements.h>

#include "shapes/ShapeContainer.h"

namespace Ruv {

namespace {

// Callers tell the classes apart by these numbers: a base value and a share for each derived class.
constexpr int kBaseClassSize = 20;
constexpr int kHoralShare = 32;
constexpr int kVeralShare = 16;
constexpr int kTransSlopeShare = 8;

}  // namespace

CShapeBase::CShapeBase() = default;

CShapeBase::~CShapeBase() = default;

bool CShapeBase::extensionHook1() { return true; }

bool CShapeBase::extensionHook2() { return true; }

bool CShapeBase::extensionHook3() { return true; }

bool CShapeBase::isLess(const CShapeBase* other) const {
  return other == nullptr || m_stationing < other->m_stationing;
}

bool CShapeBase::isGreater(const CShapeBase* other) const {
  return other == nullptr || m_stationing > other->m_stationing;
}

bool CShapeBase::extensionHook4() { return true; }

bool CShapeBase::extensionHook5() { return true; }

bool CShapeBase::extensionHook6() { return true; }

bool CShapeBase::extensionHook7() { return true; }

bool CShapeBase::extensionHook8() { return true; }

int CShapeBase::classSize() const { return kBaseClassSize; }

void CShapeBase::noteChange() {
  if (m_container != nullptr) m_container->elementChanged();
}

void CShapeBase::setStationing(double stationing) {
  m_stationing = stationing;
  noteChange();
}

void CShapeBase::setTypeId(std::int32_t typeId) {
  m_typeId = typeId;
  noteChange();
}

void CShapeBase::setNext(CShapeBase* next) {
  m_next = next;
  noteChange();
}

void CShapeBase::setPrevious(CShapeBase* previous) {
  m_previous = previous;
  noteChange();
}

CHoralElement::CHoralElement() : m_definition(CShapeContainer::kNoDefinition) {}

CHoralElement::~CHoralElement() = default;

int CHoralElement::classSize() const { return CShapeBase::classSize() + kHoralShare; }

void CHoralElement::setEast(double east) {
  m_east = east;
  noteChange();
}

void CHoralElement::setNorth(double north) {
  m_north = north;
  noteChange();
}

void CHoralElement::setSecondEast(double east) { m_secondEast = east; }

void CHoralElement::setSecondNorth(double north) { m_secondNorth = north; }

void CHoralElement::setRadiusStart(double radius) {
  m_radiusStart = radius;
  noteChange();
}

void CHoralElement::setRadiusEnd(double radius) {
  m_radiusEnd = radius;
  noteChange();
}

void CHoralElement::setClothoidParameter(double parameter) { m_clothoidParameter = parameter; }

CVeralElement::CVeralElement() = default;

CVeralElement::~CVeralElement() = default;

int CVeralElement::classSize() const { return CShapeBase::classSize() + kVeralShare; }

void CVeralElement::setHeight(double height) {
  m_height = height;
  noteChange();
}

void CVeralElement::setRoundingValue(double value) {
  m_roundingValue = value;
  noteChange();
}

CTransSlopeElement::CTransSlopeElement() = default;

CTransSlopeElement::~CTransSlopeElement() = default;

int CTransSlopeElement::classSize() const { return CShapeBase::classSize() + kTransSlopeShare; }

void CTransSlopeElement::setSlope(double slope) {
  m_slope = slope;
  noteChange();
}

}  // namespace Ruv
