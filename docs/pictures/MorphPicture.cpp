// SPDX-License-Identifier: BSL-1.0
#include "pictures/Diagram.h"
#include "pictures/Pictures.h"

#include <Calculations/Calculations.h>

#include <boost/make_shared.hpp>

#include <string>
#include <vector>

namespace ConventionPictures {

namespace {

using Ruv::Calculations::Point2D;
using Ruv::Calculations::ThProfileCalculator;
using Ruv::Calculations::ThProfileDefinition;
using Ruv::Calculations::ThProfileMorpher;

using ProfilePtr = boost::shared_ptr<const ThProfileDefinition>;

/// A node and the radius of the segment that leads to it, 0 for a straight.
struct Node {
  double x;
  double y;
  double radius;
};

constexpr double kScale = 3.4;
constexpr double kLength = 100.0;  // of the stretch on which the profile changes

ProfilePtr profileThrough(const std::vector<Node>& nodes) {
  auto profile = boost::make_shared<ThProfileDefinition>();
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const Node& from = nodes[i];
    const Node& to = nodes[(i + 1) % nodes.size()];
    if (to.radius == 0.0) {
      profile->addSegmentStraight(from.x, from.y, to.x, to.y);
    } else {
      profile->addSegmentArc(from.x, from.y, to.x, to.y, to.radius);
    }
  }
  return profile;
}

/// Plumb walls, a semicircular crown, and a floor between two heights.
/// @param more nodes of a floor that is not straight, from right to left
ProfilePtr horseshoe(double left, double right, const std::vector<Node>& more = {}) {
  std::vector<Node> nodes{{-5, left, 0}, {-5, 2, 0}, {0, 7, 5}, {5, 2, 5}, {5, right, 0}};
  nodes.insert(nodes.end(), more.begin(), more.end());
  return profileThrough(nodes);
}

std::vector<Point> pointsOf(const ProfilePtr& profile) {
  const ThProfileCalculator calculator(profile);
  const double circumference = profile->getCircumference();
  constexpr int kPieces = 800;
  std::vector<Point> points;
  for (int i = 0; i <= kPieces; ++i) {
    const double derolment = circumference * (static_cast<double>(i) / kPieces - 0.5);
    const Point2D p = calculator.calcPointOnProfileAtDerolment(derolment);
    points.push_back({p.x, p.y});
  }
  return points;
}

/// The start in ink, the end in orange, and what lies between them in blue.
void drawMorph(Drawing::Canvas& canvas, const Point& origin, const std::string& title,
               const ProfilePtr& start, const ProfilePtr& end) {
  const Diagram diagram(canvas, origin, kScale);
  diagram.label({0.0, 9.6}, title, kInk);
  const ThProfileMorpher morpher(start, end, 0.0, kLength);
  for (const double part : {0.25, 0.5, 0.75}) {
    diagram.curve(pointsOf(morpher.getMorphedProfile(part * kLength)), mark());
  }
  diagram.curve(pointsOf(end), second());
  diagram.curve(pointsOf(start), subject());
}

ProfilePtr circle() {
  return profileThrough({{-4.5, 3, 4.5}, {0, 7.5, 4.5}, {4.5, 3, 4.5}, {0, -1.5, 4.5}});
}

ProfilePtr layBy() {
  return profileThrough({{-5, 0, 0}, {-5, 2, 0}, {0, 7, 5}, {3, 7, 0}, {8, 2, 5}, {8, 0, 0}});
}

/// Wider on the right, under a flatter vault.
ProfilePtr widened() {
  return profileThrough({{-5, 0, 0}, {-5, 2, 0}, {0, 7, 5}, {6.5, 2, 7.5}, {6.5, 0, 0}});
}

ProfilePtr niched() {
  return profileThrough({{-5, 0, 0},
                         {-5, 0.8, 0},
                         {-7, 0.8, 0},
                         {-7, 2.2, 0},
                         {-5, 2.2, 0},
                         {-5, 3, 0},
                         {0, 8, 5},
                         {5, 3, 5},
                         {5, 0, 0}});
}

ProfilePtr withHigherWalls() {
  return profileThrough({{-5, 0, 0}, {-5, 3, 0}, {0, 8, 5}, {5, 3, 5}, {5, 0, 0}});
}

}  // namespace

Drawing::Sheet morphPicture() {
  Drawing::Sheet sheet{192.0, 92.0, {}};
  sheet.draw = [](Drawing::Canvas& canvas) {
    const ProfilePtr level = horseshoe(0, 0);
    drawMorph(canvas, {28, 38}, "lay-by", level, layBy());
    drawMorph(canvas, {94, 38}, "superelevation", horseshoe(0.4, -0.4), horseshoe(-0.4, 0.4));
    drawMorph(canvas, {158, 38}, "ditch", level,
              horseshoe(0, 0, {{3.8, 0, 0}, {3.8, -1, 0}, {3, -1, 0}, {3, 0, 0}}));
    drawMorph(canvas, {28, 82}, "niche", withHigherWalls(), niched());
    drawMorph(canvas, {94, 82}, "horseshoe to circle", level, circle());
    drawMorph(canvas, {158, 82}, "widening on one side", level, widened());
  };
  return sheet;
}

}  // namespace ConventionPictures
