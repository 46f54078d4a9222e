// SPDX-License-Identifier: BSL-1.0
#include "Digest.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/MeasuredProfileCalculator.h>
#include <Calculations/PathHelper.h>
#include <Calculations/Paths.h>
#include <Calculations/ThProfileCalculator.h>
#include <Calculations/ThProfileMorpher.h>

#include <array>
#include <cmath>

namespace Digest {

using namespace Ruv::Calculations;
using TestSupport::ProfilePtr;
using TestSupport::Random;

namespace {

constexpr double kSize = 10.0;  // of tunnel sections, m
constexpr double kArea = kSize * kSize;

const std::array<const char*, 6> kSections = {
    "circle_r2900", "cz_rail1_160_in", "cz_rail2_230_out", "cz_road_80_cut", "no_t8p5", "no_t12p5"};

/// On the unit circle, without sine and cosine: from straight down anticlockwise.
Point2D onUnitCircle(double turn) {
  const double t = 4.0 * turn - 1.0 - (turn < 0.5 ? 0.0 : 2.0);
  const double x = (1.0 - t * t) / (1.0 + t * t);
  const double y = 2.0 * t / (1.0 + t * t);
  return turn < 0.5 ? Point2D(x, y) : Point2D(-x, -y);
}

std::vector<Point2D> excavation(Random& random, int count) {
  std::vector<Point2D> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    points.push_back(onUnitCircle(double(i) / count) * random.uniform(4.9, 6.2) + Point2D(0, 4));
  }
  return points;
}

void recordOutlines(const std::vector<Polygon>& polygons) {
  for (const Polygon& polygon : polygons) {
    record("area-outlines", polygon.points());
  }
}

void design(const ThProfileCalculator& calculator, Random& random) {
  for (int i = 0; i < 40; ++i) {
    const Point2D p{random.uniform(-8.0, 8.0), random.uniform(-3.0, 11.0)};
    const ProfilePointResult r = calculator.calculateProfilePoint(p);
    record("profile-point", {r.profilePoint});
    record("profile-distance", kSize, {r.distance, r.derolment});
    record("profile-offset", {calculator.applyRadialOffset(p, 0.4)});
    record("profile-at-derolment", {calculator.calcPointOnProfileAtDerolment(p.x)});
    record("profile-diameter", kSize, {calculator.diameterAtProfilePoint(p)});
    record("profile-cuts", calculator.profilePointsAtGivenUpOffset(p.y));
    record("profile-cuts", calculator.profilePointsAtGivenRightOffset(p.x));
  }
  record("profile-samples", calculator.pointsOnProfileByFixedNumber(60, nullptr));
  for (const bool withVertices : {false, true}) {
    record("profile-intervals", calculator.pointsOnProfileByInterval(0.7, withVertices));
  }
  record("profile-intervals", calculator.vertexPoints());
}

void measuredLines(const MeasuredProfileCalculator& calculator, Random& random) {
  for (int i = 0; i < 60; ++i) {
    const Point2D p{random.uniform(-8.0, 8.0), random.uniform(-3.0, 11.0)};
    const ProfilePointResult r = calculator.calculateProfilePoint(p);
    record("measured-distance", kSize, {r.distance, r.derolment});
    record("measured-cuts", {calculator.horizontalDistanceToComparisonProfile(p)});
    record("measured-cuts", {calculator.radialDistanceToComparisonProfile(p)});
    record("measured-cuts", calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(p.y));
  }
}

void filteredLines(const MeasuredProfileCalculator& calculator, Random& random) {
  for (int i = 0; i < 60; ++i) {
    const Point2D p{random.uniform(-8.0, 8.0), random.uniform(-3.0, 11.0)};
    record("filtered-cuts", calculator.intersectionsAtGivenUpOffsetOfComparisonProfile(p.y));
    record("filtered-cuts", calculator.intersectionsAtGivenRightOffsetOfComparisonProfile(p.x));
    record("filtered-cuts", calculator.intersectionsAtGivenUpOffsetOfReferenceProfile(p.y));
    record("filtered-cuts", calculator.intersectionsAtGivenRightOffsetOfReferenceProfile(p.x));
    record("filtered-cuts", {calculator.verticalDistanceToComparisonProfile(p)});
    record("filtered-cuts", 1.0, {double(calculator.isInFilteredArea(p))});
  }
}

void measuredOutlines(const MeasuredProfileCalculator& calculator) {
  for (const bool clean : {false, true}) {
    for (const auto& lines : {calculator.comparisonCircumferenceLines(clean),
                              calculator.referenceCircumferenceLines(clean)}) {
      for (const Polyline& line : lines) {
        record("circumference-lines", line.points());
      }
    }
  }
  const FittingResult centre =
      calculator.leastSquarePointOfComparisonProfile(FittingMethod::CircleLandau);
  record("measured-centre", {centre.center});
}

void measuredAreas(const MeasuredProfileCalculator& calculator) {
  record("areas", kArea,
         {calculator.comparisonArea(), calculator.referenceArea(), calculator.overProfileArea(),
          calculator.underProfileArea()});
  record("circumferences", kSize,
         {calculator.comparisonCircumference(), calculator.referenceCircumference()});
  recordOutlines(calculator.overProfileAreaPathes());
  recordOutlines(calculator.underProfileAreaPathes());
  for (const auto method : {GeologicalOverProfileMethod::GeologicalBandFromReference,
                            GeologicalOverProfileMethod::GeologicalBandBetweenLimits,
                            GeologicalOverProfileMethod::GeologicalBeyondLimitOnly}) {
    record("geological-areas", kArea, {calculator.geologicalOverProfileArea(method, 0.3, 0.1)});
    recordOutlines(calculator.geologicalOverProfileAreaPathes(method, 0.3, 0.1));
    const auto divided = calculator.overProfileDividedByGeologicalAreaPathes(method, 0.3, 0.1);
    for (const auto& polygons : {divided.first, divided.second}) {
      for (const Polygon& polygon : polygons) {
        record("divided-outlines", polygon.points());
      }
    }
  }
}

Path randomOutline(Random& random) {
  Path path;
  for (int i = 0; i <= 12; ++i) {
    const Point2D p = onUnitCircle(i / 13.0) * random.uniform(2.0, 6.0);
    path.addSegment(PathSegment(p.x, p.y, i % 3 == 0 ? -7.0 : 0.0));
  }
  path.close(true);
  return path;
}

void recordPaths(const Pathes& paths) {
  for (unsigned i = 0; i < paths.numPathes(); ++i) {
    const Path path = paths.pathAt(i);
    std::vector<Point2D> points;
    for (unsigned k = 0; k < path.numDiscretePathPoints(); ++k) {
      points.push_back(path.discretePathPointAt(k));
    }
    record("outlines", points);
  }
  record("outlines", kArea, {paths.area(), paths.linesLength()});
}

void lines(const Path& a, const Path& b, Random& random) {
  Pathes both(a);
  both.addPath(b);
  const auto simpler = PathHelper::simplyfyLines(PathHelper::clipperLibPathsFromPathes(both), 0.1);
  for (const Pathes& paths : {PathHelper::pathesFromClipperLibPaths(simpler),
                              Pathes::expandLines(both, 0.2), Path::expandLine(a, 0.3)}) {
    for (const Polyline& line : PathHelper::profileLinesFromPathes(paths)) {
      record("lines", line.points());
    }
  }
  record("lines", kSize, {a.borderWithinOtherPathes(Pathes(b)), a.lineLength(), b.area()});
  for (int i = 0; i < 20; ++i) {
    const Point2D from{random.uniform(-7.0, 7.0), random.uniform(-7.0, 7.0)};
    const Point2D to{random.uniform(-7.0, 7.0), random.uniform(-7.0, 7.0)};
    Point2D hit;
    const bool hits = both.firstIntersectionWithLine(from, to, hit);
    record("lines", kSize,
           {double(hits), hit.x, hit.y, double(both.pointWithin(from)), double(a.pointWithin(to))});
  }
}

using Nodes = std::vector<TestSupport::ProfileNode>;

void append(Nodes& nodes, const Nodes& more) {
  nodes.insert(nodes.end(), more.begin(), more.end());
}

/// A number of a range, or 0 half of the time.
double oftenNone(double low, double high, Random& random) {
  const double drawn = random.uniform(low, high);
  return random.index(2) == 0 ? 0.0 : drawn;
}

/// Turned, enlarged and closed.
ProfilePtr placedAtRandom(Nodes nodes, Random& random) {
  const double sine = oftenNone(-0.15, 0.15, random);
  const double cosine = std::sqrt(1.0 - sine * sine);
  const double scale = random.index(3) == 0 ? random.uniform(0.3, 3.0) : 1.0;
  for (TestSupport::ProfileNode& node : nodes) {
    node = {scale * (cosine * node.x - sine * node.y), scale * (sine * node.x + cosine * node.y),
            scale * node.radius};
  }
  nodes.front().radius = nodes.back().radius;
  nodes.back() = nodes.front();
  return TestSupport::profileThrough(nodes);
}

/// What tunnels have below their vaults, at random: leaning or arched walls, a bench, niches, a
/// ditch, a floor with crossfall, in two parts or curved. Clockwise from the left foot.
ProfilePtr shapedSection(Random& random) {
  const double width = random.uniform(4.0, 5.5);
  const double wall = random.uniform(3.5, 5.5);
  const double fall = random.uniform(-0.06, 0.06);
  const auto floor = [&](double x) { return fall * x; };
  const double lean = oftenNone(-0.1, 0.3, random);
  const double foot = random.uniform(-0.2, 0.2) - width;
  const auto left = [&](double y) { return foot - lean * y; };
  const auto right = [&](double y) { return width + lean * y; };
  Nodes nodes = {{left(0), floor(left(0)), 0}};
  double sill = 0.0;
  for (std::size_t niches = random.index(4); niches > 0; --niches) {
    sill += random.uniform(0.3, 0.5);
    const double depth = random.uniform(0.2, 1.5);
    const double lintel = sill + random.uniform(0.4, 0.7);
    append(nodes, {{left(sill), sill, 0},
                   {left(sill) - depth, sill, 0},
                   {left(sill) - depth, lintel, 0},
                   {left(lintel), lintel, 0}});
    sill = lintel;
  }
  const double crown = random.uniform(-0.5, 0.5);
  const double rise = random.uniform(0.5, 1.2) * width;
  append(nodes, {{left(wall), wall, 0},
                 {crown, wall + rise, width * random.uniform(1.1, 1.6)},
                 {right(wall), wall, width * random.uniform(1.1, 1.6)}});
  double bend = random.index(3) == 0 ? random.uniform(6.0, 30.0) : 0.0;
  bend *= random.sign();
  double end = right(0);
  if (random.index(2) == 0) {
    const double most = random.index(3) == 0 ? 0.99 * wall : 0.9;
    const double height = random.uniform(0.05 * most, most);
    end -= random.uniform(0.2, 1.6);
    append(nodes, {{right(height), height, bend}, {end, height, 0}, {end, floor(end), 0}});
  } else {
    // The wall may reach below the floor.
    const double below = oftenNone(0.0, 0.8, random);
    nodes.push_back({end, floor(end) - below, bend});
    end -= below;
    if (below > 0.0) nodes.push_back({end, floor(end), 0});
  }
  const std::size_t kind = random.index(4);
  const double near = end - random.uniform(0.0, 1.0) * (end - left(0) - 0.9);
  if (kind < 2) {
    const double far = near - random.uniform(0.4, 0.9);
    const double depth = random.uniform(0.02, 1.2);
    append(nodes, {{near, floor(near), 0},
                   {near, floor(near) - depth, 0},
                   {far, floor(far) - depth, 0},
                   {far, floor(far), 0}});
  } else if (kind == 2) {
    nodes.push_back({near, floor(near) - random.uniform(-0.2, 0.8), 0});
  }
  nodes.push_back({0, 0, kind == 3 ? width * random.uniform(1.3, 6.0) : 0.0});
  return placedAtRandom(nodes, random);
}

/// An outline that every ray from the centre meets once.
ProfilePtr cave(Random& random) {
  Nodes nodes;
  for (int i = 9; i > 0; --i) {
    const Point2D p = onUnitCircle(i / 9.0 - 0.01) * random.uniform(3.5, 6.0);
    nodes.push_back({p.x, p.y, random.index(3) == 0 ? random.uniform(9.0, 20.0) : 0.0});
  }
  nodes.push_back(nodes.front());
  return TestSupport::profileThrough(nodes);
}

/// A circle without a floor, with a niche in either wall or in none.
ProfilePtr roundSection(Random& random) {
  const double radius = random.uniform(3.5, 5.5);
  const auto at = [&](double turn, double arc) {
    const Point2D p = onUnitCircle(turn) * radius;
    return TestSupport::ProfileNode{p.x, p.y, arc};
  };
  Nodes nodes = {at(0.0, 0)};
  const auto wall = [&](double from) {
    const TestSupport::ProfileNode before = at(from, radius);
    nodes.push_back(before);
    if (random.index(2) == 0) return;
    const TestSupport::ProfileNode behind = at(from - random.uniform(0.02, 0.05), 0);
    const double back = before.x * random.uniform(1.3, 1.6);
    append(nodes, {{back, before.y, 0}, {back, behind.y, 0}, behind});
  };
  if (random.index(2) == 0) nodes.push_back(at(random.uniform(0.9, 0.97), radius));
  wall(random.uniform(0.72, 0.88));
  nodes.push_back(at(0.5, radius));
  wall(random.uniform(0.17, 0.28));
  nodes.push_back(at(0.0, radius));
  return placedAtRandom(nodes, random);
}

/// Barrel-shaped walls, the left one with niches, on a floor in one, two or three parts. No two
/// corners are alike, as rounding would choose between them.
ProfilePtr horseshoe(Random& random) {
  const double width = random.uniform(4.0, 5.5);
  const double wall = random.uniform(3.0, 5.0);
  const double crown = random.uniform(-0.4, 0.4);
  const double radius = wall * random.uniform(0.6, 1.5);
  const double inside = std::sqrt(radius * radius - wall * wall / 4.0);
  const auto left = [&](double y) {
    const double up = y - wall / 2.0;
    return inside - width - std::sqrt(radius * radius - up * up);
  };
  Nodes nodes = {{-width, 0, 0}};
  double sill = 0.0;
  for (std::size_t niches = random.index(3); niches > 0; --niches) {
    sill += wall * random.uniform(0.1, 0.25);
    const double lintel = sill + wall * random.uniform(0.1, 0.2);
    const double depth = random.uniform(0.2, 1.5);
    append(nodes, {{left(sill), sill, radius},
                   {left(sill) - depth, sill, 0},
                   {left(sill) - depth, lintel, 0},
                   {left(lintel), lintel, 0}});
    sill = lintel;
  }
  const double rise = random.uniform(0.5, 1.0) * width;
  const double vault = width * random.uniform(1.1, 1.6);
  append(nodes, {{-width, wall, radius}, {crown, wall + rise, vault}, {width, wall, vault}});
  nodes.push_back({width, 0, radius});
  const double deep = random.uniform(0.1, 0.8);
  const std::size_t parts = 1 + random.index(3);
  if (parts == 3) append(nodes, {{width / 2, -deep, 0}, {-width / 2, -1.3 * deep, 0}});
  if (parts == 2) nodes.push_back({0, -deep, 0});
  nodes.push_back({-width, 0, 0});
  return TestSupport::profileThrough(nodes);
}

/// Walls in two parts that lean outwards, so far that the section may be more than twice as wide as
/// its floor, beside a floor with corners. Before the right wall may stand a bench that is farther
/// out than the foot which the wall above it would have.
ProfilePtr leaningSection(Random& random) {
  const double width = random.uniform(2.0, 4.5);
  const double lean = random.uniform(0.1, 0.7);
  const double steeper = lean * random.uniform(0.5, 1.3);
  const double knee = random.uniform(1.5, 3.0);
  const double wall = knee + random.uniform(1.0, 3.0);
  const auto outside = [&](double y) {
    return width + lean * std::min(y, knee) + steeper * std::max(y - knee, 0.0);
  };
  const double crown = random.uniform(-0.3, 0.3);
  const double rise = random.uniform(0.5, 1.0) * outside(wall);
  const double vault = outside(wall) * random.uniform(1.1, 1.6);
  Nodes nodes = {{-width, 0, 0},
                 {-outside(knee), knee, 0},
                 {-outside(wall), wall, oftenNone(8.0, 20.0, random)},
                 {crown, wall + rise, vault},
                 {outside(wall), wall, vault}};
  double end = width;
  const double height = random.uniform(0.3, 1.2) * knee;
  if (random.index(3) != 0) {
    end = outside(height) - random.uniform(0.02, 1.2) * lean * height;
    if (height < knee) nodes.push_back({outside(knee), knee, 0});
    append(nodes, {{outside(height), height, 0}, {end, height, 0}});
  } else {
    nodes.push_back({outside(knee), knee, 0});
  }
  nodes.push_back({end, random.uniform(-0.1, 0.1), 0});
  for (std::size_t corners = random.index(3); corners > 0; --corners) {
    end -= random.uniform(0.1, 0.9);
    nodes.push_back({end, random.uniform(-0.25, 0.1), 0});
  }
  nodes.push_back({0, 0, 0});
  return placedAtRandom(nodes, random);
}

/// A right side from the springing down: a wall in two parts, straight or bent either way, and a
/// foot that is a corner, a chamfer, a fillet, a gutter or a bench, between what is surely a wall
/// or a floor and what is hardly one.
/// @return nodes with the radius of what leads down to them
Nodes sideDownwards(double width, double wall, Random& random) {
  const double bend = oftenNone(4.0, 30.0, random) * random.sign();
  Nodes side = {{width + random.uniform(-0.7, 0.9), wall, 0},
                {width + random.uniform(-0.4, 0.4), wall * random.uniform(0.3, 0.7), bend}};
  const double height = random.uniform(-0.15, 0.15);
  const double in = random.uniform(0.1, 1.2);
  const double size = random.uniform(0.05, 1.0);
  switch (random.index(5)) {
    case 0:
      side.push_back({width, height, bend});
      break;
    case 1:
    case 2:
      append(side, {{width, size, bend},
                    {width - in, height, random.sign() * oftenNone(1.0, 4.0, random)}});
      break;
    case 3: {
      const double sole = width - in * random.uniform(0.2, 0.8);
      append(side, {{width, -size, 0}, {sole, -size * random.uniform(0.6, 1.3), 0}});
      side.push_back({width - in, height, 0});
      break;
    }
    default:
      append(side, {{width, size, 0}, {width - in, size + random.uniform(-0.2, 0.2), bend}});
      side.push_back({width - in + random.uniform(-0.3, 0.3), height, 0});
  }
  return side;
}

/// Any two feet below a vault, with a floor in parts, bent, or with a ditch between them.
ProfilePtr footedSection(Random& random) {
  const double width = random.uniform(2.5, 5.0);
  const double wall = random.uniform(2.0, 5.0);
  const Nodes right = sideDownwards(width, wall, random);
  const Nodes left = sideDownwards(width, wall + random.uniform(-0.3, 0.3), random);
  Nodes nodes;
  for (std::size_t i = left.size(); i-- > 0;) {
    nodes.push_back({-left[i].x, left[i].y, i + 1 < left.size() ? left[i + 1].radius : 0.0});
  }
  const double vault = width * random.uniform(1.2, 1.8);
  nodes.push_back({random.uniform(-0.4, 0.4), wall + random.uniform(0.4, 1.1) * width, vault});
  append(nodes, right);
  nodes[left.size() + 1].radius = vault;
  const double from = right.back().x;
  const double length = from + left.back().x;
  double place = from;
  for (std::size_t corners = random.index(4); corners > 0; --corners) {
    place -= length * random.uniform(0.05, 0.3);
    nodes.push_back(
        {place, random.uniform(-0.07, 0.07) * length, oftenNone(0.6, 9.0, random) * length});
  }
  nodes.push_back({0, 0, oftenNone(0.6, 4.0, random) * length});
  return placedAtRandom(nodes, random);
}

/// Seen from the origin as a whole, with any number of corners, and as rough as a cave or hardly.
ProfilePtr roughSection(Random& random) {
  const std::size_t count = 5 + random.index(14);
  const double nearest = random.uniform(2.0, 5.0);
  Nodes nodes;
  for (std::size_t i = count; i > 0; --i) {
    const Point2D p = onUnitCircle(double(i) / double(count) - 0.01) * random.uniform(nearest, 5.5);
    nodes.push_back({p.x, p.y, oftenNone(3.0, 20.0, random) * random.sign()});
  }
  nodes.push_back(nodes.front());
  return TestSupport::profileThrough(nodes);
}

void recordMorph(const ProfilePtr& start, const ProfilePtr& end,
                 const std::string& group = "morphed-shapes") {
  const ThProfileMorpher morpher(start, end, 0.0, 1.0);
  for (const double t : {0.15, 0.6}) {
    const auto profile = morpher.getMorphedProfile(t);
    record(group, 1.0, {double(profile != nullptr)});
    for (unsigned k = 0; profile && k < profile->getNumSegments(); ++k) {
      const Point2D from = profile->getSegmentStartAt(k);
      const Point2D to = profile->getSegmentEndAt(k);
      record(group, {from, to});
      // The radius itself of flat and of short arcs is not well determined.
      const double radius = profile->getSegmentRadiusAt(k);
      const double chord = (to - from).length();
      record("morphed-bulges", kSize, {radius == 0.0 ? 0.0 : chord * chord / radius});
    }
  }
}

}  // namespace

