// SPDX-License-Identifier: BSL-1.0
/// @file
/// Which excursions of two walks belong together.

#ifndef CALCULATIONS_PROFILES_MORPHING_PAIRING_EXCURSION_MATCH_H
#define CALCULATIONS_PROFILES_MORPHING_PAIRING_EXCURSION_MATCH_H

#include "profiles/morphing/pairing/HeadingRun.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace Ruv {
namespace Calculations {

/// An item and the stretch that it takes of the flat length of its level. Excursions take none,
/// they have a place.
struct PlacedItem {
  double from = 0.0;
  double to = 0.0;
  const LevelItem* item = nullptr;

  bool isExcursion() const { return item->isExcursion; }
};

using PlacedItems = std::vector<PlacedItem>;

/// Places as fractions of the flat length of items first .. last - 1. Without flat length
/// excursions have their place in the middle.
PlacedItems placed(const LevelItems& items, std::size_t first, std::size_t last);

/// Pairs of indices, rising on both sides, of excursions that turn alike. As many as possible, and
/// of these the nearest by place.
std::vector<std::pair<std::size_t, std::size_t>> matchExcursions(const LevelItems& start,
                                                                 const LevelItems& end);

/// True when pieces can be matched one by one: straights and corners only, of the same kinds and
/// with the same senses of turning. Arcs would lose their tangents unless headings agree.
bool areSameStraights(const LevelSteps& start, const LevelSteps& end);

}  // namespace Calculations
}  // namespace Ruv

#endif
