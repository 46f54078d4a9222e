// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/DevelopedMap.h"
#include "tunnel_survey/SectionTable.h"
#include "tunnel_survey/StationTable.h"
#include "tunnel_survey/SurveySheet.h"

#include "common/drawing/Furniture.h"
#include "common/drawing/LabelPlacer.h"
#include "common/drawing/NumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>

namespace TunnelSurvey {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::Colour;
using Drawing::ColourScale;
using Drawing::fixed;
using Drawing::LabelPlace;
using Drawing::LabelPlacer;
using Drawing::Pen;
using Drawing::Point;
using Drawing::Sheet;
using Drawing::signedFixed;
using Drawing::TextStyle;
using Drawing::WorldMapping;
namespace Style = Drawing::Style;

constexpr double kMapHeaderWidth = 24.0;
constexpr double kMapTopRoom = 13.0;
constexpr double kMapFootRoom = 32.0;  // stationings and the colour bar
constexpr double kCellSize = 0.25;     // mm

const Colour kUnmeasured{0.90, 0.91, 0.92};
const Pen kJointPen{Style::kInk, 0.18, {1.6, 1.0}};

/// Diverging: blue under the design, yellow to red over it, pale near zero.
constexpr std::array<Colour, 5> kOverRamp = {Colour{1.00, 0.96, 0.80}, Colour{0.99, 0.82, 0.49},
                                             Colour{0.96, 0.55, 0.27}, Colour{0.82, 0.20, 0.15},
                                             Colour{0.45, 0.02, 0.15}};
constexpr std::array<Colour, 5> kUnderRamp = {Colour{0.85, 0.93, 0.98}, Colour{0.60, 0.79, 0.92},
                                              Colour{0.33, 0.59, 0.83}, Colour{0.13, 0.37, 0.68},
                                              Colour{0.05, 0.16, 0.42}};

Colour onRamp(const std::array<Colour, 5>& ramp, double part) {
  const double place = std::clamp(part, 0.0, 1.0) * static_cast<double>(ramp.size() - 1);
  const auto i = std::min(static_cast<std::size_t>(place), ramp.size() - 2);
  const double share = place - static_cast<double>(i);
  const Colour& a = ramp.at(i);
  const Colour& b = ramp.at(i + 1);
  return {a.red + share * (b.red - a.red), a.green + share * (b.green - a.green),
          a.blue + share * (b.blue - a.blue)};
}

constexpr double kMostClasses = 14.0;

/// At least one; as many as there can be for what is no number.
int classesOf(double steps) {
  return steps < kMostClasses ? static_cast<int>(std::max(1.0, std::ceil(steps)))
                              : static_cast<int>(kMostClasses);
}

/// Classes of a round width from the lowest to the highest distance; zero is a limit.
ColourScale scaleOf(const SectionSurvey& survey) {
  constexpr int kFewestOfRamp = 3;  // a single class is not drawn as if it were extreme
  double lowest = 0.0;
  double highest = 0.0;
  for (const SectionResult& result : survey.results) {
    if (result.largestUnder) lowest = std::min(lowest, result.largestUnder->deviation.distance);
    if (result.largestOver) highest = std::max(highest, result.largestOver->deviation.distance);
  }
  const double smallest = std::max(highest - lowest, 1e-4) / kMostClasses;
  const double step = Drawing::niceStep(smallest);
  const int under = classesOf(-lowest / step);
  const int over = classesOf(highest / step);
  ColourScale scale;
  for (int i = -under; i <= over; ++i) {
    scale.limits.push_back(i * step);
  }
  for (int i = under - 1; i >= 0; --i) {
    scale.colours.push_back(onRamp(kUnderRamp, i / (std::max(under, kFewestOfRamp) - 1.0)));
  }
  for (int i = 0; i < over; ++i) {
    scale.colours.push_back(onRamp(kOverRamp, i / (std::max(over, kFewestOfRamp) - 1.0)));
  }
  return scale;
}

struct MapLayout {
  Box frame;
  WorldMapping mapping;       // position and derolment; the right side of the tunnel is below
  double stationScale = 0.0;  // 0 without stationings
  double derolmentScale = 0.0;
};

MapLayout layoutOf(const SectionSurvey& survey, const DevelopedMap& map, const Box& area) {
  const Box room{area.left + kMapHeaderWidth, area.top + kMapTopRoom, area.right - 4.0,
                 area.bottom - kMapFootRoom};
  const double from = map.positions().front();
  const double to = map.positions().back();
  const double length = std::max(to - from, 1.0);
  const double circumference = survey.design.circumference();
  const double derolmentScale = Drawing::largestUsualScale(room.height() / circumference);
  const double stationScale =
      survey.hasStations() ? Drawing::largestUsualScale(room.width() / length) : 0.0;
  const double perPosition = stationScale > 0.0 ? 1000.0 / stationScale : room.width() / length;
  const double perMetre = 1000.0 / derolmentScale;
  const double width = length * perPosition;
  const double left = room.centre().x - width / 2.0;
  const double height = circumference * perMetre;
  const double top = room.centre().y - height / 2.0;
  const Box frame{left, top, left + width, top + height};
  const Point middle{from + length / 2.0, 0.0};
  return {frame, WorldMapping::diagram(middle, frame.centre(), perPosition, -perMetre),
          stationScale, derolmentScale};
}

class DevelopedMapDrawing {
 public:
  DevelopedMapDrawing(Canvas& canvas, const SectionSurvey& survey, const DevelopedMap& map,
                      const MapLayout& layout, const ColourScale& scale)
      : m_canvas(canvas),
        m_survey(survey),
        m_map(map),
        m_layout(layout),
        m_frame(layout.frame),
        m_scale(scale),
        m_labels(layout.frame.inset(1.0)) {}

