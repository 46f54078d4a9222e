// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/CrossSectionDrawing.h"

#include "tunnel_survey/ProfilePath.h"
#include "tunnel_survey/SurveySheet.h"

#include "common/drawing/LabelPlacer.h"
#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

namespace TunnelSurvey {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::Colour;
using Drawing::fixed;
using Drawing::fixedOrDash;
using Drawing::kFullTurn;
using Drawing::LabelPlace;
using Drawing::LabelPlacer;
using Drawing::Pen;
using Drawing::Point;
using Drawing::Sheet;
using Drawing::signedFixed;
using Drawing::TextStyle;
using Drawing::WorldMapping;
using Ruv::Calculations::FittingResult;
using Ruv::Calculations::Point2D;
using Ruv::Calculations::Polygon;
using Ruv::Calculations::Polyline;
using Ruv::Calculations::Utilities;
namespace Style = Drawing::Style;

constexpr double kPanelWidth = 72.0;
constexpr double kPanelSideRoom = 15.0;  // for labels and dimensions around the profile
constexpr double kPanelFootRoom = 13.0;
constexpr double kPanelTopRoom = 11.0;

const Colour kMeasured{0.70, 0.10, 0.12};
const Colour kOver{0.98, 0.80, 0.55};
const Colour kOverDark{0.72, 0.36, 0.02};
const Colour kUnder{0.60, 0.78, 0.95};
const Colour kUnderDark{0.05, 0.32, 0.66};
const Colour kCircle{0.13, 0.50, 0.33};
const Colour kEllipse{0.48, 0.25, 0.62};
const Pen kDesignPen{Style::kInk, 0.55, {}};
const Pen kMeasuredPen{kMeasured, 0.35, {}};
const Pen kExcludedPen{Style::kGrey, 0.25, {}};
const Pen kHatchPen{kOverDark, 0.22, {}};
const Pen kCirclePen{kCircle, 0.25, {2.4, 0.8}};
const Pen kEllipsePen{kEllipse, 0.25, {0.9, 0.7}};
constexpr double kHatchSpacing = 1.3;
constexpr double kHatchAngle = -0.7853981633974483;

Sheet sheetA4() {
  Sheet sheet;
  sheet.width = 297.0;
  sheet.height = 210.0;
  return sheet;
}

Box panelBox(const Sheet& sheet) {
  const Box area = Drawing::drawingArea(sheet);
  return {area.right - kPanelWidth, area.top, area.right, area.bottom};
}

Box frameBox(const Sheet& sheet) {
  const Box area = Drawing::drawingArea(sheet);
  return {area.left, area.top, area.right - kPanelWidth, area.bottom};
}

/// Where profile coordinates are drawn when distances from the design are magnified.
class Magnifier {
 public:
  Magnifier(const Exchange::DesignProfile& design, double factor)
      : m_design(design), m_factor(factor) {}

  Point operator()(const Point2D& p) const {
    if (m_factor == 1.0) return {p.x, p.y};
    const Point2D foot = m_design.calculator().calculateProfilePoint(p).profilePoint;
    const Point2D drawn = foot + (p - foot) * m_factor;
    return {drawn.x, drawn.y};
  }

 private:
  const Exchange::DesignProfile& m_design;
  double m_factor;
};

std::vector<Point2D> ellipsePoints(const FittingResult& fit, int count) {
  std::vector<Point2D> points;
  for (int i = 0; i <= count; ++i) {
    const double angle = kFullTurn * i / count;
    const double along = fit.semiAxisA * std::cos(angle);
    const double across = fit.semiAxisB * std::sin(angle);
    const double c = std::cos(fit.rotation);
    const double s = std::sin(fit.rotation);
    points.push_back(fit.center + Point2D(c * along - s * across, s * along + c * across));
  }
  return points;
}

class CrossSectionDrawing {
 public:
  CrossSectionDrawing(Canvas& canvas, const SectionSurvey& survey, const SectionResult& result,
                      const CrossSectionLayout& layout, const Box& frame)
      : m_canvas(canvas),
        m_survey(survey),
        m_result(result),
        m_frame(frame),
        m_magnified(survey.design, survey.magnify),
        m_mapping(mapping(layout, frame)),
        m_labels(frame.inset(1.0)) {}

