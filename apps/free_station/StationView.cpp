// SPDX-License-Identifier: BSL-1.0
#include "free_station/StationView.h"

#include "common/drawing/SheetStyle.h"

#include <algorithm>
#include <cmath>

namespace FreeStation {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::Colour;
using Drawing::kFullTurn;
using Drawing::LabelPlace;
using Drawing::Pen;
using Drawing::Point;
using Ruv::Calculations::ENHPoint;
namespace Style = Drawing::Style;

constexpr Colour kResidual{0.80, 0.16, 0.12};
constexpr Colour kStray{0.86, 0.49, 0.05};
constexpr Colour kRay{0.62, 0.72, 0.80};
constexpr Colour kGuidance = Style::kSurveyed;

/// Places at a distance in all directions, beginning at the upper right.
std::vector<LabelPlace> placesAround(const Point& at, double distance, const Colour& colour) {
  constexpr int kDirections = 16;
  std::vector<LabelPlace> places;
  for (int i = 0; i < kDirections; ++i) {
    const double angle = kFullTurn * (i + 0.5) / kDirections - kFullTurn / 8.0;
    const Point away{std::cos(angle), std::sin(angle)};
    Align vertical = Align::Middle;
    if (away.y > 0.5) vertical = Align::Start;
    if (away.y < -0.5) vertical = Align::End;
    const Align horizontal = away.x > 0.0 ? Align::Start : Align::End;
    auto style = Style::text(Style::kSmallTextSize, colour, horizontal, vertical);
    style.halo = true;
    places.push_back({at + away * distance, style});
  }
  return places;
}

}  // namespace

Projection planProjection() {
  const auto eastNorth = [](const ENHPoint& p) { return Point{p.east, p.north}; };
  return {eastNorth, eastNorth};
}

Projection sectionProjection(const Survey& survey) {
  const double azimuth = survey.axisAzimuth;
  const auto vector = [azimuth](const ENHPoint& v) {
    return Point{v.east * std::cos(azimuth) - v.north * std::sin(azimuth), v.height};
  };
  const Point station{survey.stationOnAxis.offset, survey.stationOnAxis.height};
  const auto point = [vector, station, position = survey.placement.station()](const ENHPoint& p) {
    return station + vector(p - position);
  };
  return {point, vector};
}

std::vector<ENHPoint> visiblePoints(const Survey& survey) {
  std::vector<ENHPoint> points = {survey.placement.station()};
  if (survey.hasBoom()) points.push_back(survey.guidance.boom);
  for (const Exchange::SurveyedPoint& fixPoint : survey.book.fixPoints) {
    points.push_back(fixPoint.grid);
  }
  for (const Measurement& stray : survey.identification.strays) {
    points.push_back(survey.placement.toGlobal(stray.polar));
  }
  for (const GuidanceResult& guided : survey.guided) {
    points.insert(points.end(), {guided.line.front(), guided.ahead});
  }
  return points;
}

