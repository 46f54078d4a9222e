// SPDX-License-Identifier: BSL-1.0
#include "guidance/Levelling.h"

#include "guidance/Guidance.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(Levelling, LowersOnARisingAxisWhatIsLevel) {
  const double slope = std::atan(0.75);
  expectOffsets(relativeToAxis(GuidanceOffsets(5, 2, 0), slope), 4, 2, -3, 1e-15);
  expectOffsets(relativeToHorizontal(GuidanceOffsets(4, 2, -3), slope), 5, 2, 0, 1e-15);
  expectOffsets(asOffsets(asAxisPoint(GuidanceOffsets(1, 2, 3))), 1, 2, 3, 0);
}

}  // namespace
