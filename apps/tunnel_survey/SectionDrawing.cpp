// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SectionDrawing.h"

#include "tunnel_survey/GradeLine.h"
#include "tunnel_survey/StationTable.h"

#include "common/drawing/LabelPlacer.h"
#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace TunnelSurvey {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::Colour;
using Drawing::fixed;
using Drawing::LabelPlace;
using Drawing::LabelPlacer;
using Drawing::Pen;
using Drawing::Point;
using Drawing::Sheet;
using Drawing::TextStyle;
using Drawing::WorldMapping;
namespace Style = Drawing::Style;

constexpr double kHeaderWidth = 27.0;  // names of the bands and the height axis
constexpr double kStationBandHeight = 6.0;
constexpr double kHeightBandHeight = 6.0;
constexpr double kCurvatureBandHeight = 21.0;
constexpr double kStripGap = 5.0;
constexpr double kLabelRoom = 17.0;  // above the heights, for the points of intersection
constexpr double kDiagramFootRoom = 6.0;
constexpr double kDiagramSideRoom = 5.0;
constexpr double kGradeLineWidth = 0.75;
constexpr double kSmallestStationSpacing = 16.0;
constexpr double kSmallestHeightSpacing = 6.0;

const Colour kTangent = Style::kGrey;
const Colour kRounding = Style::kClothoid;

struct SectionStrip {
  Exchange::StationRange range;
  Box diagram;
  double lowest = 0.0;
  double highest = 0.0;
  WorldMapping mapping;
};

struct SectionLayout {
  double scale = 0.0;
  double exaggeration = 0.0;
  std::vector<SectionStrip> strips;

  double millimetresPerMetre() const { return 1000.0 / scale; }
};

std::vector<Box> diagrams(const Box& area, int count) {
  constexpr double kBands = kStationBandHeight + kHeightBandHeight + kCurvatureBandHeight;
  std::vector<Box> boxes;
  const double height = (area.height() - kStripGap * (count - 1)) / count;
  for (int i = 0; i < count; ++i) {
    const double top = area.top + i * (height + kStripGap);
    boxes.push_back({area.left + kHeaderWidth, top, area.right, top + height - kBands});
  }
  return boxes;
}

/// Nothing when the scale is too large for the strip.
std::optional<SectionStrip> stripInDiagram(const SurveyPicture& picture,
                                           const Exchange::StationRange& range, const Box& diagram,
                                           double scale, double exaggeration) {
  constexpr double kSamples = 400.0;
  const std::vector<Point> line = GradeLine(picture.axis).between(range, range.length() / kSamples);
  const auto lower = [](const Point& a, const Point& b) { return a.y < b.y; };
  double lowest = std::min_element(line.begin(), line.end(), lower)->y;
  double highest = std::max_element(line.begin(), line.end(), lower)->y;
  for (const auto* points : {&picture.points, &picture.setOut}) {
    for (const Exchange::ConvertedPoint& point : *points) {
      if (point.onAxis.stationing < range.from || point.onAxis.stationing > range.to) continue;
      lowest = std::min(lowest, point.grid.height);
      highest = std::max(highest, point.grid.height);
    }
  }
  const double perMetre = 1000.0 / scale;
  const double perHeight = perMetre * exaggeration;
  const Box room{diagram.left + kDiagramSideRoom, diagram.top + kLabelRoom,
                 diagram.right - kDiagramSideRoom, diagram.bottom - kDiagramFootRoom};
  const bool fits =
      range.length() * perMetre <= room.width() && (highest - lowest) * perHeight <= room.height();
  if (!fits) return std::nullopt;
  const Point middle{(range.from + range.to) / 2.0, (lowest + highest) / 2.0};
  return SectionStrip{range, diagram, lowest, highest,
                      WorldMapping::diagram(middle, room.centre(), perMetre, perHeight)};
}

std::optional<SectionLayout> layoutWith(const SurveyPicture& picture, const Box& area, double scale,
                                        double exaggeration, int stripCount) {
  SectionLayout layout;
  layout.scale = scale;
  layout.exaggeration = exaggeration;
  const std::vector<Box> boxes = diagrams(area, stripCount);
  const std::vector<Exchange::StationRange> ranges = equalStrips(*picture.axis, stripCount);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const auto strip = stripInDiagram(picture, ranges[i], boxes[i], scale, exaggeration);
    if (!strip) return std::nullopt;
    layout.strips.push_back(*strip);
  }
  return layout;
}

