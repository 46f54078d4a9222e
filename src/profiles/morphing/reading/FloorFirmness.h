// SPDX-License-Identifier: BSL-1.0
/// @file
/// How much a floor is one.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_FLOOR_FIRMNESS_H
#define CALCULATIONS_PROFILES_MORPHING_READING_FLOOR_FIRMNESS_H

#include "profiles/morphing/reading/FloorReading.h"
#include "profiles/morphing/reading/OutlineReading.h"

namespace Ruv {
namespace Calculations {

/// How sure it is, from 0 to 1, what of an outline departs from its base. It never jumps: outlines
/// that are nearly alike are read nearly alike.
/// @param left,right halves of the floor as read
double surenessOf(const OutlineReading& reading, const LeftHalf& left, const LeftHalf& right);

/// How much the floor of an outline is one from wall to wall, no more than the sureness that stands
/// in the reading. Likewise.
double firmnessOf(const OutlineReading& reading);

/// How far detours count on an outline that is taken for a ring, from 0 to 1: its own, and those of
/// another outline. Likewise.
double surenessOnRing(const OutlineReading& reading);

}  // namespace Calculations
}  // namespace Ruv

#endif
