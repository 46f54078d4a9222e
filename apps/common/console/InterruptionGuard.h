// SPDX-License-Identifier: BSL-1.0
/// @file
/// Tidies up when the program is interrupted from outside.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_INTERRUPTION_GUARD_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_INTERRUPTION_GUARD_H

#include <csignal>
#include <functional>
#include <mutex>
#include <thread>

namespace Console {

/// While it lives, the signals that end a program (hang-up, interrupt, termination) first run a
/// function, on a thread of its own, and then end the program as they would have done. There may be
/// one at a time.
class InterruptionGuard {
 public:
  explicit InterruptionGuard(std::function<void()> tidyUp);
  ~InterruptionGuard();
  InterruptionGuard(const InterruptionGuard&) = delete;
  InterruptionGuard& operator=(const InterruptionGuard&) = delete;

  /// While it lives, a signal waits.
  class Pause {
   public:
    explicit Pause(InterruptionGuard& guard) : m_lock(guard.m_mutex) {}

   private:
    std::lock_guard<std::mutex> m_lock;
  };

 private:
  void watch();

  std::function<void()> m_tidyUp;
  std::mutex m_mutex;
  sigset_t m_before{};  // the signals that were blocked
  int m_signals = -1;   // tells of signals
  int m_end = -1;       // tells the thread to end
  std::thread m_watcher;
};

}  // namespace Console

#endif
