// SPDX-License-Identifier: BSL-1.0
// Points beside theoretical profiles, and samples of them.

#include "FuzzOutlines.h"

#include <Calculations/Calculations.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

namespace {

using namespace Ruv::Calculations;
using Fuzz::Input;
using Fuzz::require;
using Fuzz::requireNear;

constexpr double kTolerance = 1e-7;
constexpr unsigned kSamples = 64;

double distanceBetween(const Point2D& a, const Point2D& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

/// A chain that may cross itself, stand still and stay open.
boost::shared_ptr<ThProfileDefinition> chain(Input& input) {
  auto profile = boost::make_shared<ThProfileDefinition>();
  Point2D from = input.point(10.0);
  for (int left = 1 + input.count(11); left > 0; --left) {
    const Point2D to = input.point(10.0);
    if (input.yes()) {
      profile->addSegmentArc(from.x, from.y, to.x, to.y, Fuzz::arcRadius(input, from, to));
    } else {
      profile->addSegmentStraight(from.x, from.y, to.x, to.y);
    }
    from = to;
  }
  return profile;
}

/// The profile and points of it, which no answer may pass by.
struct Design {
  boost::shared_ptr<ThProfileDefinition> profile;
  ThProfileCalculator calculator;
  std::vector<Point2D> samples;

  explicit Design(const boost::shared_ptr<ThProfileDefinition>& definition)
      : profile(definition),
        calculator(definition),
        samples(calculator.pointsOnProfileByFixedNumber(kSamples, nullptr)) {}

  double length() const { return profile->getCircumference(); }
  bool isClosed() const {
    const Point2D last = profile->getSegmentEndAt(profile->getNumSegments() - 1);
    return distanceBetween(profile->getSegmentStartAt(0), last) == 0.0;
  }
};

void checkPosition(const Design& design, const Point2D& p) {
  const ProfilePointResult found = design.calculator.calculateProfilePoint(p);
  require(std::abs(found.derolment) <= design.length() / 2.0 + kTolerance,
          "a derolment is within half the profile");
  requireNear(distanceBetween(p, found.profilePoint), std::abs(found.distance), kTolerance,
              "the distance is that of the profile point");
  for (const Point2D& sample : design.samples) {
    require(std::abs(found.distance) <= distanceBetween(p, sample) + kTolerance,
            "no other point of the profile is nearer");
  }
  // The ends of an open profile share a derolment, and so do the first and the last 0.1 mm.
  const double fromStart =
      distanceBetween(found.profilePoint, design.profile->getSegmentStartAt(0));
  if (!design.isClosed() || fromStart < 2e-4) return;
  // Arcs of some 0.1 um have no length, so both their ends have one derolment.
  constexpr double kNoLength = 3e-6;
  requireNear(distanceBetween(design.calculator.calcPointOnProfileAtDerolment(found.derolment),
                              found.profilePoint),
              0.0, kNoLength, "a derolment leads back to its point");
}

bool isSame(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

/// Lists are searched faster than single points, but give the same to the bit.
void checkList(const Design& design, const std::vector<Point2D>& points) {
  const auto list = design.calculator.calculateProfilePoints(points);
  require(list.size() == points.size(), "there is a result for each point");
  for (std::size_t i = 0; i < points.size(); ++i) {
    const ProfilePointResult alone = design.calculator.calculateProfilePoint(points[i]);
    require(isSame(list[i].profilePoint.x, alone.profilePoint.x) &&
                isSame(list[i].profilePoint.y, alone.profilePoint.y) &&
                isSame(list[i].distance, alone.distance) &&
                isSame(list[i].derolment, alone.derolment),
            "in a list a point has the result that it has alone");
  }
}

void locate(Input& input, const Design& design) {
  const std::vector<Point2D> points = input.points(10, 20.0);
  checkList(design, points);
  for (const Point2D& p : points) {
    const double offset = input.number(-1.0, 1.0);
    const double across = design.calculator.diameterAtProfilePoint(p);
    const Point2D moved = design.calculator.applyRadialOffset(p, offset);
    if (!input.isTame() || !(design.length() > 0.0)) continue;
    checkPosition(design, p);
    require(across >= 0.0, "a diameter is not negative");
    const ProfilePointResult there = design.calculator.calculateProfilePoint(moved);
    require(std::abs(there.distance) <= std::abs(offset) + kTolerance,
            "an offset point is no farther than its offset");
  }
}

void requireOnProfile(const Input& input, const Design& design, const std::vector<Point2D>& points,
                      const char* what) {
  if (!input.isTame() || !(design.length() > 0.0)) return;
  for (const Point2D& p : points) {
    requireNear(design.calculator.calculateProfilePoint(p).distance, 0.0, kTolerance, what);
  }
}

void sample(Input& input, const Design& design) {
  const ThProfileCalculator& calculator = design.calculator;
  // Fine samples are promised in any number up to 1e7: they would only take time.
  const double interval = input.number(0.05, 5.0);
  if (!(design.length() / interval > 1e4 && design.length() / interval < 1e8)) {
    requireOnProfile(input, design, calculator.pointsOnProfileByInterval(interval, input.yes()),
                     "samples are points of the profile");
  }
  const unsigned count = static_cast<unsigned>(input.count(200));
  double step = 0.0;
  const auto points = calculator.pointsOnProfileByFixedNumber(count, &step);
  const bool areApart = design.length() > 1e-6;  // samples nearer than a nanometre are one
  if (input.isTame() && areApart) {
    require(points.size() == count, "there are as many samples as were asked for");
  }
  requireOnProfile(input, design, points, "samples are points of the profile");
  requireOnProfile(input, design, calculator.vertexPoints(), "vertices are points of the profile");
  const double up = input.number(-10.0, 10.0);
  requireOnProfile(input, design, calculator.profilePointsAtGivenUpOffset(up),
                   "points at a height are points of the profile");
  const double right = input.number(-10.0, 10.0);
  requireOnProfile(input, design, calculator.profilePointsAtGivenRightOffset(right),
                   "points at an offset are points of the profile");
  calculator.calcPointOnProfileAtDerolment(input.number(-30.0, 30.0));
}

/// A calculator samples its profile every 0.1 m, up to a limit.
bool takesLong(const ThProfileDefinition& profile) {
  const double length = profile.getCircumference();
  return length > 1e4 && length < 1e7;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const auto profile =
      input.yes() ? Fuzz::profileThrough(input, Fuzz::starCorners(input, 14), Fuzz::Arcs::Some)
                  : chain(input);
  if (takesLong(*profile)) return 0;
  const Design design(profile);
  locate(input, design);
  sample(input, design);
  return 0;
}
