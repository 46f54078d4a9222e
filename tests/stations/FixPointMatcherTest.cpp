// SPDX-License-Identifier: BSL-1.0
#include "stations/FixPointMatcher.h"

#include <Calculations/Utilities.h>

#include "stations/MatrixPointsFit.h"
#include "stations/RobustDetermination.h"
#include "testing/PlainSearch.h"
#include "testing/Random.h"

#include <gtest/gtest.h>
#include <Eigen/Core>

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using TestSupport::PlainSearch;
using TestSupport::Random;

using Indices = std::vector<std::size_t>;
using Points = std::vector<ENHPoint>;

static_assert(PlainSearch::kLeftOut == kNotAssigned);

struct MatchCase {
  MatchSettings settings;
  Points fixPoints;
  Points measured;
};

std::optional<double> scoreAfter(const Eigen::Matrix3d& rotation, const Eigen::Matrix3Xd& m,
                                 const Eigen::Matrix3Xd& f, const MatchSettings& settings) {
  const Eigen::Vector3d shift = f.rowwise().mean() - rotation * m.rowwise().mean();
  const Eigen::Array3Xd off = ((rotation * m).colwise() + shift - f).array();
  if (!(off.topRows<2>().abs() < settings.toleranceDistanceDifference).all() ||
      !(off.row(2).abs() < settings.toleranceHeightDifference).all()) {
    return std::nullopt;
  }
  return off.topRows<2>().square().sum() + 2.0 * off.row(2).square().sum();
}

/// The shortest turn from one direction to another: I + [v] + [v]^2 / (1 + a.b) with v = a x b.
Eigen::Matrix3d turnBetween(const Eigen::Vector3d& a, const Eigen::Vector3d& b) {
  const Eigen::Vector3d v(a.y() * b.z() - a.z() * b.y(), a.z() * b.x() - a.x() * b.z(),
                          a.x() * b.y() - a.y() * b.x());
  Eigen::Matrix3d cross;
  cross << 0.0, -v.z(), v.y(), v.z(), 0.0, -v.x(), -v.y(), v.x(), 0.0;
  return Eigen::Matrix3d::Identity() + cross + cross * cross / (1.0 + a.dot(b));
}

std::optional<double> plainScore(const Eigen::Matrix3Xd& m, const Eigen::Matrix3Xd& f,
                                 const MatchSettings& settings) {
  const double cosTilt = std::cos(settings.toleranceTilt * 3.141592653589793 / 180.0);
  Eigen::Matrix3d rotation = MatrixPointsFit(m, f).rotation();
  auto score = scoreAfter(rotation, m, f, settings);
  if (!score || rotation(2, 2) >= cosTilt) return score;
  Eigen::Matrix3d level = Eigen::Matrix3d::Identity();
  level.topLeftCorner<2, 2>() = MatrixPointsFit(m.topRows<2>(), f.topRows<2>()).rotation();
  score = scoreAfter(level, m, f, settings);
  if (score) return score;
  Eigen::Index farthest = 0;
  const Eigen::Matrix3Xd rays = m.colwise() - m.rowwise().mean();
  rays.colwise().norm().maxCoeff(&farthest);
  const Eigen::Vector3d to = f.col(farthest) - f.rowwise().mean();
  const Eigen::Vector3d from = rotation * rays.col(farthest);
  rotation = turnBetween(from.normalized(), to.normalized()) * rotation;
  score = scoreAfter(rotation, m, f, settings);
  return rotation(2, 2) >= cosTilt ? score : std::nullopt;
}

PlainSearch plainSearchOf(const MatchCase& c) {
  const auto fewest = static_cast<std::size_t>(c.settings.minNumberOfFixPointMeasurementsRequired);
  return {c.fixPoints, c.measured, c.settings.toleranceDistanceDifference, fewest,
          [&c](const Eigen::Matrix3Xd& m, const Eigen::Matrix3Xd& f) {
            return plainScore(m, f, c.settings);
          }};
}

