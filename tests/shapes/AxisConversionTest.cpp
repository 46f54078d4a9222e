// SPDX-License-Identifier: BSL-1.0
#include "shapes/AxisConversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

namespace {

using namespace Ruv;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

/// A straight to the north that rises by 75 percent and has a level cross fall.
void fillRising(CShapeContainer& container) {
  for (const double stationing : {0.0, 100.0}) {
    auto end = std::make_unique<CHoralElement>();
    end->setTypeId(stationing == 0.0 ? CShapeType::StartPoint : CShapeType::Straight);
    end->setStationing(stationing);
    end->setNorth(stationing);
    container.appendHoral(std::move(end));
    auto kink = std::make_unique<CVeralElement>();
    kink->setTypeId(CShapeType::VerticalKink);
    kink->setStationing(stationing);
    kink->setHeight(0.75 * stationing);
    container.appendVeral(std::move(kink));
  }
  container.update();
}

TEST(AxisConversion, MeasuresAsItsOptionsSay) {
  CShapeContainer container;
  fillRising(container);
  const double diagonal = std::sqrt(2.0);
  struct Case {
    CConversionOptions options;
    AxisPoint axis;
    ENHPoint grid;
  };
  std::vector<Case> cases(4);
  cases[0] = {{}, {40, 3, 4}, {3, 40, 34}};
  // Square to the grade 4 m are 5 m along the plumb line.
  cases[1] = {{}, {40, 3, 4}, {3, 40, 35}};
  cases[1].options.heightAlongPlumbLine = false;
  cases[2] = {{}, {40, diagonal, 0}, {1, 40, 29}};
  cases[2].options.transSlopeMode = CTransSlopeMode::Given;
  cases[3] = {{}, {40, diagonal, 0}, {diagonal, 40, 30}};
  cases[3].options.transSlopeMode = CTransSlopeMode::Ignored;
  for (Case& c : cases) {
    c.options.givenTransSlope = 100.0;  // counts in its own mode only
    const auto grid = axisToGrid(container.geometry(), c.axis, c.options);
    ASSERT_TRUE(grid);
    EXPECT_LT((*grid - c.grid).length(), 1e-13);
    const auto axis = gridToAxis(container.geometry(), *grid, c.options);
    ASSERT_TRUE(axis);
    EXPECT_NEAR(axis->offset, c.axis.offset, 1e-13);
    EXPECT_NEAR(axis->height, c.axis.height, 1e-13);
  }
  // However steep a cross fall is, it turns the section by no more than a right angle.
  CConversionOptions plumb;
  plumb.transSlopeMode = CTransSlopeMode::Given;
  for (const double slope : {1e100, 1e160, 1e300, HUGE_VAL}) {
    plumb.givenTransSlope = -slope;
    const auto grid = axisToGrid(container.geometry(), {40, 3, 4}, plumb);
    ASSERT_TRUE(grid);
    EXPECT_LT((*grid - ENHPoint(-4, 40, 33)).length(), 1e-13) << slope;
    EXPECT_NEAR(gridToAxis(container.geometry(), *grid, plumb)->offset, 3.0, 1e-13);
  }
}

}  // namespace
