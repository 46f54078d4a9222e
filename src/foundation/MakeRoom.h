// SPDX-License-Identifier: BSL-1.0
/// @file
/// Room in a list before anything is added to it.

#ifndef CALCULATIONS_FOUNDATION_MAKE_ROOM_H
#define CALCULATIONS_FOUNDATION_MAKE_ROOM_H

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Ruv {

/// Makes room for more elements, so that adding them cannot fail on the way. The room grows by
/// doubling, as it does when elements are added one by one.
template <class T>
void makeRoomFor(std::size_t count, std::vector<T>& list) {
  const std::size_t needed = list.size() + count;
  if (needed > list.capacity()) list.reserve(std::max(needed, 2 * list.capacity()));
}

}  // namespace Ruv

#endif
