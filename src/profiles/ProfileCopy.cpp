// SPDX-License-Identifier: BSL-1.0
// Profiles are shared with callers, who may go on adding to them, and nothing tells when they do.
// So what is prepared from a profile is kept with a copy of its nodes, and every call first
// compares them: n comparisons of doubles, where preparing takes n log n steps of geometry.

#include "profiles/ProfileCopy.h"

#include "profiles/MeasuredProfileImpl.h"
#include "shapes/PlaneGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <typeinfo>

namespace Ruv {
namespace Calculations {

namespace {

unsigned int numNodes(const IProfileSegmentProvider& profile) {
  const unsigned int segments = profile.getNumSegments();
  return segments == 0 ? 0 : segments + 1;
}

/// Read by starts, which are the quicker ones to get: segments start where those before them end.
Point2D pointAt(const IProfileSegmentProvider& profile, unsigned int count, unsigned int i) {
  return i + 1 < count ? profile.getSegmentStartAt(i) : profile.getSegmentEndAt(i - 1);
}

double radiusAt(const IProfileSegmentProvider& profile, unsigned int i) {
  return i > 0 ? profile.getSegmentRadiusAt(i - 1) : 0.0;
}

/// Unlike ==, takes not-a-number for equal to itself: a profile that holds one has not changed.
bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
bool isSame(const Point2D& a, const Point2D& b) { return isSame(a.x, b.x) && isSame(a.y, b.y); }

/// The points of a measured profile, which are read by thousands and all at once; null for others.
const std::vector<Point2D>* measuredPoints(const IProfileSegmentProvider& profile) {
  // What callers derive from it may tell other segments.
  if (typeid(profile) != typeid(MeasuredProfile)) return nullptr;
  return &MeasuredProfileImpl::of(static_cast<const MeasuredProfile&>(profile)).points;
}

bool isNodeAt(const ProfileCopy::Node& node, const Point2D& point) {
  return isSame(node.point, point) && node.radius == 0.0;
}

}  // namespace

ProfileCopy::ProfileCopy(const IProfileSegmentProvider& profile) : m_nodes(numNodes(profile)) {
  if (const std::vector<Point2D>* points = measuredPoints(profile)) {
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
      m_nodes[i].point = (*points)[i < points->size() ? i : 0];
    }
  } else {
    const auto count = static_cast<unsigned int>(m_nodes.size());
    for (unsigned int i = 0; i < count; ++i) {
      m_nodes[i].point = pointAt(profile, count, i);
      m_nodes[i].radius = radiusAt(profile, i);
    }
  }
  m_isSound = std::all_of(m_nodes.begin(), m_nodes.end(),
                          [](const Node& node) { return isFinite(node.point); });
  if (!m_isSound) leaveOutUnsound();
}

/// Compares doubles, not addresses: a profile may be changed or another one take its place in
/// memory.
bool ProfileCopy::isCopyOf(const IProfileSegmentProvider& profile) const {
  const unsigned int count = numNodes(profile);
  if (m_nodes.size() != count) return false;
  if (const std::vector<Point2D>* points = measuredPoints(profile)) {
    return points->empty() ||
           (std::equal(m_nodes.begin(), m_nodes.end() - 1, points->begin(), isNodeAt) &&
            isNodeAt(m_nodes.back(), points->front()));
  }
  for (unsigned int i = 0; i < count; ++i) {
    if (!isSame(pointAt(profile, count, i), m_nodes[i].point) ||
        !isSame(radiusAt(profile, i), m_nodes[i].radius)) {
      return false;
    }
  }
  return true;
}

/// Where an end of an arc is left out a straight bridges the gap, as the radius belongs to the
/// chord that is gone.
void ProfileCopy::leaveOutUnsound() {
  m_sound.reserve(m_nodes.size());
  bool isBridged = false;
  for (const Node& node : m_nodes) {
    if (isFinite(node.point)) {
      m_sound.push_back({node.point, isBridged ? 0.0 : node.radius});
      isBridged = false;
    } else {
      isBridged = true;
    }
  }
  // A ring that begins, and so ends, with a point that is left out.
  const bool isOpened = isBridged && !m_sound.empty() && !isFinite(m_nodes.front().point);
  if (isOpened) m_sound.push_back({m_sound.front().point, 0.0});
}

}  // namespace Calculations
}  // namespace Ruv
