// SPDX-License-Identifier: BSL-1.0
#include "testing/Numbers.h"
#include "testing/Paths.h"
#include "testing/Random.h"

#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

/// Every piece is a simple polygon without a hole, and the pieces do not overlap. Cleaning by
/// 0.14 mm may change their area.
void expectSimplePieces(const Pathes& pieces, double area) {
  constexpr double kCleaning = 1e-3;
  EXPECT_NEAR(pieces.area(), area, kCleaning);
  double absolute = 0.0;
  for (unsigned i = 0; i < pieces.numPathes(); ++i) {
    const Path piece = pieces.pathAt(i);
    absolute += std::abs(piece.area());
    // Cleaning of self-touching outlines would change the area.
    ClipperLib::Paths simple;
    ClipperLib::SimplifyPolygon(PathHelper::clipperLibPathFromPath(piece), simple,
                                ClipperLib::pftNonZero);
    EXPECT_EQ(simple.size(), 1u);
    for (unsigned k = 0; k < i; ++k) {
      EXPECT_LT(Path::within(piece, pieces.pathAt(k)).area(), 1e-6);
    }
  }
  EXPECT_NEAR(absolute, area, kCleaning);
}

TEST(RingCutting, CutsRingsInSimplePieces) {
  const Path outer = circle(5.2);
  const Path inner = circle(5.0);
  const Pathes ringPieces = Path::without(outer, inner);
  EXPECT_EQ(ringPieces.numPathes(), 2u);
  expectSimplePieces(ringPieces, outer.area() - inner.area());
  EXPECT_NEAR(ringPieces.pathAt(0).area(), ringPieces.pathAt(1).area(), 1e-3);
  // Several holes, a hole in an island, and outlines without holes beside.
  Pathes holes(circle(1.0, -2.5, 0));
  holes.addPath(circle(1.0, 2.5, 0.5));
  holes.addPath(circle(0.3, 2.5, 3));
  expectSimplePieces(Pathes::without(Pathes(outer), holes),
                     outer.area() - 2 * circle(1.0).area() - circle(0.3).area());
  Pathes island(outer);
  island.addPath(circle(3.0));
  island.addPath(circle(2.0));
  island.addPath(box(8, 0, 9, 1));
  expectSimplePieces(
      Pathes::without(island, Pathes(circle(1.0))),
      outer.area() - circle(3.0).area() + circle(2.0).area() - circle(1.0).area() + 1.0);
  // Holes that touch the outline with all their corners, and with two edges as the grid allows.
  const ClipperLib::Paths touching[] = {
      {{{0, 0}, {400, 0}, {400, 400}, {0, 400}}, {{200, 0}, {0, 200}, {200, 400}, {400, 200}}},
      {{{50526, 4976}, {53665, 9764}, {53787, 11339}, {50984, 13965}, {50236, 4377}},
       {{50674, 9997}, {50797, 11572}, {53787, 11338}, {53664, 9763}}}};
  for (const ClipperLib::Paths& paths : touching) {
    double sum = 0.0;
    for (const ClipperLib::Path& piece : PathHelper::convertRingToSimplePaths(paths)) {
      EXPECT_GT(ClipperLib::Area(piece), 0.0);
      sum += ClipperLib::Area(piece);
    }
    EXPECT_NEAR(sum, ClipperLib::Area(paths[0]) + ClipperLib::Area(paths[1]), 1e4);
  }
  // A hole too narrow for the grid to be cut in its middle is filled.
  const ClipperLib::Paths narrow = {{{0, 0}, {90, 0}, {90, 90}, {0, 90}},
                                    {{40, 10}, {40, 80}, {41, 80}, {41, 10}}};
  EXPECT_EQ(PathHelper::convertRingToSimplePaths(narrow), ClipperLib::Paths(1, narrow[0]));
  Random random(101);
  for (int round = 0; round < 15; ++round) {
    Pathes cut;
    double area = outer.area();
    for (int i = 0; i < 8; ++i) {
      const double size = random.uniform(0.05, 0.4);
      const double angle = 2 * kPi * i / 8;
      cut.addPath(circle(size, 3 * std::cos(angle), 3 * std::sin(angle)));
      area -= cut.pathAt(static_cast<unsigned>(i)).area();
    }
    expectSimplePieces(Pathes::without(Pathes(outer), cut), area);
  }
}

}  // namespace
