// SPDX-License-Identifier: BSL-1.0
// The projection looks for the nearest foot in three steps of falling rank. Feet on segments and
// joints of smooth wedges come first. A foot that misses its segment by rounding noise replaces one
// that is clearly farther away. Only a point that has neither, as on the outer side of a real
// corner, is given the nearest corner that faces it: one where the segment before reports the foot
// beyond its end and the segment after reports it before its start.

#include "shapes/HoralAlignment.h"

#include "foundation/MathConstants.h"
#include "shapes/Nearest.h"
#include "shapes/ShapeTolerances.h"

#include <Calculations/Utilities.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {

namespace {

/// Azimuths this close (rad) below a full turn are north: 1 nm aside on a kilometre.
constexpr double kFullTurnNoise = 1e-12;

/// Feet are looked for up to half the mean size of the segments first, and only then farther away.
constexpr double kVicinityOfBoxes = 0.5;

CBox boxOf(const CHoralSegment& segment) {
  if (!segment.isEvaluable()) return {};
  const CPlacedCurve& path = segment.path;
  const double length = path.curve.length() * path.scale;
  // A drift makes the curve longer by no more than itself.
  const double drift = path.curve.drift().length() * length;
  CBox box = boxAroundCurve(path.start, path.end().position, length + drift);
  // The stored end point, a rounding error away, is the foot of points just outside.
  box.include(boxAroundCurve(segment.end, segment.end, 0.0));
  return box;
}

CAlignmentFoot footInside(const CHoralSegment& segment, const CCurveFoot& foot) {
  // Limited to the end stationing, which start + length may pass by a rounding error.
  const double stationing = std::min(segment.stationingStart + foot.length, segment.stationingEnd);
  return {stationing, foot.lateral};
}

/// The end of a segment as foot of a point just outside: its offset is measured at that end.
CAlignmentFoot footAtEnd(const CHoralSegment& segment, const CCurveFoot& foot, const Point2D& p) {
  const bool atStart = foot.report == CFootReport::BeforeStart;
  const CCurvePoint end = atStart ? segment.path.at(0.0) : segment.path.end();
  return {atStart ? segment.stationingStart : segment.stationingEnd,
          rightComponent(p - end.position, end.tangent)};
}

/// The definition of the projection counts both orders of the two reports as a corner.
bool facesCorner(CFootReport before, CFootReport now) {
  return (before == CFootReport::BeyondEnd && now == CFootReport::BeforeStart) ||
         (before == CFootReport::BeforeStart && now == CFootReport::BeyondEnd);
}

}  // namespace

double reportedAzimuth(double bearing) {
  const double azimuth = Calculations::Utilities::getAngleAsZeroToTwoPi(bearing);
  return azimuth > kTwoPi - kFullTurnNoise ? 0.0 : azimuth;
}

bool CFootTrail::isDueAfter(double stationing) {
  const bool isNear = std::abs(stationing - m_lastStationing) <= kNear;
  m_lastStationing = stationing;
  m_row = isNear ? m_row + 1 : 1;
  ++m_numMissed;
  if (m_numServed >= kWorthFinding) m_pause = kRow;
  if (m_row < kRow || m_numMissed < m_pause) return false;
  m_pause = std::min(2 * m_pause, kLongestPause);
  m_numServed = 0;
  m_numMissed = 0;
  return true;
}

CHoralAlignment::CHoralAlignment(double startStationing,
                                 const std::vector<CHoralSegmentData>& segments)
    : m_startStationing(startStationing), m_segments(placedSegments(segments)) {
  std::vector<CBox> boxes;
  std::vector<double> ends;
  boxes.reserve(m_segments.size());
  ends.reserve(m_segments.size());
  for (const CHoralSegment& segment : m_segments) {
    boxes.push_back(boxOf(segment));
    ends.push_back(segment.stationingEnd);
  }
  m_ends = CStationingIndex(startStationing, std::move(ends));
  m_boxes = CBoxTree(std::move(boxes));
  m_vicinity = kVicinityOfBoxes * m_boxes.meanSize();
  findWedges();
}

/// A wedge opens between two segments that follow each other, elements of length zero passed over.
void CHoralAlignment::findWedges() {
  std::size_t before = m_segments.size();  // none yet
  for (std::size_t i = 0; i < m_segments.size(); ++i) {
    if (m_segments[i].isOfLengthZero()) continue;
    if (before < m_segments.size()) {
      if (const auto wedge = smoothWedgeBetween(m_segments[before], m_segments[i])) {
        // Exact alignments have no wedge, so the table comes with the first one.
        m_wedges.resize(m_segments.size());
        m_wedges[before] = *wedge;
        m_segments[before].opensWedge = true;
      }
    }
    before = i;
  }
}

const CHoralSegment* CHoralAlignment::segmentAt(double stationing) const {
  if (!(stationing >= m_startStationing)) return nullptr;
  auto found = m_segments.begin() + static_cast<std::ptrdiff_t>(m_ends.firstNotLess(stationing));
  if (found == m_segments.end()) return nullptr;
  if (!found->isEvaluable()) {
    // An element of length 0 can only be met at the very start, where the next one begins too.
    found = std::find_if_not(found, m_segments.end(),
                             [](const CHoralSegment& segment) { return segment.isOfLengthZero(); });
    if (found == m_segments.end() || !found->isEvaluable()) return nullptr;
  }
  // It begins elsewhere when a caller has linked it to another element than the one before it.
  return stationing >= found->stationingStart ? &*found : nullptr;
}

