#include "common/exchange/LandXmlReader.h"

#include "common/exchange/LandXmlUnits.h"
#include "common/exchange/NumberParsing.h"
#include "common/exchange/VisibleText.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Exchange {

namespace {

/// No grid and no stationing on the Earth reaches farther (m).
constexpr double kLargestCoordinate = 1e8;
/// No element of a railway or road is longer (m).
constexpr double kLongestElement = 1e6;
/// Flatter curves are slips (m): over a kilometre they leave the tangent by half a micrometre.
constexpr double kLargestRadius = 1e12;

struct ReadFailure : std::runtime_error {
  explicit ReadFailure(Remark reason)
      : std::runtime_error(reason.message), remark(std::move(reason)) {}
  Remark remark;
};

/// Without a namespace prefix.
std::string localName(const pugi::xml_node& node) {
  const std::string name = node.name();
  return name.substr(name.find(':') + 1);
}

/// Finds line numbers. They are not known in files of 16- or 32-bit letters.
class LineIndex {
 public:
  explicit LineIndex(const std::string& text) {
    if (text.find('\0') != std::string::npos) return;
    m_lineStarts.push_back(0);
    for (std::size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 1)) {
      m_lineStarts.push_back(static_cast<std::ptrdiff_t>(i) + 1);
    }
  }

  int lineOf(std::ptrdiff_t offset) const {
    if (offset < 0) return 0;
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    return static_cast<int>(after - m_lineStarts.begin());
  }

 private:
  std::vector<std::ptrdiff_t> m_lineStarts;
};

class Reader {
 public:
  explicit Reader(const std::string& xml) : m_lines(xml), m_xml(xml) {}

  Alignment read(const std::string& name);

 private:
  [[noreturn]] void fail(const pugi::xml_node& node, const std::string& message) const;
  std::vector<pugi::xml_node> childrenNamed(const pugi::xml_node& node, const char* name) const;
  pugi::xml_node requiredChild(const pugi::xml_node& node, const char* name) const;

  std::string requiredText(const pugi::xml_node& node, const char* attribute) const;
  std::optional<double> optionalNumber(const pugi::xml_node& node, const char* attribute) const;
  double requiredNumber(const pugi::xml_node& node, const char* attribute) const;
  std::optional<double> optionalSize(const pugi::xml_node& node, const char* attribute,
                                     double largest) const;
  double requiredSize(const pugi::xml_node& node, const char* attribute, double largest) const;
  std::optional<double> optionalAngle(const pugi::xml_node& node, const char* attribute,
                                      AngleUnit unit) const;
  double coordinate(const pugi::xml_node& node, double value, double metresPerUnit) const;
  std::optional<double> optionalStation(const pugi::xml_node& node) const;
  PlanPoint pointOf(const pugi::xml_node& node) const;
  double sideOf(const pugi::xml_node& node) const;
  double spiralRadius(const pugi::xml_node& node, const char* attribute) const;

  void readUnits(const pugi::xml_node& root);
  pugi::xml_node alignmentNamed(const pugi::xml_node& root, const std::string& name) const;
  std::vector<PlanElement> planOf(const pugi::xml_node& alignment) const;
  PlanElement elementOf(const pugi::xml_node& node) const;
  PlanElement lineOf(const pugi::xml_node& node) const;
  PlanElement curveOf(const pugi::xml_node& node) const;
  PlanElement spiralOf(const pugi::xml_node& node) const;
  std::vector<ProfilePoint> profileOf(const pugi::xml_node& alignment) const;
  ProfilePoint profilePointOf(const pugi::xml_node& node) const;
  void checkProfile(const std::vector<ProfilePoint>& profile, const pugi::xml_node& node) const;

  LineIndex m_lines;
  const std::string& m_xml;
  pugi::xml_document m_document;
  LandXmlUnits m_units;
};

void Reader::fail(const pugi::xml_node& node, const std::string& message) const {
  throw ReadFailure({m_lines.lineOf(node.offset_debug()), localName(node) + ": " + message});
}

std::vector<pugi::xml_node> Reader::childrenNamed(const pugi::xml_node& node,
                                                  const char* name) const {
  std::vector<pugi::xml_node> found;
  for (const pugi::xml_node& child : node.children()) {
    if (localName(child) == name) found.push_back(child);
  }
  return found;
}

