// SPDX-License-Identifier: BSL-1.0
/// @file
/// How much memory a piece of work takes for a while.

#ifndef CALCULATIONS_BENCHMARKS_PEAK_MEMORY_H
#define CALCULATIONS_BENCHMARKS_PEAK_MEMORY_H

#include <functional>
#include <optional>

namespace Benchmarks {

/// What the peak of the resident memory during the work exceeds the memory before it (bytes), good
/// to some hundred kilobytes. Nothing where the system does not tell. Source: Linux, proc(5).
std::optional<double> extraMemoryOf(const std::function<void()>& work);

}  // namespace Benchmarks

#endif
