// SPDX-License-Identifier: BSL-1.0
// A hash table with open addressing and linear probing (Knuth, The Art of Computer Programming 3,
// 1998, section 6.4): the number of slots is a power of two and at least twice that of the nodes,
// so a probe meets a free slot soon. std::unordered_set would allocate memory for every node.

#include "profiles/RepeatedNodes.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Ruv {
namespace Calculations {

namespace {

/// What is not a number equals nothing, so it repeats no node and takes no slot.
bool isNumber(const Point2D& p) { return !std::isnan(p.x) && !std::isnan(p.y); }

/// Mixes the bits of both coordinates. Adding 0 turns -0 into 0, which it equals. Source of the
/// constants: Steele, Lea and Flood, Fast splittable pseudorandom number generators (2014).
std::uint64_t hashOf(const Point2D& p) {
  std::uint64_t hash = 0;
  for (const double coordinate : {p.x + 0.0, p.y + 0.0}) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &coordinate, sizeof bits);
    hash ^= bits;
    hash = (hash ^ (hash >> 30U)) * 0xBF58476D1CE4E5B9U;
    hash = (hash ^ (hash >> 27U)) * 0x94D049BB133111EBU;
    hash ^= hash >> 31U;
  }
  return hash;
}

}  // namespace

std::vector<bool> repeatsEarlierNode(const std::vector<CChainNode>& nodes) {
  std::size_t numSlots = 1;
  while (numSlots < 2 * nodes.size()) {
    numSlots *= 2;
  }
  const std::size_t mask = numSlots - 1;  // of a power of two
  // The index of no node marks a free slot.
  const std::size_t free = nodes.size();
  std::vector<std::size_t> nodeInSlot(numSlots, free);
  std::vector<bool> repeats(nodes.size(), false);
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const Point2D& p = nodes[i].point;
    if (!isNumber(p)) continue;
    const auto isOther = [&](std::size_t node) {
      return node != free && !(nodes[node].point.x == p.x && nodes[node].point.y == p.y);
    };
    std::size_t slot = static_cast<std::size_t>(hashOf(p)) & mask;
    while (isOther(nodeInSlot[slot])) {
      slot = (slot + 1) & mask;
    }
    repeats[i] = nodeInSlot[slot] != free;
    if (!repeats[i]) nodeInSlot[slot] = i;
  }
  return repeats;
}

}  // namespace Calculations
}  // namespace Ruv
