// SPDX-License-Identifier: BSL-1.0
// Callers describe a horizontal segment by its start, azimuth, radii and length. Stored is where it
// ends: n segments are n + 1 entries, of which the first is the start point alone, and every other
// one holds the stationing and place of an end and the radii of the segment that leads there. So an
// end has to be computed when its segment is added, and a segment starts at the entry before its
// own, whatever start was given with it. That start and the azimuth are kept beside the entry
// (CHoralDefinition): they settle directions that end points leave open, and tell misclosures.
//
// Vertical points, and the two ends of an interval of transverse slope, are stored as they are
// given.

#include <Calculations/AxisDefinition.h>
#include <Calculations/Utilities.h>

#include "alignment/AxisDefinitionImpl.h"
#include "alignment/AxisPolylines.h"
#include "shapes/PlacedCurve.h"
#include "shapes/ShapeTolerances.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// A horizontal segment as the add operations receive it.
struct SegmentInput {
  CShapeType::Id typeId = CShapeType::Straight;
  double stationing = 0.0;
  Point2D start;
  double azimuth = 0.0;
  double radiusStart = 0.0;
  double radiusEnd = 0.0;
  double length = 0.0;
};

/// No segment leads to a start point, so it has neither radii nor a parameter.
std::unique_ptr<CHoralElement> startPointAt(double stationing, const Point2D& point) {
  return CShapeContainer::horalElementOf({CShapeType::StartPoint, stationing, point, 0, 0, 0});
}

/// A curve that is not defined ends where it starts: adding refuses nothing for its geometry, and
/// only what is calculated on the curve fails.
CCurvePoint endOf(const SegmentInput& input) {
  const CDirection direction = directionOfBearing(input.azimuth);
  const CPlaneCurve curve =
      curveOfType(input.typeId, input.radiusStart, input.radiusEnd, input.length);
  if (curve.isDefined()) {
    return CPlacedCurve{input.start, direction, 1.0, curve, input.azimuth}.end();
  }
  CCurvePoint start;
  start.position = input.start;
  start.heading = input.azimuth;
  return start;
}

/// Parameter A of the clothoid between two radii. Its square is the length divided by the change of
/// curvature: A^2 = R L from a straight to the radius R, and L r R / (R - r) between radii r < R.
/// Magnitudes only are looked at, so an S-curve has the parameter of the C-curve between the same
/// radii; equal radii, which make an arc, have 0. It is only told to callers; the geometry follows
/// from the radii with their signs.
double clothoidParameter(double radiusStart, double radiusEnd, double length) {
  const double start = std::abs(radiusStart);
  const double end = std::abs(radiusEnd);
  if (start <= kZeroLength) return std::sqrt(std::abs(radiusEnd * length));
  if (end <= kZeroLength) return std::sqrt(std::abs(radiusStart * length));
  const double smaller = std::min(start, end);
  const double larger = std::max(start, end);
  if (std::abs(smaller - larger) <= kZeroLength) return 0.0;
  return std::sqrt(std::abs(larger * length * smaller / (smaller - larger)));
}

std::unique_ptr<CHoralElement> endEntryOf(const SegmentInput& input, const Point2D& end) {
  const double parameter = input.typeId == CShapeType::Clothoid
                               ? clothoidParameter(input.radiusStart, input.radiusEnd, input.length)
                               : 0.0;
  return CShapeContainer::horalElementOf({input.typeId, input.stationing + input.length, end,
                                          input.radiusStart, input.radiusEnd, parameter});
}

bool addSegment(AxisDefinitionImpl& impl, const SegmentInput& input) {
  if (impl.axisType != AxisType::HoralVeral) return false;
  CShapeContainer& container = impl.container;
  // All memory first: no start point stays when its segment cannot be added.
  const bool isFirst = container.numHoral() == 0;
  auto start = isFirst ? startPointAt(input.stationing, input.start) : nullptr;
  const CCurvePoint end = endOf(input);
  auto entry = endEntryOf(input, end.position);
  container.makeRoomForTwoHoral();
  // This is the last step that can run out of memory. A definition that no entry refers to is never
  // read.
  container.define(*entry, {input.start, input.azimuth, end.heading});
  if (isFirst) container.appendHoral(std::move(start));
  container.appendHoral(std::move(entry));
  container.update();
  return true;
}

/// A shaft keeps only its point in plan, as the azimuth and length of a straight mean nothing on a
/// vertical line.
bool addShaftPoint(CShapeContainer& container, double stationing, const Point2D& point) {
  if (container.numHoral() > 0) return false;
  container.appendHoral(startPointAt(stationing, point));
  container.update();
  return true;
}

