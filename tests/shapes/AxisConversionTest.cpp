#include "shapes/AxisConversion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

using namespace Ruv;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

/// A straight to the north that rises by the given grade and has a level cross fall.
void fillRising(CShapeContainer& container, double grade) {
  for (const double stationing : {0.0, 100.0}) {
    auto end = std::make_unique<CHoralElement>();
    end->setTypeId(stationing == 0.0 ? CShapeType::StartPoint : CShapeType::Straight);
    end->setStationing(stationing);
    end->setNorth(stationing);
    container.appendHoral(std::move(end));
    auto kink = std::make_unique<CVeralElement>();
    kink->setTypeId(CShapeType::VerticalKink);
    kink->setStationing(stationing);
    kink->setHeight(grade * stationing);
    container.appendVeral(std::move(kink));
  }
  container.update();
}

TEST(AxisConversion, MeasuresHeightsAlongThePlumbLineOrSquareToTheGrade) {
  CShapeContainer container;
  fillRising(container, 0.75);
  CConversionOptions options;
  for (const bool alongPlumbLine : {true, false}) {
    options.heightAlongPlumbLine = alongPlumbLine;
    const auto point = axisToGrid(container.geometry(), AxisPoint(40, 3, 4), options);
    ASSERT_TRUE(point);
    // Square to the grade 4 m are 5 m along the plumb line.
    EXPECT_DOUBLE_EQ(point->height, alongPlumbLine ? 34.0 : 35.0);
    EXPECT_DOUBLE_EQ(point->east, 3.0);
    const auto back = gridToAxis(container.geometry(), *point, options);
    ASSERT_TRUE(back);
    EXPECT_DOUBLE_EQ(back->height, 4.0);
  }
}

TEST(AxisConversion, AppliesAGivenTransverseSlope) {
  CShapeContainer container;
  fillRising(container, 0.0);
  CConversionOptions options;
  options.givenTransSlope = 100.0;  // counts in its own mode only
  const AxisPoint in(40, std::sqrt(2.0), 0);
  for (const auto mode : {CTransSlopeMode::OfAxis, CTransSlopeMode::Ignored}) {
    options.transSlopeMode = mode;
    EXPECT_EQ(axisToGrid(container.geometry(), in, options)->height, 0.0);
  }
  options.transSlopeMode = CTransSlopeMode::Given;
  const auto point = axisToGrid(container.geometry(), in, options);
  ASSERT_TRUE(point);
  EXPECT_LT((*point - ENHPoint(1, 40, -1)).length(), 1e-14);
  const auto back = gridToAxis(container.geometry(), *point, options);
  ASSERT_TRUE(back);
  EXPECT_DOUBLE_EQ(back->offset, in.offset);
}

}  // namespace
