// SPDX-License-Identifier: BSL-1.0
// Plane similarity transformation in closed form (Wolf and Ghilani, Adjustment Computations, 1997,
// two-dimensional conformal coordinate transformation).
//
//   (x, y)         local point (east, north) reduced to the centroid of the local points
//   (X, Y)         global point reduced to the centroid of the global points
//   a, b           scale times sine and cosine of the orientation, clockwise
//   n, [..]        number of pairs, sum over them
//
//   X = b x + a y,  Y = b y - a x
//   a = [X y - Y x] / [x^2 + y^2],  b = [X x + Y y] / [x^2 + y^2]
//
// Variances with the residuals v: s0^2 = [v v] / (2 n - 4), s0^2 / n for either coordinate of the
// centroid, which is what is told of the station, s0^2 / [x^2 + y^2] for a and b. That of the
// orientation is the latter over scale^2.

#include "stations/Helmert2d.h"

#include <cmath>

namespace Ruv {
namespace Calculations {

namespace {

/// Leaves two redundant observations to estimate the standard deviations from.
constexpr std::size_t kFewestPairs = 3;

/// East = b x + a y, north = b y - a x, between points reduced to their centroids. With b = scale
/// cos(orientation) and a = scale sin(orientation).
struct PlaneTransformation {
  ENHPoint localCentroid;
  ENHPoint globalCentroid;
  double a = 0.0;
  double b = 0.0;
  double squaredExtent = 0.0;  ///< sum of the squared plan distances from the local centroid
};

PlaneTransformation transformationOf(const PointPairs& pairs) {
  PlaneTransformation t;
  t.localCentroid = centroidOf(pairs.local);
  t.globalCentroid = centroidOf(pairs.global);
  double sumA = 0.0;
  double sumB = 0.0;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const ENHPoint from = pairs.local[i] - t.localCentroid;
    const ENHPoint to = pairs.global[i] - t.globalCentroid;
    t.squaredExtent += from.east * from.east + from.north * from.north;
    sumA += to.east * from.north - to.north * from.east;
    sumB += to.east * from.east + to.north * from.north;
  }
  t.a = sumA / t.squaredExtent;
  t.b = sumB / t.squaredExtent;
  return t;
}

/// The origin of the local system, the instrument, in the reduced global one.
ENHPoint stationOf(const PlaneTransformation& t) {
  const ENHPoint& local = t.localCentroid;
  return ENHPoint(t.globalCentroid.east - t.a * local.north - t.b * local.east,
                  t.globalCentroid.north - t.b * local.north + t.a * local.east,
                  t.globalCentroid.height - local.height);
}

/// What the transformed local points miss the global ones by.
struct Residuals {
  double planSquares = 0.0;
  double heightMagnitudes = 0.0;
};

Residuals residualsOf(const PointPairs& pairs, const PlaneTransformation& t) {
  Residuals sums;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const ENHPoint from = pairs.local[i] - t.localCentroid;
    const ENHPoint to = pairs.global[i] - t.globalCentroid;
    const double east = t.b * from.east + t.a * from.north - to.east;
    const double north = t.b * from.north - t.a * from.east - to.north;
    sums.planSquares += east * east + north * north;
    sums.heightMagnitudes += std::abs(to.height - from.height);
  }
  return sums;
}

}  // namespace

std::optional<StationSetup> fitHelmert2d(const PointPairs& pairs) {
  if (pairs.size() < kFewestPairs) return std::nullopt;
  const PlaneTransformation t = transformationOf(pairs);
  const Residuals residuals = residualsOf(pairs, t);
  const auto count = static_cast<double>(pairs.size());
  // Each pair gives two observations; the four unknowns take away four.
  const double sigma0 = std::sqrt(residuals.planSquares / (2.0 * count - 4.0));
  const double planStdDev = sigma0 * std::sqrt(1.0 / count);

  StationSetup setup;
  setup.station = pairs.origin + stationOf(t);
  setup.scale = std::sqrt(t.a * t.a + t.b * t.b);
  setup.orientation = std::atan2(t.a, t.b);
  setup.scaleStdDev = sigma0 * std::sqrt(1.0 / t.squaredExtent);
  setup.orientationStdDev = setup.scaleStdDev / setup.scale;
  // The mean magnitude of the height residuals is what callers know as the height's uncertainty.
  setup.stationStdDev = ENHPoint(planStdDev, planStdDev, residuals.heightMagnitudes / count);
  return setup;
}

}  // namespace Calculations
}  // namespace Ruv
