// SPDX-License-Identifier: BSL-1.0
#include "tunnel_survey/SurveySheet.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace TunnelSurvey {

namespace {

using Drawing::Colour;
using Ruv::CHoralElement;
using Ruv::CShapeType;
using Ruv::Calculations::AxisDefinition;
namespace Style = Drawing::Style;

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
AxisElement clippedTo(const AxisElement& element, const Exchange::StationRange& range) {
  AxisElement part = element;
  part.from = std::max(element.from, range.from);
  part.to = std::min(element.to, range.to);
  const double slope = (element.curvatureTo - element.curvatureFrom) / (element.to - element.from);
  part.curvatureFrom = element.curvatureFrom + slope * (part.from - element.from);
  part.curvatureTo = element.curvatureFrom + slope * (part.to - element.from);
  return part;
}

}  // namespace

std::vector<AxisElement> elementsWithin(const AxisDefinition& axis,
                                        const Exchange::StationRange& range) {
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

std::vector<Exchange::StationRange> equalStrips(const AxisDefinition& axis, int count) {
  const Exchange::StationRange all = Exchange::rangeOf(axis);
  const double length = all.length() / count;
  std::vector<Exchange::StationRange> strips;
  for (int i = 0; i < count; ++i) {
    const bool isLast = i + 1 == count;
    strips.push_back({all.from + i * length, isLast ? all.to : all.from + (i + 1) * length});
  }
  return strips;
}

Colour colourOf(Exchange::ElementKind kind) {
  switch (kind) {
    case Exchange::ElementKind::Arc:
      return Drawing::Style::kArc;
    case Exchange::ElementKind::Clothoid:
      return Drawing::Style::kClothoid;
    default:
      return Drawing::Style::kStraight;
  }
}

}  // namespace TunnelSurvey