  void draw() {
    drawDistances();
    drawJoints();
    drawDerolments();
    drawSections();
    drawPositions();
    drawExtremes();
    m_canvas.rectangle(m_frame, {Style::kInk, 0.35, {}});
    drawColours();
  }

 private:
  Point toPage(double position, double derolment) const {
    return m_layout.mapping.toPage({position, derolment});
  }

  void drawDistances() {
    m_canvas.fill(m_frame, kUnmeasured);
    const auto cells = [](double size) {
      return static_cast<std::size_t>(std::max(1.0, std::round(size / kCellSize)));
    };
    const std::size_t columns = cells(m_frame.width());
    const std::size_t rows = cells(m_frame.height());
    std::vector<double> positions;
    std::vector<double> derolments;
    for (std::size_t i = 0; i < columns; ++i) {
      positions.push_back(worldOfCell(i, 0).x);
    }
    for (std::size_t i = 0; i < rows; ++i) {
      derolments.push_back(worldOfCell(0, i).y);
    }
    const auto distances = m_map.columnsAt(positions, derolments);
    Drawing::Raster raster;
    raster.columns = static_cast<int>(columns);
    raster.cells.reserve(columns * rows);
    for (std::size_t i = 0; i < columns * rows; ++i) {
      const double distance = distances[i % columns][i / columns];
      raster.cells.push_back(std::isnan(distance) ? std::nullopt
                                                  : std::optional(m_scale.colourOf(distance)));
    }
    m_canvas.raster(m_frame, raster);
  }

  Point worldOfCell(std::size_t column, std::size_t row) const {
    const Point shift{(static_cast<double>(column) + 0.5) * kCellSize,
                      (static_cast<double>(row) + 0.5) * kCellSize};
    return m_layout.mapping.toWorld(Point{m_frame.left, m_frame.top} + shift);
  }

  /// Where the elements of the design meet, so that walls and roof are told apart.
  void drawJoints() {
    for (const double derolment : m_survey.design.joints()) {
      const double y = toPage(0.0, derolment).y;
      m_canvas.line({m_frame.left, y}, {m_frame.right, y}, kJointPen);
    }
  }