  static WorldMapping mapping(const CrossSectionLayout& layout, const Box& frame) {
    const Box room{frame.left + kPanelSideRoom, frame.top + kPanelTopRoom,
                   frame.right - kPanelSideRoom, frame.bottom - kPanelFootRoom};
    const double perMetre = 1000.0 / layout.scale;
    return WorldMapping::diagram(layout.middle, room.centre(), perMetre, perMetre);
  }

  void draw() {
    m_canvas.clipped(m_frame, [this] {
      drawAreas();
      drawAxisCross();
      drawLimits();
      drawFits();
      drawDerolments();
      drawDesign();
      drawMeasured();
    });
    drawCrown();
    drawDimensions();
    drawExtremes();
    m_canvas.rectangle(m_frame, {Style::kInk, 0.35, {}});
  }

 private:
  Point toPage(const Point2D& p) const { return m_mapping.toPage({p.x, p.y}); }

  std::vector<Point> magnifiedOnPage(const std::vector<Point2D>& points) const {
    std::vector<Point> page;
    page.reserve(points.size());
    for (const Point2D& point : points) {
      page.push_back(m_mapping.toPage(m_magnified(point)));
    }
    return page;
  }

  void drawAreas() {
    const auto fill = [this](const std::vector<Polygon>& polygons, const Colour& colour) {
      for (const Polygon& polygon : polygons) {
        m_canvas.polygon(magnifiedOnPage(polygon.points()), colour);
      }
    };
    fill(m_result.over, kOver);
    fill(m_result.geological, kOver);
    fill(m_result.under, kUnder);
    for (const Polygon& polygon : m_result.geological) {
      const std::vector<Point> outline = magnifiedOnPage(polygon.points());
      m_canvas.hatch(outline, kHatchSpacing, kHatchAngle, kHatchPen);
      m_canvas.polyline(outline, kHatchPen);
    }
  }

  /// Through the origin of the profile, which is the axis.
  void drawAxisCross() {
    const Pen pen{Style::kGrey, 0.15, {5.0, 1.0, 0.6, 1.0}};
    const Point origin = toPage({0.0, 0.0});
    const Box box = m_frame.inset(5.0);
    m_canvas.line({origin.x, box.top}, {origin.x, box.bottom}, pen);
    m_canvas.line({box.left, origin.y}, {box.right, origin.y}, pen);
    m_canvas.circle(origin, 0.7, {Style::kGrey, 0.25, {}}, Style::kWhite);
  }

  void drawFits() {
    for (const auto& [fit, pen] :
         {std::pair{m_result.circle, kCirclePen}, std::pair{m_result.ellipse, kEllipsePen}}) {
      if (isDrawable(fit, m_survey.design)) drawFit(fit, pen);
    }
  }

  void drawFit(const FittingResult& fit, const Pen& pen) {
    constexpr int kPoints = 240;
    if (m_survey.magnify == 1.0) {
      const double scale = length(toPage({1.0, 0.0}) - toPage({0.0, 0.0}));
      m_canvas.ellipse(toPage(fit.center), fit.semiAxisA * scale, fit.semiAxisB * scale,
                       -fit.rotation, pen);
    } else {
      m_canvas.polyline(magnifiedOnPage(ellipsePoints(fit, kPoints)), pen);
    }
  }

  std::vector<double> derolments(double step) const {
    const double half = m_survey.design.circumference() / 2.0;
    return Drawing::multiplesWithin(-half, half, step);
  }

