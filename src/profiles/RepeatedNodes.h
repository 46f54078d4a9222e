// SPDX-License-Identifier: BSL-1.0
/// @file
/// Nodes at which a chain has been before.

#ifndef CALCULATIONS_PROFILES_REPEATED_NODES_H
#define CALCULATIONS_PROFILES_REPEATED_NODES_H

#include "shapes/CurveChain.h"

#include <vector>

namespace Ruv {
namespace Calculations {

/// Tells for each node whether an earlier node has the same coordinates. The nodes are looked up in
/// a hash table, half full at most: sorting the nodes would take a third of a calculator's
/// preparation.
std::vector<bool> repeatsEarlierNode(const std::vector<CChainNode>& nodes);

}  // namespace Calculations
}  // namespace Ruv

#endif
