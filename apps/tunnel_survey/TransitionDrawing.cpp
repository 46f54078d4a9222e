// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/TransitionDrawing.h"

#include "tunnel_survey/ProfilePath.h"
#include "tunnel_survey/SurveySheet.h"

#include "common/drawing/Furniture.h"
#include "common/drawing/LabelPlacer.h"
#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

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
using Drawing::signedFixed;
using Drawing::TextStyle;
using Drawing::WorldMapping;
using Ruv::Calculations::Point2D;
namespace Style = Drawing::Style;

constexpr int kColumns = 3;
constexpr double kOverlayWidth = 150.0;  // of the column with all outlines and the plan
constexpr double kOverlayShare = 0.41;   // of that column's height for the outlines
constexpr double kHeadRoom = 12.0;       // for the headings of frames
constexpr double kFrameSideRoom = 6.0;

constexpr Colour kStartColour{0.08, 0.30, 0.58};
constexpr Colour kMiddleColour{0.45, 0.24, 0.60};
constexpr Colour kEndColour{0.82, 0.24, 0.12};
const Pen kAxisPen{Style::kGrey, 0.15, {5.0, 1.0, 0.6, 1.0}};
const Pen kStartPen{Style::kGrey, 0.25, {1.6, 1.0}};
constexpr double kGivenWidth = 0.6;  // of the lines of the profiles at the ends
constexpr double kMorphedWidth = 0.3;

Colour mixed(const Colour& a, const Colour& b, double share) {
  return {a.red + share * (b.red - a.red), a.green + share * (b.green - a.green),
          a.blue + share * (b.blue - a.blue)};
}

/// @param part of the way from start to end, 0 to 1
Colour colourAt(double part) {
  return part < 0.5 ? mixed(kStartColour, kMiddleColour, 2.0 * part)
                    : mixed(kMiddleColour, kEndColour, 2.0 * part - 1.0);
}

/// Upwards: top is the lowest.
Box extentOf(const Transition& transition) {
  const Point2D first = transition.sections.front().profile.lowerLeft();
  Box extent{first.x, first.y, first.x, first.y};
  for (const TransitionSection& section : transition.sections) {
    const Point2D low = section.profile.lowerLeft();
    const Point2D high = section.profile.upperRight();
    extent = {std::min(extent.left, low.x), std::min(extent.top, low.y),
              std::max(extent.right, high.x), std::max(extent.bottom, high.y)};
  }
  return extent;
}

struct TransitionLayout {
  std::vector<Box> frames;  // of the sections
  Box overlay;
  Box plan;
  Box extent;  // of all profiles
  double sectionScale = 0.0;
  double overlayScale = 0.0;
  double planScale = 0.0;  // along the stationing; across it is that of the overlay
};

Box sectionRoom(const Box& frame) {
  constexpr double kDimensionRoom = 6.0;
  constexpr double kTextRoom = 19.0;
  return {frame.left + kFrameSideRoom + kDimensionRoom, frame.top + kHeadRoom,
          frame.right - kFrameSideRoom, frame.bottom - kTextRoom};
}

Box overlayRoom(const Box& frame) {
  return {frame.left + kFrameSideRoom, frame.top + kHeadRoom, frame.right - kFrameSideRoom,
          frame.bottom - kFrameSideRoom};
}

double fittingScale(const Box& extent, const Box& room) {
  return Drawing::largestUsualScale(
      std::min(room.width() / extent.width(), room.height() / extent.height()));
}

TransitionLayout layoutOf(const Transition& transition, const Box& area) {
  TransitionLayout layout;
  const double width = (area.width() - kOverlayWidth) / kColumns;
  const double height = area.height() / kColumns;
  for (std::size_t i = 0; i < transition.sections.size(); ++i) {
    const std::size_t row = i / kColumns;
    const double left = area.left + width * static_cast<double>(i % kColumns);
    const double top = area.top + height * static_cast<double>(row);
    layout.frames.push_back({left, top, left + width, top + height});
  }
  const double left = area.right - kOverlayWidth;
  const double border = area.top + kOverlayShare * area.height();
  layout.overlay = {left, area.top, area.right, border};
  layout.plan = {left, border, area.right, area.bottom};
  layout.extent = extentOf(transition);
  layout.sectionScale = fittingScale(layout.extent, sectionRoom(layout.frames.front()));
  layout.overlayScale = fittingScale(layout.extent, overlayRoom(layout.overlay));
  layout.planScale =
      Drawing::largestUsualScale(overlayRoom(layout.plan).height() / transition.range().length());
  return layout;
}

