// SPDX-License-Identifier: BSL-1.0
#include <Calculations/ThProfileMorpher.h>

#include "profiles/morphing/Outlines.h"
#include "testing/Numbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Ruv::Calculations;
using namespace TestSupport;

/// Of coordinates around 10 m after some additions.
constexpr double kRounding = 1e-12;

ConstProfilePtr morphedIfPossible(const ConstProfilePtr& start, const ConstProfilePtr& end,
                                  double t) {
  return ThProfileMorpher(start, end, 1000.0, 1032.0).getMorphedProfile(1000.0 + 32.0 * t);
}

/// The profile at a fraction of the way from one to the other.
ConstProfilePtr morphed(const ConstProfilePtr& start, const ConstProfilePtr& end, double t) {
  const ConstProfilePtr profile = morphedIfPossible(start, end, t);
  EXPECT_TRUE(profile) << "at " << t;
  return profile ? profile : ConstProfilePtr(new ThProfileDefinition);
}

struct Pair {
  std::string name;
  ConstProfilePtr start;
  ConstProfilePtr end;
};

/// Of sections that do not only differ in lengths.
std::vector<Pair> typicalPairs() {
  const ProfilePtr curved =
      profileThrough({{-4.8, 0, 0}, {-5, 2, 12}, {0, 7, 5}, {5, 2, 5}, {4.8, 0, 12}, {-4.8, 0, 9}});
  const ProfilePtr halfCircles = profileThrough({{-4, 3, 0}, {4, 3, 4}, {-4, 3, 4}});
  const std::vector<ProfileNode> roundedNiche = {
      {-5, 0, 0}, {-5, 1, 0}, {-6, 1, 0}, {-6, 2.3, 0}, {-5.2, 2.3, 0}, {-5, 2.5, -0.2},
      {-5, 3, 0}, {0, 8, 5},  {5, 3, 5},  {5, 0, 0},    {-5, 0, 0}};
  const std::vector<ProfileNode> archedNiche = {
      {-5, 0, 0}, {-5, 1, 0}, {-6.5, 1, 0}, {-6.5, 2, 1}, {-5, 2.5, 0},
      {-5, 3, 0}, {0, 8, 5},  {5, 3, 5},    {5, 0, 0},    {-5, 0, 0}};
  return {{"to half circles", horseshoe(5, 2), halfCircles},
          {"to wider with benches", horseshoe(5, 2), horseshoeWithBenches(6.5, 2.2, 1.2, 0.8)},
          {"from rectangle", rectangle(4, 6), horseshoe(5, 2)},
          {"to niche", horseshoe(5, 3), horseshoeWithNiche(5, 3, 1.5)},
          {"niche to niche", profileThrough(roundedNiche), profileThrough(archedNiche)},
          {"to curved invert", horseshoe(5, 2), curved},
          {"rolled", horseshoe(5, 2), moved(*horseshoe(6, 2.5), 0.07, 0.3, -0.2)},
          {"road tunnel", profileThrough(roadTunnelNodes()), goldenProfile("no_t12p5")}};
}

void expectSameSegments(const IProfileSegmentProvider& a, const IProfileSegmentProvider& b) {
  const std::vector<ProfileSegment> expected = segmentsOf(b);
  const std::vector<ProfileSegment> actual = segmentsOf(a);
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_EQ((actual[i].start - expected[i].start).length(), 0.0) << "segment " << i;
    EXPECT_EQ((actual[i].end - expected[i].end).length(), 0.0) << "segment " << i;
    EXPECT_EQ(actual[i].radius, expected[i].radius) << "segment " << i;
  }
}

