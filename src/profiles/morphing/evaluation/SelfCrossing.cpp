// SPDX-License-Identifier: BSL-1.0
// Two segments cross where the ends of each lie on different sides of the other. To compare only
// those that may cross, the edges are sorted by their left ends: an edge has to be compared with
// those that begin before it ends. On outlines these are few, and only zigzags of long edges come
// to all pairs.

#include "profiles/morphing/evaluation/SelfCrossing.h"

#include <algorithm>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// Arcs are sampled so that the outline turns by no more than this (rad) between samples; chords
/// then lie within 1.3e-3 of the radius.
constexpr double kSampleTurning = 0.1;

/// After so many pairs of edges the question stays open. An outline of 10 000 points needs less
/// than a tenth, a zigzag of long edges all of it.
constexpr std::size_t kMostComparisons = 20000000;

struct Edge {
  Point2D from;
  Point2D to;
  double low = 0.0;   // of x
  double high = 0.0;  // of x
};

std::vector<Edge> edgesByX(const std::vector<Point2D>& polygon) {
  std::vector<Edge> edges;
  edges.reserve(polygon.size());
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2D& from = polygon[i];
    const Point2D& to = polygon[(i + 1) % polygon.size()];
    edges.push_back({from, to, std::min(from.x, to.x), std::max(from.x, to.x)});
  }
  std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.low < b.low; });
  return edges;
}

/// On which side of an edge a point lies, by the sign. It is the cross product (to - from) x (p -
/// from), positive on the left.
double sideOf(const Edge& edge, const Point2D& p) {
  const Point2D along = edge.to - edge.from;
  const Point2D across = p - edge.from;
  return along.x * across.y - along.y * across.x;
}

/// Touching is no crossing: neighbours share a node.
bool cross(const Edge& a, const Edge& b) {
  if (std::max(a.from.y, a.to.y) < std::min(b.from.y, b.to.y)) return false;
  if (std::max(b.from.y, b.to.y) < std::min(a.from.y, a.to.y)) return false;
  return sideOf(a, b.from) * sideOf(a, b.to) < 0.0 && sideOf(b, a.from) * sideOf(b, a.to) < 0.0;
}

}  // namespace

bool isSimple(const TurningChords& ring) {
  const std::vector<Point2D> polygon = sampled(ring, kSampleTurning);
  const auto finite = [](const Point2D& p) { return isFinite(p); };
  if (!std::all_of(polygon.begin(), polygon.end(), finite)) return false;
  const std::vector<Edge> edges = edgesByX(polygon);
  std::size_t comparisons = 0;
  for (std::size_t i = 0; i < edges.size(); ++i) {
    for (std::size_t j = i + 1; j < edges.size() && edges[j].low <= edges[i].high; ++j) {
      if (++comparisons > kMostComparisons || cross(edges[i], edges[j])) return false;
    }
  }
  return true;
}

}  // namespace Calculations
}  // namespace Ruv