void profiles() {
  Random random(31);
  for (const char* section : kSections) {
    const auto reference = TestSupport::goldenProfile(section);
    design(ThProfileCalculator(reference), random);
    MeasuredProfileCalculator calculator(reference,
                                         TestSupport::measuredThrough(excavation(random, 120)));
    measuredLines(calculator, random);
    measuredAreas(calculator);
    calculator.setFilterExcludeBelow(1.0);
    calculator.setFilterExcludeBetweenAngles(0.5, 1.0, Point2D(0, 4));
    measuredAreas(calculator);
    measuredOutlines(calculator);
    Random filtered(34);
    calculator.setFilterExcludeAbove(8.0);
    calculator.setFilterExcludeLeftOf(-4.0);
    calculator.setFilterExcludeRightOf(3.5);
    filteredLines(calculator, filtered);
  }
}

void outlines() {
  Random random(32);
  Random places(35);
  for (int i = 0; i < 8; ++i) {
    const Path a = randomOutline(random);
    const Path b = randomOutline(random);
    recordPaths(Path::within(a, b));
    recordPaths(Path::without(a, b));
    recordPaths(Path::expand(a, 0.25));
    recordPaths(Path::linesWithin(a, b));
    lines(a, b, places);
  }
}

void morphing() {
  for (std::size_t i = 1; i < kSections.size(); ++i) {
    const ThProfileMorpher morpher(TestSupport::goldenProfile(kSections[i - 1]),
                                   TestSupport::goldenProfile(kSections[i]), 100.0, 120.0);
    for (int step = 0; step <= 8; ++step) {
      const auto profile = morpher.getMorphedProfile(100.0 + 2.5 * step);
      for (unsigned k = 0; k < profile->getNumSegments(); ++k) {
        record("morphed-profiles", {profile->getSegmentStartAt(k), profile->getSegmentEndAt(k)});
        const double radius = profile->getSegmentRadiusAt(k);
        record("morphed-radii", std::abs(radius) + 1.0, {radius});
      }
    }
  }
}