namespace Symbol {

void fixPoint(Canvas& canvas, const Point& at) {
  canvas.circle(at, 0.9, {Style::kInk, 0.35, {}}, Style::kInk);
}

void unseenFixPoint(Canvas& canvas, const Point& at) {
  canvas.circle(at, 0.9, {Style::kGrey, 0.35, {}}, Style::kWhite);
}

void stray(Canvas& canvas, const Point& at) {
  constexpr double kArm = 1.3;
  canvas.line(at - Point{kArm, kArm}, at + Point{kArm, kArm}, {kStray, 0.5, {}});
  canvas.line(at - Point{kArm, -kArm}, at + Point{kArm, -kArm}, {kStray, 0.5, {}});
}

void station(Canvas& canvas, const Point& at) {
  const std::vector<Point> corners = {at + Point{0.0, -2.4}, at + Point{2.1, 1.2},
                                      at + Point{-2.1, 1.2}, at + Point{0.0, -2.4}};
  canvas.polygon(corners, Style::kWhite);
  canvas.polyline(corners, {Style::kClothoid, 0.5, {}});
  canvas.circle(at, 0.25, {Style::kClothoid, 0.2, {}}, Style::kClothoid);
}

void boom(Canvas& canvas, const Point& at) {
  constexpr double kHalf = 1.1;
  canvas.fill({at.x - kHalf, at.y - kHalf, at.x + kHalf, at.y + kHalf}, kGuidance);
}

void origin(Canvas& canvas, const Point& at) {
  canvas.circle(at, 0.6, {kGuidance, 0.4, {}}, kGuidance);
}

void pointAhead(Canvas& canvas, const Point& at) {
  canvas.circle(at, 1.1, {kGuidance, 0.4, {}}, Style::kWhite);
}

void residual(Canvas& canvas, const Point& from, const Point& to) {
  constexpr double kHead = 1.6;
  canvas.line(from, to, {kResidual, 0.4, {}});
  if (!(length(to - from) > kHead)) return;
  const Point back = to - unit(to - from) * kHead;
  const Point side = rightOf(unit(to - from)) * (kHead / 3.0);
  canvas.polygon({to, back - side, back + side}, kResidual);
}

Pen ray() { return {kRay, 0.2, {}}; }

Pen errorEllipse() { return {kResidual, 0.25, {}}; }

Pen guidance(std::size_t index) {
  if (index == 0) return {kGuidance, 0.45, {}};
  return {kGuidance, 0.3, {2.0, 1.2}};
}

}  // namespace Symbol

StationView::StationView(Canvas& canvas, const Survey& survey, const ViewPort& port)
    : m_canvas(canvas),
      m_survey(survey),
      m_port(port),
      m_labels(port.frame.inset(1.0)),
      m_rays(port.frame) {}

Point StationView::toPage(const ENHPoint& point) const {
  return m_port.mapping.toPage(m_port.projection.point(point));
}

Point StationView::residualOnPage(const ENHPoint& residual) const {
  const Point onPage = m_port.mapping.toPage(m_port.projection.vector(residual)) -
                       m_port.mapping.toPage(m_port.projection.vector(ENHPoint()));
  const Point metre = m_port.mapping.toPage({1.0, 0.0}) - m_port.mapping.toPage({0.0, 0.0});
  return onPage * (m_port.millimetresPerResidual / length(metre));
}

Point StationView::strayOnPage(const Measurement& stray) const {
  return toPage(m_survey.placement.toGlobal(stray.polar));
}

void StationView::draw() {
  drawGuidance();
  drawRays();
  drawFixPoints();
  drawStation();
  drawResiduals();
  writeNames();
}

void StationView::drawErrorEllipse() {
  constexpr int kParts = 72;
  const ErrorEllipse& ellipse = m_survey.reliability.ellipse;
  const Point centre = toPage(m_survey.placement.station());
  const double sine = std::sin(ellipse.azimuth);
  const double cosine = std::cos(ellipse.azimuth);
  std::vector<Point> line;
  for (int i = 0; i <= kParts; ++i) {
    const double major = ellipse.semiMajor * std::cos(kFullTurn * i / kParts);
    const double minor = ellipse.semiMinor * std::sin(kFullTurn * i / kParts);
    line.push_back(centre + residualOnPage(ENHPoint(major * sine + minor * cosine,
                                                    major * cosine - minor * sine, 0.0)));
  }
  m_canvas.polyline(line, Symbol::errorEllipse());
}

void StationView::drawGuidance() {
  for (std::size_t i = 0; i < m_survey.guided.size(); ++i) {
    const GuidanceResult& guided = m_survey.guided[i];
    std::vector<Point> line;
    line.reserve(guided.line.size());
    for (const ENHPoint& point : guided.line) {
      line.push_back(toPage(point));
    }
    m_canvas.polyline(line, Symbol::guidance(i));
    m_labels.reserve(line, 1.0);
    Symbol::pointAhead(m_canvas, toPage(guided.ahead));
    Symbol::origin(m_canvas, line.front());
  }
  if (m_survey.hasBoom()) Symbol::boom(m_canvas, toPage(m_survey.guidance.boom));
}