SectionLayout largestLayout(const SurveyPicture& picture, const Box& area, double exaggeration) {
  for (const double scale : Drawing::usualScales()) {
    for (int count = 1; count <= kMostStrips; ++count) {
      if (auto layout = layoutWith(picture, area, scale, exaggeration, count)) return *layout;
    }
  }
  return {Drawing::usualScales().back(), exaggeration, {}};
}

class SectionStripDrawing {
 public:
  SectionStripDrawing(Canvas& canvas, const SurveyPicture& picture, const SectionStrip& strip,
                      double metresPerMillimetre)
      : m_canvas(canvas),
        m_picture(picture),
        m_strip(strip),
        m_profile(picture.axis),
        m_points(gradePointsOf(*picture.axis)),
        m_metresPerMillimetre(metresPerMillimetre),
        m_labels(strip.diagram.inset(0.8)) {}

  void draw() {
    drawGrid();
    m_canvas.clipped(m_strip.diagram, [this] {
      drawTangents();
      drawGradeLine();
    });
    drawPoints(m_picture.setOut, Style::setOutPoint);
    drawPoints(m_picture.points, Style::surveyedPoint);
    drawGradePoints();
    drawGrades();
    m_canvas.rectangle(m_strip.diagram, {Style::kInk, 0.35, {}});
    drawStationBand();
    drawHeightBand();
    drawCurvatureBand();
  }

  std::size_t labelsLeftOut() const { return m_leftOut; }

 private:
  Point toPage(const Point& stationAndHeight) const {
    return m_strip.mapping.toPage(stationAndHeight);
  }
  double pageX(double station) const { return toPage({station, 0.0}).x; }

  bool isShown(double station) const {
    return station >= m_strip.range.from && station <= m_strip.range.to;
  }

  std::vector<Point> onPage(const Exchange::StationRange& range) const {
    std::vector<Point> points = m_profile.between(range, kSampleDistance * m_metresPerMillimetre);
    for (Point& point : points) {
      point = toPage(point);
    }
    return points;
  }

  std::vector<double> labelledStations() const {
    return roundStations(m_picture.stationing, m_strip.range,
                         Drawing::niceStep(kSmallestStationSpacing * m_metresPerMillimetre));
  }