WorldMapping centred(const Box& extent, const Box& room, double scale) {
  return WorldMapping::diagram(extent.centre(), room.centre(), 1000.0 / scale, 1000.0 / scale);
}

TextStyle bold(TextStyle style) {
  style.bold = true;
  return style;
}

/// Of its arcs in turn; empty without arcs.
std::string radiiOf(const Exchange::DesignProfile& profile) {
  std::string words;
  for (unsigned i = 0; i < profile.definition()->getNumSegments(); ++i) {
    const double radius = profile.definition()->getSegmentRadiusAt(i);
    if (radius == 0.0) continue;
    words += (words.empty() ? "radii " : " / ") + fixed(radius, 3);
  }
  return words;
}

class TransitionDrawing {
 public:
  TransitionDrawing(Canvas& canvas, const Transition& transition, const TransitionLayout& layout)
      : m_canvas(canvas),
        m_transition(transition),
        m_layout(layout),
        m_overlay(centred(layout.extent, overlayRoom(layout.overlay), layout.overlayScale)) {}

  void draw() {
    for (std::size_t i = 0; i < m_transition.sections.size(); ++i) {
      drawSection(i);
    }
    drawOverlay();
    drawPlan();
  }

 private:
  double partAt(std::size_t index) const {
    return static_cast<double>(index) / static_cast<double>(m_transition.sections.size() - 1);
  }

  bool isGiven(std::size_t index) const {
    return index == 0 || index + 1 == m_transition.sections.size();
  }

  Pen penOf(std::size_t index) const {
    return {colourAt(partAt(index)), isGiven(index) ? kGivenWidth : kMorphedWidth, {}};
  }

  void drawSection(std::size_t index) {
    const Box& frame = m_layout.frames[index];
    const Exchange::DesignProfile& profile = m_transition.sections[index].profile;
    const WorldMapping mapping =
        centred(m_layout.extent, sectionRoom(frame), m_layout.sectionScale);
    const Drawing::Path line = pathOf(profile, mapping);
    const Colour colour = colourAt(partAt(index));
    constexpr double kPale = 0.88;
    m_canvas.area(line, mixed(colour, Style::kWhite, kPale));
    drawAxis(mapping, frame);
    if (index > 0) {
      m_canvas.path(pathOf(m_transition.sections.front().profile, mapping), kStartPen);
    }
    m_canvas.path(line, {colour, kGivenWidth, {}});
    drawJoints(profile, mapping, colour);
    drawHeading(index);
    drawSize(profile, mapping);
    drawFigures(index);
    m_canvas.rectangle(frame, {Style::kInk, 0.35, {}});
  }

  void drawAxis(const WorldMapping& mapping, const Box& frame) {
    constexpr double kBeyond = 4.0;
    const Point origin = mapping.toPage({0.0, 0.0});
    const Point low = mapping.toPage({m_layout.extent.left, m_layout.extent.top});
    const Point high = mapping.toPage({m_layout.extent.right, m_layout.extent.bottom});
    const Box box = Box{low.x, high.y, high.x, low.y}.inset(-kBeyond);
    m_canvas.clipped(frame, [&] {
      m_canvas.line({origin.x, box.top}, {origin.x, box.bottom}, kAxisPen);
      m_canvas.line({box.left, origin.y}, {box.right, origin.y}, kAxisPen);
    });
  }

  void drawJoints(const Exchange::DesignProfile& profile, const WorldMapping& mapping,
                  const Colour& colour) {
    constexpr double kDot = 0.55;
    const auto& definition = *profile.definition();
    for (unsigned i = 0; i < definition.getNumSegments(); ++i) {
      const Point2D start = definition.getSegmentStartAt(i);
      m_canvas.circle(mapping.toPage({start.x, start.y}), kDot, {colour, 0.25, {}}, Style::kWhite);
    }
  }

  /// Stationing; which profile it is, or how far along it lies.
  void drawHeading(std::size_t index) {
    const Box& frame = m_layout.frames[index];
    const double station = m_transition.sections[index].station;
    const double y = frame.top + 5.0;
    if (isGiven(index)) {
      m_canvas.fill({frame.left, frame.top, frame.right, frame.top + kHeadRoom - 2.0},
                    Style::kLightGrey);
    }
    m_canvas.line({frame.left + 4.0, y}, {frame.left + 10.0, y}, penOf(index));
    const auto style = [](Align horizontal) {
      return Style::text(Style::kTextSize, Style::kInk, horizontal, Align::Middle);
    };
    TextStyle title = bold(style(Align::Start));
    title.size = 3.6;
    m_canvas.text({frame.left + 12.0, y}, m_transition.stationing.text(station, 3), title);
    const Point right{frame.right - 4.0, y};
    if (isGiven(index)) {
      m_canvas.text(right, index == 0 ? "start profile" : "end profile", bold(style(Align::End)));
    } else {
      m_canvas.text(right, "after " + fixed(station - m_transition.range().from, 3) + " m",
                    style(Align::End));
    }
  }