  void drawDerolments() {
    constexpr double kSmallestSpacing = 9.0;
    const double half = m_survey.design.circumference() / 2.0;
    const double perMetre = 1000.0 / m_layout.derolmentScale;
    const double step = Drawing::niceStep(kSmallestSpacing / perMetre);
    const TextStyle number = Style::text(Style::kTextSize, Style::kInk, Align::End, Align::Middle);
    for (const double derolment : Drawing::multiplesWithin(-half, half, step)) {
      const double y = toPage(0.0, derolment).y;
      m_canvas.line({m_frame.left - 1.4, y}, {m_frame.left, y}, {Style::kInk, 0.2, {}});
      m_canvas.text({m_frame.left - 2.2, y}, signedFixed(derolment, step < 1.0 ? 1 : 0), number);
    }
    const Pen crown{Style::kInk, 0.25, {5.0, 1.0, 0.6, 1.0}};
    const double zero = toPage(0.0, 0.0).y;
    m_canvas.line({m_frame.left, zero}, {m_frame.right, zero}, crown);
    TextStyle words = Style::text(Style::kTextSize, Style::kGrey, Align::Middle, Align::Middle);
    words.angle = -std::acos(0.0);  // upwards
    const double x = m_frame.left - 14.5;
    m_canvas.text({x, zero}, "crown", words);
    m_canvas.text({x, toPage(0.0, -0.62 * half).y}, "left side", words);
    m_canvas.text({x, toPage(0.0, 0.62 * half).y}, "right side", words);
    const TextStyle title = Style::text(Style::kTextSize, Style::kInk, Align::End, Align::Middle);
    m_canvas.text({m_frame.left - 2.2, m_frame.top - 8.5}, "Derolment (m)", title);
  }

  /// A mark above the map for every section, and the names for which there is room.
  void drawSections() {
    const TextStyle style =
        Style::text(Style::kSmallTextSize, Style::kInk, Align::Middle, Align::End);
    double free = m_frame.left + 2.0;
    for (std::size_t i = 0; i < m_survey.results.size(); ++i) {
      const double x = toPage(m_map.positions()[i], 0.0).x;
      m_canvas.polygon(
          {{x, m_frame.top}, {x - 0.7, m_frame.top - 1.5}, {x + 0.7, m_frame.top - 1.5}},
          Style::kInk);
      const std::string& name = m_survey.results[i].section.name;
      const double half = m_canvas.textWidth(name, style) / 2.0;
      if (x - half < free && i > 0) continue;
      m_canvas.text({x, m_frame.top - 2.4}, name, style);
      free = x + half + 1.5;
    }
    const TextStyle title = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Middle);
    m_canvas.text({m_frame.left, m_frame.top - 8.5}, m_survey.noun + "s", title);
  }

