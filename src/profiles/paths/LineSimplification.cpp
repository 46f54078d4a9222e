// SPDX-License-Identifier: BSL-1.0
// The walk is that of Reumann and Witkam (1974, Optimizing curve segmentation in computer
// graphics): a strip is laid along the first direction from the last kept point and followed until
// a point leaves it. It looks at each point once, unlike the halving of Douglas and Peucker, which
// may take n^2 steps, and its results depend on the direction of walking.
//
// The distance of a point p from the line through a and b is |(b - a) x (p - a)| / |b - a|. Points
// of a site differ by less than 2e9 units, 200 km, so the products are exact in 64-bit integers;
// doubles would round the difference of two products that nearly cancel, and choose other points.

#include "profiles/paths/LineSimplification.h"

#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// Differences up to this are squared and multiplied in 64-bit integers, larger ones as doubles.
constexpr double kLargestExactDifference = 2e9;

/// Lines of no more points stay as they are.
constexpr std::size_t kShortLine = 3;

bool isExact(double difference) { return std::abs(difference) <= kLargestExactDifference; }

/// Exact where it is small. Large ones are rounded: as integers they may leave 64 bits.
double difference(ClipperLib::cInt from, ClipperLib::cInt to) {
  const double rounded = static_cast<double>(to) - static_cast<double>(from);
  return isExact(rounded) ? static_cast<double>(to - from) : rounded;
}

/// a b + c d
double sumOfProducts(double a, double b, double c, double d) {
  if (!isExact(a) || !isExact(b) || !isExact(c) || !isExact(d)) return a * b + c * d;
  const auto asInteger = [](double v) { return static_cast<ClipperLib::cInt>(v); };
  return static_cast<double>(asInteger(a) * asInteger(b) + asInteger(c) * asInteger(d));
}

/// Distance of a point from the line through two others.
double unitsFromLine(const ClipperLib::IntPoint& p, const ClipperLib::IntPoint& a,
                     const ClipperLib::IntPoint& b, double distance) {
  const double cross = sumOfProducts(difference(a.X, b.X), difference(a.Y, p.Y),
                                     -difference(a.Y, b.Y), difference(a.X, p.X));
  return std::abs(cross) / distance;
}

}  // namespace

double unitsBetween(const ClipperLib::IntPoint& a, const ClipperLib::IntPoint& b) {
  const double dx = difference(a.X, b.X);
  const double dy = difference(a.Y, b.Y);
  return std::sqrt(sumOfProducts(dx, dx, dy, dy));
}

ClipperLib::Path simplified(const ClipperLib::Path& line, double tolerance) {
  if (line.size() <= kShortLine) return line;
  ClipperLib::Path kept(1, line.front());
  ClipperLib::IntPoint reference = line[1];
  ClipperLib::IntPoint lastInStrip = line[1];
  for (std::size_t i = 2; i < line.size(); ++i) {
    const double distance = unitsBetween(kept.back(), reference);
    // The second condition matters for a tolerance of 0, where repeated points would divide by 0.
    if (distance < tolerance || distance == 0.0) {
      reference = line[i];  // the one before is too close to tell a direction
    } else if (!(unitsFromLine(line[i], kept.back(), reference, distance) <= tolerance)) {
      kept.push_back(lastInStrip);
      reference = line[i];
    }
    lastInStrip = line[i];
  }
  kept.push_back(line.back());
  return kept;
}

ClipperLib::Paths simplified(const ClipperLib::Paths& lines, double tolerance) {
  ClipperLib::Paths kept;
  kept.reserve(lines.size());
  for (const ClipperLib::Path& line : lines) {
    kept.push_back(simplified(line, tolerance));
  }
  return kept;
}

}  // namespace Calculations
}  // namespace Ruv
