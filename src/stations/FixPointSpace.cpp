// SPDX-License-Identifier: BSL-1.0
// The volume is that of boxes: the points are halved at the median of their longest extent, the
// halves likewise, as in a k-d tree (Bentley 1975, Commun. ACM 18), and the boxes of the last parts
// are summed up. In a curved tunnel the boxes follow the curve, where one box would hold the rock
// inside the bend.

#include "stations/FixPointSpace.h"

#include "stations/EigenPoints.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

using Eigen::Vector3d;
using Points = std::vector<Vector3d>;

/// Parts of fewer points are not halved so far: their boxes would say more about chance than about
/// the space.
constexpr std::size_t kFewestInPart = 16;

/// The distinct finite points, in an order that does not depend on the one of adding.
Points distinctAmong(const std::vector<ENHPoint>& points) {
  Points distinct;
  distinct.reserve(points.size());
  for (const ENHPoint& p : points) {
    const Vector3d v = asVector(p);
    if (v.allFinite()) distinct.push_back(v);
  }
  std::sort(distinct.begin(), distinct.end(), [](const Vector3d& a, const Vector3d& b) {
    return std::lexicographical_compare(a.data(), a.data() + 3, b.data(), b.data() + 3);
  });
  distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
  return distinct;
}

Vector3d extentsOf(Points::const_iterator first, Points::const_iterator last) {
  Vector3d low = *first;
  Vector3d high = *first;
  for (auto p = first; p != last; ++p) {
    low = low.cwiseMin(*p);
    high = high.cwiseMax(*p);
  }
  return high - low;
}

/// The points, reduced to their centroid and turned in plan so that their longest extent, that of
/// the largest moment, runs along the second axis.
Points alongLongestExtent(const Points& points) {
  Vector3d centroid = Vector3d::Zero();
  for (const Vector3d& p : points) {
    centroid += (p - points.front()) / static_cast<double>(points.size());
  }
  centroid += points.front();
  Eigen::Matrix3d spread = Eigen::Matrix3d::Zero();
  for (const Vector3d& p : points) {
    spread += (p - centroid) * (p - centroid).transpose();
  }
  // The principal axis of the moments in plan: tan(2 azimuth) = 2 [e n] / ([n n] - [e e]), with
  // e and n the reduced east and north, makes the moment along the second axis the largest.
  const double azimuth = 0.5 * std::atan2(2.0 * spread(0, 1), spread(1, 1) - spread(0, 0));
  const double sine = std::sin(azimuth);
  const double cosine = std::cos(azimuth);
  Points turned;
  turned.reserve(points.size());
  for (const Vector3d& p : points) {
    const Vector3d v = p - centroid;
    turned.emplace_back(cosine * v.x() - sine * v.y(), sine * v.x() + cosine * v.y(), v.z());
  }
  return turned;
}

/// @param first, last at least two points, which are put in another order
double filledVolume(Points::iterator first, Points::iterator last, const Vector3d& leastExtents) {
  const Vector3d extents = extentsOf(first, last);
  const auto count = last - first;
  if (count < static_cast<std::ptrdiff_t>(2 * kFewestInPart)) {
    // n points at random in a part have on average (n - 1) / (n + 1) of its extents.
    const auto n = static_cast<double>(count);
    return (extents * ((n + 1.0) / (n - 1.0))).cwiseMax(leastExtents).prod();
  }
  Eigen::Index longest = 0;
  extents.maxCoeff(&longest);
  const auto middle = first + count / 2;
  std::nth_element(first, middle, last, [longest](const Vector3d& a, const Vector3d& b) {
    return a(longest) < b(longest);
  });
  return filledVolume(first, middle, leastExtents) + filledVolume(middle, last, leastExtents);
}

}  // namespace

FixPointSpace::FixPointSpace(const std::vector<ENHPoint>& fixPoints, const Vector3d& leastExtents)
    : points(distinctAmong(fixPoints)), extents(leastExtents) {
  if (points.size() < 2) return;
  Points turned = alongLongestExtent(points);
  const auto boxOf = [&leastExtents](const Points& p) -> Vector3d {
    return extentsOf(p.begin(), p.end()).cwiseMax(leastExtents);
  };
  if (boxOf(turned).prod() < boxOf(points).prod()) points.swap(turned);
  extents = boxOf(points);
  Points parts = points;
  volume = std::min(extents.prod(), filledVolume(parts.begin(), parts.end(), leastExtents));
}

}  // namespace Calculations
}  // namespace Ruv
