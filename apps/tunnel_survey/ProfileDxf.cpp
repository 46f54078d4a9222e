// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/CrossSectionDrawing.h"
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
using Drawing::Point3;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::FittingResult;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::Polygon;

const char* const kDesignLayer = "DESIGN";
const char* const kMeasuredLayer = "MEASURED";
const char* const kMeasuredPointsLayer = "MEASURED_POINTS";
const char* const kOverLayer = "OVER_PROFILE";
const char* const kUnderLayer = "UNDER_PROFILE";
const char* const kGeologicalLayer = "GEOLOGICAL";
const char* const kCircleLayer = "BEST_FIT_CIRCLE";
const char* const kEllipseLayer = "BEST_FIT_ELLIPSE";
const char* const kTextsLayer = "TEXTS";
const char* const kStartProfileLayer = "START_PROFILE";
const char* const kMorphedLayer = "MORPHED_PROFILES";
const char* const kEndProfileLayer = "END_PROFILE";
const char* const kEdgesLayer = "EDGES";

constexpr double kTextHeight = 0.15;  // m

Point3 flat(const Point2D& p) { return {p.x, p.y, 0.0}; }

std::vector<Point3> flat(const std::vector<Point2D>& points) {
  std::vector<Point3> result;
  result.reserve(points.size());
  for (const Point2D& point : points) {
    result.push_back(flat(point));
  }
  return result;
}

/// Arcs run anticlockwise: those traversed clockwise from their end to their start.
void writeArc(DxfFile& file, const Point2D& start, const Point2D& end, double radius) {
  const Point2D chord = end - start;
  const double half = chord.length() / 2.0;
  if (!(half > 0.0)) return;
  const double size = std::max(std::abs(radius), half);
  const Point2D right = Point2D(chord.y, -chord.x) / (2.0 * half);
  const double side = std::copysign(1.0, radius);
  const Point2D centre =
      (start + end) / 2.0 + right * (side * std::sqrt(size * size - half * half));
  const Point2D& from = radius > 0.0 ? end : start;
  const Point2D& to = radius > 0.0 ? start : end;
  file.arc(kDesignLayer, flat(centre), size, std::atan2(from.y - centre.y, from.x - centre.x),
           std::atan2(to.y - centre.y, to.x - centre.x));
}

void writeDesign(DxfFile& file, const Exchange::DesignProfile& design) {
  const auto& definition = *design.definition();
  for (unsigned i = 0; i < definition.getNumSegments(); ++i) {
    const Point2D start = definition.getSegmentStartAt(i);
    const Point2D end = definition.getSegmentEndAt(i);
    const double radius = definition.getSegmentRadiusAt(i);
    if (radius == 0.0) {
      file.line(kDesignLayer, flat(start), flat(end));
    } else {
      writeArc(file, start, end, radius);
    }
  }
}

void writeAreas(DxfFile& file, const char* layer, const std::vector<Polygon>& areas) {
  for (const Polygon& area : areas) {
    file.polyline(layer, flat(area.points()), true);
  }
}

void writeFits(DxfFile& file, const SectionSurvey& survey, const SectionResult& result) {
  const FittingResult& circle = result.circle;
  if (isDrawable(circle, survey.design))
    file.circle(kCircleLayer, flat(circle.center), circle.radius);
  const FittingResult& ellipse = result.ellipse;
  if (!isDrawable(ellipse, survey.design)) return;
  file.ellipse(kEllipseLayer, flat(ellipse.center), ellipse.semiAxisA, ellipse.semiAxisB,
               ellipse.rotation);
}

void writeExtreme(DxfFile& file, const std::optional<Extreme>& extreme, const char* layer,
                  const std::string& kind) {
  if (!extreme) return;
  file.line(layer, flat(extreme->deviation.profilePoint), flat(extreme->point));
  file.text(kTextsLayer, flat(extreme->point), kTextHeight,
            kind + Drawing::fixed(std::abs(extreme->deviation.distance), 3) + " m");
}

/// Sections in space.
class SpacePlacer {
 public:
  explicit SpacePlacer(const AxisPointer& axis) : m_calculator(axis) {}

  std::vector<Point3> placed(double station, const std::vector<Point2D>& points) const {
    std::vector<Point3> result;
    result.reserve(points.size());
    for (const Point2D& p : points) {
      ENHPoint grid;
      const bool isOnAxis =
          m_calculator.axisPointToEnhPointVertical(AxisPoint(station, p.x, p.y), grid);
      result.push_back(isOnAxis ? Point3{grid.east, grid.north, grid.height}
                                : Point3{p.x, station, p.y});
    }
    return result;
  }

