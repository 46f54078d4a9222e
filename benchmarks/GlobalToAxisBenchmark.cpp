// SPDX-License-Identifier: BSL-1.0
// Where along the axis and how far beside it is this point? Asked for every point of a scan.

#include "SpeedGoals.h"
#include "support/AxisWorkload.h"
#include "support/PolylinePeers.h"
#include "support/QuestionLoop.h"
#include "support/Rounds.h"
#include "testing/Promises.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>

namespace Benchmarks {

namespace {

void toAxis(const AxisCalculator& calculator, const ENHPoint& point) {
  AxisPoint place;
  bool ok = calculator.enhPointToAxisPointVertical(point, place);
  benchmark::DoNotOptimize(ok);
  benchmark::DoNotOptimize(place);
}

/// Stationing and offset of a point; the height stays 0.
class AxisTree {
 public:
  AxisTree(const std::vector<Point2D>& vertices, double startStationing)
      : m_startStationing(startStationing), m_tree(vertices) {}

  AxisPoint project(const ENHPoint& point) const {
    const PolylineFoot foot = m_tree.project(Point2D(point.east, point.north));
    const double steps = static_cast<double>(foot.segment) + foot.part;
    return {m_startStationing + kPolylineStep * steps, foot.offset, 0.0};
  }

 private:
  double m_startStationing;
  SegmentTree m_tree;
};

void toAxis(const AxisTree& tree, const ENHPoint& point) {
  AxisPoint place = tree.project(point);
  benchmark::DoNotOptimize(place);
}

void axisPointOfEveryPointOfAScan(benchmark::State& state) {
  const AxisWorkload workload(static_cast<std::size_t>(state.range(0)));
  const AxisCalculator calculator(workload.build());
  askInTurn(state, scanAround(workload.exact(), kItemsOfLoop).points,
            [&](const ENHPoint& point) { toAxis(calculator, point); });
}

void axisPointOfEveryPointOfAScanFromABoostTree(benchmark::State& state) {
  const AxisWorkload workload(static_cast<std::size_t>(state.range(0)));
  const AxisTree tree(workload.polyline(kPolylineStep), workload.exact().startStationing());
  askInTurn(state, scanAround(workload.exact(), kItemsOfLoop).points,
            [&](const ENHPoint& point) { toAxis(tree, point); });
}

/// Points of a list for one call.
constexpr std::size_t kPointsOfList = kQuickAnswers;

using PointList = std::vector<ENHPoint>;

std::vector<PointList> inLists(const std::vector<ENHPoint>& points) {
  std::vector<PointList> lists;
  for (std::size_t i = 0; i + kPointsOfList <= points.size(); i += kPointsOfList) {
    const auto begin = points.begin() + static_cast<std::ptrdiff_t>(i);
    lists.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(kPointsOfList));
  }
  return lists;
}

void toAxis(const AxisCalculator& calculator, const PointList& points) {
  static std::array<AxisPoint, kPointsOfList> places;
  std::size_t count = calculator.enhPointsToAxisPoints(points.data(), points.size(), places.data(),
                                                       nullptr, false, true);
  benchmark::DoNotOptimize(count);
  benchmark::DoNotOptimize(places.data());
}

/// Random, section by section, or ascending.
std::vector<ENHPoint> pointsInOrder(const ExactAxis& axis, std::int64_t order) {
  if (order == 0) return scanAround(axis, kItemsOfLoop).points;
  return order == 1 ? sectionsAlong(axis, kItemsOfLoop) : slabsAlong(axis, kItemsOfLoop);
}

void axisPointOfEveryPointInOrder(benchmark::State& state) {
  const AxisWorkload workload(static_cast<std::size_t>(state.range(0)));
  const AxisCalculator calculator(workload.build());
  askInTurn(state, pointsInOrder(workload.exact(), state.range(1)),
            [&](const ENHPoint& point) { toAxis(calculator, point); });
}

void axisPointsOfAList(benchmark::State& state) {
  const AxisWorkload workload(static_cast<std::size_t>(state.range(0)));
  const AxisCalculator calculator(workload.build());
  const std::vector<ENHPoint> points = pointsInOrder(workload.exact(), state.range(1));
  askInTurn(state, inLists(points), [&](const PointList& list) { toAxis(calculator, list); });
}

BENCHMARK(axisPointsOfAList)
    ->ArgNames({"n", "order"})
    ->ArgsProduct({{10, 100, 1000, 10000}, {0, 1, 2}});
BENCHMARK(axisPointOfEveryPointInOrder)
    ->ArgNames({"n", "order"})
    ->ArgsProduct({{10, 100, 1000, 10000}, {1, 2}});
BENCHMARK(axisPointOfEveryPointOfAScan)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity(benchmark::oLogN);
BENCHMARK(axisPointOfEveryPointOfAScanFromABoostTree)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity(benchmark::oLogN);

/// Size at which GEOS, whose search is linear, is compared.
constexpr std::size_t kSizeForLinearSearch = 1000;

/// The goals at one size. The published cost of Clothoids, measured once, is in sc.
struct ProjectionGoal {
  Goal boost;
  double clothoids = 0.0;
};

const std::map<std::size_t, ProjectionGoal>& projectionGoals() {
  static const std::map<std::size_t, ProjectionGoal> kGoals = {
      {10, {atLeast(2.5, 4.0), 1630.0}},
      {100, {atLeast(2.5, 4.0), 2650.0}},
      {1000, {atLeast(5.0, 8.0), 2160.0}},
      {10000, {atLeast(5.0, 8.0), 3150.0}}};
  return kGoals;
}

constexpr const char* kRandomList = "list of points of a scan in random order";
constexpr const char* kSections = "list of points of a scan, section by section";
constexpr const char* kSlabs = "list of points of a scan, sorted along the axis";

constexpr const char* kWork = "axis point of every point of a scan";

std::vector<ENHPoint> firstOf(const std::vector<ENHPoint>& points, std::size_t count) {
  const auto end = static_cast<std::ptrdiff_t>(std::min(count, points.size()));
  return {points.begin(), points.begin() + end};
}

/// One size: the axis, its scan, and those peers that are asked at that size.
class ProjectionContest {
 public:
  ProjectionContest(std::size_t numElements, const Effort& effort)
      : m_size(numElements),
        m_workload(numElements),
        m_calculator(m_workload.build()),
        m_scan(scanAround(m_workload.exact(), effort.points)),
        m_lists(inLists(m_scan.points)),
        m_sections(sectionsAlong(m_workload.exact(), effort.points)),
        m_slabs(slabsAlong(m_workload.exact(), effort.points)),
        m_pointsOfTree(firstOf(m_scan.points, effort.pointsOfTrees)),
        m_pointsOfLine(firstOf(m_scan.points, effort.pointsOfLinearSearches)) {
    if (m_size > effort.longestAxisOfTrees) return;
    const std::vector<Point2D> vertices = m_workload.polyline(kPolylineStep);
    const double start = m_workload.exact().startStationing();
    m_tree.emplace(vertices, start);
    if (m_size == kSizeForLinearSearch) m_line.emplace(vertices);
  }

