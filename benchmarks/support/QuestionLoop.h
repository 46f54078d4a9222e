// SPDX-License-Identifier: BSL-1.0
/// @file
/// The loop of a benchmark that asks the same question about one item after the other.

#ifndef CALCULATIONS_BENCHMARKS_QUESTION_LOOP_H
#define CALCULATIONS_BENCHMARKS_QUESTION_LOOP_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace Benchmarks {

/// Number of items for such a loop: more than branch predictors remember.
constexpr std::size_t kItemsOfLoop = 65536;

/// One iteration is one question. The growth is fitted over the first argument of the benchmark.
template <class Item, class Ask>
void askInTurn(benchmark::State& state, const std::vector<Item>& items, const Ask& ask) {
  std::size_t i = 0;
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    ask(items[i]);
    i = i + 1 < items.size() ? i + 1 : 0;
  }
  state.SetComplexityN(state.range(0));
}

}  // namespace Benchmarks

#endif
