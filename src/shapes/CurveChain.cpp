// SPDX-License-Identifier: BSL-1.0
// Projection onto a chain. A point has its foot either inside a segment, where the ray to it stands
// square to the segment, or on the end of one; every segment offers its foot, or else its nearer
// end, and the nearest offer counts. Inside a segment the ray lies on the normal, so its signed
// length is the lateral of the segment, turned outwards. At an end it may point anywhere between
// two normals.

#include "shapes/CurveChain.h"

#include "shapes/Nearest.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Ruv {

namespace {

/// A point this near (m) to a vertex lies on it and gives no direction.
constexpr double kOnVertex = 1e-9;

/// A chain whose ends are this close (m) is closed.
constexpr double kClosedDistance = 1e-9;

std::vector<CChainSegment> segmentsBetween(const std::vector<CChainNode>& nodes) {
  std::vector<CChainSegment> segments;
  if (nodes.size() < 2) return segments;
  segments.reserve(nodes.size() - 1);
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    segments.push_back(CChainSegment::between(nodes[i - 1].point, nodes[i].point, nodes[i].radius));
  }
  return segments;
}

/// Told by the sign of the enclosed area. The first point as reference keeps the products small.
/// Areas of clockwise chains are negative.
bool isClockwise(const std::vector<CChainSegment>& segments) {
  if (segments.empty()) return false;
  const Point2D reference = segments.front().start;
  double doubledArea = 0.0;
  for (const CChainSegment& segment : segments) {
    doubledArea += segment.doubledAreaFrom(reference);
  }
  return doubledArea < 0.0;
}

CBox boxOf(const CChainSegment& segment) {
  const double length = segment.hasExtent() ? segment.length : 0.0;
  return boxAroundCurve(segment.start, segment.end, length);
}

/// A chain of fewer segments is searched as fast without a hint.
constexpr std::size_t kFewSegments = 64;

/// One end of a segment with its distance from a point.
struct SegmentEnd {
  bool isStart;
  double distance;
};

/// The end that is nearest to a point without a foot on the segment. The report of a straight tells
/// it. An arc whose chord exceeds its diameter reports nothing, so there the distances decide.
SegmentEnd nearerEnd(const CChainSegment& segment, CFootReport report, const Point2D& p) {
  if (segment.radius == 0.0) {
    const bool isStart = report != CFootReport::BeyondEnd;
    return {isStart, (p - (isStart ? segment.start : segment.end)).length()};
  }
  const double fromStart = (p - segment.start).length();
  const double fromEnd = (p - segment.end).length();
  return {fromStart <= fromEnd, fromStart <= fromEnd ? fromStart : fromEnd};
}

}  // namespace

CCurveChain::CCurveChain(std::vector<CChainNode> nodes)
    : m_nodes(std::move(nodes)),
      m_segments(segmentsBetween(m_nodes)),
      m_outwards(isClockwise(m_segments) ? -1.0 : 1.0) {
  std::vector<CBox> boxes;
  boxes.reserve(m_segments.size());
  for (const CChainSegment& segment : m_segments) {
    boxes.push_back(boxOf(segment));
  }
  m_boxes = CBoxTree(std::move(boxes));
}

template <class Visit>
std::optional<CChainFoot> CCurveChain::nearestFoot(const Point2D& p, const Visit& visit) const {
  if (!isFinite(p)) return std::nullopt;
  CNearest<Candidate> nearest;
  const auto look = [&](std::size_t index) {
    const CChainSegment& segment = m_segments[index];
    const CCurveFoot foot = segment.hasExtent() ? segment.footOf(p) : CCurveFoot();
    Candidate candidate{index, foot.report, foot.length, foot.lateral};
    double distance = std::abs(foot.lateral);
    if (foot.report != CFootReport::OnCurve) {
      const SegmentEnd end = nearerEnd(segment, foot.report, p);
      candidate.report = end.isStart ? CFootReport::BeforeStart : CFootReport::BeyondEnd;
      distance = end.distance;
    }
    nearest.offer(distance, static_cast<double>(index), candidate);
  };
  // Once a candidate is known, boxes farther away than it cannot matter, in whichever order they
  // come: of equally near candidates the one with the lower index wins.
  const auto reach = [&] { return reachOf(nearest.distance()); };
  visit(reach, look);
  if (!nearest.candidate()) return std::nullopt;
  const Candidate& found = *nearest.candidate();
  switch (found.report) {
    case CFootReport::OnCurve:
      return footInside(found);
    case CFootReport::BeforeStart:
      return footAtVertex(found.segment, found.segment, p);
    default:
      return footAtVertex(found.segment + 1, found.segment, p);
  }
}

std::optional<CChainFoot> CCurveChain::project(const Point2D& p) const {
  return nearestFoot(
      p, [&](const auto& reach, const auto& look) { m_boxes.visitNear(p, reach, look); });
}