/// Small cases rich in ambiguity: points of a coarse lattice, flat and steep figures, wide
/// tolerances, strays, instruments that hang upside down, points measured twice.
MatchCase randomCase(Random& random, std::size_t strays) {
  MatchCase c;
  c.settings.toleranceDistanceDifference = random.uniform(0.02, strays > 0 ? 0.2 : 0.6);
  c.settings.toleranceHeightDifference = random.uniform(0.02, 0.6);
  c.settings.toleranceTilt = random.index(3) == 0 ? 1.0 : 80.0;
  c.settings.minNumberOfFixPointMeasurementsRequired = 3 + static_cast<int>(random.index(2));
  const double flatness = random.index(3) == 0 ? 0.02 : 1.0;
  const auto step = [&] {
    return 2.0 * static_cast<double>(random.index(3)) + random.uniform(-0.1, 0.1);
  };
  const auto latticePoint = [&] { return ENHPoint(step(), step(), flatness * step()); };
  const std::size_t count = 4 + random.index(4);
  for (std::size_t i = 0; i < count; ++i) {
    c.fixPoints.push_back(latticePoint());
  }
  const bool isUpsideDown = random.index(4) == 0;
  const double turn = random.uniform(0.0, 6.28);
  const std::size_t measured = 3 + random.index(3) + strays;
  for (std::size_t i = 0; i < measured; ++i) {
    const bool isStray = i % 2 == 1 && i / 2 < strays;
    ENHPoint p = isStray ? latticePoint() : c.fixPoints[random.index(count)];
    if (isUpsideDown) p = ENHPoint(p.east, -p.north, -p.height);
    p = Utilities::rotateAroundHeightZaxis(p, turn);
    c.measured.push_back(p + ENHPoint(3.0, -7.0, random.uniform(-0.02, 0.02)));
  }
  return c;
}

void expectSameSolutions(const std::vector<MatchedSolution>& found,
                         const std::vector<PlainSearch::Solution>& expected) {
  ASSERT_EQ(found.size(), expected.size());
  std::multiset<Indices> assignmentsFound;
  std::multiset<Indices> assignmentsExpected;
  for (std::size_t i = 0; i < found.size(); ++i) {
    // Equal scores all along make the order the same but for ties.
    EXPECT_NEAR(found[i].score, expected[i].score, 1e-12);
    assignmentsFound.insert(found[i].fixPoints);
    assignmentsExpected.insert(expected[i].fixPoints);
  }
  EXPECT_EQ(assignmentsFound, assignmentsExpected);
}

TEST(FixPointMatcher, FindsWhatEnumerationAndQueueFind) {
  Random random(101);
  int reduced = 0;
  int ambiguous = 0;
  int shared = 0;
  for (std::size_t i = 0; i < 1200; ++i) {
    SCOPED_TRACE(testing::Message() << "case " << i);
    const MatchCase c = randomCase(random, i % 4);
    PlainSearch plain = plainSearchOf(c);
    FixPointMatcher matcher(c.settings, c.fixPoints, c.measured);
    auto expected = plain.strict();
    EXPECT_EQ(matcher.matchAll(), !expected.empty());
    ASSERT_NO_FATAL_FAILURE(expectSameSolutions(matcher.solutions(), expected));
    if (expected.empty()) {
      expected = plain.robust();
      EXPECT_EQ(RobustDetermination(matcher).run(), !expected.empty());
      ASSERT_NO_FATAL_FAILURE(expectSameSolutions(matcher.solutions(), expected));
      if (!expected.empty()) ++reduced;
    } else {
      Indices places = expected[0].fixPoints;
      std::sort(places.begin(), places.end());
      if (std::adjacent_find(places.begin(), places.end()) != places.end()) ++shared;
    }
    if (expected.size() > 1) ++ambiguous;
  }
  // The cases are of use only while they reach these.
  EXPECT_GT(std::min({reduced, ambiguous, shared}), 100) << reduced << ambiguous << shared;
}

}  // namespace
