// SPDX-License-Identifier: BSL-1.0
/// @file
/// Profiles to morph, and what is checked on the outlines between them.

#ifndef CALCULATIONS_TESTS_PROFILES_MORPHING_OUTLINES_H
#define CALCULATIONS_TESTS_PROFILES_MORPHING_OUTLINES_H

#include "profiles/ProfileSegments.h"
#include "testing/Profiles.h"
#include "testing/Random.h"

#include <Calculations/ThProfileMorpher.h>

#include <string>
#include <vector>

namespace TestSupport {

using ConstProfilePtr = boost::shared_ptr<const Ruv::Calculations::ThProfileDefinition>;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::ProfileSegment;

/// All sections of tests/golden/profiles/theoretical. They are convex, mirror-symmetric, and stand
/// on a flat invert between two corners, but for the circle.
std::vector<std::string> goldenProfileNames();

/// Walls and a semicircular crown, with a base at the origin.
ProfilePtr horseshoe(double halfWidth, double wall);
/// The same with a bench at either wall.
ProfilePtr horseshoeWithBenches(double halfWidth, double wall, double benchWidth,
                                double benchHeight);
/// The same with a niche in the left wall, 1 m above the floor and 1.5 m high.
ProfilePtr horseshoeWithNiche(double halfWidth, double wall, double depth);
/// The same over a floor with these heights at the left foot, in the middle and at the right foot.
/// @param ditchDepth of a ditch from x = 3 to 3.8
ProfilePtr horseshoeWithFloor(double halfWidth, double wall, double left, double middle,
                              double right, double ditchDepth = 0.0);
ProfilePtr rectangle(double halfWidth, double height);

/// Nodes in all directions around the origin, 5 m away and up to a part of that nearer or farther,
/// joined by straights and by arcs of both senses. Every ray from the origin meets it once.
/// @param numNodes by chance from 5 to 16 when 0
ProfilePtr randomStar(Random& random, double roughness, std::size_t numNodes = 0);

/// Turned clockwise about the origin, then shifted.
ProfilePtr moved(const Ruv::Calculations::IProfileSegmentProvider& profile, double roll, double dx,
                 double dy);
/// Begun at another node.
ProfilePtr begunAt(const Ruv::Calculations::IProfileSegmentProvider& profile, std::size_t node);
ProfilePtr withNodeMoved(const Ruv::Calculations::IProfileSegmentProvider& profile,
                         std::size_t node, const Point2D& shift);
ProfilePtr backwards(const Ruv::Calculations::IProfileSegmentProvider& profile);

/// A closed profile as a fine polygon.
std::vector<Point2D> polygonOf(const Ruv::Calculations::IProfileSegmentProvider& profile);
/// Positive when anticlockwise.
double areaOf(const Ruv::Calculations::IProfileSegmentProvider& profile);
/// Compares all edges of the fine polygon with each other.
bool crossesItself(const Ruv::Calculations::IProfileSegmentProvider& profile);
/// True when finite, closed and simple.
bool isSound(const Ruv::Calculations::IProfileSegmentProvider& profile);
/// Largest distance of the fine polygon of either profile from the other profile.
double distanceBetween(const ConstProfilePtr& a, const ConstProfilePtr& b);

}  // namespace TestSupport

#endif
