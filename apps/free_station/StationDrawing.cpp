// SPDX-License-Identifier: BSL-1.0
#include "free_station/StationDrawing.h"

#include "free_station/Report.h"
#include "free_station/StationView.h"

#include "common/drawing/Furniture.h"
#include "common/drawing/NumberText.h"
#include "common/drawing/SheetStyle.h"
#include "common/exchange/StationRange.h"

#include <algorithm>
#include <cmath>

namespace FreeStation {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::fixed;
using Drawing::Point;
using Drawing::Sheet;
using Drawing::signedFixed;
using Drawing::WorldMapping;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
using Ruv::Calculations::StationPlacement;
using Ruv::Calculations::Utilities;
namespace Style = Drawing::Style;

constexpr double kFrameMargin = 6.0;     // for what is written outside a frame
constexpr double kContentMargin = 14.0;  // for names and residuals
constexpr double kResidualBar = 10.0;    // length of the residual in the legend (mm)

struct Layout {
  ViewPort plan;
  ViewPort section;
  Box table;
  double scale = 1.0;     ///< denominator, of both views
  double residual = 1.0;  ///< the one in the legend (m)
};

/// The box around points.
Box extentOf(const std::vector<Point>& points) {
  Box extent{points[0].x, points[0].y, points[0].x, points[0].y};
  for (const Point& p : points) {
    extent = {std::min(extent.left, p.x), std::min(extent.top, p.y), std::max(extent.right, p.x),
              std::max(extent.bottom, p.y)};
  }
  return extent;
}

std::vector<Point> seenThrough(const Projection& projection, const WorldMapping& mapping,
                               const std::vector<ENHPoint>& points) {
  std::vector<Point> seen;
  seen.reserve(points.size());
  for (const ENHPoint& point : points) {
    seen.push_back(mapping.toPage(projection.point(point)));
  }
  return seen;
}

/// A residual of this length is drawn kResidualBar long: the largest one is then no longer than
/// one and a half of it.
double residualOfLegend(const Survey& survey) {
  constexpr double kSmallest = 1e-4;
  double largest = kSmallest;
  for (const ENHPoint& residual : survey.residuals) {
    largest = std::max(largest, residual.length());
  }
  return Drawing::niceStep(largest / 1.5);
}

/// How many millimetres of the page a metre may have.
double millimetresThatFit(const Box& frame, const Box& extentInMetres) {
  const Box room = frame.inset(kContentMargin);
  return std::min(room.width() / extentInMetres.width(), room.height() / extentInMetres.height());
}

Layout layoutOf(const Survey& survey, const Sheet& sheet) {
  const Box area = Drawing::drawingArea(sheet).inset(kFrameMargin);
  const double middle = area.top + 0.46 * area.height();
  const Box planFrame{area.left, area.top, area.right, middle - kFrameMargin};
  const Box lower{area.left, middle + kFrameMargin, area.right, area.bottom};
  const Box sectionFrame{lower.left, lower.top, lower.left + 1.15 * lower.height(), lower.bottom};

  const std::vector<ENHPoint> points = visiblePoints(survey);
  const double east = survey.placement.station().east;
  const double north = survey.placement.station().north;
  const Projection plan = planProjection();
  const Projection section = sectionProjection(survey);
  constexpr double kQuarterTurn = 1.5707963267948966;
  const double bearing = survey.axisAzimuth;
  const auto planMapping = [&](const Point& world, const Point& page, double perMetre) {
    return WorldMapping::map(world, page, perMetre, bearing);
  };
  const WorldMapping planInMetres = planMapping({east, north}, {}, 1.0);
  const WorldMapping sectionInMetres = WorldMapping::map({}, {}, 1.0, kQuarterTurn);
  const Box planExtent = extentOf(seenThrough(plan, planInMetres, points));
  const Box sectionExtent = extentOf(seenThrough(section, sectionInMetres, points));
  const double scale = Drawing::largestUsualScale(std::min(
      millimetresThatFit(planFrame, planExtent), millimetresThatFit(sectionFrame, sectionExtent)));
  const double perMetre = 1000.0 / scale;
  const double residual = residualOfLegend(survey);
  const double perResidual = kResidualBar / residual;
  return {
      {plan, planMapping(planInMetres.toWorld(planExtent.centre()), planFrame.centre(), perMetre),
       planFrame, perResidual},
      {section,
       WorldMapping::map(sectionInMetres.toWorld(sectionExtent.centre()), sectionFrame.centre(),
                         perMetre, kQuarterTurn),
       sectionFrame, perResidual},
      {sectionFrame.right + 12.0, lower.top, lower.right, lower.bottom},
      scale,
      residual};
}

void writeCaption(Canvas& canvas, const Box& frame, const std::string& words) {
  auto style = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Start);
  style.bold = true;
  style.halo = true;
  canvas.text({frame.left + 3.0, frame.top + 3.0}, words, style);
}

