// SPDX-License-Identifier: BSL-1.0
// A profile is stored as a chain of nodes: n segments are n + 1 nodes, of which all but the first
// hold the radius of the segment that ends there and the station, the length of the chain up to
// there.

#include <Calculations/ThProfileDefinition.h>

#include "foundation/MakeRoom.h"
#include "profiles/ThProfileDefinitionImpl.h"

#include <cstddef>

namespace Ruv {
namespace Calculations {

IProfileSegmentProvider::IProfileSegmentProvider() = default;
IProfileSegmentProvider::IProfileSegmentProvider(const IProfileSegmentProvider&) = default;
IProfileSegmentProvider& IProfileSegmentProvider::operator=(const IProfileSegmentProvider&) =
    default;
IProfileSegmentProvider::~IProfileSegmentProvider() = default;

void ThProfileDefinitionImpl::add(const Point2D& start, const Point2D& end, double radius) {
  makeRoomFor(2, nodes);  // no start without its segment
  cleanOutline.forget();
  if (nodes.empty()) {
    nodes.push_back({start, 0.0, 0.0});
    sense.add(start);
  }
  // Measured from the start as it was given, also where that is not the end of the segment before:
  // results of callers rest on stations that were counted so.
  const double length = CChainSegment::between(start, end, radius).length;
  nodes.push_back({end, nodes.back().station + length, radius});
  sense.add(end);
}

void ThProfileDefinitionImpl::reset() {
  nodes.clear();
  sense.reset();
  cleanOutline.forget();
}

ThProfileDefinition::ThProfileDefinition() : m_impl(new ThProfileDefinitionImpl) {}

ThProfileDefinition::~ThProfileDefinition() = default;

void ThProfileDefinition::resetThProfile() { m_impl->reset(); }

bool ThProfileDefinition::addSegmentStraight(double startX, double startY, double endX,
                                             double endY) {
  return addSegmentArc(startX, startY, endX, endY, 0.0);
}

bool ThProfileDefinition::addSegmentArc(double startX, double startY, double endX, double endY,
                                        double radius) {
  m_impl->add(Point2D(startX, startY), Point2D(endX, endY), radius);
  return true;
}

bool ThProfileDefinition::isDefinedClockwise() const { return m_impl->sense.isClockwise(); }

unsigned int ThProfileDefinition::getNumSegments() const {
  const std::size_t nodes = m_impl->nodes.size();
  return nodes == 0 ? 0 : static_cast<unsigned int>(nodes - 1);
}

Point2D ThProfileDefinition::getSegmentStartAt(unsigned int index) const {
  return index < getNumSegments() ? m_impl->nodes[index].point : Point2D();
}

Point2D ThProfileDefinition::getSegmentEndAt(unsigned int index) const {
  return index < getNumSegments() ? m_impl->nodes[index + std::size_t{1}].point : Point2D();
}

double ThProfileDefinition::getSegmentRadiusAt(unsigned int index) const {
  return index < getNumSegments() ? m_impl->nodes[index + std::size_t{1}].radius : 0.0;
}

double ThProfileDefinition::getCircumference() const {
  const std::vector<CChainNode>& nodes = m_impl->nodes;
  // A single segment encloses nothing and counts as none.
  // Measured anew from the nodes: stations may follow start points that are off the chain.
  if (getNumSegments() < 2) return 0.0;
  double length = 0.0;
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    length += CChainSegment::between(nodes[i - 1].point, nodes[i].point, nodes[i].radius).length;
  }
  return length;
}

}  // namespace Calculations
}  // namespace Ruv
