// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/PlanDrawing.h"

#include "tunnel_survey/StationTable.h"

#include "common/console/Progress.h"
#include "common/drawing/LabelPlacer.h"
#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>

namespace TunnelSurvey {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::fixed;
using Drawing::LabelPlace;
using Drawing::LabelPlacer;
using Drawing::Pen;
using Drawing::Point;
using Drawing::Sheet;
using Drawing::stationText;
using Drawing::TextStyle;
using Drawing::WorldMapping;
using Ruv::Calculations::AxisCalculator;
using Ruv::Calculations::AxisDefinition;
using Ruv::Calculations::AxisPoint;
using Ruv::Calculations::ENHPoint;
namespace Style = Drawing::Style;

constexpr double kFrameMargin = 5.5;     // for the coordinates outside the frame
constexpr double kContentMargin = 17.0;  // for labels between the axis and the frame
constexpr double kAxisWidth = 0.75;
constexpr double kBandWidth = 3.2;
constexpr double kSmallestLabelSpacing = 16.0;
constexpr double kGridSpacing = 35.0;
constexpr double kArrowSize = 13.0;

Point eastNorth(const ENHPoint& point) { return {point.east, point.north}; }

/// Places of the axis in plan.
class AxisPlan {
 public:
  explicit AxisPlan(const boost::shared_ptr<const AxisDefinition>& axis) : m_calculator(axis) {}

  Point at(double station, double offset = 0.0) const {
    ENHPoint grid;
    m_calculator.axisPointToEnhPointVertical(AxisPoint(station, offset, 0.0), grid);
    return eastNorth(grid);
  }

  std::vector<Point> between(const Exchange::StationRange& range, double step) const {
    std::vector<Point> points;
    for (const double station : Exchange::evenStations(range, step)) {
      points.push_back(at(station));
    }
    return points;
  }

 private:
  AxisCalculator m_calculator;
};

struct PlanStrip {
  Exchange::StationRange range;
  Box frame;
  double bearing = 0.0;  // to the right on the page
  WorldMapping mapping;
};

struct PlanLayout {
  double scale = 0.0;
  std::vector<PlanStrip> strips;

  double millimetresPerMetre() const { return 1000.0 / scale; }
};

std::vector<Box> frames(const Box& area, int count) {
  std::vector<Box> boxes;
  const double height = area.height() / count;
  for (int i = 0; i < count; ++i) {
    const double top = area.top + i * height;
    boxes.push_back(Box{area.left, top, area.right, top + height}.inset(kFrameMargin));
  }
  return boxes;
}

/// The strip in the middle of its frame; nothing when the scale is too large for it.
std::optional<PlanStrip> stripInFrame(const AxisPlan& plan, const Exchange::StationRange& range,
                                      const Box& frame, double scale) {
  constexpr double kSamples = 200.0;
  const std::vector<Point> points = plan.between(range, range.length() / kSamples);
  const Point chord = points.back() - points.front();
  const double bearing = std::atan2(chord.x, chord.y);
  const double perMetre = 1000.0 / scale;
  const WorldMapping turned = WorldMapping::map(points.front(), {}, perMetre, bearing);
  Box extent{0.0, 0.0, 0.0, 0.0};
  for (const Point& point : points) {
    const Point p = turned.toPage(point);
    extent = {std::min(extent.left, p.x), std::min(extent.top, p.y), std::max(extent.right, p.x),
              std::max(extent.bottom, p.y)};
  }
  const Box room = frame.inset(kContentMargin);
  if (!(extent.width() <= room.width() && extent.height() <= room.height())) return std::nullopt;
  const Point middle = turned.toWorld(extent.centre());
  return PlanStrip{range, frame, bearing,
                   WorldMapping::map(middle, frame.centre(), perMetre, bearing)};
}

std::optional<PlanLayout> layoutWith(const SurveyPicture& picture, const AxisPlan& plan,
                                     const Box& area, double scale, int stripCount) {
  PlanLayout layout;
  layout.scale = scale;
  const std::vector<Box> boxes = frames(area, stripCount);
  const std::vector<Exchange::StationRange> ranges = equalStrips(*picture.axis, stripCount);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const auto strip = stripInFrame(plan, ranges[i], boxes[i], scale);
    if (!strip) return std::nullopt;
    layout.strips.push_back(*strip);
  }
  return layout;
}