pugi::xml_node Reader::requiredChild(const pugi::xml_node& node, const char* name) const {
  const auto found = childrenNamed(node, name);
  if (found.empty()) fail(node, std::string("element ") + name + " is missing");
  return found.front();
}

std::string Reader::requiredText(const pugi::xml_node& node, const char* attribute) const {
  const pugi::xml_attribute found = node.attribute(attribute);
  if (!found) fail(node, std::string("attribute ") + attribute + " is missing");
  return found.value();
}

std::optional<double> Reader::optionalNumber(const pugi::xml_node& node,
                                             const char* attribute) const {
  const pugi::xml_attribute found = node.attribute(attribute);
  if (!found) return std::nullopt;
  const auto number = parseNumber(found.value());
  if (!number) {
    fail(node,
         std::string("attribute ") + attribute + " is " + quoted(found.value()) + ", not a number");
  }
  return number;
}

double Reader::requiredNumber(const pugi::xml_node& node, const char* attribute) const {
  requiredText(node, attribute);
  return *optionalNumber(node, attribute);
}

std::optional<double> Reader::optionalSize(const pugi::xml_node& node, const char* attribute,
                                           double largest) const {
  const auto number = optionalNumber(node, attribute);
  if (!number) return std::nullopt;
  const double size = *number * m_units.metresPerLength;
  const std::string what =
      std::string("attribute ") + attribute + " is " + quoted(node.attribute(attribute).value());
  if (!(size > 0.0)) fail(node, what + ", not a positive number");
  if (!(size <= largest)) fail(node, what + ", larger than any alignment");
  return size;
}

double Reader::requiredSize(const pugi::xml_node& node, const char* attribute,
                            double largest) const {
  requiredText(node, attribute);
  return *optionalSize(node, attribute, largest);
}

std::optional<double> Reader::optionalAngle(const pugi::xml_node& node, const char* attribute,
                                            AngleUnit unit) const {
  const auto number = optionalNumber(node, attribute);
  if (!number) return std::nullopt;
  return toRadians(*number, unit);
}

double Reader::coordinate(const pugi::xml_node& node, double value, double metresPerUnit) const {
  const double metres = value * metresPerUnit;
  if (!(std::abs(metres) <= kLargestCoordinate)) {
    fail(node, "coordinates in " + quoted(node.child_value()) + " lie outside any grid");
  }
  return metres;
}

std::optional<double> Reader::optionalStation(const pugi::xml_node& node) const {
  const auto station = optionalNumber(node, "staStart");
  if (!station) return std::nullopt;
  const double metres = *station * m_units.metresPerLength;
  if (!(std::abs(metres) <= kLargestCoordinate)) fail(node, "attribute staStart is too large");
  return metres;
}

PlanPoint Reader::pointOf(const pugi::xml_node& node) const {
  if (node.attribute("pntRef") && wordsOf(node.child_value()).empty()) {
    fail(node, "refers to another point by pntRef; coordinates are needed here");
  }
  const auto numbers = parseNumbers(node.child_value());
  if (!numbers || numbers->size() < 2 || numbers->size() > 3) {
    fail(node, quoted(node.child_value()) + " is not north, east and perhaps height");
  }
  return {coordinate(node, numbers->at(1), m_units.metresPerLength),
          coordinate(node, numbers->at(0), m_units.metresPerLength)};
}

double Reader::sideOf(const pugi::xml_node& node) const {
  const std::string rotation = requiredText(node, "rot");
  if (rotation != "cw" && rotation != "ccw") {
    fail(node, "attribute rot is " + quoted(rotation) + ", neither cw nor ccw");
  }
  return rotation == "cw" ? 1.0 : -1.0;
}

double Reader::spiralRadius(const pugi::xml_node& node, const char* attribute) const {
  if (requiredText(node, attribute) == "INF") return 0.0;
  return requiredSize(node, attribute, kLargestRadius);
}

