// SPDX-License-Identifier: BSL-1.0
#include "profiles/morphing/Outlines.h"

#include "shapes/ChainSegment.h"
#include "testing/Csv.h"

#include <Calculations/ThProfileCalculator.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace TestSupport {

using namespace Ruv::Calculations;
using Ruv::CChainSegment;

namespace {

constexpr double kTwoPi = 6.283185307179586;

ProfilePtr profileOf(const std::vector<ProfileSegment>& segments) {
  std::vector<ProfileNode> nodes = {{segments.front().start.x, segments.front().start.y, 0.0}};
  for (const ProfileSegment& segment : segments) {
    nodes.push_back({segment.end.x, segment.end.y, segment.radius});
  }
  return profileThrough(nodes);
}

CChainSegment chainSegmentOf(const ProfileSegment& segment) {
  return CChainSegment::between(segment.start, segment.end, segment.radius);
}

double cross(const Point2D& a, const Point2D& b) { return a.x * b.y - a.y * b.x; }

bool isSeenClockwise(const CChainSegment& segment) {
  Point2D last = segment.start;
  for (int i = 1; i <= 50; ++i) {
    const Point2D next = segment.at(segment.length * i / 50).position;
    if (!(cross(last, next) < 0.0)) return false;
    last = next;
  }
  return true;
}

double largestDistanceFrom(const ConstProfilePtr& profile, const IProfileSegmentProvider& other) {
  const ThProfileCalculator calculator(profile);
  double largest = 0.0;
  for (const Point2D& p : polygonOf(other)) {
    largest = std::max(largest, std::abs(calculator.calculateProfilePoint(p).distance));
  }
  return largest;
}

}  // namespace

std::vector<std::string> goldenProfileNames() {
  std::vector<std::string> names;
  for (const CsvRow& row : rowsOf("profiles/theoretical_expected.csv")) {
    names.push_back(row.text("case"));
  }
  return names;
}

ProfilePtr horseshoe(double halfWidth, double wall) {
  const double w = halfWidth;
  return profileThrough(
      {{-w, 0, 0}, {-w, wall, 0}, {0, wall + w, w}, {w, wall, w}, {w, 0, 0}, {-w, 0, 0}});
}

ProfilePtr horseshoeWithBenches(double halfWidth, double wall, double benchWidth,
                                double benchHeight) {
  const double w = halfWidth;
  const double floor = w - benchWidth;
  const std::vector<ProfileNode> nodes = {{-floor, 0, 0},       {-floor, benchHeight, 0},
                                          {-w, benchHeight, 0}, {-w, wall, 0},
                                          {0, wall + w, w},     {w, wall, w},
                                          {w, benchHeight, 0},  {floor, benchHeight, 0},
                                          {floor, 0, 0},        {-floor, 0, 0}};
  return profileThrough(nodes);
}

ProfilePtr horseshoeWithNiche(double halfWidth, double wall, double depth) {
  const double w = halfWidth;
  const std::vector<ProfileNode> nodes = {
      {-w, 0, 0},   {-w, 1, 0},    {-w - depth, 1, 0}, {-w - depth, 2.5, 0},
      {-w, 2.5, 0}, {-w, wall, 0}, {0, wall + w, w},   {w, wall, w},
      {w, 0, 0},    {-w, 0, 0}};
  return profileThrough(nodes);
}

ProfilePtr horseshoeWithFloor(double halfWidth, double wall, double left, double middle,
                              double right, double ditchDepth) {
  const double w = halfWidth;
  const auto height = [&](double x) { return middle + (right - middle) * x / w; };
  std::vector<ProfileNode> nodes = {
      {-w, left, 0}, {-w, wall, 0}, {0, wall + w, w}, {w, wall, w}, {w, right, 0}};
  if (ditchDepth > 0.0) {
    for (const auto& [x, depth] :
         {std::pair(3.8, 0.0), {3.8, ditchDepth}, {3.0, ditchDepth}, {3.0, 0.0}}) {
      nodes.push_back({x, height(x) - depth, 0});
    }
  }
  if (middle != (left + right) / 2) nodes.push_back({0, middle, 0});
  nodes.push_back(nodes.front());
  return profileThrough(nodes);
}

ProfilePtr rectangle(double halfWidth, double height) {
  const double w = halfWidth;
  return profileThrough({{-w, 0, 0}, {-w, height, 0}, {w, height, 0}, {w, 0, 0}, {-w, 0, 0}});
}

