// SPDX-License-Identifier: BSL-1.0
/// @file
/// Memory that runs out on request. Replaces the global allocation functions of the program.

#ifndef CALCULATIONS_TESTS_FAULTS_FAILING_MEMORY_H
#define CALCULATIONS_TESTS_FAULTS_FAILING_MEMORY_H

#include <cstddef>

namespace TestSupport {

/// While it lives, counts allocations and lets one of them fail. What is freed meanwhile is kept
/// from use until the end, so that freeing it again is noticed and does no harm.
class FailingMemory {
 public:
  /// @param failing the number of the allocation that fails, from 1; 0 for none
  explicit FailingMemory(std::size_t failing);
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;
  ~FailingMemory();

  std::size_t allocations() const;
  bool hasFailed() const;
};

/// What the last FailingMemory has seen, to be asked when all that was then allocated is freed.
struct MemoryReport {
  std::size_t freedTwice = 0;
  std::size_t lost = 0;           ///< blocks of the library's own, or of this program
  std::size_t lostByClipper = 0;  ///< blocks that the clipping library allocated
};

/// Frees what was lost, for the next report.
MemoryReport memoryReport();

}  // namespace TestSupport

#endif
