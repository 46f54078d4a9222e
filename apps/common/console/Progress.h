/// @file
/// A progress bar for long work.

#ifndef CALCULATIONS_APPS_COMMON_CONSOLE_PROGRESS_H
#define CALCULATIONS_APPS_COMMON_CONSOLE_PROGRESS_H

#include <boost/timer/progress_display.hpp>

#include <cstddef>
#include <optional>
#include <string>

namespace Console {

/// Shown only when the error stream is a terminal and there is more than a little to do.
class Progress {
 public:
  /// @param longFrom number of steps from which the bar is shown
  Progress(const std::string& task, std::size_t steps, std::size_t longFrom);

  void advance() {
    if (m_bar) ++*m_bar;
  }

 private:
  std::optional<boost::timer::progress_display> m_bar;
};

}  // namespace Console

#endif