PlanLayout largestLayout(const SurveyPicture& picture, const AxisPlan& plan, const Box& area) {
  for (const double scale : Drawing::usualScales()) {
    for (int count = 1; count <= kMostStrips; ++count) {
      if (auto layout = layoutWith(picture, plan, area, scale, count)) return *layout;
    }
  }
  return {Drawing::usualScales().back(), {}};
}

/// Turned by half a turn where it would stand on its head.
double readable(double angle) {
  constexpr double kHalfTurn = 3.141592653589793;
  // Vertical text reads upwards.
  constexpr double kNearlyVertical = 0.02;
  return std::cos(angle) < -kNearlyVertical ||
                 (std::cos(angle) < kNearlyVertical && std::sin(angle) > 0)
             ? angle - kHalfTurn
             : angle;
}

double angleOf(const Point& direction) { return std::atan2(direction.y, direction.x); }

class PlanStripDrawing {
 public:
  PlanStripDrawing(Canvas& canvas, const SurveyPicture& picture, const PlanStrip& strip,
                   double metresPerMillimetre)
      : m_canvas(canvas),
        m_picture(picture),
        m_strip(strip),
        m_plan(picture.axis),
        m_metresPerMillimetre(metresPerMillimetre),
        m_labels(strip.frame.inset(1.0)) {}

  /// @param placed called for every point that is drawn
  void draw(const std::function<void()>& placed) {
    const TextStyle gridText =
        Style::text(Style::kSmallTextSize, Style::kGrey, Align::Middle, Align::Middle);
    drawCoordinateGrid(m_canvas, m_strip.mapping, m_strip.frame,
                       Drawing::niceStep(kGridSpacing * m_metresPerMillimetre), gridText);
    m_canvas.clipped(m_strip.frame, [this] {
      drawSections();
      drawNeighbours();
      drawElements();
    });
    drawMatchLines();
    drawNorth();
    drawCaption();
    labelAxisEnds();
    labelEquations();
    drawStationing();
    reservePoints();
    labelElements(Exchange::ElementKind::Arc);
    drawPoints(placed);
    labelElements(Exchange::ElementKind::Clothoid);
    m_canvas.rectangle(m_strip.frame, {Style::kInk, 0.35, {}});
  }

  std::size_t labelsLeftOut() const { return m_leftOut; }

 private:
  double sampleStep() const { return kSampleDistance * m_metresPerMillimetre; }

  Point toPage(const Point& world) const { return m_strip.mapping.toPage(world); }

  std::vector<Point> onPage(const Exchange::StationRange& range) const {
    std::vector<Point> points = m_plan.between(range, sampleStep());
    for (Point& point : points) {
      point = toPage(point);
    }
    return points;
  }

  /// Unit vectors of the page at a station.
  Point rightAt(double station) const {
    return Drawing::unit(toPage(m_plan.at(station, 1.0)) - toPage(m_plan.at(station)));
  }
  Point forwardAt(double station) const { return Drawing::rightOf(rightAt(station)) * -1.0; }

  /// What the next and the previous strip show, in grey.
  void drawNeighbours() {
    const Pen pen{Style::kLightGrey, kAxisWidth, {}};
    const Exchange::StationRange all = Exchange::rangeOf(*m_picture.axis);
    if (all.from < m_strip.range.from) {
      m_canvas.polyline(onPage({all.from, m_strip.range.from}), pen);
    }
    if (m_strip.range.to < all.to) m_canvas.polyline(onPage({m_strip.range.to, all.to}), pen);
  }

  /// A band below the axis where the tunnel is compared with its design.
  void drawSections() {
    if (!m_picture.sections) return;
    const double reach = 0.5 * m_metresPerMillimetre;  // so that a single section is seen
    const Exchange::StationRange part{
        std::max(m_picture.sections->from - reach, m_strip.range.from),
        std::min(m_picture.sections->to + reach, m_strip.range.to)};
    if (part.from < part.to) m_canvas.polyline(onPage(part), {Style::kSections, kBandWidth, {}});
  }

  std::vector<AxisElement> visibleElements() const {
    return elementsWithin(*m_picture.axis, m_strip.range);
  }

  void drawElements() {
    for (const AxisElement& element : visibleElements()) {
      const std::vector<Point> line = onPage({element.from, element.to});
      m_canvas.polyline(line, {colourOf(element.kind), kAxisWidth, {}});
      m_labels.reserve(line, 2.0);
      drawElementEnd(element.to);
    }
  }