void morphedShapes() {
  Random random(33);
  for (int i = 0; i < 150; ++i) {
    const ProfilePtr start = shapedSection(random);
    recordMorph(start, shapedSection(random));
    const ProfilePtr ragged = cave(random);
    recordMorph(ragged, i % 2 == 0 ? cave(random) : start);
    const ProfilePtr round = roundSection(random);
    recordMorph(round, i % 3 == 0 ? start : roundSection(random));
  }
  for (int i = 0; i < 60; ++i) {
    const ProfilePtr barrel = horseshoe(random);
    recordMorph(barrel, i % 3 == 0 ? shapedSection(random) : horseshoe(random));
  }
  for (int i = 0; i < 100; ++i) {
    const ProfilePtr leaning = leaningSection(random);
    recordMorph(leaning, i % 3 == 0 ? horseshoe(random) : leaningSection(random));
  }
}

void morphedFeet() {
  Random random(36);
  for (int i = 0; i < 120; ++i) {
    const ProfilePtr start = footedSection(random);
    recordMorph(start, footedSection(random), "morphed-feet");
    recordMorph(start, i % 2 == 0 ? leaningSection(random) : horseshoe(random), "morphed-feet");
    const ProfilePtr rough = roughSection(random);
    recordMorph(rough, i % 4 == 0 ? start : roughSection(random), "morphed-feet");
  }
}

}  // namespace Digest
