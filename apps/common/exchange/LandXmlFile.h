// SPDX-License-Identifier: BSL-1.0
/// @file
/// A LandXML document, and its numbers by the units that it declares.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_FILE_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_LAND_XML_FILE_H

#include "common/exchange/AlignmentModel.h"
#include "common/exchange/LandXmlUnits.h"

#include <pugixml.hpp>

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace Exchange {

/// No grid and no stationing on the Earth reaches farther (m).
constexpr double kLargestCoordinate = 1e8;
/// No element of a railway or road is longer (m).
constexpr double kLongestElement = 1e6;
/// Flatter curves are slips (m): over a kilometre they leave the tangent by half a micrometre.
constexpr double kLargestRadius = 1e12;

/// Inside the reader alone; readLandXml() hands it over as a value.
struct LandXmlFailure : std::runtime_error {
  explicit LandXmlFailure(Remark reason)
      : std::runtime_error(reason.message), remark(std::move(reason)) {}
  Remark remark;
};

/// Without a namespace prefix.
std::string localName(const pugi::xml_node& node);

/// Each operation that finds something wrong throws a LandXmlFailure with the line of the node.
class LandXmlFile {
 public:
  /// @param xml in any Unicode encoding, or ISO 8859-1 when the file says so
  explicit LandXmlFile(const std::string& xml);

  const pugi::xml_node& root() const { return m_root; }
  const LandXmlUnits& units() const { return m_units; }
  int lineOf(const pugi::xml_node& node) const;

  [[noreturn]] void fail(const pugi::xml_node& node, const std::string& message) const;
  static std::vector<pugi::xml_node> childrenNamed(const pugi::xml_node& node, const char* name);
  static pugi::xml_node childNamed(const pugi::xml_node& node, const char* name);
  pugi::xml_node requiredChild(const pugi::xml_node& node, const char* name) const;

  std::string requiredText(const pugi::xml_node& node, const char* attribute) const;
  std::optional<double> optionalNumber(const pugi::xml_node& node, const char* attribute) const;
  /// A length without its sign; nothing for zero.
  std::optional<double> optionalSize(const pugi::xml_node& node, const char* attribute,
                                     double largest) const;
  /// The same, but a negative one is a slip.
  std::optional<double> optionalLength(const pugi::xml_node& node) const;
  std::optional<double> optionalAngle(const pugi::xml_node& node, const char* attribute,
                                      AngleUnit unit) const;
  std::optional<double> optionalStation(const pugi::xml_node& node, const char* attribute) const;
  /// @param value in the unit
  double coordinate(const pugi::xml_node& node, double value, double metresPerUnit) const;
  /// North and east, or the name of a point of the file that has them.
  PlanPoint pointOf(const pugi::xml_node& node) const;

 private:
  void readUnits();
  pugi::xml_node pointNamed(const pugi::xml_node& node, const std::string& name) const;

  std::vector<std::ptrdiff_t> m_lineStarts;
  pugi::xml_document m_document;
  pugi::xml_node m_root;
  LandXmlUnits m_units;
};

}  // namespace Exchange

#endif