TEST(ThProfileMorpher, GivesTheProfilesThemselvesAtBothEnds) {
  std::vector<Pair> pairs = typicalPairs();
  for (const std::string& name : goldenProfileNames()) {
    pairs.push_back({name, goldenProfile(name), backwards(*goldenProfile("cz_rail1_160_out"))});
  }
  for (const Pair& pair : pairs) {
    SCOPED_TRACE(pair.name);
    expectSameSegments(*morphed(pair.start, pair.end, 0), *pair.start);
    expectSameSegments(*morphed(pair.start, pair.end, 1), *pair.end);
  }
  // A gap is closed by a straight.
  const ProfilePtr open = profileThrough({{-4, 0, 0}, {-4, 6, 0}, {4, 6, 0}, {4, 0, 0}});
  expectSameSegments(*morphed(open, horseshoe(5, 2), 0), *rectangle(4, 6));
}

/// For every two of the golden sections. The printed radii of the Norwegian ones leave kinks of
/// 3e-4 rad; headings closer than a thousandth count as one.
TEST(ThProfileMorpher, KeepsWhatStandardSectionsHaveInCommon) {
  for (const std::string& startName : goldenProfileNames()) {
    for (const std::string& endName : goldenProfileNames()) {
      SCOPED_TRACE(testing::Message() << startName << " to " << endName);
      const ProfilePtr start = goldenProfile(startName);
      const ProfilePtr end = goldenProfile(endName);
      const bool isPrinted = startName[0] == 'n' || endName[0] == 'n';
      for (const double t : {0.001, 0.3, 0.5, 0.8, 0.999}) {
        const ConstProfilePtr profile = morphed(start, end, t);
        EXPECT_TRUE(isSound(*profile)) << t;
        EXPECT_TRUE(profile->isDefinedClockwise()) << t;
        // The mean of convex figures has the mean circumference, and its area is that of
        // Brunn and Minkowski or more.
        const double mean = (1 - t) * start->getCircumference() + t * end->getCircumference();
        EXPECT_NEAR(profile->getCircumference(), mean, isPrinted ? 1e-4 : 1e-9) << t;
        const double root = (1 - t) * std::sqrt(-areaOf(*start)) + t * std::sqrt(-areaOf(*end));
        EXPECT_GT(std::sqrt(-areaOf(*profile)), root - (isPrinted ? 1e-4 : 1e-9)) << t;
      }
    }
  }
}

TEST(ThProfileMorpher, MovesAndMirrorsAndTurnsBackWithItsInputs) {
  for (const Pair& pair : typicalPairs()) {
    SCOPED_TRACE(pair.name);
    for (const double t : {0.125, 0.5, 0.9}) {
      const ConstProfilePtr profile = morphed(pair.start, pair.end, t);
      // Coordinates of 70 km have 1e-11 m.
      const ConstProfilePtr shifted =
          morphed(moved(*pair.start, 0, 7e4, -3e4), moved(*pair.end, 0, 7e4, -3e4), t);
      EXPECT_LT(distanceBetween(shifted, moved(*profile, 0, 7e4, -3e4)), 1e-8);
      EXPECT_LT(distanceBetween(morphed(pair.end, pair.start, 1 - t), profile), 1e-9);
      EXPECT_LT(
          distanceBetween(morphed(begunAt(*pair.start, 2), begunAt(*pair.end, 1), t), profile),
          1e-9);
      // Entered anticlockwise; the result keeps the sense of the start profile.
      const ConstProfilePtr reversed = morphed(backwards(*pair.start), pair.end, t);
      EXPECT_GT(areaOf(*reversed), 0.0);
      EXPECT_LT(distanceBetween(reversed, profile), 1e-9);
      const ConstProfilePtr toReversed = morphed(pair.start, backwards(*pair.end), t);
      EXPECT_LT(areaOf(*toReversed), 0.0);
      EXPECT_LT(distanceBetween(toReversed, profile), 1e-9);
    }
  }
}