  void drawElementEnd(double station) {
    constexpr double kHalfLength = 1.1;
    const Point at = toPage(m_plan.at(station));
    const Point side = rightAt(station) * kHalfLength;
    m_canvas.line(at - side, at + side, {Style::kInk, 0.2, {}});
  }

  void drawMatchLines() {
    const Exchange::StationRange all = Exchange::rangeOf(*m_picture.axis);
    if (all.from < m_strip.range.from) drawMatchLine(m_strip.range.from, -1.0);
    if (m_strip.range.to < all.to) drawMatchLine(m_strip.range.to, 1.0);
  }

  void drawMatchLine(double station, double outward) {
    constexpr double kHalfLength = 20.0;
    const Point at = toPage(m_plan.at(station));
    const Point side = rightAt(station) * kHalfLength;
    m_canvas.line(at - side, at + side, {Style::kGrey, 0.3, {3.0, 1.0, 0.6, 1.0}});
    m_labels.reserve(Drawing::outlineOfLine(at - side, at + side, 1.0));
    TextStyle style =
        Style::text(Style::kSmallTextSize, Style::kGrey, Align::Middle, Align::Middle);
    style.angle = readable(angleOf(side));
    const Point beside = at + side * 0.6 + forwardAt(station) * (outward * 3.0);
    m_labels.place(m_canvas, "match " + m_picture.stationing.text(station, 0), {{beside, style}});
  }

  /// In the first corner of the frame that is free.
  void drawNorth() {
    const Box corners = m_strip.frame.inset(1.1 * kArrowSize);
    const Point north = toPage({0.0, 1.0 * m_metresPerMillimetre}) - toPage({0.0, 0.0});
    for (const Point& centre :
         {Point{corners.right, corners.top}, Point{corners.right, corners.bottom},
          Point{corners.left, corners.bottom}, Point{corners.left, corners.top}}) {
      const double reach = 0.9 * kArrowSize;
      const auto outline = Drawing::outlineOfBox(
          {centre.x - reach, centre.y - reach, centre.x + reach, centre.y + reach});
      if (!m_labels.isFree(outline)) continue;
      drawNorthArrow(m_canvas, centre, north, kArrowSize,
                     Style::text(4.0, Style::kInk, Align::Middle, Align::Middle));
      m_labels.reserve(outline);
      return;
    }
  }