  /// Ticks inside the design line, and their derolments.
  void drawDerolments() {
    constexpr double kTicks = 60.0;
    constexpr double kLabels = 12.0;
    const double length = m_survey.design.circumference();
    for (const double derolment : derolments(Drawing::niceStep(length / kTicks))) {
      const auto [at, inward] = inwardAt(derolment);
      m_canvas.line(at, at + inward * 1.0, {Style::kInk, 0.15, {}});
    }
    const double step = Drawing::niceStep(length / kLabels);
    for (const double derolment : derolments(step)) {
      const auto [at, inward] = inwardAt(derolment);
      m_canvas.line(at, at + inward * 2.0, {Style::kInk, 0.25, {}});
    }
    for (const double derolment : derolments(step)) {
      if (derolment == 0.0) continue;  // the crown has its own mark
      const auto [at, inward] = inwardAt(derolment);
      m_canvas.text(at + inward * 4.6, signedFixed(derolment, step < 1.0 ? 1 : 0),
                    Style::onLines(Style::text(Style::kSmallTextSize, Style::kGrey, Align::Middle,
                                               Align::Middle)));
    }
  }

  std::pair<Point, Point> inwardAt(double derolment) const {
    const auto& calculator = m_survey.design.calculator();
    const Point2D foot = calculator.calcPointOnProfileAtDerolment(derolment);
    const Point at = toPage(foot);
    return {at, Drawing::unit(toPage(calculator.applyRadialOffset(foot, -0.1)) - at)};
  }

  void drawDesign() {
    std::vector<Point> line;
    for (const Point2D& point : m_survey.design.outline()) {
      line.push_back(toPage(point));
    }
    line.push_back(line.front());
    m_canvas.path(pathOf(m_survey.design, m_mapping), kDesignPen);
    m_labels.reserve(line, 1.0);
  }

  void drawMeasured() {
    constexpr std::size_t kMostMarked = 60;
    std::vector<Point> outline = magnifiedOnPage(m_result.outline);
    outline.push_back(outline.front());
    const bool isAllCompared = !m_survey.rule.excludeAbove && !m_survey.rule.excludeBelow;
    if (!isAllCompared) m_canvas.polyline(outline, kExcludedPen);
    m_labels.reserve(outline, 0.8);
    for (const Polyline& part : m_result.comparedOutline) {
      std::vector<Point> line = magnifiedOnPage(part.points());
      m_canvas.polyline(line, kMeasuredPen);
    }
    if (m_result.section.points.size() > kMostMarked) return;
    for (const Point& point : magnifiedOnPage(m_result.section.points)) {
      m_canvas.circle(point, 0.6, {kMeasured, 0.25, {}}, Style::kWhite);
    }
  }

  void drawCrown() {
    constexpr double kHeight = 2.4;
    constexpr double kHalfWidth = 1.2;
    const auto [crown, inward] = inwardAt(0.0);
    const Point foot = crown + inward * (kHeight + 0.3);
    const Point side = Drawing::rightOf(inward) * kHalfWidth;
    m_canvas.polygon({crown + inward * 0.3, foot - side, foot + side}, Style::kInk);
    m_canvas.text(foot + inward * 1.2, "crown",
                  Style::text(Style::kSmallTextSize, Style::kInk, Align::Middle, Align::Start));
  }

  /// Width and height of the design.
  void drawDimensions() {
    const Point low = toPage(m_survey.design.lowerLeft());
    const Point high = toPage(m_survey.design.upperRight());
    const Point2D size = m_survey.design.upperRight() - m_survey.design.lowerLeft();
    const TextStyle style =
        Style::onLines(Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::Middle));
    const double bottom = m_frame.bottom - 5.5;
    const double left = m_frame.left + 8.0;
    drawDimension(m_canvas, {high.x, bottom - 3.0}, {low.x, bottom - 3.0}, -3.0, fixed(size.x, 3),
                  style);
    drawDimension(m_canvas, {left + 3.0, low.y}, {left + 3.0, high.y}, -3.0, fixed(size.y, 3),
                  style);
  }