/// A ditch as deep as the floor beside it is wide: its wall may be taken for the side of a ditch or
/// for the front of a bench. Rounding decided, on either side for itself.
TEST(ThProfileMorpher, ReadsBothSidesAlike) {
  const ProfilePtr circle = profileThrough({{-5, 0, 0}, {5, 0, 5}, {-5, 0, 5}});
  const ProfilePtr ditch = profileThrough({{-5, 0, 0},
                                           {-5, 3.5, 0},
                                           {5, 3.5, 5},
                                           {5, 0, 0},
                                           {4, 0, 0},
                                           {4, -1, 0},
                                           {-4, -1, 0},
                                           {-4, 0, 0},
                                           {-5, 0, 0}});
  const ConstProfilePtr profile = morphed(circle, ditch, 0.5);
  for (int i = -8; i <= 8; ++i) {
    const ConstProfilePtr shifted = morphed(moved(*circle, 0, i, -6), moved(*ditch, 0, i, -6), 0.5);
    EXPECT_LT(distanceBetween(shifted, moved(*profile, 0, i, -6)), 1e-9) << i;
  }
}

/// In 200 steps, none much longer than a mean one, and with nothing that appears at once at an end.
TEST(ThProfileMorpher, MovesEvenly) {
  for (const Pair& pair : typicalPairs()) {
    SCOPED_TRACE(pair.name);
    const double whole = distanceBetween(pair.start, pair.end);
    ConstProfilePtr last = pair.start;
    for (int i = 1; i <= 200; ++i) {
      const ConstProfilePtr next = morphed(pair.start, pair.end, i / 200.0);
      EXPECT_LT(distanceBetween(last, next), 3 * whole / 200) << i;
      last = next;
    }
    EXPECT_LT(distanceBetween(morphed(pair.start, pair.end, 1e-9), pair.start), 1e-8);
    EXPECT_LT(distanceBetween(morphed(pair.start, pair.end, 1 - 1e-9), pair.end), 1e-8);
  }
}

ProfilePtr boxWithInvert(double radius) {
  return profileThrough({{-5, 0, 0}, {-5, 4, 0}, {5, 4, 0}, {5, 0, 0}, {-5, 0, radius}});
}

ProfilePtr boxWithGutter(double depth) {
  const std::vector<ProfileNode> nodes = {{-5, 0, 0},      {-5, 4, 0}, {5, 4, 0},
                                          {5, 0, 0},       {1, 0, 0},  {1, -depth, 0},
                                          {-1, -depth, 0}, {-1, 0, 0}, {-5, 0, 0}};
  return profileThrough(nodes);
}

/// In the left wall, 1 m high and of these depths. The upper one may be missing.
ProfilePtr boxWithNiches(double lower, double upper) {
  std::vector<ProfileNode> nodes = {
      {-5, 0, 0}, {-5, 1, 0}, {-5 - lower, 1, 0}, {-5 - lower, 2, 0}, {-5, 2, 0}};
  if (upper > 0.0) {
    nodes.insert(nodes.end(), {{-5, 4, 0}, {-5 - upper, 4, 0}, {-5 - upper, 5, 0}, {-5, 5, 0}});
  }
  nodes.insert(nodes.end(), {{-5, 6, 0}, {5, 6, 0}, {5, 0, 0}, {-5, 0, 0}});
  return profileThrough(nodes);
}

