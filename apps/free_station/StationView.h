// SPDX-License-Identifier: BSL-1.0
/// @file
/// One view of the station: in plan, or along the axis.

#ifndef CALCULATIONS_APPS_FREE_STATION_STATION_VIEW_H
#define CALCULATIONS_APPS_FREE_STATION_STATION_VIEW_H

#include "free_station/Survey.h"

#include "common/drawing/Canvas.h"
#include "common/drawing/LabelPlacer.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace FreeStation {

/// How the world is seen: points and small vectors of the grid as points of a plane (m).
struct Projection {
  std::function<Drawing::Point(const Ruv::Calculations::ENHPoint&)> point;
  std::function<Drawing::Point(const Ruv::Calculations::ENHPoint&)> vector;
};

Projection planProjection();

/// Looking forward along the tangent of the axis beside the station, in parallel projection: the
/// offset from the axis and the height above it there.
Projection sectionProjection(const Survey& survey);

/// A projection, mapped onto a frame of the page.
struct ViewPort {
  Projection projection;
  Drawing::WorldMapping mapping;
  Drawing::Box frame;
  double millimetresPerResidual = 1.0;  ///< page for a metre of residual
};

/// The points that a view has to show.
std::vector<Ruv::Calculations::ENHPoint> visiblePoints(const Survey& survey);

/// What both views show alike: rays, points, residuals, guidance vectors, and their names.
class StationView {
 public:
  StationView(Drawing::Canvas& canvas, const Survey& survey, const ViewPort& port);

  void draw();

  /// Of the station, as much exaggerated as the residuals: for the plan.
  void drawErrorEllipse();

  Drawing::LabelPlacer& labels() { return m_labels; }
  std::size_t labelsLeftOut() const { return m_leftOut; }

 private:
  Drawing::Point toPage(const Ruv::Calculations::ENHPoint& point) const;
  /// Exaggerated.
  Drawing::Point residualOnPage(const Ruv::Calculations::ENHPoint& residual) const;
  Drawing::Point strayOnPage(const Measurement& stray) const;

  void drawGuidance();
  void drawRays();
  void drawFixPoints();
  void drawStation();
  void drawResiduals();
  void writeNames();
  void writeName(const Drawing::Point& at, const std::string& name, const Drawing::Colour& colour);

  Drawing::Canvas& m_canvas;
  const Survey& m_survey;
  const ViewPort& m_port;
  Drawing::LabelPlacer m_labels;
  Drawing::LabelPlacer m_rays;  ///< which names had better not cross
  std::size_t m_leftOut = 0;
};

/// The symbols, for the legend too.
namespace Symbol {

void fixPoint(Drawing::Canvas& canvas, const Drawing::Point& at);
void unseenFixPoint(Drawing::Canvas& canvas, const Drawing::Point& at);
void stray(Drawing::Canvas& canvas, const Drawing::Point& at);
void station(Drawing::Canvas& canvas, const Drawing::Point& at);
void boom(Drawing::Canvas& canvas, const Drawing::Point& at);
void origin(Drawing::Canvas& canvas, const Drawing::Point& at);
void pointAhead(Drawing::Canvas& canvas, const Drawing::Point& at);
void residual(Drawing::Canvas& canvas, const Drawing::Point& from, const Drawing::Point& to);
Drawing::Pen ray();
Drawing::Pen errorEllipse();
/// @param index of the guidance result
Drawing::Pen guidance(std::size_t index);

}  // namespace Symbol

}  // namespace FreeStation

#endif