 private:
  AxisCalculator m_calculator;
};

}  // namespace

bool writeCrossSectionDxf(const std::string& path, const SectionSurvey& survey,
                          const SectionResult& result) {
  DxfFile file(path, {{kDesignLayer, DxfLayer::kInk},
                      {kMeasuredLayer, DxfLayer::kRed},
                      {kMeasuredPointsLayer, DxfLayer::kRed},
                      {kOverLayer, DxfLayer::kOrange},
                      {kUnderLayer, DxfLayer::kBlue},
                      {kGeologicalLayer, DxfLayer::kOrange},
                      {kCircleLayer, DxfLayer::kGreen},
                      {kEllipseLayer, DxfLayer::kViolet},
                      {kTextsLayer, DxfLayer::kInk}});
  writeDesign(file, survey.design);
  file.polyline(kMeasuredLayer, flat(result.outline), true);
  for (const Point2D& point : result.section.points) {
    file.point(kMeasuredPointsLayer, flat(point));
  }
  writeAreas(file, kOverLayer, result.over);
  writeAreas(file, kUnderLayer, result.under);
  writeAreas(file, kGeologicalLayer, result.geological);
  writeFits(file, survey, result);
  writeExtreme(file, result.largestOver, kOverLayer, "over ");
  writeExtreme(file, result.largestUnder, kUnderLayer, "under ");
  const Point2D corner = survey.design.lowerLeft();
  file.text(kTextsLayer, {corner.x, corner.y - 1.0, 0.0}, 2.0 * kTextHeight,
            titleOf(survey, result));
  return file.finish();
}

bool writeSectionsDxf(const std::string& path, const SectionSurvey& survey,
                      const AxisPointer& axis) {
  DxfFile file(path, {{kDesignLayer, DxfLayer::kInk},
                      {kMeasuredLayer, DxfLayer::kRed},
                      {kMeasuredPointsLayer, DxfLayer::kRed},
                      {kTextsLayer, DxfLayer::kInk}});
  const SpacePlacer placer(axis);
  for (std::size_t i = 0; i < survey.results.size(); ++i) {
    const SectionResult& result = survey.results[i];
    const double station = result.section.station.value_or(static_cast<double>(i));
    file.spacePolyline(kDesignLayer, placer.placed(station, survey.design.outline()), true);
    file.spacePolyline(kMeasuredLayer, placer.placed(station, result.outline), true);
    for (const Point3& point : placer.placed(station, result.section.points)) {
      file.point(kMeasuredPointsLayer, point);
    }
    file.text(kTextsLayer, placer.placed(station, {survey.design.crown()}).front(), kTextHeight,
              titleOf(survey, result));
  }
  return file.finish();
}

bool writeTransitionDxf(const std::string& path, const Transition& transition,
                        const AxisPointer& axis) {
  DxfFile file(path, {{kStartProfileLayer, DxfLayer::kBlue},
                      {kMorphedLayer, DxfLayer::kViolet},
                      {kEndProfileLayer, DxfLayer::kRed},
                      {kEdgesLayer, DxfLayer::kInk},
                      {kTextsLayer, DxfLayer::kInk}});
  const SpacePlacer placer(axis);
  for (std::size_t i = 0; i < transition.sections.size(); ++i) {
    const TransitionSection& section = transition.sections[i];
    const bool isLast = i + 1 == transition.sections.size();
    const char* layer = i == 0 ? kStartProfileLayer : isLast ? kEndProfileLayer : kMorphedLayer;
    file.spacePolyline(layer, placer.placed(section.station, section.profile.outline()), true);
    file.text(kTextsLayer, placer.placed(section.station, {section.profile.crown()}).front(),
              kTextHeight, transition.stationing.text(section.station, 3));
  }
  for (double TransitionEdges::*side : {&TransitionEdges::left, &TransitionEdges::right}) {
    std::vector<Point3> edge;
    for (const TransitionEdges& edges : transition.edges) {
      edge.push_back(placer.placed(edges.station, {{edges.*side, 0.0}}).front());
    }
    file.spacePolyline(kEdgesLayer, edge, false);
  }
  return file.finish();
}

}  // namespace TunnelSurvey