  /// Returns the time per point.
  double judge(int rounds, GoalTable& table) const {
    std::vector<Contender> contenders = {ours(), sineAndCosine()};
    if (m_tree) contenders.push_back(tree());
    if (m_line) contenders.push_back(line());
    const std::vector<double> best = bestOfRounds(rounds, contenders);
    judgeByCost(best[0], best[1], table);
    if (m_tree) {
      table.add(
          {kWork, m_size, best[0], "Boost R-tree", best[2], projectionGoals().at(m_size).boost});
    }
    if (m_line) table.add({kWork, m_size, best[0], "GEOS project", best[3], atLeast(20000.0)});
    return best[0];
  }

  /// Lists of points, before single calls for the same points.
  void judgeLists(int rounds, GoalTable& table) const {
    const std::vector<double> best = bestOfRounds(rounds, {list(m_lists), single(m_scan.points)});
    table.add({kRandomList, m_size, best[0] / static_cast<double>(kPointsOfList), "single calls",
               best[1], atLeast(0.9, 1.0)});
    judgeOrdered(kSections, m_sections, rounds, table);
    judgeOrdered(kSlabs, m_slabs, rounds, table);
  }

  void check(GoalTable& table) const {
    checkLists(table);
    checkOurs(table);
    if (m_tree) checkTree(table);
    if (m_line) checkLine(table);
  }

