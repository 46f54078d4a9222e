// SPDX-License-Identifier: BSL-1.0
#include "shapes/ShapeContainer.h"

#include "testing/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <utility>

namespace {

using namespace Ruv;
using namespace TestSupport;

std::unique_ptr<CTransSlopeElement> slopeAt(double stationing, double slope) {
  auto element = std::make_unique<CTransSlopeElement>();
  element->setStationing(stationing);
  element->setSlope(slope);
  return element;
}

std::unique_ptr<CHoralElement> endAt(CShapeType::Id typeId, double stationing, double east,
                                     double north) {
  auto element = std::make_unique<CHoralElement>();
  element->setTypeId(typeId);
  element->setStationing(stationing);
  element->setEast(east);
  element->setNorth(north);
  return element;
}

void expectSortedAndLinked(const CShapeContainer& container) {
  for (std::size_t i = 0; i < container.numTransSlope(); ++i) {
    const CTransSlopeElement* element = container.transSlopeAt(i);
    const CTransSlopeElement* before = i == 0 ? nullptr : container.transSlopeAt(i - 1);
    EXPECT_EQ(element->getPrevious(), before);
    EXPECT_EQ(element->getNext(), container.transSlopeAt(i + 1));
    if (before == nullptr) continue;
    EXPECT_LE(before->getStationing(), element->getStationing());
    // Slopes were numbered in the order of adding.
    if (before->getStationing() == element->getStationing()) {
      EXPECT_LT(before->getSlope(), element->getSlope());
    }
  }
}

TEST(ShapeContainer, KeepsElementsInOrderAndLinked) {
  Random random(51);
  for (int round = 0; round < 20; ++round) {
    CShapeContainer container;
    for (int i = 0; i < 60; ++i) {
      const double stationing = round == 0 ? -i : std::floor(random.uniform(0.0, 15.0));
      container.appendTransSlope(slopeAt(stationing, i));
      if (random.index(3) > 0) container.update();
    }
    container.update();
    expectSortedAndLinked(container);
    EXPECT_EQ(container.transSlopeAt(60), nullptr);
    container.transSlopeAt(3)->setStationing(7.5);  // counts from the next update on
    container.update();
    expectSortedAndLinked(container);
    container.resetTransSlope();
    EXPECT_EQ(container.numTransSlope(), 0u);
  }
}

TEST(ShapeContainer, TellsTheRangeThatBothAlignmentsShare) {
  CShapeContainer container;
  const auto range = [&container] {
    std::pair<double, double> limits(-1.0, -1.0);
    container.stationingRange(limits.first, limits.second);
    return limits;
  };
  EXPECT_EQ(range(), std::pair(0.0, 0.0));
  container.appendHoral(endAt(CShapeType::StartPoint, 10.0, 0, 0));
  container.appendHoral(endAt(CShapeType::Straight, 90.0, 0, 80));
  EXPECT_EQ(range(), std::pair(0.0, 0.0));
  for (const double stationing : {20.0, 200.0}) {
    container.appendVeral(std::make_unique<CVeralElement>());
    container.veralAt(container.numVeral() - 1)->setStationing(stationing);
  }
  EXPECT_EQ(range(), std::pair(20.0, 90.0));
  container.veralAt(0)->setStationing(150.0);
  EXPECT_EQ(range(), std::pair(150.0, 90.0));
}

TEST(ShapeContainer, AnswersFromTheElementsAsTheyAre) {
  CShapeContainer container;
  container.appendHoral(endAt(CShapeType::StartPoint, 0.0, 100, 200));
  container.appendHoral(endAt(CShapeType::Straight, 50.0, 100, 250));
  container.update();
  CAlignmentPosition place;
  ASSERT_TRUE(container.positionAt(50.0, place));
  container.horalAt(1)->setEast(150.0);
  ASSERT_TRUE(container.positionAt(50.0, place));
  EXPECT_EQ(place.position.x, 150.0);
  EXPECT_DOUBLE_EQ(place.azimuth, std::atan2(1.0, 1.0));
  container.horalAt(1)->setTypeId(CShapeType::StartPoint);
  EXPECT_FALSE(container.positionAt(50.0, place));
  container.horalAt(1)->setTypeId(CShapeType::Straight);
  container.horalAt(1)->setPrevious(nullptr);
  EXPECT_FALSE(container.positionAt(50.0, place));
  container.appendHoral(endAt(CShapeType::Straight, 80.0, 150, 290));
  container.update();  // links again
  EXPECT_TRUE(container.positionAt(50.0, place));
}

}  // namespace