void addVeralPoint(CShapeContainer& container, CShapeType::Id typeId, double stationing,
                   double height, double roundingValue) {
  auto element = std::make_unique<CVeralElement>();
  element->setTypeId(typeId);
  element->setStationing(stationing);
  element->setHeight(height);
  element->setRoundingValue(roundingValue);
  container.appendVeral(std::move(element));
  container.update();
}

std::unique_ptr<CTransSlopeElement> transSlopeAt(double stationing, double slope) {
  auto element = std::make_unique<CTransSlopeElement>();
  element->setTypeId(CShapeType::TransverseSlope);
  element->setStationing(stationing);
  element->setSlope(slope);
  return element;
}

/// The interface counts in unsigned, which on some machines is smaller than a size.
unsigned asCount(std::size_t count) {
  return static_cast<unsigned>(std::min<std::size_t>(count, std::numeric_limits<unsigned>::max()));
}

}  // namespace

AxisDefinition::AxisDefinition() : m_impl(new AxisDefinitionImpl) {}

AxisDefinition::~AxisDefinition() = default;

AxisDefinitionImpl* AxisDefinition::getImpl() const { return m_impl.get(); }

bool AxisDefinition::isTypeHoralVeral() const { return m_impl->axisType == AxisType::HoralVeral; }

bool AxisDefinition::isShaftAxis() const { return m_impl->axisType == AxisType::Shaft; }

bool AxisDefinition::isShaftAxisTopDown() const {
  // Two equal heights count as top-down, as a shaft without height has no direction of its own.
  const CVeralElement* first = m_impl->container.veralAt(0);
  const CVeralElement* second = m_impl->container.veralAt(1);
  if (!isShaftAxis() || first == nullptr || second == nullptr) return false;
  return !(first->getHeight() < second->getHeight());
}

double AxisDefinition::minimumStng2d() const {
  double minimum = 0.0;
  double maximum = 0.0;
  m_impl->stationingRange(minimum, maximum);
  return minimum;
}

double AxisDefinition::maximumStng2d() const {
  double minimum = 0.0;
  double maximum = 0.0;
  m_impl->stationingRange(minimum, maximum);
  return maximum;
}

void AxisDefinition::resetHoral() {
  m_impl->container.resetHoral();
  m_impl->container.update();
}

void AxisDefinition::resetVeral() {
  m_impl->container.resetVeral();
  m_impl->container.update();
}

void AxisDefinition::resetTransSlope() {
  m_impl->container.resetTransSlope();
  m_impl->container.update();
}

bool AxisDefinition::addHoralSegmentStraight(double stationing, double east, double north,
                                             double azimuth, double length) {
  const Point2D start(east, north);
  if (isShaftAxis()) return addShaftPoint(m_impl->container, stationing, start);
  return addSegment(*m_impl, {CShapeType::Straight, stationing, start, azimuth, 0.0, 0.0, length});
}

bool AxisDefinition::addHoralSegmentArc(double stationing, double east, double north,
                                        double azimuth, double radius, double length) {
  return addSegment(*m_impl, {CShapeType::Arc, stationing, Point2D(east, north), azimuth, radius,
                              radius, length});
}

bool AxisDefinition::addHoralSegmentClothoid(double stationing, double east, double north,
                                             double azimuth, double radiusStart, double radiusEnd,
                                             double length) {
  return addSegment(*m_impl, {CShapeType::Clothoid, stationing, Point2D(east, north), azimuth,
                              radiusStart, radiusEnd, length});
}

bool AxisDefinition::addVeralPointKink(double stationing, double height) {
  // The two heights of a shaft are kinks.
  const bool isOpenShaft = isShaftAxis() && m_impl->container.numVeral() < 2;
  if (!isTypeHoralVeral() && !isOpenShaft) return false;
  addVeralPoint(m_impl->container, CShapeType::VerticalKink, stationing, height, 0.0);
  return true;
}

bool AxisDefinition::addVeralPointArc(double stationing, double height, double radius) {
  if (!isTypeHoralVeral()) return false;
  addVeralPoint(m_impl->container, CShapeType::VerticalArc, stationing, height, radius);
  return true;
}

bool AxisDefinition::addVeralPointParabola(double stationing, double height, double value) {
  if (!isTypeHoralVeral()) return false;
  addVeralPoint(m_impl->container, CShapeType::VerticalParabola, stationing, height, value);
  return true;
}

bool AxisDefinition::addTransSlopeSegmentConstant(double stationingFrom, double stationingTo,
                                                  double slope) {
  return addTransSlopeSegmentLinear(stationingFrom, stationingTo, slope, slope);
}

