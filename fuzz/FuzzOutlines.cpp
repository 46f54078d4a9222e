// SPDX-License-Identifier: BSL-1.0
#include "FuzzOutlines.h"

#include <boost/make_shared.hpp>

#include <cmath>
#include <cstddef>

namespace Fuzz {

namespace {

using namespace Ruv::Calculations;

constexpr double kFullTurn = 6.283185307179586;

}  // namespace

std::vector<Point2D> starCorners(Input& input, int most) {
  const double side = input.yes() ? 1.0 : -1.0;
  const int count = 4 + input.count(most - 4);
  std::vector<Point2D> corners;
  for (int i = 0; i < count; ++i) {
    const double distance = input.number(2.0, 6.0);
    // Less than a third of the step to either side: neighbours stay in order, gaps below pi.
    const double bearing = side * kFullTurn * (i + input.number(-0.3, 0.3)) / count;
    corners.emplace_back(distance * std::sin(bearing), distance * std::cos(bearing));
  }
  return corners;
}

double arcRadius(Input& input, const Point2D& from, const Point2D& to) {
  const double chord = std::hypot(to.x - from.x, to.y - from.y);
  const double factor = input.number(0.5, 5.5);
  return (input.yes() ? 1.0 : -1.0) * chord * factor;
}

boost::shared_ptr<ThProfileDefinition> profileThrough(Input& input,
                                                      const std::vector<Point2D>& corners,
                                                      Arcs arcs) {
  auto profile = boost::make_shared<ThProfileDefinition>();
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point2D& from = corners[i];
    const Point2D& to = corners[(i + 1) % corners.size()];
    if (arcs == Arcs::Some && input.yes()) {
      profile->addSegmentArc(from.x, from.y, to.x, to.y, arcRadius(input, from, to));
    } else {
      profile->addSegmentStraight(from.x, from.y, to.x, to.y);
    }
  }
  return profile;
}

}  // namespace Fuzz
