// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SetOut.h"
#include "tunnel_survey/StationTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace {

using namespace TunnelSurvey;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pointwise;

TEST(StationTable, RoundStationsAreThoseThatPeopleRead) {
  // Stations read 0 to 110, then 50 to 140, then 900 on; at 110 and 200 the ones before.
  const Exchange::Stationing jumps({{110.0, 50.0}, {200.0, 900.0}});
  const struct {
    Exchange::Stationing stationing;
    Exchange::StationRange range;
    double step;
    std::vector<double> places;
  } cases[] = {
      {{}, {-20, 101}, 50, {0, 50, 100}},       {jumps, {0, 260}, 50, {0, 50, 100, 160, 250}},
      {jumps, {120, 190}, 30, {120, 150, 180}}, {jumps, {205, 300}, 100, {300}},
      {jumps, {0, 110}, 110, {0, 110}},
  };
  for (const auto& c : cases) {
    EXPECT_THAT(roundStations(c.stationing, c.range, c.step),
                Pointwise(DoubleNear(1e-9), c.places));
  }
  EXPECT_THAT(regularStations(jumps, {0, 200}, 50), ElementsAre(0, 50, 100, 160, 200));
  EXPECT_EQ(jumps.text(160, 0), "0+100 ahead");
}

TEST(SetOut, ColumnsMayBeMissingButNoHeightIsGuessed) {
  std::istringstream bare("station\n7+320.5\n100\n");
  const auto counted = readSetOutPoints(bare).value;
  ASSERT_TRUE(counted && counted->points.size() == 2);
  EXPECT_EQ(counted->points[1].id, "2");
  const auto& onAxis = counted->points[0].onAxis;
  EXPECT_EQ(std::vector({onAxis.stationing, onAxis.offset, onAxis.height}),
            std::vector({7320.5, 0.0, 0.0}));

  std::istringstream unclear("id,station,height\nA,10,2\n");
  EXPECT_THAT(readSetOutPoints(unclear).error.message, HasSubstr("may mean"));
  std::istringstream both("id,station,height_above_axis,height\nA,10,2,402\n");
  EXPECT_EQ(readSetOutPoints(both).value->points[0].onAxis.height, 2);
}

}  // namespace