bool AxisDefinition::addTransSlopeSegmentLinear(double stationingFrom, double stationingTo,
                                                double slopeFrom, double slopeTo) {
  if (!isTypeHoralVeral()) return false;
  // An interval is its two ends, and nothing tells later which of them belong together. So the
  // slope also runs linearly between two intervals, from the end of one to the start of the next.
  auto from = transSlopeAt(stationingFrom, slopeFrom);
  auto to = transSlopeAt(stationingTo, slopeTo);
  m_impl->container.makeRoomForTwoTransSlopes();  // neither without the other
  m_impl->container.appendTransSlope(std::move(from));
  m_impl->container.appendTransSlope(std::move(to));
  m_impl->container.update();
  return true;
}

unsigned AxisDefinition::getNumHoralSegments() const {
  const std::size_t entries = m_impl->container.numHoral();
  return isTypeHoralVeral() && entries > 0 ? asCount(entries - 1) : 0;
}

unsigned AxisDefinition::getNumVeralPoints() const {
  return isTypeHoralVeral() ? asCount(m_impl->container.numVeral()) : 0;
}

CShapeBase* AxisDefinition::getHoralSegmentAt(unsigned index) const {
  if (index >= getNumHoralSegments()) return nullptr;
  // Entry 0 is the start point, so a segment ends at the entry after the one of its index.
  return m_impl->container.horalAt(static_cast<std::size_t>(index) + 1);
}

CShapeBase* AxisDefinition::getVeralPointAt(unsigned index) const {
  return isTypeHoralVeral() ? m_impl->container.veralAt(index) : nullptr;
}

std::vector<Misclosure> AxisDefinition::misclosures() const {
  const CShapeContainer& container = m_impl->container;
  std::vector<Misclosure> misclosures(getNumHoralSegments());
  for (std::size_t i = 0; i < misclosures.size(); ++i) {
    const CHoralElement& before = *container.horalAt(i);
    const CHoralDefinition segment = container.definitionOf(*container.horalAt(i + 1));
    // What the caller gave as start, beside what was stored as the end of the segment before. For
    // the first segment they differ when another one was added first, as that one brought the start
    // point.
    misclosures[i].distance =
        (segment.start - Point2D(before.getEast(), before.getNorth())).length();
    if (i == 0) continue;  // nothing leads to the first one
    misclosures[i].directionBreak = Utilities::getangleAsMinusPiToPi(
        segment.startAzimuth - container.definitionOf(before).endAzimuth);
  }
  return misclosures;
}

Polyline AxisDefinition::getHoralSegmentPolylineAt(unsigned index, double step) const {
  if (index >= getNumHoralSegments()) return Polyline();
  return Polyline(sampledSegment(m_impl->container, index, step));
}

Polyline AxisDefinition::getVeralPointPolylineAt(unsigned index, double step) const {
  if (index >= getNumVeralPoints()) return Polyline();
  return Polyline(sampledVeralPoint(m_impl->container, index, step));
}

Polyline AxisDefinition::getVeralPolyline(double step) const {
  if (!isTypeHoralVeral()) return Polyline();
  return Polyline(sampledVeral(m_impl->container, step));
}

void AxisDefinition::setStationingMappingValues(double origin2d, double value3dAtOrigin) {
  m_impl->stationingMappingOrigin2d = origin2d;
  m_impl->stationingMappingValue3dAtOrigin = value3dAtOrigin;
}

double AxisDefinition::getStationingMappingOrigin2d() const {
  return m_impl->stationingMappingOrigin2d;
}

double AxisDefinition::getStationingMappingValue3dAtOrigin() const {
  return m_impl->stationingMappingValue3dAtOrigin;
}

AxisDefinition* AxisDefinitionFactory::createHoralVeralAxis() {
  // The constructor is private, so std::make_unique cannot reach it.
  std::unique_ptr<AxisDefinition> axis(new AxisDefinition);
  axis->m_impl->axisType = AxisType::HoralVeral;
  return axis.release();
}

AxisDefinition* AxisDefinitionFactory::createShaftAxis(double east, double north,
                                                       double heightStart, double heightEnd,
                                                       double stationingStart) {
  std::unique_ptr<AxisDefinition> axis(new AxisDefinition);
  axis->m_impl->axisType = AxisType::Shaft;
  // Stationings grow along the shaft whichever way it runs, so its length has no sign.
  const double length = std::abs(heightEnd - heightStart);
  axis->addHoralSegmentStraight(stationingStart, east, north, 0.0, length);
  // The order of the heights tells the direction of the shaft.
  axis->addVeralPointKink(stationingStart, heightStart);
  axis->addVeralPointKink(stationingStart + length, heightEnd);
  return axis.release();
}

}  // namespace Calculations
}  // namespace Ruv
