// SPDX-License-Identifier: BSL-1.0
// How much was excavated beyond the design profile, how much is still to be excavated, and how much
// of it is geological? Asked for every scanned section.

#include "SpeedGoals.h"
#include "support/ClippingPeers.h"
#include "support/ProfileWorkload.h"
#include "support/Rounds.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace Benchmarks {

namespace {

using Ruv::Calculations::GeologicalOverProfileMethod;
using Ruv::Calculations::MeasuredProfileCalculator;
using Ruv::Calculations::Path;
using Ruv::Calculations::PathSegment;

constexpr std::array<std::size_t, 4> kSectionSizes = {200, 2000, 20000, 100000};

constexpr std::uint64_t kSectionSeed = 50;

/// Beyond this distance (m) from the reference, over-break is geological.
constexpr double kGeologicalDistance = 0.08;

constexpr std::array<double, 2> kOffsets = {0.05, 0.3};

OverAndUnder overAndUnder(const MeasuredProfileCalculator& calculator) {
  return {calculator.overProfileArea(), calculator.underProfileArea()};
}

double geologicalArea(const MeasuredProfileCalculator& calculator) {
  return calculator.geologicalOverProfileArea(
      GeologicalOverProfileMethod::GeologicalBandFromReference, kGeologicalDistance, 0.0);
}

void areasOfASection(benchmark::State& state) {
  const auto numPoints = static_cast<std::size_t>(state.range(0));
  const boost::shared_ptr<const ThProfileDefinition> design = enterTunnelProfile();
  const boost::shared_ptr<const MeasuredProfile> section =
      measuredThrough(measuredSection(numPoints, kSectionSeed));
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    OverAndUnder areas = overAndUnder(MeasuredProfileCalculator(design, section));
    benchmark::DoNotOptimize(areas);
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(areasOfASection)->RangeMultiplier(10)->Range(200, 20000)->Complexity(benchmark::oNLogN);

/// Calls in a turn: many of short ones, few of long ones.
std::size_t callsInATurn(std::size_t numPoints) {
  return std::max<std::size_t>(10000 / numPoints, 1);
}

template <class Work>
Contender repeating(std::size_t numPoints, const Work& work) {
  return [numPoints, work] {
    return timesPerCall(callsInATurn(numPoints), 1, [&work] {
      auto result = work();
      benchmark::DoNotOptimize(result);
    });
  };
}

/// Whether the reference is the design profile, which the library cuts into pieces itself, or an
/// earlier section of fine points.
enum class ReferenceKind { Design, FineSection };

/// One section before one reference.
class AreaContest {
 public:
  AreaContest(ReferenceKind kind, std::size_t numPoints)
      : m_isDesign(kind == ReferenceKind::Design),
        m_size(numPoints),
        m_reference(m_isDesign ? coarseOutline() : fineOutline()),
        m_section(measuredSection(numPoints, kSectionSeed)),
        m_design(enterTunnelProfile()),
        m_enteredReference(measuredThrough(m_reference)),
        m_excavation(measuredThrough(m_section)) {}

  void judge(int rounds, GoalTable& table) const {
    constexpr std::size_t kSmall = 200;
    constexpr std::size_t kMedium = 2000;
    const std::vector<double> best = bestOfRounds(
        rounds,
        {repeating(m_size, [this] { return overAndUnder(newCalculator()); }),
         repeating(m_size, [this] { return clipOverAndUnder(m_reference, m_section); }),
         repeating(m_size, [this] { return geosOverAndUnder(m_geos, m_reference, m_section); }),
         repeating(m_size, [this] { return geologicalArea(newCalculator()); }),
         repeating(m_size, [this] {
           return clipGeologicalArea(m_reference, m_section, kGeologicalDistance);
         })});
    const std::string areas = "over and under" + suffix();
    table.add({areas, m_size, best[0], "Clipper, two differences", best[1],
               atMost(m_size <= kSmall ? 1.4 : 1.15, 1.05)});
    if (m_size <= kMedium) {
      table.add(
          {areas, m_size, best[0], "Clipper, to be beaten", best[1], atMost(std::nullopt, 1.0)});
    }
    table.add({areas, m_size, best[0], "GEOS, two differences", best[2], atMost(1.0)});
    table.add({"geological area" + suffix(), m_size, best[3], "Clipper, the same chain", best[4],
               atMost(1.2, 1.1)});
  }

  /// The clipping grid moves points by up to a step of 0.1 mm, and cleaning moves outlines by up to
  /// 0.1415 mm: a fine arc loses most of its points.
  void check(GoalTable& table) const {
    constexpr double kLargestMove = 1e-4 + 1.415e-4;
    const double slack = kLargestMove * static_cast<double>(tunnelProfile().circumference());
    const OverAndUnder ours = overAndUnder(newCalculator());
    const OverAndUnder clipped = clipOverAndUnder(m_reference, m_section);
    const OverAndUnder exact = geosOverAndUnder(m_geos, m_reference, m_section);
    const double byGrid =
        worse(std::abs(ours.over - clipped.over), std::abs(ours.under - clipped.under));
    const double byGeos =
        worse(std::abs(ours.over - exact.over), std::abs(ours.under - exact.under));
    table.add({"areas against Clipper" + suffix(), m_size, 2, byGrid, "m2", kSameGrid});
    table.add({"areas against GEOS" + suffix(), m_size, 2, byGeos, "m2", slack});
    checkGeology(slack, table);
  }

 private:
  /// Pieces that only cleaning tells apart.
  static constexpr double kSameGrid = 1e-6;

  /// A calculator keeps the outlines that it made, so every call has its own.
  MeasuredProfileCalculator newCalculator() const {
    if (m_isDesign) return MeasuredProfileCalculator(m_design, m_excavation);
    return MeasuredProfileCalculator(m_enteredReference, m_excavation);
  }

  std::string suffix() const { return m_isDesign ? ", design" : ", fine section"; }

  void checkGeology(double slack, GoalTable& table) const {
    const double area = geologicalArea(newCalculator());
    const double chain = clipGeologicalArea(m_reference, m_section, kGeologicalDistance);
    table.add({"geological area against Clipper" + suffix(), m_size, 1, std::abs(area - chain),
               "m2", kSameGrid});
    const double beyond = newCalculator().geologicalOverProfileArea(
        GeologicalOverProfileMethod::GeologicalBeyondLimitOnly, kGeologicalDistance, 0.0);
    const double exact = geosAreaBeyond(m_geos, m_reference, m_section, kGeologicalDistance);
    table.add({"area beyond 8 cm against GEOS" + suffix(), m_size, 1, std::abs(beyond - exact),
               "m2", slack});
  }

  bool m_isDesign;
  std::size_t m_size;
  std::vector<Point2D> m_reference;
  std::vector<Point2D> m_section;
  boost::shared_ptr<const ThProfileDefinition> m_design;
  boost::shared_ptr<const MeasuredProfile> m_enteredReference;
  boost::shared_ptr<const MeasuredProfile> m_excavation;
  GeosContext m_geos;
};

Path pathThrough(const std::vector<Point2D>& outline) {
  Path path;
  for (const Point2D& p : outline) {
    path.addSegment(PathSegment(p.x, p.y));
  }
  path.close(true);
  return path;
}

void judgeOffsets(int rounds, GoalTable& table) {
  for (const std::vector<Point2D>& outline : {coarseOutline(), fineOutline()}) {
    for (const double distance : kOffsets) {
      const std::vector<double> best = bestOfRounds(
          rounds, {repeating(outline.size(),
                             [&] { return Path::expand(pathThrough(outline), distance).area(); }),
                   repeating(outline.size(), [&] { return offsetOutline(outline, distance); })});
      const std::string millimetres = std::to_string(std::lround(1000.0 * distance));
      table.add({"outline offset by " + millimetres + " mm", outline.size(), best[0], "Clipper",
                 best[1], atMost(std::nullopt)});
    }
  }
}

}  // namespace

void measureProfileAreas(const Effort& effort, GoalTable& table) {
  for (const ReferenceKind kind : {ReferenceKind::Design, ReferenceKind::FineSection}) {
    for (const std::size_t numPoints : kSectionSizes) {
      if (numPoints > effort.largestSection) continue;
      const AreaContest contest(kind, numPoints);
      contest.judge(effort.rounds, table);
      contest.check(table);
    }
  }
  judgeOffsets(effort.rounds, table);
}

}  // namespace Benchmarks