  void drawGrid() {
    const Box& box = m_strip.diagram;
    const Pen pen{Style::kLightGrey, 0.15, {}};
    for (const double station : labelledStations()) {
      m_canvas.line({pageX(station), box.top}, {pageX(station), box.bottom}, pen);
    }
    const double bottom = m_strip.mapping.toWorld({box.left, box.bottom}).y;
    const double top = m_strip.mapping.toWorld({box.left, box.top + kLabelRoom - 4.0}).y;
    const double unit = std::abs(toPage({0.0, 1.0}).y - toPage({0.0, 0.0}).y);
    const double step = Drawing::niceStep(kSmallestHeightSpacing / unit);
    for (const double height : Drawing::multiplesWithin(bottom, top, step)) {
      const double y = toPage({0.0, height}).y;
      m_canvas.line({box.left, y}, {box.right, y}, pen);
      if (y > box.bottom - 1.2) continue;
      m_canvas.line({box.left - 1.2, y}, {box.left, y}, {Style::kInk, 0.2, {}});
      m_canvas.text({box.left - 2.0, y}, fixed(height, step < 1.0 ? 1 : 0),
                    Style::text(Style::kTextSize, Style::kInk, Align::End, Align::Middle));
    }
    m_canvas.text({box.left - kHeaderWidth, box.top + 3.0}, "Height (m)",
                  Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Middle));
  }

  /// The lines between the points of intersection, which the roundings leave.
  void drawTangents() {
    std::vector<Point> line;
    for (const GradePoint& point : m_points) {
      line.push_back(toPage(point.at));
    }
    m_canvas.polyline(line, {kTangent, 0.2, {1.6, 0.9}});
  }

  void drawGradeLine() {
    const std::vector<Point> line = onPage(m_strip.range);
    m_canvas.polyline(line, {Style::kStraight, kGradeLineWidth, {}});
    m_labels.reserve(line, 1.4);
    for (const GradePoint& point : m_points) {
      const Exchange::StationRange part{std::max(point.from, m_strip.range.from),
                                        std::min(point.to, m_strip.range.to)};
      if (!(part.from < part.to)) continue;
      m_canvas.polyline(onPage(part), {kRounding, kGradeLineWidth, {}});
      for (const double end : {point.from, point.to}) {
        if (isShown(end)) drawRoundingEnd(end);
      }
    }
  }

  void drawRoundingEnd(double station) {
    constexpr double kHalfLength = 2.0;
    const Point at = toPage(m_profile.at(station));
    const Point half{0.0, kHalfLength};
    m_canvas.line(at - half, at + half, {kRounding, 0.3, {}});
    m_labels.reserve(Drawing::outlineOfLine(at - half, at + half, 0.5));
  }

  void drawPoints(const std::vector<Exchange::ConvertedPoint>& points,
                  void (*drawAt)(Canvas& canvas, const Point& at)) {
    for (const Exchange::ConvertedPoint& point : points) {
      if (!isShown(point.onAxis.stationing)) continue;
      const Point at = toPage({point.onAxis.stationing, point.grid.height});
      drawAt(m_canvas, at);
      m_labels.reserve(Drawing::outlineOfBox(Box{at.x, at.y, at.x, at.y}.inset(-1.0)));
    }
  }

  std::vector<std::string> linesOf(const GradePoint& point) const {
    std::vector<std::string> lines = {m_picture.stationing.text(point.at.x, 3),
                                      "H " + fixed(point.at.y, 3)};
    if (!point.isRounded()) return lines;
    lines.push_back("R " + Drawing::grouped(point.radius));
    lines.push_back("L " + fixed(point.to - point.from, 2));
    return lines;
  }

  void drawGradePoints() {
    for (const GradePoint& point : m_points) {
      if (isShown(point.at.x)) drawGradePoint(point);
    }
  }

  /// The point of intersection, and above it what it is.
  void drawGradePoint(const GradePoint& point) {
    constexpr double kLineHeight = 3.5;
    constexpr double kGap = 0.7;  // beside each text, so twice that between two
    const Point at = toPage(point.at);
    const std::vector<std::string> lines = linesOf(point);
    const TextStyle style =
        Style::text(Style::kSmallTextSize, Style::kInk, Align::Middle, Align::Start);
    double width = 0.0;
    for (const std::string& words : lines) {
      width = std::max(width, m_canvas.textWidth(words, style));
    }
    const Box& box = m_strip.diagram;
    const double middle =
        std::clamp(at.x, box.left + width / 2.0 + 1.5, box.right - width / 2.0 - 1.5);
    bool isWritten = false;
    for (const double shift : {0.0, 3.0, -3.0, 6.0, -6.0, 9.0, -9.0}) {
      const Point top{middle + shift, box.top + 1.6};
      const double bottom = top.y + kLineHeight * static_cast<double>(lines.size());
      const double half = width / 2.0 + kGap;
      const auto outline =
          Drawing::outlineOfBox({top.x - half, top.y - 0.4, top.x + half, bottom - 0.4});
      if (!m_labels.isFree(outline)) continue;
      for (std::size_t i = 0; i < lines.size(); ++i) {
        m_canvas.text(top + Point{0.0, kLineHeight * static_cast<double>(i)}, lines[i], style);
      }
      m_labels.reserve(outline);
      const std::vector<Point> leader = {{top.x, bottom}, {top.x, bottom + 1.2}, at};
      m_canvas.polyline(leader, {Style::kGrey, 0.15, {}});
      m_labels.reserve(leader, 0.4);
      isWritten = true;
      break;
    }
    if (!isWritten) ++m_leftOut;
    m_canvas.circle(at, 0.8, {Style::kInk, 0.25, {}}, Style::kWhite);
  }

  void drawGrades() {
    for (std::size_t i = 1; i < m_points.size(); ++i) {
      const GradePoint& before = m_points[i - 1];
      const GradePoint& after = m_points[i];
      const Exchange::StationRange straight{std::max(before.to, m_strip.range.from),
                                            std::min(after.from, m_strip.range.to)};
      if (straight.from < straight.to) {
        labelGrade(straight, 100.0 * (after.at.y - before.at.y) / (after.at.x - before.at.x));
      }
    }
  }

  /// Along the line, where there is room.
  void labelGrade(const Exchange::StationRange& straight, double percent) {
    const Point start = toPage(m_profile.at(straight.from));
    const Point chord = toPage(m_profile.at(straight.to)) - start;
    TextStyle style = Style::text(Style::kTextSize, Style::kStraight, Align::Middle, Align::Middle);
    style.bold = true;
    style.angle = std::atan2(chord.y, chord.x);
    const Point below = Drawing::rightOf(Drawing::unit(chord));
    std::vector<LabelPlace> places;
    for (const double distance : {-2.9, 2.9, -4.8, 4.8}) {
      for (const double part : {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8}) {
        places.push_back({start + chord * part + below * distance, style});
      }
    }
    place(m_labels, Drawing::signedFixed(percent, 3) + " %", places);
  }

  void place(LabelPlacer& labels, const std::string& words, const std::vector<LabelPlace>& places) {
    if (labels.place(m_canvas, words, places) == nullptr) ++m_leftOut;
  }

  Box band(double offset, double height) const {
    const Box& box = m_strip.diagram;
    return {box.left, box.bottom + offset, box.right, box.bottom + offset + height};
  }

  void drawBandFrame(const Box& box, const std::string& name) {
    m_canvas.rectangle(box, {Style::kInk, 0.35, {}});
    m_canvas.text({box.left - kHeaderWidth, box.centre().y}, name,
                  Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Middle));
  }

  void drawStationBand() {
    const Box box = band(0.0, kStationBandHeight);
    drawBandFrame(box, "Stationing");
    for (const double station : labelledStations()) {
      const Point at{pageX(station), box.top};
      m_canvas.line(at, at + Point{0.0, 1.2}, {Style::kInk, 0.2, {}});
      textInBand(box, at.x, 3.6, m_picture.stationing.text(station, 0));
    }
  }

  void drawHeightBand() {
    const Box box = band(kStationBandHeight, kHeightBandHeight);
    drawBandFrame(box, "Axis height");
    for (const double station : labelledStations()) {
      textInBand(box, pageX(station), kHeightBandHeight / 2.0, fixed(m_profile.at(station).y, 3));
    }
  }

  /// Left out where it would cross the border.
  void textInBand(const Box& box, double x, double y, const std::string& words) {
    const TextStyle style =
        Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::Middle);
    const double half = m_canvas.textWidth(words, style) / 2.0 + 0.5;
    if (x - half < box.left || x + half > box.right) return;
    m_canvas.text({x, box.top + y}, words, style);
  }

  double largestCurvature() const {
    double largest = 0.0;
    for (const AxisElement& element :
         elementsWithin(*m_picture.axis, Exchange::rangeOf(*m_picture.axis))) {
      largest = std::max({largest, std::abs(element.curvatureFrom), std::abs(element.curvatureTo)});
    }
    return largest;
  }

  /// Curvature 1/R over the stationing, right-hand curves upwards.
  void drawCurvatureBand() {
    constexpr double kHighest = 5.5;
    const Box box = band(kStationBandHeight + kHeightBandHeight, kCurvatureBandHeight);
    drawBandFrame(box, "Curvature");
    const TextStyle hint =
        Style::text(Style::kSmallTextSize, Style::kGrey, Align::End, Align::Middle);
    m_canvas.text({box.left - 2.0, box.centre().y - 5.5}, "right", hint);
    m_canvas.text({box.left - 2.0, box.centre().y + 5.5}, "left", hint);
    const double zero = box.centre().y;
    const double perCurvature = kHighest / std::max(largestCurvature(), 1e-12);
    const std::vector<AxisElement> elements = elementsWithin(*m_picture.axis, m_strip.range);
    for (const AxisElement& element : elements) {
      drawCurvature(element, zero, perCurvature);
    }
    m_canvas.line({pageX(m_strip.range.from), zero}, {pageX(m_strip.range.to), zero},
                  {Style::kInk, 0.2, {}});
    labelCurvatures(elements, box, perCurvature);
  }

  void drawCurvature(const AxisElement& element, double zero, double perCurvature) {
    const Point a{pageX(element.from), zero - element.curvatureFrom * perCurvature};
    const Point b{pageX(element.to), zero - element.curvatureTo * perCurvature};
    const Colour colour = colourOf(element.kind);
    const double kTint = 0.75;
    const Colour tint{colour.red + (1.0 - colour.red) * kTint,
                      colour.green + (1.0 - colour.green) * kTint,
                      colour.blue + (1.0 - colour.blue) * kTint};
    m_canvas.polygon({{a.x, zero}, a, b, {b.x, zero}}, tint);
    m_canvas.line(a, b, {colour, 0.5, {}});
  }

  void labelCurvatures(const std::vector<AxisElement>& elements, const Box& box,
                       double perCurvature) {
    LabelPlacer labels(box.inset(0.4));
    const double zero = box.centre().y;
    for (const AxisElement& element : elements) {
      const double top = zero - element.curvatureFrom * perCurvature;
      const double bottom = zero - element.curvatureTo * perCurvature;
      labels.reserve(
          Drawing::outlineOfBox({pageX(element.from), std::min({top, bottom, zero}),
                                 pageX(element.to), std::max({top, bottom, zero}) + 0.2}));
    }
    for (const AxisElement& element : elements) {
      if (element.kind != Exchange::ElementKind::Arc) continue;
      const double side = element.curvatureFrom > 0.0 ? -1.0 : 1.0;
      const double end = zero - element.curvatureFrom * perCurvature;
      const double x = pageX((element.from + element.to) / 2.0);
      const TextStyle style =
          Style::text(Style::kSmallTextSize, Style::kArc, Align::Middle, Align::Middle);
      std::vector<LabelPlace> places;
      for (const double shift : {0.0, 2.0, -2.0, 4.0, -4.0}) {
        places.push_back({{x + shift, end + side * 2.3}, style});
        places.push_back({{x + shift, end + side * 5.0}, style});
        places.push_back({{x + shift, zero - side * 2.5}, style});
      }
      place(labels, "R " + Drawing::radiusText(1.0 / std::abs(element.curvatureFrom)), places);
    }
  }

  Canvas& m_canvas;
  const SurveyPicture& m_picture;
  const SectionStrip& m_strip;
  GradeLine m_profile;
  std::vector<GradePoint> m_points;
  double m_metresPerMillimetre;
  LabelPlacer m_labels;
  std::size_t m_leftOut = 0;
};

