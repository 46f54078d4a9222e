// SPDX-License-Identifier: BSL-1.0
/// @file
/// Profiles to test with.

#ifndef CALCULATIONS_TESTING_PROFILES_H
#define CALCULATIONS_TESTING_PROFILES_H

#include <Calculations/MeasuredProfile.h>
#include <Calculations/ThProfileDefinition.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace TestSupport {

using ProfilePtr = boost::shared_ptr<Ruv::Calculations::ThProfileDefinition>;
using MeasuredPtr = boost::shared_ptr<Ruv::Calculations::MeasuredProfile>;

/// A corner of a profile and the radius of the segment that ends there.
struct ProfileNode {
  double x;
  double y;
  double radius;
};

/// Through the nodes in order, or backwards with the radii negated.
ProfilePtr profileThrough(const std::vector<ProfileNode>& nodes, bool backwards = false);

/// A road tunnel with tangent and kinked joints, curved invert and benches, clockwise from the
/// left foot of the wall.
std::vector<ProfileNode> roadTunnelNodes();

/// A closed outline without its last node, entered from another one.
std::vector<ProfileNode> fromNode(std::vector<ProfileNode> corners, std::size_t start);

/// Four quarter arcs, clockwise from the left.
ProfilePtr circleProfile(double radius, double x = 0.0, double y = 0.0);

/// The corners of tests/golden/profiles/digitised.
std::vector<Ruv::Calculations::Point2D> digitisedOutline();

/// A section of tests/golden/profiles/theoretical.
ProfilePtr goldenProfile(const std::string& name);

MeasuredPtr measuredThrough(const std::vector<Ruv::Calculations::Point2D>& points);

/// Points on a circle, anticlockwise.
MeasuredPtr measuredCircle(double radius, int count, double x = 0.0, double y = 0.0);

}  // namespace TestSupport

#endif