/// The axis with a tick at each metre and the stationing at every fifth.
void drawAxis(Canvas& canvas, const Survey& survey, const ViewPort& port,
              Drawing::LabelPlacer& labels) {
  constexpr double kReach = 50.0;  // beyond the station (m), more than the frame shows
  constexpr int kLabelEvery = 5;
  const AxisCalculator calculator(survey.guidance.axis);
  const auto at = [&](double station, double offset) {
    ENHPoint point;
    calculator.axisPointToEnhPointVertical(AxisPoint(station, offset, 0.0), point);
    return port.mapping.toPage(port.projection.point(point));
  };
  const auto& axis = *survey.guidance.axis;
  const double from = std::max(survey.stationOnAxis.stationing - kReach, axis.minimumStng2d());
  const double to = std::min(survey.stationOnAxis.stationing + kReach, axis.maximumStng2d());
  std::vector<Point> line;
  for (const double station : Exchange::evenStations({from, to}, 0.2)) {
    line.push_back(at(station, 0.0));
  }
  canvas.polyline(line, {Style::kGrey, 0.3, {6.0, 1.2, 1.2, 1.2}});
  labels.reserve(line, 0.6);
  for (const double station : Drawing::multiplesWithin(from, to, 1.0)) {
    const Point foot = at(station, 0.0);
    const Point right = Drawing::unit(at(station, 1.0) - foot);
    const bool isLabelled = std::remainder(station, kLabelEvery) == 0.0;
    const Point end = foot - right * (isLabelled ? 2.2 : 1.2);
    canvas.line(foot, end, {Style::kGrey, 0.25, {}});
    if (!isLabelled || !port.frame.inset(10.0).contains(foot)) continue;
    auto style = Style::text(Style::kSmallTextSize, Style::kGrey, Align::Middle, Align::End);
    style.halo = true;
    labels.place(canvas, survey.stationing.text(station, 0), {{foot - right * 3.0, style}});
  }
}

/// @return how many labels found no room
std::size_t drawPlan(Canvas& canvas, const Survey& survey, const Layout& layout) {
  const ViewPort& port = layout.plan;
  const double metresPerMillimetre = layout.scale / 1000.0;
  constexpr double kGridSpacing = 50.0;  // at least, on the page
  drawCoordinateGrid(
      canvas, port.mapping, port.frame, Drawing::niceStep(kGridSpacing * metresPerMillimetre),
      Style::text(Style::kSmallTextSize, Style::kGrey, Align::Middle, Align::Middle));
  StationView view(canvas, survey, port);
  canvas.clipped(port.frame, [&] {
    if (survey.hasAxis()) drawAxis(canvas, survey, port, view.labels());
  });
  view.drawErrorEllipse();
  view.draw();
  writeCaption(canvas, port.frame, "Plan");
  constexpr double kArrowSize = 9.0;
  const Point north = port.mapping.toPage({0.0, 1.0}) - port.mapping.toPage({0.0, 0.0});
  drawNorthArrow(canvas, {port.frame.right - 10.0, port.frame.top + 10.0}, north, kArrowSize,
                 Style::text(4.0, Style::kInk, Align::Middle, Align::Middle));
  canvas.rectangle(port.frame, {Style::kInk, 0.35, {}});
  return view.labelsLeftOut();
}

/// Offsets and heights at round values.
void drawSectionGrid(Canvas& canvas, const ViewPort& port, double step) {
  const Box& frame = port.frame;
  const Point low = port.mapping.toWorld({frame.left, frame.bottom});
  const Point high = port.mapping.toWorld({frame.right, frame.top});
  const auto style = Style::text(Style::kSmallTextSize, Style::kGrey, Align::Middle, Align::Start);
  for (const double offset : Drawing::multiplesWithin(low.x, high.x, step)) {
    const double x = port.mapping.toPage({offset, 0.0}).x;
    canvas.line({x, frame.top}, {x, frame.bottom}, {Style::kLightGrey, 0.15, {}});
    canvas.text({x, frame.bottom + 1.5}, signedFixed(offset, 0), style);
  }
  auto sideStyle = style;
  sideStyle.horizontal = Align::Start;
  sideStyle.vertical = Align::Middle;
  for (const double height : Drawing::multiplesWithin(low.y, high.y, step)) {
    const double y = port.mapping.toPage({0.0, height}).y;
    canvas.line({frame.left, y}, {frame.right, y}, {Style::kLightGrey, 0.15, {}});
    canvas.text({frame.right + 1.5, y}, signedFixed(height, 0), sideStyle);
  }
}

