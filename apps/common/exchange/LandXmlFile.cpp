// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/LandXmlFile.h"

#include "common/exchange/NumberParsing.h"
#include "common/exchange/TextLines.h"
#include "common/exchange/VisibleText.h"

#include <algorithm>
#include <cmath>

namespace Exchange {

std::string localName(const pugi::xml_node& node) {
  const std::string name = node.name();
  return name.substr(name.find(':') + 1);
}

LandXmlFile::LandXmlFile(const std::string& xml) {
  // Places in UTF-16 and UTF-32 would not be those of lines.
  const auto converted = unicodeAsUtf8(xml);
  const std::string& text = converted ? *converted : xml;
  if (wordsOf(text).empty()) throw LandXmlFailure({0, "the file is empty"});
  m_lineStarts.push_back(0);
  for (std::size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 1)) {
    m_lineStarts.push_back(static_cast<std::ptrdiff_t>(i) + 1);
  }
  const auto encoding = converted ? pugi::encoding_utf8 : pugi::encoding_auto;
  const auto parsed =
      m_document.load_buffer(text.data(), text.size(), pugi::parse_default, encoding);
  if (!parsed) {
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), parsed.offset);
    throw LandXmlFailure({static_cast<int>(after - m_lineStarts.begin()),
                          std::string("not well-formed XML: ") + parsed.description()});
  }
  m_root = m_document.document_element();
  if (localName(m_root) != "LandXML") fail(m_root, "the root element is not LandXML");
  readUnits();
}

int LandXmlFile::lineOf(const pugi::xml_node& node) const {
  if (node.offset_debug() < 0) return 0;
  const auto after =
      std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), node.offset_debug());
  return static_cast<int>(after - m_lineStarts.begin());
}

void LandXmlFile::fail(const pugi::xml_node& node, const std::string& message) const {
  throw LandXmlFailure({lineOf(node), visible(localName(node)) + ": " + message});
}

std::vector<pugi::xml_node> LandXmlFile::childrenNamed(const pugi::xml_node& node,
                                                       const char* name) {
  std::vector<pugi::xml_node> found;
  for (const pugi::xml_node& child : node.children()) {
    if (localName(child) == name) found.push_back(child);
  }
  return found;
}

pugi::xml_node LandXmlFile::childNamed(const pugi::xml_node& node, const char* name) {
  const auto found = childrenNamed(node, name);
  return found.empty() ? pugi::xml_node() : found.front();
}

pugi::xml_node LandXmlFile::requiredChild(const pugi::xml_node& node, const char* name) const {
  const pugi::xml_node child = childNamed(node, name);
  if (!child) fail(node, std::string("element ") + name + " is missing");
  return child;
}

std::string LandXmlFile::requiredText(const pugi::xml_node& node, const char* attribute) const {
  const pugi::xml_attribute found = node.attribute(attribute);
  if (!found) fail(node, std::string("attribute ") + attribute + " is missing");
  return found.value();
}

std::optional<double> LandXmlFile::optionalNumber(const pugi::xml_node& node,
                                                  const char* attribute) const {
  const pugi::xml_attribute found = node.attribute(attribute);
  if (!found || trimmed(found.value()).empty()) return std::nullopt;
  const auto numbers = parseNumbers(found.value());
  if (!numbers || numbers->size() != 1) {
    fail(node, std::string("attribute ") + attribute + " is " + inQuotes(found.value()) +
                   ", not a number");
  }
  return numbers->front();
}

std::optional<double> LandXmlFile::optionalSize(const pugi::xml_node& node, const char* attribute,
                                                double largest) const {
  const auto number = optionalNumber(node, attribute);
  if (!number || *number == 0.0) return std::nullopt;
  const double size = std::abs(*number) * m_units.metresPerLength;
  if (!(size <= largest)) {
    fail(node, std::string("attribute ") + attribute + " is " +
                   inQuotes(node.attribute(attribute).value()) + ", larger than any alignment");
  }
  return size;
}