  void drawSize(const Exchange::DesignProfile& profile, const WorldMapping& mapping) {
    constexpr double kAside = 5.0;
    const Point2D low = profile.lowerLeft();
    const Point2D high = profile.upperRight();
    const Point lowest = mapping.toPage({low.x, low.y});
    const Point highest = mapping.toPage({high.x, high.y});
    const TextStyle style =
        Style::onLines(Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::End));
    drawDimension(m_canvas, {highest.x, lowest.y}, lowest, -kAside, fixed(high.x - low.x, 3),
                  style);
    drawDimension(m_canvas, lowest, {lowest.x, highest.y}, -kAside, fixed(high.y - low.y, 3),
                  style);
  }

  /// Below the drawing.
  void drawFigures(std::size_t index) {
    const Box& frame = m_layout.frames[index];
    const Exchange::DesignProfile& profile = m_transition.sections[index].profile;
    const TextStyle style = Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::End);
    const double area = profile.area();
    const double gained = area - m_transition.sections.front().profile.area();
    const std::string words = "area " + fixed(area, 3) + " m²";
    m_canvas.text(
        {frame.centre().x, frame.bottom - 9.0},
        index == 0 ? words : words + ", " + signedFixed(gained, 3) + " m² against the start",
        style);
    const std::string radii = radiiOf(profile);
    const bool fits = m_canvas.textWidth(radii, style) <= frame.inset(2.0).width();
    const std::string elements =
        std::to_string(profile.definition()->getNumSegments()) + " elements";
    m_canvas.text({frame.centre().x, frame.bottom - 4.0}, fits ? radii : elements, style);
  }

  void drawOverlay() {
    const Box& frame = m_layout.overlay;
    drawAxis(m_overlay, frame);
    for (std::size_t i = 0; i < m_transition.sections.size(); ++i) {
      m_canvas.path(pathOf(m_transition.sections[i].profile, m_overlay), penOf(i));
    }
    drawTitle(frame, "All outlines, " + Drawing::scaleText(m_layout.overlayScale));
    m_canvas.rectangle(frame, {Style::kInk, 0.35, {}});
  }

  void drawTitle(const Box& frame, const std::string& words) {
    m_canvas.text({frame.left + 4.0, frame.top + 5.0}, words,
                  bold(Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Middle)));
  }

  /// Below the outlines and in line with them; forward is up.
  void drawPlan() {
    const Box& frame = m_layout.plan;
    const Exchange::StationRange range = m_transition.range();
    const WorldMapping mapping = WorldMapping::diagram(
        {m_layout.extent.centre().x, range.from + range.length() / 2.0},
        overlayRoom(frame).centre(), 1000.0 / m_layout.overlayScale, 1000.0 / m_layout.planScale);
    std::vector<Point> left;
    std::vector<Point> right;
    for (const TransitionEdges& edges : m_transition.edges) {
      left.push_back(mapping.toPage({edges.left, edges.station}));
      right.push_back(mapping.toPage({edges.right, edges.station}));
    }
    std::vector<Point> inside = left;
    inside.insert(inside.end(), right.rbegin(), right.rend());
    constexpr Colour kInside{0.95, 0.96, 0.96};
    m_canvas.polygon(inside, kInside);
    drawStations(mapping);
    for (const auto& edge : {left, right}) {
      m_canvas.polyline(edge, {Style::kInk, 0.5, {}});
    }
    drawPlanAxis(mapping);
    drawTitle(frame, "Plan of the widest extent, forward is up; " +
                         Drawing::scaleText(m_layout.overlayScale) + " across, " +
                         Drawing::scaleText(m_layout.planScale) + " along");
    m_canvas.rectangle(frame, {Style::kInk, 0.35, {}});
  }

  /// A line at each section with its stationing and the offsets of the edges.
  void drawStations(const WorldMapping& mapping) {
    constexpr double kShare = 0.3;  // of the start's width: clear of the axis and of the edges
    constexpr double kAside = 4.0;
    const TransitionEdges& start = m_transition.edges.front();
    const Point column = mapping.toPage({start.left + kShare * (start.right - start.left), 0.0});
    const Point margin = mapping.toPage({m_layout.extent.left, 0.0}) - Point{kAside, 0.0};
    LabelPlacer labels(m_layout.plan.inset(0.5));
    for (std::size_t i = 0; i < m_transition.sections.size(); ++i) {
      const double station = m_transition.sections[i].station;
      const Exchange::DesignProfile& profile = m_transition.sections[i].profile;
      const Point left = mapping.toPage({profile.lowerLeft().x, station});
      const Point right = mapping.toPage({profile.upperRight().x, station});
      m_canvas.line(left, right, penOf(i));
      labelEdge(labels, left, 1.0, profile.lowerLeft().x);
      labelEdge(labels, right, -1.0, profile.upperRight().x);
      labels.place(m_canvas, m_transition.stationing.text(station, 3),
                   {placeAbove({margin.x, left.y}, -1.0), placeAbove({column.x, left.y}, 0.0),
                    placeAbove((left + right) * 0.5, 0.0)});
    }
  }

  /// Inside, or outside if there is no room.
  void labelEdge(LabelPlacer& labels, const Point& edge, double inward, double offset) {
    labels.place(m_canvas, signedFixed(offset, 3),
                 {placeAbove(edge, inward), placeAbove(edge, -inward)});
  }

  /// @param side where the label stands: right of the point for 1, left for -1, 0 centred
  static LabelPlace placeAbove(const Point& at, double side) {
    constexpr double kGap = 1.2;
    Align horizontal = Align::Middle;
    if (side > 0.0) horizontal = Align::Start;
    if (side < 0.0) horizontal = Align::End;
    return {at + Point{kGap * side, -kGap},
            Style::text(Style::kSmallTextSize, Style::kInk, horizontal, Align::End)};
  }

  /// With an arrow that points forward.
  void drawPlanAxis(const WorldMapping& mapping) {
    constexpr double kBeyond = 4.0;
    constexpr double kArrow = 2.6;
    const Exchange::StationRange range = m_transition.range();
    const Point from = mapping.toPage({0.0, range.from}) + Point{0.0, kBeyond};
    const Point to = mapping.toPage({0.0, range.to}) - Point{0.0, kBeyond};
    if (!m_layout.plan.contains(from)) return;
    m_canvas.line(from, to, kAxisPen);
    m_canvas.polygon({to, to + Point{-0.9, kArrow}, to + Point{0.9, kArrow}}, Style::kGrey);
  }

  Canvas& m_canvas;
  const Transition& m_transition;
  const TransitionLayout& m_layout;
  WorldMapping m_overlay;
};

