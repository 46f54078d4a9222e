// SPDX-License-Identifier: BSL-1.0
/// @file
/// Parts and measures of open chains.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_CHAIN_PARTS_H
#define CALCULATIONS_PROFILES_MORPHING_READING_CHAIN_PARTS_H

#include "profiles/morphing/reading/TurningChord.h"

#include <cstddef>

namespace Ruv {
namespace Calculations {

/// Where heights are compared arcs are looked at in steps of this turning (rad): a crown is then
/// known to a thousandth of the radius.
constexpr double kCrownSampling = 0.1;

/// The mirror image, about the y axis, of an open chain, again clockwise.
TurningChords mirrored(const TurningChords& chain);

/// The pieces from one index to before another.
TurningChords part(const TurningChords& chain, std::size_t first, std::size_t last);

/// A piece that goes on like the one before it, over the mouth of a detour.
TurningChord continuedTo(const Point2D& end, const TurningChord& last);

/// The corner (rad, clockwise) before a piece that is not the first.
double cornerBefore(const TurningChords& chain, std::size_t i);

/// How far (rad) an open chain turns anticlockwise, all in all.
double turningBackOf(const TurningChords& chain);

double lengthOf(const TurningChords& chain);

/// The point that lies a distance along a chain.
Point2D pointAlong(const TurningChords& chain, double distance);

}  // namespace Calculations
}  // namespace Ruv

#endif
