// SPDX-License-Identifier: BSL-1.0
// Some hosts trap floating-point exceptions. No question about sensible data raises one.

#include "faults/Scenes.h"

#include <gtest/gtest.h>

#include <cfenv>

namespace {

using namespace TestSupport;

constexpr int kTrapped = FE_OVERFLOW | FE_INVALID | FE_DIVBYZERO;

/// Traps while it lives where processor and C library can, and tells which flags were raised.
class Traps {
 public:
  Traps() {
    std::feclearexcept(FE_ALL_EXCEPT);
#if defined(__GLIBC__)
    feenableexcept(kTrapped);
#endif
  }
  Traps(const Traps&) = delete;
  Traps& operator=(const Traps&) = delete;
  ~Traps() {
#if defined(__GLIBC__)
    fedisableexcept(kTrapped);
#endif
  }

  int raised() const { return std::fetestexcept(kTrapped); }
};

class FloatingPointTraps : public testing::TestWithParam<Scene> {};

TEST_P(FloatingPointTraps, AreNotSprung) {
  int raised = 0;
  {
    const Traps traps;
    const Play play = GetParam().begin();
    play.state();
    play.call();
    play.state();
    raised = traps.raised();
  }
  EXPECT_EQ(raised & FE_OVERFLOW, 0);
  EXPECT_EQ(raised & FE_INVALID, 0);
  EXPECT_EQ(raised & FE_DIVBYZERO, 0);
}

const auto kNameOf = [](const auto& scene) { return scene.param.name; };

INSTANTIATE_TEST_SUITE_P(AllClasses, FloatingPointTraps, testing::ValuesIn(allScenes()), kNameOf);
INSTANTIATE_TEST_SUITE_P(RealData, FloatingPointTraps, testing::ValuesIn(realScenes()), kNameOf);

}  // namespace
