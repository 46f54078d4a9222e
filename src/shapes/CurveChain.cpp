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

std::optional<CChainFoot> CCurveChain::project(const Point2D& p) const {
  if (!isFinite(p)) return std::nullopt;
  CNearest<Candidate> nearest;
  const auto look = [&](std::size_t index) {
    const CChainSegment& segment = m_segments[index];
    Candidate candidate{index, {}};
    if (segment.hasExtent()) candidate.foot = segment.footOf(p);
    double distance = std::abs(candidate.foot.lateral);
    if (candidate.foot.report != CFootReport::OnCurve) {
      const double fromStart = (p - segment.start).length();
      const double fromEnd = (p - segment.end).length();
      const bool isStartNearer = fromStart <= fromEnd;
      candidate.foot = isStartNearer ? footBeforeStart(0.0) : footBeyondEnd(segment.length, 0.0);
      distance = isStartNearer ? fromStart : fromEnd;
    }
    nearest.offer(distance, static_cast<double>(index), candidate);
  };
  m_boxes.visitNear(
      p, [&] { return reachOf(nearest.distance()); }, look);
  if (!nearest.candidate()) return std::nullopt;
  const Candidate& found = *nearest.candidate();
  switch (found.foot.report) {
    case CFootReport::OnCurve:
      return footInside(found);
    case CFootReport::BeforeStart:
      return footAtVertex(found.segment, p);
    default:
      return footAtVertex(found.segment + 1, p);
  }
}

double CCurveChain::stationOn(std::size_t segment, double length) const {
  const double from = m_nodes[segment].station;
  const double stretch = (m_nodes[segment + 1].station - from) / m_segments[segment].length;
  return from + length * stretch;
}

Point2D CCurveChain::outwardNormal(const CDirection& tangent) const {
  return rightNormal(tangent) * m_outwards;
}

CChainFoot CCurveChain::footInside(const Candidate& candidate) const {
  const CCurvePoint place = m_segments[candidate.segment].at(candidate.foot.length);
  return {place.position, stationOn(candidate.segment, candidate.foot.length),
          candidate.foot.lateral * m_outwards, outwardNormal(place.tangent)};
}

CChainFoot CCurveChain::footAtVertex(std::size_t node, const Point2D& p) const {
  CChainFoot foot;
  foot.point = m_nodes[node].point;
  foot.station = m_nodes[node].station;
  foot.normal = outwardNormal(directionThroughVertex(node));
  const Point2D ray = p - foot.point;
  const double distance = ray.length();
  const double side = ray.x * foot.normal.x + ray.y * foot.normal.y < 0.0 ? -1.0 : 1.0;
  foot.outside = side * distance;
  if (distance > kOnVertex) foot.normal = ray / foot.outside;
  return foot;
}

/// The mean direction at a node; where a chain is open, the direction of its end.
CDirection CCurveChain::directionThroughVertex(std::size_t node) const {
  const std::size_t count = m_segments.size();
  const bool isClosed = (m_nodes.front().point - m_nodes.back().point).length() <= kClosedDistance;
  const bool hasBefore = node > 0 || isClosed;
  const bool hasAfter = node < count || isClosed;
  const CChainSegment& before = m_segments[node > 0 ? node - 1 : count - 1];
  const CChainSegment& after = m_segments[node < count ? node : 0];
  const CDirection into = before.hasExtent() ? before.at(before.length).tangent : CDirection();
  if (!hasAfter || !after.hasExtent()) return into;
  if (!hasBefore || !before.hasExtent()) return after.startDirection;
  return directionThrough(into, after.startDirection);
}

std::optional<Point2D> CCurveChain::pointAt(double station) const {
  if (m_nodes.size() < 2 || !(station >= m_nodes.front().station)) return std::nullopt;
  const auto end =
      std::lower_bound(m_nodes.begin() + 1, m_nodes.end(), station,
                       [](const CChainNode& node, double value) { return node.station < value; });
  if (end == m_nodes.end()) return std::nullopt;
  if (station == end->station) return end->point;
  const auto index = static_cast<std::size_t>(end - m_nodes.begin()) - 1;
  const CChainSegment& segment = m_segments[index];
  if (station == m_nodes[index].station || !segment.hasExtent()) return segment.start;
  const double share = (station - m_nodes[index].station) / (end->station - m_nodes[index].station);
  return segment.at(segment.length * share).position;
}

}  // namespace Ruv
