// SPDX-License-Identifier: BSL-1.0
// Measured profiles against theoretical ones: areas, outlines, filters.

#include "FuzzOutlines.h"

#include "testing/Polygons.h"
#include "testing/Profiles.h"

#include <Calculations/Calculations.h>

#include <cmath>

namespace {

using namespace Ruv::Calculations;
using Fuzz::Input;
using Fuzz::require;
using Fuzz::requireNear;
using TestSupport::areaOf;
using TestSupport::measuredThrough;

/// Half a step of the clipping grid for every metre of outline, several times.
constexpr double kAreaTolerance = 0.02;
/// Pieces of results below this are left out.
constexpr double kSmallestPiece = 0.0001;

bool setFilters(Input& input, MeasuredProfileCalculator& comparison) {
  const int which = input.count(255);
  if ((which & 1) != 0) comparison.setFilterExcludeAbove(input.number(-10.0, 10.0));
  if ((which & 2) != 0) comparison.setFilterExcludeBelow(input.number(-10.0, 10.0));
  if ((which & 4) != 0) comparison.setFilterExcludeLeftOf(input.number(-10.0, 10.0));
  if ((which & 8) != 0) comparison.setFilterExcludeRightOf(input.number(-10.0, 10.0));
  for (int more = which >> 4; more > 12; --more) {
    const double start = input.number(-7.0, 7.0);
    const double end = input.number(-7.0, 7.0);
    comparison.setFilterExcludeBetweenAngles(start, end, input.point(5.0));
  }
  return (which & 15) != 0 || (which >> 4) > 12;
}

void checkAreas(const MeasuredProfileCalculator& comparison) {
  const double over = comparison.overProfileArea();
  const double under = comparison.underProfileArea();
  require(over >= 0.0 && under >= 0.0, "areas are not negative");
  requireNear(over - under, comparison.comparisonArea() - comparison.referenceArea(),
              kAreaTolerance, "over profile less under profile is the difference of the areas");
  const auto pieces = comparison.overProfileAreaPathes();
  requireNear(std::abs(areaOf(pieces)), over, 1e-6 + 100 * kSmallestPiece, "pieces add up");
}

/// Of one calculation, a sum of the two parts can only exceed the over profile by what the band
/// adds, and the rest is part of the over profile.
void divide(Input& input, const MeasuredProfileCalculator& comparison, bool check) {
  const double a = input.number(0.0, 0.5);
  const double b = input.number(0.0, 0.5);
  const auto method = static_cast<GeologicalOverProfileMethod::Method>(input.count(2));
  const auto [geological, rest] = comparison.overProfileDividedByGeologicalAreaPathes(method, a, b);
  const double area = comparison.geologicalOverProfileArea(method, a, b);
  if (!check) return;
  require(area >= 0.0, "the geological area is not negative");
  require(std::abs(areaOf(rest)) <= comparison.overProfileArea() + kAreaTolerance,
          "the rest is part of the over profile");
}

void compare(Input& input, MeasuredProfileCalculator& comparison, bool isSimple) {
  const bool isFiltered = setFilters(input, comparison);
  if (input.isTame() && isSimple) {
    checkAreas(comparison);
  } else {
    comparison.overProfileAreaPathes();
    comparison.underProfileAreaPathes();
  }
  divide(input, comparison, input.isTame());
  const bool clean = input.yes();
  comparison.referenceCircumferenceLines(clean);
  comparison.comparisonCircumferenceLines(clean);
  const double length = comparison.comparisonCircumference();
  if (!isFiltered || !input.isTame()) return;
  const double whole = length;
  comparison.resetAllFilters();
  require(whole <= comparison.comparisonCircumference() + kAreaTolerance,
          "a filtered outline is not longer");
}

void askForPoints(Input& input, const MeasuredProfileCalculator& comparison) {
  for (const Point2D& p : input.points(4, 10.0)) {
    comparison.calculateProfilePoint(p);
    comparison.horizontalDistanceToComparisonProfile(p);
    comparison.verticalDistanceToComparisonProfile(p);
    comparison.radialDistanceToComparisonProfile(p);
    comparison.isInFilteredArea(p);
    comparison.intersectionsAtGivenUpOffsetOfComparisonProfile(p.y);
    comparison.intersectionsAtGivenRightOffsetOfReferenceProfile(p.x);
  }
  for (int method = 0; method <= 4; ++method) {
    comparison.leastSquarePointOfComparisonProfile(static_cast<FittingMethod::Method>(method));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const bool isSimple = input.yes();
  const auto reference = Fuzz::profileThrough(input, Fuzz::starCorners(input, 14),
                                              isSimple ? Fuzz::Arcs::None : Fuzz::Arcs::Some);
  // Bands of kilometres round each corner with thousands of points.
  const int most = input.isTame() ? 40 : 12;
  const auto measured =
      measuredThrough(isSimple ? Fuzz::starCorners(input, most) : input.points(most, 10.0));
  MeasuredProfileCalculator comparison(reference, measured);
  askForPoints(input, comparison);
  compare(input, comparison, isSimple);
  MeasuredProfileCalculator earlier(measured, measuredThrough(input.points(most, 10.0)));
  askForPoints(input, earlier);
  compare(input, earlier, false);
  return 0;
}
