// SPDX-License-Identifier: BSL-1.0
/// @file
/// Areas as outlines that share no edges.

#ifndef CALCULATIONS_PROFILES_PATHS_UNION_H
#define CALCULATIONS_PROFILES_PATHS_UNION_H

#include <Calculations/ClipperLib.h>

namespace Ruv {
namespace Calculations {

/// The area in square clipping units; holes count negative.
double signedArea(const ClipperLib::Paths& paths);

/// The same area by the even-odd rule; holes are paths of negative orientation. Failure is that of
/// FailsafeClipper, and a ClippingFailure where one union after another gives another area.
ClipperLib::Paths united(ClipperLib::Paths paths);

}  // namespace Calculations
}  // namespace Ruv

#endif
