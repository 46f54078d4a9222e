#include "common/console/Progress.h"

#include <iostream>

#include <unistd.h>

namespace Console {

Progress::Progress(const std::string& task, std::size_t steps, std::size_t longFrom) {
  if (steps >= longFrom && isatty(STDERR_FILENO) != 0) {
    m_bar.emplace(steps, std::cerr, "\n" + task + "\n");
  }
}

}  // namespace Console
