// SPDX-License-Identifier: BSL-1.0
/// @file
/// Measures contenders against each other.

#ifndef CALCULATIONS_BENCHMARKS_ROUNDS_H
#define CALCULATIONS_BENCHMARKS_ROUNDS_H

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

namespace Benchmarks {

/// Nanoseconds that a piece of work takes.
template <class Work>
double nanosecondsOf(const Work& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count();
}

/// Items of a slice when an answer takes some 100 ns, and when it takes some microseconds. A slice
/// should be much longer than reading the clock takes, and shorter than the turns in which a busy
/// machine serves its programs.
constexpr std::size_t kQuickAnswers = 1000;
constexpr std::size_t kSlowAnswers = 200;

/// Does something with each item in turn.
/// @return nanoseconds per item, for each slice of the items
template <class Items, class Act>
std::vector<double> timesPerItem(Items& items, std::size_t itemsOfSlice, const Act& act) {
  std::vector<double> times;
  for (std::size_t begin = 0; begin < items.size(); begin += itemsOfSlice) {
    const std::size_t end = std::min(begin + itemsOfSlice, items.size());
    const double time = nanosecondsOf([&] {
      for (std::size_t i = begin; i < end; ++i) {
        act(items[i]);
      }
    });
    times.push_back(time / static_cast<double>(end - begin));
  }
  return times;
}

/// Does the same work over and over.
/// @return nanoseconds per call, for each slice of the calls
template <class Work>
std::vector<double> timesPerCall(std::size_t slices, std::size_t callsOfSlice, const Work& work) {
  std::vector<double> times;
  for (std::size_t slice = 0; slice < slices; ++slice) {
    const double time = nanosecondsOf([&] {
      for (std::size_t call = 0; call < callsOfSlice; ++call) {
        work();
      }
    });
    times.push_back(time / static_cast<double>(callsOfSlice));
  }
  return times;
}

/// Does its work once and returns the times of all slices of it.
using Contender = std::function<std::vector<double>()>;

/// Lets the contenders take turns, so that what disturbs the machine disturbs all of them. Keeps
/// the best time of each slice over the rounds and returns the mean over the slices: every item
/// counts, and a short disturbance spoils one slice of one round only. The first turn of each
/// contender warms up and does not count.
std::vector<double> bestOfRounds(int rounds, const std::vector<Contender>& contenders);

/// The unit of cost "sc": sine and cosine of one angle by the C library. The angles run once
/// through a full turn in order: in random order, branches that the processor guesses wrong would
/// double the unit and flatter whoever is measured by it.
Contender sineAndCosine();

}  // namespace Benchmarks

#endif