TEST(ThProfileMorpher, ChangesPartsInProportion) {
  const auto expectBetween = [](const ConstProfilePtr& start, const ConstProfilePtr& end, double t,
                                const ConstProfilePtr& expected) {
    const ConstProfilePtr profile = morphed(start, end, t);
    EXPECT_EQ(profile->getNumSegments(), expected->getNumSegments());
    EXPECT_LT(distanceBetween(profile, expected), 1e-9);
    // It begins at the image of the start's first node.
    EXPECT_LT((profile->getSegmentStartAt(0) - expected->getSegmentStartAt(0)).length(), 1e-9);
  };
  // Floor, walls of 4 m, fillets of 2 m, and what is left of the roof.
  expectBetween(
      rectangle(4, 6), horseshoe(4, 2), 0.5,
      profileThrough(
          {{-4, 0, 0}, {-4, 4, 0}, {-2, 6, 2}, {2, 6, 0}, {4, 4, 2}, {4, 0, 0}, {-4, 0, 0}}));
  // An arc over the same chord that is half as deep as one of 60 degrees.
  const double depth = 5 * (1 - std::cos(kPi / 6));
  expectBetween(rectangle(5, 4), boxWithInvert(10), 0.5,
                boxWithInvert((25 + depth * depth) / (2 * depth)));
  // Benches stay benches where the sections differ elsewhere.
  const std::vector<ProfileNode> boxy = {{-6.3, 0, 0},  {-6.3, 1.5, 0}, {-7, 1.5, 0},
                                         {-7, 8, 0},    {7, 8, 0},      {7, 1.5, 0},
                                         {6.3, 1.5, 0}, {6.3, 0, 0},    {-6.3, 0, 0}};
  const ConstProfilePtr benches = horseshoeWithBenches(6, 2, 2, 0.5);
  const ConstProfilePtr half = morphed(benches, profileThrough(boxy), 0.5);
  EXPECT_LT((half->getSegmentEndAt(0) - Point2D(-5.15, 1)).length(), kRounding);
  EXPECT_LT((half->getSegmentEndAt(1) - Point2D(-6.5, 1)).length(), kRounding);
  const ProfilePtr upright = horseshoe(5, 2);
  for (const double t : {0.01, 0.5, 0.9}) {
    SCOPED_TRACE(t);
    // A low wide bench becomes a high narrow one, with straight edges all the way.
    expectBetween(benches, horseshoeWithBenches(7, 3, 0.7, 1.5), t,
                  horseshoeWithBenches(6 + t, 2 + t, 2 - 1.3 * t, 0.5 + t));
    expectBetween(rectangle(5, 4), boxWithGutter(0.6), t, boxWithGutter(0.6 * t));
    // Of two niches the nearer one stays.
    expectBetween(boxWithNiches(1, 0), boxWithNiches(1, 0.8), t, boxWithNiches(1, 0.8 * t));
    const ConstProfilePtr niche = horseshoeWithNiche(5, 3, 2);
    expectBetween(horseshoe(5, 3), niche, t, horseshoeWithNiche(5, 3, 2 * t));
    expectBetween(horseshoeWithNiche(5, 3, 1), niche, t, horseshoeWithNiche(5, 3, 1 + t));
    for (const double roll : {-0.174, -0.105, -0.012, 0.0008, 0.07, 0.122, 0.18}) {
      expectBetween(upright, moved(*upright, roll, 0, 0), t, moved(*upright, t * roll, 0, 0));
    }
  }
}

/// What becomes of a floor leaves the walls alone: they stay plumb, and a change of crossfall is no
/// roll. A ditch becomes deeper in its place.
TEST(ThProfileMorpher, ChangesFloorsInTheirPlace) {
  const double middle = 0.5;
  for (const double wall : {2.0, 4.0}) {
    for (const auto& [left, right] :
         {std::pair(-0.06, 0.06), {0.01, -0.01}, {0.025, 0.025}, {-0.08, 0.0}}) {
      for (const auto& [otherLeft, otherRight] :
           {std::pair(0.0, 0.0), {0.06, -0.06}, {0.025, -0.025}}) {
        SCOPED_TRACE(testing::Message()
                     << wall << ": " << left << ' ' << right << " to " << otherLeft);
        for (const double depth : {0.0, 0.6}) {
          for (const double t : {0.05, 0.5, 0.95}) {
            // Slopes away from the middle, in which all of these floors are equally high.
            const auto floor = [&](double a, double b, double d) {
              return horseshoeWithFloor(5, wall, middle - 5 * a, middle, middle - 5 * b, d);
            };
            const ConstProfilePtr profile =
                morphed(floor(left, right, 0), floor(otherLeft, otherRight, depth), t);
            const auto mean = [t](double a, double b) { return (1 - t) * a + t * b; };
            const ConstProfilePtr expected =
                floor(mean(left, otherLeft), mean(right, otherRight), depth * t);
            EXPECT_LT(distanceBetween(profile, expected), 1e-9) << t << ' ' << depth;
          }
        }
      }
    }
  }
}

/// One of the two profiles of a pair, with something in it that changes.
using Variant = std::function<ConstProfilePtr(double)>;