  void drawExtremes() {
    if (m_result.largestOver) drawExtreme(*m_result.largestOver, "over ", kOverDark);
    if (m_result.largestUnder) drawExtreme(*m_result.largestUnder, "under ", kUnderDark);
  }

  void drawExtreme(const Extreme& extreme, const std::string& kind, const Colour& colour) {
    const Point at = m_mapping.toPage(m_magnified(extreme.point));
    const Point foot = toPage(extreme.deviation.profilePoint);
    m_canvas.line(foot, at, {colour, 0.6, {}});
    m_canvas.circle(at, 0.7, {colour, 0.35, {}}, Style::kWhite);
    const Point away = Drawing::unit(at - foot);
    std::vector<LabelPlace> places;
    for (const double distance : {8.0, 11.0, 14.0, 18.0, 23.0}) {
      for (const double turn : {0.0, 0.35, -0.35, 0.7, -0.7, 1.05, -1.05, 1.3, -1.3}) {
        const Point direction = away * std::cos(turn) + Drawing::rightOf(away) * std::sin(turn);
        places.push_back({at + direction * distance, labelStyle(direction, colour)});
      }
    }
    const double distance = std::abs(extreme.deviation.distance);
    m_labels.placeWithLeader(m_canvas, kind + fixed(distance, 3) + " m", at, 2.2, {colour, 0.2, {}},
                             places);
  }

  /// On the far side of its leader.
  static TextStyle labelStyle(const Point& direction, const Colour& colour) {
    constexpr double kSteep = 0.4;
    TextStyle style =
        Style::onLines(Style::text(Style::kTextSize, colour, Align::Middle, Align::Middle));
    style.bold = true;
    if (direction.x > kSteep) style.horizontal = Align::Start;
    if (direction.x < -kSteep) style.horizontal = Align::End;
    if (style.horizontal == Align::Middle) {
      style.vertical = direction.y > 0.0 ? Align::Start : Align::End;
    }
    return style;
  }

  /// The borders of what is compared.
  void drawLimits() {
    const ComparisonRule& rule = m_survey.rule;
    if (rule.excludeAbove) drawLimit(*rule.excludeAbove, "above");
    if (rule.excludeBelow) drawLimit(*rule.excludeBelow, "below");
  }

  void drawLimit(double height, const std::string& side) {
    const double y = toPage({0.0, height}).y;
    const Box box = m_frame.inset(5.0);
    if (!(y > box.top && y < box.bottom)) return;
    m_canvas.line({box.left + 7.0, y}, {box.right, y}, {Style::kGrey, 0.3, {2.0, 1.2}});
    const Align vertical = side == "above" ? Align::Start : Align::End;
    const double gap = side == "above" ? 1.2 : -1.2;
    const TextStyle style =
        Style::onLines(Style::text(Style::kSmallTextSize, Style::kGrey, Align::Middle, vertical));
    const double centre = toPage(m_survey.design.centroid()).x;
    m_canvas.text({centre, y + gap}, "not compared " + side + " " + signedFixed(height, 2), style);
  }

  Canvas& m_canvas;
  const SectionSurvey& m_survey;
  const SectionResult& m_result;
  Box m_frame;
  Magnifier m_magnified;
  WorldMapping m_mapping;
  LabelPlacer m_labels;
};

/// The results, line by line.
class ResultPanel {
 public:
  ResultPanel(Canvas& canvas, const Box& box)
      : m_canvas(canvas), m_box(box.inset(5.0)), m_y(m_box.top) {}