  void drawCaption() {
    TextStyle style = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Start);
    style.bold = true;
    const Box box = m_strip.frame.inset(3.0);
    const std::string words = "Stationing " + m_picture.stationing.text(m_strip.range.from, 3) +
                              " to " + m_picture.stationing.text(m_strip.range.to, 3);
    TextStyle lower = style;
    lower.vertical = Align::End;
    m_labels.place(m_canvas, words,
                   {{{box.left, box.top}, style}, {{box.left, box.bottom}, lower}});
  }

  /// Ticks and labels to the left of the axis; every fifth label is bold.
  void drawStationing() {
    constexpr double kBoldEvery = 5.0;
    constexpr double kPartsOfLabelStep = 5.0;
    const double step = Drawing::niceStep(kSmallestLabelSpacing * m_metresPerMillimetre);
    for (const double station : multiples(step / kPartsOfLabelStep)) {
      drawTick(station, 1.2);
    }
    for (const double station : multiples(step)) {
      const bool isBold = std::abs(std::remainder(m_picture.stationing.stationAt(station),
                                                  kBoldEvery * step)) < step / 2.0;
      drawTick(station, isBold ? 4.0 : 2.6);
      if (!isAtAxisEnd(station))
        labelStation(station, m_picture.stationing.text(station, 0), isBold);
    }
  }

  bool isAtAxisEnd(double station) const {
    constexpr double kReach = 3.0;  // on the page
    const Exchange::StationRange all = Exchange::rangeOf(*m_picture.axis);
    return std::min(station - all.from, all.to - station) < kReach * m_metresPerMillimetre;
  }

  void labelAxisEnds() {
    for (const double end : {m_strip.range.from, m_strip.range.to}) {
      if (!isAtAxisEnd(end)) continue;
      drawTick(end, 4.0);
      labelStation(end, m_picture.stationing.text(end, 3), true);
    }
  }

  /// "0+876.272 = 5+350.000 ahead"
  void labelEquations() {
    for (const Exchange::StationEquation& equation : m_picture.stationing.equations()) {
      if (equation.place < m_strip.range.from || equation.place > m_strip.range.to) continue;
      drawTick(equation.place, 4.0);
      labelStation(equation.place,
                   m_picture.stationing.text(equation.place, 3) + " = " +
                       stationText(equation.ahead, 3) + " ahead",
                   true);
    }
  }

  std::vector<double> multiples(double step) const {
    return roundStations(m_picture.stationing, m_strip.range, step);
  }

  void drawTick(double station, double size) {
    const Point at = toPage(m_plan.at(station));
    const Point end = at - rightAt(station) * size;
    m_canvas.line(at, end, {Style::kInk, 0.2, {}});
    m_labels.reserve(Drawing::outlineOfLine(at, end, 0.4));
  }

  void labelStation(double station, const std::string& words, bool isBold) {
    std::vector<LabelPlace> places;
    for (const double side : {-1.0, 1.0}) {
      const Point outward = rightAt(station) * side;
      TextStyle style = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Middle);
      style.bold = isBold;
      style.halo = true;
      style.angle = readable(angleOf(outward));
      const bool isTurned = std::abs(style.angle - angleOf(outward)) > 1.0;
      if (isTurned) style.horizontal = Align::End;
      places.push_back({toPage(m_plan.at(station)) + outward * 5.0, style});
    }
    place(words, places);
  }

  void place(const std::string& words, const std::vector<LabelPlace>& places) {
    if (m_labels.place(m_canvas, words, places) == nullptr) ++m_leftOut;
  }

  void reservePoints() {
    for (const auto* points : {&m_picture.points, &m_picture.setOut}) {
      for (const Exchange::ConvertedPoint& point : *points) {
        if (!isVisible(point)) continue;
        const Point at = toPage(eastNorth(point.grid));
        m_labels.reserve(Drawing::outlineOfBox(Box{at.x, at.y, at.x, at.y}.inset(-0.8)));
      }
    }
  }

  void drawPoints(const std::function<void()>& placed) {
    for (const Exchange::ConvertedPoint& point : m_picture.setOut) {
      if (!isVisible(point)) continue;
      labelPoint(point, Style::kSetOut);
      Style::setOutPoint(m_canvas, toPage(eastNorth(point.grid)));
      placed();
    }
    for (const Exchange::ConvertedPoint& point : m_picture.points) {
      if (!isVisible(point)) continue;
      labelPoint(point, Style::kSurveyed);
      Style::surveyedPoint(m_canvas, toPage(eastNorth(point.grid)));
      placed();
    }
  }

  bool isVisible(const Exchange::ConvertedPoint& point) const {
    const double station = point.onAxis.stationing;
    return station >= m_strip.range.from && station <= m_strip.range.to &&
           m_strip.frame.contains(toPage(eastNorth(point.grid)));
  }

  void labelPoint(const Exchange::ConvertedPoint& point, const Drawing::Colour& colour) {
    const Point at = toPage(eastNorth(point.grid));
    const Point right = rightAt(point.onAxis.stationing);
    const Point forward = forwardAt(point.onAxis.stationing);
    std::vector<LabelPlace> places;
    for (const double distance : {7.0, 11.0, 15.0, 19.0, -16.0, -20.0, 23.0, -24.0}) {
      for (const double shift : {0.0, 3.0, -3.0, 6.0, -6.0, 9.0, -9.0, 12.0, -12.0, 15.0, -15.0}) {
        const Point target = at + right * distance + forward * shift;
        const Align vertical = target.y > at.y ? Align::Start : Align::End;
        TextStyle style = Style::text(Style::kSmallTextSize, colour, Align::Middle, vertical);
        style.halo = true;
        places.push_back({target, style});
      }
    }
    // In a crowd leaders may cross near their points rather than a point lose its label.
    const auto placeBeyond = [&](double clearance) {
      return m_labels.placeWithLeader(m_canvas, point.id, at, clearance, {colour, 0.15, {}},
                                      places) != nullptr;
    };
    if (!placeBeyond(2.6) && !placeBeyond(4.0)) ++m_leftOut;
  }

  void labelElements(Exchange::ElementKind kind) {
    for (const AxisElement& element : visibleElements()) {
      if (element.kind == kind) labelElement(element);
    }
  }

  /// Radius of an arc, parameter A of a clothoid.
  static std::string labelOf(const AxisElement& element) {
    const double change = element.curvatureTo - element.curvatureFrom;
    if (element.kind == Exchange::ElementKind::Arc) {
      return "R " + Drawing::radiusText(std::abs(1.0 / element.curvatureFrom));
    }
    return "A " + fixed(std::sqrt(std::abs((element.to - element.from) / change)), 1);
  }

  void labelElement(const AxisElement& element) {
    TextStyle style =
        Style::text(Style::kSmallTextSize, colourOf(element.kind), Align::Middle, Align::Middle);
    style.halo = true;
    std::vector<LabelPlace> places;
    for (const double distance : {3.4, -3.4, 6.4, -6.4}) {
      for (const double part : {0.5, 0.3, 0.7, 0.1, 0.9}) {
        const double station = element.from + part * (element.to - element.from);
        style.angle = readable(angleOf(forwardAt(station)));
        places.push_back({toPage(m_plan.at(station)) + rightAt(station) * distance, style});
      }
    }
    place(labelOf(element), places);
  }

  Canvas& m_canvas;
  const SurveyPicture& m_picture;
  const PlanStrip& m_strip;
  AxisPlan m_plan;
  double m_metresPerMillimetre;
  LabelPlacer m_labels;
  std::size_t m_leftOut = 0;
};