void drawAxisCross(Canvas& canvas, const ViewPort& port, Drawing::LabelPlacer& labels) {
  constexpr double kArm = 2.5;
  const Point axis = port.mapping.toPage({0.0, 0.0});
  if (!port.frame.inset(kArm).contains(axis)) return;
  labels.place(canvas, "axis",
               {{axis + Point{1.2, -1.2},
                 Style::text(Style::kSmallTextSize, Style::kGrey, Align::Start, Align::End)}});
  for (const Point& arm : {Point{kArm, 0.0}, Point{0.0, kArm}}) {
    canvas.line(axis - arm, axis + arm, {Style::kGrey, 0.4, {}});
    labels.reserve(Drawing::outlineOfLine(axis - arm, axis + arm, 0.6));
  }
}

std::size_t drawSection(Canvas& canvas, const Survey& survey, const Layout& layout) {
  const ViewPort& port = layout.section;
  constexpr double kGridSpacing = 15.0;
  drawSectionGrid(canvas, port,
                  std::max(1.0, Drawing::niceStep(kGridSpacing * layout.scale / 1000.0)));
  StationView view(canvas, survey, port);
  if (survey.hasAxis()) drawAxisCross(canvas, port, view.labels());
  view.draw();
  writeCaption(canvas, port.frame,
               survey.hasAxis() ? "Looking forward at the station: offset, height above axis (m)"
                                : "Looking at the fix points: right of and above the station (m)");
  canvas.rectangle(port.frame, {Style::kInk, 0.35, {}});
  return view.labelsLeftOut();
}

/// Writes rows of cells; the columns end at the given places, but for the first, which begins
/// there.
class CellWriter {
 public:
  CellWriter(Canvas& canvas, const Point& start, std::vector<double> columns)
      : m_canvas(canvas), m_at(start), m_columns(std::move(columns)) {}

  void write(const std::vector<std::string>& cells, bool isBold = false) {
    constexpr double kRowHeight = 4.7;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      auto style = Style::text(Style::kTextSize, Style::kInk, i == 0 ? Align::Start : Align::End,
                               Align::Start);
      style.bold = isBold;
      m_canvas.text(m_at + Point{m_columns[i], 0.0}, cells[i], style);
    }
    m_at.y += kRowHeight;
  }

  double top() const { return m_at.y; }

 private:
  Canvas& m_canvas;
  Point m_at;
  std::vector<double> m_columns;
};

void writeResiduals(Canvas& canvas, const Survey& survey, const Box& box) {
  CellWriter rows(canvas, {box.left, box.top}, {0.0, 36.0, 54.0, 72.0, 90.0});
  rows.write({"Residuals (mm)", "east", "north", "height", "in space"}, true);
  const std::size_t count = survey.residuals.size();
  for (std::size_t i = 0; i < count; ++i) {
    constexpr double kRoomForTwoRows = 10.0;
    if (rows.top() > box.bottom - kRoomForTwoRows) {
      rows.write({"and " + std::to_string(count - i) + " more"});
      return;
    }
    const ENHPoint r = survey.residuals[i] * 1000.0;
    const std::string mark = survey.reliability.outlier == i ? " (outlier)" : "";
    rows.write({survey.identification.sightings[i].fixPoint.id + mark, signedFixed(r.east, 1),
                signedFixed(r.north, 1), signedFixed(r.height, 1), fixed(r.length(), 1)});
  }
  rows.write(
      {"standard deviation of one coordinate " + fixed(sigma0Of(survey.residuals) * 1000.0, 1)});
}

