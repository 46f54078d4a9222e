// SPDX-License-Identifier: BSL-1.0
#include "common/console/InterruptionGuard.h"

#include <array>
#include <cstdint>
#include <utility>

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace Console {

namespace {

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
    // Who runs a program with nohup wants its hang-ups ignored.
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler != SIG_IGN) sigaddset(&signals, signal);
  }
  return signals;
}

/// Only this thread has the signal unblocked, so that it ends the program.
void endProgramBy(int signal) {
  std::signal(signal, SIG_DFL);
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, signal);
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
  kill(getpid(), signal);
}

}  // namespace

InterruptionGuard::InterruptionGuard(std::function<void()> tidyUp) : m_tidyUp(std::move(tidyUp)) {
  const sigset_t signals = endingSignals();
  pthread_sigmask(SIG_BLOCK, &signals, &m_before);  // the thread begins with them blocked too
  m_signals = signalfd(-1, &signals, SFD_CLOEXEC);
  m_end = eventfd(0, EFD_CLOEXEC);
  m_watcher = std::thread([this] { watch(); });
}

InterruptionGuard::~InterruptionGuard() {
  const std::uint64_t one = 1;
  if (write(m_end, &one, sizeof one) != sizeof one) std::terminate();
  m_watcher.join();
  close(m_signals);
  close(m_end);
  pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

void InterruptionGuard::watch() {
  std::array<pollfd, 2> events{pollfd{m_signals, POLLIN, 0}, pollfd{m_end, POLLIN, 0}};
  while (poll(events.data(), events.size(), -1) < 0) {
  }
  signalfd_siginfo signal{};
  if (events[0].revents == 0 || read(m_signals, &signal, sizeof signal) != sizeof signal) return;
  const std::lock_guard<std::mutex> lock(m_mutex);
  m_tidyUp();
  endProgramBy(static_cast<int>(signal.ssi_signo));
}

}  // namespace Console
