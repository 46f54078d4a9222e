#include "profiles/paths/LineSimplification.h"

#include <cmath>
#include <cstddef>

namespace Ruv {
namespace Calculations {

namespace {

/// Differences up to this are squared and multiplied in 64-bit integers, larger ones as doubles.
constexpr ClipperLib::cInt kLargestExactDifference = 2000000000;

/// Lines of no more points stay as they are.
constexpr std::size_t kShortLine = 3;

bool isExact(ClipperLib::cInt difference) {
  return difference >= -kLargestExactDifference && difference <= kLargestExactDifference;
}

double sumOfProducts(ClipperLib::cInt a, ClipperLib::cInt b, ClipperLib::cInt c,
                     ClipperLib::cInt d) {
  if (isExact(a) && isExact(b) && isExact(c) && isExact(d)) {
    return static_cast<double>(a * b + c * d);
  }
  return static_cast<double>(a) * static_cast<double>(b) +
         static_cast<double>(c) * static_cast<double>(d);
}

/// Distance of a point from the line through two others.
double unitsFromLine(const ClipperLib::IntPoint& p, const ClipperLib::IntPoint& a,
                     const ClipperLib::IntPoint& b, double distance) {
  const double cross = sumOfProducts(b.X - a.X, p.Y - a.Y, -(b.Y - a.Y), p.X - a.X);
  return std::abs(cross) / distance;
}

}  // namespace

double unitsBetween(const ClipperLib::IntPoint& a, const ClipperLib::IntPoint& b) {
  const ClipperLib::cInt dx = b.X - a.X;
  const ClipperLib::cInt dy = b.Y - a.Y;
  return std::sqrt(sumOfProducts(dx, dx, dy, dy));
}

ClipperLib::Path simplified(const ClipperLib::Path& line, double tolerance) {
  if (line.size() <= kShortLine) return line;
  ClipperLib::Path kept(1, line.front());
  ClipperLib::IntPoint reference = line[1];
  ClipperLib::IntPoint lastInStrip = line[1];
  for (std::size_t i = 2; i < line.size(); ++i) {
    const double distance = unitsBetween(kept.back(), reference);
    if (distance < tolerance) {
      reference = line[i];  // the one before is too close to tell a direction
    } else if (unitsFromLine(line[i], kept.back(), reference, distance) > tolerance) {
      kept.push_back(lastInStrip);
      reference = line[i];
    }
    lastInStrip = line[i];
  }
  kept.push_back(line.back());
  return kept;
}

}  // namespace Calculations
}  // namespace Ruv