/// A change of d in an input moves the outline by 5 d and a millimetre at most.
void expectContinuous(const ConstProfilePtr& start, const Variant& end, double from, double to,
                      int numSteps) {
  constexpr double kWithin = 0.6;
  ConstProfilePtr last = end(from);
  ConstProfilePtr lastMorphed = morphed(start, last, kWithin);
  for (int i = 1; i <= numSteps; ++i) {
    const double value = from + (to - from) * i / numSteps;
    const ConstProfilePtr next = end(value);
    const ConstProfilePtr nextMorphed = morphed(start, next, kWithin);
    const double change = distanceBetween(last, next);
    ASSERT_LT(distanceBetween(lastMorphed, nextMorphed), 5 * change + 1e-3) << value;
    last = next;
    lastMorphed = nextMorphed;
  }
}

TEST(ThProfileMorpher, IsContinuousInItsInputs) {
  const auto floor = [](double left, double right) {
    return horseshoeWithFloor(5, 2.5, 0.5 + 5 * left, 0.5, 0.5 + 5 * right);
  };
  const Variant crossfall = [&](double slope) { return floor(-slope, slope); };
  for (const auto& start : {floor(0, 0), floor(0.025, -0.025), floor(-0.025, -0.025)}) {
    expectContinuous(start, crossfall, -0.08, 0.08, 400);
    expectContinuous(
        start, [&](double roll) { return moved(*start, roll, 0, 0); }, -0.25, 0.25, 400);
  }
  expectContinuous(
      floor(0, 0), [&](double slope) { return floor(slope, -0.025); }, -0.08, 0.08, 400);
  const ConstProfilePtr plain = horseshoe(5, 3);
  const Variant ditch = [](double d) { return horseshoeWithFloor(5, 3, 0.1, 0, -0.1, d); };
  const Variant niche = [](double d) { return horseshoeWithNiche(5, 3, d); };
  const Variant benches = [](double h) { return horseshoeWithBenches(5, 3, 1.2, h); };
  for (const auto& start : {plain, ConstProfilePtr(circleProfile(4.5, 0, 3))}) {
    expectContinuous(start, ditch, 1e-6, 1.5, 300);
    expectContinuous(start, niche, 1e-6, 2.0, 300);
    expectContinuous(start, benches, 1e-6, start == plain ? 2.9999 : 1.5, 300);
  }
  const Variant wider = [](double w) { return horseshoeWithBenches(5, 3, w, 0.8); };
  expectContinuous(horseshoeWithBenches(5, 3, 1.2, 0.6), wider, 0.01, 2.4, 120);
  const ConstProfilePtr full = ditch(0.6);
  const std::vector<ProfileSegment> segments = segmentsOf(*full);
  for (std::size_t node = 0; node < segments.size(); ++node) {
    for (const Point2D& direction : {Point2D(1, 0), Point2D(0, 1)}) {
      SCOPED_TRACE(testing::Message() << "node " << node << (direction.x > 0 ? " x" : " y"));
      expectContinuous(
          plain, [&](double shift) { return withNodeMoved(*full, node, direction * shift); }, -0.2,
          0.2, 80);
    }
  }
}

/// A narrow tunnel with a bench and a niche over each other, ditches that leave less of the floor
/// than the bench is wide, and a flat vault as low as the niche.
std::vector<ProfileNode> crowdedNodes(double bench, double sill, double roof, double fall) {
  const auto floor = [fall](double x) { return fall * x; };
  std::vector<ProfileNode> nodes = {{-3, floor(-3), 0}, {-3, 2.2, 0},         {3, 2.2, roof},
                                    {3, sill + 0.6, 0}, {3.7, sill + 0.6, 0}, {3.7, sill, 0},
                                    {3, sill, 0},       {3, bench, 0},        {1.7, bench, 0}};
  for (const double x : {1.7, 0.9, -0.8}) {
    nodes.push_back({x, floor(x), 0});
    if (x == 1.7) continue;
    nodes.insert(nodes.end(), {{x, floor(x) - 0.5, 0}, {x - 0.8, floor(x - 0.8) - 0.5, 0}});
    nodes.push_back({x - 0.8, floor(x - 0.8), 0});
  }
  nodes.push_back(nodes.front());
  return nodes;
}

