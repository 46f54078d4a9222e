// SPDX-License-Identifier: BSL-1.0
/// @file
/// Lists when memory may run out: room before anything is added, and copies.

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

/// A copy of a list whose elements may fail to be copied. LLVM's standard library before version 16
/// loses the memory of the list when its own constructor meets such a failure.
template <class T>
std::vector<T> copyOf(const std::vector<T>& list) {
  std::vector<T> copy;
  copy.reserve(list.size());
  copy.insert(copy.end(), list.begin(), list.end());
  return copy;
}

}  // namespace Ruv

#endif