  void heading(const std::string& words, const Pen* sample = nullptr) {
    m_y += m_y > m_box.top ? 2.6 : 0.0;
    TextStyle style = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Start);
    style.bold = true;
    m_canvas.text({m_box.left, m_y}, words, style);
    if (sample != nullptr) {
      const double middle = m_y + 1.1;
      m_canvas.line({m_box.right - 14.0, middle}, {m_box.right, middle}, *sample);
    }
    m_y += kLine;
  }

  void value(const std::string& name, const std::string& words) {
    TextStyle style = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Start);
    m_canvas.text({m_box.left, m_y}, name, style);
    style.horizontal = Align::End;
    m_canvas.text({m_box.right, m_y}, words, style);
    m_y += kLine;
  }

  void extreme(const std::string& name, const std::optional<Extreme>& extreme) {
    heading(name);
    if (!extreme) {
      value("none", "");
      return;
    }
    value("distance", signedFixed(extreme->deviation.distance, 3) + " m");
    value("at derolment", signedFixed(extreme->deviation.derolment, 2) + " m");
  }

 private:
  static constexpr double kLine = 4.5;

  Canvas& m_canvas;
  Box m_box;
  double m_y;
};

std::string place(const Point2D& p) {
  return Drawing::signedFixedOrDash(p.x, 3) + " / " + Drawing::signedFixedOrDash(p.y, 3);
}

void drawPanel(Canvas& canvas, const Box& box, const SectionSurvey& survey,
               const SectionResult& result) {
  canvas.rectangle(box, {Style::kInk, 0.35, {}});
  ResultPanel panel(canvas, box);
  panel.heading("Areas");
  panel.value("design", fixed(result.designArea, 3) + " m²");
  panel.value("measured", fixed(result.measuredArea, 3) + " m²");
  panel.value("over profile", fixed(result.overArea, 3) + " m²");
  if (survey.rule.geology) {
    const std::string limit = fixed(survey.rule.geology->beyond, 2) + " m";
    panel.value("geological, beyond " + limit, fixed(result.geologicalArea, 3) + " m²");
  }
  panel.value("under profile", fixed(result.underArea, 3) + " m²");
  panel.extreme("Largest over break", result.largestOver);
  panel.extreme("Largest under break", result.largestUnder);
  panel.heading("Best-fit circle", &kCirclePen);
  panel.value("centre right / up", place(result.circle.center) + " m");
  panel.value("radius", fixedOrDash(result.circle.radius, 3) + " m");
  const FittingResult& ellipse = result.ellipse;
  panel.heading("Best-fit ellipse", &kEllipsePen);
  panel.value("centre right / up", place(ellipse.center) + " m");
  panel.value("semi-axes",
              fixedOrDash(ellipse.semiAxisA, 3) + " / " + fixedOrDash(ellipse.semiAxisB, 3) + " m");
  panel.value("longer axis, from right to up",
              fixedOrDash(Utilities::rad2gon(ellipse.rotation), 1) + " gon");
  panel.heading("Measured");
  panel.value("points compared", std::to_string(result.deviations.size()) + " of " +
                                     std::to_string(result.section.points.size()));
  panel.value("outline between them", survey.rule.followDesign ? "along the design" : "straight");
}

std::vector<Drawing::LegendEntry> crossSectionLegend(const SectionSurvey& survey) {
  const auto line = [](const Pen& pen) {
    return [pen](Canvas& canvas, const Box& box) {
      canvas.line({box.left, box.centre().y}, {box.right, box.centre().y}, pen);
    };
  };
  const auto area = [](const Colour& colour, bool isHatched) {
    return [colour, isHatched](Canvas& canvas, const Box& box) {
      const Box patch = box.inset(0.8);
      canvas.fill(patch, colour);
      if (!isHatched) return;
      const Drawing::Outline outline = Drawing::outlineOfBox(patch);
      canvas.hatch({outline.begin(), outline.end()}, kHatchSpacing, kHatchAngle, kHatchPen);
      canvas.rectangle(patch, kHatchPen);
    };
  };
  const auto crown = [](Canvas& canvas, const Box& box) {
    const Point at = box.centre();
    canvas.polygon({at - Point{0.0, 1.2}, at + Point{-1.2, 1.2}, at + Point{1.2, 1.2}},
                   Style::kInk);
  };
  std::vector<Drawing::LegendEntry> entries = {{line(kDesignPen), "design profile"},
                                               {line(kMeasuredPen), "measured profile"},
                                               {crown, "crown, derolment 0"},
                                               {area(kOver, false), "over profile"},
                                               {area(kUnder, false), "under profile"}};
  if (survey.rule.geology) entries.push_back({area(kOver, true), "geological"});
  if (survey.rule.excludeAbove || survey.rule.excludeBelow) {
    entries.push_back({line(kExcludedPen), "not compared"});
  }
  return entries;
}

