// SPDX-License-Identifier: BSL-1.0
/// @file
/// Results, and the reasons why there are none, as values.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_OUTCOME_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_OUTCOME_H

#include <optional>
#include <string>
#include <utility>

namespace Exchange {

/// What is wrong or odd about a place in a file.
struct Remark {
  int line = 0;  ///< from 1; 0 when it concerns no line
  std::string message;
};

/// A result, or why there is none.
template <class T>
struct Outcome {
  std::optional<T> value;
  Remark error;

  static Outcome success(T result) { return {std::move(result), {}}; }
  static Outcome failure(Remark reason) { return {std::nullopt, std::move(reason)}; }
};

}  // namespace Exchange

#endif
