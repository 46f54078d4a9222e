// SPDX-License-Identifier: BSL-1.0
/// @file
/// Angles that the workloads and checks share (rad).

#ifndef CALCULATIONS_BENCHMARKS_ANGLES_H
#define CALCULATIONS_BENCHMARKS_ANGLES_H

namespace Benchmarks {

constexpr double kFullTurn = 6.283185307179586;

}  // namespace Benchmarks

#endif
