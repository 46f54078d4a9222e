// SPDX-License-Identifier: BSL-1.0
/// @file
/// Fix points on the wall of a tunnel, and measurements of some of them without their ids.

#ifndef CALCULATIONS_TESTING_FIX_POINTS_H
#define CALCULATIONS_TESTING_FIX_POINTS_H

#include "testing/Random.h"

#include <Calculations/Calculations.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace TestSupport {

using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::PointDetermination;

/// All round the wall of 200 m of tunnel that runs north.
ENHPoint pointOnTheWall(Random& random);

/// 200 m of tunnel with fix points all round the wall. An instrument stands in the middle, turned
/// somehow, and measures some of them with noise of 1 mm, and places that are no fix points.
struct FixPointWorkload {
  std::vector<ENHPoint> fixPoints;
  std::vector<ENHPoint> measured;                 ///< relative to the instrument
  std::vector<std::optional<std::size_t>> truth;  ///< the fix points measured

  /// @param numMeasured the stray ones included
  FixPointWorkload(std::size_t numFixPoints, std::size_t numMeasured, std::size_t numStray,
                   std::uint64_t seed);

  /// Fix points and polar measurements, entered through the public interface.
  PointDetermination enter() const;

  /// How many measurements were given another fix point than the true one, or none, or one although
  /// they are stray.
  std::size_t numWrong(const PointDetermination& determination) const;
};

}  // namespace TestSupport

#endif
