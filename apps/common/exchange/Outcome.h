// SPDX-License-Identifier: BSL-1.0
/// @file
/// Results, and the reasons why there are none, as values.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_OUTCOME_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_OUTCOME_H

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace Exchange {

/// What is wrong or odd about a place in a file.
struct Remark {
  int line = 0;  ///< from 1; 0 when it concerns no line
  std::string message;
};

/// With the line where it concerns one.
inline std::string textOf(const Remark& remark) {
  return remark.line == 0 ? remark.message
                          : "line " + std::to_string(remark.line) + ": " + remark.message;
}

/// A result, or why there is none.
template <class T>
struct Outcome {
  std::optional<T> value;
  Remark error;

  static Outcome success(T result) { return {std::move(result), {}}; }
  static Outcome failure(Remark reason) { return {std::nullopt, std::move(reason)}; }
};

/// For callers to whom failure is an exception.
/// @throw std::invalid_argument with the reason
template <class T>
T valueOrThrow(Outcome<T> outcome) {
  if (!outcome.value) throw std::invalid_argument(textOf(outcome.error));
  return std::move(*outcome.value);
}

}  // namespace Exchange

#endif
