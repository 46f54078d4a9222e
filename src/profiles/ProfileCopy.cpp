// SPDX-License-Identifier: BSL-1.0
// Profiles are shared with callers, who may go on adding to them, and nothing tells when they do.
// So what is prepared from a profile is kept with a copy of its nodes, and every call first
// compares them: n comparisons of doubles, where preparing takes n log n steps of geometry.

#include "profiles/ProfileCopy.h"

#include "shapes/PlaneGeometry.h"

#include <cmath>

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

}  // namespace

ProfileCopy::ProfileCopy(const IProfileSegmentProvider& profile) : m_nodes(numNodes(profile)) {
  const auto count = static_cast<unsigned int>(m_nodes.size());
  for (unsigned int i = 0; i < count; ++i) {
    m_nodes[i].point = pointAt(profile, count, i);
    m_nodes[i].radius = radiusAt(profile, i);
  }
}

/// Compares doubles, not addresses: a profile may be changed or another one take its place in
/// memory.
bool ProfileCopy::isCopyOf(const IProfileSegmentProvider& profile) const {
  const unsigned int count = numNodes(profile);
  if (m_nodes.size() != count) return false;
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
std::vector<ProfileCopy::Node> ProfileCopy::soundNodes() const {
  std::vector<Node> sound;
  sound.reserve(m_nodes.size());
  bool isBridged = false;
  for (const Node& node : m_nodes) {
    if (isFinite(node.point)) {
      sound.push_back({node.point, isBridged ? 0.0 : node.radius});
      isBridged = false;
    } else {
      isBridged = true;
    }
  }
  // A ring that begins, and so ends, with a point that is left out.
  const bool isOpened = isBridged && !sound.empty() && !isFinite(m_nodes.front().point);
  if (isOpened) sound.push_back({sound.front().point, 0.0});
  return sound;
}

}  // namespace Calculations
}  // namespace Ruv
