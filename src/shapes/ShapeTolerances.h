/// @file
/// The constants on which results of the element library depend.

#ifndef CALCULATIONS_SHAPES_SHAPE_TOLERANCES_H
#define CALCULATIONS_SHAPES_SHAPE_TOLERANCES_H

namespace Ruv {

/// A radius up to this (m) stands for an infinite one, radii closer than this are equal, and a
/// chord up to this has no direction. 2^-23, the single-precision epsilon.
constexpr double kZeroLength = 1.1920928955078125e-7;

/// Transverse slopes below this (percent) do not turn the offset: at 100 m offset the neglected
/// rise is 0.12 um. The way to the grid turns from this value on, the way back only above it.
constexpr double kNegligibleTransSlopePercent = 1.1920928955078125e-7;

/// Nothing is divided by a magnitude below this: 2^-126, the smallest normal single-precision
/// number.
constexpr double kSmallestDivisor = 1.1754943508222875e-38;

/// A foot this far (m) outside a segment or an axis still counts as its end point. A point on the
/// normal of a joint misses both neighbours by rounding noise, up to 1e-8 m in national grids.
constexpr double kFootTolerance = 1e-7;

/// A foot just outside replaces a regular one only if that is farther from the point by more
/// than this (m): ten times the error of kFootTolerance, seen obliquely.
constexpr double kFootPreference = 1e-6;

/// Distance with which a search for the nearest begins: the largest single-precision number.
/// Nothing farther away is found.
constexpr double kFarthestDistance = 3.4028234663852886e+38;

}  // namespace Ruv

#endif
