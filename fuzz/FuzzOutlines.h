// SPDX-License-Identifier: BSL-1.0
/// @file
/// Profiles for the fuzzers.

#ifndef CALCULATIONS_FUZZ_FUZZ_OUTLINES_H
#define CALCULATIONS_FUZZ_FUZZ_OUTLINES_H

#include "FuzzInput.h"

#include <Calculations/ThProfileDefinition.h>

#include <boost/shared_ptr.hpp>

#include <vector>

namespace Fuzz {

enum class Arcs { None, Some };

/// Corners around the origin in one sense of travel, 2 to 6 m away when tame: the outline is seen
/// whole from the origin.
std::vector<Ruv::Calculations::Point2D> starCorners(Input& input, int most);

/// The closed profile through the corners. The radii of tame arcs fit their chords.
boost::shared_ptr<Ruv::Calculations::ThProfileDefinition> profileThrough(
    Input& input, const std::vector<Ruv::Calculations::Point2D>& corners, Arcs arcs);

/// A radius for an arc over the chord between two points.
double arcRadius(Input& input, const Ruv::Calculations::Point2D& from,
                 const Ruv::Calculations::Point2D& to);

}  // namespace Fuzz

#endif
