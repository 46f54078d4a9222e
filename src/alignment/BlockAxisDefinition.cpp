// SPDX-License-Identifier: BSL-1.0
// A block, the length of tunnel that is concreted at once, is straight while the axis may be
// curved. Its own axis follows the chord from the axis point at the start of the block to that at
// its end, with a constant grade, the transverse slope running linearly between those of the two
// ends, and goes on straight beyond both. Stationings count from the start of the block along the
// chord in plan, so they differ from those of the reference axis by what the chord is shorter than
// the curve.

#include <Calculations/AxisCalculator.h>
#include <Calculations/BlockAxisDefinition.h>
#include <Calculations/Utilities.h>

#include "alignment/AxisDefinitionImpl.h"

#include <algorithm>
#include <cmath>

namespace Ruv {
namespace Calculations {

class BlockAxisDefinitionImpl {
 public:
  boost::shared_ptr<const AxisDefinition> referenceAxis;
  double blockStartStng2d = 0.0;
  double blockEndStng2dOnRefAxis = 0.0;
  boost::shared_ptr<const AxisDefinition> blockAxis;
};

namespace {

/// The block axis reaches this far (m) beyond each end of the block, so that what stands or is
/// measured just outside its end faces has a place on it too.
constexpr double kOverhang = 2.0;

/// The chord of a block and what it takes over from the reference axis.
struct Chord {
  ENHPoint start;
  ENHPoint end;
  double stationing = 0.0;
  double transSlopeAtStart = 0.0;
  double transSlopeAtEnd = 0.0;
  double tunnelmeterAtStart = 0.0;
};

/// The point of the axis itself, which is the same in both planes. It is the grid's origin where
/// the axis has no such place; a shaft goes on beyond its ends.
ENHPoint pointOnAxis(const AxisCalculator& axis, double stationing, bool perpendicular) {
  ENHPoint point;
  axis.axisPointToEnhPoint(AxisPoint(stationing, 0.0, 0.0), point, perpendicular, true);
  return point;
}

/// The transverse slope in percent, 0 where the axis has none.
double transSlopeAt(const AxisCalculator& axis, double stationing) {
  double azimuth = 0.0;
  double radius = 0.0;
  double longSlopeRad = 0.0;
  double longSlopePercent = 0.0;
  double transSlopeRad = 0.0;
  double transSlopePercent = 0.0;
  axis.axisPropertiesAtStationing(stationing, azimuth, radius, longSlopeRad, longSlopePercent,
                                  transSlopeRad, transSlopePercent);
  return transSlopePercent;
}

Chord chordOf(const AxisCalculator& reference, double startStationing, double endStationing) {
  Chord chord;
  chord.start = pointOnAxis(reference, startStationing, false);
  chord.end = pointOnAxis(reference, endStationing, false);
  chord.stationing = startStationing;
  chord.transSlopeAtStart = transSlopeAt(reference, startStationing);
  chord.transSlopeAtEnd = transSlopeAt(reference, endStationing);
  if (!reference.stationingToTunnelmeter(startStationing, chord.tunnelmeterAtStart)) {
    // The operation leaves the stationing there when it fails, which is no tunnel meter.
    chord.tunnelmeterAtStart = 0.0;
  }
  return chord;
}

boost::shared_ptr<AxisDefinition> axisAlong(const Chord& chord) {
  boost::shared_ptr<AxisDefinition> axis(AxisDefinitionFactory::createHoralVeralAxis());
  const ENHPoint& start = chord.start;
  const ENHPoint& end = chord.end;
  const double azimuth = Utilities::horAngleBetween(start, end);
  const double length = (end - start).lengthOfEastNorthProjection();
  const double grade = length > 0.0 ? (end.height - start.height) / length : 0.0;
  const double stationing = chord.stationing;
  // One sum for plan and profile, so that both end at the same double.
  const double stationingAtEnd = stationing + length;

  // Three straights in plan: before the block, along it and beyond it, all in one direction.
  axis->addHoralSegmentStraight(stationing - kOverhang, start.east - kOverhang * std::sin(azimuth),
                                start.north - kOverhang * std::cos(azimuth), azimuth, kOverhang);
  axis->addHoralSegmentStraight(stationing, start.east, start.north, azimuth, length);
  axis->addHoralSegmentStraight(stationingAtEnd, end.east, end.north, azimuth, kOverhang);

  // The chord has one grade, so these four lie on one line in space and none needs a rounding.
  axis->addVeralPointKink(stationing - kOverhang, start.height - kOverhang * grade);
  axis->addVeralPointKink(stationing, start.height);
  axis->addVeralPointKink(stationingAtEnd, end.height);
  axis->addVeralPointKink(stationingAtEnd + kOverhang, end.height + kOverhang * grade);

  axis->addTransSlopeSegmentConstant(stationing - kOverhang, stationing, chord.transSlopeAtStart);
  axis->addTransSlopeSegmentLinear(stationing, stationingAtEnd, chord.transSlopeAtStart,
                                   chord.transSlopeAtEnd);
  axis->addTransSlopeSegmentConstant(stationingAtEnd, stationingAtEnd + kOverhang,
                                     chord.transSlopeAtEnd);

  // The block counts tunnel meters on from those of the reference axis at its start.
  axis->setStationingMappingValues(stationing, chord.tunnelmeterAtStart);
  return axis;
}

boost::shared_ptr<AxisDefinition> shaftAlong(const Chord& chord) {
  // A block of a shaft is a piece of the shaft, longer by the overhang at both ends.
  const bool isTopDown = chord.start.height > chord.end.height;
  const double backwards = isTopDown ? kOverhang : -kOverhang;
  return boost::shared_ptr<AxisDefinition>(AxisDefinitionFactory::createShaftAxis(
      chord.start.east, chord.start.north, chord.start.height + backwards,
      chord.end.height - backwards, chord.stationing - kOverhang));
}

boost::shared_ptr<AxisDefinition> blockAxisOf(const AxisDefinition& reference, const Chord& chord) {
  if (reference.isTypeHoralVeral()) return axisAlong(chord);
  if (reference.isShaftAxis()) return shaftAlong(chord);
  return boost::shared_ptr<AxisDefinition>();
}

/// Moves an element forwards only: one that stands farther on stays.
void moveOnTo(double stationing, CShapeBase* element) {
  if (element != nullptr && stationing > element->getStationing()) {
    element->setStationing(stationing);
  }
}

/// Lets a block axis end no earlier than at a stationing that is its end but for rounding.
void extendTo(double stationing, AxisDefinition& axis) {
  CShapeContainer& container = axis.getImpl()->container;
  if (axis.isTypeHoralVeral()) moveOnTo(stationing, container.horalAt(container.numHoral() - 1));
  moveOnTo(stationing, container.veralAt(container.numVeral() - 1));
  moveOnTo(stationing, container.transSlopeAt(container.numTransSlope() - 1));
}

}  // namespace

BlockAxisDefinition::BlockAxisDefinition(
    const boost::shared_ptr<const AxisDefinition>& referenceAxis, double blockStartStng2d,
    double blockEndStng2dOnRefAxis)
    : m_impl(new BlockAxisDefinitionImpl) {
  m_impl->referenceAxis = referenceAxis;
  m_impl->blockStartStng2d = blockStartStng2d;
  m_impl->blockEndStng2dOnRefAxis = blockEndStng2dOnRefAxis;
  if (!referenceAxis) return;
  const AxisCalculator reference(referenceAxis);
  const boost::shared_ptr<AxisDefinition> axis =
      blockAxisOf(*referenceAxis, chordOf(reference, blockStartStng2d, blockEndStng2dOnRefAxis));
  m_impl->blockAxis = axis;
  if (!axis) return;
  // The length is found by projection, so the block may end a rounding error after its chord. Both
  // orders of adding it up, which may differ in the last digit, must lead to a place on the axis.
  const double length = blockLength2d();
  extendTo(std::max(blockStartStng2d + length + kOverhang, blockStartStng2d + (length + kOverhang)),
           *axis);
}

BlockAxisDefinition::~BlockAxisDefinition() = default;

double BlockAxisDefinition::blockStartStng2d() const { return m_impl->blockStartStng2d; }

double BlockAxisDefinition::blockEndStng2dOnRefAxis() const {
  return m_impl->blockEndStng2dOnRefAxis;
}

double BlockAxisDefinition::blockLength2d() const {
  const AxisCalculator reference(m_impl->referenceAxis);
  const AxisCalculator block(m_impl->blockAxis);
  AxisPoint start;
  AxisPoint end;
  // The block's own stationings are asked for, not the chord in plan: on a shaft they tell its
  // height difference.
  block.enhPointToAxisPointVertical(pointOnAxis(reference, blockStartStng2d(), false), start);
  block.enhPointToAxisPointVertical(pointOnAxis(reference, blockEndStng2dOnRefAxis(), false), end);
  return end.stationing - start.stationing;
}

double BlockAxisDefinition::blockEndStng2d() const { return blockStartStng2d() + blockLength2d(); }

double BlockAxisDefinition::blockStartStng3d() const {
  double tunnelmeter = 0.0;
  AxisCalculator(m_impl->referenceAxis).stationingToTunnelmeter(blockStartStng2d(), tunnelmeter);
  return tunnelmeter;
}

double BlockAxisDefinition::blockLength3d() const {
  const AxisCalculator reference(m_impl->referenceAxis);
  return (pointOnAxis(reference, blockEndStng2dOnRefAxis(), true) -
          pointOnAxis(reference, blockStartStng2d(), true))
      .length();
}

double BlockAxisDefinition::blockEndStng3d() const { return blockStartStng3d() + blockLength3d(); }

boost::shared_ptr<const AxisDefinition> BlockAxisDefinition::asAxisDefinition() const {
  return m_impl->blockAxis;
}

}  // namespace Calculations
}  // namespace Ruv
