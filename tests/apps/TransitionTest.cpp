// SPDX-License-Identifier: BSL-1.0
#include "common/console/Files.h"
#include "tunnel_survey/Transition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

using namespace TunnelSurvey;
using testing::HasSubstr;

Exchange::DesignProfile profileAt(const std::string& path) {
  std::ifstream in = Console::openFile(path);
  return *Exchange::readDesignProfile(in).value;
}

Exchange::DesignProfile profileIn(const std::string& file) {
  return profileAt(std::string(EXAMPLES_DATA_DIR) + "/" + file);
}

Transition roadToLayBy() {
  return *transitionBetween(profileIn("road_t9p5_design.csv"), profileIn("road_layby_design.csv"),
                            {100.0, 140.0})
              .value;
}

TEST(Transition, LayBysGrowOnTheRight) {
  constexpr double kWallRadius = 4.79;
  constexpr double kWallCentre = 0.225;  // to the left of the axis, as published
  constexpr double kWidening = 3.0;
  // The walls bulge between samples 5 cm apart: 0.07 mm.
  constexpr double kSampled = 1e-4;
  const Transition transition = roadToLayBy();
  ASSERT_EQ(transition.sections.size(), 9U);
  for (std::size_t i = 0; i < 9; ++i) {
    const TransitionSection& section = transition.sections[i];
    const double part = static_cast<double>(i) / 8.0;
    EXPECT_EQ(section.station, 100.0 + 40.0 * part);
    EXPECT_NEAR(section.profile.lowerLeft().x, -kWallCentre - kWallRadius, kSampled);
    EXPECT_NEAR(section.profile.upperRight().x, kWallCentre + kWallRadius + kWidening * part,
                kSampled);
  }
  for (const TransitionEdges& edges : transition.edges) {
    const double part = (edges.station - 100.0) / 40.0;
    EXPECT_NEAR(edges.right - edges.left, 2.0 * (kWallCentre + kWallRadius) + kWidening * part,
                2.0 * kSampled);
  }
  // Areas integrated analytically by others.
  EXPECT_NEAR(transition.sections.front().profile.area(), 53.80705024542269, 1e-9);
  EXPECT_NEAR(transition.sections.back().profile.area(), 75.68704581537514, 1e-9);
}

TEST(Transition, ProfilesThatCannotBeMorphedAreTold) {
  const Exchange::DesignProfile twice = profileAt(TWICE_AROUND);
  const auto transition = transitionBetween(profileIn("road_t9p5_design.csv"), twice, {0.0, 1.0});
  EXPECT_FALSE(transition.value);
  EXPECT_THAT(transition.error.message, HasSubstr("cannot be morphed"));
}

}  // namespace