 private:
  void judgeByCost(double ours, double sc, GoalTable& table) const {
    constexpr double kTimesFasterThanClothoids = 50.0;
    table.add({kWork, m_size, ours, "1 sc", sc, atMost(std::nullopt)});
    table.add({kWork, m_size, ours, "Clothoids (published)",
               projectionGoals().at(m_size).clothoids * sc, atLeast(kTimesFasterThanClothoids)});
  }

  void judgeOrdered(const char* work, const std::vector<ENHPoint>& points, int rounds,
                    GoalTable& table) const {
    const std::vector<PointList> lists = inLists(points);
    const std::vector<ENHPoint> ofTree = firstOf(points, m_pointsOfTree.size());
    std::vector<Contender> contenders = {list(lists), single(points)};
    if (m_tree) contenders.push_back(tree(ofTree));
    const std::vector<double> best = bestOfRounds(rounds, contenders);
    const double ours = best[0] / static_cast<double>(kPointsOfList);
    constexpr std::size_t kManyElements = 1000;
    const bool hasMany = m_size >= kManyElements;
    table.add({work, m_size, ours, "single calls", best[1],
               hasMany ? atLeast(2.0, 3.0) : atLeast(1.5, 2.0)});
    if (!m_tree) return;
    table.add({work, m_size, ours, "Boost R-tree", best[2],
               hasMany ? atLeast(5.0, 10.0) : atLeast(std::nullopt)});
  }

  Contender ours() const { return single(m_scan.points); }

  Contender single(const std::vector<ENHPoint>& points) const {
    return [this, &points] {
      return timesPerItem(points, kQuickAnswers,
                          [&](const ENHPoint& point) { toAxis(m_calculator, point); });
    };
  }

  Contender list(const std::vector<PointList>& lists) const {
    return [this, &lists] {
      return timesPerItem(lists, 1, [&](const PointList& points) { toAxis(m_calculator, points); });
    };
  }

  Contender tree() const { return tree(m_pointsOfTree); }

  Contender tree(const std::vector<ENHPoint>& points) const {
    return [this, &points] {
      return timesPerItem(points, kSlowAnswers,
                          [&](const ENHPoint& point) { toAxis(*m_tree, point); });
    };
  }

  Contender line() const {
    return [this] {
      return timesPerItem(m_pointsOfLine, 1, [&](const ENHPoint& point) {
        double stationing = stationingOnLine(point);
        benchmark::DoNotOptimize(stationing);
      });
    };
  }

  double stationingOnLine(const ENHPoint& point) const {
    return m_workload.exact().startStationing() +
           m_line->lengthTo(Point2D(point.east, point.north));
  }

