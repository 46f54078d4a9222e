#include "tunnel_survey/SurveySheet.h"

#include "common/drawing/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace TunnelSurvey {

namespace {

using Drawing::Align;
using Drawing::Box;
using Drawing::Canvas;
using Drawing::Colour;
using Drawing::Point;
using Drawing::Sheet;
using Drawing::TextStyle;
using Ruv::CHoralElement;
using Ruv::CShapeType;
using Ruv::Calculations::AxisDefinition;

constexpr double kPageMargin = 8.0;
constexpr double kTitleBlockHeight = 24.0;

Exchange::ElementKind kindOf(const CHoralElement& element) {
  switch (element.getTypeId()) {
    case CShapeType::Arc:
      return Exchange::ElementKind::Arc;
    case CShapeType::Clothoid:
      return Exchange::ElementKind::Clothoid;
    default:
      return Exchange::ElementKind::Straight;
  }
}

double curvatureOf(double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; }

/// The part of an element inside a range; the curvature of every kind is linear.
AxisElement clippedTo(const AxisElement& element, const StationRange& range) {
  AxisElement part = element;
  part.from = std::max(element.from, range.from);
  part.to = std::min(element.to, range.to);
  const double slope = (element.curvatureTo - element.curvatureFrom) / (element.to - element.from);
  part.curvatureFrom = element.curvatureFrom + slope * (part.from - element.from);
  part.curvatureTo = element.curvatureFrom + slope * (part.to - element.from);
  return part;
}

Box titleBox(const Sheet& sheet) {
  return {kPageMargin, sheet.height - kPageMargin - kTitleBlockHeight, sheet.width - kPageMargin,
          sheet.height - kPageMargin};
}

}  // namespace

std::vector<double> evenStations(const StationRange& range, double step) {
  constexpr double kMostParts = 2000.0;
  const double parts = std::min(kMostParts, std::max(1.0, std::ceil(range.length() / step)));
  const int count = static_cast<int>(parts);
  std::vector<double> stations;
  stations.reserve(static_cast<std::size_t>(count) + 1);
  for (int i = 0; i < count; ++i) {
    stations.push_back(range.from + range.length() * i / count);
  }
  stations.push_back(range.to);
  return stations;
}

StationRange rangeOf(const AxisDefinition& axis) {
  return {axis.minimumStng2d(), axis.maximumStng2d()};
}

std::vector<AxisElement> elementsWithin(const AxisDefinition& axis, const StationRange& range) {
  std::vector<AxisElement> elements;
  for (unsigned i = 0; i < axis.getNumHoralSegments(); ++i) {
    const auto* end = dynamic_cast<const CHoralElement*>(axis.getHoralSegmentAt(i));
    if (end == nullptr || end->getPrevious() == nullptr) continue;
    AxisElement element{kindOf(*end), end->getPrevious()->getStationing(), end->getStationing(),
                        curvatureOf(end->getRadiusStart()), curvatureOf(end->getRadiusEnd())};
    element = clippedTo(element, range);
    if (element.to > element.from) elements.push_back(element);
  }
  return elements;
}

std::vector<StationRange> equalStrips(const AxisDefinition& axis, int count) {
  const StationRange all = rangeOf(axis);
  const double length = all.length() / count;
  std::vector<StationRange> strips;
  for (int i = 0; i < count; ++i) {
    const bool isLast = i + 1 == count;
    strips.push_back({all.from + i * length, isLast ? all.to : all.from + (i + 1) * length});
  }
  return strips;
}

const std::vector<double>& usualScales() {
  static const std::vector<double> scales = [] {
    std::vector<double> all;
    // The last ones show a circumference of the Earth.
    for (double power = 100.0; power < 2e9; power *= 10.0) {
      for (const double factor : {1.0, 2.0, 2.5, 5.0}) {
        all.push_back(factor * power);
      }
    }
    return all;
  }();
  return scales;
}

double largestUsualScale(double millimetresPerMetre) {
  for (const double large : {10.0, 20.0, 25.0, 50.0, 75.0}) {
    if (1000.0 / large <= millimetresPerMetre) return large;
  }
  const auto found = std::find_if(
      usualScales().begin(), usualScales().end(),
      [millimetresPerMetre](double scale) { return 1000.0 / scale <= millimetresPerMetre; });
  return found == usualScales().end() ? usualScales().back() : *found;
}

std::string scaleText(double denominator) { return "1:" + Drawing::grouped(denominator); }

namespace Style {

Colour ofElement(Exchange::ElementKind kind) {
  switch (kind) {
    case Exchange::ElementKind::Arc:
      return kArc;
    case Exchange::ElementKind::Clothoid:
      return kClothoid;
    default:
      return kStraight;
  }
}

TextStyle text(double size, const Colour& colour, Align horizontal, Align vertical) {
  TextStyle style;
  style.size = size;
  style.colour = colour;
  style.horizontal = horizontal;
  style.vertical = vertical;
  return style;
}

void surveyedPoint(Canvas& canvas, const Point& at) {
  canvas.circle(at, 0.65, {kSurveyed, 0.3, {}}, kWhite);
}

}  // namespace Style

Box drawingArea(const Sheet& sheet) {
  return {kPageMargin, kPageMargin, sheet.width - kPageMargin, titleBox(sheet).top - 2.0};
}

void drawTitleBlock(Canvas& canvas, const Sheet& sheet, const TitleBlock& block) {
  const Box box = titleBox(sheet);
  canvas.rectangle(box, {Style::kInk, 0.35, {}});
  const Box inner = box.inset(4.0);

  TextStyle style = Style::text(5.0, Style::kInk, Align::Start, Align::Start);
  style.bold = true;
  canvas.text({inner.left, inner.top}, block.title, style);
  style = Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::End);
  for (std::size_t i = 0; i < block.lines.size(); ++i) {
    canvas.text({inner.left, inner.top + 10.0 + 5.0 * static_cast<double>(i)}, block.lines[i],
                style);
  }

  const double barMiddle = box.left + 0.47 * box.width();
  if (block.millimetresPerMetre > 0.0) {
    drawScaleBar(canvas, {barMiddle, box.centre().y + 2.0}, 0.15 * box.width(),
                 block.millimetresPerMetre, "m",
                 Style::text(Style::kTextSize, Style::kInk, Align::Middle, Align::End));
  }
  const Box legend{box.left + 0.60 * box.width(), inner.top - 1.5, inner.right, inner.bottom + 2.5};
  drawLegend(canvas, legend, block.legend,
             Style::text(Style::kTextSize, Style::kInk, Align::Start, Align::Middle));
}

}  // namespace TunnelSurvey
