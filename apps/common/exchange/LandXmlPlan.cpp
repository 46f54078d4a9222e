// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/LandXmlPlan.h"

#include "common/exchange/VisibleText.h"

#include <Calculations/Calculations.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

namespace Exchange {

namespace {

using Ruv::Calculations::Utilities;

/// Points this close are one: files print micrometres or coarser (m).
constexpr double kSamePoint = 1e-6;

class PlanReader {
 public:
  explicit PlanReader(const LandXmlFile& file) : m_file(file) {}

  /// Nothing for an element without a length.
  std::optional<PlanElement> read(const pugi::xml_node& node) const {
    const std::string kind = localName(node);
    std::optional<PlanElement> element;
    if (kind == "Line") {
      element = lineOf(node);
    } else if (kind == "Curve") {
      element = curveOf(node);
    } else if (kind == "Spiral") {
      element = spiralOf(node);
    } else {
      m_file.fail(node,
                  "this element of a CoordGeom is not supported, only Line, Curve and Spiral");
    }
    if (!element) return std::nullopt;
    element->line = m_file.lineOf(node);
    element->startStation = m_file.optionalStation(node, "staStart");
    return element;
  }

 private:
  PlanElement between(const pugi::xml_node& node, ElementKind kind) const {
    PlanElement element;
    element.kind = kind;
    element.start = m_file.pointOf(m_file.requiredChild(node, "Start"));
    element.end = m_file.pointOf(m_file.requiredChild(node, "End"));
    return element;
  }

  std::optional<PlanPoint> optionalPoint(const pugi::xml_node& node, const char* name) const {
    const pugi::xml_node child = LandXmlFile::childNamed(node, name);
    if (!child) return std::nullopt;
    return m_file.pointOf(child);
  }

  /// 1 for a curve to the right.
  double sideOf(const pugi::xml_node& node) const {
    const std::string rotation = m_file.requiredText(node, "rot");
    if (rotation != "cw" && rotation != "ccw") {
      m_file.fail(node, "attribute rot is " + inQuotes(rotation) + ", neither cw nor ccw");
    }
    return rotation == "cw" ? 1.0 : -1.0;
  }

  bool isWithoutLength(const pugi::xml_node& node, const PlanElement& element) const {
    const auto length = m_file.optionalNumber(node, "length");
    const bool isPoint = distanceOf(element.start, element.end) < kSamePoint;
    if (length && *length == 0.0 && !isPoint) {
      m_file.fail(node, "attribute length is 0, but start and end lie apart");
    }
    return length ? *length == 0.0 : isPoint;
  }

  std::optional<PlanElement> lineOf(const pugi::xml_node& node) const {
    PlanElement element = between(node, ElementKind::Straight);
    if (isWithoutLength(node, element)) return std::nullopt;
    element.printedDirection = m_file.optionalAngle(node, "dir", m_file.units().direction);
    element.length = m_file.optionalLength(node).value_or(distanceOf(element.start, element.end));
    if (!(element.length <= kLongestElement)) m_file.fail(node, "is longer than any alignment");
    return element;
  }

  std::optional<PlanElement> curveOf(const pugi::xml_node& node) const {
    PlanElement element = between(node, ElementKind::Arc);
    const double side = sideOf(node);
    if (isWithoutLength(node, element)) return std::nullopt;
    element.center = optionalPoint(node, "Center");
    element.intersection = optionalPoint(node, "PI");
    element.printedDirection = m_file.optionalAngle(node, "dirStart", m_file.units().direction);
    element.printedTurn = m_file.optionalAngle(node, "delta", m_file.units().angle);
    const double radius = radiusOf(node, element);
    element.radiusStart = element.radiusEnd = side * radius;
    const auto length = m_file.optionalLength(node);
    element.length = length ? *length : radius * turnOf(node, element);
    if (!(element.length <= kLongestElement)) m_file.fail(node, "is longer than any alignment");
    return element;
  }

