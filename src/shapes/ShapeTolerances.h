// SPDX-License-Identifier: BSL-1.0
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

/// An azimuth that leads to within this (m) of the stored end of its segment is the true one, and
/// what it misses by is a printing error. Coordinates printed in millimetres are off by up to
/// 0.7 mm at either end, a length by 0.5 mm, and an azimuth printed in 0.1 mgon leads 0.8 mm astray
/// on a kilometre: 5 mm are twice all that together. A miss of just 5 mm still counts.
constexpr double kPrintingError = 0.005;

/// Elements that touch with a break below this (rad) are a smooth alignment. Printed azimuths and
/// coordinates leave breaks up to 1e-5; a corner that is meant has 1e-3 at least.
constexpr double kSmoothBreak = 1e-3;

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