std::vector<Drawing::LegendEntry> planLegend(const SurveyPicture& picture) {
  const auto lineSample = [](const Drawing::Colour& colour, double width = kAxisWidth) {
    return [colour, width](Canvas& canvas, const Box& box) {
      canvas.line({box.left, box.centre().y}, {box.right, box.centre().y}, {colour, width, {}});
    };
  };
  const auto endSample = [](Canvas& canvas, const Box& box) {
    const Point at = box.centre();
    canvas.line({box.left, at.y}, {at.x, at.y}, {Style::kClothoid, kAxisWidth, {}});
    canvas.line({at.x, at.y}, {box.right, at.y}, {Style::kArc, kAxisWidth, {}});
    canvas.line(at - Point{0.0, 1.1}, at + Point{0.0, 1.1}, {Style::kInk, 0.2, {}});
  };
  const auto pointSample = [](Canvas& canvas, const Box& box) {
    Style::surveyedPoint(canvas, box.centre());
  };
  const auto setOutSample = [](Canvas& canvas, const Box& box) {
    Style::setOutPoint(canvas, box.centre());
  };
  std::vector<Drawing::LegendEntry> entries = {
      {lineSample(Style::kStraight), "straight"},
      {lineSample(Style::kArc), "arc, radius R in m"},
      {lineSample(Style::kClothoid), "clothoid, parameter A in m"},
      {endSample, "change of element"}};
  if (!picture.points.empty()) entries.push_back({pointSample, "surveyed point"});
  if (!picture.setOut.empty()) entries.push_back({setOutSample, "point to be set out"});
  if (picture.sections) {
    entries.push_back({lineSample(Style::kSections, kBandWidth), "compared cross-sections"});
  }
  return entries;
}

}  // namespace

Sheet planSheet(const SurveyPicture& picture) {
  Sheet sheet;
  const AxisPlan plan(picture.axis);
  const PlanLayout layout = largestLayout(picture, plan, Drawing::drawingArea(sheet));
  const Sheet size = sheet;
  sheet.draw = [picture, layout, size](Canvas& canvas) {
    Console::Progress progress("Labelling the plan", picture.points.size() + picture.setOut.size());
    std::size_t leftOut = 0;
    for (const PlanStrip& strip : layout.strips) {
      PlanStripDrawing drawing(canvas, picture, strip, 1.0 / layout.millimetresPerMetre());
      drawing.draw([&progress] { progress.advance(); });
      leftOut += drawing.labelsLeftOut();
    }
    Drawing::drawTitleBlock(
        canvas, size,
        {"Plan of axis " + picture.name,
         {"Scale " + Drawing::scaleText(layout.scale) + " on A3; coordinates in m",
          "Source: " + picture.source},
         planLegend(picture),
         layout.millimetresPerMetre(),
         leftOut});
  };
  return sheet;
}

}  // namespace TunnelSurvey