  double radiusOf(const pugi::xml_node& node, const PlanElement& element) const {
    if (const auto printed = m_file.optionalSize(node, "radius", kLargestRadius)) return *printed;
    double radius = 0.0;
    if (element.center) {
      radius = distanceOf(element.start, *element.center);
    } else if (element.intersection) {
      const double tangent = distanceOf(element.start, *element.intersection);
      radius = tangent / std::tan(turnAtIntersection(element) / 2.0);
    }
    if (!(radius > 0.0) || !(radius <= kLargestRadius)) {
      m_file.fail(node, "attribute radius is missing, and neither Center nor PI gives it");
    }
    return radius;
  }

  static double turnAtIntersection(const PlanElement& element) {
    return std::abs(
        Utilities::getangleAsMinusPiToPi(azimuthOf(*element.intersection, element.end) -
                                         azimuthOf(element.start, *element.intersection)));
  }

  /// By how much a curve turns whose length is not given.
  double turnOf(const pugi::xml_node& node, const PlanElement& element) const {
    if (element.center) {
      const double turn =
          azimuthOf(*element.center, element.end) - azimuthOf(*element.center, element.start);
      return Utilities::getAngleAsZeroToTwoPi(element.radiusStart > 0.0 ? turn : -turn);
    }
    if (element.printedTurn) return std::abs(*element.printedTurn);
    if (!element.intersection) {
      m_file.fail(node,
                  "one of length, delta, Center and PI is needed to tell the shorter way "
                  "round from the longer one");
    }
    const double halfSine =
        distanceOf(element.start, element.end) / (2.0 * std::abs(element.radiusStart));
    return 2.0 * std::asin(std::min(1.0, halfSine));
  }

  /// 0 for a straight end, which files call INF or 0.
  double spiralRadius(const pugi::xml_node& node, const char* attribute) const {
    std::string text = m_file.requiredText(node, attribute);
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
      return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    if (text == "inf" || text == "infinity" || text == "infinite") return 0.0;
    return m_file.optionalSize(node, attribute, kLargestRadius).value_or(0.0);
  }

  std::optional<PlanElement> spiralOf(const pugi::xml_node& node) const {
    const std::string type = m_file.requiredText(node, "spiType");
    if (type != "clothoid") {
      m_file.fail(node, "spiType " + inQuotes(type) + " is not supported, only clothoid");
    }
    PlanElement element = between(node, ElementKind::Clothoid);
    if (isWithoutLength(node, element)) return std::nullopt;
    const double side = sideOf(node);
    element.radiusStart = side * spiralRadius(node, "radiusStart");
    element.radiusEnd = side * spiralRadius(node, "radiusEnd");
    if (element.radiusStart == 0.0 && element.radiusEnd == 0.0) {
      m_file.fail(node, "radiusStart and radiusEnd are both INF");
    }
    element.length = spiralLength(node, element);
    element.intersection = optionalPoint(node, "PI");
    element.printedDirection = m_file.optionalAngle(node, "dirStart", m_file.units().direction);
    element.printedTurn = m_file.optionalAngle(node, "theta", m_file.units().angle);
    return element;
  }

  /// By the parameter A where it is not given: the curvature changes by length / A².
  double spiralLength(const pugi::xml_node& node, const PlanElement& element) const {
    if (const auto length = m_file.optionalLength(node)) return *length;
    const auto parameter = m_file.optionalSize(node, "constant", kLargestRadius);
    if (!parameter) m_file.fail(node, "attribute length is missing, and so is constant");
    const auto curvature = [](double radius) { return radius == 0.0 ? 0.0 : 1.0 / radius; };
    const double change = std::abs(curvature(element.radiusEnd) - curvature(element.radiusStart));
    const double length = *parameter * *parameter * change;
    if (!(length > 0.0) || !(length <= kLongestElement)) {
      m_file.fail(node, "radii and constant give no length");
    }
    return length;
  }

  const LandXmlFile& m_file;
};

}  // namespace

std::vector<PlanElement> planOf(const LandXmlFile& file, const pugi::xml_node& alignment) {
  const PlanReader reader(file);
  const pugi::xml_node geometry = file.requiredChild(alignment, "CoordGeom");
  std::vector<PlanElement> plan;
  for (const pugi::xml_node& node : geometry.children()) {
    if (node.type() != pugi::node_element || localName(node) == "Feature") continue;
    if (auto element = reader.read(node)) plan.push_back(*element);
  }
  if (plan.empty()) file.fail(geometry, "holds no element");
  return plan;
}

}  // namespace Exchange
