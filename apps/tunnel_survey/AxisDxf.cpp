// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/GradeLine.h"
#include "tunnel_survey/StationTable.h"
#include "tunnel_survey/SurveyDxf.h"

#include "common/drawing/DxfFile.h"
#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace TunnelSurvey {

namespace {

using Drawing::DxfFile;
using Drawing::DxfLayer;
using Drawing::Point;
using Drawing::Point3;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;

const char* const kStraightsLayer = "AXIS_STRAIGHTS";
const char* const kArcsLayer = "AXIS_ARCS";
const char* const kClothoidsLayer = "AXIS_CLOTHOIDS";
const char* const kSpaceCurveLayer = "AXIS_IN_SPACE";
const char* const kStationingLayer = "STATIONING";
const char* const kPointsLayer = "POINTS";
const char* const kPointNamesLayer = "POINT_NAMES";
const char* const kSetOutLayer = "SETTING_OUT";
const char* const kGradeLineLayer = "GRADE_LINE";
const char* const kRoundingsLayer = "ROUNDINGS";
const char* const kTangentsLayer = "TANGENTS";
const char* const kGradePointsLayer = "GRADE_POINTS";

constexpr double kQuarterTurn = 1.5707963267948966;
/// Between points of a curve (m): chords of a radius of 200 m are then 0.2 mm beside it.
constexpr double kChord = 0.5;
constexpr double kStationText = 1.0;  // heights of letters (m)
constexpr double kNameText = 0.4;

Point3 inSpace(const ENHPoint& grid) { return {grid.east, grid.north, grid.height}; }

/// The axis in the coordinates of the world.
class PlanWriter {
 public:
  PlanWriter(DxfFile& file, const SurveyPicture& picture)
      : m_file(file),
        m_axis(*picture.axis),
        m_stationing(picture.stationing),
        m_calculator(picture.axis) {}

  void writeElements() {
    for (const AxisElement& element : elementsWithin(m_axis, Exchange::rangeOf(m_axis))) {
      const std::vector<Point3> curve = curveOf(element);
      switch (element.kind) {
        case Exchange::ElementKind::Straight:
          m_file.line(kStraightsLayer, onGround(curve.front()), onGround(curve.back()));
          break;
        case Exchange::ElementKind::Arc:
          writeArc(element);
          break;
        case Exchange::ElementKind::Clothoid:
          writeOnGround(kClothoidsLayer, curve);
          break;
      }
      m_file.spacePolyline(kSpaceCurveLayer, curve, false);
    }
  }

  /// Ticks to the left with their stationing, square to the axis.
  void writeStationing(const std::vector<double>& stations) {
    constexpr double kTick = 1.0;
    constexpr double kGap = 0.4;
    for (const double station : stations) {
      const auto place = placeAt(m_calculator, station);
      if (!place) continue;
      const Point3 foot = pointAt(station, 0.0);
      const Point3 end = pointAt(station, -kTick);
      m_file.line(kStationingLayer, onGround(foot), onGround(end));
      const Point3 text = pointAt(station, -kTick - kGap);
      m_file.text(kStationingLayer, onGround(text), kStationText, m_stationing.text(station, 3),
                  std::atan2(end.y - foot.y, end.x - foot.x));
    }
  }

 private:
  static Point3 onGround(const Point3& point) { return {point.x, point.y, 0.0}; }

  Point3 pointAt(double station, double offset) const {
    ENHPoint grid;
    m_calculator.axisPointToEnhPointVertical(AxisPoint(station, offset, 0.0), grid);
    return inSpace(grid);
  }

  /// On the axis, as far as it has heights.
  std::vector<Point3> curveOf(const AxisElement& element) const {
    std::vector<Point3> curve;
    for (const double station : Exchange::evenStations({element.from, element.to}, kChord)) {
      curve.push_back(pointAt(station, 0.0));
    }
    return curve;
  }

  void writeOnGround(const char* layer, std::vector<Point3> curve) {
    std::transform(curve.begin(), curve.end(), curve.begin(), onGround);
    m_file.polyline(layer, curve, false);
  }

  /// Arcs run anticlockwise: those to the right from their end to their start.
  void writeArc(const AxisElement& element) {
    const double radius = 1.0 / element.curvatureFrom;
    const Point3 centre = onGround(pointAt(element.from, radius));
    const auto bearing = [&](double station) {
      const Point3 point = pointAt(station, 0.0);
      return std::atan2(point.y - centre.y, point.x - centre.x);
    };
    const double from = bearing(element.from);
    const double to = bearing(element.to);
    const bool isToTheRight = radius > 0.0;
    m_file.arc(kArcsLayer, centre, std::abs(radius), isToTheRight ? to : from,
               isToTheRight ? from : to);
  }

