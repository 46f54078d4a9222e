// SPDX-License-Identifier: BSL-1.0
#include "profiles/paths/CanonicalOutlines.h"

#include "testing/Random.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

using namespace Ruv::Calculations;
using TestSupport::Random;

/// On a grid so coarse that points and edges of several outlines meet.
/// @param size of the grid; on a small one outlines come back to the point at which they start
Pathes meetingOutlines(std::size_t size, Random& random) {
  Pathes outlines;
  for (std::size_t count = 1 + random.index(3); count > 0; --count) {
    Path outline;
    for (std::size_t i = 3 + random.index(20); i > 0; --i) {
      const double x = 1e-3 * double(random.index(size));
      outline.addSegment(PathSegment(x, 1e-3 * double(random.index(size))));
    }
    outlines.addPath(outline);
  }
  return outlines;
}

/// The same outlines written otherwise.
Pathes shuffled(const Pathes& outlines, Random& random, bool mayTurn) {
  ClipperLib::Paths paths = PathHelper::clipperLibPathsFromPathes(outlines);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    ClipperLib::Path& path = paths[i];
    std::rotate(path.begin(), path.begin() + std::ptrdiff_t(random.index(path.size())), path.end());
    if (mayTurn && random.index(2) == 0) std::reverse(path.begin(), path.end());
    if (random.index(2) == 0) path.push_back(path.front());
    std::swap(paths[i], paths[random.index(i + 1)]);
  }
  return PathHelper::pathesFromClipperLibPaths(paths);
}

TEST(CanonicalOutlines, GivesTheSamePiecesHoweverOutlinesAreWritten) {
  Random random(17);
  const auto written = [](const Pathes& p) { return PathHelper::clipperLibPathsFromPathes(p); };
  for (int i = 0; i < 200; ++i) {
    const std::size_t size = i % 2 == 0 ? 30 : 3;
    const Pathes a = meetingOutlines(size, random);
    const Pathes b = meetingOutlines(size, random);
    const Pathes turnedA = shuffled(a, random, true);
    const Pathes turnedB = shuffled(b, random, true);
    EXPECT_EQ(written(Pathes::within(a, b)), written(Pathes::within(turnedA, turnedB)));
    EXPECT_EQ(written(Pathes::without(a, b)), written(Pathes::without(turnedA, turnedB)));
    EXPECT_EQ(written(Pathes::linesWithin(a, b, true)),
              written(Pathes::linesWithin(a, turnedB, true)));
    EXPECT_EQ(written(Pathes::expand(a, 0.002)),
              written(Pathes::expand(shuffled(a, random, false), 0.002)));
  }
}

TEST(CanonicalOutlines, SplitsWhatTouchesItselfFromInside) {
  using Outline = ClipperLib::Path;
  const Outline lobes = {{0, 0},      {-900, 300}, {-900, -300}, {0, 0},    {-300, -900},
                         {300, -900}, {0, 0},      {900, -600},  {900, 600}};
  const Pathes pieces = Pathes::without(PathHelper::pathFromClipperLibPath(lobes), Pathes());
  const ClipperLib::Paths expected = {{{900, 600}, {0, 0}, {900, -600}},
                                      {{-900, 300}, {-900, -300}, {0, 0}},
                                      {{0, 0}, {-300, -900}, {300, -900}}};
  EXPECT_EQ(PathHelper::clipperLibPathsFromPathes(pieces), expected);
  EXPECT_EQ(canonicalPieces({lobes}), expected);
  const Outline notched = {{0, 900}, {0, 0}, {200, 600}, {600, 200}, {0, 0}, {900, 0}, {900, 900}};
  EXPECT_EQ(canonicalPieces({notched}), ClipperLib::Paths{notched});
  // Edges to the left and to the right, written from either wing.
  const Outline wings = {{0, 0}, {600, -900}, {900, 0}, {0, 0}, {-900, 0}, {-600, -900}};
  const Outline fromLeft = {{0, 0}, {-900, 0}, {-600, -900}, {0, 0}, {600, -900}, {900, 0}};
  EXPECT_EQ(canonicalPieces({wings}).size(), 2U);
  EXPECT_EQ(canonicalPieces({fromLeft}).size(), 2U);
}

}  // namespace
