// SPDX-License-Identifier: BSL-1.0
// The clipper (6.4) turns some outlines the wrong way round, or leads them along an edge twice: one
// in some thousand where outlines share edges, fewer where one runs along itself. Even then the
// right points are inside by the even-odd rule.

#include "profiles/paths/Union.h"

#include "profiles/paths/FailsafeClipper.h"

#include <cmath>
#include <utility>

namespace Ruv {
namespace Calculations {

namespace {

/// More than three have never been needed.
constexpr int kMostUnions = 5;

/// Results whose areas differ by no more than this (1 cm2 in square clipping units) agree.
constexpr double kNegligibleAreaUnits = 1e4;

ClipperLib::Paths unitedOnce(const ClipperLib::Paths& paths) {
  FailsafeClipper clipper;
  clipper.add(viewsOf(paths), ClipperLib::ptSubject, true);
  return clipper.outlines(ClipperLib::ctUnion, ClipperLib::pftEvenOdd);
}

}  // namespace

double signedArea(const ClipperLib::Paths& paths) {
  double area = 0.0;
  for (const ClipperLib::Path& path : paths) {
    area += ClipperLib::Area(path);
  }
  return area;
}

/// Repeats the union until the area stands still: what the clipper has led wrongly once mostly
/// comes out right when it is united again, and the signed area tells.
ClipperLib::Paths united(ClipperLib::Paths paths) {
  double area = signedArea(paths);
  for (int i = 0; i < kMostUnions; ++i) {
    paths = unitedOnce(paths);
    const double areaBefore = std::exchange(area, signedArea(paths));
    if (std::abs(area - areaBefore) <= kNegligibleAreaUnits) return paths;
  }
  throw ClippingFailure();
}

}  // namespace Calculations
}  // namespace Ruv