std::vector<Drawing::LegendEntry> transitionLegend() {
  const auto line = [](const Pen& pen) {
    return [pen](Canvas& canvas, const Box& box) {
      canvas.line({box.left, box.centre().y}, {box.right, box.centre().y}, pen);
    };
  };
  const auto ramp = [](Canvas& canvas, const Box& box) {
    constexpr int kSteps = 9;
    const double width = box.width() / kSteps;
    for (int i = 0; i < kSteps; ++i) {
      const double left = box.left + i * width;
      canvas.fill({left, box.top + 1.4, left + width, box.bottom - 1.4},
                  colourAt(i / (kSteps - 1.0)));
    }
  };
  const auto joint = [](Canvas& canvas, const Box& box) {
    canvas.circle(box.centre(), 0.55, {Style::kInk, 0.25, {}}, Style::kWhite);
  };
  return {{ramp, "sections from start to end"},
          {line(kStartPen), "start profile"},
          {line(kAxisPen), "axis"},
          {joint, "joint of two elements"}};
}

}  // namespace

Sheet transitionSheet(const Transition& transition) {
  Sheet sheet;
  const Sheet size = sheet;
  sheet.draw = [&transition, size](Canvas& canvas) {
    const TransitionLayout layout = layoutOf(transition, Drawing::drawingArea(size));
    TransitionDrawing(canvas, transition, layout).draw();
    const Exchange::StationRange range = transition.range();
    Drawing::drawTitleBlock(
        canvas, size,
        {"Transition from " + transition.stationing.text(range.from, 3) + " to " +
             transition.stationing.text(range.to, 3),
         {"Sections " + Drawing::scaleText(layout.sectionScale) +
              " on A3, looking forward; lengths in m",
          "Start profile: " + transition.startSource + ", end profile: " + transition.endSource},
         transitionLegend(),
         0.0});
  };
  return sheet;
}

}  // namespace TunnelSurvey