TEST(ThProfileMorpher, IsContinuousWhereManyThingsMeet) {
  const ConstProfilePtr start = profileThrough(crowdedNodes(0.5, 1.2, 4.5, 0));
  const auto crowded = [](double bench, double sill, double roof, double fall) {
    return profileThrough(crowdedNodes(bench, sill, roof, fall));
  };
  expectContinuous(
      start, [&](double b) { return crowded(b, 1.3, 5, 0.02); }, 0.1, 1.2, 60);
  expectContinuous(
      start, [&](double s) { return crowded(0.6, s, 5, 0.02); }, 0.7, 1.55, 60);
  expectContinuous(
      start, [&](double fall) { return crowded(0.6, 1.3, 5, fall); }, -0.08, 0.08, 60);
  expectContinuous(
      start, [&](double roof) { return crowded(0.6, 1.3, roof, 0); }, 3.1, 12, 60);
  expectContinuous(
      profileThrough({{-4, 0, 30}, {-4.5, 3, 12}, {4.5, 3, 6}, {4, 0, 12}, {-4, 0, 30}}),
      [&](double fall) { return crowded(0.6, 1.3, 5, fall); }, -0.03, 0.03, 60);
}

/// What only one profile has begins at nothing, also on an arched wall, above a springing, and on a
/// curved invert: just after the start the profile is the start.
TEST(ThProfileMorpher, LeavesItsEndsWithoutAJump) {
  const ConstProfilePtr crowded = profileThrough(crowdedNodes(0.6, 1.4, 4.5, 0.02));
  const ConstProfilePtr arched =
      profileThrough({{-3.3, 0, 9}, {-3.4, 1.9, 4}, {3.4, 1.9, 4}, {3.3, 0, 4}, {-3.3, 0, 9}});
  const ConstProfilePtr low =
      profileThrough({{-3, 0, 0}, {-3, 1.6, 0}, {3, 1.6, 3.4}, {3, 0, 0}, {-3, 0, 0}});
  const ConstProfilePtr gutter = profileThrough(
      {{-3, 0, 0}, {-3, 2, 0}, {3, 2, 3}, {3, 0, 0}, {1, 0, 0}, {0.4, 0, 0.4}, {-3, 0, 0}});
  for (const auto& [start, end] : {std::pair(arched, crowded), {low, crowded}, {arched, gutter}}) {
    EXPECT_LT(distanceBetween(morphed(start, end, 1e-9), start), 1e-6);
    EXPECT_LT(distanceBetween(morphed(start, end, 1 - 1e-9), end), 1e-6);
    // A stationing that rounding takes for the end of the way.
    const ThProfileMorpher longWay(end, start, -1e6, 1);
    EXPECT_LT(distanceBetween(longWay.getMorphedProfile(std::nextafter(1.0, 0.0)), start), 1e-6);
  }
}

/// Of caves that both are seen from the origin. Headings led a third of them astray.
TEST(ThProfileMorpher, IsContinuousInTheNodesOfCaves) {
  for (std::uint64_t seed = 1; seed <= 4; ++seed) {
    Random random(seed);
    const ProfilePtr start = randomStar(random, 0.4, 12);
    const ProfilePtr end = randomStar(random, 0.4, 12);
    for (std::size_t node = 0; node < 12; node += 3) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", node " << node);
      expectContinuous(
          start, [&](double shift) { return withNodeMoved(*end, node, Point2D(shift, 0)); }, -0.03,
          0.03, 10);
    }
  }
}

