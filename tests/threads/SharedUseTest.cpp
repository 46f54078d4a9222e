// SPDX-License-Identifier: BSL-1.0
// Many threads on shared definitions and calculators. Run under the thread sanitizer as well.

#include "testing/Axes.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/AxisMapper.h>
#include <Calculations/BlockAxisDefinition.h>
#include <Calculations/GuidanceCalculator.h>
#include <Calculations/GuidanceVectorDefinition.h>
#include <Calculations/MeasuredProfileCalculator.h>
#include <Calculations/Resection.h>
#include <Calculations/ThProfileCalculator.h>
#include <Calculations/ThProfileMorpher.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <iostream>
#include <thread>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

boost::shared_ptr<const AxisDefinition> curvedAxis() {
  Random random(3);
  return randomSmoothAxis(random);
}

/// What threads may share. All of it is new, so that several threads ask the first questions.
struct SharedObjects {
  boost::shared_ptr<const AxisDefinition> axis = curvedAxis();
  double start = curvedAxis()->minimumStng2d();  // not asked of the shared one
  AxisCalculator calculator{axis};
  boost::shared_ptr<const BlockAxisDefinition> block{
      new BlockAxisDefinition(curvedAxis(), start + 20.0, start + 45.0)};
  AxisMapper mapper{axis, block};
  boost::shared_ptr<const GuidanceVectorDefinition> vector{
      GuidanceVectorFactory::createAsAxisParallelFromAxisCoordinate(
          AxisPoint(start + 5.0, 1.0, 2.0))};
  GuidanceCalculator guidance{vector, axis, true};
  boost::shared_ptr<const ThProfileDefinition> design = profileThrough(roadTunnelNodes());
  boost::shared_ptr<const MeasuredProfile> section = measuredCircle(5.6, 300, 0.0, 4.0);
  ThProfileCalculator profile{design};
  ThProfileMorpher morpher{design, circleProfile(6.0, 0.0, 4.0), 0.0, 10.0};
  Resection resection;

  SharedObjects() {
    for (int i = 0; i < 5; ++i) {
      const std::wstring id(1, static_cast<wchar_t>(L'a' + i));
      const PolarPoint sight(1.2 * i, 1.5 + 0.02 * i, 20.0 + 3.0 * i);
      resection.addMeasurement(id, sight);
      resection.addFixPoint(id, ENHPoint(600000.0 + 21.0 * i, 200000.0 + 9.0 * i * i, 400.0 + i));
    }
  }
};

/// Asks a little of everything and tells all answers. Briefly: the sanitizer remembers few accesses
/// to a place, so it would no longer know how a value came about.
std::vector<double> answers(const SharedObjects& shared, std::uint64_t seed) {
  Random random(seed);
  std::vector<double> told;
  for (int i = 0; i < 2; ++i) {
    const double stationing = shared.start + random.uniform(0.0, 400.0);
    ENHPoint grid;
    shared.calculator.axisPointToEnhPoint(AxisPoint(stationing, 2.0, -1.0), grid, true, true);
    AxisPoint back;
    shared.calculator.enhPointToAxisPoint(grid, back, true, true);
    double meter = 0.0;
    shared.calculator.stationingToTunnelmeter(stationing, meter);
    const GuidanceOffsets offsets = shared.guidance.calculateOffsets(grid);
    const Point2D p(random.uniform(-6.0, 6.0), random.uniform(-1.0, 9.0));
    const ProfilePointResult onDesign = shared.profile.calculateProfilePoint(p);
    const auto between = shared.morpher.getMorphedProfile(random.uniform(0.0, 10.0));
    told.insert(told.end(), {grid.east, grid.north, grid.height, back.stationing, meter,
                             shared.mapper.mapStationing(stationing, false, false), offsets.forward,
                             offsets.horizontal, onDesign.distance, onDesign.derolment,
                             between->getCircumference()});
  }
  // Last, because copies of shared pointers make threads wait for each other's earlier work, which
  // hides races from the sanitizer. These calculators themselves are not to be shared.
  const MeasuredProfileCalculator comparison(shared.design, shared.section);
  const ThProfileCalculator own(shared.design);
  ENHPoint station;
  ENHPoint deviation;
  double orientation = 0.0;
  double scale = 0.0;
  double other = 0.0;
  shared.resection.calculateResectionHelmert3d(station, orientation, scale, deviation, other,
                                               other);
  told.insert(told.end(), {station.east, orientation, scale, comparison.overProfileArea(),
                           own.diameterAtProfilePoint({0.0, 9.0})});
  return told;
}

TEST(SharedUse, GivesEveryThreadTheAnswersOfASingleOne) {
  constexpr std::size_t kThreads = 8;
  std::streambuf* const log = std::clog.rdbuf(nullptr);
  for (int round = 0; round < 25; ++round) {
    const SharedObjects shared;
    std::vector<std::vector<double>> told(kThreads);
    std::atomic<std::size_t> waiting{kThreads};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
      threads.emplace_back([&, i] {
        --waiting;
        while (waiting != 0) {
          std::this_thread::yield();
        }
        told[i] = answers(shared, i / 2);
      });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    for (std::size_t i = 0; i < kThreads; ++i) {
      EXPECT_EQ(told[i], answers(SharedObjects(), i / 2)) << i;
    }
  }
  std::clog.rdbuf(log);
}

TEST(SharedUse, GivesThreadsThatSplitAListTheResultsOfTheWhole) {
  constexpr std::size_t kThreads = 4;
  constexpr std::size_t kPoints = 4000;
  const SharedObjects shared;
  Random random(5);
  std::vector<AxisPoint> places;
  for (std::size_t i = 0; i < kPoints; ++i) {
    places.emplace_back(shared.start + 0.1 * static_cast<double>(i), random.uniform(-9.0, 9.0),
                        1.0);
  }
  std::vector<ENHPoint> grid(kPoints);
  const std::size_t count =
      AxisCalculator(curvedAxis())
          .axisPointsToEnhPoints(places.data(), kPoints, grid.data(), nullptr, true, true);
  std::vector<AxisPoint> whole(kPoints);
  AxisCalculator(curvedAxis())
      .enhPointsToAxisPoints(grid.data(), kPoints, whole.data(), nullptr, true, true);
  std::vector<AxisPoint> parts(kPoints);
  std::atomic<std::size_t> found{0};
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, begin = i * kPoints / kThreads] {
      found += shared.calculator.enhPointsToAxisPoints(&grid[begin], kPoints / kThreads,
                                                       &parts[begin], nullptr, true, true);
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_GT(count, kPoints / 2);
  EXPECT_GE(found, count);
  for (std::size_t i = 0; i < kPoints; ++i) {
    EXPECT_EQ(std::memcmp(&parts[i], &whole[i], sizeof whole[i]), 0) << i;
  }
}

}  // namespace