std::optional<double> LandXmlFile::optionalLength(const pugi::xml_node& node) const {
  const auto number = optionalNumber(node, "length");
  if (number && *number < 0.0) {
    fail(node, "attribute length is " + inQuotes(node.attribute("length").value()) +
                   ", not a positive number");
  }
  return optionalSize(node, "length", kLongestElement);
}

std::optional<double> LandXmlFile::optionalAngle(const pugi::xml_node& node, const char* attribute,
                                                 AngleUnit unit) const {
  const auto number = optionalNumber(node, attribute);
  if (!number) return std::nullopt;
  return toRadians(*number, unit);
}

std::optional<double> LandXmlFile::optionalStation(const pugi::xml_node& node,
                                                   const char* attribute) const {
  const auto station = optionalNumber(node, attribute);
  if (!station) return std::nullopt;
  const double metres = *station * m_units.metresPerLength;
  if (!(std::abs(metres) <= kLargestCoordinate)) {
    fail(node, std::string("attribute ") + attribute + " is too large");
  }
  return metres;
}

double LandXmlFile::coordinate(const pugi::xml_node& node, double value,
                               double metresPerUnit) const {
  const double metres = value * metresPerUnit;
  if (!(std::abs(metres) <= kLargestCoordinate)) {
    fail(node, "coordinates in " + inQuotes(node.child_value()) + " lie outside any grid");
  }
  return metres;
}

pugi::xml_node LandXmlFile::pointNamed(const pugi::xml_node& node, const std::string& name) const {
  for (const pugi::xml_node& list : childrenNamed(m_root, "CgPoints")) {
    for (const pugi::xml_node& point : childrenNamed(list, "CgPoint")) {
      if (point.attribute("name").value() == name && !wordsOf(point.child_value()).empty()) {
        return point;
      }
    }
  }
  fail(node,
       "refers by pntRef to the point " + inQuotes(name) + ", which is not among the CgPoints");
}

PlanPoint LandXmlFile::pointOf(const pugi::xml_node& node) const {
  pugi::xml_node place = node;
  if (node.attribute("pntRef") && wordsOf(node.child_value()).empty()) {
    place = pointNamed(node, node.attribute("pntRef").value());
  }
  const auto numbers = parseNumbers(place.child_value());
  if (!numbers || numbers->size() < 2 || numbers->size() > 3) {
    fail(place, inQuotes(place.child_value()) + " is not north, east and perhaps height");
  }
  return {coordinate(place, numbers->at(1), m_units.metresPerLength),
          coordinate(place, numbers->at(0), m_units.metresPerLength)};
}

void LandXmlFile::readUnits() {
  const pugi::xml_node units = requiredChild(m_root, "Units");
  const pugi::xml_node metric = childNamed(units, "Metric");
  const pugi::xml_node node = metric ? metric : childNamed(units, "Imperial");
  if (!node) fail(units, "declares neither Metric nor Imperial");

  m_units.isMetric = static_cast<bool>(metric);
  m_units.lengthName = visible(requiredText(node, "linearUnit"));
  const auto length = metresPerUnit(m_units.lengthName);
  if (!length) fail(node, "linearUnit " + inQuotes(m_units.lengthName) + " is not known");
  m_units.metresPerLength = *length;

  const std::string heightName = node.attribute("elevationUnit").value();
  const auto height =
      heightName.empty() ? length : metresPerHeightUnit(heightName, m_units.lengthName);
  if (!height) fail(node, "elevationUnit " + inQuotes(heightName) + " is not known");
  m_units.metresPerHeight = *height;

  const auto angleUnitOf = [&](const char* attribute) {
    const std::string name = node.attribute(attribute).as_string("radians");
    const auto unit = angleUnit(name);
    if (!unit) fail(node, std::string(attribute) + " " + inQuotes(name) + " is not known");
    return *unit;
  };
  m_units.angle = angleUnitOf("angularUnit");
  m_units.direction = angleUnitOf("directionUnit");
}

}  // namespace Exchange