void writeStation(Canvas& canvas, const Survey& survey, const Box& box) {
  const StationPlacement& s = survey.placement;
  const auto gon = [](double radians) { return fixed(Utilities::rad2gon(radians), 4) + " gon"; };
  const auto plusMinus = [](double value, int decimals, const std::string& unit) {
    return "\u00b1" + fixed(value, decimals) + " " + unit;
  };
  CellWriter rows(canvas, {box.left, box.top}, {0.0, 62.0, 84.0});
  rows.write({"Station"}, true);
  rows.write({"east", fixed(s.station().east, 4) + " m",
              plusMinus(s.stationStdDev().east * 1000.0, 1, "mm")});
  rows.write({"north", fixed(s.station().north, 4) + " m",
              plusMinus(s.stationStdDev().north * 1000.0, 1, "mm")});
  rows.write({"height", fixed(s.station().height, 4) + " m",
              plusMinus(s.stationStdDev().height * 1000.0, 1, "mm")});
  rows.write({"orientation", gon(s.orientation()),
              plusMinus(Utilities::rad2gon(s.orientationStdDev()) * 1000.0, 1, "mgon")});
  rows.write({"scale \u2212 1", scaleInMillionths(s.scale()) + " ppm",
              plusMinus(s.scaleStdDev() * 1e6, 0, "ppm")});
  rows.write({"tilt forward", gon(-s.tiltAboutEast())});
  rows.write({"tilt right", gon(s.tiltAboutNorth())});
  if (survey.hasAxis()) {
    rows.write({"stationing", survey.stationing.text(survey.stationOnAxis.stationing, 3)});
    rows.write({"offset", signedFixed(survey.stationOnAxis.offset, 3) + " m"});
    rows.write({"above the axis", signedFixed(survey.stationOnAxis.height, 3) + " m"});
  }
  if (!survey.isGuided()) return;
  rows.write({});
  rows.write({"Boom from the vector"}, true);
  for (const GuidanceResult& g : survey.guided) {
    rows.write({g.vector});
    rows.write({"   forward", signedFixed(g.offsets.forward, 3) + " m"});
    rows.write({"   right", signedFixed(g.offsets.horizontal, 3) + " m"});
    rows.write({"   up", signedFixed(g.offsets.vertical, 3) + " m"});
  }
}

std::vector<Drawing::LegendEntry> legend(const Survey& survey, double residual) {
  const auto centred = [](void (*symbol)(Canvas&, const Point&)) {
    return [symbol](Canvas& canvas, const Box& box) { symbol(canvas, box.centre()); };
  };
  const auto lineOf = [](const Drawing::Pen& pen) {
    return [pen](Canvas& canvas, const Box& box) {
      canvas.line({box.left, box.centre().y}, {box.right, box.centre().y}, pen);
    };
  };
  const auto residualSample = [](Canvas& canvas, const Box& box) {
    const Point half{kResidualBar / 2.0, 0.0};
    Symbol::residual(canvas, box.centre() - half, box.centre() + half);
  };
  std::vector<Drawing::LegendEntry> entries = {
      {centred(Symbol::station), "station"},
      {centred(Symbol::fixPoint), "fix point, measured"},
      {centred(Symbol::unseenFixPoint), "fix point, not measured"},
      {centred(Symbol::stray), "measurement of no fix point"},
      {residualSample, "residual of " + fixed(residual * 1000.0, residual < 1e-3 ? 1 : 0) + " mm"},
      {lineOf(Symbol::errorEllipse()), "error ellipse, enlarged alike"}};
  if (survey.hasBoom()) entries.push_back({centred(Symbol::boom), "boom point"});
  if (survey.isGuided()) {
    entries.push_back({centred(Symbol::pointAhead), fixed(survey.guidance.ahead, 1) + " m ahead"});
    entries.push_back({lineOf(Symbol::guidance(0)), "vector along the axis"});
    entries.push_back({lineOf(Symbol::guidance(1)), "straight vector"});
  }
  return entries;
}

}  // namespace

Sheet stationSheet(const Survey& survey) {
  Sheet sheet;
  const Layout layout = layoutOf(survey, sheet);
  const Sheet size = sheet;
  sheet.draw = [survey, layout, size](Canvas& canvas) {
    const std::size_t leftOut =
        drawPlan(canvas, survey, layout) + drawSection(canvas, survey, layout);
    Box left = layout.table;
    writeResiduals(canvas, survey, left);
    left.left += 115.0;
    writeStation(canvas, survey, left);
    const double exaggeration = kResidualBar / 1000.0 / layout.residual * layout.scale;
    Drawing::drawTitleBlock(
        canvas, size,
        {survey.hasAxis() ? "Free station beside axis " + survey.axisName : "Free station",
         {"Scale " + Drawing::scaleText(layout.scale) + " on A3; coordinates in m",
          "Residuals " + Drawing::grouped(exaggeration) + " times exaggerated"},
         legend(survey, layout.residual),
         1000.0 / layout.scale,
         leftOut});
  };
  return sheet;
}

}  // namespace FreeStation
