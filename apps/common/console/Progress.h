// SPDX-License-Identifier: BSL-1.0
/// @file
/// How far long work has got.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_PROGRESS_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_PROGRESS_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Console {

/// Shows the share that is done and the time that is left, on one line of the error stream, when
/// that is a terminal and the work takes more than a moment. The line goes away at the end.
class Progress {
 public:
  /// @param steps in all; 0 when that is not known
  explicit Progress(const std::string& task, std::uint64_t steps);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void advance() { reach(m_done + 1); }

  void reach(std::uint64_t done) {
    m_done = done;
    if (m_isShown) show();
  }

 private:
  using Clock = std::chrono::steady_clock;

  void show();

  std::string m_task;
  std::uint64_t m_steps;
  std::uint64_t m_done = 0;
  bool m_isShown;
  Clock::time_point m_start = Clock::now();
  Clock::time_point m_next;  // when to write again
  bool m_hasLine = false;
};

/// "3 min 20 s"
std::string durationText(double seconds);

}  // namespace Console

#endif
