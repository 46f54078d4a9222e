// SPDX-License-Identifier: BSL-1.0
// Only the choice between the two kinds of axis is made here. An axis in plan and profile is
// converted by shapes/AxisConversion, a shaft by Shaft. A shaft needs its own branch in every
// operation because it is vertical: it has no direction in plan, no finite grade, and its section
// lies level.

#include <Calculations/AxisCalculator.h>
#include <Calculations/Utilities.h>

#include "alignment/AxisDefinitionImpl.h"
#include "alignment/Shaft.h"
#include "foundation/MathConstants.h"
#include "shapes/AxisConversion.h"

#include <cstddef>
#include <utility>

namespace Ruv {
namespace Calculations {

class AxisCalculatorImpl {
 public:
  explicit AxisCalculatorImpl(boost::shared_ptr<const AxisDefinition> definition)
      : axis(std::move(definition)) {}

  boost::shared_ptr<const AxisDefinition> axis;

  /// The axis to calculate on; null stands for an axis on which everything fails.
  const AxisDefinitionImpl* usable() const {
    if (!axis) return nullptr;
    const AxisDefinitionImpl* impl = axis->getImpl();
    if (impl->axisType == AxisType::Shaft && !impl->isCompleteShaft()) return nullptr;
    return impl;
  }

  bool tangentAt(double stationing, bool inSpace, ENHPoint& tangent) const;
};

namespace {

/// The axis of a block is an axis like any other; a null block has none.
boost::shared_ptr<const AxisDefinition> axisOf(
    const boost::shared_ptr<const BlockAxisDefinition>& block) {
  return block ? block->asAxisDefinition() : boost::shared_ptr<const AxisDefinition>();
}

CConversionOptions conversionOptions(bool perpendicular, bool withTransSlope) {
  CConversionOptions options;
  options.plane = perpendicular ? CProfilePlane::Perpendicular : CProfilePlane::Vertical;
  options.transSlopeMode = withTransSlope ? CTransSlopeMode::OfAxis : CTransSlopeMode::Ignored;
  return options;
}

bool isShaft(const AxisDefinitionImpl& axis) { return axis.axisType == AxisType::Shaft; }

/// Tells the caller of a list about each point, if they want to know.
class Tally {
 public:
  explicit Tally(bool* found) : m_found(found) {}

  void note(std::size_t index, bool isFound) {
    if (m_found != nullptr) m_found[index] = isFound;
    if (isFound) ++m_count;
  }
  std::size_t count() const { return m_count; }