std::string scaleLine(const SectionSurvey& survey, double scale) {
  const std::string line = "Scale " + Drawing::scaleText(scale) + " on A4, looking forward; ";
  if (survey.magnify == 1.0) return line + "lengths in m";
  return line + "distances drawn " + fixed(survey.magnify, 0) + "×";
}

/// Upwards: top is the lowest.
Box including(const Box& extent, const Point& p) {
  return {std::min(extent.left, p.x), std::min(extent.top, p.y), std::max(extent.right, p.x),
          std::max(extent.bottom, p.y)};
}

Box extentOfProfiles(const SectionSurvey& survey) {
  const Point2D low = survey.design.lowerLeft();
  const Point2D high = survey.design.upperRight();
  Box extent{low.x, low.y, high.x, high.y};
  const Magnifier magnified(survey.design, survey.magnify);
  for (const SectionResult& result : survey.results) {
    for (const Point2D& point : result.section.points) {
      extent = including(extent, magnified(point));
    }
  }
  return extent;
}

Box extentOfFits(const SectionSurvey& survey, Box extent) {
  constexpr int kPoints = 24;
  const Magnifier magnified(survey.design, survey.magnify);
  for (const SectionResult& result : survey.results) {
    for (const FittingResult& fit : {result.circle, result.ellipse}) {
      if (!isDrawable(fit, survey.design)) continue;
      for (const Point2D& point : ellipsePoints(fit, kPoints)) {
        extent = including(extent, magnified(point));
      }
    }
  }
  return extent;
}

/// Within half the slack on either side.
double nearest(double wish, double middle, double slack) {
  const double half = std::max(slack, 0.0) / 2.0;
  return std::clamp(wish, middle - half, middle + half);
}

}  // namespace

bool isDrawable(const FittingResult& fit, const Exchange::DesignProfile& design) {
  const double size = design.circumference();
  return fit.semiAxisB > 0.0 && fit.semiAxisA < size && fit.center.length() < size;
}

CrossSectionLayout crossSectionLayout(const SectionSurvey& survey) {
  const Box frame = frameBox(sheetA4());
  const double width = frame.width() - 2.0 * kPanelSideRoom;
  const double height = frame.height() - kPanelTopRoom - kPanelFootRoom;
  const Box extent = extentOfProfiles(survey);
  const Point wish = extentOfFits(survey, extent).centre();
  const double scale =
      Drawing::largestUsualScale(std::min(width / extent.width(), height / extent.height()));
  const double metres = scale / 1000.0;
  return {scale,
          {nearest(wish.x, extent.centre().x, width * metres - extent.width()),
           nearest(wish.y, extent.centre().y, height * metres - extent.height())}};
}

Sheet crossSectionSheet(const SectionSurvey& survey, const SectionResult& result,
                        const CrossSectionLayout& layout) {
  Sheet sheet = sheetA4();
  const Sheet size = sheet;
  sheet.draw = [&survey, &result, layout, size](Canvas& canvas) {
    CrossSectionDrawing(canvas, survey, result, layout, frameBox(size)).draw();
    drawPanel(canvas, panelBox(size), survey, result);
    Drawing::drawTitleBlock(canvas, size,
                            {titleOf(survey, result),
                             {scaleLine(survey, layout.scale),
                              "Design: " + survey.designSource + ", measured: " + survey.source},
                             crossSectionLegend(survey),
                             1000.0 / layout.scale});
  };
  return sheet;
}

}  // namespace TunnelSurvey