std::optional<CChainFoot> CCurveChain::project(const Point2D& p, std::size_t hint) const {
  if (m_segments.size() < kFewSegments || !(hint < m_segments.size())) return project(p);
  return nearestFoot(p, [&](const auto& reach, const auto& look) {
    // What the hint finds is mostly the answer already, and leaves few boxes within reach.
    look(hint);
    m_boxes.visitWithin(p, reach, [&](std::size_t index) {
      if (index != hint) look(index);
    });
  });
}

/// Stations need not be lengths (they are handed in with the nodes), so a length within the segment
/// is stretched to what lies between those of its ends.
double CCurveChain::stationOn(std::size_t segment, double length) const {
  const double from = m_nodes[segment].station;
  const double stretch = (m_nodes[segment + 1].station - from) / m_segments[segment].length;
  return from + length * stretch;
}

Point2D CCurveChain::outwardNormal(const CDirection& tangent) const {
  return rightNormal(tangent) * m_outwards;
}

CChainFoot CCurveChain::footInside(const Candidate& candidate) const {
  const CCurvePoint place = m_segments[candidate.segment].at(candidate.length);
  return {place.position, stationOn(candidate.segment, candidate.length),
          candidate.lateral * m_outwards, outwardNormal(place.tangent), candidate.segment};
}

CChainFoot CCurveChain::footAtVertex(std::size_t node, std::size_t segment,
                                     const Point2D& p) const {
  CChainFoot foot;
  foot.segment = segment;
  foot.point = m_nodes[node].point;
  foot.station = m_nodes[node].station;
  foot.normal = outwardNormal(directionThroughVertex(node));
  // The mean direction through the vertex tells on which side p lies. The normal is then the ray
  // itself, so that moving along it from the vertex leads to p.
  const Point2D ray = p - foot.point;
  const double distance = ray.length();
  const double side = ray.x * foot.normal.x + ray.y * foot.normal.y < 0.0 ? -1.0 : 1.0;
  foot.outside = side * distance;
  if (distance > kOnVertex) foot.normal = ray / foot.outside;
  return foot;
}

bool CCurveChain::isClosed() const {
  return (m_nodes.front().point - m_nodes.back().point).length() <= kClosedDistance;
}

/// Walks back over nodes that repeat, at most once round the chain.
const CChainSegment* CCurveChain::segmentBefore(std::size_t node) const {
  const std::size_t count = m_segments.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (node == 0 && !isClosed()) return nullptr;
    node = node > 0 ? node - 1 : count - 1;
    if (m_segments[node].hasExtent()) return &m_segments[node];
  }
  return nullptr;
}

/// Walks on over nodes that repeat, at most once round the chain.
const CChainSegment* CCurveChain::segmentAfter(std::size_t node) const {
  const std::size_t count = m_segments.size();
  for (std::size_t i = 0; i < count; ++i, ++node) {
    if (node == count && !isClosed()) return nullptr;
    if (node == count) node = 0;
    if (m_segments[node].hasExtent()) return &m_segments[node];
  }
  return nullptr;
}

/// The mean direction at a node; where a chain is open, the direction of its end.
CDirection CCurveChain::directionThroughVertex(std::size_t node) const {
  const CChainSegment* before = segmentBefore(node);
  const CChainSegment* after = segmentAfter(node);
  const CDirection into = before != nullptr ? before->at(before->length).tangent : CDirection();
  if (after == nullptr) return into;
  if (before == nullptr) return after->startDirection;
  return directionThrough(into, after->startDirection);
}

/// The first node but the start whose station is not less; one past the last if there is none.
std::size_t CCurveChain::endOfSegmentAt(double station, std::size_t guess) const {
  // Looks at the segment guessed and at both beside it, where a search by halves mispredicts.
  for (const std::size_t i : {guess, guess + 1, guess - 1}) {
    const bool isEnd = i > 0 && i < m_nodes.size() && !(m_nodes[i].station < station) &&
                       (i == 1 || m_nodes[i - 1].station < station);
    if (isEnd) return i;
  }
  const auto end =
      std::lower_bound(m_nodes.begin() + 1, m_nodes.end(), station,
                       [](const CChainNode& node, double value) { return node.station < value; });
  return static_cast<std::size_t>(end - m_nodes.begin());
}

std::optional<Point2D> CCurveChain::pointAt(double station, std::size_t& end) const {
  if (m_nodes.size() < 2 || !(station >= m_nodes.front().station)) return std::nullopt;
  end = endOfSegmentAt(station, end);
  if (end == m_nodes.size()) return std::nullopt;
  // Nodes are given back as they were stored, without the rounding of an evaluation.
  if (station == m_nodes[end].station) return m_nodes[end].point;
  const std::size_t index = end - 1;
  const CChainSegment& segment = m_segments[index];
  if (station == m_nodes[index].station || !segment.hasExtent()) return segment.start;
  const double share =
      (station - m_nodes[index].station) / (m_nodes[end].station - m_nodes[index].station);
  return segment.at(segment.length * share).position;
}

}  // namespace Ruv
