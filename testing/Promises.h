// SPDX-License-Identifier: BSL-1.0
/// @file
/// Bounds that the public headers and docs/numerics.md state, in metres and radians. A test that
/// checks one of them names it.

#ifndef CALCULATIONS_TESTING_PROMISES_H
#define CALCULATIONS_TESTING_PROMISES_H

namespace Promise {

// Axes, see AxisCalculator.
constexpr double kGridPoint = 1e-9;  ///< also there and back
constexpr double kAzimuth = 1e-12;
constexpr double kAxisPoint = 1e-8;  ///< stationing and offset of a grid point
constexpr double kLimitRoom = 1e-7;  ///< a stationing that far outside counts as the limit

// Profiles, see ThProfileCalculator, MeasuredProfileCalculator and Paths.
constexpr double kProfilePoint = 1e-10;
constexpr double kDerolment = 1e-5;
constexpr double kDerolmentBack = 1e-9;
constexpr double kClippingGrid = 1e-4;  ///< areas are good to that times the circumference

// Fits, as a part of the size, see FittingHelper.
constexpr double kFit = 1e-10;
constexpr double kLegacyCircle = 1e-5;  ///< m

// Stations, see Resection.
constexpr double kStation = 1e-9;
constexpr double kScale = 1e-12;
constexpr double kStdDev = 1e-6;  ///< relative

}  // namespace Promise

#endif
