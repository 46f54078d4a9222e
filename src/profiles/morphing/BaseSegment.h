/// @file
/// The element on which an outline stands, and the two sides that rise from it.

#ifndef CALCULATIONS_PROFILES_MORPHING_BASE_SEGMENT_H
#define CALCULATIONS_PROFILES_MORPHING_BASE_SEGMENT_H

#include "profiles/morphing/BaseAnalysis.h"
#include "profiles/morphing/OutlineStore.h"

#include <cstdint>
#include <optional>

namespace Ruv {
namespace Calculations {

/// A place on an outline.
struct OutlinePlace {
  std::int64_t number = 0;  ///< of the element
  double fraction = 0.0;    ///< of the element's length, in [0, 1)
};

/// Base and crown of an outline, both on the outside of everything else on their plumb lines.
struct BaseAndCrown {
  OutlinePlace base;
  OutlinePlace crown;
};

/// Nothing when a plumb line misses the outline.
std::optional<BaseAndCrown> findBaseAndCrown(const OutlineStore& store, const PlumbLines& lines);

Point2D pointAt(const OutlineStore& store, const OutlinePlace& place);

/// The elements from the base to the crown on the left, and those on the right mirrored and
/// reversed so that they too lead clockwise from the base to the crown. Coordinates are relative to
/// the base.
struct OutlineSides {
  TurningChords left;
  TurningChords right;
};

OutlineSides sidesOf(const OutlineStore& store, const BaseAndCrown& ends);

}  // namespace Calculations
}  // namespace Ruv

#endif