/// Convex outlines that hardly stand on a floor. The first one's floor ends in a short rising
/// straight, which was a part of the floor, or a bench, or neither; the second stands on a short
/// straight that is level at one instant, when arcs were taken for its counterpart.
TEST(ThProfileMorpher, IsContinuousInTheNodesOfConvexProfiles) {
  const std::vector<ProfileNode> slanted = {{4.2, 6.1, 0}, {5, 3.7, 0},    {3.7, 1.3, 0},
                                            {2.8, 0.7, 0}, {-4.4, 2.1, 0}, {-4.8, 5.2, 0},
                                            {4.2, 6.1, 0}};
  const std::vector<ProfileNode> chamfered = {{2.9, 8.4, 0},  {5.2, 6.7, 0},  {2.9, 0.6, 0},
                                              {-2.4, 0.4, 0}, {-2.7, 0.5, 0}, {-6, 4.8, 0},
                                              {-3.7, 8, 0},   {2.9, 8.4, 0}};
  const std::vector<ProfileNode> curved = {{1.8, 7.7, 0},   {2.4, 0.5, 7},   {1.9, 0.3, 0},
                                           {-1.2, 0.1, 15}, {-2.8, 0.7, 16}, {-5, 4.3, 11},
                                           {-4.8, 5, 0},    {1.8, 7.7, 0}};
  const std::vector<ProfileNode> pointed = {
      {0.5, 9, 0},  {5, 7, 22},      {5, 2, 8},     {4.5, 1.5, 22},  {0, 0, 0},
      {-0.2, 0, 0}, {-2.4, 0.4, 18}, {-5.7, 3, 23}, {-5.5, 6.3, 16}, {0.5, 9, 0}};
  for (const auto& [start, nodes] : {std::pair(slanted, chamfered), {curved, pointed}}) {
    const ProfilePtr end = profileThrough(nodes);
    for (std::size_t node = 0; node + 1 < nodes.size(); ++node) {
      for (const Point2D& direction : {Point2D(1, 0), Point2D(0, 1)}) {
        SCOPED_TRACE(testing::Message() << "node " << node << (direction.x > 0 ? " x" : " y"));
        expectContinuous(
            profileThrough(start),
            [&](double shift) { return withNodeMoved(*end, node, direction * shift); }, -0.04, 0.04,
            40);
      }
    }
  }
}

/// Random outlines with corners, arcs of both senses and dents, whose centre sees all of them.
TEST(ThProfileMorpher, MorphsStarShapedProfilesWithoutCrossings) {
  for (const double roughness : {0.1, 0.4}) {
    for (std::uint64_t seed = 1; seed <= 200; ++seed) {
      SCOPED_TRACE(testing::Message() << "roughness " << roughness << ", seed " << seed);
      Random random(seed);
      const ProfilePtr start = randomStar(random, roughness);
      const ProfilePtr end = randomStar(random, roughness);
      EXPECT_LT(distanceBetween(morphed(start, start, 0.37), start), 1e-9);
      for (const int i : {2, 5}) {
        const ConstProfilePtr profile = morphed(start, end, i / 8.0);
        EXPECT_TRUE(isSound(*profile)) << i;
        EXPECT_LT(areaOf(*profile), 0.0) << i;
        const ConstProfilePtr back = morphed(end, start, 1 - i / 8.0);
        EXPECT_NEAR(areaOf(*back), areaOf(*profile), 1e-9) << i;
      }
    }
  }
}

/// Headings alone would lead a few in a hundred of these across themselves. One input (seed 123)
/// does so already, in a spike of two arcs.
TEST(ThProfileMorpher, MorphsRaggedCavesWithoutCrossings) {
  int numUnsound = 0;
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    Random random(seed);
    const ProfilePtr start = randomStar(random, 0.6, 30);
    const ProfilePtr end = randomStar(random, 0.6, 30);
    const auto isSoundAt = [&](double t) {
      const ConstProfilePtr profile = morphedIfPossible(start, end, t);
      return profile && isSound(*profile) && areaOf(*profile) < 0.0;
    };
    bool areSound = true;
    for (const double t : {0.2, 0.5, 0.7})
      areSound = areSound && isSoundAt(t);
    if (!areSound) ++numUnsound;
  }
  EXPECT_LE(numUnsound, 1);
}