void Reader::readUnits(const pugi::xml_node& root) {
  const pugi::xml_node units = requiredChild(root, "Units");
  const auto metric = childrenNamed(units, "Metric");
  const auto imperial = childrenNamed(units, "Imperial");
  if (metric.empty() && imperial.empty()) fail(units, "declares neither Metric nor Imperial");
  const pugi::xml_node node = metric.empty() ? imperial.front() : metric.front();

  m_units.lengthName = requiredText(node, "linearUnit");
  const auto length = metresPerUnit(m_units.lengthName);
  if (!length) fail(node, "linearUnit " + quoted(m_units.lengthName) + " is not known");
  m_units.metresPerLength = *length;

  const std::string heightName = node.attribute("elevationUnit").value();
  const auto height =
      heightName.empty() ? length : metresPerHeightUnit(heightName, m_units.lengthName);
  if (!height) fail(node, "elevationUnit " + quoted(heightName) + " is not known");
  m_units.metresPerHeight = *height;

  const auto angleUnitOf = [&](const char* attribute) {
    const std::string name = node.attribute(attribute).as_string("radians");
    const auto unit = angleUnit(name);
    if (!unit) fail(node, std::string(attribute) + " " + quoted(name) + " is not known");
    return *unit;
  };
  m_units.angle = angleUnitOf("angularUnit");
  m_units.direction = angleUnitOf("directionUnit");
}

pugi::xml_node Reader::alignmentNamed(const pugi::xml_node& root, const std::string& name) const {
  constexpr std::size_t kMostListed = 10;
  std::size_t count = 0;
  std::string others;
  for (const pugi::xml_node& list : childrenNamed(root, "Alignments")) {
    for (const pugi::xml_node& alignment : childrenNamed(list, "Alignment")) {
      const std::string own = alignment.attribute("name").value();
      if (name.empty() || own == name) return alignment;
      if (++count <= kMostListed) others += (others.empty() ? "" : ", ") + quoted(own);
    }
  }
  if (count == 0) fail(root, "the file holds no alignment");
  fail(root, "no alignment is named " + quoted(name) + "; there is " + others +
                 (count > kMostListed ? " and more" : ""));
}

PlanElement Reader::lineOf(const pugi::xml_node& node) const {
  PlanElement element;
  element.kind = ElementKind::Straight;
  element.start = pointOf(requiredChild(node, "Start"));
  element.end = pointOf(requiredChild(node, "End"));
  element.printedDirection = optionalAngle(node, "dir", m_units.direction);
  const double distance =
      std::hypot(element.end.east - element.start.east, element.end.north - element.start.north);
  element.length = optionalSize(node, "length", kLongestElement).value_or(distance);
  if (!(element.length > 0.0)) fail(node, "start and end coincide");
  return element;
}

PlanElement Reader::curveOf(const pugi::xml_node& node) const {
  PlanElement element;
  element.kind = ElementKind::Arc;
  const double side = sideOf(node);
  element.start = pointOf(requiredChild(node, "Start"));
  element.center = pointOf(requiredChild(node, "Center"));
  element.end = pointOf(requiredChild(node, "End"));
  const double radius = requiredSize(node, "radius", kLargestRadius);
  element.radiusStart = element.radiusEnd = side * radius;
  element.length = requiredSize(node, "length", kLongestElement);
  element.printedDirection = optionalAngle(node, "dirStart", m_units.direction);
  element.printedTurn = optionalAngle(node, "delta", m_units.angle);
  return element;
}

PlanElement Reader::spiralOf(const pugi::xml_node& node) const {
  const std::string type = requiredText(node, "spiType");
  if (type != "clothoid")
    fail(node, "spiType " + quoted(type) + " is not supported, only clothoid");
  PlanElement element;
  element.kind = ElementKind::Clothoid;
  const double side = sideOf(node);
  element.radiusStart = side * spiralRadius(node, "radiusStart");
  element.radiusEnd = side * spiralRadius(node, "radiusEnd");
  if (element.radiusStart == 0.0 && element.radiusEnd == 0.0) {
    fail(node, "radiusStart and radiusEnd are both INF");
  }
  element.length = requiredSize(node, "length", kLongestElement);
  element.start = pointOf(requiredChild(node, "Start"));
  element.end = pointOf(requiredChild(node, "End"));
  const auto intersections = childrenNamed(node, "PI");
  if (!intersections.empty()) element.intersection = pointOf(intersections.front());
  element.printedDirection = optionalAngle(node, "dirStart", m_units.direction);
  element.printedTurn = optionalAngle(node, "theta", m_units.angle);
  return element;
}

PlanElement Reader::elementOf(const pugi::xml_node& node) const {
  const std::string kind = localName(node);
  PlanElement element;
  if (kind == "Line") {
    element = lineOf(node);
  } else if (kind == "Curve") {
    element = curveOf(node);
  } else if (kind == "Spiral") {
    element = spiralOf(node);
  } else {
    fail(node, "this element of a CoordGeom is not supported, only Line, Curve and Spiral");
  }
  element.line = m_lines.lineOf(node.offset_debug());
  element.startStation = optionalStation(node);
  return element;
}

