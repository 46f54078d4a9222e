// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/DesignProfile.h"

#include "common/exchange/Table.h"

#include "common/drawing/NumberText.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Exchange {

namespace {

using Drawing::fixed;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::ThProfileCalculator;
using Ruv::Calculations::ThProfileDefinition;

constexpr double kOutlineStep = 0.05;
constexpr double kGap = 0.001;          // between elements that follow each other
constexpr double kRoundedChord = 1e-6;  // by which a half circle's chord may exceed its diameter
constexpr std::size_t kMostElements = 10000;
constexpr double kFarthest = 1000.0;  // of the coordinates, as the library intersects profiles

struct Element {
  int line = 0;
  Point2D start;
  Point2D end;
  double radius = 0.0;
};

Outcome<Element> elementOf(const TableRow& row) {
  const std::vector<double>& v = row.numbers;
  const Element element{row.line, {v[0], v[1]}, {v[2], v[3]}, v[4]};
  const bool isNear = std::all_of(v.begin(), v.end() - 1,
                                  [](double number) { return std::abs(number) <= kFarthest; });
  if (!isNear) {
    return Outcome<Element>::failure(
        {row.line, "a coordinate is larger than " + fixed(kFarthest, 0) + " m"});
  }
  const double chord = (element.end - element.start).length();
  if (element.radius != 0.0 && chord > 2.0 * std::abs(element.radius) + kRoundedChord) {
    return Outcome<Element>::failure(
        {row.line, "the chord of " + fixed(chord, 3) + " m exceeds the diameter of the arc"});
  }
  return Outcome<Element>::success(element);
}

/// The first place where an element does not begin at the end of the one before.
Remark gapIn(const std::vector<Element>& elements) {
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const std::size_t before = (i + elements.size() - 1) % elements.size();
    const double gap = (elements[i].start - elements[before].end).length();
    if (gap <= kGap) continue;
    if (i == 0) {
      return {elements.back().line,
              "the profile does not close: its end lies " + fixed(gap, 3) + " m from its start"};
    }
    return {elements[i].line,
            "the element begins " + fixed(gap, 3) + " m from the end of the one before"};
  }
  return {};
}

/// Area between an arc and its chord c: r^2 (t - sin t) / 2 with the angle t = 2 asin s, s = c /
/// 2r. That of a flat arc is c^2 s / 4 (2/3 + s^2/5 + ...), where the formula loses digits and,
/// beyond 1e154 m, the square of the radius overflows.
double areaBesideChord(double chord, double radius) {
  constexpr double kFlat = 1e-4;  // the next term, 3 s^4 / 28, is below an ulp
  const double sine = std::min(1.0, chord / 2.0 / radius);
  if (sine < kFlat) return chord * chord * sine / 4.0 * (2.0 / 3.0 + sine * sine / 5.0);
  const double angle = 2.0 * std::asin(sine);
  return radius * radius * (angle - std::sin(angle)) / 2.0;
}

DesignProfile profileOf(const std::vector<Element>& elements) {
  const auto definition = boost::make_shared<ThProfileDefinition>();
  Point2D start = elements.front().start;
  for (const Element& element : elements) {
    const Point2D& end = element.end;
    if (element.radius == 0.0) {
      definition->addSegmentStraight(start.x, start.y, end.x, end.y);
    } else {
      definition->addSegmentArc(start.x, start.y, end.x, end.y, element.radius);
    }
    start = end;
  }
  return DesignProfile(definition);
}

}  // namespace

double enclosedArea(const ThProfileDefinition& profile) {
  const unsigned count = profile.getNumSegments();
  if (count == 0) return 0.0;
  const auto triangle = [](const Point2D& a, const Point2D& b) {
    return (b.x * a.y - a.x * b.y) / 2.0;
  };
  double clockwise = triangle(profile.getSegmentEndAt(count - 1),  // it may not close exactly
                              profile.getSegmentStartAt(0));
  for (unsigned i = 0; i < count; ++i) {
    const Point2D a = profile.getSegmentStartAt(i);
    const Point2D b = profile.getSegmentEndAt(i);
    clockwise += triangle(a, b);
    const double radius = profile.getSegmentRadiusAt(i);
    if (radius == 0.0) continue;
    // Clockwise arcs bulge out of a clockwise profile.
    clockwise += std::copysign(areaBesideChord((b - a).length(), std::abs(radius)), radius);
  }
  return std::abs(clockwise);
}

DesignProfile::DesignProfile(const Definition& definition)
    : m_definition(definition),
      m_calculator(boost::make_shared<const ThProfileCalculator>(definition)),
      m_outline(m_calculator->pointsOnProfileByInterval(kOutlineStep, true)) {}

std::vector<double> DesignProfile::joints() const {
  std::vector<double> derolments;
  for (const Point2D& point : m_calculator->vertexPoints()) {
    derolments.push_back(m_calculator->calculateProfilePoint(point).derolment);
  }
  return derolments;
}

Point2D DesignProfile::centroid() const {
  double area = 0.0;
  Point2D moment;
  for (std::size_t i = 0; i < m_outline.size(); ++i) {
    const Point2D& a = m_outline[i];
    const Point2D& b = m_outline[(i + 1) % m_outline.size()];
    const double part = a.x * b.y - a.y * b.x;
    area += part;
    moment = moment + (a + b) * part;
  }
  return moment / (3.0 * area);
}

Point2D DesignProfile::lowerLeft() const {
  Point2D corner = m_outline.front();
  for (const Point2D& point : m_outline) {
    corner = {std::min(corner.x, point.x), std::min(corner.y, point.y)};
  }
  return corner;
}

Point2D DesignProfile::upperRight() const {
  Point2D corner = m_outline.front();
  for (const Point2D& point : m_outline) {
    corner = {std::max(corner.x, point.x), std::max(corner.y, point.y)};
  }
  return corner;
}

const TableSchema& designProfileColumns() {
  static const TableSchema schema = {{{"start_x"}, {"start_y"}, {"end_x"}, {"end_y"}, {"radius"}},
                                     {"start_x", "start_y", "end_x", "end_y", "radius"}};
  return schema;
}

Outcome<DesignProfile> readDesignProfile(std::istream& in, const TableFormat& format) {
  using Result = Outcome<DesignProfile>;
  const auto table = Table::read(in, designProfileColumns(), format);
  if (!table.value) return Result::failure(table.error);
  if (!table.value->rejected.empty()) return Result::failure(table.value->rejected.front());
  if (table.value->rows.size() > kMostElements) {
    return Result::failure({0, "a profile has 10 000 elements at most"});
  }
  std::vector<Element> elements;
  for (const TableRow& row : table.value->rows) {
    const auto element = elementOf(row);
    if (!element.value) return Result::failure(element.error);
    elements.push_back(*element.value);
  }
  if (elements.size() < 2) return Result::failure({0, "a profile has two elements or more"});
  const Remark gap = gapIn(elements);
  if (!gap.message.empty()) return Result::failure(gap);
  DesignProfile profile = profileOf(elements);
  if (profile.outline().size() < 3 || !(profile.circumference() > 0.0)) {
    return Result::failure({0, "the profile encloses no area"});
  }
  return Result::success(std::move(profile));
}

}  // namespace Exchange
