// SPDX-License-Identifier: BSL-1.0
/// @file
/// Chains to search.

#ifndef CALCULATIONS_TESTS_SHAPES_RANDOM_NODES_H
#define CALCULATIONS_TESTS_SHAPES_RANDOM_NODES_H

#include "shapes/CurveChain.h"
#include "testing/Random.h"

#include <vector>

namespace TestSupport {

using Ruv::CChainNode;
using Ruv::CChainSegment;
using Ruv::Point2D;

/// A closed or open chain of straights and arcs, with crossings and repeated points.
inline std::vector<CChainNode> randomNodes(Random& random, int count) {
  std::vector<CChainNode> nodes;
  for (int i = 0; i < count; ++i) {
    Point2D point(random.uniform(-5, 5), random.uniform(-5, 5));
    // Not the last but one: a line cuts a retraced segment in one point, not in two.
    if (i > 2 && random.index(10) == 0) point = nodes[random.index(nodes.size() - 2)].point;
    double radius = 0.0;
    if (i > 0 && random.index(2) == 0) {
      const double chord = (point - nodes.back().point).length();
      radius = random.uniform(0.5, 3.0) * chord * random.sign();
    }
    double station = 0.0;
    if (i > 0) {
      const CChainNode& last = nodes.back();
      station = last.station + CChainSegment::between(last.point, point, radius).length;
    }
    nodes.push_back({point, station, radius});
  }
  return nodes;
}

}  // namespace TestSupport

#endif
