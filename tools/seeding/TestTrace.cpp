// SPDX-License-Identifier: BSL-1.0
// Notes for every test which functions of the library it enters. Linked with the tests and with
// objects of the library that call __cyg_profile_func_enter (-finstrument-functions); the notes go
// to the file that CALCULATIONS_TRACE names, a line for each test: its name and addresses.

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>

namespace {

/// More places than the library has functions: a power of two, with room to spare.
constexpr std::size_t kPlaces = std::size_t{1} << 15;

/// A hash table of the functions entered since the last clearing. Several threads may enter.
using Entered = std::array<std::atomic<void*>, kPlaces>;

Entered& entered() {
  static Entered places{};
  return places;
}

std::atomic<bool> isTracing{false};

void note(void* function) {
  const auto address = reinterpret_cast<std::uintptr_t>(function);
  for (std::size_t place = (address >> 4) % kPlaces;; place = (place + 1) % kPlaces) {
    void* present = entered()[place].load(std::memory_order_relaxed);
    if (present == function) return;
    if (present == nullptr && entered()[place].compare_exchange_strong(present, function)) return;
    if (present == function) return;
  }
}

class TraceListener : public testing::EmptyTestEventListener {
 public:
  explicit TraceListener(const char* path) : m_file(path) {}

  void OnTestStart(const testing::TestInfo& /*test*/) override {
    for (auto& place : entered()) {
      place = nullptr;
    }
    isTracing = true;
  }

  void OnTestEnd(const testing::TestInfo& test) override {
    isTracing = false;
    m_file << test.test_suite_name() << '.' << test.name();
    for (const auto& place : entered()) {
      if (place != nullptr) m_file << ' ' << place.load();
    }
    m_file << '\n';
  }

 private:
  std::ofstream m_file;
};

const bool kIsListening = [] {
  const char* path = std::getenv("CALCULATIONS_TRACE");
  if (path != nullptr) {
    testing::UnitTest::GetInstance()->listeners().Append(new TraceListener(path));
  }
  return path != nullptr;
}();

}  // namespace

// The names are the compiler's.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
void __cyg_profile_func_enter(void* function, void* caller);
void __cyg_profile_func_exit(void* function, void* caller);

void __cyg_profile_func_enter(void* function, void* /*caller*/) {
  if (isTracing) note(function);
}

void __cyg_profile_func_exit(void* /*function*/, void* /*caller*/) {}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
