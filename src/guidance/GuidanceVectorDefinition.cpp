// SPDX-License-Identifier: BSL-1.0
// A vector is an origin in axis coordinates and a direction relative to the axis there. Only the
// calculator knows the axis, so nothing is checked here against any.
//
// The interface takes the source of a copy by a reference that is not const, and moves: two vectors
// never share what they hold, and the source is left empty.

#include <Calculations/GuidanceVectorDefinition.h>
#include <Calculations/Utilities.h>

#include "guidance/Levelling.h"

#include <memory>
#include <utility>

namespace Ruv {
namespace Calculations {

class GuidanceVectorDefinitionImpl {
 public:
  AxisPoint origin;
  bool axisParallel = true;
  GuidanceOffsets direction;
};

GuidanceVectorDefinition::GuidanceVectorDefinition() : m_impl(new GuidanceVectorDefinitionImpl) {}

GuidanceVectorDefinition::GuidanceVectorDefinition(GuidanceVectorDefinition& other)
    : m_impl(std::move(other.m_impl)) {}

GuidanceVectorDefinition& GuidanceVectorDefinition::operator=(GuidanceVectorDefinition& other) {
  m_impl = std::move(other.m_impl);  // leaves it as it is when both are the same
  return *this;
}

GuidanceVectorDefinition::~GuidanceVectorDefinition() = default;

/// Copying moves. A vector that was copied from is empty: writing to it starts it anew, reading
/// finds the defaults.
GuidanceVectorDefinitionImpl& GuidanceVectorDefinition::filled() {
  if (!m_impl) m_impl = std::make_unique<GuidanceVectorDefinitionImpl>();
  return *m_impl;
}

const GuidanceVectorDefinitionImpl& GuidanceVectorDefinition::read() const {
  static const GuidanceVectorDefinitionImpl kEmpty;
  return m_impl ? *m_impl : kEmpty;
}

void GuidanceVectorDefinition::setVectorOriginPoint(const AxisPoint& origin) {
  filled().origin = origin;
}

AxisPoint GuidanceVectorDefinition::getVectorOriginPoint() const { return read().origin; }

void GuidanceVectorDefinition::setVectorDirectionAsAxisParallel() {
  filled().axisParallel = true;
  filled().direction = GuidanceOffsets();
}

void GuidanceVectorDefinition::setVectorDirectionAsStraight(const GuidanceOffsets& direction) {
  filled().direction = direction;
  filled().axisParallel = false;
}

GuidanceOffsets GuidanceVectorDefinition::getVectorDirection() const { return read().direction; }

bool GuidanceVectorDefinition::isVectorDirectionAxisParallel() const { return read().axisParallel; }

double GuidanceVectorDefinition::getGuidanceAngleProjectedInFrontViewPlane() const {
  return Utilities::getGuidanceAngleInFrontView(asAxisPoint(read().direction));
}

double GuidanceVectorDefinition::getGuidanceAngleProjectedInTopViewPlane() const {
  return Utilities::getGuidanceAngleInTopView(asAxisPoint(read().direction));
}

double GuidanceVectorDefinition::getGuidanceAngleProjectedInSideViewPlane() const {
  return Utilities::getGuidanceAngleInSideView(asAxisPoint(read().direction));
}

// Angles set the direction and nothing else: a vector parallel to the axis stays parallel and does
// not use it. To steer by angles it is made a straight one first, in any direction.
void GuidanceVectorDefinition::setVectorDirectionFromProjectedAnglesFrontAndTopViewPlane(
    double front, double top, double length) {
  filled().direction =
      asOffsets(Utilities::getGuidanceVectorFromFrontAndTopViewAngles(front, top, length));
}

void GuidanceVectorDefinition::setVectorDirectionFromProjectedAnglesTopAndSideViewPlane(
    double top, double side, double length) {
  filled().direction =
      asOffsets(Utilities::getGuidanceVectorFromTopAndSideViewAngles(top, side, length));
}

void GuidanceVectorDefinition::setVectorDirectionFromProjectedAnglesFrontAndSideViewPlane(
    double front, double side, double length) {
  filled().direction =
      asOffsets(Utilities::getGuidanceVectorFromFrontAndSideViewAngles(front, side, length));
}

}  // namespace Calculations
}  // namespace Ruv