std::optional<CCurvePoint> CHoralAlignment::placeAt(double stationing) const {
  const CHoralSegment* segment = segmentAt(stationing);
  if (segment == nullptr) return std::nullopt;
  return segment->path.placeAt(stationing - segment->stationingStart);
}

std::optional<CAlignmentPosition> CHoralAlignment::positionAt(double stationing) const {
  const CHoralSegment* segment = segmentAt(stationing);
  if (segment == nullptr) return std::nullopt;
  const double length = stationing - segment->stationingStart;
  const CCurvePoint point = segment->path.at(length);
  return CAlignmentPosition{stationing, reportedAzimuth(point.heading),
                            segment->path.curve.radiusAt(length), point.position};
}

std::optional<CAlignmentFoot> CHoralAlignment::project(const Point2D& p) const {
  if (!isFinite(p)) return std::nullopt;
  if (const auto foot = nearestFoot(p)) return *foot;
  return nearestCorner(p);
}

std::optional<CAlignmentFoot> CHoralAlignment::project(const Point2D& p, CFootTrail& trail) const {
  if (const auto foot = footOnSoleSegment(p, trail.sole)) {
    trail.noteServed();
    return *foot;
  }
  const auto foot = project(p);
  if (!foot) return std::nullopt;
  if (trail.isDueAfter(foot->stationing)) followTo(foot->stationing, trail);
  return *foot;
}

/// Nothing where the segment has none or may not be the only one that has.
std::optional<CAlignmentFoot> CHoralAlignment::footOnSoleSegment(const Point2D& p,
                                                                 const CSoleSegment& sole) const {
  const double reach = sole.reachAlone(p);
  if (!(reach > 0.0)) return std::nullopt;
  const CHoralSegment& segment = m_segments[sole.index()];
  const CCurveFoot foot = segment.path.footOf(p);
  const bool isNearest =
      foot.report == CFootReport::OnCurve && reachOf(std::abs(foot.lateral)) <= reach;
  if (!isNearest) return std::nullopt;
  return footInside(segment, foot);
}

void CHoralAlignment::followTo(double stationing, CFootTrail& trail) const {
  const CHoralSegment* segment = segmentAt(stationing);
  if (segment == nullptr) return;
  const Point2D place = segment->path.at(stationing - segment->stationingStart).position;
  const auto index = static_cast<std::size_t>(segment - m_segments.data());
  trail.sole = CSoleSegment(m_segments, m_boxes, index, place);
}

/// Visits the segments whose boxes are near, in any order: the index orders equally near feet as
/// the walk along the alignment would. A wedge comes with the segment that leads into it, as its
/// tip is that segment's end and so lies in the same box.
std::optional<CAlignmentFoot> CHoralAlignment::nearestFoot(const Point2D& p) const {
  CNearestFoot<CAlignmentFoot> nearest;
  const auto look = [&](std::size_t index) {
    const CHoralSegment& segment = m_segments[index];
    if (!segment.isEvaluable()) return;
    const auto order = static_cast<double>(index);
    const CCurveFoot foot = segment.path.footOf(p);
    if (foot.report == CFootReport::OnCurve) {
      nearest.regular.offer(std::abs(foot.lateral), order, footInside(segment, foot));
    } else if (foot.outside <= kFootTolerance) {
      const CAlignmentFoot end = footAtEnd(segment, foot, p);
      nearest.justOutside.offer(std::abs(end.offset), order, end);
    }
    if (segment.opensWedge && m_wedges[index].holds(p)) {
      const double offset = m_wedges[index].offsetOf(p);
      nearest.regular.offer(std::abs(offset), order, {segment.stationingEnd, offset});
    }
  };
  // Most points have a foot nearby. As long as none is found, boxes at any distance would come into
  // question, those of the wrong group first where a point lies behind the last segment of one.
  m_boxes.visitNear(
      p, [&] { return std::min(nearest.reach(), m_vicinity); }, look);
  if (nearest.reach() <= m_vicinity) return nearest.chosen();
  m_boxes.visitNear(
      p, [&] { return nearest.reach(); }, look);
  return nearest.chosen();
}

/// A walk over all segments, as a corner is told by the reports of two neighbours.
std::optional<CAlignmentFoot> CHoralAlignment::nearestCorner(const Point2D& p) const {
  CNearest<CAlignmentFoot> nearest;
  CFootReport before = CFootReport::Unknown;
  const CHoralSegment* previous = nullptr;
  for (const CHoralSegment& segment : m_segments) {
    if (segment.isGap || segment.isOfLengthZero()) continue;
    const CFootReport now =
        segment.isEvaluable() ? segment.path.footOf(p).report : CFootReport::Unknown;
    if (facesCorner(before, now)) {
      // The side is told by the mean direction, as neither segment has the point beside it.
      const Point2D ray = p - segment.start;
      const CDirection tangent =
          directionThrough(previous->path.end().tangent, segment.path.startDirection);
      const double side = rightComponent(ray, tangent) < 0.0 ? -1.0 : 1.0;
      nearest.offer(ray.length(), segment.stationingStart,
                    {segment.stationingStart, side * ray.length()});
    }
    before = now;
    previous = &segment;
  }
  return nearest.candidate();
}

}  // namespace Ruv