  DxfFile& m_file;
  const Ruv::Calculations::AxisDefinition& m_axis;
  const Exchange::Stationing& m_stationing;
  AxisCalculator m_calculator;
};

void writeNamed(DxfFile& file, const char* pointLayer, const char* nameLayer, const Point3& at,
                const std::string& name) {
  file.point(pointLayer, at);
  file.text(nameLayer, {at.x + kNameText / 2.0, at.y + kNameText / 2.0, at.z}, kNameText, name);
}

std::vector<Point3> flat(const std::vector<Point>& line) {
  std::vector<Point3> points;
  points.reserve(line.size());
  for (const Point& p : line) {
    points.push_back({p.x, p.y, 0.0});
  }
  return points;
}

}  // namespace

bool writePlanDxf(const std::string& path, const SurveyPicture& picture) {
  DxfFile file(path, {{kStraightsLayer, DxfLayer::kInk},
                      {kArcsLayer, DxfLayer::kRed},
                      {kClothoidsLayer, DxfLayer::kCyan},
                      {kSpaceCurveLayer, DxfLayer::kViolet},
                      {kStationingLayer, DxfLayer::kGrey},
                      {kPointsLayer, DxfLayer::kGreen},
                      {kPointNamesLayer, DxfLayer::kGreen},
                      {kSetOutLayer, DxfLayer::kOrange}});
  PlanWriter writer(file, picture);
  writer.writeElements();
  writer.writeStationing(picture.stations);
  for (const Exchange::ConvertedPoint& point : picture.points) {
    writeNamed(file, kPointsLayer, kPointNamesLayer, inSpace(point.grid), point.id);
  }
  for (const Exchange::ConvertedPoint& point : picture.setOut) {
    writeNamed(file, kSetOutLayer, kSetOutLayer, inSpace(point.grid), point.id);
  }
  return file.finish();
}

bool writeLongitudinalDxf(const std::string& path, const SurveyPicture& picture) {
  DxfFile file(path, {{kGradeLineLayer, DxfLayer::kInk},
                      {kRoundingsLayer, DxfLayer::kCyan},
                      {kTangentsLayer, DxfLayer::kGrey},
                      {kGradePointsLayer, DxfLayer::kInk},
                      {kPointsLayer, DxfLayer::kGreen},
                      {kPointNamesLayer, DxfLayer::kGreen},
                      {kSetOutLayer, DxfLayer::kOrange}});
  const GradeLine line(picture.axis);
  const Exchange::StationRange all = Exchange::rangeOf(*picture.axis);
  double from = all.from;  // of the straight after the last rounding
  std::vector<Point> tangents;
  for (const GradePoint& point : gradePointsOf(*picture.axis)) {
    tangents.push_back(point.at);
    const double start = std::clamp(point.from, from, all.to);
    const double end = std::clamp(point.to, start, all.to);
    if (start > from) file.polyline(kGradeLineLayer, flat({line.at(from), line.at(start)}), false);
    if (end > start)
      file.polyline(kRoundingsLayer, flat(line.between({start, end}, kChord)), false);
    from = end;
    const Point3 at{point.at.x, point.at.y, 0.0};
    file.point(kGradePointsLayer, at);
    file.text(kGradePointsLayer, at, kStationText,
              picture.stationing.text(point.at.x, 3) + "  H " + Drawing::fixed(point.at.y, 3),
              kQuarterTurn);
  }
  if (all.to > from) file.polyline(kGradeLineLayer, flat({line.at(from), line.at(all.to)}), false);
  file.polyline(kTangentsLayer, flat(tangents), false);
  for (const Exchange::ConvertedPoint& point : picture.points) {
    writeNamed(file, kPointsLayer, kPointNamesLayer,
               {point.onAxis.stationing, point.grid.height, 0.0}, point.id);
  }
  for (const Exchange::ConvertedPoint& point : picture.setOut) {
    writeNamed(file, kSetOutLayer, kSetOutLayer, {point.onAxis.stationing, point.grid.height, 0.0},
               point.id);
  }
  return file.finish();
}

}  // namespace TunnelSurvey