void StationView::drawRays() {
  const Point from = toPage(m_survey.placement.station());
  const auto drawRay = [this, &from](const Point& to) {
    m_canvas.line(from, to, Symbol::ray());
    m_rays.reserve({from, to}, 0.3);
  };
  for (const Sighting& s : m_survey.identification.sightings) {
    drawRay(toPage(s.fixPoint.grid));
  }
  for (const Measurement& stray : m_survey.identification.strays) {
    drawRay(strayOnPage(stray));
  }
  if (m_survey.hasBoom()) drawRay(toPage(m_survey.guidance.boom));
}

void StationView::drawFixPoints() {
  for (const Exchange::SurveyedPoint& fixPoint : m_survey.book.fixPoints) {
    Symbol::unseenFixPoint(m_canvas, toPage(fixPoint.grid));
  }
  for (const Sighting& s : m_survey.identification.sightings) {
    Symbol::fixPoint(m_canvas, toPage(s.fixPoint.grid));
  }
  for (const Measurement& stray : m_survey.identification.strays) {
    Symbol::stray(m_canvas, strayOnPage(stray));
  }
}

void StationView::drawStation() { Symbol::station(m_canvas, toPage(m_survey.placement.station())); }

void StationView::drawResiduals() {
  for (std::size_t i = 0; i < m_survey.residuals.size(); ++i) {
    const Point from = toPage(m_survey.identification.sightings[i].fixPoint.grid);
    const Point to = from + residualOnPage(m_survey.residuals[i]);
    Symbol::residual(m_canvas, from, to);
    m_labels.reserve(Drawing::outlineOfLine(from, to, 1.0));
  }
}

void StationView::writeNames() {
  std::vector<Point> points;
  for (const ENHPoint& point : visiblePoints(m_survey)) {
    points.push_back(toPage(point));
    const Point& at = points.back();
    m_labels.reserve(Drawing::outlineOfBox(Box{at.x, at.y, at.x, at.y}.inset(-1.2)));
  }
  writeName(toPage(m_survey.placement.station()), "station", Style::kClothoid);
  if (m_survey.hasBoom()) writeName(toPage(m_survey.guidance.boom), "boom", kGuidance);
  if (m_survey.isGuided()) {
    writeName(toPage(m_survey.guided.front().line.front()), "vector", kGuidance);
  }
  for (const Measurement& stray : m_survey.identification.strays) {
    writeName(strayOnPage(stray), stray.id, kStray);
  }
  for (const Sighting& s : m_survey.identification.sightings) {
    writeName(toPage(s.fixPoint.grid), s.fixPoint.id, Style::kInk);
  }
  for (const Exchange::SurveyedPoint& fixPoint : m_survey.book.fixPoints) {
    const auto& seen = m_survey.identification.sightings;
    const bool isSeen = std::any_of(seen.begin(), seen.end(), [&fixPoint](const Sighting& s) {
      return s.fixPoint.id == fixPoint.id;
    });
    if (!isSeen) writeName(toPage(fixPoint.grid), fixPoint.id, Style::kGrey);
  }
}

/// Close to the point where there is room, else at the end of a leader; across rays only when
/// there is no other place.
void StationView::writeName(const Point& at, const std::string& name, const Colour& colour) {
  for (const bool mayCrossRays : {false, true}) {
    for (const double distance : {2.2, 3.5, 6.0, 9.0, 12.0, 16.0}) {
      std::vector<LabelPlace> places = placesAround(at, distance, colour);
      if (!mayCrossRays) {
        const auto crossesRay = [&](const LabelPlace& place) {
          return !m_rays.isFree(m_canvas.textOutline(place.at, name, place.style));
        };
        places.erase(std::remove_if(places.begin(), places.end(), crossesRay), places.end());
      }
      const bool isClose = distance < 4.0;
      const LabelPlace* found =
          isClose ? m_labels.place(m_canvas, name, places)
                  : m_labels.placeWithLeader(m_canvas, name, at, 1.6, {colour, 0.15, {}}, places);
      if (found != nullptr) return;
    }
  }
  ++m_leftOut;
}

}  // namespace FreeStation
