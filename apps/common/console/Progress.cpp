// SPDX-License-Identifier: BSL-1.0
#include "common/console/Progress.h"

#include <algorithm>
#include <cmath>
#include <iostream>

#include <unistd.h>

namespace Console {

namespace {

constexpr auto kMoment = std::chrono::milliseconds(500);
/// Begins the line anew and clears it.
constexpr const char* kNewLine = "\r\x1B[K";

}  // namespace

Progress::Progress(const std::string& task, std::uint64_t steps)
    : m_task(task),
      m_steps(steps),
      m_isShown(isatty(STDERR_FILENO) != 0),
      m_next(m_start + kMoment) {}

Progress::~Progress() {
  if (m_hasLine) std::cerr << kNewLine << std::flush;
}

void Progress::show() {
  const Clock::time_point now = Clock::now();
  if (now < m_next) return;
  m_next = now + kMoment;
  m_hasLine = true;
  std::cerr << kNewLine << m_task;
  if (m_steps > 0 && m_done > 0) {
    const double share = std::min(1.0, static_cast<double>(m_done) / static_cast<double>(m_steps));
    const double passed = std::chrono::duration<double>(now - m_start).count();
    std::cerr << ": " << static_cast<int>(100.0 * share) << " %, "
              << durationText(passed * (1.0 - share) / share) << " left";
  }
  std::cerr << std::flush;
}

std::string durationText(double seconds) {
  constexpr double kMost = 359999.0;
  const int whole = static_cast<int>(std::clamp(std::ceil(seconds), 0.0, kMost));
  const std::string minutes = std::to_string(whole / 60 % 60) + " min";
  if (whole >= 3600) return std::to_string(whole / 3600) + " h " + minutes;
  return (whole >= 60 ? minutes + " " : "") + std::to_string(whole % 60) + " s";
}

}  // namespace Console
