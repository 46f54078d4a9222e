// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/LandXmlProfile.h"

#include "common/exchange/NumberParsing.h"
#include "common/exchange/VisibleText.h"

#include <algorithm>
#include <cstddef>

namespace Exchange {

namespace {

/// A ProfAlign, and the Profile that it stands in.
struct Candidate {
  pugi::xml_node profile;
  pugi::xml_node design;

  bool isNamed(const std::string& name) const {
    return design.attribute("name").value() == name || profile.attribute("name").value() == name;
  }
  bool isProposed() const {
    const std::string own = design.attribute("state").value();
    return own == "proposed" ||
           (own.empty() && profile.attribute("state").value() == std::string("proposed"));
  }
};

std::vector<Candidate> candidatesOf(const pugi::xml_node& alignment) {
  std::vector<Candidate> candidates;
  for (const pugi::xml_node& profile : LandXmlFile::childrenNamed(alignment, "Profile")) {
    for (const pugi::xml_node& design : LandXmlFile::childrenNamed(profile, "ProfAlign")) {
      candidates.push_back({profile, design});
    }
  }
  return candidates;
}

std::string namesOf(const std::vector<Candidate>& candidates) {
  std::string names;
  for (const Candidate& candidate : candidates) {
    names += (names.empty() ? "" : ", ") + inQuotes(candidate.design.attribute("name").value());
  }
  return names;
}

/// The profile to be read; none when there is none.
pugi::xml_node chosen(const LandXmlFile& file, const pugi::xml_node& alignment,
                      const std::string& name) {
  const std::vector<Candidate> all = candidatesOf(alignment);
  std::vector<Candidate> suitable;
  std::copy_if(all.begin(), all.end(), std::back_inserter(suitable),
               [&](const Candidate& c) { return name.empty() ? c.isProposed() : c.isNamed(name); });
  if (!name.empty() && suitable.empty()) {
    file.fail(alignment, "no profile is named " + inQuotes(name) +
                             (all.empty() ? "; there is none" : "; there is " + namesOf(all)));
  }
  if (suitable.empty()) suitable = all;
  if (suitable.size() > 1) {
    file.fail(alignment, "has " + std::to_string(suitable.size()) + " profiles, " +
                             namesOf(suitable) + ": choose one by --profile");
  }
  return suitable.empty() ? pugi::xml_node() : suitable.front().design;
}

ProfilePoint pointOf(const LandXmlFile& file, const pugi::xml_node& node) {
  const auto numbers = parseNumbers(node.child_value());
  if (!numbers || numbers->size() != 2) {
    file.fail(node, inQuotes(node.child_value()) + " is not station and height");
  }
  ProfilePoint point;
  point.line = file.lineOf(node);
  point.station = file.coordinate(node, numbers->at(0), file.units().metresPerLength);
  point.height = file.coordinate(node, numbers->at(1), file.units().metresPerHeight);
  return point;
}

/// A point of which it is not yet known what comes before and behind it.
struct RawPoint {
  ProfilePoint point;
  double lengthIn = 0.0;  ///< of an unsymmetrical parabola, before the point and behind it
  double lengthOut = 0.0;
};

RawPoint rawPointOf(const LandXmlFile& file, const pugi::xml_node& node) {
  const std::string kind = localName(node);
  if (kind != "PVI" && kind != "ParaCurve" && kind != "CircCurve" && kind != "UnsymParaCurve") {
    file.fail(node,
              "this element of a ProfAlign is not supported, only PVI, ParaCurve, UnsymParaCurve "
              "and CircCurve");
  }
  RawPoint raw{pointOf(file, node)};
  // Without a length or radius a rounding is a kink. The sign of a radius tells crests from sags,
  // which the grades do too.
  if (kind == "ParaCurve") {
    file.requiredText(node, "length");
    raw.point.size = file.optionalSize(node, "length", kLongestElement).value_or(0.0);
    raw.point.rounding = RoundingKind::Parabola;
  } else if (kind == "CircCurve") {
    file.requiredText(node, "radius");
    raw.point.size = file.optionalSize(node, "radius", kLargestRadius).value_or(0.0);
    raw.point.rounding = RoundingKind::Circle;
  } else if (kind == "UnsymParaCurve") {
    file.requiredText(node, "lengthIn");
    file.requiredText(node, "lengthOut");
    raw.lengthIn = file.optionalSize(node, "lengthIn", kLongestElement).value_or(0.0);
    raw.lengthOut = file.optionalSize(node, "lengthOut", kLongestElement).value_or(0.0);
    const bool isHalf = (raw.lengthIn == 0.0) != (raw.lengthOut == 0.0);
    if (isHalf) file.fail(node, "one of lengthIn and lengthOut is 0");
  }
  if (raw.point.size == 0.0) raw.point.rounding = RoundingKind::None;
  return raw;
}

double gradeOf(const ProfilePoint& from, const ProfilePoint& to) {
  return (to.height - from.height) / (to.station - from.station);
}

/// An unsymmetrical parabola is two symmetrical ones that meet at the station of the point. The
/// tangent that they share runs from the middle of the one to the middle of the other.
void appendUnsymmetrical(std::vector<ProfilePoint>& profile, const std::vector<RawPoint>& raw,
                         std::size_t index) {
  const ProfilePoint& point = raw[index].point;
  ProfilePoint in = point;
  in.rounding = RoundingKind::Parabola;
  ProfilePoint out = in;
  in.size = raw[index].lengthIn;
  in.station -= in.size / 2.0;
  in.height -= in.size / 2.0 * gradeOf(raw[index - 1].point, point);
  out.size = raw[index].lengthOut;
  out.station += out.size / 2.0;
  out.height += out.size / 2.0 * gradeOf(point, raw[index + 1].point);
  profile.push_back(in);
  profile.push_back(out);
}

void check(const LandXmlFile& file, const std::vector<RawPoint>& raw, const pugi::xml_node& node) {
  if (raw.size() < 2) file.fail(node, "holds fewer than two points");
  for (std::size_t i = 1; i < raw.size(); ++i) {
    if (raw[i].point.station > raw[i - 1].point.station) continue;
    throw LandXmlFailure({raw[i].point.line, "ProfAlign: stations do not ascend"});
  }
  for (const RawPoint* outer : {&raw.front(), &raw.back()}) {
    if (outer->point.rounding == RoundingKind::None && outer->lengthIn == 0.0) continue;
    throw LandXmlFailure(
        {outer->point.line, "ProfAlign: the first and the last point cannot be rounded"});
  }
}

}  // namespace

std::vector<ProfilePoint> profileOf(const LandXmlFile& file, const pugi::xml_node& alignment,
                                    const std::string& name) {
  const pugi::xml_node design = chosen(file, alignment, name);
  if (!design) return {};
  std::vector<RawPoint> raw;
  for (const pugi::xml_node& node : design.children()) {
    if (node.type() != pugi::node_element || localName(node) == "Feature") continue;
    raw.push_back(rawPointOf(file, node));
  }
  check(file, raw, design);
  std::vector<ProfilePoint> profile;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i].lengthIn > 0.0) {
      appendUnsymmetrical(profile, raw, i);
    } else {
      profile.push_back(raw[i].point);
    }
  }
  return profile;
}

}  // namespace Exchange