std::vector<Drawing::LegendEntry> sectionLegend(const SurveyPicture& picture) {
  const auto lineSample = [](const Pen& pen) {
    return [pen](Canvas& canvas, const Box& box) {
      canvas.line({box.left, box.centre().y}, {box.right, box.centre().y}, pen);
    };
  };
  const auto roundingSample = [](Canvas& canvas, const Box& box) {
    const double y = box.centre().y;
    canvas.line({box.left, y}, {box.right, y}, {kRounding, kGradeLineWidth, {}});
    for (const double x : {box.left, box.right}) {
      canvas.line({x, y - 1.3}, {x, y + 1.3}, {kRounding, 0.3, {}});
    }
  };
  const auto intersectionSample = [](Canvas& canvas, const Box& box) {
    canvas.circle(box.centre(), 0.8, {Style::kInk, 0.25, {}}, Style::kWhite);
  };
  const auto pointSample = [](Canvas& canvas, const Box& box) {
    Style::surveyedPoint(canvas, box.centre());
  };
  const auto setOutSample = [](Canvas& canvas, const Box& box) {
    Style::setOutPoint(canvas, box.centre());
  };
  std::vector<Drawing::LegendEntry> entries = {
      {lineSample({Style::kStraight, kGradeLineWidth, {}}), "grade line"},
      {roundingSample, "rounding and its ends"},
      {lineSample({kTangent, 0.2, {1.6, 0.9}}), "tangents"},
      {intersectionSample,
       "point of intersection: height H,\nradius R and length L of its rounding"}};
  if (!picture.points.empty()) entries.push_back({pointSample, "surveyed point"});
  if (!picture.setOut.empty()) entries.push_back({setOutSample, "point to be set out"});
  return entries;
}

}  // namespace

Sheet sectionSheet(const SurveyPicture& picture, double exaggeration) {
  Sheet sheet;
  const SectionLayout layout = largestLayout(picture, Drawing::drawingArea(sheet), exaggeration);
  const Sheet size = sheet;
  sheet.draw = [picture, layout, size](Canvas& canvas) {
    const double metresPerMillimetre = 1.0 / layout.millimetresPerMetre();
    std::size_t leftOut = 0;
    for (const SectionStrip& strip : layout.strips) {
      SectionStripDrawing drawing(canvas, picture, strip, metresPerMillimetre);
      drawing.draw();
      leftOut += drawing.labelsLeftOut();
    }
    Drawing::drawTitleBlock(canvas, size,
                            {"Longitudinal section of axis " + picture.name,
                             {"Stationing " + Drawing::scaleText(layout.scale) + ", heights " +
                                  Drawing::scaleText(layout.scale / layout.exaggeration) +
                                  " on A3: exaggerated " + fixed(layout.exaggeration, 0) + " times",
                              "Source: " + picture.source},
                             sectionLegend(picture),
                             layout.millimetresPerMetre(),
                             leftOut});
  };
  return sheet;
}

}  // namespace TunnelSurvey