 private:
  bool* m_found;
  std::size_t m_count = 0;
};

/// Both limits belong to the range. A stationing that is not a number is out of range, and so is
/// every one where the alignments do not overlap, as the minimum then exceeds the maximum.
bool isInRange(const AxisDefinitionImpl& axis, double stationing) {
  double minimum = 0.0;
  double maximum = 0.0;
  axis.stationingRange(minimum, maximum);
  return stationing >= minimum && stationing <= maximum;
}

CStationingMapping mappingOf(const AxisDefinitionImpl& axis) {
  return {axis.stationingMappingOrigin2d, axis.stationingMappingValue3dAtOrigin};
}

}  // namespace

bool AxisCalculatorImpl::tangentAt(double stationing, bool inSpace, ENHPoint& tangent) const {
  const AxisDefinitionImpl* impl = usable();
  if (impl == nullptr) return false;
  if (isShaft(*impl)) {
    // Taken as it is: by way of the slope it would lean, as the cosine of pi/2 is not 0 in doubles.
    if (!isInRange(*impl, stationing)) return false;
    tangent = Shaft(*impl).direction();
    return true;
  }
  const auto place = axisPropertiesAt(impl->container.geometry(), stationing);
  if (!place) return false;
  // The tangent is one metre forward in the frame of the axis, turned to the grid: (sin a cos b,
  // cos a cos b, sin b) with the azimuth a and the slope angle b. In the vertical plane b is 0, for
  // that plane stands square to the axis in plan.
  const double slope = inSpace ? Utilities::anglePercentToRad(place->gradePercent) : 0.0;
  tangent = Utilities::rotateAxisDirectionComponentsToENHdiffWithoutTransSlope(
      AxisPoint(1.0, 0.0, 0.0), place->azimuth, slope);
  return true;
}

AxisCalculator::AxisCalculator(const boost::shared_ptr<const AxisDefinition>& axis)
    : m_impl(new AxisCalculatorImpl(axis)) {}

AxisCalculator::AxisCalculator(const boost::shared_ptr<const BlockAxisDefinition>& block)
    : m_impl(new AxisCalculatorImpl(axisOf(block))) {}

AxisCalculator::~AxisCalculator() = default;

bool AxisCalculator::axisPointToEnhPoint(const AxisPoint& in, ENHPoint& out, bool perpendicular,
                                         bool withTransSlope) const {
  const AxisDefinitionImpl* axis = m_impl->usable();
  if (axis == nullptr) return false;
  if (isShaft(*axis)) {
    // A shaft is a straight line in space, so a point outside its range is written all the same.
    out = Shaft(*axis).gridPointOf(in);
    return isInRange(*axis, in.stationing);
  }
  const auto result =
      axisToGrid(axis->container.geometry(), in, conversionOptions(perpendicular, withTransSlope));
  if (!result) return false;
  out = *result;
  return true;
}

std::size_t AxisCalculator::axisPointsToEnhPoints(const AxisPoint* in, std::size_t count,
                                                  ENHPoint* out, bool* found, bool perpendicular,
                                                  bool withTransSlope) const {
  Tally tally(found);
  for (std::size_t i = 0; i < count; ++i) {
    const AxisPoint point = in[i];  // out may be the same memory
    tally.note(i, axisPointToEnhPoint(point, out[i], perpendicular, withTransSlope));
  }
  return tally.count();
}

bool AxisCalculator::axisPointToEnhPointVertical(const AxisPoint& in, ENHPoint& out) const {
  return axisPointToEnhPoint(in, out, false, true);
}

bool AxisCalculator::axisPointToEnhPointPerpendicular(const AxisPoint& in, ENHPoint& out) const {
  return axisPointToEnhPoint(in, out, true, true);
}

bool AxisCalculator::enhPointToAxisPoint(const ENHPoint& in, AxisPoint& out, bool perpendicular,
                                         bool withTransSlope) const {
  const AxisDefinitionImpl* axis = m_impl->usable();
  if (axis == nullptr) return false;
  if (isShaft(*axis)) {
    out = Shaft(*axis).axisPointOf(in);
    return isInRange(*axis, out.stationing);
  }
  const auto result =
      gridToAxis(axis->container.geometry(), in, conversionOptions(perpendicular, withTransSlope));
  if (!result) return false;
  out = *result;
  return true;
}

std::size_t AxisCalculator::enhPointsToAxisPoints(const ENHPoint* in, std::size_t count,
                                                  AxisPoint* out, bool* found, bool perpendicular,
                                                  bool withTransSlope) const {
  const AxisDefinitionImpl* axis = m_impl->usable();
  if (axis != nullptr && !isShaft(*axis)) {
    return gridToAxis(axis->container.geometry(), in, count,
                      conversionOptions(perpendicular, withTransSlope), out, found);
  }
  Tally tally(found);
  for (std::size_t i = 0; i < count; ++i) {
    const ENHPoint point = in[i];  // out may be the same memory
    tally.note(i, enhPointToAxisPoint(point, out[i], perpendicular, withTransSlope));
  }
  return tally.count();
}

bool AxisCalculator::enhPointToAxisPointVertical(const ENHPoint& in, AxisPoint& out) const {
  return enhPointToAxisPoint(in, out, false, true);
}

bool AxisCalculator::enhPointToAxisPointPerpendicular(const ENHPoint& in, AxisPoint& out) const {
  return enhPointToAxisPoint(in, out, true, true);
}

bool AxisCalculator::stationingToTunnelmeter(double stationing, double& result) const {
  // The input stands for a result from the start, as callers of the interface expect on failure.
  result = stationing;
  const AxisDefinitionImpl* axis = m_impl->usable();
  if (axis == nullptr || !isInRange(*axis, stationing)) return false;
  // A shaft is as long in space as its stationings say, so the two are one number, and the mapping
  // has nothing to tie.
  if (isShaft(*axis)) return true;
  const auto tunnelmeter = tunnelMeterAt(axis->container.geometry(), mappingOf(*axis), stationing);
  if (!tunnelmeter) return false;
  result = *tunnelmeter;
  return true;
}

bool AxisCalculator::tunnelmeterToStationing(double tunnelmeter, double& result) const {
  result = tunnelmeter;
  const AxisDefinitionImpl* axis = m_impl->usable();
  if (axis == nullptr) return false;
  if (isShaft(*axis)) return isInRange(*axis, tunnelmeter);
  // The range is looked at in tunnel meters, where the rounding of the way there can be forgiven.
  const auto stationing = stationingAt(axis->container.geometry(), mappingOf(*axis), tunnelmeter);
  if (!stationing) return false;
  result = *stationing;
  return true;
}

bool AxisCalculator::axisPropertiesAtStationing(double stationing, double& azimuth, double& radius,
                                                double& longSlopeRad, double& longSlopePercent,
                                                double& transSlopeRad,
                                                double& transSlopePercent) const {
  azimuth = 0.0;
  radius = 0.0;
  longSlopeRad = 0.0;
  longSlopePercent = 0.0;
  transSlopeRad = 0.0;
  transSlopePercent = 0.0;
  const AxisDefinitionImpl* axis = m_impl->usable();
  if (axis == nullptr) return false;
  if (isShaft(*axis)) {
    // The section of a shaft is that of an axis that plunges by a right angle towards the north, or
    // rises by one towards the south: in both what is up in the section points north. The tangent
    // of a right angle is finite in doubles, so the slope in percent is a large number (1.6e18) and
    // not infinite. All this holds outside the range too.
    const bool isTopDown = Shaft(*axis).isTopDown();
    azimuth = isTopDown ? 0.0 : kPi;
    longSlopeRad = isTopDown ? -kHalfPi : kHalfPi;
    longSlopePercent = Utilities::angleRadToPercent(longSlopeRad);
    return isInRange(*axis, stationing);
  }
  const auto place = axisPropertiesAt(axis->container.geometry(), stationing);
  if (!place) return false;
  azimuth = place->azimuth;
  radius = place->radius;
  longSlopePercent = place->gradePercent;
  longSlopeRad = Utilities::anglePercentToRad(longSlopePercent);
  // A transverse slope has two signs: its percentage grows clockwise looking forward, its angle
  // anticlockwise.
  transSlopePercent = place->transSlopePercent;
  transSlopeRad = Utilities::transSlopePercentClockwiseToRadAntiClockwise(transSlopePercent);
  return true;
}

bool AxisCalculator::tangentAtStationingVertical(double stationing, ENHPoint& tangent) const {
  return m_impl->tangentAt(stationing, false, tangent);
}

bool AxisCalculator::tangentAtStationingPerpendicular(double stationing, ENHPoint& tangent) const {
  return m_impl->tangentAt(stationing, true, tangent);
}

}  // namespace Calculations
}  // namespace Ruv
