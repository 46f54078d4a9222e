// SPDX-License-Identifier: BSL-1.0
#include "testing/Profiles.h"

#include "testing/Csv.h"
#include "testing/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace TestSupport {

using namespace Ruv::Calculations;

namespace {

void addSegment(ThProfileDefinition& profile, const Point2D& from, const Point2D& to,
                double radius) {
  if (radius == 0.0) {
    profile.addSegmentStraight(from.x, from.y, to.x, to.y);
  } else {
    profile.addSegmentArc(from.x, from.y, to.x, to.y, radius);
  }
}

}  // namespace

ProfilePtr profileThrough(const std::vector<ProfileNode>& nodes, bool backwards) {
  ProfilePtr profile(new ThProfileDefinition);
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    const std::size_t to = backwards ? nodes.size() - i : i;
    const Point2D before(nodes[to - 1].x, nodes[to - 1].y);
    const Point2D at(nodes[to].x, nodes[to].y);
    addSegment(*profile, backwards ? at : before, backwards ? before : at,
               backwards ? -nodes[to].radius : nodes[to].radius);
  }
  return profile;
}

std::vector<ProfileNode> roadTunnelNodes() {
  const double q = 5.5 * std::sqrt(0.5);
  return {{-4.8, 0, 0},    {-5.5, 3, 9},     {-5.5, 4, 0}, {-q, 4 + q, 5.5}, {0, 9.5, 5.5},
          {q, 4 + q, 5.5}, {5.5, 4, 5.5},    {5.5, 3, 0},  {4.8, 0, 9},      {4.0, -0.8, 0},
          {0, -1.5, 12},   {-4.0, -0.8, 12}, {-4.8, 0, 0}};
}

std::vector<ProfileNode> fromNode(std::vector<ProfileNode> corners, std::size_t start) {
  std::rotate(corners.begin(), corners.begin() + static_cast<std::ptrdiff_t>(start), corners.end());
  corners.push_back(corners.front());
  return corners;
}

ProfilePtr circleProfile(double radius, double x, double y) {
  return profileThrough({{x - radius, y, 0},
                         {x, y + radius, radius},
                         {x + radius, y, radius},
                         {x, y - radius, radius},
                         {x - radius, y, radius}});
}

ProfilePtr goldenProfile(const std::string& name) {
  ProfilePtr profile(new ThProfileDefinition);
  for (const CsvRow& row : rowsOf("profiles/theoretical/" + name + ".csv")) {
    addSegment(*profile, Point2D(row.number("start_x"), row.number("start_y")),
               Point2D(row.number("end_x"), row.number("end_y")), row.number("radius"));
  }
  return profile;
}

std::vector<Point2D> digitisedOutline() {
  std::vector<Point2D> corners;
  for (const CsvRow& row : rowsOf("profiles/digitised/maoliling_first_lining.csv")) {
    corners.emplace_back(row.number("x"), row.number("y"));
  }
  return corners;
}

MeasuredPtr measuredThrough(const std::vector<Point2D>& points) {
  MeasuredPtr profile(new MeasuredProfile);
  for (const Point2D& point : points) {
    profile->addPoint(point);
  }
  return profile;
}

MeasuredPtr measuredCircle(double radius, int count, double x, double y) {
  MeasuredPtr profile(new MeasuredProfile);
  for (int i = 0; i < count; ++i) {
    const double angle = 2 * kPi * i / count;
    profile->addPoint(Point2D(x + radius * std::cos(angle), y + radius * std::sin(angle)));
  }
  return profile;
}

}  // namespace TestSupport