  void drawPositions() {
    if (!m_survey.hasStations()) return;
    constexpr double kSmallestSpacing = 18.0;
    const double perMetre = 1000.0 / m_layout.stationScale;
    const double step = Drawing::niceStep(kSmallestSpacing / perMetre);
    const TextStyle style = Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::Start);
    for (const double station : roundStations(
             m_survey.stationing, {m_map.positions().front(), m_map.positions().back()}, step)) {
      const double x = toPage(station, 0.0).x;
      m_canvas.line({x, m_frame.bottom}, {x, m_frame.bottom + 1.4}, {Style::kInk, 0.2, {}});
      m_canvas.text({x, m_frame.bottom + 2.4}, m_survey.stationing.text(station, 0), style);
    }
  }

  void drawExtremes() {
    if (const SectionResult* over = largestOverOf(m_survey)) {
      drawExtreme(*over, *over->largestOver, "largest over ");
    }
    if (const SectionResult* under = largestUnderOf(m_survey)) {
      drawExtreme(*under, *under->largestUnder, "largest under ");
    }
  }

  void drawExtreme(const SectionResult& result, const Extreme& extreme, const std::string& kind) {
    const auto index = static_cast<std::size_t>(&result - m_survey.results.data());
    const Point at = toPage(m_map.positions()[index], extreme.deviation.derolment);
    m_canvas.circle(at, 1.1, {Style::kInk, 0.35, {}}, Style::kWhite);
    m_labels.reserve(Drawing::outlineOfBox(Box{at.x, at.y, at.x, at.y}.inset(-1.6)));
    std::vector<LabelPlace> places;
    for (const double up : {-9.0, 9.0, -14.0, 14.0, -20.0, 20.0}) {
      for (const double right : {9.0, -9.0, 14.0, -14.0}) {
        TextStyle style = Style::text(Style::kTextSize, Style::kInk,
                                      right > 0.0 ? Align::Start : Align::End, Align::Middle);
        style.bold = true;
        style.halo = true;
        places.push_back({at + Point{right, up}, style});
      }
    }
    m_labels.placeWithLeader(m_canvas, kind + fixed(std::abs(extreme.deviation.distance), 3) + " m",
                             at, 2.4, {Style::kInk, 0.25, {}}, places);
  }

  void drawColours() {
    constexpr double kWidth = 220.0;
    constexpr double kHeight = 5.0;
    const double middle = m_frame.centre().x;
    const double top = m_frame.bottom + 17.0;
    const Box bar{middle - kWidth / 2.0, top, middle + kWidth / 2.0, top + kHeight};
    const double step = m_scale.limits[1] - m_scale.limits[0];
    const int decimals = step < 0.01 ? 3 : 2;
    drawColourBar(m_canvas, bar, m_scale, decimals,
                  Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::Start));
    m_canvas.text({middle, bar.top - 1.4},
                  "Distance from the design (m): negative under, positive over",
                  Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::End));
  }

  Canvas& m_canvas;
  const SectionSurvey& m_survey;
  const DevelopedMap& m_map;
  const MapLayout& m_layout;
  Box m_frame;
  const ColourScale& m_scale;
  LabelPlacer m_labels;
};

std::vector<Drawing::LegendEntry> mapLegend(const SectionSurvey& survey) {
  const auto section = [](Canvas& canvas, const Box& box) {
    const Point at = box.centre();
    canvas.polygon({at + Point{0.0, 0.8}, at + Point{-0.7, -0.7}, at + Point{0.7, -0.7}},
                   Style::kInk);
  };
  const auto joint = [](Canvas& canvas, const Box& box) {
    canvas.line({box.left, box.centre().y}, {box.right, box.centre().y}, kJointPen);
  };
  const auto unmeasured = [](Canvas& canvas, const Box& box) {
    canvas.fill(box.inset(0.8), kUnmeasured);
  };
  const std::string noun = survey.noun == "Ring" ? "measured ring" : "measured section";
  return {{section, noun},
          {joint, "joint of the design profile"},
          {unmeasured, "not measured or left out"}};
}

}  // namespace

Sheet developedMapSheet(const SectionSurvey& survey) {
  Sheet sheet;
  const DevelopedMap map(survey);
  const MapLayout layout = layoutOf(survey, map, Drawing::drawingArea(sheet));
  const ColourScale scale = scaleOf(survey);
  const Sheet size = sheet;
  sheet.draw = [&survey, map, layout, scale, size](Canvas& canvas) {
    DevelopedMapDrawing(canvas, survey, map, layout, scale).draw();
    const std::string along =
        survey.hasStations()
            ? "Stationing " + Drawing::scaleText(layout.stationScale) + ", derolment "
            : "Derolment ";
    Drawing::drawTitleBlock(canvas, size,
                            {"Developed map of distances from the design",
                             {along + Drawing::scaleText(layout.derolmentScale) +
                                  " on A3; cut open along the bottom, seen from above",
                              "Design: " + survey.designSource + ", measured: " + survey.source},
                             mapLegend(survey),
                             survey.hasStations() ? 1000.0 / layout.stationScale : 0.0});
  };
  return sheet;
}

}  // namespace TunnelSurvey
