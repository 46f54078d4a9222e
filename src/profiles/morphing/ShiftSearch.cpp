#include "profiles/morphing/ShiftSearch.h"

#include "profiles/morphing/BaseAnalysis.h"

#include "foundation/MathConstants.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace Ruv {
namespace Calculations {

namespace {

/// Finer divisions find nothing more, they only take time.
constexpr int kMostDivisions = 3600;

/// Arcs are sampled so that the outline turns by no more than this (rad) between samples; chords
/// then lie within 5e-5 of the radius.
constexpr double kSampleTurning = 0.02;

/// Outlines whose distances differ by less than this, relatively and in the root mean square, are
/// the same but for the sampling.
constexpr double kSamplingNoise = 1e-4;

/// A shift leaves at most this part of the squared differences.
constexpr double kShiftGain = 0.25;

/// An invert falls or rises by no more than this (rad).
constexpr double kSteepestInvert = 0.2;

using Radii = std::vector<double>;

double cross(const Point2D& a, const Point2D& b) { return a.x * b.y - a.y * b.x; }

Point2D centroidOf(const std::vector<Point2D>& polygon) {
  double doubledArea = 0.0;
  Point2D moment;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    // Reduced coordinates: the products would cost digits far from the origin.
    const Point2D a = polygon[i] - polygon.front();
    const Point2D b = polygon[(i + 1) % polygon.size()] - polygon.front();
    doubledArea += cross(a, b);
    moment = moment + (a + b) * cross(a, b);
  }
  return polygon.front() + moment / (3.0 * doubledArea);
}

/// The rays from the centroid that meet an edge.
void addEdge(const Point2D& a, const Point2D& b, const ShiftLimits& limits, Radii& radii) {
  const double from = bearingOf(a);
  const double turning = turningBetween(from, bearingOf(b));
  const double low = std::ceil(std::min(from, from + turning) / limits.angularStep);
  const double high = std::floor(std::max(from, from + turning) / limits.angularStep);
  // At most three times the divisions. Not-a-number falls out here.
  if (!(low <= high)) return;
  for (int ray = static_cast<int>(low); ray <= static_cast<int>(high); ++ray) {
    const CDirection direction = directionOfBearing(ray * limits.angularStep);
    const double distance = cross(a, b - a) / cross({direction.x, direction.y}, b - a);
    const int index = (ray + 2 * limits.divisions) % limits.divisions;
    double& radius = radii[static_cast<std::size_t>(index)];
    if (distance > radius && std::isfinite(distance)) radius = distance;
  }
}

/// Distances from the centroid to the outermost point in each direction, with mean 1.
Radii radiiOf(const std::vector<Point2D>& polygon, const ShiftLimits& limits) {
  const Point2D centroid = centroidOf(polygon);
  Radii radii(static_cast<std::size_t>(limits.divisions), 0.0);
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    addEdge(polygon[i] - centroid, polygon[(i + 1) % polygon.size()] - centroid, limits, radii);
  }
  double sum = 0.0;
  for (const double radius : radii) {
    sum += radius;
  }
  for (double& radius : radii) {
    radius *= limits.divisions / sum;
  }
  return radii;
}

/// Sum of the squared differences when the second outline is turned back by some divisions.
double differenceAfter(int divisionsTurned, const Radii& radii, const Radii& turned) {
  const auto count = static_cast<int>(radii.size());
  double sum = 0.0;
  for (int i = 0; i < count; ++i) {
    const int other = (i + divisionsTurned + count) % count;
    const double difference =
        radii[static_cast<std::size_t>(i)] - turned[static_cast<std::size_t>(other)];
    sum += difference * difference;
  }
  return sum;
}

std::optional<int> divisionsTurned(const Radii& start, const Radii& end, int most) {
  int best = 0;
  const double unturned = differenceAfter(0, start, end);
  double least = unturned;
  for (int k = 1; k <= most; ++k) {
    for (const int candidate : {k, -k}) {
      const double difference = differenceAfter(candidate, start, end);
      if (!(difference < least)) continue;
      least = difference;
      best = candidate;
    }
  }
  const double noise = kSamplingNoise * kSamplingNoise * static_cast<double>(start.size());
  const bool isFound = best != 0 && unturned > noise && least <= kShiftGain * unturned &&
                       least <= kShiftGain * differenceAfter(-best, start, end);
  return isFound ? std::optional<int>(best) : std::nullopt;
}

double asymmetryOf(const Radii& radii) {
  Radii mirrored(radii.rbegin(), radii.rend());
  // Direction 0 is straight up and stays.
  return differenceAfter(1, mirrored, radii);
}

/// The longest straight that is headed as given: an invert, before a bench.
std::optional<TurningChord> straightHeaded(const TurningChords& elements, double heading,
                                           double tolerance) {
  std::optional<TurningChord> found;
  for (const TurningChord& element : elements) {
    const bool isCandidate =
        !element.isArc() &&
        std::abs(turningBetween(heading, element.headingAtStart())) <= tolerance;
    if (isCandidate && (!found || element.length() > found->length())) found = element;
  }
  return found;
}

/// The angle from an upright outline to the other: between their inverts when both are straight,
/// otherwise as many divisions as were found.
double angleBetween(const OutlineStore& upright, const OutlineStore& other, double roughly,
                    const ShiftLimits& limits) {
  const auto invert = straightHeaded(upright.elements(), 1.5 * kPi, kSteepestInvert);
  if (!invert) return roughly;
  const double heading = invert->headingAtStart();
  const auto turned = straightHeaded(other.elements(), heading + roughly, limits.angularStep);
  return turned ? turningBetween(heading, turned->headingAtStart()) : roughly;
}

}  // namespace

bool turnUpright(OutlineStore& start, OutlineStore& end, const ShiftLimits& limits) {
  if (limits.divisions > kMostDivisions) return false;
  const std::vector<Point2D> startPolygon = sampled(start.elements(), kSampleTurning);
  const std::vector<Point2D> endPolygon = sampled(end.elements(), kSampleTurning);
  const Radii startRadii = radiiOf(startPolygon, limits);
  const Radii endRadii = radiiOf(endPolygon, limits);
  const int most = std::min(limits.mostDivisionsTurned, (limits.divisions - 1) / 2);
  const auto divisions = divisionsTurned(startRadii, endRadii, most);
  if (!divisions) return false;
  const double roughly = *divisions * limits.angularStep;
  if (asymmetryOf(endRadii) < asymmetryOf(startRadii)) {
    start.turn(centroidOf(startPolygon), -angleBetween(end, start, -roughly, limits));
  } else {
    end.turn(centroidOf(endPolygon), -angleBetween(start, end, roughly, limits));
  }
  return true;
}

}  // namespace Calculations
}  // namespace Ruv