ProfilePtr randomStar(Random& random, double roughness, std::size_t numNodes) {
  std::vector<double> bearings = {0.0};
  if (numNodes == 0) numNodes = 5 + random.index(12);
  for (std::size_t i = 0; i < numNodes; ++i) {
    bearings.push_back(bearings.back() + random.uniform(0.4, 1.6));
  }
  const double first = random.uniform(0, kTwoPi);
  std::vector<ProfileNode> nodes;
  for (std::size_t i = 0; i < numNodes; ++i) {
    const double bearing = first + kTwoPi * bearings[i] / bearings.back();
    const double distance = 5 * random.uniform(1 - roughness, 1 + roughness);
    nodes.push_back({distance * std::sin(bearing), distance * std::cos(bearing), 0});
  }
  nodes.push_back(nodes.front());
  for (std::size_t i = 1; i < nodes.size(); ++i) {
    const Point2D start(nodes[i - 1].x, nodes[i - 1].y);
    const Point2D end(nodes[i].x, nodes[i].y);
    const double sense = random.index(10) < 7 ? 1 : -1;
    const double radius = sense * (end - start).length() * random.uniform(0.6, 3);
    const bool isArc = random.index(2) == 0;
    if (isArc && isSeenClockwise(CChainSegment::between(start, end, radius))) {
      nodes[i].radius = radius;
    }
  }
  return profileThrough(nodes);
}

ProfilePtr moved(const IProfileSegmentProvider& profile, double roll, double dx, double dy) {
  const Ruv::CDirection direction = Ruv::directionOfBearing(roll);
  std::vector<ProfileSegment> segments = segmentsOf(profile);
  for (ProfileSegment& segment : segments) {
    segment.start = Ruv::turnedTo(direction, segment.start) + Point2D(dx, dy);
    segment.end = Ruv::turnedTo(direction, segment.end) + Point2D(dx, dy);
  }
  return profileOf(segments);
}

ProfilePtr begunAt(const IProfileSegmentProvider& profile, std::size_t node) {
  std::vector<ProfileSegment> segments = segmentsOf(profile);
  std::rotate(segments.begin(), segments.begin() + static_cast<std::ptrdiff_t>(node),
              segments.end());
  return profileOf(segments);
}

ProfilePtr withNodeMoved(const IProfileSegmentProvider& profile, std::size_t node,
                         const Point2D& shift) {
  std::vector<ProfileSegment> segments = segmentsOf(profile);
  ProfileSegment& before = segments[(node + segments.size() - 1) % segments.size()];
  segments[node].start = segments[node].start + shift;
  before.end = segments[node].start;
  return profileOf(segments);
}

ProfilePtr backwards(const IProfileSegmentProvider& profile) {
  std::vector<ProfileSegment> segments = segmentsOf(profile);
  std::reverse(segments.begin(), segments.end());
  for (ProfileSegment& segment : segments) {
    segment = {segment.end, segment.start, -segment.radius};
  }
  return profileOf(segments);
}

std::vector<Point2D> polygonOf(const IProfileSegmentProvider& profile) {
  std::vector<Point2D> points;
  for (const ProfileSegment& read : segmentsOf(profile)) {
    const CChainSegment segment = chainSegmentOf(read);
    points.push_back(segment.start);
    if (segment.radius == 0.0 || !segment.hasExtent()) continue;
    const double pieces = std::ceil(segment.length / std::abs(segment.radius) / 0.03);
    for (double i = 1; i < pieces; ++i) {
      points.push_back(segment.at(segment.length * i / pieces).position);
    }
  }
  return points;
}

double areaOf(const IProfileSegmentProvider& profile) {
  const std::vector<ProfileSegment> segments = segmentsOf(profile);
  double doubled = 0.0;
  for (const ProfileSegment& segment : segments) {
    doubled += chainSegmentOf(segment).doubledAreaFrom(segments.front().start);
  }
  return doubled / 2.0;
}

bool crossesItself(const IProfileSegmentProvider& profile) {
  const std::vector<Point2D> p = polygonOf(profile);
  const auto isApart = [](double a, double b, double c, double d) {
    return std::max(a, b) < std::min(c, d) || std::max(c, d) < std::min(a, b);
  };
  for (std::size_t i = 0; i < p.size(); ++i) {
    const Point2D a = p[i];
    const Point2D b = p[(i + 1) % p.size()];
    for (std::size_t j = i + 1; j < p.size(); ++j) {
      const Point2D c = p[j];
      const Point2D d = p[(j + 1) % p.size()];
      if (isApart(a.x, b.x, c.x, d.x) || isApart(a.y, b.y, c.y, d.y)) continue;
      const bool isDivided = cross(b - a, c - a) * cross(b - a, d - a) < 0.0;
      if (isDivided && cross(d - c, a - c) * cross(d - c, b - c) < 0.0) return true;
    }
  }
  return false;
}

bool isSound(const IProfileSegmentProvider& profile) {
  const std::vector<ProfileSegment> segments = segmentsOf(profile);
  if (segments.size() < 2) return false;
  const Point2D gap = segments.back().end - segments.front().start;
  return gap.x == 0.0 && gap.y == 0.0 && std::isfinite(profile.getCircumference()) &&
         !crossesItself(profile);
}

double distanceBetween(const ConstProfilePtr& a, const ConstProfilePtr& b) {
  return std::max(largestDistanceFrom(a, *b), largestDistanceFrom(b, *a));
}

}  // namespace TestSupport
