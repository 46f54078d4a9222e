// SPDX-License-Identifier: BSL-1.0
// What does the profile look like at this stationing, where one section changes into another? Asked
// for every section of a widening. Each question matches both profiles anew; at the start of the
// stretch that is nearly all of the work, within it the outline is worked out as well.

#include <Calculations/Calculations.h>

#include <benchmark/benchmark.h>

#include <cmath>

namespace Benchmarks {

namespace {

using Ruv::Calculations::Point2D;
using Ruv::Calculations::ThProfileDefinition;
using Ruv::Calculations::ThProfileMorpher;

constexpr double kTwoPi = 6.283185307179586;

constexpr double kFromStationing = 1000.0;
constexpr double kToStationing = 1040.0;
constexpr double kWithin = 1013.0;

/// A profile on an ellipse, clockwise: straights and arcs in turns, no two headings alike.
boost::shared_ptr<const ThProfileDefinition> section(int numSegments, double halfWidth,
                                                     double halfHeight, double firstBearing) {
  const auto node = [&](int i) {
    const double bearing = firstBearing + kTwoPi * i / numSegments;
    return Point2D(halfWidth * std::sin(bearing), halfHeight * std::cos(bearing));
  };
  const boost::shared_ptr<ThProfileDefinition> profile(new ThProfileDefinition);
  for (int i = 0; i < numSegments; ++i) {
    const Point2D from = node(i);
    const Point2D to = node((i + 1) % numSegments);
    if (i % 2 == 0) {
      profile->addSegmentStraight(from.x, from.y, to.x, to.y);
    } else {
      profile->addSegmentArc(from.x, from.y, to.x, to.y, halfWidth);
    }
  }
  return profile;
}

void profileOfAMorph(benchmark::State& state, double atStationing) {
  const auto numSegments = static_cast<int>(state.range(0));
  const ThProfileMorpher morpher(section(numSegments, 5.0, 4.0, 0.1),
                                 section(numSegments, 8.0, 5.0, 0.2), kFromStationing,
                                 kToStationing);
  for (auto _ : state) {  // NOLINT(clang-analyzer-deadcode.DeadStores): the framework's own loop
    auto profile = morpher.getMorphedProfile(atStationing);
    if (!profile) state.SkipWithError("no profile");
    benchmark::DoNotOptimize(profile);
  }
}

void preparationOfAMorph(benchmark::State& state) { profileOfAMorph(state, kFromStationing); }

void profileWithinAMorph(benchmark::State& state) { profileOfAMorph(state, kWithin); }

BENCHMARK(preparationOfAMorph)->Arg(12)->Arg(60);
BENCHMARK(profileWithinAMorph)->Arg(12)->Arg(60);

}  // namespace

}  // namespace Benchmarks