TEST(ThProfileMorpher, ThrowsOnMisuseOnly) {
  const double nan = std::nan("");
  const double infinity = std::numeric_limits<double>::infinity();
  const ConstProfilePtr profile = horseshoe(5, 2);
  const auto expectMessage = [](const ThProfileMorpher& morpher, double at, const char* text) {
    EXPECT_THAT([&] { morpher.getMorphedProfile(at); },
                testing::ThrowsMessage<std::exception>(text));
  };
  expectMessage(ThProfileMorpher(nullptr, profile, 2, 1), 9, "input profiles not set");
  expectMessage(ThProfileMorpher(profile, nullptr, 1, 2), 1, "input profiles not set");
  for (const auto& [from, to] : {std::pair(1.0, 1.0), {2.0, 1.0}, {nan, 1.0}, {1.0, nan}}) {
    expectMessage(ThProfileMorpher(profile, profile, from, to), 1,
                  "fromStationing must be less than toStationing");
  }
  for (const double at : {0.9999, 2.0001, nan, infinity}) {
    expectMessage(ThProfileMorpher(profile, profile, 1, 2), at, "atStationing is out of range");
  }
  // The widest range of all.
  const double most = std::numeric_limits<double>::max();
  EXPECT_LT(
      distanceBetween(ThProfileMorpher(profile, rectangle(5, 9), -most, most).getMorphedProfile(0),
                      morphed(profile, rectangle(5, 9), 0.5)),
      kRounding);
  EXPECT_FALSE(ThProfileMorpher(profile, profile, -infinity, 1).getMorphedProfile(0));
}

TEST(ThProfileMorpher, GivesNothingForWhatIsNoOutline) {
  const ConstProfilePtr sound = horseshoe(5, 2);
  const double nan = std::nan("");
  const std::vector<ConstProfilePtr> unsound = {
      ConstProfilePtr(new ThProfileDefinition),
      profileThrough({{0, 0, 0}, {1, 0, 0}}),
      profileThrough({{0, 0, 0}, {0, 5, 0}, {0, 0, 0}}),
      profileThrough({{0, 0, 0}, {0, nan, 0}, {5, 5, 0}, {0, 0, 0}}),
      profileThrough({{0, 0, 0}, {0, 5, 0}, {5, 5, 0}, {0, 0, HUGE_VAL}}),
      profileThrough({{0, 0, 0}, {0, 5, 2.4}, {5, 5, 0}, {0, 0, 0}}),
      profileThrough({{0, 0, 0}, {0, 1e200, 0}, {1e200, 0, 0}, {0, 0, 0}}),
      profileThrough({{0, 0, 0}, {0, 5, 0}, {1e-8, 5, 0}, {0, 0, 0}}),
      profileThrough({{0, 0, 0}, {5, 5, 0}, {5, 0, 0}, {0, 8, 0}, {0, 0, 0}})};
  for (const ConstProfilePtr& profile : unsound) {
    EXPECT_FALSE(morphedIfPossible(profile, sound, 0.5)) << &profile - unsound.data();
    EXPECT_FALSE(morphedIfPossible(sound, profile, 0.5)) << &profile - unsound.data();
  }
}

/// Nonsense gives nothing or something finite, and always soon.
TEST(ThProfileMorpher, SurvivesNonsense) {
  Random random(42);
  const auto coordinate = [&random] {
    const double special[] = {0, 1, 1, -3, 1e-12, 1e9, 1e100, 1e300, -1e300};
    return random.index(4) == 0 ? special[random.index(9)] : random.uniform(-9, 9);
  };
  for (int i = 0; i < 3000; ++i) {
    std::vector<ProfileNode> nodes[2];
    for (std::vector<ProfileNode>& list : nodes) {
      for (std::size_t n = 2 + random.index(7); n > 0; --n) {
        list.push_back({coordinate(), coordinate(), random.index(2) == 0 ? 0 : coordinate() * 3});
      }
    }
    const ConstProfilePtr profile = morphedIfPossible(
        profileThrough(nodes[0]), profileThrough(nodes[1]), random.uniform(0.01, 0.99));
    if (!profile) continue;
    EXPECT_TRUE(std::isfinite(profile->getCircumference())) << i;
  }
}

}  // namespace
