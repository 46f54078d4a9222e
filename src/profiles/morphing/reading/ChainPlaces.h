// SPDX-License-Identifier: BSL-1.0
/// @file
/// Places on chains.

#ifndef CALCULATIONS_PROFILES_MORPHING_READING_CHAIN_PLACES_H
#define CALCULATIONS_PROFILES_MORPHING_READING_CHAIN_PLACES_H

#include "profiles/morphing/reading/TurningChord.h"

#include <cstddef>

namespace Ruv {
namespace Calculations {

/// A place on a chain.
struct ChainPlace {
  std::size_t index = 0;  ///< of the element
  double fraction = 0.0;  ///< of the element's length, in [0, 1]

  bool operator<(const ChainPlace& other) const {
    return index != other.index ? index < other.index : fraction < other.fraction;
  }
};

inline Point2D pointAt(const TurningChords& chain, const ChainPlace& place) {
  return chain[place.index].pointAt(place.fraction);
}

/// The fraction of a piece's length at which one that leads to the left has come as far as x: 0
/// when it is there from the start, 1 when it does not come there.
double fractionLeftwards(const TurningChord& piece, double x);

/// The same for one that leads upwards.
double fractionUpwards(const TurningChord& piece, double y);

/// True when a piece is as high as y somewhere, an arc perhaps at its crown only.
bool comesUpTo(const TurningChord& piece, double y);

/// The place at which a left wall is first as high as y; its end when it is nowhere.
ChainPlace placeUpwards(const TurningChords& wall, double y);

/// The place of a floor, which leads from right to left, at a plan distance; its end likewise.
ChainPlace placeLeftwards(const TurningChords& floor, double x);

/// Appends what lies between two places, of which the first comes first.
void appendPart(TurningChords& to, const TurningChords& chain, const ChainPlace& from,
                const ChainPlace& end);

}  // namespace Calculations
}  // namespace Ruv

#endif
