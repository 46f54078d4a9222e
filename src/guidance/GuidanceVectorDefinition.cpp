// SPDX-License-Identifier: BSL-1.0
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
