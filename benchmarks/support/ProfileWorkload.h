// SPDX-License-Identifier: BSL-1.0
/// @file
/// The tunnel profile that all profile benchmarks work on, points around it and measured sections.

#ifndef CALCULATIONS_BENCHMARKS_PROFILE_WORKLOAD_H
#define CALCULATIONS_BENCHMARKS_PROFILE_WORKLOAD_H

#include "support/ExactProfile.h"
#include "testing/Profiles.h"

#include <Calculations/Calculations.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Benchmarks {

using Ruv::Calculations::MeasuredProfile;
using Ruv::Calculations::ThProfileDefinition;
using TestSupport::measuredThrough;

/// Walls, a vault, benches and an invert in twelve segments, symmetric, 36 m round.
const ExactProfile& tunnelProfile();

/// The node of tunnelProfile() that is its crown.
constexpr std::size_t kCrownNode = 4;

/// Length of the pieces (m) of outlines and of the polylines that peers search.
constexpr double kOutlinePiece = 0.01;

/// tunnelProfile() as points, the way the library cuts it to compute areas: 804 points.
std::vector<Point2D> coarseOutline();
/// In pieces of at most 1 cm: 3594 points.
std::vector<Point2D> fineOutline();

/// tunnelProfile() entered through the public interface.
boost::shared_ptr<const ThProfileDefinition> enterTunnelProfile();

/// Points within 0.5 m of the profile and the places and offsets that they were made from. The
/// profile is convex: outside, the nearest place is that place; inside, near a corner, another one
/// may be nearer.
struct PointsAround {
  std::vector<Point2D> points;
  std::vector<double> stations;
  std::vector<double> offsets;  ///< positive outside
};

PointsAround pointsAround(const ExactProfile& profile, std::size_t count);

/// A scanned section, clockwise: the profile with over- and under-break of up to 12 cm and noise
/// of 5 mm. Star-shaped about its middle, so it never crosses itself.
std::vector<Point2D> measuredSection(std::size_t numPoints, std::uint64_t seed);

/// Consecutive points in lists of a size, as callers hand them over. What remains is left out.
std::vector<std::vector<Point2D>> inLists(const std::vector<Point2D>& points, std::size_t size);

}  // namespace Benchmarks

#endif
