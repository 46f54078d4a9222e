// SPDX-License-Identifier: BSL-1.0
#include "testing/Numbers.h"
#include "testing/Profiles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

TEST(TurningSense, IsToldFromItsCorners) {
  const std::vector<ProfileNode> square = {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}, {0, 0, 0}};
  EXPECT_TRUE(profileThrough(square)->isDefinedClockwise());
  EXPECT_FALSE(profileThrough(square, true)->isDefinedClockwise());
  // A star, from each of its nodes, of which every other turns the other way.
  std::vector<ProfileNode> star;
  for (int i = 0; i < 14; ++i) {
    const double radius = i % 2 == 0 ? 4.0 : 1.0;
    star.push_back({radius * std::sin(kPi * i / 7 + 0.1), radius * std::cos(kPi * i / 7 + 0.1), 0});
  }
  for (std::size_t start = 0; start < star.size(); ++start) {
    const std::vector<ProfileNode> nodes = fromNode(star, start);
    EXPECT_TRUE(profileThrough(nodes)->isDefinedClockwise()) << start;
    EXPECT_FALSE(profileThrough(nodes, true)->isDefinedClockwise()) << start;
  }
  // An open chain goes on from its last point to its second one: 3.0 rad to the left, 3.28 to the
  // right.
  for (const double side : {1.0, -1.0}) {
    const std::vector<ProfileNode> open = {{0, 0, 0}, {0, 9, 0}, {-side, 2, 0}, {-2 * side, 2, 0}};
    EXPECT_EQ(profileThrough(open)->isDefinedClockwise(), side > 0.0);
  }
  // Two half circles: a reversal counts as half a turn to the right, whatever their sense.
  for (double angle = 0; angle < 6; angle += 0.1) {
    const double x = std::cos(angle);
    const double y = std::sin(angle);
    for (const double r : {1.0, -1.0}) {
      EXPECT_TRUE(profileThrough({{x, y, 0}, {-x, -y, r}, {x, y, r}})->isDefinedClockwise());
    }
  }
  // A node that repeats the one before turns nothing.
  for (double angle = 0; angle < 6; angle += 0.1) {
    const double x = std::cos(angle);
    const double y = std::sin(angle);
    const std::vector<ProfileNode> turned = {{x, y, 0},   {x, y, 0},  {y, -x, 0}, {y, -x, 0},
                                             {-x, -y, 0}, {-y, x, 0}, {x, y, 0}};
    EXPECT_TRUE(profileThrough(turned)->isDefinedClockwise()) << angle;
    EXPECT_FALSE(profileThrough(turned, true)->isDefinedClockwise()) << angle;
  }
  // After a reset the sense stays until there are three nodes.
  const ProfilePtr profile = profileThrough(square);
  profile->resetThProfile();
  EXPECT_TRUE(profile->isDefinedClockwise());
  profile->addSegmentStraight(0, 0, 1, 0);
  EXPECT_TRUE(profile->isDefinedClockwise());
  profile->addSegmentStraight(1, 0, 1, 1);
  profile->addSegmentStraight(1, 1, 0, 0);
  EXPECT_FALSE(profile->isDefinedClockwise());
}

}  // namespace