  /// Before single calls, from which a list must not differ at all.
  void checkLists(GoalTable& table) const {
    double difference = 0.0;
    for (const std::vector<ENHPoint>* points : {&m_scan.points, &m_sections, &m_slabs}) {
      std::vector<AxisPoint> places(points->size());
      m_calculator.enhPointsToAxisPoints(points->data(), points->size(), places.data(), nullptr,
                                         false, true);
      for (std::size_t i = 0; i < places.size(); ++i) {
        AxisPoint place;
        m_calculator.enhPointToAxisPointVertical((*points)[i], place);
        difference = worse(difference, std::abs(places[i].stationing - place.stationing));
        difference = worse(difference, std::abs(places[i].offset - place.offset));
        difference = worse(difference, std::abs(places[i].height - place.height));
      }
    }
    table.add({"lists before single calls", m_size,
               m_scan.points.size() + m_sections.size() + m_slabs.size(), difference, "m", 0.0});
  }

  void checkOurs(GoalTable& table) const {
    constexpr double kFailed = std::numeric_limits<double>::infinity();
    double inStationing = 0.0;
    double inOffset = 0.0;
    double inHeight = 0.0;
    for (std::size_t i = 0; i < m_scan.points.size(); ++i) {
      AxisPoint place;
      const AxisPoint& truth = m_scan.truth[i];
      const bool ok = m_calculator.enhPointToAxisPointVertical(m_scan.points[i], place);
      inStationing =
          worse(inStationing, ok ? std::abs(place.stationing - truth.stationing) : kFailed);
      inOffset = worse(inOffset, std::abs(place.offset - truth.offset));
      inHeight = worse(inHeight, std::abs(place.height - truth.height));
    }
    const std::size_t count = m_scan.points.size();
    table.add({"stationing", m_size, count, inStationing, "m", Promise::kAxisPoint});
    table.add({"offset", m_size, count, inOffset, "m", Promise::kAxisPoint});
    table.add({"height", m_size, count, inHeight, "m", Promise::kAxisPoint});
  }

  void checkTree(GoalTable& table) const {
    double inStationing = 0.0;
    double inOffset = 0.0;
    for (std::size_t i = 0; i < m_pointsOfTree.size(); ++i) {
      const AxisPoint place = m_tree->project(m_pointsOfTree[i]);
      const AxisPoint& truth = m_scan.truth[i];
      inStationing = worse(inStationing, std::abs(place.stationing - truth.stationing));
      inOffset = worse(inOffset, std::abs(place.offset - truth.offset));
    }
    const std::size_t count = m_pointsOfTree.size();
    table.add({"stationing by Boost R-tree", m_size, count, inStationing, "m", std::nullopt});
    table.add({"offset by Boost R-tree", m_size, count, inOffset, "m", std::nullopt});
  }

  void checkLine(GoalTable& table) const {
    double inStationing = 0.0;
    for (std::size_t i = 0; i < m_pointsOfLine.size(); ++i) {
      const double stationing = stationingOnLine(m_pointsOfLine[i]);
      inStationing = worse(inStationing, std::abs(stationing - m_scan.truth[i].stationing));
    }
    table.add({"stationing by GEOS project", m_size, m_pointsOfLine.size(), inStationing, "m",
               std::nullopt});
  }

  std::size_t m_size;
  AxisWorkload m_workload;
  AxisCalculator m_calculator;
  Scan m_scan;
  std::vector<PointList> m_lists;
  std::vector<ENHPoint> m_sections;
  std::vector<ENHPoint> m_slabs;
  std::vector<ENHPoint> m_pointsOfTree;
  std::vector<ENHPoint> m_pointsOfLine;
  std::optional<AxisTree> m_tree;
  std::optional<LineString> m_line;
};

}  // namespace

void measureGlobalToAxis(const Effort& effort, GoalTable& table) {
  std::map<std::size_t, double> times;
  for (const std::size_t n : kAxisSizes) {
    const ProjectionContest contest(n, effort);
    times[n] = contest.judge(effort.rounds, table);
    contest.judgeLists(effort.rounds, table);
    contest.check(table);
  }
  table.add({"growth", kAxisSizes.back(), times[kAxisSizes.back()], "n = 10",
             times[kAxisSizes.front()], atMost(4.0)});
}

}  // namespace Benchmarks