std::vector<PlanElement> Reader::planOf(const pugi::xml_node& alignment) const {
  const pugi::xml_node geometry = requiredChild(alignment, "CoordGeom");
  std::vector<PlanElement> plan;
  for (const pugi::xml_node& node : geometry.children()) {
    if (node.type() != pugi::node_element || localName(node) == "Feature") continue;
    plan.push_back(elementOf(node));
  }
  if (plan.empty()) fail(geometry, "holds no element");
  return plan;
}

ProfilePoint Reader::profilePointOf(const pugi::xml_node& node) const {
  const std::string kind = localName(node);
  ProfilePoint point;
  if (kind == "ParaCurve") {
    point.rounding = RoundingKind::Parabola;
    point.size = requiredSize(node, "length", kLongestElement);
  } else if (kind == "CircCurve") {
    point.rounding = RoundingKind::Circle;
    point.size = requiredSize(node, "radius", kLargestRadius);
  } else if (kind == "UnsymParaCurve") {
    fail(node, "unsymmetrical parabolas are not supported");
  } else if (kind != "PVI") {
    fail(node, "this element of a ProfAlign is not supported, only PVI, ParaCurve and CircCurve");
  }
  const auto numbers = parseNumbers(node.child_value());
  if (!numbers || numbers->size() != 2) {
    fail(node, quoted(node.child_value()) + " is not station and height");
  }
  point.line = m_lines.lineOf(node.offset_debug());
  point.station = coordinate(node, numbers->at(0), m_units.metresPerLength);
  point.height = coordinate(node, numbers->at(1), m_units.metresPerHeight);
  return point;
}

void Reader::checkProfile(const std::vector<ProfilePoint>& profile,
                          const pugi::xml_node& node) const {
  if (profile.size() < 2) fail(node, "holds fewer than two points");
  for (std::size_t i = 1; i < profile.size(); ++i) {
    if (profile[i].station > profile[i - 1].station) continue;
    throw ReadFailure({profile[i].line, "ProfAlign: stations do not ascend"});
  }
  for (const ProfilePoint* outer : {&profile.front(), &profile.back()}) {
    if (outer->rounding == RoundingKind::None) continue;
    throw ReadFailure({outer->line, "ProfAlign: the first and the last point cannot be rounded"});
  }
}

std::vector<ProfilePoint> Reader::profileOf(const pugi::xml_node& alignment) const {
  const pugi::xml_node design = requiredChild(requiredChild(alignment, "Profile"), "ProfAlign");
  std::vector<ProfilePoint> profile;
  for (const pugi::xml_node& node : design.children()) {
    if (node.type() != pugi::node_element || localName(node) == "Feature") continue;
    profile.push_back(profilePointOf(node));
  }
  checkProfile(profile, design);
  return profile;
}

Alignment Reader::read(const std::string& name) {
  if (wordsOf(m_xml).empty()) throw ReadFailure({0, "the file is empty"});
  const auto parsed = m_document.load_buffer(m_xml.data(), m_xml.size());
  if (!parsed) {
    throw ReadFailure({m_lines.lineOf(parsed.offset),
                       std::string("not well-formed XML: ") + parsed.description()});
  }
  const pugi::xml_node root = m_document.document_element();
  if (localName(root) != "LandXML") fail(root, "the root element is not LandXML");
  readUnits(root);
  const pugi::xml_node node = alignmentNamed(root, name);
  const auto equations = childrenNamed(node, "StaEquation");
  if (!equations.empty()) fail(equations.front(), "station equations are not supported");
  Alignment alignment;
  alignment.name = visible(node.attribute("name").value());
  alignment.lengthUnit = m_units.lengthName;
  requiredNumber(node, "staStart");
  alignment.startStation = *optionalStation(node);
  alignment.plan = planOf(node);
  alignment.profile = profileOf(node);
  return alignment;
}

}  // namespace

Outcome<Alignment> readLandXml(const std::string& xml, const std::string& name) {
  try {
    return Outcome<Alignment>::success(Reader(xml).read(name));
  } catch (const ReadFailure& failure) {
    return Outcome<Alignment>::failure(failure.remark);
  }
}

}  // namespace Exchange
